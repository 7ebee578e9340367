// The layout of an axis: ticks are made, labels measured and placed; on a graph in the steps of its layout
// pass, else in the bounds of the axis alone.

#include <kxgraph/graph/Kxaxis.h>

#include <algorithm>

namespace kx {

void TKxAxis::CalculateTicks() {
    MeasureTicks();
    FinishTicks();
}

void TKxAxis::FinishTicks() {
    FitTicks();
    if (!GetVisible()) return;
    if (FLook.ThinLabels) {
        FLabels.ThinOut(FTicks, FLine.Side);
        FLabels.Place(FTicks, FLine, FLook);
    }
    PlaceCaptionLabel();
}

void TKxAxis::MakeMap() {
    FMap = TKxAxisMap::Make(GetScaling(), FRange.Ends(), FLine.Length, GetOrientation(), FTwisted);
    FNeedsTicks = false;
}

void TKxAxis::MeasureTicks() {
    MakeMap();
    const auto* host = GetAxisHost();
    FTicks = kx::CalculateTicks(FRange.Ends(), FMap,
                                {.Side = FLine.Side,
                                 .ShowScaleLabels = FLook.ShowScaleLabels,
                                 .ZeroOrigin = host && host->GetZeroOrigin()});
    DressCaptionLabel();
    if (!GetVisible()) return; // the ticks still serve the grid
    FLabels.Clear();
    if (FLook.ShowScaleLabels) {
        GetCanvas().Font.Assign(GetFont());
        FLabels.Measure(FTicks, GetCanvas());
    }
    PlaceLabels();
}

// How many decades have a label depends on the length; all other labels only move.
void TKxAxis::FitTicks() {
    if (!FNeedsTicks) return;
    if (GetScaling() != AxNormal) return MeasureTicks();
    MakeMap();
    MoveTicks(FTicks, FMap, FLine.Side);
    if (GetVisible()) PlaceLabels();
}

void TKxAxis::PlaceLabels() {
    FLabels.Place(FTicks, FLine, FLook);
    FLabels.MeasureReach(FLine);
}

TKxLayoutAxis TKxAxis::GetLayoutAxis() const {
    TKxLayoutAxis axis;
    axis.Side = FLine.Side;
    axis.Gap = FLook.ValuesTicksGap;
    axis.LineThickness = FLook.AxisThicknes;
    // One that is aligned is placed by its parent, not by the layout.
    axis.Fixed = !FLook.AutoSize || FLine.Side.IsFree() || GetAlign() != alNone;
    axis.Bounds = GetBoundsRect();
    const TKxAxisThickness thickness{.MajorTickLength = FLook.MajorTickLength,
                                     .BorderGap = FLook.BorderCaptionGap,
                                     .TicksGap = FLook.ScalingsTicksGap,
                                     .LabelExtent = FLabels.ExtentAcross(FLine.Side),
                                     .CaptionExtent = CaptionExtentAcross(),
                                     .CaptionGap = FLook.CaptionScalingsGap,
                                     .ExponentGap = FLook.ExponentScalingsGap,
                                     .Factored = FLook.ShowScaleLabels && GetUseScaleExponent()};
    axis.Thickness = thickness.Total() + FLook.ValuesTicksGap;
    axis.CaptionPart = thickness.CaptionPart();
    axis.StartReach = FLabels.GetStartReach();
    axis.StopReach = FLabels.GetStopReach();
    return axis;
}

// An axis that stands on no graph takes the length that its own bounds leave beside its labels. It begins
// with all of them, and shortens only: what it shows depends on nothing that was shown before.
void TKxAxis::LayOutAlone() {
    CalculateEnds();
    const TKxSide side = FLine.Side;
    const TRect bounds{0, 0, GetWidth(), GetHeight()};
    const int extent = std::max(1, side.Along(bounds.Size()) - 1);
    const int line = LineInside(bounds, side, FLook.AxisThicknes);
    int before = 0, behind = 0;
    constexpr int CRounds = 4;
    for (int round = 0; round < CRounds; ++round) {
        SetPlace(side.Point(side.IsHorizontal() ? before : behind, line),
                 std::max(0, extent - before - behind));
        round == 0 ? MeasureTicks() : FitTicks();
        if (FLabels.GetStartReach() <= before && FLabels.GetStopReach() <= behind) break;
        before = std::max(before, FLabels.GetStartReach());
        behind = std::max(behind, FLabels.GetStopReach());
    }
    FinishTicks();
    FChanged = false;
}

} // namespace kx
