#include <kxgraph/platform/streaming/formwriter.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/streaming/filer.h>
#include <kxgraph/platform/streaming/formtree.h>
#include <kxgraph/platform/streaming/formvalues.h>
#include <kxgraph/platform/streaming/keptevents.h>
#include <kxgraph/platform/text/text.h>

namespace kx {

namespace {

std::string Indented(int Depth) { return std::string(2 * static_cast<std::size_t>(Depth), ' '); }

/// How messages call a component.
std::string Told(const TComponent& Component) {
    return Component.GetName().empty() ? "a " + Component.ClassName() + " without a name"
                                       : Component.GetName();
}

TPersistent& Inner(const TProperty& Row, const TPersistent& Object) {
    return *std::get<TPersistent*>(Row.Get(Object));
}

} // namespace

std::string TFormWriter::Write() {
    FChildren = Children();
    WriteObject(FRoot, 0);
    return std::move(FText);
}

TFormWriter::TChildren TFormWriter::Children() {
    TChildren children;
    for (TComponent* component : FRoot.GetComponents()) {
        if (!component->GetName().empty() && SameText(component->GetName(), FRoot.GetName()))
            throw EFormError(FRoot.GetName() + " owns a component of its own name");
        children[PlaceOf(*component)].push_back(component);
    }
    return children;
}

/// The component that Component is written in.
TComponent* TFormWriter::PlaceOf(const TComponent& Component) const {
    TComponent* parent = Component.GetParentComponent();
    if (!parent) return &FRoot;
    if (parent != &FRoot && parent->GetOwner() != &FRoot)
        throw EFormError(Told(Component) + " stands in " + Told(*parent) + ", which is not of the form");
    return parent;
}

TFormModels::TModel TFormWriter::ModelOf(const TComponent& Component) {
    const TFormModels::TModel model = FModels.Of(Component);
    if (model.Class) return model;
    throw EFormError(Told(Component) + ": no class of a " + Component.ClassName() + " is registered");
}

void TFormWriter::WriteObject(TComponent& Component, int Depth) {
    if (Depth == CDeepestNesting) throw EFormError(Told(Component) + " stands too deep in other components");
    const TFormModels::TModel model = ModelOf(Component);
    FWritten = &Component;
    FText.append(Indented(Depth)).append("object ");
    if (!Component.GetName().empty()) FText.append(Component.GetName()).append(": ");
    FText.append(model.Class->Name).append("\n");
    FIndent = Indented(Depth + 1);
    WriteParent(Component, Depth);
    WriteRows(model.Class->Properties(), {Component, *model.Fresh}, {}, false);
    TWriter(FText, FIndent, FFileName).WriteData(Component);
    if (const auto children = FChildren.find(&Component); children != FChildren.end())
        for (TComponent* child : children->second) WriteObject(*child, Depth + 1);
    FText.append(Indented(Depth)).append("end\n");
}

namespace {

/// Takes what a component writes beside its properties, each thing by itself.
class TPartFiler : public TFiler {
public:
    TPartFiler(TFormPart& Part, const TFormPart* Before, const std::string& FileName)
        : TFiler(FileName), FPart(Part), FBefore(Before) {}
    void Take(TComponent& Component) { Define(Component); }

    void DefineProperty(std::string_view Name, const TReadData& Read, const TWriteData& Write,
                        const THasData& HasData) override {
        DefineVersioned(Name, 0, Read, Write, HasData);
    }
    void DefineVersioned(std::string_view Name, std::uint64_t Version, const TReadData& Read,
                         const TWriteData& Write, const THasData& HasData) override {
        if (!HasData()) return;
        if (const TFormPart::TData* kept = Kept(Name, Version)) return FPart.Data.push_back(*kept);
        auto text = std::make_shared<std::string>();
        TWriter(*text, {}, GetFileName()).DefineProperty(Name, Read, Write, HasData);
        FPart.Data.push_back({std::string(Name), Version, std::move(text)});
    }

private:
    const TFormPart::TData* Kept(std::string_view Name, std::uint64_t Version) const {
        if (!FBefore || Version == 0) return nullptr;
        for (const TFormPart::TData& data : FBefore->Data)
            if (data.Version == Version && data.Name == Name) return &data;
        return nullptr;
    }

    TFormPart& FPart;
    const TFormPart* FBefore;
};

} // namespace

TFormPart TFormWriter::WritePart(TComponent& Component, const TFormPart* Before) {
    const TFormModels::TModel model = ModelOf(Component);
    TFormPart part;
    part.Class = model.Class->Name;
    FWritten = &Component;
    FText.clear();
    FIndent.clear();
    WriteParent(Component, &Component == &FRoot ? 0 : 1);
    WriteRows(model.Class->Properties(), {Component, *model.Fresh}, {}, false);
    part.Lines = FText;
    TPartFiler(part, Before, FFileName).Take(Component);
    return part;
}

std::string TFormWriter::UnchangedForm(const TComponent& Component, std::string_view Path) {
    const TFormModels::TModel model = ModelOf(Component);
    const TPersistent* object = model.Fresh;
    const TFormRows* rows = &TFormRows::Of(model.Class->Properties());
    for (std::size_t point; (point = Path.find('.')) != Path.npos; Path.remove_prefix(point + 1)) {
        object = &Inner(*rows->Find(Path.substr(0, point)), *object);
        rows = &TFormRows::Of(object->PublishedProperties());
    }
    const TProperty* found = rows->Find(Path);
    if (!found) return {};
    const TProperty& row = *found;
    const bool hasDefault = object == model.Fresh && !std::holds_alternative<std::monostate>(row.Default);
    const std::string form = FormOf(row, hasDefault ? row.Default : row.Get(*object));
    return form.empty() ? "nil" : form; // an event without a handler
}

/// A control that stands nowhere is not one that stands in the form.
void TFormWriter::WriteParent(const TComponent& Component, int Depth) {
    if (Depth > 0 && Component.HasParentComponent() && !Component.GetParentComponent())
        FText.append(FIndent).append("Parent = nil\n");
}

void TFormWriter::WriteRows(const TPropertyTable& Table, TPair Pair, const std::string& Prefix, bool Whole) {
    const TFormRows& rows = TFormRows::Of(Table);
    for (std::size_t i = 0; i < rows.All().size(); ++i)
        WriteRow(rows.All()[i], rows.IsPublished(i) && Prefix.empty(), Pair, Prefix, Whole);
}

// The default of what is declared without one, in a sub-object or for outfits alone, is what an unchanged
// component has: a class makes its objects as it likes.
void TFormWriter::WriteRow(const TProperty& Row, bool IsPublished, TPair Pair, const std::string& Prefix,
                           bool Whole) {
    if (Row.Stored && !Row.Stored(Pair.Object)) return;
    if (Row.Kind == TPropertyKind::SubObject) return WriteSubObject(Row, Pair, Prefix, Whole);
    if (!Row.Set) return;
    const TPropertyValue value = Row.Get(Pair.Object);
    if (Row.Kind == TPropertyKind::Event) {
        const std::string path = Prefix + std::string(Row.Name);
        return WriteLine(path, EventNameOf(*FWritten, path, std::get<TEventValue>(value)));
    }
    const bool hasDefault = !std::holds_alternative<std::monostate>(Row.Default);
    if (IsPublished && hasDefault && value == Row.Default) return;
    if (!IsPublished && !Whole && value == Row.Get(Pair.Fresh)) return;
    WriteLine(Prefix + std::string(Row.Name), FormOf(Row, value));
}

void TFormWriter::WriteLine(std::string_view Path, std::string_view Form) {
    if (!Form.empty()) FText.append(FIndent).append(Path).append(" = ").append(Form) += '\n';
}

// Where an object follows another one until it is changed (a font, the parent's), it begins, when it is read,
// as that one and not as an unchanged one: it is written whole.
void TFormWriter::WriteSubObject(const TProperty& Row, TPair Pair, const std::string& Prefix, bool Whole) {
    const bool followed = Row.Stored && !Row.Stored(Pair.Fresh);
    const TPersistent& inner = Inner(Row, Pair.Object);
    WriteRows(inner.PublishedProperties(), {inner, Inner(Row, Pair.Fresh)},
              std::string(Prefix).append(Row.Name).append("."), Whole || followed);
}

/// Of all but events.
std::string TFormWriter::FormOf(const TProperty& Row, const TPropertyValue& Value) const {
    if (Row.Kind == TPropertyKind::Reference) return ReferenceForm(Row, std::get<TComponent*>(Value));
    return ValueForm(Row, Value);
}

std::string TFormWriter::ReferenceForm(const TProperty& Row, const TComponent* Component) const {
    if (!Component) return "nil";
    if (Component != &FRoot && Component->GetOwner() != &FRoot)
        throw EFormError(Told(*FWritten) + "." + std::string(Row.Name) + " refers to " + Told(*Component) +
                         ", which is not of the form");
    if (Component->GetName().empty())
        throw EFormError(Told(*FWritten) + "." + std::string(Row.Name) + " refers to " + Told(*Component));
    return Component->GetName();
}

} // namespace kx
