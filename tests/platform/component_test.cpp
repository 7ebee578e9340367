#include <kxgraph/platform/objects/component.h>

#include "support/testing.h"

namespace kx::test::component {

/// Keeps a reference to a partner and counts what it is told.
class TWatcher : public TComponent {
public:
    using TComponent::TComponent;
    ~TWatcher() override { Deaths += GetName(); }
    void Watch(TComponent* Partner) {
        this->Partner = Partner;
        FreeNotification(Partner);
    }
    static inline std::string Deaths;
    TComponent* Partner = nullptr;
    std::function<void()> OnRemoved, OnInserted; ///< called at the next one
    int Inserted = 0, Removed = 0;

protected:
    void Notification(TComponent* Component, TOperation Operation) override {
        TComponent::Notification(Component, Operation);
        ++(Operation == opInsert ? Inserted : Removed);
        if (Operation == opRemove && Component == Partner) Partner = nullptr;
        if (const auto action = std::exchange(Operation == opInsert ? OnInserted : OnRemoved, nullptr))
            action();
    }
};

TEST(Component, DeletesLastToFirstWhatHasNotLeftBefore) {
    TWatcher::Deaths.clear();
    auto* owner = new TComponent(nullptr);
    for (const char* name : {"A", "B", "C"}) (new TWatcher(owner))->SetName(name);
    {
        TWatcher onStack(owner);
        onStack.SetName("Stack");
    }
    delete owner->FindComponent("b");
    owner->FindComponent("C")->SetComponentIndex(-5);
    EXPECT_THROW(owner->GetComponent(2), ERangeError);
    delete owner;
    EXPECT_EQ(TWatcher::Deaths, "StackBAC");
}

TEST(Component, FollowsEveryMoveWithItsIndex) {
    TComponent owner(nullptr), other(nullptr);
    std::vector<std::unique_ptr<TComponent>> all;
    for (int i = 0; i < 5; ++i) all.push_back(std::make_unique<TComponent>(&owner));
    const auto expect = [&](std::vector<int> Indices) {
        for (std::size_t i = 0; i < all.size(); ++i) EXPECT_EQ(all[i]->GetComponentIndex(), Indices[i]) << i;
    };
    expect({0, 1, 2, 3, 4});
    all[4]->SetComponentIndex(1);
    expect({0, 2, 3, 4, 1});
    other.InsertComponent(all[0].get());
    expect({0, 1, 2, 3, 0});
    owner.InsertComponent(all[0].get());
    expect({4, 1, 2, 3, 0});
    all.erase(all.begin() + 1);
    expect({3, 1, 2, 0});
    owner.RemoveComponent(all[1].get());
    expect({2, -1, 1, 0});
}

TEST(Component, TellsOwnersTheirComponentsAndPartnersOnceOfComingAndGoing) {
    TWatcher owner(nullptr), other(nullptr), sibling(&owner), inner(&sibling), partner(nullptr);
    EXPECT_EQ(owner.Inserted, 1);
    EXPECT_EQ(sibling.Inserted, 1) << "an owner hears of what it owns itself";
    TFaults faults;
    owner.OnInserted = [] { throw Exception("no"); };
    {
        TComponent guest(&owner); // it must not raise, for then it would stay in the list
        EXPECT_EQ(guest.GetOwner(), &owner);
        EXPECT_EQ(faults.Text, "no");
        other.InsertComponent(&guest); // moves it
        for (int i = 0; i < 2; ++i) partner.Watch(&guest), sibling.Removed = 0, sibling.Watch(&guest);
    }
    for (const TWatcher* watcher : {&sibling, &other, &partner}) EXPECT_EQ(watcher->Removed, 1);
    EXPECT_THROW(inner.InsertComponent(&owner), EComponentError);
}

TEST(Component, KeepsReferencesOfPartnersInAMoveAndEndsAllOthers) {
    for (const bool toAnother : {false, true}) {
        TWatcher from(nullptr), to(nullptr), partner(&from), stranger(&from), inner(&partner);
        auto* guest = new TWatcher(&from);
        partner.Watch(guest);
        guest->Watch(&partner);
        const int inserted = to.Inserted;
        toAnother ? to.InsertComponent(guest) : from.RemoveComponent(guest);
        EXPECT_EQ(to.Inserted, inserted + toAnother);
        EXPECT_EQ(partner.Partner, guest);
        EXPECT_EQ(partner.Removed, 0);
        for (const TWatcher* told : {&from, &stranger, &inner}) EXPECT_EQ(told->Removed, 1);
        {
            TWatcher second(&from);
            second.Watch(guest);
            guest->Watch(&second);
        }
        EXPECT_EQ(guest->Partner, nullptr) << "it is told although the owners differ";
        delete guest;
        EXPECT_EQ(partner.Partner, nullptr);
        EXPECT_EQ(partner.Removed, 2) << "of the second and of the guest";
    }
}

TEST(Component, TellsEverybodyBeforeWhatItOwnsIsDeleted) {
    TWatcher form(nullptr), sibling(&form);
    auto* axis = new TWatcher(&form);
    auto* vector = new TWatcher(axis);
    sibling.Watch(axis);
    sibling.FreeNotification(vector);
    bool alive = false;
    sibling.OnRemoved = [&] { alive = axis->GetComponentCount() == 1; };
    delete axis;
    EXPECT_TRUE(alive);
    EXPECT_EQ(sibling.Removed, 2);
    TFaults faults;
    TWatcher second(&form);
    sibling.OnRemoved = second.OnRemoved = [] { throw Exception("no"); };
    delete new TWatcher(&form);
    EXPECT_EQ(faults.Text, "nono") << "an error keeps nobody from being told";
}

TEST(Component, LetsListenersDeleteOrMeetOthersWhileOneGoes) {
    TWatcher outside(nullptr);
    auto* owner = new TComponent(nullptr);
    std::vector<TWatcher*> all;
    for (int i = 0; i < 5; ++i) all.push_back(new TWatcher(owner));
    outside.Watch(all[4]);
    all[1]->OnRemoved = [&] { delete all[0]; };
    all[3]->OnRemoved = [&] { delete all[2]; };
    outside.OnRemoved = [&] { outside.Watch(all[3]); };
    delete all[4];
    const auto& left = owner->GetComponents();
    EXPECT_EQ(std::vector(left.begin(), left.end()), (std::vector<TComponent*>{all[1], all[3]}));
    outside.OnRemoved = [&] { outside.Watch(owner); }; // which is going itself
    delete owner;
    EXPECT_EQ(outside.Removed, 3);
    EXPECT_EQ(outside.Partner, nullptr);
}

/// Counts what it is told; as a class of the library it wants to hear of partners alone.
class TQuiet : public TComponent {
public:
    using TComponent::TComponent;
    mutable int Asked = 0;
    int Told = 0;

protected:
    bool HearsOfAll() const override {
        ++Asked;
        return IsBeyond<TQuiet>();
    }
    void Notification(TComponent* Component, TOperation Operation) override {
        TComponent::Notification(Component, Operation);
        Told += Operation == opRemove;
    }
};
/// Is derived from it, so that its own Notification might care for anybody.
class TCurious : public TQuiet {
public:
    using TQuiet::TQuiet;
};

TEST(Component, TellsThoseThatAskedForItAloneUnlessTheyHearOfAll) {
    for (const bool moves : {false, true}) {
        TWatcher owner(nullptr), other(nullptr);
        TQuiet stranger(&owner), partner(&owner), parent(&owner), outside(&other);
        TCurious curious(&owner), inner(&parent), known(&owner);
        for (int round = 1; round <= 20; ++round) {
            auto* guest = new TComponent(&owner);
            for (TComponent* one : {(TComponent*)&partner, (TComponent*)&outside, (TComponent*)&known})
                one->FreeNotification(guest);
            if (moves) other.InsertComponent(guest);
            EXPECT_EQ(partner.Told, round - 1) << "a partner keeps its reference in a move";
            EXPECT_EQ(known.Told, round - 1);
            delete guest;
            EXPECT_EQ(partner.Told, round);
            EXPECT_EQ(known.Told, round) << "once each";
            EXPECT_EQ(outside.Told, round);
            EXPECT_EQ(curious.Told, round);
            EXPECT_EQ(inner.Told, round) << "through one that does not want to know";
            EXPECT_EQ(parent.Told, 0);
        }
        EXPECT_EQ(stranger.Told, 0);
        EXPECT_EQ(stranger.Asked, 1) << "costs nothing from then on";
        owner.RemoveComponent(&stranger);
        owner.InsertComponent(&stranger);
        TCurious late(&stranger); // makes its owner pass on again what it does not want to know itself
        delete new TComponent(&owner);
        EXPECT_EQ(late.Told, 1);
        EXPECT_EQ(stranger.Told, 0);
    }
}

TEST(Component, HasAnIdentifierForANameThatIsUniqueWithinTheOwner) {
    TComponent owner(nullptr), other(nullptr);
    TComponent a(&owner), b(&owner), c(&other);
    a.SetName("Axis1");
    c.SetName("AXIS1");
    b.SetName("_b2");
    EXPECT_EQ(MessageOf([&] { b.SetName("axis1"); }), "A component named axis1 already exists");
    EXPECT_THROW(owner.InsertComponent(&c), EComponentError);
    for (const char* bad : {"1a", "a b", "\xC3\xA4", "a-"}) EXPECT_THROW(b.SetName(bad), EComponentError);
    EXPECT_EQ(b.GetName(), "_b2");
    EXPECT_EQ(c.GetOwner(), &other);
    a.SetName("AXIS1"); // its own name in another case
    EXPECT_EQ(FindComponentAs<TWatcher>(owner, "axis1"), nullptr);
    EXPECT_EQ(FindComponentAs<TComponent>(owner, "axis1"), &a);
    EXPECT_EQ(owner.FindComponent("axis1"), &a);
    owner.RemoveComponent(&a);
    EXPECT_EQ(owner.FindComponent("axis1"), nullptr);
    a.SetName("Far_away_and_of_another_name");
    owner.InsertComponent(&a);
    EXPECT_EQ(owner.FindComponent("FAR_AWAY_AND_OF_ANOTHER_NAME"), &a);
    a.SetName("");
    EXPECT_EQ(owner.FindComponent("far_away_and_of_another_name"), nullptr);
    EXPECT_EQ(owner.FindComponent(""), nullptr);
}

} // namespace kx::test::component
