// The layout pass: ends and ticks of all axes, then the places of title, axes and drawing world.

#include "graph/Kxgraph2d.h"

#include <algorithm>

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

bool Follows(const TKxAxis* Axis) {
    return Axis->GetVisible() && Axis->GetIsSlaveAxis() && Axis->GetMasterAxis() != nullptr;
}

void FollowMaster(TKxAxis& Axis) {
    const TKxAxis& master = *Axis.GetMasterAxis();
    Axis.SetStart(master.GetStart());
    Axis.SetStop(master.GetStop());
    Axis.SetScaling(master.GetScaling());
    Axis.SetAutoCaption(master.GetCaption());
    Axis.CalculateEnds();
}

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
            return std::find(followers.begin(), followers.end(), A->GetMasterAxis()) == followers.end();
        });
        if (next == followers.end()) next = followers.begin();
        FollowMaster(**next);
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
        switch (axis.Position) {
        case AxBottomPos: World.Bottom = std::max(World.Top, World.Bottom - depth); break;
        case AxTopPos: World.Top = std::min(World.Bottom, World.Top + depth); break;
        case AxLeftPos: World.Left = std::min(World.Right, World.Left + depth); break;
        case AxRightPos: World.Right = std::max(World.Left, World.Right - depth); break;
        case AxFreeFloating: break;
        }
    }
    return World;
}

} // namespace

bool TKx2DGraph::PlaceAxes(const std::vector<TKxAxis*>& Axes) {
    TKxLayoutInput input;
    input.Graph = GetBoundsRect().Size();
    input.MinimalMargin = FMargin;
    if (FShowTitle) input.TitleHeight = FTitleLabel->GetHeight() + FMargin;
    std::vector<TKxAxis*> placed;
    for (TKxAxis* axis : Axes) {
        if (!axis->GetVisible()) continue;
        placed.push_back(axis);
        input.Axes.push_back(axis->GetLayoutAxis());
        input.Axes.back().Crossed = CrossedBy(*axis);
        // A graph with a margin keeps a little of it between labels and its edge.
        constexpr int CLabelMargin = 4;
        const int air = std::clamp(FMargin, 0, CLabelMargin);
        input.Axes.back().StartReach += air;
        input.Axes.back().StopReach += air;
    }
    const auto rooms = ReserveRoom(input);
    const TKxLayout layout = LayOutGraph(input);

    const TRect& world = layout.DrawingWorld;
    bool moved = world != FWorld->GetBoundsRect();
    FWorld->SetBounds(world.Left, world.Top, world.Width(), world.Height());
    FTitleLabel->SetBounds((GetWidth() - FTitleLabel->GetWidth()) / 2, FMargin, FTitleLabel->GetWidth(),
                           FTitleLabel->GetHeight());
    for (std::size_t i = 0; i < placed.size(); ++i) {
        const auto& place = layout.Axes[i];
        const TRect& b = place.Bounds;
        moved |= b != placed[i]->GetBoundsRect() || place.Origin != placed[i]->GetAxisOrigin();
        placed[i]->SetBounds(b.Left, b.Top, b.Width(), b.Height());
        placed[i]->SetPlace(place.Origin, place.AxisLength, place.CaptionFrom);
    }
    // A hidden axis still maps the values of its series.
    for (TKxAxis* axis : Axes)
        if (!axis->GetVisible())
            axis->SetPlace({}, (axis->IsHorizontal() ? world.Width() : world.Height()) - 1);
    PlaceCompanions(rooms, input, WithoutTicks(world, input, placed));
    return moved;
}

void TKx2DGraph::LayOutAxes() {
    const auto axes = GetAxes();
    PrepareAxes(axes);
    // Labels reach over the ends by what the length of the axis makes of them: a few rounds settle both.
    constexpr int CRounds = 4;
    for (int round = 0; round < CRounds; ++round) {
        for (TKxAxis* axis : axes) axis->CalculateTicks();
        if (!PlaceAxes(axes)) break;
    }
    for (TKxAxis* axis : axes) axis->CalculateTicks();
    UpdateEndTicks(axes);
    for (TKxAxis* axis : axes) axis->SetChanged(false);
}

// An inward tick at an end where another axis's line stands would lie on that line.
void TKx2DGraph::UpdateEndTicks(const std::vector<TKxAxis*>& Axes) {
    const auto adjoins = [&Axes](const TKxAxis& Axis, bool FirstEnd) {
        const int end = FirstEnd == Axis.IsHorizontal() ? 0 : Axis.GetAxisLength();
        const int at = end + (Axis.IsHorizontal() ? Axis.GetLeft() + Axis.GetAxisOrigin().X
                                                  : Axis.GetTop() + Axis.GetAxisOrigin().Y);
        return std::any_of(Axes.begin(), Axes.end(), [&](const TKxAxis* Other) {
            if (!Other->GetVisible() || Other->IsHorizontal() == Axis.IsHorizontal()) return false;
            return at == (Axis.IsHorizontal() ? Other->GetLeft() + Other->GetAxisOrigin().X
                                              : Other->GetTop() + Other->GetAxisOrigin().Y);
        });
    };
    for (TKxAxis* axis : Axes) {
        const auto& ticks = axis->GetTickPositions();
        const auto inwardAt = [&](int Index, int End) {
            const bool major = Index >= 0 && axis->GetTickIsMajor()[Index];
            const int length = major ? axis->GetMajorTickLength() : axis->GetTickLength();
            return Index >= 0 && length < 0 && ticks[Index] == End;
        };
        axis->SetEndTicks(
            !(inwardAt(std::min(0, axis->GetTickCount() - 1), 0) && adjoins(*axis, true)),
            !(inwardAt(axis->GetTickCount() - 1, axis->GetAxisLength()) && adjoins(*axis, false)));
    }
}

} // namespace kx
