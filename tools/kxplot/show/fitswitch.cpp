#include "kxplot/show/fitswitch.h"

#include <utility>

namespace kxplot {

namespace {

/// Hides one part of a line; returns what brings it back.
template <class T>
std::function<void()> Hidden(T& Style) {
    const bool visible = Style.GetVisible();
    Style.SetVisible(false);
    return [&Style, visible] { Style.SetVisible(visible); };
}

std::function<void()> Unlisted(kx::TKxCalculatedSeries& Line) {
    const bool listed = Line.GetIncludeInLegend();
    Line.SetIncludeInLegend(false);
    return [&Line, listed] { Line.SetIncludeInLegend(listed); };
}

} // namespace

TFitSwitch::TFitSwitch(TPicture& Picture) : FPicture(Picture) {
    for (const auto& analysis : Picture.GetParts().Analyses)
        if (analysis.Line) FLines.push_back(analysis.Line);
    for (const auto& band : Picture.GetParts().Bands) FLines.push_back(band.Line);
}

void TFitSwitch::Show(bool Shown) {
    if (Shown == FShown) return;
    FShown = Shown;
    FPicture.ShowNotes(Shown);
    for (const auto& back : std::exchange(FBack, {})) back();
    if (Shown) return;
    for (auto* line : FLines) {
        FBack.push_back(Hidden(line->GetLineStyle()));
        FBack.push_back(Hidden(line->GetAreaStyle()));
        FBack.push_back(Unlisted(*line));
    }
}

} // namespace kxplot
