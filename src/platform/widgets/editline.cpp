#include <kxgraph/platform/widgets/editline.h>

#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <utility>

namespace kx {

namespace {

/// Text as it can stand in a line of at most Most characters.
std::string LineOf(std::string_view Text, int Most) {
    std::string line;
    for (std::size_t i = 0; i < Text.size() && Most > 0;) {
        const TCodePoint point = DecodeAt(Text, i);
        const bool isBreak = point.Value == '\n' || point.Value == '\t';
        if (isBreak || point.Value >= ' ') {
            line += isBreak ? " " : Text.substr(i, std::size_t(point.Length));
            --Most;
        }
        i += std::size_t(point.Length);
    }
    return line;
}

enum class TKind { Blank, Word, Sign };

TKind KindOf(char32_t C) {
    if (C == ' ' || C == 0xA0) return TKind::Blank;
    const bool isLetter =
        (C >= '0' && C <= '9') || (C >= 'A' && C <= 'Z') || (C >= 'a' && C <= 'z') || C == '_';
    return isLetter || C > 0xBF ? TKind::Word : TKind::Sign;
}

std::vector<TKind> KindsOf(std::string_view Text) {
    std::vector<TKind> kinds;
    for (std::size_t i = 0; i < Text.size();) {
        const TCodePoint point = DecodeAt(Text, i);
        kinds.push_back(KindOf(point.Value));
        i += std::size_t(point.Length);
    }
    return kinds;
}

} // namespace

void TEditLine::SetText(std::string Text) {
    FState.Text = std::move(Text);
    FCount = CharacterCount(FState.Text);
    FState.Caret = FState.Anchor = FCount;
    FUndo.clear();
    FRedo.clear();
    FLast = TStep::None;
}

int TEditLine::SelStart() const { return std::min(FState.Caret, FState.Anchor); }
int TEditLine::SelEnd() const { return std::max(FState.Caret, FState.Anchor); }

void TEditLine::Select(int Anchor, int Caret) {
    FState.Anchor = std::clamp(Anchor, 0, FCount);
    FState.Caret = std::clamp(Caret, 0, FCount);
    FLast = TStep::None;
}

std::size_t TEditLine::OffsetOf(int Character) const {
    std::size_t offset = 0;
    for (int i = 0; i < Character && offset < FState.Text.size(); ++i)
        offset += std::size_t(DecodeAt(FState.Text, offset).Length);
    return offset;
}

std::string TEditLine::Part(int From, int To) const {
    const std::size_t from = OffsetOf(From);
    return FState.Text.substr(from, OffsetOf(To) - from);
}

void TEditLine::Change(int From, int To, std::string_view Insert, TStep Step) {
    constexpr std::size_t CMostSteps = 200;
    if (Step == TStep::None || Step != FLast) {
        FUndo.push_back(FState);
        if (FUndo.size() > CMostSteps) FUndo.erase(FUndo.begin());
    }
    FRedo.clear();
    const std::size_t from = OffsetOf(From);
    FState.Text.replace(from, OffsetOf(To) - from, Insert);
    FCount = CharacterCount(FState.Text);
    FState.Caret = FState.Anchor = std::min(From + CharacterCount(Insert), FCount);
    FLast = Step;
}

bool TEditLine::Insert(std::string_view Insert, int MaxCount, bool IsTyped) {
    const int rest = FCount - (SelEnd() - SelStart());
    const int most = MaxCount > 0 ? std::max(MaxCount - rest, 0) : static_cast<int>(Insert.size());
    const std::string line = LineOf(Insert, most);
    if (line.empty()) return false;
    const bool goesOn = IsTyped && !HasSelection();
    if (!goesOn) FLast = TStep::None;
    Change(SelStart(), SelEnd(), line, IsTyped ? TStep::Typing : TStep::None);
    return true;
}

bool TEditLine::Delete(int From, int To, bool IsTyped) {
    const int from = std::clamp(From, 0, FCount), to = std::clamp(To, 0, FCount);
    if (from >= to) return false;
    Change(from, to, {}, IsTyped ? TStep::Deleting : TStep::None);
    return true;
}

bool TEditLine::GoBack(std::vector<TState>& From, std::vector<TState>& To) {
    if (From.empty()) return false;
    To.push_back(std::exchange(FState, std::move(From.back())));
    From.pop_back();
    FCount = CharacterCount(FState.Text);
    FLast = TStep::None;
    return true;
}

bool TEditLine::Undo() { return GoBack(FUndo, FRedo); }
bool TEditLine::Redo() { return GoBack(FRedo, FUndo); }

int TEditLine::WordBefore(int At) const {
    const auto kinds = KindsOf(FState.Text);
    auto at = static_cast<std::size_t>(std::clamp(At, 0, FCount));
    while (at > 0 && kinds[at - 1] == TKind::Blank) --at;
    if (at > 0)
        for (const TKind kind = kinds[at - 1]; at > 0 && kinds[at - 1] == kind;) --at;
    return static_cast<int>(at);
}

int TEditLine::WordBehind(int At) const {
    const auto kinds = KindsOf(FState.Text);
    auto at = static_cast<std::size_t>(std::clamp(At, 0, FCount));
    if (at < kinds.size())
        for (const TKind kind = kinds[at]; at < kinds.size() && kinds[at] == kind;) ++at;
    while (at < kinds.size() && kinds[at] == TKind::Blank) ++at;
    return static_cast<int>(at);
}

void TEditLine::SelectWord(int At) {
    const auto kinds = KindsOf(FState.Text);
    if (kinds.empty()) return;
    auto from = static_cast<std::size_t>(std::clamp(At, 0, FCount - 1)), to = from;
    const TKind kind = kinds[from];
    while (from > 0 && kinds[from - 1] == kind) --from;
    while (to < kinds.size() && kinds[to] == kind) ++to;
    Select(static_cast<int>(from), static_cast<int>(to));
}

} // namespace kx
