#include <kxgraph/qt/Kxqtpencoverage.h>

#include <cmath>
#include <cstddef>
#include <numbers>

namespace kx::qt {

namespace {

constexpr int CPlaces = 32;

/// A lattice whose points are about as far from one another as they can be.
double XOf(int Place) { return (Place + 0.5) / CPlaces; }
double YOf(int Place) { return (Place * 7 % CPlaces + 0.5) / CPlaces; }

/// The places of a pixel whose Distance(x, y) is below Limit. It changes by less than a pixel's diagonal in a
/// pixel, so that most pixels are known by their middles.
template <class F>
TPixelPlaces PlacesWithin(double Limit, F Distance) {
    const double middle = Distance(0.5, 0.5), half = std::numbers::sqrt2 / 2;
    if (middle > Limit + half) return 0;
    if (middle < Limit - half) return CWholePixel;
    TPixelPlaces places = 0;
    for (int i = 0; i < CPlaces; ++i) places |= TPixelPlaces(Distance(XOf(i), YOf(i)) <= Limit ? 1 : 0) << i;
    return places;
}

TPenCoverage::TRows RowsOf(double Reach) {
    const int reach = int(std::ceil(Reach));
    return {reach, (2 * reach + 1 + 3) / 4 * 4};
}

using TCuts = std::array<TPixelPlaces, CPlaces + 1>;

TCuts MakeCuts(double (*Along)(int)) {
    TCuts cuts{};
    for (int cut = 0; cut <= CPlaces; ++cut)
        for (int i = 0; i < CPlaces; ++i)
            if (Along(i) * CPlaces > cut) cuts[std::size_t(cut)] |= TPixelPlaces(1) << i;
    return cuts;
}

} // namespace

TPixelPlaces PlacesFrom(double Part, bool IsSteep) {
    static const std::array cuts{MakeCuts(XOf), MakeCuts(YOf)};
    return cuts[IsSteep][std::size_t(std::lround(Part * CPlaces))];
}

void TPenCoverage::SetWidth(double Width) {
    if (Width == FWidth) return;
    FWidth = Width;
    FBand = RowsOf(Width / 2 * std::numbers::sqrt2 + 0.5);
    FDot = RowsOf(Width / 2);
    for (auto& bands : FBands) bands.clear();
    for (auto& dot : FDots) dot.clear();
}

const TPixelPlaces* TPenCoverage::Bands(double Slope, bool IsSteep) {
    constexpr int middle = CSlopes / 2;
    const int slope = int(std::lround((Slope + 1) * middle));
    auto& bands = FBands[2 * std::size_t(slope) + std::size_t(IsSteep)];
    if (bands.empty()) MakeBands(bands, double(slope - middle) / middle, IsSteep);
    return bands.data();
}

void TPenCoverage::MakeBands(std::vector<TPixelPlaces>& Bands, double Slope, bool IsSteep) const {
    const double cosine = 1 / std::sqrt(1 + Slope * Slope);
    Bands.reserve(CFractions * std::size_t(FBand.Span));
    for (int fraction = 0; fraction < CFractions; ++fraction)
        for (int i = 0; i < FBand.Span; ++i)
            Bands.push_back(PlacesWithin(FWidth / 2, [&](double X, double Y) {
                const double along = IsSteep ? Y : X, across = IsSteep ? X : Y;
                const double middle = (fraction + 0.5) / CFractions + Slope * (along - 0.5);
                return std::abs(i - FBand.Reach + across - middle) * cosine;
            }));
}

const TPixelPlaces* TPenCoverage::Dot(int Right, int Down) {
    auto& dot = FDots[std::size_t(Down) * CDotFractions + std::size_t(Right)];
    if (dot.empty()) MakeDot(dot, (Right + 0.5) / CDotFractions, (Down + 0.5) / CDotFractions);
    return dot.data();
}

void TPenCoverage::MakeDot(std::vector<TPixelPlaces>& Dot, double Right, double Down) const {
    const int rows = 2 * FDot.Reach + 1;
    Dot.reserve(std::size_t(rows) * std::size_t(FDot.Span));
    for (int row = 0; row < rows; ++row)
        for (int i = 0; i < FDot.Span; ++i)
            Dot.push_back(PlacesWithin(FWidth / 2, [&](double X, double Y) {
                const double right = i - FDot.Reach + X - Right, down = row - FDot.Reach + Y - Down;
                return std::sqrt(right * right + down * down);
            }));
}

} // namespace kx::qt
