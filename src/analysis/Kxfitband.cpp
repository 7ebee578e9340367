#include <kxgraph/analysis/Kxfitband.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/published.h>
#include <kxgraph/platform/text/numbertext.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace kx {

namespace {

constexpr double CNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double CDefaultLevel = 0.95;

} // namespace

TKxFitBand::TKxFitBand(TComponent* Owner) : TKxCalculatedSeries(Owner) {
    GetAreaStyle().SetVisible(true);
    GetAreaStyle().SetDrawXOred(false);
    GetAreaStyle().SetColor(RGB(0xE0, 0xE0, 0xE0));
    GetLineStyle().SetColor(RGB(0xC0, 0xC0, 0xC0));
}

TKxFitBand::~TKxFitBand() = default;

void TKxFitBand::SetFit(TKxCalculatedSeries* Fit) {
    if (Fit == FFit) return;
    Refer(FFit, Fit);
    ParentModified();
}

void TKxFitBand::Notification(TComponent* Component, TOperation Operation) {
    TKxCalculatedSeries::Notification(Component, Operation);
    if (Operation != opRemove || Component != FFit) return;
    FFit = nullptr;
    ParentModified();
}

const TKxBandedFit* TKxFitBand::BandedFit() const { return dynamic_cast<const TKxBandedFit*>(FFit); }

TKxBandValue TKxFitBand::GetBand(double X, double Level) const {
    const TKxBandedFit* fit = BandedFit();
    return fit ? fit->GetBand(X, Level, FKind) : TKxBandValue{CNaN, CNaN};
}

AnsiString TKxFitBand::GetFormula() const {
    constexpr int digits = 6;
    return FloatToStrGeneral(100 * FLevel, digits, 0) +
           (FKind == bkConfidence ? " % confidence band" : " % prediction band");
}

void TKxFitBand::CollectResults(TKxResults& Results) const {
    TKxCalculatedSeries::CollectResults(Results);
    Results.Set("Fit", FFit ? FFit->GetName() : AnsiString());
    Results.Set("Kind", FKind == bkConfidence ? "Confidence" : "Prediction");
    Results.Set("Level", FLevel);
}

void TKxFitBand::CalculateFunction() {
    FLow.clear();
    if (!(FLevel > 0 && FLevel < 1)) throw EMathError("Band: the level must lie between 0 and 1");
    if (!FFit) throw EMathError("Band: there is no fit");
    if (!BandedFit()) throw EMathError("Band: this is no fit that has a band");
    const double middle = GetCalculationStart() / 2 + GetCalculationStop() / 2;
    const bool known = FFit->GetError().empty() && std::isfinite(GetBand(middle).High);
    if (!known) throw EMathError("Band: the fit tells no standard errors");
    GetContinousLine();
}

void TKxFitBand::EvaluateAt(const std::vector<double>& X, std::vector<double>& Y) {
    FLow.assign(X.size(), CNaN);
    std::ranges::fill(Y, CNaN);
    if (!BandedFit()) return;
    const auto bands = BandedFit()->GetBands(X, FLevel, FKind);
    for (std::size_t i = 0; i < X.size(); ++i) {
        FLow[i] = bands[i].Low;
        Y[i] = bands[i].High;
    }
}

// A band that spikes at a pole, or comes near the zero of a logarithmic axis, would press the points
// together.
TKxInterval TKxFitBand::WidestExtent() {
    TKxNotCalculatedSeries* parent = GetParentSeries();
    const TRange* points = parent ? &parent->GetYRange() : nullptr;
    if (!points || !(points->GetStart() < points->GetStop())) return {-CMaxReal, CMaxReal};
    if (FY.IsLogarithmic()) {
        const double half = std::sqrt(points->GetStop() / points->GetStart());
        return {points->GetStart() / half, points->GetStop() * half};
    }
    const double half = points->GetStop() / 2 - points->GetStart() / 2;
    return {points->GetStart() - half, points->GetStop() + half};
}

// Beyond the points bands grow without end.
void TKxFitBand::GetNewYStartStop() {
    double low = CMaxReal, high = -CMaxReal;
    const TKxInterval widest = WidestExtent();
    const auto x = DisplayX().Values(), y = DisplayY().Values();
    for (std::size_t i = 0; i < std::min(x.size(), FLow.size()); ++i) {
        if (!(GetCalculationStart() <= x[i] && x[i] <= GetCalculationStop())) continue;
        for (const double edge : {FLow[i], y[i]}) {
            if (!std::isfinite(edge) || (FY.IsLogarithmic() && edge <= 0)) continue;
            low = std::min(low, std::max(edge, widest.Low));
            high = std::max(high, std::min(edge, widest.High));
        }
    }
    FY.GetRange().SetStartStop(low, high);
}

const TPropertyTable& TKxFitBand::Properties() {
    using T = TKxFitBand;
    static const TPropertyTable table(
        "TKxFitBand", &TKxCalculatedSeries::Properties(),
        {
            Published<&T::GetFit, &T::SetFit>("Fit", nullptr, "the fit that the band is about"),
            Published<&T::GetKind, &T::SetKind>("Kind", bkConfidence, "what lies in the band")
                .LoadedBy(Into<&T::FKind>()),
            Published<&T::GetLevel, &T::SetLevel>("Level", CDefaultLevel, "with which probability it does")
                .LoadedBy(Into<&T::FLevel>()),
        },
        {"Fit", "Kind", "Level"});
    return table;
}

} // namespace kx
