#pragma once
// Editors of properties, as models: how a value is shown, what may be chosen, what a text means. A window
// shows them (kxdesign does) and asks for nothing else.

#include <kxgraph/design/Kxpropertyplace.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// What a window shows an editor with. All take a text, too, unless they are read only.
enum class TKxEditorKind {
    Text,
    Caption, ///< a text with rich markup, for the caption edit
    Number,
    Choice,      ///< of GetChoices, and no other text
    Sample,      ///< a Choice, each of which is drawn: TKxSampleEditor
    Suggestions, ///< of GetChoices, or any other text
    Flag,        ///< a check box; texts True and False
    Color,
    Font,        ///< a text, or its parts: TKxFontEditor
    FontFamily,  ///< Suggestions, each of which is shown in its own face
    Texts,       ///< a list of them: TKxTextsEditor
    Object,      ///< nothing of its own; its parts are edited
    Values,      ///< a grid: TKxValuesGrid
    Coefficients ///< a grid: TKxCoefficientGrid
};

struct TKxPropertyChoice {
    std::string Text; ///< what SetText takes
    std::string Note; ///< what is shown beside it: the present value of a result, the class of a component
};

class TKxPropertyEditor;
using TKxPropertyEditors = std::vector<std::unique_ptr<TKxPropertyEditor>>;

/// The base edits texts as PropertyToText and PropertyFromText have them. Editors keep nothing of the value:
/// each question is answered by the components as they are.
class TKxPropertyEditor {
public:
    explicit TKxPropertyEditor(TKxPropertyPlace Place) : FPlace(std::move(Place)) {}
    virtual ~TKxPropertyEditor() = default;
    TKxPropertyEditor(const TKxPropertyEditor&) = delete;
    TKxPropertyEditor& operator=(const TKxPropertyEditor&) = delete;

    const TKxPropertyPlace& GetPlace() const { return FPlace; }
    virtual TKxEditorKind GetKind() const { return TKxEditorKind::Text; }
    virtual std::string GetName() const { return std::string(FPlace.GetRow().Name); }
    /// "Style.fsBold": by which it is found again.
    virtual std::string GetPath() const { return FPlace.GetPath(); }
    /// A line that explains it; for the foot of the inspector.
    virtual std::string GetHelp() const;
    /// Empty where the components have different values.
    std::string GetText() const { return IsMixed() ? std::string() : TextOf(FPlace.GetValue()); }
    virtual bool IsMixed() const { return FPlace.IsMixed(); }
    virtual bool IsReadOnly() const { return FPlace.IsReadOnly(); }
    virtual bool IsDefault() const { return FPlace.IsDefault(); }
    virtual bool CanReset() const { return FPlace.CanReset(); }
    /// Of a Choice, a Sample, Suggestions or a FontFamily.
    virtual std::vector<TKxPropertyChoice> GetChoices() const { return {}; }

    /// Sets the property of all components, as one step of the history. Raises EPropertyError, or what the
    /// setter raises, about a text that is no value; the property is then what it was.
    virtual void SetText(const std::string& Text, bool IsContinued = false);
    virtual void Reset() { FPlace.Reset(); }

    /// The editors of what the property consists of.
    virtual TKxPropertyEditors MakeParts() const { return {}; }

protected:
    virtual std::string TextOf(const TPropertyValue& Value) const;
    virtual TPropertyValue ValueOf(const std::string& Text) const;
    [[noreturn]] void RaiseExpected(const std::string& Text, const std::string& Expected) const;

    TKxPropertyPlace FPlace;
};

/// An editor for the properties that Fits says yes to.
struct TKxPropertyEditorClass {
    bool (*Fits)(const TKxPropertyPlace& Place);
    std::unique_ptr<TKxPropertyEditor> (*Make)(TKxPropertyPlace Place);
};
/// Editors that are registered later are asked first; those of the library, last. A program enters its own
/// for a type: `RegisterPropertyEditor<TMyEditor>([](const TKxPropertyPlace& Place) { return
/// Place.GetRow().TypeName == "TMyText"; })`.
void RegisterPropertyEditor(const TKxPropertyEditorClass& Class);
template <class E>
void RegisterPropertyEditor(bool (*Fits)(const TKxPropertyPlace&)) {
    RegisterPropertyEditor({Fits, [](TKxPropertyPlace Place) -> std::unique_ptr<TKxPropertyEditor> {
                                return std::make_unique<E>(std::move(Place));
                            }});
}
/// The editor of a property; the base for what nobody has registered one for.
std::unique_ptr<TKxPropertyEditor> MakePropertyEditor(TKxPropertyPlace Place);

} // namespace kx
