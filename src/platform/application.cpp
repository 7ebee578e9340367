#include "platform/application.h"

#include "platform/headlesshost.h"
#include "platform/text.h"

#include <cassert>
#include <cstdio>
#include <thread>

namespace kx {

namespace {

/// One line on standard error; says less, rather than raise, when memory is short.
void WriteMessage(const char* Message) noexcept {
    try {
        std::fprintf(stderr, "kxgraph: %s\n", Escaped(Message).c_str());
    } catch (...) {
        std::fputs("kxgraph: out of memory\n", stderr);
    }
}

/// Deletes what the application owns when the program ends.
struct TCloser {
    TApplication& Application;
    ~TCloser() {
        while (Application.GetComponentCount() > 0)
            delete Application.GetComponent(Application.GetComponentCount() - 1);
    }
};

} // namespace

struct TApplication::TThread {
    std::thread::id Id = std::this_thread::get_id();
};

TApplication::TApplication()
    : TComponent(nullptr), FHost(std::make_unique<THeadlessHost>()), FThread(std::make_unique<TThread>()) {}

TApplication::~TApplication() = default;

TApplication& TApplication::Instance() {
    // Never destroyed: components in static objects may outlive every static that could hold it. What it owns
    // is deleted at the end of the program.
    static TApplication& application = *new TApplication;
    static TCloser closer{application};
    return application;
}

void TApplication::SetHost(std::unique_ptr<THost> Host) {
    FHost = Host ? std::move(Host) : std::make_unique<THeadlessHost>();
}

void TApplication::HandleException(const std::exception& Error) {
    if (!OnException) return WriteMessage(Error.what());
    try {
        OnException(Error);
    } catch (const std::exception& second) {
        WriteMessage(Error.what());
        WriteMessage(second.what());
    } catch (...) {
        WriteMessage(Error.what());
    }
}

void TApplication::AssertOwnThread() const {
    assert(std::this_thread::get_id() == FThread->Id && "components belong to the application's thread");
}

} // namespace kx
