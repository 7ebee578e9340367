// Tables that come with their columns.

#include <kxgraph/table/Kxtable.h>

#include <algorithm>
#include <utility>

namespace kx {

TKxTable::TKxTable(std::vector<TKxGivenColumn> Columns, std::string Name)
    : FText(std::string_view()), FName(std::move(Name)), FGiven(std::move(Columns)) {
    const bool hasRows = std::ranges::any_of(
        FGiven, [](const TKxGivenColumn& Column) { return !Column.Values.empty() || !Column.Texts.empty(); });
    if (!hasRows) Fail(0, "gives no rows");
    for (const auto& column : FGiven) {
        FShape.Headers.push_back(column.Header);
        FShape.Kinds.push_back(column.Kind);
    }
}

std::vector<std::vector<double>> TKxTable::GivenColumns(const std::vector<int>& Columns) const {
    std::vector<std::vector<double>> values;
    values.reserve(Columns.size());
    for (const int column : Columns) values.push_back(FGiven[std::size_t(column)].Values);
    return values;
}

} // namespace kx
