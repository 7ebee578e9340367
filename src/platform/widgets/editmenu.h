#pragma once
// The menu of what is edited as text.

#include <kxgraph/platform/host/hostmenu.h>
#include <kxgraph/platform/objects/component.h>

#include <array>
#include <string_view>

namespace kx {

enum class TEditCommand { Undo, Redo, Cut, Copy, Paste, Delete, SelectAll };

/// What a field has to say to the commands of its menu.
class TEditCommands {
public:
    /// Whether it would do anything now.
    virtual bool CanEdit(TEditCommand Command) const = 0;
    virtual void EditBy(TEditCommand Command) = 0;

protected:
    ~TEditCommands() = default;
    /// What follows from what most fields know of themselves.
    struct TState {
        bool CanChange, CanUndo, CanRedo;
        int Length, Selected; ///< characters
    };
    static bool CanEdit(TEditCommand Command, const TState& State);
};

/// The menu of Field, which is Commands as well. It may go before an item is picked.
THostMenu MakeEditMenu(TComponent& Field, TEditCommands& Commands);

} // namespace kx
