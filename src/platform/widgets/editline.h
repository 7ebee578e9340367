#pragma once
// A line of text while it is edited, without a control: caret, selection, words, and what was there before.

#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// Places count characters (code points); the selection lies between Anchor and Caret. Foreign bytes count as
/// one character each and stay.
class TEditLine {
public:
    const std::string& GetText() const { return FState.Text; }
    /// A text from elsewhere: caret at its end, nothing to undo.
    void SetText(std::string Text);
    int GetCount() const { return FCount; }

    int GetCaret() const { return FState.Caret; }
    int GetAnchor() const { return FState.Anchor; }
    int SelStart() const;
    int SelEnd() const;
    bool HasSelection() const { return FState.Caret != FState.Anchor; }
    /// Places outside count as the nearest end.
    void Select(int Anchor, int Caret);
    std::string Part(int From, int To) const;
    std::string Selected() const { return Part(SelStart(), SelEnd()); }

    /// Puts Insert, without control characters and with blanks for the ends of lines, in the place of the
    /// selection; as much of it as leaves at most MaxCount characters (0: any number). Answers whether that
    /// changed anything. Typing is undone in one step until the caret is moved.
    bool Insert(std::string_view Insert, int MaxCount = 0, bool IsTyped = false);
    /// Deletes characters; steps like typing when IsTyped.
    bool Delete(int From, int To, bool IsTyped = false);
    bool Undo();
    bool Redo();
    bool CanUndo() const { return !FUndo.empty(); }
    bool CanRedo() const { return !FRedo.empty(); }

    /// The beginning of the word before At, that of the next word behind it, and the word that At lies in.
    int WordBefore(int At) const;
    int WordBehind(int At) const;
    void SelectWord(int At);

private:
    struct TState {
        std::string Text;
        int Caret = 0, Anchor = 0;
    };
    enum class TStep { None, Typing, Deleting };
    std::size_t OffsetOf(int Character) const;
    void Change(int From, int To, std::string_view Insert, TStep Step);
    bool GoBack(std::vector<TState>& From, std::vector<TState>& To);

    TState FState;
    int FCount = 0;
    std::vector<TState> FUndo, FRedo;
    TStep FLast = TStep::None; // the step that goes on as long as it is repeated
};

} // namespace kx
