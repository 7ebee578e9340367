#include <kxgraph/platform/widgets/editmenu.h>

#include <kxgraph/platform/host/application.h>

namespace kx {

bool TEditCommands::CanEdit(TEditCommand Command, const TState& State) {
    switch (Command) {
    case TEditCommand::Undo: return State.CanChange && State.CanUndo;
    case TEditCommand::Redo: return State.CanChange && State.CanRedo;
    case TEditCommand::Cut:
    case TEditCommand::Delete: return State.CanChange && State.Selected > 0;
    case TEditCommand::Copy: return State.Selected > 0;
    case TEditCommand::Paste:
        return State.CanChange && !TApplication::Instance().GetHost().PasteText().empty();
    case TEditCommand::SelectAll: return State.Selected < State.Length;
    }
    return false;
}

THostMenu MakeEditMenu(TComponent& Field, TEditCommands& Commands) {
    struct TItem {
        TEditCommand Command;
        const char *Caption, *ShortCut;
        bool EndsGroup = false;
    };
    static constexpr auto items = std::to_array<TItem>({
        {TEditCommand::Undo, "&Undo", "Ctrl+Z"},
        {TEditCommand::Redo, "&Redo", "Ctrl+Y", true},
        {TEditCommand::Cut, "Cu&t", "Ctrl+X"},
        {TEditCommand::Copy, "&Copy", "Ctrl+C"},
        {TEditCommand::Paste, "&Paste", "Ctrl+V"},
        {TEditCommand::Delete, "&Delete", "", true},
        {TEditCommand::SelectAll, "Select &all", "Ctrl+A"},
    });
    THostMenu menu;
    for (const TItem& item : items) {
        const auto pick = [field = TComponentRef<TComponent>(&Field), &Commands, command = item.Command] {
            if (field) Commands.EditBy(command);
        };
        menu.push_back({.Caption = item.Caption,
                        .ShortCut = item.ShortCut,
                        .Enabled = Commands.CanEdit(item.Command),
                        .Pick = pick});
        if (item.EndsGroup) menu.push_back({.Caption = "-", .ShortCut = {}, .Separator = true});
    }
    return menu;
}

} // namespace kx
