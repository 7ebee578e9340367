#include "kxplot/form/axiscaptions.h"

#include "kxplot/form/captionfit.h"
#include "kxplot/plan/captiontext.h"

#include <kxgraph/platform/controls/frame.h>

namespace kxplot {

using namespace kx;

namespace {

/// Makes captions of a graph fit.
class TCaptionFitter {
public:
    explicit TCaptionFitter(TParts& Parts) : FForm(*Parts.Form), FGraph(*Parts.Graph) {}

    void Shrink(const TKxLabel& Label, TFont& Font, const TKxAxis* Axis = nullptr);
    void Shorten(TKxAxis& Axis);

private:
    bool Fits(const TKxLabel& Label, const TKxAxis* Axis) const;

    TForm& FForm;
    TKx2DGraph& FGraph;
};

bool TCaptionFitter::Fits(const TKxLabel& Label, const TKxAxis* Axis) const {
    TRect room = FGraph.GetClientRect();
    // A factored exponent stands above the end of its axis, where a long caption would end.
    if (Axis && !Axis->IsHorizontal() && Axis->GetUseScaleExponent())
        room.Top = FGraph.GetDrawingWorld().GetTop();
    return Label.GetBoundsRect().Intersected(room) == Label.GetBoundsRect();
}

void TCaptionFitter::Shrink(const TKxLabel& Label, TFont& Font, const TKxAxis* Axis) {
    const int size = Font.GetSize();
    const auto takeOff = [&](int Points) {
        Font.SetSize(size - Points);
        SettleTree(FForm);
    };
    ShrinkToFit(size, takeOff, [&] { return Fits(Label, Axis); });
}

void TCaptionFitter::Shorten(TKxAxis& Axis) {
    if (Axis.GetCaption() != Axis.GetAutoCaption() || Fits(Axis.GetCaptionLabel(), &Axis)) return;
    const auto fitsAs = [&](const TKxCaption& Caption) {
        Axis.SetAutoCaption(Caption);
        SettleTree(FForm);
        return Fits(Axis.GetCaptionLabel(), &Axis);
    };
    fitsAs(Shortened(PlainText(Axis.GetAutoCaption()), "", fitsAs));
}

} // namespace

void CaptionAxes(TParts& Parts) {
    Parts.XAxis->SetAutoCaption(Parts.Plan.Axes.X);
    Parts.YAxis->SetAutoCaption(Parts.Plan.Axes.Y);
    if (Parts.Y2Axis) Parts.Y2Axis->SetAutoCaption(*Parts.Plan.Axes.Y2);
}

void CaptionSideAxes(TParts& Parts) {
    for (const auto& plan : Parts.Plan.Axes.Side)
        Parts.SideAxes.at(plan.Quantity)->SetAutoCaption(plan.Caption);
}

void FitCaptions(TParts& Parts) {
    SettleTree(*Parts.Form);
    const bool mayShrink = Parts.Plan.Look.Outfit.empty();
    TKx2DGraph& graph = *Parts.Graph;
    TCaptionFitter fitter(Parts);
    if (mayShrink && graph.GetShowTitle()) fitter.Shrink(graph.GetTitleLabel(), graph.GetTitleFont());
    for (TKxAxis* axis : graph.GetAxes()) {
        if (axis->GetCaption().empty()) continue; // the label lies anywhere
        if (mayShrink) fitter.Shrink(axis->GetCaptionLabel(), axis->GetCaptionFont(), axis);
        fitter.Shorten(*axis);
    }
}

} // namespace kxplot
