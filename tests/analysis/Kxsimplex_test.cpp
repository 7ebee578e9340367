#include <kxgraph/analysis/Kxsimplex.h>

#include "support/nist.h"
#include "support/testing.h"

namespace kx::test::simplex {

using TValues = std::span<const double>;

TReals BestOf(const TKxSimplex& Simplex) { return {Simplex.Best().begin(), Simplex.Best().end()}; }

double Square(double Value) { return Value * Value; }

TEST(Simplex, FindsKnownMinima) {
    const struct {
        TKxSimplex::TFunction Function;
        TReals Start, Minimum;
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

/// Gives the values of a list, whatever the vertex, and keeps the vertices, two numbers each.
struct TScript {
    TReals Values, Seen;
    double operator()(TValues Vertex) {
        Seen.insert(Seen.end(), Vertex.begin(), Vertex.end());
        return Values.at(Seen.size() / 2 - 1);
    }
};

TEST(Simplex, StepsAsTheValuesSay) {
    const auto cases = Cases<std::string, TReals, TReals, TReals>("simplex", "one step");
    for (const auto& [name, values, seen, best] : cases) {
        TScript script{values, {}};
        TKxSimplex simplex(std::ref(script));
        simplex.Start(TReals{20, 20}, 5);
        EXPECT_TRUE(simplex.Iterate()) << name;
        EXPECT_EQ(2 * script.Values.size(), script.Seen.size()) << name;
        EXPECT_EQ(TReals(script.Seen.begin() + 6, script.Seen.end()), seen) << name;
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
        bowl.Run(TReals{1, 1}, iterations, progress);
        EXPECT_EQ(history.size(), std::size_t(iterations) + 1);
        EXPECT_EQ(bowl.Remaining(), -1);
    }
    EXPECT_TRUE(std::is_sorted(history.rbegin(), history.rend())) << "the best never gets worse";
    most = 10;
    history.clear();
    bowl.Run(TReals{1, 1}, 50, progress);
    EXPECT_EQ(history.size(), most);
    history.clear();
    TKxSimplex exact([](TValues c) { return Square(c[0] - 3) + Square(c[1] - 5); });
    exact.Run(TReals{3, 5}, 50, progress);
    EXPECT_EQ(history, TReals{0});
    EXPECT_EQ(MessageOf<EMathError>([&] { bowl.Run({}, 0); }), "Simplex Fit: no order set!");
    EXPECT_EQ(MessageOf<EMathError>([&] { bowl.Run(TReals{1}, 0); }), "Simplex Fit: no iterations set!");
}

TEST(Simplex, LeavesACoordinateOfZero) {
    TKxSimplex simplex([](TValues c) { return Square(c[0] - 3) + Square(c[1] - 5) + Square(c[2] + 4); });
    simplex.Run(TReals{1, 0, 1}, 500);
    EXPECT_EQ(simplex.Best()[1], 0);
    EXPECT_NEAR(simplex.BestValue(), 25, 1e-12);
}

TEST(Simplex, ReachesCertifiedMinima) {
    for (const auto& set : NistNonlinear()) {
        TKxSimplex simplex([&set](TValues c) {
            double sum = 0;
            for (std::size_t i = 0; i < set.X.size(); ++i)
                sum += Square(set.Y[i] - set.Model(set.X[i], c.data()));
            return sum;
        });
        const auto expectCertified = [&] {
            EXPECT_NEAR(simplex.BestValue() / set.SumOfSquares, 1, 1e-8) << set.Name;
            for (std::size_t k = 0; k < set.Coefficients.size(); ++k)
                EXPECT_NEAR(simplex.Best()[k] / set.Coefficients[k], 1, 1e-5) << set.Name << ", number " << k;
        };
        simplex.Run(set.Starts[1], 9999);
        expectCertified();
        if (set.Name != "BoxBOD") continue;
        simplex.Run(set.Starts[0], 5000);
        const TReals frozen = BestOf(simplex);
        EXPECT_GT(simplex.BestValue(), 2 * set.SumOfSquares) << "freezes above the minimum";
        simplex.Run(set.Starts[0], 9000);
        EXPECT_EQ(BestOf(simplex), frozen) << "more iterations do not help";
        simplex.Run(simplex.Best(), 1000); // repeating does
        expectCertified();
    }
}

} // namespace kx::test::simplex
