#pragma once
// The application object and the screen: the host in use, the root of the owner chain, and where exceptions
// go that leave a handler.

#include "platform/component.h"
#include "platform/exceptions.h"
#include "platform/host.h"

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
    /// Asserts, in builds with assertions, that the caller runs on the application's thread.
    void AssertOwnThread() const;

private:
    TApplication();
    struct TThread;
    std::unique_ptr<THost> FHost;
    std::unique_ptr<TThread> FThread;
};

/// Components belong to the thread of the application object. In builds with assertions this asserts that the
/// caller runs on it; in others it is nothing at all.
inline void AssertOwnThread() {
#ifndef NDEBUG
    TApplication::Instance().AssertOwnThread();
#endif
}

/// Runs Action; an exception goes to the application.
template <class F>
void Guarded(F Action) {
    try {
        Action();
    } catch (const std::exception& error) {
        TApplication::Instance().HandleException(error);
    }
}

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
