#include <kxgraph/platform/data/field.h>

#include <kxgraph/platform/data/datetext.h>
#include <kxgraph/platform/text/numbertext.h>
#include <kxgraph/platform/text/text.h>

#include <charconv>
#include <cmath>

namespace kx {

namespace {

constexpr std::string_view CWanted[] = {"text", "whole number", "number", "date", "date"};

template <class T>
std::string Plain(T Value) {
    char text[40];
    return {text, std::to_chars(text, text + sizeof text, Value).ptr};
}

} // namespace

void TField::Refuse(const std::string& Text) const {
    throw EConvertError("'" + Abridged(Text) + "' is not a " + std::string(CWanted[FDataType]) + " (field " +
                        FFieldName + ")");
}

double TField::GetAsFloat() const {
    const TFieldValue value = GetValue();
    if (const auto* number = std::get_if<double>(&value)) return *number;
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return double(*whole);
    const auto* text = std::get_if<std::string>(&value);
    if (!text || text->empty()) return 0;
    int position = 0;
    const double number = Val(*text, position);
    if (position != 0)
        throw EConvertError("'" + Abridged(*text) + "' is not a number (field " + FFieldName + ")");
    return number;
}

std::string TField::GetAsString() const {
    TFieldValue value = GetValue();
    if (auto* text = std::get_if<std::string>(&value)) return std::move(*text);
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return Plain(*whole);
    const auto* number = std::get_if<double>(&value);
    if (!number) return "";
    if (!IsDate()) return Plain(*number);
    return FDataType == ftDate ? DateText(*number) : DateTimeText(*number);
}

std::string TField::GetDisplayText() const {
    if (FDataType != ftNumber) return GetAsString();
    const TFieldValue value = GetValue();
    return value.index() == 0 ? "" : FloatToStr(std::get<double>(value));
}

bool TField::IsBlank() const {
    const TFieldValue value = GetValue();
    const auto* text = std::get_if<std::string>(&value);
    return text ? text->empty() : value.index() == 0;
}

TFieldValue TField::FromText(const std::string& Text) const {
    if (FDataType == ftText) return Text;
    if (Text.empty()) return {};
    if (IsDate()) {
        const auto moment = MomentOfText(Text);
        if (!moment) Refuse(Text);
        return FromFloat(*moment);
    }
    if (FDataType == ftInteger) {
        std::int64_t whole = 0;
        const auto [end, error] = std::from_chars(Text.data(), Text.data() + Text.size(), whole);
        if (error != std::errc() || end != Text.data() + Text.size()) Refuse(Text);
        return whole;
    }
    int position = 0;
    const double number = Val(Text, position);
    if (position != 0) Refuse(Text);
    return number;
}

TFieldValue TField::FromFloat(double Value) const {
    constexpr double CBound = 9223372036854775808.0, CDay = 86400;
    if (FDataType == ftText) return Plain(Value);
    if (FDataType == ftDate) return std::floor(Value / CDay) * CDay;
    if (FDataType != ftInteger) return Value;
    if (Value != std::trunc(Value) || !(std::fabs(Value) < CBound)) Refuse(Plain(Value));
    return std::int64_t(Value);
}

void TField::SetValue(const TFieldValue& Value) {
    if (const auto* text = std::get_if<std::string>(&Value)) return SetAsString(*text);
    if (const auto* number = std::get_if<double>(&Value)) return SetAsFloat(*number);
    const auto* whole = std::get_if<std::int64_t>(&Value);
    if (!whole) return Clear();
    if (FDataType == ftInteger) return FOwner.SetFieldValue(FIndex, *whole);
    if (FDataType == ftText) return FOwner.SetFieldValue(FIndex, Plain(*whole));
    SetAsFloat(double(*whole));
}

void TField::SetAsFloat(double Value) { FOwner.SetFieldValue(FIndex, FromFloat(Value)); }

void TField::SetAsString(const std::string& Text) { FOwner.SetFieldValue(FIndex, FromText(Text)); }

} // namespace kx
