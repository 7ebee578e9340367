#include <kxgraph/design/Kxpropertytarget.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/streaming/keptevents.h>

#include <memory>

namespace kx {

namespace {

TPersistent& Inner(const TProperty& Row, const TPersistent& Object) {
    return *std::get<TPersistent*>(Row.Get(Object));
}

/// The value that is no change: declared, or what an unchanged object has. Nothing where neither is known.
TPropertyValue Untouched(const TProperty& Row, const TPersistent* Fresh, bool IsWhole) {
    if (IsWhole && !std::holds_alternative<std::monostate>(Row.Default)) return Row.Default;
    return Fresh ? Row.Get(*Fresh) : TPropertyValue();
}

bool HasDefault(const TProperty& Row, const TPersistent& Object, const TPersistent* Fresh, bool IsWhole) {
    if (Row.Stored && !Row.Stored(Object)) return true;
    if (Row.Kind != TPropertyKind::SubObject)
        return !Row.Set || IsSameValue(Row.Get(Object), Untouched(Row, Fresh, IsWhole));
    const TPersistent& inner = Inner(Row, Object);
    const TPersistent* freshInner = Fresh ? &Inner(Row, *Fresh) : nullptr;
    for (const TProperty* row : inner.PublishedProperties().All())
        if (!HasDefault(*row, inner, freshInner, false)) return false;
    return true;
}

/// The flag of an object that makes a property follow something else, as ParentColor does: the one without
/// which an unchanged object's would be stored. Null when there is none.
const TProperty* FlagOf(const TProperty& Row, TPersistent& Scratch) {
    for (const TProperty* flag : Scratch.PublishedProperties().All()) {
        if (flag->Kind != TPropertyKind::Bool || !flag->Set) continue;
        const TPropertyValue before = flag->Get(Scratch);
        flag->Set(Scratch, !std::get<bool>(before));
        const bool isIt = Row.Stored(Scratch);
        flag->Set(Scratch, before);
        if (isIt) return flag;
    }
    return nullptr;
}

/// Whether the property follows again.
bool SetBackFlag(const TComponentClass& Class, const TKxPropertyTarget& Target) {
    const TProperty& row = Target.Row();
    if (!row.Stored) return false;
    const std::unique_ptr<TComponent> scratch(Class.Make(nullptr));
    TPersistent& object = Target.ObjectIn(*scratch);
    if (row.Stored(object)) return false;
    const TProperty* flag = FlagOf(row, object);
    if (flag) flag->Set(Target.Object(), flag->Get(object));
    return flag && !row.Stored(Target.Object());
}

} // namespace

bool IsSameValue(const TPropertyValue& A, const TPropertyValue& B) {
    const auto *a = std::get_if<TEventValue>(&A), *b = std::get_if<TEventValue>(&B);
    return a && b ? *a == *b || a->IsSameHandler(*b) : A == B;
}

TPersistent& TKxPropertyTarget::ObjectIn(const TComponent& Other) const {
    const TPersistent* object = &Other;
    for (std::size_t i = 0; i + 1 < Way.size(); ++i) object = &Inner(*Way[i], *object);
    return const_cast<TPersistent&>(*object); // constness is the caller's to keep
}

std::string TKxPropertyTarget::GetPath() const {
    std::string path;
    for (const TProperty* row : Way) path.append(path.empty() ? "" : ".").append(row->Name);
    return path;
}

TPropertyValue TKxPropertyTarget::Get() const {
    TPropertyValue value = Row().Get(Object());
    const auto* handler = std::get_if<TEventValue>(&value);
    if (!handler || *handler) return value;
    const std::string_view name = EventNameOf(*Component.Get(), GetPath(), *handler);
    return name.empty() ? value : std::string(name);
}

void TKxPropertyTarget::Set(const TPropertyValue& Value, TFormModels& Models) const {
    if (Row().Kind != TPropertyKind::Event) return Row().Set(Object(), Value);
    const auto* name = std::get_if<std::string>(&Value);
    if (name) KeepEventName(*Component.Get(), GetPath(), *name); // raises before anything has changed
    Row().Set(Object(), name ? UnchangedIn(Models) : Value);
    if (!name) KeepEventName(*Component.Get(), GetPath(), {});
}

TPropertyValue TKxPropertyTarget::UnchangedIn(TFormModels& Models) const {
    const TComponent* fresh = Models.Of(*Component.Get()).Fresh;
    TPropertyValue value = Untouched(Row(), fresh ? &ObjectIn(*fresh) : nullptr, Way.size() == 1);
    if (!std::holds_alternative<std::monostate>(value)) return value;
    throw EPropertyError(std::string(Row().Name) + " has no value to go back to: no class of a " +
                         Component->ClassName() + " is registered");
}

bool TKxPropertyTarget::IsDefault(TFormModels& Models) const {
    if (Row().Kind == TPropertyKind::Event && std::holds_alternative<std::string>(Get())) return false;
    const TPersistent* fresh = Models.Of(*Component.Get()).Fresh;
    const TPersistent* object = Component.Get();
    for (const TProperty* row : Way) {
        if (row == &Row()) return HasDefault(*row, *object, fresh, Way.size() == 1);
        if (row->Stored && !row->Stored(*object)) return true;
        object = &Inner(*row, *object);
        if (fresh) fresh = &Inner(*row, *fresh);
    }
    return true;
}

void TKxPropertyTarget::Reset(TFormModels& Models) const {
    const auto model = Models.Of(*Component.Get());
    if (model.Class && SetBackFlag(*model.Class, *this)) return;
    if (Row().Kind == TPropertyKind::SubObject) return ResetParts(Models);
    const TPropertyValue value = UnchangedIn(Models);
    Set(value, Models);
    // Some setters go one way only; form files load such a value past them.
    if (Row().Load && !IsSameValue(Get(), value)) Row().Load(Object(), value);
}

void TKxPropertyTarget::ResetParts(TFormModels& Models) const {
    for (const TProperty* row : std::get<TPersistent*>(Get())->PublishedProperties().All()) {
        TKxPropertyTarget part = *this;
        part.Way.push_back(row);
        if ((row->Set || row->Kind == TPropertyKind::SubObject) && !part.IsDefault(Models))
            part.Reset(Models);
    }
}

} // namespace kx
