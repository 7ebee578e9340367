#include <kxgraph/analysis/Kxsimplex.h>

#include "support/errors.h"

#include "analysis/nistnonlinear.h"

#include <kxgraph/platform/base/exceptions.h>

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
    const struct {
        TKxSimplex::TFunction Function;
        TNumbers Start, Minimum;
    } cases[] = {
        {[](TValues c) { return 5 + 100 * Square(c[1] - c[0] * c[0]) + Square(1 - c[0]); },
         {-1.2, 1},
         {1, 1}},
        {[](TValues c) { // NaN where c0 < 1, minus infinity where c1 < 1
             return c[0] - std::log(c[0] - 1) * 1e-2 + (c[1] < 1 ? -INFINITY : c[1] - std::log(c[1] - 1));
         },
         {9, 9},
         {1.01, 2}},
        {[](TValues c) { return std::isinf(c[0]) ? -1 : c[0]; }, {1e308}, {1e308}},
    };
    for (const auto& [function, start, minimum] : cases) {
        TKxSimplex simplex(function);
        simplex.Run(start, 1000);
        for (int i = 0; i < 3; ++i) simplex.Run(simplex.Best(), 1000);
        for (std::size_t k = 0; k < minimum.size(); ++k)
            EXPECT_NEAR(simplex.Best()[k] / minimum[k], 1, 2e-6) << start[0] << ", number " << k;
        EXPECT_EQ(simplex.BestValue(), function(simplex.Best())) << start[0];
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
    const TNumbers reflected{-1, 41}, expanded{-22, 51.5}, contracted{9.5, 35.75}, shrunk{14.75, 27.875};
    const struct {
        const char* Name;
        TNumbers Values; // of the vertices (41, 20), (20, 41), (20, 20), then of those in Seen
        std::vector<TNumbers> Seen;
        TNumbers Best;
    } cases[] = {
        {"reflection equals the second-worst", {3, 2, 1, 2}, {reflected}, {20, 20}},
        {"expansion is better", {3, 2, 1, 0.5, 0.4}, {reflected, expanded}, expanded},
        {"expansion is no better", {3, 2, 1, 0.5, 0.5}, {reflected, expanded}, reflected},
        {"contraction fails", {3, 2, 1, 2.5, 2.1}, {reflected, contracted}, {20, 20}},
        {"contraction succeeds",
         {3, 2, 1, NAN, 2, 0.5, 0.7},
         {reflected, contracted, shrunk, {20, 30.5}},
         shrunk},
        {"none is a number", {NAN, INFINITY, -INFINITY, NAN}, {{41, 41}}, {41, 20}},
        {"two best", {2, 1, 1, 3, 1, 5, 6}, {reflected, contracted, shrunk, {20, 30.5}}, {20, 20}},
        {"two worst", {2, 2, 1, 2}, {{41, -1}}, {20, 20}},
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
    std::vector<double> history;
    std::size_t most = 99;
    const auto progress = [&](const TKxSimplex& S) {
        history.push_back(S.BestValue());
        return history.size() < most;
    };
    TKxSimplex bowl([](TValues c) { return Square(c[0] - 3) + Square(c[1] - 5) + 1; });
    for (const int iterations : {1, 50}) {
        history.clear();
        bowl.Run(TNumbers{1, 1}, iterations, progress);
        EXPECT_EQ(history.size(), std::size_t(iterations) + 1);
        EXPECT_EQ(bowl.Remaining(), -1);
    }
    EXPECT_TRUE(std::is_sorted(history.rbegin(), history.rend())) << "the best never gets worse";
    most = 10;
    history.clear();
    bowl.Run(TNumbers{1, 1}, 50, progress);
    EXPECT_EQ(history.size(), most);
    history.clear();
    TKxSimplex exact([](TValues c) { return Square(c[0] - 3) + Square(c[1] - 5); });
    exact.Run(TNumbers{3, 5}, 50, progress);
    EXPECT_EQ(history, TNumbers{0});
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

TEST(Simplex, ReachesCertifiedMinima) {
    for (const auto& set : test::NistNonlinear()) {
        TKxSimplex simplex([&set](TValues c) {
            double sum = 0;
            for (const auto& [x, y] : set.Points) sum += Square(y - set.Model(x, c.data()));
            return sum;
        });
        const auto expectCertified = [&] {
            EXPECT_NEAR(simplex.BestValue() / set.SumOfSquares, 1, 1e-8) << set.Name;
            for (std::size_t k = 0; k < set.Coefficients.size(); ++k)
                EXPECT_NEAR(simplex.Best()[k] / set.Coefficients[k], 1, 1e-5) << set.Name << ", number " << k;
        };
        simplex.Run(set.SecondStart, 9999);
        expectCertified();
        if (set.Name != std::string("BoxBOD")) continue;
        simplex.Run(set.FirstStart, 5000);
        const TNumbers frozen = BestOf(simplex);
        EXPECT_GT(simplex.BestValue(), 2 * set.SumOfSquares) << "freezes above the minimum";
        simplex.Run(set.FirstStart, 9000);
        EXPECT_EQ(BestOf(simplex), frozen) << "more iterations do not help";
        simplex.Run(simplex.Best(), 1000); // repeating does
        expectCertified();
    }
}

} // namespace
} // namespace kx
