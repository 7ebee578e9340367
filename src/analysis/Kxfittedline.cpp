#include "analysis/Kxfittedline.h"

#include "analysis/Kxakima.h"
#include "analysis/Kxcurvature.h"
#include "analysis/Kxsimplex.h"
#include "numeric/Kxstrings.h"
#include "platform/text.h"

#include <algorithm>
#include <cmath>

namespace kx {

namespace {

/// Points that are evaluated at once: their columns stay in the cache.
constexpr std::size_t CBlock = 1000;

TKxRealArray ArrayOf(std::span<const double> Values) {
    TKxRealArray array(int(Values.size()));
    std::copy(Values.begin(), Values.end(), array.begin());
    return array;
}

/// "a", "b", ... as in the results of other fits.
AnsiString Numbered(const char* Key, int i) { return Key + ("(" + std::to_string(i + 1)) + ")"; }

} // namespace

void TKxFittedLine::SetOrder(int Order) {
    if (Order == FCoefficients.Length()) return;
    FCoefficients.SetLength(std::max(Order, 0));
    ParentModified();
}

void TKxFittedLine::SetFittingFunction(TKxFittingFkt Function) {
    StoreFunction(Function, InBlocks(Function));
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
    if (FCoefficients[I] == Value) return;
    FCoefficients[I] = Value;
    ParentModified();
}

double TKxFittedLine::GetDeltaCoefficient(int I) const {
    CheckIndex(I);
    return I < FDeltas.Length() ? FDeltas[I] : CMaxReal;
}

double TKxFittedLine::GetY(double X) const {
    return FFittingFunction ? FFittingFunction(X, FCoefficients) : X;
}

void TKxFittedLine::CalculateFunction() {
    FDeltas = {};
    if (!FFittingFunction) throw EMathError("Fitted Line: no FittingFunction defined");
    if (GetOrder() <= 0) throw EMathError("Fitted Line: Order <=0");
    DoFit();
    FindStatistics();
    GetContinousLine();
}

void TKxFittedLine::DoFit() {
    TKxSimplex::CheckSettings(GetOrder(), FIterations);
    CollectPoints();
    if (FDoCovariance) FindDeviations();
    FStopped = false;
    FIterationsDone = 0;
    TKxRealArray trial(GetOrder()); // one array for all evaluations
    TKxSimplex simplex([&](std::span<const double> Coefficients) {
        std::copy(Coefficients.begin(), Coefficients.end(), trial.begin());
        return Goodness(trial);
    });
    const auto keepBest = [&](const TKxSimplex& Simplex) {
        ++FIterationsDone;
        FCoefficients = ArrayOf(Simplex.Best());
        FChiSquare = Simplex.BestValue();
        OnIteration(this);
        return !FStopped;
    };
    const TKxRealArray start = FCoefficients.Clone();
    simplex.Run({start.begin(), start.end()}, FIterations, keepBest);
    if (!std::isfinite(FChiSquare)) {
        FCoefficients = start;
        throw EMathError("Fitted Line: the function has no finite value at the start");
    }
}

void TKxFittedLine::CollectPoints() {
    for (auto* column : {&FX, &FY, &FWeights, &FDeviations}) column->clear();
    const auto* parent = GetParentSeries();
    if (!parent->GetXData() || !parent->GetYData()) throw EMathError("Not enough data!");
    const auto x = parent->GetXData()->Values(), y = parent->GetYData()->Values();
    const auto* weight = GetWeight();
    std::size_t count = std::min(x.size(), y.size());
    if (weight) count = std::min(count, weight->Values().size());
    for (std::size_t i = 0; i < count; ++i) {
        const double w = weight ? weight->Values()[i] : 1;
        if (!(GetCalculationStart() <= x[i] && x[i] <= GetCalculationStop())) continue;
        if (!std::isfinite(x[i]) || !std::isfinite(y[i]) || !std::isfinite(w)) continue;
        FX.push_back(x[i]);
        FY.push_back(y[i]);
        if (weight) FWeights.push_back(std::abs(w));
    }
    if (FX.empty() || int(FX.size()) < GetOrder()) throw EMathError("Not enough data!");
    if (weight && std::ranges::all_of(FWeights, [](double W) { return W == 0; }))
        throw EMathError("Reciprocal indefinite!");
}

void TKxFittedLine::FindDeviations() {
    TKxRealVector x(nullptr), y(nullptr);
    x.AddValues(FX);
    y.AddValues(FY);
    TKxAkima interpolant;
    interpolant.RecalculateCoeffs(-CMaxReal, CMaxReal, &x, &y, nullptr);
    for (std::size_t i = 0; i < FX.size(); ++i) FDeviations.push_back(FY[i] - interpolant.Interpolate(FX[i]));
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
    for (std::size_t start = 0; start < FX.size(); start += CBlock) {
        const std::size_t count = std::min(CBlock, FX.size() - start);
        EvaluateModel({&FX[start], count}, Coefficients, {model, count});
        const auto term = [&](std::size_t i) { return Term(start + i, FY[start + i] - model[i]); };
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
    const bool weighted = !FWeights.empty();
    if (FDoCovariance)
        return SumOverPoints(Coefficients, [&](std::size_t i, double r) {
            return (weighted ? FWeights[i] : 1) * std::abs(FDeviations[i] * r);
        });
    if (weighted)
        return SumOverPoints(Coefficients, [&](std::size_t i, double r) { return FWeights[i] * r * r; });
    return SumOverPoints(Coefficients, [](std::size_t, double r) { return r * r; });
}

void TKxFittedLine::FindStatistics() {
    const bool weighted = !FWeights.empty();
    FSumOfSquares = SumOverPoints(
        FCoefficients, [&](std::size_t i, double r) { return (weighted ? FWeights[i] : 1) * r * r; });
    TKxRealArray trial(GetOrder());
    const auto model = [&](std::span<const double> Coefficients, std::span<double> Values) {
        std::copy(Coefficients.begin(), Coefficients.end(), trial.begin());
        EvaluateModel(FX, trial, Values);
    };
    FDeltas = StandardErrors({FCoefficients.begin(), FCoefficients.end()}, model, int(FX.size()), FWeights,
                             FSumOfSquares);
}

void TKxFittedLine::WriteResults(TKxIniList& List, const AnsiString& Section) const {
    TKxCalculatedSeries::WriteResults(List, Section);
    List.WriteString(Section, "VarianceCoVariance", FDoCovariance ? "Covariance" : "Variance");
    List.WriteReal(Section, "ChiSquare", FChiSquare);
    List.WriteInteger(Section, "Order", GetOrder());
    List.WriteInteger(Section, "Iterations", FIterations);
    for (int i = 0; i < GetOrder(); ++i) {
        List.WriteString(Section, Numbered("CoeffName", i), ColumnToCharHeader(i + 1));
        List.WriteReal(Section, Numbered("Coeff", i), FCoefficients[i]);
    }
    const int points = int(FX.size());
    List.WriteInteger(Section, "Points", points);
    if (points > GetOrder())
        List.WriteReal(Section, "ResidualVariance", FSumOfSquares / (points - GetOrder()));
    for (int i = 0; i < FDeltas.Length(); ++i)
        if (FDeltas[i] != CMaxReal) List.WriteReal(Section, Numbered("DeltaCoeff", i), FDeltas[i]);
    WriteNamed(List, Section);
}

void TKxFittedLine::WriteNamed(TKxIniList& List, const AnsiString& Section) const {
    // Names of keys ignore case: of a and A the first one stands under its name.
    const auto isTaken = [&](const AnsiString& Name) {
        TStringList keys;
        List.ReadSection(Section, keys);
        for (int i = 0; i < keys.GetCount(); ++i)
            if (SameText(keys.GetLine(i), Name)) return true;
        return false;
    };
    for (int i = 0; i < std::min(GetOrder(), int(FNames.size())); ++i) {
        const AnsiString& name = FNames[std::size_t(i)];
        if (isTaken(name)) continue;
        List.WriteReal(Section, name, FCoefficients[i]);
        if (i < FDeltas.Length() && FDeltas[i] != CMaxReal)
            List.WriteReal(Section, "Delta(" + name + ")", FDeltas[i]);
    }
}

void TKxFittedLine::WriteToIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxCalculatedSeries::WriteToIni(Ini, Section);
    Ini.WriteString(Section, "Formula", FExpression);
    Ini.WriteInteger(Section, "Order", GetOrder());
    Ini.WriteInteger(Section, "Iterations", FIterations);
    Ini.WriteReal(Section, "ChiSquare", FChiSquare);
    Ini.WriteRealArray(Section, "Coefs", FCoefficients.Data(), FCoefficients.High());
}

void TKxFittedLine::ReadFromIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxCalculatedSeries::ReadFromIni(Ini, Section);
    // What was saved with another function is of no use as coefficients of this one.
    const AnsiString saved = Ini.ReadString(Section, "Coefs", "");
    if (std::count(saved.begin(), saved.end(), ';') == FCoefficients.High())
        Ini.ReadRealArray(Section, "Coefs", FCoefficients.Data(), FCoefficients.High());
    FIterations = Ini.ReadInteger(Section, "Iterations", FIterations);
    SetExpression(Ini.ReadString(Section, "Formula", FExpression));
}

const TPropertyTable& TKxFittedLine::Properties() {
    using T = TKxFittedLine;
    static const TPropertyTable table(
        "TKxFittedLine", &TKxCalculatedSeries::Properties(),
        {
            Published<&T::GetDoCovariance, &T::SetDoCovariance>("DoCovariance", false,
                                                                "the covariance form of the goodness"),
            Published<&T::GetIterations, &T::SetIterations>("Iterations", 1000, "budget of the simplex"),
            Published<&T::GetOrder, &T::SetOrder>("Order", 0, "number of coefficients"),
            Published<&T::GetExpression, &T::SetExpression>("Expression", "", "the formula as text"),
        });
    return table;
}

} // namespace kx
