#include "platform/reduction.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace kx {
namespace {

using TPoints = std::vector<TPoint>;

TPoints Reduced(const TPoints& Points) {
    TPoints kept{{-1, -1}};
    ReducePolyline(Points, kept);
    return kept;
}

TEST(Reduction, KeepsFirstHighestLowestLastOfAColumnAndTheirNeighbours) {
    using THeights = std::vector<int>;
    const std::pair<THeights, THeights> cases[] = {
        {{}, {}},
        {{5}, {5}},
        {{7, 7, 7, 7, 7, 7}, {7, 7, 7, 7}},
        {{10, 1, 11, 12, 2, 50, 3, 13, 14, 4, -9, 5, 22, 6, 20}, {10, 1, 2, 50, 3, 4, -9, 5, 6, 20}},
    };
    for (const auto& [all, expected] : cases) {
        TPoints points, wanted;
        for (int y : all) points.push_back({3, y});
        for (int y : expected) wanted.push_back({3, y});
        EXPECT_EQ(Reduced(points), wanted);
    }
}

/// The same rule by sets of indexes.
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

TEST(Reduction, AgreesWithTheRuleAppliedByIndexOnRandomLines) {
    std::mt19937 random(7);
    for (int perColumn : {1, 2, 5, 40, 1000}) {
        TPoints points(3000);
        int x = -CMaxPixel;
        for (TPoint& p : points) {
            if (random() % perColumn == 0) x += static_cast<int>(random() % 3) - 1;
            p = {x, static_cast<int>(random() % 400) - 200};
        }
        EXPECT_EQ(Reduced(points), ReducedSlowly(points)) << perColumn << " points a column";
    }
}

} // namespace
} // namespace kx
