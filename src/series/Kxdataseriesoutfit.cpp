// What of the series is kept: published properties, and the keys of the INI store.

#include <kxgraph/persist/Kxoutfit.h>
#include <kxgraph/series/Kxdataseries.h>

namespace kx {

namespace {

const TKxOutfit<TKxSeries>& SeriesOutfit() {
    static const TKxOutfit<TKxSeries> table{
        Outfit<&TKxSeries::GetDoUserCaption, &TKxSeries::SetDoUserCaption>("DoUserCaption"),
        Outfit<&TKxSeries::GetUserCaption, &TKxSeries::SetUserCaption>("UserCaption"),
        Outfit<&TKxSeries::GetIncludeInLegend, &TKxSeries::SetIncludeInLegend>("IncludeInLegend", true),
        OutfitLine<&TKxSeries::GetLineStyle>("Line"),
        OutfitArea<&TKxSeries::GetAreaStyle>("Area"),
        OutfitRef<&TKxSeries::GetXAxis, &TKxSeries::SetXAxis>("XAxis"),
        OutfitRef<&TKxSeries::GetYAxis, &TKxSeries::SetYAxis>("YAxis"),
        OutfitRef<&TKxSeries::GetXData, &TKxSeries::SetXData>("XData"),
        OutfitRef<&TKxSeries::GetYData, &TKxSeries::SetYData>("YData"),
        OutfitRef<&TKxSeries::GetWeight, &TKxSeries::SetWeight>("Weight"),
    };
    return table;
}

const TKxOutfit<TKxPointStyle>& PointOutfit() {
    static const TKxOutfit<TKxPointStyle> table{
        Outfit<&TKxPointStyle::GetVisible, &TKxPointStyle::SetVisible>("Point.Visible"),
        Outfit<&TKxPointStyle::GetColor, &TKxPointStyle::SetColor>("Point.Color"),
        Outfit<&TKxPointStyle::GetSize, &TKxPointStyle::SetSize>("Point.Size"),
        Outfit<&TKxPointStyle::GetWidth, &TKxPointStyle::SetWidth>(
            "Point.With"), // Kept: files are spelled so
        Outfit<&TKxPointStyle::GetStyle, &TKxPointStyle::SetStyle>("Point.Style"),
    };
    return table;
}

const TKxOutfit<TKxDataWithErrorSeries>& ErrorOutfit() {
    using T = TKxDataWithErrorSeries;
    static const TKxOutfit<T> table{
        OutfitRef<&T::GetdXMinus, &T::SetdXMinus>("dXMinus"),
        OutfitRef<&T::GetdXPlus, &T::SetdXPlus>("dXPlus"),
        OutfitRef<&T::GetdYMinus, &T::SetdYMinus>("dYMinus"),
        OutfitRef<&T::GetdYPlus, &T::SetdYPlus>("dYPlus"),
        Outfit<&T::GetErrorIndicatorsColor, &T::SetErrorColor>("ErrorBars.Color"),
    };
    return table;
}

AnsiString ChildSection(const AnsiString& Section, int Number) {
    return Section + ".Child(" + std::to_string(Number) + ")";
}

} // namespace

void TKxSeries::WriteToIni(TKxIniList& Ini, const AnsiString& Section) {
    SaveOutfitTable(*this, SeriesOutfit(), Section, Ini);
    Ini.WriteInteger(Section, "ChildCount", int(FChildren.size()));
    int number = 0;
    for (TKxSeries* child : FChildren) child->WriteToIni(Ini, ChildSection(Section, ++number));
}

void TKxSeries::ReadFromIni(TKxIniList& Ini, const AnsiString& Section) {
    LoadOutfitTable(*this, SeriesOutfit(), Section, Ini);
    if (FCaption.DoUser) ShowCaption(FCaption.SetDoUser(true));
    const int count = Ini.ReadInteger(Section, "ChildCount", 0);
    if (count <= 0) return;
    // With more children than were saved the saved sections serve again from the first.
    const auto children = FChildren; // reading may give a child another parent
    for (std::size_t j = 0; j < children.size(); ++j)
        children[j]->ReadFromIni(Ini, ChildSection(Section, int(j % std::size_t(count)) + 1));
}

void TKxDataSeries::WriteToIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxLineSeries::WriteToIni(Ini, Section);
    SaveOutfitTable(FPointStyle, PointOutfit(), Section, Ini);
}

void TKxDataSeries::ReadFromIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxLineSeries::ReadFromIni(Ini, Section);
    LoadOutfitTable(FPointStyle, PointOutfit(), Section, Ini);
}

void TKxDataWithErrorSeries::WriteToIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxDataSeries::WriteToIni(Ini, Section);
    SaveOutfitTable(*this, ErrorOutfit(), Section, Ini);
}

void TKxDataWithErrorSeries::ReadFromIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxDataSeries::ReadFromIni(Ini, Section);
    LoadOutfitTable(*this, ErrorOutfit(), Section, Ini);
}

const TPropertyTable& TKxSeries::Properties() {
    static const TPropertyTable table(
        "TKxSeries", &TComponent::Properties(),
        {
            PublishedObject<&TKxSeries::GetLineStyle>("LineStyle", "the line through the points"),
            Published<&TKxSeries::GetIncludeInLegend, &TKxSeries::SetIncludeInLegend>(
                "IncludeInLegend", true, "has an entry in legends"),
            Published<&TKxSeries::GetCaption, &TKxSeries::SetCaption>("Caption", "", "rich caption"),
        });
    return table;
}

const TPropertyTable& TKxLineSeries::Properties() {
    static const TPropertyTable table(
        "TKxLineSeries", &TKxSeries::Properties(),
        {
            Published<&TKxSeries::GetXAxis, &TKxSeries::SetXAxis>("XAxis", nullptr, "horizontal axis"),
            Published<&TKxSeries::GetYAxis, &TKxSeries::SetYAxis>("YAxis", nullptr, "vertical axis"),
            Published<&TKxSeries::GetXData, &TKxSeries::SetXData>("XData", nullptr, "vector of the x values"),
            Published<&TKxSeries::GetYData, &TKxSeries::SetYData>("YData", nullptr, "vector of the y values"),
            Published<&TKxSeries::GetWeight, &TKxSeries::SetWeight>("Weight", nullptr,
                                                                    "vector of the weights"),
            PublishedObject<&TKxSeries::GetAreaStyle>("AreaStyle", "the area between line and zero"),
            Published<&TKxLineSeries::GetBreakAtGaps, &TKxLineSeries::SetBreakAtGaps>(
                "BreakAtGaps", false, "values without a place interrupt the line"),
        });
    return table;
}

const TPropertyTable& TKxDataSeries::Properties() {
    static const TPropertyTable table(
        "TKxDataSeries", &TKxLineSeries::Properties(),
        {PublishedObject<&TKxDataSeries::GetPointStyle>("PointStyle", "the symbol at each point")});
    return table;
}

const TPropertyTable& TKxDataWithErrorSeries::Properties() {
    using T = TKxDataWithErrorSeries;
    static const TPropertyTable table(
        "TKxDataWithErrorSeries", &TKxDataSeries::Properties(),
        {
            Published<&T::GetdXPlus, &T::SetdXPlus>("dXPlus", nullptr, "errors towards larger x"),
            Published<&T::GetdXMinus, &T::SetdXMinus>("dXMinus", nullptr, "errors towards smaller x"),
            Published<&T::GetdYPlus, &T::SetdYPlus>("dYPlus", nullptr, "errors towards larger y"),
            Published<&T::GetdYMinus, &T::SetdYMinus>("dYMinus", nullptr, "errors towards smaller y"),
            PublishedColor<&T::GetErrorIndicatorsColor, &T::SetErrorColor>("ErrorIndicatorsColor", clBlack,
                                                                           "colour of the error bars"),
        });
    return table;
}

} // namespace kx
