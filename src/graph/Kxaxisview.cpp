// The range as the axis shows it.

#include <kxgraph/graph/Kxaxis.h>

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

void TKxAxis::CalculateEnds() {
    FNeedsTicks = true;
    FRange.Calculate();
}

void TKxAxis::CalculateEndsOfMaster() {
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

void TKxAxis::ZoomIn(double Start, double Stop) {
    FRange.ZoomIn(Start, Stop);
    MarkChanged();
}

} // namespace kx
