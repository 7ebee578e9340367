// Fields, lists, buttons and a grid, in the states that they have.

#include "scenes/scenes.h"

#include <kxgraph/editing/Kxnumberedit.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/widgets/button.h>
#include <kxgraph/platform/widgets/combobox.h>
#include <kxgraph/platform/widgets/listbox.h>
#include <kxgraph/platform/widgets/stringgrid.h>

namespace kx::scenes {

namespace {

/// A control of class T on the form, which owns it.
template <class T>
T& Add(TForm& Form, const TRect& Place, bool Enabled = true) {
    auto* control = new T(&Form);
    control->SetParent(&Form);
    control->SetBounds(Place.Left, Place.Top, Place.Width(), Place.Height());
    control->SetEnabled(Enabled);
    return *control;
}

TRect Line(int Column, int Row) { return TRect::Bounds(16 + 176 * Column, 16 + 34 * Row, 160, 26); }

void AddFields(TForm& Form) {
    Add<TEdit>(Form, Line(0, 0)).SetText("Absorbance of sample 3");
    Add<TEdit>(Form, Line(0, 1)).SetTextHint("a hint while it is empty");
    Add<TEdit>(Form, Line(0, 2), false).SetText("disabled");
    for (const bool enabled : {true, false}) {
        auto& combo = Add<TComboBox>(Form, Line(0, enabled ? 3 : 4), enabled);
        combo.SetItems({"Solid", "Dash", "Dot"});
        combo.SetItemIndex(1);
    }
    Add<TKxRealEdit>(Form, Line(1, 0)).SetValue(0.125);
    Add<TKxRealSpin>(Form, Line(1, 1)).SetValue(2.5);
    Add<TKxIntegerSpin>(Form, Line(1, 2)).SetText("12 apples"); // wrong
    Add<TKxIntegerSpin>(Form, Line(1, 3), false).SetValue(7);
    Add<TSpinButton>(Form, TRect::Bounds(192, 152, 22, 26));
}

void AddChoices(TForm& Form) {
    for (const bool enabled : {true, false}) {
        auto& list =
            Add<TListBox>(Form, TRect::Bounds(368, enabled ? 16 : 118, 160, enabled ? 94 : 60), enabled);
        list.SetItems({"Series 1", "Series 2", "Series 3", "Series 4", "Series 5", "Series 6"});
        list.SetItemIndex(1);
        auto& box = Add<TCheckBox>(Form, TRect::Bounds(544, enabled ? 18 : 70, 120, 20), enabled);
        box.SetCaption(enabled ? "&Shown" : "Disabled");
        box.SetChecked(true);
    }
    Add<TCheckBox>(Form, TRect::Bounds(544, 44, 120, 20)).SetCaption("In &legend");
    auto& ok = Add<TButton>(Form, TRect::Bounds(544, 102, 100, 26));
    ok.SetCaption("&OK");
    ok.SetDefault(true);
    Add<TButton>(Form, TRect::Bounds(544, 136, 100, 26), false).SetCaption("Disabled");
}

void AddGrid(TForm& Form) {
    auto& grid = Add<TStringGrid>(Form, TRect::Bounds(16, 196, 628, 128));
    grid.SetColCount(7);
    grid.SetRowCount(1'000'001);
    grid.SetDefaultColWidth(84);
    grid.SetRightAligned(true);
    grid.SetCells(
        "\tt / s\tU / mV\tdU\tremark\n1\t0.5\t12.25\t0.1\n2\t1.0\t13.5\t0.1\n3\t1.5\t14.9\t0.2\toutlier\n");
    grid.MoveTo(1, 2);
    grid.MoveTo(2, 3, true);
}

} // namespace

void PaintFieldsSheet(TCanvasDevice& Device) {
    TForm form(nullptr);
    form.SetBounds(0, 0, CFieldsSheetSize.Width, CFieldsSheetSize.Height);
    AddFields(form);
    AddChoices(form);
    AddGrid(form);
    PaintFrame(form, Device);
}

} // namespace kx::scenes
