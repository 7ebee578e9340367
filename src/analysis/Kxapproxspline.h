#pragma once
// The approximating spline: a cubic spline that passes near its points, the nearer the greater their weights.

#include <kxgraph/analysis/Kxinterpol.h>

namespace kx {

/// The piecewise cubic g that minimises the sum of W * (y - g)^2 over the points plus the integral of g''^2,
/// with no curvature at the first and the last knot (C. H. Reinsch, Numerische Mathematik 10 (1967) 177).
/// Its knots are the distinct x of the points.
///
/// Beyond the last knot the curve is straight, with the slope of the knot before it; on the left the first
/// piece is continued.
class TKxApproxSpline : public TKxIntPolynom {
public:
    /// Takes the points with Start <= x <= Stop and computes the coefficients. A point of which x, y or
    /// weight is not finite takes no part. A point's weight is the magnitude of WeightFactor times its
    /// element of Weights (WeightFactor alone without Weights), at most CMaxReal. Points of equal x become
    /// one by averages of y and weight, of two at a time. A point of weight 0 has no pull, but counts, and
    /// its x is a knot.
    ///
    /// Raises EMathError "Not enough data!" for less than six points or distinct x, or less than two with
    /// pull; Count is 0 then. Raises as CalcCoeffs does.
    void RecalculateCoeffs(double Start, double Stop, TKxCustomRealVector* XValues,
                           TKxCustomRealVector* YValues, TKxCustomRealVector* Weights) override;

    /// Computes A, B, C and D from Count knots X (ascending, at least six), ordinates in A and weights in W;
    /// all arrays hold Count + 1 elements. Empties the arrays of extrema.
    ///
    /// The band system of the curvatures at the knots loses digits in proportion to 1 / (W * h^3), h the
    /// distance of knots; where too few would be left, or without a weight, SmoothSpline solves the same
    /// problem. Raises EOverflow or EInvalidOp when a coefficient cannot be held by a double (knots closer
    /// than about 1e-300, say), and EMathError "Not enough data!" when less than two weights are above 0.
    void CalcCoeffs();

    TKxRealArray W; ///< the effective weight of each knot
    double WeightFactor = 1.0;

private:
    int TakePoints(double Start, double Stop, const TKxCustomRealVector& XValues,
                   const TKxCustomRealVector& YValues, const TKxCustomRealVector* Weights);
    int MergeEqual(int Points);
    bool SolveCurvatures();
    void SmoothOrdinates();
    void CompletePieces();
};

} // namespace kx
