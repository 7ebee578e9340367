// What the caption edit shows, and where.

#include <kxgraph/editing/Kxcaptionedit.h>

#include <algorithm>

namespace kx {

/// What is shown has changed, or the caret has moved.
void TKxCaptionEdit::UpdateShown() {
    FShown = ParseCaption(FModel.GetShownCaption());
    FHasPlaces = false;
    ShowCaret();
}

const std::vector<double>& TKxCaptionEdit::Places() {
    if (FHasPlaces) return FPlaces;
    TCanvas canvas;
    canvas.Font.Assign(GetFont());
    FPlaces = CaptionEdges(FShown, canvas, FExactly);
    FPlaces.insert(FPlaces.begin(), 0);
    FHasPlaces = true;
    return FPlaces;
}

void TKxCaptionEdit::ShowCaret() {
    ScrollTo(RoundToInt(Places().at(std::size_t(FModel.GetShownCaret()))), RoundToInt(Places().back()));
    FCaret.SetPlace(GetCaretRect());
    Invalidate();
    TextInputChanged();
}

int TKxCaptionEdit::PixelOfShown(int Place) {
    return TextLeft() + RoundToInt(Places().at(std::size_t(Place)));
}

int TKxCaptionEdit::PixelOf(int Place) {
    const int place = std::clamp(Place, 0, FModel.GetLength());
    return PixelOfShown(place > GetCaret() ? place + FModel.GetComposedLength() : place);
}

int TKxCaptionEdit::PlaceAt(int X) {
    const std::vector<double>& places = Places();
    const double x = X - TextLeft();
    const auto behind = std::ranges::lower_bound(places, x);
    auto nearest = behind;
    if (behind == places.end() || (behind != places.begin() && x - behind[-1] < behind[0] - x)) --nearest;
    const int shown = int(nearest - places.begin()), composed = FModel.GetComposedLength();
    return shown <= GetCaret() ? shown : std::max(shown - composed, GetCaret());
}

TRect TKxCaptionEdit::GetCaretRect() {
    TCanvas canvas;
    canvas.Font.Assign(GetFont());
    const int top = (GetHeight() - canvas.TextHeight("X")) / 2, left = PixelOfShown(FModel.GetShownCaret());
    const TKxCaptionLevel level = CaptionLevel(FModel.GetCaretLooks(), canvas);
    return TRect{left, top + level.Top, left + 1, top + level.Top + level.Height}.Intersected(GetTextRect());
}

void TKxCaptionEdit::Paint() {
    TCanvas& canvas = GetCanvas();
    if (FExactly != canvas.IsSmooth()) {
        FExactly = canvas.IsSmooth();
        FHasPlaces = false;
        ShowCaret();
    }
    const TDrawState state = GetDrawState();
    PaintField(canvas, GetClientRect(), GetColor(), state);
    const TCanvas::TSaved saved(canvas);
    canvas.SetClip(GetTextRect().Intersected(canvas.GetClipRect()));
    PaintText(canvas, TextColorFor(GetFont(), state));
    if (HasKeys() && FModel.HasSelection()) PaintSelection(canvas);
    if (!GetReadOnly()) FCaret.Paint(canvas, clWindowText);
}

void TKxCaptionEdit::PaintText(TCanvas& Canvas, TColor Color) {
    Canvas.Brush.SetStyle(bsClear);
    Canvas.Font.Assign(GetFont());
    Canvas.Font.SetColor(Color);
    PaintCaption(FShown, Canvas, TextLeft(), (GetHeight() - Canvas.TextHeight("X")) / 2, 0);
    Canvas.Brush.SetStyle(bsSolid);
}

/// Over the text, which is painted once more in other colours: nothing moves, whatever letters do to one
/// another.
void TKxCaptionEdit::PaintSelection(TCanvas& Canvas) {
    const TRect text = GetTextRect();
    const TRect selected{PixelOf(FModel.GetSelStart()), text.Top + 1, PixelOf(FModel.GetSelEnd()),
                         text.Bottom - 1};
    const TCanvas::TSaved saved(Canvas);
    Canvas.SetClip(selected.Intersected(Canvas.GetClipRect()));
    Canvas.Brush.SetColor(clHighlight);
    Canvas.FillRect(selected);
    PaintText(Canvas, clHighlightText);
}

} // namespace kx
