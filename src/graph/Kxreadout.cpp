#include <kxgraph/graph/Kxreadout.h>

#include <kxgraph/annotation/Kxcaption.h>

#include <algorithm>
#include <initializer_list>

namespace kx {

namespace {

constexpr int CRing = 4;     // radius around the point
constexpr int CPadding = 4;  // of the box
constexpr int CDistance = 8; // of the box from the point

void AddVisible(TKxGraphSeries& Series, std::vector<TKxGraphSeries*>& Found) {
    if (Series.GetVisible() && Series.GetXAxis() && Series.GetYAxis()) Found.push_back(&Series);
    for (TKxGraphSeries* child : Series.GetChildSeries()) AddVisible(*child, Found);
}

double SquareOfDistance(TPoint A, TPoint B) {
    const double dx = double(A.X) - B.X, dy = double(A.Y) - B.Y;
    return dx * dx + dy * dy;
}

TRect Around(TPoint At, int Reach) {
    return {At.X - Reach, At.Y - Reach, At.X + Reach + 1, At.Y + Reach + 1};
}

} // namespace

std::vector<TKxGraphSeries*> TKxReadout::Candidates() const {
    std::vector<TKxGraphSeries*> found;
    for (TKxGraphSeries* series : FGraph.GetSeriesList()) AddVisible(*series, found);
    return found;
}

// What is drawn later lies above.
TKxReadout::TRead TKxReadout::Nearest(TPoint At, int Reach) const {
    TRead nearest;
    for (TKxGraphSeries* series : Candidates()) {
        const TKxDrawnPoint point = series->PointNear(At, Reach);
        if (point.Index < 0) continue;
        if (!nearest.IsThere() || SquareOfDistance(point.At, At) <= SquareOfDistance(nearest.Point.At, At))
            nearest = {series, point};
    }
    return nearest;
}

void TKxReadout::Invalidate() const {
    TKxDrawingWorld& world = FGraph.GetDrawingWorld();
    if (FRead.IsThere()) {
        world.InvalidatePart(FBox);
        world.InvalidatePart(Around(FRead.Point.At, CRing + 1));
    }
    if (!Allowed().CrossHair || !(FInside || FByKeys)) return;
    const TPoint at = Center();
    world.InvalidatePart({at.X, 0, at.X + 1, world.GetHeight()});
    world.InvalidatePart({0, at.Y, world.GetWidth(), at.Y + 1});
}

void TKxReadout::Show(const TRead& Read) {
    FRead = Read;
    FBox = FRead.IsThere() ? Box(Lines()) : TRect{};
}

void TKxReadout::Change(const TRead& Read, bool Inside, TPoint Mouse) {
    Invalidate();
    FInside = Inside;
    FMouse = Mouse;
    Show(Read);
    Invalidate();
}

void TKxReadout::Follow(TPoint At) {
    if (FInside && At == FMouse) return;
    const bool inside = FGraph.GetDrawingWorld().GetClientRect().Contains(At);
    const bool reads = inside && Allowed().Readout;
    if (!reads && !FInside && !inside) return;
    const TRead read = reads ? Nearest(At, CReach) : TRead{};
    Invalidate();
    FByKeys = false;
    Change(read, inside, At);
}

void TKxReadout::Leave() {
    if (FByKeys) {
        FInside = false;
    } else if (FInside) {
        Change({}, false, FMouse);
    }
}

// The next point that has a place, as long as that is in the view.
TKxReadout::TRead TKxReadout::Neighbour(int Step) const {
    const TRect world = FGraph.GetDrawingWorld().GetClientRect();
    const TKxGraphSeries& series = *FRead.Series.Get();
    const int last = series.GetPointsCount() - 1;
    for (int i = FRead.Point.Index + Step; i >= 0 && i <= last; i += Step) {
        const TKxDrawnPoint point = series.PointAt(i);
        if (point.Index >= 0) return world.Contains(point.At) ? TRead{FRead.Series, point} : FRead;
    }
    return FRead;
}

TKxReadout::TRead TKxReadout::InOtherSeries(int Step) const {
    const auto series = Candidates();
    const int count = int(series.size());
    const auto found = std::ranges::find(series, FRead.Series.Get());
    const int from = found == series.end() ? 0 : int(found - series.begin());
    for (int i = 1; i < count; ++i) {
        TKxGraphSeries* other = series[std::size_t(((from + i * Step) % count + count) % count)];
        const TKxDrawnPoint point = other->PointNear(FRead.Point.At, CMaxPixel);
        if (point.Index >= 0) return {other, point};
    }
    return FRead;
}

bool TKxReadout::KeyDown(int Key) {
    if (!Allowed().Readout) return false;
    if (Key == kcReturn && !FByKeys) {
        const TSize world = FGraph.GetDrawingWorld().GetBoundsRect().Size();
        const TRead read = FRead.IsThere() ? FRead : Nearest({world.Width / 2, world.Height / 2}, CMaxPixel);
        if (!read.IsThere()) return false;
        Invalidate();
        FByKeys = true;
        Change(read, FInside, FMouse);
        return true;
    }
    if (!FByKeys || !FRead.IsThere()) return FByKeys = false;
    switch (Key) {
    case kcLeft: Change(Neighbour(-1), FInside, FMouse); return true;
    case kcRight: Change(Neighbour(1), FInside, FMouse); return true;
    case kcUp: Change(InOtherSeries(-1), FInside, FMouse); return true;
    case kcDown: Change(InOtherSeries(1), FInside, FMouse); return true;
    case kcEscape:
        Invalidate();
        FByKeys = false;
        Change({}, FInside, FMouse);
        return true;
    default: return false;
    }
}

std::vector<std::string> TKxReadout::Lines() const {
    const TKxGraphSeries& series = *FRead.Series.Get();
    std::string caption = GetStrippedString(series.GetCaption());
    if (caption.empty()) caption = series.GetName();
    // The points of a curve are samples: their numbers tell nothing.
    if (!series.IsCalculated()) caption.append(" [").append(std::to_string(FRead.Point.Index)).append("]");
    return {caption, "x: " + series.GetXAxis()->GetValueText(FRead.Point.X),
            "y: " + series.GetYAxis()->GetValueText(FRead.Point.Y)};
}

// To the right above the point, or wherever there is room beside it.
TRect TKxReadout::Box(const std::vector<std::string>& Lines) const {
    TCanvas canvas; // measures on the screen
    canvas.Font.Assign(FGraph.GetFont());
    int width = 0;
    for (const std::string& line : Lines) width = std::max(width, canvas.TextWidth(line));
    const TSize size{width + 2 * CPadding, int(Lines.size()) * canvas.TextHeight("X") + 2 * CPadding};
    const TSize world = FGraph.GetDrawingWorld().GetBoundsRect().Size();
    const TPoint at = FRead.Point.At;
    int left = at.X + CDistance, top = at.Y - CDistance - size.Height;
    if (left + size.Width > world.Width) left = at.X - CDistance - size.Width;
    if (top < 0) top = at.Y + CDistance;
    left = std::max(0, std::min(left, world.Width - size.Width));
    top = std::max(0, std::min(top, world.Height - size.Height));
    return TRect::Bounds(left, top, size.Width, size.Height);
}

void TKxReadout::PaintCrossHair(TCanvas& Canvas) const {
    const TKxDrawingWorld& world = FGraph.GetDrawingWorld();
    const TPoint at = Center();
    Canvas.Pen.SetColor(clGray);
    Canvas.Polyline(std::array{TPoint{at.X, 0}, TPoint{at.X, world.GetHeight()}});
    Canvas.Polyline(std::array{TPoint{0, at.Y}, TPoint{world.GetWidth(), at.Y}});
}

void TKxReadout::PaintBox(TCanvas& Canvas) const {
    Canvas.Font.Assign(FGraph.GetFont());
    Canvas.Pen.SetColor(FGraph.GetFont().GetColor());
    Canvas.Brush.SetStyle(bsClear);
    const TRect ring = Around(FRead.Point.At, CRing);
    Canvas.Ellipse(ring.Left, ring.Top, ring.Right, ring.Bottom);
    Canvas.Brush.SetStyle(bsSolid);
    Canvas.Brush.SetColor(FGraph.GetDataGround());
    Canvas.Rectangle(FBox.Left, FBox.Top, FBox.Right, FBox.Bottom);
    Canvas.Brush.SetStyle(bsClear);
    int top = FBox.Top + CPadding;
    for (const std::string& line : Lines()) {
        Canvas.TextOut(FBox.Left + CPadding, top, line);
        top += Canvas.TextHeight("X");
    }
}

// The axes may have moved under the mouse since, and the values may have changed.
void TKxReadout::ReadAnew() {
    if (!FRead.IsThere() || !Allowed().Readout) {
        FRead = {};
        FByKeys = false;
        return;
    }
    const TKxDrawnPoint now =
        FRead.Series->GetVisible() ? FRead.Series->PointAt(FRead.Point.Index) : TKxDrawnPoint{};
    const bool stays = now.Index >= 0 && (FByKeys || now.At == FRead.Point.At);
    Show(stays ? TRead{FRead.Series, now} : FByKeys ? TRead{} : Nearest(FMouse, CReach));
    FByKeys = FByKeys && FRead.IsThere();
}

void TKxReadout::Paint(TCanvas& Canvas) {
    ReadAnew();
    const TCanvas::TSaved saved(Canvas);
    Canvas.Crisp = true;
    Canvas.Pen.SetMode(pmCopy);
    Canvas.Pen.SetStyle(psSolid);
    Canvas.Pen.SetWidth(1);
    if (Allowed().CrossHair && (FInside || FByKeys)) PaintCrossHair(Canvas);
    if (FRead.IsThere()) PaintBox(Canvas);
}

} // namespace kx
