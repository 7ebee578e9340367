#pragma once
// Which sign parts the cells of a table.

#include <kxgraph/table/Kxtableformat.h>
#include <kxgraph/table/Kxtablesample.h>

#include <span>
#include <string>
#include <string_view>

namespace kx {

/// The lines of a table from a place on, with the signs that begin comments.
struct TKxTableLines {
    std::string_view Text;
    std::size_t At = 0;
    long Line = 1;
    std::string Comments;

    /// Reads them; a semicolon that parts cells begins no comment.
    TKxRowReader Rows(TKxSeparator Separator) const;
    std::string CommentsBeside(TKxSeparator Separator) const;
};

struct TKxCellSigns {
    TKxSeparator Separator = TKxSeparator::Blanks;
    bool DecimalComma = false;
};

/// All separators, those first that stand in few texts.
inline constexpr TKxSeparator CSeparators[] = {TKxSeparator::Tab, TKxSeparator::Semicolon,
                                               TKxSeparator::Comma, TKxSeparator::Blanks};

/// The separator that cuts all of the first rows into as many cells; failing that, one that cuts most of
/// them, or at least the very first one (the row that differs is told later). A single column has none.
TKxCellSigns FindCellSigns(const TKxTableLines& Lines, const TKxTableFormat& Format);

/// Whether numbers between such separators have decimal commas.
bool HasDecimalComma(TKxSeparator Separator, std::span<const TKxSampleRow> Rows,
                     const TKxTableFormat& Format);

} // namespace kx
