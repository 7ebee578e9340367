#include "kxplot/form/residuals.h"

#include "kxplot/form/look.h"

#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/series/Kxruleseries.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace kxplot {

using namespace kx;

namespace {

constexpr int CPercent = 30;     // of the height is the lower graph's
constexpr int CMostPercent = 45; // where it would be too low for its axes
constexpr int CLowest = 140;     // pixels of it with letters of CUsualFont points
constexpr int CUsualFont = 11;

/// Where a drawing world begins and ends.
struct TWorldEnds {
    int From, To;
    friend bool operator==(const TWorldEnds&, const TWorldEnds&) = default;
};

TKxAxis* MakeAxis(TParts& Parts, const std::string& Name) {
    auto* axis = new TKxAxis(Parts.Form.get());
    axis->SetName(Name);
    axis->SetParent(Parts.Graph2);
    DressAxis(*axis, Parts.Theme);
    Parts.Theme.ApplyTo(*axis);
    return axis;
}

void MakeGraphs(TParts& Parts) {
    TForm& form = *Parts.Form;
    const TSize size = Parts.Graph->GetBoundsRect().Size();
    Parts.Sheet = new TCustomControl(&form); // without a ground of its own
    Parts.Sheet->SetParent(&form);
    Parts.Graph->SetParent(Parts.Sheet);
    TKx2DGraph& graph = *(Parts.Graph2 = new TKx2DGraph(&form));
    graph.SetName("Graph2");
    graph.SetParent(Parts.Sheet);
    PlaceGraphs(Parts, size);
    graph.SetTransparent(Parts.Graph->GetTransparent());
    DressGraph(graph, Parts.Theme);
    Parts.Theme.ApplyTo(graph);
}

/// The x axis is that of the upper graph, and tells for both.
void MakeAxes(TParts& Parts) {
    TKxAxis *x = MakeAxis(Parts, "XAxis2"), *y = MakeAxis(Parts, "YAxis2");
    Parts.Graph2->SetPrimaryXAxis(x);
    Parts.Graph2->SetPrimaryYAxis(y);
    x->SetMasterAxis(Parts.XAxis);
    x->SetIsSlave(true);
    y->SetCaption("residuals");
    Parts.XAxis->SetShowCaption(false);
    Parts.XAxis->SetShowScaleLabels(false);
}

void StandOn(TKxSeries& Series, const TKx2DGraph& Graph) {
    Series.SetXAxis(Graph.GetPrimaryXAxis());
    Series.SetYAxis(Graph.GetPrimaryYAxis());
}

void MakeZeroLine(TParts& Parts) {
    auto* zero = new TKxLiveVector(Parts.Form.get());
    zero->SetName("ZeroData");
    zero->Add(0);
    auto* line = new TKxRuleSeries(Parts.Form.get());
    line->SetName("Zero");
    line->SetDirection(rdHorizontal);
    line->SetIncludeInLegend(false);
    StandOn(*line, *Parts.Graph2);
    line->SetXData(zero);
    line->SetYData(zero);
    line->GetLineStyle().SetColor(Parts.Theme.GetInk());
}

/// With the symbol of its series, and with several fits of one series in the colour of the fit.
void MakeSeries(TParts& Parts, std::size_t Analysis) {
    const TAnalysis& analysis = Parts.Analyses[Analysis];
    const std::string name = "Residuals" + std::to_string(Parts.Residuals.size() + 1);
    auto* series = new TKxDataSeries(Parts.Form.get());
    series->SetName(name);
    StandOn(*series, *Parts.Graph2);
    DressPoints(*series, analysis.Plan->Place.Series, Parts.Theme);
    series->SetBreakAtGaps(true);
    series->GetLineStyle().SetVisible(false);
    series->GetPointStyle().SetVisible(true);
    if (analysis.Plan->Place.Number > 0)
        series->GetPointStyle().SetColor(analysis.Line->GetLineStyle().GetColor());
    Parts.Theme.ApplyTo(*series);
    TResiduals residuals{series, new TKxLiveVector(Parts.Form.get()), new TKxLiveVector(Parts.Form.get()),
                         Analysis};
    residuals.X->SetName(name + "X");
    residuals.Y->SetName(name + "Y");
    Parts.Residuals.push_back(residuals);
}

/// From the left edge of the sheet.
TWorldEnds WorldOf(const TKx2DGraph& Graph) {
    const TRect world = Graph.GetDrawingWorld().GetBoundsRect();
    return {Graph.GetLeft() + world.Left, Graph.GetLeft() + world.Right};
}

} // namespace

void MakeResiduals(TParts& Parts) {
    if (!Parts.Plan.Fitting.Residuals) return;
    MakeGraphs(Parts);
    MakeAxes(Parts);
    MakeZeroLine(Parts);
    for (std::size_t k = 0; k < Parts.Analyses.size(); ++k)
        if (Parts.Analyses[k].Plan->Request.IsFit()) MakeSeries(Parts, k);
}

void FillResiduals(TParts& Parts) {
    for (const TResiduals& residuals : Parts.Residuals) {
        const TAnalysis& analysis = Parts.Analyses[residuals.Analysis];
        if (!analysis.HasCurve()) continue;
        const auto x = analysis.Parent->GetXData()->Values(), y = analysis.Parent->GetYData()->Values();
        std::vector<double> values(std::min(x.size(), y.size()), std::numeric_limits<double>::quiet_NaN());
        for (std::size_t i = 0; i < values.size(); ++i)
            if (analysis.Line->GetCalculationStart() <= x[i] && x[i] <= analysis.Line->GetCalculationStop())
                values[i] = y[i] - analysis.Line->GetY(x[i]);
        residuals.X->Clear();
        residuals.Y->Clear();
        residuals.X->AddValues(x.first(values.size()));
        residuals.Y->AddValues(values);
        residuals.Series->SetXData(residuals.X);
        residuals.Series->SetYData(residuals.Y);
    }
    if (!Parts.Graph2) return;
    Parts.Graph2->SetTransparent(Parts.Graph->GetTransparent());
    Parts.Graph2->SetColor(Parts.Graph->GetColor());
    Parts.Graph2->SetDataColor(Parts.Graph->GetDataColor());
    SettleTree(*Parts.Form);
}

void PlaceGraphs(const TParts& Parts, TSize Size) {
    const int lowest = CLowest * Parts.XAxis->GetFont().GetSize() / CUsualFont;
    const int lower = std::clamp(lowest, Size.Height * CPercent / 100, Size.Height * CMostPercent / 100);
    const int upper = Size.Height - lower;
    Parts.Sheet->SetBounds(0, 0, Size.Width, Size.Height);
    Parts.Graph->SetBounds(0, 0, Size.Width, upper);
    Parts.Graph2->SetBounds(0, upper, Size.Width, Size.Height - upper);
}

// What stands beside the drawing worlds keeps its width; so each graph moves by what its world is off.
void AlignGraphs(TParts& Parts) {
    constexpr int rounds = 12; // fewer labels may need less room
    for (int round = 0; round < rounds; ++round) {
        SettleTree(*Parts.Form);
        const TWorldEnds upper = WorldOf(*Parts.Graph), lower = WorldOf(*Parts.Graph2);
        const int left = std::max(upper.From, lower.From), right = std::min(upper.To, lower.To);
        if (upper == lower) return;
        for (const auto& [graph, world] : {std::pair{Parts.Graph, upper}, std::pair{Parts.Graph2, lower}}) {
            const int from = graph->GetLeft() + left - world.From;
            const int to = graph->GetLeft() + graph->GetWidth() + right - world.To;
            graph->SetBounds(from, graph->GetTop(), to - from, graph->GetHeight());
        }
    }
}

} // namespace kxplot
