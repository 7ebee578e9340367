#include "kxplot/plan/style.h"

#include <cmath>

namespace kxplot {

TStyleChoice ChooseStyle(const TStyleQuestion& Question) {
    constexpr std::size_t few = 50;
    const bool isCloud = IsCloud(Question.Rows);
    if (Question.HasCategories && Question.AreDistinct && Question.MayHaveBars && !Question.HasAnalysis)
        return {TStyle::Bars, false, "there are texts over x"};
    if (Question.HasCategories) return {TStyle::Points, isCloud, "there are texts over x"};
    if (Question.HasAnalysis) return {TStyle::Points, isCloud, "a fit or a curve stands among them"};
    if (Question.X.IsToAndFro())
        return {TStyle::Points, isCloud,
                "x changes its direction " + std::to_string(Question.X.Turns) + " times in " +
                    std::to_string(Question.X.Steps) + " steps"};
    if (Question.Rows <= few) return {TStyle::Both, false, "there are few points"};
    return {TStyle::Line, false, "there are many points"};
}

bool StandAlone(std::span<const double> Values) {
    std::size_t gaps = 0, alone = 0;
    for (const double value : Values) gaps += !(value - value == 0); // infinite ones are gaps, too
    const std::size_t all = Values.size() - gaps;
    if (all > 2 * gaps + 2) return false; // between gaps there are at most one more
    const auto isGap = [&](std::size_t Index) {
        return Index >= Values.size() || !std::isfinite(Values[Index]);
    };
    for (std::size_t i = 0; i < Values.size(); ++i)
        alone += !isGap(i) && isGap(i - 1) && isGap(i + 1); // in front of the first is beyond the end
    return 2 * alone > all;
}

} // namespace kxplot
