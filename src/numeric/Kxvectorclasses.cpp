#include <kxgraph/numeric/Kxvectorclasses.h>

#include <kxgraph/numeric/Kxdbvector.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/objects/classes.h>

namespace kx {

void RegisterVectorClasses() {
    RegisterClass<TKxRealVector>("TKxRealVector", CGeneralPage);
    RegisterClass<TKxLiveVector>("TKxLiveVector", CGeneralPage);
    RegisterClass<TKxDBVector>("TKxDBVector", CGeneralPage);
}

} // namespace kx
