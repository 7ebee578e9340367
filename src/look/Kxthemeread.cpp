// From text.

#include <kxgraph/look/Kxtheme.h>

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/platform/text/suggest.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <utility>

namespace kx {

namespace {

std::vector<std::string_view> ListOf(std::string_view Text) {
    std::vector<std::string_view> items;
    for (std::size_t begin = 0; begin <= Text.size();) {
        const std::size_t end = std::min(Text.find(',', begin), Text.size());
        items.push_back(Trimmed(Text.substr(begin, end - begin)));
        begin = end + 1;
    }
    return items;
}

/// The names that a path may begin with: properties and keys of all registered classes.
std::vector<std::string_view> KnownNames() {
    RegisterClasses();
    std::vector<std::string_view> names;
    for (const TComponentClass& known : RegisteredClasses()) {
        for (const TPropertyTable* table = &known.Properties(); table; table = table->GetBase()) {
            for (const TProperty& row : table->GetOwn()) names.push_back(row.Name);
            for (const TProperty& row : table->GetKept()) names.push_back(row.GetKey());
        }
    }
    return names;
}

} // namespace

/// Takes a theme line by line.
class TKxTheme::TReader {
public:
    TReader(TKxTheme& Theme, const std::string& Name) : FTheme(Theme), FName(Name) {}

    void Take(std::string_view Line) {
        ++FLine;
        const std::string_view text = Trimmed(Line);
        if (text.empty() || text[0] == '#') return;
        const std::size_t equals = text.find('=');
        if (equals == text.npos) Fail("'" + Abridged(text) + "' is not NAME = VALUE");
        TakePair(Trimmed(text.substr(0, equals)), Trimmed(text.substr(equals + 1)));
        FIsFirst = false;
    }

private:
    using TTake = void (TReader::*)(std::string_view);

    void TakePair(std::string_view Key, std::string_view Value) {
        static constexpr std::pair<std::string_view, TTake> keys[]{
            {"Base", &TReader::TakeBase},     {"Ink", &TReader::TakeInk},
            {"Ground", &TReader::TakeGround}, {"Grid", &TReader::TakeGrid},
            {"Colors", &TReader::TakeColors}, {"Symbols", &TReader::TakeSymbols},
            {"Dashes", &TReader::TakeDashes}};
        for (const auto& [key, take] : keys)
            if (SameText(key, Key)) return (this->*take)(Value);
        TakeProperty(Key, Value);
    }

    void TakeBase(std::string_view Value) {
        if (!FIsFirst) Fail("Base stands before all else");
        const auto names = Names();
        if (std::none_of(names.begin(), names.end(), [Value](auto Name) { return SameText(Name, Value); }))
            Fail("'" + Abridged(Value) + "' is no theme to start from");
        FTheme = Named(Value);
    }
    void TakeInk(std::string_view Value) { FTheme.FInk = ColorIn(Value); }
    void TakeGround(std::string_view Value) { FTheme.FGround = ColorIn(Value); }
    void TakeGrid(std::string_view Value) {
        const auto colors = ListOf(Value);
        if (colors.size() > 2) Fail("Grid has a major and a minor colour, no more");
        FTheme.FMajorGrid = ColorIn(colors.front());
        FTheme.FMinorGrid = ColorIn(colors.back());
    }
    void TakeColors(std::string_view Value) {
        FTheme.FColors.clear();
        for (const auto item : ListOf(Value)) FTheme.FColors.push_back(ColorIn(item));
    }
    void TakeSymbols(std::string_view Value) {
        TakeNames(FTheme.FSymbols, *TKxPointStyle::Properties().Find("Style"), Value);
    }
    void TakeDashes(std::string_view Value) {
        TakeNames(FTheme.FDashes, *TKxLineStyle::Properties().Find("Style"), Value);
    }
    template <class T>
    void TakeNames(std::vector<T>& List, const TProperty& Row, std::string_view Value) {
        List.clear();
        for (const auto item : ListOf(Value)) List.push_back(static_cast<T>(OrdinalIn(Row, item)));
    }

    void TakeProperty(std::string_view Key, std::string_view Value) {
        const std::size_t point = Key.find('.');
        if (point == Key.npos || point == 0 || point + 1 == Key.size())
            Fail("'" + Abridged(Key) +
                 "' is not Base, Ink, Ground, Grid, Colors, Symbols, Dashes or NAME.PROPERTY");
        const std::string_view path = Key.substr(point + 1), first = path.substr(0, path.find('.'));
        if (FKnown.empty()) FKnown = KnownNames();
        const auto isKnown = [&](std::string_view Known) {
            return SameText(Known, first) || SameText(Known, path);
        };
        if (std::none_of(FKnown.begin(), FKnown.end(), isKnown))
            Fail("no component has a property '" + Abridged(first) + "'" + DidYouMean(first, FKnown));
        FTheme.FLines.push_back(
            {std::string(Key.substr(0, point)), std::string(path), std::string(Value), Place()});
    }

    TColor ColorIn(std::string_view Text) const {
        if (const auto color = ColorFromText(Text)) return *color;
        Fail("'" + Abridged(Text) + "' is not a colour (a name such as clRed, or #RRGGBB)");
    }
    std::int64_t OrdinalIn(const TProperty& Row, std::string_view Text) const {
        try {
            return std::get<std::int64_t>(PropertyFromText(Row, Text, {}));
        } catch (const EPropertyError& error) {
            Fail(error.what());
        }
    }
    std::string Place() const {
        return std::string(FName).append(1, ':').append(std::to_string(FLine)).append(": ");
    }
    [[noreturn]] void Fail(const std::string& What) const { throw EThemeError(Place() + What); }

    TKxTheme& FTheme;
    const std::string& FName;
    std::vector<std::string_view> FKnown;
    int FLine = 0;
    bool FIsFirst = true;
};

TKxTheme TKxTheme::Parse(std::string_view Text, const std::string& Name) {
    TKxTheme theme;
    TReader reader(theme, Name);
    for (std::size_t begin = 0; begin < Text.size();) {
        const std::size_t end = std::min(Text.find('\n', begin), Text.size());
        const std::string_view line = Text.substr(begin, end - begin);
        reader.Take(line.substr(0, line.size() - line.ends_with('\r')));
        begin = end + 1;
    }
    return theme;
}

} // namespace kx
