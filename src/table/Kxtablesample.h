#pragma once
// The first rows of a table, kept cell by cell to be looked at.

#include <kxgraph/table/Kxtablerows.h>

#include <cstddef>
#include <string>
#include <vector>

namespace kx {

struct TKxSampleCell {
    std::string Text; ///< without blanks around it
    bool Quoted = false;
};

struct TKxSampleRow {
    std::vector<TKxSampleCell> Cells;
    std::size_t At = 0; ///< where it begins
    long Line = 0;
    std::size_t NextAt = 0; ///< where the next row would begin
    long NextLine = 0;
    bool AfterGap = false;
};

/// The next rows, Most at most, and no more once they take Bytes.
std::vector<TKxSampleRow> SampleRows(TKxRowReader& Rows, std::size_t Most, std::size_t Bytes = 1 << 18);

/// Whether Cell is several numbers with blanks between them.
bool IsSeveralNumbers(std::string_view Cell);

} // namespace kx
