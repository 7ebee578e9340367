#include <kxgraph/series/Kxdataseries.h>

#include <kxgraph/platform/objects/guarded.h>

#include <algorithm>

namespace kx {

TKxSeries::TKxSeries(TComponent* Owner) : TKxGraphSeries(Owner), FLineStyle(this), FAreaStyle(this) {
    FAreaStyle.SetVisible(false);
    if (!IsIn(csDesigning)) return;
    FDesignTimer = std::make_unique<TTimer>(nullptr);
    FDesignTimer->SetInterval(100);
    FDesignTimer->OnTimer = TEvent<>::Of<&TKxSeries::TestOrder>(this);
}

TKxSeries::~TKxSeries() {
    if (FXData) FXData->Listeners().RemoveOwn(XHandler());
    if (FYData) FYData->Listeners().RemoveOwn(YHandler());
    if (FWeight) FWeight->Listeners().RemoveOwn(WeightHandler());
    Guarded([this] { WithdrawRange(FXAxis, FXRange); });
    Guarded([this] { WithdrawRange(FYAxis, FYRange); });
    Guarded([this] { EnterDrawingWorld(nullptr); }); // legends are told when this series is gone
}

void TKxSeries::Notification(TComponent* Component, TOperation Operation) {
    TKxGraphSeries::Notification(Component, Operation);
    if (Operation != opRemove) return;
    std::erase(FChildren, Component);
    if (Component == FDrawingWorld) FDrawingWorld = nullptr;
    if (Component == FXAxis) {
        FXAxis = nullptr;
        FXRange.OnChanged = nullptr;
        EnterDrawingWorld(nullptr);
    }
    if (Component == FYAxis) {
        FYAxis = nullptr;
        FYRange.OnChanged = nullptr;
    }
    if (Component == FXData) ForgetData(FXData, FXAxis, FXRange);
    if (Component == FYData) ForgetData(FYData, FYAxis, FYRange);
    if (Component == FWeight) {
        FWeight = nullptr;
        FOnWeightChanged(-1, true);
    }
    FPointsDirty = true;
}

void TKxSeries::ForgetData(TKxCustomRealVector*& Field, TKxAxis* Axis, TRange& Range) {
    Field = nullptr;
    WithdrawRange(Axis, Range);
    RangesModified();
}

void TKxSeries::EnterRange(TKxAxis* Axis, TRange& Range, const TKxCustomRealVector* Data) {
    if (!Axis || !Data) return;
    // A computed curve spans its X axis: if it widened it, an automatic axis could never shrink again, and a
    // curve over an axis that is its Y axis, too, would grow with every frame.
    if (IsCalculated() && Axis == FXAxis) return;
    Axis->GetValuesRangeList().Add(&Range);
    Range.OnChanged = TEvent<TRange*>::Of<&TKxAxis::ValuesRangeChanged>(Axis);
    if (Range.GetStart() <= Range.GetStop()) Range.DoOnChanged();
}

void TKxSeries::EnterRanges() {
    EnterRange(FXAxis, FXRange, FXData);
    if (!IsCalculated()) return; // of its Y range the X axis decides as well
    WithdrawRange(FYAxis, FYRange);
    EnterRange(FYAxis, FYRange, FYData);
}

/// The axis follows those that remain; not where all go one after the other.
void TKxSeries::WithdrawRange(TKxAxis* Axis, TRange& Range) {
    Range.OnChanged = nullptr;
    if (!Axis || Axis->GetValuesRangeList().Remove(&Range) < 0) return;
    const bool allGo = Axis->GetOwner() && Axis->GetOwner()->IsIn(csDestroying);
    if (!allGo) Axis->ValuesRangeChanged(nullptr);
}

void TKxSeries::EnterDrawingWorld(TKxDrawingWorld* World) {
    if (FDrawingWorld) {
        FDrawingWorld->GetSeriesList().Remove(this);
        FDrawingWorld->GetGraph().Modified();
    }
    Refer(FDrawingWorld, World);
    if (World && !IsCalculated()) World->GetSeriesList().Add(this);
}

void TKxSeries::SetXAxis(TKxAxis* Axis) {
    if (Axis == FXAxis) return;
    WithdrawRange(FXAxis, FXRange);
    MoveChildren(&TKxSeries::GetXAxis, &TKxSeries::SetXAxis, FXAxis, Axis);
    Refer(FXAxis, Axis);
    auto* graph = Axis ? dynamic_cast<TKx2DGraph*>(Axis->GetParent()) : nullptr;
    EnterDrawingWorld(graph ? &graph->GetDrawingWorld() : nullptr);
    FPointsDirty = true;
    if (graph)
        graph->Modified();
    else
        Modified();
    EnterRanges();
}

void TKxSeries::SetYAxis(TKxAxis* Axis) {
    if (Axis == FYAxis) return;
    WithdrawRange(FYAxis, FYRange);
    MoveChildren(&TKxSeries::GetYAxis, &TKxSeries::SetYAxis, FYAxis, Axis);
    Refer(FYAxis, Axis);
    FPointsDirty = true;
    EnterRange(Axis, FYRange, FYData);
    if (FXAxis && FYAxis && GetGraph()) GetGraph()->Modified();
}

void TKxSeries::MoveChildren(TKxAxis* (TKxSeries::*Get)() const, void (TKxSeries::*Set)(TKxAxis*),
                             TKxAxis* From, TKxAxis* To) {
    for (TKxSeries* child : FChildren)
        if ((child->*Get)() == From) (child->*Set)(To);
}

void TKxSeries::SetBound(TKxCustomRealVector*& Field, TKxCustomRealVector* Vector,
                         const TKxValueIChangedEvent& Handler, bool Listens) {
    if (Field) Field->Listeners().RemoveOwn(Handler);
    Refer(Field, Vector);
    if (Vector && Listens) Vector->Listeners().Add(Handler);
    FKnownXCount = CountOf(FXData);
    FKnownYCount = CountOf(FYData);
    FRangesModified = FChildModified = true;
    Modified();
}

void TKxSeries::SetXData(TKxCustomRealVector* Vector) {
    WithdrawRange(FXAxis, FXRange);
    SetBound(FXData, Vector, XHandler(), FollowsVectors());
    EnterRange(FXAxis, FXRange, Vector);
    DsgnUpdate();
}

void TKxSeries::SetYData(TKxCustomRealVector* Vector) {
    WithdrawRange(FYAxis, FYRange);
    SetBound(FYData, Vector, YHandler(), FollowsVectors());
    EnterRange(FYAxis, FYRange, Vector);
    DsgnUpdate();
}

void TKxSeries::SetWeight(TKxCustomRealVector* Vector) {
    SetBound(FWeight, Vector, WeightHandler(), true);
    DsgnUpdate();
}

void TKxSeries::DsgnUpdate() {
    if (!IsIn(csDesigning)) return;
    RangesModified();
    CalculatePoints();
    if (FXAxis && GetGraph()) GetGraph()->Modified();
}

void TKxSeries::TestOrder() {
    if (GetComponentIndex() == FComponentIndex) return;
    FComponentIndex = GetComponentIndex();
    if (GetGraph()) GetGraph()->Modified();
}

void TKxSeries::StoreCaption(const AnsiString& Caption) {
    FCaption = Caption;
    FResults.WriteString("Datapoints", "Caption", FCaption);
    UpdateLegend();
}

void TKxSeries::SetCaption(const AnsiString& Caption) {
    // Kept: the caption shown by one source becomes the text of the other one, as outfits rely on it.
    (FDoUserCaption ? FAutoCaption : FUserCaption) = Caption;
    StoreCaption(Caption);
}

void TKxSeries::SetDoUserCaption(bool DoUser) {
    if (FDoUserCaption == DoUser) return;
    FDoUserCaption = DoUser;
    StoreCaption(DoUser ? FUserCaption : FCaption);
}

void TKxSeries::SetUserCaption(const AnsiString& Caption) {
    if (FUserCaption == Caption) return;
    FUserCaption = Caption;
    StoreCaption(FDoUserCaption ? Caption : FCaption);
}

void TKxSeries::SetAutoCaption(const AnsiString& Caption) {
    FAutoCaption = Caption;
    StoreCaption(FDoUserCaption ? FCaption : Caption);
}

void TKxSeries::SetIncludeInLegend(bool Include) {
    if (FIncludeInLegend == Include) return;
    FIncludeInLegend = Include;
    UpdateLegend();
}

void TKxSeries::UpdateLegend() {
    if (auto* graph = GetGraph()) graph->ItemsModified();
}

void TKxSeries::InvalidateWorld() {
    if (FDrawingWorld) FDrawingWorld->Invalidate();
}

void TKxSeries::Modified() {
    FPointsDirty = true;
    UpdateLegend();
    InvalidateWorld();
}

void TKxSeries::ChildModified() {
    FChildModified = true;
    Modified();
}

void TKxSeries::RangesModified() {
    FRangesModified = true;
    ChildModified();
}

void TKxSeries::AddChild(TKxSeries* Child) {
    if (std::find(FChildren.begin(), FChildren.end(), Child) != FChildren.end()) return;
    FChildren.push_back(Child);
    Child->FreeNotification(this);
    RangesModified();
}

void TKxSeries::RemoveChild(TKxSeries* Child) { std::erase(FChildren, Child); }

// A handler of one child may take away another one, or this series.
void TKxSeries::ForChildren(const std::function<void(TKxSeries*)>& Action) {
    const TComponentRef<TKxSeries> self(this);
    const auto children = FChildren;
    for (TKxSeries* child : children) {
        if (!self) return;
        if (std::find(FChildren.begin(), FChildren.end(), child) != FChildren.end()) Action(child);
    }
}

void TKxSeries::RecalculateChilds() {
    FRangesModified = false;
    FChildrenLogX = IsLogX();
    FChildrenLogY = IsLogY();
    ForChildren([](TKxSeries* Child) {
        if (auto* item = dynamic_cast<TKxCalculatedItem*>(Child)) Guarded([item] { item->Calculate(); });
    });
}

int TKxSeries::FindPoint(int X, int Y, int Tolerance) const {
    const long long x = (long long)(X)-OriginX(), y = (long long)(Y)-OriginY();
    const auto points = FPoints.Values();
    for (int i = FPointsCount - 1; i >= 0; --i) {
        const TPoint p = points[std::size_t(i)];
        if (HasPlace(i) && std::abs(p.X - x) <= Tolerance && std::abs(p.Y - y) <= Tolerance) return i;
    }
    return -1;
}

void TKxSeries::TakeAxes(const TComponent* Owner) {
    if (!Owner) return;
    for (TKx2DGraph* graph : TKx2DGraph::OwnedBy(*Owner)) {
        SetXAxis(graph->GetPrimaryXAxis());
        SetYAxis(graph->GetPrimaryYAxis());
        if (!GetXAxis()) ReferToWorld(graph->GetDrawingWorld());
    }
}

TKxLineSeries::TKxLineSeries(TComponent* Owner) : TKxNotCalculatedSeries(Owner) { TakeAxes(Owner); }

void TKxLineSeries::SetBreakAtGaps(bool Break) {
    if (FBreakAtGaps == Break) return;
    FBreakAtGaps = Break;
    RangesModified();
}

TKxDataSeries::TKxDataSeries(TComponent* Owner) : TKxLineSeries(Owner), FPointStyle(this) {}

} // namespace kx
