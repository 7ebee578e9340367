#pragma once
// The extremes of any stretch of many values, found without looking at all of them.

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

namespace kx {

/// How many values this thread has looked at so far to find extents, to place points and to draw them. What a
/// frame has cost is the difference of two readings; for benches and tests.
inline constinit thread_local std::uint64_t PointsTouched = 0;

/// Least and greatest of blocks of 64 values, of 16 such blocks and so on, with what else is asked of a whole
/// stretch: whether it is sorted, whether all of it are numbers. Needs little more than a quarter of a byte a
/// value. Made when first asked for; later only what has changed or was appended is looked at.
///
/// The values are not kept: they are given with every question, and whoever owns them tells of changes.
class TKxExtremes {
public:
    /// Where a stretch ends; without a number in it LowAt and HighAt are -1.
    struct TEnds {
        double Low = 0, High = 0;
        int LowAt = -1, HighAt = -1; ///< the first of equal ones
        bool IsEmpty() const { return LowAt < 0; }
    };

    /// Value Index is another one.
    void Change(int Index) noexcept {
        if (Index + FSkipped < FKnown) ChangeAt(Index + FSkipped); // one that was appended is none
    }
    /// From Count on all may be other ones.
    void Cut(int Count) noexcept;
    /// The first Count values are gone: those behind them are known as before. Costs the blocks that they
    /// were in, and now and then, when as many are gone as are left, all others.
    void DropFront(int Count) noexcept;

    // All of Values are those that were given before but for what was told. Infinite values are numbers.
    /// The extremes of the values First..Last - 1, which must exist.
    TEnds Of(std::span<const double> Values, int First, int Last);
    /// Least and greatest of many values.
    struct TBounds {
        double Low, High;
        bool IsEmpty() const { return !(Low <= High); } ///< without a number
    };
    /// The same without their places: looks at few values but those of blocks that are cut.
    TBounds Bounds(std::span<const double> Values, int First, int Last);
    /// Whether none of Values is less than the one before (greater, for IsDescending) or not a number.
    bool IsAscending(std::span<const double> Values) { return (FlagsOf(Values) & CFalls) == 0; }
    bool IsDescending(std::span<const double> Values) { return (FlagsOf(Values) & CRises) == 0; }
    /// The first value of the block, of CBlock or CLargeBlock, that holds value Index: Of costs least between
    /// two such.
    int BlockStart(int Index, int Block = CBlock) const {
        return std::max(0, ((Index + FSkipped) & -Block) - FSkipped);
    }
    static constexpr int CBlock = 64, CLargeBlock = 16 * CBlock;
    /// The first value of the block that holds value Index, of values that never fall (rise, for not Rises),
    /// as they were when last asked about.
    double BlockFirst(int Index, bool Rises) const {
        const int place = Index + FSkipped;
        const bool isLarge = place % CLargeBlock == 0 && FLevels.size() > 1; // fewer of them: nearer
        const TBounds& node = FLevels[isLarge].Nodes[std::size_t(place / (isLarge ? CLargeBlock : CBlock))];
        return Rises ? node.Low : node.High;
    }
    /// Whether the blocks that hold First..Last - 1 are numbers.
    bool AreNumbers(std::span<const double> Values, int First, int Last);

private:
    enum TFlag : std::uint8_t { CFalls = 1, CRises = 2, CNotANumber = 4, CStale = 128 };
    struct TLevel {
        std::vector<TBounds> Nodes;
        std::vector<std::uint8_t> Flags;
        int StaleFirst = 0, StaleLast = -1; // all stale nodes lie between
        void Mark(int Node);
    };
    struct TBest;
    std::pair<TBest, TBest> Best(std::span<const double> Values, int First, int Last);
    static TBounds BoundsOf(std::span<const double> Values);
    static TBounds BoundsOf(std::span<const TBounds> Blocks);
    TBounds BoundsOf(std::span<const double> Values, int Level, int First, int Last) const;
    template <class F>
    void ForBlocks(int First, int Last, F Take) const;

    std::uint8_t FlagsOf(std::span<const double> Values);
    void Update(std::span<const double> Values);
    void MakeRoom(int Count);
    void Renew(std::size_t Level, std::span<const double> Values);
    void RenewLeaf(int Leaf, std::span<const double> Values);
    void RenewNode(std::size_t Level, int Node);
    template <bool High>
    int Find(std::span<const double> Values, const TBest& Best) const;

    void ChangeAt(int Place) noexcept;
    void CutAt(int Place) noexcept;

    std::vector<TLevel> FLevels;
    // Blocks are those of places: value 0 stands at FSkipped, behind those that are gone.
    int FSkipped = 0;
    int FKnown = 0;  // the places up to here are accounted for, but for those in stale blocks
    int FSized = -1; // so many places have room
};

} // namespace kx
