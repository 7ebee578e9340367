#include "kxplot/outputs.h"

#include "kxplot/framefaults.h"
#include "kxplot/signals.h"

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/text/filegroup.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/qt/Kxqtpicture.h>
#include <kxgraph/svg/Kxsvgdevice.h>

#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kxplot {

namespace {

struct TNamedFile {
    const char* Option;
    std::string Name;
};

std::vector<TNamedFile> OutputsOf(const TOptions& Options) {
    std::vector<TNamedFile> files;
    for (const auto& name : Options.Outputs) files.push_back({"-o", name});
    if (!Options.SaveOutfit.empty()) files.push_back({"--save-outfit", Options.SaveOutfit});
    if (!Options.Results.empty() && Options.Results != "-") files.push_back({"--results", Options.Results});
    return files;
}

void Refuse(const TNamedFile& File, const std::string& Other, const char* What) {
    if (!Other.empty() && kx::IsSameFile(File.Name, Other))
        throw TUsageError(std::string(File.Option) + ": " + kx::Escaped(File.Name) + " is " + What);
}

std::string PaintedPicture(TPlot& Plot, const TOptions& Options, const std::string& FileName) {
    const auto paint = [&Plot](kx::TCanvasDevice& Device) { Plot.GetGraph().PaintTo(Device); };
    const kx::TColor ground = Plot.GetGraph().GetColor();
    const std::string extension = kx::ExtractFileExt(FileName);
    if (kx::SameText(extension, ".svg")) {
        kx::TSvgDevice device(Options.Size, 1, ground); // lines have no pixels to multiply
        paint(device);
        return device.Document();
    }
    const kx::qt::TPictureOptions picture{Options.Size, Options.Scale, Options.Antialias, ground,
                                          Plot.GetGraph().GetCaption()};
    return kx::SameText(extension, ".pdf") ? kx::qt::PdfBytes(picture, paint)
                                           : kx::qt::PngBytes(picture, paint);
}

std::string Picture(TPlot& Plot, const TOptions& Options, const std::string& FileName,
                    const TFrameFaults& Faults) {
    if (!kx::SettleTree(Plot.GetForm())) {
        Faults.Check();
        throw TFrameError("the layout of the picture comes to no end; another --size may help");
    }
    try {
        std::string bytes = PaintedPicture(Plot, Options, FileName);
        Faults.Check();
        return bytes;
    } catch (const kx::Exception& error) {
        throw kx::EFileError(kx::Escaped(FileName) + ": " + error.what());
    }
}

} // namespace

void CheckOutputs(const TOptions& Options) {
    const auto files = OutputsOf(Options);
    for (std::size_t k = 0; k < files.size(); ++k) {
        Refuse(files[k], Options.Data == "-" ? "/dev/stdin" : Options.Data, "the file of the data");
        if (files[k].Option != std::string("--save-outfit"))
            Refuse(files[k], Options.Outfit, "the file of --outfit");
        for (std::size_t other = 0; other < k; ++other)
            Refuse(files[k], files[other].Name,
                   (std::string("written by ") + files[other].Option + ", too").c_str());
    }
    for (const auto& file : files) kx::CheckWritable(file.Name);
}

void WriteOutputs(TPlot& Plot, const TOptions& Options, const TFrameFaults& Faults) {
    std::vector<std::pair<std::string, std::string>> contents;
    for (const auto& [option, name] : OutputsOf(Options)) {
        const std::string_view kind(option);
        contents.emplace_back(name, kind == "-o"          ? Picture(Plot, Options, name, Faults)
                                    : kind == "--results" ? Plot.GetResults()
                                                          : Plot.GetOutfit());
    }
    Faults.Check();
    std::optional<TSignalsHeld> held(std::in_place);
    kx::TFileGroup files;
    for (const auto& [name, text] : contents) {
        files.Add(name, text);
        if (held->ArePending()) return; // nothing stays behind, and the signal does what it came for
    }
    files.MoveIntoPlace();
    held.reset(); // a pipe may wait for its reader as long as it likes
    files.WriteDevices();
}

} // namespace kxplot
