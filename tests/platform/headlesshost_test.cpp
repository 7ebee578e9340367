#include <kxgraph/platform/host/headlesshost.h>

#include "support/headless.h"
#include "support/testing.h"

#include <kxgraph/platform/host/timer.h>

namespace kx::test::headlesshost {

struct TClient : THostClient {
    void HostSettle() override {}
    void HostPaint(TCanvasDevice& Device, const TRect& Dirty) override {
        Device.FillRect(Dirty, {});
        if (OnPaint) OnPaint();
    }
    void HostMouse(TMouseKind, TMouseButton, TShiftState, TPoint) override {}
    bool HostWheel(const TWheelTurn&, TShiftState, TPoint) override { return false; }
    void HostMouseLeft() override {}
    bool HostKey(const TKeyStroke&, bool) override { return false; }
    void HostActivated(bool) override {}
    void HostResized(const TRect&) override {}
    void HostClosed() override {}
    std::function<void()> OnPaint;
};

TEST(HeadlessHost, DrawsAFrameForWhatIsInvalidAndVisibleOnly) {
    THeadlessHost host;
    TClient client;
    auto window = host.OpenWindow(client);
    window->SetBounds({10, 20, 110, 70});
    const auto& view = *host.WindowOf(client);
    host.ProcessMessages();
    window->SetVisible(true);
    client.OnPaint = [&] { window->Invalidate({90, 40, 500, 500}); };
    host.ProcessMessages();
    EXPECT_EQ(view.LastFrame.ToText(), "fill (0,0)-(100,50) brush #ffffff solid\n");
    EXPECT_EQ(view.Frames, 1) << "none while hidden";
    client.OnPaint = [&] { window.reset(); };
    host.Run();
    EXPECT_EQ(host.WindowOf(client), nullptr) << "a window may be closed while it paints";
}

TEST(HeadlessHost, MayGoBeforeWindowsAndTimers) {
    TClient client;
    auto host = std::make_unique<THeadlessHost>();
    auto window = host->OpenWindow(client);
    auto timer = host->StartTimer(5, nullptr);
    host.reset();
    window->Invalidate({0, 0, 1, 1});
    window->SetState(wsMaximized);
}

TEST(HeadlessHost, HasTimersTickInOrderOfDueTime) {
    THeadlessHost host;
    std::string log;
    std::unique_ptr<THostTimer> a, b, c;
    a = host.StartTimer(10, [&] {
        log += 'a';
        if (!c) c = host.StartTimer(7, [&] { log += 'c'; });
    });
    b = host.StartTimer(15, [&] { log += 'b'; });
    host.Advance(31); // a 10, b 15, c 17, a 20, c 24, b and a 30 (a due first), c 31
    EXPECT_EQ(log, "abcacabc");
    a = host.StartTimer(1, [&] { // stops itself and the others
        c.reset();
        b.reset();
        a.reset();
        log += '!';
    });
    host.Advance(100);
    EXPECT_EQ(log, "abcacabc!");
}

TEST(Timer, TicksWhileEnabledAndMayBeDeletedInItsTick) {
    const TFaults faults;
    auto& host = Host();
    int ticks = 0;
    auto* timer = new TTimer(nullptr);
    timer->OnTimer = [&] { ++ticks; };
    host.Advance(2000);
    timer->SetInterval(-1);
    host.Advance(1000);
    EXPECT_EQ(ticks, 2);
    timer->SetInterval(100);
    timer->OnTimer = [&] {
        delete timer;
        TApplication::Instance().Terminate();
        throw std::runtime_error("goes to the application");
    };
    TApplication::Instance().Run();
    EXPECT_EQ(faults.Text, "goes to the application");
}

TEST(Application, ReportsAnExceptionOnOneLineAndNeverRaises) {
    auto& application = TApplication::Instance();
    testing::internal::CaptureStderr();
    application.HandleException(std::runtime_error("two\nlines"));
    application.OnException = [](const std::exception&) { throw std::logic_error("second"); };
    application.HandleException(std::runtime_error("first"));
    application.OnException = nullptr;
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "kxgraph: two\\x0Alines\nkxgraph: first\nkxgraph: second\n");
}

} // namespace kx::test::headlesshost
