#include <kxgraph/series/Kxseries.h>

#include <kxgraph/platform/objects/guarded.h>

#include <algorithm>
#include <array>
#include <exception>
#include <new>

namespace kx {

TKxSeries::TKxSeries(TComponent* Owner) : TKxGraphSeries(Owner), FLineStyle(this), FAreaStyle(this) {
    FAreaStyle.SetVisible(false);
}

TKxSeries::~TKxSeries() {
    Guarded([this] { FX.WithdrawRange(); });
    Guarded([this] { FY.WithdrawRange(); });
    Guarded([this] { EnterDrawingWorld(nullptr); }); // legends are told when this series is gone
}

void TKxSeries::Notification(TComponent* Component, TOperation Operation) {
    TKxGraphSeries::Notification(Component, Operation);
    if (Operation != opRemove) return;
    std::erase(FChildren, Component);
    if (Component == FDrawingWorld) FDrawingWorld = nullptr;
    if (Component == FX.GetAxis()) {
        FX.ForgetAxis();
        EnterDrawingWorld(nullptr);
    }
    if (Component == FY.GetAxis()) FY.ForgetAxis();
    if (Component == FX.GetVector()) ForgetData(FX);
    if (Component == FY.GetVector()) ForgetData(FY);
    if (Component == FWeight.GetVector()) {
        FWeight.Forget();
        FOnWeightChanged(-1, true);
    }
    FPointsDirty = true;
}

void TKxSeries::ForgetData(TKxChannel& Channel) {
    Channel.Forget();
    Channel.WithdrawRange();
    RangesModified();
}

// A computed curve spans its X axis: if it widened it, an automatic axis could never shrink again, and a
// curve over an axis that is its Y axis, too, would grow with every frame.
void TKxSeries::EnterRange(TKxChannel& Channel) {
    if (!IsCalculated() || Channel.GetAxis() != GetXAxis()) Channel.EnterRange();
}

void TKxSeries::EnterRanges() {
    EnterRange(FX);
    if (!IsCalculated()) return; // of its Y range the X axis decides as well
    FY.WithdrawRange();
    EnterRange(FY);
}

void TKxSeries::EnterDrawingWorld(TKxDrawingWorld* World) {
    if (FDrawingWorld) {
        FDrawingWorld->GetSeriesList().Remove(this);
        FDrawingWorld->GetGraph().Modified();
    }
    Refer(FDrawingWorld, World);
    if (World && !IsCalculated()) World->GetSeriesList().Add(this);
}

// The X axis decides in which graph the series stands.
void TKxSeries::SetAxis(TDirection Direction, TKxAxis* Axis) {
    TKxChannel& channel = this->*Direction;
    TKxAxis* const before = channel.GetAxis();
    if (Axis == before) return;
    channel.WithdrawRange();
    for (TKxSeries* child : FChildren)
        if ((child->*Direction).GetAxis() == before) child->SetAxis(Direction, Axis);
    if (Axis) Axis->FreeNotification(this);
    channel.SetAxis(Axis);
    FPointsDirty = true;
    if (&channel == &FY) {
        EnterRange(FY);
        if (GetXAxis() && Axis && GetGraph()) GetGraph()->Modified();
        return;
    }
    auto* graph = Axis ? dynamic_cast<TKx2DGraph*>(Axis->GetParent()) : nullptr;
    EnterDrawingWorld(graph ? &graph->GetDrawingWorld() : nullptr);
    if (graph)
        graph->Modified();
    else
        Modified();
    EnterRanges();
}

void TKxSeries::VectorReplaced() {
    FRangesModified = FChildModified = true;
    Modified();
}

void TKxSeries::SetData(TKxChannel& Channel, TKxCustomRealVector* Vector) {
    Channel.WithdrawRange();
    if (FScannedCount < 0) Channel.GetRange().Reset(); // what a new series has is nobody's extent
    Refer(Channel, Vector, FollowsVectors());
    VectorReplaced();
    EnterRange(Channel);
    DsgnUpdate();
}

void TKxSeries::SetWeight(TKxCustomRealVector* Vector) {
    Refer(FWeight, Vector);
    VectorReplaced();
    DsgnUpdate();
}

void TKxSeries::DsgnUpdate() {
    if (!IsIn(csDesigning)) return;
    RangesModified();
    CalculatePoints();
    if (GetXAxis() && GetGraph()) GetGraph()->Modified();
}

void TKxSeries::OrderChanged() {
    if (GetGraph()) GetGraph()->Modified();
}

void TKxSeries::ShowCaption(const AnsiString& Caption) {
    FResults.WriteString("Datapoints", "Caption", Caption);
    UpdateLegend();
}

void TKxSeries::SetCaption(const AnsiString& Caption) { ShowCaption(FCaption.SetShown(Caption)); }

void TKxSeries::SetDoUserCaption(bool DoUser) {
    if (FCaption.DoUser != DoUser) ShowCaption(FCaption.SetDoUser(DoUser));
}

void TKxSeries::SetUserCaption(const AnsiString& Caption) {
    if (FCaption.User != Caption) ShowCaption(FCaption.SetUser(Caption));
}

void TKxSeries::SetAutoCaption(const AnsiString& Caption) { ShowCaption(FCaption.SetAuto(Caption)); }

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
    FChildrenScaling = Scaling();
    ForItems(&TKxCalculatedItem::Calculate);
}

// One that fails does not keep the others from their turn. Where it was for lack of memory it may have lost
// what it had: the frame has failed with it, and the next one calculates all of them anew.
void TKxSeries::ForItems(void (TKxCalculatedItem::*Action)()) {
    const TComponentRef<TKxSeries> self(this);
    std::exception_ptr shortage;
    ForChildren([&](TKxSeries* Child) {
        auto* item = dynamic_cast<TKxCalculatedItem*>(Child);
        if (!item) return;
        try {
            (item->*Action)();
        } catch (const std::bad_alloc&) {
            shortage = std::current_exception();
        } catch (const std::exception& error) {
            HandleException(error);
        }
    });
    if (!shortage) return;
    if (self) FRangesModified = true;
    std::rethrow_exception(shortage);
}

int TKxSeries::FindPoint(int X, int Y, int Tolerance) const {
    const long long x = (long long)(X)-OriginX(), y = (long long)(Y)-OriginY();
    std::array<TPoint, CPointsAtOnce> block;
    for (int end = FPointsCount; end > 0;) {
        const int first = std::max(0, end - CPointsAtOnce);
        PointsFrom(first, std::span(block).first(std::size_t(end - first)));
        while (--end >= first) {
            const TPoint p = block[std::size_t(end - first)];
            if (IsPlaced(p) && std::abs(p.X - x) <= Tolerance && std::abs(p.Y - y) <= Tolerance) return end;
        }
        end = first;
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

} // namespace kx
