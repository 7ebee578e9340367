// What of a legend is kept: published properties, and the keys of the INI store.

#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/persist/Kxoutfit.h>
#include <kxgraph/platform/objects/published.h>

namespace kx {

namespace {

void SetOtherColor(TKxLegend& Legend, TColor Color) {
    if (Color != Legend.GetColor()) Legend.SetColor(Color);
}

/// The colour of a legend that follows its parent is not its own, and must not become it.
void SetOwnColor(TKxLegend& Legend, TColor Color) {
    if (!Legend.GetParentColor()) SetOtherColor(Legend, Color);
}

} // namespace

void TKxLegend::SaveOutfit(const std::string& Section, TKxIniList& Ini) { SaveRows(*this, Section, Ini); }

void TKxLegend::LoadOutfit(const std::string& Section, TKxIniList& Ini) {
    LoadRows(*this, Section, Ini);
    // A colour that stands there alone is the legend's own.
    if (!Ini.ReadBool(Section, "ParentColor", false))
        SetOtherColor(*this, Ini.ReadInteger(Section, "Color", GetColor()));
}

const TPropertyTable& TKxLegend::Properties() {
    using T = TKxLegend;
    static const TPropertyTable table(
        "TKxLegend", &TControl::Properties(),
        {
            Published<&T::GetGraph, &T::SetGraph>("Graph", nullptr, "the graph whose series are shown"),
            Published<&T::GetPlacement, &T::SetPlacement>("Placement", lgInsideTopRight,
                                                          "corner or side of the graph, or free"),
            Published<&T::GetColumns, &T::SetColumns>("Columns", 1, "columns of entries; 0: by the room"),
            Published<&T::GetSampleWidth, &T::SetSampleWidth>("SampleWidth", 30,
                                                              "width of the samples, pixels"),
            Published<&T::GetGap, &T::SetGap>("Gap", 8, "distances inside and outside, pixels"),
            PublishedObject<&T::GetFrameLine>("FrameLine", "line round the legend"),
            Published<&T::GetTransparent, &T::SetTransparent>("Transparent", false,
                                                              "Whether what lies behind shows through"),
            Published<&T::GetAutoSize, &T::SetAutoSize>("AutoSize", true,
                                                        "Whether the size follows the entries"),
            Published<&T::GetShowTitle, &T::SetShowTitle>("ShowTitle", false,
                                                          "shows Caption above the entries"),
            Published<&T::GetCaption, &T::SetCaption>("Caption", "", "rich title"),
            PublishedEvent<&T::OnEntryClick>("OnEntryClick", "an entry was clicked"),
        },
        {"Placement", "Columns", "SampleWidth", "Gap", "FrameLine", "Transparent", "ParentColor",
         Kept<&T::GetColor, &SetOwnColor>("Color"), "Font", "AutoSize", "ShowTitle", "Caption", "Visible",
         "Left", "Top", "Width", "Height"});
    return table;
}

} // namespace kx
