#pragma once
// Which places of a pixel a round pen covers where it passes or ends.

#include <array>
#include <cstdint>
#include <vector>

namespace kx::qt {

/// A bit for each of 32 places in a pixel, of which no two have the same x or y. What two lines cover
/// together is what either of them covers, however they lie to one another.
using TPixelPlaces = std::uint32_t;
inline constexpr TPixelPlaces CWholePixel = ~TPixelPlaces(0);

/// Those that are not before Part of the way through a pixel, 0 to 1; down through it where IsSteep.
TPixelPlaces PlacesFrom(double Part, bool IsSteep);

/// Tables for one width of a pen, each made when it is first asked for. A row of pixels begins so many, its
/// reach, before the one that the middle of the pen is in, and is as long as its span, a multiple of 4.
class TPenCoverage {
public:
    static constexpr int CFractions = 32;    ///< of a pixel, across a line
    static constexpr int CDotFractions = 16; ///< where it turns or ends

    /// In pixels, above 0.
    void SetWidth(double Width);

    struct TRows {
        int Reach = 0, Span = 0;
    };
    TRows GetBand() const { return FBand; }
    TRows GetDot() const { return FDot; }

    /// A line that passes: CFractions rows of pixels across, one for each place of its middle in a pixel.
    /// Slope is -1 to 1: by how much it moves on across while it goes on by a pixel along; down and to the
    /// right are positive. IsSteep where along is down.
    const TPixelPlaces* Bands(double Slope, bool IsSteep);
    /// An end: 2 * Reach + 1 rows, one below the other, for so many fractions of a pixel to the right and
    /// down.
    const TPixelPlaces* Dot(int Right, int Down);

private:
    static constexpr int CSlopes = 65; // -1, -31/32, ... 1
    void MakeBands(std::vector<TPixelPlaces>& Bands, double Slope, bool IsSteep) const;
    void MakeDot(std::vector<TPixelPlaces>& Dot, double Right, double Down) const;

    double FWidth = 0;
    TRows FBand, FDot;
    std::array<std::vector<TPixelPlaces>, std::size_t{2} * CSlopes> FBands;
    std::array<std::vector<TPixelPlaces>, std::size_t{CDotFractions} * CDotFractions> FDots;
};

} // namespace kx::qt
