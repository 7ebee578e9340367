#include "kxplot/form/properties.h"

#include "kxplot/options/paragraph.h"
#include "kxplot/options/usageerror.h"

#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/platform/text/suggest.h>
#include <kxgraph/platform/text/text.h>

#include <vector>

namespace kxplot {

using namespace kx;

namespace {

std::string Joined(std::span<const std::string_view> Words) {
    std::string text;
    for (const auto word : Words) (text += text.empty() ? "" : ", ") += word;
    return text;
}

std::string KindOf(const TProperty& Row) {
    switch (Row.Kind) {
    case TPropertyKind::Bool: return "0 or 1";
    case TPropertyKind::Integer: return "whole number";
    case TPropertyKind::Real: return "number";
    case TPropertyKind::Text: return "text";
    case TPropertyKind::Enumeration: return Joined(Row.ValueNames);
    case TPropertyKind::Flags: return "any of " + Joined(Row.ValueNames);
    case TPropertyKind::Color: return "colour";
    case TPropertyKind::Reals: return "numbers with semicolons between";
    case TPropertyKind::Reference: return "name of a component";
    case TPropertyKind::SubObject:
    case TPropertyKind::Event: break;
    }
    return {};
}

/// What Object's table says, Path before each name.
class TLister {
public:
    explicit TLister(int Width) : FWidth(Width) {}

    void List(const TPersistent& Object, const std::string& Path) {
        for (const TProperty* row : Object.PublishedProperties().All()) {
            const std::string path = Path + "." + std::string(row->Name);
            if (row->Kind == TPropertyKind::SubObject) {
                if (const auto* inner = std::get<TPersistent*>(row->Get(Object))) List(*inner, path);
            } else if (row->Set && row->Kind != TPropertyKind::Event) {
                Add(path, *row, PropertyToText(*row, row->Get(Object)));
            }
        }
    }
    std::string Text;

private:
    void Add(const std::string& Path, const TProperty& Row, const std::string& Value) {
        constexpr int indent = 4;
        Text += Path + "=" + Escaped(Value) + "\n";
        std::string note = KindOf(Row);
        if (!std::holds_alternative<std::monostate>(Row.Default)) {
            const std::string usual = PropertyToText(Row, Row.Default);
            note += "; default " + (usual.empty() ? "none" : usual);
        }
        TParagraph(Text, 0, indent, FWidth).Add(note + ". " + std::string(Row.Help));
    }

    int FWidth;
};

} // namespace

std::string PropertyList(TForm& Form, const std::string& Name, int Width) {
    TLister lister(Width);
    std::vector<std::string_view> names;
    for (const TComponent* component : Form.GetComponents()) {
        if (component->GetName().empty()) continue;
        names.push_back(component->GetName());
        if (!Name.empty() && !SameText(component->GetName(), Name)) continue;
        (lister.Text += lister.Text.empty() ? "" : "\n") +=
            "# " + component->GetName() + " is a " + component->ClassName() + "\n";
        lister.List(*component, component->GetName());
    }
    if (lister.Text.empty())
        FailUsage("--properties", Name, "is no component of this picture" + DidYouMean(Name, names));
    return lister.Text;
}

} // namespace kxplot
