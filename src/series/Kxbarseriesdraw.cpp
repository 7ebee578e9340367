// Painting of bars.

#include <kxgraph/series/Kxbarseries.h>

#include <algorithm>
#include <cmath>
#include <type_traits>

namespace kx {

TKxBarLayout TKxBarSeries::GetLayout() const {
    TKxBarLayout layout{1, 1, FBarsGapPercent, FDepthPercent};
    if (!FShiftOverlays || !GetOwner()) return layout;
    layout.Count = 0;
    for (const TComponent* component : GetOwner()->GetComponents()) {
        const auto* bars = dynamic_cast<const TKxBarSeries*>(component);
        if (!bars || !bars->FShiftOverlays || bars->FBarHorizontal != FBarHorizontal ||
            bars->GetXAxis() != GetXAxis() || bars->GetYAxis() != GetYAxis())
            continue;
        ++layout.Count;
        if (bars == this) layout.Place = layout.Count;
        layout.GapPercent = std::min(layout.GapPercent, bars->FBarsGapPercent);
        layout.DepthPercent = std::min(layout.DepthPercent, bars->FDepthPercent);
    }
    return layout;
}

struct TKxBarSeries::TPlan {
    TKxBarLayout Layout;
    const TKxAxisMap& Map; // of the lengths
    std::span<const TKxBarValues> Below;
    TSize World;
    bool Cut, InOrder;
};

TKxBarSeries::TPlan TKxBarSeries::MakePlan() const {
    return {GetLayout(),   Lengths().GetAxis()->GetMap(),
            ValuesBelow(), GetDrawingWorld()->GetBoundsRect().Size(),
            !IsZoomed(),   PaintsInEdgeOrder(EdgeAt(0), EdgeAt(FPointsCount), FBarHorizontal)};
}

// Without a clip a bar that reaches out of the drawing world would lie on labels: it is cut at the border.
TKxBarSeries::TBar TKxBarSeries::BarAt(const TPlan& Plan, int Index) const {
    TBar bar;
    const int edge = EdgeAt(Index), next = EdgeAt(Index + 1), end = EndAt(Index);
    if (edge == CNoPixel || next == CNoPixel || end == CNoPixel) return bar;
    const int start = Plan.Map.EndPosition(StackStart(Plan.Below, Index));
    bar.Slot = SlotInBin(edge, next, Plan.Layout);
    const TRect outline = BarOutline(bar.Slot, start, end, FBarHorizontal);
    if (!IsBarInside(outline, Plan.World)) return bar;
    bar.Outline = Plan.Cut ? outline.Intersected({0, 0, Plan.World.Width, Plan.World.Height}) : outline;
    return bar;
}

namespace {

bool IsDeep(const TKxBarSlot& Slot) { return Slot.DepthX != 0 || Slot.DepthY != 0; }

} // namespace

double TKxBarSeries::PlaceAt(const TKxChannel& Channel, double Value) const {
    return Channel.GetAxis()->GetMap().EndPlace(Value);
}

TRealRect TKxBarSeries::ExactOutline(const TPlan& Plan, int Index) const {
    const double start = StackStart(Plan.Below, Index);
    const TKxBarSpan span = SpanInBin(PlaceAt(Edges(), Edges().GetValue(Index)),
                                      PlaceAt(Edges(), Edges().GetValue(Index + 1)), Plan.Layout);
    const TRealRect outline =
        BarOutline(span, PlaceAt(Lengths(), start), PlaceAt(Lengths(), Lengths().GetValue(Index) + start),
                   FBarHorizontal);
    return Plan.Cut ? outline.Intersected(TRect{0, 0, Plan.World.Width, Plan.World.Height}) : outline;
}

// What is to be drawn is decided by pixels, as everywhere. Bars of a dense histogram that fall into one
// column of pixels are drawn as one.
template <class R, class F>
void TKxBarSeries::ForBars(bool AreaOnly, F Draw) const {
    constexpr bool exact = std::is_same_v<R, TRealRect>;
    const TPlan plan = MakePlan();
    R pending{};
    TKxBarSlot slot;
    const auto draw = [&] {
        if (!pending.IsEmpty()) Draw(exact && AreaOnly ? BarArea(pending, FBarHorizontal) : pending, slot);
    };
    for (int n = 0; n < FPointsCount; ++n) {
        const int index = plan.InOrder ? n : FPointsCount - 1 - n;
        const TBar bar = BarAt(plan, index);
        if (bar.Outline.IsEmpty()) continue;
        R outline;
        if constexpr (exact)
            outline = ExactOutline(plan, index);
        else
            outline = AreaOnly ? BarArea(bar.Outline, FBarHorizontal) : bar.Outline;
        if (outline.IsEmpty()) continue;
        const bool deep = FShow3DBars && (IsDeep(bar.Slot) || IsDeep(slot));
        if (!deep && !pending.IsEmpty() && AreOneLine(pending, outline, FBarHorizontal)) {
            pending = pending.United(outline);
            continue;
        }
        draw();
        pending = outline;
        slot = bar.Slot;
    }
    draw();
}

void TKxBarSeries::DrawLine(TCanvas& Canvas) {
    if (!PrepareDrawing() || FPointsCount < 1 || !IsShown()) return;
    const TCanvas::TSaved saved(Canvas);
    if (!IsZoomed()) Canvas.SetClip(std::nullopt);
    if (FShow3DBars)
        DrawBoxes(Canvas);
    else if (Canvas.IsSmooth())
        DrawFlat(Canvas, [this](bool AreaOnly, auto Draw) {
            ForBars<TRealRect>(AreaOnly, [&Draw](const TRealRect& Bar, const TKxBarSlot&) { Draw(Bar); });
        });
    else
        DrawFlat(Canvas, [this](bool AreaOnly, auto Draw) {
            ForBars<TRect>(AreaOnly, [&Draw](const TRect& Bar, const TKxBarSlot&) { Draw(Bar); });
        });
}

template <class E>
void TKxBarSeries::DrawFlat(TCanvas& Canvas, E ForEach) const {
    const TKxAreaStyle& area = AreaStyle();
    const bool outlined = LineStyle().GetVisible(), xored = area.GetDrawXOred() && Canvas.CanXor();
    const bool filledApart = xored || !outlined;
    if (area.GetVisible() && filledApart)
        ForEach(true, [&](const TRealRect& Area) { FillBar(Canvas, Area, xored); });
    UseLinePen(Canvas, LineStyle());
    if (!outlined) return;
    Canvas.Brush.SetColor(area.GetColor());
    Canvas.Brush.SetStyle(area.GetVisible() && !filledApart ? area.GetStyle() : bsClear);
    ForEach(false, [&](const TRealRect& Outline) { Canvas.Rectangle(Outline); });
}

// Those that stand among this one's boxes, in painting order.
std::vector<TKxBarSeries*> TKxBarSeries::BoxGroup() {
    std::vector<TKxBarSeries*> group;
    for (TKxGraphSeries* series : GetDrawingWorld()->GetSeriesList()) {
        auto* bars = dynamic_cast<TKxBarSeries*>(series);
        if (bars && bars->FShow3DBars && bars->IsShown() && bars->FBarHorizontal == FBarHorizontal &&
            bars->GetXAxis() == GetXAxis() && bars->GetYAxis() == GetYAxis() && bars->FPointsCount > 0)
            group.push_back(bars);
    }
    return group;
}

void TKxBarSeries::DrawBoxes(TCanvas& Canvas) {
    const auto group = BoxGroup();
    if (group.size() > 1 && group.front() == this) return DrawBoxesTogether(Canvas, group);
    if (group.size() > 1 && std::find(group.begin(), group.end(), this) != group.end()) return;
    const auto draw = [&](const auto& Outline, const TKxBarSlot& Slot) { DrawBox(Canvas, Outline, Slot); };
    if (Canvas.IsSmooth())
        ForBars<TRealRect>(false, draw);
    else
        ForBars<TRect>(false, draw);
}

void TKxBarSeries::DrawBoxesTogether(TCanvas& Canvas, const std::vector<TKxBarSeries*>& Group) const {
    std::vector<TPlan> plans;
    int bins = 0;
    for (TKxBarSeries* bars : Group) {
        bars->PrepareDrawing();
        plans.push_back(bars->MakePlan());
        bins = std::max(bins, bars->FPointsCount);
    }
    struct TBox {
        TBar Bar;
        std::size_t Series;
    };
    std::vector<TBox> bin;
    for (int n = 0; n < bins; ++n) {
        const int i = plans.front().InOrder ? n : bins - 1 - n;
        bin.clear();
        for (std::size_t k = 0; k < Group.size(); ++k)
            if (i < Group[k]->FPointsCount) bin.push_back({Group[k]->BarAt(plans[k], i), k});
        std::erase_if(bin, [](const TBox& Box) { return Box.Bar.Outline.IsEmpty(); });
        std::stable_sort(bin.begin(), bin.end(), [this](const TBox& A, const TBox& B) {
            return PaintsBefore(A.Bar.Outline, B.Bar.Outline, FBarHorizontal);
        });
        for (const auto& [bar, k] : bin)
            if (Canvas.IsSmooth())
                Group[k]->DrawBox(Canvas, Group[k]->ExactOutline(plans[k], i), bar.Slot);
            else
                Group[k]->DrawBox(Canvas, bar.Outline, bar.Slot);
    }
}

template <class R>
void TKxBarSeries::DrawBox(TCanvas& Canvas, const R& Outline, const TKxBarSlot& Slot) const {
    const TColor front = AreaStyle().GetColor();
    const TColor frame = LineStyle().GetVisible() ? LineStyle().GetColor() : front;
    UseLinePen(Canvas, LineStyle());
    if constexpr (std::is_same_v<R, TRealRect>)
        Draw3DBar(Outline, Slot.DepthX, Slot.DepthY, frame, front, BarTopColor(front), BarSideColor(front),
                  Canvas);
    else
        Draw3DBar(Outline.Left, Outline.Top, Outline.Right, Outline.Bottom, Slot.DepthX, Slot.DepthY, frame,
                  front, BarTopColor(front), BarSideColor(front), Canvas);
}

void TKxBarSeries::FillBar(TCanvas& Canvas, const TRealRect& Area, bool Xored) const {
    Canvas.Brush.SetColor(AreaStyle().GetColor());
    Canvas.Brush.SetStyle(AreaStyle().GetStyle());
    if (!Xored) return Canvas.FillRect(Area);
    const TColor ground = GetGraph() ? GetGraph()->GetDataGround() : clWhite;
    Canvas.Brush.SetColor(ColorToRGB(AreaStyle().GetColor()) ^ ColorToRGB(ground));
    Canvas.Brush.SetStyle(AreaStyle().GetStyle());
    Canvas.Pen.SetMode(pmXor);
    Canvas.Pen.SetStyle(psClear);
    const TRealPoint corners[] = {
        {Area.Left, Area.Top}, {Area.Right, Area.Top}, {Area.Right, Area.Bottom}, {Area.Left, Area.Bottom}};
    Canvas.Polygon(corners); // without an outline its right and lower border stay out
}

void TKxBarSeries::DrawSample(TCanvas& Canvas, const TRect& Rect) {
    if (!IsShown()) return;
    if (!FShow3DBars)
        return DrawFlat(
            Canvas, [&](bool AreaOnly, auto Draw) { Draw(AreaOnly ? BarArea(Rect, FBarHorizontal) : Rect); });
    TKxBarSlot slot = SlotInBin(0, Rect.Width(), {1, 1, 0, FDepthPercent});
    slot.DepthX = std::min(std::abs(slot.DepthX), Rect.Width() / 2);
    slot.DepthY = std::min(std::abs(slot.DepthY), Rect.Height() / 2);
    const TRect front{Rect.Left, Rect.Top + slot.DepthY + 1, Rect.Right - slot.DepthX, Rect.Bottom};
    if (!front.IsEmpty()) DrawBox(Canvas, front, slot);
}

} // namespace kx
