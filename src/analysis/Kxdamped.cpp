#include <kxgraph/analysis/Kxdamped.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kx {

namespace {

constexpr double CInfinity = std::numeric_limits<double>::infinity();
constexpr double CFirstDamping[] = {1e-3, 1, 1e3}; // of one search after the other
constexpr double CLeastDamping = 1e-30;            // what no point determines stays where it is
constexpr double CLeastGain = 1e-4;                // of what was promised
constexpr double CNearby = 1e-7;    // of the sum is promised: better derivatives are worth their calls
constexpr double CRounding = 1e-20; // likewise: nothing is gained any more
constexpr int CMostSettling = 50;
constexpr double CSettling = 0.9; // of the length of the step before
constexpr double CRise = 1e-9;    // of the sum that settling may cost: rounding

/// The damping, by what steps gain.
class TDamping {
public:
    explicit TDamping(double& Value) : FValue(Value) {}
    void Ease(double Gain) {
        FValue *= std::max(1.0 / 3, 1 - std::pow(2 * Gain - 1, 3));
        FGrowth = 2;
    }
    void Raise() {
        FValue *= FGrowth;
        FGrowth *= 2;
    }

private:
    double& FValue;
    double FGrowth = 2;
};

} // namespace

void TKxDamped::Keep(const TKxDampedPoint& Point) {
    FBest = Point.Coefficients;
    FBestValue = Point.Sum;
}

/// Returns whether to go on.
bool TKxDamped::Count(const TKxDampedPoint& Point) {
    if (Point.Sum <= FBestValue) Keep(Point);
    --FLeft;
    if (*FProgress && !(*FProgress)(*this)) FLeft = 0;
    return FLeft > 0;
}

/// Damped steps, until they promise nothing that counts. Returns whether steps are left.
bool TKxDamped::Search(TKxDampedPoint& Point, double& Damping, bool Finely) {
    TDamping damping(Damping);
    TKxDampedPoint next;
    FSteps.FindDerivatives(Point, Finely);
    const auto ends = [&] { // with several limits an undamped step may promise less than nothing
        const double most = FSteps.Straight(Point, CLeastDamping).Promise;
        return 0 <= most && most <= (Finely ? CRounding : CNearby) * Point.Sum;
    };
    while (!ends()) {
        const TKxDampedStep step = FSteps.Bent(Point, Damping);
        if (FSteps.IsLost(Point, step)) break;
        FSteps.Place(next, step.Target);
        const double gain = (Point.Sum - next.Sum) / step.Promise;
        const bool taken = next.Sum < Point.Sum && gain > CLeastGain;
        if (taken) {
            std::swap(Point, next);
            damping.Ease(gain);
        } else {
            damping.Raise();
        }
        if (!Count(Point)) return false;
        if (taken) FSteps.FindDerivatives(Point, Finely);
    }
    return true;
}

/// Undamped steps.
void TKxDamped::Settle(TKxDampedPoint& Point) {
    TKxDampedPoint next;
    double length = CInfinity;
    for (int i = 0; i < CMostSettling; ++i) {
        const TKxDampedStep step = FSteps.Straight(Point, CLeastDamping);
        if (!(step.Length < CSettling * length)) return;
        length = step.Length;
        FSteps.Place(next, step.Target);
        if (!(next.Sum <= Point.Sum * (1 + CRise))) return;
        std::swap(Point, next);
        FSteps.FindDerivatives(Point, true);
    }
}

bool TKxDamped::Attempt(double Damping) {
    TKxDampedPoint point;
    FSteps.ForgetScales();
    FSteps.Place(point, FStart);
    if (point.Sum == CInfinity) return false;
    for (const bool finely : {false, true}) {
        if (!Search(point, Damping, finely)) return false;
        Damping = std::min(Damping, CFirstDamping[0]);
    }
    Settle(point);
    if (!(point.Sum <= FBestValue * (1 + CRise))) return true;
    Keep(point);
    FConverged = FSteps.IsMinimum(point);
    return true;
}

void TKxDamped::Run(std::span<const double> Start, int Iterations, const TProgress& Progress) {
    FProgress = &Progress;
    FBest = FStart = FSteps.Begin(Start);
    FBestValue = CInfinity;
    FLeft = Iterations;
    FConverged = false;
    for (const double damping : CFirstDamping)
        if (!Attempt(damping) || FConverged) break;
    FProgress = nullptr;
}

} // namespace kx
