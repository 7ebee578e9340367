#pragma once
// One direction of a series: a vector, the axis that it is drawn against, and its extent.

#include <kxgraph/graph/Kxaxis.h>
#include <kxgraph/numeric/Kxconsts.h>
#include <kxgraph/numeric/Kxrange.h>
#include <kxgraph/numeric/Kxvector.h>

#include <span>

namespace kx {

/// A vector that a component refers to and listens to with a method of its own: a vector tells its listeners
/// apart by their method alone. The vector is not owned; the component asks for its FreeNotification.
class TKxBoundVector {
public:
    explicit TKxBoundVector(const TKxValueIChangedEvent& Listener) : FListener(Listener) {}
    ~TKxBoundVector() { StopListening(); }
    TKxBoundVector(const TKxBoundVector&) = delete;
    TKxBoundVector& operator=(const TKxBoundVector&) = delete;

    TKxCustomRealVector* GetVector() const { return FVector; }
    /// 0 without a vector.
    int GetCount() const { return FVector ? FVector->GetCount() : 0; }
    /// Raises what the vector raises; there must be one.
    double GetValue(int Index) const { return FVector->GetValue(Index); }

    /// Vector in place of the one before, null for none. Without Listens its notices go elsewhere.
    void Bind(TKxCustomRealVector* Vector, bool Listens = true);
    /// The vector is being destroyed.
    void Forget() { FVector = nullptr; }
    /// Whether a notice tells of an insertion in front of the end, so that all values behind Index have
    /// moved. To be asked once for each notice.
    bool WasInserted(int Index, bool WasDeleted) {
        // The notice names the one value alone; but the count has grown, and not at the end.
        const int count = GetCount(), before = FKnownCount;
        const bool leaves = WasDeleted && Index >= 0; // is still counted
        FKnownCount = leaves && count > 0 ? count - 1 : count;
        return !WasDeleted && before != count && Index < count - 1;
    }

private:
    void StopListening();

    TKxValueIChangedEvent FListener;
    TKxCustomRealVector* FVector = nullptr;
    int FKnownCount = 0; // when it last told of itself
};

/// An interval that takes part in an extent; not finite: nothing does.
struct TKxInterval {
    double Low, High;

    static constexpr TKxInterval Empty() { return {CMaxReal, -CMaxReal}; }
    /// Takes no part.
    static TKxInterval None();
};

/// The vector and the axis of one direction, what the values span on it, and who holds the ends. Series and
/// axis are told by the series: nothing here calls a handler but that of the range.
class TKxChannel : public TKxBoundVector {
public:
    /// Coordinate is that of this direction in screen points.
    TKxChannel(const TKxValueIChangedEvent& Listener, int TPoint::*Coordinate)
        : TKxBoundVector(Listener), FCoordinate(Coordinate) {}

    TKxAxis* GetAxis() const { return FAxis; }
    /// The range must be withdrawn from the axis before.
    void SetAxis(TKxAxis* Axis) { FAxis = Axis; }
    /// The axis is being destroyed.
    void ForgetAxis();
    /// That of the axis; linear without one.
    TKxAxScaling GetScaling() const { return FAxis ? FAxis->GetScaling() : AxNormal; }
    bool IsLogarithmic() const { return GetScaling() != AxNormal; }
    bool HasPlace(double Value) const { return kx::HasPlace(GetScaling(), Value); }

    /// Enters the range with the axis, where there are an axis and a vector, and moves the axis.
    void EnterRange();
    /// Takes it away: the axis follows those that remain, but where all go one after the other.
    void WithdrawRange();

    TRange& GetRange() { return FRange; }
    const TRange& GetRange() const { return FRange; }
    bool IsEmpty() const { return FRange.GetStart() > FRange.GetStop(); }
    /// Who holds the ends; -1 when unknown.
    int GetMinIndex() const { return FMinIndex; }
    int GetMaxIndex() const { return FMaxIndex; }
    void SetExtent(TKxInterval Extent, int MinIndex, int MaxIndex);
    enum class TTaken {
        Inside, ///< the extent is what it was
        Wider,
        MovedInward ///< an end may have: all values must be looked at
    };
    /// Whether the extent is sure to be what it was with value Index alone for an interval.
    bool Holds(int Index) const {
        const double value = GetValue(Index), start = FRange.GetStart(), stop = FRange.GetStop();
        if (!(value >= start && value <= stop)) return false;
        if (Index != FMinIndex && Index != FMaxIndex) return true;
        return !IsLogarithmic() && (Index != FMinIndex || value == start) &&
               (Index != FMaxIndex || value == stop);
    }
    /// One changed interval; its ends apart, which compilers hand over much faster than as one.
    TTaken Take(int Index, double Low, double High) {
        const double start = FRange.GetStart(), stop = FRange.GetStop();
        const bool movedInward =
            (Index == FMinIndex && !(Low <= start)) || (Index == FMaxIndex && !(High >= stop));
        if (movedInward) return TTaken::MovedInward;
        const bool lower = Low<start, higher = High> stop;
        if (!lower && !higher) return TTaken::Inside;
        FRange.SetStartStop(lower ? Low : start, higher ? High : stop);
        if (lower) FMinIndex = Index;
        if (higher) FMaxIndex = Index;
        return TTaken::Wider;
    }

    /// The pixel of value Index. There must be an axis.
    int PixelOf(int Index) const { return FAxis->RealToIntPosition(GetValue(Index)); }
    /// The pixels of the values First, First + 1, ..., as many as there are points.
    void Place(int First, std::span<TPoint> Points) const;
    /// The same before they are rounded.
    double PlaceOf(int Index) const { return FAxis->GetMap().RealToPlace(GetValue(Index)); }
    void Place(int First, std::span<TRealPoint> Points) const;
    int& In(TPoint& Point) const { return Point.*FCoordinate; }
    int In(const TPoint& Point) const { return Point.*FCoordinate; }
    double& In(TRealPoint& Point) const { return FCoordinate == &TPoint::X ? Point.X : Point.Y; }

private:
    int TPoint::*FCoordinate;
    TKxAxis* FAxis = nullptr;
    TRange FRange;
    int FMinIndex = -1, FMaxIndex = -1;
};

/// Finds the extent of many intervals and the first ones that hold its ends.
class TKxExtentScan {
public:
    /// From is in the extent whatever comes.
    explicit TKxExtentScan(TKxInterval From) : FExtent(From), FWasEmpty(From.Low > From.High) {}

    /// The first Count values of Channel by their extremes. Returns false, and takes nothing, where one of
    /// those takes no part under Scaling: all values must be looked at then.
    bool TakeEnds(const TKxChannel& Channel, int Count, TKxAxScaling Scaling);
    /// The intervals First, First + 1, ...
    void Take(int First, std::span<const TKxInterval> Intervals);
    void StoreIn(TKxChannel& Channel) const { Channel.SetExtent(FExtent, FMinIndex, FMaxIndex); }

private:
    TKxInterval FExtent;
    bool FWasEmpty; // then an equal value is the first one
    int FMinIndex = -1, FMaxIndex = -1;
};

} // namespace kx
