#pragma once
// The curve through measured points that H. Akima drew (J. ACM 17 (1970) 589-602): a cubic between each two
// points, with slopes at the points that follow from five neighbours and do not overshoot as splines do.

#include <kxgraph/analysis/Kxinterpol.h>

namespace kx {

/// Owned by the series that draws the curve; copies what it needs of the vectors.
///
/// The knots are X[0..Count-1], the points in ascending order. Piece Count - 1 leads from the last point to
/// the first of two extrapolated ones, X[Count], and piece Count goes on from there. What lies in the arrays
/// beyond is of no use to evaluation.
///
/// A chord slope or a coefficient that a double cannot hold (of points closer than about 1e-150, say) is 0,
/// so the knots keep their ordinates.
class TKxAkima : public TKxIntPolynom {
public:
    TKxAkima() = default;

    /// Takes the points with Start <= x <= Stop, of a weight other than 0 when there are Weights, and
    /// computes the coefficients. A point of which x, y or weight is not finite takes no part. Points of
    /// equal x become one by a running average: of three the last one counts half.
    ///
    /// Raises EMathError "Not enough data!" for fewer than three points or distinct x, and what the smoothing
    /// raises; Count is 0 then. O(N) for ascending x.
    void RecalculateCoeffs(double Start, double Stop, TKxCustomRealVector* XValues,
                           TKxCustomRealVector* YValues, TKxCustomRealVector* Weights) override;

    /// Needs Count (three at least) knots in X and A. Computes the chord slopes M and appends the
    /// extrapolated points of the right end; those of the left end leave their chords only.
    void Extrapolate();
    /// Computes B, C and D after Extrapolate, and empties the arrays of extrema.
    void CalcCoeffs();

    /// Chord slopes: M[i + 2] is that of piece i, before and behind them two extrapolated ones. M[Count + 3]
    /// and M[Count + 4] are 0.
    TKxRealArray M;
    bool Smooth = false;    ///< the points pass through SmoothVector first
    bool SmoothLog = false; ///< through SmoothVectorLog instead
    double SmoothM = 0;     ///< half width of the smoothing window, in units of x or in decades

private:
    int TakePoints(double Start, double Stop, const TKxCustomRealVector& XValues,
                   const TKxCustomRealVector& YValues, const TKxCustomRealVector* Weights);
    void SortAndMerge();
    int CompletePieces(int Done);
    void SetLengths(int Knots);
    void CalcPieces(int Begin, int End);
    void CalcCoeffsFrom(int Begin);
    void ExtrapolateLeft();
    void ExtrapolateRight();
};

} // namespace kx
