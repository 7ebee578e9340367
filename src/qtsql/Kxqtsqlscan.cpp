#include <kxgraph/qtsql/Kxqtsqlscan.h>

#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <vector>

namespace kx::qt {

namespace {

struct TToken {
    enum TKind { Word, Quoted, Sign, Other };
    TKind Kind;
    std::string_view Text;
    bool Is(std::string_view Word_) const { return Kind == Word && SameText(Text, Word_); }
    bool Is(char C) const { return Kind == Sign && Text.front() == C; }
    bool IsName() const { return Kind == Word || Kind == Quoted; }
};

bool IsWordSign(char C) {
    return std::isalnum(static_cast<unsigned char>(C)) || C == '_' || C == '$' || (C & 0x80);
}

/// Where what begins at At ends: a comment, a text or name in quotes, a word; at least one character.
std::size_t EndOf(std::string_view Text, std::size_t At, TToken::TKind& Kind) {
    const auto behind = [&](std::string_view End, std::size_t From) {
        const std::size_t found = Text.find(End, From);
        return found == Text.npos ? Text.size() : found + End.size();
    };
    const std::string_view rest = Text.substr(At);
    const char c = rest.front();
    Kind = TToken::Other;
    if (rest.starts_with("--")) return behind("\n", At);
    if (rest.starts_with("/*")) return behind("*/", At + 2);
    if (std::isspace(static_cast<unsigned char>(c))) return At + 1;
    Kind = TToken::Quoted;
    if (c == '"' || c == '`') return behind({&c, 1}, At + 1);
    if (c == '[') return behind("]", At);
    if (c == '\'') {
        Kind = TToken::Sign;
        return behind("'", At + 1);
    }
    Kind = IsWordSign(c) ? TToken::Word : TToken::Sign;
    std::size_t end = At + 1;
    while (Kind == TToken::Word && end < Text.size() && IsWordSign(Text[end])) ++end;
    return end;
}

/// Those outside brackets; '(' stands for a pair of them with all that is in it.
std::vector<TToken> TokensOf(std::string_view Query) {
    std::vector<TToken> tokens;
    int depth = 0;
    for (std::size_t at = 0; at < Query.size();) {
        TToken token{};
        const std::size_t end = EndOf(Query, at, token.Kind);
        token.Text = Query.substr(at, end - at);
        at = end;
        if (token.Is(')')) --depth;
        if (depth == 0 && token.Kind != TToken::Other && !token.Is(')')) tokens.push_back(token);
        if (token.Is('(')) ++depth;
    }
    return tokens;
}

TOneTable Not(const char* Reason) { return {"", Reason}; }

constexpr const char *CSeveral = "it is on more than one table", *CNone = "it is on no table",
                     *CGathers = "its records are made of several ones of the table";

bool MayFollow(const TToken& Token) {
    constexpr std::array words{"where", "order", "limit", "offset", "fetch", "for"};
    return Token.Is(';') || std::ranges::any_of(words, [&](const char* Word) { return Token.Is(Word); });
}

} // namespace

TOneTable OneTableOf(std::string_view Query) {
    const auto tokens = TokensOf(Query);
    if (tokens.empty() || !tokens.front().Is("select")) return Not(CNone);
    for (const TToken& token : tokens) {
        for (const char* word : {"union", "intersect", "except", "join"})
            if (token.Is(word)) return Not(CSeveral);
        for (const char* word : {"group", "having", "distinct"})
            if (token.Is(word)) return Not(CGathers);
    }
    auto at = std::ranges::find_if(tokens, [](const TToken& Token) { return Token.Is("from"); });
    const auto has = [&](auto Holds) { return at != tokens.end() && Holds(*at); };
    const auto isName = [](const TToken& Token) { return Token.IsName(); };
    if (at == tokens.end()) return Not(CNone);
    ++at;
    TOneTable found;
    if (!has(isName)) return Not(CNone);
    found.Table = (at++)->Text;
    while (has([](const TToken& Token) { return Token.Is('.'); })) {
        ++at;
        if (!has(isName)) return Not(CNone);
        found.Table.append(".").append((at++)->Text);
    }
    if (has([](const TToken& Token) { return Token.Is('('); })) return Not(CNone); // a function
    if (has([](const TToken& Token) { return Token.Is("as"); })) ++at;
    if (has([&](const TToken& Token) { return isName(Token) && !MayFollow(Token); })) ++at;
    if (at != tokens.end() && !MayFollow(*at)) return Not(CSeveral);
    return found;
}

} // namespace kx::qt
