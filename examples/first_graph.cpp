// A graph made in a program: two axes, a live series, and the picture as PNG, SVG and text.
//
//     first_graph OUTPUT_DIRECTORY

#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/qt/Kxqtpicture.h>
#include <kxgraph/series/Kxdataseries.h>
#include <kxgraph/svg/Kxsvgdevice.h>

#include <cmath>
#include <iostream>
#include <string>

using namespace kx;

namespace {

TKxAxis* MakeAxis(TForm& Form, TKx2DGraph& Graph, const char* Name, const char* Caption) {
    auto* axis = new TKxAxis(&Form); // the form owns it
    axis->SetName(Name);
    axis->SetParent(&Graph);
    axis->SetCaption(Caption);
    axis->SetShowCaption(true);
    axis->SetBorderCaptionGap(6);
    return axis;
}

} // namespace

int main(int Count, char** Arguments) {
    const std::string directory = Count > 1 ? Arguments[1] : ".";
    try {
        qt::Install(true);
        TForm form(&TApplication::Instance());
        form.SetName("Form1");

        TKx2DGraph graph(&form);
        graph.SetName("Graph1");
        graph.SetParent(&form);
        graph.SetColor(clWhite);
        graph.SetDataColor(clWhite);
        graph.SetMargin(10);
        graph.SetCaption("Damped oscillation, \\i x\\i  = e\\+ −t/4\\+  cos 3\\i t");
        graph.SetShowTitle(true);
        graph.SetPrimaryXAxis(MakeAxis(form, graph, "XAxis", "\\i t\\i  / s"));
        graph.SetPrimaryYAxis(MakeAxis(form, graph, "YAxis", "\\i x\\i  / mm"));
        graph.SetZeroOrigin(true);

        TKxLiveVector time(&form), position(&form);
        TKxDataSeries series(&form); // takes the axes of the form's graph
        series.SetXData(&time);
        series.SetYData(&position);
        series.GetPointStyle().SetVisible(false);
        series.GetLineStyle().SetColor(clNavy);
        for (int i = 0; i <= 200; ++i) { // the graph follows every point
            time.Add(i * 0.05);
            position.Add(std::exp(-i * 0.05 / 4) * std::cos(3 * i * 0.05));
        }

        const auto paint = [&graph](TCanvasDevice& Device) { graph.PaintTo(Device); };
        const TSize size = graph.GetBoundsRect().Size();
        qt::WritePng(directory + "/first_graph.png", {.Size = size, .Scale = 2, .Antialias = true}, paint);
        WriteSvg(directory + "/first_graph.svg", size, 1, clWhite, paint);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "first_graph: " << error.what() << '\n';
        return 1;
    }
}
