#include <kxgraph/editing/Kxeditingclasses.h>

#include <kxgraph/editing/Kxcaptionbar.h>
#include <kxgraph/editing/Kxcaptionedit.h>
#include <kxgraph/editing/Kxcolorpicker.h>
#include <kxgraph/editing/Kxnumberedit.h>
#include <kxgraph/editing/Kxpickers.h>
#include <kxgraph/platform/objects/classes.h>

namespace kx {

namespace {

/// The list and the combo of a kind of samples.
template <class TKind>
void RegisterPickers() {
    RegisterClass<TKxPicker<TKind, TCustomListBox>>(TKind::CListName, CGeneralPage);
    RegisterClass<TKxPicker<TKind, TCustomComboBox>>(TKind::CComboName, CGeneralPage);
}

} // namespace

void RegisterEditingClasses() {
    RegisterClass<TKxCaptionEdit>("TKxCaptionEdit", CGeneralPage);
    RegisterClass<TKxCaptionBar>("TKxCaptionBar", CGeneralPage);
    RegisterPickers<TKxBrushStyles>();
    RegisterPickers<TKxLineStyles>();
    RegisterPickers<TKxLineWidths>();
    RegisterPickers<TKxPointSymbols>();
    RegisterClass<TKxColorPicker>("TKxColorPicker", CGeneralPage);
    RegisterClass<TKxRealEdit>("TKxRealEdit", CGeneralPage);
    RegisterClass<TKxRealSpin>("TKxRealSpin", CGeneralPage);
    RegisterClass<TKxIntegerEdit>("TKxIntegerEdit", CGeneralPage);
    RegisterClass<TKxIntegerSpin>("TKxIntegerSpin", CGeneralPage);
}

} // namespace kx
