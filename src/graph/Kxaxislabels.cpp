#include <kxgraph/graph/Kxaxislabels.h>

#include <algorithm>
#include <iterator>

namespace kx {

namespace {

int LinesOf(const TKxTickLabel& Label) { return 1 + static_cast<int>(Label.More.size()); }

int RecsOf(const TKxTicks& Ticks) {
    int count = 0;
    for (const auto& label : Ticks.Labels) count += LinesOf(label);
    return count;
}

/// The longest beginning of a caption that is no wider, in plain text and with an ellipsis.
TKxCaption CutCaption(const TKxCaption& Caption, int Width, TCanvas& Canvas) {
    const std::string plain = GetStrippedString(Caption);
    const auto cut = [&](std::size_t Length) { return EscapeCaption(plain.substr(0, Length) + "\u2026"); };
    std::size_t fitting = 0, tooLong = plain.size();
    while (tooLong - fitting > 1) {
        const std::size_t middle = (fitting + tooLong) / 2;
        (MeasureCaption(ParseCaption(cut(middle)), Canvas) <= Width ? fitting : tooLong) = middle;
    }
    while (fitting > 0 && (plain[fitting] & 0xC0) == 0x80) --fitting; // not inside of a character
    return cut(fitting);
}

} // namespace

void TKxAxisLabels::Clear() {
    FRecs.clear();
    FWidest = FHeight = FMostLines = 0;
    FIsTurned = false;
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
    FMostLines = 1;
    FRecs.reserve(static_cast<std::size_t>(RecsOf(Ticks)) + 1);
    for (const auto& label : Ticks.Labels) {
        Add(label.Text, Canvas);
        for (const auto& line : label.More) Add(line, Canvas);
        FMostLines = std::max(FMostLines, LinesOf(label));
    }
    if (!Ticks.ExponentLabel.empty()) Add(Ticks.ExponentLabel, Canvas);
}

void TKxAxisLabels::CutOff(TKxSide Side, int MostAcross, TCanvas& Canvas) {
    if (ExtentAcross(Side) <= MostAcross) return;
    FWidest = 0;
    for (auto& rec : FRecs) {
        if (Side.Across(SizeOf(rec)) > MostAcross) {
            rec.Text = CutCaption(rec.Text, MostAcross, Canvas);
            rec.Width = MeasureCaption(ParseCaption(rec.Text), Canvas);
        }
        FWidest = std::max(FWidest, rec.Width);
    }
}

TRect TKxAxisLabels::RectOf(const TKxCaptionRec& Rec) const {
    const TSize size = SizeOf(Rec);
    return TRect::Bounds(Rec.X, Rec.Y - (FIsTurned ? size.Height : 0), size.Width, size.Height);
}

void TKxAxisLabels::Put(TKxCaptionRec& Rec, TPoint TopLeft) const {
    Rec.X = TopLeft.X;
    Rec.Y = TopLeft.Y + (FIsTurned ? Rec.Width : 0); // where the first letter begins
    Rec.Angle = FIsTurned ? 900 : 0;
}

// The first line stands beside the tick, whatever follows it: outwards, or above where that leads along the
// axis. Below, those of the lowest tick would stand among the labels of another axis.
TKxLabelExtent TKxAxisLabels::ExtentAlong(const TKxTickLabel& Label, std::size_t FirstRec,
                                          TKxSide Side) const {
    const int lines = LinesOf(Label);
    int widest = 0;
    for (int k = 0; k < lines; ++k)
        widest = std::max(widest, FRecs[FirstRec + static_cast<std::size_t>(k)].Width);
    return {Side.FromStart(0, Label.Position) - Side.Along(TSize{0, (lines - 1) * FHeight}) / 2,
            Side.Along(Turned({widest, lines * FHeight}))};
}

void TKxAxisLabels::ThinOut(TKxTicks& Ticks, TKxSide Side) {
    if (FMostLines > 1 && !Touch(Ticks, Side)) return; // a long line may stand beside a free one
    std::vector<TKxLabelExtent> extents;
    std::vector<std::size_t> firsts;
    std::size_t rec = 0;
    for (const auto& label : Ticks.Labels) {
        extents.push_back(ExtentAlong(label, rec, Side));
        firsts.push_back(rec);
        rec += static_cast<std::size_t>(LinesOf(label));
    }
    firsts.push_back(rec);
    const int anchor = AnchorLabel(Ticks.Labels);
    const int stride = LabelStride(extents, MinGap(Side), anchor);
    std::vector<TKxTickLabel> labels;
    std::vector<TKxCaptionRec> recs;
    const auto take = [&](std::size_t From, std::size_t To) {
        std::move(FRecs.begin() + std::ptrdiff_t(From), FRecs.begin() + std::ptrdiff_t(To),
                  std::back_inserter(recs));
    };
    for (std::size_t i = 0; i < Ticks.Labels.size(); ++i) {
        if (!IsKeptLabel(static_cast<int>(i), anchor, stride)) continue;
        labels.push_back(std::move(Ticks.Labels[i]));
        take(firsts[i], firsts[i + 1]);
    }
    take(rec, FRecs.size()); // the exponent
    Ticks.Labels = std::move(labels);
    FRecs = std::move(recs);
}

bool TKxAxisLabels::Touch(const TKxTicks& Ticks, TKxSide Side) const {
    struct TLine {
        TRect Rect; ///< with the gap behind it
        std::size_t Label;
    };
    std::vector<TLine> lines;
    const TSize gap = Side.Size(MinGap(Side), 0);
    for (std::size_t label = 0; label < Ticks.Labels.size(); ++label)
        for (int k = 0; k < LinesOf(Ticks.Labels[label]); ++k) {
            const TRect rect = RectOf(FRecs[lines.size()]);
            const TSize size = rect.Size();
            lines.push_back(
                {TRect::Bounds(rect.Left, rect.Top, size.Width + gap.Width, size.Height + gap.Height),
                 label});
        }
    const auto begin = [&](const TLine& Line) { return Side.Along(Line.Rect.TopLeft()); };
    const auto end = [&](const TLine& Line) { return begin(Line) + Side.Along(Line.Rect.Size()); };
    std::ranges::sort(lines, {}, begin);
    for (auto line = lines.begin(); line != lines.end(); ++line)
        for (auto other = line + 1; other != lines.end() && begin(*other) < end(*line); ++other)
            if (other->Label != line->Label && !other->Rect.Intersected(line->Rect).IsEmpty()) return true;
    return false;
}

void TKxAxisLabels::MeasureReach(const TKxAxisLine& Line) {
    FStartReach = FStopReach = 0;
    const int begin = Line.Side.Along(Line.Origin), end = begin + Line.Length;
    for (const auto& rec : FRecs) {
        const TRect rect = RectOf(rec);
        const int from = Line.Side.Along(rect.TopLeft()), to = from + Line.Side.Along(rect.Size());
        const int over[] = {begin - from + 1, to - end}; // at the left or upper end, and at the other one
        FStartReach = std::max(FStartReach, over[Line.Side.IsHorizontal() ? 0 : 1]);
        FStopReach = std::max(FStopReach, over[Line.Side.IsHorizontal() ? 1 : 0]);
    }
}

// The middle of a text along the axis stays, of any other one the edge towards the axis: at the exact place
// of the tick.
static TKxCaptionAnchor AnchorOf(const TKxTickLabel& Label, const TKxAxisLine& Line, int Width,
                                 bool IsTurned) {
    const TKxSide side = Line.Side;
    const TRealPoint apart = Line.PlaceAt(Label.Place, 0) - TRealPoint(Line.PointAt(Label.Position, 0));
    const double along = side.IsHorizontal() ? apart.X : apart.Y;
    if (side.IsHorizontal() == IsTurned)
        return {(side.Outward() > 0) == IsTurned ? 1.0 : 0.0, side.Place(along, 0)};
    return {0.5, side.Place(along + (Width % 2 == 0 ? 0.5 : 0), 0)}; // the middle of the tick's pixel
}

void TKxAxisLabels::Place(const TKxTicks& Ticks, const TKxAxisLine& Line, const TKxAxisLook& Look) {
    std::size_t i = 0;
    for (const auto& label : Ticks.Labels) {
        const int tick = Line.Side.Along(Line.PointAt(label.Position, 0));
        for (int k = 0; k < LinesOf(label); ++k, ++i) {
            const TSize size = SizeOf(FRecs[i]), shift = Turned({0, k * FHeight});
            const int along = tick - Line.Side.Along(size) / 2 - Line.Side.Along(shift);
            Put(FRecs[i], Line.PlaceOutwards(along, Look.LabelDistance() + Line.Side.Across(shift), size));
            FRecs[i].Anchor = AnchorOf(label, Line, FRecs[i].Width, FIsTurned);
        }
    }
    if (i < FRecs.size()) Put(FRecs.back(), PlaceOfExponent(Line, Look));
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
