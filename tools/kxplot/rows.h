#pragma once
// Walks a table's text row by row and cell by cell.

#include "kxplot/table.h"

#include <string>
#include <string_view>

namespace kxplot {

/// Reads rows of cells, skipping comments and empty lines. Cells are views into the text, or into a buffer of
/// the reader where quotes had to be taken away; they are valid until the next cell.
class TRowReader {
public:
    TRowReader(std::string_view Text, std::size_t At, long Line, TSeparator Separator)
        : FPos(Text.data() + At), FEnd(Text.data() + Text.size()), FBegin(Text.data()), FLine(Line),
          FSeparator(Separator) {}

    /// Goes to the next row; false at the end of the text.
    bool NextRow();
    /// The next cell of the row; false behind the last one.
    bool NextCell(std::string_view& Cell);
    /// Line of the present row, 1-based.
    long Line() const { return FRowLine; }
    /// Where the next row would begin, and its line.
    std::size_t Position() const { return static_cast<std::size_t>(FPos - FBegin); }
    long NextLine() const { return FLine; }

private:
    bool SkipEmptyAndComments();
    bool AtLineEnd() const { return FPos == FEnd || *FPos == '\n' || *FPos == '\r'; }
    void EndLine();
    void EndRow();
    bool IsSeparator(char C) const;
    std::string_view QuotedCell();
    std::string_view PlainCell();
    void SkipBlanks();

    const char* FPos;
    const char* FEnd;
    const char* FBegin;
    long FLine;
    long FRowLine = 0;
    TSeparator FSeparator;
    bool FRowEnded = true;
    std::string FBuffer;
};

} // namespace kxplot
