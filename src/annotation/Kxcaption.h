#pragma once
// Rich captions: one line of text in which backslash escapes switch its looks, and how it is measured,
// painted and stripped of its markup.
//
//   \b bold   \i italic   \u underline   \o strike-out   \s symbol font (Greek)
//   \+ superscript   \- subscript   \\ a backslash
//
// Each escape turns its look on and the next one of its kind turns it off again; letters may be of either
// case. An escape swallows one blank that follows it directly. A backslash before any other character is
// dropped. A character is a code point: all lengths, positions and indices count those.

#include <kxgraph/platform/base/dynarray.h>
#include <kxgraph/platform/drawing/canvas.h>
#include <kxgraph/platform/objects/typenames.h>
#include <kxgraph/platform/text/text.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kx {

/// A text that carries the markup. A type of its own, so that an editor can show what it says; texts become
/// captions, and captions texts, by themselves.
struct TKxCaption : AnsiString {
    using AnsiString::AnsiString;
    TKxCaption() = default;
    TKxCaption(const AnsiString& Text) : AnsiString(Text) {}
    TKxCaption(AnsiString&& Text) noexcept : AnsiString(std::move(Text)) {}
};
template <>
inline constexpr std::string_view CTypeName<TKxCaption> = "TKxCaption";

/// What the escapes switch, and the sign of each in lower case.
enum class TKxCaptionSwitch { Symbol, Bold, Italic, Underline, StrikeOut, Superscript, Subscript };
inline constexpr std::string_view CCaptionSigns = "sbiuo+-";

/// The looks of a character beside those of the base font.
struct TKxCaptionLooks {
    bool Symbol = false;
    TFontStyles Toggled = 0; ///< styles of the base font that are turned round
    bool Superscript = false;
    bool Subscript = false;
    bool Small = false; ///< two thirds of the size; ended by the first of superscript and subscript that ends
    friend bool operator==(const TKxCaptionLooks&, const TKxCaptionLooks&) = default;
};
bool HasLook(TKxCaptionSwitch Which, const TKxCaptionLooks& Looks);
/// What an escape does.
void ToggleLook(TKxCaptionSwitch Which, TKxCaptionLooks& Looks);

/// Shown characters of the same looks that also stand side by side in the caption.
struct TKxCaptionRun {
    std::string Text;
    int Position = 1; ///< of the first one in the caption, 1-based
    TKxCaptionLooks Looks;
};

/// A caption taken to pieces; independent of font, place and angle.
struct TKxParsedCaption {
    /// An escape and the number of characters shown before it.
    struct TSwitchAt {
        TKxCaptionSwitch Switch;
        int Index;
    };
    std::vector<TKxCaptionRun> Runs; ///< none of them empty
    std::vector<TSwitchAt> Switches; ///< in order
    std::string Stripped;            ///< the shown text without the backslashes that "\\" shows
    int Length = 0;                  ///< characters of the caption, markup included
};
TKxParsedCaption ParseCaption(std::string_view Text);

/// The advance width in the canvas's font.
int MeasureCaption(const TKxParsedCaption& Caption, TCanvas& Canvas);
/// The same as smooth devices show it.
double ExactCaptionWidth(const TKxParsedCaption& Caption, TCanvas& Canvas);

/// The right edge of each shown character from the caption's left, unrotated: whole pixels, the ones that
/// RichPaintTo tells, or Exactly as smooth devices show it (within a run by the widths of the single
/// characters).
std::vector<double> CaptionEdges(const TKxParsedCaption& Caption, TCanvas& Canvas, bool Exactly);

/// How far the top of characters of such Looks lies below that of the others, and their height, in the
/// canvas's font; unrotated, pixels.
struct TKxCaptionLevel {
    int Top = 0, Height = 0;
};
TKxCaptionLevel CaptionLevel(const TKxCaptionLooks& Looks, TCanvas& Canvas);

/// What of a caption stays where it was laid out where letters are set as the font's design has them, and the
/// text has another width than on the screen.
struct TKxCaptionAnchor {
    double Along = 0;   ///< 0 the left, 0.5 the middle, 1 the right of the text
    TRealPoint Apart{}; ///< from the whole pixels of the layout to where it ought to be
};

/// Paints with the first character cell's top left at (X, Y), in the canvas's font: on whole pixels one
/// character at a time, on a smooth device run by run with fractional advances, Anchor kept. Angle is the
/// writing direction in tenths of a degree, counter-clockwise. The canvas's font is restored, also when a
/// device raises.
void PaintCaption(const TKxParsedCaption& Caption, TCanvas& Canvas, int X, int Y, int Angle,
                  const TKxCaptionAnchor& Anchor = {});

/// What RichPaintTo is given and gives back.
struct TKxCaptionRec {
    TKxCaption Text;
    TCanvas* Canvas = nullptr;  ///< measures and paints; its font is the base font. Not owned, not null.
    std::int32_t X = 0;         ///< left of the first character cell
    std::int32_t Y = 0;         ///< top of the first character cell
    std::int32_t Angle = 0;     ///< writing direction, tenths of a degree, counter-clockwise
    std::int32_t Width = 0;     ///< out: advance width of all shown characters, unrotated
    std::int32_t SelStart = -1; ///< first highlighted shown character, 0-based; -1 for none
    std::int32_t SelEnd = -1;   ///< one past the last highlighted one; -1 for none
    bool Paint = false;         ///< false only measures
    TKxCaptionAnchor Anchor{};  ///< kept on smooth devices, which show no selection
    bool ShowSelection = false; ///< the highlighted characters take the highlight text colour
    std::string Stripped;       ///< out: the shown text without the backslashes that "\\" shows

    // Out, one element per character of Text and one more, zero where nothing is told. Index is that of the
    // shown character.
    TDynArray<std::int32_t> CharPos;   ///< right edge, relative to X, unrotated
    TDynArray<std::int32_t> CharIndex; ///< position in Text, 1-based
    TDynArray<bool> SymbolFontAt;      ///< a symbol escape stands directly before the character
    // An odd number of escapes of the kind stands directly before the character.
    TDynArray<bool> BoldAt, ItalicAt, UnderlineAt, StrikeOutAt, SuperscriptAt, SubscriptAt;
};

/// Measures Rec.Text and, with Paint, paints it (the background of a selection excepted); fills Width,
/// Stripped and the arrays, which are new ones. Rec.Canvas->Font is as it was.
void RichPaintTo(TKxCaptionRec& Rec);

/// Turns what is written in Font, Angle in tenths of a degree, counter-clockwise.
void RotateFont(TFont* Font, int Angle);

/// The visible text of a caption; a backslash that "\\" shows is left out.
AnsiString GetStrippedString(const AnsiString& Caption);

/// Plain text as a caption that shows it character by character. A blank that Text begins with is swallowed
/// when the result is put behind an escape.
TKxCaption EscapeCaption(std::string_view Text);

/// Cosine and sine of an angle in tenths of a degree; exact at quarter turns.
struct TKxDirection {
    long double Cos = 1;
    long double Sin = 0;
};
TKxDirection DirectionOf(int Angle);

} // namespace kx
