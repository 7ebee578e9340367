#pragma once
// The elements of an SVG document in drawing order, grouped under their clip and style, and the definitions
// that they refer to. Knows XML, not drawing.

#include <kxgraph/platform/drawing/device.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kx::svg {

class TSvgBody {
public:
    /// Elements added from now on are shown inside Clip only.
    void SetClip(const std::optional<TRect>& Clip) { FClip = Clip; }

    /// An element in three parts: Head `<path d="..."`, Style (attributes that neighbours may share, each
    /// with a leading blank) and Tail `/>`. Neighbours of one style and clip become a group that bears the
    /// style.
    void Add(std::string Head, const std::string& Style, std::string Tail = "/>");

    /// The value of a fill attribute: a colour, `none`, or the reference to a hatch, defined at its first
    /// use.
    std::string Paint(const TFill& Fill);

    std::string Definitions() const;
    /// All elements; what is open in the body is closed in the text.
    std::string Elements() const;

private:
    void EndStyle();
    void EndClip();
    void BeginClip();

    std::string FText;
    std::optional<TRect> FClip, FOpenClip;
    std::string FStyle, FHead, FTail; // the last style; its only element as long as there is one
    int FStyled = 0;                  // elements of that style in a row
    std::vector<TRect> FClips;
    std::vector<std::pair<TBrushStyle, TColor>> FHatches;
};

} // namespace kx::svg
