// What of any series is kept, its children included, and its published properties.

#include <kxgraph/series/Kxseries.h>

#include <kxgraph/persist/Kxoutfit.h>
#include <kxgraph/platform/objects/published.h>

namespace kx {

namespace {

AnsiString ChildSection(const AnsiString& Section, int Number) {
    return Section + ".Child(" + std::to_string(Number) + ")";
}

} // namespace

void TKxSeries::WriteToIni(TKxIniList& Ini, const AnsiString& Section) {
    SaveRows(*this, Section, Ini);
    int number = 0;
    for (TKxSeries* child : FChildren) child->WriteToIni(Ini, ChildSection(Section, ++number));
}

void TKxSeries::ReadFromIni(TKxIniList& Ini, const AnsiString& Section) {
    LoadRows(*this, Section, Ini);
    if (FCaption.DoUser) ShowCaption(FCaption.SetDoUser(true));
    const int count = Ini.ReadInteger(Section, "ChildCount", 0);
    if (count <= 0) return;
    // With more children than were saved the saved sections serve again from the first.
    const auto children = FChildren; // reading may give a child another parent
    for (std::size_t j = 0; j < children.size(); ++j)
        children[j]->ReadFromIni(Ini, ChildSection(Section, int(j % std::size_t(count)) + 1));
}

const TPropertyTable& TKxSeries::Properties() {
    using T = TKxSeries;
    // What a calculation has made of a series is no setting of it.
    const auto isMeasured = [](const TPersistent& O) { return !static_cast<const T&>(O).IsCalculated(); };
    const auto isOwnCaption = [](const TPersistent& O) {
        const auto& series = static_cast<const T&>(O);
        return !series.FCaption.IsShownOfOthers(series.IsCalculated());
    };
    TProperty userCaption = Kept<&T::GetUserCaption, &T::SetUserCaption>("UserCaption");
    userCaption.Stored = [](const TPersistent& O) {
        return static_cast<const T&>(O).FCaption.HasUserApart();
    };
    static const TPropertyTable table(
        "TKxSeries", &TComponent::Properties(),
        {
            PublishedObject<&T::GetLineStyle>("LineStyle", "the line through the points").WithKey("Line"),
            Published<&T::GetIncludeInLegend, &T::SetIncludeInLegend>("IncludeInLegend", true,
                                                                      "has an entry in legends")
                .IfMissing(true),
            Published<&T::GetCaption, &T::SetCaption>("Caption", "", "rich caption", isOwnCaption)
                .LoadedBy(Into<&T::LoadCaption>()),
            Published<&T::GetVisible, &T::SetVisible>("Visible", true, "is drawn"),
        },
        {Kept<&T::GetDoUserCaption, &T::SetDoUserCaption>("DoUserCaption"), userCaption, "IncludeInLegend",
         "LineStyle",
         PublishedObject<&T::GetAreaStyle>("AreaStyle", "the area between line and zero").WithKey("Area"),
         Published<&T::GetXAxis, &T::SetXAxis>("XAxis", nullptr, "horizontal axis"),
         Published<&T::GetYAxis, &T::SetYAxis>("YAxis", nullptr, "vertical axis"),
         Published<&T::GetXData, &T::SetXData>("XData", nullptr, "vector of the x values", isMeasured),
         Published<&T::GetYData, &T::SetYData>("YData", nullptr, "vector of the y values", isMeasured),
         Published<&T::GetWeight, &T::SetWeight>("Weight", nullptr, "vector of the weights"),
         ReadOnly<&T::GetChildCount>("ChildCount")});
    return table;
}

} // namespace kx
