#include <kxgraph/design/Kxvaluesgrid.h>

#include <kxgraph/design/Kxdesignformula.h>
#include <kxgraph/design/Kxgridtext.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/table/Kxtable.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace kx {

namespace {

std::vector<double> Padded(std::span<const double> Values, std::size_t Count) {
    std::vector<double> padded(Values.begin(), Values.end());
    padded.resize(Count, NAN);
    return padded;
}

} // namespace

TKxValuesGrid::TKxValuesGrid(TKxPropertyPlace Place) : FPlace(std::move(Place)) { Revert(); }

void TKxValuesGrid::Revert() {
    FHeaders.clear();
    FColumns.clear();
    for (const auto& target : FPlace.GetTargets()) {
        FHeaders.push_back(target.Component->GetName());
        FColumns.push_back(std::get<std::vector<double>>(target.Get()));
    }
    FIsChanged = false;
}

void TKxValuesGrid::Apply() {
    if (!FIsChanged) return;
    FPlace.Run([this] {
        for (std::size_t i = 0; i < FColumns.size(); ++i) {
            const auto& target = FPlace.GetTargets()[i];
            if (std::get<std::vector<double>>(target.Get()) != FColumns[i])
                target.Row().Set(target.Object(), FColumns[i]);
        }
    });
    FIsChanged = false;
}

void TKxValuesGrid::Change(int Column, TColumn Values) {
    FColumns[std::size_t(Column)] = std::move(Values);
    FIsChanged = true;
}

int TKxValuesGrid::GetRowCount() const {
    std::size_t count = 0;
    for (const TColumn& column : FColumns) count = std::max(count, column.size());
    return int(count);
}

std::string TKxValuesGrid::GetText(int Row, int Column) const {
    const TColumn& values = FColumns[std::size_t(Column)];
    return std::size_t(Row) < values.size() ? GridText(values[std::size_t(Row)]) : std::string();
}

void TKxValuesGrid::SetText(int Row, int Column, const std::string& Text) {
    const double value = GridValue(Text, Row);
    TColumn& values = FColumns[std::size_t(Column)];
    if (std::size_t(Row) >= values.size()) values.resize(std::size_t(Row) + 1, NAN);
    values[std::size_t(Row)] = value;
    FIsChanged = true;
}

void TKxValuesGrid::Insert(int Row, int Count) {
    for (TColumn& values : FColumns)
        if (std::size_t(Row) < values.size()) values.insert(values.begin() + Row, std::size_t(Count), NAN);
    FIsChanged = true;
}

void TKxValuesGrid::Delete(int Row, int Count) {
    for (TColumn& values : FColumns) {
        const std::size_t first = std::min(std::size_t(Row), values.size());
        const std::size_t last = std::min(first + std::size_t(Count), values.size());
        values.erase(values.begin() + std::ptrdiff_t(first), values.begin() + std::ptrdiff_t(last));
    }
    FIsChanged = true;
}

void TKxValuesGrid::Paste(int Row, int Column, std::string_view Text) {
    const auto rows = ReadGridText(Text);
    std::vector<TColumn> columns = FColumns;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        if (rows[r].size() > columns.size() - std::size_t(Column))
            throw EPropertyError("row " + std::to_string(r + 1) + " of what is pasted has " +
                                 std::to_string(rows[r].size()) + " cells, and there are " +
                                 std::to_string(columns.size() - std::size_t(Column)) + " columns for them");
        const std::size_t at = std::size_t(Row) + r;
        for (std::size_t c = 0; c < rows[r].size(); ++c) {
            TColumn& values = columns[std::size_t(Column) + c];
            if (at >= values.size()) values.resize(at + 1, NAN);
            values[at] = rows[r][c];
        }
    }
    FColumns = std::move(columns);
    FIsChanged = true;
}

std::string TKxValuesGrid::Copy(int First, int Last) const {
    std::string text;
    for (int row = First; row <= Last; ++row)
        for (int column = 0; column < GetColumnCount(); ++column)
            text.append(GetText(row, column)).append(column + 1 < GetColumnCount() ? "\t" : "\n");
    return text;
}

/// A column of the grid, or a vector of the form.
std::vector<double> TKxValuesGrid::ValuesOf(const std::string& Name, std::size_t Count) const {
    for (std::size_t i = 0; i < FHeaders.size(); ++i)
        if (SameText(FHeaders[i], Name)) return Padded(FColumns[i], Count);
    if (const auto* vector = dynamic_cast<const TKxCustomRealVector*>(FPlace.FindComponent(Name)))
        return Padded(vector->Values(), Count);
    throw EPropertyError("there is no vector '" + Abridged(Name) +
                         "'; a formula may have x, i, n and vectors");
}

void TKxValuesGrid::Fill(int Column, int First, int Last, const std::string& Formula) {
    const auto formula = ReadDesignFormula(Formula);
    const auto& names = formula->GetNames();
    const std::size_t count = std::max(std::size_t(Last) + 1, std::size_t(GetRowCount()));
    std::vector<std::vector<double>> known(names.size());
    for (std::size_t k = 0; k < names.size(); ++k)
        if (names[k] != "i" && names[k] != "n") known[k] = ValuesOf(names[k], count);
    TColumn values = Padded(FColumns[std::size_t(Column)],
                            std::max(std::size_t(Last) + 1, FColumns[std::size_t(Column)].size()));
    std::vector<double> row(names.size());
    for (std::size_t r = std::size_t(First); r <= std::size_t(Last); ++r) {
        for (std::size_t k = 0; k < names.size(); ++k)
            row[k] = names[k] == "i" ? double(r + 1) : names[k] == "n" ? double(count) : known[k][r];
        values[r] = formula->Evaluate(values[r], row);
    }
    Change(Column, std::move(values));
}

std::vector<std::string> TKxValuesGrid::ColumnsOfTable(const std::string& FileName) {
    const std::string text = ReadFile(FileName);
    const TKxTable table(text, FileName);
    std::vector<std::string> names;
    for (int i = 0; i < table.GetColumnCount(); ++i)
        if (table.IsNumeric(i) || table.IsDate(i)) names.push_back(table.ColumnName(i));
    return names;
}

void TKxValuesGrid::LoadColumn(int Column, const std::string& FileName, const std::string& From) {
    const std::string text = ReadFile(FileName);
    const TKxTable table(text, FileName);
    Change(Column, std::move(table.ReadColumns({table.FindNumericColumn(From)}).front()));
}

} // namespace kx
