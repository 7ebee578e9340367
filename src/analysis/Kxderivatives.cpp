#include <kxgraph/analysis/Kxderivatives.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kx {

namespace {

constexpr double CInfinity = std::numeric_limits<double>::infinity();
constexpr double CStep = 7e-4;          // the fifth root of a double's resolution suits a fourth order rule
constexpr double CPlainStep = 6e-6;     // the third root suits a second order one
constexpr double CGoodAgreement = 1e-5; // of two differences; the improved one is then good to its square
constexpr double CPoorAgreement = 0.1;
constexpr double CStepRatio = 16;
constexpr int CSteps = 16;            // upward and downward each
constexpr double CLeastChange = 1e-8; // of the values; below that a plain difference has too few digits

} // namespace

double LengthOf(std::span<const double> Column) {
    double largest = 0, sum = 0;
    for (const double v : Column) {
        if (std::isnan(v)) return v;
        largest = std::max(largest, std::abs(v));
    }
    if (largest == 0 || largest == CInfinity) return largest;
    for (const double v : Column) sum += v / largest * (v / largest);
    return largest * std::sqrt(sum);
}

void Weigh(std::span<double> Values, std::span<const double> Roots) {
    for (std::size_t i = 0; i < Values.size(); ++i) Values[i] = Roots[i] == 0 ? 0 : Values[i] * Roots[i];
}

TKxDifferences::TKxDifferences(TKxModelValues Model, TColumn RootWeights,
                               std::vector<TKxCoefficientLimits> Limits)
    : FModel(std::move(Model)), FRootWeights(std::move(RootWeights)), FLimits(std::move(Limits)),
      FBase(FRootWeights.size()) {}

bool TKxDifferences::IsWithin(std::size_t Index, double Value) const {
    return FLimits.empty() || FLimits[Index].Contains(Value);
}

double TKxDifferences::Evaluate(std::size_t Index, double Move, TColumn& Values) {
    const double value = FCoefficients[Index];
    const double moved = FCoefficients[Index] = value + Move;
    Values.resize(FRootWeights.size());
    FModel(FCoefficients, Values);
    FCoefficients[Index] = value;
    return moved - value;
}

void TKxDifferences::Difference(std::size_t Index, double Step, TColumn& Column) {
    const double value = FCoefficients[Index];
    if (!IsWithin(Index, value - Step) || !IsWithin(Index, value + Step))
        return OneSided(Index, IsWithin(Index, value + 2 * Step) ? Step : -Step, Column);
    const double from = Evaluate(Index, -Step, FBase), to = Evaluate(Index, Step, Column);
    const double distance = to == from ? 1 : to - from; // no derivative, but no reason for NaN either
    for (std::size_t i = 0; i < Column.size(); ++i) Column[i] = (Column[i] - FBase[i]) / distance;
    Weigh(Column, FRootWeights);
}

void TKxDifferences::OneSided(std::size_t Index, double Step, TColumn& Column) {
    Column.assign(FRootWeights.size(), std::numeric_limits<double>::quiet_NaN());
    if (!IsWithin(Index, FCoefficients[Index] + 2 * Step)) return; // the limits are too close for this step
    Evaluate(Index, 0, FBase);
    const double first = Evaluate(Index, Step, Column), second = Evaluate(Index, 2 * Step, FSecond);
    const double near = first == 0 ? 1 : first, far = second == 0 ? 1 : second;
    for (std::size_t i = 0; i < Column.size(); ++i)
        Column[i] = 2 * (Column[i] - FBase[i]) / near - (FSecond[i] - FBase[i]) / far;
    Weigh(Column, FRootWeights);
}

double TKxDifferences::Try(std::size_t Index, double Step, TColumn& Column) {
    TColumn error;
    Difference(Index, Step, Column);
    Difference(Index, 2 * Step, error);
    for (std::size_t i = 0; i < Column.size(); ++i) {
        error[i] = Column[i] - error[i];
        Column[i] += error[i] / 3;
    }
    const double disagreement = LengthOf(error) / LengthOf(Column);
    return std::isfinite(disagreement) ? disagreement : CInfinity;
}

bool TKxDifferences::Find(std::span<const double> Coefficients, std::size_t Index, TColumn& Column) {
    FCoefficients.assign(Coefficients.begin(), Coefficients.end());
    const double value = FCoefficients[Index];
    const double step = CStep * (value == 0 ? 1 : std::abs(value));
    double best = Try(Index, step, Column);
    bool constant = LengthOf(Column) == 0;
    TColumn column;
    for (int i = 1; i <= CSteps && best > CGoodAgreement; ++i)
        for (const double factor : {std::pow(CStepRatio, -i), std::pow(CStepRatio, i)}) {
            const double disagreement = Try(Index, step * factor, column);
            constant = constant && LengthOf(column) == 0;
            if (disagreement >= best) continue;
            best = disagreement;
            Column.swap(column);
        }
    return best < CPoorAgreement || constant;
}

bool TKxDifferences::Estimate(std::span<const double> Coefficients, std::size_t Index, TColumn& Column) {
    FCoefficients.assign(Coefficients.begin(), Coefficients.end());
    const double step = CPlainStep * std::abs(FCoefficients[Index]);
    if (step == 0) return Find(Coefficients, Index, Column);
    Difference(Index, step, Column);
    const double length = LengthOf(Column);
    double values = 0;
    for (std::size_t i = 0; i < Column.size(); ++i)
        values = std::max(values, std::abs(FRootWeights[i] * FBase[i]));
    const bool usable = std::isfinite(length) && length * step > CLeastChange * values;
    return usable || Find(Coefficients, Index, Column);
}

} // namespace kx
