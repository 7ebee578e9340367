// A graph and a fit with nothing but a C++ compiler: the picture is written as SVG, the results are printed.
// Texts are measured as if all letters were equally wide; programs that link kxgraph::qt have the real ones.
//
//     core_graph FILE.svg

#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/series/Kxdataseries.h>
#include <kxgraph/svg/Kxsvgdevice.h>

#include <iostream>

using namespace kx;

int main(int Count, char** Arguments) {
    try {
        TForm form(&TApplication::Instance());
        TKx2DGraph graph(&form);
        graph.SetParent(&form);
        graph.SetColor(clWhite);
        graph.SetDataColor(clWhite);
        auto* x = new TKxAxis(&form); // the form owns its components
        auto* y = new TKxAxis(&form);
        x->SetParent(&graph);
        y->SetParent(&graph);
        graph.SetPrimaryXAxis(x);
        graph.SetPrimaryYAxis(y);

        TKxLiveVector time(&form), voltage(&form);
        TKxDataSeries series(&form); // takes the axes of the form's graph
        series.SetXData(&time);
        series.SetYData(&voltage);
        TKxLinearRegressionLine line(&form);
        line.SetParentSeries(&series); // calculated whenever the data change
        for (int i = 0; i < 20; ++i) {
            time.Add(0.1 * i);
            voltage.Add(3.2 * 0.1 * i + 0.1 * (i % 3));
        }

        TSvgDevice picture(graph.GetBoundsRect().Size());
        graph.PaintTo(picture);
        ReplaceFile(Count > 1 ? Arguments[1] : "core_graph.svg", picture.Document());
        for (const char* key : {"Slope", "DeltaSlope", "R2"})
            std::cout << key << " = " << line.GetFound().Find(key)->GetText() << '\n';
    } catch (const std::exception& error) {
        std::cerr << "core_graph: " << error.what() << '\n';
        return 1;
    }
}
