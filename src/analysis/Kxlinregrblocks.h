#pragma once
// One trip through the data of a straight-line fit: what is kept of each stretch of points, so that means,
// moments and residuals about any line follow without another look at them. Used by Kxlinregr alone.

#include <kxgraph/analysis/Kxfitpoints.h>

#include <cmath>
#include <cstddef>
#include <vector>

namespace kx::linregr {

/// A place near the points of a block: their mean, but for rounding; with a sum of weights that is not
/// positive one of the points. Not finite if any value of the points is not.
struct TCentre {
    double W, X, Y;
    bool IsFinite() const { return std::isfinite(W) && std::isfinite(X) && std::isfinite(Y); }
};

/// What is kept of a block. dx and dy are distances from the centre, r = dy - Slope dx; all sums are
/// weighted. All formulas that use a block hold for any centre and slope; those of the block leave nothing to
/// cancel.
struct TBlock {
    TCentre Centre;
    double Count, WithWeight; ///< points, and those of a weight that is not zero
    double Px, Py;            ///< sums of dx, dy: what rounding left
    double Qxx, Qxy, Qyy;
    double Slope;
    double Rr, Rx; ///< sums of r squared, of r dx
    bool Negative; ///< whether there is a weight below 0, so that sums of squares may be
};

/// Of the points that take part.
std::vector<TBlock> BlocksOf(const TKxFitPoints& P);

} // namespace kx::linregr
