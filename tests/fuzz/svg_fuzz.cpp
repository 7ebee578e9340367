// SVG: whatever is drawn, the document is well-formed and its text reads back.

#include "fuzz/fuzz.h"
#include "support/xml.h"

#include <kxgraph/platform/drawing/canvas.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/svg/Kxsvgdevice.h>
#include <kxgraph/svg/Kxsvgmarkup.h>

namespace kx::fuzz::svgtarget {

TPoint PointOf(TData& Data) {
    const auto one = [&] { return Data.Between(0, 7) ? Data.Between(0, 400) - 100 : Data.Integer() / 2; };
    const int x = one();
    return {x, one()};
}

void DrawOne(TCanvas& Canvas, TData& Data) {
    Canvas.Pen.SetWidth(Data.Between(0, 5));
    Canvas.Pen.SetStyle(Data.OneOf({psSolid, psDash, psDot, psClear}));
    Canvas.Pen.SetColor(TColor(Data.Integer()));
    Canvas.Brush.SetStyle(Data.OneOf({bsSolid, bsClear, bsCross, bsBDiagonal}));
    const TPoint a = PointOf(Data), b = PointOf(Data);
    switch (Data.Between(0, 5)) {
    case 0: Canvas.Ellipse(a.X, a.Y, b.X, b.Y); break;
    case 1: Canvas.Rectangle(a.X, a.Y, b.X, b.Y); break;
    case 2: Canvas.FillRect({a.X, a.Y, b.X, b.Y}); break;
    case 3: Canvas.Polyline(std::vector<TPoint>{a, b, PointOf(Data), PointOf(Data)}); break;
    case 4: Canvas.Polygon(std::vector<TPoint>{a, b, PointOf(Data)}); break;
    case 5: Canvas.SetClip(Data.Flag() ? std::optional<TRect>({a.X, a.Y, b.X, b.Y}) : std::nullopt); break;
    }
}

KX_FUZZ(svg) {
    TSvgDevice device({200, 100}, 1 + Data.Between(0, 30) / 10.0);
    TCanvas canvas(&device);
    for (int shapes = Data.Between(0, 12); shapes > 0; --shapes) DrawOne(canvas, Data);
    canvas.SetClip({});
    svg::Decimal(std::fmod(Data.Real(), 1e12));
    canvas.Font.SetName(Data.Text(8));
    canvas.Font.SetSize(Data.Between(1, 40));
    canvas.Font.SetOrientation(Data.Between(0, 7) ? 0 : Data.Between(-3600, 3600));
    const std::string text = Data.Rest();
    canvas.TextOut(5, 5, text);
    KX_DEMAND(test::UnescapedXml(svg::EscapedXml(text)) == svg::ShownText(text));
    KX_DEMAND(ToValidUtf8(svg::ShownText(text)) == svg::ShownText(text));
    std::string content = test::TextOfXml(device.Document()), shown = svg::ShownText(text);
    for (std::string* s : {&content, &shown}) std::erase_if(*s, [](char c) { return c == ' ' || c == '\n'; });
    if (!SameText(canvas.Font.GetName(), "symbol") && text.size() < 60) KX_DEMAND(content == shown, +content);
}

} // namespace kx::fuzz::svgtarget
