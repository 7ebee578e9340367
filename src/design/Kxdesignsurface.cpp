#include <kxgraph/design/Kxdesignsurface.h>

#include <kxgraph/design/Kxdesigncommands.h>
#include <kxgraph/design/Kxdesignhandles.h>
#include <kxgraph/graph/Kxgraphitems.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/classes.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace kx {

namespace {

constexpr int CThreshold = 3; // a press that moves less is a click

TRect RectOf(TPoint A, TPoint B) {
    return {std::min(A.X, B.X), std::min(A.Y, B.Y), std::max(A.X, B.X), std::max(A.Y, B.Y)};
}

} // namespace

TKxDesignSurface::TKxDesignSurface(TKxDesignDocument& Document) : FDocument(Document) {
    FDocument.AddObserver(this);
    TKxDesignSurface::FormReplaced();
}

TKxDesignSurface::~TKxDesignSurface() {
    FDocument.RemoveObserver(this);
    FForm->SetDesigner(nullptr);
}

void TKxDesignSurface::FormReplaced() {
    StopDrag();
    FForm = &FDocument.GetForm();
    FForm->SetDesigner(this);
}

// What is dragged may have gone.
void TKxDesignSurface::FormChanged() {
    StopDrag();
    FForm->Invalidate();
}

void TKxDesignSurface::SelectionChanged() { FForm->Invalidate(); }

void TKxDesignSurface::Changed() {
    FForm->Invalidate();
    OnState();
}

void TKxDesignSurface::SetCreating(const std::string& ClassName) {
    if (!ClassName.empty() && !FindClass(ClassName)) throw EComponentError("There is no class " + ClassName);
    FCreating = ClassName;
    Changed();
}

std::optional<TRect> TKxDesignSurface::GetDragged() const {
    if (FMode == TMode::Band || FMode == TMode::Create) return BandRect();
    if (FTo.empty()) return {};
    return FTo.back();
}

TRect TKxDesignSurface::BandRect() const { return RectOf(FAnchor, FAt); }

void TKxDesignSurface::StopDrag() {
    FMode = TMode::None;
    FDragged.clear();
    FFrom.clear();
    FTo.clear();
    FGuides.clear();
}

void TKxDesignSurface::DesignMouse(TMouseKind Kind, TMouseButton Button, TShiftState Shift, TPoint Pos) {
    switch (Kind) {
    case TMouseKind::Down:
        if (Button == mbLeft && (Shift & ssDouble)) {
            const TKxDesignHit hit = HitTest(*FForm, Pos);
            return Edit(hit.Component, hit.Property);
        }
        return Press(Button, Shift, Pos);
    case TMouseKind::Move:
        if (FMode == TMode::None) return ShowCursor(Pos);
        return Drag(Shift, Pos);
    case TMouseKind::Up:
        if (Button == mbLeft && FMode != TMode::None) Drop();
    }
}

void TKxDesignSurface::Edit(TComponent* Component, const std::string& Property) {
    StopDrag();
    FDocument.Select(Component);
    const std::string natural = Property.empty() ? NaturalProperty(*Component) : Property;
    OnEdit(Component, natural);
}

void TKxDesignSurface::Press(TMouseButton Button, TShiftState Shift, TPoint Pos) {
    if (Button != mbLeft) {
        const TKxDesignHit hit = HitTest(*FForm, Pos);
        if (Button == mbRight && !FDocument.IsSelected(hit.Component)) FDocument.Select(hit.Component);
        if (Button == mbRight) OnMenu(Pos);
        return;
    }
    FAnchor = FAt = Pos;
    if (!FCreating.empty()) {
        TControl& control = ControlAt(*FForm, Pos);
        auto* container = dynamic_cast<TWinControl*>(&control);
        FParent = container ? container : control.GetParent();
        FMode = TMode::Create;
        return Changed();
    }
    if (!PressHandle(Pos)) SelectAt(Shift, Pos);
}

bool TKxDesignSurface::PressHandle(TPoint Pos) {
    auto* primary = dynamic_cast<TControl*>(FDocument.GetPrimary());
    if (!primary || (primary != FForm && !CanPlace(*primary))) return false;
    const auto handle = HandleAt(ShownRect(*primary), Pos, primary == FForm);
    if (!handle) return false;
    FEdges = *handle;
    BeginBounds(TMode::Resize, {primary});
    return true;
}

void TKxDesignSurface::BeginBounds(TMode Mode, const std::vector<TControl*>& Controls) {
    FMode = Mode;
    FDragged = Controls;
    FFrom.clear();
    for (const TControl* control : Controls) FFrom.push_back(control->GetBoundsRect());
    FTo = FFrom;
    Changed();
}

void TKxDesignSurface::SelectAt(TShiftState Shift, TPoint Pos) {
    const TKxDesignHit hit = HitTest(*FForm, Pos);
    FAddsToSelection = (Shift & (ssShift | ssCtrl)) != 0;
    if (hit.Component == FForm) {
        FMode = TMode::Band;
        return Changed();
    }
    if (FAddsToSelection) return FDocument.ToggleSelected(hit.Component);
    if (!FDocument.IsSelected(hit.Component)) FDocument.Select(hit.Component);
    auto* control = dynamic_cast<TControl*>(hit.Component);
    if (control && CanPlace(*control)) FMode = TMode::Pressed;
}

void TKxDesignSurface::Drag(TShiftState Shift, TPoint Pos) {
    FAt = Pos;
    const TPoint by = Pos - FAnchor;
    if (FMode == TMode::Pressed) {
        if (std::abs(by.X) <= CThreshold && std::abs(by.Y) <= CThreshold) return;
        FEdges = {true, true, true, true};
        BeginBounds(TMode::Move, PlaceableSelection(FDocument));
    }
    if (FMode == TMode::Move || FMode == TMode::Resize) DragBounds(Shift, by);
    Changed();
}

std::vector<TRect> TKxDesignSurface::NeighboursOf(const std::vector<TControl*>& Controls) const {
    std::vector<TRect> rects;
    if (!FSnapsToEdges || Controls.empty() || !Controls[0]->GetParent()) return rects;
    for (const TControl* control : Controls[0]->GetParent()->GetControls())
        if (control->GetVisible() && control->GetOwner() == FForm && CanPlace(*control) &&
            std::ranges::count(Controls, control) == 0)
            rects.push_back(control->GetBoundsRect());
    return rects;
}

// The one that others follow is drawn to its neighbours; the others keep their distance from it.
void TKxDesignSurface::DragBounds(TShiftState Shift, TPoint By) {
    if (FFrom.empty()) return;
    TRect wanted = FFrom.back();
    if (FEdges.Left) wanted.Left += By.X;
    if (FEdges.Right) wanted.Right += By.X;
    if (FEdges.Top) wanted.Top += By.Y;
    if (FEdges.Bottom) wanted.Bottom += By.Y;
    FGuides.clear();
    if (!(Shift & ssAlt)) {
        TKxDesignSnapped snapped =
            Snapped(wanted, FEdges, {FGrid, FSnapsToEdges ? 5 : 0, NeighboursOf(FDragged)});
        wanted = snapped.Rect;
        FGuides = std::move(snapped.Guides);
    }
    if (FMode == TMode::Resize) {
        if (FEdges.Left) wanted.Left = std::min(wanted.Left, wanted.Right - 1);
        if (FEdges.Top) wanted.Top = std::min(wanted.Top, wanted.Bottom - 1);
        wanted.Right = std::max(wanted.Right, wanted.Left + 1);
        wanted.Bottom = std::max(wanted.Bottom, wanted.Top + 1);
        FTo = {wanted};
        return;
    }
    const TPoint by = wanted.TopLeft() - FFrom.back().TopLeft();
    for (std::size_t i = 0; i < FTo.size(); ++i) FTo[i] = FFrom[i].MovedBy(by);
}

void TKxDesignSurface::Drop() {
    const TMode mode = FMode;
    if (mode == TMode::Band) return FinishBand();
    if (mode == TMode::Create) return FinishCreating();
    const auto controls = std::exchange(FDragged, {});
    const auto from = std::exchange(FFrom, {}), to = std::exchange(FTo, {});
    StopDrag();
    if (from != to) SetControlBounds(FDocument, {mode == TMode::Move ? "Move" : "Resize"}, controls, to);
    Changed();
}

/// Selects the controls of the form that the band touches; a click selects the form.
void TKxDesignSurface::FinishBand() {
    const TRect band = BandRect();
    std::vector<TComponent*> selection;
    if (FAddsToSelection) selection = FDocument.GetSelection();
    for (TControl* control : FForm->GetControls()) {
        const bool isOurs = control->GetVisible() && control->GetOwner() == FForm;
        if (isOurs && !control->GetBoundsRect().Intersected(band).IsEmpty()) selection.push_back(control);
    }
    StopDrag();
    if (selection.empty()) selection.push_back(FForm);
    FDocument.Select(selection);
    Changed();
}

void TKxDesignSurface::FinishCreating() {
    const TRect band = BandRect();
    const bool drawn = band.Width() > CThreshold && band.Height() > CThreshold;
    const TKxDesignSnap snap{FGrid, 0, {}};
    TRect rect = band.MovedBy(FParent->RootToClient({}));
    rect = Snapped(rect, {true, true, false, false}, snap).Rect;
    if (drawn) rect = Snapped(rect, {false, false, true, true}, snap).Rect;
    const std::string type = std::exchange(FCreating, {});
    TWinControl* parent = FParent;
    StopDrag();
    Changed();
    CreateComponent(FDocument, type, {parent, rect.TopLeft(), drawn ? rect.Size() : TSize()});
}

void TKxDesignSurface::ShowCursor(TPoint Pos) {
    THostWindow* window = FForm->GetHostWindow();
    if (!window) return;
    const auto* primary = dynamic_cast<TControl*>(FDocument.GetPrimary());
    const bool resizes = primary && (primary == FForm || CanPlace(*primary));
    const auto handle = resizes ? HandleAt(ShownRect(*primary), Pos, primary == FForm) : std::nullopt;
    TCursor cursor = FCreating.empty() ? crArrow : crCross;
    if (handle && FCreating.empty()) cursor = handle->Left || handle->Right ? crSizeWE : crSizeNS;
    window->SetCursor(cursor);
}

void TKxDesignSurface::PaintSelected(TCanvas& Canvas, const TComponent& Component, bool IsPrimary) const {
    if (const auto* control = dynamic_cast<const TControl*>(&Component)) {
        const bool isForm = control == FForm, resizes = IsPrimary && (isForm || CanPlace(*control));
        return PaintFrame(Canvas, ShownRect(*control), resizes, isForm);
    }
    if (const auto* series = dynamic_cast<const TKxGraphSeries*>(&Component))
        for (const TPoint point : ShownPoints(*series)) PaintHandle(Canvas, point, IsPrimary);
}

void TKxDesignSurface::PaintDesign(TCanvas& Canvas) {
    const TComponent* primary = FDocument.GetPrimary();
    for (const TComponent* component : FDocument.GetSelection())
        PaintSelected(Canvas, *component, component == primary);
    if (FMode == TMode::Band || FMode == TMode::Create) PaintOutline(Canvas, BandRect());
    if (FTo.empty() || FDragged.empty()) return;
    const TWinControl* parent = FDragged[0]->GetParent();
    const TPoint origin = parent ? parent->ClientToRoot({}) : TPoint() - FForm->GetBoundsRect().TopLeft();
    for (const TRect& rect : FTo) PaintOutline(Canvas, rect.MovedBy(origin));
    for (const TRect& guide : FGuides) PaintGuide(Canvas, guide.MovedBy(origin));
}

} // namespace kx
