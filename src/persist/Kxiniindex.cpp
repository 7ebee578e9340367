#include <kxgraph/persist/Kxiniindex.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace kx {

namespace {

// Numbers of lines appended are far apart, those of lines inserted near the line before them: keys are added
// to the end of a section, in front of the same empty line each time, and the gap must serve for many of
// them.
constexpr std::uint64_t CAppendStep = std::uint64_t(1) << 32;
constexpr std::uint64_t CInsertStep = std::uint64_t(1) << 14;

/// Spelt alike as a rule.
bool SameName(std::string_view A, std::string_view B) { return A == B || SameText(A, B); }

bool IsHeaderText(std::string_view Text) { return Text.starts_with('['); }
/// Headers are found by their name. One that is "[" alone has none.
bool IsNamed(std::string_view Header) { return Header.size() > 1 && Header.ends_with(']'); }
std::string_view NameOf(std::string_view Header) { return Header.substr(1, Header.size() - 2); }

/// What the lines of a section are found by: the text in front of their first "=".
std::string_view KeyOf(std::string_view Line) { return Line.substr(0, Line.find('=')); }

/// Of a key in a section.
std::uint32_t HashOfKey(const void* Section, std::string_view Key) {
    const auto address = reinterpret_cast<std::uintptr_t>(Section);
    return HashOfName(Key, static_cast<std::uint32_t>((address >> 4) ^ (address >> 36)) * 0x9E3779B1);
}

} // namespace

std::uint32_t HashOfName(std::string_view Name, std::uint32_t Seed) {
    std::uint32_t hash = Seed;
    for (const char c : Name) {
        const bool isLower = c >= 'a' && c <= 'z';
        hash = (hash ^ static_cast<unsigned char>(isLower ? c - 'a' + 'A' : c)) * 0x01000193;
    }
    return hash ^ (hash >> 15); // slots are told apart by the lower bits
}

TKxIniLines::TLine::TLine(std::string Text) : Text(std::move(Text)) {}
TKxIniLines::TLine::~TLine() = default;

auto TKxIniLines::IsKey(const TLine* Section, std::string_view Key) {
    return [=](const TLine& Line) { return Line.Section == Section && SameName(KeyOf(Line.Text), Key); };
}

// Positions

TKxIniLines::TPlace TKxIniLines::PlaceAt(int Index) const {
    const std::size_t index = CheckedIndex(Index, static_cast<std::size_t>(FCount));
    if (Index == 0) {
        FSeen = FFirst;
    } else if (Index == FCount - 1) {
        FSeen = FLast;
    } else if (FSeen && Index == FSeenAt + 1) {
        FSeen = FSeen->Next;
    } else if (!FSeen || Index != FSeenAt) {
        KeepPositions();
        FSeen = FPositions.At(index).Item;
    }
    FSeenAt = Index;
    return FSeen;
}

void TKxIniLines::KeepPositions() const {
    if (!FPositions.IsEmpty()) return;
    for (TLine* line = FFirst; line; line = line->Next) FPositions.Insert(nullptr, line->Position);
}

void TKxIniLines::DeleteAt(int Index) {
    const TPlace place = PlaceAt(Index);
    Delete(place, std::next(place));
}

// Changes. What may fail comes first.

TKxIniLines::TPlace TKxIniLines::Insert(TPlace Before, std::string Text) {
    auto line = std::make_unique<TLine>(std::move(Text));
    if (IsHeaderText(line->Text)) line->Header = std::make_unique<THeader>(*line);
    FKeys.Reserve();
    FNames.Reserve();
    line->Number = NumberBefore(Before.FLine);
    Link(Before.FLine, *line);
    line->Section = SectionAt(*line);
    EnterKey(*line);
    if (line->Header) {
        EnterHeader(*line);
        EnterSection(line->Next);
    }
    return line.release();
}

void TKxIniLines::Link(TLine* Before, TLine& Line) {
    Line.Next = Before;
    Line.Previous = std::exchange(Before ? Before->Previous : FLast, &Line);
    (Line.Previous ? Line.Previous->Next : FFirst) = &Line;
    if (!FPositions.IsEmpty()) FPositions.Insert(Before ? &Before->Position : nullptr, Line.Position);
    FSeen = nullptr;
    ++FCount;
}

void TKxIniLines::Replace(TPlace Place, std::string Text) {
    TLine& line = *Place.FLine;
    const bool was = IsHeaderText(line.Text), is = IsHeaderText(Text);
    auto header = is && !was ? std::make_unique<THeader>(line) : nullptr;
    FKeys.Reserve();
    FNames.Reserve();
    LeaveKey(line);
    if (was) LeaveHeader(line);
    line.Text.swap(Text);
    if (header) line.Header = std::move(header);
    if (is) EnterHeader(line);
    EnterKey(line);
    if (was == is) return;
    EnterSection(line.Next);
    if (was) line.Header = nullptr; // nothing lies in its section any more
}

void TKxIniLines::Delete(TPlace First, TPlace Last) noexcept {
    if (First == Last) return;
    for (TLine* line = First.FLine; line != Last.FLine; line = line->Next) {
        LeaveKey(*line);
        if (line->Header) LeaveHeader(*line);
        if (!FPositions.IsEmpty()) FPositions.Remove(line->Position);
        --FCount;
    }
    TLine* before = First->Previous;
    (before ? before->Next : FFirst) = Last.FLine;
    (Last.FLine ? Last.FLine->Previous : FLast) = before;
    FSeen = nullptr;
    EnterSection(Last.FLine); // the lines behind still referred to a header among those deleted
    for (TLine* line = First.FLine; line != Last.FLine;) delete std::exchange(line, line->Next);
}

void TKxIniLines::Clear() noexcept {
    for (TLine* line = FFirst; line;) delete std::exchange(line, line->Next);
    FFirst = FLast = FFirstHeader = FSeen = nullptr;
    FEmptiesOfNone.Clear();
    FPositions.Clear();
    FKeys.Clear();
    FNames.Clear();
    FCount = 0;
}

void TKxIniLines::Swap(TKxIniLines& Other) noexcept {
    std::swap(FFirst, Other.FFirst);
    std::swap(FLast, Other.FLast);
    std::swap(FFirstHeader, Other.FFirstHeader);
    std::swap(FEmptiesOfNone, Other.FEmptiesOfNone);
    std::swap(FPositions, Other.FPositions);
    std::swap(FCount, Other.FCount);
    FKeys.Swap(Other.FKeys);
    FNames.Swap(Other.FNames);
    FSeen = Other.FSeen = nullptr;
}

// Searches

TKxIniLines::TPlace TKxIniLines::FindHeader(std::string_view Section) const {
    const auto isNamed = [&](const TLine& Line) { return SameName(NameOf(Line.Text), Section); };
    const TLines* lines = FNames.Find(HashOfName(Section), isNamed);
    return lines ? lines->First() : nullptr;
}

TKxIniLines::TPlace TKxIniLines::NextHeader(TPlace Header) const { return Header.FLine->Header->Next; }

TKxIniLines::TPlace TKxIniLines::FirstEmpty(TPlace Header) const {
    const TLines& empties = Header.FLine->Header->Empties;
    return empties.IsEmpty() ? nullptr : empties.First();
}

TKxIniLines::TPlace TKxIniLines::FindKey(TPlace Header, std::string_view Ident) const {
    const std::string_view key = KeyOf(Ident); // all of it, but where there is a "=" in it
    const TLines* lines = FKeys.Find(HashOfKey(Header.FLine, key), IsKey(Header.FLine, key));
    if (!lines) return end();
    if (key.size() == Ident.size()) return lines->First();
    for (TLine* line : *lines)
        if (StartsWithText(line->Text, Ident) && line->Text[Ident.size()] == '=') return line;
    return end();
}

// The index

TKxIniLines::TLine* TKxIniLines::SectionAt(const TLine& Line) {
    TLine* before = Line.Previous;
    return !before || IsHeaderText(before->Text) ? before : before->Section;
}

/// Puts the lines from First on into the section that they lie in now, up to the first that is in it already.
void TKxIniLines::EnterSection(TLine* First) {
    for (TLine* line = First; line; line = line->Next) {
        TLine* section = SectionAt(*line);
        if (line->Section == section) return;
        LeaveKey(*line);
        line->Section = section;
        EnterKey(*line);
    }
}

void TKxIniLines::EnterKey(TLine& Line) {
    const std::string_view text = Line.Text, key = KeyOf(text);
    if (text.empty())
        EmptiesOf(Line.Section).InsertSorted(Line.SameKey, Precedes);
    else if (key.size() < text.size())
        FKeys.Enter(HashOfKey(Line.Section, key), Line.SameKey, IsKey(Line.Section, key), Precedes);
}

void TKxIniLines::LeaveKey(TLine& Line) {
    const std::string_view text = Line.Text, key = KeyOf(text);
    if (text.empty())
        EmptiesOf(Line.Section).Remove(Line.SameKey);
    else if (key.size() < text.size())
        FKeys.Leave(HashOfKey(Line.Section, key), Line.SameKey, IsKey(Line.Section, key));
}

/// Behind the header in front of it, and under its name.
void TKxIniLines::EnterHeader(TLine& Line) {
    TLine*& place = NextHeaderOf(Line.Section);
    Line.Header->Previous = Line.Section;
    Line.Header->Next = std::exchange(place, &Line);
    if (TLine* next = Line.Header->Next) next->Header->Previous = &Line;
    if (!IsNamed(Line.Text)) return;
    const std::string_view name = NameOf(Line.Text);
    FNames.Enter(
        HashOfName(name), Line.Header->SameName,
        [name](const TLine& Other) { return SameName(NameOf(Other.Text), name); }, Precedes);
}

void TKxIniLines::LeaveHeader(TLine& Line) {
    NextHeaderOf(Line.Header->Previous) = Line.Header->Next;
    if (TLine* next = Line.Header->Next) next->Header->Previous = Line.Header->Previous;
    if (!IsNamed(Line.Text)) return;
    const std::string_view name = NameOf(Line.Text);
    FNames.Leave(HashOfName(name), Line.Header->SameName,
                 [name](const TLine& Other) { return SameName(NameOf(Other.Text), name); });
}

std::uint64_t TKxIniLines::NumberBefore(const TLine* Before) {
    const TLine* previous = Before ? Before->Previous : FLast;
    const auto below = [&] { return previous ? previous->Number : 0; };
    const auto gap = [&] {
        return (Before ? Before->Number : std::numeric_limits<std::uint64_t>::max()) - below();
    };
    if (gap() < 2) Renumber();
    return below() + std::min(gap() / 2, Before ? CInsertStep : CAppendStep);
}

void TKxIniLines::Renumber() {
    std::uint64_t number = 0;
    for (TLine* line = FFirst; line; line = line->Next) line->Number = number += CAppendStep;
}

} // namespace kx
