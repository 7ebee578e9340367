#include <kxgraph/editing/Kxnumberedit.h>

#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/objects/published.h>

namespace kx {

TKxNumberEdit::TKxNumberEdit(TComponent* Owner) : TCustomEdit(Owner) {}

TKxNumberEdit::~TKxNumberEdit() = default;

void TKxNumberEdit::AddArrows() {
    FArrows = std::make_unique<TSpinButton>(nullptr);
    FArrows->SetInField(true);
    FArrows->OnUpClick = TNotifyEvent::Of<&TKxNumberEdit::StepUp>(this);
    FArrows->OnDownClick = TNotifyEvent::Of<&TKxNumberEdit::StepDown>(this);
    FArrows->SetParent(this);
    SetBounds(GetLeft(), GetTop(), GetWidth(), GetHeight());
}

void TKxNumberEdit::SetBounds(int Left, int Top, int Width, int Height) {
    TCustomEdit::SetBounds(Left, Top, Width, Height);
    if (FArrows) FArrows->SetBounds(GetWidth() - CFieldButton - 1, 1, CFieldButton, GetHeight() - 2);
}

TRect TKxNumberEdit::GetTextRect() const {
    TRect room = TCustomEdit::GetTextRect();
    if (FArrows) room.Right -= CFieldButton;
    return room;
}

TDrawState TKxNumberEdit::GetDrawState() const {
    return TCustomEdit::GetDrawState() | (GetValid() ? 0u : odInvalid);
}

void TKxNumberEdit::CMEnabledChanged() {
    if (FArrows) FArrows->SetEnabled(GetEnabled());
    TCustomEdit::CMEnabledChanged();
}

/// Of the text, by the user or the program.
void TKxNumberEdit::Changed() {
    if (FShowing) return;
    const bool wasValid = GetValid();
    const std::string before = ValueText();
    FError = TakeValue(GetText());
    Invalidate();
    if (GetValid() != wasValid || (GetValid() && ValueText() != before)) TCustomEdit::Changed();
}

void TKxNumberEdit::ShowValue(bool Another) {
    const bool tells = (Another || !GetValid()) && !IsIn(csLoading);
    FError.clear();
    {
        const TScopedValue showing(FShowing, true);
        SetText(ValueText());
    }
    Invalidate();
    if (tells) TCustomEdit::Changed();
}

void TKxNumberEdit::Loaded() {
    TCustomEdit::Loaded();
    FitValue();
}

void TKxNumberEdit::RulesChanged() {
    if (IsIn(csLoading)) return;
    if (GetValid())
        FitValue();
    else
        Changed();
}

void TKxNumberEdit::StepBy(int Steps) {
    if (!GetReadOnly() && IsOperable()) AddSteps(Steps);
}

bool TKxNumberEdit::KeyDown(const TKeyStroke& Stroke) {
    const TComponentRef<TKxNumberEdit> self(this);
    if (TCustomEdit::KeyDown(Stroke)) return true;
    if (!self || GetReadOnly() || (Stroke.Shift & (ssCtrl | ssAlt | ssShift))) return false;
    constexpr int CPage = 10;
    switch (Stroke.Key) {
    case kcUp: return StepBy(1), true;
    case kcDown: return StepBy(-1), true;
    case kcPageUp: return StepBy(CPage), true;
    case kcPageDown: return StepBy(-CPage), true;
    case kcReturn:
        if (GetValid()) ShowValue(false);
        return false; // also the form's
    default: return false;
    }
}

bool TKxNumberEdit::MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) {
    if (TCustomEdit::MouseWheel(Turn, Shift, X, Y)) return true;
    if (!HasKeys() || GetReadOnly() || !IsOperable()) return false;
    if (const int steps = FWheel.Take(Turn, 1)) StepBy(-steps);
    return true;
}

void TKxNumberEdit::Exit() {
    const TComponentRef<TKxNumberEdit> self(this);
    if (GetValid()) ShowValue(false);
    if (self) TCustomEdit::Exit();
}

TAccessiblePart TKxNumberEdit::Accessible() const {
    TAccessiblePart part = TCustomEdit::Accessible();
    if (FArrows) part.Role = TAccessibleRole::SpinBox;
    if (!GetValid()) part.Description = GetError();
    part.Parts.clear(); // the arrows are the field's
    return part;
}

const TPropertyTable& TKxNumberEdit::Properties() {
    using C = TKxNumberEdit;
    static const TPropertyTable table("TKxNumberEdit", &TCustomEdit::Properties(),
                                      {ReadOnly<&C::GetValid>("Valid", "Whether the text is the value"),
                                       ReadOnly<&C::GetError>("Error", "What is wrong with the text")});
    return table;
}

} // namespace kx
