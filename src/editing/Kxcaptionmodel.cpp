#include <kxgraph/editing/Kxcaptionmodel.h>

#include <algorithm>
#include <utility>

namespace kx {

void TKxCaptionModel::SetCaption(const TKxCaption& Caption) {
    FCaption = Caption;
    FCells = CellsOf(Caption);
    FSteps.clear();
    FDone = 0;
    TakePlace({GetLength(), GetLength()});
}

void TKxCaptionModel::TakePlace(TPlace Place) {
    FAt = Place;
    FMayMerge = false;
    FTypingLooks.reset();
    FComposed.clear();
    FComposedCaret = 0;
}

void TKxCaptionModel::MoveTo(int Caret, bool Extend) { Select(Extend ? FAt.Anchor : Caret, Caret); }

void TKxCaptionModel::Select(int Anchor, int Caret) {
    TakePlace({std::clamp(Caret, 0, GetLength()), std::clamp(Anchor, 0, GetLength())});
}

TKxCaptionCellSpan TKxCaptionModel::GetSelected() const {
    return TKxCaptionCellSpan(FCells).subspan(std::size_t(FAt.Start()), std::size_t(FAt.End() - FAt.Start()));
}

TKxCaptionLooks TKxCaptionModel::GetTypingLooks() const {
    if (FTypingLooks) return *FTypingLooks;
    if (FCells.empty()) return {};
    const int like = HasSelection() ? FAt.Start() : std::max(FAt.Caret - 1, 0);
    return FCells[std::size_t(like)].Looks;
}

TKxCaptionLooks TKxCaptionModel::GetCaretLooks() const {
    if (!HasSelection()) return GetTypingLooks();
    return FCells[std::size_t(std::max(FAt.Caret - 1, 0))].Looks;
}

bool TKxCaptionModel::IsOn(TKxCaptionSwitch Which) const {
    if (!HasSelection()) return HasLook(Which, GetTypingLooks());
    return std::ranges::all_of(GetSelected(),
                               [Which](const TKxCaptionCell& Cell) { return HasLook(Which, Cell.Looks); });
}

template <class F>
bool TKxCaptionModel::ChangeLooks(F Change) {
    if (!HasSelection()) {
        TKxCaptionLooks looks = GetTypingLooks();
        Change(looks);
        FTypingLooks = looks;
        FMayMerge = false;
        return false;
    }
    TKxCaptionCells cells(GetSelected().begin(), GetSelected().end());
    for (TKxCaptionCell& cell : cells) Change(cell.Looks);
    return Do(TKind::Other, FAt.Start(), FAt.End(), std::move(cells), FAt);
}

bool TKxCaptionModel::Toggle(TKxCaptionSwitch Which) {
    const bool on = !IsOn(Which);
    return ChangeLooks([=](TKxCaptionLooks& Looks) { SetLook(Which, on, Looks); });
}

bool TKxCaptionModel::ClearLooks() {
    return ChangeLooks([](TKxCaptionLooks& Looks) { Looks = {}; });
}

bool TKxCaptionModel::Type(std::string_view Text) {
    return Do(TKind::Typing, FAt.Start(), FAt.End(), CellsOfText(Text, GetTypingLooks()));
}

bool TKxCaptionModel::Insert(TKxCaptionCells Cells) {
    return Do(TKind::Other, FAt.Start(), FAt.End(), std::move(Cells));
}

bool TKxCaptionModel::EraseTo(int To) {
    if (HasSelection()) return Do(TKind::Other, FAt.Start(), FAt.End(), {});
    const int to = std::clamp(To, 0, GetLength());
    return to < FAt.Caret ? Do(TKind::ErasingBefore, to, FAt.Caret, {})
                          : Do(TKind::ErasingBehind, FAt.Caret, to, {});
}

/// Cuts off what of Inserted has no room.
void TKxCaptionModel::LimitLength(std::size_t Removed, TKxCaptionCells& Inserted) const {
    if (FMaxLength == 0) return;
    const std::size_t kept = FCells.size() - Removed, most = std::size_t(FMaxLength);
    const std::size_t room = std::max(most > kept ? most - kept : 0, Removed);
    if (Inserted.size() > room) Inserted.resize(room);
}

/// Replaces the characters from Start to End as a step; the caret then stands behind Inserted, or as After
/// says.
bool TKxCaptionModel::Do(TKind Kind, int Start, int End, TKxCaptionCells Inserted,
                         std::optional<TPlace> After) {
    const auto first = FCells.begin() + Start, last = FCells.begin() + End;
    LimitLength(std::size_t(End - Start), Inserted);
    TStep step{Kind, Start, {first, last}, std::move(Inserted), FAt, {}};
    if (step.Removed == step.Inserted) return false;
    const int behind = Start + int(step.Inserted.size());
    step.After = After.value_or(TPlace{behind, behind});
    Replace(Start, step.Removed, step.Inserted);
    FSteps.resize(FDone);
    if (!Merge(step)) {
        FSteps.push_back(step);
        ++FDone;
    }
    TakePlace(step.After);
    FMayMerge = true;
    return true;
}

/// Takes Step into the last one where it goes on with that.
bool TKxCaptionModel::Merge(const TStep& Step) {
    if (!FMayMerge || FSteps.empty() || Step.Kind == TKind::Other || FSteps.back().Kind != Step.Kind)
        return false;
    TStep& last = FSteps.back();
    if (Step.Kind == TKind::Typing) {
        if (!Step.Removed.empty() || Step.Inserted.empty() || last.Inserted.empty()) return false;
        if (last.Inserted.back().Text == " " && Step.Inserted.front().Text != " ") return false;
        last.Inserted.insert(last.Inserted.end(), Step.Inserted.begin(), Step.Inserted.end());
    } else {
        const auto at = Step.Kind == TKind::ErasingBefore ? last.Removed.begin() : last.Removed.end();
        last.Removed.insert(at, Step.Removed.begin(), Step.Removed.end());
        last.At = Step.At;
    }
    last.After = Step.After;
    return true;
}

void TKxCaptionModel::Replace(int At, const TKxCaptionCells& Removed, const TKxCaptionCells& Inserted) {
    const auto at = FCells.erase(FCells.begin() + At, FCells.begin() + At + int(Removed.size()));
    FCells.insert(at, Inserted.begin(), Inserted.end());
    FCaption = CaptionOf(FCells);
}

bool TKxCaptionModel::Undo() {
    if (!CanUndo()) return false;
    const TStep& step = FSteps[--FDone];
    Replace(step.At, step.Inserted, step.Removed);
    TakePlace(step.Before);
    return true;
}

bool TKxCaptionModel::Redo() {
    if (!CanRedo()) return false;
    const TStep& step = FSteps[FDone++];
    Replace(step.At, step.Removed, step.Inserted);
    TakePlace(step.After);
    return true;
}

bool TKxCaptionModel::Compose(std::string_view Text, int Caret) {
    const bool erased = !Text.empty() && HasSelection() && EraseTo(FAt.Caret);
    TKxCaptionLooks looks = GetTypingLooks();
    SetLook(TKxCaptionSwitch::Underline, true, looks);
    FComposed = CellsOfText(Text, looks);
    FComposedCaret = std::clamp(Caret, 0, GetComposedLength());
    return erased;
}

TKxCaption TKxCaptionModel::GetShownCaption() const {
    if (FComposed.empty()) return FCaption;
    TKxCaptionCells cells = FCells;
    cells.insert(cells.begin() + FAt.Caret, FComposed.begin(), FComposed.end());
    return CaptionOf(cells);
}

} // namespace kx
