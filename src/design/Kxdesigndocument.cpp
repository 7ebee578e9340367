#include <kxgraph/design/Kxdesigndocument.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/base/ownedcast.h>
#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/platform/streaming/formfile.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/table/Kxfilevector.h>

#include <algorithm>
#include <utility>

namespace kx {

TKxDesignDocument::TKxDesignDocument() { New(); }

TKxDesignDocument::~TKxDesignDocument() = default;

TComponent* TKxDesignDocument::Find(std::string_view Name) const {
    if (Name.empty()) return nullptr;
    return SameText(Name, FForm->GetName()) ? FForm.get() : FForm->FindComponent(Name);
}

namespace {

/// What names of components of a class begin with: "Graph" for TKx2DGraph. Of a name all but its number.
std::string_view StemOf(std::string_view ClassOrName) {
    for (const std::string_view prefix : {"TKx2D", "TKx", "T"})
        if (ClassOrName.size() > prefix.size() && ClassOrName.starts_with(prefix) &&
            UpperCase(ClassOrName.substr(prefix.size(), 1)) == ClassOrName.substr(prefix.size(), 1)) {
            ClassOrName.remove_prefix(prefix.size());
            break;
        }
    const std::size_t end = ClassOrName.find_last_not_of("0123456789");
    return ClassOrName.substr(0, end + 1);
}

} // namespace

std::string TKxDesignDocument::UniqueName(std::string_view ClassOrName) const {
    const std::string stem(StemOf(ClassOrName));
    for (int number = 1;; ++number)
        if (std::string name = stem + std::to_string(number); !Find(name)) return name;
}

// Files.

void TKxDesignDocument::New() {
    auto form = std::make_unique<TForm>(nullptr);
    form->SetName("Form1");
    Take(std::move(form), {}, false);
}

void TKxDesignDocument::Open(const std::string& FileName) {
    Read(ReadTextFile(FileName).Text, FileName, false);
}

void TKxDesignDocument::Read(std::string_view Text, const std::string& FileName, bool Modified) {
    std::unique_ptr<TComponent> root = FormFromText(Text, FileName, {.KeepsUnknownEvents = true});
    std::unique_ptr<TForm> form = OwnedCast<TForm>(root);
    if (!form) throw EFormError(FileName + ": a form is expected, not a " + root->ClassName());
    Take(std::move(form), FileName, Modified);
}

void TKxDesignDocument::Take(std::unique_ptr<TForm> Form, std::string FileName, bool Modified) {
    const auto before = std::exchange(FForm, std::move(Form));
    FForm->SetDesigning(true);
    NameAll();
    Settle();
    FWriter = std::make_unique<TFormWriter>(*FForm, FileName);
    FFileName = std::move(FileName);
    FState = CaptureForm(*FForm, *FWriter);
    FBeforeLast = {};
    FSteps.clear();
    FUndone = 0;
    FAt = ++FLastState;
    FSaved = Modified ? 0 : FAt;
    FMayMerge = false;
    FSelected.clear();
    ++FVersion;
    Tell(&TKxDesignObserver::FormReplaced);
    Tell(&TKxDesignObserver::SelectionChanged);
    Tell(&TKxDesignObserver::FileChanged);
}

void TKxDesignDocument::NameAll() {
    if (FForm->GetName().empty()) FForm->SetName(UniqueName("TForm"));
    for (TComponent* component : FForm->GetComponents())
        if (component->GetName().empty()) component->SetName(UniqueName(component->ClassName()));
}

/// Form files tell objects apart by their names alone.
void TKxDesignDocument::DemandOwnNames() const {
    if (FForm->FindComponent(FForm->GetName()))
        throw EComponentError("A component named " + FForm->GetName() + " already exists");
}

/// What DemandOwnNames refuses cannot be compared either; Form is what the form was called.
void TKxDesignDocument::PartNames(const std::string& Form) {
    if (!FForm->FindComponent(FForm->GetName())) return;
    FForm->SetName(Form);
    if (TComponent* twin = FForm->FindComponent(Form)) twin->SetName(UniqueName(twin->ClassName()));
}

void TKxDesignDocument::Save() { SaveAs(FFileName); }

/// Whether that has changed any name.
bool TKxDesignDocument::RebaseTables(const std::string& FileName) {
    bool changed = false;
    for (TComponent* component : FForm->GetComponents()) {
        auto* vector = dynamic_cast<TKxFileVector*>(component);
        if (!vector) continue;
        const std::string before = vector->GetFileName();
        vector->Rebase(FileName);
        changed = changed || vector->GetFileName() != before;
    }
    return changed;
}

void TKxDesignDocument::SaveAs(const std::string& FileName) {
    const bool moved = RebaseTables(FileName);
    try {
        SaveForm(*FForm, FileName);
    } catch (...) {
        RebaseTables(FFileName);
        throw;
    }
    if (moved) FSteps.clear(), FUndone = 0;
    const bool renamed = FFileName != FileName;
    FFileName = FileName;
    FWriter->SetFileName(FileName);
    if (renamed) FState = CaptureForm(*FForm, *FWriter, FState);
    FSaved = FAt;
    FMayMerge = false;
    Tell(&TKxDesignObserver::FileChanged);
    if (moved) Tell(&TKxDesignObserver::FormChanged);
}

std::string TKxDesignDocument::GetTitle() const {
    return FFileName.empty() ? "Untitled" : ExtractFileName(FFileName);
}

std::string TKxDesignDocument::GetText() const { return FormToText(*FForm, FFileName); }

// Selection. It is kept by names, so that it survives what makes components anew.

std::vector<TComponent*> TKxDesignDocument::GetSelection() const {
    std::vector<TComponent*> selection;
    for (const std::string& name : FSelected)
        if (TComponent* component = Find(name)) selection.push_back(component);
    return selection;
}

TComponent* TKxDesignDocument::GetPrimary() const {
    const auto selection = GetSelection();
    return selection.empty() ? nullptr : selection.back();
}

bool TKxDesignDocument::IsSelected(const TComponent* Component) const {
    return std::ranges::count(FSelected, Component->GetName()) > 0;
}

void TKxDesignDocument::Select(const std::vector<TComponent*>& Components) {
    std::vector<std::string> names;
    for (const TComponent* component : Components) {
        if (!component || (component == FForm.get() && Components.size() > 1)) continue;
        if (std::ranges::count(names, component->GetName()) == 0) names.push_back(component->GetName());
    }
    if (names == FSelected) return;
    FSelected = std::move(names);
    FMayMerge = false;
    Tell(&TKxDesignObserver::SelectionChanged);
}

void TKxDesignDocument::ToggleSelected(TComponent* Component) {
    auto selection = GetSelection();
    if (std::erase(selection, Component) == 0) {
        std::erase(selection, FForm.get());
        selection.push_back(Component);
    }
    Select(selection);
}

void TKxDesignDocument::Tell(void (TKxDesignObserver::*What)()) {
    const std::vector<TKxDesignObserver*> observers = FObservers;
    for (TKxDesignObserver* observer : observers)
        if (std::ranges::count(FObservers, observer) > 0) Guarded([&] { (observer->*What)(); });
}

std::string ToldName(const TComponent& Component) {
    return Component.GetName().empty() ? Component.ClassName() : Component.GetName();
}

} // namespace kx
