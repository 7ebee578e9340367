#include <kxgraph/numeric/Kxvector.h>

#include "support/testing.h"

namespace kx::test::vector {

using TCalls = std::vector<std::pair<int, bool>>;

struct TWatcher {
    TCalls Heard;
    void Changed(int Index, bool WasDeleted) { Heard.emplace_back(Index, WasDeleted); }
    void Other(int Index, bool WasDeleted) { Changed(Index, WasDeleted); }
    TKxValueIChangedEvent Event() { return TKxValueIChangedEvent::Of<&TWatcher::Changed>(this); }
    TKxValueIChangedEvent OtherEvent() { return TKxValueIChangedEvent::Of<&TWatcher::Other>(this); }
};

TReals Of(const TKxRealVector& V) { return TReals(V.Values().begin(), V.Values().end()); }

TEST(Vectors, GrowTheirCapacityInStepsAheadOfCount) {
    TKxRealVector v(nullptr);
    TKxIntegerVector whole(10);
    for (int i = 1; i <= 100; ++i) {
        EXPECT_EQ(v.Add(i) + whole.Add(i), 2 * i);
        EXPECT_EQ(v.GetCapacity(), (i / 50 + 1) * 50);
        EXPECT_EQ(whole.GetCapacity(), (i / 10 + 1) * 10);
    }
    v.SetValue(200, 1);
    EXPECT_EQ(v.GetValue(199), 0);
    EXPECT_THROW(v.GetValue(201), ERangeError);
    EXPECT_THROW(whole.GetValue(100), ERangeError);
}

TEST(Vectors, ChangeAndTellAsTheyShould) {
    const TReals two{5, 6};
    const struct {
        std::function<void(TKxRealVector&)> Act;
        TCalls Heard; // by the live vector's listener; the plain one tells nobody
        TReals After;
        bool OnlyLive = false;
    } cases[] = {
        {[&](auto& v) { v.AddValues(two); }, {{3, false}, {4, false}}, {0, 1, 2, 5, 6}},
        {[](auto& v) { v.Insert(1, 5); }, {{1, false}}, {0, 5, 1, 2}},
        {[](auto& v) { v.Insert(3, 5); }, {}, {0, 1, 2}},
        {[](auto& v) { v.SetValue(1, 5); }, {{1, false}}, {0, 5, 2}},
        {[](auto& v) { v.Delete(0); }, {{0, true}}, {1, 2}},
        {[](auto& v) { v.Delete(4); }, {}, {0, 1, 2}},
        {[](auto& v) { v.SetValue(-1, 9), v.Insert(-1, 9), v.Delete(-1); }, {}, {0, 1, 2}},
        {[](auto& v) { v.Clear(), v.Delete(0); }, {{-1, true}, {0, true}}, {}},
        {[](auto& v) { v.Delete(3); }, {{3, true}}, {0, 1}, true},
    };
    for (const auto& c : cases) {
        TKxLiveVector live(nullptr);
        TKxRealVector plain(nullptr);
        for (TKxRealVector* v : {&plain, static_cast<TKxRealVector*>(&live)}) {
            TWatcher watcher;
            v->AddValues(TReals{0, 1, 2});
            v->Listeners().Add(watcher.Event());
            c.Act(*v);
            EXPECT_EQ(watcher.Heard, v == &live ? c.Heard : TCalls());
            EXPECT_EQ(Of(*v), v == &plain && c.OnlyLive ? (TReals{0, 1, 2}) : c.After);
        }
    }
}

TEST(Vectors, HoldWhatAnArrayHoldsWhicheverEndValuesLeaveAt) {
    std::mt19937 random(6);
    const auto below = [&](int Count) { return int(random() % unsigned(Count)); };
    for (const int window : {1, 3, 40, 400}) {
        TKxLiveVector v(nullptr);
        TReals expected;
        int capacity = 50;
        for (int step = 0; step < 6000; ++step) {
            const int count = int(expected.size()), at = below(count + 1);
            const bool grows = count < window + below(9);
            if (step % 1000 == 999) {
                v.Clear();
                expected.clear();
            } else if (grows && at < count && !below(4)) {
                v.Insert(at, step);
                expected.insert(expected.begin() + at, step);
            } else if (grows) {
                v.Add(step);
                expected.push_back(step);
            } else {
                const int gone = below(3) ? 0 : below(count);
                v.Delete(gone);
                expected.erase(expected.begin() + gone);
            }
            if (int(expected.size()) >= capacity) capacity = int(expected.size()) + 50;
            ASSERT_EQ(Of(v), expected) << step;
            ASSERT_EQ(v.GetCapacity(), capacity) << step;
            for (int i = 0; i < v.GetCount(); i += 7)
                ASSERT_EQ(v.GetValue(i), expected[std::size_t(i)]) << step;
        }
        v.SetCapacity(v.GetCount() + 1);
        for (int i = 0; i < 200; ++i) v.SetValue(v.GetCount(), i), expected.push_back(i);
        EXPECT_EQ(Of(v), expected);
    }
}

TEST(LiveVector, KeepsTheLastValuesUpToItsBound) {
    const TReals five{5, 6, 7, 8, 9};
    const struct {
        std::function<void(TKxLiveVector&)> Act;
        TCalls Heard;
        TReals After;
    } cases[] = {
        {[](auto& v) { v.Add(5); }, {{3, false}, {0, true}}, {1, 2, 5}},
        {[](auto& v) { v.SetValue(1, 5); }, {{1, false}}, {0, 5, 2}},
        {[](auto& v) { v.Insert(2, 5); }, {{2, false}, {0, true}}, {1, 5, 2}},
        {[](auto& v) { v.SetMaxCount(1); }, {{-1, true}}, {2}},
        {[](auto& v) { v.SetMaxCount(0), v.Add(5); }, {{3, false}}, {0, 1, 2, 5}},
        {[](auto& v) { v.SetMaxCount(-1), v.Delete(0), v.Add(5); }, {{0, true}, {2, false}}, {1, 2, 5}},
        {[&](auto& v) { v.Listeners().Clear(), v.AddValues(five); }, {}, {7, 8, 9}},
        {[](auto& v) { v.Clear(), v.Add(5); }, {{-1, true}, {0, false}}, {5}},
    };
    for (const auto& c : cases) {
        TKxLiveVector v(nullptr);
        v.SetMaxCount(3);
        v.AddValues(TReals{9, 0, 1, 2});
        TWatcher watcher;
        v.Listeners().Add(watcher.Event());
        c.Act(v);
        EXPECT_EQ(watcher.Heard, c.Heard);
        EXPECT_EQ(Of(v), c.After);
    }
    TKxLiveVector v(nullptr);
    v.SetMaxCount(1000);
    for (int i = 0; i < 100000; ++i) v.Add(i);
    EXPECT_EQ(std::tuple(v.GetCapacity(), v.GetValue(0)), std::tuple(1050, 99000));
}

TEST(LiveVector, CompletesAChangeWhoseListenerFails) {
    TKxLiveVector v(nullptr);
    v.AddValues(TReals{0, 1, 2});
    TReals seen;
    v.Listeners().Add(TKxValueIChangedEvent([&](int, bool) { seen = Of(v), throw Exception("no"); }));
    EXPECT_THROW(v.Delete(0), Exception);
    EXPECT_EQ(seen, (TReals{1, 2, 2})) << "moved, but not yet shorter";
    EXPECT_EQ(Of(v), (TReals{1, 2}));
}

TEST(Listeners, AreOnePerMethod) {
    TKxValueIChangedList list;
    TWatcher a, b;
    for (const auto& event : {a.Event(), a.OtherEvent(), b.Event()}) list.Add(event);
    EXPECT_EQ(list.GetCount(), 2) << "b replaces a";
    list.RemoveOwn(a.Event());
    EXPECT_EQ(list.GetItem(1), b.Event());
    list.Remove(a.Event());
    list.RemoveOwn(a.OtherEvent());
    EXPECT_EQ(list.GetCount(), 0);
}

TEST(Listeners, MayLeaveAndEnterWhileCalled) {
    TKxValueIChangedList list;
    std::string heard;
    std::function<void()> act;
    const auto named = [&](char name) {
        return TKxValueIChangedEvent([&, name](int, bool) {
            heard += name;
            if (name == 'b') std::exchange(act, [] {})();
        });
    };
    const auto a = named('a'), b = named('b'), c = named('c'), d = named('d');
    using TCase = std::tuple<std::function<void()>, const char*, const char*>;
    for (const auto& [action, first, second] :
         {TCase{[&] { list.Remove(b); }, "abc", "ac"}, TCase{[&] { list.Remove(a); }, "abc", "bc"},
          TCase{[&] { list.Remove(c); }, "ab", "ab"}, TCase{[&] { list.Add(d); }, "abc", "abcd"},
          TCase{[&] { list.Add(b); }, "abc", "acb"}, TCase{[&] { list.Clear(); }, "ab", ""},
          TCase{[&] { list.Remove(a), list.Call(0, false), list.Add(a); }, "abbcc", "bca"}}) {
        list.Clear();
        for (const auto& event : {a, b, c}) list.Add(event);
        act = action;
        for (const char* expected : {first, second}) {
            heard.clear();
            list.Call(0, false);
            EXPECT_EQ(heard, expected);
        }
    }
}

} // namespace kx::test::vector
