// Draws a form file, and shows that a program can take hold of its parts: the components have the names that
// stand in the file.
//
//     form_file FILE.kxf PICTURE.png [CAPTION]

#include <kxgraph/analysis/Kxcalculatedseries.h>
#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/platform/streaming/formfile.h>
#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/qt/Kxqtpicture.h>
#include <kxgraph/qt/Kxqtzoneevents.h>

#include <iostream>

using namespace kx;

int main(int Count, char** Arguments) {
    if (Count < 3) {
        std::cerr << "form_file FILE.kxf PICTURE.png [CAPTION]\n";
        return 2;
    }
    try {
        qt::Install();
        qt::ResolveZones();
        RegisterClasses(); // what a file may hold; a program adds its own
        const auto form = LoadForm(Arguments[1]);
        auto* graph = FindComponentAs<TKx2DGraph>(*form, "Graph1");
        if (!graph) throw Exception("the form has no graph called Graph1");
        if (Count > 3) graph->SetCaption(Arguments[3]);

        const TSize size = graph->GetBoundsRect().Size();
        qt::WritePng(Arguments[2], {.Size = size, .Scale = 2, .Antialias = true},
                     [&](TCanvasDevice& Device) { graph->PaintTo(Device); });
        for (TComponent* component : form->GetComponents())
            if (const auto* fit = dynamic_cast<TKxCalculatedSeries*>(component))
                for (const TKxResult& result : fit->GetFound().GetItems())
                    std::cout << fit->GetName() << ": " << result.Key << " = " << result.GetText() << '\n';
    } catch (const std::exception& error) {
        std::cerr << "form_file: " << error.what() << '\n';
        return 1;
    }
}
