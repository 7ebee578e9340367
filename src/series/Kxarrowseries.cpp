#include <kxgraph/series/Kxarrowseries.h>

#include <kxgraph/platform/objects/published.h>

#include <algorithm>
#include <cmath>

namespace kx {

TKxArrowSeries::TKxArrowSeries(TComponent* Owner) : TKxNotCalculatedSeries(Owner) { TakeAxes(Owner); }

void TKxArrowSeries::Notification(TComponent* Component, TOperation Operation) {
    TKxNotCalculatedSeries::Notification(Component, Operation);
    if (Operation != opRemove) return;
    for (TKxBoundVector* components : {&FDX, &FDY}) {
        if (components->GetVector() != Component) continue;
        components->Forget();
        RangesModified();
    }
}

void TKxArrowSeries::SetComponent(TKxBoundVector& Field, TKxCustomRealVector* Vector,
                                  TKxIntegerVector& Ends) {
    Ends.Clear();
    Refer(Field, Vector);
    RangesModified();
    DsgnUpdate();
}

void TKxArrowSeries::DXChanged(int Index, bool WasDeleted) {
    if (FDX.WasInserted(Index, WasDeleted)) return RangesModified();
    FOnXIChanged(Index, WasDeleted);
}

void TKxArrowSeries::DYChanged(int Index, bool WasDeleted) {
    if (FDY.WasInserted(Index, WasDeleted)) return RangesModified();
    FOnYIChanged(Index, WasDeleted);
}

void TKxArrowSeries::SetTipLength(int Length) {
    Length = LimitedLength(Length);
    if (FTipLength == Length) return;
    FTipLength = Length;
    Modified();
}

void TKxArrowSeries::SetTipWidth(int Width) {
    Width = LimitedLength(Width);
    if (FTipWidth == Width) return;
    FTipWidth = Width;
    Modified();
}

void TKxArrowSeries::Modified() {
    if (FCountsTips == LineStyle().GetVisible()) return TKxNotCalculatedSeries::Modified();
    FCountsTips = LineStyle().GetVisible();
    RangesModified();
}

double TKxArrowSeries::ComponentAt(const TKxBoundVector& Vector, int Index) const {
    const bool exists = Index >= 0 && Index < Vector.GetCount();
    return exists && LineStyle().GetVisible() ? Vector.GetValue(Index) : 0;
}

TKxInterval TKxArrowSeries::ArrowInterval(double Value, double Component) {
    const double tip = Value + Component;
    if (!std::isfinite(Value)) return TKxInterval::None();
    if (!std::isfinite(tip)) return {Value, Value};
    return {std::min(Value, tip), std::max(Value, tip)};
}

void TKxArrowSeries::GetIntervals(const TKxChannel& Channel, int First,
                                  std::span<TKxInterval> Intervals) const {
    const TKxBoundVector& components = &Channel == &FX ? FDX : FDY;
    for (TKxInterval& interval : Intervals) {
        interval = ArrowInterval(Channel.GetValue(First), ComponentAt(components, First));
        ++First;
    }
}

void TKxArrowSeries::CalculateEnd(int Index) {
    const auto end = [Index](const TKxChannel& Channel, double Component) {
        const double value = Channel.GetValue(Index);
        return Channel.HasPlace(value) ? Channel.GetAxis()->GetMap().EndPosition(value + Component)
                                       : CNoPixel;
    };
    FEndXs.SetValue(Index, end(FX, GetDX(Index)));
    FEndYs.SetValue(Index, end(FY, GetDY(Index)));
}

void TKxArrowSeries::CalculatePoint(int Index) {
    TKxNotCalculatedSeries::CalculatePoint(Index);
    if (Index >= 0 && Index < FPointsCount && GetXAxis() && GetYAxis()) CalculateEnd(Index);
}

void TKxArrowSeries::CalculateAllPoints() {
    TKxNotCalculatedSeries::CalculateAllPoints();
    FEndXs.SetCount(FPointsCount);
    FEndYs.SetCount(FPointsCount);
    for (int i = 0; i < FPointsCount; ++i) CalculateEnd(i);
}

TRealPoint TKxArrowSeries::TipAt(int Index) const {
    const auto end = [Index](const TKxChannel& Channel, double Component) {
        const double value = Channel.GetValue(Index);
        return Channel.HasPlace(value) ? Channel.GetAxis()->GetMap().EndPlace(value + Component) : CNoPlace.X;
    };
    return {end(FX, GetDX(Index)), end(FY, GetDY(Index))};
}

namespace {

void DrawArrowOf(TCanvas& Canvas, TPoint From, TPoint To, int TipLength, int TipWidth) {
    DrawArrow(From.X, From.Y, To.X, To.Y, TipLength, TipWidth, Canvas);
}
void DrawArrowOf(TCanvas& Canvas, TRealPoint From, TRealPoint To, int TipLength, int TipWidth) {
    DrawArrow(From, To, TipLength, TipWidth, Canvas);
}

} // namespace

template <class P>
void TKxArrowSeries::DrawOne(TCanvas& Canvas, P From, P To, int TipLength, int TipWidth) const {
    if (TipLength > 0 || From == To)
        DrawArrowOf(Canvas, From, To, std::max(1, TipLength), TipWidth);
    else
        kx::DrawLine(From, To, Canvas);
}

void TKxArrowSeries::DrawLine(TCanvas& Canvas) {
    if (!PrepareDrawing() || !LineStyle().GetVisible()) return;
    UseLinePen(Canvas, LineStyle());
    if (Canvas.IsSmooth())
        return ForPlaces(Canvas, CMaxPixel, [&](int Index, TRealPoint At) {
            if (const TRealPoint tip = TipAt(Index); IsPlace(tip))
                DrawOne(Canvas, At, tip, FTipLength, FTipWidth);
        });
    const auto xs = FEndXs.Values(), ys = FEndYs.Values();
    ForPlacedPoints(Canvas, CMaxPixel, [&](int Index, TPoint At) {
        const auto i = std::size_t(Index);
        if (i >= xs.size() || i >= ys.size() || !IsPlaced({xs[i], ys[i]})) return;
        DrawOne(Canvas, At, TPoint{xs[i], ys[i]}, FTipLength, FTipWidth);
    });
}

void TKxArrowSeries::DrawSample(TCanvas& Canvas, const TRect& Rect) {
    if (!LineStyle().GetVisible()) return;
    UseLinePen(Canvas, LineStyle());
    const int middle = (Rect.Top + Rect.Bottom) / 2, room = std::max(0, Rect.Height() / 2 - 1);
    DrawOne(Canvas, TPoint{Rect.Left, middle}, TPoint{Rect.Right - 1, middle},
            std::min(FTipLength, Rect.Width() / 2), std::min(FTipWidth, room));
}

const TPropertyTable& TKxArrowSeries::Properties() {
    using T = TKxArrowSeries;
    const TPropertyTable& base = TKxSeries::Properties();
    static const TPropertyTable table(
        "TKxArrowSeries", &base,
        {
            base.Promoted("XAxis"),
            base.Promoted("YAxis"),
            base.Promoted("XData"),
            base.Promoted("YData"),
            base.Promoted("Weight"),
            Published<&T::GetdXData, &T::SetDX>("dXData", nullptr, "vector of the arrows' x components")
                .WithKey("dX"),
            Published<&T::GetdYData, &T::SetDY>("dYData", nullptr, "vector of the arrows' y components")
                .WithKey("dY"),
            Published<&T::GetTipLength, &T::SetTipLength>("TipLength", 10, "length of the head in pixels"),
            Published<&T::GetTipWidth, &T::SetTipWidth>("TipWidth", 3, "half the head's width in pixels"),
        },
        {"dXData", "dYData", "TipLength", "TipWidth"});
    return table;
}

} // namespace kx
