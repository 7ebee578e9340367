#pragma once
// A caption taken to its characters, each with the looks that it shows, and put together again: what an
// editor works on. A character is a code point.

#include <kxgraph/annotation/Kxcaption.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// One shown character.
struct TKxCaptionCell {
    std::string Text; ///< its UTF-8 form
    TKxCaptionLooks Looks;
    friend bool operator==(const TKxCaptionCell&, const TKxCaptionCell&) = default;
};
using TKxCaptionCells = std::vector<TKxCaptionCell>;
using TKxCaptionCellSpan = std::span<const TKxCaptionCell>;

/// The shown characters of a caption. Foreign bytes become the characters that they show.
TKxCaptionCells CellsOf(const TKxCaption& Caption);
/// A text as one line: line breaks and tabs become blanks, other control characters are left out.
std::string OneLine(std::string_view Text);
/// The characters of a plain text, made one line, of these looks.
TKxCaptionCells CellsOfText(std::string_view Text, const TKxCaptionLooks& Looks = {});
/// The shortest caption that shows Cells, its switches off at the end: CellsOf gives them back.
TKxCaption CaptionOf(TKxCaptionCellSpan Cells);
/// What Cells show, without looks.
std::string TextOf(TKxCaptionCellSpan Cells);

/// Whether a text that comes from elsewhere is to be read as markup: it has switches, and each that it turns
/// on it turns off again. A path such as C:\bin\include hardly ever does.
bool ReadsAsMarkup(std::string_view Text);

/// Turns a look on or off. Superscript and subscript end one another.
void SetLook(TKxCaptionSwitch Which, bool On, TKxCaptionLooks& Looks);

/// Where the word begins that lies before At, or ends behind At together with the blanks that follow; words
/// are stretches of letters and digits, or of other signs.
int WordBefore(TKxCaptionCellSpan Cells, int At);
int WordBehind(TKxCaptionCellSpan Cells, int At);
/// The word, or the blanks, that the character At lies in; at the end of the caption the last one.
struct TKxCaptionStretch {
    int Start = 0, End = 0;
};
TKxCaptionStretch WordAt(TKxCaptionCellSpan Cells, int At);

} // namespace kx
