#include <kxgraph/platform/streaming/formmodels.h>

#include <typeinfo>

namespace kx {

const TComponent& TFormModels::FreshOf(const TComponentClass& Class) {
    auto& fresh = FFresh[&Class];
    if (!fresh) fresh.reset(Class.Make(nullptr));
    return *fresh;
}

TFormModels::TModel TFormModels::Of(const TComponent& Component) {
    if (const auto known = FModels.find(typeid(Component)); known != FModels.end()) return known->second;
    const TComponentClass* found = nullptr;
    for (const TComponentClass& type : RegisteredClasses())
        if (type.Is(Component) && (!found || found->Is(FreshOf(type)))) found = &type;
    if (!found) return {nullptr, nullptr}; // it may be registered later
    return FModels[typeid(Component)] = {found, &FreshOf(*found)};
}

} // namespace kx
