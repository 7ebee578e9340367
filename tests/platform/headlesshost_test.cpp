#include "platform/headlesshost.h"

#include "platform/application.h"
#include "platform/timer.h"

#include <gtest/gtest.h>

#include <functional>

using namespace kx;

namespace {

struct TClient : THostClient {
    void HostPaint(TCanvasDevice& Device, const TRect& Dirty) override {
        Device.FillRect(Dirty, {});
        if (OnPaint) OnPaint();
    }
    void HostMouse(TMouseKind, TMouseButton, TShiftState, TPoint) override {}
    void HostKey(int, std::string_view, TShiftState, bool) override {}
    void HostResized(const TRect& Bounds) override { Resized = Bounds; }
    void HostClosed() override {}

    std::function<void()> OnPaint;
    TRect Resized;
};

} // namespace

TEST(HeadlessHost, measures_six_tenths_of_the_height_a_character) {
    const struct {
        int Height;
        const char* Text;
        TSize Size;
    } cases[] = {{-13, "abc", {24, 13}}, {20, "äß€", {36, 20}}, {-1, "x", {1, 1}}, {-10, "", {0, 10}}};
    const THeadlessHost host;
    for (const auto& c : cases)
        EXPECT_EQ(host.MeasureText({"Arial", c.Height, fsBold, fpDefault, 450}, c.Text), c.Size) << c.Text;
}

TEST(HeadlessHost, draws_a_frame_for_what_is_invalid_and_visible_only) {
    THeadlessHost host;
    TClient client;
    auto window = host.OpenWindow(client);
    window->SetBounds({10, 20, 110, 70});
    const auto& view = *host.WindowOf(client);
    host.ProcessMessages();
    EXPECT_EQ(view.Frames, 0) << "not visible yet";
    window->SetVisible(true);
    client.OnPaint = [&] { window->Invalidate({90, 40, 500, 500}); };
    host.ProcessMessages();
    EXPECT_EQ(view.LastFrame.ToText(), "fill (0,0)-(100,50) brush #ffffff solid\n");
    client.OnPaint = nullptr;
    host.ProcessMessages();
    EXPECT_EQ(view.LastFrame.ToText(), "fill (90,40)-(100,50) brush #ffffff solid\n");
    host.ProcessMessages();
    EXPECT_EQ(view.Frames, 2);
    window->SetState(wsMaximized);
    EXPECT_EQ(client.Resized, (TRect{0, 0, 1920, 1080}));
    window->SetState(wsNormal);
    EXPECT_EQ(view.Bounds, (TRect{10, 20, 110, 70}));
    client.OnPaint = [&] { window.reset(); };
    host.Run();
    EXPECT_EQ(host.WindowOf(client), nullptr) << "a window may be closed while it paints";
}

TEST(HeadlessHost, windows_and_timers_may_outlive_it) {
    TClient client;
    auto host = std::make_unique<THeadlessHost>();
    auto window = host->OpenWindow(client);
    auto timer = host->StartTimer(5, nullptr);
    host.reset();
    window->Invalidate({0, 0, 1, 1});
    window->SetState(wsMaximized);
    timer.reset();
}

TEST(HeadlessHost, timers_tick_in_order_of_due_time) {
    THeadlessHost host;
    std::string log;
    std::unique_ptr<THostTimer> a, b, c;
    a = host.StartTimer(10, [&] {
        log += 'a';
        if (!c) c = host.StartTimer(7, [&] { log += 'c'; });
    });
    b = host.StartTimer(15, [&] { log += 'b'; });
    host.Advance(9);
    EXPECT_EQ(log, "");
    host.Advance(22); // a 10, b 15, c 17, a 20, c 24, b and a 30 (a due first), c 31
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

TEST(Timer, ticks_while_enabled_and_may_be_deleted_in_its_tick) {
    auto& host = dynamic_cast<THeadlessHost&>(TApplication::Instance().GetHost());
    int ticks = 0;
    auto* timer = new TTimer(nullptr);
    timer->OnTimer = [&] { ++ticks; };
    host.Advance(2000);
    EXPECT_EQ(ticks, 2);
    timer->SetInterval(100);
    timer->SetEnabled(false);
    host.Advance(1000);
    timer->SetEnabled(true);
    timer->SetInterval(-1);
    host.Advance(1000);
    EXPECT_EQ(ticks, 2);
    timer->SetInterval(100);
    timer->OnTimer = [&] {
        ++ticks;
        delete timer;
        TApplication::Instance().Terminate();
        throw std::runtime_error("goes to the application");
    };
    std::string message;
    TApplication::Instance().OnException = [&](const std::exception& Error) { message = Error.what(); };
    TApplication::Instance().Run();
    TApplication::Instance().OnException = nullptr;
    EXPECT_EQ(ticks, 3);
    EXPECT_EQ(message, "goes to the application");
}

TEST(Application, reports_an_exception_on_one_line_and_never_raises) {
    auto& application = TApplication::Instance();
    testing::internal::CaptureStderr();
    application.HandleException(std::runtime_error("two\nlines"));
    application.OnException = [](const std::exception&) { throw std::logic_error("second"); };
    application.HandleException(std::runtime_error("first"));
    application.OnException = [](const std::exception&) { throw 1; };
    application.HandleException(std::runtime_error("third"));
    application.OnException = nullptr;
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "kxgraph: two\\x0Alines\nkxgraph: first\nkxgraph: second\nkxgraph: third\n");
}

TEST(Application, a_cursor_scope_restores_the_cursor_before) {
    auto& host = dynamic_cast<THeadlessHost&>(TApplication::Instance().GetHost());
    {
        const TCursorScope waiting(crHourGlass);
        const TCursorScope crossing(crCross);
        EXPECT_EQ(host.GetCursor(), crCross);
    }
    EXPECT_EQ(host.GetCursor(), crDefault);
}
