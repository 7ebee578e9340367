// Keys and mouse of edit fields.

#include <kxgraph/platform/widgets/edit.h>

#include <algorithm>

namespace kx {

bool TCustomEdit::KeyDown(const TKeyStroke& Stroke) {
    const TComponentRef<TCustomEdit> self(this);
    if (TTextField::KeyDown(Stroke)) return true;
    return self && IsOperable() && EditKey(Stroke);
}

bool TCustomEdit::EditKey(const TKeyStroke& Stroke) {
    const bool alt = (Stroke.Shift & ssAlt) != 0, ctrl = (Stroke.Shift & ssCtrl) != 0;
    if (!FComposed.Text.empty()) return true; // the input method's
    if (!(alt && !ctrl) && (MoveKey(Stroke) || ClipboardKey(Stroke))) return true;
    if (alt != ctrl || Stroke.Text.empty()) return false; // both together are a third level of the layout
    return Type(Stroke.Text);
}

bool TCustomEdit::Type(std::string_view Text) {
    if (GetReadOnly()) return false;
    FLine.Insert(Text, FMaxLength, true);
    LineChanged();
    return true;
}

bool TCustomEdit::MoveKey(const TKeyStroke& Stroke) {
    const bool extends = (Stroke.Shift & ssShift) != 0, words = (Stroke.Shift & ssCtrl) != 0;
    const int caret = FLine.GetCaret();
    const bool leaves = FLine.HasSelection() && !extends && !words;
    switch (Stroke.Key) {
    case kcLeft:
        return MoveTo(leaves ? FLine.SelStart() : words ? FLine.WordBefore(caret) : caret - 1, extends), true;
    case kcRight:
        return MoveTo(leaves ? FLine.SelEnd() : words ? FLine.WordBehind(caret) : caret + 1, extends), true;
    case kcHome: return MoveTo(0, extends), true;
    case kcEnd: return MoveTo(FLine.GetCount(), extends), true;
    case kcBack:
    case kcDelete:
        if (Stroke.Key == kcDelete && extends) return false; // cuts
        if (GetReadOnly()) return false;
        return DeleteKey(Stroke.Key == kcDelete, words), true;
    default: return false;
    }
}

void TCustomEdit::DeleteKey(bool Forward, bool Word) {
    const int caret = FLine.GetCaret();
    if (FLine.HasSelection())
        FLine.Delete(FLine.SelStart(), FLine.SelEnd());
    else if (Forward)
        FLine.Delete(caret, Word ? FLine.WordBehind(caret) : caret + 1, true);
    else
        FLine.Delete(Word ? FLine.WordBefore(caret) : caret - 1, caret, true);
    LineChanged();
}

bool TCustomEdit::ClipboardKey(const TKeyStroke& Stroke) {
    const TShiftState shift = Stroke.Shift & (ssShift | ssCtrl);
    const bool ctrl = shift == ssCtrl;
    if ((ctrl && Stroke.Key == 'C') || (ctrl && Stroke.Key == kcInsert)) return CopyToClipboard(), true;
    if (ctrl && Stroke.Key == 'A') return SelectAll(), true;
    if (GetReadOnly()) return false;
    if ((ctrl && Stroke.Key == 'X') || (shift == ssShift && Stroke.Key == kcDelete))
        return CutToClipboard(), true;
    if ((ctrl && Stroke.Key == 'V') || (shift == ssShift && Stroke.Key == kcInsert))
        return PasteFromClipboard(), true;
    if (ctrl && Stroke.Key == 'Z') return Undo(), true;
    if ((ctrl && Stroke.Key == 'Y') || (shift == (ssCtrl | ssShift) && Stroke.Key == 'Z'))
        return Redo(), true;
    return false;
}

void TCustomEdit::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    const TComponentRef<TCustomEdit> self(this);
    if (Button != mbMiddle && IsOperable()) {
        if (THostWindow* window = GetHostWindow()) window->EndComposition();
        if (!self) return;
        if (Button == mbLeft)
            Press(Shift, X);
        else
            PressForMenu(X);
    }
    if (self) TTextField::MouseDown(Button, Shift, X, Y);
}

void TCustomEdit::Press(TShiftState Shift, int X) {
    const int place = PlaceAt(X);
    if (Shift & ssDouble) {
        FLine.SelectWord(std::min(place, PlaceAt(X - 3)));
        return ShowCaret();
    }
    MoveTo(place, (Shift & ssShift) != 0);
    FPressed = true;
}

/// What was selected, and is pressed, stays: the menu is for that.
void TCustomEdit::PressForMenu(int X) {
    const TComponentRef<TCustomEdit> self(this);
    const bool wasFocused = IsFocused();
    if (GetTabStop()) SetFocus();
    if (!self) return;
    const int place = PlaceAt(X);
    if (!wasFocused || place < FLine.SelStart() || place > FLine.SelEnd()) MoveTo(place, false);
}

THostMenu TCustomEdit::ContextMenu() { return IsOperable() ? MakeEditMenu(*this, *this) : THostMenu(); }

bool TCustomEdit::CanEdit(TEditCommand Command) const {
    return TEditCommands::CanEdit(
        Command, {CanChange(), FLine.CanUndo(), FLine.CanRedo(), FLine.GetCount(), GetSelLength()});
}

void TCustomEdit::EditBy(TEditCommand Command) {
    if (!CanEdit(Command)) return;
    switch (Command) {
    case TEditCommand::Undo: return Undo();
    case TEditCommand::Redo: return Redo();
    case TEditCommand::Cut: return CutToClipboard();
    case TEditCommand::Copy: return CopyToClipboard();
    case TEditCommand::Paste: return PasteFromClipboard();
    case TEditCommand::Delete: return ReplaceSelection({});
    case TEditCommand::SelectAll: return SelectAll();
    }
}

void TCustomEdit::MouseMove(TShiftState Shift, int X, int Y) {
    if (FPressed) MoveTo(PlaceAt(X), true);
    TTextField::MouseMove(Shift, X, Y);
}

void TCustomEdit::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (Button == mbLeft) FPressed = false;
    TTextField::MouseUp(Button, Shift, X, Y);
}

} // namespace kx
