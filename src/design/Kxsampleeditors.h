#pragma once
// The editors of styles that are chosen by their looks: of brushes, of lines, of points.

#include <kxgraph/design/Kxvalueeditors.h>
#include <kxgraph/editing/Kxsamples.h>

namespace kx {

/// A choice of named values, each of which can be drawn as the pickers of the library draw it.
class TKxSampleEditor : public TKxChoiceEditor {
public:
    using TKxChoiceEditor::TKxChoiceEditor;
    TKxEditorKind GetKind() const override { return TKxEditorKind::Sample; }
    /// The one of GetChoices at Index; its ground is painted.
    virtual void DrawChoice(TCanvas& Canvas, const TRect& Rect, int Index) const = 0;
};

/// TKind is a kind of samples that are the values of an enumeration.
template <class TKind>
class TKxSampleEditorOf : public TKxSampleEditor {
public:
    using TKxSampleEditor::TKxSampleEditor;
    void DrawChoice(TCanvas& Canvas, const TRect& Rect, int Index) const override {
        TKind::Draw(Canvas, Rect, TKind::ValueAt(Index), TKxSampleLook());
    }
    static bool Fits(const TKxPropertyPlace& Place) {
        return Place.GetRow().Kind == TPropertyKind::Enumeration &&
               Place.GetRow().ValueNames.data() == CEnumNames<typename TKind::TValue>.data();
    }
};

} // namespace kx
