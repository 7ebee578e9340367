#pragma once
// The lines of an INI store in their order, and an index that answers where the next line of a kind is: a
// header, an empty line, a line of a key. What follows from the answers is the store's business.

#include <cstdint>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kx {

/// Lines of text. Changes at a place and all searches cost O(log n), access by position O(1) unless lines
/// were inserted or deleted at places since the last one. A place stays valid until its line is deleted.
///
/// Every line bears a number that grows in line order, with gaps, so that two lines are compared without
/// counting. The index keeps the lines of one kind together, in that order; a line can be of several kinds,
/// and a kind has a name: "" are the empty lines, "[" those that begin with a bracket, "[SECTION]" the
/// headers of one section, "=NAME" the lines with NAME before their first "=".
class TKxIniLines {
public:
    struct TLine {
        std::string Text;
        std::uint64_t Number;
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
    void Delete(TPlace First, TPlace Last);
    void Clear();

    // Searches ignore the case of ASCII letters and give end() when there is no such line.

    /// The first line that is "[" + Section + "]".
    TPlace FindHeader(std::string_view Section) const;
    /// The first line behind After that begins with "[".
    TPlace NextBracket(TPlace After) const;
    /// The first line behind After that is empty.
    TPlace NextEmpty(TPlace After) const;
    /// The first line behind After that begins with Ident + "=", not looking beyond the line Last (which may
    /// be end()).
    TPlace FindKey(TPlace After, TPlace Last, std::string_view Ident) const;

private:
    using TSameKind = std::map<std::uint64_t, TPlace>; // by number

    TPlace NextOfKind(const std::string& Kind, TPlace After) const;
    std::uint64_t NumberBefore(TPlace Before);
    void Renumber();
    void Enter(TPlace Place);
    void Leave(TPlace Place);

    std::list<TLine> FLines;
    std::unordered_map<std::string, TSameKind> FIndex;
    mutable std::vector<TPlace> FPositions; // all places in order, if FPositionsHold
    mutable bool FPositionsHold = true;
};

} // namespace kx
