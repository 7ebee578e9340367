#include "kxplot/plan/expressions.h"

#include "kxplot/options/usageerror.h"
#include "kxplot/plan/expression.h"

#include <algorithm>
#include <utility>

namespace kxplot {

using namespace kx;

namespace {

/// Finds what names in formulas mean.
class TNames {
public:
    TNames(const TKxTable& Table, const std::optional<std::string>& X) : FTable(Table), FX(X) {
        for (int i = 0; i < Table.GetColumnCount(); ++i) FHeaders.push_back(Table.GetHeader(i));
    }
    const std::vector<std::string>& Headers() const { return FHeaders; }

    int Find(const std::string& Name) const {
        const auto header = std::find(FHeaders.begin(), FHeaders.end(), Name);
        if (header != FHeaders.end()) return int(header - FHeaders.begin());
        if (Name != "x" || FHeaders.empty()) return -1;
        return FX ? FTable.FindNumericColumn(*FX) : 0;
    }

private:
    const TKxTable& FTable;
    const std::optional<std::string>& FX;
    std::vector<std::string> FHeaders;
};

bool IsColumn(const TKxTable& Table, const std::string& Name) {
    for (int i = 0; i < Table.GetColumnCount(); ++i)
        if (Table.GetHeader(i) == Name) return true;
    return !TExpression::IsMeant(Name);
}

void AddOne(TKxTable& Table, const TNames& Names, const char* Option, const std::string& Text) {
    if (IsColumn(Table, Text)) return;
    const TExpression expression(
        Option, Text, [&](const std::string& Name) { return Names.Find(Name); }, Names.Headers());
    if (expression.GetColumns().empty()) FailUsage(Option, Text, "takes no column; --function draws it");
    for (const int column : expression.GetColumns())
        if (!Table.IsNumeric(column) && !Table.IsDate(column))
            FailUsage(Option, Text, "column " + Table.ShownName(column) + " is not numeric");
    Table.AddColumn(Text, expression.GetColumns(), expression.RowFunction());
}

} // namespace

TOptions WithDifference(TOptions Options) {
    if (!Options.Functions.Difference) return Options;
    const auto [first, second] = *Options.Functions.Difference;
    const auto files = Options.Data.Files();
    const auto isTable = [&](const std::string& Name) { return std::ranges::count(files, Name) > 0; };
    if (isTable(first) && isTable(second)) {
        if (files.size() != 2) throw TUsageError("--difference: of tables takes two");
        if (files.front() != first) std::swap(Options.Data.File, Options.Data.More.front());
        return Options;
    }
    Options.Columns.Y.push_back("`" + first + "` - `" + second + "`");
    Options.Functions.Difference.reset();
    return Options;
}

void AddExpressions(TKxTable& Table, const TOptions& Options) {
    const TColumnRequest& columns = Options.Columns;
    const TNames names(Table, columns.X);
    const std::pair<const char*, const std::vector<std::string>*> lists[]{{"-y", &columns.Y},
                                                                          {"--y2", &Options.Axes.Y2},
                                                                          {"--dx", &columns.DX},
                                                                          {"--dy", &columns.DY},
                                                                          {"--dx-minus", &columns.DXMinus},
                                                                          {"--dy-minus", &columns.DYMinus},
                                                                          {"--vx", &columns.VX},
                                                                          {"--vy", &columns.VY}};
    for (const auto& [option, list] : lists)
        for (const auto& text : *list) AddOne(Table, names, option, text);
    if (columns.Weight) AddOne(Table, names, "--weight", *columns.Weight);
}

} // namespace kxplot
