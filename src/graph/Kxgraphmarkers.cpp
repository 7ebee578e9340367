#include <kxgraph/graph/Kxgraphmarkers.h>

#include <kxgraph/platform/base/exceptions.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace kx {

namespace {

using TEnd = TKxGraphMarkers::TEnd;

constexpr int CFoot = 5; // pixels of the feet, which lead to what lies between the markers

double ValueOf(const TKxStartStop& Calculation, TEnd End) {
    return End == TEnd::Start ? Calculation.GetCalculationStart() : Calculation.GetCalculationStop();
}
bool IsAutomatic(const TKxStartStop& Calculation, TEnd End) {
    return End == TEnd::Start ? Calculation.GetAutoStart() : Calculation.GetAutoStop();
}

} // namespace

void TKxGraphMarkers::Show(TKxGraphSeries* Series) {
    if (Series && !Series->GetStartStop())
        throw EPropertyError("Markers need a series that calculates: " + Series->GetName() +
                             " has no start and no stop");
    FSeries = Series;
    FTaken.reset();
    FDragging = false;
    if (Series) FGraph.SetTabStop(true);
    FGraph.Invalidate();
}

int TKxGraphMarkers::Along(TPoint At) const {
    const TKxDrawingWorld& world = FGraph.GetDrawingWorld();
    return Axis()->GetSide().Along(TPoint{At.X - world.GetXOrigin(), At.Y - world.GetYOrigin()});
}

/// Along the X axis; none for one that is not in the view.
std::optional<int> TKxGraphMarkers::PixelOf(TEnd End) const {
    const TKxStartStop* calculation = Calculation();
    if (!calculation || !Axis() || !FSeries->GetVisible()) return {};
    const double value = ValueOf(*calculation, End);
    if (!Axis()->HasPlace(value)) return {};
    const int pixel = Axis()->RealToIntPosition(value);
    if (pixel < 0 || pixel > Axis()->GetAxisLength()) return {};
    return pixel;
}

bool TKxGraphMarkers::IsNear(TEnd End, TPoint At) const {
    const auto pixel = PixelOf(End);
    return pixel && std::abs(*pixel - Along(At)) <= CReach &&
           FGraph.GetDrawingWorld().GetClientRect().Contains(At);
}

std::optional<TEnd> TKxGraphMarkers::MarkerAt(TPoint At) const {
    const bool start = IsNear(TEnd::Start, At), stop = IsNear(TEnd::Stop, At);
    if (!start && !stop) return {};
    if (start != stop) return start ? TEnd::Start : TEnd::Stop;
    const int along = Along(At), from = *PixelOf(TEnd::Start), to = *PixelOf(TEnd::Stop);
    if (from == to) { // only one of them can be moved away from the edge of the view
        const double middle = Axis()->IntToRealPosition(Axis()->GetAxisLength() / 2);
        return ValueOf(*Calculation(), TEnd::Stop) < middle ? TEnd::Stop : TEnd::Start;
    }
    return std::abs(along - from) <= std::abs(along - to) ? TEnd::Start : TEnd::Stop;
}

void TKxGraphMarkers::Take(TEnd End) {
    FTaken = End;
    FBefore = {IsAutomatic(*Calculation(), End), ValueOf(*Calculation(), End)};
}

bool TKxGraphMarkers::Down(TShiftState Shift, TPoint At) {
    const auto end = MarkerAt(At);
    if (!end) return false;
    Take(*end);
    FOffset = *PixelOf(*end) - Along(At);
    FDragging = !(Shift & ssDouble);
    if (!FDragging) {
        SetAutomatic(true);
        FTaken.reset();
    }
    FGraph.Invalidate();
    return true;
}

void TKxGraphMarkers::EndDrag() {
    FDragging = false;
    FTaken.reset();
    FGraph.Invalidate();
}

void TKxGraphMarkers::DragTo(TPoint At) {
    if (!Calculation() || !Axis()) return EndDrag();
    MoveTo(Along(At) + FOffset);
}

void TKxGraphMarkers::SetAutomatic(bool Auto) const {
    *FTaken == TEnd::Start ? Calculation()->SetAutoStart(Auto) : Calculation()->SetAutoStop(Auto);
}

void TKxGraphMarkers::SetValue(double Value) const {
    *FTaken == TEnd::Start ? Calculation()->SetCalculationStart(Value)
                           : Calculation()->SetCalculationStop(Value);
}

// Within the view, and never beyond the other one.
void TKxGraphMarkers::MoveTo(int Pixel) {
    const auto now = PixelOf(*FTaken);
    Pixel = std::clamp(Pixel, 0, Axis()->GetAxisLength());
    if (now && *now == Pixel) return;
    const double value = Axis()->IntToRealPosition(Pixel);
    const TKxStartStop& calculation = *Calculation();
    SetValue(*FTaken == TEnd::Start ? std::min(value, calculation.GetCalculationStop())
                                    : std::max(value, calculation.GetCalculationStart()));
    FGraph.Invalidate();
}

bool TKxGraphMarkers::Escape() {
    if (!FTaken) return false;
    if (Calculation()) {
        SetValue(FBefore.Value); // at once: an automatic end is found by the next frame only
        SetAutomatic(FBefore.Auto);
    }
    FTaken.reset();
    FDragging = false;
    FGraph.Invalidate();
    return true;
}

bool TKxGraphMarkers::KeyDown(const TKeyStroke& Stroke) {
    if (!Calculation() || !Axis()) return false;
    if (Stroke.Key == kcPageUp || Stroke.Key == kcPageDown) {
        Take(Stroke.Key == kcPageUp ? TEnd::Start : TEnd::Stop);
    } else if (!FTaken) {
        return false;
    } else if (Stroke.Key == kcReturn) {
        FTaken.reset();
    } else if (Stroke.Key == kcDelete) {
        SetAutomatic(true);
    } else {
        const int right = (Stroke.Key == kcRight) - (Stroke.Key == kcLeft);
        const int down = (Stroke.Key == kcDown) - (Stroke.Key == kcUp);
        const int step = Axis()->IsHorizontal() ? right : down;
        const auto pixel = PixelOf(*FTaken);
        if (step == 0 || !pixel) return false;
        constexpr int CFar = 10;
        MoveTo(*pixel + step * (Stroke.Shift & ssShift ? CFar : 1));
    }
    FGraph.Invalidate();
    return true;
}

TCursor TKxGraphMarkers::GetCursor() const { return Axis() && !Axis()->IsHorizontal() ? crSizeNS : crSizeWE; }

void TKxGraphMarkers::Paint(TCanvas& Canvas, TEnd End) const {
    const auto pixel = PixelOf(End);
    if (!pixel) return;
    const TKxDrawingWorld& world = FGraph.GetDrawingWorld();
    const TKxSide side = Axis()->GetSide();
    const int at = *pixel + side.Along(TPoint{world.GetXOrigin(), world.GetYOrigin()});
    const int across = side.Across(world.GetBoundsRect().Size());
    const int foot = Axis()->GetMap().Forward == (End == TEnd::Start) ? CFoot : -CFoot;
    const TCanvas::TSaved saved(Canvas);
    Canvas.Crisp = true;
    Canvas.Pen.SetMode(pmCopy);
    Canvas.Pen.SetStyle(psSolid);
    Canvas.Pen.SetWidth(FTaken == End ? 2 : 1);
    Canvas.Pen.SetColor(FGraph.GetFont().GetColor());
    Canvas.Polyline(std::array{side.Point(at + foot, 0), side.Point(at, 0), side.Point(at, across - 1),
                               side.Point(at + foot, across - 1)});
}

} // namespace kx
