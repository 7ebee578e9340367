#include <kxgraph/svg/Kxsvgdevice.h>

#include <kxgraph/platform/drawing/reduction.h>
#include <kxgraph/platform/drawing/simplification.h>
#include <kxgraph/platform/drawing/visible.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/text/files.h>

#include <algorithm>
#include <cmath>

namespace kx {

using namespace svg;

namespace {

bool IsHairline(const TStroke& Stroke) { return Stroke.Width <= 1; }
int LineWidth(const TStroke& Stroke) { return std::max(1, Stroke.Width); }

/// Dashes and gaps in line widths; empty for a solid line.
std::vector<int> Dashes(TPenStyle Style) {
    switch (Style) {
    case psDash: return {9, 3};
    case psDot: return {3, 3};
    case psDashDot: return {9, 3, 3, 3};
    case psDashDotDot: return {9, 3, 3, 3, 3, 3};
    default: return {};
    }
}

std::string StrokeStyle(const TStroke& Stroke) {
    if (Stroke.Style == psClear) return {};
    std::string style = Attribute("stroke", ColorToHtml(Stroke.Color));
    if (!IsHairline(Stroke)) style += Attribute("stroke-width", std::to_string(Stroke.Width));
    std::string dashes;
    for (int length : Dashes(Stroke.Style))
        dashes += (dashes.empty() ? "" : " ") + std::to_string(TCoord{length} * LineWidth(Stroke));
    if (!dashes.empty()) style += Attribute("stroke-dasharray", dashes);
    return style;
}

/// Lines and polygons turn with round joints: a mitre would stand out of dense data as a spike. RoundEnds
/// also makes a path of no length visible.
std::string JointedStyle(const TStroke& Stroke, bool RoundEnds) {
    if (Stroke.Style == psClear) return {};
    std::string style = StrokeStyle(Stroke) + Attribute("stroke-linejoin", "round");
    if (RoundEnds && Dashes(Stroke.Style).empty()) style += Attribute("stroke-linecap", "round");
    return style;
}

TSvgPoint HalfPixelBack(TSvgPoint From, TSvgPoint To) {
    const double dx = double(To.X - From.X), dy = double(To.Y - From.Y);
    const double longer = std::max(std::abs(dx), std::abs(dy));
    return {std::llround(-50 * dx / longer), std::llround(-50 * dy / longer)};
}

/// A raster paints the first pixel of a thin line and leaves out the last one: the stroke covers the same
/// length when both ends move back by half a pixel.
void LeaveOutLastPixel(TSvgLine& Line) {
    while (Line.size() > 1 && Line[Line.size() - 2] == Line.back()) Line.pop_back();
    const auto second = std::find_if(Line.begin(), Line.end(), [&Line](TSvgPoint P) { return P != Line[0]; });
    if (second == Line.end()) return Line.clear();
    const TSvgPoint first = HalfPixelBack(Line[0], *second);
    const TSvgPoint last = HalfPixelBack(Line[Line.size() - 2], Line.back());
    Line.front() = {Line.front().X + first.X, Line.front().Y + first.Y};
    Line.back() = {Line.back().X + last.X, Line.back().Y + last.Y};
}

/// Viewers take long for longer paths.
constexpr std::size_t CPathPoints = 2000;

TPathData PathOf(std::span<const TSvgPoint> Line) {
    TPathData path;
    path.MoveTo(Line.front());
    for (std::size_t i = 1; i < Line.size(); ++i) path.LineTo(Line[i]);
    return path;
}

std::string PathHead(const TPathData& Path) { return "<path" + Attribute("d", Path.Data()); }

/// A box in hundredths: the outline's path through the pixel centres, or the area of the pixels.
struct TBox {
    TCoord Left, Top, Right, Bottom;

    static TBox Area(const TRealRect& R) {
        return {EdgeOf(R.Left), EdgeOf(R.Top), EdgeOf(R.Right), EdgeOf(R.Bottom)};
    }
    TBox Shrunk(TCoord By) const { return {Left + By, Top + By, Right - By, Bottom - By}; }
    bool IsFlat() const { return Right <= Left || Bottom <= Top; }

    std::string RectHead() const {
        return "<rect" + Attribute("x", Number(Left)) + Attribute("y", Number(Top)) +
               Attribute("width", Number(Right - Left)) + Attribute("height", Number(Bottom - Top));
    }
    std::string EllipseHead() const {
        return "<ellipse" + Attribute("cx", Number((Left + Right) / 2)) +
               Attribute("cy", Number((Top + Bottom) / 2)) + Attribute("rx", Number((Right - Left) / 2)) +
               Attribute("ry", Number((Bottom - Top) / 2));
    }
};

/// How far the outline's path lies inside the area: half a pixel, under psInsideFrame half the line's width.
TCoord Inset(const TStroke& Stroke) {
    if (Stroke.Style == psClear) return 0;
    return Stroke.Style == psInsideFrame ? TCoord{LineWidth(Stroke)} * 50 : 50;
}

} // namespace

TSvgDevice::TSvgDevice(TSize Size, double Scale, std::optional<TColor> Ground)
    : FSize(Size), FScale(Scale), FWidth(Size.Width), FHeight(Size.Height), FGround(Ground) {
    if (FGround) FGround = ColorToRGB(*FGround);
}

void TSvgDevice::SetPage(double Width, double Height) {
    FWidth = std::max<double>(Width, FSize.Width);
    FHeight = std::max<double>(Height, FSize.Height);
}

int TSvgDevice::PixelsPerInch() const { return TApplication::Instance().GetHost().PixelsPerInch(); }

TSize TSvgDevice::MeasureText(const TFontFace& Face, std::string_view Text) const {
    return TApplication::Instance().GetHost().MeasureText(Face, Text);
}

TStroke TSvgDevice::Plain(TStroke Stroke) const {
    if (Stroke.Mode == pmXor) Stroke.Color = ColorToRGB(Stroke.Color) ^ FGround.value_or(clWhite);
    return Stroke;
}

TFill TSvgDevice::Plain(TFill Fill) const {
    if (Fill.Mode == pmXor) Fill.Color = ColorToRGB(Fill.Color) ^ FGround.value_or(clWhite);
    return Fill;
}

std::string TSvgDevice::FillStyle(const TFill& Fill) {
    std::string style = Attribute("fill", FBody.Paint(Plain(Fill)));
    if (Fill.Mode == pmXor && Fill.Style != bsClear) style += Attribute("fill-opacity", "0.5");
    return style;
}

TRect TSvgDevice::WindowFor(const TStroke& Stroke, int Margin) const {
    const int margin = Margin + std::clamp(Stroke.Width, 0, 1 << 20);
    return {-margin, -margin, FSize.Width + margin, FSize.Height + margin};
}

void TSvgDevice::SetClip(const std::optional<TRect>& Clip) {
    FClip.reset();
    if (!Clip) return;
    const TRect all{0, 0, FSize.Width, FSize.Height}, inside = Clip->Intersected(all);
    if (inside != all) FClip = inside;
}

void TSvgDevice::Stamps(TPointSpan Places, const TRecording& One) {
    const std::vector<TRealPoint> visible = VisiblePlaces(Places, One, FSize);
    if (const auto disc = DiscOf(One))
        AddDiscs(visible, *disc);
    else
        TCanvasDevice::Stamps(visible, One);
}

/// Paths of dots: a third of what as many circles would take.
void TSvgDevice::AddDiscs(std::span<const TRealPoint> Places, const TDisc& Disc) {
    if (IsHidden()) return;
    const std::string style = Attribute("fill", "none") + Attribute("stroke", ColorToHtml(Disc.Color)) +
                              Attribute("stroke-width", Decimal(Disc.Diameter)) +
                              Attribute("stroke-linecap", "round");
    for (; !Places.empty(); Places = Places.subspan(std::min(Places.size(), CDiscsTogether))) {
        TPathData path;
        for (const TRealPoint p : Places.first(std::min(Places.size(), CDiscsTogether))) {
            path.MoveTo({EdgeOf(p.X) + std::llround(Disc.X * 100), EdgeOf(p.Y) + std::llround(Disc.Y * 100)});
            path.Dot();
        }
        Add(PathHead(path), style);
    }
}

void TSvgDevice::Add(std::string Head, const std::string& Style) {
    EndText(FText, FBody);
    FText.Clear();
    FBody.SetClip(FClip);
    FBody.Add(std::move(Head), Style);
}

std::span<const TRealPoint> TSvgDevice::Reduced(TPointSpan Points, const TStroke& Stroke) {
    const auto points = Points.Exact(FExact);
    const bool dashed = !Dashes(Stroke.Style).empty();
    if (points.size() < std::size_t(CReductionThreshold) || (dashed && !Points.IsExact())) return points;
    if (Points.IsExact())
        SimplifyLine(points, dashed ? 0 : CColumnsPerPixel, FKept);
    else
        ReducePolyline(points, FKept);
    return FKept;
}

void TSvgDevice::Polyline(TPointSpan Points, const TStroke& Stroke) {
    if (IsHidden() || Stroke.Style == psClear || Points.Size() < 2) return;
    // A line through exact places is one of several that follow one another, as a rule: round ends join them.
    const bool joins =
        Points.IsExact() ? !Stroke.Crisp && (!IsHairline(Stroke) || Points.Size() > 2) : !IsHairline(Stroke);
    std::string style = Attribute("fill", "none") + JointedStyle(Plain(Stroke), joins);
    if (Stroke.Crisp && Points.IsExact()) style += Attribute("shape-rendering", "crispEdges");
    for (TSvgLine& line : LinesInside(Reduced(Points, Stroke), WindowFor(Stroke))) {
        if (IsHairline(Stroke) && !Points.IsExact()) LeaveOutLastPixel(line);
        const bool cuts = Points.IsExact() && Dashes(Stroke.Style).empty();
        const std::size_t most = cuts ? CPathPoints : std::max<std::size_t>(2, line.size());
        for (std::size_t start = 0; start < line.size(); start += most - 1) {
            const auto part = std::span(line).subspan(start, std::min(most, line.size() - start));
            if (part.size() > 1 || start == 0) Add(PathHead(PathOf(part)), style);
        }
    }
}

// A polygon may be reduced like a line: what lies between the first and the last point of a column bounds no
// area.
void TSvgDevice::Polygon(TPointSpan Points, const TStroke& Stroke, const TFill& Fill) {
    if (IsHidden() || (Stroke.Style == psClear && Fill.Style == bsClear)) return;
    const TSvgLine line = PolygonInside(Reduced(Points, Stroke), WindowFor(Stroke));
    if (line.empty()) return;
    TPathData path = PathOf(line);
    path.Close();
    TStroke outline = Plain(Stroke);
    // The filling takes in the pixels on its border, half of each of which lies outside the path.
    if (Stroke.Style == psClear && Fill.Style == bsSolid && Fill.Mode == pmCopy) outline = {Fill.Color};
    const bool dot = std::all_of(line.begin(), line.end(), [&line](TSvgPoint P) { return P == line[0]; });
    std::string style = FillStyle(Fill) + JointedStyle(outline, dot);
    if (line.size() > 3 && Fill.Style != bsClear) style += Attribute("fill-rule", "evenodd");
    Add(PathHead(path), style);
}

void TSvgDevice::Rectangle(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) {
    const TRealRect inside = Rect.Intersected(WindowFor(Stroke));
    if (IsHidden() || inside.IsEmpty() || (Stroke.Style == psClear && Fill.Style == bsClear)) return;
    const TBox box = TBox::Area(inside).Shrunk(Inset(Stroke));
    if (!box.IsFlat()) return Add(box.RectHead(), FillStyle(Fill) + StrokeStyle(Plain(Stroke)));
    // Nothing but outline: a flat path is not drawn by viewers.
    const TCoord width = Stroke.Style == psInsideFrame ? 1 : LineWidth(Stroke);
    const TFill line{Stroke.Color, bsSolid, Stroke.Mode};
    Add(TBox::Area(inside).Shrunk((1 - width) * 50).RectHead(), FillStyle(line));
}

void TSvgDevice::Ellipse(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) {
    const TBox box = TBox::Area(Rect).Shrunk(Inset(Stroke));
    if (box.IsFlat()) return Rectangle(Rect, Stroke, Fill);
    if (IsHidden() || (Stroke.Style == psClear && Fill.Style == bsClear)) return;
    if (Rect.Intersected(WindowFor(Stroke)) != Rect) {
        return Polygon(EllipseInside(RoundToPixels(Rect), WindowFor(Stroke, 8)), Stroke, Fill);
    }
    Add(box.EllipseHead(), FillStyle(Fill) + StrokeStyle(Plain(Stroke)));
}

void TSvgDevice::FillRect(const TRealRect& Rect, const TFill& Fill) {
    Rectangle(Rect, {clBlack, 0, psClear, pmCopy}, Fill);
}

void TSvgDevice::Text(TRealPoint Pos, const TFontFace& Face, TColor Color, std::string_view Text) {
    const std::string shown = ShownText(Text);
    if (IsHidden() || shown.empty() || !WindowFor({}).Contains(RoundToPixel(Pos))) return;
    if (!FText.ContinuesAt(Pos, Face, Color, FClip)) {
        EndText(FText, FBody);
        FText.Begin(Pos, Face, Color, FClip);
    }
    FText.Append(Pos, shown, MeasureText(Face, shown).Width);
}

void TSvgDevice::EndText(const TSvgText& Text, TSvgBody& Body) {
    if (Text.IsEmpty()) return;
    Body.SetClip(Text.GetClip());
    Body.Add(Text.Head(), Text.Style(), Text.Tail());
}

std::string TSvgDevice::Document() const {
    TSvgBody body = FBody;
    EndText(FText, body);
    const std::string width = Decimal(FWidth), height = Decimal(FHeight);
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg";
    text += Attribute("xmlns", "http://www.w3.org/2000/svg") + Attribute("width", Decimal(FWidth * FScale)) +
            Attribute("height", Decimal(FHeight * FScale)) +
            Attribute("viewBox", "0 0 " + width + " " + height);
    text += ">\n" + body.Definitions();
    if (FGround)
        text += "<rect" + Attribute("width", width) + Attribute("height", height) +
                Attribute("fill", ColorToHtml(*FGround)) + "/>\n";
    return text + body.Elements() + "</svg>\n";
}

void WriteSvg(const std::string& FileName, TSize Size, double Scale, std::optional<TColor> Ground,
              const std::function<void(TCanvasDevice&)>& Paint) {
    TSvgDevice device(Size, Scale, Ground);
    Paint(device);
    ReplaceFile(FileName, device.Document());
}

} // namespace kx
