// SVG: whatever is drawn, the document is well-formed and its text reads back.

#include "fuzz/fuzz.h"

#include <kxgraph/platform/drawing/canvas.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/svg/Kxsvgdevice.h>
#include <kxgraph/svg/Kxsvgmarkup.h>

namespace kx {
namespace {

/// Content or attribute value without its references; fails on what XML does not allow there.
std::string Unescaped(std::string_view Text) {
    static constexpr std::pair<std::string_view, char> references[] = {
        {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}};
    std::string plain;
    for (std::size_t i = 0; i < Text.size();) {
        KX_DEMAND(Text[i] != '<' && (std::uint8_t(Text[i]) >= 0x20 || Text[i] == '\n'));
        if (Text[i] != '&') {
            plain += Text[i++];
            continue;
        }
        const auto* found = std::ranges::find_if(
            references, [&](const auto& R) { return Text.substr(i).starts_with(R.first); });
        KX_DEMAND(found != std::end(references), +std::string(Text));
        plain += found->second;
        i += found->first.size();
    }
    return plain;
}

/// Walks the tags: all closed in order, attributes quoted and used once. Returns the text content.
std::string TextOf(std::string_view Document) {
    std::vector<std::string> open;
    std::string content;
    std::size_t at = 0;
    while (at < Document.size()) {
        const std::size_t tag = std::min(Document.find('<', at), Document.size());
        const std::string text = Unescaped(Document.substr(at, tag - at));
        if (!open.empty() && open.back() == "text") content += text;
        if (tag == Document.size()) break;
        std::size_t end = tag + 1;
        for (char quote = 0; end < Document.size() && (quote || Document[end] != '>'); ++end)
            if (Document[end] == '"') quote = quote ? 0 : '"';
        KX_DEMAND(end < Document.size());
        std::string_view inner = Document.substr(tag + 1, end - tag - 1);
        at = end + 1;
        if (inner[0] == '?' || inner[0] == '!') continue;
        const std::string name(
            inner.substr(inner[0] == '/', inner.find_first_of(" \n/>", 1) - (inner[0] == '/')));
        if (inner[0] == '/') {
            KX_DEMAND(!open.empty() && open.back() == name, +name);
            open.pop_back();
        } else if (!inner.ends_with('/')) {
            open.push_back(name);
        }
        for (std::size_t q = inner.find('"'); q != inner.npos; q = inner.find('"', q)) {
            const std::size_t close = inner.find('"', q + 1);
            KX_DEMAND(q > 0 && inner[q - 1] == '=' && close != inner.npos, +std::string(inner));
            Unescaped(inner.substr(q + 1, close - q - 1));
            q = close + 1;
        }
    }
    KX_DEMAND(open.empty());
    return content;
}

TPoint PointOf(fuzz::TData& Data) {
    const auto one = [&] { return Data.Between(0, 7) ? Data.Between(0, 400) - 100 : Data.Integer() / 2; };
    const int x = one();
    return {x, one()};
}

void DrawOne(TCanvas& Canvas, fuzz::TData& Data) {
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
    KX_DEMAND(Unescaped(svg::EscapedXml(text)) == svg::ShownText(text));
    KX_DEMAND(ToValidUtf8(svg::ShownText(text)) == svg::ShownText(text));
    std::string content = TextOf(device.Document()), shown = svg::ShownText(text);
    for (std::string* s : {&content, &shown}) std::erase_if(*s, [](char c) { return c == ' ' || c == '\n'; });
    if (!SameText(canvas.Font.GetName(), "symbol") && text.size() < 60) KX_DEMAND(content == shown, +content);
}

} // namespace
} // namespace kx
