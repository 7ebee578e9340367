#include <kxgraph/graph/Kxaxislabels.h>

#include <algorithm>
#include <cstddef>

namespace kx {

void TKxAxisLabels::Clear() {
    FRecs.clear();
    FWidest = FHeight = 0;
}

// A layout measures the same labels several times, and so does the next one as a rule.
void TKxAxisLabels::Add(const std::string& Text, TCanvas& Canvas) {
    const std::size_t index = FRecs.size();
    if (index == FWidths.size()) FWidths.emplace_back();
    auto& [text, width] = FWidths[index];
    if (text != Text) width = MeasureCaption(ParseCaption(Text), Canvas);
    text = Text;
    FRecs.emplace_back();
    FRecs.back().Text = Text;
    FRecs.back().Width = width;
    FRecs.back().Paint = true;
    FWidest = std::max(FWidest, width);
}

void TKxAxisLabels::Measure(const TKxTicks& Ticks, TCanvas& Canvas) {
    Clear();
    FHeight = Canvas.TextHeight("10");
    FRecs.reserve(Ticks.Labels.size() + 1);
    for (const auto& label : Ticks.Labels) Add(label.Text, Canvas);
    if (!Ticks.ExponentLabel.empty()) Add(Ticks.ExponentLabel, Canvas);
}

void TKxAxisLabels::ThinOut(TKxTicks& Ticks, TKxSide Side) {
    std::vector<TKxLabelExtent> extents;
    for (std::size_t i = 0; i < Ticks.Labels.size(); ++i)
        extents.push_back({Ticks.Labels[i].Position, Side.Along(SizeOf(FRecs[i]))});
    const int anchor = AnchorLabel(Ticks.Labels);
    const int stride = LabelStride(extents, Side.IsHorizontal() ? FHeight / 2 : 1, anchor);
    std::vector<TKxTickLabel> labels;
    std::vector<TKxCaptionRec> recs;
    for (std::size_t i = 0; i < FRecs.size(); ++i) {
        const bool isTick = i < Ticks.Labels.size();
        if (isTick && !IsKeptLabel(static_cast<int>(i), anchor, stride)) continue;
        if (isTick) labels.push_back(std::move(Ticks.Labels[i]));
        recs.push_back(std::move(FRecs[i]));
    }
    Ticks.Labels = std::move(labels);
    FRecs = std::move(recs);
}

void TKxAxisLabels::MeasureReach(const TKxAxisLine& Line) {
    FStartReach = FStopReach = 0;
    const int begin = Line.Side.Along(Line.Origin), end = begin + Line.Length;
    for (const auto& rec : FRecs) {
        const int from = Line.Side.Along(TPoint{rec.X, rec.Y}), to = from + Line.Side.Along(SizeOf(rec));
        const int over[] = {begin - from + 1, to - end}; // at the left or upper end, and at the other one
        FStartReach = std::max(FStartReach, over[Line.Side.IsHorizontal() ? 0 : 1]);
        FStopReach = std::max(FStopReach, over[Line.Side.IsHorizontal() ? 1 : 0]);
    }
}

void TKxAxisLabels::Place(const TKxTicks& Ticks, const TKxAxisLine& Line, const TKxAxisLook& Look) {
    const auto put = [](TKxCaptionRec& Rec, TPoint At) { Rec.X = At.X, Rec.Y = At.Y; };
    for (std::size_t i = 0; i < Ticks.Labels.size(); ++i) {
        const TSize size = SizeOf(FRecs[i]);
        const int middle = Line.Side.Along(Line.PointAt(Ticks.Labels[i].Position, 0));
        put(FRecs[i], Line.PlaceOutwards(middle - Line.Side.Along(size) / 2, Look.LabelDistance(), size));
    }
    if (FRecs.size() > Ticks.Labels.size()) put(FRecs.back(), PlaceOfExponent(Line, Look));
}

// Beyond the last label along the axis, and ExponentScalingsGap further out than the labels; beside a
// vertical axis in the middle of their column.
TPoint TKxAxisLabels::PlaceOfExponent(const TKxAxisLine& Line, const TKxAxisLook& Look) const {
    const TSize size = SizeOf(FRecs.back());
    const TKxCaptionRec* last = FRecs.size() > 1 ? &FRecs[FRecs.size() - 2] : nullptr;
    const int distance = Look.LabelDistance() + Look.ExponentScalingsGap;
    if (Line.Side.IsHorizontal())
        return Line.PlaceOutwards(last ? last->X + last->Width : Line.Origin.X + Line.Length, distance, size);
    return Line.PlaceOutwards((last ? last->Y : Line.Origin.Y) - size.Height,
                              distance + (FWidest - size.Width) / 2, size);
}

void TKxAxisLabels::Paint(TCanvas& Canvas) {
    for (auto& rec : FRecs) {
        rec.Canvas = &Canvas;
        RichPaintTo(rec);
        rec.Canvas = nullptr;
    }
}

} // namespace kx
