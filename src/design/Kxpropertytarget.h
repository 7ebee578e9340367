#pragma once
// A property of one component, reached by a way of rows; what it has when nobody has changed it, as form
// files see it, and how it gets there again.

#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/streaming/formmodels.h>

#include <string>
#include <vector>

namespace kx {

struct TKxPropertyTarget {
    TComponentRef<TComponent> Component;
    std::vector<const TProperty*> Way; ///< rows of sub-objects, the property last

    const TProperty& Row() const { return *Way.back(); }
    /// Which has the property. The component must live.
    TPersistent& Object() const { return ObjectIn(*Component.Get()); }
    /// The same in another component of the class.
    TPersistent& ObjectIn(const TComponent& Other) const;
    /// "LineStyle.Color".
    std::string GetPath() const;
    /// An event whose handler this program has not got is the name of that, a text.
    TPropertyValue Get() const;
    /// Takes what Get returns.
    void Set(const TPropertyValue& Value, TFormModels& Models) const;

    /// Whether a form file would not hold the property.
    bool IsDefault(TFormModels& Models) const;
    /// Gives it what an unchanged component has, or sets back the flag by which it follows another one.
    /// Raises EPropertyError where nobody knows that: no class of the component is registered.
    void Reset(TFormModels& Models) const;

private:
    TPropertyValue UnchangedIn(TFormModels& Models) const;
    void ResetParts(TFormModels& Models) const;
};

/// Whether two values of one property are the same, handlers as far as it can be told.
bool IsSameValue(const TPropertyValue& A, const TPropertyValue& B);

} // namespace kx
