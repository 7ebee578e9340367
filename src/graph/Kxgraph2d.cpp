#include <kxgraph/graph/Kxgraph2dupdate.h>
#include <kxgraph/graph/Kxgraphmouse.h>

#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/host/application.h>

#include <algorithm>
#include <iterator>
#include <new>

namespace kx {

namespace {

/// All graphs there are. Never destroyed, as graphs may be static objects.
std::vector<TKx2DGraph*>& AllGraphs() {
    static auto& graphs = *new std::vector<TKx2DGraph*>;
    return graphs;
}

} // namespace

TKx2DGraph::TKx2DGraph(TComponent* Owner)
    : TCustomPanel(Owner), FFrameLine(this), FMajorGridX(this), FMajorGridY(this), FMinorGridX(this),
      FMinorGridY(this) {
    SetParentColor(false);
    FMouse = std::make_unique<TKxGraphMouse>(*this);
    FWorld = std::make_unique<TKxDrawingWorld>(this);
    FTitleLabel = std::make_unique<TKxLabel>(this);
    FTitleLabel->SetTransparent(true);
    FTitleLabel->SetAlignment(taCenter);
    FTitleLabel->SetVisible(false);
    FWorld->SetParent(this);
    FTitleLabel->SetParent(this);
    FWorld->SetDataColor(GetColor());
    FTitleFont.Assign(GetFont());
    FTitleFont.OnChange = TEvent<>::Of<&TKx2DGraph::TitleFontChanged>(this);
    FFrameLine.SetVisible(false);
    for (TKxLineStyle* grid : {&FMajorGridX, &FMajorGridY, &FMinorGridX, &FMinorGridY}) {
        grid->SetVisible(false);
        grid->SetStyle(psDot);
    }
    TCustomPanel::SetBounds(0, 0, 600, 400);
    AllGraphs().push_back(this);
}

TKx2DGraph::~TKx2DGraph() {
    std::erase(AllGraphs(), this);
    FTitleFont.OnChange = nullptr;
    // While the rest is still there: axes, title and drawing world report to the graph as they leave.
    for (TKxAxis* axis : GetAxes()) axis->SetParent(nullptr);
    FTitleLabel.reset();
    FWorld.reset();
}

std::vector<TKx2DGraph*> TKx2DGraph::OwnedBy(const TComponent& Owner) {
    std::vector<TKx2DGraph*> graphs;
    std::copy_if(AllGraphs().begin(), AllGraphs().end(), std::back_inserter(graphs),
                 [&](const TKx2DGraph* Graph) { return Graph->GetOwner() == &Owner; });
    std::sort(graphs.begin(), graphs.end(), [](const TKx2DGraph* A, const TKx2DGraph* B) {
        return A->GetComponentIndex() < B->GetComponentIndex();
    });
    return graphs;
}

void TKx2DGraph::SetPrimaryXAxis(TKxAxis* Axis) {
    if (Axis == FPrimaryXAxis) return;
    FPrimaryXAxis = Axis;
    if (!Axis) return;
    Axis->FreeNotification(this);
    if (!IsIn(csLoading) || !Axis->IsHorizontal()) Axis->SetPosition(AxBottomPos); // where a file has it
    Modified();
}

void TKx2DGraph::SetPrimaryYAxis(TKxAxis* Axis) {
    if (Axis == FPrimaryYAxis) return;
    FPrimaryYAxis = Axis;
    if (!Axis) return;
    Axis->FreeNotification(this);
    if (!IsIn(csLoading) || Axis->IsHorizontal()) Axis->SetPosition(AxLeftPos);
    Modified();
}

void TKx2DGraph::SetDataColor(TColor Color) { FWorld->SetDataColor(Color); }

void TKx2DGraph::SetTransparent(bool Transparent) {
    if (FTransparent == Transparent) return;
    FTransparent = Transparent;
    Invalidate();
}

void TKx2DGraph::SetZeroOrigin(bool ZeroOrigin) {
    if (FZeroOrigin == ZeroOrigin) return;
    FZeroOrigin = ZeroOrigin;
    Modified();
}

void TKx2DGraph::SetMargin(int Pixels) {
    Pixels = LimitedLength(std::max(0, Pixels));
    if (FMargin == Pixels) return;
    FMargin = Pixels;
    Modified();
}

void TKx2DGraph::SetShowTitle(bool Show) {
    if (FShowTitle == Show) return;
    FShowTitle = Show;
    UpdateTitle();
    Modified();
}

void TKx2DGraph::UpdateTitle() {
    FTitleLabel->SetCaption(GetCaption());
    FTitleLabel->SetFont(FTitleFont);
    FTitleLabel->SetVisible(FShowTitle);
}

void TKx2DGraph::TitleFontChanged() {
    if (!FTakingTitleFont) FTitleFontOwn = true;
    UpdateTitle();
    Modified();
}

void TKx2DGraph::CMFontChanged() {
    TCustomPanel::CMFontChanged();
    if (!FTitleFontOwn) {
        FTakingTitleFont = true;
        FTitleFont.Assign(GetFont());
        FTakingTitleFont = false;
    }
    Modified();
}

void TKx2DGraph::CMTextChanged() {
    TCustomPanel::CMTextChanged();
    UpdateTitle();
    Modified();
}

void TKx2DGraph::CMColorChanged() {
    TCustomPanel::CMColorChanged();
    Modified();
}

void TKx2DGraph::ControlsChanged(TControl* Child) {
    TCustomPanel::ControlsChanged(Child);
    if (!FLayingOut) FNeedsCalculate = true;
}

void TKx2DGraph::SetBounds(int Left, int Top, int Width, int Height) {
    const TSize before = GetBoundsRect().Size();
    TCustomPanel::SetBounds(Left, Top, Width, Height);
    if (before != GetBoundsRect().Size()) Modified();
}

void TKx2DGraph::Notification(TComponent* Component, TOperation Operation) {
    TCustomPanel::Notification(Component, Operation);
    if (Operation != opRemove) return;
    if (Component == FPrimaryXAxis) FPrimaryXAxis = nullptr;
    if (Component == FPrimaryYAxis) FPrimaryYAxis = nullptr;
    std::erase_if(FCompanions, [Component](const TCompanion& C) { return C.Component == Component; });
}

void TKx2DGraph::Modified() {
    FNeedsCalculate = true;
    Invalidate();
}

bool TKx2DGraph::NeedsSettling() const {
    if (!NotUpdating()) return false;
    if (FNeedsCalculate) return true;
    const auto axes = GetAxes();
    if (std::any_of(axes.begin(), axes.end(), [](const TKxAxis* A) { return A->GetChanged(); })) return true;
    auto& series = FWorld->GetSeriesList();
    return std::any_of(series.begin(), series.end(),
                       [](const TKxGraphSeries* S) { return S->NeedsCalculation(); });
}

void TKx2DGraph::Settle() {
    const TCursorScope wait(crHourGlass);
    try {
        Calculate();
    } catch (const std::bad_alloc&) {
        FNeedsCalculate = true; // by the next frame, as if this one had not been
        throw;
    }
}

void TKx2DGraph::DemandPrimaryAxesStand() const {
    const auto named = [](const TComponent& Component, const char* Otherwise) {
        return Component.GetName().empty() ? std::string(Otherwise) : Component.GetName();
    };
    for (const TKxAxis* axis : {FPrimaryXAxis, FPrimaryYAxis}) {
        if (!axis || axis->GetParent()) continue;
        const std::string what = axis == FPrimaryXAxis ? "primary X axis" : "primary Y axis";
        throw Exception("The " + what + " of " + named(*this, "a graph") + " has no parent: call SetParent(" +
                        named(*this, "&graph") + ") of " + named(*axis, "the axis"));
    }
}

void TKx2DGraph::Calculate() {
    const TUpdateScope updating(*this);
    FNeedsCalculate = false; // first, so that a Modified from inside survives
    DemandPrimaryAxesStand();
    FWorld->ReorderSeriesList();
    for (auto* s : GetSeriesList()) s->GetResults().WriteString("Graph", "Title", GetCaption());
    ItemsModified();
    LayOutAxes();
    CalculateSeries();
}

void TKx2DGraph::CalculateSeries() {
    const std::vector<TComponentRef<TKxGraphSeries>> series(GetSeriesList().begin(), GetSeriesList().end());
    for (const auto& s : series) { // handlers of fits may destroy one
        if (s) s->CalculateChildPoints();
        if (s) s->CalculatePoints();
    }
}

void TKx2DGraph::AddSettledState(std::vector<double>& State) const {
    TCustomPanel::AddSettledState(State);
    for (const TKxAxis* axis : GetAxes())
        for (const double value : {axis->GetStart(), axis->GetStop(), axis->GetKeptStart(),
                                   axis->GetKeptStop(), double(axis->GetAxisLength())})
            State.push_back(value);
}

// The points are made for the axes as they were laid out last; what that makes of the extents moves no axis.
void TKx2DGraph::StopSettling() {
    const TUpdateScope updating(*this);
    const auto needsPoints = [](const TKxGraphSeries* S) { return S->NeedsCalculation(); };
    constexpr int CRounds = 4; // extents, points, and both of the children
    for (int round = 0; round < CRounds && std::ranges::any_of(GetSeriesList(), needsPoints); ++round) {
        for (TKxAxis* axis : GetAxes()) axis->KeepShown();
        CalculateSeries();
    }
    for (TKxGraphSeries* s : GetSeriesList()) // that which a handler changes in every calculation
        if (s->NeedsCalculation()) s->KeepShown();
    for (TKxAxis* axis : GetAxes()) axis->KeepShown();
    FNeedsCalculate = false;
}

void TKx2DGraph::ZoomTo(const TRect& Rect) {
    const TKxZoomGesture gesture = NewZoomGesture();
    FMouse->EndGesture();
    for (TKxAxis* axis : GetAxes()) {
        const TKxSide side = axis->GetSide();
        const int origin = side.Along(TPoint{FWorld->GetXOrigin(), FWorld->GetYOrigin()});
        const double a = axis->IntToRealPosition(side.Along(Rect.TopLeft()) - origin);
        const double b = axis->IntToRealPosition(side.Along(TPoint{Rect.Right, Rect.Bottom}) - origin);
        axis->ZoomIn(std::min(a, b), std::max(a, b), gesture);
    }
    for (auto* s : GetSeriesList()) s->Modified();
}

void TKx2DGraph::PaintTo(TCanvasDevice& Device) {
    DemandPrimaryAxesStand(); // here it reaches the caller; a frame gives what it raises to the application
    const TScopedValue white(FWhiteBackground, true);
    PaintFrame(*this, Device);
}

void TKx2DGraph::PaintToMetafile() {
    const TSize size = GetBoundsRect().Size();
    TRecorder whole(size), smooth(size, TFont::CPixelsPerInch, false, true);
    PaintTo(whole);
    PaintTo(smooth);
    FMetafile.SetPicture(size, std::move(whole.Recording), std::move(smooth.Recording));
}

void TKx2DGraph::CopyToClipboard() {
    PaintToMetafile();
    TApplication::Instance().GetHost().CopyToClipboard(FMetafile);
}

} // namespace kx
