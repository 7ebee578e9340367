#pragma once
// Walks a table's text row by row and cell by cell.

#include <kxgraph/platform/text/decimals.h>

#include <array>
#include <string>
#include <string_view>

namespace kx {

/// What stands between the cells of a row.
enum class TKxSeparator { Comma, Semicolon, Tab, Blanks };

/// Reads rows of cells, skipping comments (lines that begin with a comment sign), empty lines and lines of a
/// lone '&'. Cells are views into the text, which must outlive the reader, or into a buffer of the reader
/// where quotes had to be taken away; they are valid until the next cell. Raises nothing: what a cell holds,
/// and whether rows are equally long, is for the caller to judge.
class TKxRowReader {
public:
    /// At is where the first row begins, Line the number of that line, from 1; Comments are the comment
    /// signs.
    TKxRowReader(std::string_view Text, std::size_t At, long Line, TKxSeparator Separator,
                 std::string_view Comments = "#");

    /// Goes to the next row; false at the end of the text.
    bool NextRow();
    /// The next cell of the row; false behind the last one.
    bool NextCell(std::string_view& Cell);
    /// The next cell if it is a plain number, in point form and without quotes; false leaves it to NextCell.
    bool NextNumber(double& Value);
    /// Whether the cell that NextCell has read was quoted.
    bool WasQuoted() const { return FWasQuoted; }
    /// Whether an empty line or a lone '&' stands between this row and the one before.
    bool IsAfterGap() const { return FAfterGap; }
    /// Whether the text ended inside of quotes.
    bool HasOpenQuote() const { return FOpenQuote; }
    /// Line of the present row, 1-based.
    long Line() const { return FRowLine; }
    /// Where the present row begins.
    std::size_t RowPosition() const { return static_cast<std::size_t>(FRowBegin - FBegin); }
    /// Where the next row would begin, and its line.
    std::size_t Position() const { return static_cast<std::size_t>(FPos - FBegin); }
    long NextLine() const { return FLine; }

private:
    /// What a character means outside quotes.
    enum TKind : char { Other, Blank, Separates, EndsLine };

    TKind KindAt(const char* Pos) const { return FKinds[static_cast<unsigned char>(*Pos)]; }
    bool AtLineEnd() const { return FPos == FEnd || KindAt(FPos) == EndsLine; }
    bool SkipEmptyAndComments();
    bool IsCommentOrGap();
    void EndCell();
    void EndLine();
    void EndRow();
    std::string_view QuotedCell();
    std::string_view PlainCell();
    /// Goes to the first character that is no blank and, where blanks separate, no separator.
    void SkipBlanks();

    const char* FPos;
    const char* FEnd;
    const char* FBegin;
    const char* FRowBegin;
    long FLine;
    long FRowLine = 0;
    bool FByBlanks;
    bool FRowEnded = true;
    bool FOpenQuote = false;
    bool FWasQuoted = false;
    bool FAfterGap = false;
    std::array<TKind, 256> FKinds{};
    std::array<bool, 256> FBeginsNoRow{}; ///< where it is the first character of a line, perhaps
    std::string FBuffer;
};

// What is called for every cell stands here, to be inlined.

inline void TKxRowReader::SkipBlanks() {
    const TKind blank = FByBlanks ? Separates : Blank;
    while (FPos != FEnd && KindAt(FPos) == blank) ++FPos;
}

inline void TKxRowReader::EndLine() {
    if (FPos == FEnd) return;
    if (*FPos == '\r') ++FPos;
    if (FPos != FEnd && *FPos == '\n') ++FPos;
    ++FLine;
}

inline std::string_view TKxRowReader::PlainCell() {
    const char* begin = FPos;
    while (FPos != FEnd && KindAt(FPos) < Separates) ++FPos;
    return {begin, static_cast<std::size_t>(FPos - begin)};
}

inline bool TKxRowReader::NextCell(std::string_view& Cell) {
    if (FRowEnded) return false;
    SkipBlanks();
    FWasQuoted = FPos != FEnd && *FPos == '"';
    Cell = FWasQuoted ? QuotedCell() : PlainCell();
    EndCell();
    return true;
}

inline bool TKxRowReader::NextNumber(double& Value) {
    if (FRowEnded) return false;
    SkipBlanks();
    // No separator is part of a number, so there is no need to look for the cell's end first.
    const auto [stop, error] = ReadDecimal(FPos, FEnd, Value);
    if (error != std::errc() || (stop != FEnd && KindAt(stop) < Separates)) return false;
    FPos = stop;
    EndCell();
    return true;
}

inline void TKxRowReader::EndCell() {
    if (FByBlanks) SkipBlanks();
    if (AtLineEnd()) {
        EndLine();
        FRowEnded = true;
    } else if (!FByBlanks) {
        ++FPos; // the separator: another cell follows, if an empty one
    }
}

} // namespace kx
