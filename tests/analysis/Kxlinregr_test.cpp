#include <kxgraph/analysis/Kxlinregr.h>
#include <kxgraph/numeric/Kxwide.h>

#include "support/nist.h"
#include "support/reference.h"
#include "support/testing.h"

namespace kx::test::linregr {

using TResults = TKxLinearRegessionResults;
using TExtended = long double;

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

TEST(LinReg, MeetsCertifiedValues) {
    const TNistSet norris("Norris"), noInt1("NoInt1"), noInt2("NoInt2");
    const TResults free = Fit(norris.X, norris.Y), weighted = Fit(norris.X, norris.Y, TReals(36, 1.0));
    for (const TResults& r : {free, weighted}) {
        EXPECT_GE(Digits(r.Offset, norris.Coefficients[0]), 13);
        EXPECT_GE(Digits(r.DeltaOffset, norris.Deviations[0]), 13);
    }
    EXPECT_GE(Digits(free.Slope, norris.Coefficients[1]), 14);
    EXPECT_GE(Digits(free.DeltaSlope, norris.Deviations[1]), 13);
    EXPECT_GE(Digits(free.ChiSquare, norris.SumOfSquares), 13);
    for (const double r2 : {free.Determination, free.R * free.R}) EXPECT_GE(Digits(r2, norris.R2), 14);
    for (const auto& set : {noInt1, noInt2}) {
        const TResults through = FitThrough(0, set.X, set.Y);
        EXPECT_GE(Digits(through.Slope, set.Coefficients[0]), 14);
        EXPECT_GE(Digits(through.DeltaSlope, set.Deviations[0]), 14);
        EXPECT_GE(Digits(through.ChiSquare, set.SumOfSquares), 14);
    }
}

// The same line near zero, where sums of small integers are exact, shows what it is far away.
TEST(LinReg, KeepsTheDigitsOfDataFarFromZero) {
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

TEST(LinReg, GivesExactLinesMarkersAndZerosForSmallAndDegenerateData) {
    const auto cases = Cases<std::string, double, TReals, TReals, TReals, std::array<double, 11>>(
        "fits", "lines of few points");
    for (const auto& [what, offset, x, y, w, expected] : cases) {
        const auto fields = FieldsOf(std::isnan(offset) ? Fit(x, y, w) : FitThrough(offset, x, y, w));
        for (std::size_t i = 0; i < fields.size(); ++i)
            EXPECT_NEAR(fields[i], expected[i], 9e-16 * std::abs(expected[i])) << what << ", field " << i;
    }
}

TEST(LinReg, GivesEqualYALevelLineWhereItIsAskedFor) {
    const TKxLinRegRules level{wmCounts, true};
    for (const TReals& w : {TReals{}, TReals{1, 2, 4}}) {
        const TResults r = Fit({1, 2, 4}, {.1, .1, .1}, w, -CInf, CInf, level);
        EXPECT_EQ(std::tuple(r.Slope, r.Offset, r.ChiSquare, r.DeltaSlope), std::tuple(0, .1, 0, 0));
        EXPECT_FALSE(r.HasDetermination);
    }
    EXPECT_EQ(Fit({1, 1}, {5, 5}, {}, -CInf, CInf, level).Slope, CMaxReal) << "not at one x";
    EXPECT_TRUE(Fit({1, 2}, {5, 6}, {}, -CInf, CInf, level).HasDetermination);
}

TEST(LinReg, RaisesForTooFewPointsOrNoWeights) {
    const auto cases = Cases<TReals, TReals, TReals, double, double, int>("fits", "enough points");
    for (const auto& [x, y, w, start, stop, points] : cases) {
        const auto free = [&, &x = x, &y = y, &w = w, start = start, stop = stop] {
            Fit(x, y, w, start, stop);
        };
        const auto through = [&, x = x, y = y, w = w, start = start, stop = stop] {
            FitThrough(1, x, y, w, start, stop);
        };
        EXPECT_EQ(MessageOf<EMathError>(free), points < 2 ? "Not enough data!" : "") << x.size();
        EXPECT_EQ(MessageOf<EMathError>(through), points < 1 ? "Not enough data!" : "") << x.size();
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

TEST(LinReg, AgreesWithAPlainReferenceOnRandomDataWithGapsAndRanges) {
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
                    const double level = 20 * scale + expected[3];
                    const double terms[] = {scale, 0, level, 0, 0, level, 0, 0, 1, 1, 0};
                    const double part = i == 1 || i == 3 || i == 10 ? 1e-10 : 1e-12; // errors
                    ASSERT_NEAR(fields[i], expected[i], part * (std::abs(expected[i]) + terms[i]))
                        << "field " << i << " in round " << round << ", count " << count;
                }
            }
    }
}

TEST(LinReg, GivesTheSameBitsInVectorsOfAnyWidth) {
    std::mt19937 random(4);
    std::normal_distribution<double> noise;
    const bool wide = UsesWideVectors();
    for (const std::size_t count : {3, 31, 33, 1023, 1025, 5000}) {
        TReals x, y, w;
        for (std::size_t i = 0; i < count; ++i) {
            x.push_back(1e3 + 0.1 * double(i));
            y.push_back(2 * x.back() + noise(random));
            w.push_back(i % 7 == 3 ? 0 : std::exp(noise(random)));
        }
        for (const TReals& weights : {TReals{}, w}) {
            UsesWideVectors() = false;
            const auto narrow = FieldsOf(Fit(x, y, weights)),
                       through = FieldsOf(FitThrough(1, x, y, weights));
            UsesWideVectors() = wide;
            EXPECT_EQ(FieldsOf(Fit(x, y, weights)), narrow) << count;
            EXPECT_EQ(FieldsOf(FitThrough(1, x, y, weights)), through) << count;
            const auto expected = FittedPolynomial(x, y, weights, 1);
            const TResults found = Fit(x, y, weights);
            EXPECT_NEAR(found.Offset, expected[0], 1e-15 * std::abs(y[0])) << count;
            EXPECT_DOUBLE_EQ(found.Slope, expected[1]) << count;
        }
    }
}

TEST(LinReg, GivesFiniteResultsWhateverTheData) {
    std::mt19937 random(7);
    const TReals pool{0, 1, 2, -1, 3.5, 1e-300, 5e-324, 1e-160, 1e155, 1e300, -1.7e308, 1.7e308, CNaN, CInf};
    for (int round = 0; round < 20000; ++round) {
        const std::size_t kinds = round % 2 ? pool.size() : 5;
        TReals x, y, w;
        for (std::size_t i = 0, count = 1 + random() % 6; i < count; ++i)
            for (TReals* values : {&x, &y, &w}) values->push_back(pool[random() % kinds]);
        for (const TReals& weights : {TReals{}, w}) {
            TResults free, through;
            MessageOf<EMathError>([&] { free = Fit(x, y, weights); });
            MessageOf<EMathError>([&] { through = FitThrough(1e155, x, y, weights); });
            for (double field : FieldsOf(free)) ASSERT_TRUE(std::isfinite(field)) << round;
            for (double field : FieldsOf(through)) ASSERT_TRUE(std::isfinite(field)) << round;
            ASSERT_LE(std::abs(free.R), 1);
        }
    }
}

TEST(LinReg, FitsVectorsLikeTheirValues) {
    TKxRealVector x(nullptr), y(nullptr), w(nullptr);
    x.AddValues(TReals{0, 1, 2, 5});
    y.AddValues(TReals{0, 0, 3});
    w.AddValues(TReals{2, 1, 2, 9});
    TResults r[4];
    LinReg(0, 9, x, y, r[0]);
    LinRegWithWeight(0, 9, x, y, w, r[1]);
    OfsReg(0, 9, x, y, r[2]);
    OfsRegWithWeight(0, 9, x, y, w, r[3]);
    const double slopes[] = {1.5, 1.5, 6. / 5, 12. / 9}, offsets[] = {-0.5, -0.3, 0, 0};
    for (int i = 0; i < 4; ++i) EXPECT_DOUBLE_EQ(r[i].Slope, slopes[i]);
    for (int i = 0; i < 4; ++i) EXPECT_DOUBLE_EQ(r[i].Offset, offsets[i]);
}

} // namespace kx::test::linregr
