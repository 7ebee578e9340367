#pragma once
// What stands over x.

#include "kxplot/plan/categories.h"
#include "kxplot/plan/columns.h"
#include "kxplot/plan/direction.h"

#include <kxgraph/table/Kxtable.h>

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace kxplot {

/// The x of each row.
struct TXValues {
    std::vector<double> Values;
    bool IsDate = false;            ///< seconds since 1970
    std::vector<std::string> Texts; ///< at 1, 2, 3, ...
    bool AreDistinct = false;       ///< no text stands in two rows
    TTurns Turns;                   ///< none of texts
};

/// Of a column of numbers or dates, whose values are Read. Days of eight digits become dates.
TXValues XOfColumn(const kx::TKxTable& Table, int Column, std::vector<double> Read, bool IsUnixTime);
/// Of a column of texts: as bars each row stands by itself.
TXValues XOfTexts(const kx::TKxTable& Table, int Column, bool AsBars);
/// 1, 2, 3, ...: rows between blocks, which are given, do not count.
TXValues XOfRows(std::size_t Rows, std::span<const std::size_t> Gaps);

} // namespace kxplot
