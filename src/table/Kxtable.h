#pragma once
// A text table as measuring programs write it: finds out by looking how it is built, and reads the columns
// that are asked for.

#include <kxgraph/table/Kxgivencolumn.h>
#include <kxgraph/table/Kxtablebody.h>
#include <kxgraph/table/Kxtablecolumn.h>
#include <kxgraph/table/Kxtableerror.h>
#include <kxgraph/table/Kxtableformat.h>
#include <kxgraph/table/Kxtabletext.h>

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// Of the values of some columns in a row another one.
using TKxRowFunction = std::function<double(std::span<const double>)>;

/// One table in memory. It is read as a person would: lines that begin with '#', '%', '!', '@' or ';' (where
/// that is no separator) and empty lines count for nothing; a header is found above the numbers, in the last
/// comment, one cell short, or below a preamble, with a row of units under it; quoted cells ("" for a quote
/// in one), CR LF, a byte-order mark, UTF-16 and Latin-1 are understood; with semicolons or tabs also a
/// decimal comma. Cells may be numbers (TKxCells, grouped thousands where the column proves them), dates
/// (TKxDateCell) or texts. What cannot be decided is refused rather than guessed; TKxTableFormat decides it.
/// The text is not copied and no cell is kept: of the whole table the object holds what it found out about
/// its columns, and each ReadColumns goes through the rows again.
///
///     const std::string text = kx::ReadFile("data.csv");
///     const kx::TKxTable table(text, "data.csv");
///     const auto values = table.ReadColumns({table.FindNumericColumn("t"), table.FindNumericColumn("u")});
class TKxTable {
public:
    /// Looks at the head of Text, which must outlive the table. Name stands in messages. Raises ETableError
    /// for a table without rows.
    TKxTable(std::string_view Text, std::string Name, TKxTableFormat Format);
    TKxTable(std::string_view Text, std::string Name, TKxHeaderRow Header = TKxHeaderRow::Guess);
    /// Does not look: Text is written as Shape says, which may be what GetShape has told of another part of
    /// the same table, with BodyAt and BodyLine of this one. It may have no rows.
    TKxTable(std::string_view Text, std::string Name, TKxTableFormat Format, TKxTableShape Shape);
    /// A table of columns that are known with their kinds and values, as a database gives them. What is told
    /// about lines of the text holds for its rows.
    TKxTable(std::vector<TKxGivenColumn> Columns, std::string Name);

    /// Adds a column that Function computes, row by row, from the values of columns of the file, of which
    /// there is one at least. Returns its number: they count on behind those of the file. Header finds it,
    /// but for one of the file's.
    int AddColumn(std::string Header, std::vector<int> From, TKxRowFunction Function);

    const std::string& GetName() const { return FName; }
    /// Whether the kinds of the columns are known, not judged by what cells look like.
    bool IsGiven() const { return !FGiven.empty(); }
    /// What was found out by looking.
    const TKxTableShape& GetShape() const { return FShape; }
    TKxSeparator GetSeparator() const { return FShape.Separator; }
    /// Those of the file.
    int GetColumnCount() const { return static_cast<int>(FShape.Kinds.size()); }
    bool HasHeader() const { return !FShape.Headers.empty(); }
    /// Header text of a column, zero-based; empty without header.
    std::string GetHeader(int Column) const;
    /// What stands below the header in a row of units; empty where there is none, a dash or 1.
    std::string GetUnit(int Column) const;
    /// What the cells of a column are, judged by the first ones.
    TKxColumnKind GetKind(int Column) const;
    bool IsNumeric(int Column) const { return GetKind(Column) == TKxColumnKind::Numbers; }
    bool IsDate(int Column) const { return GetKind(Column) == TKxColumnKind::Dates; }
    /// Whether a column has a header text and no cell that is not empty.
    bool IsWithoutValues(int Column) const {
        return GetKind(Column) == TKxColumnKind::Empty && !GetHeader(Column).empty();
    }
    /// Header text, or the number of a column without one, in characters that can be shown.
    std::string ColumnName(int Column) const;
    /// The same for messages: no longer than 60 characters.
    std::string ShownName(int Column) const;
    /// Zero-based column for a header text or a 1-based number; a header text goes first. Raises ETableError
    /// for a column that the table lacks.
    int FindColumn(const std::string& Column) const;
    /// The same; raises ETableError for one of neither numbers nor dates too.
    int FindNumericColumn(const std::string& Column) const;

    /// The values of some columns of numbers or dates, each named once, row by row; dates are seconds since
    /// 1970-01-01 00:00 UTC. A cell that is empty or stands for no value is a NaN, and so is every cell of
    /// the row between two blocks. Raises ETableError for any other cell, for dates of which nothing tells
    /// whether the day or the month stands first, and for a row with more or fewer cells than the first,
    /// naming its line.
    /// Gaps gets the rows between blocks.
    std::vector<std::vector<double>> ReadColumns(const std::vector<int>& Columns,
                                                 std::vector<std::size_t>* Gaps = nullptr) const;
    /// The cells of a column as UTF-8, without blanks around them; those between blocks are empty. Raises
    /// ETableError for rows as ReadColumns does.
    std::vector<std::string> ReadTexts(int Column) const;

    /// What all cells of a column together tell of its numbers or dates.
    TKxColumnWay LearnWay(int Column) const;
    /// How the table is read, every guess, in sentences without an end: "line 1 is the header".
    std::vector<std::string> Explain() const;

    /// Raises ETableError about a row that ReadColumns has read, zero-based, naming its line.
    [[noreturn]] void FailInRow(std::size_t Row, const std::string& What) const;

private:
    class TReading;
    struct TComputed {
        std::string Header;
        std::vector<int> From;
        TKxRowFunction Function;
    };
    const TComputed* Computed(int Column) const;
    int FindComputed(const std::string& Header) const;
    std::vector<std::vector<double>> ReadFileColumns(const std::vector<int>& Columns,
                                                     std::vector<std::size_t>* Gaps) const;
    TKxTableBody Body() const { return TKxTableBody(FText.Get(), FShape, FFormat); }
    void CheckRow(const TKxTableBody& Rows, std::size_t Cells) const;
    void CheckBlock(const TKxTableBody& Rows) const;
    void ExplainHead(std::vector<std::string>& Sentences) const;
    std::string ExplainColumn(int Column, const std::string& Kind) const;
    std::vector<std::string> ExplainGiven() const;
    std::vector<std::vector<double>> GivenColumns(const std::vector<int>& Columns) const;
    std::size_t ExpectedRows() const;
    [[noreturn]] void Fail(long Line, const std::string& What,
                           TKxTableRemedy Remedy = TKxTableRemedy::None) const;

    TKxTableText FText;
    std::string FName;
    TKxTableFormat FFormat;
    TKxTableShape FShape;
    std::vector<TComputed> FComputed;
    std::vector<TKxGivenColumn> FGiven;
};

} // namespace kx
