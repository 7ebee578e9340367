// Tick labels, exponent label and caption: their texts come from Kxticks, here they are measured and placed.

#include <kxgraph/graph/Kxaxis.h>

#include <algorithm>
#include <cstdlib>

namespace kx {

namespace {

TFont& MeasuringFont(TCanvas& Canvas, const TFont& Font) {
    Canvas.Font.Assign(Font);
    return Canvas.Font;
}

} // namespace

/// The point so far from the axis's start and from its line.
TPoint TKxAxis::PointAt(int Offset, int Outwards) const {
    return FAxisOrigin + FSide.Point(FSide.FromStart(GetAxisLength(), Offset), FSide.Outward() * Outwards);
}

void TKxAxis::CalculateTicks() {
    MeasureTicks();
    FinishTicks();
}

void TKxAxis::FinishTicks() {
    FitTicks();
    if (!GetVisible()) return;
    if (FThinLabels) ThinOutLabels();
    PlaceCaptionLabel();
}

void TKxAxis::MeasureTicks() {
    FMap = TKxAxisMap::Make(FScaling, FEnds, FMap.AxisLength, GetOrientation(), FTwisted);
    FNeedsTicks = false;
    const auto* host = GetAxisHost();
    FTicks = kx::CalculateTicks(
        FEnds, FMap,
        {.Side = FSide, .ShowScaleLabels = FShowScaleLabels, .ZeroOrigin = host && host->GetZeroOrigin()});
    DressCaptionLabel();
    if (!GetVisible()) return; // the ticks still serve the grid
    MeasureLabels();
    PlaceLabels();
    MeasureReach();
}

// How many decades have a label depends on the length; all other labels only move.
void TKxAxis::FitTicks() {
    if (!FNeedsTicks) return;
    if (FScaling != AxNormal) return MeasureTicks();
    FMap = TKxAxisMap::Make(FScaling, FEnds, FMap.AxisLength, GetOrientation(), FTwisted);
    FNeedsTicks = false;
    MoveTicks(FTicks, FMap, FSide);
    if (!GetVisible()) return;
    PlaceLabels();
    MeasureReach();
}

// A layout measures the same labels several times, and so does the next one as a rule.
void TKxAxis::AddLabelRec(const std::string& Text) {
    const std::size_t index = FLabelRecs.size();
    if (index == FLabelWidths.size()) FLabelWidths.emplace_back();
    auto& [text, width] = FLabelWidths[index];
    if (text != Text) width = MeasureCaption(ParseCaption(Text), GetCanvas());
    text = Text;
    FLabelRecs.emplace_back();
    FLabelRecs.back().Text = Text;
    FLabelRecs.back().Width = width;
    FLabelRecs.back().Paint = true;
    FMaxLabelWidth = std::max(FMaxLabelWidth, width);
}

void TKxAxis::MeasureLabels() {
    FLabelRecs.clear();
    FMaxLabelWidth = FMaxLabelHeight = 0;
    if (!FShowScaleLabels) return;
    TCanvas& canvas = GetCanvas();
    MeasuringFont(canvas, GetFont());
    FMaxLabelHeight = canvas.TextHeight("10");
    FLabelRecs.reserve(FTicks.Labels.size() + 1);
    for (const auto& label : FTicks.Labels) AddLabelRec(label.Text);
    if (!FTicks.ExponentLabel.empty()) AddLabelRec(FTicks.ExponentLabel);
}

void TKxAxis::ThinOutLabels() {
    std::vector<TKxLabelExtent> extents;
    for (std::size_t i = 0; i < FTicks.Labels.size(); ++i)
        extents.push_back(
            {FTicks.Labels[i].Position, FSide.Along(TSize{FLabelRecs[i].Width, FMaxLabelHeight})});
    const int anchor = AnchorLabel(FTicks.Labels);
    const int stride = LabelStride(extents, IsHorizontal() ? FMaxLabelHeight / 2 : 1, anchor);
    std::vector<TKxTickLabel> labels;
    std::vector<TKxCaptionRec> recs;
    for (std::size_t i = 0; i < FLabelRecs.size(); ++i) {
        const bool isTick = i < FTicks.Labels.size();
        if (isTick && !IsKeptLabel(int(i), anchor, stride)) continue;
        if (isTick) labels.push_back(std::move(FTicks.Labels[i]));
        recs.push_back(std::move(FLabelRecs[i]));
    }
    FTicks.Labels = std::move(labels);
    FLabelRecs = std::move(recs);
    PlaceLabels();
}

// Before labels are thinned out: otherwise the length of the axis, the labels left and the margins that they
// need could follow one another without end.
void TKxAxis::MeasureReach() {
    FStartReach = FStopReach = 0;
    const int begin = FSide.Along(FAxisOrigin);
    for (const auto& rec : FLabelRecs) {
        const int from = FSide.Along(TPoint{rec.X, rec.Y});
        const int to = from + FSide.Along(TSize{rec.Width, FMaxLabelHeight});
        const int before = begin - from + 1, behind = to - (begin + GetAxisLength());
        FStartReach = std::max(FStartReach, IsHorizontal() ? before : behind);
        FStopReach = std::max(FStopReach, IsHorizontal() ? behind : before);
    }
}

int TKxAxis::LabelExtentAcross() const { return FSide.Across(TSize{FMaxLabelWidth, FMaxLabelHeight}); }

// Where the labels begin, counted from the axis line.
static int LabelDistance(const TKxAxis& Axis) {
    return std::abs(Axis.GetMajorTickLength()) + Axis.GetScalingsTicksGap();
}

/// The top left of what begins Along pixels along and reaches outwards from so far off the line.
TPoint TKxAxis::PlaceOutwards(int Along, int Outwards, TSize Size) const {
    const int from = FSide.Across(FAxisOrigin) + FSide.Outward() * Outwards;
    return FSide.Point(Along, FSide.LeastFrom(from, FSide.Across(Size)));
}

void TKxAxis::PlaceLabels() {
    const int distance = LabelDistance(*this);
    for (std::size_t i = 0; i < FTicks.Labels.size(); ++i) {
        auto& rec = FLabelRecs[i];
        const TSize size{rec.Width, FMaxLabelHeight};
        const int middle = FSide.Along(PointAt(FTicks.Labels[i].Position, 0));
        const TPoint place = PlaceOutwards(middle - FSide.Along(size) / 2, distance, size);
        rec.X = place.X;
        rec.Y = place.Y;
    }
    if (FLabelRecs.size() > FTicks.Labels.size()) PlaceExponentLabel();
}

// Beyond the last label along the axis, and ExponentScalingsGap further out than the labels; beside a
// vertical axis in the middle of their column.
void TKxAxis::PlaceExponentLabel() {
    auto& rec = FLabelRecs.back();
    const TKxCaptionRec* last = FLabelRecs.size() > 1 ? &FLabelRecs[FLabelRecs.size() - 2] : nullptr;
    const TSize size{rec.Width, FMaxLabelHeight};
    const int distance = LabelDistance(*this) + FExponentScalingsGap;
    TPoint place;
    if (IsHorizontal()) {
        place = PlaceOutwards(last ? last->X + last->Width : FAxisOrigin.X + GetAxisLength(), distance, size);
    } else {
        const int column = distance + (FMaxLabelWidth - rec.Width) / 2;
        place = PlaceOutwards((last ? last->Y : FAxisOrigin.Y) - size.Height, column, size);
    }
    rec.X = place.X;
    rec.Y = place.Y;
}

TKxLayoutAxis TKxAxis::GetLayoutAxis() const {
    TKxLayoutAxis axis;
    axis.Side = FSide;
    axis.Gap = FValuesTicksGap;
    axis.LineThickness = FAxisThicknes;
    // One that is aligned is placed by its parent, not by the layout.
    axis.Fixed = !FAutoSize || FSide.IsFree() || GetAlign() != alNone;
    axis.Bounds = GetBoundsRect();
    TKxAxisThickness thickness;
    thickness.MajorTickLength = FMajorTickLength;
    thickness.BorderGap = FBorderCaptionGap;
    thickness.TicksGap = FScalingsTicksGap;
    thickness.LabelExtent = LabelExtentAcross();
    thickness.CaptionExtent = CaptionExtentAcross();
    thickness.CaptionGap = FCaptionScalingsGap;
    thickness.ExponentGap = FExponentScalingsGap;
    thickness.Factored = FShowScaleLabels && FEnds.UseScaleExponent;
    axis.Thickness = thickness.Total() + FValuesTicksGap;
    axis.CaptionPart = thickness.CaptionPart();
    axis.StartReach = FStartReach;
    axis.StopReach = FStopReach;
    return axis;
}

void TKxAxis::UpdateCaptionLabel() {
    FCaptionLabel->SetCaption(FShowCaption && GetVisible() ? GetCaption() : TKxCaption());
}

int TKxAxis::CaptionExtentAcross() const {
    if (!FCaptionLabel->GetVisible() || FCaptionLabel->GetCaption().empty()) return 0;
    return FSide.Across(FCaptionLabel->GetBoundsRect().Size());
}

void TKxAxis::DressCaptionLabel() {
    FCaptionLabel->SetVisible(FShowCaption && GetVisible());
    if (!FCaptionLabel->GetVisible()) return;
    if (!FCaptionLabel->GetFont().Equals(FCaptionFont)) FCaptionLabel->SetFont(FCaptionFont);
    const int angle = IsHorizontal() ? 0 : 900;
    if (FCaptionLabel->GetAngle() != angle) FCaptionLabel->SetAngle(angle);
}

void TKxAxis::PlaceCaptionLabel() {
    if (!FCaptionLabel->GetVisible()) return;
    const TSize size = FCaptionLabel->GetBoundsRect().Size();
    const int labels = LabelDistance(*this) + LabelExtentAcross();
    const int distance = std::max(labels, FCaptionFrom) + FCaptionScalingsGap;
    const int middle = FSide.Along(FAxisOrigin) + (GetAxisLength() - FSide.Along(size)) / 2;
    const TPoint place = PlaceOutwards(middle, distance, size) + GetBoundsRect().TopLeft();
    FCaptionLabel->SetBounds(place.X, place.Y, size.Width, size.Height);
}

} // namespace kx
