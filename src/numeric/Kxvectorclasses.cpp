#include <kxgraph/numeric/Kxvectorclasses.h>

#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/objects/classes.h>

namespace kx {

void RegisterVectorClasses() {
    RegisterClass<TKxRealVector>("TKxRealVector", CGeneralPage);
    RegisterClass<TKxLiveVector>("TKxLiveVector", CGeneralPage);
}

} // namespace kx
