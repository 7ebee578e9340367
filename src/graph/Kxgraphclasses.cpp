#include <kxgraph/graph/Kxgraphclasses.h>

#include <kxgraph/graph/Kxaxis.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/platform/objects/classes.h>

namespace kx {

void RegisterGraphClasses() {
    RegisterClass<TKx2DGraph>("TKx2DGraph", CGraphPage);
    RegisterClass<TKxAxis>("TKxAxis", CGraphPage);
}

} // namespace kx
