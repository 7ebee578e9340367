// Error bars.

#include <kxgraph/series/Kxdataseries.h>

#include <kxgraph/platform/drawing/shifting.h>

#include <algorithm>
#include <cmath>

namespace kx {

TKxDataWithErrorSeries::TKxDataWithErrorSeries(TComponent* Owner) : TKxDataSeries(Owner) {}

void TKxDataWithErrorSeries::Notification(TComponent* Component, TOperation Operation) {
    TKxDataSeries::Notification(Component, Operation);
    if (Operation != opRemove) return;
    bool forgotten = false;
    for (auto& errors : FErrors) {
        if (errors.Vector.GetVector() != Component) continue;
        errors.Vector.Forget();
        forgotten = true;
    }
    if (forgotten) RangesModified();
}

void TKxDataWithErrorSeries::SetErrors(TKind Kind, TKxCustomRealVector* Vector) {
    Refer(FErrors[Kind].Vector, Vector);
    RangesModified();
}

bool TKxDataWithErrorSeries::HasErrors() const {
    return std::any_of(std::begin(FErrors), std::end(FErrors),
                       [](const TErrors& Errors) { return Errors.Vector.GetVector() != nullptr; });
}

void TKxDataWithErrorSeries::Modified() {
    if (FCountsErrors == FPointStyle.GetVisible()) return TKxDataSeries::Modified();
    FCountsErrors = FPointStyle.GetVisible();
    RangesModified();
}

void TKxDataWithErrorSeries::SetErrorColor(TColor Color) {
    if (FErrorColor == Color) return;
    FErrorColor = Color;
    Modified();
}

double TKxDataWithErrorSeries::ErrorAt(TKind Kind, int Index) const {
    if (!FPointStyle.GetVisible() || !FErrors[Kind].Has(Index)) return 0;
    return std::abs(FErrors[Kind].Vector.GetValue(Index));
}

// A bar that reaches zero on a logarithmic axis ends at the axis and moves none of its ends.
TKxInterval TKxDataWithErrorSeries::IntervalOf(const TKxChannel& Channel, int Index) const {
    const double value = Channel.GetValue(Index);
    if (!TakesPart(value, Channel)) return TKxInterval::None();
    const bool alongX = &Channel == &FX;
    const double low = value - ErrorAt(alongX ? XMinus : YMinus, Index),
                 high = value + ErrorAt(alongX ? XPlus : YPlus, Index);
    return {Channel.HasPlace(low) ? low : value, std::isfinite(high) ? high : value};
}

void TKxDataWithErrorSeries::GetIntervals(const TKxChannel& Channel, int First,
                                          std::span<TKxInterval> Intervals) const {
    if (!HasErrors()) return TKxDataSeries::GetIntervals(Channel, First, Intervals);
    for (TKxInterval& interval : Intervals) interval = IntervalOf(Channel, First++);
}

// Pixels from the point to the end of its bar, with the sign of the screen's direction.
int TKxDataWithErrorSeries::PixelLength(TKind Kind, int Index) const {
    const TKxChannel& channel = ChannelOf(Kind);
    const TKxAxis& axis = *channel.GetAxis();
    const double error = std::abs(FErrors[Kind].Vector.GetValue(Index));
    if (std::isnan(error)) return 0;
    const double sign = Kind == XPlus || Kind == YPlus ? 1 : -1;
    if (!channel.IsLogarithmic())
        return RoundToInt((axis.GetMap().Forward ? sign : -sign) * error / axis.GetScale());
    const double value = channel.GetValue(Index), end = value + sign * error;
    if (!(value > 0)) return 0;
    return axis.RealToIntPosition(end > 0 ? end : axis.GetStart()) - axis.RealToIntPosition(value);
}

// The same with fractions.
double TKxDataWithErrorSeries::LengthOf(TKind Kind, int Index) const {
    const TKxChannel& channel = ChannelOf(Kind);
    const TKxAxisMap& map = channel.GetAxis()->GetMap();
    const double error = std::abs(FErrors[Kind].Vector.GetValue(Index));
    if (std::isnan(error)) return 0;
    const double sign = Kind == XPlus || Kind == YPlus ? 1 : -1;
    if (!channel.IsLogarithmic())
        return std::clamp((map.Forward ? sign : -sign) * error / map.Scale, -double(CMaxPixel),
                          double(CMaxPixel));
    const double value = channel.GetValue(Index), end = value + sign * error;
    if (!(value > 0)) return 0;
    return map.RealToPlace(end > 0 ? end : map.Start) - map.RealToPlace(value);
}

void TKxDataWithErrorSeries::CalculateErrors(int Index) {
    for (const TKind kind : {XPlus, XMinus, YPlus, YMinus})
        if (FErrors[kind].Has(Index)) FErrors[kind].Pixels.SetValue(Index, PixelLength(kind, Index));
}

void TKxDataWithErrorSeries::CalculatePoint(int Index) {
    TKxDataSeries::CalculatePoint(Index);
    if (Index >= 0 && Index < FPointsCount && GetXAxis() && GetYAxis()) CalculateErrors(Index);
}

void TKxDataWithErrorSeries::CalculateAllPoints() {
    TKxDataSeries::CalculateAllPoints();
    if (!HasErrors()) return;
    for (int i = 0; i < FPointsCount; ++i) CalculateErrors(i);
}

void TKxDataWithErrorSeries::DrawBars(TCanvas& Canvas, int Index, TPoint P) {
    const int s = FPointStyle.GetSize();
    for (const TKind kind : {XPlus, XMinus, YPlus, YMinus}) {
        const auto& errors = FErrors[kind];
        if (!errors.Has(Index) || Index >= errors.Pixels.GetCount()) continue;
        if (IsAlongX(kind)) {
            const int end = Shifted(P.X, errors.Pixels.GetValue(Index));
            kx::DrawLine(P.X, P.Y, end, P.Y, Canvas);
            kx::DrawLine(end, P.Y - s, end, P.Y + s, Canvas);
        } else {
            const int end = Shifted(P.Y, errors.Pixels.GetValue(Index));
            kx::DrawLine(P.X, P.Y, P.X, end, Canvas);
            kx::DrawLine(P.X - s, end, P.X + s, end, Canvas);
        }
    }
}

void TKxDataWithErrorSeries::DrawBars(TCanvas& Canvas, int Index, TRealPoint P) const {
    const int s = FPointStyle.GetSize();
    for (const TKind kind : {XPlus, XMinus, YPlus, YMinus}) {
        if (!FErrors[kind].Has(Index)) continue;
        const double length = LengthOf(kind, Index);
        const bool alongX = IsAlongX(kind);
        const TRealPoint end = alongX ? Shifted(P, {length, 0}) : Shifted(P, {0, length});
        const TRealPoint half = alongX ? TRealPoint{0, s} : TRealPoint{s, 0};
        kx::DrawLine(P, end, Canvas);
        kx::DrawLine(end - half, end + half, Canvas);
    }
}

template <class P>
void TKxDataWithErrorSeries::DrawMarked(TCanvas& Canvas, int Index, P At) {
    Canvas.Pen.SetWidth(1);
    Canvas.Pen.SetColor(FErrorColor);
    DrawBars(Canvas, Index, At);
    Canvas.Pen.SetWidth(FPointStyle.GetWidth());
    Canvas.Pen.SetColor(FPointStyle.GetColor());
    DrawPointSymbol(At, FPointStyle.GetSize(), FPointStyle.GetStyle(), Canvas);
}

void TKxDataWithErrorSeries::DrawPoints(TCanvas& Canvas) {
    if (!HasErrors()) return TKxDataSeries::DrawPoints(Canvas);
    const TRect world{0, 0, GetDrawingWorld() ? GetDrawingWorld()->GetWidth() : 0,
                      GetDrawingWorld() ? GetDrawingWorld()->GetHeight() : 0};
    if (Canvas.IsSmooth())
        ForMarkedPlaces(Canvas, [&](int Index, TRealPoint At) {
            if (world.Contains(RoundToPixel(At))) DrawMarked(Canvas, Index, At);
        });
    else
        ForMarkedPoints(Canvas, [&](int Index, TPoint At) {
            if (world.Contains(At)) DrawMarked(Canvas, Index, At);
        });
}

void TKxDataWithErrorSeries::DrawSampleMark(TCanvas& Canvas, const TRect& Rect) {
    if (HasErrors() && FPointStyle.GetVisible()) {
        const int middle = (Rect.Left + Rect.Right) / 2, half = FPointStyle.GetSize();
        Canvas.Pen.SetMode(pmCopy);
        Canvas.Pen.SetStyle(psSolid);
        Canvas.Pen.SetWidth(0);
        Canvas.Pen.SetColor(FErrorColor);
        kx::DrawLine(middle, Rect.Top, middle, Rect.Bottom, Canvas);
        for (const int end : {Rect.Top, Rect.Bottom - 1})
            kx::DrawLine(middle - half, end, middle + half, end, Canvas);
    }
    TKxDataSeries::DrawSampleMark(Canvas, Rect);
}

} // namespace kx
