#include "kxplot/show/show.h"

#include "kxplot/form/sheet.h"
#include "kxplot/plugins/plugin.h"
#include "kxplot/show/fitswitch.h"
#include "kxplot/write/framefaults.h"
#include "kxplot/write/outputs.h"

#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/platform/text/files.h>

#include <string>

namespace kxplot {

namespace {

/// What a graph in a window can do with mouse and keys, where it can.
constexpr const char* CAbilities[] = {"AutoZoom",         "WheelZoom", "Panning",   "ZoomKeys",
                                      "UnzoomOnDblClick", "Readout",   "CrossHair", "LegendPicking"};

void SwitchOn(kx::TKx2DGraph& Graph) {
    for (const char* ability : CAbilities)
        if (Graph.PublishedProperties().Find(ability)) kx::SetPropertyText(Graph, ability, "1");
    Graph.SetTabStop(true);
    Graph.SetFocus();
}

std::string TitleOf(const TOptions& Options) {
    const std::string name = kx::ExtractFileName(Options.Data.File);
    return name.empty() || name == "-" ? "kxplot" : name + " - kxplot";
}

void Save(TPicture& Picture, const TFindings& Found, const TOutputRequest& Outputs) {
    const TFrameFaults faults;
    WriteOutputs(Picture, Found, Outputs, faults);
}

/// What is written beside a file by its name alone.
TOutputRequest OnlyAs(const TOutputRequest& Asked, const TParts& Parts) {
    const kx::TSize size = Parts.Form->GetClientRect().Size();
    TOutputRequest outputs;
    outputs.Size.Width = size.Width;
    outputs.Size.Height = size.Height;
    outputs.Scale = Asked.Scale;
    outputs.Antialias = Asked.Antialias;
    return outputs;
}

} // namespace

const TWindowPart* LoadWindow(const TWindowRequest& Request) {
    if (!Request.Show) return nullptr;
    const auto& window = Plugin<TWindowPart>("--show", CWindowModule, CWindowEntry);
    window.Install();
    return &window;
}

void Show(const TWindowPart& Window, TPicture& Picture, const TFindings& Found, const TOptions& Options,
          const std::function<bool()>& Poll) {
    TParts& parts = Picture.GetParts();
    SwitchOn(*parts.Graph);
    parts.Form->SetColor(parts.Graph->GetTransparent() ? kx::clWhite : parts.Graph->GetColor());
    TFitSwitch fits(Picture);
    Window.Show({.Form = *parts.Form,
                 .Title = TitleOf(Options),
                 .Antialias = Options.Outputs.Antialias,
                 .HasFits = fits.HasAny(),
                 .Seconds = Options.Window.Seconds,
                 .Resized = [&] { Picture.TakeSizeOfForm(); },
                 .SavePicture =
                     [&](const std::string& FileName) {
                         TOutputRequest outputs = OnlyAs(Options.Outputs, parts);
                         outputs.Pictures = {FileName};
                         Save(Picture, Found, outputs);
                     },
                 .SaveOutfit =
                     [&](const std::string& FileName) {
                         TOutputRequest outputs = OnlyAs(Options.Outputs, parts);
                         outputs.SaveOutfit = FileName;
                         Save(Picture, Found, outputs);
                     },
                 .Record = [&]() -> const kx::TMetafile& { return Picture.Record(); },
                 .ShowFits = [&](bool Shown) { fits.Show(Shown); },
                 .Poll = Poll});
}

void ShowForm(const TWindowPart& Window, const TParts& Parts, const TOptions& Options) {
    SwitchOn(*Parts.Graph);
    kx::TMetafile record;
    Window.Show({.Form = *Parts.Form,
                 .Title = TitleOf(Options),
                 .Antialias = Options.Outputs.Antialias,
                 .Seconds = Options.Window.Seconds,
                 .Resized = [&] { FillForm(Parts); },
                 .SavePicture =
                     [&](const std::string& FileName) {
                         TOutputRequest outputs = OnlyAs(Options.Outputs, Parts);
                         outputs.Pictures = {FileName};
                         WritePictures(Parts, outputs, TFrameFaults());
                     },
                 .Record = [&]() -> const kx::TMetafile& { return Recorded(Parts, record); }});
}

} // namespace kxplot
