#include <kxgraph/platform/drawing/visible.h>

#include <kxgraph/platform/drawing/recording.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <unordered_set>
#include <variant>

namespace kx {

namespace {

constexpr int CLargestShape = 256; // larger ones are never many
constexpr double CLargestExtent = 1 << 26;

/// A shape as pixels around its place: those that it touches, and those that it covers as a whole.
struct TCoverage {
    std::vector<TPoint> Touched, Covered;
};

bool Copies(const TStroke& Stroke) { return Stroke.Style == psClear || Stroke.Mode == pmCopy; }
bool Copies(const TFill& Fill) { return Fill.Style == bsClear || Fill.Mode == pmCopy; }

/// How far the outline reaches beyond Rect, at most.
int Beyond(const TStroke& Stroke) { return Stroke.Width > 1 ? Stroke.Width / 2 : 0; }
/// How far inside Rect what is painted may begin to be solid: a line without gaps covers all of the border.
double Inset(const TStroke& Stroke) {
    return Stroke.Style == psSolid || Stroke.Style == psInsideFrame ? 0.01 : 0.5;
}

TRect PixelsAround(const TRealRect& Rect, double By) {
    return {int(std::floor(Rect.Left - By)), int(std::floor(Rect.Top - By)), int(std::ceil(Rect.Right + By)),
            int(std::ceil(Rect.Bottom + By))};
}

template <class FTouches, class FCovers>
std::optional<TCoverage> CoverageOf(const TRect& All, const TStroke& Stroke, const TFill& Fill,
                                    FTouches Touches, FCovers Covers) {
    const TRect limit{-CLargestShape, -CLargestShape, CLargestShape, CLargestShape};
    if (All.Intersected(limit) != All || !Copies(Stroke) || !Copies(Fill)) return std::nullopt;
    TCoverage coverage;
    for (int y = All.Top; y < All.Bottom; ++y) {
        for (int x = All.Left; x < All.Right; ++x) {
            if (Touches(x, y)) coverage.Touched.push_back({x, y});
            if (Fill.Style == bsSolid && Covers(x, y)) coverage.Covered.push_back({x, y});
        }
    }
    return coverage;
}

/// What a single call touches and covers; nothing for calls that are not looked into.
struct TCoverageOfCall {
    TRealPoint Place; ///< within a pixel,
    double Doubt;     ///< or so far beside it in either direction

    TRealRect At(const TRealRect& Rect) const {
        const double limit = 2 * CLargestShape;
        const auto limited = [limit](double V) { return std::clamp(V, -limit, limit); };
        return {limited(Rect.Left) + Place.X, limited(Rect.Top) + Place.Y, limited(Rect.Right) + Place.X,
                limited(Rect.Bottom) + Place.Y};
    }
    double Reach(const TStroke& Stroke) const { return std::min(Beyond(Stroke), CLargestShape) + Doubt; }

    std::optional<TCoverage> operator()(const TRecording::TRectangle& C) const {
        const TRealRect rect = At(C.Exact.value_or(C.Rect));
        const double inset = std::round(Inset(C.Stroke)) + Doubt;
        const TRect inner{int(std::ceil(rect.Left + inset)), int(std::ceil(rect.Top + inset)),
                          int(std::floor(rect.Right - inset)), int(std::floor(rect.Bottom - inset))};
        return CoverageOf(
            PixelsAround(rect, Reach(C.Stroke)), C.Stroke, C.Fill, [](int, int) { return true; },
            [&inner](int X, int Y) {
                return inner.Contains({X, Y});
            });
    }
    std::optional<TCoverage> operator()(const TRecording::TEllipse& C) const {
        const TRealRect rect = At(C.Exact.value_or(C.Rect));
        const double midX = (rect.Left + rect.Right) / 2, midY = (rect.Top + rect.Bottom) / 2;
        const double halfX = rect.Width() / 2, halfY = rect.Height() / 2;
        if (Doubt > 0 && halfX != halfY)
            return std::nullopt;          // by how much it would have to grow is no number
        const double doubt = Doubt * 1.5; // aslant
        const double beyond = Beyond(C.Stroke) + doubt, inset = Inset(C.Stroke) + doubt;
        // Distances of the farther and the nearer side of a pixel from the middle.
        const auto far = [](int At, double Mid) { return std::abs(At + 0.5 - Mid) + 0.5; };
        const auto near = [](int At, double Mid) { return std::max(0.0, std::abs(At + 0.5 - Mid) - 0.5); };
        const auto isInside = [](double X, double Y, double A, double B) {
            return A > 0 && B > 0 && X * X / (A * A) + Y * Y / (B * B) <= 1;
        };
        return CoverageOf(
            PixelsAround(rect, Reach(C.Stroke)), C.Stroke, C.Fill,
            [&](int X, int Y) {
                return isInside(near(X, midX), near(Y, midY), halfX + beyond, halfY + beyond);
            },
            [&](int X, int Y) { return isInside(far(X, midX), far(Y, midY), halfX - inset, halfY - inset); });
    }
    template <class T>
    std::optional<TCoverage> operator()(const T&) const {
        return std::nullopt;
    }
};

/// Goes from the last picture to the first. Outside the extent nothing shows.
class TCover {
public:
    explicit TCover(TSize Extent)
        : FExtent(Extent), FCovered(std::size_t(Extent.Width) * std::size_t(Extent.Height)) {}
    /// Whether something of the next picture is to be seen.
    bool Shows(TPoint At, const TCoverage& Shape) {
        const auto isOpen = [&](TPoint P) { return Contains(P + At) && !FCovered[Index(P + At)]; };
        if (std::ranges::none_of(Shape.Touched, isOpen)) return false;
        for (const TPoint p : Shape.Covered)
            if (Contains(p + At)) FCovered[Index(p + At)] = 1;
        return true;
    }

private:
    bool Contains(TPoint P) const {
        return P.X >= 0 && P.Y >= 0 && P.X < FExtent.Width && P.Y < FExtent.Height;
    }
    std::size_t Index(TPoint P) const {
        return std::size_t(P.Y) * std::size_t(FExtent.Width) + std::size_t(P.X);
    }
    TSize FExtent;
    std::vector<char> FCovered;
};

/// What one shape touches and covers at any place, in parts of a pixel.
class TShapes {
public:
    explicit TShapes(const TRecording::TCall& Call) : FCall(Call) {}

    bool AreKnown() { return bool(At({0, 0})); }
    /// At a place within a pixel.
    const std::optional<TCoverage>& At(TRealPoint Place) {
        constexpr int CParts = 8;
        const bool isWhole = Place == TRealPoint();
        const int x = int(Place.X * CParts), y = int(Place.Y * CParts);
        auto& shape = isWhole ? FWhole : FParts[std::size_t(y * CParts + x) % FParts.size()];
        if (!shape) {
            constexpr double CHalf = 0.5 / CParts;
            const TCoverageOfCall part{{double(x) / CParts + CHalf, double(y) / CParts + CHalf}, CHalf};
            shape = std::visit(isWhole ? TCoverageOfCall{{}, 0} : part, FCall);
        }
        return shape;
    }

private:
    const TRecording::TCall& FCall;
    std::optional<TCoverage> FWhole;
    std::array<std::optional<TCoverage>, 64> FParts;
};

/// Places so near to one another that a picture hides the one below it but for less than a twentieth of a
/// pixel.
std::uint64_t CellOf(TRealPoint Place) {
    constexpr double CCells = 32;
    return std::uint64_t(std::floor(Place.X * CCells) + CLargestExtent) << 32 |
           std::uint64_t(std::floor(Place.Y * CCells) + CLargestExtent);
}

} // namespace

std::vector<TRealPoint> VisiblePlaces(TPointSpan Places, const TRecording& One, TSize Extent) {
    std::vector<TRealPoint> storage, visible;
    const auto places = Places.Exact(storage);
    const bool isUsual = One.Calls.size() == 1 && Extent.Width > 0 && Extent.Height > 0 &&
                         double(Extent.Width) * Extent.Height <= CLargestExtent;
    std::optional<TShapes> shapes;
    if (isUsual) shapes.emplace(One.Calls[0]);
    if (!shapes || !shapes->AreKnown()) return {places.begin(), places.end()};
    const TRect near{-2 * CLargestShape, -2 * CLargestShape, Extent.Width + 2 * CLargestShape,
                     Extent.Height + 2 * CLargestShape};
    TCover cover(Extent);
    std::unordered_set<std::uint64_t> taken;
    for (std::size_t i = places.size(); i-- > 0;) {
        const TRealPoint corner{std::floor(places[i].X), std::floor(places[i].Y)};
        if (!near.Contains(RoundToPixel(corner))) continue;
        const auto& shape = shapes->At(places[i] - corner);
        if (shape && !cover.Shows(RoundToPixel(corner), *shape)) continue;
        if (taken.insert(CellOf(places[i])).second) visible.push_back(places[i]);
    }
    std::ranges::reverse(visible);
    return visible;
}

std::optional<TDisc> DiscOf(const TRecording& One) {
    const auto* circle = One.Calls.size() == 1 ? std::get_if<TRecording::TEllipse>(&One.Calls[0]) : nullptr;
    if (!circle) return std::nullopt;
    const TStroke& stroke = circle->Stroke;
    const TFill& fill = circle->Fill;
    const TRealRect rect = circle->Exact.value_or(circle->Rect);
    const bool isOneColor = fill.Style == bsSolid && stroke.Style == psSolid && stroke.Width <= 1 &&
                            fill.Color == stroke.Color && Copies(stroke) && Copies(fill);
    if (!isOneColor || rect.Width() != rect.Height() || rect.Width() < 2) return std::nullopt;
    return TDisc{(rect.Left + rect.Right) / 2, (rect.Top + rect.Bottom) / 2, rect.Width(), fill.Color};
}

} // namespace kx
