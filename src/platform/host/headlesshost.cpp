#include <kxgraph/platform/host/headlesshost.h>

#include <kxgraph/platform/host/post.h>
#include <kxgraph/platform/objects/guarded.h>

#include <algorithm>

namespace kx {

namespace {

template <class T>
bool Holds(const std::vector<T*>& List, const T* Item) {
    return std::ranges::find(List, Item) != List.end();
}

const THostMenuItem* FindItem(const THostMenu& Menu, std::string_view Caption) {
    for (const auto& item : Menu) {
        if (item.Caption == Caption) return &item;
        if (const auto* inner = FindItem(item.Items, Caption)) return inner;
    }
    return nullptr;
}

} // namespace

/// A window that is nothing but its state. Knows no host any more once that is gone.
class THeadlessHost::TWindow : public THostWindow {
public:
    TWindow(THeadlessHost& Host, THostClient& Client) : FHost(&Host), FClient(Client) {
        Host.FWindows.push_back(this);
    }
    ~TWindow() override {
        if (FHost) std::erase(FHost->FWindows, this);
    }

    void SetBounds(const TRect& Bounds) override {
        const bool resized = Bounds.Size() != FView.Bounds.Size();
        FView.Bounds =
            FView.PopupOf && FHost ? PopupPlace(FBeside, Bounds.Size(), FHost->FScreenSize) : Bounds;
        if (resized) InvalidateAll();
    }
    void SetVisible(bool Visible) override {
        const bool changes = Visible != FView.Visible;
        if (Visible && changes) InvalidateAll();
        FView.Visible = Visible;
        if (FView.PopupOf && changes) FClient.HostActivated(Visible);
    }
    void SetCaption(const std::string& Caption) override { FView.Caption = Caption; }
    void SetState(TWindowState State) override {
        if (State == FView.State) return;
        if (FView.State == wsNormal) FNormalBounds = FView.Bounds;
        FView.State = State;
        if (State == wsMinimized || !FHost) return;
        const TSize screen = FHost->FScreenSize;
        SetBounds(State == wsMaximized ? TRect{0, 0, screen.Width, screen.Height} : FNormalBounds);
        FClient.HostResized(FView.Bounds);
    }
    void Invalidate(const TRect& Rect) override {
        const TSize size = FView.Bounds.Size();
        FView.Invalid = FView.Invalid.United(Rect.Intersected({0, 0, size.Width, size.Height}));
    }
    void SetCapture(bool Captured) override { FView.Captured = Captured; }
    void SetCursor(TCursor Cursor) override { FView.Cursor = Cursor; }
    void ShowMenu(THostMenu Menu, TPoint Pos) override {
        FView.Menu = std::move(Menu);
        FView.MenuPos = Pos;
    }
    void TextInputChanged() override {
        Guarded([&] { FView.TextInput = FClient.HostTextInput(); });
    }
    /// What a test has the client compose it commits itself.
    void EndComposition() override { ++FView.EndedCompositions; }
    std::unique_ptr<THostWindow> OpenPopup(THostClient& Client, const TRect& Beside) override {
        if (!FHost) return nullptr;
        auto popup = std::make_unique<TWindow>(*FHost, Client);
        popup->FView.PopupOf = &FClient;
        popup->FBeside = Beside.MovedBy(FView.Bounds.TopLeft());
        return popup;
    }
    void RunModal() override {
        if (!FHost) return;
        THeadlessHost& host = *FHost;
        FView.Modal = true;
        SetVisible(true);
        FClient.HostActivated(true);
        host.RunWhile([&] { return Holds(host.FWindows, this) && FView.Modal; });
        if (Holds(host.FWindows, this)) FView.Modal = false;
    }
    void EndModal() override { FView.Modal = false; }
    THostMenu TakeMenu() { return std::exchange(FView.Menu, {}); }

    bool NeedsFrame() const {
        return FView.Visible && FView.State != wsMinimized && !FView.Invalid.IsEmpty();
    }
    /// What becomes invalid during the paint is left to the next frame.
    void DrawFrame() {
        TRecorder recorder(FView.Bounds.Size(), FHost->PixelsPerInch(), true);
        THeadlessHost& host = *FHost;
        Guarded([&] { FClient.HostSettle(); });
        if (!Holds(host.FWindows, this)) return;
        const TRect dirty = std::exchange(FView.Invalid, {});
        Guarded([&] { FClient.HostPaint(recorder, dirty); });
        if (!Holds(host.FWindows, this)) return; // closed by the paint
        FView.LastFrame = std::move(recorder.Recording);
        ++FView.Frames;
    }
    bool IsOf(const THostClient& Client) const { return &FClient == &Client; }
    THostClient& Client() const { return FClient; }
    const TWindowView& View() const { return FView; }
    void LoseHost() { FHost = nullptr; }

private:
    void InvalidateAll() { FView.Invalid = {0, 0, FView.Bounds.Width(), FView.Bounds.Height()}; }

    THeadlessHost* FHost;
    THostClient& FClient;
    TWindowView FView;
    TRect FNormalBounds, FBeside; // FBeside: on the screen
};

class THeadlessHost::TTimerEntry : public THostTimer {
public:
    TTimerEntry(THeadlessHost& Host, int Interval, TEvent<> Tick)
        : FHost(&Host), FInterval(std::max(Interval, 1)), FTick(std::move(Tick)),
          FDue(Host.FNow + FInterval) {
        Host.FTimers.push_back(this);
    }
    ~TTimerEntry() override {
        if (FHost) std::erase(FHost->FTimers, this);
    }

    long long Due() const { return FDue; }
    /// The timer may be gone afterwards.
    void Tick() {
        FDue += FInterval;
        const TEvent<> tick = FTick;
        Guarded([&] { tick(); });
    }
    void LoseHost() { FHost = nullptr; }

private:
    THeadlessHost* FHost;
    int FInterval;
    TEvent<> FTick;
    long long FDue;
};

THeadlessHost::THeadlessHost() : FClipboard(std::make_unique<TMetafile>()) {}

THeadlessHost::~THeadlessHost() {
    for (TWindow* window : FWindows) window->LoseHost();
    for (TTimerEntry* timer : FTimers) timer->LoseHost();
}

std::unique_ptr<THostWindow> THeadlessHost::OpenWindow(THostClient& Client) {
    return std::make_unique<TWindow>(*this, Client);
}

std::unique_ptr<THostTimer> THeadlessHost::StartTimer(int Interval, TEvent<> Tick) {
    return std::make_unique<TTimerEntry>(*this, Interval, std::move(Tick));
}

void THeadlessHost::CopyToClipboard(const TMetafile& Picture) { FClipboard->Assign(Picture); }

void THeadlessHost::CopyMarkup(const std::string& Text, const std::string& MimeType,
                               const std::string& Markup) {
    FText = Text;
    FMarkupType = MimeType;
    FMarkup = Markup;
}

std::string THeadlessHost::PasteMarkup(const std::string& MimeType) const {
    return FMarkupType == MimeType ? FMarkup : std::string();
}

void THeadlessHost::ProcessMessages() {
    RunPosted();
    const std::vector<TWindow*> windows = FWindows; // a paint may open and close windows
    for (TWindow* window : windows)
        if (Holds(FWindows, window) && window->NeedsFrame()) window->DrawFrame();
}

template <class F>
void THeadlessHost::RunWhile(F Goes) {
    while (Goes()) {
        ProcessMessages();
        if (!Goes()) return;
        const auto next = std::ranges::min_element(FTimers, {}, &TTimerEntry::Due);
        if (next != FTimers.end())
            Advance(static_cast<int>(std::max(0LL, (*next)->Due() - FNow)));
        else if (std::ranges::none_of(FWindows, &TWindow::NeedsFrame) && !HasPosted())
            return;
    }
}

void THeadlessHost::Run() {
    FQuit = false;
    RunWhile([this] { return !FQuit; });
}

void THeadlessHost::Advance(int Milliseconds) {
    const long long until = FNow + std::max(Milliseconds, 0);
    while (true) {
        const auto next = std::ranges::min_element(FTimers, {}, &TTimerEntry::Due);
        if (next == FTimers.end() || (*next)->Due() > until) break;
        FNow = std::max(FNow, (*next)->Due());
        (*next)->Tick();
    }
    FNow = std::max(FNow, until);
}

THeadlessHost::TWindow* THeadlessHost::Find(const THostClient& Client) const {
    const auto found =
        std::ranges::find_if(FWindows, [&](const TWindow* Window) { return Window->IsOf(Client); });
    return found == FWindows.end() ? nullptr : *found;
}

const THeadlessHost::TWindowView* THeadlessHost::WindowOf(const THostClient& Client) const {
    const TWindow* window = Find(Client);
    return window ? &window->View() : nullptr;
}

THostClient* THeadlessHost::PopupBeside(const THostClient& Client) const {
    for (auto window = FWindows.rbegin(); window != FWindows.rend(); ++window)
        if ((*window)->View().PopupOf == &Client && (*window)->View().Visible) return &(*window)->Client();
    return nullptr;
}

bool THeadlessHost::PressOutside(THostClient& Client) {
    const TWindow* window = Find(Client);
    if (!window || !window->View().PopupOf || !window->View().Visible) return false;
    Client.HostClosed();
    return true;
}

bool THeadlessHost::PickMenuItem(const THostClient& Client, std::string_view Caption) {
    TWindow* window = Find(Client);
    const THostMenuItem* item = window ? FindItem(window->View().Menu, Caption) : nullptr;
    if (!item || !item->Enabled || !item->Pick) return false;
    const auto pick = item->Pick;
    window->TakeMenu();
    Guarded(pick);
    return true;
}

} // namespace kx
