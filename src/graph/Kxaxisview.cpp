// The range as the axis shows it.

#include <kxgraph/graph/Kxaxis.h>

#include <atomic>
#include <cmath>
#include <utility>

namespace kx {

void TKxAxis::SetRange(const TRange* Range) {
    SetStart(Range->GetStart());
    SetStop(Range->GetStop());
    MarkChanged();
}

void TKxAxis::SetValuesRange(const TRange* Range) {
    FRange.Values().Assign(*Range);
    MarkChanged();
}

void TKxAxis::SetScaling(TKxAxScaling Scaling) {
    FRange.Labelling().DemandScaling(Scaling);
    MarkChangedIf(FRange.SetScaling(Scaling));
}

void TKxAxis::SetLabelling(TKxLabelling Labelling) {
    Labelling.DemandScaling(GetScaling());
    FRange.SetLabelling(std::move(Labelling));
    MarkChanged();
}

void TKxAxis::SetLabelKind(TKxLabelKind Kind) {
    if (Kind == GetLabelKind()) return;
    TKxLabelling labelling = FRange.Labelling();
    labelling.Kind = Kind;
    SetLabelling(std::move(labelling));
}

void TKxAxis::SetCategories(const TKxCategories& Categories) {
    if (Categories == GetCategories()) return;
    TKxLabelling labelling = FRange.Labelling();
    labelling.Categories = Categories;
    SetLabelling(std::move(labelling));
}

void TKxAxis::SetOnZoneOffset(const TKxZoneOffset& Offset) {
    TKxLabelling labelling = FRange.Labelling();
    labelling.ZoneOffset = Offset;
    static std::atomic<int> zones = 0;
    labelling.Zone = ++zones;
    SetLabelling(std::move(labelling));
}

AnsiString TKxAxis::GetValueText(double Value) const {
    constexpr double ln10 = 2.302585092994046;
    const double pixel = std::abs(FMap.Scale) * (FMap.IsLogarithmic() ? std::abs(Value) * ln10 : 1);
    return FRange.Labelling().TextOf(Value, pixel);
}

void TKxAxis::CalculateEnds() {
    FNeedsTicks = true;
    FRange.Calculate();
}

void TKxAxis::CalculateEndsOfMaster() {
    if (FMirrorOf) {
        FNeedsTicks = true;
        return FRange.Mirror(FMirrorOf->FRange);
    }
    FRange.SetLabelling(FMasterAxis->FRange.Labelling());
    SetScaling(FMasterAxis->GetScaling());
    SetAutoCaption(FMasterAxis->GetCaption());
    FNeedsTicks = true;
    FRange.CalculateAs(FMasterAxis->GetStart(), FMasterAxis->GetStop());
}

void TKxAxis::KeepShown() {
    FRange.KeepShown();
    FChanged = false;
}

void TKxAxis::RedoRanges() {
    if (FRange.Extents().GetCount() == 0) return;
    FRange.Redo();
    MarkChanged();
}

void TKxAxis::ZoomIn(double Start, double Stop, TKxZoomGesture Gesture) {
    if (FMirrorOf) return; // zoomed as well
    FRange.ZoomIn(Start, Stop, Gesture);
    MarkChanged();
}

void TKxAxis::ZoomAlong(double Start, double Stop, TKxZoomGesture Gesture) {
    if (FMirrorOf) return;
    FRange.ZoomAlong(Start, Stop, Gesture);
    MarkChanged();
}

} // namespace kx
