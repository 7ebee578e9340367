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

int main(int Count, char** Arguments) {
    const std::string file = std::string(Count > 1 ? Arguments[1] : ".") + "/symbolsheet";
    try {
        qt::Install(true);
        const auto paint = [](TCanvasDevice& Device) {
            TCanvas canvas(&Device);
            scenes::PaintSymbolSheet(canvas);
        };
        const qt::TPictureOptions options{.Size = scenes::CSymbolSheetSize};
        qt::WritePng(file + ".png", options, paint);
        qt::WritePdf(file + ".pdf", options, paint);
        WriteSvg(file + ".svg", options.Size, 1, clWhite, paint);
        std::cout << "out/symbolsheet.png .svg .pdf    examples/scenes\n";
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "kxgraph_scenes: " << error.what() << '\n';
        return 1;
    }
}
