#pragma once
// The lines of an INI store in their order, and an index that answers where a section begins and where in it
// the lines of a key are. What follows from the answers is the store's business.

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kx {

/// Lines of text. Changes at a place and all searches cost O(1), access by position likewise unless lines
/// were inserted or deleted at places since the last one. What costs more: a line beginning with "[" that
/// comes or goes (O(n) in the lines that change their section by it, none at the end of the list), and lines
/// of one key in one section (O(k) for k of them). A place stays valid until its line is deleted.
///
/// When memory runs out, an operation that adds or replaces lines raises and leaves the lines as they were;
/// deleting never fails. The index is given up then and made anew by the next search.
class TKxIniLines {
public:
    /// Section is the last line beginning with "[" in front of this one; null when there is none. A header is
    /// thus the last line of the section in front of it, where readers stop. Right while the index holds.
    struct TLine {
        std::string Text;
        mutable const TLine* Section = nullptr;
        std::uint64_t Number = 0; // grows in line order, with gaps
    };
    using TPlace = std::list<TLine>::const_iterator;

    TKxIniLines() = default;
    TKxIniLines(const TKxIniLines&) = delete;
    TKxIniLines& operator=(const TKxIniLines&) = delete;

    int GetCount() const { return static_cast<int>(FLines.size()); }
    TPlace begin() const { return FLines.begin(); }
    TPlace end() const { return FLines.end(); }
    /// Raises ERangeError "i=%d index out of range" for an index outside 0..Count-1; so do the next three.
    TPlace PlaceAt(int Index) const;
    void ReplaceAt(int Index, std::string Text) { Replace(PlaceAt(Index), std::move(Text)); }
    /// Index may be Count.
    void InsertAt(int Index, std::string Text);
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
    TPlace NextHeader(TPlace Header) const { return First({&*Header, "["}); }
    /// The first empty line in front of the next header.
    TPlace FirstEmpty(TPlace Header) const { return First({&*Header, ""}); }
    /// The first line that begins with Ident + "=", up to and including the next header.
    TPlace FindKey(TPlace Header, std::string_view Ident) const;

private:
    /// What the index finds lines by: the section and "" for empty lines, "[" for the next header, "=NAME"
    /// for lines with NAME in front of their first "="; no section and "[NAME]" for headers.
    struct TKind {
        const TLine* Section;
        std::string Name;
        friend bool operator==(const TKind&, const TKind&) = default;
    };
    struct THash {
        std::size_t operator()(const TKind& Kind) const;
    };
    using TSameKind = std::vector<TPlace>; // in line order

    using TIndex = std::unordered_map<TKind, TSameKind, THash>;

    template <class F>
    static void ForEachKind(const TLine& Line, F Do);
    const TIndex& Index() const;
    const TSameKind* Find(const TKind& Kind) const;
    TPlace First(const TKind& Kind) const;
    const TLine* SectionAt(TPlace Place) const;
    void EnterSection(TPlace First) const;
    std::uint64_t NumberBefore(TPlace Before);
    void Renumber();
    void Enter(TPlace Place) const;
    void Leave(TPlace Place) const;
    template <class F>
    bool TryIndex(F Change) const;
    void GiveUpIndex() const noexcept;

    std::list<TLine> FLines;
    mutable TIndex FIndex;
    mutable bool FIndexHolds = true;
    mutable std::vector<TPlace> FPositions; // all places in order, if FPositionsHold
    mutable bool FPositionsHold = true;
};

} // namespace kx
