#include "kxplot/form/series.h"

#include "kxplot/form/lines.h"
#include "kxplot/form/look.h"

#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/series/Kxarrowseries.h>
#include <kxgraph/table/Kxfilevector.h>

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

namespace kxplot {

using namespace kx;

namespace {

/// It has its values already.
TKxLiveVector* MakeFileVector(const TColumnSource& Source, TForm& Form) {
    auto* vector = new TKxFileVector(&Form);
    vector->BeginLoading();
    vector->SetFileName(Source.File);
    vector->SetColumn(Source.Column);
    vector->EndLoading();
    return vector;
}

// Filled before a series listens to it.
TKxLiveVector* MakeVector(TVectorPlan& Plan, TForm& Form) {
    auto* vector = Plan.Source ? MakeFileVector(*Plan.Source, Form) : new TKxLiveVector(&Form);
    vector->SetName(Plan.Name);
    vector->AddValues(std::exchange(Plan.Values, {}));
    return vector;
}

/// Null for none.
TKxLiveVector* MakeVector(std::optional<TVectorPlan>& Plan, TForm& Form) {
    return Plan ? MakeVector(*Plan, Form) : nullptr;
}

/// Makes the next series of a kind.
class TSeriesMaker {
public:
    TSeriesMaker(TParts& Parts, TSeriesPlan& Plan, TKxLiveVector* X)
        : FParts(Parts), FForm(*Parts.Form), FPlan(Plan), FX(X) {}

    TKxNotCalculatedSeries* operator()(TPointsPlan& Points);
    TKxNotCalculatedSeries* operator()(TBarsPlan& Bars);
    TKxNotCalculatedSeries* operator()(TArrowsPlan& Arrows);

private:
    int Number() const { return int(FParts.Series.size()); }

    TParts& FParts;
    TForm& FForm;
    TSeriesPlan& FPlan;
    TKxLiveVector* FX;
};

TKxNotCalculatedSeries* TSeriesMaker::operator()(TPointsPlan& Points) {
    auto* series = new TKxDataWithErrorSeries(&FForm);
    DressSeries(*series, Number(), Points, FParts.Theme);
    auto* dx = MakeVector(Points.DXPlus, FForm);
    auto* dy = MakeVector(Points.DYPlus, FForm);
    auto* dxMinus = MakeVector(Points.DXMinus, FForm);
    auto* dyMinus = MakeVector(Points.DYMinus, FForm);
    series->SetdXPlus(dx);
    series->SetdXMinus(dxMinus ? dxMinus : dx);
    series->SetdYPlus(dy);
    series->SetdYMinus(dyMinus ? dyMinus : dy);
    series->SetXData(FX);
    series->SetYData(MakeVector(FPlan.Y, FForm));
    return series;
}

TKxNotCalculatedSeries* TSeriesMaker::operator()(TBarsPlan& Bars) {
    auto* series = new TKxBarSeries(&FForm);
    DressBars(*series, Number(), Bars.Boxes, FParts.Theme);
    series->SetBarsGapPercent(Bars.GapPercent);
    series->SetShiftOverlays(FParts.Plan.SeveralSeries());
    series->SetStackSignsApart(true);
    auto* lengths = MakeVector(FPlan.Y, FForm);
    const bool lie = FParts.Plan.Drawing.Horizontal;
    FParts.Bars.push_back({series, lie ? lengths : FX, lie ? FX : lengths});
    return series;
}

TKxNotCalculatedSeries* TSeriesMaker::operator()(TArrowsPlan& Arrows) {
    auto* series = new TKxArrowSeries(&FForm);
    DressArrows(*series, Number(), FParts.Theme);
    series->SetDX(MakeVector(Arrows.DX, FForm));
    series->SetDY(MakeVector(Arrows.DY, FForm));
    series->SetXData(FX);
    series->SetYData(MakeVector(FPlan.Y, FForm));
    return series;
}

/// The counts of a histogram over the middles of its bins, for fits; nothing of it shows.
TKxNotCalculatedSeries* MakeMiddles(TParts& Parts, const TKxSeries& Bars, std::size_t Number) {
    TForm& form = *Parts.Form;
    const auto edges = Bars.GetXData()->Values(), counts = Bars.GetYData()->Values();
    TVectorPlan middles{"Middles" + std::to_string(Number), {}};
    for (std::size_t i = 0; i + 1 < edges.size(); ++i)
        middles.Values.push_back(edges[i] + (edges[i + 1] - edges[i]) / 2);
    TVectorPlan heights{"Counts" + std::to_string(Number), {counts.begin(), counts.end()}};
    auto* series = new TKxLineSeries(&form);
    series->SetName("Bins" + std::to_string(Number));
    series->SetXData(MakeVector(middles, form));
    series->SetYData(MakeVector(heights, form));
    series->GetLineStyle().SetVisible(false);
    series->SetIncludeInLegend(false);
    series->SetAutoCaption(Bars.GetCaption());
    return series;
}

void MakeFunction(TParts& Parts, TSeriesPlan& Plan) {
    auto* series = new TKxDataSeries(Parts.Form.get());
    series->SetName(Plan.Name);
    DressLine(*series, int(Parts.Series.size() + Parts.Functions.size()), Parts.Theme);
    series->GetLineStyle().SetWidth(Parts.Series.empty() ? 1 : 2);
    series->GetPointStyle().SetVisible(false);
    series->SetBreakAtGaps(true);
    Parts.Theme.ApplyTo(*series);
    series->SetXData(MakeVector(Plan.X, *Parts.Form));
    series->SetYData(MakeVector(Plan.Y, *Parts.Form));
    series->SetAutoCaption(Plan.Caption);
    Parts.Functions.push_back(series);
}

} // namespace

void MakeSeries(TParts& Parts) {
    auto* const x = MakeVector(Parts.Plan.X, *Parts.Form);
    auto* const weight = MakeVector(Parts.Plan.Weight, *Parts.Form);
    for (TSeriesPlan& plan : Parts.Plan.Series) {
        auto* series =
            std::visit(TSeriesMaker(Parts, plan, plan.X ? MakeVector(plan.X, *Parts.Form) : x), plan.Kind);
        series->SetName(plan.Name);
        Parts.Theme.ApplyTo(*series);
        series->SetWeight(plan.Weight ? MakeVector(*plan.Weight, *Parts.Form) : weight);
        series->SetAutoCaption(plan.Caption);
        if (plan.OnY2) series->SetYAxis(Parts.Y2Axis);
        Parts.Series.push_back(series);
        if (!Parts.Plan.Drawing.Bins) AddLines(Parts, *Parts.Analysed.emplace_back(series));
    }
    ConfigureBars(Parts);
    if (Parts.Plan.Drawing.Bins && !Parts.Plan.Analyses.empty())
        for (std::size_t k = 0; k < Parts.Series.size(); ++k)
            AddLines(Parts, *Parts.Analysed.emplace_back(MakeMiddles(Parts, *Parts.Series[k], k + 1)));
    for (TSeriesPlan& plan : Parts.Plan.Functions) MakeFunction(Parts, plan);
}

void ConfigureBars(TParts& Parts) {
    const TDrawingRequest& drawing = Parts.Plan.Drawing;
    for (const auto& [series, x, y] : Parts.Bars) {
        series->SetBarHorizontal(drawing.Horizontal);
        if (series->GetXData() != x) series->SetXData(x);
        if (series->GetYData() != y) series->SetYData(y);
        if (drawing.Stack) series->SetStackOverlays(true);
        if (drawing.Shift) series->SetShiftOverlays(true);
        if (drawing.Style) series->SetShowAs3D(drawing.Style == TStyle::Bars3D);
    }
}

} // namespace kxplot
