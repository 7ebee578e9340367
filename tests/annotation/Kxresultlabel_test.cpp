#include <kxgraph/annotation/Kxresultlabel.h>

#include "support/graphfixture.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>

#include <memory>

namespace kx {
namespace {

using test::TGraphForm;

struct TFixture : TGraphForm {
    TFixture() {
        Fill({{0, 1}, {1, 3.5}, {2, 6}});
        Fit->SetName("Fit1");
        Fit->SetParentSeries(Series);
        Label->SetParent(Graph);
    }
    TKxDataWithErrorSeries* Series = AddSeries();
    TKxLinearRegressionLine* Fit = new TKxLinearRegressionLine(Form);
    std::unique_ptr<TKxResultLabel> Label = std::make_unique<TKxResultLabel>(Form);
};

TEST(ResultLabel, ShowsNothingOfWhatHasBeenDestroyed) {
    using TDeed = void (*)(TFixture&);
    const TDeed deeds[] = {[](TFixture& F) { delete F.XV; }, [](TFixture& F) { delete F.YV; },
                           [](TFixture& F) { F.Series->SetXData(nullptr); },
                           [](TFixture& F) { delete F.Series; }, [](TFixture& F) { delete F.Fit; }};
    for (const TDeed deed : deeds) {
        TFixture f;
        test::TFaults faults;
        f.Label->SetIdentifier("Slope");
        f.Label->SetSeries(f.Fit);
        f.Fit->GetLineStyle().SetColor(clFuchsia);
        EXPECT_FALSE(test::LinesOf(f.Draw(), clFuchsia).empty());
        deed(f);
        EXPECT_TRUE(test::LinesOf(f.Draw(), clFuchsia).empty());
        EXPECT_EQ(f.Label->GetCaption(), "...");
        EXPECT_EQ(faults.Text, "");
    }
}

TEST(ResultLabel, ItsTextIsComputedAndNotPublished) {
    TKxResultLabel label(nullptr);
    EXPECT_EQ(label.PublishedProperties().Find("Caption"), nullptr);
    EXPECT_EQ(label.PublishedProperties().Find("Prefix")->TypeName, "TKxCaption");
    EXPECT_EQ(label.PublishedProperties().Find("Identifier")->TypeName, "TKxIDString");
    EXPECT_EQ(TKxLabel::Properties().Find("Caption")->TypeName, "TKxCaption");
    EXPECT_EQ(label.PublishedProperties().Find("OnClick")->Kind, TPropertyKind::Event);
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

    f.Label->SetPrefix("");
    f.Label->SetSuffix("");
    f.Label->SetDigits(3);
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
    f.Fit->GetLineStyle().SetColor(clGreen);
    f.Label->SetIdentifier("Slope");
    f.Label->SetSeries(f.Fit);
    auto& host = dynamic_cast<THeadlessHost&>(TApplication::Instance().GetHost());
    f.Form->Show();
    host.ProcessMessages();
    const auto& view = *host.WindowOf(f.Form->AsHostClient());
    const auto lineBefore = test::LinesOf(view.LastFrame, clGreen);
    const int frames = view.Frames;

    f.XV->Add(3);
    f.YV->Add(2);
    host.ProcessMessages();
    EXPECT_EQ(view.Frames, frames + 1);
    EXPECT_EQ(f.Series->GetResults().ReadReal("LinearRegression", "Slope", 0), 0.55);
    std::string letters; // captions are painted letter by letter
    for (const auto& text : test::CallsOf<TRecording::TText>(view.LastFrame)) letters += text.Text;
    EXPECT_NE(letters.find("0.55"), std::string::npos) << letters;
    const auto line = test::LinesOf(view.LastFrame, clGreen);
    ASSERT_EQ(line.size(), 1u);
    EXPECT_NE(line[0].Points, lineBefore[0].Points);
    const TPoint world = f.World();
    for (const TPoint end : line[0].Points)
        EXPECT_NEAR(end.Y - world.Y,
                    f.Y->RealToIntPosition(f.Fit->GetY(f.X->IntToRealPosition(end.X - world.X))), 1);
    host.ProcessMessages();
    EXPECT_EQ(view.Frames, frames + 1) << "and that is all";
}

TEST(ResultLabel, FollowsOneSeriesOnly) {
    TFixture f;
    auto other = std::make_unique<TKxLinearRegressionLine>(f.Form);
    other->SetName("Fit2");
    other->SetParentSeries(f.Series);
    other->SetFixedOffset(0);
    f.Draw();
    f.Label->SetIdentifier("Offset");
    f.Label->SetSeries(f.Fit);
    f.Label->SetSeries(other.get());
    EXPECT_EQ(f.Label->GetCaption(), "0");
    f.YV->SetValue(0, -7);
    f.Fit->Calculate();
    EXPECT_EQ(f.Label->GetCaption(), "0");
}

} // namespace
} // namespace kx
