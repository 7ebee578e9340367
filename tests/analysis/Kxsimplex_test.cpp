#include "analysis/Kxsimplex.h"

#include "analysis/nistnonlinear.h"
#include "platform/exceptions.h"
#include "support/errors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace kx {
namespace {

using TNumbers = std::vector<double>;
using TValues = std::span<const double>;

TNumbers BestOf(const TKxSimplex& Simplex) { return {Simplex.Best().begin(), Simplex.Best().end()}; }

double Square(double Value) { return Value * Value; }

TEST(Simplex, FindsKnownMinima) {
    struct TCase {
        const char* Name;
        TKxSimplex::TFunction Function;
        TNumbers Start, Minimum;
    };
    const TCase cases[] = {
        {"bowl",
         [](TValues c) {
             return 1 + Square(c[0] + 3) + 10 * Square(c[1] - 2) + Square(c[2] + c[0]) + Square(c[3] - 1e3);
         },
         {1, 1, 1, 1},
         {-3, 2, 3, 1e3}},
        {"valley",
         [](TValues c) { return 5 + 100 * Square(c[1] - c[0] * c[0]) + Square(1 - c[0]); },
         {-1.2, 1},
         {1, 1}},
        {"NaN where c0 < 1, minus infinity where c1 < 1",
         [](TValues c) {
             return (c[0] - 1.01) - std::log(c[0] - 1) * 1e-2 +
                    (c[1] < 1 ? -INFINITY : c[1] - std::log(c[1] - 1));
         },
         {9, 9},
         {1.01, 2}},
        {"best at infinity", [](TValues c) { return std::isinf(c[0]) ? -1 : c[0]; }, {1e308}, {1e308}},
    };
    for (const auto& [name, function, start, minimum] : cases) {
        TKxSimplex simplex(function);
        simplex.Run(start, 1000);
        for (int i = 0; i < 3; ++i) simplex.Run(simplex.Best(), 1000);
        for (std::size_t k = 0; k < minimum.size(); ++k)
            EXPECT_NEAR(simplex.Best()[k] / minimum[k], 1, 2e-6) << name << ", number " << k;
        EXPECT_EQ(simplex.BestValue(), function(simplex.Best())) << name;
    }
}

/// Gives the values of a list, whatever the vertex, and keeps the vertices.
struct TScript {
    TNumbers Values;
    std::vector<TNumbers> Seen;
    double operator()(TValues Vertex) {
        Seen.emplace_back(Vertex.begin(), Vertex.end());
        return Values.at(Seen.size() - 1);
    }
};

TEST(Simplex, StepsFollowTheValues) {
    struct TCase {
        const char* Name;
        TNumbers Values; // of the vertices (41, 20), (20, 41), (20, 20), then of those in Seen
        std::vector<TNumbers> Seen;
        TNumbers Best;
    };
    const TNumbers reflected{-1, 41}, expanded{-22, 51.5}, contracted{9.5, 35.75};
    const TCase cases[] = {
        {"reflection is neither best nor worst", {3, 2, 1, 1.5}, {reflected}, {20, 20}},
        {"reflection equals the second-worst", {3, 2, 1, 2}, {reflected}, {20, 20}},
        {"expansion is better", {3, 2, 1, 0.5, 0.4}, {reflected, expanded}, expanded},
        {"expansion is no better", {3, 2, 1, 0.5, 0.5}, {reflected, expanded}, reflected},
        {"expansion is not a number", {3, 2, 1, 0.5, NAN}, {reflected, expanded}, reflected},
        {"contraction fails", {3, 2, 1, 2.5, 2.1}, {reflected, contracted}, {20, 20}},
        {"contraction succeeds",
         {3, 2, 1, NAN, 2, 0.5, 0.7},
         {reflected, contracted, {14.75, 27.875}, {20, 30.5}},
         {14.75, 27.875}},
        {"all equal", {1, 1, 1, 1}, {{41, 41}}, {41, 20}},
        {"none is a number", {NAN, INFINITY, -INFINITY, NAN}, {{41, 41}}, {41, 20}},
        {"shrinks to the later of two best",
         {2, 1, 1, 3, 1, 5, 6},
         {reflected, contracted, {14.75, 27.875}, {20, 30.5}},
         {20, 20}},
        {"the later of two worst, the earlier is second-worst", {2, 2, 1, 2}, {{41, -1}}, {20, 20}},
    };
    for (const auto& [name, values, seen, best] : cases) {
        TScript script{values, {}};
        TKxSimplex simplex(std::ref(script));
        simplex.Start(TNumbers{20, 20}, 5);
        EXPECT_TRUE(simplex.Iterate()) << name;
        EXPECT_EQ(script.Values.size(), script.Seen.size()) << name;
        EXPECT_EQ(std::vector(script.Seen.begin() + 3, script.Seen.end()), seen) << name;
        EXPECT_EQ(BestOf(simplex), best) << name;
    }
}

TEST(Simplex, EndsByBudgetByZeroAndOnRequest) {
    int count = 0;
    const auto counting = [&](const TKxSimplex&) { return ++count > 0; };
    TKxSimplex bowl([](TValues c) { return Square(c[0] - 3) + Square(c[1] - 5) + 1; });
    for (const int iterations : {1, 2, 50}) {
        count = 0;
        bowl.Run(TNumbers{1, 1}, iterations, counting);
        EXPECT_EQ(count, iterations + 1);
        EXPECT_EQ(bowl.Remaining(), -1);
    }
    TKxSimplex exact([](TValues c) { return Square(c[0] - 3) + Square(c[1] - 5); });
    count = 0;
    exact.Run(TNumbers{3, 5}, 50, counting);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(BestOf(exact), (TNumbers{3, 5}));

    std::vector<double> history;
    bowl.Run(TNumbers{1, 1}, 50, [&](const TKxSimplex& S) {
        history.push_back(S.BestValue());
        return history.size() < 10;
    });
    EXPECT_EQ(history.size(), 10u);
    EXPECT_TRUE(std::is_sorted(history.rbegin(), history.rend())) << "the best never gets worse";
    EXPECT_LT(bowl.BestValue(), 10);
    EXPECT_EQ(bowl.BestValue(), Square(bowl.Best()[0] - 3) + Square(bowl.Best()[1] - 5) + 1);

    EXPECT_EQ(test::MessageOf<EMathError>([&] { bowl.Run({}, 0); }), "Simplex Fit: no order set!");
    EXPECT_EQ(test::MessageOf<EMathError>([&] { bowl.Run(TNumbers{1}, 0); }),
              "Simplex Fit: no iterations set!");
}

TEST(Simplex, ACoordinateOfZeroStays) {
    TKxSimplex simplex([](TValues c) { return Square(c[0] - 3) + Square(c[1] - 5) + Square(c[2] + 4); });
    simplex.Run(TNumbers{1, 0, 1}, 500);
    EXPECT_EQ(simplex.Best()[1], 0);
    EXPECT_NEAR(simplex.BestValue(), 25, 1e-12);
}

double RelativeExcess(const TKxSimplex& Simplex, const test::TNistNonlinear& Set) {
    return std::abs(Simplex.BestValue() / Set.SumOfSquares - 1);
}

TKxSimplex SimplexFor(const test::TNistNonlinear& Set) {
    return TKxSimplex([&Set](TValues c) {
        double sum = 0;
        for (const auto& [x, y] : Set.Points) sum += Square(y - Set.Model(x, c.data()));
        return sum;
    });
}

void ExpectCertified(const TKxSimplex& Simplex, const test::TNistNonlinear& Set) {
    EXPECT_LT(RelativeExcess(Simplex, Set), 1e-8) << Set.Name;
    for (std::size_t k = 0; k < Set.Coefficients.size(); ++k)
        EXPECT_NEAR(Simplex.Best()[k] / Set.Coefficients[k], 1, 1e-5) << Set.Name << ", coefficient " << k;
}

TEST(Simplex, ReachesCertifiedMinima) {
    for (const auto& set : test::NistNonlinear()) {
        TKxSimplex simplex = SimplexFor(set);
        simplex.Run(set.SecondStart, 9999);
        ExpectCertified(simplex, set);
    }
}

TEST(Simplex, RepeatingOpensAFrozenSimplex) {
    for (const auto& set : test::NistNonlinear()) {
        if (set.Name != std::string("BoxBOD")) continue;
        TKxSimplex simplex = SimplexFor(set);
        simplex.Run(set.FirstStart, 5000);
        const TNumbers frozen = BestOf(simplex);
        EXPECT_GT(RelativeExcess(simplex, set), 1) << "freezes above the minimum";
        simplex.Run(set.FirstStart, 9000);
        EXPECT_EQ(BestOf(simplex), frozen) << "more iterations do not help";
        simplex.Run(simplex.Best(), 1000);
        ExpectCertified(simplex, set);
    }
}

} // namespace
} // namespace kx
