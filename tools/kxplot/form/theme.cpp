#include "kxplot/form/theme.h"

#include "kxplot/options/usageerror.h"

#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/suggest.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>

namespace kxplot {

using namespace kx;

TKxTheme ThemeCalled(const std::string& Name) {
    if (Name.empty()) return TKxTheme();
    const auto names = TKxTheme::Names();
    if (std::any_of(names.begin(), names.end(), [&](auto Known) { return SameText(Known, Name); }))
        return TKxTheme::Named(Name);
    if (FileExists(Name)) return TKxTheme::Parse(ReadFile(Name), Escaped(Name));
    std::string list;
    for (const auto known : names) (list += list.empty() ? "" : ", ") += known;
    FailUsage("--theme", Name, "is neither a file nor one of " + list + DidYouMean(Name, names));
}

} // namespace kxplot
