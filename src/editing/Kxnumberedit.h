#pragma once
// Fields for numbers.

#include <kxgraph/platform/widgets/edit.h>
#include <kxgraph/platform/widgets/spinbutton.h>

#include <memory>
#include <optional>
#include <string>

namespace kx {

/// What fields for numbers have in common. '.' and ',' are understood, the decimal separator of the program
/// is shown. A text that is no number, or none of the range, stays, is marked, and leaves the value as it
/// was. Up, Down, PageUp, PageDown (ten steps) and the wheel, while the field has the keys, step to the next
/// value. Return and leaving the field show the value as it is held.
class TKxNumberEdit : public TCustomEdit {
public:
    explicit TKxNumberEdit(TComponent* Owner);
    ~TKxNumberEdit() override;

    /// Whether the text is the value.
    bool GetValid() const { return FError.empty(); }
    /// What is wrong with the text; empty when it is valid.
    const std::string& GetError() const { return FError; }
    /// Goes on by that many increments, up to an end of the range.
    void StepBy(int Steps);
    void SetBounds(int Left, int Top, int Width, int Height) override;

    // OnChange: the value was changed, or became valid or wrong, by whomever.
    TAccessiblePart Accessible() const override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    /// Takes the value from Text; what is wrong with it, the value being as before. Empty: nothing.
    virtual std::string TakeValue(const std::string& Text) = 0;
    virtual std::string ValueText() const = 0;
    /// The value Steps from the present one, inside the range.
    virtual void AddSteps(int Steps) = 0;
    /// Moves the value into the range.
    virtual void FitValue() = 0;
    /// To be called where the range or the look of values has changed: a wrong text is read anew, and stays.
    void RulesChanged();
    /// Shows the value; OnChange when it is Another one, or was not shown before.
    void ShowValue(bool Another);
    /// Has arrows at its right edge from now on.
    void AddArrows();
    void Changed() override;
    void Loaded() override;
    TDrawState GetDrawState() const override;
    TRect GetTextRect() const override;
    bool KeyDown(const TKeyStroke& Stroke) override;
    bool MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) override;
    void Exit() override;
    void CMEnabledChanged() override;

private:
    void StepUp(TControl*) { StepBy(1); }
    void StepDown(TControl*) { StepBy(-1); }

    std::string FError;
    std::unique_ptr<TSpinButton> FArrows; // its own, of no form
    TWheelSteps FWheel;
    bool FShowing = false;
};

/// A number of type T inside a range.
template <class T>
class TKxRangeEdit : public TKxNumberEdit {
public:
    using TKxNumberEdit::TKxNumberEdit;

    /// The last valid one. What is set is moved into the range; a NaN counts as 0.
    T GetValue() const { return FValue; }
    void SetValue(T Value);
    /// The range, where MinValue is less than MaxValue; any number otherwise.
    T GetMinValue() const { return FMinValue; }
    void SetMinValue(T Value) { SetRule(FMinValue, Value); }
    T GetMaxValue() const { return FMaxValue; }
    void SetMaxValue(T Value) { SetRule(FMaxValue, Value); }
    T GetIncrement() const { return FIncrement; }
    void SetIncrement(T Increment) { FIncrement = Increment; }

protected:
    std::string TakeValue(const std::string& Text) override;
    void AddSteps(int Steps) override { TakeNumber(Stepped(Steps)); }
    void FitValue() override { SetValue(FValue); }
    /// The number of a text in point form; nothing where it is none.
    virtual std::optional<T> NumberOf(const std::string& Text) const = 0;
    virtual std::string NumberText(T Number) const = 0;
    /// What a text that is none should have been.
    virtual const char* KindOfNumber() const = 0;
    /// The number Steps from the present one, inside the range.
    virtual T Stepped(int Steps) const = 0;
    /// Wide is wide enough for all that a step can come to.
    template <class TWide>
    T Limited(TWide Value) const;

private:
    void TakeNumber(T Value);
    void SetRule(T& Rule, T Value);
    T FValue = 0, FMinValue = 0, FMaxValue = 0, FIncrement = 1;
};

extern template class TKxRangeEdit<double>;
extern template class TKxRangeEdit<int>;

/// A real number.
class TKxRealEdit : public TKxRangeEdit<double> {
public:
    explicit TKxRealEdit(TComponent* Owner);

    /// Significant digits that are shown, 1 to 18; the value keeps all.
    int GetDigits() const { return FDigits; }
    void SetDigits(int Digits);

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxRealEdit>(); }
    std::string ValueText() const override;
    std::optional<double> NumberOf(const std::string& Text) const override;
    std::string NumberText(double Number) const override;
    const char* KindOfNumber() const override { return "number"; }
    double Stepped(int Steps) const override;

private:
    int FDigits = 15;
};

/// A whole number.
class TKxIntegerEdit : public TKxRangeEdit<int> {
public:
    explicit TKxIntegerEdit(TComponent* Owner);

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxIntegerEdit>(); }
    std::string ValueText() const override { return NumberText(GetValue()); }
    std::optional<int> NumberOf(const std::string& Text) const override;
    std::string NumberText(int Number) const override { return std::to_string(Number); }
    const char* KindOfNumber() const override { return "whole number"; }
    int Stepped(int Steps) const override;
};

/// The same with arrows at the right edge.
class TKxRealSpin : public TKxRealEdit {
public:
    explicit TKxRealSpin(TComponent* Owner) : TKxRealEdit(Owner) { AddArrows(); }
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxRealSpin>(); }
};
class TKxIntegerSpin : public TKxIntegerEdit {
public:
    explicit TKxIntegerSpin(TComponent* Owner) : TKxIntegerEdit(Owner) { AddArrows(); }
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxIntegerSpin>(); }
};

} // namespace kx
