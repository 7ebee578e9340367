#include <kxgraph/platform/widgets/look.h>

#include <kxgraph/platform/text/text.h>

#include <array>
#include <cmath>

namespace kx {

namespace {

constexpr TColor CLine = RGB(176, 176, 176), CPaleLine = RGB(206, 206, 206), CFace = RGB(251, 251, 251);
constexpr TColor CDisabledGround = RGB(246, 246, 246), CError = RGB(200, 32, 32);

bool Has(TDrawState State, TDrawStateFlag Flag) { return (State & Flag) != 0; }

TColor LineColor(TDrawState State) {
    if (Has(State, odDisabled)) return CPaleLine;
    if (Has(State, odInvalid)) return CError;
    if (Has(State, odFocused)) return ColorToRGB(clHighlight);
    return Has(State, odHot) ? RGB(120, 120, 120) : CLine;
}

TColor FaceColor(TDrawState State) {
    if (Has(State, odDisabled)) return CDisabledGround;
    if (Has(State, odPressed)) return Blended(CFace, clHighlight, 0.28);
    return Has(State, odHot) ? Blended(CFace, clHighlight, 0.1) : CFace;
}

void Fill(TCanvas& Canvas, const TRealRect& Rect, TColor Color) {
    Canvas.Brush.SetColor(Color);
    Canvas.FillRect(Rect);
}

TRect Inset(const TRect& R, int By) { return {R.Left + By, R.Top + By, R.Right - By, R.Bottom - By}; }

/// The most characters of Text, in bytes, that fit into Width with "…" behind them.
std::size_t FittingBytes(const TCanvas& Canvas, std::string_view Text, int Width) {
    std::size_t low = 0, high = Text.size();
    while (low < high) {
        std::size_t middle = (low + high + 1) / 2;
        while (middle > low && middle < Text.size() && (Text[middle] & 0xC0) == 0x80) --middle;
        if (middle == low) break;
        if (Canvas.TextWidth(std::string(Text.substr(0, middle)) + "…") <= Width)
            low = middle;
        else
            high = middle - 1;
    }
    while (low > 0 && low < Text.size() && (Text[low] & 0xC0) == 0x80) --low;
    return low;
}

} // namespace

TColor Blended(TColor A, TColor B, double ShareOfB) {
    const TColor a = ColorToRGB(A), b = ColorToRGB(B);
    const auto mixed = [&](int OfA, int OfB) { return int(std::lround(OfA + (OfB - OfA) * ShareOfB)); };
    return RGB(mixed(RedOf(a), RedOf(b)), mixed(GreenOf(a), GreenOf(b)), mixed(BlueOf(a), BlueOf(b)));
}

TColor TextColorFor(const TFont& Font, TDrawState State) {
    if (Has(State, odDisabled)) return Blended(clGrayText, clWhite, 0.35);
    return Has(State, odSelected) && !Has(State, odInactive) ? clHighlightText : Font.GetColor();
}

int LineHeight(const TFont& Font) {
    TCanvas canvas;
    canvas.Font.Assign(Font);
    return canvas.TextHeight("Ag");
}

int TextWidth(const TFont& Font, std::string_view Text) {
    TCanvas canvas;
    canvas.Font.Assign(Font);
    return canvas.TextWidth(Text);
}

void PaintOutline(TCanvas& Canvas, const TRect& R, TColor Color) {
    Fill(Canvas, TRect{R.Left + 1, R.Top, R.Right - 1, R.Top + 1}, Color);
    Fill(Canvas, TRect{R.Left + 1, R.Bottom - 1, R.Right - 1, R.Bottom}, Color);
    Fill(Canvas, TRect{R.Left, R.Top + 1, R.Left + 1, R.Bottom - 1}, Color);
    Fill(Canvas, TRect{R.Right - 1, R.Top + 1, R.Right, R.Bottom - 1}, Color);
}

void PaintField(TCanvas& Canvas, const TRect& Rect, TColor Ground, TDrawState State) {
    const TColor ground = Has(State, odDisabled)  ? CDisabledGround
                          : Has(State, odInvalid) ? Blended(Ground, CError, 0.1)
                                                  : ColorToRGB(Ground);
    Fill(Canvas, Inset(Rect, 1), ground);
    PaintOutline(Canvas, Rect, LineColor(State));
    if (Has(State, odFocused) && !Has(State, odDisabled))
        PaintOutline(Canvas, Inset(Rect, 1), Blended(LineColor(State), ground, 0.7));
}

void PaintButton(TCanvas& Canvas, const TRect& Rect, TDrawState State) {
    const TColor face = FaceColor(State);
    Fill(Canvas, Inset(Rect, 1), face);
    if (!Has(State, odDisabled) && !Has(State, odPressed))
        Fill(Canvas, TRect{Rect.Left + 1, Rect.Bottom - 2, Rect.Right - 1, Rect.Bottom - 1},
             Blended(face, clBlack, 0.07));
    PaintOutline(Canvas, Rect, LineColor(State));
    if (Has(State, odFocused) && !Has(State, odDisabled))
        PaintOutline(Canvas, Inset(Rect, 1), Blended(LineColor(State), face, 0.6));
}

void PaintFieldButton(TCanvas& Canvas, const TRect& Rect, TDrawState State) {
    if (State & (odHot | odPressed)) Fill(Canvas, Rect, FaceColor(State));
}

void PaintItemGround(TCanvas& Canvas, const TRect& Rect, TDrawState State) {
    if (Has(State, odSelected) && Has(State, odDisabled))
        Fill(Canvas, Rect, Blended(CDisabledGround, clBlack, 0.06)); // its text is pale
    else if (Has(State, odSelected))
        Fill(Canvas, Rect, Has(State, odInactive) ? RGB(218, 218, 218) : clHighlight);
    else if (Has(State, odHot))
        Fill(Canvas, Rect, Blended(clWhite, clHighlight, 0.12));
}

void PaintArrow(TCanvas& Canvas, const TRect& Rect, TArrow Direction, TDrawState State) {
    const double x = (Rect.Left + Rect.Right - 1) / 2.0, y = (Rect.Top + Rect.Bottom - 1) / 2.0;
    constexpr double CWide = 3.5, CDeep = 1.75;
    const auto at = [&](double Along, double Across) {
        switch (Direction) {
        case TArrow::Up: return TRealPoint(x + Across, y - Along);
        case TArrow::Down: return TRealPoint(x + Across, y + Along);
        case TArrow::Left: return TRealPoint(x - Along, y + Across);
        case TArrow::Right: return TRealPoint(x + Along, y + Across);
        }
        return TRealPoint(x, y);
    };
    const std::array<TRealPoint, 3> points{at(-CDeep, -CWide), at(CDeep, 0), at(-CDeep, CWide)};
    Canvas.Pen.SetColor(Has(State, odDisabled) ? CLine : RGB(80, 80, 80));
    Canvas.Pen.SetWidth(2);
    Canvas.Polyline(points);
    Canvas.Pen.SetWidth(1);
}

void PaintCheckMark(TCanvas& Canvas, const TRect& Rect, bool Checked, TDrawState State) {
    const bool filled = Checked && !Has(State, odDisabled);
    Fill(Canvas, Inset(Rect, 1), filled ? ColorToRGB(clHighlight) : FaceColor(State));
    PaintOutline(Canvas, Rect, filled ? ColorToRGB(clHighlight) : LineColor(State));
    if (!Checked) return;
    const double x = Rect.Left, y = Rect.Top, unit = Rect.Width() / 16.0;
    const std::array<TRealPoint, 3> points{TRealPoint(x + 3.2 * unit, y + 7.7 * unit),
                                           TRealPoint(x + 6.5 * unit, y + 11 * unit),
                                           TRealPoint(x + 11.9 * unit, y + 4.2 * unit)};
    Canvas.Pen.SetColor(filled ? clHighlightText : CLine);
    Canvas.Pen.SetWidth(2);
    Canvas.Polyline(points);
    Canvas.Pen.SetWidth(1);
}

void PaintText(TCanvas& Canvas, const TRect& Rect, std::string_view Text, TAlignment Alignment) {
    if (Text.empty() || Rect.IsEmpty()) return;
    const TCanvas::TSaved saved(Canvas);
    Canvas.SetClip(Rect.Intersected(Canvas.GetClipRect()));
    std::string shown(Text);
    if (Canvas.TextWidth(shown) > Rect.Width())
        shown = shown.substr(0, FittingBytes(Canvas, Text, Rect.Width())) + "…";
    const TSize size = Canvas.TextExtent(shown);
    const int free = std::max(Rect.Width() - size.Width, 0);
    const int left = Rect.Left + (Alignment == taRightJustify ? free : Alignment == taCenter ? free / 2 : 0);
    Canvas.TextOut(left, Rect.Top + (Rect.Height() - size.Height) / 2, shown);
}

TCaptionKey CaptionKeyOf(std::string_view Caption) {
    TCaptionKey found;
    for (std::size_t i = 0; i < Caption.size(); ++i) {
        if (Caption[i] == '&' && i + 1 < Caption.size()) {
            ++i;
            const int key = static_cast<unsigned char>(UpperCase(Caption.substr(i, 1))[0]);
            const bool isKey = (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
            if (isKey && found.Key == 0) {
                found.Key = key;
                found.At = static_cast<int>(found.Text.size());
            }
        }
        found.Text += Caption[i];
    }
    return found;
}

void PaintCaption(TCanvas& Canvas, const TRect& Rect, const TCaptionKey& Caption, TAlignment Alignment) {
    PaintText(Canvas, Rect, Caption.Text, Alignment);
    const TSize size = Canvas.TextExtent(Caption.Text);
    if (Caption.At < 0 || size.Width > Rect.Width()) return;
    const int free = Rect.Width() - size.Width;
    const int left = Rect.Left + (Alignment == taRightJustify ? free : Alignment == taCenter ? free / 2 : 0);
    const auto at = static_cast<std::size_t>(Caption.At);
    const int from = left + Canvas.TextWidth(Caption.Text.substr(0, at));
    const int to = left + Canvas.TextWidth(Caption.Text.substr(0, at + 1));
    const int below = Rect.Top + (Rect.Height() + size.Height) / 2 - 2;
    Fill(Canvas, TRect{from, below, to, below + 1}, Canvas.Font.GetColor());
}

} // namespace kx
