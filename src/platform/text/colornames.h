#pragma once
// Which colours have names, for those who offer them.

#include <string_view>
#include <vector>

namespace kx {

/// All names that ColorFromText knows, clBlack first, then the other colours and the system's.
std::vector<std::string_view> ColorNames();

} // namespace kx
