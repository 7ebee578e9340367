#pragma once
// What a designer does with the components of a form, each a step of its history. All leave alone what they
// cannot change; what a component refuses they raise as it did, and nothing has changed.

#include <kxgraph/design/Kxdesigndocument.h>

#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// Where a new component is put: a control in Parent at Pos (its pixels); Size {}: in its own size.
struct TKxDesignPlace {
    TWinControl* Parent = nullptr; ///< null: the form, or the graph that the component belongs to
    TPoint Pos{};
    TSize Size{};
};

/// Makes a component of a registered class (raises EComponentError for any other) and selects it. A graph
/// comes with its axes. What belongs to a graph is bound to it: to the graph at its place, or the one of what
/// is selected, or the only one of the form; a series to its primary axes, a calculated one, or a result
/// label, to the series that is selected or the only one that there is.
TComponent* CreateComponent(TKxDesignDocument& Document, std::string_view ClassName,
                            const TKxDesignPlace& Place = {});

/// What is selected goes, with what stands in it; never the form.
void DeleteSelected(TKxDesignDocument& Document);
/// Raises EComponentError for a name that is taken or none.
void RenameComponent(TKxDesignDocument& Document, TComponent& Component, const std::string& Name);
/// Puts controls into another one, where they were on the form. Those that cannot stand there stay.
void ReparentSelected(TKxDesignDocument& Document, TWinControl& Parent);

/// Controls above, or below, all that stand with them; series are drawn after, or before, all others.
void BringSelectedToFront(TKxDesignDocument& Document);
void SendSelectedToBack(TKxDesignDocument& Document);

/// All controls of the form, or, where a control is selected, all that stand in its parent.
void SelectAll(TKxDesignDocument& Document);
/// Selects the control that the last selected one stands in; what is no control, the form.
void SelectParent(TKxDesignDocument& Document);

/// Components with all that stands in them, without those that stand in another one of them.
std::vector<TComponent*> Outermost(const std::vector<TComponent*>& Components);
/// Component, then what stands in it, and in that, of the components of the form.
std::vector<TComponent*> WithContents(const TKxDesignDocument& Document,
                                      const std::vector<TComponent*>& Components);
/// "Graph1", or "3 components".
std::string ToldNames(const std::vector<TComponent*>& Components);

} // namespace kx
