// Numbers as outfits and settings may hold them.

#include "support/graphfixture.h"

#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/annotation/Kxresultlabel.h>
#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/series/Kxarrowseries.h>
#include <kxgraph/svg/Kxsvgdevice.h>

#include <climits>
#include <cstdlib>
#include <sstream>
#include <string>

namespace kx {
namespace {

using test::TGraphForm;

/// Everything that is there to be painted.
struct TFullForm : TGraphForm {
    TFullForm() {
        Fill({{1, 2}, {3, 4}});
        AddSeries()->SetName("Series1");
        AddSeries<TKxArrowSeries>()->SetName("Arrows1");
        Graph->SetCaption("title");
        Graph->SetShowTitle(true);
        for (TKxAxis* axis : {X, Y}) axis->SetCaption("caption"), axis->SetShowCaption(true);
        auto* legend = new TKxLegend(Form);
        legend->SetName("Legend1");
        legend->SetParent(Graph);
        legend->SetGraph(Graph);
        auto* label = new TKxLabel(Form);
        label->SetName("Label1");
        label->SetParent(Graph);
        label->SetCaption("label");
    }
};

TEST(Settings, LengthsNearTheEndOfTheIntegersCountAsThoseThatCanBeAddedUp) {
    std::istringstream paths(
        "XAxis1.BorderCaptionGap XAxis1.CaptionScalingsGap YAxis1.ScalingsTicksGap "
        "YAxis1.ExponentScalingsGap YAxis1.ValuesTicksGap XAxis1.MajorTickLength YAxis1.TickLength "
        "XAxis1.AxisThicknes YAxis1.TickThicknes YAxis1.MajorTickThicknes XAxis1.Font.Size "
        "YAxis1.CaptionFont.Height Graph1.Margin Graph1.TitleFont.Size Graph1.FrameLine.Width "
        "Graph1.Left Graph1.Width Series1.LineStyle.Width Series1.PointStyle.Size "
        "Series1.PointStyle.Width Arrows1.TipLength Arrows1.TipWidth Legend1.Gap "
        "Legend1.SampleWidth Legend1.Columns Legend1.Left Label1.Left Label1.Top Label1.XPosition "
        "Label1.Angle Label1.Font.Height");
    for (std::string path; paths >> path;) {
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

} // namespace
} // namespace kx
