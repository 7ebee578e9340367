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
    if (FMirrorOf) MirrorTicks(); // which may be later ones
    if (!GetVisible()) return;
    if (FLook.ThinLabels || FTicks.MustThin) {
        FLabels.ThinOut(FTicks, FLine.Side);
        FLabels.Place(FTicks, FLine, FLook);
    }
    PlaceCaptionLabel();
}

void TKxAxis::MakeMap() {
    FMap =
        TKxAxisMap::Make(GetScaling(), FRange.Ends(), FLine.Length, GetOrientation(), GetOriginal().FTwisted);
    FNeedsTicks = false;
}

void TKxAxis::MeasureTicks() {
    MakeMap();
    DressCaptionLabel();
    MakeTicks();
}

// Steps that have a ladder are made coarser until their labels are apart.
void TKxAxis::MakeTicks() {
    if (FMirrorOf) return MirrorTicks();
    const auto* host = GetAxisHost();
    TKxTickOptions options{.Side = FLine.Side,
                           .ShowScaleLabels = FLook.ShowScaleLabels,
                           .ZeroOrigin = host && host->GetZeroOrigin()};
    do {
        FTicks = FRange.Labelling().CalculateTicks(FRange.Ends(), FMap, options);
        if (!GetVisible()) return; // the ticks still serve the grid
        ArrangeLabels();
        ++options.Coarseness;
    } while (FTicks.CanBeCoarser && FLabels.Touch(FTicks, FLine.Side));
}

void TKxAxis::MirrorTicks() {
    FTicks = GetOriginal().FTicks;
    FTicks.Labels.clear();
    FTicks.ExponentLabel.clear();
    MoveTicks(FTicks, FMap, FLine.Side);
    FLabels.Clear();
    PlaceLabels();
}

void TKxAxis::ArrangeLabels() {
    FLabels.Clear();
    if (FLook.ShowScaleLabels) {
        GetCanvas().Font.Assign(GetFont());
        FLabels.Measure(FTicks, GetCanvas());
    }
    PlaceLabels();
    if (!FTicks.MayTurn || FTicks.CanBeCoarser) return;
    constexpr int CMostOfGraph = 3;
    const TSize graph = GetParent() ? GetParent()->GetBoundsRect().Size() : GetBoundsRect().Size();
    if (FLine.Side.IsHorizontal() && FLabels.Touch(FTicks, FLine.Side)) FLabels.Turn();
    FLabels.CutOff(FLine.Side, FLine.Side.Across(graph) / CMostOfGraph, GetCanvas());
    PlaceLabels();
}

// How many decades, dates or categories have a label depends on the length; all other labels only move.
void TKxAxis::FitTicks() {
    if (!FNeedsTicks) return;
    if (FMirrorOf || FRange.Labelling().GoesByLength(GetScaling())) return MeasureTicks();
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
