#include "kxplot/options/usageerror.h"

#include <kxgraph/platform/text/text.h>

namespace kxplot {

std::string Quoted(std::string_view Text) { return "'" + kx::Abridged(Text) + "'"; }

void FailUsage(const char* Option, std::string_view Text, const std::string& What) {
    throw TUsageError(std::string(Option) + ": " + Quoted(Text) + " " + What);
}

} // namespace kxplot
