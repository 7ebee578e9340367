#include <kxgraph/design/Kxgridtext.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/numbertext.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <optional>

namespace kx {

namespace {

std::optional<double> NumberOf(std::string_view Cell) {
    std::string text(Trimmed(Cell));
    if (text.empty() || SameText(text, "nan")) return NAN;
    if (std::ranges::count(text, ',') == 1 && text.find('.') == text.npos)
        std::ranges::replace(text, ',', '.');
    int position = 0;
    const double value = Val(text, position);
    if (position != 0 || std::isinf(value)) return std::nullopt;
    return value;
}

/// All of a text between two separators, and behind the last one.
std::vector<std::string_view> Split(std::string_view Text, char Separator) {
    std::vector<std::string_view> parts;
    for (std::size_t at = 0; at <= Text.size();) {
        const std::size_t end = std::min(Text.find(Separator, at), Text.size());
        parts.push_back(Text.substr(at, end - at));
        at = end + 1;
    }
    return parts;
}

/// Blanks that follow one another are one.
std::vector<std::string_view> CellsOf(std::string_view Line, char Separator) {
    if (Separator != ' ') return Split(Line, Separator);
    std::vector<std::string_view> cells = Split(Trimmed(Line), ' ');
    if (cells.size() > 1) std::erase(cells, std::string_view());
    return cells;
}

std::vector<std::string_view> LinesOf(std::string_view Text) {
    std::vector<std::string_view> lines = Split(Text, '\n');
    for (std::string_view& line : lines)
        if (line.ends_with('\r')) line.remove_suffix(1);
    while (!lines.empty() && Trimmed(lines.back()).empty()) lines.pop_back();
    return lines;
}

bool IsHeader(const std::vector<std::string_view>& Cells) {
    bool hasText = false;
    for (const std::string_view cell : Cells) {
        const auto number = NumberOf(cell);
        if (number && !std::isnan(*number)) return false;
        hasText |= !number;
    }
    return hasText;
}

} // namespace

std::string GridText(double Value) {
    if (std::isnan(Value)) return {};
    char text[32];
    return {text, std::to_chars(text, std::end(text), Value).ptr};
}

double GridValue(std::string_view Text, int Row) {
    if (const auto number = NumberOf(Text)) return *number;
    throw EPropertyError("row " + std::to_string(Row + 1) + ": '" + Abridged(Text) + "' is not a number");
}

std::vector<std::vector<double>> ReadGridText(std::string_view Text) {
    const char separator = Text.find('\t') != Text.npos ? '\t' : Text.find(';') != Text.npos ? ';' : ' ';
    std::vector<std::vector<double>> rows;
    const auto lines = LinesOf(Text);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto cells = CellsOf(lines[i], separator);
        if (i == 0 && lines.size() > 1 && IsHeader(cells)) continue;
        std::vector<double>& row = rows.emplace_back();
        for (const std::string_view cell : cells) row.push_back(GridValue(cell, int(i)));
    }
    return rows;
}

} // namespace kx
