#include <kxgraph/platform/streaming/formreader.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/streaming/events.h>
#include <kxgraph/platform/streaming/formvalues.h>
#include <kxgraph/platform/streaming/keptevents.h>
#include <kxgraph/platform/text/suggest.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <exception>
#include <new>
#include <string>
#include <utility>

namespace kx {

namespace {

std::string Quoted(std::string_view Text) { return "'" + Abridged(Text) + "'"; }

template <class C, class F>
std::vector<std::string_view> NamesOf(const C& All, F NameOf) {
    std::vector<std::string_view> names;
    for (const auto& one : All) names.push_back(NameOf(one));
    return names;
}

/// What loads a value past its setter is for components that are being loaded.
void Set(const TProperty& Row, TPersistent& Object, const TPropertyValue& Value, bool IsNew) {
    (Row.Load && IsNew ? Row.Load : Row.Set)(Object, Value);
}

} // namespace

template <class F>
void TFormReader::At(std::size_t Token, F Action, const std::string& Prefix) const {
    try {
        Action();
    } catch (const EFormError&) {
        throw; // knows its place
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        FText.Raise(Token, Prefix + error.what());
    }
}

std::unique_ptr<TComponent> TFormReader::Read(const TFormObject& Tree) {
    try {
        Make(Tree, nullptr);
        ReadParts();
    } catch (...) {
        delete FRoot;
        throw;
    }
    return std::unique_ptr<TComponent>(FRoot);
}

std::vector<TComponent*> TFormReader::Update(TComponent& Root, const std::vector<TFormObject>& Objects) {
    FRoot = &Root;
    FIsUpdate = true;
    try {
        for (const TFormObject& object : Objects) Make(object, &Root);
        ReadParts();
    } catch (...) {
        Withdraw();
        throw;
    }
    std::vector<TComponent*> made;
    for (const TPart& part : FParts)
        if (part.IsNew) made.push_back(part.Component);
    return made;
}

/// What was made goes, the last first.
void TFormReader::Withdraw() noexcept {
    for (auto part = FParts.rbegin(); part != FParts.rend(); ++part)
        if (part->IsNew) delete part->Component;
}

void TFormReader::ReadParts() {
    for (TPart& part : FParts) ReadPart(part);
    Stand();
    Refer();
    Connect();
    EndLoading();
}

// Parts are made in the order of the file, which is the order of the components of the form.
void TFormReader::Make(const TFormObject& Node, TComponent* Parent) {
    const TComponentClass& type = ClassOf(Node);
    TComponent* component = FindStanding(Node, type);
    const bool isNew = !component;
    if (isNew) component = MakeNew(Node, type);
    FParts.push_back({&Node, component, component == FRoot ? nullptr : Parent, &type, isNew});
    if (isNew) Name(Node, *component);
    for (const TFormObject& inner : Node.Objects) Make(inner, component);
}

TComponent* TFormReader::MakeNew(const TFormObject& Node, const TComponentClass& Class) {
    TComponent* component = nullptr;
    At(Node.Class, [&] { component = Class.Make(FRoot); });
    if (!FRoot) FRoot = component;
    component->BeginLoading();
    return component;
}

/// The component of the form that the object is; null when it is to be made.
TComponent* TFormReader::FindStanding(const TFormObject& Node, const TComponentClass& Class) const {
    if (!FIsUpdate || Node.Name == Node.CNoName) return nullptr;
    const std::string_view name = FText.TextOf(Node.Name);
    TComponent* found = SameText(name, FRoot->GetName()) ? FRoot : FRoot->FindComponent(name);
    if (found && !Class.Is(*found))
        FText.Raise(Node.Class, std::string(name).append(" is a ").append(found->ClassName()));
    return found;
}

const TComponentClass& TFormReader::ClassOf(const TFormObject& Node) const {
    const std::string_view name = FText.TextOf(Node.Class);
    if (const TComponentClass* found = FindClass(name)) return *found;
    const auto names = NamesOf(RegisteredClasses(), [](const TComponentClass& Class) { return Class.Name; });
    FText.Raise(Node.Class, "unknown class " + Quoted(name) + DidYouMean(name, names));
}

void TFormReader::Name(const TFormObject& Node, TComponent& Component) const {
    if (Node.Name == Node.CNoName) return;
    const std::string name(FText.TextOf(Node.Name));
    if (&Component != FRoot && SameText(name, FRoot->GetName()))
        FText.Raise(Node.Name, "A component named " + name + " already exists: the form");
    At(Node.Name, [&] { Component.SetName(name); });
}

void TFormReader::ReadPart(TPart& Part) {
    DemandOnce(Part);
    std::vector<TReader::TData> data;
    for (const TFormProperty& property : Part.Node->Properties) {
        if (ReadParent(Part, property)) continue;
        const TPlace place = Find(Part, property);
        if (place.Row)
            ReadValue(Part, place, property);
        else
            data.push_back({FText.TextOf(property.Name), property.First, property.Last});
    }
    ReadData(Part, data);
}

void TFormReader::DemandOnce(const TPart& Part) const {
    std::vector<std::pair<std::string, std::size_t>> names;
    for (const TFormProperty& property : Part.Node->Properties)
        names.emplace_back(UpperCase(FText.TextOf(property.Name)), property.Name);
    std::ranges::sort(names);
    const auto twice = std::ranges::adjacent_find(names, {}, &std::pair<std::string, std::size_t>::first);
    if (twice == names.end()) return;
    const std::size_t token = std::next(twice)->second;
    FText.Raise(token, "property " + Quoted(FText.TextOf(token)) + " is given a second time");
}

/// "Parent = nil": the control stands nowhere.
bool TFormReader::ReadParent(TPart& Part, const TFormProperty& Property) const {
    if (!SameText(FText.TextOf(Property.Name), "Parent") || !Part.Component->HasParentComponent())
        return false;
    if (!SameText(FText.TextOf(Property.First), "nil"))
        FText.RaiseExpected(Property.First, "nil: a control stands in its parent, or has none");
    Part.Parent = nullptr;
    return true;
}

TFormReader::TPlace TFormReader::Find(const TPart& Part, const TFormProperty& Property) {
    const std::string_view path = FText.TextOf(Property.Name);
    TPersistent* object = Part.Component;
    const TFormRows* rows = &TFormRows::Of(Part.Class->Properties());
    std::string_view className = Part.Class->Name;
    for (std::size_t begin = 0;;) {
        const std::size_t end = std::min(path.find('.', begin), path.size());
        const std::string_view name = path.substr(begin, end - begin);
        const TProperty* row = rows->Find(name);
        if (!row && begin == 0 && end == path.size()) return {object, nullptr};
        if (!row) RaiseUnknown(Property.Name, begin, name, className, rows->Names());
        if (end == path.size()) return {object, row};
        if (row->Kind != TPropertyKind::SubObject)
            FText.Raise(Property.Name, Quoted(name) + " of " + std::string(className) + " has no properties",
                        begin);
        object = std::get<TPersistent*>(row->Get(*object));
        rows = &TFormRows::Of(object->PublishedProperties());
        className = object->PublishedProperties().GetClassName();
        begin = end + 1;
    }
}

void TFormReader::RaiseUnknown(std::size_t Token, std::size_t Within, std::string_view Name,
                               std::string_view Class, std::vector<std::string_view> Known) const {
    FText.Raise(Token,
                "unknown property " + Quoted(Name) + " of " + std::string(Class) + DidYouMean(Name, Known),
                Within);
}

void TFormReader::ReadValue(const TPart& Part, TPlace Place, const TFormProperty& Property) {
    const TProperty& row = *Place.Row;
    const std::string_view name = FText.TextOf(Property.Name);
    if (row.Kind == TPropertyKind::SubObject)
        FText.Raise(Property.Name, Quoted(name) + " is an object: its own properties are given one by one");
    if (!row.Set) FText.Raise(Property.Name, Quoted(name) + " is read only");
    if (row.Kind == TPropertyKind::Reference)
        FReferences.push_back({Part.Component, Place.Object, &row, Property.First, Part.IsNew});
    else if (row.Kind == TPropertyKind::Event)
        FEvents.push_back(
            {Part.Component, Place.Object, &row, Property.First, Part.IsNew, Part.Class, Property.Name});
    else
        At(Property.First,
           [&] { Set(row, *Place.Object, ValueOf(FText, row, Property.First, Property.Last), Part.IsNew); });
}

void TFormReader::ReadData(const TPart& Part, std::vector<TReader::TData>& Data) {
    TReader reader(FText, Data);
    std::vector<std::string> known;
    const std::size_t place = Data.empty() ? Part.Node->Class : Data.front().First;
    At(place, [&] { known = reader.ReadData(*Part.Component); });
    for (const TReader::TData& data : Data) {
        if (data.IsRead) continue;
        std::vector<std::string_view> names = TFormRows::Of(Part.Class->Properties()).Names();
        names.insert(names.end(), known.begin(), known.end());
        RaiseUnknown(data.First - 2, 0, data.Name, Part.Class->Name, names);
    }
}

void TFormReader::Stand() const {
    for (const TPart& part : FParts) {
        TComponent* parent = part.Parent;
        if (!parent || (parent == FRoot && !part.Component->HasParentComponent())) continue;
        if (part.Component->GetParentComponent() == parent) continue; // stays where it is among the others
        At(part.Node->Class, [&] { part.Component->SetParentComponent(parent); });
    }
}

void TFormReader::EndLoading() const {
    for (const TPart& part : FParts) {
        if (!part.IsNew) continue;
        const std::string& name = part.Component->GetName();
        At(
            part.Node->Class, [&] { part.Component->EndLoading(); }, name.empty() ? name : name + ": ");
    }
}

void TFormReader::Refer() const {
    for (const TLater& later : FReferences)
        At(later.Token, [&] { Set(*later.Row, *later.Object, Referred(later), later.IsNew); });
}

TComponent* TFormReader::Referred(const TLater& Later) const {
    const std::string_view name = FText.TextOf(Later.Token);
    if (FText.GetToken(Later.Token).Kind != TTokenKind::Word)
        FText.RaiseExpected(Later.Token, "the name of a component, or nil");
    if (SameText(name, "nil")) return nullptr;
    if (!FRoot->GetName().empty() && SameText(name, FRoot->GetName())) return FRoot;
    if (TComponent* found = FRoot->FindComponent(name)) return found;
    const auto names =
        NamesOf(FRoot->GetComponents(), [](const TComponent* C) -> std::string_view { return C->GetName(); });
    FText.Raise(Later.Token, "there is no component " + Quoted(name) + DidYouMean(name, names));
}

void TFormReader::Connect() const {
    for (const TLater& later : FEvents) ConnectOne(later);
}

void TFormReader::ConnectOne(const TLater& Event) const {
    const std::string_view name = FText.TextOf(Event.Token);
    const TEventValue* handler = FindEvent(name);
    if (handler) {
        At(Event.Token, [&] { Set(*Event.Row, *Event.Object, *handler, Event.IsNew); });
        return KeepEventName(*Event.Component, FText.TextOf(Event.Name), {});
    }
    if ((FIsUpdate || FReading.KeepsUnknownEvents) && SameText(name, "nil")) return Disconnect(Event, {});
    if (FReading.KeepsUnknownEvents && FText.GetToken(Event.Token).Kind == TTokenKind::Word)
        return Disconnect(Event, std::string(name));
    FText.Raise(Event.Token,
                "no event " + Quoted(name) + " is registered" + DidYouMean(name, RegisteredEvents()));
}

/// Name is that of a handler that there is not.
void TFormReader::Disconnect(const TLater& Event, const std::string& Name) const {
    At(Event.Token, [&] {
        if (!Event.IsNew) {
            const std::unique_ptr<TComponent> fresh(Event.Class->Make(nullptr)); // knows none of that type
            Set(*Event.Row, *Event.Object, Event.Row->Get(*fresh), false);
        }
        KeepEventName(*Event.Component, FText.TextOf(Event.Name), Name);
    });
}

} // namespace kx
