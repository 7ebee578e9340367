#pragma once
// Damped least squares: moves the coefficients of any model to the smallest weighted sum of squares, by its
// derivatives. Pure: numbers in, numbers out.
//
// After K. Levenberg, Quarterly of Applied Mathematics 2 (1944) 164, and D. W. Marquardt, SIAM Journal 11
// (1963) 431. With residuals r = sqrt(w) (y - model) and J the derivatives of sqrt(w) model, a step p solves
//     min |J p - r|^2 + d |D p|^2
// by orthogonal transformations (Kxtriangle.h), never by J' J, which would square the condition.
// - Scaling: D holds the lengths of the columns of J (J. J. More, Lecture Notes in Mathematics 630 (1978)
//   105), so that the unit of a coefficient makes no difference. They grow at once and shrink by a third a
//   step at most: a coefficient that loses its influence on the way does not fly off, and one that the start
//   has made far too important is free again after some steps.
// - Curvature: the second derivative of the model along p, from one more value, bends the step (M. K.
//   Transtrum, J. P. Sethna, arXiv:1201.5885). Narrow curved valleys take a third of the steps so.
// - Damping d: by the gain ratio, what the sum became smaller by over what J had promised (H. B. Nielsen,
//   report IMM-REP-1999-05): down to a third after a good step, up to twice after a poor one; after one that
//   gains nothing, which is not taken, by 2, 4, 8, ... The first d is 1E-3.
// - Limits: what would leave them goes to the limit, or stays there, and the others step accordingly.
// - Derivatives: given, or plain differences, and near the minimum improved ones (Kxderivatives.h).
// - End: when an undamped step promises 1E-20 of the sum, or steps are lost in the digits of the
// coefficients.
//   Undamped steps go on from there as long as each is shorter than the one before, for the last digits of
//   the coefficients are below the rounding of the sum. Whether that is a minimum is measured as D. M. Bates
//   and D. G. Watts, Technometrics 23 (1981) 179, do: the part of r along the columns of J is to be below a
//   thousandth of the part across, both by degree of freedom.
// - Where it is not, or a coefficient has lost its influence, the search is done anew from the start with
//   stronger damping; the best result counts.

#include <kxgraph/analysis/Kxdampedsteps.h>

#include <cstddef>
#include <functional>
#include <limits>
#include <span>
#include <vector>

namespace kx {

/// The search. A sum that is not finite counts as worse than any other.
class TKxDamped {
public:
    /// Is called after each step that was tried; returns whether to go on.
    using TProgress = std::function<bool(const TKxDamped&)>;

    explicit TKxDamped(TKxDampedProblem Problem) : FSteps(std::move(Problem)) {}

    /// From Start, moved into the limits, with at most Iterations steps tried. Coefficients of 0 are starts
    /// like any other. An exception of the model or of Progress leaves what was best.
    void Run(std::span<const double> Start, int Iterations, const TProgress& Progress = {});

    /// The best coefficients so far and their sum; the start and infinity when that has no finite one.
    const std::vector<double>& Best() const { return FBest; }
    double BestValue() const { return FBestValue; }
    /// Whether Best is at a minimum. Not when steps ran out, Progress ended the search, or a coefficient has
    /// lost its influence on the model, as at the end of a plateau.
    bool HasConverged() const { return FConverged; }

private:
    /// Returns whether steps are left.
    bool Attempt(double Damping);
    bool Search(TKxDampedPoint& Point, double& Damping, bool Finely);
    void Settle(TKxDampedPoint& Point);
    bool Count(const TKxDampedPoint& Point);
    void Keep(const TKxDampedPoint& Point);

    TKxDampedSteps FSteps;
    const TProgress* FProgress = nullptr; ///< while Run runs
    std::vector<double> FStart, FBest;
    double FBestValue = std::numeric_limits<double>::infinity();
    int FLeft = 0;
    bool FConverged = false;
};

} // namespace kx
