// The curve: where it is sampled, and how it follows the X axis.

#include "analysis/Kxcalculatedseries.h"

#include <algorithm>
#include <cmath>

namespace kx {

namespace {

/// First, and Parts equal steps on from it up to Last; in ratios for a logarithmic axis. MaxCount at most,
/// one where First is Last.
std::vector<double> Spaced(double First, double Last, std::size_t Parts, std::size_t MaxCount,
                           bool Logarithmic) {
    const bool ratios = Logarithmic && First > 0;
    const double step = ratios ? std::pow(Last / First, 1.0 / double(Parts)) : (Last - First) / double(Parts);
    std::vector<double> values;
    for (double x = First; x <= Last && values.size() < MaxCount; x = ratios ? x * step : x + step) {
        values.push_back(x);
        if (First == Last) break;
    }
    return values;
}

} // namespace

void TKxCalculatedSeries::SetLimits() {
    if (FParentSeries && FAutoStart) FCalculationStart = FParentSeries->GetXRange().GetStart();
    if (FParentSeries && FAutoStop) FCalculationStop = FParentSeries->GetXRange().GetStop();
    SetDisplayLimits();
}

void TKxCalculatedSeries::SetDisplayLimits() {
    if (FCoupleCalculationAndDisplay) {
        FDisplayStart = FCalculationStart;
        FDisplayStop = FCalculationStop;
    }
    if (!GetXAxis()) return;
    if (FDisplayAutoStart) FDisplayStart = GetXAxis()->GetStart();
    if (FDisplayAutoStop) FDisplayStop = GetXAxis()->GetStop();
}

bool TKxCalculatedSeries::ExtendDisplay() {
    const bool before = FDisplayAutoStart && GetXAxis()->GetStart() < FDisplayStart;
    const bool behind = FDisplayAutoStop && GetXAxis()->GetStop() > FDisplayStop;
    if (before) FDisplayStart = GetXAxis()->GetStart();
    if (behind) FDisplayStop = GetXAxis()->GetStop();
    return before || behind;
}

double TKxCalculatedSeries::VisibleStart() const {
    return GetXAxis() ? std::max(FDisplayStart, GetXAxis()->GetStart()) : FDisplayStart;
}

double TKxCalculatedSeries::VisibleStop() const {
    return GetXAxis() ? std::min(FDisplayStop, GetXAxis()->GetStop()) : FDisplayStop;
}

std::size_t TKxCalculatedSeries::PixelsBetween(double Start, double Stop) const {
    if (!GetXAxis() || !(Start < Stop)) return 0;
    const long long from = GetXAxis()->RealToIntPosition(Start), to = GetXAxis()->RealToIntPosition(Stop);
    return std::size_t(std::abs(to - from));
}

void TKxCalculatedSeries::RememberAxis() {
    if (!GetXAxis()) return;
    FLastAxisStart = GetXAxis()->GetStart();
    FLastAxisStop = GetXAxis()->GetStop();
    FLastAxisLength = GetXAxis()->GetAxisLength();
}

void TKxCalculatedSeries::GetXSpacings() {
    const bool logarithmic = GetXAxis() && GetXAxis()->GetScaling() != AxNormal;
    double start = FDisplayStart, stop = FDisplayStop;
    std::size_t pixels = PixelsBetween(start, stop);
    // A view deep inside a display range of its own: what lies far outside is not worth billions of points.
    constexpr std::size_t CWide = 10;
    if (GetXAxis() && pixels > CWide * std::size_t(GetXAxis()->GetAxisLength() + 1)) {
        start = VisibleStart();
        stop = VisibleStop();
        pixels = PixelsBetween(start, stop);
    }
    // Nothing left of the axis shows, and what is not positive has no place on a logarithmic one.
    if (logarithmic && start <= 0) start = VisibleStart();
    Fill(*FDisplayX, Spaced(start, stop, pixels + 1, pixels + 2, logarithmic));
    RememberAxis();
}

void TKxCalculatedSeries::GetContinousLine() {
    GetXSpacings();
    const auto x = FDisplayX->Values();
    EvaluateCurve({x.begin(), x.end()});
}

void TKxCalculatedSeries::EvaluateCurve(const std::vector<double>& X) {
    std::vector<double> y(X.size());
    std::transform(X.begin(), X.end(), y.begin(), [this](double Value) { return GetY(Value); });
    SetCurve(X, y);
}

void TKxCalculatedSeries::SetCurve(std::span<const double> X, std::span<const double> Y) {
    Fill(*FDisplayX, X);
    Fill(*FDisplayY, Y);
}

void TKxCalculatedSeries::Fill(TKxLiveVector& Vector, std::span<const double> Values) {
    Vector.Clear();
    Vector.AddValues(Values);
    Vector.Listeners().Call(-1, true);
}

void TKxCalculatedSeries::GetNewYStartStop() {
    TKxSeries::GetNewYStartStop();
    if (!FParentSeries || !GetYAxis() || GetYAxis()->GetScaling() == AxNormal) return;
    const TRange& data = FParentSeries->GetYRange();
    if (GetYAxis() != FParentSeries->GetYAxis() ||
        !(data.GetStart() > 0 && data.GetStart() <= data.GetStop()))
        return;
    constexpr double CDecade = 10;
    if (FYRange.GetStart() > FYRange.GetStop()) return;
    const double lowest = data.GetStart() / CDecade, highest = data.GetStop() * CDecade;
    if (FYRange.GetStart() < lowest || FYRange.GetStop() > highest)
        FYRange.SetStartStop(std::max(FYRange.GetStart(), lowest), std::min(FYRange.GetStop(), highest));
}

// A zoomed view is the user's: a curve that is sampled for it moves no axis.
void TKxCalculatedSeries::CurveChanged() {
    if (GetXAxis() && GetXAxis()->CanZoomBack())
        Modified();
    else
        RangesModified();
}

bool TKxCalculatedSeries::CurveIsOutgrown() {
    if (!GetXAxis() || FDisplayX->GetCount() == 0) return false;
    return ExtendDisplay() || GetXAxis()->GetAxisLength() != FLastAxisLength;
}

void TKxCalculatedSeries::CalculateLine() {
    if (!GetXAxis() || FDisplayX->GetCount() == 0) return;
    if (CurveIsOutgrown()) {
        FillCurve();
        return CurveChanged();
    }
    const TKxAxis& axis = *GetXAxis();
    if (axis.GetStart() == FLastAxisStart && axis.GetStop() == FLastAxisStop) return;
    RememberAxis();
    SampleVisible();
    CurveChanged();
}

// As many points as before, or as many as there are pixels now; the last one lies a step below the end.
void TKxCalculatedSeries::SampleVisible() {
    const double start = VisibleStart(), stop = VisibleStop();
    const std::size_t pixels = PixelsBetween(start, stop), before = std::size_t(FDisplayX->GetCount());
    if (!(start < stop)) return;
    const std::size_t count = pixels > before ? pixels + 2 : before;
    EvaluateCurve(Spaced(start, stop, count + 1, count, GetXAxis()->GetScaling() != AxNormal));
}

} // namespace kx
