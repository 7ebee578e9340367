// Error bars.

#include <kxgraph/series/Kxdataseries.h>
#include <kxgraph/series/Kxextents.h>
#include <kxgraph/series/Kxmarks.h>

#include <algorithm>
#include <cmath>

namespace kx {

TKxDataWithErrorSeries::TKxDataWithErrorSeries(TComponent* Owner) : TKxDataSeries(Owner) {}

TKxDataWithErrorSeries::~TKxDataWithErrorSeries() {
    const auto handler = TKxValueIChangedEvent::Of<&TKxDataWithErrorSeries::ErrorsChanged>(this);
    for (auto& errors : FErrors)
        if (errors.Vector) errors.Vector->Listeners().RemoveOwn(handler);
}

void TKxDataWithErrorSeries::Notification(TComponent* Component, TOperation Operation) {
    TKxDataSeries::Notification(Component, Operation);
    if (Operation != opRemove) return;
    bool forgotten = false;
    for (auto& errors : FErrors) {
        if (errors.Vector != Component) continue;
        errors.Vector = nullptr;
        forgotten = true;
    }
    if (forgotten) RangesModified();
}

void TKxDataWithErrorSeries::SetErrors(TKind Kind, TKxCustomRealVector* Vector) {
    const auto handler = TKxValueIChangedEvent::Of<&TKxDataWithErrorSeries::ErrorsChanged>(this);
    if (FErrors[Kind].Vector) FErrors[Kind].Vector->Listeners().RemoveOwn(handler);
    Refer(FErrors[Kind].Vector, Vector);
    // One vector may serve several sides, so all are listened to again.
    for (auto& errors : FErrors)
        if (errors.Vector) errors.Vector->Listeners().Add(handler);
    RangesModified();
}

bool TKxDataWithErrorSeries::HasErrors() const {
    return std::any_of(std::begin(FErrors), std::end(FErrors),
                       [](const TErrors& Errors) { return Errors.Vector != nullptr; });
}

void TKxDataWithErrorSeries::Modified() {
    if (FCountsErrors == FPointStyle.GetVisible()) return TKxDataSeries::Modified();
    FCountsErrors = FPointStyle.GetVisible();
    RangesModified();
}

void TKxDataWithErrorSeries::ErrorsChanged(int, bool) { RangesModified(); }

void TKxDataWithErrorSeries::SetErrorColor(TColor Color) {
    if (FErrorColor == Color) return;
    FErrorColor = Color;
    Modified();
}

double TKxDataWithErrorSeries::ErrorAt(TKind Kind, int Index) const {
    const auto* vector = FErrors[Kind].Vector;
    if (!FPointStyle.GetVisible() || !vector || Index < 0 || Index >= vector->GetCount()) return 0;
    return std::abs(vector->GetValue(Index));
}

TKxSeries::TInterval TKxDataWithErrorSeries::IntervalOf(double Value, TKind Plus, TKind Minus, int Index,
                                                        const TKxAxis* Axis) const {
    if (!TakesPart(Value, Axis)) return PointInterval(Value, Axis);
    const double low = Value - ErrorAt(Minus, Index), high = Value + ErrorAt(Plus, Index);
    // A bar that reaches zero on a logarithmic axis ends at the axis and moves none of its ends.
    const bool logarithmic = Axis && Axis->GetScaling() != AxNormal;
    return {std::isfinite(low) && !(logarithmic && low <= 0) ? low : Value,
            std::isfinite(high) ? high : Value};
}

TKxSeries::TInterval TKxDataWithErrorSeries::XInterval(int Index) const {
    return IntervalOf(GetXData()->GetValue(Index), XPlus, XMinus, Index, GetXAxis());
}

TKxSeries::TInterval TKxDataWithErrorSeries::YInterval(int Index) const {
    return IntervalOf(GetYData()->GetValue(Index), YPlus, YMinus, Index, GetYAxis());
}

void TKxDataWithErrorSeries::GetNewXStartStop() {
    if (!FErrors[XPlus].Vector && !FErrors[XMinus].Vector) {
        TKxDataSeries::GetNewXStartStop();
        return;
    }
    ScanExtents(FXRange, FXMinIndex, FXMaxIndex, XIdxNeeded(), [this](int i) { return XInterval(i); });
    Modified();
}

void TKxDataWithErrorSeries::GetNewYStartStop() {
    if (!FErrors[YPlus].Vector && !FErrors[YMinus].Vector) {
        TKxDataSeries::GetNewYStartStop();
        return;
    }
    ScanExtents(FYRange, FYMinIndex, FYMaxIndex, YIdxNeeded(), [this](int i) { return YInterval(i); });
    Modified();
}

void TKxDataWithErrorSeries::CalcXValue(int Index) {
    UpdateExtents(FXRange, FXMinIndex, FXMaxIndex, Index, XInterval(Index), [this] { GetNewXStartStop(); });
}

void TKxDataWithErrorSeries::CalcYValue(int Index) {
    UpdateExtents(FYRange, FYMinIndex, FYMaxIndex, Index, YInterval(Index), [this] { GetNewYStartStop(); });
}

// Pixels from the point to the end of its bar, with the sign of the screen's direction.
int TKxDataWithErrorSeries::PixelLength(TKind Kind, int Index) const {
    const bool alongX = Kind == XPlus || Kind == XMinus;
    const TKxAxis& axis = alongX ? *GetXAxis() : *GetYAxis();
    const double error = std::abs(FErrors[Kind].Vector->GetValue(Index));
    if (std::isnan(error)) return 0;
    const double sign = Kind == XPlus || Kind == YPlus ? 1 : -1;
    if (axis.GetScaling() == AxNormal)
        return RoundToInt((axis.GetMap().Forward ? sign : -sign) * error / axis.GetScale());
    const double value = (alongX ? GetXData() : GetYData())->GetValue(Index), end = value + sign * error;
    if (!(value > 0)) return 0;
    return axis.RealToIntPosition(end > 0 ? end : axis.GetStart()) - axis.RealToIntPosition(value);
}

void TKxDataWithErrorSeries::CalculateErrors(int Index) {
    for (const TKind kind : {XPlus, XMinus, YPlus, YMinus}) {
        auto& errors = FErrors[kind];
        if (errors.Vector && Index < errors.Vector->GetCount())
            errors.Pixels.SetValue(Index, PixelLength(kind, Index));
    }
}

void TKxDataWithErrorSeries::CalculatePoint(int Index) {
    TKxDataSeries::CalculatePoint(Index);
    if (Index >= 0 && Index < FPointsCount && GetXAxis() && GetYAxis()) CalculateErrors(Index);
}

void TKxDataWithErrorSeries::CalculateAllPoints() {
    TKxDataSeries::CalculateAllPoints();
    if (std::none_of(std::begin(FErrors), std::end(FErrors), [](const TErrors& E) { return E.Vector; }))
        return;
    for (int i = 0; i < FPointsCount; ++i) CalculateErrors(i);
}

namespace {

int Shifted(int Position, int Length) {
    return int(std::clamp<long long>((long long)(Position) + Length, -CMaxPixel, CMaxPixel));
}

} // namespace

void TKxDataWithErrorSeries::DrawBars(TCanvas& Canvas, int Index) {
    const TPoint p = FPoints.Values()[std::size_t(Index)];
    const int s = FPointStyle.GetSize();
    for (const TKind kind : {XPlus, XMinus, YPlus, YMinus}) {
        const auto& errors = FErrors[kind];
        if (!errors.Vector || Index >= errors.Vector->GetCount() || Index >= errors.Pixels.GetCount())
            continue;
        if (kind == XPlus || kind == XMinus) {
            const int end = Shifted(p.X, errors.Pixels.GetValue(Index));
            kx::DrawLine(p.X, p.Y, end, p.Y, Canvas);
            kx::DrawLine(end, p.Y - s, end, p.Y + s, Canvas);
        } else {
            const int end = Shifted(p.Y, errors.Pixels.GetValue(Index));
            kx::DrawLine(p.X, p.Y, p.X, end, Canvas);
            kx::DrawLine(p.X - s, end, p.X + s, end, Canvas);
        }
    }
}

void TKxDataWithErrorSeries::DrawPoints(TCanvas& Canvas) {
    if (!HasErrors()) return TKxDataSeries::DrawPoints(Canvas);
    const TRect world{0, 0, GetDrawingWorld() ? GetDrawingWorld()->GetWidth() : 0,
                      GetDrawingWorld() ? GetDrawingWorld()->GetHeight() : 0};
    ForMarkedPoints(Canvas, [&](int i) {
        const TPoint p = FPoints.Values()[std::size_t(i)];
        if (!world.Contains(p)) return;
        Canvas.Pen.SetWidth(1);
        Canvas.Pen.SetColor(FErrorColor);
        DrawBars(Canvas, i);
        Canvas.Pen.SetWidth(FPointStyle.GetWidth());
        Canvas.Pen.SetColor(FPointStyle.GetColor());
        DrawPointSymbol(p.X, p.Y, FPointStyle.GetSize(), FPointStyle.GetStyle(), Canvas);
    });
}

} // namespace kx
