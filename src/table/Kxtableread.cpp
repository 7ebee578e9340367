#include <kxgraph/table/Kxtable.h>

#include <kxgraph/table/Kxtablecells.h>
#include <kxgraph/table/Kxtablecolumn.h>

#include <limits>
#include <utility>

namespace kx {

namespace {

constexpr double CNoValue = std::numeric_limits<double>::quiet_NaN();

} // namespace

/// Reads columns, and whatever is odd on a slower way when it is met.
class TKxTable::TReading {
public:
    TReading(const TKxTable& Table, const std::vector<int>& Columns);

    /// All rows; false when the cells behind have told how those in front are to be read, from the beginning.
    bool Read();
    std::vector<std::size_t> TakeGaps() { return std::move(FGaps); }
    std::vector<double> Take(int Column) { return std::move(FColumns[std::size_t(Column)].Values); }

private:
    struct TColumn {
        bool Wanted = false;
        bool Plain = false; ///< what looks like a plain number is one
        std::vector<double> Values;
        TKxColumnWay Way;
    };
    std::size_t ReadRow(TKxTableBody& Rows);
    void AddGaps(std::size_t Row);
    double Value(std::string_view Cell, bool Quoted, std::size_t Column, long Line);
    double Number(std::string_view Cell, bool Quoted, std::size_t Column, long Line);
    double Date(std::string_view Cell, bool Quoted, std::size_t Column, long Line);
    void Learn(std::size_t Column);
    [[noreturn]] void Fail(std::size_t Column, long Line, const std::string& What,
                           TKxTableRemedy Remedy) const;

    const TKxTable& FTable;
    const TKxCells FCells;
    const bool FHidesNumbers;
    bool FBeginsAnew = false;
    std::vector<std::size_t> FGaps;
    std::vector<TColumn> FColumns;
};

TKxTable::TReading::TReading(const TKxTable& Table, const std::vector<int>& Columns)
    : FTable(Table), FCells(Table.FShape.DecimalComma, Table.FFormat.Missing),
      FHidesNumbers(FCells.HidesNumbers()), FColumns(Table.FShape.Kinds.size()) {
    const std::size_t expected = Table.ExpectedRows();
    for (const int index : Columns) {
        TColumn& column = FColumns[std::size_t(index)];
        column.Wanted = true;
        column.Way = TKxColumnWay(Table.FFormat);
        column.Plain = !FHidesNumbers && !Table.IsDate(index) && column.Way.Grouping == TKxGrouping::None;
        column.Values.reserve(expected);
    }
}

// Returns how many cells the row has.
inline std::size_t TKxTable::TReading::ReadRow(TKxTableBody& Rows) {
    TKxRowReader& cells = Rows.Cells();
    std::string_view cell;
    double value = 0;
    const std::size_t count = FColumns.size();
    TColumn* column = FColumns.data();
    std::size_t i = 0;
    for (; i < count; ++i, ++column) {
        if (column->Plain && cells.NextNumber(value)) {
            column->Values.push_back(value);
        } else if (!cells.NextCell(cell)) {
            return i;
        } else if (column->Wanted) {
            column->Values.push_back(Value(cell, cells.WasQuoted(), i, cells.Line()));
        }
    }
    while (cells.NextCell(cell)) ++i;
    return i;
}

bool TKxTable::TReading::Read() {
    FBeginsAnew = false;
    FGaps.clear();
    for (TColumn& column : FColumns) column.Values.clear();
    TKxTableBody rows = FTable.Body();
    for (std::size_t row = 0; rows.NextRow(); ++row) {
        if (rows.BeginsBlock()) AddGaps(row++);
        const std::size_t count = ReadRow(rows);
        if (FBeginsAnew) return false;
        if (count != FColumns.size() || rows.Cells().HasOpenQuote()) FTable.CheckRow(rows, count);
    }
    FTable.CheckBlock(rows);
    return true;
}

void TKxTable::TReading::AddGaps(std::size_t Row) {
    FGaps.push_back(Row);
    for (TColumn& column : FColumns)
        if (column.Wanted) column.Values.push_back(CNoValue);
}

double TKxTable::TReading::Value(std::string_view Cell, bool Quoted, std::size_t Column, long Line) {
    if (FHidesNumbers && FCells.IsNothing(Cell, Quoted)) return CNoValue;
    return FTable.IsDate(int(Column)) ? Date(Cell, Quoted, Column, Line) : Number(Cell, Quoted, Column, Line);
}

double TKxTable::TReading::Number(std::string_view Cell, bool Quoted, std::size_t Column, long Line) {
    TKxColumnWay& way = FColumns[Column].Way;
    if (const auto value =
            way.Grouping == TKxGrouping::None ? FCells.Number(Cell) : ParseGrouped(Cell, way.Grouping))
        return *value;
    if (FCells.IsNothing(Cell, Quoted)) return CNoValue;
    if (!way.IsGroupingKnown && MayBeGrouped(Cell)) {
        Learn(Column);
        FBeginsAnew = way.Grouping != TKxGrouping::None;
        if (FBeginsAnew) return CNoValue;
        Fail(Column, Line, QuotedCell(Cell) + " may hold grouped thousands or decimals",
             TKxTableRemedy::DecimalSign);
    }
    Fail(Column, Line, QuotedCell(Cell) + " is not a number",
         Line == FTable.FShape.BodyLine ? TKxTableRemedy::SkipOrMissing : TKxTableRemedy::Missing);
}

double TKxTable::TReading::Date(std::string_view Cell, bool Quoted, std::size_t Column, long Line) {
    const auto date = TKxDateCell::Parse(Cell);
    if (!date && FCells.IsNothing(Cell, Quoted)) return CNoValue;
    if (!date) Fail(Column, Line, QuotedCell(Cell) + " is not a date", TKxTableRemedy::Missing);
    if (date->KnowsItsOrder()) return date->Seconds(TKxDateOrder::DayMonthYear);
    TKxColumnWay& way = FColumns[Column].Way;
    if (!way.DateOrder) Learn(Column);
    if (!way.DateOrder)
        Fail(Column, Line,
             QuotedCell(Cell) + " may begin with the day or the month, and no date of the column "
                                "tells which",
             TKxTableRemedy::DateOrder);
    if (!date->Allows(*way.DateOrder))
        Fail(Column, Line,
             QuotedCell(Cell) + " is no date when the " + FirstOf(*way.DateOrder) + " comes first",
             TKxTableRemedy::DateOrder);
    return date->Seconds(*way.DateOrder);
}

void TKxTable::TReading::Learn(std::size_t Column) {
    FColumns[Column].Way = FTable.LearnWay(int(Column));
    FColumns[Column].Plain = false;
}

void TKxTable::TReading::Fail(std::size_t Column, long Line, const std::string& What,
                              TKxTableRemedy Remedy) const {
    FTable.Fail(Line, "column " + FTable.ShownName(int(Column)) + ": " + What, Remedy);
}

std::vector<std::vector<double>> TKxTable::ReadFileColumns(const std::vector<int>& Columns,
                                                           std::vector<std::size_t>* Gaps) const {
    if (IsGiven()) return GivenColumns(Columns);
    TReading reading(*this, Columns);
    while (!reading.Read()) {
    }
    std::vector<std::vector<double>> values;
    values.reserve(Columns.size());
    for (const int column : Columns) values.push_back(reading.Take(column));
    if (Gaps) *Gaps = reading.TakeGaps();
    return values;
}

TKxColumnWay TKxTable::LearnWay(int Column) const {
    TKxColumnScan scan(FFormat, FShape.DecimalComma);
    TKxTableBody rows = Body();
    while (rows.NextRow()) {
        std::string_view cell;
        for (int i = 0; rows.Cells().NextCell(cell); ++i)
            if (i == Column) scan.Add(cell, rows.Cells().WasQuoted());
    }
    return scan.Way();
}

} // namespace kx
