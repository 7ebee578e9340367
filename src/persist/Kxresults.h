#pragma once
// What an analysis has found, as values: numbers and texts under keys, in order. Stores, labels and listings
// walk them.

#include <kxgraph/persist/Kxlargeini.h>
#include <kxgraph/platform/text/text.h>

#include <cstddef>
#include <functional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

namespace kx {

struct TKxResult {
    AnsiString Key;
    std::variant<double, AnsiString> Value;
    AnsiString Shown{}; ///< how a number reads that is shown as something else: a date

    /// Shown, or a number as stores hold it, with 14 digits and a point.
    AnsiString GetText() const;
};

/// An ordered list of results. Keys ignore the case of ASCII letters.
class TKxResults {
public:
    /// Adds a result, or replaces the value of the one of that key.
    void Set(const AnsiString& Key, double Value) { Put({Key, Value}); }
    void Set(const AnsiString& Key, const AnsiString& Value) { Put({Key, Value}); }
    void Set(const AnsiString& Key, const char* Value) { Put({Key, AnsiString(Value)}); }
    /// How positions along x read that are set from now on: SetPosition and the X of SetPoints.
    void ShowPositionsAs(std::function<AnsiString(double)> Text) { FPositionText = std::move(Text); }
    void SetPosition(const AnsiString& Key, double X) {
        Put({Key, X, FPositionText ? FPositionText(X) : AnsiString()});
    }
    /// The results X-Kind(k) and Y-Kind(k) of each point, k from 1. The array is shared, and nothing is made
    /// of a point before somebody asks for it.
    void SetPoints(const AnsiString& Kind, const TKxRealPosArray& Points);
    /// Null when there is none. Valid until the results change.
    const TKxResult* Find(std::string_view Key) const;
    /// All of them; those of points are made at the first call.
    std::span<const TKxResult> GetItems() const;
    /// Do(result) for all of them, of which none is kept.
    template <class F>
    void ForEach(F Do) const;
    /// Whether the keys are the same, in the same order.
    bool HasKeysOf(const TKxResults& Other) const;
    void Clear();

private:
    /// Results 2k and 2k + 1 are those of point k.
    struct TPoints {
        std::size_t Place; ///< how many other results stand in front
        AnsiString Kind;
        TKxRealPosArray Points;
        std::function<AnsiString(double)> PositionText;
        TKxResult ResultAt(int Index) const;
        /// -1 when the key, in upper case, is none of these.
        int IndexOf(std::string_view Key) const;
    };
    void Put(TKxResult Result);
    bool AreAmongPoints(const std::string& Key) const;
    void Spread();

    std::function<AnsiString(double)> FPositionText;
    std::vector<TKxResult> FItems;
    std::unordered_map<std::string, std::size_t> FPlaces; // of the keys in upper case
    std::vector<TPoints> FPoints;                         // their results stand in neither
    mutable std::vector<TKxResult> FAll;
    mutable std::unordered_map<std::string, TKxResult> FShown; // of points, asked for one by one
};

template <class F>
void TKxResults::ForEach(F Do) const {
    std::size_t next = 0;
    for (const TPoints& points : FPoints) {
        for (; next < points.Place; ++next) Do(FItems[next]);
        for (int i = 0; i < 2 * points.Points.Length(); ++i) Do(points.ResultAt(i));
    }
    for (; next < FItems.size(); ++next) Do(FItems[next]);
}

/// Writes them all under Section.
void WriteResults(const TKxResults& Results, TKxIniList& Ini, std::string_view Section);

} // namespace kx
