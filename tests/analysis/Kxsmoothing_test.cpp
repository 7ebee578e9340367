#include <kxgraph/analysis/Kxsmoothing.h>

#include "support/arrays.h"
#include "support/reference.h"
#include "support/testing.h"

namespace kx::test::smoothing {

TReals Smoothed(double M, const TReals& X, const TReals& Y) {
    TKxRealArray y = ArrayOf(Y);
    SmoothVector(M, ArrayOf(X), y);
    return {y.begin(), y.end()};
}

TReals RandomAscending(std::mt19937& Random, int n, double Offset, double Unevenness) {
    TReals x;
    std::normal_distribution<double> logStep;
    for (double at = 0; int(x.size()) < n; at += std::exp(Unevenness * logStep(Random)))
        x.push_back(Offset + at);
    return x;
}

TEST(Smoothing, AgreesWithTheDirectMeanWhateverTheWindow) {
    const struct {
        double XOffset, YOffset, Unevenness;
    } cases[] = {{0, 0, 0}, {0, 1e6, 1}, {1.7e9, 1e6, 1}, {-1e12, -1e-3, 2}, {0, 0, 4}};
    std::mt19937 random(3);
    std::normal_distribution<double> noise;
    for (const auto& c : cases) {
        const TReals x = RandomAscending(random, 700, c.XOffset, c.Unevenness);
        TReals y;
        for (int i = 0; i < 700; ++i) y.push_back(c.YOffset + noise(random));
        const double range = x.back() - x.front();
        for (const double m : {range * 1e-4, range * 0.003, range * 0.07, range, range * 30, CInf}) {
            const TReals found = Smoothed(m, x, y);
            for (std::size_t i = 0; i < x.size(); ++i)
                ASSERT_NEAR(found[i], TriangularMean(m, x, y, i), 2e-15 * (std::abs(c.YOffset) + 3))
                    << "M " << m << " at " << i << " of the case with x from " << c.XOffset;
        }
    }
}

TEST(Smoothing, KeepsItsDigitsBesideGreatValuesAndCrowdsAtTheRim) {
    TReals x, y;
    for (int i = 0; i < 3000; ++i) {
        x.push_back(i < 1500 ? 0 : i == 1500 ? 1 - 1e-6 : i); // 1500 points with hardly any weight for one
        y.push_back(i == 1600 ? 1e200 : std::sin(i));
    }
    const TReals found = Smoothed(1, x, y), wide = Smoothed(3, x, y);
    EXPECT_NEAR(found[1500], TriangularMean(1, x, y, 1500), 1e-15);
    for (const std::size_t i : {1502, 1597, 1604, 2999})
        EXPECT_NEAR(wide[i], TriangularMean(3, x, y, i), 1e-15) << i;
    for (const double scale : {1e308, 1e-306}) {
        const TReals scaled = Smoothed(1.5 * scale, {0, scale / 2, scale}, {scale, scale, scale / 2});
        EXPECT_NEAR(scaled[1] / scale, (1 + 2.0 / 3 + 1.0 / 3) / (1 + 4.0 / 3), 1e-12) << scale;
    }
}

TEST(Smoothing, TakesPointsAsTheyComeAndRefusesFew) {
    for (const auto& [what, m, x, y, expected] :
         Cases<TText, double, TReals, TReals, TReals>("curves", "smoothed")) {
        TReals found;
        const auto smooth = [&, &width = m, &abscissae = x, &ordinates = y] {
            found = Smoothed(width, abscissae, ordinates);
        };
        EXPECT_EQ(MessageOf<EMathError>(smooth), expected.empty() ? "Not enough data!" : "") << what;
        EXPECT_EQ(found, expected) << what;
    }
}

TEST(Smoothing, IsTheSameFromTheOtherEnd) {
    std::mt19937 random(4);
    std::normal_distribution<double> noise;
    for (const double unevenness : {0.0, 1.0, 3.0}) {
        TReals x = RandomAscending(random, 500, 1, unevenness), y;
        for (int i = 0; i < 500; ++i) y.push_back(i % 50 == 7 ? CNaN : 1e5 + noise(random));
        for (const bool log : {false, true}) {
            TReals results[2];
            for (TReals& result : results) {
                TKxRealArray smoothed = ArrayOf(y);
                (log ? SmoothVectorLog : SmoothVector)(log ? 0.1 : 20, ArrayOf(x), smoothed);
                for (const double value : smoothed) result.push_back(std::isnan(value) ? -1 : value);
                std::ranges::reverse(x), std::ranges::reverse(y);
            }
            std::ranges::reverse(results[1]);
            EXPECT_EQ(results[0], results[1]);
        }
    }
}

TEST(Smoothing, CountsLogarithmicDistancesInDecades) {
    std::mt19937 random(5);
    TReals x, logs, y;
    for (int i = 0; i < 500; ++i) {
        logs.push_back(i * 0.02 - 5);
        x.push_back(std::pow(10, logs.back()));
        y.push_back(double(random() % 1000));
    }
    TKxRealArray found = ArrayOf(y);
    SmoothVectorLog(0.3, ArrayOf(x), found);
    for (std::size_t i = 0; i < x.size(); ++i)
        EXPECT_NEAR(found[int(i)], TriangularMean(0.3, logs, y, i), 1e-10) << x[i];
    x[499] = 0;
    EXPECT_EQ(MessageOf<EInvalidOp>([&] { SmoothVectorLog(0.3, ArrayOf(x), found); }),
              "Invalid floating point operation");
}

} // namespace kx::test::smoothing
