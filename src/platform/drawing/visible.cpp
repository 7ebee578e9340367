#include <kxgraph/platform/drawing/visible.h>

#include <kxgraph/platform/drawing/recording.h>

#include <algorithm>
#include <cmath>
#include <optional>
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

template <class FTouches, class FCovers>
std::optional<TCoverage> CoverageOf(const TRect& Rect, const TStroke& Stroke, const TFill& Fill,
                                    FTouches Touches, FCovers Covers) {
    const TRect limit{-CLargestShape, -CLargestShape, CLargestShape, CLargestShape};
    const int beyond = Stroke.Width > CLargestShape ? CLargestShape : Beyond(Stroke);
    const TRect all{Rect.Left - beyond, Rect.Top - beyond, Rect.Right + beyond, Rect.Bottom + beyond};
    if (Rect.Intersected(limit) != Rect || all.Intersected(limit) != all || !Copies(Stroke) || !Copies(Fill))
        return std::nullopt;
    TCoverage coverage;
    for (int y = all.Top; y < all.Bottom; ++y) {
        for (int x = all.Left; x < all.Right; ++x) {
            if (Touches(x, y)) coverage.Touched.push_back({x, y});
            if (Fill.Style == bsSolid && Covers(x, y)) coverage.Covered.push_back({x, y});
        }
    }
    return coverage;
}

/// What a single call touches and covers; nothing for calls that are not looked into.
struct TCoverageOfCall {
    std::optional<TCoverage> operator()(const TRecording::TRectangle& C) const {
        const int inset = int(std::lround(Inset(C.Stroke)));
        const TRect inner{C.Rect.Left + inset, C.Rect.Top + inset, C.Rect.Right - inset,
                          C.Rect.Bottom - inset};
        return CoverageOf(
            C.Rect, C.Stroke, C.Fill, [](int, int) { return true; },
            [&inner](int X, int Y) {
                return inner.Contains({X, Y});
            });
    }
    std::optional<TCoverage> operator()(const TRecording::TEllipse& C) const {
        const double midX = (C.Rect.Left + double(C.Rect.Right)) / 2,
                     midY = (C.Rect.Top + double(C.Rect.Bottom)) / 2;
        const double halfX = (C.Rect.Right - double(C.Rect.Left)) / 2,
                     halfY = (C.Rect.Bottom - double(C.Rect.Top)) / 2;
        const double beyond = Beyond(C.Stroke), inset = Inset(C.Stroke);
        // Distances of the farther and the nearer side of a pixel from the middle.
        const auto far = [](int At, double Mid) { return std::abs(At + 0.5 - Mid) + 0.5; };
        const auto near = [](int At, double Mid) { return std::max(0.0, std::abs(At + 0.5 - Mid) - 0.5); };
        const auto isInside = [](double X, double Y, double A, double B) {
            return A > 0 && B > 0 && X * X / (A * A) + Y * Y / (B * B) <= 1;
        };
        return CoverageOf(
            C.Rect, C.Stroke, C.Fill,
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
    TCover(TSize Extent, const TCoverage& Shape)
        : FShape(Shape), FExtent(Extent), FCovered(std::size_t(Extent.Width) * std::size_t(Extent.Height)),
          FTaken(FCovered.size()) {}
    /// Whether something of the next picture is to be seen.
    bool Shows(TPoint At) {
        if (Contains(At) && FTaken[Index(At)]) return false;
        const auto isOpen = [&](TPoint P) { return Contains(P + At) && !FCovered[Index(P + At)]; };
        if (std::ranges::none_of(FShape.Touched, isOpen)) return false;
        for (const TPoint p : FShape.Covered)
            if (Contains(p + At)) FCovered[Index(p + At)] = 1;
        if (Contains(At)) FTaken[Index(At)] = 1;
        return true;
    }

private:
    bool Contains(TPoint P) const {
        return P.X >= 0 && P.Y >= 0 && P.X < FExtent.Width && P.Y < FExtent.Height;
    }
    std::size_t Index(TPoint P) const {
        return std::size_t(P.Y) * std::size_t(FExtent.Width) + std::size_t(P.X);
    }
    const TCoverage& FShape;
    TSize FExtent;
    std::vector<char> FCovered, FTaken;
};

} // namespace

std::vector<TRealPoint> VisiblePlaces(TPointSpan Places, const TRecording& One, TSize Extent) {
    std::vector<TRealPoint> visible;
    const auto all = Places.Exact(visible);
    std::optional<TCoverage> coverage;
    if (!Places.IsExact() && One.Calls.size() == 1 && double(Extent.Width) * Extent.Height <= CLargestExtent)
        coverage = std::visit(TCoverageOfCall(), One.Calls[0]);
    if (!coverage || Extent.Width < 1 || Extent.Height < 1) return {all.begin(), all.end()};
    std::vector<TPoint> none;
    const auto places = Places.Whole(none);
    const TRect near{-2 * CLargestShape, -2 * CLargestShape, Extent.Width + 2 * CLargestShape,
                     Extent.Height + 2 * CLargestShape};
    visible.clear();
    TCover cover(Extent, *coverage);
    for (std::size_t i = places.size(); i-- > 0;)
        if (near.Contains(places[i]) && cover.Shows(places[i])) visible.push_back(places[i]);
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
