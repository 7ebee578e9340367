#include <kxgraph/series/Kxdataseries.h>

namespace kx {

TKxLineSeries::TKxLineSeries(TComponent* Owner) : TKxNotCalculatedSeries(Owner) { TakeAxes(Owner); }

void TKxLineSeries::SetBreakAtGaps(bool Break) {
    if (FBreakAtGaps == Break) return;
    FBreakAtGaps = Break;
    RangesModified();
}

TKxDataSeries::TKxDataSeries(TComponent* Owner) : TKxLineSeries(Owner), FPointStyle(this) {}

} // namespace kx
