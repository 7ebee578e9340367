#pragma once
// Takes a cell apart from left to right.

#include <cstddef>
#include <string_view>

namespace kx {

/// A number of so many digits.
struct TKxDigits {
    int Value = 0;
    std::size_t Count = 0;
};

/// What is left of a cell. Each step takes its piece away, or leaves all as it was.
class TKxCellScanner {
public:
    explicit TKxCellScanner(std::string_view Text) : FRest(Text) {}

    bool IsAtEnd() const { return FRest.empty(); }
    std::string_view GetRest() const { return FRest; }
    /// A character of what is left; '\0' behind its end.
    char Next(std::size_t Place = 0) const { return Place < FRest.size() ? FRest[Place] : '\0'; }
    bool NextIsDigit(std::size_t Place = 0) const;
    bool NextIsLetter() const;

    bool Take(char C);
    /// Any of some characters; '\0' when it is none of them.
    char TakeAnyOf(std::string_view Chars);
    /// Up to nine digits, perhaps none; of more none.
    TKxDigits TakeDigits();
    /// Digits of any number, as they stand.
    std::string_view TakeDigitText();
    /// Letters of the alphabet, perhaps none.
    std::string_view TakeWord();

private:
    std::string_view FRest;
};

} // namespace kx
