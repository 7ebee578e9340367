// Extents and screen points, kept up to date value by value.

#include <kxgraph/series/Kxseries.h>

#include <kxgraph/platform/drawing/reduction.h>

#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <utility>

namespace kx {

void TKxSeries::SetPointsCount() {
    FPointsCount = std::min(FX.GetCount(), FY.GetCount());
    if (KeepsPoints()) FPoints.SetCount(FPointsCount);
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
    TKxExtentScan scan(GetLeastExtent(Channel));
    if (!GoesByValues() || !scan.TakeEnds(Channel, Count, ScalingOfGaps(Channel)))
        for (int first = 0; first < Count; first += CPointsAtOnce) {
            std::array<TKxInterval, CPointsAtOnce> intervals;
            const auto block =
                std::span(intervals).first(std::size_t(std::min(CPointsAtOnce, Count - first)));
            GetIntervals(Channel, first, block);
            scan.Take(first, block);
            PointsTouched += block.size();
        }
    scan.StoreIn(Channel);
    Modified();
}

TKxChannel::TTaken TKxSeries::TakeInterval(TKxChannel& Channel, int Index) {
    TKxInterval interval;
    GetIntervals(Channel, Index, {&interval, 1});
    return Channel.Take(Index, interval.Low, interval.High);
}

void TKxSeries::TakeValue(TKxChannel& Channel, int Index) {
    if (Index >= Channel.GetCount()) return;
    const bool byValues = GoesByValues();
    if (byValues && Channel.Holds(Index)) return;
    const double value = Channel.GetValue(Index);
    const auto taken = byValues && TakesPart(value, Channel) ? Channel.Take(Index, value, value)
                                                             : TakeInterval(Channel, Index);
    if (taken == TKxChannel::TTaken::MovedInward) return GetNewStartStop(Channel);
    // An axis that moves has the points placed anew; they alone are touched where it does not.
    if (taken == TKxChannel::TTaken::Wider && (!byValues || !FChildren.empty())) Modified();
}

void TKxSeries::CalcValue(const TKxChannel& Channel, int Index) {
    &Channel == &FX ? CalcXValue(Index) : CalcYValue(Index);
}

void TKxSeries::GetNewStartStop(const TKxChannel& Channel) {
    &Channel == &FX ? GetNewXStartStop() : GetNewYStartStop();
}

void TKxSeries::ValueChanged(TKxChannel& Channel, int Index, bool WasDeleted) {
    DataChanged(Channel.GetVector());
    if (Channel.WasInserted(Index, WasDeleted)) return RangesModified();
    FRangesModified = true;
    const int old = FPointsCount;
    SetPointsCount();
    const bool byValues = GoesByValues();
    const bool placed = !byValues || (FPlacing.Count >= 0 && FollowChange(Channel));
    if (Index < 0) return RangesModified();
    if (!WasDeleted && FPointsCount > old) TakeNew(Channel, old, placed, byValues);
    if (Index > FPointsCount) return;
    if (WasDeleted) return RangesModified();
    CalcValue(Channel, Index);
    if (placed) CalculatePoint(Index);
    if (const auto* graph = GetGraph(); !graph || !graph->AwaitsPaint()) InvalidateNew(old, Index);
}

// Of the points from Old on, that newly came into being, all but the value that is told of. The other vector
// has told of its values as a rule, before they were points.
void TKxSeries::TakeNew(TKxChannel& Channel, int Old, bool Placed, bool ByValues) {
    const TKxChannel& partner = PartnerOf(Channel);
    const int end = FPointsCount;
    for (int k = Old; k < end; ++k)
        if (!ByValues || !partner.Holds(k)) CalcValue(partner, k);
    for (int k = Old; k < end - 1; ++k) CalcValue(Channel, k);
    for (int k = Old; Placed && k < end - 1; ++k) CalculatePoint(k);
}

// A point that is new at the end, after Count others, touches the picture where it and the line to it stand;
// one whose partner is not there yet touches nothing. The window keeps the rest.
void TKxSeries::InvalidateNew(int Count, int Index) {
    if (FPointsDirty || Index < Count || !GoesByValues() || !FChildren.empty() || !FDrawingWorld ||
        !IsBound())
        return InvalidateWorld();
    if (FPointsCount == Count) return;
    TRect touched;
    for (int i = std::max(0, Count - 1); i < FPointsCount; ++i) {
        const TPoint at{FX.PixelOf(i) + OriginX(), FY.PixelOf(i) + OriginY()};
        if (!IsPlaced(at)) return InvalidateWorld();
        touched = touched.United(TRect::Bounds(at.X, at.Y, 1, 1));
    }
    const int reach = DrawnReach(), height = FDrawingWorld->GetHeight();
    if (FAreaStyle.GetVisible())
        touched = {touched.Left, std::min(touched.Top, 0), touched.Right, std::max(touched.Bottom, height)};
    FDrawingWorld->InvalidatePart(
        {touched.Left - reach, touched.Top - reach, touched.Right + reach, touched.Bottom + reach});
}

// Points that were placed for the values before a change that is told of need no more than what it tells.
bool TKxSeries::FollowChange(const TKxChannel& Channel) {
    std::uint64_t& version = &Channel == &FX ? FPlacing.VersionX : FPlacing.VersionY;
    if (version + 1 != Channel.GetVector()->GetVersion()) return false;
    ++version;
    FPlacing.Count = FPointsCount;
    return true;
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
// Every frame comes by here, so that a form is watched, too, that was read before it was designed.
void TKxSeries::CalculatePoints() {
    if (IsIn(csDesigning) && !FOrderWatch)
        FOrderWatch = std::make_unique<TKxOrderWatch>(*this, TEvent<>::Of<&TKxSeries::OrderChanged>(this));
    if (RefreshExtents()) return; // the axes may move: the points are computed in the next round
    PlacePoints();
    UpdateChildren(std::exchange(FPointsDirty, false));
}

TKxPlacing TKxSeries::PresentPlacing() const {
    return {GetXAxis()->GetMap(),     GetYAxis()->GetMap(), GetXData()->GetVersion(),
            GetYData()->GetVersion(), FPointsCount,         BreaksAtGaps()};
}

bool TKxSeries::IsBound() const { return GetXData() && GetYData() && GetXAxis() && GetYAxis(); }

// A series that goes by its values places points when they are asked for, as they are by a line that cannot
// be kept; only that keeps room for them.
void TKxSeries::PlacePoints() {
    if (!IsBound())
        FPointsCount = 0;
    else if (!GoesByValues())
        CalculateAllPoints();
    else if (FPlacing.Count < 0 || FPlacing == PresentPlacing())
        return;
    else if (DrawsLine() && !(MayKeepLine() && IsSorted(FX, FPointsCount)))
        FPlacing = {};
    else
        ForgetPoints();
}

bool TKxSeries::MayKeepLine() const {
    const bool isSolid = !FLineStyle.GetVisible() || FLineStyle.GetStyle() == psSolid;
    return GoesByValues() && isSolid && FPointsCount >= CReductionThreshold;
}

bool TKxSeries::KeepsLine() {
    return MayKeepLine() && FKept.Keep(FX, FY, PresentPlacing(), WorldStretch(FLineStyle.GetWidth() + CAir));
}

bool TKxSeries::KeepsFineLine(int ColumnsPerPixel) {
    if (!MayKeepLine()) return false;
    if (!FFineKept || FFineKept->GetColumnsPerPixel() != ColumnsPerPixel)
        FFineKept = std::make_unique<TKxKeptLine>(ColumnsPerPixel);
    return FFineKept->Keep(FX, FY, PresentPlacing(), WorldStretch(FLineStyle.GetWidth() + CAir));
}

TKxStretch TKxSeries::WorldStretch(int Reach) const {
    return {-Reach, GetDrawingWorld()->GetWidth() + Reach};
}

void TKxSeries::ForgetPoints() const {
    FPlacing = {};
    FPoints = TKxPointVector();
}

void TKxSeries::PlaceAll() const {
    if (FPlacing.Count >= 0 && FPlacing == PresentPlacing()) return;
    FPlacing = {};
    FPoints.SetCount(FPointsCount);
    if (FPointsCount > 0) PlaceBlock(0, {FPoints.GetPointer(0), std::size_t(FPointsCount)});
    FPlacing = PresentPlacing();
}

const TKxPointVector& TKxSeries::GetPoints() const {
    if (GoesByValues() && IsBound() && FPointsCount <= std::min(FX.GetCount(), FY.GetCount())) PlaceAll();
    return FPoints;
}

void TKxSeries::PointsFrom(int First, std::span<TPoint> Points) const {
    const auto known = FPoints.Values();
    const std::size_t end = std::size_t(First) + Points.size();
    if (!GoesByValues() || (FPlacing.Count >= 0 && IsBound() && FPlacing == PresentPlacing()))
        std::ranges::copy(known.subspan(std::size_t(First), Points.size()), Points.begin());
    else if (IsBound() && end <= std::size_t(std::min(FX.GetCount(), FY.GetCount())))
        PlaceBlock(First, Points);
    else
        std::ranges::fill(Points, TPoint{CNoPixel, CNoPixel});
}

void TKxSeries::PlacesFrom(int First, std::span<TRealPoint> Places) const {
    const bool areThere = IsBound() && std::size_t(First) + Places.size() <=
                                           std::size_t(std::min(FX.GetCount(), FY.GetCount()));
    if (areThere) {
        FX.Place(First, Places);
        FY.Place(First, Places);
        if (BreaksAtGaps()) MarkGaps(First, Places);
    } else {
        std::ranges::fill(Places, CNoPlace);
    }
    if (GoesByValues()) return;
    const TPoint* known = FPoints.Values().data() + First;
    for (TRealPoint& place : Places) {
        if (RoundToPixel(place) != *known) place = IsPlaced(*known) ? TRealPoint(*known) : CNoPlace;
        ++known;
    }
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
    if (Index >= 0 && Index < FPointsCount && IsBound()) PlaceBlock(Index, {FPoints.GetPointer(Index), 1});
}

void TKxSeries::CalculateAllPoints() {
    if (FPointsCount > 0) PlaceBlock(0, {FPoints.GetPointer(0), std::size_t(FPointsCount)});
}

void TKxSeries::PlaceBlock(int First, std::span<TPoint> Points) const {
    FX.Place(First, Points);
    FY.Place(First, Points);
    if (BreaksAtGaps()) MarkGaps(First, Points);
}

namespace {

void TakeAway(TPoint& Point) { Point.X = CNoPixel; }
void TakeAway(TRealPoint& Point) { Point = CNoPlace; }

} // namespace

template <class P>
void TKxSeries::MarkGaps(int First, std::span<P> Points) const {
    const double *x = GetXData()->Values().data() + First, *y = GetYData()->Values().data() + First;
    const TKxAxScaling scalingX = FX.GetScaling(), scalingY = FY.GetScaling();
    for (std::size_t i = 0; i < Points.size(); ++i)
        if (!kx::HasPlace(scalingX, x[i]) || !kx::HasPlace(scalingY, y[i])) TakeAway(Points[i]);
}

} // namespace kx
