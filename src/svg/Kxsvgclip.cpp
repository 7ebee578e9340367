#include <kxgraph/svg/Kxsvgclip.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace kx::svg {

namespace {

struct TReal {
    double X = 0, Y = 0;
};

TReal RealOf(TPoint P) { return {double(P.X), double(P.Y)}; }
TSvgPoint Centre(TPoint P) { return {CentreOf(P.X), CentreOf(P.Y)}; }
TSvgPoint Centre(TReal P) { return {std::llround(P.X * 100) + 50, std::llround(P.Y * 100) + 50}; }

bool AllInside(std::span<const TPoint> Points, const TRect& Window) {
    return std::all_of(Points.begin(), Points.end(), [&Window](TPoint P) { return Window.Contains(P); });
}

TSvgLine Centres(std::span<const TPoint> Points) {
    TSvgLine line(Points.size());
    std::transform(Points.begin(), Points.end(), line.begin(), [](TPoint P) { return Centre(P); });
    return line;
}

/// One side of the window: how far inside a point lies (negative: outside).
struct TSide {
    double A, B, C;
    double Depth(TReal P) const { return A * P.X + B * P.Y + C; }
};

std::array<TSide, 4> SidesOf(const TRect& W) {
    return {TSide{1, 0, -double(W.Left)}, TSide{-1, 0, double(W.Right)}, TSide{0, 1, -double(W.Top)},
            TSide{0, -1, double(W.Bottom)}};
}

TReal Between(TReal P, TReal Q, double T) { return {P.X + T * (Q.X - P.X), P.Y + T * (Q.Y - P.Y)}; }

/// The part of a segment that is inside, as parameters in 0..1 (Liang and Barsky).
std::optional<std::pair<double, double>> RangeInside(TReal P, TReal Q, std::span<const TSide> Sides) {
    double from = 0, to = 1;
    for (const TSide& side : Sides) {
        const double p = side.Depth(P), q = side.Depth(Q);
        if (p < 0 && q < 0) return std::nullopt;
        if (p < 0) from = std::max(from, p / (p - q));
        if (q < 0) to = std::min(to, p / (p - q));
    }
    if (from > to) return std::nullopt;
    return std::pair{from, to};
}

/// One side's cut of a polygon (Sutherland and Hodgman).
std::vector<TReal> CutBy(const TSide& Side, const std::vector<TReal>& Polygon) {
    std::vector<TReal> cut;
    for (std::size_t i = 0; i < Polygon.size(); ++i) {
        const TReal p = Polygon[i], q = Polygon[(i + 1) % Polygon.size()];
        const double depthP = Side.Depth(p), depthQ = Side.Depth(q);
        if (depthP >= 0) cut.push_back(p);
        if ((depthP < 0) != (depthQ < 0)) cut.push_back(Between(p, q, depthP / (depthP - depthQ)));
    }
    return cut;
}

} // namespace

std::vector<TSvgLine> LinesInside(std::span<const TPoint> Points, const TRect& Window) {
    if (Points.empty()) return {};
    if (AllInside(Points, Window)) return {Centres(Points)};
    const auto sides = SidesOf(Window);
    std::vector<TSvgLine> lines;
    bool joins = false; // the last line ends at the point that comes next
    for (std::size_t i = 0; i + 1 < Points.size(); ++i) {
        const TReal p = RealOf(Points[i]), q = RealOf(Points[i + 1]);
        const auto range = RangeInside(p, q, sides);
        if (!range) {
            joins = false;
            continue;
        }
        if (!joins) lines.push_back({Centre(Between(p, q, range->first))});
        joins = range->second == 1;
        lines.back().push_back(joins ? Centre(Points[i + 1]) : Centre(Between(p, q, range->second)));
    }
    return lines;
}

TSvgLine PolygonInside(std::span<const TPoint> Points, const TRect& Window) {
    if (AllInside(Points, Window)) return Centres(Points);
    std::vector<TReal> polygon(Points.size());
    std::transform(Points.begin(), Points.end(), polygon.begin(), RealOf);
    for (const TSide& side : SidesOf(Window)) polygon = CutBy(side, polygon);
    TSvgLine line(polygon.size());
    std::transform(polygon.begin(), polygon.end(), line.begin(), [](TReal P) { return Centre(P); });
    return line;
}

std::vector<TPoint> EllipseInside(const TRect& Rect, const TRect& Window) {
    const double midX = (Rect.Left + (Rect.Right - 1.0)) / 2, midY = (Rect.Top + (Rect.Bottom - 1.0)) / 2;
    const double halfX = std::max(Rect.Right - 1 - midX, 0.5), halfY = Rect.Bottom - 1 - midY;
    std::vector<TPoint> upper, lower;
    for (int x = std::max(Rect.Left, Window.Left); x < std::min(Rect.Right, Window.Right); ++x) {
        const double along = (x - midX) / halfX, reach = halfY * std::sqrt(std::max(0.0, 1 - along * along));
        upper.push_back({x, RoundToInt(midY - reach)});
        lower.push_back({x, RoundToInt(midY + reach)});
    }
    upper.insert(upper.end(), lower.rbegin(), lower.rend());
    return upper;
}

} // namespace kx::svg
