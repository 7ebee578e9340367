#pragma once
// What happens to a caption while it is edited: characters with their looks, caret and selection, the looks
// of what is typed next, undo and redo. Knows no window. Places are between characters: 0 is before the
// first.

#include <kxgraph/editing/Kxcaptioncells.h>

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace kx {

/// A caption under edit. Whatever changes it answers whether anything changed. Indices outside are clamped.
class TKxCaptionModel {
public:
    /// As it was set, until an edit writes it anew.
    const TKxCaption& GetCaption() const { return FCaption; }
    /// Forgets all steps; the caret is moved to the end, without selection.
    void SetCaption(const TKxCaption& Caption);
    const TKxCaptionCells& GetCells() const { return FCells; }
    int GetLength() const { return int(FCells.size()); }
    /// Most characters that edits may make of the caption, those of the markup not counted; 0 for no limit. A
    /// longer one that was set stays, and grows no more.
    int GetMaxLength() const { return FMaxLength; }
    void SetMaxLength(int Length) { FMaxLength = Length > 0 ? Length : 0; }

    /// The caret, and the other end of the selection.
    int GetCaret() const { return FAt.Caret; }
    int GetAnchor() const { return FAt.Anchor; }
    int GetSelStart() const { return FAt.Start(); }
    int GetSelEnd() const { return FAt.End(); }
    bool HasSelection() const { return FAt.Caret != FAt.Anchor; }
    TKxCaptionCellSpan GetSelected() const;
    /// Moves the caret; with Extend the anchor stays where it is.
    void MoveTo(int Caret, bool Extend = false);
    void Select(int Anchor, int Caret);
    void SelectAll() { Select(0, GetLength()); }

    /// The looks of what is typed next: those that were switched there, else those of the character before
    /// the selection's start, or of the first one.
    TKxCaptionLooks GetTypingLooks() const;
    /// The looks of what the caret stands behind or, without a selection, of what is typed next.
    TKxCaptionLooks GetCaretLooks() const;
    /// Whether all that is selected, or without a selection what is typed next, has the look.
    bool IsOn(TKxCaptionSwitch Which) const;
    /// Turns a look of the selection on, or off where all of it has it; without a selection that of what is
    /// typed next, which is no change of the caption.
    bool Toggle(TKxCaptionSwitch Which);
    /// Takes all looks away.
    bool ClearLooks();

    /// Replaces the selection by text in the looks of what is typed next. What is typed in one go, up to the
    /// next word, is one step of undo.
    bool Type(std::string_view Text);
    /// Replaces the selection by characters with looks of their own, as a step.
    bool Insert(TKxCaptionCells Cells);
    /// Erases the selection or, where there is none, what lies between the caret and the place To.
    bool EraseTo(int To);

    bool CanUndo() const { return FDone > 0; }
    bool CanRedo() const { return FDone < FSteps.size(); }
    bool Undo();
    bool Redo();

    /// What an input method is composing at the caret, not yet a part of the caption, with its own caret; the
    /// selection is erased when it begins. Empty ends it. Any other edit drops it.
    bool Compose(std::string_view Text, int Caret);
    int GetComposedLength() const { return int(FComposed.size()); }
    /// With what is being composed, underlined.
    TKxCaption GetShownCaption() const;
    /// The caret in that.
    int GetShownCaret() const { return FAt.Caret + FComposedCaret; }

private:
    struct TPlace {
        int Caret = 0, Anchor = 0;
        int Start() const { return Caret < Anchor ? Caret : Anchor; }
        int End() const { return Caret < Anchor ? Anchor : Caret; }
    };
    enum class TKind { Typing, ErasingBefore, ErasingBehind, Other };
    /// The characters from At on that were replaced, and caret and selection before and afterwards.
    struct TStep {
        TKind Kind;
        int At;
        TKxCaptionCells Removed, Inserted;
        TPlace Before, After;
    };

    void Replace(int At, const TKxCaptionCells& Removed, const TKxCaptionCells& Inserted);
    bool Do(TKind Kind, int Start, int End, TKxCaptionCells Inserted, std::optional<TPlace> After = {});
    bool Merge(const TStep& Step);
    void TakePlace(TPlace Place);
    void LimitLength(std::size_t Removed, TKxCaptionCells& Inserted) const;
    template <class F>
    bool ChangeLooks(F Change);

    TKxCaption FCaption;
    TKxCaptionCells FCells, FComposed;
    int FComposedCaret = 0;
    int FMaxLength = 0;
    TPlace FAt;
    std::optional<TKxCaptionLooks> FTypingLooks; // switched at the caret
    std::vector<TStep> FSteps;
    std::size_t FDone = 0;  // of them
    bool FMayMerge = false; // nothing has happened since the last step
};

} // namespace kx
