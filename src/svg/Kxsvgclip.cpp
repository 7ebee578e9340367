#include <kxgraph/svg/Kxsvgclip.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace kx::svg {

namespace {

TSvgPoint Centre(TRealPoint P) { return {CentreOf(P.X), CentreOf(P.Y)}; }

bool AllInside(std::span<const TRealPoint> Points, const TRect& W) {
    return std::all_of(Points.begin(), Points.end(), [&W](TRealPoint P) {
        return P.X >= W.Left && P.X < W.Right && P.Y >= W.Top && P.Y < W.Bottom;
    });
}

TSvgLine Centres(std::span<const TRealPoint> Points) {
    TSvgLine line(Points.size());
    std::transform(Points.begin(), Points.end(), line.begin(), Centre);
    return line;
}

/// One side of the window: how far inside a point lies (negative: outside).
struct TSide {
    double A, B, C;
    double Depth(TRealPoint P) const { return A * P.X + B * P.Y + C; }
};

std::array<TSide, 4> SidesOf(const TRect& W) {
    return {TSide{1, 0, -double(W.Left)}, TSide{-1, 0, double(W.Right)}, TSide{0, 1, -double(W.Top)},
            TSide{0, -1, double(W.Bottom)}};
}

TRealPoint Between(TRealPoint P, TRealPoint Q, double T) {
    return {P.X + T * (Q.X - P.X), P.Y + T * (Q.Y - P.Y)};
}

/// The part of a segment that is inside, as parameters in 0..1 (Liang and Barsky).
std::optional<std::pair<double, double>> RangeInside(TRealPoint P, TRealPoint Q,
                                                     std::span<const TSide> Sides) {
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
std::vector<TRealPoint> CutBy(const TSide& Side, const std::vector<TRealPoint>& Polygon) {
    std::vector<TRealPoint> cut;
    for (std::size_t i = 0; i < Polygon.size(); ++i) {
        const TRealPoint p = Polygon[i], q = Polygon[(i + 1) % Polygon.size()];
        const double depthP = Side.Depth(p), depthQ = Side.Depth(q);
        if (depthP >= 0) cut.push_back(p);
        if ((depthP < 0) != (depthQ < 0)) cut.push_back(Between(p, q, depthP / (depthP - depthQ)));
    }
    return cut;
}

} // namespace

std::vector<TSvgLine> LinesInside(std::span<const TRealPoint> Points, const TRect& Window) {
    if (Points.empty()) return {};
    if (AllInside(Points, Window)) return {Centres(Points)};
    const auto sides = SidesOf(Window);
    std::vector<TSvgLine> lines;
    bool joins = false; // the last line ends at the point that comes next
    for (std::size_t i = 0; i + 1 < Points.size(); ++i) {
        const TRealPoint p = Points[i], q = Points[i + 1];
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

TSvgLine PolygonInside(std::span<const TRealPoint> Points, const TRect& Window) {
    if (AllInside(Points, Window)) return Centres(Points);
    std::vector<TRealPoint> polygon(Points.begin(), Points.end());
    for (const TSide& side : SidesOf(Window)) polygon = CutBy(side, polygon);
    TSvgLine line(polygon.size());
    std::transform(polygon.begin(), polygon.end(), line.begin(), Centre);
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
