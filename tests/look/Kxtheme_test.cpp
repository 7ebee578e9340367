// Themes as text, and what they do to a graph.

#include "support/graphfixture.h"

#include <kxgraph/look/Kxlook.h>

namespace kx::test::theme {

class Theme : public testing::Test, public TGraphForm {};

TEST_F(Theme, TellsNineSeriesApartAndLeavesAloneWhatIsNotMeant) {
    std::vector<TKxDataWithErrorSeries*> series;
    for (int i = 1; i <= 9; ++i) {
        series.push_back(AddSeries());
        series.back()->SetName("Series" + std::to_string(i));
    }
    Dress(*Graph,
          TKxTheme::Parse("# mine\nBase = dark\n\nSeries?.LineStyle.Width = 4\r\nSERIES2.Line.Width=1\n"
                          "TKxAxis.TickLength = 7\nGraph*.Scaling = 1\nTKxBarSeries.Line.Width = 9",
                          "t"));
    EXPECT_EQ(series[0]->GetLineStyle().GetColor(), series[8]->GetLineStyle().GetColor());
    EXPECT_NE(series[0]->GetLineStyle().GetStyle(), series[8]->GetLineStyle().GetStyle());
    EXPECT_NE(series[0]->GetPointStyle().GetStyle(), series[8]->GetPointStyle().GetStyle());
    for (std::size_t i = 0; i < 9; ++i) EXPECT_EQ(series[i]->GetLineStyle().GetWidth(), i == 1 ? 1 : 4) << i;
    EXPECT_EQ(std::tuple(X->GetTickLength(), X->GetAxisColor()), std::tuple(7, RGB(0xd8, 0xd8, 0xd8)));
    EXPECT_EQ(Graph->GetDataColor(), RGB(0x1e, 0x1e, 0x1e));
}

TEST_F(Theme, SaysWhereItCannotBeRead) {
    const auto faultOf = [](const std::string& Text) {
        return MessageOf([&] { TKxTheme::Parse(Text, "t"); });
    };
    for (const auto& [text, message] : Cases<std::string, std::string>("texts", "theme faults"))
        EXPECT_EQ(faultOf(text), message);
    EXPECT_TRUE(Holds(faultOf("Dashes = psSolid, dotted"), "t:1: Style: 'dotted'"));
    const TKxTheme wrong = TKxTheme::Parse("\nTKxAxis.TickLength = long", "t");
    EXPECT_EQ(MessageOf([&] { wrong.ApplyTo(*X); }).substr(0, 17), "t:2: TickLength: ");
    for (const auto name : TKxTheme::Names()) EXPECT_NO_THROW(Dress(*Graph, TKxTheme::Named(name)));
    EXPECT_EQ(MessageOf([] { TKxTheme::Named("drak"); }), "there is no theme 'drak'; did you mean 'dark'?");
}

} // namespace kx::test::theme
