#include <kxgraph/annotation/Kxresultlabel.h>

#include "support/graphfixture.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>

namespace kx::test::resultlabel {

struct TFixture : TGraphForm {
    TFixture() {
        Fill({{0, 1}, {1, 3.5}, {2, 6}});
        Fit->SetParentSeries(Series);
    }
    TKxDataWithErrorSeries* Series = AddSeries();
    TKxLinearRegressionLine* Fit = Make<TKxLinearRegressionLine>("Fit1");
    TKxResultLabel* Label = Make<TKxResultLabel>("Label1");
};

TEST(ResultLabel, ShowsNothingOfWhatHasBeenDestroyed) {
    using TDeed = void (*)(TFixture&);
    const TDeed deeds[] = {[](TFixture& F) { delete F.XV; }, [](TFixture& F) { delete F.YV; },
                           [](TFixture& F) { F.Series->SetXData(nullptr); },
                           [](TFixture& F) { delete F.Series; }, [](TFixture& F) { delete F.Fit; }};
    for (const TDeed deed : deeds) {
        TFixture f;
        TFaults faults;
        f.Set("Label1.Identifier=Slope; Label1.Series=Fit1; Fit1.LineStyle.Color=clFuchsia");
        EXPECT_FALSE(LinesOf(f.Draw(), clFuchsia).empty());
        deed(f);
        EXPECT_TRUE(LinesOf(f.Draw(), clFuchsia).empty());
        EXPECT_EQ(f.Label->GetCaption(), "...");
        EXPECT_EQ(faults.Text, "");
    }
}

TEST(ResultLabel, ShowsAResultAndStaysTrue) {
    TFixture f;
    EXPECT_EQ(f.Label->GetCaption(), "...");
    f.Label->SetIdentifier("Slope");
    EXPECT_EQ(f.Label->GetCaption(), "...") << "no series";
    f.Label->SetSeries(f.Fit);
    EXPECT_EQ(f.Label->GetCaption(), "2.5");
    f.Label->SetPrefix("Slope = ");
    f.Label->SetSuffix(" mV/s");
    EXPECT_EQ(f.Label->GetCaption(), "Slope = 2.5 mV/s");

    // A point, a frame: fit, result, label and its width follow.
    const int width = f.Label->GetWidth();
    f.Fill({{3, 9.25}});
    f.Draw();
    EXPECT_EQ(f.Label->GetCaption(), "Slope = 2.725 mV/s");
    EXPECT_GT(f.Label->GetWidth(), width);
    for (const auto& [digits, stored, text] :
         {std::tuple{3, 3, "2.7"}, {25, 18, "2.7250000000000001"}, {-1, 0, "2.725"}}) {
        f.Label->SetDigits(digits);
        EXPECT_EQ(f.Label->GetDigits(), stored);
        EXPECT_EQ(f.Label->GetCaption(), std::string("Slope = ") + text + " mV/s") << digits;
    }

    f.Set("Prefix=; Suffix=; Digits=3", "Label1.");
    for (const auto& [digits, stored, error, text] : {std::tuple{4, 4, "", "2.725"},
                                                      {2, 2, "", "2.7"},
                                                      {3, 3, "DeltaSlope", "2.73 ± 0.13"},
                                                      {99, 18, "", "2.72500000000000009"},
                                                      {2, 2, "None", "2.7 ± ..."},
                                                      {0, 0, "", "2.7"}}) {
        f.Label->SetSignificantDigits(digits);
        f.Label->SetErrorIdentifier(error);
        EXPECT_EQ(f.Label->GetSignificantDigits(), stored);
        EXPECT_EQ(f.Label->GetCaption(), text) << digits << error;
    }
    f.Label->SetErrorIdentifier("DeltaSlope");
    f.Label->SetIdentifier("Formula");
    EXPECT_EQ(f.Label->GetCaption(), "Y=a+b(X)") << "a text is shown unchanged";
    f.Label->SetIdentifier("NoSuchKey");
    EXPECT_EQ(f.Label->GetCaption(), "...");

    f.Label->SetIdentifier("Slope");
    f.Fit->OnError = [](TComponent*, const Exception&) {};
    f.XV->Clear();
    f.Draw();
    EXPECT_EQ(f.Label->GetCaption(), "...") << "no number outlives its data";
}

TEST(ResultLabel, AnAppendedPointReachesThePictureByTheHostsNextFrame) {
    TFixture f;
    f.Set("Label1.Identifier=Slope; Label1.Series=Fit1; Fit1.LineStyle.Color=clGreen");
    f.Form->Show();
    Host().ProcessMessages();
    const auto& view = ViewOf(*f.Form);
    const auto lineBefore = LinesOf(view.LastFrame, clGreen);
    const int frames = view.Frames;
    f.Fill({{3, 2}});
    for (int i = 0; i < 2; ++i) {
        Host().ProcessMessages();
        EXPECT_EQ(view.Frames, frames + 1) << "and that is all";
    }
    EXPECT_EQ(f.Series->GetResults().ReadReal("LinearRegression", "Slope", 0), 0.55);
    EXPECT_TRUE(Holds(LettersOf(view.LastFrame), "0.55"));
    const auto line = LinesOf(view.LastFrame, clGreen);
    ASSERT_EQ(line.size(), 1u);
    EXPECT_NE(line[0].Points, lineBefore[0].Points);
    const TPoint world = f.World();
    for (const TPoint end : line[0].Points)
        EXPECT_NEAR(end.Y - world.Y,
                    f.Y->RealToIntPosition(f.Fit->GetY(f.X->IntToRealPosition(end.X - world.X))), 1);
}

TEST(ResultLabel, FollowsOneSeriesOnly) {
    TFixture f;
    auto* other = f.Make<TKxLinearRegressionLine>("Fit2");
    other->SetParentSeries(f.Series);
    other->SetFixedOffset(0);
    f.Draw();
    for (const char* fit : {"Fit1", "Fit2"})
        f.Set("Identifier=Offset; Series=" + std::string(fit), "Label1.");
    EXPECT_EQ(f.Label->GetCaption(), "0");
    f.YV->SetValue(0, -7);
    f.Fit->Calculate();
    EXPECT_EQ(f.Label->GetCaption(), "0");
}

} // namespace kx::test::resultlabel
