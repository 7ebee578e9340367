#include <kxgraph/analysis/Kxcoefficientlists.h>

#include <kxgraph/numeric/Kxstrings.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/numbertext.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace kx {

namespace {

[[noreturn]] void Fail(std::string_view Entry, const std::string& What) {
    throw EMathError("Fitted Line: '" + std::string(Entry) + "' " + What);
}

void ForEachEntry(std::string_view List, const std::function<void(std::string_view)>& Do) {
    if (Trimmed(List).empty()) return;
    for (std::size_t at = 0; at <= List.size();) {
        const std::size_t end = std::min(List.find(',', at), List.size());
        Do(Trimmed(List.substr(at, end - at)));
        at = end + 1;
    }
}

/// Finds coefficients, each once.
class TFinder {
public:
    TFinder(std::span<const AnsiString> Names, std::size_t Count) : FNames(Names), FTaken(Count) {}

    std::size_t Find(std::string_view Name) {
        for (std::size_t k = 0; k < FTaken.size(); ++k) {
            if (!IsCalled(k, Name)) continue;
            if (FTaken[k]) Fail(Name, "is fixed or bounded twice");
            FTaken[k] = true;
            return k;
        }
        Fail(Name, "is no coefficient to fix or to bound");
    }

private:
    bool IsCalled(std::size_t Index, std::string_view Name) const {
        if (Name == std::to_string(Index + 1)) return true;
        if (Index < FNames.size()) return Name == FNames[Index];
        return FNames.empty() && SameText(Name, ColumnToCharHeader(int(Index) + 1));
    }

    std::span<const AnsiString> FNames;
    std::vector<bool> FTaken;
};

std::optional<double> EndOf(std::string_view Text, double Default) {
    const std::string_view number = Trimmed(Text);
    if (number.empty()) return Default;
    int position = 0;
    const double value = Val(number, position);
    if (position != 0 || !std::isfinite(value)) return std::nullopt;
    return value;
}

void ReadBounds(std::string_view Entry, TFinder& Finder, std::span<TKxCoefficientLimits> Limits) {
    const auto equals = Entry.find('='), dots = Entry.find("..");
    if (equals == Entry.npos || dots == Entry.npos || dots < equals) Fail(Entry, "is not NAME=LOW..HIGH");
    const TKxCoefficientLimits none;
    const auto low = EndOf(Entry.substr(equals + 1, dots - equals - 1), none.Low);
    const auto high = EndOf(Entry.substr(dots + 2), none.High);
    if (!low || !high) Fail(Entry, "is not NAME=LOW..HIGH with numbers");
    if (!(*low < *high)) Fail(Entry, "leaves no room");
    Limits[Finder.Find(Trimmed(Entry.substr(0, equals)))] = {*low, *high};
}

} // namespace

std::vector<TKxCoefficientLimits> ReadCoefficientLimits(std::string_view Fixed, std::string_view Bounds,
                                                        std::span<const AnsiString> Names,
                                                        std::span<const double> Values) {
    std::vector<TKxCoefficientLimits> limits(Values.size());
    TFinder finder(Names, Values.size());
    ForEachEntry(Fixed, [&](std::string_view Name) {
        const std::size_t k = finder.Find(Name);
        limits[k] = {Values[k], Values[k]};
    });
    ForEachEntry(Bounds, [&](std::string_view Entry) { ReadBounds(Entry, finder, limits); });
    return limits;
}

} // namespace kx
