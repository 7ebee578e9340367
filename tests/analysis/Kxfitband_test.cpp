#include <kxgraph/analysis/Kxfitband.h>

#include "support/curveform.h"
#include "support/reference.h"

#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/analysis/Kxpolinomial.h>
#include <kxgraph/numeric/Kxstudent.h>

namespace kx::test::fitband {

/// y = 3 - 0.2 x + 0.05 x^2 with scatter; weights that are counts, or not.
struct TPoints {
    std::vector<double> X, Y, W;
    TPoints(double Origin, bool Weighted) {
        const double scatter[] = {.3, -.2, -.4, .1, .25, -.05, .2, -.3, .15};
        for (int i = 0; i < 9; ++i) {
            X.push_back(Origin + i * i / 4.0);
            Y.push_back(3 - .2 * X[std::size_t(i)] + .05 * i * i + scatter[i]);
            W.push_back(Weighted ? 1 + i % 3 : 1);
        }
    }
};

/// The textbook's: s^2 v' (J' W J)^-1 v for y = c v(x), in doubled arithmetic about Centre. Freedom is what
/// the sum of squares is divided by.
struct TReference {
    using TNumbers = std::vector<TKxDoubled>;
    const TPoints& Points;
    std::size_t Size;
    double Centre, Freedom;
    bool ThroughZero = false;

    TNumbers Terms(double X) const {
        TNumbers terms(Size, TKxDoubled(1));
        if (ThroughZero) terms[0] = TKxDoubled(X);
        for (std::size_t k = 1; k < Size; ++k) terms[k] = terms[k - 1] * TwoSum(X, -Centre);
        return terms;
    }
    TKxDoubled Sum(const TNumbers& A, const TNumbers& B) const {
        TKxDoubled sum;
        for (std::size_t i = 0; i < Size; ++i) sum += A[i] * B[i];
        return sum;
    }
    /// The solution of the normal equations for Right, or for the points.
    TNumbers Solve(const TNumbers& Right = {}) const {
        std::vector<TNumbers> m(Size, TNumbers(Size + 1));
        for (std::size_t i = 0; i < Right.size(); ++i) m[i][Size] = Right[i];
        for (std::size_t p = 0; p < Points.X.size(); ++p) {
            const auto v = Terms(Points.X[p]);
            for (std::size_t i = 0; i < Size; ++i) {
                const TKxDoubled weighted = v[i] * TKxDoubled(Points.W[p]);
                for (std::size_t k = 0; k < Size; ++k) m[i][k] += weighted * v[k];
                if (Right.empty()) m[i][Size] += weighted * TKxDoubled(Points.Y[p]);
            }
        }
        return Solved(m);
    }
    /// Value, squared error there, and s^2.
    std::array<double, 3> At(double X) const {
        const TNumbers c = Solve(), v = Terms(X);
        double squares = 0;
        for (std::size_t p = 0; p < Points.X.size(); ++p)
            squares += Points.W[p] * std::pow((TKxDoubled(Points.Y[p]) - Sum(c, Terms(Points.X[p]))).Hi, 2);
        const double s2 = squares / Freedom;
        return {Sum(c, v).Hi, s2 * Sum(v, Solve(v)).Hi, s2};
    }
};

template <class T>
struct TBanded : TCurveForm<T> {
    TKxLiveVector Weight{this->Form};
    TKxFitBand* Band = this->template Make<TKxFitBand>("Band1");
    explicit TBanded(const TPoints& Points, bool Weighted) {
        for (std::size_t i = 0; i < Points.X.size(); ++i) this->Fill({{Points.X[i], Points.Y[i]}});
        Weight.AddValues(Points.W);
        if (Weighted) this->Series->SetWeight(&Weight);
        this->Curve->SetName("Fit1");
        Band->OnError = [](TComponent*, const Exception&) {};
        Band->SetFit(this->Curve);
    }
    void Expect(const TReference& Reference, double PerPoint, double Within) {
        this->Join();
        Band->SetParentSeries(this->Series);
        this->Draw();
        EXPECT_EQ(Band->GetError(), "");
        for (const double x : {Reference.Points.X[0] - 20, Reference.Points.X[3] + .1, Reference.Points.X[8]})
            for (const auto kind : {bkConfidence, bkPrediction})
                for (const double level : {.5, .99}) {
                    const auto [value, variance, s2] = Reference.At(x);
                    const double half = StudentLimit(level, Reference.Freedom) *
                                        std::sqrt(variance + (kind == bkPrediction ? s2 * PerPoint : 0));
                    Band->SetKind(kind);
                    const auto [low, high] = Band->GetBand(x, level);
                    EXPECT_NEAR((high - low) / 2 / half, 1, Within) << x << " " << level << kind;
                    EXPECT_NEAR((high + low) / 2, value, Within * half + 1e-13 * std::abs(value));
                }
    }
};

TEST(FitBand, HasTheWidthOfTheTextbookAlsoFarFromZero) {
    for (const bool weighted : {false, true})
        for (const double origin : {0.0, 1e6})
            for (const auto meaning : {wmCounts, wmPrecisions}) {
                SCOPED_TRACE(::testing::Message() << weighted << " " << origin << " " << meaning);
                const TPoints points(origin, weighted);
                const bool counts = weighted && meaning == wmCounts;
                const double sum = weighted ? 18 : 9, perPoint = counts ? 1 : 9 / sum;
                {
                    TBanded<TKxLinearRegressionLine> f(points, weighted);
                    f.Curve->SetWeightMeaning(meaning);
                    f.Expect({points, 2, origin, (counts ? sum : 9) - 2}, perPoint, 1e-9);
                }
                {
                    TBanded<TKxPolynomLine> f(points, weighted);
                    f.Curve->SetWeightMeaning(meaning);
                    f.Curve->SetOrder(3);
                    f.Expect({points, 4, origin + 8, 9 - 4}, perPoint, 1e-9);
                }
                if (origin > 0) continue;
                {
                    TBanded<TKxLinearRegressionLine> f(points, weighted);
                    f.Curve->SetWeightMeaning(meaning);
                    f.Curve->SetDoFixedOffset(true);
                    f.Expect({points, 1, 0, (counts ? sum : 9) - 1, true}, perPoint, 1e-9);
                }
                TBanded<TKxFittedLine> f(points, weighted); // the same cubic
                f.Curve->SetMethod(fmDamped);
                f.Curve->SetOrder(4);
                f.Curve->SetFittingFunction([](double X, const TKxRealArray& C) {
                    return C[0] + X * (C[1] + X * (C[2] + X * C[3]));
                });
                f.Expect({points, 4, 8, 9 - 4}, 9 / sum, 1e-7);
            }
}

TEST(FitBand, WidensTheAxisByHalfOfWhatThePointsSpanAtMost) {
    const TPoints points(0, false);
    for (const auto& [scaling, top] : {std::pair{AxNormal, 15.0}, std::pair{AxLog, 100.0}}) {
        TBanded<TKxLinearRegressionLine> f(points, false);
        for (int i = 0; i < 9; ++i)
            f.Series->GetYData()->SetValue(i, i % 2 ? 10 : .1 * (i + 1)); // no line: a wide band
        f.Y->SetScaling(scaling);
        f.Join();
        f.Band->SetLevel(.999999);
        f.Band->SetParentSeries(f.Series);
        f.Draw();
        EXPECT_NEAR(f.Band->GetYRange().GetStop(), top, .06) << scaling;
    }
}

TEST(FitBand, IsDrawnBeneathAllSeriesAndSaysWhatIsMissing) {
    const TPoints points(0, false);
    TBanded<TKxLinearRegressionLine> f(points, false);
    f.Join();
    f.Band->SetKind(bkPrediction);
    f.Band->SetParentSeries(f.Series);
    f.Band->GetAreaStyle().SetColor(RGB(1, 2, 3));
    f.Draw();
    EXPECT_EQ(f.Band->GetCaption(), "95 % prediction band");
    EXPECT_EQ(f.Band->GetLowerEdge().size(), std::size_t(f.Band->GetPointsCount()));
    EXPECT_EQ(f.Band->GetLowerEdge()[7], f.Band->GetBand(f.Band->GetXData()->GetValue(7)).Low);
    const TRange& range = f.Band->GetYRange();
    EXPECT_NEAR(range.GetStart(), std::min(f.Band->GetBand(0).Low, f.Band->GetBand(16).Low), .05);
    EXPECT_LT(range.GetStart(), f.Y->GetStop());
    EXPECT_GE(f.Y->GetStop(), range.GetStop());
    TRecorder recorder({400, 300});
    f.Graph->PaintTo(recorder);
    EXPECT_TRUE(Holds(recorder.Recording.ToText(), "#010203"));

    f.Band->SetLevel(1);
    f.Draw();
    EXPECT_TRUE(Holds(f.Band->GetError(), "Band: the level must lie between 0 and 1"));
    f.Band->SetLevel(.9);

    f.Curve->SetCalculationStop(.5); // two points leave nothing to tell
    f.Draw();
    EXPECT_TRUE(Holds(f.Band->GetError(), "Band: the fit tells no standard errors"));
    EXPECT_TRUE(std::isnan(f.Band->GetBand(1).Low));
    delete f.Curve;
    f.Draw();
    EXPECT_EQ(f.Band->GetFit(), nullptr);
    EXPECT_TRUE(Holds(f.Band->GetError(), "Band: there is no fit"));
}

} // namespace kx::test::fitband
