// The curve: where it is sampled, and how it follows the X axis.

#include <kxgraph/analysis/Kxcalculatedseries.h>

#include <algorithm>
#include <cmath>

namespace kx {

namespace {

/// First and Count - 1 positions more, each a part of the way to Last further; in ratios for a logarithmic
/// axis. One where First is Last. Each is computed from First: steps that are added up miss the end, and are
/// lost altogether where they are less than half a digit of it.
std::vector<double> Spaced(double First, double Last, std::size_t Count, std::size_t Parts,
                           bool Logarithmic) {
    if (!(First <= Last)) return {};
    if (First == Last) return {First};
    const bool ratios = Logarithmic && First > 0;
    const double from = ratios ? std::log(First) : First;
    const double step = ((ratios ? std::log(Last) : Last) - from) / double(Parts);
    std::vector<double> values{First};
    values.reserve(Count);
    for (std::size_t i = 1; i < Count; ++i) {
        const double x = from + double(i) * step;
        values.push_back(i == Parts ? Last : std::clamp(ratios ? std::exp(x) : x, First, Last));
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
    if (FDisplayAutoStart) FDisplayStart = AutomaticDisplayStart();
    if (FDisplayAutoStop) FDisplayStop = GetXAxis()->GetStop();
}

// A zoomed view narrows no curve: it lies inside of what the curve covers.
bool TKxCalculatedSeries::FollowAxis() {
    const bool narrows = !GetXAxis()->CanZoomBack();
    const auto follow = [narrows](double& End, double Wanted, bool Further) {
        if (Wanted == End || std::isnan(Wanted) || !(Further || narrows)) return false;
        End = Wanted;
        return true;
    };
    const double start = AutomaticDisplayStart(), stop = GetXAxis()->GetStop();
    const bool before = FDisplayAutoStart && follow(FDisplayStart, start, start < FDisplayStart);
    const bool behind = FDisplayAutoStop && follow(FDisplayStop, stop, stop > FDisplayStop);
    return before || behind;
}

double TKxCalculatedSeries::VisibleStart() const {
    return GetXAxis() ? std::max(FDisplayStart, GetXAxis()->GetStart()) : FDisplayStart;
}

double TKxCalculatedSeries::VisibleStop() const {
    return GetXAxis() ? std::min(FDisplayStop, GetXAxis()->GetStop()) : FDisplayStop;
}

// So many samples a curve is worth, whatever the axis makes of its ends: a view may lie deep inside a display
// range, and the map of an axis far beside its data.
std::size_t TKxCalculatedSeries::MostPixels() const {
    constexpr int CTimesTheView = 10;
    return CTimesTheView * (std::size_t(std::max(GetXAxis()->GetAxisLength(), 0)) + 1);
}

std::size_t TKxCalculatedSeries::PixelsBetween(double Start, double Stop) const {
    if (!GetXAxis() || !(Start < Stop)) return 0;
    const long long from = GetXAxis()->RealToIntPosition(Start), to = GetXAxis()->RealToIntPosition(Stop);
    return std::min(std::size_t(std::abs(to - from)), MostPixels());
}

void TKxCalculatedSeries::RememberAxis() {
    if (!GetXAxis()) return;
    FLastAxisStart = GetXAxis()->GetStart();
    FLastAxisStop = GetXAxis()->GetStop();
    FLastAxisLength = GetXAxis()->GetAxisLength();
}

void TKxCalculatedSeries::GetXSpacings() {
    double start = FDisplayStart, stop = FDisplayStop;
    // What lies far outside of the view is worth no samples, unless there is nothing else.
    const bool wide = GetXAxis() && PixelsBetween(start, stop) == MostPixels();
    if (wide && VisibleStart() < VisibleStop()) {
        start = VisibleStart();
        stop = VisibleStop();
    }
    // Nothing left of the axis shows, and what is not positive has no place on a logarithmic one.
    if (IsLogarithmicX() && start <= 0) start = VisibleStart();
    const std::size_t pixels = PixelsBetween(start, stop);
    Fill(*FDisplayX, Spaced(start, stop, pixels + 2, pixels + 1, IsLogarithmicX()));
    RememberAxis();
}

// Before its layout an axis has the map of other data. The frame that lays it out asks for the line.
bool TKxCalculatedSeries::AwaitsLayout() const {
    return GetXAxis() && GetGraph() && GetXAxis()->GetChanged();
}

void TKxCalculatedSeries::GetContinousLine() {
    if (AwaitsLayout()) {
        SetCurve({}, {});
        FSampling = TSampling::Due;
        return;
    }
    GetXSpacings();
    const auto x = FDisplayX->Values();
    EvaluateCurve({x.begin(), x.end()});
}

void TKxCalculatedSeries::EvaluateAt(const std::vector<double>& X, std::vector<double>& Y) {
    std::transform(X.begin(), X.end(), Y.begin(), [this](double Value) { return GetY(Value); });
}

void TKxCalculatedSeries::EvaluateCurve(const std::vector<double>& X) {
    std::vector<double> y(X.size());
    EvaluateAt(X, y);
    SetCurve(X, y);
    FSampling = TSampling::Done;
}

void TKxCalculatedSeries::SetCurve(std::span<const double> X, std::span<const double> Y) {
    Fill(*FDisplayX, X);
    Fill(*FDisplayY, Y);
    FSampling = TSampling::None;
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
    TRange& range = FY.GetRange();
    if (FY.IsEmpty()) return;
    const double lowest = data.GetStart() / CDecade, highest = data.GetStop() * CDecade;
    if (range.GetStart() < lowest || range.GetStop() > highest)
        range.SetStartStop(std::max(range.GetStart(), lowest), std::min(range.GetStop(), highest));
}

// A zoomed view is the user's: a curve that is sampled for it moves no axis.
void TKxCalculatedSeries::CurveChanged() {
    if (GetXAxis() && GetXAxis()->CanZoomBack())
        Modified();
    else
        RangesModified();
}

// The first layout, a resize, or an automatic display end that the axis has left. Moves such ends.
bool TKxCalculatedSeries::CurveIsOutgrown() {
    if (FSampling == TSampling::Due) {
        SetDisplayLimits();
        return true;
    }
    return FollowAxis() || GetXAxis()->GetAxisLength() != FLastAxisLength;
}

void TKxCalculatedSeries::CalculateLine() {
    RenewTexts();
    if (!GetXAxis() || !HasCurve() || AwaitsLayout()) return;
    if (CurveIsOutgrown()) {
        GetContinousLine();
        return CurveChanged();
    }
    const TKxAxis& axis = *GetXAxis();
    if (axis.GetStart() == FLastAxisStart && axis.GetStop() == FLastAxisStop) return;
    RememberAxis();
    SampleVisible();
    CurveChanged();
}

// As many points as before, or as many as there are pixels now. Where the view cuts the curve off, the last
// one lies a step below its edge; the curve's own end is reached.
void TKxCalculatedSeries::SampleVisible() {
    const double start = VisibleStart(), stop = VisibleStop();
    if (!(start < stop)) return;
    const std::size_t pixels = PixelsBetween(start, stop), before = std::size_t(FDisplayX->GetCount());
    const std::size_t count = std::max<std::size_t>(pixels > before ? pixels + 2 : before, 2);
    const std::size_t parts = stop == FDisplayStop ? count - 1 : count + 1;
    EvaluateCurve(Spaced(start, stop, count, parts, IsLogarithmicX()));
}

} // namespace kx
