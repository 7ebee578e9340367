// Keys and mouse of the caption edit.

#include <kxgraph/editing/Kxcaptionedit.h>

#include <kxgraph/platform/host/application.h>

#include <algorithm>
#include <array>

namespace kx {

namespace {

constexpr TShiftState CModifiers = ssShift | ssCtrl | ssAlt;
constexpr int CThirdPressTime = 400; // milliseconds from the second to the third press

} // namespace

struct TKxCaptionEdit::TShortcut {
    int Key;
    TShiftState Shift;
    void (*Do)(TKxCaptionEdit& Edit);
};

bool TKxCaptionEdit::KeyDown(const TKeyStroke& Stroke) {
    const TComponentRef<TKxCaptionEdit> self(this);
    if (TTextField::KeyDown(Stroke)) return true;
    if (!self || !IsOperable()) return false;
    return FModel.GetComposedLength() > 0 || EditByKey(Stroke); // what is composed is the input method's
}

bool TKxCaptionEdit::EditByKey(const TKeyStroke& Stroke) {
    using C = TKxCaptionEdit;
    static constexpr auto shortcuts = std::to_array<TShortcut>({
        {'A', ssCtrl, [](C& E) { E.SelectAll(); }},
        {'C', ssCtrl, [](C& E) { E.Copy(); }},
        {kcInsert, ssCtrl, [](C& E) { E.Copy(); }},
        {'X', ssCtrl, [](C& E) { E.Cut(); }},
        {kcDelete, ssShift, [](C& E) { E.Cut(); }},
        {'V', ssCtrl, [](C& E) { E.Paste(); }},
        {kcInsert, ssShift, [](C& E) { E.Paste(); }},
        {'V', ssCtrl | ssShift, [](C& E) { E.PasteAsText(); }},
        {'Z', ssCtrl, [](C& E) { E.Undo(); }},
        {'Y', ssCtrl, [](C& E) { E.Redo(); }},
        {'Z', ssCtrl | ssShift, [](C& E) { E.Redo(); }},
        {'B', ssCtrl, [](C& E) { E.Toggle(TKxCaptionSwitch::Bold); }},
        {'I', ssCtrl, [](C& E) { E.Toggle(TKxCaptionSwitch::Italic); }},
        {'U', ssCtrl, [](C& E) { E.Toggle(TKxCaptionSwitch::Underline); }},
        {'T', ssCtrl, [](C& E) { E.Toggle(TKxCaptionSwitch::StrikeOut); }},
        {'G', ssCtrl, [](C& E) { E.Toggle(TKxCaptionSwitch::Symbol); }},
        {kcUp, ssCtrl, [](C& E) { E.Toggle(TKxCaptionSwitch::Superscript); }},
        {kcPlus, ssCtrl, [](C& E) { E.Toggle(TKxCaptionSwitch::Superscript); }},
        {kcPlus, ssCtrl | ssShift, [](C& E) { E.Toggle(TKxCaptionSwitch::Superscript); }},
        {kcDown, ssCtrl, [](C& E) { E.Toggle(TKxCaptionSwitch::Subscript); }},
        {kcMinus, ssCtrl, [](C& E) { E.Toggle(TKxCaptionSwitch::Subscript); }},
        {kcSpace, ssCtrl, [](C& E) { E.ClearLooks(); }},
    });
    const TShiftState shift = Stroke.Shift & CModifiers;
    for (const TShortcut& shortcut : shortcuts)
        if (shortcut.Key == Stroke.Key && shortcut.Shift == shift) return shortcut.Do(*this), true;
    if (MoveByKey(Stroke) || EraseByKey(Stroke)) return true;
    // Both together are what some keyboards type further characters with.
    const TShiftState chord = shift & (ssCtrl | ssAlt);
    if (Stroke.Text.empty() || chord == ssCtrl || chord == ssAlt) return false;
    TypeText(Stroke.Text);
    return true;
}

/// Without Shift, a selection is left at the end that the key points to.
bool TKxCaptionEdit::MoveByKey(const TKeyStroke& Stroke) {
    if (Stroke.Shift & ssAlt) return false;
    const bool extend = Stroke.Shift & ssShift, words = Stroke.Shift & ssCtrl;
    const bool leaves = FModel.HasSelection() && !extend && !words;
    const int caret = GetCaret();
    int to = 0;
    switch (Stroke.Key) {
    case kcLeft:
        to = leaves ? FModel.GetSelStart() : words ? WordBefore(FModel.GetCells(), caret) : caret - 1;
        break;
    case kcRight:
        to = leaves ? FModel.GetSelEnd() : words ? WordBehind(FModel.GetCells(), caret) : caret + 1;
        break;
    case kcHome: to = 0; break;
    case kcEnd: to = FModel.GetLength(); break;
    default: return false;
    }
    FModel.MoveTo(to, extend);
    Take(false);
    return true;
}

bool TKxCaptionEdit::EraseByKey(const TKeyStroke& Stroke) {
    const bool before = Stroke.Key == kcBack, words = Stroke.Shift & ssCtrl;
    if ((!before && Stroke.Key != kcDelete) || Stroke.Shift & ssAlt) return false;
    if (GetReadOnly()) return true;
    const int caret = GetCaret();
    if (words)
        Take(FModel.EraseTo(before ? WordBefore(FModel.GetCells(), caret)
                                   : WordBehind(FModel.GetCells(), caret)));
    else
        Take(FModel.EraseTo(before ? caret - 1 : caret + 1));
    return true;
}

void TKxCaptionEdit::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    const TComponentRef<TKxCaptionEdit> self(this);
    if (Button != mbMiddle && IsOperable()) {
        if (THostWindow* window = GetHostWindow()) window->EndComposition();
        if (!self) return;
        if (Button == mbLeft)
            SelectByPress(Shift, X);
        else
            PressForMenu(X);
    }
    if (self) TTextField::MouseDown(Button, Shift, X, Y);
}

/// What was selected, and is pressed, stays: the menu is for that.
void TKxCaptionEdit::PressForMenu(int X) {
    const TComponentRef<TKxCaptionEdit> self(this);
    if (GetTabStop()) SetFocus();
    if (!self) return;
    const int at = PlaceAt(X);
    if (at < FModel.GetSelStart() || at > FModel.GetSelEnd()) Select(at, at);
}

THostMenu TKxCaptionEdit::ContextMenu() { return IsOperable() ? MakeEditMenu(*this, *this) : THostMenu(); }

bool TKxCaptionEdit::CanEdit(TEditCommand Command) const {
    return TEditCommands::CanEdit(Command, {CanChange(), FModel.CanUndo(), FModel.CanRedo(),
                                            FModel.GetLength(), FModel.GetSelEnd() - FModel.GetSelStart()});
}

void TKxCaptionEdit::EditBy(TEditCommand Command) {
    if (!CanEdit(Command)) return;
    switch (Command) {
    case TEditCommand::Undo: return Undo();
    case TEditCommand::Redo: return Redo();
    case TEditCommand::Cut: return Cut();
    case TEditCommand::Copy: return Copy();
    case TEditCommand::Paste: return Paste();
    case TEditCommand::Delete: return Take(FModel.EraseTo(GetCaret()));
    case TEditCommand::SelectAll: return SelectAll();
    }
}

/// A press puts the caret there, the second one selects the word, the third all; Shift extends.
void TKxCaptionEdit::SelectByPress(TShiftState Shift, int X) {
    const int at = PlaceAt(X), under = at > 0 && PixelOf(at) > X ? at - 1 : at;
    const bool isThird = FThirdPress && !(Shift & ssDouble);
    FIsPressed = true;
    FByWords = (Shift & ssDouble) != 0;
    FThirdPress.reset();
    if (FByWords)
        FThirdPress = TApplication::Instance().GetHost().StartTimer(
            CThirdPressTime, TEvent<>::Of<&TKxCaptionEdit::EndThirdPress>(this));
    if (Shift & ssShift) {
        FPressed = {FModel.GetAnchor(), FModel.GetAnchor()};
        return Select(FModel.GetAnchor(), at);
    }
    FPressed = isThird    ? TKxCaptionStretch{0, FModel.GetLength()}
               : FByWords ? WordAt(FModel.GetCells(), under)
                          : TKxCaptionStretch{at, at};
    Select(FPressed.Start, FPressed.End);
}

void TKxCaptionEdit::MouseMove(TShiftState Shift, int X, int Y) {
    if (FIsPressed && !IsDragging()) ExtendTo(PlaceAt(X));
    TTextField::MouseMove(Shift, X, Y);
}

void TKxCaptionEdit::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (Button == mbLeft) FIsPressed = false;
    TTextField::MouseUp(Button, Shift, X, Y);
}

/// Selects from what was pressed as far as Place, by words after a double click.
void TKxCaptionEdit::ExtendTo(int Place) {
    TKxCaptionStretch to{Place, Place};
    if (FByWords && Place < FPressed.Start) to = WordAt(FModel.GetCells(), Place);
    if (FByWords && Place > FPressed.End) to = WordAt(FModel.GetCells(), Place - 1);
    if (Place < FPressed.Start)
        Select(FPressed.End, to.Start);
    else
        Select(FPressed.Start, std::max(FPressed.End, to.End));
}

} // namespace kx
