#include <kxgraph/platform/controls/form.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/controls/designer.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/objects/published.h>

namespace kx {

TForm::TForm(TComponent* Owner) : TCustomControl(Owner) { TForm::SetBounds(0, 0, 640, 480); }

TForm::~TForm() {
    FWindow.reset();
    EndRequests();
}

void TForm::OpenWindow() {
    if (FWindow) return;
    FWindow = TApplication::Instance().GetHost().OpenWindow(*this);
    FWindow->SetCaption(GetText());
    FWindow->SetBounds(FNormalBounds);
    FWindow->SetState(FState);
}

void TForm::Show() {
    OpenWindow();
    FShown = true;
    SetVisible(true);
    UpdateWindow();
}

int TForm::ShowModal() {
    if (IsShown() || FModal) throw Exception("A form that is shown cannot become modal");
    const TComponentRef<TForm> self(this);
    OpenWindow();
    FModal = FShown = true;
    FModalResult = mrNone;
    SetVisible(true);
    EndRequests();
    if (!GetFocused()) FocusNext(true);
    FWindow->RunModal();
    if (!self) return mrCancel;
    FModal = false;
    Hide();
    return FModalResult == mrNone ? mrCancel : FModalResult;
}

void TForm::SetModalResult(int Result) {
    FModalResult = Result;
    if (FModal && Result != mrNone && FWindow) FWindow->EndModal();
}

bool TForm::DialogKey(const TKeyStroke& Stroke) {
    if (!FModal || Stroke.Key != kcEscape) return false;
    SetModalResult(mrCancel);
    return true;
}

void TForm::ShowIn(std::unique_ptr<THostWindow> Window) {
    FWindow = std::move(Window);
    FShown = FIsPart = FWindow != nullptr;
    if (FShown) SetVisible(true);
    UpdateWindow();
}

void TForm::Hide() {
    FShown = false;
    UpdateWindow();
}

void TForm::UpdateWindow() {
    if (FWindow) FWindow->SetVisible(FShown && GetVisible());
    EndRequests();
}

void TForm::SetWindowState(TWindowState State) {
    if (FState == State) return;
    const TRect normal = FNormalBounds; // the host may tell of other bounds on the way
    FState = State;
    if (!FWindow || FIsPart) return;
    FWindow->SetState(State);
    EndRequests();
    if (State == wsNormal) SetBounds(normal.Left, normal.Top, normal.Width(), normal.Height());
}

void TForm::SetPosition(TPosition Position) {
    FPosition = Position;
    if (Position != poScreenCenter) return;
    const TSize screen = TApplication::Instance().GetHost().ScreenSize();
    const int width = FNormalBounds.Width(), height = FNormalBounds.Height();
    SetBounds((screen.Width - width) / 2, (screen.Height - height) / 2, width, height);
}

void TForm::SetBounds(int Left, int Top, int Width, int Height) {
    const bool normal = IsInNormalState();
    if (normal || !FTakingHostBounds) FNormalBounds = LimitedBounds(Left, Top, Width, Height);
    if (!normal && !FTakingHostBounds) return;
    TCustomControl::SetBounds(Left, Top, Width, Height);
    if (FWindow && !FTakingHostBounds) FWindow->SetBounds(GetBoundsRect());
}

void TForm::Paint() {
    if (IsCovered(GetCanvas().GetClipRect())) return;
    GetCanvas().Brush.SetColor(GetColor());
    GetCanvas().FillRect(GetClientRect());
}

void TForm::CMTextChanged() {
    TCustomControl::CMTextChanged();
    if (FWindow) FWindow->SetCaption(GetText());
}

void TForm::CMVisibleChanged() {
    TCustomControl::CMVisibleChanged();
    UpdateWindow();
}

void TForm::HostSettle() { SettleTree(*this); }

void TForm::HostPaint(TCanvasDevice& Device, const TRect& Dirty) {
    EndRequests();                         // what is asked for from here on is for the next frame
    const TComponentRef<TForm> self(this); // which whoever settles or paints may take away
    SettleTree(*this);
    if (self) PaintTree(*this, Device, Dirty);
    if (self && FDesigner) {
        TCanvas canvas(&Device);
        canvas.SetBaseClip(Dirty);
        Guarded([&] { FDesigner->PaintDesign(canvas); });
        Device.SetClip({});
    }
    if (self) EndRequests(); // a window may count what was asked for meanwhile as painted
}

void TForm::HostMouse(TMouseKind Kind, TMouseButton Button, TShiftState Shift, TPoint Pos) {
    if (FDesigner) return Guarded([&] { FDesigner->DesignMouse(Kind, Button, Shift, Pos); });
    DispatchMouse(Kind, Button, Shift, Pos);
}

void TForm::HostMouseLeft() {
    if (FDesigner) return Guarded([&] { FDesigner->DesignMouseLeft(); });
    DispatchMouseLeft();
}

bool TForm::HostKey(const TKeyStroke& Stroke, bool Down) {
    if (!FDesigner) return DispatchKey(Stroke, Down);
    bool taken = false;
    Guarded([&] { taken = FDesigner->DesignKey(Stroke, Down); });
    return taken;
}

void TForm::SetDesigner(TFormDesigner* Designer) {
    FDesigner = Designer;
    Invalidate();
}

bool TForm::HostWheel(const TWheelTurn& Turn, TShiftState Shift, TPoint Pos) {
    return FDesigner ? FDesigner->DesignWheel(Turn, Shift, Pos) : DispatchWheel(Turn, Shift, Pos);
}

void TForm::HostActivated(bool Active) {
    if (FActive == Active) return;
    FActive = Active;
    if (TWinControl* focused = GetFocused()) Guarded([&] { focused->CMActiveChanged(); });
    Guarded([&] { (Active ? OnActivate : OnDeactivate)(this); });
}

void TForm::HostResized(const TRect& Bounds) {
    EndRequests();
    const TScopedValue taking(FTakingHostBounds, true);
    Guarded([&] { SetBounds(Bounds.Left, Bounds.Top, Bounds.Width(), Bounds.Height()); });
}

void TForm::HostStateChanged(TWindowState State, const TRect& Normal) {
    FState = State;
    FNormalBounds = Normal;
    EndRequests();
}

void TForm::HostEntered(bool Forward) {
    if (!GetFocused()) FocusNext(Forward);
}

TAccessiblePart TForm::HostAccessible() {
    SettleTree(*this);
    TAccessiblePart part = Accessible();
    part.Role = TAccessibleRole::Window;
    return part;
}

void TForm::HostClosed() {
    if (FModal) SetModalResult(mrCancel);
    Hide();
    Guarded([&] { OnClose(this); });
}

const TPropertyTable& TForm::Properties() {
    using C = TForm;
    static const TPropertyTable table(
        "TForm", &TWinControl::Properties(),
        {Published<&C::GetCaption, &C::SetCaption>("Caption", "", "Title of the window"),
         Published<&C::GetWindowState, &C::SetWindowState>("WindowState", wsNormal, "Size of the window"),
         Published<&C::GetPosition, &C::SetPosition>("Position", poDesigned, "Where the window opens")
             .LoadedBy(Into<&C::FPosition>()), // the bounds are those that it had
         PublishedEvent<&C::OnClose>("OnClose", "The window was closed"),
         PublishedEvent<&C::OnActivate>("OnActivate", "The window takes the keys"),
         PublishedEvent<&C::OnDeactivate>("OnDeactivate", "The window takes the keys no more")});
    return table;
}

} // namespace kx
