#include "kxplot/options/picturesize.h"

#include "kxplot/options/number.h"
#include "kxplot/options/usageerror.h"

#include <array>
#include <string_view>
#include <utility>

namespace kxplot {

namespace {

constexpr double CPixelsPerInch = 96, CMostPixels = 20000;
using TUnit = std::pair<std::string_view, double>;
constexpr TUnit CPixels{"px", 1};
constexpr std::array<TUnit, 4> CUnits{
    {CPixels, {"mm", CPixelsPerInch / 25.4}, {"cm", CPixelsPerInch / 2.54}, {"in", CPixelsPerInch}}};

struct TSide {
    double Value;
    std::optional<TUnit> Unit;
};

std::optional<TSide> ParseSide(std::string_view Text) {
    TSide side{0, std::nullopt};
    for (const TUnit& unit : CUnits)
        if (Text.ends_with(unit.first)) side.Unit = unit;
    if (side.Unit) Text.remove_suffix(side.Unit->first.size());
    const auto value = ParseFinite(Text);
    if (!value) return std::nullopt;
    side.Value = *value;
    return side;
}

/// Pixels as such are whole.
bool IsGood(double Pixels, const TUnit& Unit) {
    return Pixels >= 1 && Pixels <= CMostPixels && (Unit != CPixels || Pixels == double(int(Pixels)));
}

} // namespace

TPictureSize ParsePictureSize(const std::string& Text) {
    // The x between the sides, not the one of px.
    for (std::size_t x = Text.find('x'); x != Text.npos; x = Text.find('x', x + 1)) {
        const auto width = ParseSide(std::string_view(Text).substr(0, x)),
                   height = ParseSide(std::string_view(Text).substr(x + 1));
        if (!width || !height) continue;
        const TUnit heightUnit = height->Unit.value_or(CPixels), widthUnit = width->Unit.value_or(heightUnit);
        const TPictureSize size{width->Value * widthUnit.second, height->Value * heightUnit.second};
        if (IsGood(size.Width, widthUnit) && IsGood(size.Height, heightUnit)) return size;
    }
    FailUsage("--size", Text,
              "is not WIDTHxHEIGHT with sides from 1 to 20000 pixels, or as much in mm, cm or in");
}

double ScaleOf(const std::optional<double>& Scale, const std::optional<double>& Dpi) {
    if (Scale && Dpi) throw TUsageError("--dpi: does not go with --scale");
    if (Scale && !(*Scale >= 0.1 && *Scale <= 20))
        throw TUsageError("--scale: a number from 0.1 to 20 is expected");
    if (Dpi && !(*Dpi >= 10 && *Dpi <= 9600))
        throw TUsageError("--dpi: a number from 10 to 9600 is expected");
    return Dpi ? *Dpi / CPixelsPerInch : Scale.value_or(1);
}

} // namespace kxplot
