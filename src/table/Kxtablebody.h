#pragma once
// Walks the rows of a table below its header, block by block.

#include <kxgraph/table/Kxtableformat.h>

#include <string_view>

namespace kx {

/// The rows of all blocks, or of the one that the format asks for.
class TKxTableBody {
public:
    TKxTableBody(std::string_view Text, const TKxTableShape& Shape, const TKxTableFormat& Format)
        : FRows(Text, Shape.BodyAt, Shape.BodyLine, Shape.Separator, Shape.Comments),
          FWanted(Format.Block.value_or(0)),
          FParts(!Shape.IsDoubleSpaced && (Format.PartBlocks || Format.Block)) {}

    /// Goes to the next row; false behind the last one.
    bool NextRow() {
        while (FRows.NextRow()) {
            FBegins = FParts && FRows.IsAfterGap() && FAny;
            FBlock += FBegins;
            FAny = true;
            if (FWanted == 0 || FBlock == FWanted) return true;
        }
        return false;
    }
    /// Whether a row of gaps stands in front of this one.
    bool BeginsBlock() const { return FBegins && FWanted == 0; }
    /// How many blocks there are so far.
    int GetBlocks() const { return FBlock; }
    /// The cells of the row.
    TKxRowReader& Cells() { return FRows; }
    const TKxRowReader& Cells() const { return FRows; }

private:
    TKxRowReader FRows;
    int FWanted, FBlock = 1;
    bool FParts, FAny = false, FBegins = false;
};

} // namespace kx
