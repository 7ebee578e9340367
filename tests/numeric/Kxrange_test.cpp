#include <kxgraph/numeric/Kxrange.h>

#include "support/testing.h"

namespace kx::test::range {

TEST(Range, WidensAndTellsWhichEndMovedOnce) {
    TRange range;
    int told = 0;
    range.OnChanged = [&](TRange* changed) { told += changed == &range; };
    EXPECT_EQ(range.IfRangeChanged(2), rgBothChanged);
    EXPECT_EQ(range.IfRangeChanged(5), rgMaxChanged);
    EXPECT_EQ(range.IfRangeChanged(-1), rgMinChanged);
    for (const double x : {0.0, double(NAN)}) EXPECT_EQ(range.IfRangeChanged(x), rgNotChanged);
    EXPECT_EQ(std::tuple(range.GetStart(), range.GetStop(), told), std::tuple(-1.0, 5.0, 3));
    range.SetStartStop(3, 1);
    EXPECT_EQ(told, 4) << "a setter orders nothing";
    TRange copy;
    copy.Assign(range);
    EXPECT_EQ(std::pair(copy.GetStart(), copy.GetStop()), std::pair(3.0, 1.0));
    range.Reset();
    EXPECT_EQ(std::tuple(range.GetStart(), range.GetStop(), told), std::tuple(1.7e308, -1.7e308, 4));
}

TEST(RangeList, HoldsEachRangeOnceAtTheEnd) {
    TRange a, b;
    TRangeList list;
    for (TRange* range : {&a, &b, &a}) list.Add(range);
    EXPECT_EQ(list.IndexOf(&a), 1);
    list.Insert(0, &a);
    for (const int index : {0, -1}) EXPECT_EQ(list.Remove(&a), index);
    EXPECT_EQ(list.GetCount(), 1);
}

} // namespace kx::test::range
