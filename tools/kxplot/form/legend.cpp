#include "kxplot/form/legend.h"

#include "kxplot/form/captionfit.h"
#include "kxplot/form/legendplace.h"
#include "kxplot/form/look.h"
#include "kxplot/plan/captiontext.h"

#include <kxgraph/platform/controls/frame.h>

#include <algorithm>

namespace kxplot {

using namespace kx;

namespace {

constexpr int CSmallestSample = 18;
constexpr int CPatternSample = 44; // two dashes of a pen two pixels wide

/// How far entries reach beyond the legend's edges.
TSize OverflowOf(const TKxLegend& Legend) {
    TSize beyond;
    for (int i = 0; i < Legend.GetEntryCount(); ++i) {
        const TRect entry = Legend.GetEntryRect(i);
        beyond.Width = std::max(beyond.Width, entry.Right - Legend.GetWidth());
        beyond.Height = std::max(beyond.Height, entry.Bottom - Legend.GetHeight());
    }
    return beyond;
}

/// Cuts captions off whose entries would end beyond a number of pixels.
class TEntryShortener {
public:
    TEntryShortener(const TKxLegend& Legend, int Width)
        : FRoom(Width - Legend.GetSampleWidth() - 3 * Legend.GetGap()) {
        FCanvas.Font.Assign(Legend.GetFont());
    }

    void Shorten(TKxSeries& Series) { Shorten(Series, {PlainText(Series.GetCaption()), ""}); }
    /// What the analysis is stays as long as there is room for it.
    void Shorten(const TAnalysis& Analysis) {
        const std::string plain = PlainText(Analysis.Line->GetCaption());
        Shorten(*Analysis.Line,
                Analysis.Plan->Place.SeveralSeries ? CutAtColon(plain) : TCutCaption{plain, ""});
    }

private:
    /// On the screen and where letters are as wide as their design has them.
    bool Fits(const TKxCaption& Caption) {
        const TKxParsedCaption parsed = ParseCaption(Caption);
        return MeasureCaption(parsed, FCanvas) <= FRoom && ExactCaptionWidth(parsed, FCanvas) <= FRoom;
    }
    void Shorten(TKxSeries& Series, const TCutCaption& Plain);

    TCanvas FCanvas;
    int FRoom;
};

void TEntryShortener::Shorten(TKxSeries& Series, const TCutCaption& Plain) {
    const auto fits = [this](const TKxCaption& Caption) { return Fits(Caption); };
    if (Series.GetDoUserCaption() || fits(Series.GetCaption()) || (Plain.Head + Plain.Tail).empty()) return;
    TKxCaption caption = Shortened(Plain.Head, Plain.Tail, fits);
    if (!fits(caption)) {
        const auto inside = [](const std::string& Beginning) { return EscapeCaption("…" + Beginning + "…"); };
        caption = inside(LongestFitting(
            Plain.Tail, [&](const std::string& Beginning) { return fits(inside(Beginning)); }));
    }
    Series.SetAutoCaption(caption);
}

// A formula may be as long as it likes; the legend would take the room of the data.
class TFormulaShortener {
public:
    explicit TFormulaShortener(const TParts& Parts) : FParts(Parts) {
        for (const auto& analysis : Parts.Analyses)
            if (analysis.Plan->Request.Method == TMethod::Formula)
                FWhole.emplace_back(&analysis, analysis.Line->GetCaption());
    }
    /// To what there is room for with the letters of now.
    void Shorten() const {
        const int width = FParts.Graph->GetWidth(), world = FParts.Graph->GetDrawingWorld().GetWidth();
        const bool beside = FParts.Legend->GetPlacement() == lgRight;
        TEntryShortener shortener(*FParts.Legend, beside ? width / 3 : world);
        for (const auto& [analysis, caption] : FWhole) {
            if (!analysis->Line->GetDoUserCaption()) analysis->Line->SetAutoCaption(caption);
            shortener.Shorten(*analysis);
        }
        SettleTree(*FParts.Form);
    }

private:
    const TParts& FParts;
    std::vector<std::pair<const TAnalysis*, TKxCaption>> FWhole;
};

void ShortenAll(const TParts& Parts) {
    TEntryShortener shortener(*Parts.Legend, Parts.Legend->GetWidth());
    for (TKxSeries* series : Parts.Series) shortener.Shorten(*series);
    for (const auto& analysis : Parts.Analyses) shortener.Shorten(analysis);
    for (const auto& band : Parts.Bands) shortener.Shorten(*band.Line);
    for (TKxSeries* function : Parts.Functions) shortener.Shorten(*function);
}

void LeaveOutWhatIsNotDrawn(TParts& Parts) {
    for (const auto& analysis : Parts.Analyses) {
        if (analysis.IsDrawn() || !analysis.Line->GetIncludeInLegend()) continue;
        analysis.Line->SetIncludeInLegend(false);
        Parts.LeftOut.push_back(analysis.Line);
    }
}

void Shrink(TParts& Parts) {
    TKxLegend& legend = *Parts.Legend;
    const int size = legend.GetFont().GetSize(), sample = legend.GetSampleWidth();
    const auto takeOff = [&](int Points) {
        legend.GetFont().SetSize(size - Points);
        legend.SetSampleWidth(int(std::max<long long>(CSmallestSample, sample - 6LL * Points)));
        SettleTree(*Parts.Form);
    };
    ShrinkToFit(size, takeOff, [&] { return OverflowOf(legend) == TSize{}; });
}

} // namespace

bool IsShown(const TKxLegend& Legend) { return Legend.GetGraph() && Legend.GetVisible(); }

// Without its graph a legend shows nothing and an outfit says nothing of it.
void MakeLegend(TParts& Parts) {
    TKxLegend& legend = *(Parts.Legend = new TKxLegend(Parts.Form.get()));
    legend.SetName("Legend1");
    legend.SetParent(Parts.Graph);
    DressLegend(legend, Parts.Theme);
    Parts.Theme.ApplyTo(legend);
    if (std::ranges::any_of(Parts.Analyses, [](const TAnalysis& Analysis) {
            return Analysis.Line->GetLineStyle().GetStyle() != psSolid;
        }))
        legend.SetSampleWidth(CPatternSample);
    if (Parts.Plan.HasLegend) legend.SetGraph(Parts.Graph);
}

void ConfigureLegend(TParts& Parts) {
    const TLegendRequest& request = Parts.Plan.Legend;
    TKxLegend& legend = *Parts.Legend;
    if (request.Place) {
        PlaceLegend(legend, *request.Place);
        legend.SetVisible(true);
    }
    if (request.None) legend.SetVisible(false);
    // Headers of several series stand in the legend, but of two axes each says which are its own.
    if (IsShown(legend) && Parts.Plan.SeveralSeries() && !Parts.Y2Axis)
        (Parts.Plan.Axes.SeriesOnX ? Parts.XAxis : Parts.YAxis)->SetAutoCaption("");
}

void FinishLegend(TParts& Parts) {
    TKxLegend& legend = *Parts.Legend;
    if (!IsShown(legend)) return;
    LeaveOutWhatIsNotDrawn(Parts);
    SettleTree(*Parts.Form);
    LeaveWidthToTheData(Parts);
    const TFormulaShortener formulas(Parts);
    formulas.Shorten();
    if (!Parts.LeftOut.empty() && !Parts.Plan.Legend.Place && legend.GetEntryCount() < 2)
        legend.SetGraph(nullptr);
    const int size = legend.GetFont().GetSize();
    FitLegend(Parts);
    if (legend.GetFont().GetSize() != size) formulas.Shorten();
}

void FitLegend(TParts& Parts) {
    if (!IsShown(*Parts.Legend)) return;
    if (Parts.Plan.Look.Outfit.empty()) Shrink(Parts);
    if (OverflowOf(*Parts.Legend).Width > 0) ShortenAll(Parts);
    SettleTree(*Parts.Form);
}

} // namespace kxplot
