#include <kxgraph/platform/host/fontfamilies.h>

#include <kxgraph/platform/host/application.h>

namespace kx {

std::vector<std::string> FontFamilies() {
    if (const auto* host = dynamic_cast<const TFontFamilies*>(&TApplication::Instance().GetHost()))
        return host->FontFamilies();
    return {"Arial", "Courier New", "Symbol", "Times New Roman"};
}

} // namespace kx
