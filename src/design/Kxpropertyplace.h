#pragma once
// Where an edited property is: in one component or in several at once, of each by the same way of names.
// Reads it, sets it as a step of the history, and knows what it would be if nobody had touched it.

#include <kxgraph/design/Kxdesignchange.h>
#include <kxgraph/design/Kxpropertytarget.h>
#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/streaming/formmodels.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// What all places of one inspector share. Outlives them.
struct TKxDesignContext {
    TKxDesignChange& Change;
    TComponentRef<TComponent> Form{}; ///< owns what can be referred to
    TFormModels Models{};
};

class TKxPropertyPlace {
public:
    using TTarget = TKxPropertyTarget;

    /// At least one target, all with rows of one name and kind. Whoever keeps a place lets it go when one of
    /// the components has gone.
    TKxPropertyPlace(TKxDesignContext& Context, std::vector<TTarget> Targets);

    TKxDesignContext& GetContext() const { return *FContext; }
    const std::vector<TTarget>& GetTargets() const { return FTargets; }
    /// Of the first target, as is the value.
    const TProperty& GetRow() const { return FTargets.front().Row(); }
    TComponent& GetComponent() const { return *FTargets.front().Component.Get(); }
    TPersistent& GetObject() const { return FTargets.front().Object(); }
    TPropertyValue GetValue() const { return FTargets.front().Get(); }
    /// "LineStyle.Color".
    std::string GetPath() const;
    /// What messages and steps of the history call it: "Series1.Color", or the name alone for several.
    std::string GetTold() const;
    /// The component of that name, or the form itself; null when there is none.
    TComponent* FindComponent(std::string_view Name) const;

    /// Whether the components have different values.
    bool IsMixed() const;
    /// Whether no component can be given another value.
    bool IsReadOnly() const { return !GetRow().Set || GetRow().Kind == TPropertyKind::SubObject; }
    /// Whether a form file would not hold it.
    bool IsDefault() const;
    /// Whether Reset knows what to do: a component keeps its name.
    bool CanReset() const;

    /// Sets it everywhere, as one step, or nowhere: what a setter raises passes through and the others are
    /// set back. An analysis that fails for the new value keeps its error for itself.
    /// Successive settings with IsContinued, those of a slider or a spin button, are one step of the history.
    void Set(const TPropertyValue& Value, bool IsContinued = false);
    /// Makes it what an unchanged component has. What follows a flag (Color, ParentColor) follows it again.
    void Reset();
    /// Runs Edit as a step that is called after this property.
    void Run(const std::function<void()>& Edit, bool IsContinued = false);

    /// The property Row of the sub-object that this one is; nothing where not all targets have it.
    std::optional<TKxPropertyPlace> Inner(const TProperty& Row) const;
    /// A property beside this one, of the same object; of the first target alone.
    std::optional<TKxPropertyPlace> Beside(std::string_view Name) const;

private:
    TKxDesignContext* FContext;
    std::vector<TTarget> FTargets;
};

} // namespace kx
