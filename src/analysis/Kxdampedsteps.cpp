#include <kxgraph/analysis/Kxdampedsteps.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kx {

namespace {

constexpr double CLeastDamping = 1e-30;
constexpr double CShrinking = 2.0 / 3; // of a scale in one step
constexpr double CShortest = 1e-16;    // step in proportion to the coefficients
constexpr double CAhead = 0.1;         // of the step is where curvature is looked for
constexpr double CMostBent = 0.75;     // of the length of the step
constexpr double COffset = 1e-3;       // of the residuals along the columns beside those across, at a minimum
constexpr double CExact = 1e-12;       // of y is left: rounding
constexpr double CLostInfluence = 1e-6; // of a column's length
constexpr double CIdle = 1e-3;          // of the residuals is all that a coefficient accounts for

double SquareOf(std::span<const double> Column) {
    double parts[4] = {}; // four chains of additions, for one would wait for itself
    for (std::size_t i = 0; i < Column.size(); ++i) parts[i % 4] += Column[i] * Column[i];
    return (parts[0] + parts[1]) + (parts[2] + parts[3]);
}

std::vector<double> RootsOf(const TKxDampedProblem& Problem) {
    std::vector<double> roots(Problem.Y.size(), 1.0);
    std::ranges::transform(Problem.Weights, roots.begin(), [](double w) { return std::sqrt(std::abs(w)); });
    return roots;
}

} // namespace

TKxDampedSteps::TKxDampedSteps(TKxDampedProblem Problem)
    : FProblem(std::move(Problem)), FRoots(RootsOf(FProblem)),
      FDifferences(FProblem.Model, FRoots, FProblem.Limits) {
    TColumn y = FProblem.Y;
    Weigh(y, FRoots);
    FSize = LengthOf(y);
}

std::vector<double> TKxDampedSteps::Begin(std::span<const double> Start) {
    FProblem.Limits.resize(Start.size());
    FFree.clear();
    TColumn start(Start.begin(), Start.end());
    for (std::size_t k = 0; k < start.size(); ++k) {
        const TKxCoefficientLimits& limits = FProblem.Limits[k];
        start[k] = std::clamp(start[k], limits.Low, limits.High);
        if (!limits.IsFixed()) FFree.push_back(k);
    }
    FScales.assign(FFree.size(), 0);
    return start;
}

void TKxDampedSteps::Place(TKxDampedPoint& Point, const TColumn& Coefficients) const {
    Point.Coefficients = Coefficients;
    Point.Residuals.resize(FRoots.size());
    FProblem.Model(Coefficients, Point.Residuals);
    for (std::size_t i = 0; i < FRoots.size(); ++i) Point.Residuals[i] = FProblem.Y[i] - Point.Residuals[i];
    Weigh(Point.Residuals, FRoots);
    Point.Sum = SquareOf(Point.Residuals);
    if (!std::isfinite(Point.Sum)) Point.Sum = std::numeric_limits<double>::infinity();
}

/// Of all coefficients where derivatives are given, else of the free ones.
void TKxDampedSteps::FillColumns(const TKxDampedPoint& Point, bool Finely, TKxMatrixColumns& Columns) {
    if (FProblem.Derivatives) {
        for (TColumn& column : Columns) column.resize(FRoots.size());
        const std::vector<std::span<double>> spans(Columns.begin(), Columns.end());
        FProblem.Derivatives(Point.Coefficients, spans);
        for (TColumn& column : Columns) Weigh(column, FRoots);
        return;
    }
    for (const std::size_t k : FFree) {
        const bool found = Finely ? FDifferences.Find(Point.Coefficients, k, Columns[k])
                                  : FDifferences.Estimate(Point.Coefficients, k, Columns[k]);
        if (!found) Columns[k].assign(FRoots.size(), 0.0);
    }
}

void TKxDampedSteps::FindDerivatives(TKxDampedPoint& Point, bool Finely) {
    TKxMatrixColumns columns(Point.Coefficients.size());
    FillColumns(Point, Finely, columns);
    const std::size_t rows = std::max(FRoots.size(), FFree.size());
    Point.Columns.resize(FFree.size());
    Point.Lengths.resize(FFree.size());
    for (std::size_t j = 0; j < FFree.size(); ++j) {
        TColumn& column = Point.Columns[j] = std::move(columns[FFree[j]]);
        column.resize(rows);
        double& length = Point.Lengths[j] = LengthOf(column);
        if (!std::isfinite(length)) column.assign(rows, length = 0);
        FScales[j] = std::max(CShrinking * FScales[j], length);
        if (FScales[j] > 0)
            for (double& v : column) v /= FScales[j];
    }
    Point.Upper = Point.Columns;
    Point.Right = Point.Residuals;
    Point.Right.resize(rows);
    Triangulate(Point.Upper, Point.Right);
    Point.Right.resize(FFree.size());
}

/// Step, or as much of it as the limits allow.
double TKxDampedSteps::Limited(const TKxDampedPoint& Point, std::size_t J, double Step) const {
    const TKxCoefficientLimits& limits = FProblem.Limits[FFree[J]];
    const double value = Point.Coefficients[FFree[J]], target = value + Step / FScales[J];
    if (!(FScales[J] > 0) || limits.Contains(target)) return Step;
    return ((target < limits.Low ? limits.Low : limits.High) - value) * FScales[J];
}

/// What would leave its limits goes to them, which changes the steps of the others.
TKxDampedSteps::TSolution TKxDampedSteps::Solve(const TKxDampedPoint& Point, double Damping) const {
    const std::size_t n = FFree.size();
    TSolution solution;
    TColumn left = Point.Right;
    left.resize(2 * n);
    solution.Step.assign(n, 0);
    for (std::size_t j = 0; j < n; ++j) solution.Moved.push_back(j);
    for (std::size_t count = n + 1; solution.Moved.size() < count;) {
        count = solution.Moved.size();
        solution.Upper.assign(count, {});
        for (std::size_t k = 0; k < count; ++k) {
            TColumn& column = solution.Upper[k] = Point.Upper[solution.Moved[k]];
            column.resize(2 * n);
            column[n + solution.Moved[k]] = std::sqrt(Damping);
        }
        TColumn right = left;
        Triangulate(solution.Upper, right);
        const TColumn moves = SolveTriangle(solution.Upper, right);
        for (std::size_t k = 0; k < count; ++k) solution.Step[solution.Moved[k]] = moves[k];
        std::erase_if(solution.Moved, [&](std::size_t J) {
            double& step = solution.Step[J];
            const double limited = Limited(Point, J, step);
            if (limited == step) return false;
            step = limited;
            for (std::size_t i = 0; i <= J; ++i) left[i] -= Point.Upper[J][i] * step;
            return true;
        });
    }
    return solution;
}

void TKxDampedSteps::SetTarget(const TKxDampedPoint& Point, const TColumn& Step,
                               TKxDampedStep& Result) const {
    Result.Target = Point.Coefficients;
    for (std::size_t j = 0; j < FFree.size(); ++j) {
        const TKxCoefficientLimits& limits = FProblem.Limits[FFree[j]];
        double& target = Result.Target[FFree[j]];
        if (FScales[j] > 0) target = std::clamp(target + Step[j] / FScales[j], limits.Low, limits.High);
    }
}

TKxDampedStep TKxDampedSteps::Straight(const TKxDampedPoint& Point, const TColumn& Step) const {
    TKxDampedStep result;
    SetTarget(Point, Step, result);
    TColumn left = Point.Right;
    for (std::size_t j = 0; j < FFree.size(); ++j)
        for (std::size_t i = 0; i <= j; ++i) left[i] -= Point.Upper[j][i] * Step[j];
    result.Length = LengthOf(Step);
    result.Promise = SquareOf(Point.Right) - SquareOf(left);
    return result;
}

/// The second derivative of the model along Step, from its value a part of the way ahead.
std::vector<double> TKxDampedSteps::Curvature(const TKxDampedPoint& Point, const TColumn& Step) const {
    TKxDampedStep ahead;
    TColumn part = Step;
    for (double& v : part) v *= CAhead;
    SetTarget(Point, part, ahead);
    TKxDampedPoint there;
    Place(there, ahead.Target);
    TColumn second(FRoots.size());
    for (std::size_t i = 0; i < second.size(); ++i) {
        double along = 0;
        for (std::size_t j = 0; j < Step.size(); ++j) along += Point.Columns[j][i] * Step[j];
        second[i] = 2 / CAhead * ((Point.Residuals[i] - there.Residuals[i]) / CAhead - along);
    }
    return second;
}

TKxDampedStep TKxDampedSteps::Bent(const TKxDampedPoint& Point, double Damping) const {
    TSolution solution = Solve(Point, Damping);
    TKxDampedStep result = Straight(Point, solution.Step);
    if (solution.Moved.size() < FFree.size()) return result;
    const TColumn second = Curvature(Point, solution.Step);
    // Its least squares by the triangle of the step alone: the square of the condition does no harm here.
    TColumn products;
    for (const std::size_t j : solution.Moved) {
        double product = 0;
        for (std::size_t i = 0; i < second.size(); ++i) product -= Point.Columns[j][i] * second[i];
        products.push_back(product);
    }
    const TColumn bend = SolveTriangle(solution.Upper, SolveTransposed(solution.Upper, products));
    if (!(LengthOf(bend) <= CMostBent * result.Length)) return result;
    for (std::size_t k = 0; k < bend.size(); ++k) solution.Step[solution.Moved[k]] += bend[k] / 2;
    SetTarget(Point, solution.Step, result);
    return result;
}

bool TKxDampedSteps::IsLost(const TKxDampedPoint& Point, const TKxDampedStep& Step) const {
    double size = 0;
    for (std::size_t j = 0; j < FFree.size(); ++j)
        size = std::hypot(size, Point.Coefficients[FFree[j]] * FScales[j]);
    return !(Step.Length > CShortest * size);
}

bool TKxDampedSteps::LosesCoefficient(const TKxDampedPoint& Point) const {
    for (std::size_t j = 0; j < FFree.size(); ++j) {
        const double accounted = Point.Lengths[j] * std::abs(Point.Coefficients[FFree[j]]);
        if (Point.Lengths[j] < CLostInfluence * FScales[j] && accounted < CIdle * std::sqrt(Point.Sum))
            return true;
    }
    return false;
}

bool TKxDampedSteps::IsMinimum(const TKxDampedPoint& Point) const {
    if (std::sqrt(Point.Sum) <= CExact * FSize) return true;
    if (LosesCoefficient(Point)) return false;
    const double along = Straight(Point, CLeastDamping).Promise, across = Point.Sum - along;
    const auto count = double(FFree.size()),
               points = double(FRoots.size()) - double(std::ranges::count(FRoots, 0.0));
    return std::abs(along) * std::max(points - count, 1.0) <= COffset * COffset * count * across;
}

} // namespace kx
