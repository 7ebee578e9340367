#pragma once
// Which columns of the table are drawn as what.

#include "kxplot/options/options.h"

#include <kxgraph/table/Kxtable.h>

#include <cstddef>
#include <vector>

namespace kxplot {

/// Columns of a table, zero-based.
struct TColumns {
    int X = -1;      ///< -1: 1, 2, 3, ..., or texts
    int Clock = -1;  ///< times of day, which belong to the dates of X; -1: none
    int Texts = -1;  ///< that stand over x; -1: none
    int Names = -1;  ///< of the rows, which are left out; -1: none
    int Weight = -1; ///< -1: none
    std::vector<int> Y;
    std::size_t FirstOnY2 = 0; ///< of Y: that one and those that follow it stand on the second y axis
    std::vector<int> LeftOut;  ///< because they have no values, where Y is all others
    std::vector<int> DXPlus, DYPlus, DXMinus, DYMinus; ///< one a series, -1: none; empty with --hist
    std::vector<int> VX, VY;                           ///< one a series of arrows

    std::vector<int> Uses() const; ///< ascending, each as often as it is drawn as something
    std::vector<int> All() const;  ///< each once
};

/// Texts in the first column stand over x, unless they rather name rows beside two columns of numbers: they
/// have no header, or the same one stands in several rows. Dates go before them. Beside days in X a column of
/// times of day belongs to them, unless it or X was asked for.
/// Raises kx::ETableError for columns that the table has not or that are not numeric, and TUsageError for
/// more error columns than series or another number of arrow components.
TColumns ChooseColumns(const kx::TKxTable& Table, const TOptions& Options);

} // namespace kxplot
