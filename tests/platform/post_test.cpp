#include <kxgraph/platform/host/post.h>

#include "support/headless.h"
#include "support/testing.h"

#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/objects/ownthread.h>

#include <thread>

namespace kx::test::post {

TEST(Post, RunsOnTheThreadOfTheComponentsInOrderForOneWakeUp) {
    const TFaults faults;
    auto& application = TApplication::Instance();
    const int wakes = Host().GetWakes();
    constexpr int CThreads = 4, CPosts = 500;
    std::vector<int> last(CThreads, -1);
    bool inOrder = true, here = true;
    {
        std::vector<std::jthread> threads;
        for (int t = 0; t < CThreads; ++t)
            threads.emplace_back([&, t] {
                for (int i = 0; i < CPosts; ++i)
                    Post([&, t, i] {
                        inOrder = inOrder && last[std::size_t(t)] == i - 1;
                        here = here && IsOwnThread();
                        last[std::size_t(t)] = i;
                    });
            });
    }
    EXPECT_EQ(Host().GetWakes() - wakes, 1);
    application.ProcessMessages();
    EXPECT_EQ(last, std::vector<int>(CThreads, CPosts - 1));
    EXPECT_TRUE(inOrder && here);

    std::string log;
    Post([&] {
        Post([&] { log += "later "; });
        throw Exception("told");
    });
    Post([&] { log += "goes on "; });
    application.ProcessMessages();
    EXPECT_EQ(log, "goes on ") << "what an action posts is for the next time";
    EXPECT_EQ(faults.Text, "told");
    Post([&] { application.ProcessMessages(), log += "outer "; });
    Post([&] { log += "inner "; });
    application.ProcessMessages();
    EXPECT_EQ(log, "goes on later inner outer ");

    Post([&] { log = "kept"; });
    application.SetHost(nullptr);
    EXPECT_EQ(Host().GetWakes(), 1) << "a new host is told of what waits";
    application.Run();
    EXPECT_EQ(log, "kept");
}

#ifndef NDEBUG
TEST(OwnThreadDeathTest, StopsWhoTouchesComponentsFromAnotherThread) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    TApplication::Instance();
    TForm form(nullptr);
    TCustomPanel panel(&form);
    TKxLiveVector vector(&form);
    vector.Add(1);
    const std::pair<const char*, std::function<void()>> touches[] = {
        {"make", [&] { TComponent made(&form); }},     {"name", [&] { panel.SetName("Panel1"); }},
        {"parent", [&] { panel.SetParent(&form); }},   {"bounds", [&] { panel.SetBounds(1, 2, 3, 4); }},
        {"colour", [&] { panel.SetColor(clRed); }},    {"text", [&] { panel.SetText("a"); }},
        {"visible", [&] { panel.SetVisible(false); }}, {"enabled", [&] { panel.SetEnabled(false); }},
        {"font", [&] { panel.GetFont().SetSize(20); }}};
    const std::function<void()> changes[] = {[&] { vector.Add(1); }, [&] { vector.SetValue(0, 1); },
                                             [&] { vector.Delete(0); }, [&] { vector.Clear(); }};
    for (const auto& [name, touch] : touches)
        EXPECT_DEATH(std::thread(touch).join(), "application's thread") << name;
    for (const auto& change : changes)
        EXPECT_DEATH(std::thread(change).join(), "application's thread") << &change - changes;
}
#endif

} // namespace kx::test::post
