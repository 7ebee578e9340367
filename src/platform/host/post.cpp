#include <kxgraph/platform/host/post.h>

#include <kxgraph/platform/host/host.h>
#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/platform/objects/ownthread.h>

#include <cstddef>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace kx {

namespace {

struct TPosted {
    std::mutex Lock;
    std::deque<std::function<void()>> Actions;
    THost* Host = nullptr;
    bool Woken = false; // and has not run them yet

    void Wake() {
        if (Woken || !Host || Actions.empty()) return;
        Woken = true;
        Host->Wake();
    }
};

// Never destroyed: threads may post while the program ends.
TPosted& Posted() {
    static TPosted& posted = *new TPosted;
    return posted;
}

std::optional<std::function<void()>> TakeFirst() {
    TPosted& posted = Posted();
    const std::lock_guard lock(posted.Lock);
    if (posted.Actions.empty()) return std::nullopt;
    std::optional action(std::move(posted.Actions.front()));
    posted.Actions.pop_front();
    return action;
}

} // namespace

void Post(std::function<void()> Action) {
    TPosted& posted = Posted();
    const std::lock_guard lock(posted.Lock);
    posted.Actions.push_back(std::move(Action));
    posted.Wake();
}

// No more than were there: an action that posts itself again lets the host do something else.
void RunPosted() {
    AssertOwnThread();
    TPosted& posted = Posted();
    std::size_t count;
    {
        const std::lock_guard lock(posted.Lock);
        posted.Woken = false;
        count = posted.Actions.size();
    }
    for (; count > 0; --count) {
        const auto action = TakeFirst(); // one by one: an action may run the rest by handling messages
        if (!action) return;
        Guarded([&] { (*action)(); });
    }
}

bool HasPosted() {
    const std::lock_guard lock(Posted().Lock);
    return !Posted().Actions.empty();
}

void SetPostHost(THost* Host) {
    TPosted& posted = Posted();
    const std::lock_guard lock(posted.Lock);
    posted.Host = Host;
    posted.Woken = false;
    posted.Wake();
}

} // namespace kx
