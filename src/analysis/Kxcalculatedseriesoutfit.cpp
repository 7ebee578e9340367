// What of a calculated series is kept.

#include <kxgraph/analysis/Kxcalculatedseries.h>

#include <kxgraph/platform/objects/published.h>

namespace kx {

void TKxCalculatedSeries::ReadFromIni(TKxIniList& Ini, const AnsiString& Section) {
    TKxSeries::ReadFromIni(Ini, Section);
    ParentModified();
}

// Axes that a form file has given go before those of the parent.
void TKxCalculatedSeries::LoadParent(TKxNotCalculatedSeries* Parent) {
    TKxAxis* x = IsIn(csLoading) ? GetXAxis() : nullptr;
    TKxAxis* y = IsIn(csLoading) ? GetYAxis() : nullptr;
    Leave();
    Join(Parent);
    if (x) SetXAxis(x);
    if (y) SetYAxis(y);
}

void TKxCalculatedSeries::Loaded() {
    TKxSeries::Loaded();
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

// Outfits go straight into the fields: a setter would switch off the automatic that was read before. The
// calculation kind and the formula stand in the file for its reader.
const TPropertyTable& TKxCalculatedSeries::Properties() {
    // What the series calls itself by its formula is no setting of it.
    TProperty caption = *TKxSeries::Properties().Find("Caption");
    caption.Stored = [](const TPersistent& Object) {
        const auto& series = static_cast<const T&>(Object);
        const AnsiString& shown = series.GetCaption();
        if (series.GetDoUserCaption()) return shown != series.GetUserCaption();
        return shown != series.GetAutoCaption() || shown != series.GetFormula();
    };
    static const TPropertyTable table(
        "TKxCalculatedSeries", &TKxSeries::Properties(),
        {
            caption,
            PublishedObject<&T::GetAreaStyle>("AreaStyle", "the area between curve and zero"),
            Published<&T::GetWeight, &T::SetWeight>(
                "Weight", nullptr, "own weights of the parent's points",
                [](const TPersistent& O) { return !static_cast<const T&>(O).FParentWeight; })
                .LoadedBy(Into<&T::LoadWeight>()),
            Published<&T::GetParentSeries, &T::SetParentSeries>("ParentSeries", nullptr,
                                                                "the series whose data are analysed")
                .LoadedBy(Into<&T::LoadParent>()),
            Published<&T::GetParentWeight, &T::SetParentWeight>("ParentWeight", true,
                                                                "takes the weights of the parent")
                .LoadedBy(Into<&T::FParentWeight>()),
            Published<&T::GetAutoStart, &T::SetAutoStart>("AutoStart", true,
                                                          "the calculation starts with the data")
                .LoadedBy(Into<&T::FAutoStart>()),
            Published<&T::GetAutoStop, &T::SetAutoStop>("AutoStop", true,
                                                        "the calculation stops with the data")
                .LoadedBy(Into<&T::FAutoStop>()),
            Published<&T::GetDisplayAutoStart, &T::SetDisplayAutoStart>(
                "DisplayAutoStart", true,
                "the curve starts with the X axis, an integral with its calculation")
                .LoadedBy(Into<&T::FDisplayAutoStart>()),
            Published<&T::GetDisplayAutoStop, &T::SetDisplayAutoStop>("DisplayAutoStop", true,
                                                                      "the curve stops with the X axis")
                .LoadedBy(Into<&T::FDisplayAutoStop>()),
            Published<&T::GetCoupleCalculationAndDisplay, &T::SetCoupleCalcAndDisplay>(
                "CoupleCalculationAndDisplay", true, "the curve is shown where it is calculated")
                .WithKey("CoupleCalcAndDisplay")
                .LoadedBy(Into<&T::FCoupleCalculationAndDisplay>()),
            End<&T::GetAutoStart>(Published<&T::GetCalculationStart, &T::SetCalculationStart>(
                                      "CalculationStart", std::monostate{}, "smallest x that takes part"))
                .WithKey("CalcStart")
                .LoadedBy(Into<&T::FCalculationStart>()),
            End<&T::GetAutoStop>(Published<&T::GetCalculationStop, &T::SetCalculationStop>(
                                     "CalculationStop", std::monostate{}, "largest x that takes part"))
                .WithKey("CalcStop")
                .LoadedBy(Into<&T::FCalculationStop>()),
            End<&T::GetDisplayAutoStart>(Published<&T::GetDisplayStart, &T::SetDisplayStart>(
                                             "DisplayStart", std::monostate{}, "where the curve starts"))
                .LoadedBy(Into<&T::FDisplayStart>()),
            End<&T::GetDisplayAutoStop>(Published<&T::GetDisplayStop, &T::SetDisplayStop>(
                                            "DisplayStop", std::monostate{}, "where the curve stops"))
                .LoadedBy(Into<&T::FDisplayStop>()),
            PublishedEvent<&T::OnCalculated>("OnCalculated", "a calculation has come to its end"),
            PublishedEvent<&T::OnError>("OnError", "a calculation has failed"),
        },
        {"ParentSeries", "ParentWeight", "AutoStart", "AutoStop", "CoupleCalculationAndDisplay",
         "DisplayAutoStart", "DisplayAutoStop", ReadOnly<&T::GetCalculationID>("Calculation"),
         ReadOnly<&T::GetFormula>("Formula"), "CalculationStart", "CalculationStop", "DisplayStart",
         "DisplayStop"});
    return table;
}

} // namespace kx
