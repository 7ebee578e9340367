#include <kxgraph/table/Kxtablecells.h>

#include <kxgraph/platform/text/text.h>
#include <kxgraph/table/Kxtabledates.h>
#include <kxgraph/table/Kxtablenumber.h>

#include <algorithm>

namespace kx {

bool TKxCells::IsNothing(std::string_view Cell, bool Quoted) const {
    static constexpr std::string_view usual[] = {"NA", "N/A", "-", "?", "*", "."};
    Cell = Trimmed(Cell);
    if (Cell.empty() || std::ranges::find(FMissing, Cell) != FMissing.end()) return true;
    return !Quoted && std::ranges::find(usual, Cell) != std::end(usual);
}

bool TKxCells::HidesNumbers() const {
    return std::ranges::any_of(FMissing, [&](const std::string& Text) { return Number(Text).has_value(); });
}

std::optional<double> TKxCells::Number(std::string_view Cell) const {
    if (const auto value = ParseNumber(Cell, FDecimalComma)) return value;
    return ParseFortranNumber(Cell, FDecimalComma);
}

TKxCellKind TKxCells::Kind(std::string_view Cell, bool Quoted) const {
    if (IsNothing(Cell, Quoted)) return TKxCellKind::Nothing;
    if (Number(Cell)) return TKxCellKind::Number;
    for (const auto grouping : {TKxGrouping::ByComma, TKxGrouping::ByPoint})
        if (TellsGrouping(Cell, grouping).IsGrouped) return TKxCellKind::Number;
    return TKxDateCell::Parse(Cell) ? TKxCellKind::Date : TKxCellKind::Text;
}

} // namespace kx
