// The layout pass: ends and ticks of all axes, then the places of title, axes and drawing world.

#include <kxgraph/graph/Kxgraph2dupdate.h>
#include <kxgraph/platform/base/scopedvalue.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace kx {

std::vector<TKxAxis*> TKx2DGraph::GetAxes() const {
    std::vector<TKxAxis*> axes;
    for (TControl* control : GetControls())
        if (auto* axis = dynamic_cast<TKxAxis*>(control)) axes.push_back(axis);
    std::stable_sort(axes.begin(), axes.end(), [](const TKxAxis* A, const TKxAxis* B) {
        return A->GetComponentIndex() < B->GetComponentIndex();
    });
    return axes;
}

namespace {

bool Follows(const TKxAxis* Axis) { return Axis->GetVisible() && Axis->GetFollowed() != nullptr; }

} // namespace

void TKx2DGraph::PrepareAxes(const std::vector<TKxAxis*>& Axes) {
    std::vector<TKxAxis*> followers;
    for (TKxAxis* axis : Axes) {
        if (Follows(axis))
            followers.push_back(axis);
        else
            axis->CalculateEnds();
    }
    while (!followers.empty()) {
        // A master that is itself a slave goes first; in a circle of slaves any.
        auto next = std::find_if(followers.begin(), followers.end(), [&](const TKxAxis* A) {
            return std::find(followers.begin(), followers.end(), A->GetFollowed()) == followers.end();
        });
        if (next == followers.end()) next = followers.begin();
        (*next)->CalculateEndsOfMaster();
        followers.erase(next);
    }
}

// With ZeroOrigin a primary axis stands where the other one is zero.
std::optional<TKxAxisMap> TKx2DGraph::CrossedBy(const TKxAxis& Axis) const {
    if (!FZeroOrigin || !FPrimaryXAxis || !FPrimaryYAxis) return {};
    const bool primary = &Axis == FPrimaryXAxis || &Axis == FPrimaryYAxis;
    const TKxAxis& other = &Axis == FPrimaryXAxis ? *FPrimaryYAxis : *FPrimaryXAxis;
    const bool throughZero = other.GetScaling() == AxNormal && other.GetStart() < 0 && other.GetStop() > 0;
    if (!primary || !throughZero || other.IsHorizontal() == Axis.IsHorizontal()) return {};
    return other.GetMap();
}

namespace {

/// The part of World that is free of the ticks of the axes at its edges.
TRect WithoutTicks(TRect World, const TKxLayoutInput& Input, const std::vector<TKxAxis*>& Axes) {
    for (std::size_t i = 0; i < Axes.size(); ++i) {
        const TKxLayoutAxis& axis = Input.Axes[i];
        if (axis.Fixed || axis.Crossed) continue;
        const int inward = -std::min(Axes[i]->GetMajorTickLength(), Axes[i]->GetTickLength());
        const int depth = std::max(0, inward - axis.Gap);
        World = axis.Side.Cut(World, depth);
    }
    return World;
}

} // namespace

TKxLayoutInput TKx2DGraph::EmptyLayout() const {
    TKxLayoutInput input;
    input.Graph = GetBoundsRect().Size();
    input.MinimalMargin = FMargin;
    if (FShowTitle) input.TitleHeight = FTitleLabel->GetHeight() + FMargin;
    return input;
}

// What an axis has needed once in a layout it keeps to the end: labels and the room that they leave to the
// axis could follow one another without end otherwise. Returns whether one of them needs more than before.
bool TKx2DGraph::TakeDemands(const std::vector<TKxAxis*>& Axes, std::vector<TKxLayoutAxis>& Demands) const {
    constexpr int CLabelMargin = 4; // of its margin a graph keeps a little between labels and its edge
    const int air = std::clamp(FMargin, 0, CLabelMargin);
    const auto before = std::exchange(Demands, {});
    bool grew = before.empty();
    for (std::size_t i = 0; i < Axes.size(); ++i) {
        TKxLayoutAxis demand = Axes[i]->GetLayoutAxis();
        demand.Crossed = CrossedBy(*Axes[i]);
        demand.StartReach += air;
        demand.StopReach += air;
        if (!before.empty())
            for (int TKxLayoutAxis::*part :
                 {&TKxLayoutAxis::Thickness, &TKxLayoutAxis::StartReach, &TKxLayoutAxis::StopReach}) {
                grew |= demand.*part > before[i].*part;
                demand.*part = std::max(demand.*part, before[i].*part);
            }
        Demands.push_back(demand);
    }
    return grew;
}

void TKx2DGraph::ApplyLayout(const TKxLayout& Layout, const std::vector<TKxAxis*>& Axes) {
    const TRect& world = Layout.DrawingWorld;
    FWorld->SetBounds(world.Left, world.Top, world.Width(), world.Height());
    FTitleLabel->SetBounds((GetWidth() - FTitleLabel->GetWidth()) / 2, FMargin, FTitleLabel->GetWidth(),
                           FTitleLabel->GetHeight());
    for (std::size_t i = 0; i < Axes.size(); ++i) {
        const TRect& b = Layout.Axes[i].Bounds;
        Axes[i]->SetBounds(b.Left, b.Top, b.Width(), b.Height());
    }
}

void TKx2DGraph::HoldRoom(bool Hold) {
    if (Hold == FHeldRoom.has_value()) return;
    Hold ? void(FHeldRoom.emplace()) : FHeldRoom.reset();
    Modified();
}

// Labels reach over the ends by what the length of the axis makes of them: a few rounds settle both. They
// begin with axes as long as the graph, so that what comes out depends on no layout before, unless one is
// held.
void TKx2DGraph::LayOutVisible(const std::vector<TKxAxis*>& Axes) {
    TKxLayoutInput needed = EmptyLayout(), input;
    if (FHeldRoom && FHeldRoom->Axes == Axes) needed.Axes = FHeldRoom->Demands;
    std::vector<TGivenRoom> rooms;
    TKxLayout layout;
    for (TKxAxis* axis : Axes)
        axis->SetPlace({}, std::max(1, axis->GetSide().Along(GetBoundsRect().Size()) - 1));
    constexpr int CRounds = 8;
    for (int round = 0; round < CRounds; ++round) {
        for (TKxAxis* axis : Axes) round == 0 ? axis->MeasureTicks() : axis->FitTicks();
        if (!TakeDemands(Axes, needed.Axes) && round > 0) break;
        input = needed;
        rooms = ReserveRoom(input);
        layout = LayOutGraph(input);
        for (std::size_t i = 0; i < Axes.size(); ++i)
            Axes[i]->SetPlace(layout.Axes[i].Origin, layout.Axes[i].AxisLength, layout.Axes[i].CaptionFrom);
    }
    if (FHeldRoom) *FHeldRoom = {Axes, needed.Axes};
    ApplyLayout(layout, Axes);
    PlaceCompanions(rooms, input, WithoutTicks(layout.DrawingWorld, input, Axes));
}

void TKx2DGraph::LayOutAxes() {
    const TUpdateScope updating(*this);
    const TScopedValue layingOut(FLayingOut, true);
    const auto axes = GetAxes();
    PrepareAxes(axes);
    std::vector<TKxAxis*> visible;
    std::ranges::copy_if(axes, std::back_inserter(visible), [](const TKxAxis* A) { return A->GetVisible(); });
    LayOutVisible(visible);
    // A hidden axis still maps the values of its series.
    for (TKxAxis* axis : axes)
        if (!axis->GetVisible())
            axis->SetPlace({}, axis->GetSide().Along(FWorld->GetBoundsRect().Size()) - 1);
    for (const bool mirrors : {false, true}) // these show ticks of others
        for (TKxAxis* axis : axes)
            if ((axis->GetMirrorOf() != nullptr) == mirrors)
                axis->GetVisible() ? axis->FinishTicks() : axis->CalculateTicks();
    UpdateEndTicks(axes);
    for (TKxAxis* axis : axes) axis->SetChanged(false);
}

// An inward tick at an end where another axis's line stands would lie on that line.
void TKx2DGraph::UpdateEndTicks(const std::vector<TKxAxis*>& Axes) {
    const auto origin = [](const TKxAxis& Axis) {
        return Axis.GetBoundsRect().TopLeft() + Axis.GetAxisOrigin();
    };
    const auto adjoins = [&](const TKxAxis& Axis, int Offset) {
        const TKxSide side = Axis.GetSide();
        const int at = side.Along(origin(Axis)) + side.FromStart(Axis.GetAxisLength(), Offset);
        return std::ranges::any_of(Axes, [&](const TKxAxis* Other) {
            return Other->GetVisible() && Other->IsHorizontal() != Axis.IsHorizontal() &&
                   side.Along(origin(*Other)) == at;
        });
    };
    for (TKxAxis* axis : Axes) {
        const auto& ticks = axis->GetTickPositions();
        const auto inwardAt = [&](int Index, int End) {
            const bool major = Index >= 0 && axis->GetTickIsMajor()[Index];
            const int length = major ? axis->GetMajorTickLength() : axis->GetTickLength();
            return Index >= 0 && length < 0 && ticks[Index] == End;
        };
        const int last = axis->GetTickCount() - 1, length = axis->GetAxisLength();
        axis->SetEndTicks(!(inwardAt(std::min(0, last), 0) && adjoins(*axis, 0)),
                          !(inwardAt(last, length) && adjoins(*axis, length)));
    }
}

} // namespace kx
