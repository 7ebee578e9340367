#pragma once
// Texts for rows of an inspector that they do not have.

#include <kxgraph/design/Kxgridtext.h>
#include <kxgraph/design/Kxinspector.h>
#include <kxgraph/design/Kxreferenceeditors.h>

#include <string>

namespace kx::test {

/// Empty where there is none: nothing to choose.
inline std::string OtherText(const TKxInspectorRow& Row) {
    for (const TKxPropertyChoice& choice : Row.Editor->GetChoices())
        if (choice.Text != Row.Text && !choice.Text.empty() && choice.Text != CNewSecondaryAxis)
            return choice.Text;
    const TProperty& property = Row.Editor->GetPlace().GetRow();
    if (property.Kind == TPropertyKind::Flags)
        return Row.Text == "[]" ? "[" + Row.Parts[0]->Name + "]" : "[]";
    switch (Row.Editor->GetKind()) {
    case TKxEditorKind::Number:
        if (property.Kind != TPropertyKind::Real) return std::to_string(std::stol(Row.Text) + 100);
        return GridText(0.4 * std::stod(Row.Text) + 0.25);
    case TKxEditorKind::Values:
    case TKxEditorKind::Coefficients: return "1;2.5;-3";
    case TKxEditorKind::Choice:
    case TKxEditorKind::Sample: return {};
    default: return "Other" + Row.Text;
    }
}

} // namespace kx::test
