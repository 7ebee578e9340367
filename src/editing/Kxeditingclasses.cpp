#include <kxgraph/editing/Kxeditingclasses.h>

#include <kxgraph/editing/Kxcaptionbar.h>
#include <kxgraph/editing/Kxcaptionedit.h>
#include <kxgraph/platform/objects/classes.h>

namespace kx {

void RegisterEditingClasses() {
    RegisterClass<TKxCaptionEdit>("TKxCaptionEdit", CGeneralPage);
    RegisterClass<TKxCaptionBar>("TKxCaptionBar", CGeneralPage);
}

} // namespace kx
