#include <kxgraph/design/Kxdesignformula.h>

#include <kxgraph/platform/base/exceptions.h>

namespace kx {

namespace {

TKxDesignFormulaReader Reader = nullptr;

} // namespace

void SetDesignFormulaReader(TKxDesignFormulaReader NewReader) { Reader = NewReader; }

bool CanReadDesignFormulas() { return Reader != nullptr; }

std::unique_ptr<TKxDesignFormula> ReadDesignFormula(const std::string& Text) {
    if (!Reader) throw EPropertyError("this program was built without formulas");
    return Reader(Text);
}

} // namespace kx
