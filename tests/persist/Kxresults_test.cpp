#include <kxgraph/persist/Kxresults.h>

#include "support/testing.h"

namespace kx::test::results {

std::string TextOf(const TKxResults& Results) {
    std::string text;
    for (const TKxResult& result : Results.GetItems()) text += result.Key + "=" + result.GetText() + "\n";
    return text;
}

TEST(Results, HaveTheKeysAndValuesOfTheirPoints) {
    std::mt19937 random(2);
    for (int run = 0; run < 2000; ++run) {
        TKxResults lazy, plain; // points as an array, and key by key
        for (int step = 0; step < 6; ++step) {
            const std::string kind = random() % 2 ? "Minima" : "maxima";
            const double value = double(random() % 100) / 8;
            if (random() % 2) {
                const char* const keys[] = {"Caption", "x-minima(2)", "Y-Maxima(1)", "X-Minima(02)",
                                            "X-Minima(9)"};
                const char* key = keys[random() % 5];
                lazy.Set(key, value);
                plain.Set(key, value);
                continue;
            }
            TKxRealPosArray points(int(random() % 4));
            for (int k = 0; k < points.Length(); ++k) {
                points[k] = {value + k, -value * k};
                std::string number = std::to_string(k + 1);
                number.insert(0, 1, '(').append(1, ')');
                plain.Set("X-" + kind + number, points[k].X);
                plain.Set("Y-" + kind + number, points[k].Y);
            }
            lazy.SetPoints(kind, points);
        }
        for (const TKxResult& result : plain.GetItems()) {
            const TKxResult* found = lazy.Find(result.Key);
            ASSERT_TRUE(found && found->Key == result.Key && found->Value == result.Value) << result.Key;
        }
        for (const char* key :
             {"X-Minima(4)", "X-Minima(0)", "X-Minima(1", "Z-Minima(1)", "X-Minima(1) ", ""})
            ASSERT_EQ(lazy.Find(key) != nullptr, plain.Find(key) != nullptr) << key;
        ASSERT_EQ(TextOf(lazy), TextOf(plain));
        TKxIniList stores[2];
        WriteResults(lazy, stores[0], "S");
        WriteResults(plain, stores[1], "S");
        ASSERT_EQ(stores[0].GetText(), stores[1].GetText());
        TKxResults same = lazy;
        EXPECT_TRUE(lazy.HasKeysOf(same));
        same.Set("One more", 1.0);
        EXPECT_FALSE(lazy.HasKeysOf(same));
    }
}

} // namespace kx::test::results
