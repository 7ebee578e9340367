#include "kxplot/form/picture.h"

#include "kxplot/form/assignments.h"
#include "kxplot/form/axes.h"
#include "kxplot/form/axiscaptions.h"
#include "kxplot/form/legend.h"
#include "kxplot/form/lines.h"
#include "kxplot/form/look.h"
#include "kxplot/form/marks.h"
#include "kxplot/form/outfit.h"
#include "kxplot/form/residuals.h"
#include "kxplot/form/series.h"
#include "kxplot/form/sheet.h"
#include "kxplot/form/theme.h"

#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/host/application.h>

#include <cstddef>
#include <optional>
#include <utility>

namespace kxplot {

using namespace kx;

TPicture::TPicture(TPlan Plan) {
    FParts.Plan = std::move(Plan);
    FParts.Theme = ThemeCalled(FParts.Plan.Look.Theme);
    FParts.Form = std::make_unique<TForm>(&TApplication::Instance());
    MakeGraph();
    MakeAxes(FParts);
    MakeSeries(FParts);
    ColourDataAxes(FParts);
    MakeMarks(FParts);
    MakeResiduals(FParts);
    MakeLegend(FParts);
    CaptionAxes(FParts);
}

void TPicture::MakeGraph() {
    const TSize size = FParts.Plan.Size;
    TForm& form = *FParts.Form;
    form.SetName("Form1");
    form.SetBounds(0, 0, size.Width, size.Height);
    TKx2DGraph& graph = *(FParts.Graph = new TKx2DGraph(&form)); // the form owns its components
    graph.SetName("Graph1");
    graph.SetParent(&form);
    graph.SetBounds(0, 0, size.Width, size.Height);
    DressGraph(graph, FParts.Theme);
    FParts.Theme.ApplyTo(graph);
}

void TPicture::LoadOutfit(const std::string& FileName) {
    TKxIniList ini;
    LoadOutfitFile(*FParts.Graph, FileName, ini);
    // Analyses beyond those of the file have got the look of others, which would not tell them apart.
    for (std::size_t k = 0; k < FParts.Series.size(); ++k) {
        const int saved = ini.ReadInteger("Graph1.Series(" + std::to_string(k + 1) + ")", "ChildCount", 0);
        if (saved > 0) DressLines(FParts, k, std::size_t(saved));
    }
    for (TKxAxis* axis : FParts.Graph->GetAxes()) axis->RedoRanges();
}

std::string TPicture::GetOutfit() {
    for (TKxSeries* line : FParts.LeftOut) line->SetIncludeInLegend(true); // with other data it is drawn
    SettleTree(*FParts.Form);
    TKxIniList ini;
    FParts.Graph->SaveOutfit("Graph1", ini);
    while (ini.GetCount() > 0 && ini.GetLine(0).empty()) ini.Delete(0);
    return ini.GetText();
}

void TPicture::ApplyLook() {
    const TLookRequest& look = FParts.Plan.Look;
    if (look.LogX) FParts.XAxis->SetScaling(AxLogEE);
    if (look.LogY) FParts.YAxis->SetScaling(AxLogEE);
    if (look.Ground) ApplyGround(*look.Ground);
    if (look.Title) {
        FParts.Graph->SetCaption(*look.Title);
        FParts.Graph->SetShowTitle(true);
    }
    const auto caption = [](TKxAxis& Axis, const std::optional<std::string>& Text) {
        if (!Text) return;
        Axis.SetUserCaption(*Text);
        Axis.SetDoUserCaption(true);
        Axis.SetCaption(*Text);
    };
    caption(*FParts.XAxis, look.XCaption);
    caption(*FParts.YAxis, look.YCaption);
}

void TPicture::ApplyGround(const TGround& Ground) {
    FParts.Graph->SetTransparent(!Ground);
    if (FParts.Legend && !Ground) FParts.Legend->SetTransparent(true);
    if (!Ground) return;
    FParts.Graph->SetColor(*Ground);
    FParts.Graph->SetDataColor(*Ground);
}

void TPicture::Apply() {
    PutOnAxes(FParts);
    ConfigureLabels(FParts);
    ApplyLook();
    ConfigureLines(FParts);
    ConfigureBars(FParts);
    ConfigureLegend(FParts);
    FNotes = std::make_unique<TNotes>(FParts);
    CaptionSideAxes(FParts);
    FitCaptions(FParts);
    SettleTree(*FParts.Form); // the ends follow the data now and no longer when they are set below
    for (const auto& assignment : FParts.Plan.Look.Assignments) Assign(*FParts.Form, assignment);
    SettleTree(*FParts.Form);
}

void TPicture::Finish(const std::vector<TLabelSource>& Labels) {
    FNotes->Bind(Labels);
    FillResiduals(FParts);
    FinishLegend(FParts);
    Place();
}

void TPicture::Place() {
    if (FParts.Graph2) {
        AlignGraphs(FParts);
        FitLegend(FParts);
        AlignGraphs(FParts);
    }
    PlaceTexts(FParts);
    FNotes->Place();
}

void TPicture::TakeSizeOfForm() {
    FillForm(FParts);
    Place();
}

const TMetafile& TPicture::Record() { return Recorded(FParts, FRecord); }

} // namespace kxplot
