#include "kxplot/plan/expression.h"

#include "kxplot/options/usageerror.h"

#include <kxgraph/formula/Kxformula.h>
#include <kxgraph/platform/text/suggest.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <memory>

namespace kxplot {

using namespace kx;

namespace {

bool IsDigit(char C) { return C >= '0' && C <= '9'; }
bool BeginsName(char C) { return (C >= 'a' && C <= 'z') || (C >= 'A' && C <= 'Z') || C == '_'; }
bool IsOfName(char C) { return BeginsName(C) || IsDigit(C); }

/// The number that begins at At, exponent included, ends there.
std::size_t EndOfNumber(std::string_view Text, std::size_t At) {
    while (At < Text.size() && (IsDigit(Text[At]) || Text[At] == '.')) ++At;
    if (At < Text.size() && (Text[At] == 'e' || Text[At] == 'E')) {
        std::size_t digits = At + 1;
        if (digits < Text.size() && (Text[digits] == '+' || Text[digits] == '-')) ++digits;
        if (digits < Text.size() && IsDigit(Text[digits])) At = digits;
    }
    while (At < Text.size() && IsDigit(Text[At])) ++At;
    return At;
}

std::size_t EndOfName(std::string_view Text, std::size_t At) {
    while (At < Text.size() && IsOfName(Text[At])) ++At;
    return At;
}

bool IsCalled(std::string_view Text, std::size_t End) {
    while (End < Text.size() && Text[End] == ' ') ++End;
    return End < Text.size() && Text[End] == '(';
}

/// What a formula stands for a column with.
std::string NameOf(std::size_t Place) { return "column" + std::to_string(Place + 1) + "_"; }

/// Of a message about the formula with plain names what is true of the one that was given, too.
std::string ReasonIn(const std::string& Message) {
    const auto begin = Message.find("': "), end = Message.rfind(" at character ");
    if (begin == Message.npos || Message.find("column", begin) != Message.npos) return {};
    return ": " + Message.substr(begin + 3, end == Message.npos ? end : end - begin - 3);
}

} // namespace

bool TExpression::IsMeant(std::string_view Text) { return Text.find_first_of("+-*/^(`<>") != Text.npos; }

/// Walks through the text and puts plain names in the place of columns.
class TExpression::TReader {
public:
    TReader(TExpression& Expression, const char* Option, const TFind& Find,
            std::span<const std::string> Headers)
        : FExpression(Expression), FText(Expression.FText), FOption(Option), FFind(Find), FHeaders(Headers) {}

    void Read() {
        while (FAt < FText.size()) {
            const char next = FText[FAt];
            if (next == '`')
                TakeQuoted();
            else if (IsDigit(next) || next == '.')
                Keep(EndOfNumber(FText, FAt));
            else if (BeginsName(next))
                TakeName();
            else
                Keep(FAt + 1);
        }
    }

private:
    void Keep(std::size_t End) {
        FExpression.FFormula += FText.substr(FAt, End - FAt);
        FAt = End;
    }
    void TakeQuoted() {
        const std::size_t end = FText.find('`', FAt + 1);
        if (end == FText.npos) FailUsage(FOption, FText, "has a backtick without its partner");
        TakeColumn(FText.substr(FAt + 1, end - FAt - 1));
        FAt = end + 1;
    }
    void TakeName() {
        const std::size_t end = EndOfName(FText, FAt);
        const std::string name = FText.substr(FAt, end - FAt);
        const bool isConstant = (name == "pi" || name == "e") && FFind(name) < 0;
        if (IsCalled(FText, end) || isConstant) return Keep(end);
        TakeColumn(name);
        FAt = end;
    }
    void TakeColumn(const std::string& Name) {
        const int column = FFind(Name);
        const std::vector<std::string_view> known(FHeaders.begin(), FHeaders.end());
        if (column < 0)
            FailUsage(FOption, FText,
                      "names " + Quoted(Name) + ", which is no column" + DidYouMean(Name, known));
        auto& columns = FExpression.FColumns;
        auto place = std::find(columns.begin(), columns.end(), column);
        if (place == columns.end()) place = columns.insert(place, column);
        FExpression.FFormula += NameOf(std::size_t(place - columns.begin()));
    }

    TExpression& FExpression;
    const std::string& FText;
    const char* FOption;
    const TFind& FFind;
    std::span<const std::string> FHeaders;
    std::size_t FAt = 0;
};

TExpression::TExpression(const char* Option, const std::string& Text, const TFind& Find,
                         std::span<const std::string> Headers)
    : FText(Text) {
    TReader(*this, Option, Find, Headers).Read();
    try {
        TKxFormula formula(FFormula);
    } catch (const EFormulaError& error) {
        FailUsage(Option, Text, "cannot be understood" + ReasonIn(error.what()));
    }
}

std::function<double(std::span<const double>)> TExpression::RowFunction() const {
    const auto formula = std::make_shared<TKxFormula>(FFormula);
    std::vector<std::string> names;
    for (std::size_t i = 0; i < FColumns.size(); ++i) names.push_back(NameOf(i));
    formula->SetCoefficientNames(names);
    return [formula](std::span<const double> Row) { return formula->Evaluate(0, Row); };
}

} // namespace kxplot
