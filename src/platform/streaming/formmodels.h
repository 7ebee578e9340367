#pragma once
// Which registered class a component is of, and what unchanged ones of that class are like: what a form need
// not hold, and an inspector need not show.

#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/objects/component.h>

#include <memory>
#include <typeindex>
#include <unordered_map>

namespace kx {

/// Keeps one unchanged component, without owner, of each class that was asked for.
class TFormModels {
public:
    struct TModel {
        const TComponentClass* Class; ///< null where no class of the component is registered
        const TComponent* Fresh;
    };
    /// The most derived of the registered classes that Component is of.
    TModel Of(const TComponent& Component);

private:
    const TComponent& FreshOf(const TComponentClass& Class);

    std::unordered_map<std::type_index, TModel> FModels;
    std::unordered_map<const TComponentClass*, std::unique_ptr<TComponent>> FFresh;
};

} // namespace kx
