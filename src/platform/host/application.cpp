#include <kxgraph/platform/host/application.h>

#include <kxgraph/platform/host/headlesshost.h>
#include <kxgraph/platform/host/post.h>
#include <kxgraph/platform/objects/ownthread.h>

namespace kx {

namespace {

/// Deletes what the application owns when the program ends.
struct TCloser {
    TApplication& Application;
    ~TCloser() {
        while (Application.GetComponentCount() > 0)
            delete Application.GetComponent(Application.GetComponentCount() - 1);
    }
};

} // namespace

TApplication::TApplication() : TComponent(nullptr) {
    IsOwnThread(); // from now on
    SetHost(nullptr);
    SetExceptionSink([](const std::exception& Error) { Instance().HandleException(Error); });
}

TApplication::~TApplication() = default;

TApplication& TApplication::Instance() {
    // Never destroyed: components in static objects may outlive every static that could hold it. What it owns
    // is deleted at the end of the program.
    static TApplication& application = *new TApplication;
    static TCloser closer{application};
    return application;
}

void TApplication::SetHost(std::unique_ptr<THost> Host) {
    if (!Host) Host = std::make_unique<THeadlessHost>();
    SetScreenText(Host.get());
    SetPostHost(Host.get());
    FHost = std::move(Host);
}

void TApplication::HandleException(const std::exception& Error) {
    if (!OnException) return WriteException(Error);
    try {
        OnException(Error);
    } catch (const std::exception& second) {
        WriteException(Error);
        WriteException(second);
    } catch (...) {
        WriteException(Error);
    }
}

} // namespace kx
