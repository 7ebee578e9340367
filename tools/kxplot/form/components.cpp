#include "kxplot/form/components.h"

#include "kxplot/methods/formulaline.h"

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/platform/objects/classes.h>

namespace kxplot {

void RegisterComponents() {
    kx::RegisterClass<TFormulaLine>("TKxFittedLine", kx::CGraphPage); // the first of a name stays
    kx::RegisterClasses();
}

} // namespace kxplot
