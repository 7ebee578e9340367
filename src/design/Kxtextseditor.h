#pragma once
// The editor of properties that are lists of texts: items, categories, the cells of a grid.

#include <kxgraph/design/Kxpropertyeditor.h>

#include <string>

namespace kx {

class TKxTextsEditor : public TKxPropertyEditor {
public:
    using TKxPropertyEditor::TKxPropertyEditor;
    TKxEditorKind GetKind() const override { return TKxEditorKind::Texts; }
    /// The texts, a line each; empty where the components have different ones.
    std::string GetLines() const;
    /// Sets them in all components, as one step of the history; the same lines change nothing.
    void SetLines(const std::string& Lines);
    /// Whether a line is a row of cells, with tabs between them.
    bool HasCells() const;

    static bool Fits(const TKxPropertyPlace& Place);

private:
    bool AreCategories() const;
};

} // namespace kx
