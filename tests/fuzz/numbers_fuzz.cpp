// Numbers to text and back, for all doubles and for any text.

#include "fuzz/fuzz.h"

#include <kxgraph/numeric/Kxstrings.h>
#include <kxgraph/platform/text/numbertext.h>

namespace kx::fuzz::numberstarget {

/// Reads back what was written; Digits significant digits were kept.
void DemandReadsBack(double Value, const std::string& Text, int Digits) {
    int position = 0;
    const double back = Val(Text, position);
    if (!std::isfinite(Value)) return KX_DEMAND(position != 0, +Text);
    KX_DEMAND(position == 0, +Text);
    const double part = 0.5000001 * std::pow(10.0, 1 - Digits) + std::numeric_limits<double>::epsilon();
    // The largest ones are rounded up to what no double holds.
    if (std::isinf(back)) return KX_DEMAND(std::isinf(Value * (1 + part)), +Text);
    const double tolerance =
        std::fabs(Value) * part + 5e-324; // a denormal number has fewer digits than its text
    KX_DEMAND(std::fabs(back - Value) <= tolerance, +Text);
}

void DemandNumbers(double Value, int Precision, int Digits) {
    DemandReadsBack(Value, FloatToStrGeneral(Value, Precision, Digits), std::clamp(Precision, 1, 18));
    DemandReadsBack(Value, RealToAmericanStr(Value), 14);
    DemandReadsBack(Value, Float8_4(Value), 8);
    const std::string scientific = ScientificText(Value);
    KX_DEMAND(scientific.size() == 23, +scientific);
    DemandReadsBack(Value, scientific, 15);
    KX_DEMAND(std::isnan(Value) || FloatToStrGeneral(Value, 17, 0) == "0" || !std::isfinite(Value) || [&] {
        int p;
        return Val(FloatToStrGeneral(Value, 17, 0), p) == Value;
    }());
    const std::string fixed = FloatToStrFixed(Value, 15, Digits);
    if (std::fabs(Value) < 1e15) {
        int position = 0;
        const double back = Val(fixed, position), unit = std::pow(10.0, -std::clamp(Digits, 0, 18));
        KX_DEMAND(position == 0 && std::fabs(back - Value) <= 0.51 * unit + std::fabs(Value) * 1e-14, +fixed);
    }
    const std::string limited = RealToStrDigits(Value, Digits);
    KX_DEMAND(!limited.empty());
}

void DemandTexts(std::string Text) {
    int position = 0;
    const double value = Val(Text, position);
    KX_DEMAND(position >= 0 && position <= int(Text.size()) + 1);
    KX_DEMAND(IsNumber(Text) == (position == 0));
    KX_DEMAND(!std::isnan(value));
    if (position == 0) {
        const double reference = std::strtod(Text.c_str(), nullptr);
        KX_DEMAND(value == reference, +Text);
    }
    const std::int32_t integer = ValInt(Text, position);
    if (position == 0) KX_DEMAND(integer == std::strtol(Text.c_str(), nullptr, 10), +Text);

    const std::string copy = Text;
    while (!Text.empty()) { // taking numbers off ends
        const std::size_t before = Text.size();
        try {
            ExtractOneReal(Text);
        } catch (const Exception&) {
        }
        if (Text.size() == before) EraseToNextNumber(Text);
        KX_DEMAND(Text.size() < before || before == 0);
    }
    for (const char token : {'x', '(', 'E'}) {
        const std::string once = ReplaceTokenWithBracket(copy, token, "(1)");
        KX_DEMAND(once.size() >= copy.size());
        KX_DEMAND(ContainsToken(copy, token) || ReplaceTokenWith(copy, token, "..") == copy);
    }
}

KX_FUZZ(numbers) {
    const int precision = Data.Between(0, 20), digits = Data.Between(0, 20);
    DemandNumbers(Data.Real(), precision, digits);
    const std::int32_t integer = Data.Integer();
    int position = 0;
    KX_DEMAND(ValInt(IntToStrDigits(integer, 0), position) == integer && position == 0);
    SecondsToStr(std::abs(integer / 2));
    ColumnToCharHeader(integer);
    DemandTexts(Data.Rest());
}

} // namespace kx::fuzz::numberstarget
