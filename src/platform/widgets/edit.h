#pragma once
// The field in which a user types one line of text.

#include <kxgraph/platform/widgets/editline.h>
#include <kxgraph/platform/widgets/editmenu.h>
#include <kxgraph/platform/widgets/textfield.h>

#include <string>

namespace kx {

/// One line of text with caret, selection (mouse, Shift, double click), clipboard, undo, and input methods.
///
/// Keys: Left, Right, Home, End, with Ctrl by words, with Shift selecting; Back and Delete, with Ctrl by
/// words; Ctrl+A, C, X, V, Z, Y; Shift+Delete, Ctrl+Insert, Shift+Insert. All others go to the parent.
/// Without a PopupMenu it has one of these commands.
class TCustomEdit : public TTextField, private TEditCommands {
public:
    explicit TCustomEdit(TComponent* Owner);

    /// Most characters that a user may type; 0: any number. A text that the program sets is not cut.
    int GetMaxLength() const { return FMaxLength; }
    void SetMaxLength(int Count);
    /// Shown, pale, while there is no text.
    const std::string& GetTextHint() const { return FTextHint; }
    void SetTextHint(const std::string& Hint);
    /// Whether all is selected when the focus comes by Tab or by the program.
    bool GetAutoSelect() const { return FAutoSelect; }
    void SetAutoSelect(bool AutoSelect) { FAutoSelect = AutoSelect; }

    /// Places in characters; outside ones count as the nearest end.
    int GetCaretPos() const { return FLine.GetCaret(); }
    int GetSelStart() const { return FLine.SelStart(); }
    int GetSelLength() const { return FLine.SelEnd() - FLine.SelStart(); }
    std::string GetSelText() const { return FLine.Selected(); }
    /// Selects from Anchor to Caret.
    void Select(int Anchor, int Caret);
    void SelectAll() { Select(0, FLine.GetCount()); }
    /// As if a user did it, but for ReadOnly: can be undone.
    void ReplaceSelection(const std::string& Text);
    void CopyToClipboard() const;
    void CutToClipboard();
    void PasteFromClipboard();
    bool CanUndo() const { return FLine.CanUndo(); }
    void Undo();
    void Redo();

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    /// The text was changed, by whomever.
    virtual void Changed() { OnChange(this); }
    TEdited GetEdited() const override { return {GetText(), FLine.GetCaret(), FLine.GetAnchor()}; }
    void ShowCaret() override;
    void Paint() override;
    void CMTextChanged() override;
    void Enter() override;
    void Exit() override;
    bool KeyDown(const TKeyStroke& Stroke) override;
    void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    void MouseMove(TShiftState Shift, int X, int Y) override;
    void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    THostMenu ContextMenu() override;
    bool Compose(const TComposition& Composition) override;

private:
    bool CanEdit(TEditCommand Command) const override;
    void EditBy(TEditCommand Command) override;
    void Press(TShiftState Shift, int X);
    void PressForMenu(int X);
    bool EditKey(const TKeyStroke& Stroke);
    bool MoveKey(const TKeyStroke& Stroke);
    bool ClipboardKey(const TKeyStroke& Stroke);
    void DeleteKey(bool Forward, bool Word);
    bool Type(std::string_view Text);
    void MoveTo(int Place, bool Extends);
    void LineChanged();
    // Where things stand, in pixels of the control:
    std::string ShownText() const;
    int ShownPlace(int Character) const;
    int XOf(int ShownCharacter) const;
    int TextLeft() const { return TTextField::TextLeft(TextWidth(GetFont(), ShownText())); }
    int PlaceAt(int X) const;
    TRect Strip(int From, int To) const;
    void PaintLine();
    void PaintSelection(const std::string& Shown);

    TEditLine FLine;
    TComposition FComposed; // what an input method composes now
    int FMaxLength = 0;
    std::string FTextHint;
    bool FAutoSelect = true;
    bool FPressed = false;
};

/// The edit field of forms.
class TEdit : public TCustomEdit {
public:
    using TCustomEdit::TCustomEdit;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TEdit>(); }
};

} // namespace kx
