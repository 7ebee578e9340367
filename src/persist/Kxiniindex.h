#pragma once
// The lines of an INI store in their order, and an index that answers where a section begins and where in it
// the lines of a key are. What follows from the answers is the store's business.

#include <kxgraph/persist/Kxinitable.h>
#include <kxgraph/platform/objects/order.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>

namespace kx {

/// Lines of text. Changes at a place and all searches cost O(1), access by position O(1) at the ends and next
/// to the one before, else logarithmic time. What costs more: a line beginning with "[" that comes or goes
/// (in proportion to the lines that change their section by it, none at the end of the list). A place stays
/// valid until its line is deleted.
///
/// When memory runs out, an operation that adds or replaces lines raises and leaves the lines as they were;
/// deleting never fails.
class TKxIniLines {
    struct THeader;

public:
    class TLine {
    public:
        explicit TLine(std::string Text);
        ~TLine();
        TLine(const TLine&) = delete;
        TLine& operator=(const TLine&) = delete;

        std::string Text;

    private:
        friend class TKxIniLines;

        TLine* Section = nullptr; // the last header in front of this line; null when there is none. A header
                                  // is thus the last line of the section in front of it, where readers stop.
        TOrdered<TLine> SameKey{this}; // among the lines of its key, or among the empty ones, of its section
        TLine *Previous = nullptr, *Next = nullptr;
        std::uint64_t Number = 0;        // grows in line order, with gaps
        std::unique_ptr<THeader> Header; // of a line that begins with "["
        TOrdered<TLine> Position{this};  // while positions are kept
    };

    /// A line, or the end.
    class TPlace {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = TLine;
        using difference_type = std::ptrdiff_t;
        using pointer = const TLine*;
        using reference = const TLine&;

        TPlace() = default;
        const TLine& operator*() const { return *FLine; }
        const TLine* operator->() const { return FLine; }
        TPlace& operator++() {
            FLine = FLine->Next;
            return *this;
        }
        TPlace operator++(int) {
            const TPlace before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const TPlace&, const TPlace&) = default;

    private:
        friend class TKxIniLines;
        TPlace(TLine* Line) : FLine(Line) {}
        TLine* FLine = nullptr;
    };

    TKxIniLines() = default;
    TKxIniLines(const TKxIniLines&) = delete;
    TKxIniLines& operator=(const TKxIniLines&) = delete;
    ~TKxIniLines() { Clear(); }

    int GetCount() const { return FCount; }
    TPlace begin() const { return FFirst; }
    TPlace end() const { return {}; }
    /// Raises ERangeError "i=%d index out of range" for an index outside 0..Count-1; so do the next three.
    TPlace PlaceAt(int Index) const;
    void ReplaceAt(int Index, std::string Text) { Replace(PlaceAt(Index), std::move(Text)); }
    /// Index may be Count.
    void InsertAt(int Index, std::string Text) {
        Insert(Index == FCount ? end() : PlaceAt(Index), std::move(Text));
    }
    void DeleteAt(int Index);

    void Append(std::string Text) { Insert(end(), std::move(Text)); }
    /// Before may be end().
    TPlace Insert(TPlace Before, std::string Text);
    void Replace(TPlace Place, std::string Text);
    /// Deletes First and what follows it up to, not including, Last.
    void Delete(TPlace First, TPlace Last) noexcept;
    void Clear() noexcept;
    void Swap(TKxIniLines& Other) noexcept;

    // Searches ignore the case of ASCII letters and give end() when there is no such line. Header is any line
    // that begins with "[".

    /// The first line that is "[" + Section + "]".
    TPlace FindHeader(std::string_view Section) const;
    /// The next line that begins with "[".
    TPlace NextHeader(TPlace Header) const;
    /// The first empty line in front of the next header.
    TPlace FirstEmpty(TPlace Header) const;
    /// The first line that begins with Ident + "=", up to and including the next header.
    TPlace FindKey(TPlace Header, std::string_view Ident) const;
    /// Whether A stands in front of B.
    static bool IsInOrder(TPlace A, TPlace B) { return Precedes(A.FLine, B.FLine); }

private:
    using TLines = TOrder<TLine>;
    /// What there is of a line that begins with "[".
    struct THeader {
        explicit THeader(TLine& Line) : SameName(&Line) {}
        TOrdered<TLine> SameName; // among the headers "[NAME]"
        TLines Empties;           // of the section that begins here
        TLine *Previous = nullptr, *Next = nullptr;
    };

    static bool Precedes(const TLine* A, const TLine* B) { return A->Number < B->Number; }
    static auto IsKey(const TLine* Section, std::string_view Key);
    static TLine* SectionAt(const TLine& Line);
    TLines& EmptiesOf(const TLine* Section) { return Section ? Section->Header->Empties : FEmptiesOfNone; }
    TLine*& NextHeaderOf(TLine* Section) { return Section ? Section->Header->Next : FFirstHeader; }
    void Link(TLine* Before, TLine& Line);
    void EnterKey(TLine& Line);
    void LeaveKey(TLine& Line);
    void EnterHeader(TLine& Line);
    void LeaveHeader(TLine& Line);
    void EnterSection(TLine* First);
    std::uint64_t NumberBefore(const TLine* Before);
    void Renumber();
    void KeepPositions() const;

    TLine *FFirst = nullptr, *FLast = nullptr;
    TLine* FFirstHeader = nullptr;
    TLines FEmptiesOfNone; // in front of all headers
    TKxIniTable<TLine> FKeys, FNames;
    int FCount = 0;
    mutable TLines FPositions;      // of all lines, from the first search for one on, or empty
    mutable TLine* FSeen = nullptr; // the line that was found by its position last,
    mutable int FSeenAt = 0;        // and where, unless a change has followed
};

} // namespace kx
