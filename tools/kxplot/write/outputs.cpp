#include "kxplot/write/outputs.h"

#include "kxplot/fit/curvedata.h"
#include "kxplot/fit/resultsjson.h"
#include "kxplot/form/savedform.h"
#include "kxplot/options/usageerror.h"
#include "kxplot/shortmemory.h"
#include "kxplot/write/signals.h"

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

std::vector<TNamedFile> OutputsOf(const TOutputRequest& Outputs) {
    std::vector<TNamedFile> files;
    for (const auto& name : Outputs.Pictures) files.push_back({"-o", name});
    if (!Outputs.Form.Save.empty())
        files.push_back({"--save-form", Outputs.Form.Save}); // it is as the pictures are
    if (!Outputs.SaveOutfit.empty()) files.push_back({"--save-outfit", Outputs.SaveOutfit});
    if (!Outputs.Results.empty() && Outputs.Results != "-") files.push_back({"--results", Outputs.Results});
    if (!Outputs.CurveData.empty()) files.push_back({"--curve-data", Outputs.CurveData});
    return files;
}

void Refuse(const TNamedFile& File, const std::string& Other, const char* What) {
    if (!Other.empty() && kx::IsSameFile(File.Name, Other))
        throw TUsageError(std::string(File.Option) + ": " + kx::Escaped(File.Name) + " is " + What);
}

std::string Painted(const TParts& Parts, const TOutputRequest& Outputs, const std::string& FileName) {
    const auto paint = [&Parts](kx::TCanvasDevice& Device) {
        if (Parts.Sheet)
            kx::PaintFrame(*Parts.Sheet, Device);
        else
            Parts.Graph->PaintTo(Device);
    };
    const bool isTransparent = Parts.Graph->GetTransparent();
    const TGround ground = isTransparent ? TGround() : TGround(Parts.Graph->GetColor());
    const TPictureSize& size = Outputs.Size;
    const std::string extension = kx::ExtractFileExt(FileName);
    if (kx::SameText(extension, ".svg")) {
        kx::TSvgDevice device(size.Whole(), 1, ground); // lines have no pixels to multiply
        device.SetPage(size.Width, size.Height);
        paint(device);
        return device.Document();
    }
    const kx::qt::TPictureOptions picture{
        size.Whole(), Outputs.Scale, Outputs.Antialias, ground, Parts.Graph->GetCaption(),
        size.Width,   size.Height};
    return kx::SameText(extension, ".pdf") ? kx::qt::PdfBytes(picture, paint)
                                           : kx::qt::PngBytes(picture, paint);
}

std::string PictureBytes(const TParts& Parts, const TOutputRequest& Outputs, const std::string& FileName,
                         const TFrameFaults& Faults) {
    if (!kx::SettleTree(*Parts.Form)) {
        Faults.Check();
        throw TFrameError("the layout of the picture comes to no end; another --size may help");
    }
    try {
        std::string bytes = Painted(Parts, Outputs, FileName);
        Faults.Check();
        return bytes;
    } catch (const kx::Exception& error) {
        throw kx::EFileError(kx::Escaped(FileName) + ": " + error.what());
    }
}

std::string ResultsFor(const std::string& FileName, const TFindings& Found) {
    return kx::SameText(kx::ExtractFileExt(FileName), ".json") ? ResultsAsJson(Found.Results) : Found.Results;
}

using TContents = std::vector<std::pair<std::string, std::string>>; ///< of files, by their names

/// All or none.
void Write(const TContents& Contents) {
    LetAllocationsFail();
    std::optional<TSignalsHeld> held(std::in_place);
    kx::TFileGroup files;
    for (const auto& [name, text] : Contents) {
        files.Add(name, text);
        if (held->ArePending()) return; // nothing stays behind, and the signal does what it came for
    }
    files.MoveIntoPlace();
    held.reset(); // a pipe may wait for its reader as long as it likes
    files.WriteDevices();
}

} // namespace

void CheckOutputs(const TOutputRequest& Outputs, const std::vector<std::string>& Tables,
                  const std::string& Outfit) {
    const auto files = OutputsOf(Outputs);
    for (std::size_t k = 0; k < files.size(); ++k) {
        for (const auto& table : Tables)
            Refuse(files[k], table == "-" ? "/dev/stdin" : table, "the file of the data");
        if (files[k].Option != std::string("--save-outfit")) Refuse(files[k], Outfit, "the file of --outfit");
        for (std::size_t other = 0; other < k; ++other)
            Refuse(files[k], files[other].Name,
                   (std::string("written by ") + files[other].Option + ", too").c_str());
    }
    for (const auto& file : files) kx::CheckWritable(file.Name);
}

void WriteOutputs(TPicture& Picture, const TFindings& Found, const TOutputRequest& Outputs,
                  const TFrameFaults& Faults) {
    TContents contents;
    for (const auto& [option, name] : OutputsOf(Outputs)) {
        const std::string_view kind(option);
        contents.emplace_back(name, kind == "-o" ? PictureBytes(Picture.GetParts(), Outputs, name, Faults)
                                    : kind == "--results"    ? ResultsFor(name, Found)
                                    : kind == "--curve-data" ? CurveData(Picture.GetParts())
                                    : kind == "--save-form"  ? FormText(Picture.GetParts(), name)
                                                             : Picture.GetOutfit());
    }
    Faults.Check();
    Write(contents);
}

void WritePictures(const TParts& Parts, TOutputRequest Outputs, const TFrameFaults& Faults) {
    const kx::TSize size = (Parts.Sheet ? Parts.Sheet : Parts.Graph)->GetClientRect().Size();
    Outputs.Size = {double(size.Width), double(size.Height)};
    TContents contents;
    for (const auto& name : Outputs.Pictures)
        contents.emplace_back(name, PictureBytes(Parts, Outputs, name, Faults));
    if (const auto& name = Outputs.Form.Save; !name.empty())
        contents.emplace_back(name, OpenedFormText(Parts, name));
    Write(contents);
}

} // namespace kxplot
