#pragma once
// A text table as measuring programs write it: finds out by looking how it is built, and reads the columns
// that are asked for.

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/table/Kxtablerows.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// A table cannot be read; the message begins with the file's name, and the line where there is one.
class ETableError : public Exception {
    using Exception::Exception;
};

/// Whether the first row is a header. Guess: it is one when any of its cells is a text that stands over
/// numbers or over nothing; a row whose texts stand in columns of texts is data.
enum class TKxHeaderRow { Guess, Present, Absent };

/// One table in memory. Lines that begin with '#' and empty lines count for nothing; a byte-order mark, CR LF
/// and quoted cells ("" for a quote in one) are understood; with semicolons or tabs also a decimal comma.
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
    TKxTable(std::string_view Text, std::string Name, TKxHeaderRow Header = TKxHeaderRow::Guess);

    const std::string& GetName() const { return FName; }
    TKxSeparator GetSeparator() const { return FSeparator; }
    int GetColumnCount() const { return static_cast<int>(FKinds.size()); }
    bool HasHeader() const { return !FHeaders.empty(); }
    /// Header text of a column, zero-based; empty without header.
    std::string GetHeader(int Column) const;
    /// Whether the first cell below the header that is not empty is a number, or most of the next ones are: a
    /// text before numbers is no reason to leave a column out, it is told when the column is read.
    bool IsNumeric(int Column) const { return KindOf(Column) == TKind::Numbers; }
    /// Whether a column has a header text and no cell that is not empty.
    bool IsWithoutValues(int Column) const {
        return KindOf(Column) == TKind::Empty && !GetHeader(Column).empty();
    }
    /// Header text, or the number of a column without one, in characters that can be shown.
    std::string ColumnName(int Column) const;
    /// The same for messages: no longer than 60 characters.
    std::string ShownName(int Column) const;
    /// Zero-based column for a header text or a 1-based number; a header text goes first. Raises ETableError
    /// for a column that the table lacks, or one that is not numeric.
    int FindNumericColumn(const std::string& Column) const;

    /// The values of some columns, each named once, row by row; an empty cell is a NaN. Raises ETableError
    /// for a cell that is no number, or a row with more or fewer cells than the first, naming its line.
    std::vector<std::vector<double>> ReadColumns(const std::vector<int>& Columns) const;

    /// Raises ETableError about a row that ReadColumns has read, zero-based, naming its line.
    [[noreturn]] void FailInRow(std::size_t Row, const std::string& What) const;

private:
    enum class TKind { Empty, Numbers, Texts };
    class TColumnLook;
    TKind KindOf(int Column) const { return FKinds[static_cast<std::size_t>(Column)]; }
    void FindSeparator();
    void ReadHead(TKxHeaderRow Header);
    bool LooksLikeHeader(const std::vector<std::string>& Row) const;
    bool LookAtColumns(std::size_t Count);
    double Value(std::string_view Cell, std::size_t Column, long Line) const;
    std::size_t ExpectedRows() const;
    [[noreturn]] void Fail(long Line, const std::string& What) const;

    std::string_view FText;
    std::string FName;
    TKxSeparator FSeparator = TKxSeparator::Blanks;
    bool FDecimalComma = false;
    std::vector<std::string> FHeaders;
    std::vector<TKind> FKinds;
    std::size_t FBodyAt = 0; // where the first row below the header begins
    long FBodyLine = 1;      // its number in the file
};

} // namespace kx
