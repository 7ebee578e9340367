#pragma once
// The editors of plain values: flags, numbers, names out of a list, sets, colours, captions, sub-objects.

#include <kxgraph/design/Kxpropertyeditor.h>

#include <cstdint>

namespace kx {

class TKxFlagEditor : public TKxPropertyEditor {
public:
    using TKxPropertyEditor::TKxPropertyEditor;
    TKxEditorKind GetKind() const override { return TKxEditorKind::Flag; }
    std::vector<TKxPropertyChoice> GetChoices() const override { return {{"True", ""}, {"False", ""}}; }

protected:
    std::string TextOf(const TPropertyValue& Value) const override;
};

/// Whole numbers in the range of their type, and reals, with a point or a comma before the fraction.
class TKxNumberEditor : public TKxPropertyEditor {
public:
    using TKxPropertyEditor::TKxPropertyEditor;
    TKxEditorKind GetKind() const override { return TKxEditorKind::Number; }

protected:
    TPropertyValue ValueOf(const std::string& Text) const override;
};

class TKxChoiceEditor : public TKxPropertyEditor {
public:
    using TKxPropertyEditor::TKxPropertyEditor;
    TKxEditorKind GetKind() const override { return TKxEditorKind::Choice; }
    std::vector<TKxPropertyChoice> GetChoices() const override;
};

/// Its parts are its members, each a flag: "Style.fsBold".
class TKxSetEditor : public TKxPropertyEditor {
public:
    using TKxPropertyEditor::TKxPropertyEditor;
    TKxPropertyEditors MakeParts() const override;

protected:
    std::string TextOf(const TPropertyValue& Value) const override;
    TPropertyValue ValueOf(const std::string& Text) const override;
};

/// One member of a set.
class TKxMemberEditor : public TKxPropertyEditor {
public:
    TKxMemberEditor(TKxPropertyPlace Place, std::size_t Member)
        : TKxPropertyEditor(std::move(Place)), FMember(Member) {}
    TKxEditorKind GetKind() const override { return TKxEditorKind::Flag; }
    std::string GetName() const override { return std::string(FPlace.GetRow().ValueNames[FMember]); }
    std::string GetPath() const override { return FPlace.GetPath().append(".").append(GetName()); }
    std::vector<TKxPropertyChoice> GetChoices() const override { return {{"True", ""}, {"False", ""}}; }
    bool IsMixed() const override;
    bool CanReset() const override { return false; } // the set is reset
    /// Each component keeps its other members.
    void SetText(const std::string& Text, bool IsContinued = false) override;

protected:
    std::string TextOf(const TPropertyValue& Value) const override;

private:
    bool IsIn(const TPropertyValue& Set) const { return ((std::get<std::int64_t>(Set) >> FMember) & 1) != 0; }

    std::size_t FMember;
};

/// Names, $BBGGRR, #RRGGBB.
class TKxColorEditor : public TKxPropertyEditor {
public:
    using TKxPropertyEditor::TKxPropertyEditor;
    TKxEditorKind GetKind() const override { return TKxEditorKind::Color; }
    /// The named colours, each with "#rrggbb" as its note.
    std::vector<TKxPropertyChoice> GetChoices() const override;
};

/// Texts with rich markup; the caption edit takes and gives the same text.
class TKxCaptionEditor : public TKxPropertyEditor {
public:
    using TKxPropertyEditor::TKxPropertyEditor;
    TKxEditorKind GetKind() const override { return TKxEditorKind::Caption; }
};

/// A pen, a brush, a font: what it consists of is edited, its text tells of it.
class TKxObjectEditor : public TKxPropertyEditor {
public:
    using TKxPropertyEditor::TKxPropertyEditor;
    TKxEditorKind GetKind() const override { return TKxEditorKind::Object; }
    bool IsReadOnly() const override { return true; }
    TKxPropertyEditors MakeParts() const override;

protected:
    /// "Arial, 10, fsBold": the parts that say most.
    std::string TextOf(const TPropertyValue& Value) const override;
};

/// Lists of numbers, told in short; a grid edits them.
class TKxRealsEditor : public TKxPropertyEditor {
public:
    using TKxPropertyEditor::TKxPropertyEditor;
    TKxEditorKind GetKind() const override;

protected:
    /// The numbers, or how many there are where they are many.
    std::string TextOf(const TPropertyValue& Value) const override;
    TPropertyValue ValueOf(const std::string& Text) const override;
};

} // namespace kx
