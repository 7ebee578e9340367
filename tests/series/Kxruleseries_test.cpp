#include <kxgraph/series/Kxruleseries.h>

#include "support/graphfixture.h"

namespace kx::test::ruleseries {

TEST(RuleSeries, CrossesTheGraphAndWidensOneAxis) {
    TGraphForm f;
    f.AddSeries();
    f.Fill({{0, 0}, {10, 100}});
    TKxLiveVector at(f.Form);
    at.AddValues(std::vector<double>{5, 20, NAN});
    auto* rule = new TKxRuleSeries(f.Form);
    rule->GetLineStyle().SetColor(RGB(1, 2, 3));
    rule->SetXData(&at);
    rule->SetYData(&at);
    for (const auto direction : {rdVertical, rdHorizontal}) {
        rule->SetDirection(direction);
        const std::string drawn = f.Draw().ToText();
        const bool upright = direction == rdVertical;
        EXPECT_EQ(std::tuple(f.X->GetStop(), f.Y->GetStop()), std::tuple(upright ? 20 : 10, 100));
        std::size_t lines = 0;
        for (auto i = drawn.find("010203"); i != drawn.npos; i = drawn.find("010203", i + 1)) ++lines;
        EXPECT_EQ(lines, 2U) << drawn;
    }
    rule->SetXData(nullptr);
    f.Draw();
    EXPECT_EQ(f.X->GetStop(), 10);
}

} // namespace kx::test::ruleseries
