#include <kxgraph/table/Kxtable.h>

#include <kxgraph/platform/text/suggest.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/table/Kxtablelook.h>
#include <kxgraph/table/Kxtablewords.h>

#include <algorithm>
#include <charconv>
#include <utility>

namespace kx {

namespace {

std::string Counted(std::size_t Count, const char* What) {
    return std::to_string(Count) + " " + What + (Count == 1 ? "" : "s");
}

} // namespace

TKxTable::TKxTable(std::string_view Text, std::string Name, TKxTableFormat Format)
    : FText(Text), FName(std::move(Name)), FFormat(std::move(Format)),
      FShape(LookAtTable(FText.Get(), FName, FFormat)) {}

TKxTable::TKxTable(std::string_view Text, std::string Name, TKxTableFormat Format, TKxTableShape Shape)
    : FText(Text), FName(std::move(Name)), FFormat(std::move(Format)), FShape(std::move(Shape)) {}

TKxTable::TKxTable(std::string_view Text, std::string Name, TKxHeaderRow Header)
    : TKxTable(Text, std::move(Name), [&] {
          TKxTableFormat format;
          format.Header = Header;
          return format;
      }()) {}

void TKxTable::Fail(long Line, const std::string& What, TKxTableRemedy Remedy) const {
    FailTable(FName, Line, What, Remedy);
}

void TKxTable::FailInRow(std::size_t Row, const std::string& What) const {
    if (IsGiven()) Fail(0, std::string("row ").append(std::to_string(Row + 1)).append(": ").append(What));
    TKxTableBody rows = Body();
    std::string_view cell;
    for (std::size_t i = 0; rows.NextRow(); ++i) {
        i += rows.BeginsBlock();
        while (rows.Cells().NextCell(cell)) {
        }
        if (i >= Row) break;
    }
    Fail(rows.Cells().Line(), What);
}

std::string TKxTable::ColumnName(int Column) const {
    const std::string header = GetHeader(Column);
    return header.empty() ? std::to_string(Column + 1) : Escaped(header);
}

std::string TKxTable::ShownName(int Column) const {
    const std::string header = GetHeader(Column);
    return header.empty() ? std::to_string(Column + 1) : Abridged(header);
}

int TKxTable::FindColumn(const std::string& Column) const {
    const auto& headers = FShape.Headers;
    const auto header = std::find(headers.begin(), headers.end(), TableTextToUtf8(Column));
    if (header != headers.end()) return static_cast<int>(header - headers.begin());
    if (const int computed = FindComputed(Column); computed >= 0) return computed;
    int index = 0;
    const auto [stop, error] = std::from_chars(Column.data(), Column.data() + Column.size(), index);
    const bool isNumber = error == std::errc() && stop == Column.data() + Column.size();
    if (!isNumber || index < 1 || index > GetColumnCount())
        Fail(0, "has no column " + QuotedCell(Column) + "; it has " +
                    Counted(static_cast<std::size_t>(GetColumnCount()), "column") +
                    DidYouMean(Column, std::vector<std::string_view>(headers.begin(), headers.end())));
    return index - 1;
}

int TKxTable::FindNumericColumn(const std::string& Column) const {
    const int index = FindColumn(Column);
    if (IsNumeric(index) || IsDate(index)) return index;
    if (IsGiven()) Fail(0, "column " + ShownName(index) + " is not numeric", TKxTableRemedy::Column);
    TKxTableBody rows = Body();
    while (rows.NextRow()) {
        std::string_view cell;
        for (int i = 0; i <= index && rows.Cells().NextCell(cell);) ++i;
        if (!Trimmed(cell).empty())
            Fail(rows.Cells().Line(), "column " + ShownName(index) + " is not numeric: " + QuotedCell(cell),
                 TKxTableRemedy::Column);
    }
    Fail(0, "column " + ShownName(index) + " is not numeric", TKxTableRemedy::Column);
}

void TKxTable::CheckRow(const TKxTableBody& Rows, std::size_t Cells) const {
    const long line = Rows.Cells().Line();
    if (Rows.Cells().HasOpenQuote()) Fail(line, "a quote is not closed");
    if (Cells != FShape.Kinds.size())
        Fail(line, Counted(Cells, "cell") + " where the first row has " + std::to_string(FShape.Kinds.size()),
             TKxTableRemedy::Skip);
}

void TKxTable::CheckBlock(const TKxTableBody& Rows) const {
    if (FFormat.Block.value_or(1) > Rows.GetBlocks())
        Fail(0,
             "has no block " + std::to_string(*FFormat.Block) + "; it has " +
                 Counted(static_cast<std::size_t>(Rows.GetBlocks()), "block"),
             TKxTableRemedy::Block);
}

// So many rows that the text may hold, judged by its beginning.
std::size_t TKxTable::ExpectedRows() const {
    const std::string_view body = FText.Get().substr(FShape.BodyAt), sample = body.substr(0, 0x10000);
    const auto lines = std::count(sample.begin(), sample.end(), '\n') + 1;
    return body.size() / (sample.size() / std::size_t(lines) + 1) * 9 / 8 + 16;
}

std::vector<std::string> TKxTable::ReadTexts(int Column) const {
    if (IsGiven()) return FGiven[std::size_t(Column)].Texts;
    std::vector<std::string> texts;
    TKxTableBody rows = Body();
    while (rows.NextRow()) {
        if (rows.BeginsBlock()) texts.emplace_back();
        std::size_t column = 0;
        for (std::string_view cell; rows.Cells().NextCell(cell); ++column)
            if (column == std::size_t(Column)) texts.push_back(TableTextToUtf8(Trimmed(cell)));
        CheckRow(rows, column);
    }
    CheckBlock(rows);
    return texts;
}

} // namespace kx
