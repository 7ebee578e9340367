#include <kxgraph/analysis/Kxlinregr.h>

#include "support/errors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace kx {
namespace {

using TReals = std::vector<double>;
using TResults = TKxLinearRegessionResults;
using TExtended = long double;

constexpr double CInf = std::numeric_limits<double>::infinity();
constexpr double CNaN = std::numeric_limits<double>::quiet_NaN();

/// Without weights an empty W.
TResults Fit(const TReals& X, const TReals& Y, const TReals& W = {}, double Start = -CInf, double Stop = CInf,
             const TKxLinRegRules& Rules = {}) {
    TResults results{.R = CNaN, .ChiSquare = CNaN}; // nothing of it may stay
    W.empty() ? LinReg(Start, Stop, X, Y, results, Rules)
              : LinRegWithWeight(Start, Stop, X, Y, W, results, Rules);
    return results;
}
TResults FitThrough(double Offset, const TReals& X, const TReals& Y, const TReals& W = {},
                    double Start = -CInf, double Stop = CInf, const TKxLinRegRules& Rules = {}) {
    TResults results{.DeltaOffset = CNaN, .R = CNaN};
    results.Offset = Offset;
    W.empty() ? OfsReg(Start, Stop, X, Y, results, Rules)
              : OfsRegWithWeight(Start, Stop, X, Y, W, results, Rules);
    return results;
}

std::array<double, 11> FieldsOf(const TResults& R) {
    return {R.Slope,     R.DeltaSlope, R.Offset,        R.DeltaOffset, R.AverageX, R.AverageY,
            R.VarianceX, R.VarianceY,  R.Determination, R.R,           R.ChiSquare};
}

double Digits(double Value, double Certified) { return -std::log10(std::abs(Value / Certified - 1) + 1e-17); }

TEST(LinReg, CertifiedValuesOfNistAreMet) {
    // Data and certified values: NIST Statistical Reference Datasets, linear regression, "Norris", "NoInt1"
    // and "NoInt2".
    const TReals x{0.2, 337.4, 118.2, 884.6, 10.1,  226.5, 666.3, 996.3, 448.6, 777,   558.2, 0.4,
                   0.6, 775.5, 666.9, 338,   447.5, 11.6,  556,   228.1, 995.8, 887.6, 120.2, 0.3,
                   0.3, 556.8, 339.1, 887.2, 999,   779,   11.1,  118.3, 229.2, 669.1, 448.9, 0.5};
    const TReals y{0.1, 338.8, 118.1, 888,   9.2,   228.1, 668.5, 998.5, 449.1, 778.9, 559.2, 0.3,
                   0.1, 778.1, 668.8, 339.3, 448.9, 10.8,  557.7, 228.3, 998,   888.8, 119.6, 0.3,
                   0.6, 557.6, 339.3, 888,   998.5, 778.9, 10.2,  117.6, 228.9, 668.4, 449.2, 0.2};
    const TResults norris = Fit(x, y), weighted = Fit(x, y, TReals(x.size(), 1.0));
    const TResults noInt1 = FitThrough(0, {60, 61, 62, 63, 64, 65, 66, 67, 68, 69, 70},
                                       {130, 131, 132, 133, 134, 135, 136, 137, 138, 139, 140});
    const TResults noInt2 = FitThrough(0, {4, 5, 6}, {3, 4, 4});
    const struct {
        double Value, Certified;
        int Digits;
    } cases[] = {
        {norris.Offset, -0.262323073774029, 13},        {norris.Slope, 1.00211681802045, 14},
        {norris.DeltaOffset, 0.232818234301152, 13},    {norris.DeltaSlope, 0.429796848199937E-03, 13},
        {norris.ChiSquare, 26.6173985294224, 13},       {norris.Determination, 0.999993745883712, 14},
        {norris.R * norris.R, 0.999993745883712, 14},   {weighted.Offset, -0.262323073774029, 13},
        {weighted.DeltaOffset, 0.232818234301152, 13},  {noInt1.Slope, 2.07438016528926, 14},
        {noInt1.DeltaSlope, 0.165289256198347E-01, 14}, {noInt1.ChiSquare, 127.272727272727, 14},
        {noInt2.Slope, 0.727272727272727, 14},          {noInt2.DeltaSlope, 0.420827318078432E-01, 14},
        {noInt2.ChiSquare, 0.272727272727273, 14},
    };
    for (const auto& c : cases) EXPECT_GE(Digits(c.Value, c.Certified), c.Digits) << c.Certified;
}

// The same line near zero, where sums of small integers are exact, shows what it is far away.
TEST(LinReg, DataFarFromZeroLoseNoDigits) {
    const struct {
        double X0, StepX, Y0;
        int Count;
    } cases[] = {
        {4e15, 0.5, -4e14, 60}, // steps of one unit in the last place
        {-1e15, 1, 1e15, 5000}, // several blocks
    };
    for (const auto& c : cases) {
        TReals u, v, x, y;
        for (int i = 0; i < c.Count; ++i) {
            u.push_back(i);
            v.push_back(3 * i + i * i % 101 % 17);
            x.push_back(c.X0 + i * c.StepX);
            y.push_back(c.Y0 + v.back() * 0.125);
        }
        const TResults near = Fit(u, v), far = Fit(x, y);
        const TExtended slope = near.Slope * 0.125L / c.StepX;
        EXPECT_GE(Digits(far.Slope, double(slope)), 15) << c.X0;
        EXPECT_GE(Digits(far.ChiSquare, near.ChiSquare / 64), 12) << c.X0;
        EXPECT_GE(Digits(far.VarianceX, near.VarianceX * c.StepX * c.StepX), 14) << c.X0;
        EXPECT_GE(Digits(far.Offset, double(c.Y0 + near.Offset * 0.125L - slope * c.X0)), 14) << c.X0;
        const TExtended xx = near.VarianceX * (c.Count - 1.L) * c.StepX * c.StepX / c.Count;
        const TExtended meanX = c.X0 + c.StepX * TExtended(near.AverageX), meanY = near.AverageY * 0.125L;
        const TExtended through = (slope * xx + meanX * meanY) / (xx + meanX * meanX);
        EXPECT_GE(Digits(FitThrough(c.Y0, x, y).Slope, double(through)), 15) << c.X0;
    }
}

TEST(LinReg, SmallAndDegenerateDataGiveExactLinesMarkersAndZeros) {
    constexpr double free = CNaN, mark = CMaxReal;
    const struct {
        const char* What;
        double Offset;
        TReals X, Y, W;
        std::array<double, 11> Fields; // in the order of the record
    } cases[] = {
        {"line", free, {0, 1, 2}, {1, 3, 5}, {}, {2, 0, 1, 0, 1, 3, 1, 4, 1, 1, 0}},
        {"x equal", free, {.1, .1, .1}, {1, 2, 6}, {}, {mark, 0, mark, 0, .1, 3, 0, 0, 1, 1, 0}},
        {"y equal", free, {1, 2, 3}, {.1, .1, .1}, {}, {mark, 0, mark, 0, 2, .1, 1, 0, 1, 1, 0}},
        {"overflow", free, {1, 2, 3}, {1e300, -1e300, 0}, {}, {mark, 0, mark, 0, 2, 0, 0, 0, 1, 1, 0}},
        {"mean too", free, {-mark, mark}, {1, 2}, {}, {mark, 0, mark, 0, mark, 1.5, 0, 0, 1, 1, 0}},
        // Weights: 0 for a senseless y, for one x only, of sums 0 and below.
        {"void y", free, {7, 0, 1, 2}, {mark, 1, 3, 5}, {0, .25, .5, .25}, {2, 0, 1, 0, 1, 3, 0, 0, 1, 1, 0}},
        {"one x", free, {0, 1, 2}, {1, 2, 4}, {0, 2, 0}, {mark, 0, mark, 0, 1, 2, 0, 0, 1, 1, 0}},
        {"sum 0", free, {0, 1}, {1, 3}, {1, -1}, {mark, 0, mark, 0, mark, mark, 0, 0, 1, 1, 0}},
        {"sum -1", free, {0, 1, 2}, {0, 2, 4}, {1, -3, 1}, {mark, 0, mark, 0, 1, 2, 0, 0, 1, 1, 0}},

        {"line", 0, {1, 2}, {2, 4}, {}, {2, 0, 0, 0, 1.5, 3, .5, 2, 1, 0, 0}},
        {"one point", 1, {3}, {1.3}, {}, {.1, 0, 1, 0, 3, 1.3, 0, 0, 1, 0, 0}},
        {"y equal", 0, {1, 2}, {5, 5}, {}, {3, 1, 0, 0, 1.5, 5, .5, 0, 1, 0, 5}},
        {"x zero", 7, {0, 0}, {1, 3}, {}, {mark, 0, 7, 0, 0, 2, 0, 2, 1, 0, 0}},
        {"overflow", 7, {1, 2}, {1e300, -1e300}, {}, {mark, 0, 7, 0, 1.5, 0, .5, 0, 1, 0, 0}},
        {"sum -1", 7, {0, 1, 2}, {0, 2, 4}, {1, -3, 1}, {mark, 0, 7, 0, 1, 2, 0, 0, 1, 0, 0}},
    };
    for (const auto& c : cases) {
        const auto fields =
            FieldsOf(std::isnan(c.Offset) ? Fit(c.X, c.Y, c.W) : FitThrough(c.Offset, c.X, c.Y, c.W));
        for (std::size_t i = 0; i < fields.size(); ++i)
            EXPECT_NEAR(fields[i], c.Fields[i], 9e-16 * std::abs(c.Fields[i])) << c.What << ", field " << i;
    }
}

TEST(LinReg, EqualYHaveALevelLineWhereItIsAskedFor) {
    const TKxLinRegRules level{wmCounts, true};
    for (const TReals& w : {TReals{}, TReals{1, 2, 4}}) {
        const TResults r = Fit({1, 2, 4}, {.1, .1, .1}, w, -CInf, CInf, level);
        EXPECT_EQ(std::tuple(r.Slope, r.Offset, r.ChiSquare, r.DeltaSlope), std::tuple(0, .1, 0, 0));
        EXPECT_FALSE(r.HasDetermination);
    }
    EXPECT_EQ(Fit({1, 1}, {5, 5}, {}, -CInf, CInf, level).Slope, CMaxReal) << "not at one x";
    EXPECT_TRUE(Fit({1, 2}, {5, 6}, {}, -CInf, CInf, level).HasDetermination);
}

TEST(LinReg, PrecisionsInAnyUnitGiveTheSameErrors) {
    const TReals x{0, 1, 2, 3, 9}, y{1, 2.5, 2, 5, 100};
    for (const double unit : {1.0, 100.0, 0.01}) {
        const TReals w{unit, 2 * unit, 4 * unit, 2 * unit, 0}; // the last one is no point
        const TResults free = Fit(x, y, w, -CInf, CInf, {wmPrecisions});
        const TResults through = FitThrough(1, x, y, w, -CInf, CInf, {wmPrecisions});
        const std::pair<double, double> cases[] = {
            {free.Slope, 75. / 68},
            {free.DeltaSlope, std::sqrt(3861. / 9248)},
            {free.DeltaOffset, std::sqrt(3861. / 2312)},
            {free.VarianceX, 4. / 3 * 68 / 81},
            {free.VarianceY, 4. / 3 * 31 / 18},
            {free.ChiSquare, 429. / 68 * unit},
            {through.Slope, 35. / 36},
            {through.DeltaSlope, std::sqrt(233. / 3888)},
            {through.ChiSquare, 233. / 36 * unit},
            {through.VarianceX, 4. / 3 * 68 / 81},
        };
        for (const auto& c : cases) EXPECT_NEAR(c.first, c.second, 1e-13 * c.second) << unit << &c - cases;
    }
}

TEST(LinReg, TooFewPointsOrNoWeightsAreNotEnoughData) {
    const struct {
        TReals X, Y, W;
        double Start, Stop;
        int Points;
    } cases[] = {
        {{}, {}, {}, -CInf, CInf, 0},
        {{1, 2, 3}, {1, 2, 3}, {}, CNaN, 5, 0},
        {{1, 2, 3}, {1, 2, 3}, {}, 0, 1, 1},
        {{1, 2, 3}, {CNaN, 2, CInf}, {}, 0, 5, 1},
        {{1, 2, 3}, {1}, {}, 0, 5, 1},
        {{1, 2, 3}, {1, 2, 3}, {1}, 0, 5, 1},
        {{1, 2, 3}, {1, 2, 3}, {1, CInf, CNaN}, 0, 5, 1},
        {{1, 2, 3}, {1, 2, 3}, {0, -0., 0}, 0, 5, 0},
        {{-CInf, 1, 3, 2, 9}, {1, 2, CNaN, 2, 8}, {}, 1, 2, 2}, // ends of the range take part
        {{1, 2}, {1, 2}, {-1, 1}, 0, 5, 2},
    };
    for (const auto& c : cases) {
        const auto free = [&] { Fit(c.X, c.Y, c.W, c.Start, c.Stop); };
        const auto through = [&] { FitThrough(1, c.X, c.Y, c.W, c.Start, c.Stop); };
        EXPECT_EQ(test::MessageOf<EMathError>(free), c.Points < 2 ? "Not enough data!" : "") << &c - cases;
        EXPECT_EQ(test::MessageOf<EMathError>(through), c.Points < 1 ? "Not enough data!" : "") << &c - cases;
    }
}

/// The slow way: points picked one by one, formulas as they are in books. Fields in the order of the record.
std::array<double, 11> Reference(const TReals& X, const TReals& Y, const TReals& W, double Start, double Stop,
                                 bool Free, double Offset, TKxWeightMeaning Meaning) {
    std::vector<std::array<TExtended, 3>> points;
    TExtended n = 0, points0 = 0, meanX = 0, meanY = 0, xx = 0, xy = 0, yy = 0, xx0 = 0, xy0 = 0, chi = 0;
    for (std::size_t i = 0; i < X.size(); ++i) {
        const double w = W.empty() ? 1 : W[i];
        if (!(Start <= X[i] && X[i] <= Stop) || !std::isfinite(X[i] * 0 + Y[i] * 0 + w * 0)) continue;
        points.push_back({X[i], Y[i], w});
        n += w;
        points0 += w != 0;
        meanX += TExtended(w) * X[i];
        meanY += TExtended(w) * Y[i];
    }
    meanX /= n;
    meanY /= n;
    for (const auto& [x, y, w] : points) {
        xx += w * (x - meanX) * (x - meanX);
        xy += w * (x - meanX) * (y - meanY);
        yy += w * (y - meanY) * (y - meanY);
        xx0 += w * x * x;
        xy0 += w * x * (y - Offset);
    }
    const TExtended b = Free ? xy / xx : xy0 / xx0, a = Free ? meanY - b * meanX : Offset;
    for (const auto& [x, y, w] : points) chi += w * (y - a - b * x) * (y - a - b * x);
    const TExtended counted = Meaning == wmCounts ? n : points0, freedom = counted - (Free ? 2 : 1);
    const TExtended error = freedom > 0 ? std::sqrt(chi / freedom) : 0;
    const TExtended part = counted > 1 ? counted / n / (counted - 1) : 0,
                    r = Free ? xy / std::sqrt(xx * yy) : 0;
    const TExtended errorA = Free ? error * std::sqrt(meanX * meanX / xx + 1 / n) : 0;
    const TExtended errorB = error / std::sqrt(Free ? xx : xx0), left = freedom > 0 || !Free ? chi : 0;
    std::array<double, 11> fields;
    std::ranges::copy(
        std::array{b, errorB, a, errorA, meanX, meanY, xx * part, yy * part, 1 - chi / yy, r, left},
        fields.begin());
    return fields;
}

TEST(LinReg, AllFitsAgreeWithAPlainReferenceOnRandomDataWithGapsAndRanges) {
    std::mt19937 random(20);
    const auto uniform = [&](double Low, double High) {
        return std::uniform_real_distribution<double>(Low, High)(random);
    };
    const auto pick = [&](std::initializer_list<double> Values) {
        return Values.begin()[random() % Values.size()];
    };
    for (int round = 0; round < 400; ++round) {
        const auto count = static_cast<std::size_t>(pick({3, 4, 5, 7, 30, 1023, 1024, 1025, 3001}));
        const double gaps = pick({0, 0.001, 0.3}), x0 = pick({0, 5, -1000}), scale = pick({1e-100, 1, 1e60});
        const double bad = pick({CNaN, CInf, -CInf}), weight = pick({1e-3, 1, 1e20}),
                     noise = pick({0.01, 1, 30});
        TReals x, y, w;
        for (std::size_t i = 0; i < count; ++i) {
            const double t = round % 2 ? 10. * double(i) / double(count) : uniform(0, 10);
            x.push_back(x0 + t);
            y.push_back((20 - 3 * t + uniform(-noise, noise)) * scale);
            w.push_back(i > 4 && uniform(0, 1) < 0.1 ? 0 : uniform(0.5, 2) * weight);
            for (TReals* values : {&x, &y, &w})
                if (i > 4 && uniform(0, 1) < gaps) values->back() = bad;
        }
        const bool whole = count < 100 || round % 3 == 0;
        const double start = whole ? -CInf : x0 + 2, stop = whole ? CInf : x0 + 7.5;
        const double offset = uniform(-5, 5) * scale;
        for (const TReals& weights : {TReals{}, w})
            for (bool isFree : {true, false}) {
                const auto meaning = pick({0, 1}) == 0 ? wmCounts : wmPrecisions;
                const auto expected = Reference(x, y, weights, start, stop, isFree, offset, meaning);
                const TKxLinRegRules rules{meaning, pick({0, 1}) == 0};
                const auto fields = FieldsOf(isFree ? Fit(x, y, weights, start, stop, rules)
                                                    : FitThrough(offset, x, y, weights, start, stop, rules));
                for (std::size_t i = 0; i < fields.size(); ++i) {
                    // Where terms cancel, what is left is as exact as they were.
                    const double terms = i == 8 || i == 9   ? 1
                                         : i == 0           ? scale
                                         : i == 2 || i == 5 ? 20 * scale + expected[3]
                                                            : 0;
                    const bool isError = i == 1 || i == 3 || i == 10;
                    ASSERT_NEAR(fields[i], expected[i],
                                (isError ? 1e-10 : 1e-12) * (std::abs(expected[i]) + terms))
                        << "field " << i << " in round " << round << ", count " << count;
                }
            }
    }
}

TEST(LinReg, NoResultIsNanOrInfiniteWhateverTheData) {
    std::mt19937 random(7);
    const TReals pool{0, 1, 2, -1, 3.5, 1e-300, 5e-324, 1e-160, 1e155, 1e300, -1.7e308, 1.7e308, CNaN, CInf};
    for (int round = 0; round < 20000; ++round) {
        const std::size_t kinds = round % 2 ? pool.size() : 5;
        TReals x, y, w;
        for (std::size_t i = 0, count = 1 + random() % 6; i < count; ++i)
            for (TReals* values : {&x, &y, &w}) values->push_back(pool[random() % kinds]);
        for (const TReals& weights : {TReals{}, w}) {
            TResults free, through;
            test::MessageOf<EMathError>([&] { free = Fit(x, y, weights); });
            test::MessageOf<EMathError>([&] { through = FitThrough(1e155, x, y, weights); });
            for (double field : FieldsOf(free)) ASSERT_TRUE(std::isfinite(field)) << round;
            for (double field : FieldsOf(through)) ASSERT_TRUE(std::isfinite(field)) << round;
            ASSERT_LE(std::abs(free.R), 1);
        }
    }
}

TEST(LinReg, VectorsAreFittedLikeTheirValues) {
    TKxRealVector x(nullptr), y(nullptr), w(nullptr);
    x.AddValues(TReals{0, 1, 2, 5});
    y.AddValues(TReals{0, 0, 3});
    w.AddValues(TReals{2, 1, 2, 9});
    TResults free, weighted, through, weightedThrough;
    LinReg(0, 9, x, y, free);
    LinRegWithWeight(0, 9, x, y, w, weighted);
    OfsReg(0, 9, x, y, through);
    OfsRegWithWeight(0, 9, x, y, w, weightedThrough);
    EXPECT_DOUBLE_EQ(free.Offset, -0.5);
    EXPECT_DOUBLE_EQ(weighted.Offset, -0.3);
    EXPECT_DOUBLE_EQ(through.Slope, 6. / 5);
    EXPECT_DOUBLE_EQ(weightedThrough.Slope, 12. / 9);
}

} // namespace
} // namespace kx
