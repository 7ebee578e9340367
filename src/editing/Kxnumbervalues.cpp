// The values of fields for numbers: read, limited, stepped and shown.

#include <kxgraph/editing/Kxnumberedit.h>

#include <kxgraph/platform/objects/published.h>
#include <kxgraph/platform/text/numbertext.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

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

/// The rows that fields for any numbers have.
template <class C>
std::vector<TProperty> RangeRows() {
    using T = decltype(std::declval<const C&>().GetValue());
    return {
        Published<&C::GetMinValue, &C::SetMinValue>("MinValue", T(0), "Least value, if less than MaxValue"),
        Published<&C::GetMaxValue, &C::SetMaxValue>("MaxValue", T(0),
                                                    "Greatest value, if more than MinValue"),
        Published<&C::GetIncrement, &C::SetIncrement>("Increment", T(1), "What an arrow or a notch adds"),
        Published<&C::GetValue, &C::SetValue>("Value", T(0), "The number")};
}

} // namespace

template <class T>
template <class TWide>
T TKxRangeEdit<T>::Limited(TWide Value) const {
    if (Value != Value) return 0; // NaN
    const bool any = IsIn(csLoading) || !(FMinValue < FMaxValue);
    const TWide least = any ? std::numeric_limits<T>::lowest() : FMinValue;
    const TWide most = any ? std::numeric_limits<T>::max() : FMaxValue;
    return static_cast<T>(std::clamp(Value, least, most));
}

template <class T>
void TKxRangeEdit<T>::SetValue(T Value) {
    TakeNumber(Limited(Value));
}

template <class T>
void TKxRangeEdit<T>::TakeNumber(T Value) {
    const bool another = Value != FValue;
    FValue = Value;
    ShowValue(another);
}

template <class T>
void TKxRangeEdit<T>::SetRule(T& Rule, T Value) {
    Rule = Value;
    RulesChanged();
}

template <class T>
std::string TKxRangeEdit<T>::TakeValue(const std::string& Text) {
    const std::optional<T> value = NumberOf(PointForm(Text));
    if (!value) return NoNumber(Text, KindOfNumber());
    if (FMinValue < FMaxValue && *value < FMinValue)
        return NumberText(*value) + " is less than " + NumberText(FMinValue);
    if (FMinValue<FMaxValue&& * value> FMaxValue)
        return NumberText(*value) + " is more than " + NumberText(FMaxValue);
    FValue = *value;
    return {};
}

template class TKxRangeEdit<double>;
template class TKxRangeEdit<int>;

TKxRealEdit::TKxRealEdit(TComponent* Owner) : TKxRangeEdit(Owner) { ShowValue(false); }

void TKxRealEdit::SetDigits(int Digits) {
    FDigits = std::clamp(Digits, 1, 18);
    RulesChanged();
}

std::string TKxRealEdit::ValueText() const { return FloatToStrGeneral(GetValue(), FDigits, 0); }

std::string TKxRealEdit::NumberText(double Number) const { return FloatToStr(Number); }

std::optional<double> TKxRealEdit::NumberOf(const std::string& Text) const {
    int position = 0;
    const double value = Val(Text, position);
    return position == 0 && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

/// The value is that of the shown text, so that no binary errors add up.
double TKxRealEdit::Stepped(int Steps) const {
    const double value = Limited(GetValue() + Steps * GetIncrement());
    const auto shown = NumberOf(PointForm(FloatToStrGeneral(value, 15, 0)));
    return shown ? Limited(*shown) : value;
}

const TPropertyTable& TKxRealEdit::Properties() {
    using C = TKxRealEdit;
    static const TPropertyTable table = [] {
        std::vector<TProperty> rows = RangeRows<C>();
        rows.push_back(Published<&C::GetDigits, &C::SetDigits>("Digits", 15,
                                                               "Significant digits that are shown, 1 to 18"));
        return TPropertyTable("TKxRealEdit", &TKxNumberEdit::Properties(), std::move(rows));
    }();
    return table;
}

TKxIntegerEdit::TKxIntegerEdit(TComponent* Owner) : TKxRangeEdit(Owner) { ShowValue(false); }

std::optional<int> TKxIntegerEdit::NumberOf(const std::string& Text) const {
    int position = 0;
    const int value = ValInt(Text, position);
    return position == 0 ? std::optional(value) : std::nullopt;
}

int TKxIntegerEdit::Stepped(int Steps) const {
    return Limited(GetValue() + std::int64_t(Steps) * GetIncrement());
}

const TPropertyTable& TKxIntegerEdit::Properties() {
    static const TPropertyTable table("TKxIntegerEdit", &TKxNumberEdit::Properties(),
                                      RangeRows<TKxIntegerEdit>());
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
