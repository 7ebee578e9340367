#include <kxgraph/platform/widgets/edit.h>

#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/objects/published.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <utility>

namespace kx {

TCustomEdit::TCustomEdit(TComponent* Owner) : TTextField(Owner) { TCustomEdit::ShowCaret(); }

void TCustomEdit::SetMaxLength(int Count) { FMaxLength = std::max(Count, 0); }

void TCustomEdit::SetTextHint(const std::string& Hint) {
    FTextHint = Hint;
    Invalidate();
}

void TCustomEdit::Select(int Anchor, int Caret) {
    FLine.Select(Anchor, Caret);
    ShowCaret();
}

void TCustomEdit::ReplaceSelection(const std::string& Text) {
    if (FLine.HasSelection() && Text.empty())
        FLine.Delete(FLine.SelStart(), FLine.SelEnd());
    else
        FLine.Insert(Text, FMaxLength);
    LineChanged();
}

void TCustomEdit::CopyToClipboard() const {
    if (FLine.HasSelection()) TApplication::Instance().GetHost().CopyText(FLine.Selected());
}

void TCustomEdit::CutToClipboard() {
    CopyToClipboard();
    if (FLine.HasSelection()) ReplaceSelection({});
}

void TCustomEdit::PasteFromClipboard() {
    const std::string text = TApplication::Instance().GetHost().PasteText();
    const auto end = text.find_last_not_of("\r\n");
    if (end != text.npos) ReplaceSelection(text.substr(0, end + 1));
}

void TCustomEdit::Undo() {
    if (FLine.Undo()) LineChanged();
}

void TCustomEdit::Redo() {
    if (FLine.Redo()) LineChanged();
}

/// The user's change of the line becomes the control's text.
void TCustomEdit::LineChanged() {
    const TComponentRef<TCustomEdit> self(this);
    SetText(FLine.GetText());
    if (self) ShowCaret();
}

void TCustomEdit::CMTextChanged() {
    TTextField::CMTextChanged();
    if (FLine.GetText() != GetText()) {
        FLine.SetText(GetText());
        FComposed = {};
        ShowCaret();
    }
    if (!IsIn(csLoading)) Changed();
}

void TCustomEdit::Enter() {
    if (FAutoSelect) SelectAll();
    TTextField::Enter();
}

void TCustomEdit::Exit() {
    FComposed = {};
    FPressed = false;
    if (FLine.HasSelection()) FLine.Select(FLine.GetCaret(), FLine.GetCaret());
    ShowCaret();
    TTextField::Exit();
}

void TCustomEdit::MoveTo(int Place, bool Extends) { Select(Extends ? FLine.GetAnchor() : Place, Place); }

bool TCustomEdit::Compose(const TComposition& Composition) {
    if (!CanChange()) return false;
    const TComponentRef<TCustomEdit> self(this);
    if (Composition.ReplaceLength > 0) {
        const int from = FLine.GetCaret() + Composition.ReplaceFrom;
        FLine.Select(from, from + Composition.ReplaceLength);
    }
    const bool replaces = FLine.HasSelection() && (!Composition.Text.empty() || !Composition.Commit.empty());
    FComposed = {};
    if (replaces && Composition.Commit.empty()) FLine.Delete(FLine.SelStart(), FLine.SelEnd());
    if (!Composition.Commit.empty()) FLine.Insert(Composition.Commit, FMaxLength, true);
    FComposed = Composition;
    FComposed.Caret = std::clamp(Composition.Caret, 0, CharacterCount(Composition.Text));
    LineChanged();
    if (self) Invalidate();
    return true;
}

const TPropertyTable& TCustomEdit::Properties() {
    using C = TCustomEdit;
    static const TPropertyTable table(
        "TCustomEdit", &TTextField::Properties(),
        {Published<&C::GetMaxLength, &C::SetMaxLength>("MaxLength", 0,
                                                       "Most characters that can be typed; 0: any number"),
         Published<&C::GetTextHint, &C::SetTextHint>("TextHint", "", "Pale text while the field is empty"),
         Published<&C::GetAutoSelect, &C::SetAutoSelect>("AutoSelect", true,
                                                         "Whether Tab into the field selects all")});
    return table;
}

const TPropertyTable& TEdit::Properties() {
    static const TPropertyTable table("TEdit", &TCustomEdit::Properties(),
                                      {Published<&TEdit::GetText, &TEdit::SetText>("Text", "", "The text")});
    return table;
}

} // namespace kx
