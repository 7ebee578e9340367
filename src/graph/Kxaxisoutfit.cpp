// What of an axis is kept: the published properties, and the outfit.

#include <kxgraph/graph/Kxaxis.h>

#include <kxgraph/persist/Kxoutfit.h>
#include <kxgraph/platform/objects/textlists.h>

namespace kx {

namespace {

bool HasOwnTicks(const TPersistent& Object) { return static_cast<const TKxAxis&>(Object).IsNotAutoTicks(); }

} // namespace

void TKxAxis::SaveOutfit(const AnsiString& Section, TKxIniList& Ini) const { SaveRows(*this, Section, Ini); }

void TKxAxis::LoadOutfit(const AnsiString& Section, TKxIniList& Ini) {
    FRange.ForgetZooms(); // what is kept is the unzoomed view
    LoadRows(*this, Section, Ini);
    FRange.KeepUnzoomed();
}

const TPropertyTable& TKxAxis::PublishedProperties() const { return Properties(); }

const TPropertyTable& TKxAxis::Properties() {
    // An end that data make anew is no setting.
    const auto isOwnStart = [](const TPersistent& O) {
        const auto& axis = static_cast<const TKxAxis&>(O);
        return axis.GetStartEnd() != AxAutoRange || !axis.FRange.HasValues();
    };
    const auto isOwnStop = [](const TPersistent& O) {
        const auto& axis = static_cast<const TKxAxis&>(O);
        return axis.GetStopEnd() != AxAutoRange || !axis.FRange.HasValues();
    };
    static const TPropertyTable table(
        "TKxAxis", &TGraphicControl::Properties(),
        {
            Published<&TKxAxis::GetPosition, &TKxAxis::SetPosition>(
                "Position", AxLeftPos, "side of the drawing world; bottom and top are horizontal"),
            Published<&TKxAxis::GetScaling, &TKxAxis::SetScaling>(
                "Scaling", AxNormal, "linear, logarithmic, or logarithmic with labels as powers of ten")
                .LoadedBy(Into<&TKxAxis::LoadScaling>()), // LabelKind, which follows, may be another one
            Published<&TKxAxis::GetLabelKind, &TKxAxis::SetLabelKind>(
                "LabelKind", lkNumbers,
                "labels are numbers, dates (values are seconds since 1970, UTC) or Categories; on linear "
                "axes"),
            PublishedTexts<&TKxAxis::GetCategoriesText, &TKxAxis::SetCategoriesText>(
                CCategoriesType, "Categories",
                "texts at 1, 2, 3, ..., joined by semicolons; within \" where they have one"),
            PublishedEvent<&TKxAxis::GetOnZoneOffset, &TKxAxis::SetOnZoneOffset>(
                "OnZoneOffset", "Asked for the seconds that local time is ahead of UTC at a moment"),
            Published<&TKxAxis::GetTwisted, &TKxAxis::SetTwisted>("Twisted", false, "runs in reverse"),
            Published<&TKxAxis::GetAutoTicks, &TKxAxis::SetAutoTicks>("AutoTicks", true,
                                                                      "steps are chosen automatically"),
            Published<&TKxAxis::GetStartEnd, &TKxAxis::SetStartEnd>("StartEnd", AxAutoRange,
                                                                    "how the lower end follows the data"),
            Published<&TKxAxis::GetStopEnd, &TKxAxis::SetStopEnd>("StopEnd", AxAutoRange,
                                                                  "how the upper end follows the data"),
            Published<&TKxAxis::GetStart, &TKxAxis::SetStart>("Start", 0.0, "lower end", isOwnStart),
            Published<&TKxAxis::GetStop, &TKxAxis::SetStop>("Stop", 100.0, "upper end", isOwnStop),
            Published<&TKxAxis::GetTickPart, &TKxAxis::SetTickPart>(
                "TickPart", std::monostate{}, "step of minor ticks, in units of the span's power of ten",
                HasOwnTicks),
            Published<&TKxAxis::GetMajorTickPart, &TKxAxis::SetMajorTickPart>(
                "MajorTickPart", std::monostate{}, "step of major ticks, same unit", HasOwnTicks),
            Published<&TKxAxis::GetLabelPart, &TKxAxis::SetLabelPart>(
                "LabelPart", std::monostate{}, "step of labels, same unit", HasOwnTicks),
            Published<&TKxAxis::GetMaxExpForScaleExp, &TKxAxis::SetMaxExpForScale>(
                "MaxExpForScaleExp", 3, "above this decimal exponent labels are factored"),
            Published<&TKxAxis::GetMinExpForScaleExp, &TKxAxis::SetMinExpForScale>(
                "MinExpForScaleExp", -2, "below this decimal exponent labels are factored"),
            Published<&TKxAxis::GetIsSlaveAxis, &TKxAxis::SetIsSlave>(
                "IsSlaveAxis", false, "copies ends and scaling of MasterAxis"),
            Published<&TKxAxis::GetMasterAxis, &TKxAxis::SetMasterAxis>("MasterAxis", nullptr,
                                                                        "the axis followed by a slave"),
            Published<&TKxAxis::GetMirrorOf, &TKxAxis::SetMirrorOf>(
                "MirrorOf", nullptr,
                "the axis whose range and ticks are shown here once more, without labels"),
            Published<&TKxAxis::GetShowCaption, &TKxAxis::SetShowCaption>("ShowCaption", false,
                                                                          "shows Caption beside the labels"),
            Published<&TKxAxis::GetShowScaleLabels, &TKxAxis::SetShowScaleLabels>("ShowScaleLabels", true,
                                                                                  "shows the tick labels"),
            Published<&TKxAxis::GetThinLabels, &TKxAxis::SetThinLabels>("ThinLabels", false,
                                                                        "leaves out labels that would touch"),
            Published<&TKxAxis::GetAutoSize, &TKxAxis::SetAutosize>("AutoSize", true,
                                                                    "the layout places and sizes the axis"),
            Published<&TKxAxis::GetTransparent, &TKxAxis::SetTransparent>("Transparent", true,
                                                                          "draws no ground of its own"),
            Published<&TKxAxis::GetBorderCaptionGap, &TKxAxis::SetBorderCaptionGap>(
                "BorderCaptionGap", 0, "pixels between caption and border"),
            Published<&TKxAxis::GetCaptionScalingsGap, &TKxAxis::SetCaptionScalingsGap>(
                "CaptionScalingsGap", 0, "pixels between caption and labels"),
            Published<&TKxAxis::GetScalingsTicksGap, &TKxAxis::SetScalingsTicksGap>(
                "ScalingsTicksGap", 1, "pixels between labels and major ticks"),
            Published<&TKxAxis::GetExponentScalingsGap, &TKxAxis::SetExponentScalingsGap>(
                "ExponentScalingsGap", 10, "pixels by which a factored exponent stands outside the labels"),
            Published<&TKxAxis::GetValuesTicksGap, &TKxAxis::SetValuesTicksGap>(
                "ValuesTicksGap", 0, "pixels between drawing world and axis line"),
            Published<&TKxAxis::GetMajorTickLength, &TKxAxis::SetMajorTickLength>(
                "MajorTickLength", 10, "pixels; negative ticks point into the drawing world"),
            Published<&TKxAxis::GetTickLength, &TKxAxis::SetTickLength>("TickLength", 6, "pixels, likewise"),
            PublishedObject<&TKxAxis::GetAxisCaptionFont>("CaptionFont", "font of the caption"),
            PublishedColor<&TKxAxis::GetAxisColor, &TKxAxis::SetAxisColor>("AxisColor", clBlack,
                                                                           "colour of the axis line"),
            PublishedColor<&TKxAxis::GetTickColor, &TKxAxis::SetTickColor>("TickColor", clBlack,
                                                                           "colour of minor ticks"),
            PublishedColor<&TKxAxis::GetMajorTickColor, &TKxAxis::SetMajorTickColor>(
                "MajorTickColor", clBlack, "colour of major ticks"),
            Published<&TKxAxis::GetAxisThicknes, &TKxAxis::SetAxisThicknes>("AxisThicknes", 0,
                                                                            "pen width of the axis line"),
            Published<&TKxAxis::GetTickThicknes, &TKxAxis::SetTickThicknes>("TickThicknes", 0,
                                                                            "pen width of minor ticks"),
            Published<&TKxAxis::GetMajorTickThicknes, &TKxAxis::SetMajorTickThicknes>(
                "MajorTickThicknes", 0, "pen width of major ticks"),
            Published<&TKxAxis::GetCaption, &TKxAxis::SetCaption>("Caption", "", "rich caption"),
            Published<&TKxAxis::GetUserCaption, &TKxAxis::SetUserCaption>("UserCaption", "",
                                                                          "caption shown with DoUserCaption"),
            Published<&TKxAxis::GetDoUserCaption, &TKxAxis::SetDoUserCaption>(
                "DoUserCaption", false, "UserCaption goes before the automatic caption"),
        },
        {"Font",
         "CaptionFont",
         "DoUserCaption",
         "UserCaption",
         "Visible",
         "Twisted",
         "ShowCaption",
         "ShowScaleLabels",
         "MajorTickLength",
         "TickLength",
         "StartEnd",
         "StopEnd",
         Kept<&TKxAxis::GetKeptStart, &TKxAxis::SetStart>("Start"),
         Kept<&TKxAxis::GetKeptStop, &TKxAxis::SetStop>("Stop"),
         "BorderCaptionGap",
         "CaptionScalingsGap",
         "ScalingsTicksGap",
         "ValuesTicksGap",
         "AxisColor",
         "MajorTickColor",
         "TickColor",
         "AutoTicks",
         "TickPart",
         "MajorTickPart",
         "LabelPart",
         "Scaling",
         "LabelKind",
         "Categories"});
    return table;
}

} // namespace kx
