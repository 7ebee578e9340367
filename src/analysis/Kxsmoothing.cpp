#include <kxgraph/analysis/Kxsmoothing.h>

#include <kxgraph/analysis/Kxfitpoints.h>
#include <kxgraph/numeric/Kxlanes.h>
#include <kxgraph/platform/base/matherror.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <vector>

namespace kx {

namespace {

using TValues = std::vector<double>;

// What is summed up of weights, and of values times weights.
double WeightOf(TKxLanes Lanes) { return Lanes[0]; }
double ValueOf(TKxLanes Lanes) { return Lanes[1]; }

/// Sums over points, of 1 and y and of both times the distance t from the anchor.
struct TSums {
    TKxDoubledLanes Plain, Moment;

    void Add(double t, double y) {
        Accumulate(Plain, TKxLanes{1, y});
        Accumulate(Moment, TKxLanes{t, t * y});
    }
    friend TSums operator+(const TSums& a, const TSums& b) {
        return {a.Plain + b.Plain, a.Moment + b.Moment};
    }

private:
    /// Kahan's compensated sum.
    static void Accumulate(TKxDoubledLanes& Total, TKxLanes Value) {
        const TKxLanes sum = Total.Hi + Value;
        Total = {sum, Total.Lo + (Value - (sum - Total.Hi))};
    }
};

/// The points and the half width of the window. Powers of two bring y and distances to where no sum
/// overflows.
struct TPoints {
    std::span<const double> X, Y;
    double M;
    double XScale, YScale;

    double HalfWidth() const { return M * XScale; }
    double DistanceOf(std::size_t i, std::size_t From) const { return (X[i] - X[From]) * XScale; }
    bool AreNear(std::size_t Lower, std::size_t Upper) const { return X[Upper] - X[Lower] < M; }
};

/// Sums about an anchor: of the points from each one before it up to the anchor itself, and of the points
/// behind it up to each.
class TJoint {
public:
    explicit TJoint(const TPoints& Points) : FPoints(&Points) {}

    /// Covers the points First..End-1; the anchor is Split - 1. Without points Split is First.
    void Build(std::size_t First, std::size_t Split, std::size_t End) {
        FFirst = First;
        FSplit = Split;
        FEnd = End;
        if (FSums.size() <= End - First) FSums.resize(2 * (End - First) + 1);
        FSums[Split - First] = {};
        Accumulate(Split, First, -1);
        Accumulate(Split, End, 1);
    }
    std::size_t Split() const { return FSplit; }
    std::size_t End() const { return FEnd; }

    /// Sums of weight * half width, and of that times y, of the points Begin..End-1 for the point Middle,
    /// where Begin <= Split <= End. All lie below Middle (Side is 1) or above (-1).
    TKxLanes SumsFor(std::size_t Middle, std::size_t Begin, std::size_t End, double Side) const {
        if (Begin == End) return TKxLanes{};
        const TSums &a = FSums[Begin - FFirst], &b = FSums[End - FFirst];
        const double width = FPoints->HalfWidth();
        const double rest = width - Side * FPoints->DistanceOf(Middle, FSplit - 1);
        const TKxLanes moment = a.Moment.Hi + b.Moment.Hi + (a.Moment.Lo + b.Moment.Lo);
        const TKxLanes plain = a.Plain.Hi + b.Plain.Hi + (a.Plain.Lo + b.Plain.Lo);
        const TKxLanes sums = plain * AllLanes(rest) + moment * AllLanes(Side);
        // Digits cancel where most of the points have hardly any weight.
        constexpr double CHarmless = 64;
        const bool cancels = WeightOf(plain) * width > CHarmless * (WeightOf(sums) + width);
        return cancels ? ExactSumsFor(Middle, a + b, Side) : sums;
    }

private:
    void Accumulate(std::size_t From, std::size_t To, int Step) {
        TSums sums;
        TSums* out = FSums.data() + (From - FFirst);
        const TPoints points = *FPoints;
        for (std::size_t l = From; l != To; l += std::size_t(Step)) {
            const std::size_t i = Step > 0 ? l : l - 1;
            sums.Add(points.DistanceOf(i, FSplit - 1), points.Y[i] * points.YScale);
            out += Step;
            *out = sums;
        }
    }

    TKxLanes ExactSumsFor(std::size_t Middle, const TSums& All, double Side) const {
        const TKxLanes side = AllLanes(Side);
        const TKxDoubled d = TwoSum(FPoints->X[Middle], -FPoints->X[FSplit - 1]);
        const double scale = -Side * FPoints->XScale; // a power of two
        const TKxDoubled rest = TKxDoubled(FPoints->HalfWidth()) + TKxDoubled(d.Hi * scale, d.Lo * scale);
        const TKxDoubledLanes product = All.Plain * AllLanes(rest);
        return (product + TKxDoubledLanes(All.Moment.Hi * side, All.Moment.Lo * side)).Hi;
    }

    const TPoints* FPoints;
    std::size_t FFirst = 0, FSplit = 0, FEnd = 0;
    std::vector<TSums> FSums; // [k - First]: of k..Split-1, or of Split..k-1
};

/// 1, or the power of two that brings the greatest value to about 1 when sums might overflow or vanish.
double SafeScale(std::span<const double> Values) {
    double greatest = 0;
    for (const double value : Values) greatest = std::max(greatest, std::abs(value));
    const int exponent = greatest > 0 ? std::ilogb(greatest) : 0;
    return std::abs(exponent) > 800 ? std::ldexp(1, -std::max(exponent, -1000)) : 1;
}

TValues SmoothAscending(double M, std::span<const double> X, std::span<const double> Y) {
    const double xScale = std::ldexp(1, -std::clamp(std::ilogb(M), -1000, 1000));
    const TPoints points{X, Y, M, xScale, SafeScale(Y)};

    TValues result(X.size());
    // Anchors lie less than M apart, each as far behind the one before as can be, save over gaps. So a window
    // takes in the last anchor before i and the first one from i on: with each of them go the points of one
    // side, and no sum need ever be taken back.
    TJoint lower(points), upper(points);
    const auto endNear = [&](std::size_t i) {
        std::size_t end = i + 1;
        while (end < X.size() && points.AreNear(i, end)) ++end;
        return end;
    };
    lower.Build(0, 0, 0);
    upper.Build(0, 1, endNear(0));
    const double own = points.HalfWidth(), unscale = 1 / points.YScale;
    for (std::size_t i = 0, begin = 0, end = 0; i < X.size(); ++i) {
        if (i == upper.Split()) {
            std::swap(lower, upper);
            const std::size_t split = std::max(lower.End(), i + 1);
            upper.Build(i, split, endNear(split - 1));
        }
        begin += std::size_t(!points.AreNear(begin, i));
        while (!points.AreNear(begin, i)) ++begin;
        end = std::max(end, i + 1);
        while (end < X.size() && points.AreNear(i, end)) ++end;
        const TKxLanes sums = lower.SumsFor(i, begin, i, 1) + upper.SumsFor(i, i + 1, end, -1);
        const double mean = (own * (Y[i] * points.YScale) + ValueOf(sums)) / (own + WeightOf(sums)) * unscale;
        result[i] = WeightOf(sums) > 0 ? mean : Y[i];
    }
    return result;
}

TValues SmoothDirectly(double M, std::span<const double> X, std::span<const double> Y) {
    TValues result(X.size());
    const double scale = SafeScale(Y);
    for (std::size_t i = 0; i < X.size(); ++i) {
        std::size_t lo = i, hi = i;
        while (lo > 0 && std::abs(X[i] - X[lo]) < M) --lo;
        while (hi + 1 < X.size() && std::abs(X[i] - X[hi]) < M) ++hi;
        double sum = 0, weights = 0;
        for (std::size_t l = lo; l <= hi; ++l) {
            const double w = 1 - std::abs(X[i] - X[l]) / M;
            if (!(w > 0)) continue;
            sum += w * (Y[l] * scale);
            weights += w;
        }
        result[i] = sum / weights / scale;
    }
    return result;
}

TValues LogarithmsOf(std::span<const double> X) {
    TValues logs(X.size());
    for (std::size_t i = 0; i < X.size(); ++i) {
        logs[i] = std::log10(CheckedPositive(X[i]));
        // Log10 is not certain to keep the order of neighbours.
        if (i > 0 && X[i - 1] <= X[i]) logs[i] = std::max(logs[i], logs[i - 1]);
    }
    return logs;
}

/// For finite values.
TValues SmoothFinite(double M, std::span<const double> X, std::span<const double> Y, bool Log) {
    if (X.size() < 3) RaiseNotEnoughData();
    if (X.front() > X.back() && std::is_sorted(X.rbegin(), X.rend())) {
        const TValues x(X.rbegin(), X.rend()), y(Y.rbegin(), Y.rend());
        TValues result = SmoothFinite(M, x, y, Log);
        std::reverse(result.begin(), result.end());
        return result;
    }
    const TValues logs = Log ? LogarithmsOf(X) : TValues();
    if (Log) X = logs;
    return std::is_sorted(X.begin(), X.end()) ? SmoothAscending(M, X, Y) : SmoothDirectly(M, X, Y);
}

void Smooth(double M, const TKxRealArray& X, TKxRealArray& Y, bool Log) {
    const int n = std::min(X.Length(), Y.Length());
    if (n < 3) RaiseNotEnoughData();
    if (!(M > 0)) return;
    M = std::min(M, std::numeric_limits<double>::max());
    const std::span<const double> allX(X.Data(), std::size_t(n));
    const std::span<double> allY(Y.Data(), std::size_t(n));
    const auto takesPart = [=](std::size_t i) { return std::isfinite(allX[i]) && std::isfinite(allY[i]); };

    std::size_t leading = 0; // all, as a rule
    while (leading < allX.size() && takesPart(leading)) ++leading;
    if (leading == allX.size()) {
        const TValues result = SmoothFinite(M, allX, allY, Log);
        std::copy(result.begin(), result.end(), allY.begin());
        return;
    }
    TValues x, y;
    std::vector<std::size_t> indices;
    for (std::size_t i = 0; i < allX.size(); ++i) {
        if (!takesPart(i)) continue;
        indices.push_back(i);
        x.push_back(allX[i]);
        y.push_back(allY[i]);
    }
    const TValues result = SmoothFinite(M, x, y, Log);
    for (std::size_t k = 0; k < indices.size(); ++k) allY[indices[k]] = result[k];
}

} // namespace

void SmoothVector(double M, const TKxRealArray& X, TKxRealArray& Y) { Smooth(M, X, Y, false); }

void SmoothVectorLog(double M, const TKxRealArray& X, TKxRealArray& Y) { Smooth(M, X, Y, true); }

} // namespace kx
