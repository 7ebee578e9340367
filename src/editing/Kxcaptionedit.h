#pragma once
// The edit of a caption: one line that shows it exactly as it will be painted, while it is edited.
//
// Keys, beside the usual ones for caret, selection (Shift), words (Ctrl) and clipboard:
//
//   Ctrl+B bold   Ctrl+I italic   Ctrl+U underline   Ctrl+T strike-out   Ctrl+G Greek (symbol font)
//   Ctrl+Up or Ctrl+Plus superscript   Ctrl+Down or Ctrl+Minus subscript   Ctrl+Space none of these
//   Ctrl+Z undo   Ctrl+Y or Ctrl+Shift+Z redo   Ctrl+A all   Ctrl+Shift+V paste the text as it stands
//
// A press of the right button, or the menu key, shows a menu of the usual ones, unless the program has given
// the control another one. A look is switched for the selection or, without one, for what is typed next.
// Characters stand in the order of the caption, whatever the direction of their script.

#include <kxgraph/annotation/Kxcaption.h>
#include <kxgraph/editing/Kxcaptionmodel.h>
#include <kxgraph/platform/widgets/editmenu.h>
#include <kxgraph/platform/widgets/textfield.h>

#include <memory>
#include <string_view>
#include <vector>

namespace kx {

/// Places count shown characters, code points; 0 is before the first. Caption is the control's text.
class TKxCaptionEdit : public TTextField, private TEditCommands {
public:
    explicit TKxCaptionEdit(TComponent* Owner);

    TKxCaption GetCaption() const { return GetText(); }
    /// Another caption than the present one puts the caret behind it and forgets the steps of undo.
    void SetCaption(const TKxCaption& Caption) { SetText(Caption); }
    /// Most characters that can be entered, those of the markup not counted; 0 for no limit.
    int GetMaxLength() const { return FModel.GetMaxLength(); }
    void SetMaxLength(int Length) { FModel.SetMaxLength(Length); }

    const TKxCaptionModel& GetModel() const { return FModel; }
    int GetCaret() const { return FModel.GetCaret(); }
    void Select(int Anchor, int Caret);
    void SelectAll() { Select(0, FModel.GetLength()); }
    /// Whether all that is selected, or what is typed next, has the look.
    bool IsOn(TKxCaptionSwitch Which) const { return FModel.IsOn(Which); }
    // What the keys do. Nothing where the control is read only.
    void Toggle(TKxCaptionSwitch Which);
    void ClearLooks();
    void Undo();
    void Redo();
    /// Replaces the selection.
    void TypeText(std::string_view Text);
    /// The clipboard gets the text and, where the host keeps it, the markup. Nothing without a selection.
    void Copy();
    void Cut();
    /// Takes the markup from the clipboard, or its text: as markup where it reads like that (ReadsAsMarkup).
    void Paste();
    void PasteAsText();

    /// The place between two characters that is nearest to X, a pixel of the control; and where one is.
    int PlaceAt(int X);
    int PixelOf(int Place);
    /// The caret's rectangle, as high as the character before it, in the control's pixels.
    TRect GetCaretRect();

    /// A control that shows what is switched on here: it is invalidated with every change and move of the
    /// caret. Not owned.
    void AddViewer(TControl* Viewer);
    void RemoveViewer(TControl* Viewer);

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxCaptionEdit>(); }
    void Notification(TComponent* Component, TOperation Operation) override;
    void CMTextChanged() override;
    void CMFontChanged() override;
    void CMEnabledChanged() override;
    void Exit() override;
    bool Compose(const TComposition& Composition) override;
    TEdited GetEdited() const override;
    void ShowCaret() override;
    void Paint() override;
    bool KeyDown(const TKeyStroke& Stroke) override;
    void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    void MouseMove(TShiftState Shift, int X, int Y) override;
    void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    THostMenu ContextMenu() override;

private:
    struct TShortcut;
    bool CanEdit(TEditCommand Command) const override;
    void EditBy(TEditCommand Command) override;
    void PressForMenu(int X);
    bool EditByKey(const TKeyStroke& Stroke);
    void SelectByPress(TShiftState Shift, int X);
    bool MoveByKey(const TKeyStroke& Stroke);
    bool EraseByKey(const TKeyStroke& Stroke);
    void ExtendTo(int Place);
    void EndThirdPress() { FThirdPress.reset(); }

    /// Shows what the model has become by an operation that answered Changed.
    void Take(bool Changed);
    void UpdateShown();
    const std::vector<double>& Places();
    int TextLeft() { return TTextField::TextLeft(RoundToInt(Places().back())); }
    int PixelOfShown(int Place);
    void PaintText(TCanvas& Canvas, TColor Color);
    void PaintSelection(TCanvas& Canvas);

    TKxCaptionModel FModel;
    bool FTaking = false; // the text from the model
    std::vector<TControl*> FViewers;

    // What is shown, with what is being composed, and where each place in it lies from the left of the text.
    TKxParsedCaption FShown;
    std::vector<double> FPlaces;
    bool FHasPlaces = false;
    bool FExactly = false; // as the last device showed it

    TKxCaptionStretch FPressed; // what the press has selected
    bool FIsPressed = false;
    bool FByWords = false;                   // a double click has begun it
    std::unique_ptr<THostTimer> FThirdPress; // while it runs, a press is the third of three
};

} // namespace kx
