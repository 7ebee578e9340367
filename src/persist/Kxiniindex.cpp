#include "persist/Kxiniindex.h"

#include "platform/exceptions.h"
#include "platform/text.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace kx {

namespace {

// Numbers of lines appended are far apart, those of lines inserted near the line before them: keys are added
// to the end of a section, in front of the same empty line each time, and the gap must serve for many of
// them.
constexpr std::uint64_t CAppendStep = std::uint64_t(1) << 32;
constexpr std::uint64_t CInsertStep = std::uint64_t(1) << 14;

const std::string CEmptyLines;
const std::string CBracketLines = "[";

std::string KindOfKey(std::string_view Name) { return "=" + UpperCase(Name); }

template <class F>
void ForEachKind(std::string_view Text, F Do) {
    if (Text.empty()) return Do(CEmptyLines);
    if (Text.front() == '[') {
        Do(CBracketLines);
        if (Text.back() == ']') Do(UpperCase(Text));
    }
    if (const auto equals = Text.find('='); equals != Text.npos) Do(KindOfKey(Text.substr(0, equals)));
}

} // namespace

TKxIniLines::TPlace TKxIniLines::PlaceAt(int Index) const {
    if (Index < 0 || Index >= GetCount())
        throw ERangeError("i=" + std::to_string(Index) + " index out of range");
    if (!FPositionsHold) {
        FPositions.clear();
        for (auto place = begin(); place != end(); ++place) FPositions.push_back(place);
        FPositionsHold = true;
    }
    return FPositions[static_cast<std::size_t>(Index)];
}

void TKxIniLines::InsertAt(int Index, std::string Text) {
    if (Index == GetCount()) return Append(std::move(Text));
    const TPlace place = Insert(PlaceAt(Index), std::move(Text));
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
    const TPlace place = FLines.insert(Before, TLine{std::move(Text), number});
    Enter(place);
    if (!atEnd)
        FPositionsHold = false;
    else if (FPositionsHold)
        FPositions.push_back(place);
    return place;
}

void TKxIniLines::Replace(TPlace Place, std::string Text) {
    Leave(Place);
    const auto line = FLines.erase(Place, Place); // erases nothing: the place, for writing
    line->Text = std::move(Text);
    Enter(Place);
}

void TKxIniLines::Delete(TPlace First, TPlace Last) {
    for (TPlace place = First; place != Last; ++place) Leave(place);
    FLines.erase(First, Last);
    FPositionsHold = false;
}

void TKxIniLines::Clear() {
    FIndex.clear();
    FPositions.clear();
    FPositionsHold = true;
    FLines.clear();
}

TKxIniLines::TPlace TKxIniLines::FindHeader(std::string_view Section) const {
    const auto found = FIndex.find("[" + UpperCase(Section) + "]");
    return found == FIndex.end() ? end() : found->second.begin()->second;
}

TKxIniLines::TPlace TKxIniLines::NextBracket(TPlace After) const { return NextOfKind(CBracketLines, After); }

TKxIniLines::TPlace TKxIniLines::NextEmpty(TPlace After) const { return NextOfKind(CEmptyLines, After); }

TKxIniLines::TPlace TKxIniLines::FindKey(TPlace After, TPlace Last, std::string_view Ident) const {
    const auto name = Ident.substr(0, Ident.find('='));
    const auto found = FIndex.find(KindOfKey(name));
    if (found == FIndex.end()) return end();
    const std::string start = std::string(Ident) + "=";
    const TSameKind& lines = found->second;
    for (auto i = lines.upper_bound(After->Number); i != lines.end(); ++i) {
        if (Last != end() && i->first > Last->Number) break;
        if (StartsWithText(i->second->Text, start)) return i->second;
    }
    return end();
}

TKxIniLines::TPlace TKxIniLines::NextOfKind(const std::string& Kind, TPlace After) const {
    const auto found = FIndex.find(Kind);
    if (found == FIndex.end()) return end();
    const auto next = found->second.upper_bound(After->Number);
    return next == found->second.end() ? end() : next->second;
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
    FIndex.clear();
    std::uint64_t number = 0;
    for (auto line = FLines.begin(); line != FLines.end(); ++line) {
        line->Number = number += CAppendStep;
        Enter(line);
    }
}

void TKxIniLines::Enter(TPlace Place) {
    ForEachKind(Place->Text, [&](const std::string& Kind) {
        TSameKind& lines = FIndex[Kind];
        lines.emplace_hint(lines.end(), Place->Number, Place);
    });
}

void TKxIniLines::Leave(TPlace Place) {
    ForEachKind(Place->Text, [&](const std::string& Kind) {
        const auto found = FIndex.find(Kind);
        found->second.erase(Place->Number);
        if (found->second.empty()) FIndex.erase(found);
    });
}

} // namespace kx
