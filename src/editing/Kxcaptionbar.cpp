#include <kxgraph/editing/Kxcaptionbar.h>

#include <kxgraph/platform/objects/published.h>

#include <array>
#include <string>

namespace kx {

namespace {

constexpr int CButtonSize = 24;
constexpr TColor COnColor = RGB(204, 228, 247), CHoverColor = RGB(229, 241, 251);

struct TBarButton {
    TKxCaptionSwitch Switch;
    const char* Caption; // shows what it does
    const char* Hint;
};
constexpr auto CButtons = std::to_array<TBarButton>({
    {TKxCaptionSwitch::Bold, "\\bB", "Bold (Ctrl+B)"},
    {TKxCaptionSwitch::Italic, "\\iI", "Italic (Ctrl+I)"},
    {TKxCaptionSwitch::Underline, "\\uU", "Underline (Ctrl+U)"},
    {TKxCaptionSwitch::StrikeOut, "\\oS", "Strike-out (Ctrl+T)"},
    {TKxCaptionSwitch::Superscript, "x\\+2", "Superscript (Ctrl+Up)"},
    {TKxCaptionSwitch::Subscript, "x\\-2", "Subscript (Ctrl+Down)"},
    {TKxCaptionSwitch::Symbol, "\\sab", "Greek (Ctrl+G)"},
});

} // namespace

class TKxCaptionBar::TButton : public TGraphicControl {
public:
    TButton(TKxCaptionBar& Bar, const TBarButton& Button)
        : TGraphicControl(nullptr), FBar(Bar), FSwitch(Button.Switch),
          FCaption(ParseCaption(Button.Caption)) {
        SetText(std::string(Button.Hint));
        SetHint(Button.Hint);
        SetShowHint(true);
        SetParent(&Bar);
    }
    TKxCaptionSwitch GetSwitch() const { return FSwitch; }

protected:
    void MouseEnter() override { SetHovered(true); }
    void MouseLeave() override { SetHovered(false); }
    void Click() override {
        if (FBar.CanSwitch()) FBar.FEdit->Toggle(FSwitch);
    }
    void Paint() override {
        const bool can = FBar.CanSwitch(), on = can && FBar.FEdit->IsOn(FSwitch);
        TCanvas& canvas = GetCanvas();
        if (on || (can && FHovered)) {
            canvas.Brush.SetColor(on ? COnColor : CHoverColor);
            canvas.Pen.SetColor(FHovered ? clHighlight : clBtnShadow);
            canvas.Rectangle(1, 1, GetWidth() - 1, GetHeight() - 1);
        }
        canvas.Font.Assign(FBar.GetFont());
        canvas.Font.SetColor(can ? clBtnText : clGrayText);
        canvas.Brush.SetStyle(bsClear);
        const int width = MeasureCaption(FCaption, canvas), height = canvas.TextHeight("X");
        PaintCaption(FCaption, canvas, (GetWidth() - width) / 2, (GetHeight() - height) / 2, 0);
        canvas.Brush.SetStyle(bsSolid);
    }

private:
    void SetHovered(bool Hovered) {
        FHovered = Hovered;
        Invalidate();
    }

    TKxCaptionBar& FBar;
    TKxCaptionSwitch FSwitch;
    TKxParsedCaption FCaption;
    bool FHovered = false;
};

TKxCaptionBar::TKxCaptionBar(TComponent* Owner) : TCustomControl(Owner) {
    for (const TBarButton& button : CButtons) FButtons.push_back(std::make_unique<TButton>(*this, button));
    TKxCaptionBar::SetBounds(0, 0, CButtonSize * int(CButtons.size()), CButtonSize);
}

TKxCaptionBar::~TKxCaptionBar() = default;

void TKxCaptionBar::SetBounds(int Left, int Top, int Width, int Height) {
    TCustomControl::SetBounds(Left, Top, Width, Height);
    int left = 0;
    for (const auto& button : FButtons) {
        button->SetBounds(left, 0, GetHeight(), GetHeight());
        left += GetHeight();
    }
}

void TKxCaptionBar::SetEdit(TKxCaptionEdit* Edit) {
    if (FEdit) FEdit->RemoveViewer(this);
    FEdit = Edit;
    if (FEdit) FEdit->AddViewer(this);
    Invalidate();
}

void TKxCaptionBar::Notification(TComponent* Component, TOperation Operation) {
    TCustomControl::Notification(Component, Operation);
    if (Operation != opRemove || Component != FEdit) return;
    FEdit = nullptr;
    Invalidate();
}

bool TKxCaptionBar::CanSwitch() const {
    return GetEnabled() && FEdit && FEdit->GetEnabled() && !FEdit->GetReadOnly();
}

TRect TKxCaptionBar::ButtonRect(TKxCaptionSwitch Which) const {
    for (const auto& button : FButtons)
        if (button->GetSwitch() == Which) return button->GetBoundsRect();
    return {};
}

void TKxCaptionBar::Paint() {
    GetCanvas().Brush.SetColor(GetColor());
    GetCanvas().FillRect(GetClientRect());
}

const TPropertyTable& TKxCaptionBar::Properties() {
    using C = TKxCaptionBar;
    static const TPropertyTable table(
        "TKxCaptionBar", &TCustomControl::Properties(),
        {Published<&C::GetEdit, &C::SetEdit>("Edit", nullptr, "The caption edit that it belongs to")});
    return table;
}

} // namespace kx
