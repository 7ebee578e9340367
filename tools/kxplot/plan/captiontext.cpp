#include "kxplot/plan/captiontext.h"

#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace kxplot {

using namespace kx;

std::string PlainText(const TKxCaption& Caption) {
    std::string text;
    for (const auto& run : ParseCaption(Caption).Runs) text += run.Text;
    return Escaped(text);
}

TCutCaption CutAtColon(const std::string& Plain) {
    const auto colon = std::min(Plain.rfind(": "), Plain.size());
    return {Plain.substr(0, colon), Plain.substr(colon)};
}

TKxCaption Closed(const TKxCaption& Caption) {
    constexpr std::string_view letters = "sbiuo+-"; // in the order of TKxCaptionSwitch
    std::array<int, letters.size()> counts{};
    for (const auto& change : ParseCaption(Caption).Switches) ++counts[std::size_t(change.Switch)];
    TKxCaption closed = Caption;
    for (std::size_t k = 0; k < counts.size(); ++k)
        if (counts[k] % 2 != 0) closed += {'\\', letters[k]};
    return closed;
}

} // namespace kxplot
