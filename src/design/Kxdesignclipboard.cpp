#include <kxgraph/design/Kxdesignclipboard.h>

#include <kxgraph/design/Kxdesigncommands.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/streaming/formfile.h>
#include <kxgraph/platform/streaming/formtree.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace kx {

namespace {

constexpr int CStep = 16; // a pasted copy lies so far from what was copied

} // namespace

std::string CopyComponents(TKxDesignDocument& Document, const std::vector<TComponent*>& Components) {
    TForm& form = Document.GetForm();
    TFormWriter writer(form, Document.GetFileName());
    const TKxFormState state = CaptureForm(form, writer);
    std::string text;
    for (const TComponent* component : Outermost(Components))
        if (component != &form) text += ObjectText(state, component->GetName());
    return text;
}

namespace {

/// Gives the objects of a text names that are free, and forgets what refers to nothing.
class TRenaming {
public:
    TRenaming(const TKxDesignDocument& Document, std::string_view Text)
        : FDocument(Document), FText(Text), FTokens(Text, "clipboard"), FObjects(ParseFormObjects(FTokens)) {
        for (const TFormObject& object : FObjects) Choose(object);
    }
    std::string Renamed() {
        for (const TFormObject& object : FObjects) AddObject(object);
        return std::move(FOut);
    }

private:
    void Choose(const TFormObject& Object) {
        if (Object.Name != Object.CNoName) {
            const std::string name(FTokens.TextOf(Object.Name));
            std::string free = name;
            for (int number = 1; FDocument.Find(free) || FTaken.contains(UpperCase(free)); ++number)
                free = Numbered(FDocument.UniqueName(name), number);
            FTaken.insert(UpperCase(free));
            FNames[UpperCase(name)] = free;
        }
        for (const TFormObject& inner : Object.Objects) Choose(inner);
    }

    /// The name that is free in the form, so much further on.
    static std::string Numbered(const std::string& Free, int Number) {
        const std::size_t digits = Free.find_last_not_of("0123456789") + 1;
        return Free.substr(0, digits).append(std::to_string(std::stoi(Free.substr(digits)) + Number - 1));
    }

    void AddObject(const TFormObject& Object) {
        FOut += "object ";
        if (Object.Name != Object.CNoName)
            FOut.append(FNames[UpperCase(FTokens.TextOf(Object.Name))]).append(": ");
        FOut.append(FTokens.TextOf(Object.Class)) += '\n';
        const TComponentClass* type = FindClass(FTokens.TextOf(Object.Class));
        for (const TFormProperty& property : Object.Properties) AddProperty(property, type);
        for (const TFormObject& inner : Object.Objects) AddObject(inner);
        FOut += "end\n";
    }

    void AddProperty(const TFormProperty& Property, const TComponentClass* Class) {
        const std::string_view name = FTokens.TextOf(Property.Name);
        const TProperty* row = Class ? Class->Properties().Find(name) : nullptr;
        const bool refers = row && row->Kind == TPropertyKind::Reference;
        const std::string_view value = FTokens.TextOf(Property.First);
        const auto renamed = FNames.find(UpperCase(value));
        if (refers && renamed != FNames.end()) {
            FOut.append(name).append(" = ").append(renamed->second) += '\n';
        } else if (SameText(name, "ControlOrder")) {
            AddOrder(Property);
        } else if (!refers || SameText(value, "nil") || FDocument.Find(value)) {
            const TFormToken &first = FTokens.GetToken(Property.Name),
                             &last = FTokens.GetToken(Property.Last - 1);
            FOut.append(FText.substr(first.Offset, last.Offset + last.Length - first.Offset)) += '\n';
        }
    }

    void AddOrder(const TFormProperty& Property) {
        FOut += "ControlOrder = (";
        for (std::size_t token = Property.First + 1; token + 1 < Property.Last; ++token)
            if (const auto found = FNames.find(UpperCase(FTokens.TextOf(token))); found != FNames.end())
                FOut.append(found->second) += ' ';
        FOut += ")\n";
    }

    const TKxDesignDocument& FDocument;
    std::string_view FText;
    TFormText FTokens;
    std::vector<TFormObject> FObjects;
    std::map<std::string, std::string> FNames; // by the names in the text, in upper case
    std::set<std::string> FTaken;
    std::string FOut;
};

} // namespace

std::vector<TComponent*> PasteComponents(TKxDesignDocument& Document, std::string_view Text,
                                         TWinControl* Parent, TPoint Shift, const std::string& StepName) {
    const std::string text = TRenaming(Document, Text).Renamed();
    std::vector<TComponent*> made;
    Document.Run({StepName}, [&] {
        made = Outermost(
            UpdateForm(Document.GetForm(), text, Document.GetFileName(), {.KeepsUnknownEvents = true}));
        for (TComponent* component : made)
            if (auto* control = dynamic_cast<TControl*>(component)) {
                if (Parent) control->SetParent(Parent);
                control->SetBounds(control->GetLeft() + Shift.X, control->GetTop() + Shift.Y,
                                   control->GetWidth(), control->GetHeight());
            }
    });
    Document.Select(made);
    return made;
}

void CopySelected(TKxDesignDocument& Document) {
    const std::string text = CopyComponents(Document, Document.GetSelection());
    if (!text.empty()) TApplication::Instance().GetHost().CopyText(text);
}

void CutSelected(TKxDesignDocument& Document) {
    const auto selection = Document.GetSelection();
    if (selection.empty() || Document.GetPrimary() == &Document.GetForm()) return;
    CopySelected(Document);
    Document.Run({"Cut " + ToldNames(selection)}, [&] { DeleteSelected(Document); });
}

bool CanPaste() { return TApplication::Instance().GetHost().PasteText().starts_with("object "); }

namespace {

/// Where controls of a text go: what they cannot stand in is no place for them.
TWinControl* ParentFor(const TKxDesignDocument& Document) {
    auto* primary = dynamic_cast<TControl*>(Document.GetPrimary());
    auto* container = dynamic_cast<TWinControl*>(primary);
    if (primary && (!container || dynamic_cast<TKx2DGraph*>(primary))) container = primary->GetParent();
    return container;
}

/// Axes stand on graphs: on that which is selected, or has what is selected.
TWinControl* AxisParentFor(const TKxDesignDocument& Document) {
    auto* control = dynamic_cast<TControl*>(Document.GetPrimary());
    while (control && !dynamic_cast<TKx2DGraph*>(control)) control = control->GetParent();
    return dynamic_cast<TWinControl*>(control);
}

} // namespace

void Paste(TKxDesignDocument& Document) {
    const std::string text = TApplication::Instance().GetHost().PasteText();
    const bool isAxis = text.substr(0, text.find('\n')).ends_with(": TKxAxis");
    PasteComponents(Document, text, isAxis ? AxisParentFor(Document) : ParentFor(Document), {CStep, CStep});
}

void DuplicateSelected(TKxDesignDocument& Document) {
    auto selection = Document.GetSelection();
    std::erase(selection, &Document.GetForm());
    if (selection.empty()) return;
    const auto* control = dynamic_cast<TControl*>(selection.back());
    PasteComponents(Document, CopyComponents(Document, selection), control ? control->GetParent() : nullptr,
                    {CStep, CStep}, "Duplicate " + ToldNames(selection));
}

} // namespace kx
