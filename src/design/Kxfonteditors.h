#pragma once
// The editors of fonts: as a whole, and of the family alone.

#include <kxgraph/design/Kxvalueeditors.h>
#include <kxgraph/platform/drawing/graphics.h>

#include <optional>
#include <string>

namespace kx {

/// A font in one line: "Arial, 10, fsBold, clNavy", in any order. What is not named stays, but for the style:
/// a text without one is that of a plain font.
struct TKxFontText {
    std::optional<std::string> Family;
    std::optional<int> Size; ///< points
    TFontStyles Style = 0;
    std::optional<TColor> Color;

    /// Nothing for a text that names something twice, or a size that is none.
    static std::optional<TKxFontText> Read(const std::string& Text);
    std::string Write() const;
    static TKxFontText Of(const TFont& Font);
};

/// A font, whose parts are edited, too. Of several fonts only what differs from the shown one is changed.
class TKxFontEditor : public TKxObjectEditor {
public:
    using TKxObjectEditor::TKxObjectEditor;
    TKxEditorKind GetKind() const override { return TKxEditorKind::Font; }
    bool IsReadOnly() const override { return false; }
    void SetText(const std::string& Text, bool IsContinued = false) override;
    /// The first one.
    const TFont& GetFont() const { return FontOf(FPlace.GetTargets().front()); }

    static bool Fits(const TKxPropertyPlace& Place);

protected:
    std::string TextOf(const TPropertyValue& Value) const override;

private:
    static TFont& FontOf(const TKxPropertyTarget& Target);
};

/// The family: one of those that the host has, or any other, which another machine may have.
class TKxFontFamilyEditor : public TKxPropertyEditor {
public:
    using TKxPropertyEditor::TKxPropertyEditor;
    TKxEditorKind GetKind() const override { return TKxEditorKind::FontFamily; }
    std::vector<TKxPropertyChoice> GetChoices() const override;

    static bool Fits(const TKxPropertyPlace& Place);
};

} // namespace kx
