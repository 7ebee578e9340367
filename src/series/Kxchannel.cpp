#include <kxgraph/series/Kxchannel.h>

#include <limits>

namespace kx {

void TKxBoundVector::StopListening() {
    if (FVector) FVector->Listeners().RemoveOwn(FListener);
}

void TKxBoundVector::Bind(TKxCustomRealVector* Vector, bool Listens) {
    StopListening();
    FVector = Vector;
    FKnownCount = GetCount();
    if (Vector && Listens) Vector->Listeners().Add(FListener);
}

TKxInterval TKxInterval::None() {
    constexpr double CNothing = std::numeric_limits<double>::quiet_NaN();
    return {CNothing, CNothing};
}

void TKxChannel::ForgetAxis() {
    FAxis = nullptr;
    FRange.OnChanged = nullptr;
}

void TKxChannel::EnterRange() {
    if (!FAxis || !GetVector()) return;
    FAxis->GetValuesRangeList().Add(&FRange);
    FRange.OnChanged = TEvent<TRange*>::Of<&TKxAxis::ValuesRangeChanged>(FAxis);
    if (!IsEmpty()) FRange.DoOnChanged();
}

void TKxChannel::WithdrawRange() {
    FRange.OnChanged = nullptr;
    if (!FAxis || FAxis->GetValuesRangeList().Remove(&FRange) < 0) return;
    const bool allGo = FAxis->GetOwner() && FAxis->GetOwner()->IsIn(csDestroying);
    if (!allGo) FAxis->ValuesRangeChanged(nullptr);
}

void TKxChannel::SetExtent(TKxInterval Extent, int MinIndex, int MaxIndex) {
    FMinIndex = MinIndex;
    FMaxIndex = MaxIndex;
    FRange.SetStartStop(Extent.Low, Extent.High);
}

void TKxChannel::Place(int First, std::span<TPoint> Points) const {
    const auto values = GetVector()->Values().subspan(std::size_t(First), Points.size());
    FAxis->RealToIntPositions(values, &In(Points.front()), 2);
    PointsTouched += Points.size();
}

void TKxChannel::Place(int First, std::span<TRealPoint> Points) const {
    const auto values = GetVector()->Values().subspan(std::size_t(First), Points.size());
    FAxis->GetMap().RealToPlaces(values, &In(Points.front()), 2);
    PointsTouched += Points.size();
}

bool TKxExtentScan::TakeEnds(const TKxChannel& Channel, int Count, TKxAxScaling Scaling) {
    if (Count <= 0) return true;
    const auto ends = Channel.GetVector()->GetEnds(0, Count);
    if (ends.IsEmpty()) return true;
    const TKxInterval low{ends.Low, ends.Low}, high{ends.High, ends.High};
    if (!kx::HasPlace(Scaling, ends.Low) || !kx::HasPlace(Scaling, ends.High)) return false;
    const bool lowFirst = ends.LowAt <= ends.HighAt;
    Take(lowFirst ? ends.LowAt : ends.HighAt, {lowFirst ? &low : &high, 1});
    Take(lowFirst ? ends.HighAt : ends.LowAt, {lowFirst ? &high : &low, 1});
    return true;
}

void TKxExtentScan::Take(int First, std::span<const TKxInterval> Intervals) {
    TKxInterval extent = FExtent; // in registers
    int minIndex = FMinIndex, maxIndex = FMaxIndex, index = First;
    for (const TKxInterval value : Intervals) { // not a number compares as false: it takes no part
        if (value.Low < extent.Low || (FWasEmpty && minIndex < 0 && value.Low <= extent.Low)) {
            extent.Low = value.Low;
            minIndex = index;
        }
        if (value.High > extent.High || (FWasEmpty && maxIndex < 0 && value.High >= extent.High)) {
            extent.High = value.High;
            maxIndex = index;
        }
        ++index;
    }
    FExtent = extent;
    FMinIndex = minIndex;
    FMaxIndex = maxIndex;
}

} // namespace kx
