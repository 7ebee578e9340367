#pragma once
// The look of the controls that a user puts values in: colours, metrics and the parts that they are painted
// of. Who paints a control of another kind and wants it to fit takes them, too.

#include <kxgraph/platform/controls/control.h>

#include <string>
#include <string_view>

namespace kx {

/// What a control or an item of it is like while it is painted.
enum TDrawStateFlag : unsigned {
    odSelected = 1,
    odFocused = 2,
    odDisabled = 4,
    odHot = 8, ///< the mouse is over it
    odPressed = 16,
    odInvalid = 32,   ///< holds what cannot be used
    odComboEdit = 64, ///< an item that is shown in the field of a combo, not in its list
    odInactive = 128  ///< selected in a control that has not the keys
};
using TDrawState = unsigned; ///< bits of TDrawStateFlag

/// Room between the frame of a field and its text, across; between items; the height of fields; the width of
/// buttons in fields, of scroll bars and of the marks of check boxes.
inline constexpr int CFieldPadding = 5, CFieldHeight = 26, CFieldButton = 20, CScrollWidth = 14,
                     CMarkSize = 16;

TColor Blended(TColor A, TColor B, double ShareOfB);
/// The colour of a text, of Font unless the state has another.
TColor TextColorFor(const TFont& Font, TDrawState State);
/// The height of a line in that font, and the width of a text, on the screen.
int LineHeight(const TFont& Font);
int TextWidth(const TFont& Font, std::string_view Text);

/// A frame of one pixel with soft corners.
void PaintOutline(TCanvas& Canvas, const TRect& Rect, TColor Color);
/// Ground and frame of a field that holds a value.
void PaintField(TCanvas& Canvas, const TRect& Rect, TColor Ground, TDrawState State);
/// Ground and frame of a button; in a field it has no frame of its own.
void PaintButton(TCanvas& Canvas, const TRect& Rect, TDrawState State);
void PaintFieldButton(TCanvas& Canvas, const TRect& Rect, TDrawState State);
/// The ground of an item, where it is selected or the mouse is over it.
void PaintItemGround(TCanvas& Canvas, const TRect& Rect, TDrawState State);
/// An arrow in the middle of Rect.
enum class TArrow { Up, Down, Left, Right };
void PaintArrow(TCanvas& Canvas, const TRect& Rect, TArrow Direction, TDrawState State);
void PaintCheckMark(TCanvas& Canvas, const TRect& Rect, bool Checked, TDrawState State);
/// One line of text in the middle of the height of Rect and inside it; one that is too long ends in "…".
void PaintText(TCanvas& Canvas, const TRect& Rect, std::string_view Text, TAlignment Alignment);

/// A caption in which an ampersand stands before the letter that picks it; two are one.
struct TCaptionKey {
    std::string Text; ///< as it is shown
    int Key = 0;      ///< code of the letter; 0: none
    int At = -1;      ///< its place in Text, in bytes
};
TCaptionKey CaptionKeyOf(std::string_view Caption);
/// The same with the letter underlined.
void PaintCaption(TCanvas& Canvas, const TRect& Rect, const TCaptionKey& Caption, TAlignment Alignment);

} // namespace kx
