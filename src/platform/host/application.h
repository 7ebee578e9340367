#pragma once
// The application object and the screen: the host in use, the root of the owner chain, and where exceptions
// go that leave a handler.

#include <kxgraph/platform/host/host.h>
#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/objects/guarded.h>

#include <exception>
#include <memory>

namespace kx {

/// The one application: owner of forms, nameless root of owner paths. Made at its first use; the thread that
/// makes it is the one that may touch components.
class TApplication : public TComponent {
public:
    static TApplication& Instance();
    ~TApplication() override;

    /// The host; the headless one at first.
    THost& GetHost() const { return *FHost; }
    /// Replaces the host. Open windows must be closed before.
    void SetHost(std::unique_ptr<THost> Host);

    /// Gets every exception that leaves a paint or event handler. Without a handler the message is written as
    /// one line to standard error.
    TEvent<const std::exception&> OnException;
    void HandleException(const std::exception& Error);

    void Run() { FHost->Run(); }
    void ProcessMessages() { FHost->ProcessMessages(); }
    void Terminate() { FHost->Quit(); }

private:
    TApplication();
    std::unique_ptr<THost> FHost;
};

/// The screen of the host.
struct TScreen {
    int GetWidth() const { return TApplication::Instance().GetHost().ScreenSize().Width; }
    int GetHeight() const { return TApplication::Instance().GetHost().ScreenSize().Height; }
    int GetPixelsPerInch() const { return TApplication::Instance().GetHost().PixelsPerInch(); }
    TCursor GetCursor() const { return FCursor; }
    /// The cursor over everything; crDefault leaves it to the controls.
    void SetCursor(TCursor Cursor) {
        FCursor = Cursor;
        TApplication::Instance().GetHost().SetCursor(Cursor);
    }

private:
    TCursor FCursor = crDefault;
};
inline TScreen Screen;

/// Shows a cursor while it lives and restores the one before.
class TCursorScope {
public:
    explicit TCursorScope(TCursor Cursor) : FBefore(Screen.GetCursor()) { Screen.SetCursor(Cursor); }
    ~TCursorScope() { Screen.SetCursor(FBefore); }
    TCursorScope(const TCursorScope&) = delete;
    TCursorScope& operator=(const TCursorScope&) = delete;

private:
    TCursor FBefore;
};

} // namespace kx
