#include "kxplot/plan/joined.h"

#include "kxplot/plan/planner.h"

#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/table/Kxtableerror.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <functional>
#include <utility>

namespace kxplot {

using namespace kx;

namespace {

/// Vectors of series end with the number of their series.
void Number(TVectorPlan& Vector, std::size_t Index) {
    while (!Vector.Name.empty() && std::isdigit(static_cast<unsigned char>(Vector.Name.back())))
        Vector.Name.pop_back();
    Vector.Name += std::to_string(Index + 1);
}
void Number(std::optional<TVectorPlan>& Vector, std::size_t Index) {
    if (Vector) Number(*Vector, Index);
}
void Number(TPointsPlan& Points, std::size_t Index) {
    for (auto* errors : {&Points.DXPlus, &Points.DXMinus, &Points.DYPlus, &Points.DYMinus})
        Number(*errors, Index);
}
void Number(TBarsPlan&, std::size_t) {}
void Number(TArrowsPlan& Arrows, std::size_t Index) {
    Number(Arrows.DX, Index);
    Number(Arrows.DY, Index);
}

std::string ShortName(const std::string& Table) {
    const std::string name = Table.substr(Table.rfind('/') + 1);
    return name.substr(0, name.size() - ExtractFileExt(name).size());
}

/// Makes a series of Of the one with that index: with all that its table shared.
TSeriesPlan Taken(TSeriesPlan Series, const TPlan& Of, std::size_t Index) {
    const std::string table = ShortName(Of.Table);
    Series.Name = "Series" + std::to_string(Index + 1);
    Series.Caption = EscapeCaption(Escaped(table)) + ": " + Series.Caption;
    Series.ShownColumn = Abridged(table) + ": " + Series.ShownColumn;
    if (!Series.X) Series.X = Of.X;
    if (!Series.Weight) Series.Weight = Of.Weight;
    for (auto* vector : {&Series.X, &Series.Weight}) Number(*vector, Index);
    Number(Series.Y, Index);
    std::visit([Index](auto& Kind) { Number(Kind, Index); }, Series.Kind);
    return Series;
}

[[noreturn]] void Fail(const TPlan& Plan, const std::string& What) {
    throw ETableError(Escaped(Plan.Table) + ": " + What);
}

void CheckAlike(const TPlan& Plan, const TPlan& First) {
    const auto differ = [](const TLabelPlan& A, const TLabelPlan& B) { return A.Kind != B.Kind; };
    if (Plan.Axes.XLabels.Kind == lkCategories || First.Axes.XLabels.Kind == lkCategories)
        Fail(Plan, "texts over x go with one table alone");
    if (differ(Plan.Axes.XLabels, First.Axes.XLabels) || differ(Plan.Axes.YLabels, First.Axes.YLabels))
        Fail(Plan, "holds dates where " + Escaped(First.Table) + " holds numbers, or the other way round");
}

/// A caption is that of all, or none.
void Share(TKxCaption& Caption, const TKxCaption& Other) {
    if (Caption != Other) Caption.clear();
}

} // namespace

TPlan Joined(std::vector<TPlan> Plans, const TOptions& Options) {
    TPlan plan = std::move(Plans.front());
    if (Plans.size() == 1) return plan;
    std::vector<TSeriesPlan> series;
    for (TSeriesPlan& own : plan.Series) series.push_back(Taken(std::move(own), plan, series.size()));
    for (std::size_t k = 1; k < Plans.size(); ++k) {
        TPlan& other = Plans[k];
        CheckAlike(other, plan);
        for (TSeriesPlan& own : other.Series) series.push_back(Taken(std::move(own), other, series.size()));
        for (const auto& column : other.LeftOut)
            plan.LeftOut.push_back(Abridged(ShortName(other.Table)) + ": " + column);
        Share(plan.Axes.X, other.Axes.X);
        Share(plan.Axes.Y, other.Axes.Y);
    }
    plan.Series = std::move(series);
    plan.Weight.reset();
    CompletePlan(plan, Options);
    return plan;
}

TPlan Combined(std::vector<TPlan> Plans, const TOptions& Options) {
    if (Options.Functions.Difference) return DifferenceOf(std::move(Plans[0]), Plans[1]);
    return Joined(std::move(Plans), Options);
}

TPlan DifferenceOf(TPlan First, const TPlan& Second) {
    CheckAlike(Second, First);
    if (First.Series.size() != Second.Series.size())
        Fail(Second, "--difference: has " + std::to_string(Second.Series.size()) + " columns of y, " +
                         Escaped(First.Table) + " " + std::to_string(First.Series.size()));
    if (First.X.Values != Second.X.Values)
        Fail(Second, "--difference: its x are not those of " + Escaped(First.Table));
    for (std::size_t k = 0; k < First.Series.size(); ++k) {
        TSeriesPlan& series = First.Series[k];
        std::ranges::transform(series.Y.Values, Second.Series[k].Y.Values, series.Y.Values.begin(),
                               std::minus<>());
        series.Caption = EscapeCaption(Escaped(ShortName(First.Table) + " − " + ShortName(Second.Table))) +
                         ": " + series.Caption;
    }
    return First;
}

} // namespace kxplot
