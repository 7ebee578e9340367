#include <kxgraph/table/Kxtableseparator.h>

#include <kxgraph/table/Kxtablenumber.h>

#include <algorithm>
#include <vector>

namespace kx {

namespace {

constexpr int CSampleRows = 50;

/// Cells of the first rows when read with Separator; none where tabs and blanks are mixed: then both are
/// blanks.
std::vector<int> SampleCounts(const TKxTableLines& Lines, TKxSeparator Separator) {
    TKxRowReader rows = Lines.Rows(Separator);
    std::vector<int> counts;
    std::string_view cell;
    while (static_cast<int>(counts.size()) < CSampleRows && rows.NextRow()) {
        int count = 0;
        for (; rows.NextCell(cell); ++count)
            if (Separator == TKxSeparator::Tab && IsSeveralNumbers(cell)) return {};
        counts.push_back(count);
    }
    return counts;
}

bool AllEqualAndSeveral(const std::vector<int>& Counts) {
    return !Counts.empty() && Counts.front() > 1 &&
           std::all_of(Counts.begin(), Counts.end(), [&](int C) { return C == Counts.front(); });
}

bool SeveralInMostRows(const std::vector<int>& Counts) {
    return 2 * std::count_if(Counts.begin(), Counts.end(), [](int C) { return C > 1; }) >
           std::ptrdiff_t(Counts.size());
}

bool SeveralInTheFirstRow(const std::vector<int>& Counts) { return !Counts.empty() && Counts.front() > 1; }

bool HasComma(const TKxSampleCell& Cell) { return Cell.Text.find(',') != std::string::npos; }
bool HasPoint(const TKxSampleCell& Cell) { return Cell.Text.find('.') != std::string::npos; }

/// Whether rows of numbers are parted by blanks and have decimal commas, "0,5 1,25": no comma among them can
/// be a separator.
bool IsCommasInBlanks(const TKxTableLines& Lines) {
    TKxRowReader reader = Lines.Rows(TKxSeparator::Blanks);
    const auto rows = SampleRows(reader, CSampleRows);
    bool commas = false;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto& cells = rows[i].Cells;
        if (cells.size() < 2 || cells.size() != rows.front().Cells.size()) return false;
        const bool numbers = std::ranges::all_of(cells, [](const TKxSampleCell& Cell) {
            return !HasPoint(Cell) && ParseNumber(Cell.Text, true).has_value();
        });
        if (!numbers && (i > 0 || std::ranges::any_of(cells, HasComma))) return false;
        commas |= numbers && std::ranges::any_of(cells, HasComma);
    }
    return commas;
}

} // namespace

std::string TKxTableLines::CommentsBeside(TKxSeparator Separator) const {
    std::string signs = Comments;
    if (Separator == TKxSeparator::Semicolon) std::erase(signs, ';');
    return signs;
}

TKxRowReader TKxTableLines::Rows(TKxSeparator Separator) const {
    return TKxRowReader(Text, At, Line, Separator, CommentsBeside(Separator));
}

bool HasDecimalComma(TKxSeparator Separator, std::span<const TKxSampleRow> Rows,
                     const TKxTableFormat& Format) {
    if (Format.DecimalSign) return *Format.DecimalSign == ',';
    if (Separator == TKxSeparator::Comma) return false;
    if (Separator != TKxSeparator::Blanks) return true;
    bool commas = false;
    for (const auto& row : Rows)
        for (const auto& cell : row.Cells) {
            if (HasPoint(cell) && ParseNumber(cell.Text, false)) return false;
            commas |= row.Cells.size() > 1 && HasComma(cell) && ParseNumber(cell.Text, true) &&
                      !TellsGrouping(cell.Text, TKxGrouping::ByComma).IsGrouped;
        }
    return commas;
}

TKxCellSigns FindCellSigns(const TKxTableLines& Lines, const TKxTableFormat& Format) {
    if (Format.DecimalSign != '.' && IsCommasInBlanks(Lines)) {
        TKxRowReader reader = Lines.Rows(TKxSeparator::Blanks);
        return {TKxSeparator::Blanks,
                HasDecimalComma(TKxSeparator::Blanks, SampleRows(reader, CSampleRows), Format)};
    }
    for (const auto fits : {AllEqualAndSeveral, SeveralInMostRows, SeveralInTheFirstRow})
        for (const TKxSeparator candidate : CSeparators)
            if (fits(SampleCounts(Lines, candidate))) {
                TKxRowReader reader = Lines.Rows(candidate);
                return {candidate, HasDecimalComma(candidate, SampleRows(reader, CSampleRows), Format)};
            }
    return {TKxSeparator::Blanks, Format.DecimalSign == ','};
}

} // namespace kx
