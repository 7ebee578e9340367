#pragma once
// How large a picture is.

#include <kxgraph/platform/drawing/geometry.h>

#include <optional>
#include <string>

namespace kxplot {

/// Sides in logical pixels, 96 per inch: with fractions where they were given in other units.
struct TPictureSize {
    double Width = 900, Height = 600;

    /// What the graph has room for.
    kx::TSize Whole() const { return {int(Width), int(Height)}; }
    friend bool operator==(const TPictureSize&, const TPictureSize&) = default;
};

/// "900x600", "85mmx60mm", "8.5x6cm" (the unit of the last side is that of both), with px, mm, cm or in.
/// Raises TUsageError for any other text, and for sides below one pixel or above 20000.
TPictureSize ParsePictureSize(const std::string& Text);

/// Pixels of a PNG in one logical pixel, of what --scale or --dpi say. Raises TUsageError for both at once,
/// a scale outside 0.1 to 20 and a resolution outside 10 to 9600.
double ScaleOf(const std::optional<double>& Scale, const std::optional<double>& Dpi);

} // namespace kxplot
