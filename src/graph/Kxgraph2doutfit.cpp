// What of the graph is kept: the published properties, and the outfit with those of its axes, series
// and companions.

#include <kxgraph/graph/Kxgraph2d.h>

#include <kxgraph/persist/Kxoutfit.h>
#include <kxgraph/platform/objects/published.h>

namespace kx {

namespace {

AnsiString SeriesSection(const AnsiString& Section, int Number) {
    return Section + ".Series(" + std::to_string(Number) + ")";
}

} // namespace

void TKx2DGraph::SaveOutfit(const AnsiString& Section, TKxIniList& Ini) {
    FWorld->ReorderSeriesList();
    SaveRows(*this, Section, Ini);
    for (const TKxAxis* axis : GetAxes()) axis->SaveOutfit(Section + "." + axis->GetName(), Ini);
    Ini.WriteInteger(Section, "SeriesCount", GetSeriesList().GetCount());
    int number = 0;
    for (TKxGraphSeries* series : GetSeriesList()) series->SaveOutfit(SeriesSection(Section, ++number), Ini);
    SaveCompanions(Section, Ini);
}

void TKx2DGraph::LoadOutfit(const AnsiString& Section, TKxIniList& Ini) {
    FWorld->ReorderSeriesList();
    LoadRows(*this, Section, Ini);
    for (TKxAxis* axis : GetAxes()) axis->LoadOutfit(Section + "." + axis->GetName(), Ini);
    // Reading an axis reference may move a series to another graph: the list is walked as it was.
    const std::vector<TKxGraphSeries*> list(GetSeriesList().begin(), GetSeriesList().end());
    const int saved = Ini.ReadInteger(Section, "SeriesCount", 0);
    for (int i = 0; i < saved && i < int(list.size()); ++i)
        list[std::size_t(i)]->LoadOutfit(SeriesSection(Section, i + 1), Ini);
    LoadCompanions(Section, Ini);
    Modified();
}

const TPropertyTable& TKx2DGraph::PublishedProperties() const { return Properties(); }

const TPropertyTable& TKx2DGraph::Properties() {
    using T = TKx2DGraph;
    TProperty titleFont = PublishedObject<&T::GetGraphTitleFont>("TitleFont", "font of the title");
    titleFont.Stored = [](const TPersistent& O) { return static_cast<const T&>(O).FTitleFontOwn; };
    static const TPropertyTable table(
        "TKx2DGraph", &TCustomPanel::Properties(),
        {
            Published<&T::GetAutoZoom, &T::SetAutoZoom>("AutoZoom", false, "dragging a rectangle zooms"),
            titleFont,
            Published<&T::GetPrimaryXAxis, &T::SetPrimaryXAxis>("PrimaryXAxis", nullptr,
                                                                "axis at the bottom, which the grid follows"),
            Published<&T::GetPrimaryYAxis, &T::SetPrimaryYAxis>("PrimaryYAxis", nullptr,
                                                                "axis at the left, which the grid follows"),
            Published<&T::GetParentColor, &T::SetParentColor>("ParentColor", false,
                                                              "Whether the colour follows the parent's"),
            PublishedColor<&T::GetDataColor, &T::SetDataColor>("DataColor", std::monostate{},
                                                               "ground of the drawing world"),
            PublishedObject<&T::GetFrameLine>("FrameLine", "line round the graph"),
            PublishedObject<&T::GetMajorGridX>("MajorGridX", "grid at the major ticks of the primary X axis"),
            PublishedObject<&T::GetMajorGridY>("MajorGridY", "grid at the major ticks of the primary Y axis"),
            PublishedObject<&T::GetMinorGridX>("MinorGridX", "grid at the minor ticks of the primary X axis"),
            PublishedObject<&T::GetMinorGridY>("MinorGridY", "grid at the minor ticks of the primary Y axis"),
            Published<&T::GetZeroOrigin, &T::SetZeroOrigin>("ZeroOrigin", false, "the axes cross at zero"),
            Published<&T::GetShowTitle, &T::SetShowTitle>("ShowTitle", false, "shows Caption as a title"),
            Published<&T::GetCaption, &T::SetCaption>("Caption", "", "rich title"),
            Published<&T::GetTransparent, &T::SetTransparent>("Transparent", false,
                                                              "what lies behind the graph shows through"),
            Published<&T::GetMargin, &T::SetMargin>("Margin", 0, "pixels kept free at each side"),
            Published<&T::GetWheelZoom, &T::SetWheelZoom>("WheelZoom", false, "the wheel zooms"),
            Published<&T::GetPanning, &T::SetPanning>(
                "Panning", false, "the middle button, or Space and the left one, drag the view"),
            Published<&T::GetZoomKeys, &T::SetZoomKeys>("ZoomKeys", false, "keys zoom and pan"),
            Published<&T::GetUnzoomOnDblClick, &T::SetUnzoomOnDblClick>(
                "UnzoomOnDblClick", false, "a double click shows the unzoomed view"),
            Published<&T::GetReadout, &T::SetReadout>("Readout", false,
                                                      "the point next to the mouse tells its values"),
            Published<&T::GetCrossHair, &T::SetCrossHair>("CrossHair", false, "lines through the mouse"),
            Published<&T::GetLegendPicking, &T::SetLegendPicking>(
                "LegendPicking", false, "entries of legends hide and show their series"),
        },
        {"ShowTitle", "Caption", "Font", "Color", "DataColor", "ZeroOrigin", "FrameLine", "MajorGridX",
         "MinorGridX", "MajorGridY", "MinorGridY"});
    return table;
}

} // namespace kx
