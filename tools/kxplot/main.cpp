// kxplot: draws a data file.

#include "kxplot/options.h"
#include "kxplot/plot.h"
#include "kxplot/table.h"
#include "platform/application.h"
#include "platform/exceptions.h"
#include "platform/files.h"
#include "platform/text.h"
#include "qt/Kxqtinstall.h"
#include "qt/Kxqtpicture.h"
#include "svg/Kxsvgdevice.h"

#include <cstdio>
#include <exception>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace kxplot;

constexpr int CFailure = 1, CUsage = 2, CInterrupted = 130; // the last as shells have it

/// The files of one run: written beside their places, and renamed into them when all are written.
class TPendingFiles {
public:
    TPendingFiles() = default;
    TPendingFiles(const TPendingFiles&) = delete;
    TPendingFiles& operator=(const TPendingFiles&) = delete;
    ~TPendingFiles() {
        for (const auto& file : FFiles) std::remove(file.Temporary.c_str());
    }

    void Write(const std::string& FileName, const std::function<void(const std::string&)>& Writer) {
        if (kx::DirectoryExists(FileName)) throw kx::EFileError(kx::Escaped(FileName) + ": is a directory");
        FFiles.push_back({kx::TemporaryNameFor(FileName), FileName});
        const std::string& temporary = FFiles.back().Temporary;
        try {
            Writer(temporary);
        } catch (const kx::EFileError& error) {
            // The file that was asked for is the one to tell of.
            const std::string told = error.what(), name = kx::Escaped(temporary);
            const bool named = told.compare(0, name.size(), name) == 0;
            throw kx::EFileError(named ? kx::Escaped(FileName) + told.substr(name.size()) : told);
        }
    }
    void MoveIntoPlace() {
        for (const auto& file : FFiles) kx::MoveIntoPlace(file.Temporary, file.Name);
        FFiles.clear();
    }

private:
    struct TFile {
        std::string Temporary, Name;
    };
    std::vector<TFile> FFiles;
};

void WritePicture(TPlot& Plot, const TOptions& Options, const std::string& FileName) {
    const auto paint = [&Plot](kx::TCanvasDevice& Device) { Plot.GetGraph().PaintTo(Device); };
    const kx::TColor ground = Plot.GetGraph().GetColor();
    const std::string extension = kx::ExtractFileExt(FileName);
    if (kx::SameText(extension, ".svg")) {
        kx::WriteSvg(FileName, Options.Size, 1, ground, paint); // lines have no pixels to multiply
        return;
    }
    const kx::qt::TPictureOptions picture{Options.Size, Options.Scale, Options.Antialias, ground,
                                          Plot.GetGraph().GetCaption()};
    if (kx::SameText(extension, ".pdf"))
        kx::qt::WritePdf(FileName, picture, paint);
    else
        kx::qt::WritePng(FileName, picture, paint);
}

void PrintResults(const std::string& Text) {
    if (!(std::cout << Text << std::flush)) throw kx::EFileError("standard output: cannot be written");
}

/// Returns the exit status.
int Draw(const TOptions& Options) {
    const std::string text = kx::ReadFile(Options.Data);
    const TTable table(text, Options.Data == "-" ? "standard input" : Options.Data, Options.Header);
    kx::qt::Install(true);
    TPlot plot(table, Options);
    if (!Options.Outfit.empty()) plot.LoadOutfit(Options.Outfit);
    plot.Apply(Options);
    TPendingFiles files;
    for (const auto& output : Options.Outputs)
        files.Write(output, [&](const std::string& Name) { WritePicture(plot, Options, Name); });
    if (!Options.SaveOutfit.empty())
        files.Write(Options.SaveOutfit, [&](const std::string& Name) { plot.SaveOutfit(Name); });
    const bool toFile = !Options.Results.empty() && Options.Results != "-";
    if (toFile)
        files.Write(Options.Results,
                    [&](const std::string& Name) { kx::ReplaceFile(Name, plot.GetResults()); });
    files.MoveIntoPlace();
    if (Options.Results == "-") PrintResults(plot.GetResults());
    const auto& failures = plot.GetFailures();
    for (const auto* lines : {&failures, &plot.GetRemarks()})
        for (const auto& line : *lines) std::cerr << "kxplot: " << line << '\n';
    if (plot.WasInterrupted()) return CInterrupted;
    return failures.empty() ? 0 : CFailure;
}

int Complain(const std::exception& Error, int Status) {
    std::cerr << "kxplot: " << Error.what() << '\n';
    return Status;
}

} // namespace

int main(int Count, char** Arguments) {
    try {
        const auto options = ParseOptions(Count, Arguments);
        return options ? Draw(*options) : 0;
    } catch (const TUsageError& error) {
        return Complain(error, CUsage);
    } catch (const std::exception& error) {
        return Complain(error, CFailure);
    }
}
