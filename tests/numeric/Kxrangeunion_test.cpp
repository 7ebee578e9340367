#include <kxgraph/numeric/Kxrangeunion.h>

#include "support/testing.h"

namespace kx::test::rangeunion {

TEST(RangeUnion, IsWhatLookingAtAllRangesTellsWhateverComesAndGoes) {
    constexpr double CNan = std::numeric_limits<double>::quiet_NaN();
    std::mt19937 random(5);
    const auto any = [&](int Low, int High) { return std::uniform_int_distribution(Low, High)(random); };
    std::array<TRange, 40> ranges;
    TKxRangeUnion list;
    for (TRange& range : ranges) range.OnChanged = [&list](TRange* R) { list.Update(*R); };
    for (int round = 0; round < 20000; ++round) {
        TRange& range = ranges[std::size_t(any(0, round / 500))];
        switch (any(0, 9)) {
        case 0: list.Remove(&range); break;
        case 1: range.SetStartStop(CMaxReal, -CMaxReal); break;
        case 2: range.SetStop(CNan); break;
        case 3: range.Reset(), list.UpdateAll(); break; // tells nobody
        case 4:
            if (!any(0, 20)) list.Clear();
            break;
        case 5:
        case 6: list.Add(&range); break;
        default: range.SetStartStop(any(-99, 99), any(-99, 99));
        }
        TRange all;
        for (const TRange* one : list)
            if (one->GetStop() >= one->GetStart())
                for (const double end : {one->GetStart(), one->GetStop()}) all.IfRangeChanged(end);
        ASSERT_EQ(list.Union(), (TKxRangeUnion::TEnds{all.GetStart(), all.GetStop()})) << round;
    }
}

} // namespace kx::test::rangeunion
