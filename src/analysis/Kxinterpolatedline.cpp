#include "analysis/Kxinterpolatedline.h"

#include <vector>

namespace kx {

namespace {

void WritePoints(TKxIniList& List, const AnsiString& Section, const AnsiString& Kind,
                 const TKxRealPosArray& Points) {
    for (int k = 0; k < Points.Length(); ++k) {
        const AnsiString number = "(" + std::to_string(k + 1) + ")";
        List.WriteReal(Section, "X-" + Kind + number, Points[k].X);
        List.WriteReal(Section, "Y-" + Kind + number, Points[k].Y);
    }
}

/// X with each distance cut into Parts equal ones.
std::vector<double> Refined(std::span<const double> X, std::size_t Parts) {
    std::vector<double> refined;
    for (std::size_t i = 0; i + 1 < X.size(); ++i)
        for (std::size_t k = 0; k < Parts; ++k)
            refined.push_back(X[i] + (X[i + 1] - X[i]) * (double(k) / double(Parts)));
    refined.push_back(X.back());
    return refined;
}

} // namespace

TKxInterpolatedFunction::TKxInterpolatedFunction(TComponent* Owner, std::unique_ptr<TKxIntPolynom> Polynom)
    : TKxCalculatedSeries(Owner), FPolynom(std::move(Polynom)) {}

void TKxInterpolatedFunction::CalculateFunction() {
    auto* parent = GetParentSeries();
    if (!parent->GetXData() || !parent->GetYData()) throw EMathError("Not enough data!");
    PreparePolynom();
    FPolynom->RecalculateCoeffs(GetCalculationStart(), GetCalculationStop(), parent->GetXData(),
                                parent->GetYData(), GetWeight());
    FindExtremaOfCurve();
    FillCurve();
}

// The integration passes no more knots than it is given abscissae: where there are more data than pixels,
// positions are put in between.
void TKxInterpolatedFunction::FillIntegral() {
    GetXSpacings();
    const auto x = DisplayX().Values();
    if (x.empty()) return;
    const std::size_t parts = x.size() < 2 ? 1 : (std::size_t(FPolynom->Count) + 2) / (x.size() - 1) + 1;
    TKxRealVector abscissae(nullptr), integral(nullptr);
    abscissae.AddValues(Refined(x, parts));
    FPolynom->Integrate(abscissae, integral);
    std::vector<double> y;
    for (std::size_t i = 0; i < x.size(); ++i) y.push_back(integral.GetValue(int(i * parts)));
    SetCurveY(y);
}

void TKxInterpolatedFunction::WriteResults(TKxIniList& List, const AnsiString& Section) const {
    TKxCalculatedSeries::WriteResults(List, Section);
    WritePoints(List, Section, "Minima", GetMinima());
    WritePoints(List, Section, "Maxima", GetMaxima());
}

TKxAkimaFunction::TKxAkimaFunction(TComponent* Owner)
    : TKxAkimaFunction(Owner, std::make_unique<TKxAkima>()) {}

TKxAkimaFunction::TKxAkimaFunction(TComponent* Owner, std::unique_ptr<TKxAkima> Akima)
    : TKxInterpolatedFunction(Owner, std::move(Akima)), FAkima(static_cast<TKxAkima&>(Polynom())) {}

void TKxAkimaFunction::PreparePolynom() {
    FAkima.SmoothLog = GetXAxis() && GetXAxis()->GetScaling() != AxNormal;
}

void TKxAkimaFunction::SetSmoothM(double SmoothM) {
    if (FAkima.SmoothM == SmoothM) return;
    FAkima.Smooth = true;
    ChangeSetting(FAkima.SmoothM, SmoothM);
}

void TKxAkimaFunction::WriteToIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxInterpolatedFunction::WriteToIni(Ini, Section);
    Ini.WriteBool(Section, "DoSmoothing", FAkima.Smooth);
    Ini.WriteReal(Section, "SmoothM", FAkima.SmoothM);
}

void TKxAkimaFunction::ReadFromIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxInterpolatedFunction::ReadFromIni(Ini, Section);
    FAkima.Smooth = Ini.ReadBool(Section, "DoSmoothing", false);
    FAkima.SmoothM = Ini.ReadReal(Section, "SmoothM", 0.0);
}

const TPropertyTable& TKxAkimaFunction::Properties() {
    using T = TKxAkimaFunction;
    static const TPropertyTable table(
        "TKxAkimaFunction", &TKxCalculatedSeries::Properties(),
        {
            Published<&T::GetDoSmoothing, &T::SetDoSmoothing>("DoSmoothing", false, "smooths the data first"),
            Published<&T::GetSmoothM, &T::SetSmoothM>(
                "SmoothM", 0.0, "half the base of the smoothing average, units of x or decades"),
        });
    return table;
}

} // namespace kx
