#pragma once
// Of one picture at many places, those places where something of it is to be seen.

#include <kxgraph/platform/drawing/pointspan.h>
#include <kxgraph/platform/text/colors.h>

#include <optional>
#include <vector>

namespace kx {

class TRecording;

/// The places, in order, where One shows in Extent: of several pictures at one place the last, and none that
/// later ones cover. What counts as covered has no gap at any scale: every pixel that is touched lies wholly
/// in a solid ellipse or rectangle of one later picture. Places far outside are left out. Every place of a
/// picture that does more than to draw one shape in copy mode stays.
std::vector<TRealPoint> VisiblePlaces(TPointSpan Places, const TRecording& One, TSize Extent);

/// A disc of one colour: what a thick line without length and with round ends shows.
struct TDisc {
    double X, Y; ///< of the middle, in pixels with fractions: 0.5 is the middle of pixel 0
    double Diameter;
    TColor Color;
};

/// The disc that One is, outline included; nothing for any other picture.
std::optional<TDisc> DiscOf(const TRecording& One);

/// As many discs as devices write in one element: viewers take longer than in proportion for more.
inline constexpr std::size_t CDiscsTogether = 500;

} // namespace kx
