#include <kxgraph/persist/Kxiniindex.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <limits>
#include <new>

namespace kx {

namespace {

// Numbers of lines appended are far apart, those of lines inserted near the line before them: keys are added
// to the end of a section, in front of the same empty line each time, and the gap must serve for many of
// them.
constexpr std::uint64_t CAppendStep = std::uint64_t(1) << 32;
constexpr std::uint64_t CInsertStep = std::uint64_t(1) << 14;

std::string KeyKind(std::string_view Name) { return "=" + UpperCase(Name); }

bool IsInOrder(TKxIniLines::TPlace A, TKxIniLines::TPlace B) { return A->Number < B->Number; }

} // namespace

std::size_t TKxIniLines::THash::operator()(const TKind& Kind) const {
    return std::hash<std::string>()(Kind.Name) + 31 * std::hash<const TLine*>()(Kind.Section);
}

template <class F>
void TKxIniLines::ForEachKind(const TLine& Line, F Do) {
    const std::string_view text = Line.Text;
    if (text.empty()) return Do(TKind{Line.Section, ""});
    if (text.front() == '[') Do(TKind{Line.Section, "["});
    if (text.front() == '[' && text.back() == ']') Do(TKind{nullptr, UpperCase(text)});
    if (const auto equals = text.find('='); equals != text.npos)
        Do(TKind{Line.Section, KeyKind(text.substr(0, equals))});
}

TKxIniLines::TPlace TKxIniLines::PlaceAt(int Index) const {
    const std::size_t index = CheckedIndex(Index, FLines.size());
    if (!FPositionsHold) {
        FPositions.clear();
        for (auto place = begin(); place != end(); ++place) FPositions.push_back(place);
        FPositionsHold = true;
    }
    return FPositions[index];
}

void TKxIniLines::InsertAt(int Index, std::string Text) {
    if (Index == GetCount()) return Append(std::move(Text));
    const TPlace before = PlaceAt(Index);
    if (FPositions.size() == FPositions.capacity()) FPositions.reserve(2 * FPositions.size());
    const TPlace place = Insert(before, std::move(Text));
    FPositions.insert(FPositions.begin() + Index, place);
    FPositionsHold = true;
}

void TKxIniLines::DeleteAt(int Index) {
    const TPlace place = PlaceAt(Index);
    Delete(place, std::next(place));
    FPositions.erase(FPositions.begin() + Index);
    FPositionsHold = true;
}

TKxIniLines::TPlace TKxIniLines::Insert(TPlace Before, std::string Text) {
    const bool atEnd = Before == end();
    const auto number = NumberBefore(Before);
    const TPlace place = FLines.insert(Before, TLine{std::move(Text), SectionAt(Before), number});
    try {
        if (atEnd && FPositionsHold) FPositions.push_back(place);
        if (FIndexHolds) {
            Enter(place);
            EnterSection(Before);
        }
    } catch (...) {
        GiveUpIndex();
        FPositionsHold = false;
        FLines.erase(place);
        throw;
    }
    if (!atEnd) FPositionsHold = false;
    return place;
}

void TKxIniLines::Replace(TPlace Place, std::string Text) {
    const auto line = FLines.erase(Place, Place); // erases nothing: the place, for writing
    const bool left = TryIndex([&] { Leave(Place); });
    line->Text.swap(Text);
    try {
        if (left) {
            Enter(Place);
            EnterSection(std::next(Place));
        }
    } catch (...) {
        GiveUpIndex();
        line->Text.swap(Text);
        throw;
    }
}

void TKxIniLines::Delete(TPlace First, TPlace Last) noexcept {
    TryIndex([&] {
        for (TPlace place = First; place != Last; ++place) Leave(place);
    });
    std::list<TLine> deleted; // lines behind still refer to a header among them
    deleted.splice(deleted.end(), FLines, First, Last);
    TryIndex([&] { EnterSection(Last); });
    FPositionsHold = false;
}

void TKxIniLines::Clear() noexcept {
    FIndex.clear();
    FPositions.clear();
    FIndexHolds = FPositionsHold = true;
    FLines.clear();
}

void TKxIniLines::Swap(TKxIniLines& Other) noexcept {
    FLines.swap(Other.FLines);
    FIndex.swap(Other.FIndex);
    FPositions.swap(Other.FPositions);
    std::swap(FIndexHolds, Other.FIndexHolds);
    std::swap(FPositionsHold, Other.FPositionsHold);
}

void TKxIniLines::GiveUpIndex() const noexcept {
    FIndex.clear();
    FIndexHolds = false;
}

/// Changes the index if there is one. Whether there is one afterwards: without memory for it there is none.
template <class F>
bool TKxIniLines::TryIndex(F Change) const {
    try {
        if (FIndexHolds) Change();
    } catch (const std::bad_alloc&) {
        GiveUpIndex();
    }
    return FIndexHolds;
}

const TKxIniLines::TIndex& TKxIniLines::Index() const {
    if (FIndexHolds) return FIndex;
    try {
        for (TPlace place = begin(); place != end(); ++place) {
            place->Section = SectionAt(place);
            Enter(place);
        }
    } catch (...) {
        GiveUpIndex();
        throw;
    }
    FIndexHolds = true;
    return FIndex;
}

const TKxIniLines::TSameKind* TKxIniLines::Find(const TKind& Kind) const {
    const auto found = Index().find(Kind);
    return found == FIndex.end() ? nullptr : &found->second;
}

TKxIniLines::TPlace TKxIniLines::FindHeader(std::string_view Section) const {
    return First({nullptr, "[" + UpperCase(Section) + "]"});
}

TKxIniLines::TPlace TKxIniLines::FindKey(TPlace Header, std::string_view Ident) const {
    const TSameKind* lines = Find({&*Header, KeyKind(Ident.substr(0, Ident.find('=')))});
    if (!lines) return end();
    const std::string start = std::string(Ident) + "=";
    const auto key =
        std::ranges::find_if(*lines, [&](TPlace Place) { return StartsWithText(Place->Text, start); });
    return key == lines->end() ? end() : *key;
}

TKxIniLines::TPlace TKxIniLines::First(const TKind& Kind) const {
    const TSameKind* lines = Find(Kind);
    return lines ? lines->front() : end();
}

const TKxIniLines::TLine* TKxIniLines::SectionAt(TPlace Place) const {
    if (Place == begin()) return nullptr;
    const TLine& before = *std::prev(Place);
    return before.Text.starts_with('[') ? &before : before.Section;
}

/// Puts the lines from First on into the section that they lie in now, up to the first that is in it already.
void TKxIniLines::EnterSection(TPlace First) const {
    for (TPlace line = First; line != end(); ++line) {
        const TLine* section = SectionAt(line);
        if (line->Section == section) return;
        Leave(line);
        line->Section = section;
        Enter(line);
    }
}

std::uint64_t TKxIniLines::NumberBefore(TPlace Before) {
    const bool atEnd = Before == end();
    const auto below = [&] { return Before == begin() ? 0 : std::prev(Before)->Number; };
    const auto gap = [&] {
        return (atEnd ? std::numeric_limits<std::uint64_t>::max() : Before->Number) - below();
    };
    if (gap() < 2) Renumber();
    return below() + std::min(gap() / 2, atEnd ? CAppendStep : CInsertStep);
}

void TKxIniLines::Renumber() {
    std::uint64_t number = 0;
    for (TLine& line : FLines) line.Number = number += CAppendStep;
}

void TKxIniLines::Enter(TPlace Place) const {
    ForEachKind(*Place, [&](TKind Kind) {
        TSameKind& lines = FIndex[std::move(Kind)]; // empty for a moment: no search may see it so
        const bool isLast = lines.empty() || IsInOrder(lines.back(), Place);
        lines.insert(isLast ? lines.end() : std::upper_bound(lines.begin(), lines.end(), Place, IsInOrder),
                     Place);
    });
}

void TKxIniLines::Leave(TPlace Place) const {
    ForEachKind(*Place, [&](const TKind& Kind) {
        const auto found = FIndex.find(Kind);
        TSameKind& lines = found->second;
        lines.erase(std::lower_bound(lines.begin(), lines.end(), Place, IsInOrder));
        if (lines.empty()) FIndex.erase(found);
    });
}

} // namespace kx
