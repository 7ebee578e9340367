// What the axes are called, and how captions are made to fit.

#include "kxplot/captiontext.h"
#include "kxplot/fitting.h"
#include "kxplot/plot.h"

#include <kxgraph/platform/controls/frame.h>

#include <utility>

namespace kxplot {

using namespace kx;

void TPlot::CaptionAxes(const kx::TKxTable& Table, const TColumns& Columns, const TOptions& Options) {
    std::string headers;
    for (const int column : Columns.Y) {
        const std::string header = Table.GetHeader(column);
        headers += (headers.empty() || header.empty() ? "" : ", ") + header;
    }
    FXHeader = Options.Bins ? headers : Columns.X >= 0 ? Table.GetHeader(Columns.X) : "";
    FYHeader = Options.Bins ? "count" : headers;
    FSeriesAxis = Options.Bins ? FXAxis : FYAxis;
    if (Options.Horizontal) {
        std::swap(FXHeader, FYHeader);
        FSeriesAxis = FSeriesAxis == FXAxis ? FYAxis : FXAxis;
    }
    FXAxis->SetAutoCaption(EscapeCaption(FXHeader));
    FYAxis->SetAutoCaption(EscapeCaption(FYHeader));
}

// Made of what the other axes show: captions that were given, or headers.
void TPlot::CaptionSideAxes(const TOptions& Options) {
    const auto shown = [](const std::optional<std::string>& Given, const std::string& Header) {
        return Given ? Closed(*Given) : EscapeCaption(Header);
    };
    const std::string x = shown(Options.XCaption, FXHeader), y = shown(Options.YCaption, FYHeader);
    for (const auto& [quantity, axis] : FSideAxes)
        axis->SetAutoCaption(quantity == TQuantity::Integral
                                 ? "integral of " + (y.empty() ? "y" : y)
                                 : "d" + (y.empty() ? "y" : "(" + y + ")") + " / d" +
                                       (x.empty() ? "x" : "(" + x + ")"));
}

void TPlot::FitCaptions(bool MayShrink) {
    SettleTree(*FForm);
    constexpr int CSmallest = 8;
    const auto fits = [this](const TKxLabel& Label, const TKxAxis* Axis = nullptr) {
        TRect room = FGraph->GetClientRect();
        // A factored exponent stands above the end of its axis, where a long caption would end.
        if (Axis && !Axis->IsHorizontal() && Axis->GetUseScaleExponent())
            room.Top = FGraph->GetDrawingWorld().GetTop();
        return Label.GetBoundsRect().Intersected(room) == Label.GetBoundsRect();
    };
    const auto shrink = [&](const TKxLabel& Label, TFont& Font, const TKxAxis* Axis = nullptr) {
        const int size = Font.GetSize();
        if (!MayShrink || fits(Label, Axis) || size <= CSmallest) return;
        const auto fitsBy = [&](int Points) {
            Font.SetSize(size - Points);
            SettleTree(*FForm);
            return fits(Label, Axis);
        };
        fitsBy(StepsToFit(size - CSmallest, fitsBy));
    };
    if (FGraph->GetShowTitle()) shrink(FGraph->GetTitleLabel(), FGraph->GetTitleFont());
    for (TKxAxis* axis : FGraph->GetAxes()) {
        if (axis->GetCaption().empty()) continue; // the label lies anywhere
        const TKxLabel& label = axis->GetCaptionLabel();
        shrink(label, axis->GetCaptionFont(), axis);
        if (axis->GetCaption() != axis->GetAutoCaption() || fits(label, axis)) continue;
        const auto fitsAs = [&](const std::string& Beginning) {
            axis->SetAutoCaption(EscapeCaption(Beginning + "…"));
            SettleTree(*FForm);
            return fits(label, axis);
        };
        fitsAs(LongestFitting(PlainText(axis->GetAutoCaption()), fitsAs));
    }
}

} // namespace kxplot
