#include <kxgraph/platform/widgets/textfield.h>

#include <kxgraph/platform/objects/published.h>

#include <algorithm>
#include <utility>

namespace kx {

TTextField::TTextField(TComponent* Owner) : TInputControl(Owner) { SetCursor(crIBeam); }

void TTextField::SetReadOnly(bool ReadOnly) {
    FReadOnly = ReadOnly;
    Invalidate();
    TextInputChanged();
}

void TTextField::SetAlignment(TAlignment Alignment) {
    FAlignment = Alignment;
    ShowCaret();
}

TRect TTextField::GetTextRect() const {
    const TRect all = GetClientRect();
    return {all.Left + CFieldPadding, all.Top + 2, all.Right - CFieldPadding, all.Bottom - 2};
}

void TTextField::ScrollTo(int Caret, int Width) {
    const int room = std::max(GetTextRect().Width() - 1, 0); // behind the last character the caret
    FScroll = std::clamp(FScroll, Caret - room, Caret);
    FScroll = std::clamp(FScroll, 0, std::max(Width - room, 0));
}

int TTextField::TextLeft(int Width) const {
    const TRect room = GetTextRect();
    const int spare = std::max(room.Width() - 1 - Width, 0);
    const int before = FAlignment == taCenter ? spare / 2 : FAlignment == taRightJustify ? spare : 0;
    return room.Left + before - FScroll;
}

void TTextField::SetBounds(int Left, int Top, int Width, int Height) {
    TInputControl::SetBounds(Left, Top, Width, Height);
    ShowCaret();
}

void TTextField::CMFontChanged() {
    TInputControl::CMFontChanged();
    ShowCaret();
}

void TTextField::CMActiveChanged() {
    TInputControl::CMActiveChanged();
    FCaret.Update();
}

void TTextField::Enter() {
    FCaret.Update();
    TInputControl::Enter();
}

THostTextInput TTextField::TextInput() const {
    const TRect caret = FCaret.GetPlace();
    TEdited edited = GetEdited();
    return {.Takes = CanChange(),
            .Left = caret.Left,
            .Top = caret.Top,
            .Width = caret.Width(),
            .Height = caret.Height(),
            .Text = std::move(edited.Text),
            .Caret = edited.Caret,
            .Anchor = edited.Anchor};
}

TAccessiblePart TTextField::Accessible() const {
    TAccessiblePart part = TInputControl::Accessible();
    part.Role = TAccessibleRole::Edit;
    TEdited edited = GetEdited();
    part.Value = std::move(edited.Text);
    part.Editable = CanChange();
    part.Caret = edited.Caret;
    part.Anchor = edited.Anchor;
    return part;
}

const TPropertyTable& TTextField::Properties() {
    using C = TTextField;
    static const TPropertyTable table(
        "TTextField", &TInputControl::Properties(),
        {Published<&C::GetCursor, &C::SetCursor>("Cursor", crIBeam, "Mouse cursor over the control"),
         Published<&C::GetReadOnly, &C::SetReadOnly>("ReadOnly", false, "Whether the text is only shown"),
         Published<&C::GetAlignment, &C::SetAlignment>("Alignment", taLeftJustify,
                                                       "Where a short text is kept"),
         PublishedEvent<&C::OnChange>("OnChange", "The text was changed")});
    return table;
}

} // namespace kx
