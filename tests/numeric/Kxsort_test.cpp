#include <kxgraph/numeric/Kxsort.h>

#include "support/cputime.h"
#include "support/testing.h"

namespace kx::test::sort {

TEST(Sort, LeavesEqualValuesInTheOrderOfThePartition) {
    using TCase = std::tuple<TKxRealArray, std::vector<double>>;
    for (const auto& [x, order] : {TCase{{2, 2, 2}, {2, 1, 0}}, TCase{{1, 1, 1, 1}, {2, 3, 0, 1}},
                                   TCase{{2, 1, 2, 1}, {3, 1, 0, 2}}, TCase{{}, {}}}) {
        TKxRealArray x1 = x.Clone(), x2 = x.Clone(), y1{0, 1, 2, 3}, y2 = y1.Clone(), w = y1.Clone();
        QuickSortYtoX(0, x.High(), x1, y1);
        QuickSortYWtoX(0, x.High(), x2, y2, w);
        for (const auto& carried : {y1, y2, w})
            EXPECT_TRUE(std::equal(order.begin(), order.end(), carried.begin()));
    }
}

TEST(Sort, OrdersARangeAndCarriesTheOthersAlong) {
    std::mt19937 random(3);
    for (int round = 0; round < 300; ++round) {
        const int n = 1 + round * round / 20;
        const bool withNaNs = round % 2 == 0;
        TKxRealArray x(n + 2), w(n + 2);
        for (int i = 0; i < n + 2; ++i) {
            x[i] = withNaNs && random() % 3 == 0 ? NAN : double(random() % unsigned(n));
            w[i] = i;
        }
        x[0] = n; // a scan that leaves the range would move its neighbours
        x[n + 1] = -1;
        const auto original = x.Clone();
        auto y = x.Clone();
        QuickSortYWtoX(1, n, x, y, w);
        EXPECT_TRUE(withNaNs || std::is_sorted(x.begin() + 1, x.begin() + n + 1));
        EXPECT_TRUE(x[0] == n && x[n + 1] == -1);
        for (int i = 0; i < n + 2; ++i)
            for (const double carried : {y[i], original[int(w[i])]})
                ASSERT_TRUE(carried == x[i] || (std::isnan(carried) && std::isnan(x[i])));
        std::sort(w.begin(), w.end());
        EXPECT_EQ(std::unique(w.begin(), w.end()), w.end()) << "none is lost";
    }
}

TEST(Sort, TakesNoLongerForSweepsThereAndBack) {
    constexpr int CCount = 40000;
    const auto timeOf = [](auto ValueAt) {
        TKxRealArray x(CCount), y(CCount), w(CCount);
        for (int i = 0; i < CCount; ++i) x[i] = y[i] = w[i] = ValueAt(i);
        const double time = CpuSeconds([&] { QuickSortYWtoX(0, CCount - 1, x, y, w); });
        for (const auto& sorted : {x, y, w}) EXPECT_TRUE(std::is_sorted(sorted.begin(), sorted.end()));
        return time;
    };
    std::mt19937 random(7);
    const double anyOrder = timeOf([&](int) { return double(random()); });
    EXPECT_LT(timeOf([](int i) { return double(std::min(i, CCount - i)); }), 20 * anyOrder);
    EXPECT_LT(timeOf([](int i) { return double(std::max(i, CCount - i)); }), 20 * anyOrder);
}

} // namespace kx::test::sort
