#pragma once
// What a user does with mouse, wheel and keys, as the host tells it.

#include <string>
#include <string_view>

namespace kx {

enum TMouseButton { mbLeft, mbRight, mbMiddle };
enum TShiftStateFlag : unsigned {
    ssShift = 1,
    ssAlt = 2,
    ssCtrl = 4,
    ssLeft = 8,
    ssRight = 16,
    ssMiddle = 32,
    ssDouble = 64
};
using TShiftState = unsigned; ///< bits of TShiftStateFlag
enum class TMouseKind { Down, Move, Up };

/// A turn of the wheel, or a move of two fingers on a touchpad, in notches of a common wheel; fine wheels and
/// touchpads turn fractions of one.
struct TWheelTurn {
    double Right = 0, Up = 0;
    /// Whether it goes on with the gesture of the turn before. Touchpads tell; a wheel knows no gestures.
    bool Continues = false;
};

/// Codes of keys. Letters and digits are their ASCII characters, letters in upper case; so every key has one
/// code, whatever the layout types with it.
enum TKeyCode : int {
    kcNone = 0,
    kcBack = 8,
    kcTab = 9,
    kcReturn = 13,
    kcEscape = 27,
    kcSpace = 32,
    kcPageUp = 33,
    kcPageDown = 34,
    kcEnd = 35,
    kcHome = 36,
    kcLeft = 37,
    kcUp = 38,
    kcRight = 39,
    kcDown = 40,
    kcInsert = 45,
    kcDelete = 46,
    kcPlus = 107,
    kcMinus = 109,
    kcF1 = 112, ///< up to kcF1 + 23
    kcMenu = 93
};

/// One press or release of a key.
struct TKeyStroke {
    int Key = kcNone;           ///< a TKeyCode
    std::string_view Text = {}; ///< what it types; empty for keys that type nothing
    TShiftState Shift = 0;
    bool Repeats = false; ///< the key is held down
};

/// What an input method makes of keys on the way to text: CJK syllables, accents, emoji.
struct TComposition {
    std::string Text = {};   ///< not yet text, shown at the caret; empty: nothing is composed any more
    int Caret = 0;           ///< in Text, in characters
    std::string Commit = {}; ///< what becomes text before, in the place of the selection and of the last Text
    /// Characters that Commit replaces, counted from the caret, or what is selected.
    int ReplaceFrom = 0, ReplaceLength = 0;
};

/// What input methods are told of the control that has the focus.
struct THostTextInput {
    bool Takes = false;    ///< whether it takes text
    int Left = 0, Top = 0; ///< of the caret
    int Width = 1, Height = 0;
    std::string Text = {};     ///< the line that the caret stands in
    int Caret = 0, Anchor = 0; ///< ends of the selection in Text, in characters
};

} // namespace kx
