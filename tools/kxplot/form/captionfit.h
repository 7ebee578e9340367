#pragma once
// How far something must be made smaller to fit, found with few trials: a trial may settle a whole form.

#include <kxgraph/annotation/Kxcaption.h>

#include <cstddef>
#include <string>
#include <vector>

namespace kxplot {

/// Letters are not made smaller than so many points.
constexpr int CSmallestFont = 8;

/// The smallest number of steps, 1 to Most, that Fits; Most if none does. What fits fits with more steps too.
template <class F>
int StepsToFit(int Most, F&& Fits) {
    int tooFew = 0, enough = Most;
    while (enough - tooFew > 1) {
        const int middle = tooFew + (enough - tooFew) / 2;
        (Fits(middle) ? enough : tooFew) = middle;
    }
    return enough;
}

/// The longest beginning of a plain text, shorter than the whole, that Fits; empty if none does.
template <class F>
std::string LongestFitting(const std::string& Text, F&& Fits) {
    std::vector<std::size_t> ends; // of each beginning, the longest first
    for (std::size_t i = Text.size(); i-- > 0;)
        if ((Text[i] & 0xC0) != 0x80) ends.push_back(i); // not inside of a character
    if (ends.empty()) return {};
    const auto beginning = [&](int Steps) { return Text.substr(0, ends[std::size_t(Steps - 1)]); };
    return beginning(StepsToFit(int(ends.size()), [&](int Steps) { return Fits(beginning(Steps)); }));
}

/// The caption of plain texts, the first cut off so far that FitsAs the caption, which may set it.
template <class F>
kx::TKxCaption Shortened(const std::string& Head, const std::string& Tail, F&& FitsAs) {
    const auto with = [&](const std::string& Beginning) { return kx::EscapeCaption(Beginning + "…" + Tail); };
    return with(LongestFitting(Head, [&](const std::string& Beginning) { return FitsAs(with(Beginning)); }));
}

/// Makes letters of Points smaller until it Fits, or as small as they may be. TakeOff makes them so many
/// points smaller than they were.
template <class T, class F>
void ShrinkToFit(int Points, T&& TakeOff, F&& Fits) {
    if (Points <= CSmallestFont || Fits()) return;
    TakeOff(StepsToFit(Points - CSmallestFont, [&](int Steps) {
        TakeOff(Steps);
        return Fits();
    }));
}

} // namespace kxplot
