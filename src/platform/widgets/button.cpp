#include <kxgraph/platform/widgets/button.h>

#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/objects/published.h>

namespace kx {

namespace {

TForm* FormOf(TControl* Control) {
    while (Control->GetParent()) Control = Control->GetParent();
    return dynamic_cast<TForm*>(Control);
}

} // namespace

TCustomButton::TCustomButton(TComponent* Owner) : TInputControl(Owner) {
    TWinControl::SetBounds(0, 0, 88, CFieldHeight);
}

TDrawState TCustomButton::GetDrawState() const {
    const bool down = FBySpace || (FPressed && FByMouse);
    return TInputControl::GetDrawState() | (down ? odPressed : 0u);
}

void TCustomButton::Press(bool Pressed) {
    if (FPressed == Pressed) return;
    FPressed = Pressed;
    Invalidate();
}

bool TCustomButton::KeyDown(const TKeyStroke& Stroke) {
    const TComponentRef<TCustomButton> self(this);
    if (TInputControl::KeyDown(Stroke)) return true;
    if (!self || !IsOperable() || Stroke.Key != kcSpace || (Stroke.Shift & (ssCtrl | ssAlt))) return false;
    FBySpace = true;
    Invalidate();
    return true;
}

bool TCustomButton::KeyUp(const TKeyStroke& Stroke) {
    const TComponentRef<TCustomButton> self(this);
    if (TInputControl::KeyUp(Stroke)) return true;
    if (!self || Stroke.Key != kcSpace || !FBySpace || Stroke.Repeats) return false;
    FBySpace = false;
    Invalidate();
    Click();
    return true;
}

bool TCustomButton::DialogKey(const TKeyStroke& Stroke) {
    const bool alone = (Stroke.Shift & (ssCtrl | ssAlt)) == ssAlt;
    const int key = CaptionKeyOf(GetCaption()).Key;
    if (!IsOperable() || !alone || key == 0 || Stroke.Key != key) return false;
    const TComponentRef<TCustomButton> self(this);
    SetFocus();
    if (self) Click();
    return true;
}

void TCustomButton::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (Button == mbLeft && IsOperable()) {
        FByMouse = true;
        Press(true);
    }
    TInputControl::MouseDown(Button, Shift, X, Y);
}

void TCustomButton::MouseMove(TShiftState Shift, int X, int Y) {
    if (FByMouse) Press(GetClientRect().Contains({X, Y}));
    TInputControl::MouseMove(Shift, X, Y);
}

void TCustomButton::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (Button == mbLeft) {
        FByMouse = false;
        Press(false);
    }
    TInputControl::MouseUp(Button, Shift, X, Y);
}

void TCustomButton::Exit() {
    FBySpace = false;
    TInputControl::Exit();
}

TAccessiblePart TCustomButton::Accessible() const {
    TAccessiblePart part = TInputControl::Accessible();
    part.Role = TAccessibleRole::Button;
    part.Name = CaptionKeyOf(GetCaption()).Text;
    return part;
}

const TPropertyTable& TCustomButton::Properties() {
    using C = TCustomButton;
    static const TPropertyTable table(
        "TCustomButton", &TInputControl::Properties(),
        {Published<&C::GetCaption, &C::SetCaption>(
            "Caption", "", "Text; an ampersand stands before the letter that picks it")});
    return table;
}

TButton::TButton(TComponent* Owner) : TCustomButton(Owner) {}

void TButton::SetDefault(bool Default) {
    FDefault = Default;
    Invalidate();
}

void TButton::Click() {
    if (!IsOperable()) return;
    const TComponentRef<TButton> self(this);
    TCustomButton::Click();
    TForm* form = self && FModalResult != mrNone ? FormOf(this) : nullptr;
    if (form) form->SetModalResult(FModalResult);
}

bool TButton::KeyDown(const TKeyStroke& Stroke) {
    const TComponentRef<TButton> self(this);
    if (TCustomButton::KeyDown(Stroke)) return true;
    if (!self || !IsOperable() || Stroke.Key != kcReturn || Stroke.Repeats) return false;
    Click();
    return true;
}

bool TButton::DialogKey(const TKeyStroke& Stroke) {
    const bool plain = !(Stroke.Shift & (ssShift | ssCtrl | ssAlt)) && IsOperable();
    const bool clicks = (FDefault && Stroke.Key == kcReturn) || (FCancel && Stroke.Key == kcEscape);
    if (!plain || !clicks) return TCustomButton::DialogKey(Stroke);
    if (!Stroke.Repeats) Click();
    return true;
}

void TButton::Paint() {
    const TDrawState state = GetDrawState();
    PaintButton(GetCanvas(), GetClientRect(), state);
    if (FDefault && !(state & (odFocused | odDisabled)))
        PaintOutline(GetCanvas(), GetClientRect(), Blended(clHighlight, clGray, 0.35));
    GetCanvas().Font.SetColor(TextColorFor(GetFont(), state));
    const TRect all = GetClientRect();
    PaintCaption(GetCanvas(), {all.Left + 4, all.Top, all.Right - 4, all.Bottom}, CaptionKeyOf(GetCaption()),
                 taCenter);
}

const TPropertyTable& TButton::Properties() {
    using C = TButton;
    static const TPropertyTable table(
        "TButton", &TCustomButton::Properties(),
        {Published<&C::GetDefault, &C::SetDefault>("Default", false, "Whether Return clicks it"),
         Published<&C::GetCancel, &C::SetCancel>("Cancel", false, "Whether Escape clicks it"),
         Published<&C::GetModalResult, &C::SetModalResult>(
             "ModalResult", mrNone, "How a click leaves a modal form: 1 OK, 2 cancel; 0: not")});
    return table;
}

TCheckBox::TCheckBox(TComponent* Owner) : TCustomButton(Owner) { TWinControl::SetBounds(0, 0, 120, 20); }

void TCheckBox::SetChecked(bool Checked) {
    FChecked = Checked;
    Invalidate();
}

void TCheckBox::Click() {
    if (!IsOperable()) return;
    SetChecked(!FChecked);
    TCustomButton::Click();
}

void TCheckBox::Paint() {
    const TDrawState state = GetDrawState();
    const int top = (GetHeight() - CMarkSize) / 2;
    PaintCheckMark(GetCanvas(), TRect::Bounds(1, top, CMarkSize, CMarkSize), FChecked, state);
    GetCanvas().Font.SetColor(TextColorFor(GetFont(), state));
    const TCaptionKey caption = CaptionKeyOf(GetCaption());
    const TRect room{CMarkSize + 7, 0, GetWidth(), GetHeight()};
    PaintCaption(GetCanvas(), room, caption, taLeftJustify);
    if (!(state & odFocused)) return;
    const int width = std::min(TextWidth(GetFont(), caption.Text), room.Width() - 3);
    const int height = std::min(LineHeight(GetFont()) + 2, GetHeight());
    PaintOutline(GetCanvas(), TRect::Bounds(room.Left - 3, (GetHeight() - height) / 2, width + 6, height),
                 Blended(clHighlight, clWhite, 0.3));
}

TAccessiblePart TCheckBox::Accessible() const {
    TAccessiblePart part = TCustomButton::Accessible();
    part.Role = TAccessibleRole::CheckBox;
    part.Checked = FChecked;
    part.Editable = true;
    return part;
}

const TPropertyTable& TCheckBox::Properties() {
    static const TPropertyTable table("TCheckBox", &TCustomButton::Properties(),
                                      {Published<&TCheckBox::GetChecked, &TCheckBox::SetChecked>(
                                          "Checked", false, "Whether it bears the mark")});
    return table;
}

} // namespace kx
