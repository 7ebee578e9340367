#pragma once
// Piecewise cubic curves: evaluation, slope, curvature and running integral, and their extrema. How a curve
// comes to its coefficients is the matter of the descendants.

#include <kxgraph/numeric/Kxvector.h>

#include <algorithm>
#include <vector>

namespace kx {

class TKxRunningIntegral;

/// A curve of cubic pieces over ascending knots. Piece i covers X[i] <= x < X[i+1] and is
/// A[i] + B[i] t + C[i] t^2 + D[i] t^3 with t = x - X[i]. Left of X[0] piece 0 is continued; right of
/// X[Count-1] follows what the filling method left there. The arrays of coefficients have at most one element
/// less than X. RecalculateCoeffs comes before all else: without
/// pieces (Count = 0 or empty arrays) whatever needs one raises EMathError "Not enough data!".
///
/// All results depend on the coefficients alone; Index saves time only. The result for an x that is not
/// finite is not finite either.
class TKxIntPolynom {
public:
    TKxIntPolynom() = default;
    virtual ~TKxIntPolynom() = default;

    /// Computes the coefficients from the points with Start <= x <= Stop; Weights may be null. Does nothing
    /// here.
    virtual void RecalculateCoeffs(double Start, double Stop, TKxCustomRealVector* XValues,
                                   TKxCustomRealVector* YValues, TKxCustomRealVector* Weights);

    /// The last piece that begins at or left of x, at most Count and at most the last one that has all
    /// coefficients; 0 left of all knots. Becomes Index. O(1) a call for ascending x, O(log Count) at worst.
    int FindIndex(double x);

    /// By Horner's rule in plain double precision, which is twice as fast as extended. At a knot the result
    /// is its A.
    double Interpolate(double x);
    double Slope(double x);
    double Curvature(double x);

    /// Fills Minima and Maxima, piece by piece in ascending order, from where the slope of a cubic vanishes.
    /// Pieces with D = 0 offer none.
    void FindExtrema();
    /// Fills DiffMinima and DiffMaxima: where the slope at an inner knot is the least (greatest) among its
    /// neighbours', the point of inflection of the two adjoining cubics that has the lesser (greater) slope.
    /// None where both have D = 0.
    void FindDiffExtrema();
    /// Fills IntMinima and IntMaxima with the places between the first and the last knot where the curve
    /// changes its sign, and with the Integral there. Where the curve stays 0 on its way to the other sign it
    /// is the place where it gets there; where it comes back to the same sign there is none.
    void FindIntExtrema(const TKxRunningIntegral& Integral);
    /// Writes the integral up to XValues[k] to YValues[k], which grows as needed, and fills IntMinima and
    /// IntMaxima (FindIntExtrema). The integral counts from the knot at or left of the first abscissa (from
    /// X[0] at least); element 0 is 0 nevertheless. Abscissae are expected to ascend. One that is not finite
    /// takes no part: its integral repeats the one before it.
    ///
    /// No more pieces than abscissae are passed: from number n - 2 on, and beyond the last knot, the piece
    /// reached is continued. So there should be no less abscissae than knots.
    void Integrate(const TKxCustomRealVector& XValues, TKxRealVector& YValues);

    int Count = 0; ///< number of knots
    int Index = 0; ///< the piece found last
    TKxRealPosArray Minima;
    TKxRealPosArray Maxima;
    TKxRealPosArray DiffMinima; ///< (x, slope)
    TKxRealPosArray DiffMaxima;
    TKxRealPosArray IntMinima; ///< (x, integral)
    TKxRealPosArray IntMaxima;
    TKxRealArray X; ///< ascending
    TKxRealArray A;
    TKxRealArray B;
    TKxRealArray C;
    TKxRealArray D;

protected:
    /// Empties the six arrays of extrema.
    void ClearExtrema();
    /// The last piece that FindIndex may find; -1 when there is none.
    int LastPiece() const {
        if (Count <= 0) return -1;
        return std::min({Count, X.High(), A.High(), B.High(), C.High(), D.High()});
    }

private:
    friend TKxRunningIntegral;
    int Search(double x);
    std::vector<double> IntegralsAt(const std::vector<double>& Abscissae);
    struct TLevelPoints {
        double Plus, Minus; ///< the root of the quadratic formula with a plus, and the other one
    };
    TLevelPoints LevelPoints(int Piece) const;
    struct TPlaces {
        double At[4];
        int Count;
    };
    TPlaces MonotoneParts(int Piece) const;
    double ValueIn(int Piece, double t) const;
    int SignIn(int Piece, double t) const;
    double Crossing(int Piece, double From, double To, int Sign) const;
    void AddExtremum(double x);
    void FindExtremaOfPiece(int i);
    double RoundingAt(int Knot) const;
    double SlopeAtInflection(int Piece, double Otherwise, double& x);
};

inline int TKxIntPolynom::FindIndex(double x) {
    const int i = Index;
    if (i >= 0 && i + 2 <= Count && i + 2 <= X.High() && x >= X[i]) {
        if (x < X[i + 1]) return i;
        if (x < X[i + 2]) return Index = i + 1;
    }
    return Search(x);
}

inline double TKxIntPolynom::ValueIn(int Piece, double t) const {
    return ((D[Piece] * t + C[Piece]) * t + B[Piece]) * t + A[Piece];
}

inline double TKxIntPolynom::Interpolate(double x) {
    const int i = FindIndex(x);
    return ValueIn(i, x - X[i]);
}

inline double TKxIntPolynom::Slope(double x) {
    const int i = FindIndex(x);
    const double t = x - X[i];
    return (2 * C[i] + 3 * D[i] * t) * t + B[i];
}

inline double TKxIntPolynom::Curvature(double x) {
    const int i = FindIndex(x);
    return 2 * C[i] + 6 * D[i] * (x - X[i]);
}

/// The running integral of a curve as a function of x; to be made anew when the coefficients change. Refers
/// to the curve, which must not be destroyed first, and moves its Index. O(Count) to make; O(1) a call for
/// ascending x. Beyond the knots it is that of the pieces that Interpolate takes there.
class TKxRunningIntegral {
public:
    /// The integral is 0 at From, or at the first knot where From lies left of it. Raises EMathError "Not
    /// enough data!" without pieces.
    TKxRunningIntegral(TKxIntPolynom& Curve, double From);

    double operator()(double x) const { return InPiece(FCurve.FindIndex(x), x); }
    /// As if Piece had no end.
    double InPiece(int Piece, double x) const;

private:
    long double Part(int Piece, long double Length) const;

    TKxIntPolynom& FCurve;
    std::vector<long double> FSums; ///< at each knot
};

} // namespace kx
