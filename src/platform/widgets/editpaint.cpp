// Where the text of an edit field stands, and how it is painted.

#include <kxgraph/platform/text/text.h>
#include <kxgraph/platform/widgets/edit.h>

#include <algorithm>
#include <string>

namespace kx {

namespace {

/// The bytes of the first Count characters of Text.
std::string Head(const std::string& Text, int Count) {
    std::size_t offset = 0;
    for (int i = 0; i < Count && offset < Text.size(); ++i)
        offset += std::size_t(DecodeAt(Text, offset).Length);
    return Text.substr(0, offset);
}

} // namespace

/// The text with what is composed at the caret.
std::string TCustomEdit::ShownText() const {
    if (FComposed.Text.empty()) return GetText();
    const int caret = FLine.GetCaret();
    return FLine.Part(0, caret) + FComposed.Text + FLine.Part(caret, FLine.GetCount());
}

int TCustomEdit::ShownPlace(int Character) const {
    return Character > FLine.GetCaret() ? Character + CharacterCount(FComposed.Text) : Character;
}

int TCustomEdit::XOf(int ShownCharacter) const {
    return TextLeft() + TextWidth(GetFont(), Head(ShownText(), ShownCharacter));
}

/// The place between two characters that is the nearest to X.
int TCustomEdit::PlaceAt(int X) const {
    int low = 0, high = FLine.GetCount(); // the last place that is not to the right of X
    while (low < high) {
        const int middle = (low + high + 1) / 2;
        if (XOf(ShownPlace(middle)) <= X)
            low = middle;
        else
            high = middle - 1;
    }
    if (low == FLine.GetCount()) return low;
    return X - XOf(ShownPlace(low)) > XOf(ShownPlace(low + 1)) - X ? low + 1 : low;
}

TRect TCustomEdit::Strip(int From, int To) const {
    const TRect room = GetTextRect();
    const int height = std::min(LineHeight(GetFont()), room.Height()),
              top = room.Top + (room.Height() - height) / 2;
    return {From, top, To, top + height};
}

void TCustomEdit::ShowCaret() {
    const std::string shown = ShownText();
    const int at = FComposed.Text.empty() ? FLine.GetCaret() : FLine.GetCaret() + FComposed.Caret;
    const int inText = TextWidth(GetFont(), Head(shown, at));
    ScrollTo(inText, TextWidth(GetFont(), shown));
    const int x = TextLeft() + inText;
    FCaret.SetPlace(Strip(x, x + 1));
    Invalidate();
    TextInputChanged();
}

void TCustomEdit::Paint() {
    const TDrawState state = GetDrawState();
    PaintField(GetCanvas(), GetClientRect(), GetColor(), state);
    GetCanvas().Font.SetColor(TextColorFor(GetFont(), state));
    if (ShownText().empty()) {
        GetCanvas().Font.SetColor(Blended(GetCanvas().Font.GetColor(), GetColor(), 0.55));
        PaintText(GetCanvas(), GetTextRect(), FTextHint, GetAlignment());
        GetCanvas().Font.SetColor(TextColorFor(GetFont(), state));
    }
    PaintLine();
}

void TCustomEdit::PaintLine() {
    TCanvas& canvas = GetCanvas();
    const TCanvas::TSaved saved(canvas);
    const TRect room = GetTextRect();
    canvas.SetClip(
        TRect{room.Left - 1, room.Top, room.Right + 1, room.Bottom}.Intersected(canvas.GetClipRect()));
    const std::string shown = ShownText();
    canvas.TextOut(TextLeft(), Strip(0, 0).Top, shown);
    if (!FComposed.Text.empty()) {
        const int from = FLine.GetCaret(), to = from + CharacterCount(FComposed.Text);
        const TRect under = Strip(XOf(from), XOf(to));
        canvas.Brush.SetColor(canvas.Font.GetColor());
        canvas.FillRect(TRect{under.Left, under.Bottom - 1, under.Right, under.Bottom});
    }
    if (HasKeys() && FLine.HasSelection()) PaintSelection(shown);
    if (!GetReadOnly()) FCaret.Paint(canvas, canvas.Font.GetColor());
}

/// The same text once more in the colours of the selection, so that its characters stay where they are.
void TCustomEdit::PaintSelection(const std::string& Shown) {
    TCanvas& canvas = GetCanvas();
    const TCanvas::TSaved saved(canvas);
    const TColor before = canvas.Font.GetColor();
    const TRect strip = Strip(XOf(ShownPlace(FLine.SelStart())), XOf(ShownPlace(FLine.SelEnd())));
    canvas.SetClip(strip.Intersected(canvas.GetClipRect()));
    canvas.Brush.SetColor(clHighlight);
    canvas.FillRect(strip);
    canvas.Font.SetColor(clHighlightText);
    canvas.TextOut(TextLeft(), strip.Top, Shown);
    canvas.Font.SetColor(before);
}

} // namespace kx
