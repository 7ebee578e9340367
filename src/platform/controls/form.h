#pragma once
// A form: the windowed control at the top of a tree, shown in a window of the host.

#include <kxgraph/platform/controls/controls.h>
#include <kxgraph/platform/objects/typenames.h>

namespace kx {

class TFormDesigner;

enum TPosition { poDesigned, poScreenCenter };
template <>
inline constexpr auto CEnumNames<TPosition> = std::to_array<std::string_view>({"poDesigned",
                                                                               "poScreenCenter"});

/// How a modal form was left; programs may have other numbers.
enum TModalResult : int { mrNone, mrOk, mrCancel, mrYes, mrNo };

/// A window of 640 x 480 pixels. Closed after construction; Show opens it on the application's host.
class TForm : public TCustomControl, private THostClient {
public:
    explicit TForm(TComponent* Owner);
    ~TForm() override;

    void Show();
    void Hide();
    /// Shows the form so that no other window takes input, and returns when ModalResult is set: by a button,
    /// by the program, or mrCancel where the window is closed and, unless a button takes it, by Escape. Then
    /// it is hidden. Raises Exception "A form that is shown cannot become modal".
    int ShowModal();
    int GetModalResult() const { return FModalResult; }
    /// Another number than mrNone ends ShowModal.
    void SetModalResult(int Result);
    bool IsModal() const { return FModal; }
    /// Shows the form in Window, a part of another window, instead of in one of its own; null takes it away.
    /// Such a part is neither minimised nor maximised: WindowState waits for a window of the form's own.
    void ShowIn(std::unique_ptr<THostWindow> Window);
    bool IsShown() const { return FWindow != nullptr && FShown; }
    TWindowState GetWindowState() const { return FState; }
    /// The bounds in normal state are kept while the form is minimised or maximised.
    void SetWindowState(TWindowState State);
    /// The bounds that the form has, or returns to, in normal state.
    const TRect& GetNormalBounds() const { return FNormalBounds; }
    TPosition GetPosition() const { return FPosition; }
    /// poScreenCenter moves the form to the middle of the screen at once.
    void SetPosition(TPosition Position);
    const std::string& GetCaption() const { return GetText(); }
    void SetCaption(const std::string& Caption) { SetText(Caption); }

    /// Places the window. While that is minimised or maximised only the bounds in normal state are set.
    void SetBounds(int Left, int Top, int Width, int Height) override;
    THostWindow* GetHostWindow() const override { return FWindow.get(); }
    /// What the host calls the form by; for a test that plays the host.
    THostClient& AsHostClient() { return *this; }

    /// Null: none. Not owned; it takes itself away before it goes.
    TFormDesigner* GetDesigner() const { return FDesigner; }
    void SetDesigner(TFormDesigner* Designer);

    TNotifyEvent OnClose;
    /// The window takes the keys, or takes them no more.
    TNotifyEvent OnActivate, OnDeactivate;
    /// Whether the window takes the keys.
    bool IsActive() const { return FActive; }

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TForm>(); }
    void Paint() override;
    void CMTextChanged() override;
    void CMVisibleChanged() override;
    bool DialogKey(const TKeyStroke& Stroke) override;
    bool WindowTakesKeys() const override { return FActive; }

private:
    void OpenWindow();
    void UpdateWindow();
    void HostSettle() override;
    void HostPaint(TCanvasDevice& Device, const TRect& Dirty) override;
    void HostMouse(TMouseKind Kind, TMouseButton Button, TShiftState Shift, TPoint Pos) override;
    bool HostWheel(const TWheelTurn& Turn, TShiftState Shift, TPoint Pos) override;
    void HostMouseLeft() override;
    bool HostKey(const TKeyStroke& Stroke, bool Down) override;
    void HostActivated(bool Active) override;
    void HostResized(const TRect& Bounds) override;
    void HostClosed() override;
    void HostDropped() override { EndRequests(); }
    void HostStateChanged(TWindowState State, const TRect& Normal) override;
    void HostEntered(bool Forward) override;
    bool HostCompose(const TComposition& Composition) override { return DispatchComposition(Composition); }
    THostTextInput HostTextInput() override { return FocusedTextInput(); }
    THostHint HostHint(TPoint Pos) override { return HintAt(Pos); }
    TAccessiblePart HostAccessible() override;

    std::unique_ptr<THostWindow> FWindow;
    TFormDesigner* FDesigner = nullptr;
    bool IsInNormalState() const { return FState == wsNormal || FIsPart || !FWindow; }

    bool FShown = false, FActive = false, FModal = false;
    bool FIsPart = false; // of another window
    int FModalResult = mrNone;
    bool FTakingHostBounds = false;
    TRect FNormalBounds;
    TWindowState FState = wsNormal;
    TPosition FPosition = poDesigned;
};

} // namespace kx
