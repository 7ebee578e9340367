// Draws the scenes as PNG, SVG and PDF.
//
//     kxgraph_scenes OUTPUT_DIRECTORY

#include "scenes/scenes.h"

#include <kxgraph/platform/drawing/canvas.h>
#include <kxgraph/qt/Kxqtinstall.h>
#include <kxgraph/qt/Kxqtpicture.h>
#include <kxgraph/svg/Kxsvgdevice.h>

#include <iostream>
#include <string>

using namespace kx;

namespace {

void Draw(const std::string& Directory, const std::string& Name, TSize Size,
          void (*Paint)(TCanvasDevice& Device)) {
    const std::string file = Directory + "/" + Name;
    qt::WritePng(file + ".png", {.Size = Size}, Paint);
    qt::WritePng(file + "_large.png", {.Size = Size, .Scale = 1.5, .Antialias = true}, Paint);
    qt::WritePdf(file + ".pdf", {.Size = Size}, Paint);
    WriteSvg(file + ".svg", Size, 1, clWhite, Paint);
    std::cout << "out/" << Name << ".png .svg .pdf    examples/scenes\n";
}

void PaintSymbols(TCanvasDevice& Device) {
    TCanvas canvas(&Device);
    scenes::PaintSymbolSheet(canvas);
}

} // namespace

int main(int Count, char** Arguments) {
    const std::string directory = Count > 1 ? Arguments[1] : ".";
    try {
        qt::Install(true);
        Draw(directory, "symbolsheet", scenes::CSymbolSheetSize, PaintSymbols);
        Draw(directory, "editing", scenes::CEditingSheetSize, scenes::PaintEditingSheet);
        Draw(directory, "fields", scenes::CFieldsSheetSize, scenes::PaintFieldsSheet);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "kxgraph_scenes: " << error.what() << '\n';
        return 1;
    }
}
