#include <kxgraph/platform/widgets/widgetclasses.h>

#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/widgets/button.h>
#include <kxgraph/platform/widgets/combobox.h>
#include <kxgraph/platform/widgets/edit.h>
#include <kxgraph/platform/widgets/listbox.h>
#include <kxgraph/platform/widgets/spinbutton.h>
#include <kxgraph/platform/widgets/stringgrid.h>

namespace kx {

void RegisterWidgetClasses() {
    RegisterClass<TEdit>("TEdit", CGeneralPage);
    RegisterClass<TListBox>("TListBox", CGeneralPage);
    RegisterClass<TComboBox>("TComboBox", CGeneralPage);
    RegisterClass<TButton>("TButton", CGeneralPage);
    RegisterClass<TCheckBox>("TCheckBox", CGeneralPage);
    RegisterClass<TSpinButton>("TSpinButton", CGeneralPage);
    RegisterClass<TStringGrid>("TStringGrid", CGeneralPage);
}

} // namespace kx
