#include <kxgraph/design/Kxformrestore.h>

#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/streaming/formfile.h>

#include <algorithm>
#include <exception>
#include <map>
#include <set>
#include <vector>

namespace kx {

namespace {

constexpr std::string_view COrder = "ControlOrder";

std::string_view PathOf(std::string_view Line) { return Line.substr(0, Line.find(' ')); }

const TFormPart::TData* DataNamed(const TFormPart& Part, std::string_view Name) {
    for (const TFormPart::TData& data : Part.Data)
        if (data.Name == Name) return &data;
    return nullptr;
}

std::string OrderOf(const TKxPartState& State) {
    const TFormPart::TData* data = DataNamed(State.Part, COrder);
    return data ? *data->Text : std::string();
}

/// The names in "ControlOrder = (A B C)".
std::vector<std::string> NamesOf(std::string_view Order) {
    std::vector<std::string> names;
    std::string name;
    for (const char c : Order.substr(std::min(Order.find('(') + 1, Order.size()))) {
        if (c != ' ' && c != '\n' && c != ')')
            name += c;
        else if (!name.empty())
            names.push_back(std::exchange(name, {}));
    }
    return names;
}

/// What each component stands in.
std::map<std::string, std::string, std::less<>> ParentsIn(const TKxFormState& State) {
    std::map<std::string, std::string, std::less<>> parents;
    for (const auto& [name, part] : State.Parts)
        for (const std::string_view child : LinesOf(part->Children)) parents[std::string(child)] = name;
    return parents;
}

bool Differs(const std::string& Name, const std::shared_ptr<const TKxPartState>& A,
             const std::shared_ptr<const TKxPartState>& B) {
    return !(TKxFormState{{}, {{Name, A}}} == TKxFormState{{}, {{Name, B}}});
}

/// Whether two states have a component in the same place and order, with the same stacking in it.
bool IsSameOrder(const TKxPartState* A, const TKxPartState& B) {
    return A && A->Children == B.Children && OrderOf(*A) == OrderOf(B);
}

} // namespace

bool TKxFormRestorer::Restore(TKxFormState& Live, const TKxFormState& Target) {
    constexpr int CSetRounds = 3, CRounds = 6;
    if (Rename(Live, Target)) Live = CaptureForm(FRoot, FWriter, Live);
    for (int round = 0; round < CRounds && !(Live == Target); ++round) {
        try {
            Attempt(Live, Target, round == CSetRounds);
        } catch (const std::exception&) {
            // what it has not set differs still, and the rounds that are left, or the whole form, mend it
        }
        SettleTree(FRoot); // what that changes counts, too
        Live = CaptureForm(FRoot, FWriter, Live);
    }
    return Live == Target;
}

/// What is to go, and what is to come, is one component where both are alike but for the name.
bool TKxFormRestorer::Rename(const TKxFormState& Live, const TKxFormState& Target) {
    if (FRoot.GetName() != Target.RootName) {
        FRenamed.emplace_back(FRoot.GetName(), Target.RootName);
        FRoot.SetName(Target.RootName);
    }
    std::map<std::string, std::string> coming; // by what they are
    for (const auto& [name, part] : Target.Parts)
        if (!Live.Find(name)) coming.emplace(part->Part.Class + '\n' + part->Part.Lines, name);
    for (const auto& [name, part] : Live.Parts) {
        if (Target.Find(name)) continue;
        const auto found = coming.find(part->Part.Class + '\n' + part->Part.Lines);
        TComponent* component = Find(name);
        if (found == coming.end() || !component || FRoot.FindComponent(found->second)) continue;
        component->SetName(found->second);
        FRenamed.emplace_back(name, found->second);
        coming.erase(found);
    }
    return !FRenamed.empty();
}

TComponent* TKxFormRestorer::Find(std::string_view Name) const {
    return Name.empty() ? &FRoot : FRoot.FindComponent(Name);
}

void TKxFormRestorer::Attempt(const TKxFormState& Live, const TKxFormState& Target, bool Anew) {
    std::set<std::string, std::less<>> gone;
    for (const auto& [name, part] : Live.Parts) {
        const auto target = Target.Parts.find(name);
        const bool stays = target != Target.Parts.end() && part->Part.Class == target->second->Part.Class;
        if (name.empty() || (stays && !(Anew && Differs(name, part, target->second)))) continue;
        delete FRoot.FindComponent(name);
        gone.insert(name);
    }
    const TKxFormState live = gone.empty() ? Live : CaptureForm(FRoot, FWriter, Live);
    FParents = ParentsIn(live);
    const std::string text = Patch(live, Target, {}, {});
    if (!text.empty()) UpdateForm(FRoot, text, FFileName, {.KeepsUnknownEvents = true});
    int index = 0;
    PutInOrder(Target, {}, index);
    for (const auto& [name, part] : Target.Parts)
        if (!IsSameOrder(live.Find(name), *part)) Stack(*part);
}

/// What has to be read so that Name, and what stands in it, is what it is in Target.
std::string TKxFormRestorer::Patch(const TKxFormState& Live, const TKxFormState& Target,
                                   std::string_view Name, std::string_view Parent) {
    const TKxPartState& target = *Target.Find(Name);
    const bool stands = Live.Find(Name) != nullptr;
    std::string own, inner;
    if (stands) {
        own = DifferentLines(Live, target, Name);
    } else {
        own = target.Part.Lines;
        for (const TFormPart::TData& data : target.Part.Data) own += *data.Text;
    }
    for (const std::string_view child : LinesOf(target.Children)) inner += Patch(Live, Target, child, Name);
    const bool placed = stands && (Name.empty() || FParents.find(Name)->second == Parent);
    if (placed && own.empty() && inner.empty()) return {};
    std::string text("object ");
    text.append(Name.empty() ? Target.RootName : Name).append(": ").append(target.Part.Class) += '\n';
    return text.append(own).append(inner).append("end\n");
}

std::string TKxFormRestorer::DifferentLines(const TKxFormState& Live, const TKxPartState& Target,
                                            std::string_view Name) {
    const TFormPart& live = Live.Find(Name)->Part;
    std::map<std::string_view, std::string_view> have;
    for (const std::string_view line : LinesOf(live.Lines)) have[PathOf(line)] = line;
    std::string set, unset;
    for (const std::string_view line : LinesOf(Target.Part.Lines)) {
        const auto found = have.find(PathOf(line));
        if (found == have.end() || found->second != line) set.append(line) += '\n';
        if (found != have.end()) have.erase(found);
    }
    for (const auto& [path, line] : have)
        if (const std::string form = FWriter.UnchangedForm(*Find(Name), path); !form.empty())
            unset.append(path).append(" = ").append(form) += '\n';
    for (const TFormPart::TData& data : Target.Part.Data) {
        const TFormPart::TData* found = DataNamed(live, data.Name);
        if (data.Name != COrder && (!found || *found->Text != *data.Text)) set += *data.Text;
    }
    return unset + set;
}

void TKxFormRestorer::PutInOrder(const TKxFormState& Target, std::string_view Name, int& Index) {
    for (const std::string_view child : LinesOf(Target.Find(Name)->Children)) {
        TComponent* component = Find(child);
        if (component && component->GetComponentIndex() != Index) component->SetComponentIndex(Index);
        ++Index;
        PutInOrder(Target, child, Index);
    }
}

/// Controls lie above one another in the order of the components, or in one of their own.
void TKxFormRestorer::Stack(const TKxPartState& Target) {
    std::vector<std::string> names = NamesOf(OrderOf(Target));
    if (names.empty())
        for (const std::string_view child : LinesOf(Target.Children)) names.emplace_back(child);
    for (const std::string& name : names)
        if (auto* control = dynamic_cast<TControl*>(Find(name))) control->BringToFront();
}

} // namespace kx
