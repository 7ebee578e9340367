#include <kxgraph/design/Kxformstate.h>

#include <algorithm>

namespace kx {

namespace {

bool IsSameData(const TFormPart::TData& A, const TFormPart::TData& B) {
    return A.Name == B.Name && (A.Text == B.Text || *A.Text == *B.Text);
}

bool IsSamePart(const TKxPartState& A, const TKxPartState& B) {
    return A.Part.Class == B.Part.Class && A.Part.Lines == B.Part.Lines && A.Children == B.Children &&
           std::ranges::equal(A.Part.Data, B.Part.Data, IsSameData);
}

/// Whether every piece of data is the very one that the other has, so that one state may stand for both.
bool SharesData(const TKxPartState& A, const TKxPartState& B) {
    return std::ranges::equal(A.Part.Data, B.Part.Data, [](const auto& One, const auto& Other) {
        return One.Version == Other.Version;
    });
}

std::string NamesOf(const TFormWriter::TChildren& Children, const TComponent& Parent) {
    std::string names;
    if (const auto found = Children.find(&Parent); found != Children.end())
        for (const TComponent* child : found->second) names.append(child->GetName()) += '\n';
    return names;
}

} // namespace

const TKxPartState* TKxFormState::Find(std::string_view Name) const {
    const auto found = Parts.find(Name);
    return found == Parts.end() ? nullptr : found->second.get();
}

bool operator==(const TKxFormState& A, const TKxFormState& B) {
    return A.RootName == B.RootName &&
           std::ranges::equal(A.Parts, B.Parts, [](const auto& One, const auto& Other) {
               return One.first == Other.first &&
                      (One.second == Other.second || IsSamePart(*One.second, *Other.second));
           });
}

TKxFormState CaptureForm(TComponent& Root, TFormWriter& Writer, const TKxFormState& Before) {
    const TFormWriter::TChildren children = Writer.Children();
    TKxFormState state{Root.GetName(), {}};
    const auto take = [&](TComponent& Component, const std::string& Name) {
        const auto before = Before.Parts.find(Name);
        const bool known = before != Before.Parts.end();
        auto now = std::make_shared<TKxPartState>();
        now->Part = Writer.WritePart(Component, known ? &before->second->Part : nullptr);
        now->Children = NamesOf(children, Component);
        const bool same = known && SharesData(*now, *before->second) && IsSamePart(*now, *before->second);
        state.Parts.emplace_hint(state.Parts.end(), Name, same ? before->second : std::move(now));
    };
    take(Root, {});
    for (TComponent* component : Root.GetComponents()) take(*component, component->GetName());
    return state;
}

std::vector<std::string_view> LinesOf(std::string_view Text) {
    std::vector<std::string_view> lines;
    for (std::size_t begin = 0; begin < Text.size();) {
        const std::size_t end = std::min(Text.find('\n', begin), Text.size());
        lines.push_back(Text.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

namespace {

void AddObject(const TKxFormState& State, std::string_view Name, const std::string& Indent,
               std::string& Text) {
    const TKxPartState* state = State.Find(Name);
    if (!state) return;
    Text.append(Indent).append("object ").append(Name.empty() ? State.RootName : Name).append(": ");
    Text.append(state->Part.Class) += '\n';
    const auto addLines = [&](std::string_view Lines) {
        for (const std::string_view line : LinesOf(Lines))
            Text.append(Indent).append("  ").append(line) += '\n';
    };
    addLines(state->Part.Lines);
    for (const TFormPart::TData& data : state->Part.Data) addLines(*data.Text);
    for (const std::string_view child : LinesOf(state->Children))
        AddObject(State, child, Indent + "  ", Text);
    Text.append(Indent).append("end\n");
}

} // namespace

std::string ObjectText(const TKxFormState& State, std::string_view Name) {
    std::string text;
    AddObject(State, Name, {}, text);
    return text;
}

TKxTextChange TKxTextChange::Between(std::string_view Before, std::string_view After) {
    const auto start = std::ranges::mismatch(Before, After).in1;
    const auto at = std::size_t(start - Before.begin());
    const std::size_t most = std::min(Before.size(), After.size()) - at;
    std::size_t tail = 0;
    while (tail < most && Before[Before.size() - 1 - tail] == After[After.size() - 1 - tail]) ++tail;
    return {at, std::string(Before.substr(at, Before.size() - tail - at)),
            std::string(After.substr(at, After.size() - tail - at))};
}

std::string TKxTextChange::Applied(std::string_view Text, bool Back) const {
    const std::string &old = Back ? Inserted : Removed, &other = Back ? Removed : Inserted;
    return std::string(Text.substr(0, At)).append(other).append(Text.substr(At + old.size()));
}

namespace {

bool HasSamePieces(const TKxPartState& A, const TKxPartState& B) {
    return A.Part.Class == B.Part.Class &&
           std::ranges::equal(A.Part.Data, B.Part.Data,
                              [](const auto& One, const auto& Other) { return One.Name == Other.Name; });
}

TKxPartChange Whole(const std::string& Name, std::shared_ptr<const TKxPartState> Before,
                    std::shared_ptr<const TKxPartState> After) {
    return {Name, std::move(Before), std::move(After), {}, {}, {}};
}

TKxPartChange Difference(const std::string& Name, const std::shared_ptr<const TKxPartState>& Before,
                         const std::shared_ptr<const TKxPartState>& After) {
    if (!HasSamePieces(*Before, *After)) return Whole(Name, Before, After);
    TKxPartChange change{Name,
                         {},
                         {},
                         TKxTextChange::Between(Before->Part.Lines, After->Part.Lines),
                         TKxTextChange::Between(Before->Children, After->Children),
                         {}};
    for (std::size_t i = 0; i < Before->Part.Data.size(); ++i) {
        const auto &old = Before->Part.Data[i].Text, &now = After->Part.Data[i].Text;
        change.Data.push_back(old == now ? TKxTextChange() : TKxTextChange::Between(*old, *now));
    }
    return change;
}

std::shared_ptr<const TKxPartState> Changed(const TKxPartState& State, const TKxPartChange& Change,
                                            bool Back) {
    auto changed = std::make_shared<TKxPartState>(State);
    changed->Part.Lines = Change.Lines.Applied(State.Part.Lines, Back);
    changed->Children = Change.Children.Applied(State.Children, Back);
    for (std::size_t i = 0; i < Change.Data.size(); ++i) {
        if (Change.Data[i].IsEmpty()) continue;
        TFormPart::TData& data = changed->Part.Data[i];
        data.Text = std::make_shared<const std::string>(Change.Data[i].Applied(*data.Text, Back));
        data.Version = 0; // nobody has it yet
    }
    return changed;
}

} // namespace

TKxFormChange TKxFormChange::Between(const TKxFormState& Before, const TKxFormState& After) {
    TKxFormChange change{Before.RootName, After.RootName, {}};
    for (const auto& [name, before] : Before.Parts) {
        const auto after = After.Parts.find(name);
        if (after == After.Parts.end())
            change.Parts.push_back(Whole(name, before, nullptr));
        else if (before != after->second && !IsSamePart(*before, *after->second))
            change.Parts.push_back(Difference(name, before, after->second));
    }
    for (const auto& [name, after] : After.Parts)
        if (!Before.Find(name)) change.Parts.push_back(Whole(name, nullptr, after));
    return change;
}

TKxFormState TKxFormChange::Applied(TKxFormState State, bool Back) const {
    State.RootName = Back ? RootBefore : RootAfter;
    for (const TKxPartChange& change : Parts) {
        const auto& whole = Back ? change.Before : change.After;
        auto& part = State.Parts[change.Name];
        if (whole)
            part = whole;
        else if (change.Before || change.After)
            State.Parts.erase(change.Name);
        else
            part = Changed(*part, change, Back);
    }
    return State;
}

std::vector<std::string> TKxFormChange::Names(bool Back) const {
    std::vector<std::string> names;
    for (const TKxPartChange& change : Parts)
        if ((Back ? change.Before : change.After) || (!change.Before && !change.After))
            names.push_back(change.Name);
    return names;
}

} // namespace kx
