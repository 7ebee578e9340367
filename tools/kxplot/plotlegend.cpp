// The legend: when there is one, and how it is made to fit.

#include "kxplot/captiontext.h"
#include "kxplot/fitting.h"
#include "kxplot/look.h"
#include "kxplot/plot.h"

#include <kxgraph/platform/controls/frame.h>

#include <algorithm>

namespace kxplot {

using namespace kx;

namespace {

constexpr int CSmallestFont = 8, CSmallestSample = 18;
constexpr int CPatternSample = 44; // two dashes of a pen two pixels wide

/// Among the data one column hides the least; beside them there are as many as the side asks for.
int ColumnsAt(TKxLegendPlacement Placement) {
    const bool beside =
        Placement == lgRight || Placement == lgLeft || Placement == lgTop || Placement == lgBottom;
    return beside ? 0 : 1;
}

} // namespace

// Without its graph a legend shows nothing and an outfit says nothing of it.
void TPlot::MakeLegend(const TOptions& Options) {
    FLegend = new TKxLegend(FForm.get());
    FLegend->SetName("Legend1");
    FLegend->SetParent(FGraph);
    DressLegend(*FLegend);
    const auto& analyses = FAnalyses->GetItems();
    if (std::any_of(analyses.begin(), analyses.end(), [](const TAnalysis& Analysis) {
            return Analysis.Line->GetLineStyle().GetStyle() != psSolid;
        }))
        FLegend->SetSampleWidth(CPatternSample);
    const bool several = FSeries.size() + analyses.size() > 1;
    if (several || Options.Legend || Options.NoLegend) FLegend->SetGraph(FGraph);
}

void TPlot::ConfigureLegend(const TOptions& Options) {
    if (Options.Legend) {
        if (FLegend->GetPlacement() != *Options.Legend) FLegend->SetColumns(ColumnsAt(*Options.Legend));
        FLegend->SetPlacement(*Options.Legend);
        FLegend->SetVisible(true);
    }
    if (Options.NoLegend) FLegend->SetVisible(false);
    // Headers of several series stand in the legend.
    if (HasLegend() && FSeries.size() > 1) FSeriesAxis->SetAutoCaption("");
}

TSize TPlot::LegendOverflow() const {
    TSize beyond;
    for (int i = 0; i < FLegend->GetEntryCount(); ++i) {
        const TRect entry = FLegend->GetEntryRect(i);
        beyond.Width = std::max(beyond.Width, entry.Right - FLegend->GetWidth());
        beyond.Height = std::max(beyond.Height, entry.Bottom - FLegend->GetHeight());
    }
    return beyond;
}

void TPlot::ShortenEntries(int Width, bool FormulasAlone) {
    TCanvas canvas;
    canvas.Font.Assign(FLegend->GetFont());
    const int room = Width - FLegend->GetSampleWidth() - 3 * FLegend->GetGap();
    const auto fits = [&](const TKxCaption& Caption) {
        return MeasureCaption(ParseCaption(Caption), canvas) <= room;
    };
    const auto shorten = [&](TKxSeries& Series, bool IsAnalysis) {
        if (Series.GetDoUserCaption() || fits(Series.GetCaption())) return;
        const std::string plain = PlainText(Series.GetCaption());
        const auto colon = IsAnalysis ? std::min(plain.rfind(": "), plain.size()) : plain.size();
        const std::string tail = plain.substr(colon);
        const auto with = [](const std::string& Head, const std::string& Tail) {
            return EscapeCaption(Head + "…" + Tail);
        };
        const std::string head = LongestFitting(
            plain.substr(0, colon), [&](const std::string& Head) { return fits(with(Head, tail)); });
        TKxCaption caption = with(head, tail);
        if (head.empty() && !fits(caption))
            caption = with("", LongestFitting(tail, [&](const std::string& T) { return fits(with("", T)); }));
        if (!plain.empty()) Series.SetAutoCaption(caption);
    };
    if (!FormulasAlone)
        for (TKxSeries* series : FSeries) shorten(*series, false);
    for (const auto& analysis : FAnalyses->GetItems())
        if (!FormulasAlone || analysis.Spec.Method == TMethod::Formula)
            shorten(*analysis.Line, FSeries.size() > 1);
}

void TPlot::FinishLegend(const TOptions& Options) {
    if (!HasLegend()) return;
    for (const auto& analysis : FAnalyses->GetItems()) {
        if (analysis.IsDrawn() || !analysis.Line->GetIncludeInLegend()) continue;
        analysis.Line->SetIncludeInLegend(false);
        FLeftOut.push_back(analysis.Line);
    }
    // A formula may be as long as it likes; the legend would take the room of the data.
    ShortenEntries(FGraph->GetWidth() / 3, true);
    SettleTree(*FForm);
    if (!FLeftOut.empty() && !Options.Legend && FLegend->GetEntryCount() < 2) FLegend->SetGraph(nullptr);
    const int size = FLegend->GetFont().GetSize(), sample = FLegend->GetSampleWidth();
    const auto fitsBy = [&](int Points) {
        FLegend->GetFont().SetSize(size - Points);
        FLegend->SetSampleWidth(int(std::max<long long>(CSmallestSample, sample - 6LL * Points)));
        SettleTree(*FForm);
        return LegendOverflow() == TSize{};
    };
    if (Options.Outfit.empty() && size > CSmallestFont && LegendOverflow() != TSize{})
        fitsBy(StepsToFit(size - CSmallestFont, fitsBy));
    if (LegendOverflow().Width > 0) ShortenEntries(FLegend->GetWidth(), false);
    SettleTree(*FForm);
}

} // namespace kxplot
