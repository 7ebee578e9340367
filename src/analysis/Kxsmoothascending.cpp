#include <kxgraph/analysis/Kxsmoothascending.h>

#include <kxgraph/analysis/Kxsmoothfew.h>
#include <kxgraph/numeric/Kxlanes.h>
#include <kxgraph/numeric/Kxwide.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace kx {

namespace {

struct TGreatest {
    template <bool>
    static KX_INLINED void Run(double& Result, std::span<const double> Values) {
        TKxParts<8> parts{};
        ForEachInParts<8, 4>(Values.size(), [&](std::size_t i, std::size_t k) {
            const double size = std::abs(Values[i]);
            parts[k] = size > parts[k] ? size : parts[k];
        });
        Result = LargestPart(parts);
    }
};

// The weights are linear in x on each side, so sums of 1, x, y and xy serve.

/// Sums over points: of 1 and y, and of both times t, the distance from an anchor.
template <class T>
struct TSums {
    T Plain, Moment;
    KX_INLINED friend TSums operator+(const TSums& A, const TSums& B) {
        return {A.Plain + B.Plain, A.Moment + B.Moment};
    }
};

/// Adds up; to be put down after every few points, so that hardly anything gets lost.
class TRunningSums {
public:
    using TSum = TSums<TKxLanes>;
    KX_INLINED TSum Add(double t, double y) {
        const TKxLanes plain{1, y};
        FPart.Plain += plain;
        FPart.Moment += plain * t;
        return FSums + FPart;
    }
    KX_INLINED void PutDown() {
        const TKxDoubledLanes plain = TwoSum(FSums.Plain, FPart.Plain),
                              moment = TwoSum(FSums.Moment, FPart.Moment);
        FSums = {plain.Hi, moment.Hi};
        FPart = {plain.Lo, moment.Lo};
    }

private:
    TSum FSums{TKxLanes{}, TKxLanes{}}, FPart{TKxLanes{}, TKxLanes{}};
};

/// Loses nothing.
class TCarefulSums {
public:
    using TSum = TSums<TKxDoubledLanes>;
    KX_INLINED TSum Add(double t, double y) {
        FSums = FSums + TSum{TKxDoubledLanes(TKxLanes{1, y}), TKxDoubledLanes(TKxLanes{t, t * y})};
        return FSums;
    }
    KX_INLINED void PutDown() {}

private:
    TSum FSums;
};

/// Sums about an anchor, the last point before Split: of the points from each one of First..Split up to the
/// anchor, and of those behind it up to each one of Split..End.
template <class TRunning>
class TJoint {
public:
    using TSum = typename TRunning::TSum;

    void Place(std::size_t First, std::size_t Split, std::size_t End) {
        FFirst = First;
        FSplit = Split;
        FEnd = End;
        if (FCount <= End - First + 1) // not cleared
            FSums = std::make_unique_for_overwrite<TSum[]>(FCount = End - First + 2);
    }
    std::size_t First() const { return FFirst; }
    std::size_t Split() const { return FSplit; }
    std::size_t End() const { return FEnd; }
    KX_INLINED std::size_t Anchor() const { return FSplit - 1; }

    KX_INLINED void SumUp(const TSmoothPoints& P) {
        constexpr std::size_t most = 16; // points before sums are put down
        TSum *suffix = FSums.get() + (FSplit - FFirst), *prefix = suffix + 1;
        *suffix = *prefix = TSum{};
        TRunning below, above;
        for (std::size_t l = FSplit; l > FFirst; below.PutDown())
            for (const std::size_t stop = l - std::min(most, l - FFirst); l > stop;) {
                --l;
                *--suffix = below.Add(P.DistanceOf(l, Anchor()), P.ScaledY(l));
            }
        for (std::size_t l = FSplit; l < FEnd; above.PutDown())
            for (const std::size_t stop = l + std::min(most, FEnd - l); l < stop; ++l)
                *++prefix = above.Add(P.DistanceOf(l, Anchor()), P.ScaledY(l));
    }
    /// Of the points From..UpTo-1, where From <= Split <= UpTo: the sums number From - First and
    /// UpTo - First + 1, added up.
    const TSum* Sums() const { return FSums.get(); }

private:
    std::size_t FFirst = 0, FSplit = 0, FEnd = 0, FCount = 0;
    std::unique_ptr<TSum[]> FSums;
};

/// One side of the windows: sums that do as a rule, and careful ones that are made when they are needed.
/// Sign is what t adds to a weight: 1 below the middle of a window, -1 above.
template <int Sign>
struct TSide {
    TJoint<TRunningSums> Joint;
    TJoint<TCarefulSums> Careful;

    /// What does not change from one point to the next.
    struct TView {
        const TRunningSums::TSum* Sums;
        std::size_t First;
        double Anchor;
    };
    TView View(const TSmoothPoints& P) const {
        return {Joint.Sums(), Joint.First(), P.X[std::max<std::size_t>(Joint.Split(), 1) - 1]};
    }

    /// Weights and values times weights, summed up over From..UpTo-1, in units of the half width.
    KX_INLINED TKxLanes SumsFor(const TSmoothPoints& P, const TView& View, std::size_t Middle,
                                std::size_t From, std::size_t UpTo) {
        if (From == UpTo) return TKxLanes{};
        const auto [plain, moment] = View.Sums[From - View.First] + View.Sums[UpTo - View.First + 1];
        const double width = P.HalfWidth(), distance = (P.X[Middle] - View.Anchor) * P.XScale;
        const TKxLanes part = plain * AllLanes(Sign > 0 ? width - distance : width + distance);
        const TKxLanes sums = Sign > 0 ? part + moment : part - moment;
        // Digits cancel where most of the points have hardly any weight.
        constexpr double CHarmless = 64;
        return plain[0] * width > CHarmless * (sums[0] + width) ? CarefulSumsFor(P, Middle, From, UpTo)
                                                                : sums;
    }

private:
    [[gnu::noinline]] TKxLanes CarefulSumsFor(const TSmoothPoints& P, std::size_t Middle, std::size_t From,
                                              std::size_t UpTo) {
        if (Careful.Split() != Joint.Split()) {
            Careful.Place(Joint.First(), Joint.Split(), Joint.End());
            Careful.SumUp(P);
        }
        const TKxDoubled d = TwoSum(P.X[Middle], -P.X[Joint.Anchor()]);
        const double scale = -Sign * P.XScale; // a power of two
        const TKxDoubled rest = TKxDoubled(P.HalfWidth()) + TKxDoubled(d.Hi * scale, d.Lo * scale);
        const auto [plain, moment] =
            Careful.Sums()[From - Careful.First()] + Careful.Sums()[UpTo - Careful.First() + 1];
        const TKxLanes sign = AllLanes(Sign);
        return (plain * AllLanes(rest) + TKxDoubledLanes(moment.Hi * sign, moment.Lo * sign)).Hi;
    }
};

/// Anchors lie less than M apart, each as far behind the one before as can be, save over gaps. So a window
/// takes in the last anchor before i and the first one from i on: with each of them go the points of one
/// side, and no sum need ever be taken back.
class TWindows {
public:
    explicit TWindows(const TSmoothPoints& Points) : FPoints(Points) {
        FUpper.Joint.Place(
            0, 1, std::max<std::size_t>(FPoints.EndNear(0, 1), std::min<std::size_t>(2, Points.Count)));
    }
    void Average(double* Result);

private:
    friend struct TAverageBetween;

    TSmoothPoints FPoints;
    TSide<1> FLower;
    TSide<-1> FUpper;
    std::size_t FBegin = 0, FEnd = 1; ///< of a window
};

/// The means of the points between two anchors.
struct TAverageBetween {
    template <bool>
    static KX_INLINED void Run(double* Result, TWindows& W) {
        const TSmoothPoints p = W.FPoints;
        W.FUpper.Joint.SumUp(p);
        const auto lower = W.FLower.View(p);
        const auto upper = W.FUpper.View(p);
        std::size_t begin = W.FBegin, end = W.FEnd;
        for (std::size_t i = W.FUpper.Joint.First(); i < W.FUpper.Joint.Split(); ++i) {
            begin = FirstNear(p, i, begin);
            end = EndNear(p, i, std::max(end, i + 1));
            const TKxLanes sums =
                W.FLower.SumsFor(p, lower, i, begin, i) + W.FUpper.SumsFor(p, upper, i, i + 1, end);
            Result[i] = p.Mean(i, sums[0], sums[1]);
        }
        W.FBegin = begin;
        W.FEnd = end;
    }

private:
    // Some steps at once: nobody can tell how many there are, and to wait for them costs less than to be
    // wrong.
    static KX_INLINED std::size_t FirstNear(const TSmoothPoints& P, std::size_t i, std::size_t From) {
        std::size_t steps = 3;
        while (steps == 3 && From + 3 <= i) {
            steps = std::size_t(!P.AreNear(From, i)) + !P.AreNear(From + 1, i) + !P.AreNear(From + 2, i);
            From += steps;
        }
        while (!P.AreNear(From, i)) ++From;
        return From;
    }
    static KX_INLINED std::size_t EndNear(const TSmoothPoints& P, std::size_t i, std::size_t From) {
        std::size_t steps = 3;
        while (steps == 3 && From + 3 <= P.Count) {
            steps = std::size_t(P.AreNear(i, From)) + P.AreNear(i, From + 1) + P.AreNear(i, From + 2);
            From += steps;
        }
        if (steps == 3)
            while (From < P.Count && P.AreNear(i, From)) ++From;
        return From;
    }
};

void TWindows::Average(double* Result) {
    while (true) {
        RunKernel<TAverageBetween>(Result, *this);
        const std::size_t first = FUpper.Joint.Split(), split = FUpper.Joint.End();
        if (first == FPoints.Count) return;
        std::swap(FLower.Joint, FUpper.Joint);
        std::swap(FLower.Careful, FUpper.Careful);
        const std::size_t end = FPoints.EndNear(split - 1, split);
        FUpper.Joint.Place(first, split, std::max(end, std::min(split + 1, FPoints.Count)));
    }
}

} // namespace

double SafeScale(std::span<const double> Values) {
    double greatest = 0;
    RunKernel<TGreatest>(greatest, Values);
    const int exponent = greatest > 0 ? std::ilogb(greatest) : 0;
    return std::abs(exponent) > 800 ? std::ldexp(1, -std::max(exponent, -1000)) : 1;
}

std::vector<double> SmoothAscending(double M, std::span<const double> X, std::span<const double> Y) {
    const double xScale = std::ldexp(1, -std::clamp(std::ilogb(M), -1000, 1000));
    const TSmoothPoints points{X.data(), Y.data(), X.size(), M, xScale, SafeScale(Y)};
    std::vector<double> result(X.size());
    if (!SmoothFew(points, result.data())) TWindows(points).Average(result.data());
    return result;
}

} // namespace kx
