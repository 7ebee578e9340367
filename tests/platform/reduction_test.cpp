#include <kxgraph/platform/drawing/reduction.h>

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace kx {
namespace {

using TPoints = std::vector<TPoint>;

/// The rule by sets of indexes: of every run in a column the first, highest, lowest and last, with
/// neighbours.
TPoints ReducedSlowly(const TPoints& Points) {
    const int count = static_cast<int>(Points.size());
    std::set<int> kept;
    const auto byY = [](TPoint A, TPoint B) { return A.Y < B.Y; };
    for (auto begin = Points.begin(); begin != Points.end();) {
        const auto end = std::find_if(begin, Points.end(), [begin](TPoint P) { return P.X != begin->X; });
        for (auto it : {begin, std::min_element(begin, end, byY), std::max_element(begin, end, byY), end - 1})
            for (int i = -1; i <= 1; ++i) kept.insert(static_cast<int>(it - Points.begin()) + i);
        begin = end;
    }
    TPoints points;
    for (int i : kept)
        if (i >= 0 && i < count) points.push_back(Points[i]);
    return points;
}

TEST(Reduction, KeepsFirstHighestLowestLastOfEachColumnAndTheirNeighbours) {
    std::mt19937 random(7);
    TPoints kept;
    for (const int count : {0, 1, 6, 3000})
        for (const int perColumn : {1, 5, 1000}) {
            TPoints points(count);
            int x = -CMaxPixel;
            for (TPoint& p : points) {
                if (random() % perColumn == 0) x += static_cast<int>(random() % 3) - 1;
                p = {x, static_cast<int>(random() % 400) - 200};
            }
            ReducePolyline(points, kept);
            EXPECT_EQ(kept, ReducedSlowly(points)) << count << " points, " << perColumn << " a column";
        }
}

} // namespace
} // namespace kx
