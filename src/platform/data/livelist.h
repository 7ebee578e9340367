#pragma once
// Pointers to objects that are called one after the other, while any of them may leave, and the list go.

#include <algorithm>
#include <cstddef>
#include <exception>
#include <memory>
#include <vector>

namespace kx {

/// Not owned, in order of entry. Whoever is destroyed leaves before.
template <class T>
class TLiveList {
public:
    TLiveList() = default;
    TLiveList(const TLiveList&) = delete;
    TLiveList& operator=(const TLiveList&) = delete;
    ~TLiveList() { std::ranges::fill(FState->Items, nullptr); }

    void Add(T* Item) { FState->Items.push_back(Item); }
    /// Item is not called any more, also in a round that runs.
    void Remove(T* Item) {
        auto& items = FState->Items;
        const auto found = std::ranges::find(items, Item);
        if (found == items.end()) return;
        *found = nullptr;
        if (FState->Rounds == 0) items.erase(found);
    }
    /// Calls Do for each that is there now, as long as the list is. Those that raise keep nobody from their
    /// turn: what the first one raised is raised at the end.
    template <class F>
    void ForEach(F Do) {
        const auto state = FState; // outlives the list
        std::exception_ptr failure;
        ++state->Rounds;
        for (std::size_t i = 0, count = state->Items.size(); i < count; ++i) {
            try {
                if (T* item = state->Items[i]) Do(*item);
            } catch (...) {
                if (!failure) failure = std::current_exception();
            }
        }
        if (--state->Rounds == 0) std::erase(state->Items, nullptr);
        if (failure) std::rethrow_exception(failure);
    }

private:
    struct TState {
        std::vector<T*> Items;
        int Rounds = 0;
    };
    std::shared_ptr<TState> FState = std::make_shared<TState>();
};

} // namespace kx
