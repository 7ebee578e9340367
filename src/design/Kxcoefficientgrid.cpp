#include <kxgraph/design/Kxcoefficientgrid.h>

#include <kxgraph/analysis/Kxcoefficientlists.h>
#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/design/Kxgridtext.h>
#include <kxgraph/numeric/Kxstrings.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace kx {

namespace {

constexpr auto CHeaders = std::to_array<const char*>({"Name", "Start", "Fixed", "From", "To", "Fitted"});

/// An infinite end is none.
double EndOrNone(double End) { return std::isinf(End) ? NAN : End; }

std::string LetterOf(std::size_t Index) { return ColumnToCharHeader(int(Index) + 1); }

} // namespace

TKxCoefficientGrid::TKxCoefficientGrid(TKxPropertyPlace Place) : FPlace(std::move(Place)) { Revert(); }

TKxFittedLine& TKxCoefficientGrid::Line() const {
    return dynamic_cast<TKxFittedLine&>(FPlace.GetComponent());
}

void TKxCoefficientGrid::Revert() {
    const TKxFittedLine& line = Line();
    std::vector<TKxCoefficientLimits> limits(std::size_t(line.GetOrder()));
    FRows.clear();
    FProblem.clear();
    std::vector<double> start = line.GetStartCoefficients();
    start.resize(limits.size());
    try {
        limits = ReadCoefficientLimits(line.GetFixedCoefficients(), line.GetBounds(),
                                       line.GetCoefficientNames(), start);
    } catch (const EMathError& error) {
        FProblem = error.Message();
    }
    for (std::size_t i = 0; i < limits.size(); ++i) {
        const bool isNamed = i < line.GetCoefficientNames().size();
        const bool isFixed = limits[i].IsFixed();
        FRows.push_back({isNamed ? line.GetCoefficientNames()[i] : LetterOf(i), start[i], isFixed,
                         isFixed ? NAN : EndOrNone(limits[i].Low),
                         isFixed ? NAN : EndOrNone(limits[i].High)});
    }
    FIsChanged = false;
}

std::string TKxCoefficientGrid::GetHeader(TColumn Column) { return CHeaders[std::size_t(Column)]; }

std::string TKxCoefficientGrid::GetText(int Row, TColumn Column) const {
    const TRow& row = FRows[std::size_t(Row)];
    switch (Column) {
    case ccName: return row.Name;
    case ccStart: return GridText(row.Start);
    case ccFixed: return row.IsFixed ? "True" : "False";
    case ccLow: return GridText(row.Low);
    case ccHigh: return GridText(row.High);
    case ccPresent: return Row < Line().GetOrder() ? GridText(Line().GetCoefficient(Row)) : std::string();
    case ccCount: break;
    }
    return {};
}

void TKxCoefficientGrid::SetText(int Row, TColumn Column, const std::string& Text) {
    TRow row = FRows[std::size_t(Row)];
    switch (Column) {
    case ccName: row.Name = Trimmed(Text); break;
    case ccStart: row.Start = GridValue(Text, Row); break;
    case ccFixed: row.IsFixed = SameText(Trimmed(Text), "true") || Trimmed(Text) == "1"; break;
    case ccLow: row.Low = GridValue(Text, Row); break;
    case ccHigh: row.High = GridValue(Text, Row); break;
    case ccPresent:
    case ccCount: throw EPropertyError("what a fit has found is no setting");
    }
    if (Column == ccStart && std::isnan(row.Start))
        throw EPropertyError("row " + std::to_string(Row + 1) + ": a coefficient starts from a number");
    FRows[std::size_t(Row)] = std::move(row);
    FIsChanged = true;
}

void TKxCoefficientGrid::SetRowCount(int Count) {
    FRows.resize(std::min(FRows.size(), std::size_t(std::max(Count, 0))));
    while (GetRowCount() < Count) FRows.push_back({LetterOf(FRows.size()), 1, false, NAN, NAN});
    FIsChanged = true;
}

std::string TKxCoefficientGrid::FixedList() const {
    std::string list;
    for (const TRow& row : FRows)
        if (row.IsFixed) list.append(list.empty() ? "" : ", ").append(row.Name);
    return list;
}

std::string TKxCoefficientGrid::BoundsList() const {
    std::string list;
    for (const TRow& row : FRows)
        if (!row.IsFixed && !(std::isnan(row.Low) && std::isnan(row.High)))
            list.append(list.empty() ? "" : ", ")
                .append(row.Name)
                .append("=")
                .append(GridText(row.Low))
                .append("..")
                .append(GridText(row.High));
    return list;
}

void TKxCoefficientGrid::Check() const {
    for (std::size_t i = 0; i < FRows.size(); ++i) {
        if (FRows[i].Name.empty() || FRows[i].Name.find_first_of(" ,=") != std::string::npos)
            throw EPropertyError("row " + std::to_string(i + 1) + ": '" + Abridged(FRows[i].Name) +
                                 "' cannot name a coefficient");
        for (std::size_t k = 0; k < i; ++k)
            if (FRows[k].Name == FRows[i].Name)
                throw EPropertyError("two coefficients are called " + FRows[i].Name);
    }
}

void TKxCoefficientGrid::Apply() {
    if (!FIsChanged) return;
    Check();
    std::vector<AnsiString> names, letters;
    std::vector<double> start;
    for (const TRow& row : FRows) {
        letters.push_back(LetterOf(names.size()));
        names.push_back(row.Name);
        start.push_back(row.Start);
    }
    const std::string fixed = FixedList(), bounds = BoundsList();
    try {
        ReadCoefficientLimits(fixed, bounds, names, start);
    } catch (const EMathError& error) {
        throw EPropertyError(error.Message());
    }
    FPlace.Run([&] {
        TKxFittedLine& line = Line();
        if (line.GetOrder() != GetRowCount()) line.SetOrder(GetRowCount());
        for (int i = 0; i < GetRowCount(); ++i) line.SetCoefficient(i, start[std::size_t(i)]);
        if (!line.GetCoefficientNames().empty() || names != letters) line.SetCoefficientNames(names);
        line.SetFixedCoefficients(fixed);
        line.SetBounds(bounds);
    });
    FIsChanged = false;
}

} // namespace kx
