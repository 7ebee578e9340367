#include <kxgraph/graph/Kxaxis.h>

#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/series/Kxdraw.h>

#include <algorithm>
#include <cstdlib>

namespace kx {

TKxAxis::TTickRun TKxAxis::GetTickRun() const {
    const int last = GetTickCount() - 1;
    return {FFirstEndTick ? 0 : 1, FLastEndTick ? last : last - 1};
}

void TKxAxis::SetEndTicks(bool FirstEnd, bool LastEnd) {
    FFirstEndTick = FirstEnd;
    FLastEndTick = LastEnd;
}

void TKxAxis::DrawTicks(bool Major, TColor Color, int Width, int Length) {
    TCanvas& canvas = GetCanvas();
    canvas.Pen.SetColor(Color);
    canvas.Pen.SetWidth(Width);
    const TTickRun run = GetTickRun();
    if (run.Last == 0) return;
    // The line begins with the whole of its first pixel and leaves out the last one, wherever it stands.
    const double half = Length > 0 ? 0.5 : -0.5;
    for (int i = run.First; i <= run.Last; ++i) {
        if (FTicks.IsMajor[i] != Major) continue;
        if (canvas.IsSmooth())
            DrawLine(FLine.PlaceAt(FTicks.Places[i], -half), FLine.PlaceAt(FTicks.Places[i], Length - half),
                     canvas);
        else
            DrawLine(FLine.PointAt(FTicks.Positions[i], 0), FLine.PointAt(FTicks.Positions[i], Length),
                     canvas);
    }
}

void TKxAxis::DrawAxisLine() {
    TCanvas& canvas = GetCanvas();
    canvas.Pen.SetColor(FLook.AxisColor);
    canvas.Pen.SetWidth(FLook.AxisThicknes);
    DrawLine(FLine.Origin, FLine.Origin + FLine.Side.Point(GetAxisLength() + 1, 0), canvas);
}

// Inward ticks and the halves of end labels.
TRect TKxAxis::GetPaintedRect() const {
    const int ticks = std::max(std::abs(FLook.MajorTickLength), std::abs(FLook.TickLength));
    const int reach = std::max({ticks, FLabels.GetStartReach(), FLabels.GetStopReach()}) + FLook.AxisThicknes;
    return {-reach, -reach, GetWidth() + reach, GetHeight() + reach};
}

void TKxAxis::Paint() {
    if (auto* host = GetAxisHost()) {
        if (host->NotUpdating() && FChanged) Guarded([host] { host->LayOutAxes(); });
    } else if (FChanged) {
        LayOutAlone();
    }
    if (FNeedsTicks) CalculateTicks();

    TCanvas& canvas = GetCanvas();
    canvas.Crisp = true;
    if (!FLook.Transparent) {
        canvas.Brush.SetColor(GetColor());
        canvas.Brush.SetStyle(bsSolid);
        canvas.FillRect(GetClientRect());
    }
    // Inward ticks and the halves of end labels lie beside the control.
    canvas.SetClip(std::nullopt);
    DrawTicks(true, FLook.MajorTickColor, FLook.MajorTickThicknes, FLook.MajorTickLength);
    DrawTicks(false, FLook.TickColor, FLook.TickThicknes, FLook.TickLength);
    DrawAxisLine();
    canvas.Brush.SetStyle(bsClear);
    canvas.Font.Assign(GetFont());
    FLabels.Paint(canvas);
}

} // namespace kx
