#pragma once
// Menus, as a host shows them.

#include <functional>
#include <string>
#include <vector>

namespace kx {

/// One line of a menu. An ampersand in the caption stands before the letter that picks it; two are one.
struct THostMenuItem {
    std::string Caption;
    std::string ShortCut; ///< shown beside the caption; does nothing
    bool Checked = false;
    bool Enabled = true;
    bool Separator = false;
    std::vector<THostMenuItem> Items = {}; ///< of the menu that it opens; such an item is not picked itself
    std::function<void()> Pick = {};
};
using THostMenu = std::vector<THostMenuItem>;

} // namespace kx
