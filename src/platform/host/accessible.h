#pragma once
// What those hear who do not see: the parts of a window as text.

#include <kxgraph/platform/drawing/geometry.h>

#include <string>
#include <vector>

namespace kx {

enum class TAccessibleRole {
    Window,
    Panel,
    Graph,
    Axis,
    Series,
    Text,
    Edit,
    Button,
    CheckBox,
    List,
    ListItem,
    ComboBox,
    SpinBox,
    Table,
    Cell
};

/// A part of a window, with the parts that lie in it. A value: it tells how things were when it was asked
/// for.
struct TAccessiblePart {
    TAccessibleRole Role = TAccessibleRole::Panel;
    std::string Name;        ///< what it is called, e.g. its title
    std::string Value;       ///< what it shows, e.g. a range or a result
    std::string Description; ///< more about it
    TRect Bounds;            ///< pixels of the part that it lies in
    bool Focused = false;
    bool Enabled = true;
    bool Checked = false;  ///< of a check box, or the chosen item of a list
    bool Editable = false; ///< whether the user can change Value
    int Caret = -1;        ///< of a text that is edited: where in Value, in characters; -1: none
    int Anchor = -1;       ///< the other end of what is selected
    std::vector<TAccessiblePart> Parts = {};
};

} // namespace kx
