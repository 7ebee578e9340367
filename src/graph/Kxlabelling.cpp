#include <kxgraph/graph/Kxlabelling.h>

#include <kxgraph/graph/Kxdateticks.h>
#include <kxgraph/numeric/Kxarithm.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/numbertext.h>

#include <algorithm>
#include <cmath>

namespace kx {

namespace {

/// How a kind does it.
struct TKindRules {
    TKxScaleEnds (*Ends)(const TKxScaleInput&, const TKxLabelling&);
    TKxTicks (*Ticks)(const TKxScaleEnds&, const TKxAxisMap&, const TKxTickOptions&, const TKxLabelling&);
    std::string (*Text)(double, double, const TKxLabelling&);
};

std::string NumberText(double Value, double Resolution, const TKxLabelling&) {
    constexpr int digits = 15, mostDecimals = 15;
    if (!(Resolution > 0) || !std::isfinite(Resolution)) return FloatToStr(Value);
    const int decimals = -GetExponent(Resolution);
    return decimals > mostDecimals ? FloatToStr(Value)
                                   : FloatToStrFixed(Value, digits, std::max(0, decimals));
}

std::string DateText(double Value, double Resolution, const TKxLabelling& Labelling) {
    return HasDate(Value) ? TKxCalendar(Labelling.ZoneOffset).TextOf(Value, Resolution)
                          : NumberText(Value, Resolution, Labelling);
}

std::string CategoryText(double Value, double Resolution, const TKxLabelling& Labelling) {
    const std::string text = CategoryAt(Value, Labelling.Categories);
    return text.empty() ? NumberText(Value, Resolution, Labelling) : text;
}

const TKindRules& RulesOf(const TKxLabelling& Labelling) {
    static constexpr TKindRules CNumbers = {
        [](const auto& Input, const auto&) { return CalculateEnds(Input); },
        [](const auto& Ends, const auto& Map, const auto& Options, const auto&) {
            return CalculateTicks(Ends, Map, Options);
        },
        NumberText};
    static constexpr TKindRules CDates = {
        [](const auto& Input, const auto& L) { return DateEnds(Input, TKxCalendar(L.ZoneOffset)); },
        [](const auto& Ends, const auto& Map, const auto& Options, const auto& L) {
            return DateTicks(Ends, Map, Options, TKxCalendar(L.ZoneOffset));
        },
        DateText};
    static constexpr TKindRules CCategories = {
        [](const auto& Input, const auto&) { return CategoryEnds(Input); },
        [](const auto& Ends, const auto& Map, const auto& Options, const auto& L) {
            return CategoryTicks(Ends, Map, Options, L.Categories);
        },
        CategoryText};
    static constexpr const TKindRules* CKinds[] = {&CNumbers, &CDates, &CCategories};
    return *CKinds[Labelling.Kind];
}

} // namespace

// Steps that a kind leaves alone are kept until the axis shows numbers again; those that no store holds are
// as a new axis has them.
TKxScaleEnds TKxLabelling::CalculateEnds(const TKxScaleInput& Input) const {
    TKxScaleEnds ends = RulesOf(*this).Ends(Input, *this);
    for (const auto part : {&TKxScaleEnds::TickPart, &TKxScaleEnds::MajorTickPart, &TKxScaleEnds::LabelPart})
        if (!std::isfinite(ends.*part)) ends.*part = TKxScaleEnds().*part;
    return ends;
}

TKxTicks TKxLabelling::CalculateTicks(const TKxScaleEnds& Ends, const TKxAxisMap& Map,
                                      const TKxTickOptions& Options) const {
    return RulesOf(*this).Ticks(Ends, Map, Options, *this);
}

std::string TKxLabelling::TextOf(double Value, double Resolution) const {
    return RulesOf(*this).Text(Value, Resolution, *this);
}

void TKxLabelling::DemandScaling(TKxAxScaling Scaling) const {
    if (Kind == lkNumbers || Scaling == AxNormal) return;
    throw EPropertyError("A logarithmic axis cannot show " +
                         std::string(Kind == lkDates ? "dates" : "categories") +
                         ": Scaling must be AxNormal or LabelKind lkNumbers");
}

} // namespace kx
