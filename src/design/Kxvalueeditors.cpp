#include <kxgraph/design/Kxvalueeditors.h>

#include <kxgraph/design/Kxdesignrows.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/platform/text/colornames.h>
#include <kxgraph/platform/text/colors.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <array>

namespace kx {

namespace {

std::string FlagText(bool Value) { return Value ? "True" : "False"; }

/// Other texts are refused by whoever reads numbers.
std::string WithPoint(std::string Text) {
    if (std::ranges::count(Text, ',') == 1 && Text.find('.') == Text.npos)
        std::ranges::replace(Text, ',', '.');
    return Text;
}

} // namespace

std::string TKxFlagEditor::TextOf(const TPropertyValue& Value) const {
    return FlagText(std::get<bool>(Value));
}

TPropertyValue TKxNumberEditor::ValueOf(const std::string& Text) const {
    const TProperty& row = FPlace.GetRow();
    TPropertyValue value =
        TKxPropertyEditor::ValueOf(row.Kind == TPropertyKind::Real ? WithPoint(Text) : Text);
    const auto* whole = std::get_if<std::int64_t>(&value);
    if (whole && (*whole < row.Lowest || *whole > row.Highest))
        RaiseExpected(Text, "a whole number from " + std::to_string(row.Lowest) + " to " +
                                std::to_string(row.Highest));
    return value;
}

std::vector<TKxPropertyChoice> TKxChoiceEditor::GetChoices() const {
    std::vector<TKxPropertyChoice> choices;
    for (const std::string_view name : FPlace.GetRow().ValueNames) choices.push_back({std::string(name), ""});
    return choices;
}

TKxPropertyEditors TKxSetEditor::MakeParts() const {
    TKxPropertyEditors parts;
    for (std::size_t i = 0; i < FPlace.GetRow().ValueNames.size(); ++i)
        parts.push_back(std::make_unique<TKxMemberEditor>(FPlace, i));
    return parts;
}

std::string TKxSetEditor::TextOf(const TPropertyValue& Value) const {
    return "[" + TKxPropertyEditor::TextOf(Value) + "]";
}

TPropertyValue TKxSetEditor::ValueOf(const std::string& Text) const {
    std::string_view names = Trimmed(Text);
    if (names.size() > 1 && names.front() == '[' && names.back() == ']')
        names = Trimmed(names.substr(1, names.size() - 2));
    return TKxPropertyEditor::ValueOf(std::string(names));
}

std::string TKxMemberEditor::TextOf(const TPropertyValue& Value) const { return FlagText(IsIn(Value)); }

bool TKxMemberEditor::IsMixed() const {
    const bool first = IsIn(FPlace.GetValue());
    return std::ranges::any_of(FPlace.GetTargets(),
                               [&](const TKxPropertyPlace::TTarget& T) { return IsIn(T.Get()) != first; });
}

void TKxMemberEditor::SetText(const std::string& Text, bool IsContinued) {
    TProperty flag;
    const std::string name = GetName();
    flag.Name = name;
    flag.Kind = TPropertyKind::Bool;
    const bool isIn = std::get<bool>(PropertyFromText(flag, Text, {}));
    const std::int64_t bit = std::int64_t(1) << FMember;
    FPlace.Run(
        [&] {
            for (const auto& target : FPlace.GetTargets()) {
                const auto mask = std::get<std::int64_t>(target.Get());
                target.Row().Set(target.Object(), isIn ? mask | bit : mask & ~bit);
            }
        },
        IsContinued);
}

std::vector<TKxPropertyChoice> TKxColorEditor::GetChoices() const {
    std::vector<TKxPropertyChoice> choices;
    for (const std::string_view name : ColorNames())
        choices.push_back({std::string(name), ColorToHtml(ColorFromText(name).value_or(clBlack))});
    return choices;
}

TKxPropertyEditors TKxObjectEditor::MakeParts() const {
    TKxPropertyEditors parts;
    for (const TProperty* row : std::get<TPersistent*>(FPlace.GetValue())->PublishedProperties().All())
        if (auto inner = FPlace.Inner(*row)) parts.push_back(MakePropertyEditor(std::move(*inner)));
    return parts;
}

std::string TKxObjectEditor::TextOf(const TPropertyValue& Value) const {
    constexpr auto telling = std::to_array<std::string_view>(
        {"Name", "Size", "Style", "Color", "Width"}); // of fonts, pens, brushes
    const TPersistent& object = *std::get<TPersistent*>(Value);
    const TProperty* visible = object.PublishedProperties().Find("Visible");
    if (visible && !std::get<bool>(visible->Get(object))) return "hidden";
    std::string text;
    for (const std::string_view name : telling) {
        const TProperty* row = object.PublishedProperties().Find(name);
        const std::string part = row ? PropertyToText(*row, row->Get(object)) : std::string();
        if (!part.empty()) text.append(text.empty() ? "" : ", ").append(part);
    }
    return text.empty() ? object.ClassName() : text;
}

TKxEditorKind TKxRealsEditor::GetKind() const {
    const std::string_view type = FPlace.GetRow().TypeName;
    if (type == CCoefficientsType) return TKxEditorKind::Coefficients;
    return type == CValuesType ? TKxEditorKind::Values : TKxEditorKind::Text;
}

std::string TKxRealsEditor::TextOf(const TPropertyValue& Value) const {
    constexpr std::size_t few = 8;
    const auto& values = std::get<std::vector<double>>(Value);
    if (values.size() <= few) return TKxPropertyEditor::TextOf(Value);
    return "(" + std::to_string(values.size()) + " values)";
}

/// What is shown of many numbers does not stand for them: whoever leaves it as it is has changed nothing.
TPropertyValue TKxRealsEditor::ValueOf(const std::string& Text) const {
    TPropertyValue value = FPlace.GetValue();
    if (Text == TextOf(value)) return value;
    return TKxPropertyEditor::ValueOf(Text);
}

} // namespace kx
