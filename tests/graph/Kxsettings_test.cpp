// Numbers as outfits and settings may hold them.

#include "support/graphfixture.h"

#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/annotation/Kxresultlabel.h>
#include <kxgraph/series/Kxarrowseries.h>
#include <kxgraph/svg/Kxsvgdevice.h>

#include <climits>

namespace kx::test::settings {

/// Everything that is there to be painted.
struct TFullForm : TGraphForm {
    TFullForm() {
        Fill({{1, 2}, {3, 4}});
        AddSeries()->SetName("Series1");
        AddSeries<TKxArrowSeries>()->SetName("Arrows1");
        Make<TKxLegend>("Legend1", "Graph=Graph1");
        Make<TKxLabel>("Label1", "Caption=label");
        Set("Graph1.Caption=title; Graph1.ShowTitle=1");
        for (const char* axis : {"XAxis1.", "YAxis1."}) Set("Caption=caption; ShowCaption=1", axis);
    }
};

TEST(Settings, LengthsNearTheEndOfTheIntegersCountAsThoseThatCanBeAddedUp) {
    for (const auto& row : RowsOf("texts", "lengths")) {
        const std::string& path = row[0];
        for (const char* value : {"2147483647", "-2147483648"}) {
            SCOPED_TRACE(path + "=" + value);
            TFullForm f;
            const std::string name = path.substr(0, path.find('.')),
                              property = path.substr(path.find('.') + 1);
            TComponent* component = f.Form->FindComponent(name);
            ASSERT_NE(component, nullptr);
            SetPropertyText(*component, property, value, [](std::string_view) { return nullptr; });
            const long long kept = std::stoll(GetPropertyText(*component, property));
            EXPECT_LE(std::llabs(kept), CMaxPixel);
            f.Draw();
            TSvgDevice device({300, 200});
            PaintFrame(*f.Form, device);
            EXPECT_NE(device.Document(), "");
        }
    }
}

} // namespace kx::test::settings
