#include <kxgraph/svg/Kxsvgbody.h>

#include <kxgraph/svg/Kxsvgmarkup.h>

#include <algorithm>

namespace kx::svg {

namespace {

/// The number, from 1, of Value in List; appended when it is new.
template <class T>
std::size_t NumberOf(const T& Value, std::vector<T>& List) {
    const auto found = std::find(List.begin(), List.end(), Value);
    const std::size_t number = found - List.begin() + 1;
    if (found == List.end()) List.push_back(Value);
    return number;
}

std::string Reference(char Kind, std::size_t Number) {
    return std::string("url(#") + Kind + std::to_string(Number) + ")";
}

/// The lines of a hatch in a tile of 8 by 8. Slanted ones come with the corners of their neighbours.
const char* HatchLines(TBrushStyle Style) {
    switch (Style) {
    case bsHorizontal: return "M0 3.5h8";
    case bsVertical: return "M3.5 0v8";
    case bsFDiagonal: return "M-1-1l10 10M-1 7l2 2M7-1l2 2";
    case bsBDiagonal: return "M-1 9l10-10M-1 1l2-2M7 9l2-2";
    case bsCross: return "M0 3.5h8M3.5 0v8";
    default: return "M-1-1l10 10M-1 7l2 2M7-1l2 2M-1 9l10-10M-1 1l2-2M7 9l2-2";
    }
}

} // namespace

void TSvgBody::Add(std::string Head, const std::string& Style, std::string Tail) {
    if (FClip != FOpenClip) {
        EndClip();
        BeginClip();
    }
    if (FStyled > 0 && Style != FStyle) EndStyle();
    if (FStyled == 0) {
        FStyle = Style;
        FHead = std::move(Head);
        FTail = std::move(Tail);
    } else {
        if (FStyled == 1)
            FText.append("<g").append(FStyle).append(">\n").append(FHead).append(FTail).append("\n");
        FText.append(Head).append(Tail).append("\n");
    }
    ++FStyled;
}

void TSvgBody::EndStyle() {
    if (FStyled == 1) FText.append(FHead).append(FStyle).append(FTail).append("\n");
    if (FStyled > 1) FText += "</g>\n";
    FStyled = 0;
}

void TSvgBody::EndClip() {
    EndStyle();
    if (FOpenClip) FText += "</g>\n";
    FOpenClip.reset();
}

void TSvgBody::BeginClip() {
    FOpenClip = FClip;
    if (!FClip) return;
    FText.append("<g").append(Attribute("clip-path", Reference('c', NumberOf(*FClip, FClips)))).append(">\n");
}

std::string TSvgBody::Paint(const TFill& Fill) {
    if (Fill.Style == bsClear) return "none";
    if (Fill.Style == bsSolid) return ColorToHtml(Fill.Color);
    return Reference('h', NumberOf({Fill.Style, Fill.Color}, FHatches));
}

std::string TSvgBody::Definitions() const {
    if (FClips.empty() && FHatches.empty()) return {};
    std::string text = "<defs>\n";
    for (std::size_t i = 0; i < FClips.size(); ++i) {
        const TRect& r = FClips[i];
        text += "<clipPath" + Attribute("id", "c" + std::to_string(i + 1)) + "><rect" +
                Attribute("x", std::to_string(r.Left)) + Attribute("y", std::to_string(r.Top)) +
                Attribute("width", std::to_string(r.Width())) +
                Attribute("height", std::to_string(r.Height())) + "/></clipPath>\n";
    }
    for (std::size_t i = 0; i < FHatches.size(); ++i) {
        const auto& [style, color] = FHatches[i];
        text += "<pattern" + Attribute("id", "h" + std::to_string(i + 1)) +
                " width=\"8\" height=\"8\" patternUnits=\"userSpaceOnUse\"><path" +
                Attribute("d", HatchLines(style)) + Attribute("stroke", ColorToHtml(color)) +
                "/></pattern>\n";
    }
    return text + "</defs>\n";
}

std::string TSvgBody::Elements() const {
    TSvgBody ended = *this;
    ended.EndClip();
    return std::move(ended.FText);
}

} // namespace kx::svg
