#include "numeric/Kxrange.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kx {
namespace {

TEST(Range, WidensAndTellsWhichEndMovedOnce) {
    TRange range;
    int told = 0;
    range.OnChanged = [&](TRange* changed) { told += changed == &range; };
    using TCase = std::tuple<double, TRangeChangedResult, double, double, int>;
    for (const auto& [x, result, start, stop, calls] :
         {TCase{2, rgBothChanged, 2, 2, 1}, TCase{5, rgMaxChanged, 2, 5, 2},
          TCase{-1, rgMinChanged, -1, 5, 3}, TCase{0, rgNotChanged, -1, 5, 3},
          TCase{NAN, rgNotChanged, -1, 5, 3}}) {
        EXPECT_EQ(range.IfRangeChanged(x), result) << x;
        EXPECT_EQ(std::tuple(range.GetStart(), range.GetStop(), told), std::tuple(start, stop, calls)) << x;
    }
    range.SetStartStop(3, 1);
    range.SetStart(3);
    range.SetStop(1);
    EXPECT_EQ(told, 6) << "setters tell every time and order nothing";
    TRange copy;
    copy.Assign(range);
    EXPECT_EQ(std::pair(copy.GetStart(), copy.GetStop()), std::pair(3.0, 1.0));
    range.Assign(copy);
    EXPECT_EQ(told, 7);
    range.Reset();
    EXPECT_EQ(std::tuple(range.GetStart(), range.GetStop(), told), std::tuple(1.7e308, -1.7e308, 7));
    EXPECT_THROW(range.Assign(TStringList()), EConvertError);
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

} // namespace
} // namespace kx
