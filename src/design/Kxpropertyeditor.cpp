#include <kxgraph/design/Kxpropertyeditor.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/platform/text/text.h>

#include <utility>

namespace kx {

std::string TKxPropertyEditor::GetHelp() const { return std::string(FPlace.GetRow().Help); }

std::string TKxPropertyEditor::TextOf(const TPropertyValue& Value) const {
    return PropertyToText(FPlace.GetRow(), Value);
}

TPropertyValue TKxPropertyEditor::ValueOf(const std::string& Text) const {
    return PropertyFromText(FPlace.GetRow(), Text,
                            [this](std::string_view Name) { return FPlace.FindComponent(Name); });
}

void TKxPropertyEditor::SetText(const std::string& Text, bool IsContinued) {
    if (IsReadOnly()) throw EPropertyError(FPlace.GetTold() + " is read only");
    FPlace.Set(ValueOf(Text), IsContinued);
}

void TKxPropertyEditor::RaiseExpected(const std::string& Text, const std::string& Expected) const {
    throw EPropertyError(GetName() + ": '" + Abridged(Text) + "' is not " + Expected);
}

namespace {

std::vector<TKxPropertyEditorClass>& Editors() {
    static std::vector<TKxPropertyEditorClass> editors;
    return editors;
}

} // namespace

void RegisterPropertyEditor(const TKxPropertyEditorClass& Class) { Editors().push_back(Class); }

std::unique_ptr<TKxPropertyEditor> MakePropertyEditor(TKxPropertyPlace Place) {
    for (auto editor = Editors().rbegin(); editor != Editors().rend(); ++editor)
        if (editor->Fits(Place)) return editor->Make(std::move(Place));
    return std::make_unique<TKxPropertyEditor>(std::move(Place));
}

} // namespace kx
