#pragma once
// How a table is written: what a caller says about it, and what was found out by looking.

#include <kxgraph/table/Kxtabledates.h>
#include <kxgraph/table/Kxtablerows.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kx {

/// Whether the first row is a header. Guess: it is one when any of its cells is a text that stands over
/// numbers, dates or nothing; a row whose texts stand in columns of texts is data.
enum class TKxHeaderRow { Guess, Present, Absent };

/// What a caller knows; everything else is found out by looking.
struct TKxTableFormat {
    TKxHeaderRow Header = TKxHeaderRow::Guess;
    /// So many lines stand before the table; without it they are found.
    std::optional<int> Skip;
    /// Empty lines, and lines of a lone '&', part the rows into blocks: a row of gaps is read between them.
    bool PartBlocks = false;
    /// Only this block is read, from 1.
    std::optional<int> Block;
    std::optional<TKxDateOrder> DateOrder;
    /// '.' or ','; the other one then groups thousands.
    std::optional<char> DecimalSign;
    /// Whole cells that stand for no value, beside those that always do (TKxCells).
    std::vector<std::string> Missing;
};

/// What the cells of a column are that are not empty.
enum class TKxColumnKind { Empty, Numbers, Dates, Texts };

/// What was found out. Lines are numbered from 1, 0 is none; texts are UTF-8.
struct TKxTableShape {
    bool WasUtf16 = false;
    TKxSeparator Separator = TKxSeparator::Blanks;
    bool DecimalComma = false;
    std::string Comments = "#"; ///< signs that begin lines that are no rows
    std::vector<std::string> Headers, Units;
    std::vector<TKxColumnKind> Kinds; ///< one a column
    long FirstLine = 1;               ///< what stands above is a preamble
    bool HasPreamble = false;
    long HeaderLine = 0, UnitsLine = 0;
    bool IsHeaderComment = false; ///< it stands in a comment
    bool IsHeaderShort = false;   ///< it has no cell for the first column, which holds names of the rows
    bool IsDoubleSpaced = false;  ///< empty lines stand between all rows and part nothing
    std::size_t BodyAt = 0;       ///< where the first row below the header begins
    long BodyLine = 1;            ///< its number in the file
};

} // namespace kx
