#include <kxgraph/design/Kxinspector.h>

#include <kxgraph/design/Kxdesigneditors.h>
#include <kxgraph/design/Kxdesignrows.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/text/suggest.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace kx {

namespace {

using TRows = std::vector<std::unique_ptr<TKxInspectorRow>>;

TKxInspectorRow* FindIn(const TRows& Rows, std::string_view Path) {
    for (const auto& row : Rows) {
        if (SameText(row->Path, Path)) return row.get();
        if (!StartsWithText(Path, row->Path + ".")) continue;
        if (TKxInspectorRow* part = FindIn(row->Parts, Path)) return part;
    }
    return nullptr;
}

/// The one of the rows of another component that is the same property as Row.
const TProperty* Same(const std::vector<const TProperty*>& Rows, const TProperty& Row) {
    for (const TProperty* row : Rows)
        if (SameText(row->Name, Row.Name))
            return row->Kind == Row.Kind && row->TypeName == Row.TypeName &&
                           row->ValueNames.data() == Row.ValueNames.data()
                       ? row
                       : nullptr;
    return nullptr;
}

bool Contains(std::string_view Text, std::string_view Part) {
    return UpperCase(Text).find(UpperCase(Part)) != std::string::npos;
}

template <class T>
bool Take(T& Field, T Value) {
    return std::exchange(Field, Value) != Value;
}

} // namespace

TKxInspector::TKxInspector(TKxDesignChange& Change) : TComponent(nullptr), FContext{Change} {
    RegisterPropertyEditors();
}

TKxInspector::~TKxInspector() { Leave(); }

void TKxInspector::Leave() {
    DropRows();
    for (TComponent* component : FSelected) component->RemoveFreeNotification(this);
    FSelected.clear();
}

void TKxInspector::Select(TComponent& Form, std::span<TComponent* const> Components) {
    Leave();
    FContext.Form = &Form;
    FSelected.assign(Components.begin(), Components.end());
    for (TComponent* component : FSelected) component->FreeNotification(this);
    OnChange(true);
}

void TKxInspector::Clear() {
    Leave();
    OnChange(true);
}

// Of many that go one after the other only the first one is told.
void TKxInspector::Notification(TComponent* Component, TOperation Operation) {
    TComponent::Notification(Component, Operation);
    if (Operation != opRemove || std::erase(FSelected, Component) == 0 || !FIsMade) return;
    DropRows();
    OnChange(true);
}

// A document may replace components while one of the editors is at work.
void TKxInspector::DropRows() {
    if (FIsEditing) FOld.push_back(std::move(FRows));
    FRows.clear();
    FIsMade = false;
}

const TRows& TKxInspector::GetRows() const {
    if (!FIsMade) const_cast<TKxInspector*>(this)->MakeRows(); // what it says is the same before and after
    return FRows;
}

std::string TKxInspector::GetTitle() const {
    if (FSelected.empty()) return {};
    if (FSelected.size() > 1) return std::to_string(FSelected.size()) + " components";
    return FSelected.front()->GetName() + ": " + FSelected.front()->ClassName();
}

void TKxInspector::MakeRows() {
    FIsMade = true;
    if (FSelected.empty()) return;
    std::vector<std::vector<const TProperty*>> rows;
    for (const TComponent* component : FSelected) rows.push_back(DesignRowsOf(*component));
    for (const TProperty* row : rows.front()) AddRow(*row, rows);
    std::ranges::sort(FRows, std::less<>(), [](const auto& Row) { return UpperCase(Row->Name); });
    FilterAll();
}

/// What all have. Several components cannot have one name.
void TKxInspector::AddRow(const TProperty& Row, const std::vector<std::vector<const TProperty*>>& Others) {
    if (FSelected.size() > 1 && Row.Name == "Name") return;
    std::vector<TKxPropertyPlace::TTarget> targets;
    for (std::size_t i = 0; i < Others.size(); ++i) {
        const TProperty* row = Same(Others[i], Row);
        if (!row) return;
        targets.push_back({FSelected[i], {row}});
    }
    FRows.push_back(RowOf(MakePropertyEditor({FContext, std::move(targets)}), CategoryOf(Row)));
}

std::unique_ptr<TKxInspectorRow> TKxInspector::RowOf(std::unique_ptr<TKxPropertyEditor> Editor,
                                                     std::string_view Category) {
    auto row = std::make_unique<TKxInspectorRow>();
    row->Path = Editor->GetPath();
    row->Name = Editor->GetName();
    row->Help = Editor->GetHelp();
    row->Category = Category;
    for (auto& part : Editor->MakeParts()) row->Parts.push_back(RowOf(std::move(part), Category));
    row->Editor = std::move(Editor);
    Read(*row);
    return row;
}

/// Whether it says something else than before.
bool TKxInspector::Read(TKxInspectorRow& Row) {
    bool changed = Take(Row.Text, Row.Editor->GetText());
    changed |= Take(Row.IsMixed, Row.Editor->IsMixed());
    changed |= Take(Row.IsDefault, Row.Editor->IsDefault());
    changed |= Take(Row.IsReadOnly, Row.Editor->IsReadOnly());
    changed |= Take(Row.CanReset, Row.Editor->CanReset());
    for (const auto& part : Row.Parts) changed |= Read(*part);
    return changed;
}

void TKxInspector::Refresh() {
    bool changed = false;
    for (const auto& row : FRows) changed |= Read(*row); // those that are not made are made anew
    if (!changed) return;
    FilterAll();
    OnChange(false);
}

/// IsFound: a row that holds it has what is searched for in its own name.
bool TKxInspector::Filter(TKxInspectorRow& Row, bool IsFound) const {
    IsFound = IsFound || Contains(Row.Name, FSearch) || Contains(Row.Help, FSearch);
    bool isShown = IsFound && !(FHidesDefaults && Row.IsDefault && !Row.IsMixed);
    for (const auto& part : Row.Parts) isShown |= Filter(*part, IsFound);
    return Row.IsShown = isShown;
}

void TKxInspector::FilterAll() {
    for (const auto& row : FRows) Filter(*row, false);
}

void TKxInspector::SetSearch(const std::string& Text) {
    if (!Take(FSearch, std::string(Trimmed(Text)))) return;
    FilterAll();
    OnChange(false);
}

void TKxInspector::SetHidesDefaults(bool Hides) {
    if (!Take(FHidesDefaults, Hides)) return;
    FilterAll();
    OnChange(false);
}

std::vector<TKxInspectorRow*> TKxInspector::GetShown(std::string_view Category) const {
    std::vector<TKxInspectorRow*> shown;
    for (const auto& row : GetRows())
        if (row->IsShown && (Category.empty() || row->Category == Category)) shown.push_back(row.get());
    return shown;
}

std::vector<std::string_view> TKxInspector::GetCategories() const {
    std::vector<std::string_view> shown;
    for (const std::string_view category : DesignCategories())
        if (std::ranges::any_of(GetRows(),
                                [&](const auto& Row) { return Row->IsShown && Row->Category == category; }))
            shown.push_back(category);
    return shown;
}

TKxInspectorRow* TKxInspector::Find(std::string_view Path) const { return FindIn(GetRows(), Path); }

TKxInspectorRow& TKxInspector::Row(std::string_view Path) const {
    if (TKxInspectorRow* row = Find(Path)) return *row;
    std::vector<std::string_view> known;
    for (const auto& row : GetRows()) known.push_back(row->Path);
    throw EPropertyError("there is no property '" + Abridged(Path) + "' here" + DidYouMean(Path, known));
}

// What was set may have changed other rows, or the selection.
template <class F>
void TKxInspector::Edit(std::string_view Path, F Action) {
    TKxPropertyEditor& editor = *Row(Path).Editor;
    if (!FIsEditing) FOld.clear();
    {
        const TScopedValue editing(FIsEditing, true);
        Action(editor);
    }
    Refresh();
}

void TKxInspector::SetText(std::string_view Path, const std::string& Text, bool IsContinued) {
    Edit(Path, [&](TKxPropertyEditor& Editor) { Editor.SetText(Text, IsContinued); });
}

void TKxInspector::Reset(std::string_view Path) {
    Edit(Path, [](TKxPropertyEditor& Editor) { Editor.Reset(); });
}

} // namespace kx
