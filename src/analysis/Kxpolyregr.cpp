#include <kxgraph/analysis/Kxpolyregr.h>

#include <kxgraph/analysis/Kxmatrix.h>
#include <kxgraph/analysis/Kxpolyregrsums.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace kx {

namespace {

constexpr int CHighestOrder = 64; // powers above are not told apart by 106 bits
constexpr int CMostCorrections = 8;

// Sums in pairs of doubles are good to about 2^-100 of their largest term; what the bounds leave is above
// that.
constexpr double CTolerance = 0x1p-88;      // of a pivot
constexpr double CSafePivot = 0x1p-40;      // from here on the solution needs no correction
constexpr double CSafeDifference = 0x1p-56; // of large sums
constexpr double CRoundingNoise = 0x1p-88;  // a coefficient beside the largest
constexpr double CSmallCoefficient =
    0x1p-30;                           // beside the largest: needs no more digits than one of that size
constexpr double CSettled = 0x1p-58;   // a correction relative to its coefficient
constexpr double CUnsettled = 0x1p-40; // the last one: there is no solution

using TPolynom = std::vector<TKxDoubled>;

/// The power of two just above Value; not so low that its inverse would overflow.
int ExponentOf(double Value) {
    int exponent = 0;
    std::frexp(Value, &exponent);
    return std::max(exponent, -1000);
}

/// The origin is a multiple of a sixteenth of the half width, so that short numbers stay short.
TKxFitFrame FrameOf(const TKxFitExtent& Extent) {
    TKxFitFrame frame;
    const double halfWidth = Extent.HighX / 2 - Extent.LowX / 2;
    frame.Origin = Extent.LowX / 2 + Extent.HighX / 2;
    if (halfWidth > 0) {
        frame.ExponentX = std::min(ExponentOf(halfWidth), 1023);
        const double step = std::ldexp(1.0, frame.ExponentX - 4);
        frame.Origin = std::nearbyint(frame.Origin / step) * step;
    }
    frame.ExponentY = ExponentOf(std::max(std::abs(Extent.LowY), std::abs(Extent.HighY)));
    frame.ExponentW = ExponentOf(Extent.LargestWeight);
    frame.ExponentW += frame.ExponentW & 1;
    frame.Whole = Extent.Whole;
    return frame;
}

double LargestOf(const TPolynom& Polynom) {
    double largest = 0;
    for (const TKxDoubled& c : Polynom) largest = std::max(largest, std::abs(c.Hi));
    return largest;
}

class TFit {
public:
    TFit(const TKxFitPoints& Points, int Order, TKxWeightMeaning Meaning)
        : FPoints(Points), FExtent(ExtentOf(Points)), FOrder(Order), FMeaning(Meaning) {
        CheckPoints();
        FFrame = FrameOf(FExtent);
        FSums = SumsOfPowers(Points, FFrame, Order, std::max(2 * Order, 2));
        Solve();
    }
    TKxPolynomRegessionResults Results() const;

private:
    std::size_t Size() const { return static_cast<std::size_t>(FOrder) + 1; }
    void CheckPoints() const;
    void Solve();
    void Correct();
    TPolynom InX(TPolynom Polynom) const;
    TKxRealArray InUnits(const TPolynom& Polynom, int Exponent) const;
    TKxRealArray StandardErrors(double ReducedChiSquare) const;
    void SetErrorPolynomials(TKxPolynomRegessionResults& Results, double ReducedChiSquare) const;
    TKxFitSquares Squares(TKxDoubled AverageY) const;
    void SetCoefficients(TKxPolynomRegessionResults& Results) const;
    void SetStatistics(TKxPolynomRegessionResults& Results) const;

    TKxFitPoints FPoints;
    TKxFitExtent FExtent;
    int FOrder;
    TKxWeightMeaning FMeaning;
    TKxFitFrame FFrame;
    TKxFitSums FSums;
    TKxDoubledMatrix FUpper; // Cholesky factor of the normal matrix in inner coordinates
    TPolynom FInner;
};

void TFit::CheckPoints() const {
    if (FOrder < 0 || FExtent.WithWeight < Size() || !(FExtent.WeightSum > 0)) RaiseNotEnoughData();
    if (FOrder > CHighestOrder || !HasDistinctX(FPoints, Size())) RaiseNotPositiveDefinite();
}

void TFit::Solve() {
    FUpper.assign(Size(), TPolynom(Size()));
    for (std::size_t i = 0; i < Size(); ++i)
        for (std::size_t j = 0; j < Size(); ++j) FUpper[i][j] = FSums.Powers[i + j];
    const double leastPivot = CholeskyDecomposition(FUpper, CTolerance);
    FInner = FSums.Products;
    CholeskySolve(FUpper, FInner);
    if (leastPivot < CSafePivot) Correct();
    const double noise = CRoundingNoise * LargestOf(FInner);
    for (TKxDoubled& c : FInner)
        if (std::abs(c.Hi) < noise) c = {};
}

/// Solves for the residuals of the solution until that changes nothing more.
void TFit::Correct() {
    double change = 1;
    for (int step = 0; step < CMostCorrections && change > CSettled; ++step) {
        TPolynom correction = SumsOfPowers(FPoints, FFrame, FOrder, FOrder, FInner).Products;
        CholeskySolve(FUpper, correction);
        const double small = CSmallCoefficient * LargestOf(FInner);
        change = 0;
        for (std::size_t i = 0; i < Size(); ++i) {
            const double size = std::max(std::abs(FInner[i].Hi), small);
            if (size > 0) change = std::max(change, std::abs(correction[i].Hi) / size);
            FInner[i] += correction[i];
        }
    }
    if (change > CUnsettled) RaiseNotPositiveDefinite();
}

/// The coefficients in x / 2^ExponentX of a polynomial in inner coordinates, by repeated Horner's rule.
TPolynom TFit::InX(TPolynom Polynom) const {
    const TKxDoubled origin = std::ldexp(FFrame.Origin, -FFrame.ExponentX);
    for (std::size_t from = 0; from + 1 < Size(); ++from)
        for (std::size_t k = Size() - 1; k-- > from;) Polynom[k] -= origin * Polynom[k + 1];
    return Polynom;
}

/// The normal matrix is the product of the transpose of U and U, so its inverse has the rows of the inverse
/// of U for factors, and the columns of that are polynomials like any other.
TKxRealArray TFit::StandardErrors(double ReducedChiSquare) const {
    TKxRealArray errors(FOrder + 1);
    if (ReducedChiSquare == 0) return errors;
    for (std::size_t j = 0; j < Size(); ++j) {
        TPolynom column(Size());
        column[j] = 1;
        CholeskySolveUpper(FUpper, column);
        column = InX(std::move(column));
        for (int k = 0; k <= FOrder; ++k) errors[k] = std::hypot(errors[k], column[std::size_t(k)].Hi);
    }
    const double deviation = std::sqrt(ReducedChiSquare);
    for (int k = 0; k <= FOrder; ++k)
        errors[k] = std::ldexp(errors[k] * deviation, FFrame.ExponentY - FFrame.ExponentX * k);
    return errors;
}

/// The columns of the inverse of U are polynomials that are orthogonal over the points.
void TFit::SetErrorPolynomials(TKxPolynomRegessionResults& Results, double ReducedChiSquare) const {
    const TKxDoubled deviation = std::ldexp(std::sqrt(ReducedChiSquare), FFrame.ExponentY);
    for (std::size_t j = 0; j < Size(); ++j) {
        TPolynom column(Size());
        column[j] = 1;
        CholeskySolveUpper(FUpper, column);
        column.resize(j + 1);
        for (TKxDoubled& c : column) c = c * deviation;
        Results.ErrorPolynomials.push_back(std::move(column));
    }
    Results.ErrorExponent = FFrame.ExponentX;
    // The first one is the constant deviation / sqrt(sum of weights).
    const double weights = FMeaning == wmCounts ? FSums.Powers[0].Hi : double(FExtent.WithWeight);
    Results.Deviation = FMeaning == wmCounts
                            ? std::ldexp(std::sqrt(ReducedChiSquare), FFrame.ExponentY + FFrame.ExponentW / 2)
                            : Results.ErrorPolynomials[0][0].Hi * std::sqrt(weights);
}

/// The coefficients of Polynom, given in units of 2^ExponentX, for t in units of 2^(ExponentX - Exponent).
TKxRealArray TFit::InUnits(const TPolynom& Polynom, int Exponent) const {
    TKxRealArray values(FOrder + 1);
    for (int k = 0; k <= FOrder; ++k)
        values[k] = std::ldexp(Polynom[std::size_t(k)].Hi, FFrame.ExponentY - Exponent * k);
    return values;
}

bool AreNormal(const TKxRealArray& Values, const TPolynom& Polynom) {
    for (int k = 0; k < Values.Length(); ++k)
        if (Polynom[std::size_t(k)].Hi != 0 && !std::isnormal(Values[k])) return false;
    return true;
}

void TFit::SetCoefficients(TKxPolynomRegessionResults& Results) const {
    Results.Order = FOrder;
    Results.Coefficients = InUnits(InX(FInner), FFrame.ExponentX);
    Results.Origin = FFrame.Origin;
    Results.InnerCoefficients = InUnits(FInner, FFrame.ExponentX);
    if (AreNormal(Results.InnerCoefficients, FInner)) return;
    Results.InnerCoefficients = InUnits(FInner, 0);
    Results.Scale = std::ldexp(1.0, FFrame.ExponentX);
}

/// The squares of what is left of y come from the sums where they are no small difference of large ones, for
/// the polynomial as it is evaluated: with rounded coefficients, so an exact fit leaves nothing.
TKxFitSquares TFit::Squares(TKxDoubled AverageY) const {
    TPolynom rounded = FInner;
    for (TKxDoubled& c : rounded) c.Lo = 0;
    TKxFitSquares squares{FSums.Squares, FSums.Squares - AverageY * FSums.Products[0]};
    double largest = FSums.Squares.Hi;
    const auto add = [&](TKxDoubled Term) {
        squares.Residuals += Term;
        largest = std::max(largest, std::abs(Term.Hi));
    };
    for (std::size_t i = 0; i < Size(); ++i) {
        add(-rounded[i] * FSums.Products[i] * 2.0);
        for (std::size_t j = 0; j < Size(); ++j) add(rounded[i] * rounded[j] * FSums.Powers[i + j]);
    }
    // The deviations are larger still.
    if (squares.Residuals.Hi > CSafeDifference * largest) return squares;
    return SumsOfSquares(FPoints, FFrame, rounded, AverageY);
}

/// All sums here are those of y / 2^ExponentY and w / 2^ExponentW.
void TFit::SetStatistics(TKxPolynomRegessionResults& Results) const {
    const TKxDoubled sumOfWeights = FSums.Powers[0];
    const TKxDoubled meanX = FSums.Powers[1] / sumOfWeights;
    const TKxDoubled meanY = FSums.Products[0] / sumOfWeights;
    Results.AverageX = (Scaled(meanX, FFrame.ExponentX) + FFrame.Origin).Hi;
    Results.AverageY = std::ldexp(meanY.Hi, FFrame.ExponentY);

    const TKxFitSquares squares = Squares(meanY);
    const double chiSquare = squares.Residuals.Hi;
    const double syy = FExtent.LowY == FExtent.HighY ? 0 : squares.Deviations.Hi;
    const int exponent = 2 * FFrame.ExponentY + FFrame.ExponentW;
    const bool counts = FMeaning == wmCounts;
    const double points = static_cast<double>(counts ? FExtent.Count : FExtent.WithWeight);
    const double freedom = points - FOrder - 1;
    Results.ChiSquare = std::ldexp(chiSquare, exponent);
    Results.Points = static_cast<int>(FExtent.Count);
    Results.Freedom = static_cast<int>(freedom);
    // Negative weights may bring a sum of squares below 0.
    Results.QRel = std::ldexp(std::sqrt(std::max(chiSquare, 0.0) / (points - FOrder)), exponent / 2);
    Results.R2 = syy == 0 ? 1 : 1 - chiSquare / syy;
    Results.AdjR2 = freedom > 0 ? 1 - (1 - Results.R2) * (points - 1) / freedom : Results.R2;
    Results.DeltaCoefficients = StandardErrors(freedom > 0 ? std::max(chiSquare, 0.0) / freedom : 0);

    if (freedom > 0) SetErrorPolynomials(Results, std::max(chiSquare, 0.0) / freedom);

    // In units of 2^ExponentW with precisions, which may be as small as they like.
    const double divisor =
        counts ? (Scaled(sumOfWeights, FFrame.ExponentW) - 1).Hi : sumOfWeights.Hi * ((points - 1) / points);
    if (!(divisor > 0)) return;
    const int exponentW = counts ? FFrame.ExponentW : 0;
    const TKxDoubled sxx = FSums.Powers[2] - meanX * FSums.Powers[1];
    Results.VarianceX = std::ldexp(sxx.Hi / divisor, 2 * FFrame.ExponentX + exponentW);
    Results.VarianceY = std::ldexp(syy / divisor, 2 * FFrame.ExponentY + exponentW);
}

bool AreFinite(const TKxRealArray& Values) {
    return std::all_of(Values.begin(), Values.end(), [](double Value) { return std::isfinite(Value); });
}

TKxPolynomRegessionResults TFit::Results() const {
    TKxPolynomRegessionResults results;
    SetCoefficients(results);
    SetStatistics(results);
    const TKxRealArray values = {results.AverageX, results.AverageY, results.VarianceX, results.VarianceY,
                                 results.R2,       results.QRel,     results.ChiSquare, results.AdjR2};
    if (!AreFinite(values) || !AreFinite(results.Coefficients) || !AreFinite(results.DeltaCoefficients) ||
        !AreFinite(results.InnerCoefficients))
        throw EOverflow("Polynomial: A result is beyond the range of a real number!");
    return results;
}

} // namespace

double EvaluateFit(const TKxPolynomRegessionResults& Results, double X) {
    const TKxRealArray& coefficients = Results.InnerCoefficients;
    const double t = X / Results.Scale - Results.Origin / Results.Scale;
    if (coefficients.IsEmpty()) return 0;
    double y = coefficients[coefficients.High()];
    for (int k = coefficients.High() - 1; k >= 0; --k) y = y * t + coefficients[k];
    return y;
}

TKxCurveValue ValueAt(const TKxPolynomRegessionResults& Results, double X) {
    TKxCurveValue value{EvaluateFit(Results, X), 0, Results.Deviation, double(Results.Freedom)};
    if (Results.ErrorPolynomials.empty()) return {value.Value, 0, 0, 0};
    const TKxDoubled t = Scaled(TwoSum(X, -Results.Origin), -Results.ErrorExponent);
    for (const auto& polynomial : Results.ErrorPolynomials) {
        TKxDoubled y;
        for (std::size_t k = polynomial.size(); k-- > 0;) y = y * t + polynomial[k];
        value.Error = std::hypot(value.Error, y.Hi);
    }
    return value;
}

void PolynomRegression(const TKxFitPoints& Points, TKxPolynomRegessionResults& Results,
                       TKxWeightMeaning Meaning) {
    Results = TFit(Points, Results.Order, Points.W ? Meaning : wmCounts).Results();
}

} // namespace kx
