#pragma once
// The small change of an SVG document: short numbers, escaped text, attributes and path data.

#include <kxgraph/platform/drawing/geometry.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

namespace kx::svg {

/// A coordinate in hundredths of a logical pixel. Whole numbers keep relative path data free of drift.
using TCoord = std::int64_t;

/// Of a place among edges, and of one that counts from the middle of pixels.
inline TCoord EdgeOf(double Place) { return std::llround(Place * 100); }
inline TCoord CentreOf(double Place) { return EdgeOf(Place) + 50; }

struct TSvgPoint {
    TCoord X = 0;
    TCoord Y = 0;
    friend bool operator==(const TSvgPoint&, const TSvgPoint&) = default;
};

/// "12", "0.5", "-3.25": no more digits than needed.
std::string Number(TCoord Hundredths);
/// The same, rounded to hundredths; at most 1E15 in size, and 0 for a NaN.
std::string Decimal(double Value);

/// Text as valid UTF-8, foreign bytes as Latin-1, without control characters and others that XML forbids.
std::string ShownText(std::string_view Text);
/// The same with markup characters escaped, for content and attributes.
std::string EscapedXml(std::string_view Text);

/// ` Name="Value"`; Value is taken as it is.
std::string Attribute(std::string_view Name, std::string_view Value);

/// Builds the value of a path's "d" attribute.
class TPathData {
public:
    void MoveTo(TSvgPoint P);
    void LineTo(TSvgPoint P);
    /// A line so short that only its ends show; some viewers leave out one without any length.
    void Dot() { FData += "h.01"; }
    void Close() { FData += 'z'; }
    const std::string& Data() const { return FData; }

private:
    void AppendPair(TCoord X, TCoord Y);

    std::string FData;
    TSvgPoint FAt;
};

} // namespace kx::svg
