#pragma once
// What an analysis has found, as values: numbers and texts under keys, in order. Stores, labels and listings
// walk them.

#include <kxgraph/persist/Kxlargeini.h>
#include <kxgraph/platform/text/text.h>

#include <cstddef>
#include <span>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

namespace kx {

struct TKxResult {
    AnsiString Key;
    std::variant<double, AnsiString> Value;

    /// A number as stores hold it, with 14 digits and a point.
    AnsiString GetText() const;
};

/// An ordered list of results. Keys ignore the case of ASCII letters.
class TKxResults {
public:
    /// Adds a result, or replaces the value of the one of that key.
    void Set(const AnsiString& Key, double Value) { Put({Key, Value}); }
    void Set(const AnsiString& Key, const AnsiString& Value) { Put({Key, Value}); }
    void Set(const AnsiString& Key, const char* Value) { Put({Key, AnsiString(Value)}); }
    /// Null when there is none.
    const TKxResult* Find(std::string_view Key) const;
    std::span<const TKxResult> GetItems() const { return FItems; }
    void Clear();

private:
    void Put(TKxResult Result);

    std::vector<TKxResult> FItems;
    std::unordered_map<std::string, std::size_t> FPlaces; // of the keys in upper case
};

/// Writes them all under Section.
void WriteResults(const TKxResults& Results, TKxIniList& Ini, std::string_view Section);

} // namespace kx
