#include <kxgraph/annotation/Kxlegend.h>

#include <kxgraph/platform/objects/guarded.h>

namespace kx {

TColor TKxLegend::GetGround() const {
    if (!StandsOnGraph()) return GetColor();
    if (GetParentColor())
        return FPlacement <= lgInsideBottomRight ? FGraph->GetDataGround() : FGraph->GetSymbolGround();
    // Pictures have a white ground in place of the system's button face.
    return FGraph->GetWhiteBackground() && GetColor() == clBtnFace ? clWhite : GetColor();
}

void TKxLegend::PaintGround() {
    TCanvas& canvas = GetCanvas();
    if (!FTransparent) {
        canvas.Brush.SetColor(GetGround());
        canvas.Brush.SetStyle(bsSolid);
        canvas.FillRect(GetClientRect());
    }
    const int width = FrameWidth();
    if (width == 0) return;
    canvas.Pen.SetColor(FFrameLine.GetColor());
    canvas.Pen.SetStyle(FFrameLine.GetStyle());
    canvas.Pen.SetWidth(width);
    const int from = width / 2, to = 1 + (width - 1) / 2;
    DrawFrame(from, from, GetWidth() - to, GetHeight() - to, canvas);
}

// A sample may do what it likes with the canvas, but stays in its place.
void TKxLegend::PaintSamples() {
    TCanvas& canvas = GetCanvas();
    const TRect visible = canvas.GetClipRect();
    for (const TEntry& entry : FEntries) {
        const TRect sample = TRect::Bounds(entry.Rect.Left, entry.Rect.Top, FSampleWidth, FLineHeight);
        const TRect clip = sample.Intersected(visible);
        if (clip.IsEmpty()) continue;
        const TCanvas::TSaved saved(canvas);
        canvas.SetClip(clip);
        canvas.SetBaseClip(clip.MovedBy(canvas.GetOrigin()));
        Guarded([&] { entry.Series->DrawSample(canvas, sample); });
    }
}

void TKxLegend::PaintTexts() {
    TCanvas& canvas = GetCanvas();
    const TCanvas::TSaved saved(canvas);
    const int frame = FrameWidth();
    const TRect inside{frame, frame, GetWidth() - frame, GetHeight() - frame};
    canvas.SetClip(inside);
    canvas.Brush.SetStyle(bsClear);
    canvas.Font.Assign(GetFont());
    if (FShowTitle)
        PaintCaption(FTitle, canvas, std::max(Padding(), (GetWidth() - FTitleWidth) / 2), Padding(), 0,
                     {0.5});
    for (const TEntry& entry : FEntries)
        if (!entry.Rect.Intersected(inside).IsEmpty())
            PaintCaption(entry.Caption, canvas, entry.Rect.Left + FSampleWidth + FGap, entry.Rect.Top, 0);
}

void TKxLegend::Paint() {
    if (GetClientRect().IsEmpty()) return;
    PaintGround();
    PaintSamples();
    PaintTexts();
}

} // namespace kx
