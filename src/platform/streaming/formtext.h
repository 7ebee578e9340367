#pragma once
// The text of a form file, cut into tokens, with places for messages. docs/form-file.md has the grammar.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

enum class TTokenKind : std::uint8_t {
    Word,   ///< letters, digits, _ and points: names, paths of names, nan$...
    Number, ///< whatever begins like a number, and $BBGGRR, #RRGGBB
    Text,   ///< in quotes
    Colon,
    Equals,
    Open, ///< of a list
    Close,
    OpenSet,
    CloseSet,
    Comma,
    End
};

struct TFormToken {
    std::size_t Offset, Length; ///< bytes of the text
    TTokenKind Kind;
    bool BeginsLine; ///< the first of its line
};

/// The text that is given is not copied and must outlive this.
class TFormText {
public:
    /// Raises EFormError for what is no token.
    TFormText(std::string_view Text, std::string FileName);

    const std::string& GetFileName() const { return FFileName; }
    const TFormToken& GetToken(std::size_t Index) const { return FTokens[Index]; }
    std::string_view TextOf(std::size_t Index) const {
        return FText.substr(FTokens[Index].Offset, FTokens[Index].Length);
    }
    /// What a token of kind Text stands for.
    std::string Unescaped(std::size_t Index) const;

    /// Raise EFormError "<file>:<line>:<column>: <message>" for the place of a token, Within bytes into it.
    [[noreturn]] void Raise(std::size_t Index, const std::string& Message, std::size_t Within = 0) const;
    /// "..., not ..." or "the file ends where ... is expected".
    [[noreturn]] void RaiseExpected(std::size_t Index, const std::string& Expected) const;

private:
    std::size_t SkipBlanks(std::size_t At, bool& BeginsLine) const;
    TFormToken TokenAt(std::size_t At) const;
    std::size_t EndOfText(std::size_t At) const;
    char Escape(std::size_t& At) const;
    [[noreturn]] void RaiseAt(std::size_t Offset, const std::string& Message) const;

    std::string_view FText;
    std::string FFileName;
    std::vector<TFormToken> FTokens; // the last one is End
};

} // namespace kx
