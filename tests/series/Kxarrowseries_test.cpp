#include <kxgraph/series/Kxarrowseries.h>

#include "following.h"

namespace kx::test::arrowseries {

using T4 = std::array<double, 4>;

struct TArrow {
    double X, Y, DX, DY;
};

struct TArrowForm : TGraphForm {
    TKxArrowSeries* Arrows() {
        auto* arrows = AddSeries<TKxArrowSeries>();
        arrows->SetDX(DX);
        arrows->SetDY(DY);
        return arrows;
    }
    void Add(std::initializer_list<TArrow> Arrows) {
        for (const auto& a : Arrows) {
            Fill({{a.X, a.Y}});
            DX->Add(a.DX);
            DY->Add(a.DY);
        }
    }
    std::vector<TRecording::TPolyline> Shafts() { return LinesOf(Draw(), clRed); }
};

TEST(ArrowSeries, HasTipsWhereTheAxesPutThemInEveryScalingAndDirection) {
    for (const auto scaling : {AxNormal, AxLog})
        for (const bool twisted : {false, true}) {
            TArrowForm f;
            f.Fix(1, 100, 1, 100);
            f.Arrows();
            for (TKxAxis* axis : {f.X, f.Y}) {
                axis->SetScaling(scaling);
                axis->SetTwisted(twisted);
            }
            f.Add({{20, 30, 60, 10}, {70, 80, -20, -75}, {50, 60, 0, -59}, {10, 10, -9, 0}});
            const auto shafts = f.Shafts();
            const auto heads = CallsOf<TRecording::TPolygon>(f.Draw());
            ASSERT_EQ(shafts.size(), 4u);
            ASSERT_EQ(heads.size(), 4u);
            for (int i = 0; i < 4; ++i) {
                const double x = f.XV->GetValue(i), y = f.YV->GetValue(i);
                const TPoint tip = f.OnForm(x + f.DX->GetValue(i), y + f.DY->GetValue(i));
                EXPECT_EQ(shafts[std::size_t(i)].Points, (std::vector{f.OnForm(x, y), tip}));
                EXPECT_EQ(heads[std::size_t(i)].Points[0], tip);
            }
        }
}

TEST(ArrowSeries, EndsAtTheStartOfALogarithmicAxisWhereATipIsNotPositive) {
    TArrowForm f;
    f.Fix(0, 100, 1, 100);
    f.Y->SetScaling(AxLog);
    f.Arrows();
    f.Add({{50, 10, 20, -30}, {50, -10, 20, 60}, {50, 0, 0, 5}});
    for (const bool zoomed : {false, true}) {
        if (zoomed) f.X->ZoomIn(0, 100), f.Y->ZoomIn(1, 100);
        const auto shafts = f.Shafts();
        ASSERT_EQ(shafts.size(), 1u) << "no arrow from a point without a place";
        EXPECT_EQ(shafts[0].Points, (std::vector{f.OnForm(50, 10), f.OnForm(70, 1)}));
    }
}

TEST(ArrowSeries, TakesWhatIsMissingForZeroAndDrawsNothingThatIsNotFinite) {
    TArrowForm f;
    f.Fix(0, 100, 0, 100);
    auto* arrows = f.Arrows();
    f.Add({{20, 30, 0, 0}, {40, 40, CNaN, 5}, {40, 40, 5, CInf}, {CNaN, 40, 5, 5}, {40, CInf, 5, 5}});
    f.Fill({{60, 60}});
    f.DY->Add(10);
    auto shafts = f.Shafts();
    ASSERT_EQ(shafts.size(), 2u);
    const TPoint still = f.OnForm(20, 30);
    EXPECT_EQ(shafts[0].Points, (std::vector{still, still + TPoint{0, 1}})) << "one pixel";
    EXPECT_EQ(shafts[1].Points[1], f.OnForm(60, 70)) << "dX is shorter";
    EXPECT_EQ(CallsOf<TRecording::TPolygon>(f.Draw()).size(), 1u);
    EXPECT_EQ(arrows->GetDX(5) + arrows->GetDX(-1) + arrows->GetDX(99), 0);
    arrows->SetTipLength(0);
    EXPECT_EQ(f.Shafts().size(), 2u);
    EXPECT_EQ(CallsOf<TRecording::TPolygon>(f.Draw()).size(), 0u);
    arrows->GetLineStyle().SetVisible(false);
    EXPECT_EQ(f.Shafts().size(), 0u);
}

TEST(ArrowSeries, ReachesAsFarAsTheTipsOfLiveVectorsWhileTheLineShows) {
    TArrowForm f;
    auto* arrows = f.Arrows();
    f.DX->Add(-5); // before its point
    f.Fill({{10, 20}});
    f.DY->Add(3);
    f.Add({{11, 21, 4, -6}, {12, 22, CNaN, 0}});
    EXPECT_EQ(ExtentsOf(*arrows), (T4{5, 15, 15, 23})) << "without a frame";
    f.Draw();
    EXPECT_EQ(ExtentsOf(*arrows), (T4{5, 15, 15, 23}));
    EXPECT_EQ(f.X->GetStart(), 5);
    f.DX->SetValue(0, 30);
    f.DY->SetValue(1, 1);
    EXPECT_EQ(ExtentsOf(*arrows), (T4{10, 40, 20, 23}));
    f.Draw();
    EXPECT_EQ(arrows->GetEndXs().GetValue(0), f.X->RealToIntPosition(40));
    arrows->GetLineStyle().SetVisible(false);
    f.Draw();
    EXPECT_EQ(ExtentsOf(*arrows), (T4{10, 12, 20, 22}));
    arrows->GetLineStyle().SetVisible(true);
    f.DX->Clear();
    f.Draw();
    EXPECT_EQ(ExtentsOf(*arrows), (T4{10, 12, 20, 23}));
    arrows->SetDY(nullptr);
    f.Draw();
    EXPECT_EQ(ExtentsOf(*arrows), (T4{10, 12, 20, 22}));
    EXPECT_EQ(f.DY->Listeners().GetCount(), 0);
}

TEST(ArrowSeries, MayHaveOneVectorTwice) {
    TArrowForm f;
    auto* arrows = f.AddSeries<TKxArrowSeries>();
    arrows->SetDX(f.XV); // arrows as long as they are far away
    arrows->SetDY(f.YV);
    f.Fill({{1, 2}, {3, 4}});
    EXPECT_EQ(arrows->GetXRange().GetStop(), 6);
    arrows->SetDX(nullptr);
    f.Fill({{5, 6}});
    EXPECT_EQ(arrows->GetPointsCount(), 3) << "X is still listened to";
    f.Draw();
    EXPECT_EQ(arrows->GetYRange().GetStop(), 12);
    delete arrows;
    EXPECT_EQ(f.XV->Listeners().GetCount(), 0);
}

TEST(ArrowSeries, ShowsOneArrowInsideThePlaceOfASample) {
    TArrowForm f;
    auto* arrows = f.Arrows();
    arrows->SetTipWidth(50);
    const TRect place{5, 7, 35, 19};
    const auto heads = CallsOf<TRecording::TPolygon>(SampleOf(*arrows, place));
    ASSERT_EQ(heads.size(), 1u);
    EXPECT_EQ(heads[0].Points[0], (TPoint{34, 13}));
    for (const TPoint p : heads[0].Points) EXPECT_TRUE(place.Contains(p)) << p.X << ", " << p.Y;
}

} // namespace kx::test::arrowseries
