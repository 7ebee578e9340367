#include <kxgraph/platform/streaming/formvalues.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/colors.h>
#include <kxgraph/platform/text/suggest.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <span>
#include <system_error>
#include <vector>

namespace kx {

namespace {

constexpr int CHex = 16;
constexpr std::string_view CNanBits = "nan$";
constexpr auto CPlainNan = std::bit_cast<std::uint64_t>(std::numeric_limits<double>::quiet_NaN());
constexpr auto CSignBit = std::uint64_t(1) << 63;

template <class T>
std::string Number(T Value, int Base = 10) {
    char text[32];
    if constexpr (std::is_floating_point_v<T>)
        return {text, std::to_chars(text, std::end(text), Value).ptr};
    else
        return {text, std::to_chars(text, std::end(text), Value, Base).ptr};
}

std::string NanForm(double Value) {
    const auto bits = std::bit_cast<std::uint64_t>(Value);
    if (bits == CPlainNan) return "nan";
    if (bits == (CPlainNan | CSignBit)) return "-nan";
    return std::string(CNanBits) + Number(bits, CHex);
}

/// How a byte that is no part of readable text is written.
void AppendByte(std::string& Text, char Byte) {
    constexpr char digits[] = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(Byte);
    Text.append("\\x");
    Text += digits[byte / CHex];
    Text += digits[byte % CHex];
}

bool IsForeign(const TCodePoint& Point) { return Point.Length == 1 && Point.Value > 0x7F; }

std::string SetForm(const TProperty& Property, std::int64_t Mask) {
    std::string text = "[";
    for (std::size_t bit = 0; bit < Property.ValueNames.size(); ++bit)
        if ((Mask >> bit) & 1) text.append(text.size() > 1 ? ", " : "").append(Property.ValueNames[bit]);
    return text + "]";
}

std::string EnumerationForm(const TProperty& Property, std::int64_t Ordinal) {
    if (Property.ValueNames.empty()) return Number(Ordinal);
    if (Ordinal < 0 || Ordinal >= static_cast<std::int64_t>(Property.ValueNames.size()))
        throw EFormError(std::string(Property.Name) + ": there is no value of number " + Number(Ordinal));
    return std::string(Property.ValueNames[static_cast<std::size_t>(Ordinal)]);
}

std::string RealsForm(const std::vector<double>& Values) {
    std::string text = "(";
    for (const double value : Values) text.append(text.size() > 1 ? " " : "").append(RealForm(value));
    return text + ")";
}

} // namespace

std::string RealForm(double Value) { return std::isnan(Value) ? NanForm(Value) : Number(Value); }

std::string QuotedForm(std::string_view Text) {
    std::string quoted = "\"";
    for (std::size_t i = 0; i < Text.size();) {
        const TCodePoint point = DecodeAt(Text, i);
        const char c = Text[i];
        switch (c) {
        case '\\':
        case '"': (quoted += '\\') += c; break;
        case '\n': quoted += "\\n"; break;
        case '\t': quoted += "\\t"; break;
        case '\r': quoted += "\\r"; break;
        default:
            if (point.Value < ' ' || point.Value == 0x7F || IsForeign(point))
                AppendByte(quoted, c);
            else
                quoted.append(Text.substr(i, static_cast<std::size_t>(point.Length)));
        }
        i += static_cast<std::size_t>(point.Length);
    }
    return quoted + "\"";
}

std::string ValueForm(const TProperty& Property, const TPropertyValue& Value) {
    switch (Property.Kind) {
    case TPropertyKind::Bool: return std::get<bool>(Value) ? "True" : "False";
    case TPropertyKind::Integer: return Number(std::get<std::int64_t>(Value));
    case TPropertyKind::Real: return RealForm(std::get<double>(Value));
    case TPropertyKind::Text: return QuotedForm(std::get<std::string>(Value));
    case TPropertyKind::Enumeration: return EnumerationForm(Property, std::get<std::int64_t>(Value));
    case TPropertyKind::Flags: return SetForm(Property, std::get<std::int64_t>(Value));
    case TPropertyKind::Color: return ColorToText(static_cast<TColor>(std::get<std::int64_t>(Value)));
    case TPropertyKind::Reals: return RealsForm(std::get<std::vector<double>>(Value));
    case TPropertyKind::Reference:
    case TPropertyKind::Event:
    case TPropertyKind::SubObject: break;
    }
    return {};
}

// Tokens to values.

namespace {

std::optional<double> NanOf(std::string_view Form) {
    if (!StartsWithText(Form, CNanBits)) return std::nullopt;
    std::uint64_t bits = 0;
    const char* end = Form.data() + Form.size();
    const auto read = std::from_chars(Form.data() + CNanBits.size(), end, bits, CHex);
    const auto value = std::bit_cast<double>(bits);
    if (read.ec != std::errc() || read.ptr != end || !std::isnan(value)) return std::nullopt;
    return value;
}

std::string Joined(std::span<const std::string_view> Names) {
    std::string joined;
    for (const std::string_view name : Names) joined.append(joined.empty() ? "" : ", ").append(name);
    return joined;
}

/// The place of a name among those of Property.
std::int64_t IndexOf(const TFormText& Text, const TProperty& Property, std::size_t Token) {
    const auto names = Property.ValueNames;
    const std::string_view name = Text.TextOf(Token);
    const auto found = std::ranges::find_if(names, [&](std::string_view N) { return SameText(N, name); });
    if (Text.GetToken(Token).Kind == TTokenKind::Word && found != names.end()) return found - names.begin();
    Text.RaiseExpected(Token, "one of " + Joined(names) + DidYouMean(name, names));
}

std::int64_t LimitedInteger(const TFormText& Text, const TProperty& Property, std::size_t Token) {
    const std::int64_t value = IntegerOf(Text, Token);
    if (value >= Property.Lowest && value <= Property.Highest) return value;
    Text.RaiseExpected(Token,
                       "a whole number from " + Number(Property.Lowest) + " to " + Number(Property.Highest));
}

std::int64_t EnumerationOf(const TFormText& Text, const TProperty& Property, std::size_t Token) {
    if (Property.ValueNames.empty()) return LimitedInteger(Text, Property, Token);
    return IndexOf(Text, Property, Token);
}

std::int64_t FlagsOf(const TFormText& Text, const TProperty& Property, std::size_t First, std::size_t Last) {
    if (Text.GetToken(First).Kind != TTokenKind::OpenSet)
        Text.RaiseExpected(First, "a set: [] or names in brackets");
    std::int64_t mask = 0;
    for (std::size_t i = First + 1; i + 1 < Last; i += 2) {
        mask |= std::int64_t(1) << IndexOf(Text, Property, i);
        if (Text.GetToken(i + 1).Kind != TTokenKind::Comma && i + 2 < Last)
            Text.RaiseExpected(i + 1, "a comma");
        if (Text.GetToken(i + 1).Kind == TTokenKind::Comma && i + 3 == Last)
            Text.RaiseExpected(i + 2, "a name");
    }
    return mask;
}

std::int64_t ColorOf(const TFormText& Text, std::size_t Token) {
    const bool isOne =
        Text.GetToken(Token).Kind == TTokenKind::Word || Text.GetToken(Token).Kind == TTokenKind::Number;
    if (const auto color = isOne ? ColorFromText(Text.TextOf(Token)) : std::nullopt) return *color;
    Text.RaiseExpected(Token, "a colour (a name such as clRed, $BBGGRR, #RRGGBB or a number)");
}

std::vector<double> RealsOf(const TFormText& Text, std::size_t First, std::size_t Last) {
    if (Text.GetToken(First).Kind != TTokenKind::Open) Text.RaiseExpected(First, "a list in parentheses");
    std::vector<double> values;
    for (std::size_t i = First + 1; i + 1 < Last; ++i) values.push_back(RealOf(Text, i));
    return values;
}

std::string TextOf(const TFormText& Text, std::size_t Token) {
    if (Text.GetToken(Token).Kind != TTokenKind::Text) Text.RaiseExpected(Token, "a text in quotes");
    return Text.Unescaped(Token);
}

} // namespace

double RealOf(const TFormText& Text, std::size_t Token) {
    std::string_view form = Text.TextOf(Token);
    if (const auto nan = NanOf(form)) return *nan;
    if (form.size() > 1 && form[0] == '+' && form[1] != '-') form.remove_prefix(1);
    double value = 0;
    const auto read = std::from_chars(form.data(), form.data() + form.size(), value);
    if (read.ptr != form.data() + form.size() || read.ec == std::errc::invalid_argument)
        Text.RaiseExpected(Token, "a number");
    if (read.ec != std::errc()) Text.RaiseExpected(Token, "a number from 4.9e-324 to 1.7e308");
    return value;
}

std::int64_t IntegerOf(const TFormText& Text, std::size_t Token) {
    const std::string_view form = Text.TextOf(Token);
    std::int64_t value = 0;
    const auto read = std::from_chars(form.data(), form.data() + form.size(), value);
    if (read.ec != std::errc() || read.ptr != form.data() + form.size())
        Text.RaiseExpected(Token, "a whole number");
    return value;
}

bool BoolOf(const TFormText& Text, std::size_t Token) {
    if (SameText(Text.TextOf(Token), "true")) return true;
    if (!SameText(Text.TextOf(Token), "false")) Text.RaiseExpected(Token, "True or False");
    return false;
}

TPropertyValue ValueOf(const TFormText& Text, const TProperty& Property, std::size_t First,
                       std::size_t Last) {
    switch (Property.Kind) {
    case TPropertyKind::Bool: return BoolOf(Text, First);
    case TPropertyKind::Integer: return LimitedInteger(Text, Property, First);
    case TPropertyKind::Real: return RealOf(Text, First);
    case TPropertyKind::Text: return TextOf(Text, First);
    case TPropertyKind::Enumeration: return EnumerationOf(Text, Property, First);
    case TPropertyKind::Flags: return FlagsOf(Text, Property, First, Last);
    case TPropertyKind::Color: return ColorOf(Text, First);
    case TPropertyKind::Reals: return RealsOf(Text, First, Last);
    case TPropertyKind::Reference:
    case TPropertyKind::Event:
    case TPropertyKind::SubObject: break;
    }
    return {};
}

} // namespace kx
