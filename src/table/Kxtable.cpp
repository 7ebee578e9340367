#include <kxgraph/table/Kxtable.h>

#include <kxgraph/platform/text/text.h>
#include <kxgraph/table/Kxtablenumber.h>
#include <kxgraph/table/Kxtablerows.h>

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

namespace kx {

namespace {

constexpr std::string_view CByteOrderMark = "\xEF\xBB\xBF";
constexpr int CSampleRows = 50;

bool IsEmptyCell(std::string_view Cell) { return Trimmed(Cell).empty(); }

std::string Quoted(std::string_view Text) { return "'" + Abridged(Trimmed(Text)) + "'"; }

/// Whether Cell is several numbers with blanks between them.
bool IsSeveralNumbers(std::string_view Cell) {
    Cell = Trimmed(Cell);
    if (Cell.find(' ') == std::string_view::npos) return false;
    TKxRowReader parts(Cell, 0, 1, TKxSeparator::Blanks);
    bool numbers = parts.NextRow();
    for (std::string_view part; numbers && parts.NextCell(part);)
        numbers = ParseNumber(part, false).has_value();
    return numbers;
}

/// Cells of the first rows when read with Separator; none where tabs and blanks are mixed: then both are
/// blanks.
std::vector<int> SampleCounts(std::string_view Text, TKxSeparator Separator) {
    TKxRowReader rows(Text, 0, 1, Separator);
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

} // namespace

/// What the cells of a column are that are not empty.
class TKxTable::TColumnLook {
public:
    void Add(bool IsNumber) {
        if (FCount++ == 0)
            FFirstIsNumber = IsNumber;
        else
            FBalance += IsNumber ? 1 : -1;
    }
    /// Whether more cells would hardly change the answer.
    bool IsDecided() const { return FCount > 0 && (FFirstIsNumber || FCount > CSampleRows); }
    TKind Kind() const {
        if (FCount == 0) return TKind::Empty;
        return FFirstIsNumber || FBalance > 0 ? TKind::Numbers : TKind::Texts;
    }

private:
    int FCount = 0, FBalance = 0; // behind the first one: how many more are numbers than texts
    bool FFirstIsNumber = false;
};

TKxTable::TKxTable(std::string_view Text, std::string Name, TKxHeaderRow Header)
    : FText(Text), FName(std::move(Name)) {
    if (FText.substr(0, CByteOrderMark.size()) == CByteOrderMark) FText.remove_prefix(CByteOrderMark.size());
    FindSeparator();
    ReadHead(Header);
}

void TKxTable::Fail(long Line, const std::string& What) const {
    throw ETableError(Escaped(FName) + (Line > 0 ? ":" + std::to_string(Line) : "") + ": " + What);
}

void TKxTable::FailInRow(std::size_t Row, const std::string& What) const {
    TKxRowReader rows(FText, FBodyAt, FBodyLine, FSeparator);
    std::string_view cell;
    for (std::size_t i = 0; i <= Row && rows.NextRow(); ++i)
        while (rows.NextCell(cell)) {
        }
    Fail(rows.Line(), What);
}

// The separator that cuts all of the first rows into as many cells; failing that, one that cuts most of them,
// or at least the very first one (the row that differs is told later). A single column has none.
void TKxTable::FindSeparator() {
    constexpr TKxSeparator candidates[] = {TKxSeparator::Tab, TKxSeparator::Semicolon, TKxSeparator::Comma,
                                           TKxSeparator::Blanks};
    for (const auto fits : {AllEqualAndSeveral, SeveralInMostRows, SeveralInTheFirstRow}) {
        for (const TKxSeparator candidate : candidates) {
            if (!fits(SampleCounts(FText, candidate))) continue;
            FSeparator = candidate;
            FDecimalComma = candidate == TKxSeparator::Semicolon || candidate == TKxSeparator::Tab;
            return;
        }
    }
}

void TKxTable::ReadHead(TKxHeaderRow Header) {
    TKxRowReader rows(FText, 0, 1, FSeparator);
    if (!rows.NextRow()) Fail(0, "is empty");
    std::vector<std::string> first;
    for (std::string_view cell; rows.NextCell(cell);) first.emplace_back(Trimmed(cell));
    if (rows.HasOpenQuote()) Fail(rows.Line(), "a quote is not closed");
    if (Header != TKxHeaderRow::Absent) {
        FBodyAt = rows.Position();
        FBodyLine = rows.NextLine();
        const bool hasRows = LookAtColumns(first.size());
        if (Header == TKxHeaderRow::Present || LooksLikeHeader(first)) {
            FHeaders = std::move(first);
            if (!hasRows) Fail(0, "has a header but no rows");
            return;
        }
    }
    FBodyAt = 0;
    FBodyLine = 1;
    LookAtColumns(first.size());
}

bool TKxTable::LooksLikeHeader(const std::vector<std::string>& Row) const {
    for (std::size_t i = 0; i < Row.size(); ++i)
        if (!Row[i].empty() && !ParseNumber(Row[i], FDecimalComma) && FKinds[i] != TKind::Texts) return true;
    return false;
}

// Returns whether there is any row.
bool TKxTable::LookAtColumns(std::size_t Count) {
    TKxRowReader body(FText, FBodyAt, FBodyLine, FSeparator);
    std::vector<TColumnLook> looks(Count);
    std::size_t undecided = Count, rows = 0;
    for (; undecided > 0 && body.NextRow(); ++rows) {
        std::string_view cell;
        for (std::size_t i = 0; body.NextCell(cell) && i < Count; ++i) {
            if (looks[i].IsDecided() || IsEmptyCell(cell)) continue;
            looks[i].Add(ParseNumber(cell, FDecimalComma).has_value());
            undecided -= looks[i].IsDecided();
        }
    }
    FKinds.clear();
    for (const auto& look : looks) FKinds.push_back(look.Kind());
    return rows > 0;
}

std::string TKxTable::GetHeader(int Column) const {
    return HasHeader() ? FHeaders[static_cast<std::size_t>(Column)] : std::string();
}

std::string TKxTable::ColumnName(int Column) const {
    const std::string header = GetHeader(Column);
    return header.empty() ? std::to_string(Column + 1) : Escaped(header);
}

std::string TKxTable::ShownName(int Column) const {
    const std::string header = GetHeader(Column);
    return header.empty() ? std::to_string(Column + 1) : Abridged(header);
}

int TKxTable::FindNumericColumn(const std::string& Column) const {
    int index = static_cast<int>(std::find(FHeaders.begin(), FHeaders.end(), Column) - FHeaders.begin());
    if (!HasHeader() || index == GetColumnCount()) {
        const auto [stop, error] = std::from_chars(Column.data(), Column.data() + Column.size(), index);
        const bool isNumber = error == std::errc() && stop == Column.data() + Column.size();
        if (!isNumber || index < 1 || index > GetColumnCount())
            Fail(0, "has no column " + Quoted(Column) + "; it has " + std::to_string(GetColumnCount()) +
                        (GetColumnCount() == 1 ? " column" : " columns"));
        --index;
    }
    if (!IsNumeric(index)) Fail(0, "column " + ShownName(index) + " is not numeric");
    return index;
}

double TKxTable::Value(std::string_view Cell, std::size_t Column, long Line) const {
    if (const auto value = ParseNumber(Cell, FDecimalComma)) return *value;
    if (!IsEmptyCell(Cell))
        Fail(Line, "column " + ShownName(int(Column)) + ": " + Quoted(Cell) + " is not a number");
    return std::numeric_limits<double>::quiet_NaN();
}

// So many rows that the text may hold, judged by its beginning.
std::size_t TKxTable::ExpectedRows() const {
    const std::string_view body = FText.substr(FBodyAt), sample = body.substr(0, 0x10000);
    const auto lines = std::count(sample.begin(), sample.end(), '\n') + 1;
    return body.size() / (sample.size() / std::size_t(lines) + 1) * 9 / 8 + 16;
}

std::vector<std::vector<double>> TKxTable::ReadColumns(const std::vector<int>& Columns) const {
    std::vector<std::vector<double>> read(FKinds.size());
    std::vector<bool> wanted(FKinds.size());
    const std::size_t expected = ExpectedRows();
    for (const int column : Columns) {
        wanted[std::size_t(column)] = true;
        read[std::size_t(column)].reserve(expected);
    }
    TKxRowReader rows(FText, FBodyAt, FBodyLine, FSeparator);
    std::string_view cell;
    while (rows.NextRow()) {
        std::size_t column = 0;
        for (;; ++column) {
            const bool isWanted = column < read.size() && wanted[column];
            double value = 0;
            if (!isWanted || !rows.NextNumber(value)) {
                if (!rows.NextCell(cell)) break;
                if (isWanted) value = Value(cell, column, rows.Line());
            }
            if (isWanted) read[column].push_back(value);
        }
        if (rows.HasOpenQuote()) Fail(rows.Line(), "a quote is not closed");
        if (column != read.size())
            Fail(rows.Line(), std::to_string(column) + (column == 1 ? " cell" : " cells") +
                                  " where the first row has " + std::to_string(read.size()));
    }
    std::vector<std::vector<double>> values;
    values.reserve(Columns.size());
    for (const int column : Columns) values.push_back(std::move(read[std::size_t(column)]));
    return values;
}

} // namespace kx
