#include <kxgraph/analysis/Kxfittedline.h>

#include <kxgraph/analysis/Kxakima.h>

#include <algorithm>
#include <cmath>

namespace kx {

namespace {

/// Points that are evaluated at once: their columns stay in the cache.
constexpr std::size_t CBlock = 1000;

} // namespace

void TKxFittedLine::SetOrder(int Order) {
    if (Order == FCoefficients.Length()) return;
    FCoefficients.SetLength(std::max(Order, 0));
    FStart.resize(std::size_t(GetOrder()));
    EndCalculation(); // it counts on the order that it began with
    ParentModified();
}

void TKxFittedLine::SetFittingFunction(TKxFittingFkt Function) {
    TKxFittingBlockFkt blocks = InBlocks(Function);
    StoreFunction(std::move(Function), std::move(blocks));
}

void TKxFittedLine::StoreFunction(TKxFittingFkt Function, TKxFittingBlockFkt Blocks) {
    FFittingFunction = std::move(Function);
    FFunctionInBlocks = std::move(Blocks);
    ParentModified();
}

void TKxFittedLine::SetFittingBlockFunction(TKxFittingBlockFkt Function) {
    FFittingBlockFunction = std::move(Function);
    ParentModified();
}

void TKxFittedLine::SetFittingDerivatives(TKxFittingDerivativesFkt Function) {
    FFittingDerivatives = std::move(Function);
    ParentModified();
}

void TKxFittedLine::SetExpression(const AnsiString& Expression) { FExpression = Expression; }

void TKxFittedLine::CheckIndex(int I) const {
    if (I < 0 || I >= FCoefficients.Length())
        throw ERangeError("Fitted Line: Index of coefficient out of range");
}

double TKxFittedLine::GetCoefficient(int I) const {
    CheckIndex(I);
    return FCoefficients[I];
}

void TKxFittedLine::SetCoefficient(int I, double Value) {
    CheckIndex(I);
    FStart[std::size_t(I)] = Value;
    if (FCoefficients[I] == Value) return;
    FCoefficients[I] = Value;
    ParentModified();
}

double TKxFittedLine::GetDeltaCoefficient(int I) const {
    CheckIndex(I);
    return std::size_t(I) < FCovariance.Count() ? FCovariance.ErrorOf(std::size_t(I)) : CMaxReal;
}

double TKxFittedLine::GetY(double X) const {
    return FFittingFunction ? FFittingFunction(X, FCoefficients) : X;
}

void TKxFittedLine::CalculateFunction() {
    FCovariance = {};
    FLimits.clear();
    FConverged.reset();
    if (!FFittingFunction) throw EMathError("Fitted Line: no FittingFunction defined");
    if (GetOrder() <= 0) throw EMathError("Fitted Line: Order <=0");
    DoFit();
    if (!FStopped) FConverged = TestConvergence();
    FindStatistics();
    GetContinousLine();
}

void TKxFittedLine::CollectPoints() {
    FDeviations.clear();
    const TKxFitPoints points = GetFitPoints();
    FTaken = TKxFitCopies(points);
    for (double& weight : FTaken.W) weight = std::abs(weight);
    if (FTaken.X.empty() || int(FTaken.X.size()) < FreeCount()) RaiseNotEnoughData();
    if (points.W && std::ranges::all_of(FTaken.W, [](double W) { return W == 0; }))
        throw EMathError("Reciprocal indefinite!");
}

void TKxFittedLine::FindDeviations() {
    TKxRealVector x(nullptr), y(nullptr);
    x.AddValues(FTaken.X);
    y.AddValues(FTaken.Y);
    TKxAkima interpolant;
    interpolant.RecalculateCoeffs(-CMaxReal, CMaxReal, &x, &y, nullptr);
    for (std::size_t i = 0; i < FTaken.X.size(); ++i)
        FDeviations.push_back(FTaken.Y[i] - interpolant.Interpolate(FTaken.X[i]));
    if (std::ranges::all_of(FDeviations, [](double D) { return D == 0; }))
        throw EMathError("Fitted Line: covariance needs points of equal x");
}

void TKxFittedLine::EvaluateModel(std::span<const double> X, const TKxRealArray& Coefficients,
                                  std::span<double> Y) const {
    (FFittingBlockFunction ? FFittingBlockFunction : FFunctionInBlocks)(X, Coefficients, Y);
}

/// Term(i, r) is added up over all points, r being the distance of point i from the model.
template <class F>
double TKxFittedLine::SumOverPoints(const TKxRealArray& Coefficients, F Term) const {
    double model[CBlock];
    double sum = 0;
    for (std::size_t start = 0; start < FTaken.X.size(); start += CBlock) {
        const std::size_t count = std::min(CBlock, FTaken.X.size() - start);
        EvaluateModel({&FTaken.X[start], count}, Coefficients, {model, count});
        const auto term = [&](std::size_t i) { return Term(start + i, FTaken.Y[start + i] - model[i]); };
        double parts[4] = {}; // four chains of additions, for one would wait for itself
        std::size_t i = 0;
        for (; i + 4 <= count; i += 4)
            for (std::size_t k = 0; k < 4; ++k) parts[k] += term(i + k);
        for (; i < count; ++i) parts[0] += term(i);
        sum += (parts[0] + parts[1]) + (parts[2] + parts[3]);
    }
    return sum;
}

double TKxFittedLine::Goodness(const TKxRealArray& Coefficients) const {
    const bool weighted = !FTaken.W.empty();
    if (FDoCovariance)
        return SumOverPoints(Coefficients, [&](std::size_t i, double r) {
            return (weighted ? FTaken.W[i] : 1) * std::abs(FDeviations[i] * r);
        });
    if (weighted)
        return SumOverPoints(Coefficients, [&](std::size_t i, double r) { return FTaken.W[i] * r * r; });
    return SumOverPoints(Coefficients, [](std::size_t, double r) { return r * r; });
}

/// The weighted sum of squares of y about their mean; 0 when they are all equal.
double TKxFittedLine::SumOfDeviations() const {
    double weights = 0, origin = 0, mean = 0, sum = 0;
    for (std::size_t i = 0; i < FTaken.Y.size(); ++i) {
        if (weights == 0)
            origin = FTaken.Y[i]; // a y that counts, so that equal ones have a mean without rounding
        weights += WeightOf(i);
    }
    for (std::size_t i = 0; i < FTaken.Y.size(); ++i) mean += WeightOf(i) / weights * (FTaken.Y[i] - origin);
    for (std::size_t i = 0; i < FTaken.Y.size(); ++i)
        sum += WeightOf(i) * (FTaken.Y[i] - origin - mean) * (FTaken.Y[i] - origin - mean);
    return sum;
}

int TKxFittedLine::Freedom() const {
    return int(FTaken.X.size()) - int(std::ranges::count(FTaken.W, 0.0)) - FreeCount();
}

void TKxFittedLine::FindStatistics() {
    FSumOfSquares =
        SumOverPoints(FCoefficients, [&](std::size_t i, double r) { return WeightOf(i) * r * r; });
    FDetermination = 1 - FSumOfSquares / SumOfDeviations();
    FCovariance = TKxCovariance({ModelAt(FTaken.X),
                                 DerivativesAt(FTaken.X),
                                 {FCoefficients.begin(), FCoefficients.end()},
                                 int(FTaken.X.size()),
                                 FTaken.W,
                                 FSumOfSquares,
                                 FLimits});
}

} // namespace kx
