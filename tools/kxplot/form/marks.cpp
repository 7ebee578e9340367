#include "kxplot/form/marks.h"

#include "kxplot/form/look.h"

#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/series/Kxarrowseries.h>
#include <kxgraph/series/Kxruleseries.h>

#include <string>
#include <vector>

namespace kxplot {

using namespace kx;

namespace {

TKxLiveVector* MakeVector(TForm& Form, const std::string& Name, const std::vector<double>& Values) {
    auto* vector = new TKxLiveVector(&Form);
    vector->SetName(Name);
    vector->AddValues(Values);
    return vector;
}

void MakeRule(TParts& Parts, const char* Name, const std::vector<double>& At, TKxRuleDirection Direction) {
    if (At.empty()) return;
    auto* rule = new TKxRuleSeries(Parts.Form.get());
    TKxLiveVector* values = MakeVector(*Parts.Form, std::string(Name) + "Data", At);
    rule->SetName(Name);
    rule->SetDirection(Direction);
    rule->SetXData(values);
    rule->SetYData(values);
    rule->SetIncludeInLegend(false);
    rule->GetLineStyle().SetColor(Parts.Theme.GetInk());
    rule->GetLineStyle().SetStyle(psDash);
    Parts.Theme.ApplyTo(*rule);
}

void MakeArrows(TParts& Parts) {
    const auto& arrows = Parts.Plan.Marks.Arrows;
    if (arrows.empty()) return;
    std::vector<double> x, y, dx, dy;
    for (const TArrowMark& arrow : arrows) {
        x.push_back(arrow.X1);
        y.push_back(arrow.Y1);
        dx.push_back(arrow.X2 - arrow.X1);
        dy.push_back(arrow.Y2 - arrow.Y1);
    }
    auto* series = new TKxArrowSeries(Parts.Form.get());
    series->SetName("Arrows1");
    DressArrows(*series, 0, Parts.Theme);
    series->GetLineStyle().SetColor(Parts.Theme.GetInk());
    series->SetIncludeInLegend(false);
    Parts.Theme.ApplyTo(*series);
    series->SetDX(MakeVector(*Parts.Form, "Arrows1DX", dx));
    series->SetDY(MakeVector(*Parts.Form, "Arrows1DY", dy));
    series->SetXData(MakeVector(*Parts.Form, "Arrows1X", x));
    series->SetYData(MakeVector(*Parts.Form, "Arrows1Y", y));
}

void MakeTexts(TParts& Parts) {
    for (const TTextMark& text : Parts.Plan.Marks.Texts) {
        auto* label = new TKxLabel(Parts.Form.get());
        label->SetName("Text" + std::to_string(Parts.Texts.size() + 1));
        label->SetParent(Parts.Graph);
        label->SetTransparent(true);
        label->SetFont(Parts.XAxis->GetFont());
        label->SetCaption(text.Caption);
        Parts.Theme.ApplyTo(*label);
        Parts.Texts.push_back(label);
    }
}

} // namespace

void MakeMarks(TParts& Parts) {
    MakeRule(Parts, "Rule1", Parts.Plan.Marks.Vertical, rdVertical);
    MakeRule(Parts, "Rule2", Parts.Plan.Marks.Horizontal, rdHorizontal);
    MakeArrows(Parts);
    MakeTexts(Parts);
}

// The middle of a line's height stands at the point.
void PlaceTexts(TParts& Parts) {
    const TRect world = Parts.Graph->GetDrawingWorld().GetBoundsRect();
    if (Parts.Texts.empty()) return;
    const TKxSeries& series = Parts.Series.empty() ? *Parts.Functions.front() : *Parts.Series.front();
    for (std::size_t k = 0; k < Parts.Texts.size(); ++k) {
        TKxLabel& label = *Parts.Texts[k];
        const TTextMark& mark = Parts.Plan.Marks.Texts[k];
        const TPoint at{world.Left + series.RealToIntX(mark.X), world.Top + series.RealToIntY(mark.Y)};
        label.SetBounds(at.X, at.Y - label.GetHeight() / 2, label.GetWidth(), label.GetHeight());
    }
}

} // namespace kxplot
