#pragma once
// How large texts are on the screen, for what is laid out or recorded without a device.

#include <kxgraph/platform/drawing/device.h>

#include <string_view>

namespace kx {

/// Who measures texts on the screen.
class TScreenText {
public:
    virtual TSize MeasureText(const TFontFace& Face, std::string_view Text) const = 0;
    /// The advance width as the font itself has it, with fractions of a pixel: what smooth devices show.
    virtual double ExactTextWidth(const TFontFace& Face, std::string_view Text) const {
        return MeasureText(Face, Text).Width;
    }

protected:
    ~TScreenText() = default;
};

/// Replaces what MeasureScreenText asks, not owned; null for FixedTextSize. The application tells its host.
void SetScreenText(const TScreenText* Screen);
/// The size of Text in pixels of the screen.
TSize MeasureScreenText(const TFontFace& Face, std::string_view Text);
double ExactTextWidth(const TFontFace& Face, std::string_view Text);
/// The size where there is no screen: every character is six tenths of the font height wide, a text cell as
/// high as the font.
TSize FixedTextSize(const TFontFace& Face, std::string_view Text);

} // namespace kx
