#include <kxgraph/analysis/Kxpolinomial.h>

#include <kxgraph/numeric/Kxstrings.h>
#include <kxgraph/platform/objects/published.h>

#include <algorithm>
#include <limits>

namespace kx {

namespace {

constexpr int CLowestOrder = 2;

/// "a" for the constant, "b" for the coefficient of X, ...
AnsiString CoefficientName(int Power) {
    AnsiString name = ColumnToCharHeader(Power + 1);
    for (char& c : name) c = char(c - 'A' + 'a');
    return name;
}

} // namespace

TKxPolynomLine::TKxPolynomLine(TComponent* Owner) : TKxCalculatedSeries(Owner) { StoreOrder(CLowestOrder); }

void TKxPolynomLine::StoreOrder(int Order) {
    FFit = {};
    FFit.Order = std::clamp(Order, CLowestOrder, std::numeric_limits<int>::max() - 1);
    FFit.Coefficients.SetLength(FFit.Order + 1);
}

void TKxPolynomLine::LoadOrder(int Order) {
    if (Order != FFit.Order) StoreOrder(Order);
}

void TKxPolynomLine::SetOrder(int Order) {
    if (std::max(Order, CLowestOrder) == FFit.Order) return;
    StoreOrder(Order);
    ParentModified();
}

double TKxPolynomLine::GetCoeff(int I) const {
    if (I < 0 || I > FFit.Order) throw ERangeError("Polynomial: Index of variable out of range");
    return FFit.Coefficients[I];
}

void TKxPolynomLine::CalculateFunction() {
    const auto* parent = GetParentSeries();
    if (IsIn(csDesigning) && parent->GetPointsCount() < FFit.Order + 1) return;
    StoreOrder(FFit.Order);
    PolynomRegression(GetFitPoints(), FFit, FWeightMeaning);
    GetContinousLine();
}

std::vector<TKxBandValue> TKxPolynomLine::GetBands(std::span<const double> X, double Level,
                                                   TKxBandKind Kind) const {
    std::vector<TKxBandValue> bands;
    bands.reserve(X.size());
    for (const double x : X) bands.push_back(BandOf(ValueAt(FFit, x), Level, Kind));
    return bands;
}

AnsiString TKxPolynomLine::GetFormula() const {
    AnsiString formula = "Y=a+bX";
    for (int i = 2; i <= FFit.Order; ++i)
        formula += "+" + CoefficientName(i) + "X\\+" + std::to_string(i) + "\\+";
    return formula;
}

void TKxPolynomLine::CollectResults(TKxResults& Results) const {
    TKxCalculatedSeries::CollectResults(Results);
    const auto numbered = [](const char* Key, int i) { return Key + ("(" + std::to_string(i + 1)) + ")"; };
    Results.Set("Order", FFit.Order);
    Results.Set("AverageX", FFit.AverageX);
    Results.Set("VarianceX", FFit.VarianceX);
    Results.Set("AverageY", FFit.AverageY);
    Results.Set("VarianceY", FFit.VarianceY);
    Results.Set("r2", FFit.R2);
    Results.Set("ChiSquare", FFit.ChiSquare);
    Results.Set("QRel%", FFit.QRel * 100);
    for (int i = 0; i <= FFit.Order; ++i) {
        Results.Set(numbered("CoeffName", i), CoefficientName(i));
        Results.Set(numbered("Coeff", i), FFit.Coefficients[i]);
    }
    Results.Set("Points", FFit.Points);
    if (FFit.Freedom <= 0) return;
    Results.Set("AdjR2", FFit.AdjR2);
    for (int i = 0; i <= FFit.Order; ++i) Results.Set(numbered("DeltaCoeff", i), FFit.DeltaCoefficients[i]);
}

const TPropertyTable& TKxPolynomLine::Properties() {
    using T = TKxPolynomLine;
    static const TPropertyTable table(
        "TKxPolynomLine", &TKxCalculatedSeries::Properties(),
        {Published<&T::GetOrder, &T::SetOrder>("Order", CLowestOrder, "degree of the polynomial")
             .LoadedBy(Into<&T::LoadOrder>()),
         Published<&T::GetWeightMeaning, &T::SetWeightMeaning>("WeightMeaning", wmCounts, "what weights say")
             .LoadedBy(Into<&T::FWeightMeaning>())},
        {"Order", "WeightMeaning"});
    return table;
}

} // namespace kx
