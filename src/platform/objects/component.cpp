#include <kxgraph/platform/objects/component.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/platform/objects/ownthread.h>
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
    AssertOwnThread();
    if (Owner) Owner->InsertComponent(this);
    EnterHearers(); // once more, lest it was asked as what it is up to here
}

// What is owned goes last: those that hear of it must not refer to this component any more.
TComponent::~TComponent() {
    AssertOwnThread();
    FComponentState |= csDestroying;
    if (FLife) *FLife = false;
    TellPartners();
    if (FOwner) FOwner->RemoveComponent(this);
    while (!FComponents.IsEmpty()) delete FComponents.Last();
    TellPartners(); // those that a handler has brought in meanwhile
}

void TComponent::TellPartners() {
    while (!FPartners.empty()) {
        TComponent* partner = FPartners.back().Component;
        Forget(std::prev(FPartners.end()));
        if (IsToldAsPartner(*partner)) partner->Tell(this, opRemove);
    }
}

// The owner, and those of its components that hear of all, are told when this component leaves the owner,
// unless that is going, too.
bool TComponent::IsToldAsPartner(const TComponent& Partner) const {
    if (!FOwner) return true;
    if (&Partner == FOwner) return false;
    const bool isHearer = Partner.FOwner == FOwner && Partner.FHearerPlace.IsLinked() && Partner.HearsOfAll();
    return !isHearer || FOwner->IsIn(csDestroying);
}

/// Notification of one listener. A removal must reach the next one whatever this one does, and a component
/// that enters may be in its constructor, which must not fail for it. No partner is told of the removal of a
/// component that merely changes its owner: it keeps its reference.
void TComponent::Tell(TComponent* Component, TOperation Operation) {
    const bool keeps =
        Operation == opRemove && !Component->IsIn(csDestroying) && FindPartner(Component) != FPartners.end();
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
    return FComponents.At(CheckedIndex(Index, FComponents.GetCount())).Item;
}

int TComponent::GetComponentIndex() const { return FOwner ? static_cast<int>(FPlace.Index()) : -1; }

void TComponent::SetComponentIndex(int Index) {
    if (!FOwner) return;
    auto& all = FOwner->FComponents;
    all.Remove(FPlace);
    const bool isLast = Index >= static_cast<int>(all.GetCount());
    all.Insert(isLast ? nullptr : &all.At(static_cast<std::size_t>(std::max(Index, 0))), FPlace);
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
    if (!Component->FName.empty()) FNames.emplace(Component->FName, Component);
    if (before) before->Drop(Component);
    FComponents.Insert(nullptr, Component->FPlace);
    Component->FOwner = this;
    Component->EnterHearers();
    if (before) {
        before->Tell(Component, opRemove);
        if (!self || !moved || Component->FOwner != this) return;
    }
    if (IsIn(csDesigning)) Component->SetDesigning(true);
    Tell(Component, opInsert);
}

/// Takes it out of the lists, and tells nobody.
void TComponent::Drop(TComponent* Component) {
    FComponents.Remove(Component->FPlace);
    if (Component->FHearerPlace.IsLinked()) FHearers.Remove(Component->FHearerPlace);
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
    AssertOwnThread();
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
    if (!Component || Component == this || FindPartner(Component) != FPartners.end()) return;
    FPartners.push_back({Component, {}});
    try {
        Component->FPartners.push_back({this, std::prev(FPartners.end())});
    } catch (...) {
        FPartners.pop_back(); // both or none
        throw;
    }
    FPartners.back().Other = std::prev(Component->FPartners.end());
}

/// In this component's list, looked for in the shorter one: an axis has many series, a series few axes.
TComponent::TPartners::iterator TComponent::FindPartner(TComponent* Component) {
    const auto findIn = [](TPartners& List, const TComponent* Partner) {
        return std::ranges::find(List, Partner, &TPartner::Component);
    };
    if (FPartners.size() <= Component->FPartners.size()) return findIn(FPartners, Component);
    const auto self = findIn(Component->FPartners, this);
    return self == Component->FPartners.end() ? FPartners.end() : self->Other;
}

void TComponent::RemoveFreeNotification(TComponent* Component) {
    if (!Component) return;
    if (const auto partner = FindPartner(Component); partner != FPartners.end()) Forget(partner);
}

void TComponent::Forget(TPartners::iterator Partner) {
    Partner->Component->FPartners.erase(Partner->Other);
    FPartners.erase(Partner);
}

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
    for (std::size_t i = FHearers.GetCount(); i-- > 0;) {
        if (i >= FHearers.GetCount()) continue;
        TComponent& hearer = *FHearers.At(i).Item;
        if (hearer.HearsOfAll())
            hearer.Tell(Component, Operation);
        else if (!hearer.FHearers.IsEmpty())
            hearer.TComponent::Notification(Component, Operation);
        else
            FHearers.Remove(hearer.FHearerPlace);
    }
}

bool TComponent::HearsOfAll() const { return IsBeyond<TComponent>(); }

/// It is asked when next a component goes; and so are those that own it.
void TComponent::EnterHearers() {
    for (TComponent* hearer = this; hearer->FOwner && !hearer->FHearerPlace.IsLinked();
         hearer = hearer->FOwner)
        hearer->FOwner->FHearers.Insert(nullptr, hearer->FHearerPlace);
}

void TComponent::Loaded() {}

void TComponent::DefineProperties(TFiler&) {}

void TComponent::SetParentComponent(TComponent*) {
    throw EComponentError("A " + ClassName() + " stands in no other component");
}

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
