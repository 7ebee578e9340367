#include <kxgraph/platform/base/dynarray.h>
#include <kxgraph/platform/base/largememory.h>

#include "support/testing.h"

namespace kx::test::dynarray {

TEST(DynArray, SharesOnAssignmentUntilItIsResized) {
    TDynArray<int> a{1, 2, 3};
    TDynArray<int> b = a, clone = a.Clone();
    b[0] = 7;
    EXPECT_EQ(a[0], 7);
    EXPECT_EQ(clone[0], 1);
    for (const int length : {2, 3, 4}) { // shorter, equal, longer
        TDynArray<int> own = a;
        own.SetLength(length);
        own[1] = 50;
        EXPECT_EQ(a[1], 2);
        EXPECT_EQ(own[0], 7);
    }
    EXPECT_EQ(a.Length(), 3);
}

TEST(DynArray, KeepsValuesClearsNewOnesAndSeldomMoves) {
    TDynArray<double> a;
    int moves = 0;
    for (int length = 1; length <= 20000; ++length) {
        const double* before = a.Data();
        a.SetLength(length);
        moves += a.Data() != before;
        ASSERT_EQ(a[a.High()], 0);
        a[a.High()] = length;
    }
    for (int i = 0; i < a.Length(); ++i) ASSERT_EQ(a[i], i + 1);
    EXPECT_LT(moves, 40);
    a.SetLength(10);
    a.SetLength(20);
    EXPECT_EQ(a[10], 0); // not what was there before
}

TEST(DynArray, TellsOfLargePiecesOfMemory) {
    static std::size_t told;
    told = 0;
    SetLargeMemory([](void*, std::size_t Size) noexcept { told = Size; });
    constexpr std::size_t CMiB = std::size_t{1} << 20;
    TDynArray<double> values;
    for (const auto& [length, isLarge] : {std::pair{1000000, false}, {3000000, true}}) {
        values.SetLength(length);
        values[length - 1] = length;
        EXPECT_EQ(told >= 16 * CMiB, isLarge) << length;
    }
    EXPECT_GE(told, 3000000 * sizeof(double));
    EXPECT_EQ(values[999999], 1000000);
    SetLargeMemory(nullptr);
}

} // namespace kx::test::dynarray
