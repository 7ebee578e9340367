// Themes as text, and what they do to a graph.

#include "support/errors.h"
#include "support/graphfixture.h"

#include <kxgraph/look/Kxlook.h>

#include <gtest/gtest.h>

namespace {

using namespace kx;

class Theme : public testing::Test, public test::TGraphForm {};

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
    EXPECT_EQ(X->GetTickLength(), 7);
    EXPECT_EQ(X->GetAxisColor(), RGB(0xd8, 0xd8, 0xd8));
    EXPECT_EQ(Graph->GetDataColor(), RGB(0x1e, 0x1e, 0x1e));
}

TEST_F(Theme, SaysWhereItCannotBeRead) {
    const std::pair<const char*, const char*> cases[]{
        {"Ink = #12\n", "t:1: '#12' is not a colour (a name such as clRed, or #RRGGBB)"},
        {"Ink = clRed\nBase = dark", "t:2: Base stands before all else"},
        {"Base = drak", "t:1: 'drak' is no theme to start from"},
        {"\nnothing", "t:2: 'nothing' is not NAME = VALUE"},
        {"Inks = clRed",
         "t:1: 'Inks' is not Base, Ink, Ground, Grid, Colors, Symbols, Dashes or NAME.PROPERTY"},
        {"Grid = clRed, clRed, clRed", "t:1: Grid has a major and a minor colour, no more"},
        {"XAxis.TikLength = 3", "t:1: no component has a property 'TikLength'; did you mean 'TickLength'?"}};
    for (const auto& [text, message] : cases)
        EXPECT_EQ(test::MessageOf([text = text] { TKxTheme::Parse(text, "t"); }), message);
    EXPECT_NE(test::MessageOf([] {
                  TKxTheme::Parse("Dashes = psSolid, dotted", "t");
              }).find("t:1: Style: 'dotted'"),
              std::string::npos);
    const TKxTheme wrong = TKxTheme::Parse("\nTKxAxis.TickLength = long", "t");
    EXPECT_EQ(test::MessageOf([&] { wrong.ApplyTo(*X); }).substr(0, 17), "t:2: TickLength: ");
    for (const auto name : TKxTheme::Names()) EXPECT_NO_THROW(Dress(*Graph, TKxTheme::Named(name)));
    EXPECT_EQ(test::MessageOf([] { TKxTheme::Named("drak"); }),
              "there is no theme 'drak'; did you mean 'dark'?");
}

} // namespace
