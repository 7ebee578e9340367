#include <kxgraph/platform/streaming/formtext.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <utility>

namespace kx {

namespace {

bool IsDigit(char C) { return C >= '0' && C <= '9'; }
bool IsLetter(char C) { return (C >= 'A' && C <= 'Z') || (C >= 'a' && C <= 'z') || C == '_'; }
bool IsInWord(char C) { return IsLetter(C) || IsDigit(C) || C == '.' || C == '$'; }
bool BeginsNumber(char C) { return IsDigit(C) || C == '+' || C == '-' || C == '.' || C == '$' || C == '#'; }
bool IsInNumber(char C) { return IsInWord(C) || C == '+' || C == '-'; }

int HexDigit(char C) {
    if (IsDigit(C)) return C - '0';
    if (C >= 'a' && C <= 'f') return C - 'a' + 10;
    return C >= 'A' && C <= 'F' ? C - 'A' + 10 : -1;
}

TTokenKind SymbolOf(char C) {
    constexpr std::string_view symbols = ":=()[],";
    const std::size_t found = symbols.find(C);
    if (found == symbols.npos) return TTokenKind::End;
    return static_cast<TTokenKind>(static_cast<std::size_t>(TTokenKind::Colon) + found);
}

} // namespace

TFormText::TFormText(std::string_view Text, std::string FileName)
    : FText(Text), FFileName(std::move(FileName)) {
    bool beginsLine = true;
    for (std::size_t at = 0;;) {
        at = SkipBlanks(at, beginsLine);
        FTokens.push_back(TokenAt(at));
        FTokens.back().BeginsLine = beginsLine;
        if (at == FText.size()) break;
        at += FTokens.back().Length;
        beginsLine = false;
    }
}

std::size_t TFormText::SkipBlanks(std::size_t At, bool& BeginsLine) const {
    for (; At < FText.size(); ++At) {
        const char c = FText[At];
        if (c == '\n') BeginsLine = true;
        if (c == '\n' || c == ' ' || c == '\t' || c == '\r') continue;
        if (FText.substr(At, 2) != "//") break;
        At = std::min(FText.find('\n', At), FText.size()) - 1;
    }
    return At;
}

TFormToken TFormText::TokenAt(std::size_t At) const {
    if (At == FText.size()) return {At, 0, TTokenKind::End, true};
    const char c = FText[At];
    const auto whole = [&](auto IsInside) {
        const auto end = std::find_if_not(FText.begin() + std::ptrdiff_t(At) + 1, FText.end(), IsInside);
        return static_cast<std::size_t>(end - FText.begin()) - At;
    };
    if (IsLetter(c)) return {At, whole(IsInWord), TTokenKind::Word, false};
    if (BeginsNumber(c)) return {At, whole(IsInNumber), TTokenKind::Number, false};
    if (c == '"') return {At, EndOfText(At) - At, TTokenKind::Text, false};
    const TTokenKind symbol = SymbolOf(c);
    if (symbol == TTokenKind::End)
        RaiseAt(At, "'" + Escaped(FText.substr(At, static_cast<std::size_t>(DecodeAt(FText, At).Length))) +
                        "' is not expected here");
    return {At, 1, symbol, false};
}

std::size_t TFormText::EndOfText(std::size_t At) const {
    for (std::size_t i = At + 1; i < FText.size() && FText[i] != '\n'; ++i) {
        if (FText[i] == '"') return i + 1;
        if (FText[i] == '\\') Escape(i);
    }
    RaiseAt(At, "the text has no closing quote");
}

/// What the backslash at At stands for; moves At to the last character of the sequence.
char TFormText::Escape(std::size_t& At) const {
    const std::size_t start = At;
    const char c = ++At < FText.size() ? FText[At] : '\0';
    switch (c) {
    case '\\':
    case '"': return c;
    case 'n': return '\n';
    case 't': return '\t';
    case 'r': return '\r';
    case 'x':
        if (At + 2 < FText.size()) {
            const int high = HexDigit(FText[At + 1]), low = HexDigit(FText[At + 2]);
            At += 2;
            if (high >= 0 && low >= 0) return static_cast<char>(static_cast<unsigned char>(high * 16 + low));
        }
        break;
    default: break;
    }
    RaiseAt(start,
            "a backslash in a text stands before one of \\ \" n t r, or before x and two hexadecimal digits");
}

std::string TFormText::Unescaped(std::size_t Index) const {
    std::string text;
    const TFormToken& token = FTokens[Index];
    const std::size_t end = token.Offset + token.Length - 1;
    text.reserve(token.Length);
    for (std::size_t i = token.Offset + 1; i < end; ++i) text += FText[i] == '\\' ? Escape(i) : FText[i];
    return text;
}

void TFormText::RaiseAt(std::size_t Offset, const std::string& Message) const {
    const std::string_view before = FText.substr(0, Offset);
    const std::size_t lineStart = before.rfind('\n') + 1; // 0 where there is none
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    const int column = CharacterCount(before.substr(lineStart)) + 1;
    std::string place = FFileName.empty() ? std::string("form") : FFileName;
    place.append(":").append(std::to_string(line)).append(":").append(std::to_string(column)).append(": ");
    throw EFormError(place.append(Message));
}

void TFormText::Raise(std::size_t Index, const std::string& Message, std::size_t Within) const {
    RaiseAt(FTokens[Index].Offset + Within, Message);
}

void TFormText::RaiseExpected(std::size_t Index, const std::string& Expected) const {
    if (FTokens[Index].Kind == TTokenKind::End)
        Raise(Index, "the file ends where " + Expected + " is expected");
    Raise(Index, "'" + Abridged(TextOf(Index)) + "' is not " + Expected);
}

} // namespace kx
