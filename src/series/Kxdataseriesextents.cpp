// Extents and screen points, kept up to date value by value.

#include "series/Kxdataseries.h"
#include "series/Kxextents.h"

#include <algorithm>
#include <cmath>

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

namespace {

constexpr double CNothing = std::numeric_limits<double>::quiet_NaN();

} // namespace

void TKxSeries::GetNewXStartStop() {
    const auto values = FXData->Values();
    ScanExtents(FXRange, FXMinIndex, FXMaxIndex, XIdxNeeded(), [&](int i) {
        const double v = values[std::size_t(i)];
        return TakesPart(v, FXAxis) ? TInterval{v, v} : TInterval{CNothing, CNothing};
    });
    Modified();
}

void TKxSeries::GetNewYStartStop() {
    const auto values = FYData->Values();
    ScanExtents(FYRange, FYMinIndex, FYMaxIndex, YIdxNeeded(), [&](int i) {
        const double v = values[std::size_t(i)];
        return TakesPart(v, FYAxis) ? TInterval{v, v} : TInterval{CNothing, CNothing};
    });
    Modified();
}

void TKxSeries::CalcXValue(int Index) {
    const double v = FXData->GetValue(Index);
    const TInterval value = TakesPart(v, FXAxis) ? TInterval{v, v} : TInterval{CNothing, CNothing};
    UpdateExtents(FXRange, FXMinIndex, FXMaxIndex, Index, value, [this] { GetNewXStartStop(); });
}

void TKxSeries::CalcYValue(int Index) {
    const double v = FYData->GetValue(Index);
    const TInterval value = TakesPart(v, FYAxis) ? TInterval{v, v} : TInterval{CNothing, CNothing};
    UpdateExtents(FYRange, FYMinIndex, FYMaxIndex, Index, value, [this] { GetNewYStartStop(); });
}

void TKxSeries::FOnXIChanged(int Index, bool WasDeleted) {
    FRangesModified = true;
    const int old = FPointsCount;
    SetPointsCount();
    if (Index < 0) return RangesModified();
    if (!WasDeleted && FYData) {
        for (int k = old; k < FPointsCount; ++k) CalcYValue(k);
        for (int k = old; k < FPointsCount - 1; ++k) CalcXValue(k);
        for (int k = old; k < FPointsCount - 1; ++k) CalculatePoint(k);
    }
    if (Index > FPointsCount) return;
    if (WasDeleted) return RangesModified();
    CalcXValue(Index);
    CalculatePoint(Index);
    InvalidateWorld();
}

void TKxSeries::FOnYIChanged(int Index, bool WasDeleted) {
    FRangesModified = true;
    const int old = FPointsCount;
    SetPointsCount();
    if (Index < 0) return RangesModified();
    if (!WasDeleted && FXData) {
        for (int k = old; k < FPointsCount; ++k) CalcXValue(k);
        for (int k = old; k < FPointsCount - 1; ++k) CalcYValue(k);
        for (int k = old; k < FPointsCount - 1; ++k) CalculatePoint(k);
    }
    if (Index > FPointsCount) return;
    if (WasDeleted) return RangesModified();
    CalcYValue(Index);
    CalculatePoint(Index);
    InvalidateWorld();
}

void TKxSeries::FOnWeightChanged(int, bool) {
    FRangesModified = true;
    InvalidateWorld();
}

bool TKxSeries::NeedsCalculation() const {
    const bool complete = FXAxis && FYAxis && FXData && FYData;
    return complete && (FPointsDirty || (FRangesModified && !FChildren.empty()));
}

// Plain vectors tell nobody of their values, so a count that was never scanned is stale too; so are extents
// that a change of scaling would have made otherwise.
bool TKxSeries::ExtentsAreStale() const {
    if (FChildModified) return true;
    const bool empty = FXRange.GetStart() > FXRange.GetStop() || FYRange.GetStart() > FYRange.GetStop();
    if (FPointsCount > 0 && empty && FScannedCount != FPointsCount) return true;
    return BreaksAtGaps() && FScannedCount >= 0 &&
           (FScannedLogX != (FXAxis->GetScaling() != AxNormal) ||
            FScannedLogY != (FYAxis->GetScaling() != AxNormal));
}

void TKxSeries::CalculatePoints() {
    if (!FXData || !FYData || !FXAxis || !FYAxis) {
        FPointsCount = 0;
        return;
    }
    SetPointsCount();
    if (ExtentsAreStale()) {
        FScannedCount = FPointsCount;
        FScannedLogX = FXAxis->GetScaling() != AxNormal;
        FScannedLogY = FYAxis->GetScaling() != AxNormal;
        GetNewXStartStop();
        GetNewYStartStop();
        Modified();
        FChildModified = false;
        FRangesModified = true;
        if (auto* graph = GetGraph()) graph->Modified();
        return;
    }
    if (FRangesModified) RecalculateChilds();
    for (TKxSeries* child : FChildren) {
        if (auto* item = dynamic_cast<TKxCalculatedItem*>(child)) item->CalculateLine();
        child->Modified();
    }
    CalculateAllPoints();
    FPointsDirty = false;
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
