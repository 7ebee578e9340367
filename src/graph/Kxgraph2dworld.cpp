// The drawing world: paints the series, drags the zoom rectangle.

#include <kxgraph/graph/Kxgraphmouse.h>

#include <kxgraph/numeric/Kxarithm.h>
#include <kxgraph/platform/objects/guarded.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace kx {

namespace {

TKx2DGraph* CheckedOwner(TComponent* Owner) {
    auto* graph = dynamic_cast<TKx2DGraph*>(Owner);
    if (!graph) throw Exception("Component must be owned by TKx2DGraph");
    return graph;
}

} // namespace

TKxDrawingWorld::TKxDrawingWorld(TComponent* Owner) : TGraphicControl(Owner), FGraph(CheckedOwner(Owner)) {}

void TKxDrawingWorld::SetDataColor(TColor Color) {
    if (FDataColor == Color) return;
    FDataColor = Color;
    FGraph->Invalidate();
}

void TKxDrawingWorld::SetAutoZoom(bool AutoZoom) {
    FAutoZoom = AutoZoom;
    if (AutoZoom || !FDragging) return;
    InvalidateDragRect();
    FDragging = false;
}

void TKxDrawingWorld::Invalidate() {
    if (GetParent()) GetParent()->Invalidate();
}

void TKxDrawingWorld::InvalidatePart(const TRect& Part) {
    if (GetParent()) GetParent()->InvalidateRect(Part.MovedBy(GetBoundsRect().TopLeft()));
}

// Symbols and bars on the border reach as far as the graph does.
TRect TKxDrawingWorld::GetPaintedRect() const {
    return FGraph->GetClientRect().MovedBy({-GetLeft(), -GetTop()});
}

/// The frame of the zoom rectangle alone: what lies inside stays.
void TKxDrawingWorld::InvalidateDragRect() {
    const TRect rect = DragRect();
    InvalidatePart({rect.Left, rect.Top, rect.Right, rect.Top + 1});
    InvalidatePart({rect.Left, rect.Bottom - 1, rect.Right, rect.Bottom});
    InvalidatePart({rect.Left, rect.Top, rect.Left + 1, rect.Bottom});
    InvalidatePart({rect.Right - 1, rect.Top, rect.Right, rect.Bottom});
}

void TKxDrawingWorld::ReorderSeriesList() {
    std::vector<std::pair<int, TKxGraphSeries*>> sorted; // with their indices, which are asked for once
    sorted.reserve(static_cast<std::size_t>(FSeriesList.GetCount()));
    for (auto* series : FSeriesList) sorted.emplace_back(series->GetComponentIndex(), series);
    const auto precedes = [](const auto& A, const auto& B) { return A.first < B.first; };
    if (std::is_sorted(sorted.begin(), sorted.end(), precedes)) return;
    std::stable_sort(sorted.begin(), sorted.end(), precedes);
    FSeriesList.Clear();
    for (const auto& [index, series] : sorted) FSeriesList.Add(series);
}

void TKxDrawingWorld::Paint() {
    // A handler that runs meanwhile may destroy a series.
    const std::vector<TComponentRef<TKxGraphSeries>> list(FSeriesList.begin(), FSeriesList.end());
    for (const auto& series : list)
        if (series) Guarded([&] { series->DrawBeneath(GetCanvas()); });
    for (const auto& series : list)
        if (series) Guarded([&] { series->Draw(GetCanvas()); });
    FGraph->FMouse->Paint(GetCanvas());
    if (FDragging) GetCanvas().DrawFocusRect(DragRect());
}

namespace {

TKxGraphMarkers::TEnd EndOf(bool Stop) {
    return Stop ? TKxGraphMarkers::TEnd::Stop : TKxGraphMarkers::TEnd::Start;
}

} // namespace

void TKxDrawingWorld::ShowStartStopMarkers(TKxGraphSeries* Series) { FGraph->FMouse->Markers().Show(Series); }

TKxGraphSeries* TKxDrawingWorld::GetMarkedSeries() const { return FGraph->FMouse->Markers().GetSeries(); }

bool TKxDrawingWorld::NearStart(int X, int Y) const {
    return FGraph->FMouse->Markers().IsNear(EndOf(false), {X, Y});
}

bool TKxDrawingWorld::NearStop(int X, int Y) const {
    return FGraph->FMouse->Markers().IsNear(EndOf(true), {X, Y});
}

void TKxDrawingWorld::PaintMarker(TCanvas& Canvas, bool Stop) {
    FGraph->FMouse->Markers().Paint(Canvas, EndOf(Stop));
}

TRect TKxDrawingWorld::DragRect() const { return OrderedRect(FAnchor.X, FAnchor.Y, FCurrent.X, FCurrent.Y); }

void TKxDrawingWorld::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (!FGraph->FMouse->Down(Button, Shift, {X, Y}) && FAutoZoom && Button == mbLeft) {
        if (FDragging) InvalidateDragRect(); // a release was lost
        FAnchor = FCurrent = {X, Y};
        FDragging = true;
    }
    TGraphicControl::MouseDown(Button, Shift, X, Y);
    FGraph->MouseDown(Button, Shift, X + GetLeft(), Y + GetTop());
}

void TKxDrawingWorld::MouseMove(TShiftState Shift, int X, int Y) {
    FGraph->FMouse->Move(Shift, {X, Y});
    if (FDragging) {
        InvalidateDragRect();
        FCurrent = {X, Y};
        InvalidateDragRect();
    }
    TGraphicControl::MouseMove(Shift, X, Y);
    FGraph->MouseMove(Shift, X + GetLeft(), Y + GetTop());
}

void TKxDrawingWorld::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    FGraph->FMouse->Up(Button, Shift, {X, Y});
    if (FDragging && Button == mbLeft) {
        InvalidateDragRect();
        FCurrent = {X, Y};
        FDragging = false;
        if (FCurrent.X != FAnchor.X && FCurrent.Y != FAnchor.Y) FGraph->ZoomTo(DragRect());
    }
    TGraphicControl::MouseUp(Button, Shift, X, Y);
    FGraph->MouseUp(Button, Shift, X + GetLeft(), Y + GetTop());
}

void TKxDrawingWorld::MouseLeave() {
    FGraph->FMouse->Left();
    TGraphicControl::MouseLeave();
}

void TKxDrawingWorld::Click() {
    TGraphicControl::Click();
    FGraph->Click();
}

void TKxDrawingWorld::DblClick() {
    TGraphicControl::DblClick();
    FGraph->DblClick();
}

} // namespace kx
