// Extents and screen points, kept up to date value by value.

#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/series/Kxdataseries.h>
#include <kxgraph/series/Kxextents.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace kx {

bool TKxSeries::TakesPart(double Value, const TKxAxis* Axis) const {
    if (!std::isfinite(Value)) return false;
    return Value > 0 || !BreaksAtGaps() || !Axis || Axis->GetScaling() == AxNormal;
}

void TKxSeries::SetPointsCount() {
    FPointsCount = FXData && FYData ? std::min(FXData->GetCount(), FYData->GetCount()) : 0;
    FPoints.SetCount(FPointsCount);
}

int TKxSeries::XIdxNeeded() const { return FXData ? std::min(FXData->GetCount(), FPointsCount) : 0; }
int TKxSeries::YIdxNeeded() const { return FYData ? std::min(FYData->GetCount(), FPointsCount) : 0; }

TKxSeries::TInterval TKxSeries::PointInterval(double Value, const TKxAxis* Axis) const {
    constexpr double CNothing = std::numeric_limits<double>::quiet_NaN();
    return TakesPart(Value, Axis) ? TInterval{Value, Value} : TInterval{CNothing, CNothing};
}

void TKxSeries::GetNewXStartStop() {
    ScanExtents(FXRange, FXMinIndex, FXMaxIndex, XIdxNeeded(),
                [&](int i) { return PointInterval(FXData->GetValue(i), FXAxis); });
    Modified();
}

void TKxSeries::GetNewYStartStop() {
    ScanExtents(FYRange, FYMinIndex, FYMaxIndex, YIdxNeeded(),
                [&](int i) { return PointInterval(FYData->GetValue(i), FYAxis); });
    Modified();
}

void TKxSeries::CalcXValue(int Index) {
    UpdateExtents(FXRange, FXMinIndex, FXMaxIndex, Index, PointInterval(FXData->GetValue(Index), FXAxis),
                  [this] { GetNewXStartStop(); });
}

void TKxSeries::CalcYValue(int Index) {
    UpdateExtents(FYRange, FYMinIndex, FYMaxIndex, Index, PointInterval(FYData->GetValue(Index), FYAxis),
                  [this] { GetNewYStartStop(); });
}

void TKxSeries::FOnXIChanged(int Index, bool WasDeleted) {
    DataChanged(FXData);
    if (WasInserted(FXData, FKnownXCount, Index, WasDeleted)) return RangesModified();
    ValueChanged(Index, WasDeleted, FYData, &TKxSeries::CalcXValue, &TKxSeries::CalcYValue);
}

void TKxSeries::FOnYIChanged(int Index, bool WasDeleted) {
    DataChanged(FYData);
    if (WasInserted(FYData, FKnownYCount, Index, WasDeleted)) return RangesModified();
    ValueChanged(Index, WasDeleted, FXData, &TKxSeries::CalcYValue, &TKxSeries::CalcXValue);
}

// The notice names the one value alone; but the count has grown, and not at the end.
bool TKxSeries::WasInserted(const TKxCustomRealVector* Vector, int& KnownCount, int Index, bool WasDeleted) {
    const int count = CountOf(Vector);
    const bool leaves = WasDeleted && Index >= 0; // is still counted
    const int before = std::exchange(KnownCount, leaves ? std::max(count - 1, 0) : count);
    return !WasDeleted && before != count && Index < count - 1;
}

// One body for both directions: Own is the one that changed. Points that newly came into being are taken in,
// the changed one last.
void TKxSeries::ValueChanged(int Index, bool WasDeleted, const TKxCustomRealVector* Partner,
                             void (TKxSeries::*CalcOwn)(int), void (TKxSeries::*CalcPartner)(int)) {
    FRangesModified = true;
    const int old = FPointsCount;
    SetPointsCount();
    if (Index < 0) return RangesModified();
    if (!WasDeleted && Partner) {
        for (int k = old; k < FPointsCount; ++k) (this->*CalcPartner)(k);
        for (int k = old; k < FPointsCount - 1; ++k) (this->*CalcOwn)(k);
        for (int k = old; k < FPointsCount - 1; ++k) CalculatePoint(k);
    }
    if (Index > FPointsCount) return;
    if (WasDeleted) return RangesModified();
    (this->*CalcOwn)(Index);
    CalculatePoint(Index);
    InvalidateWorld();
}

void TKxSeries::FOnWeightChanged(int, bool) {
    FRangesModified = true;
    InvalidateWorld();
}

bool TKxSeries::NeedsCalculation() const {
    return FPointsDirty || (FRangesModified && !FChildren.empty()) ||
           std::ranges::any_of(FChildren, [](const TKxSeries* C) { return C->NeedsCalculation(); });
}

// Plain vectors tell nobody of their values, so a count that was never scanned is stale too; so are extents
// that a change of scaling would have made otherwise.
bool TKxSeries::ExtentsAreStale() const {
    if (FChildModified) return true;
    const bool empty = FXRange.GetStart() > FXRange.GetStop() || FYRange.GetStart() > FYRange.GetStop();
    if (FPointsCount > 0 && empty && FScannedCount != FPointsCount) return true;
    return BreaksAtGaps() && FScannedCount >= 0 && (FScannedLogX != IsLogX() || FScannedLogY != IsLogY());
}

bool TKxSeries::RefreshExtents() {
    SetPointsCount();
    if (!ExtentsAreStale()) return false;
    FScannedCount = FPointsCount;
    FScannedLogX = IsLogX();
    FScannedLogY = IsLogY();
    GetNewXStartStop();
    GetNewYStartStop();
    Modified();
    FChildModified = false;
    FRangesModified = true;
    if (auto* graph = GetGraph()) graph->Modified();
    return true;
}

// Without data there is still something to do: extents end, and what is computed from them.
void TKxSeries::CalculatePoints() {
    if (RefreshExtents()) return; // the axes may move: the points are computed in the next round
    const bool wasDirty = FPointsDirty;
    if (FXData && FYData && FXAxis && FYAxis)
        CalculateAllPoints();
    else
        FPointsCount = 0;
    FPointsDirty = false;
    UpdateChildren(wasDirty);
}

// Children come after their parent here, and before it in the next round: those that this changed are brought
// up to date at once, so that the frame is settled when no axis moves.
void TKxSeries::UpdateChildren(bool PassOn) {
    const TComponentRef<TKxSeries> self(this);
    if (FRangesModified || FChildrenLogX != IsLogX() || FChildrenLogY != IsLogY()) RecalculateChilds();
    if (!self) return;
    ForChildren([PassOn](TKxSeries* Child) {
        if (auto* item = dynamic_cast<TKxCalculatedItem*>(Child)) Guarded([item] { item->CalculateLine(); });
        if (PassOn) Child->Modified();
        if (Child->NeedsCalculation()) Child->CalculatePoints();
    });
}

void TKxSeries::CalculateChildPoints() {
    for (TKxSeries* child : FChildren) {
        child->CalculateChildPoints();
        child->CalculatePoints();
    }
}

void TKxSeries::CalculatePoint(int Index) {
    if (Index < 0 || Index >= FPointsCount || !FXAxis || !FYAxis) return;
    *FPoints.GetPointer(Index) = {FXAxis->RealToIntPosition(FXData->GetValue(Index)),
                                  FYAxis->RealToIntPosition(FYData->GetValue(Index))};
    if (BreaksAtGaps()) MarkGaps(Index, Index + 1);
}

void TKxSeries::CalculateAllPoints() {
    if (FPointsCount == 0) return;
    const auto count = std::size_t(FPointsCount);
    TPoint* points = FPoints.GetPointer(0);
    FXAxis->RealToIntPositions(FXData->Values().first(count), &points->X, 2);
    FYAxis->RealToIntPositions(FYData->Values().first(count), &points->Y, 2);
    if (BreaksAtGaps()) MarkGaps(0, FPointsCount);
}

void TKxSeries::MarkGaps(int First, int Last) {
    const auto x = FXData->Values(), y = FYData->Values();
    const bool logX = FXAxis->GetScaling() != AxNormal, logY = FYAxis->GetScaling() != AxNormal;
    TPoint* points = FPoints.GetPointer(0);
    for (auto i = std::size_t(First); i < std::size_t(Last); ++i) {
        const bool placed =
            std::isfinite(x[i]) && std::isfinite(y[i]) && !(logX && x[i] <= 0) && !(logY && y[i] <= 0);
        if (!placed) points[i].X = CNoPixel;
    }
}

} // namespace kx
