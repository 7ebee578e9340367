#include <kxgraph/platform/controls/controlclasses.h>

#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/controls/popupmenu.h>
#include <kxgraph/platform/host/timer.h>
#include <kxgraph/platform/objects/classes.h>

namespace kx {

void RegisterControlClasses() {
    RegisterClass<TForm>("TForm");
    RegisterClass<TMenuItem>("TMenuItem");
    RegisterClass<TCustomControl>("TCustomControl");
    RegisterClass<TPopupMenu>("TPopupMenu");
    RegisterClass<TTimer>("TTimer");
}

} // namespace kx
