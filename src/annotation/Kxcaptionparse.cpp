// From a caption to its pieces, and from plain text to a caption.

#include <kxgraph/annotation/Kxcaption.h>

#include <optional>

namespace kx {

namespace {

/// Reads a caption once from left to right. A chunk is a stretch of shown characters between two escapes.
class TParser {
public:
    explicit TParser(std::string_view Text) : FText(Text) {}
    TKxParsedCaption Parse();

private:
    void TakeCharacter();
    void TakeEscape();
    void TakeSwitch(TKxCaptionSwitch Switch);
    void Show(std::string_view Character, int Position);
    void Skip() {
        ++FAt;
        ++FPosition;
    }
    void SwallowBlank() {
        if (FAt < FText.size() && FText[FAt] == ' ') Skip();
    }

    std::string_view FText;
    std::size_t FAt = 0;
    int FPosition = 1; // of the character at FAt
    int FShown = 0;
    bool FJoins = false; // the next character goes into the last run
    TKxCaptionLooks FLooks;
    TKxParsedCaption FResult;
};

std::optional<TKxCaptionSwitch> SwitchOf(char Letter) {
    const char sign = Letter >= 'A' && Letter <= 'Z' ? char(Letter - 'A' + 'a') : Letter;
    const auto index = CCaptionSigns.find(sign);
    return index == CCaptionSigns.npos ? std::nullopt : std::optional(TKxCaptionSwitch(index));
}

TKxParsedCaption TParser::Parse() {
    while (FAt < FText.size()) {
        if (FText[FAt] == '\\')
            TakeEscape();
        else
            TakeCharacter();
    }
    FResult.Length = FPosition - 1;
    return std::move(FResult);
}

void TParser::TakeCharacter() {
    const std::string_view character = FText.substr(FAt, std::size_t(DecodeAt(FText, FAt).Length));
    Show(character, FPosition);
    FResult.Stripped += character;
    FAt += character.size();
    ++FPosition;
}

void TParser::TakeEscape() {
    Skip();
    FJoins = false;
    if (FAt == FText.size()) return;
    if (const auto which = SwitchOf(FText[FAt])) {
        TakeSwitch(*which);
    } else if (FText[FAt] == '\\') {
        // Kept: shown, but no part of Stripped; whoever stores a stripped text relies on it.
        Show("\\", FPosition);
        FJoins = false;
        Skip();
        SwallowBlank();
    } else {
        TakeCharacter();
    }
}

void TParser::TakeSwitch(TKxCaptionSwitch Switch) {
    ToggleLook(Switch, FLooks);
    FResult.Switches.push_back({Switch, FShown});
    Skip();
    SwallowBlank();
}

void TParser::Show(std::string_view Character, int Position) {
    if (!FJoins) FResult.Runs.push_back({{}, Position, FLooks});
    FResult.Runs.back().Text += Character;
    FJoins = true;
    ++FShown;
}

} // namespace

bool HasLook(TKxCaptionSwitch Which, const TKxCaptionLooks& Looks) {
    switch (Which) {
    case TKxCaptionSwitch::Symbol: return Looks.Symbol;
    case TKxCaptionSwitch::Bold: return (Looks.Toggled & fsBold) != 0;
    case TKxCaptionSwitch::Italic: return (Looks.Toggled & fsItalic) != 0;
    case TKxCaptionSwitch::Underline: return (Looks.Toggled & fsUnderline) != 0;
    case TKxCaptionSwitch::StrikeOut: return (Looks.Toggled & fsStrikeOut) != 0;
    case TKxCaptionSwitch::Superscript: return Looks.Superscript;
    case TKxCaptionSwitch::Subscript: return Looks.Subscript;
    }
    return false;
}

void ToggleLook(TKxCaptionSwitch Which, TKxCaptionLooks& Looks) {
    switch (Which) {
    case TKxCaptionSwitch::Symbol: Looks.Symbol = !Looks.Symbol; break;
    case TKxCaptionSwitch::Bold: Looks.Toggled ^= fsBold; break;
    case TKxCaptionSwitch::Italic: Looks.Toggled ^= fsItalic; break;
    case TKxCaptionSwitch::Underline: Looks.Toggled ^= fsUnderline; break;
    case TKxCaptionSwitch::StrikeOut: Looks.Toggled ^= fsStrikeOut; break;
    case TKxCaptionSwitch::Superscript: Looks.Small = Looks.Superscript = !Looks.Superscript; break;
    case TKxCaptionSwitch::Subscript: Looks.Small = Looks.Subscript = !Looks.Subscript; break;
    }
}

TKxParsedCaption ParseCaption(std::string_view Text) { return TParser(Text).Parse(); }

AnsiString GetStrippedString(const AnsiString& Caption) { return ParseCaption(Caption).Stripped; }

TKxCaption EscapeCaption(std::string_view Text) {
    std::string result;
    bool afterBackslash = false;
    for (const char c : Text) {
        if (c == '\\') result += c;
        if (c == ' ' && afterBackslash) result += c; // the escape swallows one
        result += c;
        afterBackslash = c == '\\';
    }
    return result;
}

} // namespace kx
