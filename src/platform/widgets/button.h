#pragma once
// Buttons and check boxes.

#include <kxgraph/platform/widgets/inputcontrol.h>

#include <string>

namespace kx {

/// Is clicked by the mouse, by Space while it has the focus, and by Alt with the letter that its caption has
/// behind an ampersand (two ampersands are one).
class TCustomButton : public TInputControl {
public:
    explicit TCustomButton(TComponent* Owner);
    const std::string& GetCaption() const { return GetText(); }
    void SetCaption(const std::string& Caption) { SetText(Caption); }

    TAccessiblePart Accessible() const override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    TDrawState GetDrawState() const override;
    bool KeyDown(const TKeyStroke& Stroke) override;
    bool KeyUp(const TKeyStroke& Stroke) override;
    bool DialogKey(const TKeyStroke& Stroke) override;
    void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    void MouseMove(TShiftState Shift, int X, int Y) override;
    void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    void Exit() override;

private:
    void Press(bool Pressed);
    bool FPressed = false, FBySpace = false, FByMouse = false;
};

class TButton : public TCustomButton {
public:
    explicit TButton(TComponent* Owner);
    /// Whether Return clicks it, wherever the focus is, unless another button has it or somebody takes it.
    bool GetDefault() const { return FDefault; }
    void SetDefault(bool Default);
    /// Whether Escape clicks it.
    bool GetCancel() const { return FCancel; }
    void SetCancel(bool Cancel) { FCancel = Cancel; }
    /// What a click makes the ModalResult of the form, after OnClick; mrNone: nothing.
    int GetModalResult() const { return FModalResult; }
    void SetModalResult(int Result) { FModalResult = Result; }

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TButton>(); }
    void Click() override;
    void Paint() override;
    bool KeyDown(const TKeyStroke& Stroke) override;
    bool DialogKey(const TKeyStroke& Stroke) override;

private:
    bool FDefault = false, FCancel = false;
    int FModalResult = 0;
};

/// A mark with a caption beside it; a click changes the mark, then calls OnClick.
class TCheckBox : public TCustomButton {
public:
    explicit TCheckBox(TComponent* Owner);
    bool GetChecked() const { return FChecked; }
    void SetChecked(bool Checked);

    TAccessiblePart Accessible() const override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TCheckBox>(); }
    void Click() override;
    void Paint() override;

private:
    bool FChecked = false;
};

} // namespace kx
