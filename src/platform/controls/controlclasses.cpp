#include <kxgraph/platform/controls/controlclasses.h>

#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/controls/popupmenu.h>
#include <kxgraph/platform/host/timer.h>
#include <kxgraph/platform/objects/classes.h>

namespace kx {

void RegisterControlClasses() {
    RegisterClass<TForm>("TForm");
    RegisterClass<TMenuItem>("TMenuItem", CGeneralPage);
    RegisterClass<TCustomControl>("TCustomControl");
    RegisterClass<TPopupMenu>("TPopupMenu", CGeneralPage);
    RegisterClass<TTimer>("TTimer", CGeneralPage);
}

} // namespace kx
