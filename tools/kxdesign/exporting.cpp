#include "kxdesign/exporting.h"

#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/qt/Kxqtpicture.h>
#include <kxgraph/svg/Kxsvgdevice.h>

#include <utility>

namespace kxdesign {

using namespace kx;

namespace {

TControl* OnlyControl(TForm& Form) { return Form.GetControlCount() == 1 ? Form.GetControl(0) : nullptr; }

void Paint(TForm& Form, TCanvasDevice& Device) {
    if (auto* graph = dynamic_cast<TKx2DGraph*>(OnlyControl(Form))) return graph->PaintTo(Device);
    PaintFrame(Form, Device);
}

TSize SizeOf(TForm& Form) {
    auto* graph = dynamic_cast<TKx2DGraph*>(OnlyControl(Form));
    return (graph ? graph->GetBoundsRect() : Form.GetBoundsRect()).Size();
}

} // namespace

void TakePicture(TForm& Form, TMetafile& Picture) {
    TRecorder whole(SizeOf(Form)), smooth(SizeOf(Form), 96, false, true);
    Paint(Form, whole);
    Paint(Form, smooth);
    Picture.SetPicture(SizeOf(Form), std::move(whole.Recording), std::move(smooth.Recording));
}

void ExportForm(TForm& Form, const std::string& FileName) {
    const std::string kind = UpperCase(ExtractFileExt(FileName));
    const TSize size = SizeOf(Form);
    const auto paint = [&](TCanvasDevice& Device) { Paint(Form, Device); };
    if (kind == ".PNG") return qt::WritePng(FileName, {.Size = size, .Scale = 2, .Antialias = true}, paint);
    if (kind == ".PDF") return qt::WritePdf(FileName, {.Size = size}, paint);
    if (kind != ".SVG") throw Exception(FileName + ": the name must end with .png, .svg or .pdf");
    TSvgDevice svg(size);
    paint(svg);
    ReplaceFile(FileName, svg.Document());
}

} // namespace kxdesign
