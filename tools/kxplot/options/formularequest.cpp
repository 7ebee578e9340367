// Formulas and their start values, checked before any data are read.

#include "kxplot/options/analysisrequest.h"
#include "kxplot/options/number.h"
#include "kxplot/options/usageerror.h"

#include <kxgraph/formula/Kxformula.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>

namespace kxplot {

namespace {

bool Contains(const std::vector<std::string>& Names, const std::string& Name) {
    return std::find(Names.begin(), Names.end(), Name) != Names.end();
}

TStartValue ParseStartValue(std::string_view Text) {
    const auto equals = Text.find('=');
    const std::string name(kx::Trimmed(Text.substr(0, equals)));
    const auto value = equals == Text.npos ? std::nullopt : ParseFinite(Text.substr(equals + 1));
    if (!value || name.empty())
        throw TUsageError("--start: " + Quoted(Text) + " is not NAME=NUMBER (several are a=1,b=0.5)");
    return {name, *value};
}

std::vector<TStartValue> ParseStart(const std::string& Text) {
    std::vector<TStartValue> start;
    for (std::size_t at = 0; at <= Text.size();) {
        const auto comma = std::min(Text.find(',', at), Text.size());
        const TStartValue value = ParseStartValue(std::string_view(Text).substr(at, comma - at));
        for (const auto& other : start)
            if (kx::SameText(other.Name, value.Name))
                throw TUsageError("--start: " + Quoted(Text) + " gives " + Quoted(value.Name) + " twice" +
                                  (other.Name == value.Name ? "" : " (results do not tell case apart)"));
        start.push_back(value);
        at = comma + 1;
    }
    return start;
}

/// A word, with or without something behind a colon: nobody fits such a formula without a start value.
bool LooksLikeAKind(const std::string& Text) {
    const auto word = Text.substr(0, Text.find(':'));
    return std::all_of(word.begin(), word.end(), [](char C) {
        const char lower = char(C | 0x20);
        return (lower >= 'a' && lower <= 'z') || (C >= '0' && C <= '9') || C == '_';
    });
}

void CheckNames(const std::string& Text, kx::TKxFormula& Formula, const std::vector<TStartValue>& Start) {
    std::vector<std::string> given;
    for (const auto& value : Start) {
        if (!Contains(Formula.GetNames(), value.Name))
            throw TUsageError("--start: " + Quoted(value.Name) + " is no coefficient of " + Quoted(Text));
        given.push_back(value.Name);
    }
    if (Formula.GetNames().empty())
        throw TUsageError("--fit: " + Quoted(Text) + " has no coefficient to fit");
    const auto& names = Formula.GetNames();
    const auto missing = std::find_if(names.begin(), names.end(),
                                      [&](const std::string& Name) { return !Contains(given, Name); });
    if (missing == names.end()) return;
    try {
        Formula.SetCoefficientNames(given); // knows the place
    } catch (const kx::EFormulaError& error) {
        throw TUsageError("--fit: " + Quoted(Text) + ": " + Quoted(*missing) + " at character " +
                          std::to_string(error.GetPosition()) + " has no start value (--start " + *missing +
                          "=...)");
    }
}

} // namespace

TAnalysisRequest ParseFormula(const std::string& Text, const std::string* Start) {
    if (!Start && LooksLikeAKind(Text))
        throw TUsageError("--fit: " + Quoted(Text) +
                          " is neither line, line:offset=VALUE, poly:DEGREE nor a formula with --start");
    TAnalysisRequest request;
    request.Method = TMethod::Formula;
    request.Formula = Text;
    if (Start) request.Start = ParseStart(*Start);
    try {
        kx::TKxFormula formula(Text);
        CheckNames(Text, formula, request.Start);
    } catch (const kx::EFormulaError& error) {
        throw TUsageError("--fit: " + kx::Escaped(error.what()));
    }
    return request;
}

} // namespace kxplot
