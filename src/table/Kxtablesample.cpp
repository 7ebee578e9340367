#include <kxgraph/table/Kxtablesample.h>

#include <kxgraph/platform/text/text.h>
#include <kxgraph/table/Kxtablenumber.h>

namespace kx {

std::vector<TKxSampleRow> SampleRows(TKxRowReader& Rows, std::size_t Most, std::size_t Bytes) {
    std::vector<TKxSampleRow> sample;
    const std::size_t begin = Rows.Position();
    while (sample.size() < Most && (sample.size() < 2 || Rows.Position() - begin < Bytes) && Rows.NextRow()) {
        TKxSampleRow row;
        row.At = Rows.RowPosition();
        row.Line = Rows.Line();
        row.AfterGap = Rows.IsAfterGap();
        for (std::string_view cell; Rows.NextCell(cell);)
            row.Cells.push_back({std::string(Trimmed(cell)), Rows.WasQuoted()});
        row.NextAt = Rows.Position();
        row.NextLine = Rows.NextLine();
        sample.push_back(std::move(row));
    }
    return sample;
}

bool IsSeveralNumbers(std::string_view Cell) {
    Cell = Trimmed(Cell);
    if (Cell.find(' ') == std::string_view::npos) return false;
    TKxRowReader parts(Cell, 0, 1, TKxSeparator::Blanks);
    bool numbers = parts.NextRow();
    for (std::string_view part; numbers && parts.NextCell(part);)
        numbers = ParseNumber(part, false).has_value();
    return numbers;
}

} // namespace kx
