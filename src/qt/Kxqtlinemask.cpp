#include <kxgraph/qt/Kxqtlinemask.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace kx::qt {

namespace {

constexpr std::size_t CManyPoints = 100;
constexpr double CFinest = 0.5, CWidest = 2.5; // ends of wider ones would show how they are cut
constexpr double CShort = 0.4;                 // pixels
constexpr unsigned CPart = 256 / 32;           // of a pixel, for each of its places
constexpr int CTile = 16;                      // pixels a side: rows as MixRow takes them together

/// Neighbours, a multiple of 4, that compilers make a vector of.
void Cover(TPixelPlaces* Places, const TPixelPlaces* Others, int Span) {
    for (int block = 0; block < Span; block += 4)
        for (int i = block; i < block + 4; ++i) Places[i] |= Others[i];
}
void CoverPart(TPixelPlaces* Places, const TPixelPlaces* Others, int Span, TPixelPlaces Part) {
    for (int i = 0; i < Span; ++i) Places[i] |= Others[i] & Part;
}

/// How many bits are set, by operations that there are for vectors.
unsigned Count(TPixelPlaces Places) {
    Places -= Places >> 1 & 0x55555555U;
    Places = (Places & 0x33333333U) + (Places >> 2 & 0x33333333U);
    Places = (Places + (Places >> 4)) & 0x0f0f0f0fU;
    Places += Places >> 8;
    return (Places + (Places >> 16)) & 0x3fU;
}

} // namespace

bool TLineMask::IsFor(std::size_t Points, double Width) {
    return Points >= CManyPoints && Width >= CFinest && Width <= CWidest;
}

void TLineMask::TSheet::Clear(int Count, int Length, int Margin) {
    this->Count = Count;
    this->Length = Length;
    this->Margin = Margin;
    Stride = Length + 2 * Margin;
    Places.assign(std::size_t(Count) * std::size_t(Stride), 0);
}

void TLineMask::Paint(const TPixels& Image, const TRect& Window, std::span<const QPointF> Line, double Width,
                      QRgb Color) {
    if (Line.empty()) return;
    FPen.SetWidth(Width);
    QPointF least = Line.front(), most = least;
    for (const QPointF at : Line) {
        least = {std::min(least.x(), at.x()), std::min(least.y(), at.y())};
        most = {std::max(most.x(), at.x()), std::max(most.y(), at.y())};
    }
    const int around = FPen.GetBand().Reach + 1;
    const auto from = [around](double Place, int Low, int High) {
        return int(std::clamp(std::floor(Place) - around, double(Low), double(High)));
    };
    const auto to = [around](double Place, int Low, int High) {
        return int(std::clamp(std::ceil(Place) + around, double(Low), double(High)));
    };
    FArea = {from(least.x(), Window.Left, Window.Right), from(least.y(), Window.Top, Window.Bottom),
             to(most.x(), Window.Left, Window.Right), to(most.y(), Window.Top, Window.Bottom)};
    if (FArea.IsEmpty()) return;
    const int margin = 2 * around + FPen.GetBand().Span + CTile;
    FRows.Clear(FArea.Height() + CTile, FArea.Width(), margin); // whole tiles
    FColumns.Clear(FArea.Width() + CTile, FArea.Height(), margin);
    const QPointF origin(FArea.Left, FArea.Top);
    AddDot(Line[0] - origin);
    for (std::size_t i = 1; i < Line.size(); ++i) {
        AddSegment(Line[i - 1] - origin, Line[i] - origin);
        AddDot(Line[i] - origin);
    }
    Mix(Image, Color);
}

void TLineMask::AddSegment(QPointF From, QPointF To) {
    const QPointF way = To - From;
    if (QPointF::dotProduct(way, way) < CShort * CShort) return; // the dots of its ends cover it
    if (std::abs(way.x()) > std::abs(way.y())) {
        if (way.x() < 0) std::swap(From, To);
        Draw(false, From.x(), From.y(), To.x(), To.y());
    } else {
        if (way.y() < 0) std::swap(From, To);
        Draw(true, From.y(), From.x(), To.y(), To.x());
    }
}

/// From place From where Begin is in the lines to place To where End is. Ends that lie so far outside that
/// digits are lost draw nothing.
void TLineMask::Draw(bool IsSteep, double Begin, double From, double End, double To) {
    TSheet& sheet = IsSteep ? FRows : FColumns;
    if (!(End > Begin && End > 0 && Begin < sheet.Count)) return;
    const double slope = (To - From) / (End - Begin);
    const auto [reach, span] = FPen.GetBand();
    double first = std::max(Begin, 0.0), last = std::min(End, sheet.Count - 0.5);
    const double low = -reach, high = sheet.Length + reach;
    if (slope != 0) {
        const auto [enters, leaves] =
            std::minmax({Begin + (low - From) / slope, Begin + (high - From) / slope});
        first = std::max(first, enters);
        last = std::min(last, leaves);
    }
    if (!(first <= last)) return;
    const int firstLine = int(first), lastLine = int(last);
    const double begins = From + slope * (firstLine + 0.5 - Begin),
                 ends = begins + slope * (lastLine - firstLine);
    if (!(std::min(begins, ends) > low - 2 && std::max(begins, ends) < high + 2)) return;

    constexpr double one = 4294967296.0; // 32 bits behind the point
    const TPixelPlaces* const bands = FPen.Bands(slope, IsSteep);
    std::int64_t place = std::int64_t(begins * one);
    const auto step = std::int64_t(slope * one);
    const auto next = [&, reach = reach, span = span](int Line, auto... Part) {
        const auto fraction = std::uint32_t(place) / std::uint32_t(one / TPenCoverage::CFractions);
        const TPixelPlaces* band = bands + std::size_t{fraction} * std::size_t(span);
        TPixelPlaces* pixels = sheet.At(Line, int(place >> 32) - reach);
        if constexpr (sizeof...(Part) == 0)
            Cover(pixels, band, span);
        else
            CoverPart(pixels, band, span, (Part & ...));
        place += step;
    };
    const TPixelPlaces behindFirst = PlacesFrom(first - firstLine, IsSteep);
    const TPixelPlaces beforeLast = ~PlacesFrom(last - lastLine, IsSteep);
    if (firstLine == lastLine) return next(firstLine, behindFirst, beforeLast);
    next(firstLine, behindFirst);
    for (int line = firstLine + 1; line < lastLine; ++line) next(line);
    next(lastLine, beforeLast);
}

void TLineMask::AddDot(QPointF Place) {
    const auto [reach, span] = FPen.GetDot();
    if (!(Place.x() >= -reach && Place.x() < FArea.Width() + reach && Place.y() >= -reach &&
          Place.y() < FArea.Height() + reach))
        return;
    constexpr int fractions = TPenCoverage::CDotFractions;
    const int x = int((Place.x() + reach) * fractions), y = int((Place.y() + reach) * fractions);
    const TPixelPlaces* dot = FPen.Dot(x % fractions, y % fractions);
    const int top = y / fractions - 2 * reach, left = x / fractions - 2 * reach;
    const int bottom = std::min(top + 2 * reach, FRows.Count - 1);
    for (int row = std::max(top, 0); row <= bottom; ++row)
        Cover(FRows.At(row, left), dot + std::ptrdiff_t{row - top} * span, span);
}

void TLineMask::Mix(const TPixels& Image, QRgb Color) {
    for (int y = 0; y < FArea.Height(); y += CTile)
        for (int x = 0; x < FArea.Width(); x += CTile) MixTile(Image, x, y, Color);
}

void TLineMask::MixTile(const TPixels& Image, int X, int Y, QRgb Color) {
    std::array<std::array<TPixelPlaces, CTile>, CTile> tile;
    for (int x = 0; x < CTile; ++x) {
        const TPixelPlaces* column = FColumns.At(X + x, Y);
        for (int y = 0; y < CTile; ++y) tile[std::size_t(y)][std::size_t(x)] = column[y];
    }
    const int width = std::min(CTile, FArea.Width() - X), height = std::min(CTile, FArea.Height() - Y);
    for (int y = 0; y < height; ++y) {
        auto& row = tile[std::size_t(y)];
        Cover(row.data(), FRows.At(Y + y, X), CTile);
        std::array<unsigned, CTile> parts;
        for (std::size_t x = 0; x < CTile; ++x) parts[x] = Count(row[x]) * CPart;
        MixRow(Image.At(FArea.Left + X, FArea.Top + Y + y), std::span(parts).first(std::size_t(width)),
               Color);
    }
}

} // namespace kx::qt
