#include <kxgraph/platform/widgets/tabtext.h>

#include <algorithm>

namespace kx {

namespace {

void AppendCell(std::string& Text, std::string_view Cell) {
    if (Cell.find_first_of("\t\n\r\"") == Cell.npos) {
        Text += Cell;
        return;
    }
    Text += '"';
    for (const char c : Cell) Text.append(c == '"' ? 2 : 1, c);
    Text += '"';
}

/// Reads a cell from the front of Text.
std::string TakeCell(std::string_view& Text) {
    std::string cell;
    if (!Text.starts_with('"')) {
        const std::size_t end = std::min(Text.find_first_of("\t\r\n"), Text.size());
        cell = Text.substr(0, end);
        Text.remove_prefix(end);
        return cell;
    }
    Text.remove_prefix(1);
    while (!Text.empty()) {
        const bool isQuote = Text[0] == '"', isDoubled = isQuote && Text.starts_with("\"\"");
        if (isQuote && !isDoubled) break;
        cell += Text[0];
        Text.remove_prefix(isDoubled ? 2 : 1);
    }
    if (!Text.empty()) Text.remove_prefix(1);
    const std::size_t rest = std::min(Text.find_first_of("\t\r\n"), Text.size()); // behind the quote
    cell += Text.substr(0, rest);
    Text.remove_prefix(rest);
    return cell;
}

} // namespace

std::string TabTextOf(const std::vector<std::vector<std::string>>& Rows) {
    std::string text;
    for (const auto& row : Rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) text += '\t';
            AppendCell(text, row[i]);
        }
        text += '\n';
    }
    return text;
}

std::vector<std::vector<std::string>> ReadTabText(std::string_view Text) {
    std::vector<std::vector<std::string>> rows;
    while (!Text.empty()) {
        auto& row = rows.emplace_back();
        row.push_back(TakeCell(Text));
        while (Text.starts_with('\t')) {
            Text.remove_prefix(1);
            row.push_back(TakeCell(Text));
        }
        if (Text.starts_with('\r')) Text.remove_prefix(1);
        if (Text.starts_with('\n')) Text.remove_prefix(1);
    }
    return rows;
}

} // namespace kx
