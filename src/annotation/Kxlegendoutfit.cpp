// What of a legend is kept: published properties, and the keys of the INI store.

#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/persist/Kxoutfit.h>

namespace kx {

namespace {

/// The colour of a legend that follows its parent is not its own, and must not become it.
TKxOutfitEntry<TKxLegend> OwnColor() {
    return {"Color",
            [](const TKxLegend& L, std::string_view Section, std::string_view Key, TKxIniList& Ini) {
                Ini.WriteInteger(Section, Key, L.GetColor());
            },
            [](TKxLegend& L, std::string_view Section, std::string_view Key, const TKxIniList& Ini) {
                if (Ini.ReadBool(Section, "ParentColor", false)) return;
                const TColor color = Ini.ReadInteger(Section, Key, L.GetColor());
                if (color != L.GetColor()) L.SetColor(color);
            }};
}

const TKxOutfit<TKxLegend>& LegendOutfit() {
    using T = TKxLegend;
    constexpr auto font = static_cast<TFont& (TControl::*)()>(&TControl::GetFont);
    static const TKxOutfit<T> table{
        Outfit<&T::GetPlacement, &T::SetPlacement>("Placement"),
        Outfit<&T::GetColumns, &T::SetColumns>("Columns"),
        Outfit<&T::GetSampleWidth, &T::SetSampleWidth>("SampleWidth"),
        Outfit<&T::GetGap, &T::SetGap>("Gap"),
        OutfitLine<&T::GetFrameLine>("FrameLine"),
        Outfit<&T::GetTransparent, &T::SetTransparent>("Transparent"),
        Outfit<&T::GetParentColor, &T::SetParentColor>("ParentColor"),
        OwnColor(),
        OutfitFont<font>("Font"),
        Outfit<&T::GetAutoSize, &T::SetAutoSize>("AutoSize"),
        Outfit<&T::GetShowTitle, &T::SetShowTitle>("ShowTitle"),
        Outfit<&T::GetCaption, &T::SetCaption>("Caption"),
        Outfit<&T::GetVisible, &T::SetVisible>("Visible"),
        Outfit<&T::GetLeft, &T::SetLeft>("Left"),
        Outfit<&T::GetTop, &T::SetTop>("Top"),
        Outfit<&T::GetWidth, &T::SetWidth>("Width"),
        Outfit<&T::GetHeight, &T::SetHeight>("Height"),
    };
    return table;
}

} // namespace

void TKxLegend::SaveOutfit(const std::string& Section, TKxIniList& Ini) {
    SaveOutfitTable(*this, LegendOutfit(), Section, Ini);
}

void TKxLegend::LoadOutfit(const std::string& Section, TKxIniList& Ini) {
    LoadOutfitTable(*this, LegendOutfit(), Section, Ini);
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
        });
    return table;
}

} // namespace kx
