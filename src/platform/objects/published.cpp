#include <kxgraph/platform/objects/published.h>

#include <kxgraph/platform/base/exceptions.h>

namespace kx {

void detail::RaiseWrongClass(std::string_view Name, std::string_view ClassName) {
    throw EPropertyError(std::string(Name) + " must be a " + std::string(ClassName));
}

} // namespace kx
