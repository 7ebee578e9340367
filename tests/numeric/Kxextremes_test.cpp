#include <kxgraph/numeric/Kxvector.h>

#include "support/testing.h"

namespace kx::test::extremes {

/// By looking at all values.
TKxExtremes::TEnds SlowEnds(std::span<const double> Values, int First, int Last) {
    TKxExtremes::TEnds ends;
    for (int i = First; i < Last; ++i) {
        const double value = Values[std::size_t(i)];
        if (std::isnan(value)) continue;
        if (ends.LowAt < 0 || value < ends.Low) ends.Low = value, ends.LowAt = i;
        if (ends.HighAt < 0 || value > ends.High) ends.High = value, ends.HighAt = i;
    }
    return ends;
}

bool Sorted(std::span<const double> Values, bool (*InOrder)(double, double)) {
    for (std::size_t i = 0; i < Values.size(); ++i)
        if (std::isnan(Values[i]) || (i > 0 && !InOrder(Values[i - 1], Values[i]))) return false;
    return true;
}

TEST(Extremes, AreThoseOfAllValuesWhateverAVectorGoesThrough) {
    const double CSpecial[] = {std::nan(""), HUGE_VAL, -HUGE_VAL, 0, -0.0};
    std::mt19937 random(7);
    const auto any = [&](int Low, int High) { return std::uniform_int_distribution(Low, High)(random); };
    for (const int size : {3, 64, 200, 5000, 300000}) {
        TKxLiveVector live(nullptr);
        TKxRealVector plain(nullptr);
        for (int i = 0; i < size; ++i) live.Add(i), plain.Add(-i);
        for (int round = 0; round < 400; ++round) {
            for (TKxRealVector* vector : {static_cast<TKxRealVector*>(&live), &plain}) {
                const int at = any(0, vector->GetCount());
                const double value = any(0, 9) ? any(-size, size) : CSpecial[any(0, 4)];
                switch (any(0, 9)) {
                case 0: vector->Insert(at, value); break;
                case 1: vector->Delete(at); break;
                case 2:
                    if (!any(0, 60)) vector->Clear();
                    break;
                case 3:
                    for (int i = any(0, 300); i > 0; --i) vector->Add(value + i);
                    break;
                case 4: vector->AddValues(std::vector<double>(std::size_t(any(0, 70)), value)); break;
                case 5: vector->SetValue(at + any(0, 3), at); break;
                case 6:
                    for (int i = 0; i < vector->GetCount(); ++i) // sorted again
                        if (!(vector->GetValue(i) == i)) vector->SetValue(i, i);
                    break;
                case 7:
                    for (int i = any(0, 3) ? any(0, 90) : size / 3; i > 0; --i) vector->Delete(0);
                    break;
                case 8: live.SetMaxCount(any(0, 1) * any(1, size)); break;
                default: vector->SetValue(at, value);
                }
                const auto values = vector->Values();
                const int first = any(0, int(values.size())), last = any(first, int(values.size()));
                const auto ends = vector->GetEnds(first, last), slow = SlowEnds(values, first, last);
                ASSERT_EQ(ends.LowAt, slow.LowAt) << first << ' ' << last << " of " << values.size();
                ASSERT_EQ(ends.HighAt, slow.HighAt);
                ASSERT_EQ(ends.Low, slow.Low);
                ASSERT_EQ(ends.High, slow.High);
                ASSERT_EQ(vector->IsAscending(), Sorted(values, [](double A, double B) { return A <= B; }));
                ASSERT_EQ(vector->IsDescending(), Sorted(values, [](double A, double B) { return A >= B; }));
                const auto stretch = values.subspan(std::size_t(first), std::size_t(last - first));
                ASSERT_FALSE(vector->AreNumbers(first, last) &&
                             std::ranges::any_of(stretch, [](double V) { return std::isnan(V); }));
            }
        }
    }
}

TEST(Extremes, CostTheBlocksThatHaveChanged) {
    TKxLiveVector vector(nullptr);
    for (int i = 0; i < 1000000; ++i) vector.Add(i % 1000);
    vector.GetEnds(0, 1000000);
    auto touched = [before = PointsTouched]() mutable {
        const auto now = PointsTouched - before;
        before = PointsTouched;
        return now;
    };
    touched();
    vector.GetEnds(5, 999995);
    EXPECT_LE(touched(), 300u);
    for (const auto& change : {std::pair{500000, -1.0}, {999999, 2000.0}, {1000000, 1.0}}) {
        vector.SetValue(change.first, change.second);
        vector.GetEnds(0, vector.GetCount());
        EXPECT_LE(touched(), 300u) << change.first;
    }
    vector.SetMaxCount(vector.GetCount());
    for (int i = 0; i < 100; ++i) {
        vector.Add(i);
        vector.GetEnds(0, vector.GetCount());
    }
    EXPECT_LE(touched(), 100 * 500u) << "the first value left each time";
}

} // namespace kx::test::extremes
