// The editing controls, in the states that they have.

#include "scenes/scenes.h"

#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/editing/Kxcaptionbar.h>
#include <kxgraph/editing/Kxcolorpicker.h>
#include <kxgraph/editing/Kxpickers.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/controls/frame.h>

namespace kx::scenes {

namespace {

/// In no window, and yet its controls are painted as if it had the keys.
class TSheetForm : public TForm {
public:
    using TForm::TForm;

protected:
    bool WindowTakesKeys() const override { return true; }
};

/// Puts controls on a form, a line each, with what they show before them. The form owns them.
struct TSheet {
    template <class T>
    T& Add(const TKxCaption& Name, int Width, int Height = 26) {
        auto* name = new TKxLabel(&Form);
        name->SetParent(&Form);
        name->SetTransparent(true);
        name->SetCaption(Name);
        name->SetBounds(Left, Top + 4, name->GetWidth(), name->GetHeight());
        auto* control = new T(&Form);
        control->SetParent(&Form);
        control->SetBounds(Left + NameWidth, Top, Width, Height);
        Top += Height + 10;
        return *control;
    }
    TForm& Form;
    int Left, NameWidth;
    int Top = 16;
};

void PressAt(TForm& Form, const TControl& Control, TPoint At) {
    for (const TMouseKind kind : {TMouseKind::Down, TMouseKind::Up})
        Form.AsHostClient().HostMouse(kind, mbLeft, 0, Control.ClientToRoot(At + TPoint{2, 2}));
}

/// The one that is to have the focus.
TKxCaptionEdit& AddCaptionEdits(TSheet& Sheet) {
    static const TKxCaption caption = "\\iU\\i\\-max\\-  / mV, \\bat\\b  \\sl\\s\\+2\\+  = 1";
    auto& bar = Sheet.Add<TKxCaptionBar>("its tool bar", 168);
    auto& focused = Sheet.Add<TKxCaptionEdit>("focused, a selection", 240);
    focused.SetCaption(caption);
    focused.Select(11, 13);
    bar.SetEdit(&focused);
    auto& right = Sheet.Add<TKxCaptionEdit>("at the right", 240);
    right.SetCaption(caption);
    right.SetAlignment(taRightJustify);
    auto& disabled = Sheet.Add<TKxCaptionEdit>("disabled", 240);
    disabled.SetCaption(caption);
    disabled.SetEnabled(false);
    Sheet.Add<TKxCaptionEdit>("too narrow", 110).SetCaption(caption);
    auto& large = Sheet.Add<TKxCaptionEdit>("16 points", 240, 38);
    large.GetFont().SetSize(16);
    large.SetCaption("\\iE\\i  = \\im\\i\\b c\\b\\+2\\+");
    return focused;
}

void AddCombos(TSheet& Sheet) {
    Sheet.Add<TKxBrushStyleCombo>("brush style", 170).SetValue(bsDiagCross);
    auto& lines = Sheet.Add<TKxLineStyleCombo>("line style, 2 pixels", 170);
    lines.SetSampleWidth(2);
    lines.SetValue(psDash);
    Sheet.Add<TKxLineWidthCombo>("line width", 170).SetValue(3);
    Sheet.Add<TKxPointSymbolCombo>("point symbol", 170).SetValue(Sy5StarFilled);
    auto& disabled = Sheet.Add<TKxPointSymbolCombo>("disabled", 170);
    disabled.SetValue(SyDiamondFilled);
    disabled.SetEnabled(false);
}

void AddLists(TSheet& Sheet) {
    Sheet.Add<TKxBrushStyleList>("brush styles", 160, 172).SetValue(bsCross);
    auto& lines = Sheet.Add<TKxLineStyleList>("line styles", 160, 151);
    lines.SetSampleWidth(1);
    lines.SetSampleColor(RGB(31, 119, 180));
    Sheet.Add<TKxLineWidthList>("line widths", 160, 214).SetSampleColor(clRed);
}

void AddSymbolsAndColors(TSheet& Sheet) {
    auto& symbols = Sheet.Add<TKxPointSymbolList>("point symbols", 160, 341);
    symbols.SetSampleColor(RGB(214, 39, 40));
    symbols.SetSampleSize(6);
    auto& colors = Sheet.Add<TKxColorPicker>("colours", 202, 180);
    for (int i = 0; i < 5; ++i) PressAt(Sheet.Form, colors, colors.SquareRect(4, 2 * i + 1).TopLeft());
}

void AddWrongColor(TSheet& Sheet) {
    auto& wrong = Sheet.Add<TKxColorPicker>("wrong text", 202, 180);
    PressAt(Sheet.Form, wrong, {150, 165});
    for (const char* key : {"#", "1", "F", "g"})
        Sheet.Form.AsHostClient().HostKey({.Key = kcNone, .Text = key}, true);
}

} // namespace

void PaintEditingSheet(TCanvasDevice& Device) {
    TSheetForm form(nullptr);
    form.SetBounds(0, 0, CEditingSheetSize.Width, CEditingSheetSize.Height);
    TSheet edits{form, 16, 140}, lists{form, 420, 90}, symbols{form, 690, 90};
    TKxCaptionEdit& focused = AddCaptionEdits(edits);
    AddCombos(edits);
    AddWrongColor(edits);
    AddLists(lists);
    AddSymbolsAndColors(symbols);
    focused.SetFocus();
    PaintFrame(form, Device);
}

} // namespace kx::scenes
