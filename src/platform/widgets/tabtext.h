#pragma once
// Rows of cells as spreadsheets have them on the clipboard.

#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// Tabs between cells, a line for each row; a cell with a tab, a quote or the end of a line in it stands in
/// quotes, its own ones doubled.
std::string TabTextOf(const std::vector<std::vector<std::string>>& Rows);
/// The rows of such a text; the end of the last line begins no row. A quote that is never closed goes to the
/// end of the text.
std::vector<std::vector<std::string>> ReadTabText(std::string_view Text);

} // namespace kx
