// The editing controls, in the states that they have.

#include "scenes/scenes.h"

#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/editing/Kxcaptionbar.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/controls/frame.h>

namespace kx::scenes {

namespace {

constexpr int CLeft = 16, CNameWidth = 150;

/// Puts controls on a form, a line each, with what they show before them. The form owns them.
struct TSheet {
    explicit TSheet(TForm& F) : Form(F) {}
    template <class T>
    T& Add(const TKxCaption& Name, int Width, int Height = 24) {
        auto* name = new TKxLabel(&Form);
        name->SetParent(&Form);
        name->SetCaption(Name);
        name->SetBounds(CLeft, Top + 4, 0, 0);
        name->AdjustBounds();
        auto* control = new T(&Form);
        control->SetParent(&Form);
        control->SetBounds(CLeft + CNameWidth, Top, Width, Height);
        Top += Height + 10;
        return *control;
    }
    TForm& Form;
    int Top = 16;
};

void AddCaptionEdits(TSheet& Sheet) {
    static const TKxCaption caption = "\\iU\\i\\-max\\- / mV, \\bat\\b \\sl\\s\\+2\\+ = 1";
    auto& bar = Sheet.Add<TKxCaptionBar>("its tool bar", 168);
    auto& focused = Sheet.Add<TKxCaptionEdit>("focused, a selection", 240);
    focused.SetCaption(caption);
    focused.SetFocus();
    focused.Select(3, 11);
    bar.SetEdit(&focused);
    auto& right = Sheet.Add<TKxCaptionEdit>("at the right", 240);
    right.SetCaption(caption);
    right.SetAlignment(taRightJustify);
    auto& disabled = Sheet.Add<TKxCaptionEdit>("disabled", 240);
    disabled.SetCaption(caption);
    disabled.SetEnabled(false);
    Sheet.Add<TKxCaptionEdit>("too narrow", 110).SetCaption(caption);
    auto& large = Sheet.Add<TKxCaptionEdit>("16 points", 330, 38);
    large.GetFont().SetSize(16);
    large.SetCaption(caption);
}

} // namespace

void PaintEditingSheet(TCanvasDevice& Device) {
    TForm form(nullptr);
    form.SetBounds(0, 0, CEditingSheetSize.Width, CEditingSheetSize.Height);
    TSheet sheet(form);
    AddCaptionEdits(sheet);
    PaintFrame(form, Device);
}

} // namespace kx::scenes
