// What of a calculated series is kept.

#include <kxgraph/analysis/Kxcalculatedseries.h>

namespace kx {

template <class F>
void TKxCalculatedSeries::ForStoredFlags(F Action) {
    using T = TKxCalculatedSeries;
    Action("ParentWeight", &T::FParentWeight);
    Action("AutoStart", &T::FAutoStart);
    Action("AutoStop", &T::FAutoStop);
    Action("CoupleCalcAndDisplay", &T::FCoupleCalculationAndDisplay);
    Action("DisplayAutoStart", &T::FDisplayAutoStart);
    Action("DisplayAutoStop", &T::FDisplayAutoStop);
}

template <class F>
void TKxCalculatedSeries::ForStoredLimits(F Action) {
    using T = TKxCalculatedSeries;
    Action("CalcStart", &T::FCalculationStart);
    Action("CalcStop", &T::FCalculationStop);
    Action("DisplayStart", &T::FDisplayStart);
    Action("DisplayStop", &T::FDisplayStop);
}

void TKxCalculatedSeries::WriteToIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxSeries::WriteToIni(Ini, Section);
    Ini.WriteComponentRef(Section, "ParentSeries", FParentSeries);
    ForStoredFlags([&](const char* Key, auto Field) { Ini.WriteBool(Section, Key, this->*Field); });
    Ini.WriteString(Section, "Calculation", GetCalculationID());
    Ini.WriteString(Section, "Formula", GetFormula());
    ForStoredLimits([&](const char* Key, auto Field) { Ini.WriteReal(Section, Key, this->*Field); });
}

// Straight into the fields: a setter would switch off the automatic that was read before. The calculation
// kind and the formula stand in the file for its reader.
void TKxCalculatedSeries::ReadFromIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxSeries::ReadFromIni(Ini, Section);
    auto* parent = FParentSeries;
    Ini.ReadComponentRef(Section, "ParentSeries", parent);
    if (parent != FParentSeries) {
        Leave();
        Join(parent);
    }
    ForStoredFlags(
        [&](const char* Key, auto Field) { this->*Field = Ini.ReadBool(Section, Key, this->*Field); });
    ForStoredLimits(
        [&](const char* Key, auto Field) { this->*Field = Ini.ReadReal(Section, Key, this->*Field); });
    ParentModified();
}

namespace {

using T = TKxCalculatedSeries;

/// An end is kept only where it does not follow by itself.
template <auto Automatic>
TProperty End(TProperty Property) {
    Property.Stored = [](const TPersistent& Object) { return !(static_cast<const T&>(Object).*Automatic)(); };
    return Property;
}

} // namespace

const TPropertyTable& TKxCalculatedSeries::Properties() {
    static const TPropertyTable table(
        "TKxCalculatedSeries", &TKxSeries::Properties(),
        {
            PublishedObject<&T::GetAreaStyle>("AreaStyle", "the area between curve and zero"),
            Published<&T::GetWeight, &T::SetWeight>("Weight", nullptr, "own weights of the parent's points"),
            Published<&T::GetParentSeries, &T::SetParentSeries>("ParentSeries", nullptr,
                                                                "the series whose data are analysed"),
            Published<&T::GetParentWeight, &T::SetParentWeight>("ParentWeight", true,
                                                                "takes the weights of the parent"),
            Published<&T::GetAutoStart, &T::SetAutoStart>("AutoStart", true,
                                                          "the calculation starts with the data"),
            Published<&T::GetAutoStop, &T::SetAutoStop>("AutoStop", true,
                                                        "the calculation stops with the data"),
            Published<&T::GetDisplayAutoStart, &T::SetDisplayAutoStart>(
                "DisplayAutoStart", true,
                "the curve starts with the X axis, an integral with its calculation"),
            Published<&T::GetDisplayAutoStop, &T::SetDisplayAutoStop>("DisplayAutoStop", true,
                                                                      "the curve stops with the X axis"),
            Published<&T::GetCoupleCalculationAndDisplay, &T::SetCoupleCalcAndDisplay>(
                "CoupleCalculationAndDisplay", true, "the curve is shown where it is calculated"),
            End<&T::GetAutoStart>(Published<&T::GetCalculationStart, &T::SetCalculationStart>(
                "CalculationStart", std::monostate{}, "smallest x that takes part")),
            End<&T::GetAutoStop>(Published<&T::GetCalculationStop, &T::SetCalculationStop>(
                "CalculationStop", std::monostate{}, "largest x that takes part")),
            End<&T::GetDisplayAutoStart>(Published<&T::GetDisplayStart, &T::SetDisplayStart>(
                "DisplayStart", std::monostate{}, "where the curve starts")),
            End<&T::GetDisplayAutoStop>(Published<&T::GetDisplayStop, &T::SetDisplayStop>(
                "DisplayStop", std::monostate{}, "where the curve stops")),
            PublishedEvent<&T::OnCalculated>("OnCalculated", "a calculation has come to its end"),
            PublishedEvent<&T::OnError>("OnError", "a calculation has failed"),
        });
    return table;
}

} // namespace kx
