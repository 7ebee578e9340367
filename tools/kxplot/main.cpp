// kxplot: draws a data file.

#include "kxplot/options.h"
#include "kxplot/plot.h"
#include "kxplot/table.h"
#include "platform/application.h"
#include "platform/files.h"
#include "platform/text.h"
#include "qt/Kxqtinstall.h"
#include "qt/Kxqtpicture.h"
#include "svg/Kxsvgdevice.h"

#include <exception>
#include <iostream>

namespace {

using namespace kxplot;

constexpr int CFailure = 1, CUsage = 2;

void WritePicture(TPlot& Plot, const TOptions& Options, const std::string& FileName) {
    const auto paint = [&Plot](kx::TCanvasDevice& Device) { Plot.GetGraph().PaintTo(Device); };
    const kx::TColor ground = Plot.GetGraph().GetColor();
    const std::string extension = kx::ExtractFileExt(FileName);
    if (kx::SameText(extension, ".svg")) {
        kx::WriteSvg(FileName, Options.Size, Options.Scale, Options.Antialias, ground, paint);
        return;
    }
    const kx::qt::TPictureOptions picture{Options.Size, Options.Scale, Options.Antialias, ground,
                                          Plot.GetGraph().GetCaption()};
    if (kx::SameText(extension, ".pdf"))
        kx::qt::WritePdf(FileName, picture, paint);
    else
        kx::qt::WritePng(FileName, picture, paint);
}

void Draw(const TOptions& Options) {
    const std::string text = kx::ReadFile(Options.Data);
    const TTable table(text, Options.Data == "-" ? "standard input" : Options.Data);
    kx::qt::Install(true);
    TPlot plot(table, Options);
    if (!Options.Outfit.empty()) plot.LoadOutfit(Options.Outfit);
    plot.Apply(Options);
    for (const auto& output : Options.Outputs) WritePicture(plot, Options, output);
    if (!Options.SaveOutfit.empty()) plot.SaveOutfit(Options.SaveOutfit);
}

int Complain(const std::exception& Error, int Status) {
    std::cerr << "kxplot: " << Error.what() << '\n';
    return Status;
}

} // namespace

int main(int Count, char** Arguments) {
    try {
        const auto options = ParseOptions(Count, Arguments);
        if (options) Draw(*options);
        return 0;
    } catch (const TUsageError& error) {
        return Complain(error, CUsage);
    } catch (const std::exception& error) {
        return Complain(error, CFailure);
    }
}
