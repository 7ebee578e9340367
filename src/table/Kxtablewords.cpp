#include <kxgraph/table/Kxtablewords.h>

#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <array>
#include <string>

namespace kx {

namespace {

constexpr std::string_view CPrefixes[] = {"da", "µ", "μ", "Y", "Z", "E", "P", "T", "G", "M",
                                          "k",  "h", "d", "c", "m", "n", "p", "f", "z", "y"};

/// Those that take prefixes.
constexpr std::string_view CSymbols[] = {
    "m",   "g",   "s",  "A",   "K",   "mol", "cd",  "Hz", "N",  "Pa", "J",   "W",  "C",  "V",   "F",  "Ω",
    "Ω",   "S",   "Wb", "T",   "H",   "lm",  "lx",  "Bq", "Gy", "Sv", "kat", "L",  "eV", "bar", "B",  "Da",
    "bit", "rad", "sr", "cal", "ohm", "Ohm", "sec", "G",  "Oe", "pc", "yr",  "Ci", "VA", "var", "Wh", "Ah"};

constexpr std::string_view COthers[] = {
    "%",     "‰",      "°",      "°C",      "°F",     "degC",    "degF",    "deg",   "min",  "h",
    "hr",    "d",      "day",    "days",    "hours",  "minutes", "seconds", "years", "year", "Volt",
    "Volts", "Ampere", "Kelvin", "Celsius", "counts", "cts",     "cps",     "a.u.",  "arb.", "arb.u.",
    "au",    "ppm",    "ppb",    "ppt",     "dB",     "dBm",     "rpm",     "mmHg",  "Torr", "torr",
    "atm",   "psi",    "in",     "inch",    "ft",     "mi",      "lb",      "lbs",   "oz",   "gal",
    "kn",    "AU",     "ly",     "USD",     "EUR",    "€",       "$",       "£",     "px",   "pixel",
    "Å",     "Å",      "D",      "amu",     "M☉",     "cycles",  "samples"};

bool IsAmong(std::string_view Text, const auto& Names) {
    return std::ranges::find(Names, Text) != std::end(Names);
}

/// One symbol with its prefix.
bool IsSymbol(std::string_view Text) {
    if (IsAmong(Text, COthers) || IsAmong(Text, CSymbols)) return true;
    return std::ranges::any_of(CPrefixes, [&](std::string_view Prefix) {
        return Text.starts_with(Prefix) && IsAmong(Text.substr(Prefix.size()), CSymbols);
    });
}

/// The symbol of a factor such as m^-2, s-1 or cm³.
std::string_view WithoutPower(std::string_view Factor) {
    for (const std::string_view power : {"²", "³", "⁻¹", "⁻²", "⁻³"})
        if (Factor.ends_with(power)) return Factor.substr(0, Factor.size() - power.size());
    std::size_t end = Factor.size();
    while (end > 0 && Factor[end - 1] >= '0' && Factor[end - 1] <= '9') --end;
    if (end == Factor.size() || end == 0) return Factor;
    if (end > 1 && (Factor[end - 1] == '-' || Factor[end - 1] == '+')) --end;
    if (end > 1 && Factor[end - 1] == '^') --end;
    return Factor.substr(0, end);
}

bool IsEnclosed(std::string_view Text) {
    return Text.size() > 1 &&
           ((Text.front() == '(' && Text.back() == ')') || (Text.front() == '[' && Text.back() == ']'));
}

bool IsUnit(std::string_view Text) {
    Text = Trimmed(Text);
    if (IsEnclosed(Text) || IsSymbol(Text)) return true;
    std::string spaced(Text); // factors parted by blanks alone
    for (const std::string_view sign : {"·", "⋅"})
        for (auto at = spaced.find(sign); at != std::string::npos; at = spaced.find(sign))
            spaced.replace(at, sign.size(), " ");
    std::ranges::replace_if(
        spaced, [](char C) { return C == '/' || C == '*' || C == '(' || C == ')'; }, ' ');
    bool isUnit = false;
    for (std::size_t begin = 0; begin < spaced.size();) {
        const std::size_t end = std::min(spaced.find(' ', begin), spaced.size());
        const std::string_view factor = std::string_view(spaced).substr(begin, end - begin);
        if (!factor.empty() && !IsSymbol(WithoutPower(factor))) return false;
        isUnit |= !factor.empty();
        begin = end + 1;
    }
    return isUnit;
}

} // namespace

bool StandsForNoUnit(std::string_view Text) {
    return Text.empty() || Text == "-" || Text == "–" || Text == "1";
}

bool AreUnits(std::span<const std::string> Texts) {
    bool some = false;
    for (const std::string& text : Texts) {
        const bool none = StandsForNoUnit(text);
        if (!none && !IsUnit(text)) return false;
        some |= !none;
    }
    return some;
}

bool IsSentence(std::span<const std::string> Words) {
    static constexpr std::string_view small[] = {"of",  "by",  "from", "the", "with", "for", "to",   "is",
                                                 "are", "and", "at",   "on",  "this", "was", "were", "in"};
    if (Words.empty() || Words.back().empty()) return false;
    const char last = Words.back().back();
    if (last == '.' || last == ':' || last == '!' || last == '?') return true;
    return std::ranges::any_of(Words, [](const std::string& Word) {
        return std::ranges::any_of(small, [&](std::string_view Small) { return SameText(Word, Small); });
    });
}

} // namespace kx
