#include "analysis/Kxlinregr.h"

#include "support/errors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
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
TResults Fit(const TReals& X, const TReals& Y, const TReals& W = {}, double Start = -CInf,
             double Stop = CInf) {
    TResults results{.R = CNaN, .ChiSquare = CNaN}; // nothing of it may stay
    W.empty() ? LinReg(Start, Stop, X, Y, results) : LinRegWithWeight(Start, Stop, X, Y, W, results);
    return results;
}
TResults FitThrough(double Offset, const TReals& X, const TReals& Y, const TReals& W = {},
                    double Start = -CInf, double Stop = CInf) {
    TResults results{.DeltaOffset = CNaN, .R = CNaN};
    results.Offset = Offset;
    W.empty() ? OfsReg(Start, Stop, X, Y, results) : OfsRegWithWeight(Start, Stop, X, Y, W, results);
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

TEST(LinReg, DataFarFromZeroLoseNoDigits) {
    const struct {
        double X0, StepX, Y0;
        int Count;
    } cases[] = {
        {1.7e9, 60, 20, 60},        // Unix seconds
        {2024, 1. / 4096, 1e6, 60}, // decimal years
        {4e15, 0.5, -4e14, 60},     // steps of one unit in the last place
        {-1e15, 1, 1e15, 5000},     // several blocks
    };
    for (const auto& c : cases) {
        TReals x, y;
        std::int64_t sumU = 0, sumV = 0, sumUu = 0, sumUv = 0, sumVv = 0; // exact
        for (int u = 0; u < c.Count; ++u) {
            const int v = 3 * u + u * u % 101 % 17;
            x.push_back(c.X0 + u * c.StepX);
            y.push_back(c.Y0 + v * 0.125);
            sumU += u;
            sumV += v;
            sumUu += u * u;
            sumUv += u * v;
            sumVv += v * v;
        }
        const TExtended n = c.Count, uu = n * sumUu - TExtended(sumU) * sumU;
        const TExtended uv = n * sumUv - TExtended(sumU) * sumV, vv = n * sumVv - TExtended(sumV) * sumV;
        const TExtended slope = uv / uu * 0.125L / c.StepX;
        const TResults free = Fit(x, y), fixed = FitThrough(c.Y0, x, y);
        EXPECT_GE(Digits(free.Slope, double(slope)), 15) << c.X0;
        EXPECT_GE(Digits(free.ChiSquare, double((vv - uv / uu * uv) / n / 64)), 12) << c.X0;
        const TExtended meanX = c.X0 + c.StepX * (sumU / n), meanV = 0.125L * sumV / n;
        EXPECT_GE(Digits(free.Offset, double(c.Y0 + meanV - slope * meanX)), 14) << c.X0;
        EXPECT_GE(Digits(free.VarianceX, double(uu / n / (n - 1) * c.StepX * c.StepX)), 14) << c.X0;
        const TExtended xx = uu / n * c.StepX * c.StepX, about0 = xx + n * meanX * meanX;
        const TExtended through = (slope * xx + n * meanX * meanV) / about0;
        EXPECT_GE(Digits(fixed.Slope, double(through)), 15) << c.X0;
        EXPECT_EQ(fixed.VarianceX, free.VarianceX);
    }
}

TEST(LinReg, SmallAndDegenerateDataGiveExactLinesMarkersAndZeros) {
    constexpr double free = CNaN, mark = CMaxReal;
    const auto root = [](double Value) { return std::sqrt(Value); };
    const struct {
        const char* What;
        double Offset;
        TReals X, Y, W;
        std::array<double, 11> Fields; // in the order of the record
    } cases[] = {
        {"line", free, {0, 1, 2}, {1, 3, 5}, {}, {2, 0, 1, 0, 1, 3, 1, 4, 1, 1, 0}},
        {"two points", free, {1, 4}, {10, 1}, {}, {-3, 0, 13, 0, 2.5, 5.5, 4.5, 40.5, 1, -1, 0}},
        {"x equal", free, {.1, .1, .1}, {1, 2, 6}, {}, {mark, 0, mark, 0, .1, 3, 0, 0, 1, 1, 0}},
        {"y equal", free, {1, 2, 3}, {.1, .1, .1}, {}, {mark, 0, mark, 0, 2, .1, 1, 0, 1, 1, 0}},
        {"overflow", free, {1, 2, 3}, {1e300, -1e300, 0}, {}, {mark, 0, mark, 0, 2, 0, 0, 0, 1, 1, 0}},
        {"mean too", free, {-mark, mark}, {1, 2}, {}, {mark, 0, mark, 0, mark, 1.5, 0, 0, 1, 1, 0}},
        // Weights: as repetitions, of sum 1, 0 for a senseless y, for one x only, of sums 0 and below.
        {"repeated",
         free,
         {0, 1, 2},
         {0, 0, 3},
         {2, 1, 2},
         {1.5, root(.15), -.3, root(.27), 1, 1.2, 1, 2.7, 5. / 6, root(5. / 6), 1.8}},
        {"sum 1", free, {0, 1, 2}, {1, 3, 5}, {.25, .5, .25}, {2, 0, 1, 0, 1, 3, 0, 0, 1, 1, 0}},
        {"void y",
         free,
         {7, 0, 1, 2},
         {mark, 1, 3, 5},
         {0, .1, .3, .07},
         {2, 0, 1, 0, .44 / .47, 1.35 / .47, 0, 0, 1, 1, 0}},
        {"one x", free, {0, 1, 2}, {1, 2, 4}, {0, 2, 0}, {mark, 0, mark, 0, 1, 2, 0, 0, 1, 1, 0}},
        {"sum 0", free, {0, 1}, {1, 3}, {1, -1}, {mark, 0, mark, 0, mark, mark, 0, 0, 1, 1, 0}},
        {"negative", free, {0, 2}, {1, 3}, {-1, -1}, {mark, 0, mark, 0, 1, 2, 0, 0, 1, 1, 0}},
        {"sum -1", free, {0, 1, 2}, {0, 2, 4}, {1, -3, 1}, {mark, 0, mark, 0, 1, 2, 0, 0, 1, 1, 0}},

        {"line", 0, {1, 2}, {2, 4}, {}, {2, 0, 0, 0, 1.5, 3, .5, 2, 1, 0, 0}},
        {"one point", 1, {3}, {1.3}, {}, {.1, 0, 1, 0, 3, 1.3, 0, 0, 1, 0, 0}},
        {"y equal", 0, {1, 2}, {5, 5}, {}, {3, 1, 0, 0, 1.5, 5, .5, 0, 1, 0, 5}},
        {"x zero", 7, {0, 0}, {1, 3}, {}, {mark, 0, 7, 0, 0, 2, 0, 2, 1, 0, 0}},
        {"overflow", 7, {1, 2}, {1e300, -1e300}, {}, {mark, 0, 7, 0, 1.5, 0, .5, 0, 1, 0, 0}},
        {"repeated", 1, {1, 2}, {1, 4}, {1, 2}, {4. / 3, 1. / 3, 1, 0, 5. / 3, 3, 1. / 3, 3, 2. / 3, 0, 2}},
        {"sum 1", 0, {1, 2}, {2, 4}, {.5, .5}, {2, 0, 0, 0, 1.5, 3, 0, 0, 1, 0, 0}},
        {"negative", 7, {0, 2}, {1, 3}, {-1, -1}, {mark, 0, 7, 0, 1, 2, 0, 0, 1, 0, 0}},
        {"sum -1", 7, {0, 1, 2}, {0, 2, 4}, {1, -3, 1}, {mark, 0, 7, 0, 1, 2, 0, 0, 1, 0, 0}},
    };
    for (const auto& c : cases) {
        const auto fields =
            FieldsOf(std::isnan(c.Offset) ? Fit(c.X, c.Y, c.W) : FitThrough(c.Offset, c.X, c.Y, c.W));
        for (std::size_t i = 0; i < fields.size(); ++i)
            EXPECT_NEAR(fields[i], c.Fields[i], 9e-16 * std::abs(c.Fields[i])) << c.What << ", field " << i;
    }
}

TEST(LinReg, TooFewPointsOrNoWeightsAreNotEnoughData) {
    const auto isEnough = [](int Least, const TReals& X, const TReals& Y, const TReals& W, double Start,
                             double Stop) {
        return test::MessageOf<EMathError>([&] {
                   Least == 1 ? FitThrough(1, X, Y, W, Start, Stop) : Fit(X, Y, W, Start, Stop);
               }) != "Not enough data!";
    };
    const struct {
        TReals X, Y, W;
        double Start, Stop;
        int Points;
    } cases[] = {
        {{}, {}, {}, -CInf, CInf, 0},
        {{1, 2, 3}, {1, 2, 3}, {}, 3, 1, 0},
        {{1, 2, 3}, {1, 2, 3}, {}, CNaN, 5, 0},
        {{1, 2, 3}, {1, 2, 3}, {}, 0, 1, 1},
        {{1, 2, 3}, {1, 2, 3}, {}, 3, 4, 1},
        {{1, 2, 3}, {CNaN, 2, CInf}, {}, 0, 5, 1},
        {{1, 2, 3}, {1}, {}, 0, 5, 1},
        {{1, 2, 3}, {1, 2, 3}, {1}, 0, 5, 1},
        {{1, 2, 3}, {1, 2, 3}, {1, CInf, CNaN}, 0, 5, 1},
        {{1, 2, 3}, {1, 2, 3}, {0, -0., 0}, 0, 5, 0},
        {{-CInf, 1, 3, 2, 9}, {1, 2, CNaN, 2, 8}, {}, 1, 2, 2}, // ends of the range take part
        {{1, 2}, {1, 2}, {-1, 1}, 0, 5, 2},
    };
    for (const auto& c : cases)
        for (int least : {1, 2})
            EXPECT_EQ(isEnough(least, c.X, c.Y, c.W, c.Start, c.Stop), c.Points >= least) << &c - cases;
}

/// The slow way: points picked one by one, formulas as they are in books.
TResults Reference(const TReals& X, const TReals& Y, const TReals& W, double Start, double Stop, bool Free,
                   double Offset) {
    std::vector<std::array<TExtended, 3>> points;
    TExtended n = 0, meanX = 0, meanY = 0, xx = 0, xy = 0, yy = 0, xx0 = 0, xy0 = 0, chi = 0;
    for (std::size_t i = 0; i < X.size(); ++i) {
        const double w = W.empty() ? 1 : W[i];
        if (!(Start <= X[i] && X[i] <= Stop) || !std::isfinite(X[i] * 0 + Y[i] * 0 + w * 0)) continue;
        points.push_back({X[i], Y[i], w});
        n += w;
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
    const TExtended freedom = n - (Free ? 2 : 1);
    const bool hasErrors = freedom > 0;
    TResults r;
    r.Slope = double(b);
    r.Offset = double(a);
    r.DeltaSlope = hasErrors ? double(std::sqrt(chi / freedom / (Free ? xx : xx0))) : 0;
    r.DeltaOffset = Free && hasErrors ? double(std::sqrt((meanX * meanX / xx + 1 / n) * chi / freedom)) : 0;
    r.AverageX = double(meanX);
    r.AverageY = double(meanY);
    r.VarianceX = n > 1 ? double(xx / (n - 1)) : 0;
    r.VarianceY = n > 1 ? double(yy / (n - 1)) : 0;
    r.Determination = double(1 - chi / yy);
    r.R = Free ? double(xy / std::sqrt(xx * yy)) : 0;
    r.ChiSquare = hasErrors ? double(chi) : 0;
    return r;
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
                const auto expected = FieldsOf(Reference(x, y, weights, start, stop, isFree, offset));
                const auto fields = FieldsOf(isFree ? Fit(x, y, weights, start, stop)
                                                    : FitThrough(offset, x, y, weights, start, stop));
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
    int fits = 0;
    for (int round = 0; round < 20000; ++round) {
        const std::size_t kinds = round % 2 ? pool.size() : 5;
        TReals x, y, w;
        for (std::size_t i = 0, count = 1 + random() % 6; i < count; ++i)
            for (TReals* values : {&x, &y, &w}) values->push_back(pool[random() % kinds]);
        for (const TReals& weights : {TReals{}, w})
            for (bool isFree : {true, false}) {
                TResults results;
                const auto fit = [&] {
                    results =
                        isFree ? Fit(x, y, weights) : FitThrough(y[0] * 0 == 0 ? y[0] : 1, x, y, weights);
                };
                if (test::MessageOf<EMathError>(fit) != "") continue;
                ++fits;
                for (double field : FieldsOf(results)) ASSERT_TRUE(std::isfinite(field)) << round;
                ASSERT_LE(std::abs(results.R), 1);
            }
    }
    EXPECT_GT(fits, 60000);
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
