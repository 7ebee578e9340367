#include "platform/component.h"

#include "platform/exceptions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

namespace kx {
namespace {

/// Keeps a reference to a partner and a log of what it is told.
class TWatcher : public TComponent {
public:
    explicit TWatcher(TComponent* Owner, std::vector<std::string>* Deaths = nullptr)
        : TComponent(Owner), FDeaths(Deaths) {}
    ~TWatcher() override {
        if (FDeaths) FDeaths->push_back(GetName());
    }
    void Watch(TComponent* Partner) {
        this->Partner = Partner;
        FreeNotification(Partner);
    }
    TComponent* Partner = nullptr;
    std::function<void()> OnRemoved; ///< called at the next removal
    int Inserted = 0, Removed = 0, LoadedCalls = 0;

protected:
    void Notification(TComponent* Component, TOperation Operation) override {
        TComponent::Notification(Component, Operation);
        ++(Operation == opInsert ? Inserted : Removed);
        if (Operation == opInsert) return;
        if (Component == Partner) Partner = nullptr;
        if (const auto action = std::exchange(OnRemoved, nullptr)) action();
    }
    void Loaded() override { ++LoadedCalls; }

private:
    std::vector<std::string>* FDeaths;
};

TEST(Component, OwnerDeletesLastToFirstWhatHasNotLeftBefore) {
    std::vector<std::string> deaths;
    auto* owner = new TComponent(nullptr);
    for (const char* name : {"A", "B", "C"}) (new TWatcher(owner, &deaths))->SetName(name);
    {
        TWatcher onStack(owner, &deaths);
        onStack.SetName("Stack");
        EXPECT_EQ(owner->GetComponentCount(), 4);
    }
    delete owner->FindComponent("b");
    owner->FindComponent("C")->SetComponentIndex(-5);
    EXPECT_EQ(owner->GetComponent(0)->GetName(), "C");
    EXPECT_THROW(owner->GetComponent(2), ERangeError);
    delete owner;
    EXPECT_EQ(deaths, (std::vector<std::string>{"Stack", "B", "A", "C"}));
}

TEST(Component, OwnerAndItsComponentsHearOfComingAndGoing) {
    TWatcher owner(nullptr), other(nullptr);
    TWatcher sibling(&owner);
    TWatcher inner(&sibling);
    const int inserted = sibling.Inserted;
    {
        TComponent guest(&owner);
        EXPECT_EQ(sibling.Inserted, inserted + 1);
        EXPECT_EQ(inner.Inserted, 1);
        other.InsertComponent(&guest); // moves it
        EXPECT_EQ(guest.GetOwner(), &other);
        EXPECT_EQ(sibling.Removed, 1);
    }
    EXPECT_EQ(sibling.Removed, 1);
    EXPECT_EQ(inner.Removed, 1);
    EXPECT_EQ(other.Removed, 1);
    EXPECT_THROW(inner.InsertComponent(&owner), EComponentError);
}

TEST(Component, PartnersAreToldOnceWhoeverOwnsThem) {
    for (const bool sameOwner : {false, true}) {
        TComponent owner(nullptr);
        TWatcher watcher(sameOwner ? &owner : nullptr);
        auto* partner = new TWatcher(&owner);
        watcher.Watch(partner);
        watcher.Watch(partner);
        partner->Partner = &watcher;
        delete partner;
        EXPECT_EQ(watcher.Removed, 1);
        EXPECT_EQ(watcher.Partner, nullptr);

        partner = new TWatcher(nullptr);
        watcher.Watch(partner);
        watcher.RemoveFreeNotification(partner);
        delete partner;
        EXPECT_EQ(watcher.Removed, 1);
    }
}

/// Partners all around, one owning another, destroyed in every order.
TEST(Component, AnyOrderOfDestructionIsSafeAndLeavesNoReference) {
    std::vector<int> order(5);
    std::iota(order.begin(), order.end(), 0);
    do {
        std::vector<TWatcher*> alive;
        for (int i = 0; i < 5; ++i) alive.push_back(new TWatcher(i == 2 || i == 3 ? alive[0] : nullptr));
        for (int i = 0; i < 5; ++i) alive[std::size_t(i)]->Watch(alive[std::size_t((i + 1) % 5)]);
        for (const int victim : order) {
            TWatcher* gone = std::exchange(alive[std::size_t(victim)], nullptr);
            if (victim == 0) alive[2] = alive[3] = nullptr; // go with their owner
            delete gone;
            for (const TWatcher* w : alive) {
                const TComponent* partner = w ? w->Partner : nullptr; // null is among them by now
                EXPECT_NE(std::find(alive.begin(), alive.end(), partner), alive.end());
            }
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST(Component, AListenerMayDeleteOtherComponentsWhileOneGoes) {
    TComponent owner(nullptr);
    TWatcher outside(nullptr);
    std::vector<TWatcher*> all;
    for (int i = 0; i < 5; ++i) all.push_back(new TWatcher(&owner));
    outside.Watch(all[4]);
    all[1]->Watch(all[4]);
    all[1]->OnRemoved = [&] { delete all[0]; };
    all[3]->OnRemoved = [&] { delete all[2]; };
    delete all[4];
    EXPECT_EQ(owner.GetComponents(), (std::vector<TComponent*>{all[1], all[3]}));
    EXPECT_EQ(all[1]->Partner, nullptr);
    EXPECT_EQ(outside.Partner, nullptr);
}

TEST(Component, APartnerThatComesWhileAnOwnerGoesIsToldToo) {
    TWatcher late(nullptr);
    auto* owner = new TComponent(nullptr);
    late.Watch(new TComponent(owner));
    late.OnRemoved = [&] { late.Watch(owner); };
    delete owner;
    EXPECT_EQ(late.Removed, 2);
    EXPECT_EQ(late.Partner, nullptr);
}

TEST(Component, NamesAreIdentifiersAndUniqueWithinTheOwner) {
    TComponent owner(nullptr), other(nullptr);
    TComponent a(&owner), b(&owner), c(&other);
    a.SetName("Axis1");
    c.SetName("AXIS1");
    b.SetName("_b2");
    try {
        b.SetName("axis1");
        FAIL();
    } catch (const EComponentError& error) {
        EXPECT_STREQ(error.what(), "A component named axis1 already exists");
    }
    EXPECT_THROW(owner.InsertComponent(&c), EComponentError);
    for (const char* bad : {"1a", "a b", "a.b", "\xC3\xA4", "a-"})
        EXPECT_THROW(b.SetName(bad), EComponentError);
    EXPECT_EQ(b.GetName(), "_b2");
    EXPECT_EQ(c.GetOwner(), &other);
    a.SetName("AXIS1"); // its own name in another case
    EXPECT_EQ(FindComponentAs<TWatcher>(owner, "axis1"), nullptr);
    EXPECT_EQ(FindComponentAs<TComponent>(owner, "axis1"), &a);
    a.SetName("");
    EXPECT_EQ(owner.FindComponent(""), nullptr);
}

TEST(Component, StateFollowsLoadingAndTheDesigner) {
    TComponent owner(nullptr);
    owner.SetDesigning(true);
    TWatcher child(&owner);
    EXPECT_TRUE(child.IsIn(csDesigning));
    owner.SetDesigning(false);
    EXPECT_FALSE(child.IsIn(csDesigning));
    child.BeginLoading();
    EXPECT_TRUE(child.IsIn(csLoading));
    child.EndLoading();
    child.EndLoading();
    EXPECT_FALSE(child.IsIn(csLoading));
    EXPECT_EQ(child.LoadedCalls, 1);
}

} // namespace
} // namespace kx
