#include <kxgraph/platform/drawing/screentext.h>

#include <kxgraph/platform/text/text.h>

#include <cmath>

namespace kx {

namespace {

const TScreenText* CurrentScreen = nullptr;

} // namespace

void SetScreenText(const TScreenText* Screen) { CurrentScreen = Screen; }

TSize MeasureScreenText(const TFontFace& Face, std::string_view Text) {
    return CurrentScreen ? CurrentScreen->MeasureText(Face, Text) : FixedTextSize(Face, Text);
}

double ExactTextWidth(const TFontFace& Face, std::string_view Text) {
    return CurrentScreen ? CurrentScreen->ExactTextWidth(Face, Text) : FixedTextSize(Face, Text).Width;
}

TSize FixedTextSize(const TFontFace& Face, std::string_view Text) {
    const double height = std::abs(static_cast<double>(Face.Height));
    const int cell = RoundToInt(0.6 * height);
    return {RoundToInt(static_cast<double>(cell) * CharacterCount(Text)), RoundToInt(height)};
}

} // namespace kx
