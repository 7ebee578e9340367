#include <kxgraph/platform/drawing/canvas.h>

#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/platform/drawing/screentext.h>
#include <kxgraph/platform/drawing/shifting.h>
#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/platform/text/text.h>

#include <array>

namespace kx {

namespace {

bool IsSymbolFont(const TFont& Font) { return SameText(Font.GetName(), "Symbol"); }

TRealRect Ordered(const TRealRect& R) {
    return {std::min(R.Left, R.Right), std::min(R.Top, R.Bottom), std::max(R.Left, R.Right),
            std::max(R.Top, R.Bottom)};
}

bool SetsClips(const TRecording& Recording) {
    return std::ranges::any_of(Recording.Calls, [](const TRecording::TCall& Call) {
        return std::holds_alternative<TRecording::TClip>(Call);
    });
}

} // namespace

TCanvas::TCanvas(TCanvasDevice* Device) : FDevice(Device) {}

void TCanvas::SetDevice(TCanvasDevice* Device) {
    ChangeClips({}, {});
    FDevice = Device;
    FOrigin = {};
}

TStroke TCanvas::Stroke() const {
    return {ColorToRGB(Pen.GetColor()), Pen.GetWidth(), Pen.GetStyle(), Pen.GetMode(), Crisp};
}

TFill TCanvas::Fill() const { return {ColorToRGB(Brush.GetColor()), Brush.GetStyle(), Pen.GetMode()}; }

TFontFace TCanvas::Face() const {
    return {IsSymbolFont(Font) ? std::string("Arial") : Font.GetName(), Font.GetHeight(), Font.GetStyle(),
            Font.GetPitch(), Font.GetOrientation()};
}

void TCanvas::LineTo(int X, int Y) {
    const std::array<TPoint, 2> ends{FPosition, TPoint{X, Y}};
    FPosition = ends[1];
    if (ends[0] != ends[1]) Polyline(ends);
}

void TCanvas::Polyline(TPointSpan Points) {
    if (!FDevice || Points.Size() < 2 || Pen.GetStyle() == psClear) return;
    FDevice->Polyline(FMover.Moved(Points, FOrigin), Stroke());
}

void TCanvas::Polygon(TPointSpan Points) {
    if (!FDevice || Points.Size() < 2) return;
    FDevice->Polygon(FMover.Moved(Points, FOrigin), Stroke(), Fill());
}

void TCanvas::Rectangle(const TRealRect& Rect) {
    const TRealRect rect = Ordered(Rect);
    if (FDevice && !rect.IsEmpty()) FDevice->Rectangle(Shifted(rect, FOrigin), Stroke(), Fill());
}

void TCanvas::Ellipse(const TRealRect& Rect) {
    const TRealRect rect = Ordered(Rect);
    if (FDevice && !rect.IsEmpty()) FDevice->Ellipse(Shifted(rect, FOrigin), Stroke(), Fill());
}

void TCanvas::FillRect(const TRealRect& Rect) {
    if (!FDevice || Rect.IsEmpty() || Brush.GetStyle() == bsClear) return;
    TFill fill = Fill();
    fill.Mode = pmCopy; // a background is a background, whatever the pen was last used for
    FDevice->FillRect(Shifted(Rect, FOrigin), fill);
}

void TCanvas::DrawFocusRect(const TRect& Rect) {
    if (!FDevice || Rect.IsEmpty()) return;
    const bool invert = FDevice->CanXor();
    const TStroke dots{ColorToRGB(invert ? clWhite : clWindowText), 0, psDot, invert ? pmXor : pmCopy};
    FDevice->Rectangle(Shifted(Rect, FOrigin), dots, {clWhite, bsClear, pmCopy});
}

void TCanvas::TextOut(TRealPoint Pos, std::string_view Text) {
    if (!FDevice || Text.empty()) return;
    const TRealPoint pos = Shifted(Pos, FOrigin);
    const TColor color = ColorToRGB(Font.GetColor());
    if (IsSymbolFont(Font))
        FDevice->Text(pos, Face(), color, SymbolText(Text));
    else
        FDevice->Text(pos, Face(), color, Text);
}

TSize TCanvas::TextExtent(std::string_view Text) const {
    const std::string symbols = IsSymbolFont(Font) ? SymbolText(Text) : std::string();
    const std::string_view shown = IsSymbolFont(Font) ? symbols : Text;
    return FDevice ? FDevice->MeasureText(Face(), shown) : MeasureScreenText(Face(), shown);
}

double TCanvas::ExactTextWidth(std::string_view Text) const {
    return kx::ExactTextWidth(Face(), IsSymbolFont(Font) ? SymbolText(Text) : std::string(Text));
}

void TCanvas::Stamps(TPointSpan Places, const TRecording& One) {
    if (!FDevice || Places.IsEmpty()) return;
    FDevice->Stamps(FMover.Moved(Places, FOrigin), One);
    if (EffectiveClip() && SetsClips(One)) FDevice->SetClip(EffectiveClip());
}

void TCanvas::Replay(const TRecording& Picture) {
    if (FDevice) Picture.Replay(*FDevice, FOrigin, EffectiveClip());
}

std::optional<TRect> TCanvas::EffectiveClip() const {
    if (!FClip || !FBaseClip) return FClip ? FClip : FBaseClip;
    return FClip->Intersected(*FBaseClip);
}

void TCanvas::ChangeClips(const std::optional<TRect>& BaseClip, const std::optional<TRect>& Clip) {
    const auto before = EffectiveClip();
    FBaseClip = BaseClip;
    FClip = Clip;
    if (FDevice && EffectiveClip() != before) FDevice->SetClip(EffectiveClip());
}

TRect TCanvas::GetClipRect() const {
    TRect clip;
    if (const auto narrowed = EffectiveClip())
        clip = *narrowed;
    else if (FDevice)
        clip = {0, 0, FDevice->Extent().Width, FDevice->Extent().Height};
    return Shifted(clip, {-FOrigin.X, -FOrigin.Y});
}

void TCanvas::SetClip(const std::optional<TRect>& Clip) {
    ChangeClips(FBaseClip, Clip ? std::optional(Shifted(*Clip, FOrigin)) : std::nullopt);
}

void TCanvas::SetBaseClip(const std::optional<TRect>& Clip) { ChangeClips(Clip, FClip); }

TCanvas::TSaved::TSaved(TCanvas& Canvas)
    : FCanvas(Canvas), FOrigin(Canvas.FOrigin), FBaseClip(Canvas.FBaseClip), FClip(Canvas.FClip) {}

TCanvas::TSaved::~TSaved() {
    FCanvas.FOrigin = FOrigin;
    Guarded([this] { FCanvas.ChangeClips(FBaseClip, FClip); }); // a device that records may be out of memory
}

} // namespace kx
