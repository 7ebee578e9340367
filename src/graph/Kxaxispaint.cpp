#include <kxgraph/graph/Kxaxis.h>

#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/series/Kxdraw.h>

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
    const auto [x0, y0] = FAxisOrigin;
    const int end = OutwardSign() * Length;
    const TTickRun run = GetTickRun();
    if (run.Last == 0) return;
    for (int i = run.First; i <= run.Last; ++i) {
        if (FTicks.IsMajor[i] != Major) continue;
        const int p = FTicks.Positions[i];
        if (IsHorizontal()) {
            DrawLine(x0 + p, y0, x0 + p, y0 + end, canvas);
        } else {
            const int y = y0 + GetAxisLength() - p;
            DrawLine(x0, y, x0 + end, y, canvas);
        }
    }
}

void TKxAxis::DrawAxisLine() {
    TCanvas& canvas = GetCanvas();
    canvas.Pen.SetColor(FAxisColor);
    canvas.Pen.SetWidth(FAxisThicknes);
    const auto [x0, y0] = FAxisOrigin;
    if (IsHorizontal())
        DrawLine(x0, y0, x0 + GetAxisLength() + 1, y0, canvas);
    else
        DrawLine(x0, y0, x0, y0 + GetAxisLength() + 1, canvas);
}

void TKxAxis::Paint() {
    if (auto* host = GetAxisHost()) {
        if (host->NotUpdating() && FChanged) Guarded([host] { host->LayOutAxes(); });
    } else if (FChanged) {
        LayOutAlone();
    }
    if (FNeedsTicks) CalculateTicks();

    TCanvas& canvas = GetCanvas();
    if (!FTransparent) {
        canvas.Brush.SetColor(GetColor());
        canvas.Brush.SetStyle(bsSolid);
        canvas.FillRect(GetClientRect());
    }
    // Inward ticks and the halves of end labels lie beside the control.
    canvas.SetClip(std::nullopt);
    DrawTicks(true, FMajorTickColor, FMajorTickThicknes, FMajorTickLength);
    DrawTicks(false, FTickColor, FTickThicknes, FTickLength);
    DrawAxisLine();
    canvas.Brush.SetStyle(bsClear);
    canvas.Font.Assign(GetFont());
    for (auto& rec : FLabelRecs) {
        rec.Canvas = &canvas;
        RichPaintTo(rec);
        rec.Canvas = nullptr;
    }
}

} // namespace kx
