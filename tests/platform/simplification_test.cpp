#include <kxgraph/platform/drawing/simplification.h>

#include "support/testing.h"

namespace kx::test::simplification {

using TPlaces = std::vector<TRealPoint>;

double Distance(TRealPoint P, TRealPoint A, TRealPoint B) {
    const TRealPoint way = B - A, to = P - A;
    const double square = way.X * way.X + way.Y * way.Y;
    const double t = square > 0 ? std::clamp((to.X * way.X + to.Y * way.Y) / square, 0.0, 1.0) : 0;
    return std::hypot(to.X - t * way.X, to.Y - t * way.Y);
}

/// Of the points, the one farthest from the line.
double Farthest(const TPlaces& Points, const TPlaces& Line) {
    double farthest = 0;
    for (const TRealPoint p : Points) {
        double nearest = 1e9;
        for (std::size_t i = 1; i < Line.size() && nearest > 1e-9; ++i)
            nearest = std::min(nearest, Distance(p, Line[i - 1], Line[i]));
        farthest = std::max(farthest, nearest);
    }
    return farthest;
}

TEST(SimplifyLine, KeepsEveryPointNearAndLeavesFew) {
    std::mt19937 random(3);
    std::normal_distribution<double> normal;
    const struct {
        const char* Case;
        double PerPixel;    // along x
        double Noise, Jump; // of y, and from point to point
        std::size_t Most;   // of 2500, that may stay
        double Wave = 0;
    } cases[] = {{"noise", 2000, 50, 0, 130},   {"walk", 200, 0, 0.2, 850},   {"sparse", 2, 5, 0, 2500},
                 {"smooth", 100, 0, 0, 20, 40}, {"straight", 7, 0, 0, 2},     {"back and forth", 0, 0, 0, 14},
                 {"still", 1e9, 0, 0, 2},       {"jitter", 50, 0.002, 0, 20}, {"steps", 300, 0, 0, 60, -9}};
    TPlaces kept;
    for (const auto& c : cases)
        for (const int columns : {CColumnsPerPixel, 4, 0}) {
            TPlaces points;
            double walk = 0;
            for (int i = 0; i < 2500; ++i) {
                const double x = c.PerPixel > 0 ? i / c.PerPixel : std::abs(i % 400 - 200) / 10.0;
                walk += c.Jump * normal(random);
                const double wave = c.Wave < 0 ? i / 100 % 2 * c.Wave : c.Wave * std::sin(x / 20);
                points.push_back({x, walk + wave + c.Noise * normal(random)});
            }
            SimplifyLine(points, columns, kept);
            EXPECT_LE(kept.size(), columns >= 4 ? c.Most : points.size()) << c.Case;
            EXPECT_LE(Farthest(points, kept), columns ? 1.0 / columns + CStraightness : CStraightness + 1e-9)
                << c.Case;
            EXPECT_EQ(std::tuple(kept.front(), kept.back()), std::tuple(points.front(), points.back()));
        }
}

} // namespace kx::test::simplification
