#include <kxgraph/annotation/Kxlegend.h>

#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/platform/objects/guarded.h>

#include <variant>

namespace kx {

namespace {

/// What is left of a colour beside Ground, a quarter.
TColor Faded(TColor Color, TColor Ground) {
    const auto color = unsigned(ColorToRGB(Color)), ground = unsigned(ColorToRGB(Ground));
    unsigned faded = 0;
    for (unsigned shift = 0; shift < 24; shift += 8)
        faded |= (((color >> shift & 255) + 3 * (ground >> shift & 255)) / 4) << shift;
    return TColor(faded);
}

/// A recording of what stands on Ground, faded.
TRecording Faded(TRecording Picture, TColor Ground) {
    for (TRecording::TCall& call : Picture.Calls)
        std::visit(
            [Ground](auto& C) {
                if constexpr (requires { C.Stroke; }) C.Stroke.Color = Faded(C.Stroke.Color, Ground);
                if constexpr (requires { C.Fill; }) C.Fill.Color = Faded(C.Fill.Color, Ground);
                if constexpr (requires { C.Face; }) C.Color = Faded(C.Color, Ground);
            },
            call);
    return Picture;
}

} // namespace

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

namespace {

/// Of a series that is hidden a faded one.
void PaintSample(TKxGraphSeries& Series, TCanvas& Canvas, const TRect& Sample, TColor Ground) {
    if (Series.GetVisible() || !Canvas.GetDevice()) return Series.DrawSample(Canvas, Sample);
    TRecorder recorder({Sample.Right, Sample.Bottom}, Canvas.GetDevice()->PixelsPerInch(), Canvas.CanXor(),
                       Canvas.IsSmooth());
    TCanvas canvas(&recorder);
    Series.DrawSample(canvas, Sample);
    Canvas.Replay(Faded(std::move(recorder.Recording), Ground));
}

} // namespace

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
        Guarded([&] { PaintSample(*entry.Series, canvas, sample, GetGround()); });
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
    for (const TEntry& entry : FEntries) {
        if (entry.Rect.Intersected(inside).IsEmpty()) continue;
        const TColor color = GetFont().GetColor();
        canvas.Font.SetColor(entry.Series->GetVisible() ? color : Faded(color, GetGround()));
        PaintCaption(entry.Caption, canvas, entry.Rect.Left + FSampleWidth + FGap, entry.Rect.Top, 0);
    }
}

void TKxLegend::Paint() {
    if (GetClientRect().IsEmpty()) return;
    PaintGround();
    PaintSamples();
    PaintTexts();
}

} // namespace kx
