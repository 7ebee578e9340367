#include "kxplot/plan/columns.h"

#include "kxplot/options/usageerror.h"
#include "kxplot/plan/categories.h"

#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

namespace kxplot {

namespace {

bool Contains(const std::vector<int>& Columns, int Column) {
    return std::find(Columns.begin(), Columns.end(), Column) != Columns.end();
}

std::vector<int> Found(const kx::TKxTable& Table, const std::vector<std::string>& Names) {
    std::vector<int> columns;
    columns.reserve(Names.size());
    for (const auto& name : Names) columns.push_back(Table.FindNumericColumn(name));
    return columns;
}

bool HasTexts(const kx::TKxTable& Table, int Column) {
    return Table.GetKind(Column) == kx::TKxColumnKind::Texts;
}

/// The columns of a kind.
std::vector<int> ColumnsOf(const kx::TKxTable& Table, kx::TKxColumnKind Kind) {
    std::vector<int> columns;
    for (int i = 0; i < Table.GetColumnCount(); ++i)
        if (Table.GetKind(i) == Kind) columns.push_back(i);
    return columns;
}

/// Where texts stand in the first column.
void ChooseXBesideTexts(const kx::TKxTable& Table, const TDrawingRequest& Drawing, TColumns& Columns) {
    const auto dates = ColumnsOf(Table, kx::TKxColumnKind::Dates);
    const auto numbers = ColumnsOf(Table, kx::TKxColumnKind::Numbers);
    const bool mayName =
        numbers.size() > 1 && (Table.GetHeader(0).empty() || !CategoriesOf(Table.ReadTexts(0)).AreDistinct());
    if (!dates.empty())
        Columns.X = dates.front();
    else if (!numbers.empty() && (mayName || Drawing.HasArrows()))
        Columns.X = numbers.front();
    (Columns.X >= 0 ? Columns.Names : Columns.Texts) = 0;
}

void ChooseX(const kx::TKxTable& Table, const TColumnRequest& Request, const TDrawingRequest& Drawing,
             TColumns& Columns) {
    if (Request.X) {
        const int column = Table.FindColumn(*Request.X);
        if (HasTexts(Table, column) && !Drawing.HasArrows())
            Columns.Texts = column;
        else
            Columns.X = Table.FindNumericColumn(*Request.X);
    } else if (Table.GetColumnCount() > 1) {
        if (HasTexts(Table, 0))
            ChooseXBesideTexts(Table, Drawing, Columns);
        else
            Columns.X = 0;
    }
}

/// The column behind X if its times are those of X's days; -1 if not.
int ClockOf(const kx::TKxTable& Table, const TColumns& Columns, const std::vector<int>& Y2) {
    constexpr double day = 86400;
    const int clock = Columns.X + 1;
    if (Columns.X < 0 || clock == Table.GetColumnCount()) return -1;
    if (Contains(Columns.Y, clock) || Contains(Y2, clock)) return -1;
    if (!Table.IsDate(Columns.X) || !Table.IsDate(clock)) return -1;
    const auto values = Table.ReadColumns({Columns.X, clock});
    const bool areDays =
        std::ranges::none_of(values[0], [](double At) { return std::abs(std::fmod(At, day)) > 0; });
    const bool areTimes = std::ranges::none_of(values[1], [](double At) { return At < 0 || At >= day; });
    return areDays && areTimes ? clock : -1;
}

/// Every numeric column that is nothing else.
std::vector<int> OtherColumns(const kx::TKxTable& Table, const TColumns& Columns,
                              const std::vector<int>& Y2) {
    std::vector<int> others;
    const std::vector<int> taken = Columns.All();
    for (int i = 0; i < Table.GetColumnCount(); ++i)
        if (!Contains(taken, i) && !Contains(Y2, i) && Table.IsNumeric(i)) others.push_back(i);
    if (others.empty() && !Y2.empty())
        throw TUsageError("--y2: leaves no numeric column of " + kx::Escaped(Table.GetName()) +
                          " for the first y axis; without --y2 it is drawn there");
    if (others.empty())
        throw kx::ETableError(kx::Escaped(Table.GetName()) + ": has no numeric column for a series",
                              kx::TKxTableRemedy::Skip);
    return others;
}

std::vector<int> ColumnsWithoutValues(const kx::TKxTable& Table) {
    std::vector<int> columns;
    for (int i = 0; i < Table.GetColumnCount(); ++i)
        if (Table.IsWithoutValues(i)) columns.push_back(i);
    return columns;
}

int FirstForBins(const kx::TKxTable& Table) {
    const auto numbers = ColumnsOf(Table, kx::TKxColumnKind::Numbers);
    return HasTexts(Table, 0) && !numbers.empty() ? numbers.front() : Table.FindNumericColumn("1");
}

void CheckComponents(const std::vector<int>& Columns, std::size_t Count, const char* Option) {
    if (Columns.size() != Count)
        throw TUsageError(std::string(Option) + ": " + std::to_string(Columns.size()) +
                          " for a number of series of " + std::to_string(Count));
}

/// One entry a series: the k-th option's column, or -1.
std::vector<int> ErrorColumns(const kx::TKxTable& Table, const std::vector<std::string>& Names,
                              std::size_t Count, const char* Option) {
    if (Names.size() > Count)
        throw TUsageError(std::string(Option) + ": more columns of errors than series (" +
                          std::to_string(Count) + ")");
    std::vector<int> columns = Found(Table, Names);
    columns.resize(Count, -1);
    return columns;
}

} // namespace

std::vector<int> TColumns::Uses() const {
    std::vector<int> all{X, Clock, Weight};
    for (const auto* list : {&Y, &DXPlus, &DYPlus, &DXMinus, &DYMinus, &VX, &VY})
        all.insert(all.end(), list->begin(), list->end());
    std::sort(all.begin(), all.end());
    std::erase_if(all, [](int Column) { return Column < 0; });
    return all;
}

std::vector<int> TColumns::All() const {
    std::vector<int> all = Uses();
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

TColumns ChooseColumns(const kx::TKxTable& Table, const TOptions& Options) {
    const TColumnRequest& request = Options.Columns;
    const TDrawingRequest& drawing = Options.Drawing;
    TColumns columns;
    columns.Y = Found(Table, request.Y);
    if (drawing.Bins) {
        if (columns.Y.empty()) columns.Y = {FirstForBins(Table)};
        columns.FirstOnY2 = columns.Y.size();
        return columns;
    }
    ChooseX(Table, request, drawing, columns);
    const std::vector<int> y2 = Found(Table, Options.Axes.Y2);
    if (!request.X) columns.Clock = ClockOf(Table, columns, y2);
    columns.VX = Found(Table, request.VX);
    columns.VY = Found(Table, request.VY);
    if (!request.X && columns.X == 0) Table.FindNumericColumn("1"); // raises what is wrong with it
    if (request.Weight) columns.Weight = Table.FindNumericColumn(*request.Weight);
    if (columns.Y.empty()) {
        columns.Y = OtherColumns(Table, columns, y2);
        columns.LeftOut = ColumnsWithoutValues(Table);
    }
    columns.FirstOnY2 = columns.Y.size();
    columns.Y.insert(columns.Y.end(), y2.begin(), y2.end());
    const std::size_t count = columns.Y.size();
    if (drawing.HasArrows()) {
        CheckComponents(columns.VX, count, "--vx");
        CheckComponents(columns.VY, count, "--vy");
    }
    columns.DXPlus = ErrorColumns(Table, request.DX, count, "--dx");
    columns.DYPlus = ErrorColumns(Table, request.DY, count, "--dy");
    columns.DXMinus = ErrorColumns(Table, request.DXMinus, count, "--dx-minus");
    columns.DYMinus = ErrorColumns(Table, request.DYMinus, count, "--dy-minus");
    return columns;
}

} // namespace kxplot
