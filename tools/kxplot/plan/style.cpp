#include "kxplot/plan/style.h"

namespace kxplot {

TStyleChoice ChooseStyle(const TStyleQuestion& Question) {
    constexpr std::size_t few = 50, many = 500;
    const bool isCloud = Question.Rows > many;
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

} // namespace kxplot
