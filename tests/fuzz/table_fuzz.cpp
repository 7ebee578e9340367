// Text tables: any file is read or refused with its place; what was read comes back from a table that is
// written out.

#include "fuzz/fuzz.h"

#include <kxgraph/platform/text/numbertext.h>
#include <kxgraph/table/Kxtable.h>
#include <kxgraph/table/Kxtablenumber.h>

namespace kx::fuzz::tabletarget {

using TColumns = std::vector<std::vector<double>>;

std::string Written(const TColumns& Columns) {
    std::string text;
    for (std::size_t column = 0; column < Columns.size(); ++column)
        text += (column ? ",c" : "c") + std::to_string(column);
    for (std::size_t row = 0; row < Columns[0].size(); ++row) {
        text += '\n';
        for (std::size_t column = 0; column < Columns.size(); ++column) {
            const double value = Columns[column][row];
            if (column) text += ',';
            text += std::isfinite(value) ? FloatToStrGeneral(value, 17, 0)
                    : std::isnan(value)  ? "nan"
                    : value > 0          ? "inf"
                                         : "-inf";
        }
    }
    return text + "\n";
}

bool Same(const TColumns& A, const TColumns& B) {
    return std::ranges::equal(
        A, B, [](const auto& X, const auto& Y) { return std::ranges::equal(X, Y, fuzz::Same); });
}

TColumns Read(const std::string& Text, const std::string& Name) {
    const TKxTable table(Text, Name);
    KX_DEMAND(table.GetColumnCount() > 0);
    std::vector<int> numeric;
    for (int i = 0; i < table.GetColumnCount(); ++i) {
        table.GetHeader(i);
        KX_DEMAND(!table.ColumnName(i).empty() || table.HasHeader());
        if (table.IsNumeric(i)) numeric.push_back(i);
    }
    const TColumns columns = table.ReadColumns(numeric);
    KX_DEMAND(columns.size() == numeric.size());
    for (const auto& column : columns) KX_DEMAND(column.size() == columns[0].size());
    return columns;
}

KX_FUZZ(table) {
    const std::string text = Data.Rest();
    for (const bool comma : {false, true}) ParseNumber(text, comma);
    TColumns columns;
    try {
        columns = Read(text, "fuzz");
    } catch (const ETableError& error) {
        KX_DEMAND(std::string(error.what()).starts_with("fuzz"), +std::string(error.what()));
        return;
    }
    if (columns.empty() || columns[0].empty()) return;
    // A column of gaps alone is not known to be one of numbers.
    for (const auto& column : columns)
        if (std::ranges::all_of(column, [](double V) { return std::isnan(V); })) return;
    const std::string written = Written(columns);
    KX_DEMAND(Same(columns, Read(written, "again")), +written);
}

} // namespace kx::fuzz::tabletarget
