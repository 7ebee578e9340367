#include <kxgraph/platform/objects/component.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/platform/objects/published.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace kx {

namespace {

bool IsLetter(char C) { return (C >= 'A' && C <= 'Z') || (C >= 'a' && C <= 'z') || C == '_'; }

bool IsIdentifier(std::string_view Name) {
    return !Name.empty() && IsLetter(Name.front()) && std::all_of(Name.begin(), Name.end(), [](char C) {
        return IsLetter(C) || (C >= '0' && C <= '9');
    });
}

char UpperLetter(char C) { return C >= 'a' && C <= 'z' ? static_cast<char>(C - 'a' + 'A') : C; }

[[noreturn]] void RaiseTaken(const std::string& Name) {
    throw EComponentError("A component named " + Name + " already exists");
}

/// Looks from the end: what came last goes first as a rule, and lists may be long.
template <class T>
void EraseFrom(std::vector<T*>& List, T* Item) {
    const auto found = std::find(List.rbegin(), List.rend(), Item);
    if (found != List.rend()) List.erase(std::next(found).base());
}

} // namespace

std::size_t TComponent::TNameHash::operator()(std::string_view Name) const {
    constexpr std::size_t offset = 0xCBF29CE484222325, prime = 0x100000001B3; // FNV-1a
    std::size_t hash = offset;
    for (const char c : Name) hash = (hash ^ static_cast<unsigned char>(UpperLetter(c))) * prime;
    return hash;
}

bool TComponent::TSameName::operator()(std::string_view A, std::string_view B) const {
    return SameText(A, B);
}

TComponent::TComponent(TComponent* Owner) {
    if (Owner) Owner->InsertComponent(this);
}

// What is owned goes last: those that hear of it must not refer to this component any more.
TComponent::~TComponent() {
    FComponentState |= csDestroying;
    if (FLife) *FLife = false;
    TellPartners();
    if (FOwner) FOwner->RemoveComponent(this);
    while (!FComponents.empty()) delete FComponents.back();
    TellPartners(); // those that a handler has brought in meanwhile
}

void TComponent::TellPartners() {
    while (!FFreeNotifies.empty()) {
        TComponent* partner = FFreeNotifies.back();
        Forget(partner);
        partner->Forget(this);
        // The owner and what it owns are told when this component leaves the owner, unless that is going,
        // too.
        const bool isNear = FOwner && (partner == FOwner || partner->FOwner == FOwner);
        if (!isNear || (partner != FOwner && FOwner->IsIn(csDestroying))) partner->Tell(this, opRemove);
    }
}

/// Notification of one listener. A removal must reach the next one whatever this one does, and a component
/// that enters may be in its constructor, which must not fail for it. No partner is told of the removal of a
/// component that merely changes its owner: it keeps its reference.
void TComponent::Tell(TComponent* Component, TOperation Operation) {
    const bool keeps = Operation == opRemove && !Component->IsIn(csDestroying) && IsPartner(Component);
    Guarded([&] {
        if (keeps)
            TComponent::Notification(Component, opRemove); // to those that it owns
        else
            Notification(Component, Operation);
    });
}

std::shared_ptr<const bool> TComponent::GetLife() const {
    if (!FLife) FLife = std::make_shared<bool>(!IsIn(csDestroying));
    return FLife;
}

TComponent* TComponent::GetComponent(int Index) const {
    return FComponents[CheckedIndex(Index, FComponents.size())];
}

// Each remembers where it stood last; when one is found to have moved, all of them look anew.
int TComponent::GetComponentIndex() const {
    if (!FOwner) return -1;
    const auto& all = FOwner->FComponents;
    if (FIndex >= all.size() || all[FIndex] != this)
        for (std::size_t i = 0; i < all.size(); ++i) all[i]->FIndex = i;
    return static_cast<int>(FIndex);
}

void TComponent::SetComponentIndex(int Index) {
    if (!FOwner) return;
    auto& all = FOwner->FComponents;
    EraseFrom(all, this);
    all.insert(all.begin() + std::clamp(Index, 0, static_cast<int>(all.size())), this);
}

TComponent* TComponent::FindComponent(std::string_view Name) const {
    const auto found = FNames.find(Name);
    return found == FNames.end() ? nullptr : found->second;
}

void TComponent::InsertComponent(TComponent* Component) {
    if (!Component || Component->FOwner == this) return;
    for (const TComponent* owner = this; owner; owner = owner->FOwner)
        if (owner == Component) throw EComponentError("A component cannot own itself");
    if (FindComponent(Component->FName)) RaiseTaken(Component->FName);
    TComponent* before = Component->FOwner;
    const TComponentRef<TComponent> self(before ? this : nullptr), moved(before ? Component : nullptr);
    FComponents.push_back(Component);
    try {
        if (!Component->FName.empty()) FNames.emplace(Component->FName, Component);
    } catch (...) {
        FComponents.pop_back();
        throw;
    }
    if (before) before->Drop(Component);
    Component->FOwner = this;
    Component->FIndex = FComponents.size() - 1;
    if (before) {
        before->Tell(Component, opRemove);
        if (!self || !moved || Component->FOwner != this) return;
    }
    if (IsIn(csDesigning)) Component->SetDesigning(true);
    Tell(Component, opInsert);
}

/// Takes it out of the lists, and tells nobody.
void TComponent::Drop(TComponent* Component) {
    FComponents.erase(FComponents.begin() + Component->GetComponentIndex());
    if (!Component->FName.empty()) FNames.erase(Component->FName);
    Component->FOwner = nullptr;
}

void TComponent::RemoveComponent(TComponent* Component) {
    if (!Component || Component->FOwner != this) return;
    Drop(Component);
    // Where all go, those that would be told of each that they do not know are many.
    if (!IsIn(csDestroying)) Tell(Component, opRemove);
}

void TComponent::SetName(const std::string& Name) {
    if (Name == FName) return;
    if (!Name.empty() && !IsIdentifier(Name))
        throw EComponentError("'" + Abridged(Name) + "' is not a valid component name");
    if (FOwner) {
        const TComponent* bearer = FOwner->FindComponent(Name);
        if (bearer && bearer != this) RaiseTaken(Name);
    }
    StoreName(Name);
}

// A name enters the owner's index with the text that the component keeps, or nothing happens.
void TComponent::StoreName(std::string Name) {
    if (!FOwner || (FName.empty() && Name.empty())) {
        FName = std::move(Name);
        return;
    }
    auto& names = FOwner->FNames;
    if (FName.empty()) names.emplace(Name, this);
    auto entry = names.extract(FName.empty() ? Name : FName);
    FName = std::move(Name);
    if (FName.empty()) return;
    entry.key() = FName;
    names.insert(std::move(entry));
}

void TComponent::FreeNotification(TComponent* Component) {
    if (!Component || Component == this || IsPartner(Component)) return;
    FFreeNotifies.push_back(Component);
    try {
        Component->FFreeNotifies.push_back(this);
    } catch (...) {
        FFreeNotifies.pop_back(); // both or none
        throw;
    }
}

bool TComponent::IsPartner(const TComponent* Component) const {
    // Each stands in the other's list.
    const bool few = FFreeNotifies.size() < Component->FFreeNotifies.size();
    const auto& list = few ? FFreeNotifies : Component->FFreeNotifies;
    return std::find(list.begin(), list.end(), few ? Component : this) != list.end();
}

void TComponent::RemoveFreeNotification(TComponent* Component) {
    if (!Component) return;
    Forget(Component);
    Component->Forget(this);
}

void TComponent::Forget(TComponent* Partner) { EraseFrom(FFreeNotifies, Partner); }

void TComponent::SetDesigning(bool Designing) {
    FComponentState = Designing ? FComponentState | csDesigning : FComponentState & ~unsigned(csDesigning);
    for (TComponent* component : FComponents) component->SetDesigning(Designing);
}

void TComponent::EndLoading() {
    if (!IsIn(csLoading)) return;
    FComponentState &= ~unsigned(csLoading);
    Loaded();
}

void TComponent::Notification(TComponent* Component, TOperation Operation) {
    if (Operation == opInsert) return;
    // Backwards and by index: a listener may delete components, which moves only those already told.
    for (std::size_t i = FComponents.size(); i-- > 0;)
        if (i < FComponents.size()) FComponents[i]->Tell(Component, Operation);
}

void TComponent::Loaded() {}

const TPropertyTable& TComponent::PublishedProperties() const { return Properties(); }

const TPropertyTable& TComponent::Properties() {
    // The name stands beside the class wherever a component is stored.
    const auto never = [](const TPersistent&) { return false; };
    static const TPropertyTable table(
        "TComponent", nullptr,
        {Published<&TComponent::GetName, &TComponent::SetName>("Name", std::monostate{},
                                                               "Name that is unique within the owner", never),
         Published<&TComponent::Tag, &TComponent::Tag>("Tag", 0, "A number that is free for the program")});
    return table;
}

} // namespace kx
