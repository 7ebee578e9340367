#include "kxplot/plan/xvalues.h"

#include <kxgraph/table/Kxtabledates.h>

#include <limits>
#include <utility>

namespace kxplot {

TXValues XOfColumn(const kx::TKxTable& Table, int Column, std::vector<double> Read, bool IsUnixTime) {
    TXValues x;
    x.IsDate = IsUnixTime || Table.IsDate(Column);
    if (!x.IsDate && !Table.IsGiven())
        if (auto dates = kx::DatesOfEightDigits(Read)) {
            x.Values = std::move(*dates);
            x.IsDate = true;
        }
    if (x.Values.empty()) x.Values = std::move(Read);
    x.Turns = TurnsOf(x.Values);
    return x;
}

TXValues XOfTexts(const kx::TKxTable& Table, int Column, bool AsBars) {
    std::vector<std::string> rows = Table.ReadTexts(Column);
    TCategories categories = CategoriesOf(rows);
    TXValues x;
    x.AreDistinct = categories.AreDistinct();
    if (!AsBars) {
        x.Texts = std::move(categories.Texts);
        x.Values = std::move(categories.Places);
        return x;
    }
    x.Values = XOfRows(rows.size(), {}).Values;
    x.Texts = std::move(rows);
    return x;
}

TXValues XOfRows(std::size_t Rows, std::span<const std::size_t> Gaps) {
    TXValues x;
    x.Values.reserve(Rows);
    double number = 0;
    for (std::size_t i = 0; i < Rows; ++i) {
        const bool isGap = !Gaps.empty() && Gaps.front() == i;
        if (isGap) Gaps = Gaps.subspan(1);
        x.Values.push_back(isGap ? std::numeric_limits<double>::quiet_NaN() : ++number);
    }
    return x;
}

} // namespace kxplot
