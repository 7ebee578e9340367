#include <kxgraph/graph/Kxgraph2d.h>

namespace kx {

namespace {

TColor GroundOf(TColor Color, bool WhiteBackground) {
    return WhiteBackground && Color == clBtnFace ? clWhite : Color;
}

} // namespace

TColor TKx2DGraph::GetSymbolGround() const { return GroundOf(GetColor(), FWhiteBackground); }
TColor TKx2DGraph::GetDataGround() const { return GroundOf(GetDataColor(), FWhiteBackground); }

void TKx2DGraph::PaintGround() {
    TCanvas& canvas = GetCanvas();
    canvas.Brush.SetColor(GetColor());
    canvas.Brush.SetStyle(bsSolid);
    if (PaintsGround()) canvas.FillRect(GetClientRect());
    if (FFrameLine.GetVisible()) {
        canvas.Pen.SetColor(FFrameLine.GetColor());
        canvas.Pen.SetStyle(FFrameLine.GetStyle());
        // Kept: twice the width, since the outer half of the line falls outside the control.
        canvas.Pen.SetWidth(2 * FFrameLine.GetWidth());
        DrawFrame(0, 0, GetWidth(), GetHeight(), canvas);
    }
    if (!FTransparent && GetDataColor() != GetColor()) {
        canvas.Brush.SetColor(GetDataColor());
        canvas.FillRect(FWorld->GetBoundsRect());
    }
}

void TKx2DGraph::PaintGridLines(const TKxAxis& Axis, const TKxLineStyle& Style, bool Major) {
    if (!Style.GetVisible()) return;
    TCanvas& canvas = GetCanvas();
    canvas.Pen.SetColor(Style.GetColor());
    canvas.Pen.SetStyle(Style.GetStyle());
    canvas.Pen.SetWidth(Style.GetWidth());
    const TKxSide side = Axis.GetSide();
    const int end = side.Across(FWorld->GetBoundsRect().Size());
    const TRect clip = canvas.GetClipRect();
    const int before = side.Along(clip.TopLeft()) - Style.GetWidth() - 1;
    const int behind = side.Along(TPoint{clip.Right, clip.Bottom}) + Style.GetWidth() + 1;
    const auto run = Axis.GetTickRun();
    for (int i = run.First; i <= run.Last; ++i) {
        if (Axis.GetTickIsMajor()[i] != Major) continue;
        const int length = Axis.GetAxisLength();
        const int at = side.FromStart(length, Axis.GetTickPositions()[i]);
        if (at < before || at > behind) continue;
        const double place = side.FromStart<double>(length, Axis.GetTickPlaces()[i]);
        if (canvas.IsSmooth())
            DrawLine(side.Place(place, -0.5), side.Place(place, end - 0.5), canvas);
        else
            DrawLine(side.Point(at, 0), side.Point(at, end), canvas);
    }
}

void TKx2DGraph::PaintGrid(const TKxAxis& Axis, const TKxLineStyle& Major, const TKxLineStyle& Minor) {
    PaintGridLines(Axis, Major, true);
    PaintGridLines(Axis, Minor, false);
}

void TKx2DGraph::Paint() {
    if (!NotUpdating()) return PaintKeptPicture();
    TCanvas& canvas = GetCanvas();
    canvas.Crisp = true;
    FPainted = true;
    FPaintedXor = canvas.CanXor();
    FPaintedSmooth = canvas.IsSmooth();
    FKeptPicture = {};
    PaintGround();
    const TRect world = FWorld->GetBoundsRect();
    const TCanvas::TSaved saved(canvas);
    canvas.SetClip(world);
    canvas.SetOrigin(canvas.GetOrigin() + world.TopLeft());
    canvas.Brush.SetStyle(bsClear);
    canvas.Pen.SetMode(pmCopy);
    if (FPrimaryXAxis) PaintGrid(*FPrimaryXAxis, FMajorGridX, FMinorGridX);
    if (FPrimaryYAxis) PaintGrid(*FPrimaryYAxis, FMajorGridY, FMinorGridY);
}

} // namespace kx
