// The values of fields for numbers: read, limited, stepped and shown.

#include <kxgraph/editing/Kxnumberedit.h>

#include <kxgraph/platform/objects/published.h>
#include <kxgraph/platform/text/numbertext.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace kx {

namespace {

/// Text in point form: no blanks around it, one comma a point, a minus sign of typesetters a hyphen.
std::string PointForm(const std::string& Text) {
    std::string plain(Trimmed(Text));
    constexpr std::string_view CMinus = "\u2212";
    if (plain.starts_with(CMinus)) plain.replace(0, CMinus.size(), "-");
    if (plain.starts_with('+') && plain.size() > 1 && plain[1] != '-' && plain[1] != '+') plain.erase(0, 1);
    const bool one = std::ranges::count(plain, ',') == 1 && plain.find('.') == plain.npos;
    if (one) plain[plain.find(',')] = '.';
    return plain;
}

std::string NoNumber(const std::string& Text, const char* Kind) {
    if (Trimmed(Text).empty()) return "A number is missing";
    return "'" + Abridged(Trimmed(Text)) + "' is no " + Kind;
}

/// What is wrong with a value outside the range; empty for one in it.
template <class T, class F>
std::string OutOfRange(T Value, T Least, T Most, const F& ToText) {
    if (!(Least < Most) || (Value >= Least && Value <= Most)) return {};
    return ToText(Value) +
           (Value < Least ? " is less than " + ToText(Least) : " is more than " + ToText(Most));
}

} // namespace

TKxRealEdit::TKxRealEdit(TComponent* Owner) : TKxNumberEdit(Owner) { ShowValue(false); }

double TKxRealEdit::Limited(double Value) const {
    constexpr double CMost = std::numeric_limits<double>::max();
    if (std::isnan(Value)) return 0;
    if (IsIn(csLoading) || !(FMinValue < FMaxValue)) return std::clamp(Value, -CMost, CMost);
    return std::clamp(Value, FMinValue, FMaxValue);
}

void TKxRealEdit::SetValue(double Value) {
    const double value = Limited(Value);
    const bool another = value != FValue;
    FValue = value;
    ShowValue(another);
}

void TKxRealEdit::SetMinValue(double Value) {
    FMinValue = Value;
    RulesChanged();
}

void TKxRealEdit::SetMaxValue(double Value) {
    FMaxValue = Value;
    RulesChanged();
}

void TKxRealEdit::SetDigits(int Digits) {
    FDigits = std::clamp(Digits, 1, 18);
    RulesChanged();
}

std::string TKxRealEdit::ValueText() const { return FloatToStrGeneral(FValue, FDigits, 0); }

std::string TKxRealEdit::TakeValue(const std::string& Text) {
    int position = 0;
    const double value = Val(PointForm(Text), position);
    if (position != 0 || !std::isfinite(value)) return NoNumber(Text, "number");
    const std::string error = OutOfRange(value, FMinValue, FMaxValue, FloatToStr);
    if (error.empty()) FValue = value;
    return error;
}

/// The value is that of the shown text, so that no binary errors add up.
void TKxRealEdit::AddSteps(int Steps) {
    const double before = FValue;
    FValue = Limited(FValue + Steps * FIncrement);
    int position = 0;
    const double shown = Val(PointForm(FloatToStrGeneral(FValue, 15, 0)), position);
    if (position == 0) FValue = Limited(shown);
    ShowValue(FValue != before);
}

const TPropertyTable& TKxRealEdit::Properties() {
    using C = TKxRealEdit;
    static const TPropertyTable table(
        "TKxRealEdit", &TKxNumberEdit::Properties(),
        {Published<&C::GetMinValue, &C::SetMinValue>("MinValue", 0.0, "Least value, if less than MaxValue"),
         Published<&C::GetMaxValue, &C::SetMaxValue>("MaxValue", 0.0,
                                                     "Greatest value, if more than MinValue"),
         Published<&C::GetIncrement, &C::SetIncrement>("Increment", 1.0, "What an arrow or a notch adds"),
         Published<&C::GetDigits, &C::SetDigits>("Digits", 15, "Significant digits that are shown, 1 to 18"),
         Published<&C::GetValue, &C::SetValue>("Value", 0.0, "The number")});
    return table;
}

TKxIntegerEdit::TKxIntegerEdit(TComponent* Owner) : TKxNumberEdit(Owner) { ShowValue(false); }

int TKxIntegerEdit::Limited(std::int64_t Value) const {
    const bool any = IsIn(csLoading) || FMinValue >= FMaxValue;
    const std::int64_t least = any ? std::numeric_limits<int>::min() : FMinValue;
    const std::int64_t most = any ? std::numeric_limits<int>::max() : FMaxValue;
    return static_cast<int>(std::clamp(Value, least, most));
}

void TKxIntegerEdit::SetValue(int Value) {
    const int value = Limited(Value);
    const bool another = value != FValue;
    FValue = value;
    ShowValue(another);
}

void TKxIntegerEdit::SetMinValue(int Value) {
    FMinValue = Value;
    RulesChanged();
}

void TKxIntegerEdit::SetMaxValue(int Value) {
    FMaxValue = Value;
    RulesChanged();
}

std::string TKxIntegerEdit::TakeValue(const std::string& Text) {
    int position = 0;
    const int value = ValInt(PointForm(Text), position);
    if (position != 0) return NoNumber(Text, "whole number");
    const std::string error =
        OutOfRange(value, FMinValue, FMaxValue, [](int Number) { return std::to_string(Number); });
    if (error.empty()) FValue = value;
    return error;
}

void TKxIntegerEdit::AddSteps(int Steps) {
    const int before = FValue;
    FValue = Limited(FValue + std::int64_t(Steps) * FIncrement);
    ShowValue(FValue != before);
}

const TPropertyTable& TKxIntegerEdit::Properties() {
    using C = TKxIntegerEdit;
    static const TPropertyTable table(
        "TKxIntegerEdit", &TKxNumberEdit::Properties(),
        {Published<&C::GetMinValue, &C::SetMinValue>("MinValue", 0, "Least value, if less than MaxValue"),
         Published<&C::GetMaxValue, &C::SetMaxValue>("MaxValue", 0, "Greatest value, if more than MinValue"),
         Published<&C::GetIncrement, &C::SetIncrement>("Increment", 1, "What an arrow or a notch adds"),
         Published<&C::GetValue, &C::SetValue>("Value", 0, "The number")});
    return table;
}

const TPropertyTable& TKxRealSpin::Properties() {
    static const TPropertyTable table("TKxRealSpin", &TKxRealEdit::Properties(), {});
    return table;
}

const TPropertyTable& TKxIntegerSpin::Properties() {
    static const TPropertyTable table("TKxIntegerSpin", &TKxIntegerEdit::Properties(), {});
    return table;
}

} // namespace kx
