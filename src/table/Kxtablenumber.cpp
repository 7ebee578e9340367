#include <kxgraph/table/Kxtablenumber.h>

#include <kxgraph/platform/text/decimals.h>

#include <algorithm>
#include <charconv>
#include <limits>
#include <string>

namespace kx {

namespace {

// Beyond double, long double tells large from small; beyond that too, the exponent's sign does.
double OutOfRange(const char* Begin, const char* End) {
    long double wide = 0;
    if (std::from_chars(Begin, End, wide).ec == std::errc()) return static_cast<double>(wide);
    const char* exponent = std::find_if(Begin, End, [](char C) { return C == 'e' || C == 'E'; });
    const bool tiny = exponent != End && exponent + 1 != End && exponent[1] == '-';
    const double size = tiny ? 0.0 : std::numeric_limits<double>::infinity();
    return *Begin == '-' ? -size : size;
}

std::optional<double> ParsePointForm(const char* Begin, const char* End) {
    if (Begin != End && *Begin == '+') {
        ++Begin;
        if (Begin != End && *Begin == '-') return std::nullopt;
    }
    double value = 0;
    const auto [stop, error] = ReadDecimal(Begin, End, value);
    if (stop != End || Begin == End) return std::nullopt;
    if (error == std::errc::result_out_of_range) return OutOfRange(Begin, End);
    if (error != std::errc()) return std::nullopt;
    return value;
}

bool IsDigit(char C) { return C >= '0' && C <= '9'; }
bool IsSign(char C) { return C == '+' || C == '-'; }

std::string_view WithoutBlanks(std::string_view Cell) {
    while (!Cell.empty() && (Cell.front() == ' ' || Cell.front() == '\t')) Cell.remove_prefix(1);
    while (!Cell.empty() && (Cell.back() == ' ' || Cell.back() == '\t')) Cell.remove_suffix(1);
    return Cell;
}

std::size_t LeadingDigits(std::string_view Text) {
    return std::size_t(std::find_if_not(Text.begin(), Text.end(), IsDigit) - Text.begin());
}

/// A number in groups, taken apart.
struct TGroups {
    int Count = 0;         ///< groups behind the leading digits
    bool HasRest = false;  ///< a decimal sign or an exponent follows
    std::string PointForm; ///< without group signs, with a decimal point
};

std::optional<TGroups> TakeApart(std::string_view Cell, char GroupSign, char DecimalSign) {
    Cell = WithoutBlanks(Cell);
    TGroups groups;
    if (!Cell.empty() && IsSign(Cell.front())) {
        groups.PointForm += Cell.front();
        Cell.remove_prefix(1);
    }
    const std::size_t lead = LeadingDigits(Cell);
    if (lead == 0) return std::nullopt;
    groups.PointForm += Cell.substr(0, lead);
    Cell.remove_prefix(lead);
    for (; !Cell.empty() && Cell.front() == GroupSign; ++groups.Count) {
        if (lead > 3 || LeadingDigits(Cell.substr(1)) != 3) return std::nullopt;
        groups.PointForm += Cell.substr(1, 3);
        Cell.remove_prefix(4);
    }
    groups.HasRest = !Cell.empty();
    if (groups.HasRest && Cell.front() == DecimalSign) {
        groups.PointForm += '.';
        Cell.remove_prefix(1);
    }
    groups.PointForm += Cell;
    return groups;
}

std::optional<TGroups> TakeApart(std::string_view Cell, TKxGrouping Grouping) {
    if (Grouping == TKxGrouping::ByComma) return TakeApart(Cell, ',', '.');
    return TakeApart(Cell, '.', ',');
}

} // namespace

std::optional<double> ParseNumber(std::string_view Cell, bool DecimalComma) {
    Cell = WithoutBlanks(Cell);
    const auto comma = DecimalComma ? Cell.find(',') : std::string_view::npos;
    if (comma == std::string_view::npos) return ParsePointForm(Cell.data(), Cell.data() + Cell.size());
    if (Cell.find('.') != std::string_view::npos) return std::nullopt;
    std::string pointForm(Cell);
    pointForm[comma] = '.';
    return ParsePointForm(pointForm.data(), pointForm.data() + pointForm.size());
}

std::optional<double> ParseFortranNumber(std::string_view Cell, bool DecimalComma) {
    Cell = WithoutBlanks(Cell);
    const std::size_t end = Cell.find_last_not_of("0123456789"); // of the exponent's digits, from the right
    if (end == std::string_view::npos || end == 0 || end + 1 == Cell.size()) return std::nullopt;
    const bool hasSign = IsSign(Cell[end]);
    const std::size_t letter = hasSign ? end - 1 : end;
    const bool hasLetter = Cell[letter] == 'D' || Cell[letter] == 'd';
    const std::string_view mantissa = Cell.substr(0, hasLetter ? letter : end);
    const bool hasDecimalSign = mantissa.find_first_of(DecimalComma ? ".," : ".") != std::string_view::npos;
    const bool fits =
        hasLetter ? hasSign || hasDecimalSign : hasSign && hasDecimalSign && Cell.size() - end == 4;
    if (!fits || mantissa.find_first_not_of("+-.,0123456789") != std::string_view::npos) return std::nullopt;
    std::string usual(mantissa);
    usual += 'e';
    usual += Cell.substr(hasLetter ? letter + 1 : end);
    return ParseNumber(usual, DecimalComma);
}

std::optional<double> ParseGrouped(std::string_view Cell, TKxGrouping Grouping) {
    if (const auto groups = TakeApart(Cell, Grouping)) return ParseNumber(groups->PointForm, false);
    if (Cell.find_first_of(".,") != std::string_view::npos) return std::nullopt;
    return ParseNumber(Cell, false); // nan and the like
}

TKxGroupingTold TellsGrouping(std::string_view Cell, TKxGrouping Grouping) {
    const auto groups = TakeApart(Cell, Grouping);
    if (!groups || groups->Count == 0 || !ParseNumber(groups->PointForm, false)) return {};
    return {true, groups->Count > 1 || groups->HasRest};
}

} // namespace kx
