// The drawing world: paints the series, drags the zoom rectangle.

#include <kxgraph/graph/Kxgraph2d.h>

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
    FDragging = false;
    Invalidate();
}

void TKxDrawingWorld::Invalidate() {
    if (GetParent()) GetParent()->Invalidate();
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
    if (FDragging) GetCanvas().DrawFocusRect(DragRect());
}

TRect TKxDrawingWorld::DragRect() const { return OrderedRect(FAnchor.X, FAnchor.Y, FCurrent.X, FCurrent.Y); }

void TKxDrawingWorld::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (FAutoZoom && Button == mbLeft) {
        FAnchor = FCurrent = {X, Y};
        FDragging = true;
        Invalidate();
    }
    TGraphicControl::MouseDown(Button, Shift, X, Y);
    FGraph->MouseDown(Button, Shift, X + GetLeft(), Y + GetTop());
}

void TKxDrawingWorld::MouseMove(TShiftState Shift, int X, int Y) {
    if (FDragging) {
        FCurrent = {X, Y};
        Invalidate();
    }
    TGraphicControl::MouseMove(Shift, X, Y);
    FGraph->MouseMove(Shift, X + GetLeft(), Y + GetTop());
}

void TKxDrawingWorld::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (FDragging && Button == mbLeft) {
        FCurrent = {X, Y};
        FDragging = false;
        Invalidate();
        if (FCurrent.X != FAnchor.X && FCurrent.Y != FAnchor.Y) FGraph->ZoomTo(DragRect());
    }
    TGraphicControl::MouseUp(Button, Shift, X, Y);
    FGraph->MouseUp(Button, Shift, X + GetLeft(), Y + GetTop());
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
