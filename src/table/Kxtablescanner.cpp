#include <kxgraph/table/Kxtablescanner.h>

#include <algorithm>
#include <charconv>

namespace kx {

namespace {

constexpr std::size_t CMostDigits = 9; // that fit into an int

bool IsDigit(char C) { return C >= '0' && C <= '9'; }
bool IsLetter(char C) { return (C >= 'a' && C <= 'z') || (C >= 'A' && C <= 'Z'); }

/// Takes what is of a kind off the front.
template <class F>
std::string_view Front(std::string_view& Text, F Is) {
    const auto count = std::size_t(std::find_if_not(Text.begin(), Text.end(), Is) - Text.begin());
    const std::string_view front = Text.substr(0, count);
    Text.remove_prefix(count);
    return front;
}

} // namespace

bool TKxCellScanner::NextIsDigit(std::size_t Place) const { return IsDigit(Next(Place)); }
bool TKxCellScanner::NextIsLetter() const { return IsLetter(Next()); }

bool TKxCellScanner::Take(char C) {
    if (IsAtEnd() || Next() != C) return false;
    FRest.remove_prefix(1);
    return true;
}

char TKxCellScanner::TakeAnyOf(std::string_view Chars) {
    const char next = Next();
    return Chars.find(next) != std::string_view::npos && Take(next) ? next : '\0';
}

TKxDigits TKxCellScanner::TakeDigits() {
    const std::string_view whole = FRest, text = TakeDigitText();
    TKxDigits digits{0, text.size()};
    if (text.size() > CMostDigits) {
        FRest = whole;
        return {};
    }
    std::from_chars(text.data(), text.data() + text.size(), digits.Value);
    return digits;
}

std::string_view TKxCellScanner::TakeDigitText() { return Front(FRest, IsDigit); }
std::string_view TKxCellScanner::TakeWord() { return Front(FRest, IsLetter); }

} // namespace kx
