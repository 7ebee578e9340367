#include <kxgraph/platform/streaming/describe.h>

#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/streaming/formvalues.h>

#include <algorithm>
#include <memory>
#include <set>
#include <string_view>
#include <vector>

namespace kx {

namespace {

std::string Code(std::string_view Text) { return "`" + std::string(Text) + "`"; }

std::string Listed(std::span<const std::string_view> Names) {
    std::string list;
    for (const std::string_view name : Names) list.append(list.empty() ? "" : ", ").append(Code(name));
    return list;
}

std::string TypeOf(const TProperty& Row, const TPersistent& Fresh) {
    switch (Row.Kind) {
    case TPropertyKind::Bool: return "`True`, `False`";
    case TPropertyKind::Integer: return "whole number";
    case TPropertyKind::Real: return "number";
    case TPropertyKind::Text: return "text";
    case TPropertyKind::Enumeration: return Row.ValueNames.empty() ? "whole number" : Listed(Row.ValueNames);
    case TPropertyKind::Flags: return "set of " + Listed(Row.ValueNames);
    case TPropertyKind::Color: return "colour";
    case TPropertyKind::Reals: return "list of numbers";
    case TPropertyKind::Reference: return "component";
    case TPropertyKind::SubObject:
        return std::string(std::get<TPersistent*>(Row.Get(Fresh))->PublishedProperties().GetClassName());
    case TPropertyKind::Event: return "event";
    }
    return {};
}

/// What need not be written; of an object its own properties tell.
std::string DefaultOf(const TProperty& Row) {
    const bool hasNone = std::holds_alternative<std::monostate>(Row.Default);
    if (Row.Kind == TPropertyKind::Reference && !hasNone) return "`nil`";
    return hasNone ? std::string() : Code(ValueForm(Row, Row.Default));
}

/// A bar would end the cell.
std::string Cell(std::string Text) {
    for (std::size_t at = Text.find('|'); at != Text.npos; at = Text.find('|', at + 2)) Text.insert(at, "\\");
    return Text;
}

void AppendRow(std::string& Text, const TProperty& Row, const TPersistent& Fresh) {
    Text.append("| ").append(Code(Row.Name)).append(" | ").append(TypeOf(Row, Fresh));
    if (!Row.Set) Text.append(", read only");
    Text.append(" | ")
        .append(DefaultOf(Row))
        .append(" | ")
        .append(Cell(std::string(Row.Help)))
        .append(" |\n");
}

/// Describes tables, each once.
class TDescription {
public:
    /// Name goes before that of the table, which may be a base class's.
    void AddClass(const TComponentClass& Class) {
        const std::unique_ptr<TComponent> fresh(Class.Make(nullptr));
        const TPropertyTable& table = Class.Properties();
        if (table.GetClassName() != Class.Name && FNames.insert(Class.Name).second)
            FText.append("\n## ")
                .append(Class.Name)
                .append("\n\n")
                .append(PageOf(Class))
                .append("Properties: those of " + std::string(table.GetClassName()) + ".\n");
        Add(table, *fresh, PageOf(Class));
    }
    const std::string& GetText() const { return FText; }

private:
    static std::string PageOf(const TComponentClass& Class) {
        return Class.Page.empty() ? std::string() : "Page " + std::string(Class.Page) + ". ";
    }

    void Add(const TPropertyTable& Table, const TPersistent& Fresh, const std::string& Page = {}) {
        if (!FNames.insert(Table.GetClassName()).second) return;
        FText.append("\n## ").append(Table.GetClassName()).append("\n\n").append(Page);
        if (Table.GetBase())
            FText.append("Properties: those of ")
                .append(Table.GetBase()->GetClassName())
                .append(Table.GetOwn().empty() ? ".\n" : ", and\n\n");
        if (!Table.GetOwn().empty()) FText.append("| Property | Type | Default | |\n|---|---|---|---|\n");
        for (const TProperty& row : Table.GetOwn()) AppendRow(FText, row, Fresh);
        AddKept(Table);
        for (const TProperty& row : Table.GetOwn())
            if (row.Kind == TPropertyKind::SubObject) AddObject(row, Fresh);
        if (Table.GetBase()) Add(*Table.GetBase(), Fresh);
    }

    void AddObject(const TProperty& Row, const TPersistent& Fresh) {
        const TPersistent& object = *std::get<TPersistent*>(Row.Get(Fresh));
        Add(object.PublishedProperties(), object);
    }

    /// What is in files alone.
    void AddKept(const TPropertyTable& Table) {
        std::vector<std::string_view> names;
        for (const TProperty& row : Table.GetKept())
            if (row.Set && !Table.Find(row.Name)) names.push_back(row.Name);
        if (!names.empty())
            FText.append("\nIn form files and outfits also ").append(Listed(names)).append(".\n");
    }

    std::string FText;
    std::set<std::string_view> FNames;
};

} // namespace

std::string DescribeClass(const TComponentClass& Class) {
    TDescription description;
    description.AddClass(Class);
    return description.GetText().substr(1);
}

std::string DescribeClasses() {
    TDescription description;
    for (const TComponentClass& type : RegisteredClasses()) description.AddClass(type);
    return description.GetText().substr(1);
}

} // namespace kx
