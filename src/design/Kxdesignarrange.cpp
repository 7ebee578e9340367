#include <kxgraph/design/Kxdesignarrange.h>

#include <kxgraph/graph/Kxaxis.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <numeric>
#include <optional>

namespace kx {

std::vector<TRect> AlignedTo(const TRect& Model, std::vector<TRect> Rects, TKxDesignEdge Edge) {
    for (TRect& r : Rects) {
        TPoint by;
        switch (Edge) {
        case TKxDesignEdge::Left: by.X = Model.Left - r.Left; break;
        case TKxDesignEdge::Right: by.X = Model.Right - r.Right; break;
        case TKxDesignEdge::Center: by.X = (Model.Left + Model.Right - r.Left - r.Right) / 2; break;
        case TKxDesignEdge::Top: by.Y = Model.Top - r.Top; break;
        case TKxDesignEdge::Bottom: by.Y = Model.Bottom - r.Bottom; break;
        case TKxDesignEdge::Middle: by.Y = (Model.Top + Model.Bottom - r.Top - r.Bottom) / 2; break;
        }
        r = r.MovedBy(by);
    }
    return Rects;
}

std::vector<TRect> Spread(std::vector<TRect> Rects, TKxDesignSpread Direction) {
    if (Rects.size() < 3) return Rects;
    const bool across = Direction == TKxDesignSpread::Horizontally;
    const auto start = [&](const TRect& R) { return across ? R.Left : R.Top; };
    const auto length = [&](const TRect& R) { return across ? R.Width() : R.Height(); };
    std::vector<std::size_t> order(Rects.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return start(Rects[i]); });
    const TRect &first = Rects[order.front()], &last = Rects[order.back()];
    double free = start(last) - start(first) - length(first);
    for (std::size_t i = 1; i + 1 < order.size(); ++i) free -= length(Rects[order[i]]);
    const double gap = free / double(order.size() - 1);
    double at = start(first) + length(first) + gap;
    for (std::size_t i = 1; i + 1 < order.size(); ++i) {
        TRect& r = Rects[order[i]];
        const int by = RoundToInt(at) - start(r);
        at += length(r) + gap;
        r = r.MovedBy(across ? TPoint{by, 0} : TPoint{0, by});
    }
    return Rects;
}

namespace {

/// How far a coordinate is to be moved, and to which line.
struct TPull {
    int By, To;
};

class TPuller {
public:
    TPuller(int Grid, int Reach) : FGrid(Grid), FReach(Reach) {}
    void AddLine(int Line) { FLines.push_back(Line); }
    /// Of several edges the one that is nearest to a line counts; the first one alone is drawn to the grid.
    TPull Pull(std::span<const int> Edges) const {
        std::optional<TPull> best;
        for (const int edge : Edges)
            for (const int line : FLines) {
                const int by = line - edge;
                if (std::abs(by) <= FReach && (!best || std::abs(by) < std::abs(best->By))) best = {by, line};
            }
        if (best) return *best;
        if (FGrid < 2 || Edges.empty()) return {0, CNoPixel};
        const int down = ((Edges[0] % FGrid) + FGrid) % FGrid;
        return {down * 2 < FGrid ? -down : FGrid - down, CNoPixel};
    }

private:
    int FGrid, FReach;
    std::vector<int> FLines;
};

struct TSides {
    bool Low, High;
};

std::vector<int> MovingOf(int Low, int High, TSides Moving) {
    std::vector<int> edges;
    if (Moving.Low) edges.push_back(Low);
    if (Moving.High) edges.push_back(High);
    return edges;
}

} // namespace

TKxDesignSnapped Snapped(const TRect& Rect, TKxDesignEdges Moving, const TKxDesignSnap& Snap) {
    TPuller x(Snap.Grid, Snap.Reach), y(Snap.Grid, Snap.Reach);
    TRect all = Rect;
    for (const TRect& other : Snap.Others) {
        x.AddLine(other.Left), x.AddLine(other.Right);
        y.AddLine(other.Top), y.AddLine(other.Bottom);
        all = all.United(other);
    }
    const TPull dx = x.Pull(MovingOf(Rect.Left, Rect.Right, {Moving.Left, Moving.Right}));
    const TPull dy = y.Pull(MovingOf(Rect.Top, Rect.Bottom, {Moving.Top, Moving.Bottom}));
    TRect r = Rect;
    if (Moving.Left) r.Left += dx.By;
    if (Moving.Right) r.Right += dx.By;
    if (Moving.Top) r.Top += dy.By;
    if (Moving.Bottom) r.Bottom += dy.By;
    TKxDesignSnapped snapped{r, {}};
    if (dx.To != CNoPixel) snapped.Guides.push_back({dx.To, all.Top, dx.To + 1, all.Bottom});
    if (dy.To != CNoPixel) snapped.Guides.push_back({all.Left, dy.To, all.Right, dy.To + 1});
    return snapped;
}

bool CanPlace(const TControl& Control) {
    return Control.GetParent() && Control.GetAlign() == alNone && !dynamic_cast<const TKxAxis*>(&Control);
}

std::vector<TControl*> PlaceableSelection(const TKxDesignDocument& Document) {
    const auto selection = Document.GetSelection();
    std::vector<TControl*> controls;
    for (auto one = selection.rbegin(); one != selection.rend(); ++one) {
        auto* control = dynamic_cast<TControl*>(*one);
        if (control && CanPlace(*control) &&
            (controls.empty() || control->GetParent() == controls[0]->GetParent()))
            controls.push_back(control);
    }
    std::ranges::reverse(controls);
    return controls;
}

void SetControlBounds(TKxDesignDocument& Document, const TKxDesignStep& Step,
                      std::span<TControl* const> Controls, std::span<const TRect> Bounds) {
    Document.Run(Step, [&] {
        for (std::size_t i = 0; i < Controls.size(); ++i)
            Controls[i]->SetBounds(Bounds[i].Left, Bounds[i].Top, Bounds[i].Width(), Bounds[i].Height());
    });
}

namespace {

std::vector<TRect> BoundsOf(std::span<TControl* const> Controls) {
    std::vector<TRect> bounds;
    for (const TControl* control : Controls) bounds.push_back(control->GetBoundsRect());
    return bounds;
}

template <class F>
void Arrange(TKxDesignDocument& Document, const TKxDesignStep& Step, std::size_t AtLeast, F Arranged) {
    const auto controls = PlaceableSelection(Document);
    if (controls.size() >= AtLeast) SetControlBounds(Document, Step, controls, Arranged(BoundsOf(controls)));
}

} // namespace

void MoveSelected(TKxDesignDocument& Document, TPoint By, const std::string& Key) {
    Arrange(Document, {"Move", Key}, 1, [&](std::vector<TRect> Rects) {
        for (TRect& r : Rects) r = r.MovedBy(By);
        return Rects;
    });
}

void ResizeSelected(TKxDesignDocument& Document, TSize By, const std::string& Key) {
    const auto larger = [&](TRect R) {
        return TRect::Bounds(R.Left, R.Top, std::max(R.Width() + By.Width, 1),
                             std::max(R.Height() + By.Height, 1));
    };
    if (Document.GetPrimary() == &Document.GetForm()) {
        TControl* const form = &Document.GetForm();
        const TRect bounds = larger(Document.GetForm().GetNormalBounds());
        return SetControlBounds(Document, {"Resize", Key}, {&form, 1}, {&bounds, 1});
    }
    Arrange(Document, {"Resize", Key}, 1, [&](std::vector<TRect> Rects) {
        for (TRect& r : Rects) r = larger(r);
        return Rects;
    });
}

void AlignSelected(TKxDesignDocument& Document, TKxDesignEdge Edge) {
    static constexpr std::array<const char*, 6> names{"Align Left Edges",  "Align Centers",
                                                      "Align Right Edges", "Align Top Edges",
                                                      "Align Middles",     "Align Bottom Edges"};
    Arrange(Document, {names[std::size_t(Edge)]}, 2,
            [&](std::vector<TRect> Rects) { return AlignedTo(Rects.back(), Rects, Edge); });
}

void SpreadSelected(TKxDesignDocument& Document, TKxDesignSpread Direction) {
    const char* name =
        Direction == TKxDesignSpread::Horizontally ? "Space Evenly Across" : "Space Evenly Down";
    Arrange(Document, {name}, 3,
            [&](std::vector<TRect> Rects) { return Spread(std::move(Rects), Direction); });
}

void SameSizeSelected(TKxDesignDocument& Document, TKxDesignSize What) {
    Arrange(Document, {"Same Size"}, 2, [&](std::vector<TRect> Rects) {
        const TSize size = Rects.back().Size();
        for (TRect& r : Rects) {
            if (What != TKxDesignSize::Height) r.Right = r.Left + size.Width;
            if (What != TKxDesignSize::Width) r.Bottom = r.Top + size.Height;
        }
        return Rects;
    });
}

} // namespace kx
