#include "platform/event.h"

#include <gtest/gtest.h>

namespace kx {
namespace {

struct TListener {
    int Sum = 0;
    TEvent<int>* Event = nullptr;
    void Add(int Value) { Sum += Value; }
    void AddToo(int Value) { Sum += Value; } // a linker may fold it with Add
    void Leave(int) { *Event = nullptr; }
};

TEST(Event, IdentityIsThatOfMethodAndObject) {
    TListener a, b;
    const auto add = TEvent<int>::Of<&TListener::Add>(&a);
    const auto addB = TEvent<int>::Of<&TListener::Add>(&b);
    const auto addToo = TEvent<int>::Of<&TListener::AddToo>(&a);
    EXPECT_TRUE(add == TEvent<int>::Of<&TListener::Add>(&a));
    EXPECT_TRUE(add.SameMethod(addB));
    EXPECT_FALSE(add == addB);
    EXPECT_FALSE(add.SameMethod(addToo));
    EXPECT_EQ(addB.Object(), &b);
    for (const auto& event : {add, addB, addToo}) event(2);
    EXPECT_EQ(a.Sum, 4);
    EXPECT_EQ(b.Sum, 2);

    const auto callable = [&](int Value) { a.Sum = Value; };
    const TEvent<int> first = callable, second = callable, copy = first;
    EXPECT_TRUE(first == copy);
    EXPECT_FALSE(first == second);
    copy(9);
    EXPECT_EQ(a.Sum, 9);
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

} // namespace
} // namespace kx
