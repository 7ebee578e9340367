#include <kxgraph/series/Kxbarseries.h>

#include <algorithm>

namespace kx {

TKxBarSeries::TKxBarSeries(TComponent* Owner) : TKxLineSeries(Owner) {
    GetLineStyle().SetColor(clBlue);
    GetAreaStyle().SetColor(clNavy);
    GetAreaStyle().SetDrawXOred(false);
    FX.GetRange().SetStartStop(0, 0);
    FY.GetRange().SetStartStop(0, 0);
}

TKxBarSeries::~TKxBarSeries() {
    LeaveStack();
    for (TKxBarSeries* above : FAbove) {
        std::erase(above->FStack, this);
        above->RangesModified();
    }
}

template <class T>
void TKxBarSeries::Change(T& Field, T Value) {
    if (Field == Value) return;
    Field = Value;
    FStackIsOld = true;
    RangesModified();
}

void TKxBarSeries::ChangeOverlay(bool& Field, bool& Other, bool Value) {
    if (Field == Value) return;
    if (Value) Other = false;
    Change(Field, Value);
}

void TKxBarSeries::SetStackSignsApart(bool Apart) { Change(FStackSignsApart, Apart); }
void TKxBarSeries::SetShowAs3D(bool Show) { Change(FShow3DBars, Show); }
void TKxBarSeries::SetBarHorizontal(bool Horizontal) { Change(FBarHorizontal, Horizontal); }
void TKxBarSeries::Set3DDepthPercent(double Percent) { Change(FDepthPercent, Percent); }
void TKxBarSeries::SetBarsGapPercent(double Percent) { Change(FBarsGapPercent, Percent); }

void TKxBarSeries::SetShiftOverlays(bool Shift) { ChangeOverlay(FShiftOverlays, FStackOverlays, Shift); }
void TKxBarSeries::SetStackOverlays(bool Stack) { ChangeOverlay(FStackOverlays, FShiftOverlays, Stack); }

void TKxBarSeries::FillSampleEdges(TKxCustomRealVector* Vector) const {
    if (!IsIn(csDesigning) || !Vector || Vector->GetCount() > 0) return;
    for (int i = 0; i <= 10; ++i) Vector->SetValue(i, 10 * i);
}

void TKxBarSeries::SetXData(TKxCustomRealVector* Vector) {
    if (!FBarHorizontal) FillSampleEdges(Vector);
    TKxLineSeries::SetXData(Vector);
}

void TKxBarSeries::SetYData(TKxCustomRealVector* Vector) {
    if (FBarHorizontal) FillSampleEdges(Vector);
    TKxLineSeries::SetYData(Vector);
}

// What is read from a series below may have changed with any change of that one.
void TKxBarSeries::Modified() {
    TKxLineSeries::Modified();
    TellAbove();
}

void TKxBarSeries::TellAbove() {
    for (TKxBarSeries* above : FAbove)
        if (!above->AwaitsRescan()) above->RangesModified();
}

// Series of a group share their edges as a rule, but only one of them hears of an edge.
void TKxBarSeries::DataChanged(const TKxCustomRealVector* Vector) {
    TellAbove();
    if (!GetDrawingWorld()) return;
    for (TKxGraphSeries* series : GetDrawingWorld()->GetSeriesList()) {
        auto* bars = dynamic_cast<TKxBarSeries*>(series);
        if (!bars || bars == this || bars->AwaitsRescan()) continue;
        if (bars->GetXData() == Vector || bars->GetYData() == Vector) bars->RangesModified();
    }
}

// Which series lie below depends on what others are and where they stand, so every frame looks anew; values
// that arrive in between find the list as it is. A count that differs from the last known one has changed
// unheard.
void TKxBarSeries::CalculatePoints() {
    FStackIsOld = true;
    const int known = FPointsCount;
    SetPointsCount();
    if (FPointsCount != known && !AwaitsRescan()) RangesModified();
    TKxLineSeries::CalculatePoints();
}

void TKxBarSeries::RebuildStack() {
    FStackIsOld = false;
    std::vector<TKxBarSeries*> below;
    if (FStackOverlays && GetOwner()) {
        for (TComponent* component : GetOwner()->GetComponents()) {
            if (component == this) break;
            auto* bars = dynamic_cast<TKxBarSeries*>(component);
            if (!bars || bars->FBarHorizontal != FBarHorizontal ||
                bars->Edges().GetAxis() != Edges().GetAxis())
                continue;
            below.push_back(bars);
        }
    }
    if (below == FStack) return;
    LeaveStack();
    FStack = std::move(below);
    for (TKxBarSeries* bars : FStack) bars->FAbove.push_back(this);
    RangesModified();
}

void TKxBarSeries::LeaveStack() {
    for (TKxBarSeries* bars : FStack) std::erase(bars->FAbove, this);
    FStack.clear();
}

TKxBarValues TKxBarSeries::OwnValues() const {
    const auto* lengths = Lengths().GetVector();
    if (!lengths) return {};
    return lengths->Values().first(std::size_t(std::min(FPointsCount, lengths->GetCount())));
}

// Asked for once per scan or paint: the list keeps its storage.
std::span<const TKxBarValues> TKxBarSeries::ValuesBelow() const {
    FBelow.clear();
    if (FStackOverlays)
        for (const TKxBarSeries* bars : FStack) FBelow.push_back(bars->OwnValues());
    return FBelow;
}

double TKxBarSeries::StackStart(std::span<const TKxBarValues> Below, int Index) const {
    const auto index = std::size_t(Index);
    return FStackSignsApart ? StackBeside(Below, index, Lengths().GetValue(Index)) : StackBelow(Below, index);
}

double TKxBarSeries::LengthAt(int Index) const {
    return Lengths().GetValue(Index) + StackStart(ValuesBelow(), Index);
}

double TKxBarSeries::GetX(int Index) const {
    if (!GetXData()) return 0;
    return FBarHorizontal ? LengthAt(Index) : GetXData()->GetValue(Index);
}

double TKxBarSeries::GetY(int Index) const {
    if (!GetYData()) return 0;
    return FBarHorizontal ? GetYData()->GetValue(Index) : LengthAt(Index);
}

double TKxBarSeries::DepthAt(int Index, double Divisor) const {
    if (!FShow3DBars || Index <= 0 || Index >= Edges().GetCount()) return 0;
    return (Edges().GetValue(Index) - Edges().GetValue(Index - 1)) *
           (FDepthPercent / Divisor - FBarsGapPercent / 200);
}

// Kept: the last bar is left out, as programs that pick bars expect it.
int TKxBarSeries::FindPoint(int X, int Y, int Tolerance) const {
    const long long x = (long long)(X)-OriginX(), y = (long long)(Y)-OriginY();
    const long long across = FBarHorizontal ? y : x, along = FBarHorizontal ? x : y;
    for (int i = FPointsCount - 2; i >= 0; --i) {
        const int edge = EdgeAt(i), next = EdgeAt(i + 1);
        if (edge == CNoPixel || next == CNoPixel || EndAt(i) == CNoPixel) continue;
        const auto [first, last] = std::minmax(edge, next);
        if (first <= across && across <= last && std::abs(EndAt(i) - along) <= Tolerance) return i;
    }
    return -1;
}

TKxDrawnPoint TKxBarSeries::PointAt(int Index) const {
    if (Index < 0 || Index >= FPointsCount - 1) return {};
    const int edge = EdgeAt(Index), next = EdgeAt(Index + 1), end = EndAt(Index);
    if (edge == CNoPixel || next == CNoPixel || end == CNoPixel) return {};
    TKxDrawnPoint point{Index, {OriginX(), OriginY()}, GetX(Index), GetY(Index)};
    Edges().In(point.At) += edge + (next - edge) / 2;
    Lengths().In(point.At) += end;
    return point;
}

TKxDrawnPoint TKxBarSeries::PointNear(TPoint At, int Reach) const {
    return PointAt(FindPoint(At.X, At.Y, Reach));
}

} // namespace kx
