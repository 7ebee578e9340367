#include "kxplot/plan/planner.h"

#include "kxplot/methods/methods.h"
#include "kxplot/options/usageerror.h"
#include "kxplot/plan/bins.h"
#include "kxplot/plan/captions.h"
#include "kxplot/plan/columns.h"
#include "kxplot/plan/explain.h"
#include "kxplot/plan/style.h"
#include "kxplot/plan/weights.h"
#include "kxplot/plan/xvalues.h"

#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <functional>
#include <map>
#include <span>
#include <utility>

namespace kxplot {

using namespace kx;

namespace {

/// The values of some columns.
class TValues {
public:
    std::vector<std::size_t> Gaps; ///< rows between blocks

    TValues(const TKxTable& Table, const TColumns& Columns)
        : FColumns(Columns.All()), FUses(Columns.Uses()), FValues(Table.ReadColumns(FColumns, &Gaps)),
          FRows(FValues.front().size()) {}

    std::size_t Rows() const { return FRows; }
    const std::vector<double>& Of(int Column) const { return FValues[IndexOf(Column)]; }
    /// For one use: the last one gets the very values that were read, and the column has none from then on.
    std::vector<double> Take(int Column) {
        const auto [first, last] = std::equal_range(FUses.begin(), FUses.end(), Column);
        if (last - first > 1) {
            FUses.erase(first);
            return Of(Column);
        }
        return std::move(FValues[IndexOf(Column)]);
    }

private:
    std::size_t IndexOf(int Column) const {
        return std::size_t(std::lower_bound(FColumns.begin(), FColumns.end(), Column) - FColumns.begin());
    }

    std::vector<int> FColumns; // ascending
    std::vector<int> FUses;    // those that are left
    std::vector<std::vector<double>> FValues;
    std::size_t FRows;
};

/// Plans series by series what they hold.
class TSeriesPlanner {
public:
    TSeriesPlanner(const TKxTable& Table, const TOptions& Options, const TColumns& Columns);

    /// What is drawn, where the style was not asked for.
    const TDrawingRequest& Drawing() const { return FDrawing; }
    TVectorPlan X();
    void PlanLabels(TAxesPlan& Axes) const;
    const TStyleChoice& Style() const { return FStyle; }
    // Each of them once: values are handed over.
    std::optional<TVectorPlan> Weight();
    TSeriesPlan Series(std::size_t Index, const TVectorPlan& X);

private:
    using TKind = decltype(TSeriesPlan::Kind);
    TVectorPlan Vector(const char* Name, std::size_t Index, int Column);
    std::optional<TVectorPlan> Errors(const char* Name, std::size_t Index, const std::vector<int>& Columns);
    std::vector<double> BinEdges() const;
    TVectorPlan ErrorWeight(std::size_t Index, const TVectorPlan& X) const;
    TKind Kind(std::size_t Index);
    TPointsPlan Points(std::size_t Index);
    TXValues RowsOfX();
    TStyleChoice Chosen() const;
    bool AreDates(std::span<const int> Columns) const;

    const TKxTable& FTable;
    const TOptions& FOptions;
    const TColumns& FColumns;
    TDrawingRequest FDrawing;
    TValues FValues;
    TXValues FX;
    TStyleChoice FStyle;
};

// One pass over the table reads every column once.
TSeriesPlanner::TSeriesPlanner(const TKxTable& Table, const TOptions& Options, const TColumns& Columns)
    : FTable(Table), FOptions(Options), FColumns(Columns), FDrawing(Options.Drawing), FValues(Table, Columns),
      FX(RowsOfX()), FStyle(Chosen()) {
    if (FStyle.Style != TStyle::Bars || FDrawing.Style) return;
    FDrawing.Style = FStyle.Style; // of texts alone, which are read again
    FX = RowsOfX();
}

TXValues TSeriesPlanner::RowsOfX() {
    if (FDrawing.Bins) return {};
    if (FColumns.Texts >= 0) return XOfTexts(FTable, FColumns.Texts, FDrawing.HasBars());
    if (FColumns.X < 0) return XOfRows(FValues.Rows(), FValues.Gaps);
    std::vector<double> read = FValues.Take(FColumns.X);
    if (FColumns.Clock >= 0)
        std::ranges::transform(read, FValues.Of(FColumns.Clock), read.begin(), std::plus());
    return XOfColumn(FTable, FColumns.X, std::move(read), FOptions.Data.Table.Time.has_value());
}

TVectorPlan TSeriesPlanner::Vector(const char* Name, std::size_t Index, int Column) {
    return {Name + std::to_string(Index + 1), FValues.Take(Column)};
}

std::optional<TVectorPlan> TSeriesPlanner::Errors(const char* Name, std::size_t Index,
                                                  const std::vector<int>& Columns) {
    if (Columns[Index] < 0) return std::nullopt;
    return Vector(Name, Index, Columns[Index]);
}

std::vector<double> TSeriesPlanner::BinEdges() const {
    TFiniteRange range;
    for (const int column : FColumns.Y) {
        TFiniteRange own;
        own.Include(FValues.Of(column));
        if (own.IsEmpty())
            throw ETableError(Escaped(FTable.GetName()) + ": column " + FTable.ShownName(column) +
                              " has no finite value");
        range.Include({own.Low, own.High});
    }
    return EqualBins(range, *FOptions.Drawing.Bins);
}

// A bar of a text stands around its place. Nobody else asks for the values.
TVectorPlan TSeriesPlanner::X() {
    if (FDrawing.Bins) return {"XData", BinEdges()};
    if (!FDrawing.HasBars()) return {"XData", std::move(FX.Values)};
    std::vector<double> edges = WithLastEdge(FX.Values);
    if (FColumns.Texts >= 0)
        for (double& edge : edges) edge -= 0.5;
    return {"XData", std::move(edges)};
}

bool TSeriesPlanner::AreDates(std::span<const int> Columns) const {
    return !Columns.empty() &&
           std::ranges::all_of(Columns, [&](int Column) { return FTable.IsDate(Column); });
}

void TSeriesPlanner::PlanLabels(TAxesPlan& Axes) const {
    const auto onY = std::span<const int>(FColumns.Y).first(FColumns.FirstOnY2),
               onY2 = std::span<const int>(FColumns.Y).subspan(FColumns.FirstOnY2);
    if (FDrawing.Bins ? AreDates(FColumns.Y) : FX.IsDate) Axes.XLabels.Kind = lkDates;
    if (!FDrawing.Bins && AreDates(onY)) Axes.YLabels.Kind = lkDates;
    if (!FDrawing.Bins && AreDates(onY2)) Axes.Y2Labels.Kind = lkDates;
    if (FColumns.Texts >= 0) Axes.XLabels.Kind = lkCategories;
    for (const std::string& text : FX.Texts) Axes.XLabels.Categories.push_back(EscapeCaption(text));
    if (FDrawing.Horizontal) std::swap(Axes.XLabels, Axes.YLabels);
    const auto refuse = [](bool IsLog, const char* Option, const TLabelPlan& Labels) {
        if (IsLog && Labels.Kind != lkNumbers)
            throw TUsageError(std::string(Option) + ": there are " +
                              (Labels.Kind == lkDates ? "dates" : "texts") + " on this axis");
    };
    refuse(FOptions.Look.LogX, "--log-x", Axes.XLabels);
    refuse(FOptions.Look.LogY, "--log-y", Axes.YLabels);
}

std::optional<TVectorPlan> TSeriesPlanner::Weight() {
    if (FColumns.Weight < 0) return std::nullopt;
    return TVectorPlan{"Weight", FValues.Take(FColumns.Weight)};
}

TVectorPlan TSeriesPlanner::ErrorWeight(std::size_t Index, const TVectorPlan& X) const {
    const std::string name = FTable.ColumnName(FColumns.Y[Index]), number = std::to_string(Index + 1);
    const int plus = FColumns.DYPlus[Index], minus = FColumns.DYMinus[Index];
    if (plus < 0 && minus < 0)
        throw TUsageError("--weight-by-errors: series " + number + ", " + name + ", has no --dy");
    const auto errors = [&](int Column) {
        return Column < 0 ? std::span<const double>() : std::span<const double>(FValues.Of(Column));
    };
    const TErrors all{name, X.Values, FValues.Of(FColumns.Y[Index]), errors(plus), errors(minus)};
    return {"Weight" + number, WeightsByErrors(FTable, all)};
}

TStyleChoice TSeriesPlanner::Chosen() const {
    const TColumnRequest& columns = FOptions.Columns;
    TStyleQuestion question;
    question.Rows = FValues.Rows();
    question.X = FX.Turns;
    question.HasAnalysis = std::ranges::any_of(FOptions.Analyses, [](const TAnalysisRequest& Request) {
        return Request.Quantity == TQuantity::Value;
    });
    question.HasCategories = FColumns.Texts >= 0;
    question.AreDistinct = FX.AreDistinct;
    question.MayHaveBars = FOptions.Analyses.empty() && columns.DX.empty() && columns.DY.empty() &&
                           columns.DXMinus.empty() && columns.DYMinus.empty() && !FOptions.Look.LogY;
    TStyleChoice choice = ChooseStyle(question);
    if (FDrawing.Style) choice = {*FDrawing.Style, false, "--style says so"};
    // A line of one point would be nothing.
    if (FValues.Rows() == 1 && choice.Style == TStyle::Line) choice.Style = TStyle::Both;
    return choice;
}

TPointsPlan TSeriesPlanner::Points(std::size_t Index) {
    const bool alone =
        FStyle.Style == TStyle::Line && !FDrawing.Style && StandAlone(FValues.Of(FColumns.Y[Index]));
    return {alone ? TStyle::Both : FStyle.Style,  alone ? IsCloud(FValues.Rows()) : FStyle.SmallSymbols,
            Errors("dX", Index, FColumns.DXPlus), Errors("dXMinus", Index, FColumns.DXMinus),
            Errors("dY", Index, FColumns.DYPlus), Errors("dYMinus", Index, FColumns.DYMinus)};
}

// Bars of several series that are beside or upon one another belong together.
TSeriesPlanner::TKind TSeriesPlanner::Kind(std::size_t Index) {
    constexpr double gap = 10;
    const TDrawingRequest& drawing = FDrawing;
    if (drawing.HasBars())
        return TBarsPlan{drawing.Style == TStyle::Bars3D, FColumns.Y.size() > 1 && !drawing.Bins ? gap : 0};
    if (drawing.HasArrows())
        return TArrowsPlan{Vector("VX", Index, FColumns.VX[Index]), Vector("VY", Index, FColumns.VY[Index])};
    return Points(Index);
}

TSeriesPlan TSeriesPlanner::Series(std::size_t Index, const TVectorPlan& X) {
    const int column = FColumns.Y[Index];
    TSeriesPlan series;
    series.Name = "Series" + std::to_string(Index + 1);
    series.Caption =
        EscapeCaption(FTable.GetHeader(column).empty() ? FTable.ColumnName(column)
                                                       : Escaped(HeaderWithUnit(FTable, column)));
    series.ShownColumn = FTable.ShownName(column);
    series.OnY2 = Index >= FColumns.FirstOnY2;
    if (FOptions.Columns.WeightByErrors) series.Weight = ErrorWeight(Index, X);
    series.Kind = Kind(Index);
    series.Y = Vector("YData", Index, column);
    if (FOptions.Drawing.Bins) series.Y.Values = CountInBins(X.Values, series.Y.Values);
    return series;
}

/// Each of the series gets each analysis.
std::vector<TAnalysisPlan> PlanAnalyses(const std::vector<TAnalysisRequest>& Requests,
                                        std::size_t SeriesCount) {
    std::vector<TAnalysisPlan> analyses;
    std::map<std::string, int> numbers;
    for (std::size_t series = 0; series < SeriesCount; ++series)
        for (std::size_t k = 0; k < Requests.size(); ++k) {
            const std::string kind = KindOf(Requests[k]);
            const int number = ++numbers[kind];
            analyses.push_back({Requests[k],
                                number,
                                kind + std::to_string(number),
                                NameOf(Requests[k]),
                                {int(k), int(series), SeriesCount > 1}});
        }
    return analyses;
}

/// One series a y axis is told by the caption of that.
bool NeedsLegend(const TPlan& Plan) {
    const bool isOneEach = Plan.Series.size() == 2 && !Plan.Series[0].OnY2 && Plan.Series[1].OnY2;
    return Plan.Series.size() + Plan.Analyses.size() + Plan.Functions.size() > (isOneEach ? 2 : 1);
}

} // namespace

void CompletePlan(TPlan& Plan, const TOptions& Options) {
    Plan.Analyses = PlanAnalyses(Options.Analyses, Plan.Series.size());
    Plan.HasLegend = NeedsLegend(Plan) || Options.Legend.Place || Options.Legend.None;
    Plan.WeighLogarithms = Options.Columns.WeightByErrors;
    Plan.Legend = Options.Legend;
    Plan.Fitting = Options.Fitting;
    Plan.Bands = Options.Bands;
    Plan.Marks = Options.Marks;
    Plan.Labels = Options.Labels;
    Plan.Look = Options.Look;
}

TPlan MakePlan(const TKxTable& Table, const TOptions& Options, std::vector<std::string>* Told) {
    const TColumns columns = ChooseColumns(Table, Options);
    TSeriesPlanner planner(Table, Options, columns);
    TPlan plan;
    plan.Table = Table.GetName();
    plan.Size = Options.Outputs.Size.Whole();
    plan.X = planner.X();
    plan.Weight = planner.Weight();
    for (std::size_t k = 0; k < columns.Y.size(); ++k) plan.Series.push_back(planner.Series(k, plan.X));
    for (const int column : columns.LeftOut) plan.LeftOut.push_back(Table.ShownName(column));
    plan.Axes = PlanAxes(Table, columns, Options);
    planner.PlanLabels(plan.Axes);
    plan.Drawing = planner.Drawing();
    CompletePlan(plan, Options);
    if (Told) *Told = ExplainColumns(Table, columns, plan, planner.Style());
    return plan;
}

} // namespace kxplot
