#pragma once
// The editors of what is chosen among what the form has: components, results of an analysis, events.

#include <kxgraph/design/Kxpropertyeditor.h>

namespace kx {

/// The components of the form that are of the right class, by name; an empty text for none.
class TKxReferenceEditor : public TKxPropertyEditor {
public:
    using TKxPropertyEditor::TKxPropertyEditor;
    TKxEditorKind GetKind() const override { return TKxEditorKind::Choice; }
    /// The note is the component's class.
    std::vector<TKxPropertyChoice> GetChoices() const override;

protected:
    /// Refuses components of another class and those that are being edited.
    TPropertyValue ValueOf(const std::string& Text) const override;
    /// Whether a component of the form may be referred to.
    bool Takes(const TComponent& Component) const;
};

/// A choice that is no component yet.
inline constexpr std::string_view CNewSecondaryAxis = "(new secondary axis)";

/// An axis to draw a series against. A secondary axis is made on request: it stands at the free side of the
/// graph, belongs to the form and is named SecondaryAxis1, 2, ...
class TKxAxisEditor : public TKxReferenceEditor {
public:
    using TKxReferenceEditor::TKxReferenceEditor;
    std::vector<TKxPropertyChoice> GetChoices() const override;
    void SetText(const std::string& Text, bool IsContinued = false) override;
};

/// The key of a result: the keys that the series of the same object really has, with their present values.
/// Other keys can be typed; they may come with the next calculation.
class TKxResultKeyEditor : public TKxPropertyEditor {
public:
    using TKxPropertyEditor::TKxPropertyEditor;
    TKxEditorKind GetKind() const override { return TKxEditorKind::Suggestions; }
    std::vector<TKxPropertyChoice> GetChoices() const override;
};

/// Handlers by their registered names, of which those of the property's type are offered. On a form that is
/// designed any other name can be typed: the program that the form is made for registers it.
class TKxEventEditor : public TKxPropertyEditor {
public:
    using TKxPropertyEditor::TKxPropertyEditor;
    TKxEditorKind GetKind() const override;
    std::vector<TKxPropertyChoice> GetChoices() const override;

protected:
    /// A handler without a name is "(assigned)": the program's own, which a form file does not hold.
    std::string TextOf(const TPropertyValue& Value) const override;
    TPropertyValue ValueOf(const std::string& Text) const override;

private:
    bool Takes(const TEventValue& Handler) const;
    TPropertyValue NoHandler() const;
};

} // namespace kx
