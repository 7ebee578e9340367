#include <kxgraph/platform/base/event.h>

#include "support/testing.h"

namespace kx::test::event {

struct TListener {
    int Sum = 0;
    TEvent<int>* Event = nullptr;
    void Add(int Value) { Sum += Value; }
    void AddToo(int Value) { Sum += Value; } // a linker may fold it with Add
    void Leave(int) { *Event = nullptr; }
};

TEST(Event, IsKnownByMethodAndObject) {
    TListener a, b;
    const auto add = TEvent<int>::Of<&TListener::Add>(&a), addB = TEvent<int>::Of<&TListener::Add>(&b);
    EXPECT_TRUE(add == TEvent<int>::Of<&TListener::Add>(&a));
    EXPECT_TRUE(add.SameMethod(addB) && !(add == addB));
    EXPECT_FALSE(add.SameMethod(TEvent<int>::Of<&TListener::AddToo>(&a)));
    const auto callable = [](int) {};
    const TEvent<int> first = callable, second = callable, copy = first;
    EXPECT_TRUE(first == copy && !(first == second));
}

TEST(Event, MayBeEmptiedWhileItRuns) {
    TListener listener;
    TEvent<int> event = TEvent<int>::Of<&TListener::Leave>(&listener);
    listener.Event = &event;
    event(1);
    EXPECT_FALSE(event);
    event = [&event, &listener](int Value) {
        event = nullptr;
        listener.Sum += Value; // its own captures still live
    };
    event(1);
    event(2); // empty by now
    EXPECT_EQ(listener.Sum, 1);
}

} // namespace kx::test::event
