// Extents and screen points, kept up to date value by value.

#include <kxgraph/series/Kxseries.h>

#include <algorithm>
#include <array>
#include <utility>

namespace kx {

void TKxSeries::SetPointsCount() {
    FPointsCount = std::min(FX.GetCount(), FY.GetCount());
    FPoints.SetCount(FPointsCount);
}

int TKxSeries::IdxNeeded(const TKxChannel& Channel) const {
    return std::min(Channel.GetCount(), FPointsCount);
}

void TKxSeries::GetIntervals(const TKxChannel& Channel, int First, std::span<TKxInterval> Intervals) const {
    Channel.GetValue(First + int(Intervals.size()) - 1); // raises behind the end
    const double* value = Channel.GetVector()->Values().data() + First;
    const TKxAxScaling scaling = ScalingOfGaps(Channel);
    for (TKxInterval& interval : Intervals) {
        interval = kx::HasPlace(scaling, *value) ? TKxInterval{*value, *value} : TKxInterval::None();
        ++value;
    }
}

void TKxSeries::ScanExtent(TKxChannel& Channel, int Count) {
    constexpr int CBlock = 128;
    std::array<TKxInterval, CBlock> intervals;
    TKxExtentScan scan(GetLeastExtent(Channel));
    for (int first = 0; first < Count; first += CBlock) {
        const auto block = std::span(intervals).first(std::size_t(std::min(CBlock, Count - first)));
        GetIntervals(Channel, first, block);
        scan.Take(first, block);
    }
    scan.StoreIn(Channel);
    Modified();
}

void TKxSeries::TakeValue(TKxChannel& Channel, int Index) {
    if (Index >= Channel.GetCount()) return;
    TKxInterval value;
    GetIntervals(Channel, Index, {&value, 1});
    switch (Channel.Take(Index, value)) {
    case TKxChannel::TTaken::Inside: return;
    case TKxChannel::TTaken::Wider: return Modified();
    case TKxChannel::TTaken::MovedInward: return GetNewStartStop(Channel);
    }
}

void TKxSeries::CalcValue(const TKxChannel& Channel, int Index) {
    &Channel == &FX ? CalcXValue(Index) : CalcYValue(Index);
}

void TKxSeries::GetNewStartStop(const TKxChannel& Channel) {
    &Channel == &FX ? GetNewXStartStop() : GetNewYStartStop();
}

// Points that newly came into being are taken in, the changed one last.
void TKxSeries::ValueChanged(TKxChannel& Channel, int Index, bool WasDeleted) {
    DataChanged(Channel.GetVector());
    if (Channel.WasInserted(Index, WasDeleted)) return RangesModified();
    FRangesModified = true;
    const int old = FPointsCount;
    SetPointsCount();
    if (Index < 0) return RangesModified();
    if (!WasDeleted && PartnerOf(Channel).GetVector()) {
        for (int k = old; k < FPointsCount; ++k) CalcValue(PartnerOf(Channel), k);
        for (int k = old; k < FPointsCount - 1; ++k) CalcValue(Channel, k);
        for (int k = old; k < FPointsCount - 1; ++k) CalculatePoint(k);
    }
    if (Index > FPointsCount) return;
    if (WasDeleted) return RangesModified();
    CalcValue(Channel, Index);
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
    if (FPointsCount > 0 && (FX.IsEmpty() || FY.IsEmpty()) && FScannedCount != FPointsCount) return true;
    return BreaksAtGaps() && FScannedCount >= 0 && FScannedScaling != Scaling();
}

bool TKxSeries::RefreshExtents() {
    SetPointsCount();
    if (!ExtentsAreStale()) return false;
    FScannedCount = FPointsCount;
    FScannedScaling = Scaling();
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
    PlacePoints();
    UpdateChildren(std::exchange(FPointsDirty, false));
}

void TKxSeries::PlacePoints() {
    if (GetXData() && GetYData() && GetXAxis() && GetYAxis())
        CalculateAllPoints();
    else
        FPointsCount = 0;
}

// Calls no child's calculation and thus no handler, which could change the data again.
void TKxSeries::KeepShown() {
    RefreshExtents();
    PlacePoints();
    FPointsDirty = FRangesModified = false;
    FChildrenScaling = Scaling();
    for (TKxSeries* child : FChildren) child->KeepShown();
}

// Children come after their parent here, and before it in the next round: those that this changed are brought
// up to date at once, so that the frame is settled when no axis moves.
void TKxSeries::UpdateChildren(bool PassOn) {
    const TComponentRef<TKxSeries> self(this);
    if (FRangesModified || FChildrenScaling != Scaling()) RecalculateChilds();
    if (!self) return;
    ForItems(&TKxCalculatedItem::CalculateLine);
    if (!self) return;
    ForChildren([PassOn](TKxSeries* Child) {
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
    if (Index < 0 || Index >= FPointsCount || !GetXAxis() || !GetYAxis()) return;
    *FPoints.GetPointer(Index) = {FX.PixelOf(Index), FY.PixelOf(Index)};
    if (BreaksAtGaps()) MarkGaps(Index, Index + 1);
}

void TKxSeries::CalculateAllPoints() {
    if (FPointsCount == 0) return;
    const std::span points(FPoints.GetPointer(0), std::size_t(FPointsCount));
    FX.PlaceAll(points);
    FY.PlaceAll(points);
    if (BreaksAtGaps()) MarkGaps(0, FPointsCount);
}

void TKxSeries::MarkGaps(int First, int Last) {
    const auto x = GetXData()->Values(), y = GetYData()->Values();
    const TKxAxScaling scalingX = FX.GetScaling(), scalingY = FY.GetScaling();
    TPoint* points = FPoints.GetPointer(0);
    for (auto i = std::size_t(First); i < std::size_t(Last); ++i)
        if (!kx::HasPlace(scalingX, x[i]) || !kx::HasPlace(scalingY, y[i])) points[i].X = CNoPixel;
}

} // namespace kx
