#pragma once
// The picker of colours: a palette, the colours that were picked last, and a field for any other.

#include <kxgraph/platform/text/colors.h>
#include <kxgraph/platform/widgets/inputcontrol.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// A colour as a user writes it: #RRGGBB, also without the #, or a name with or without its "cl"; nothing for
/// any other text.
std::optional<TColor> ColorOfTyped(std::string_view Text);
/// The same the other way: a name where there is one, else #RRGGBB.
std::string TypedColor(TColor Color);

/// Rows of squares, below them a sample and the field. A press on a square picks its colour; so do Return and
/// Space on the one that the arrow keys have gone to. A colour that is typed holds as soon as the field has
/// it whole; a text that is none is marked and stays. System colours can be typed. There is no transparency.
class TKxColorPicker : public TInputControl {
public:
    explicit TKxColorPicker(TComponent* Owner);
    ~TKxColorPicker() override;

    TColor GetValue() const { return FValue; }
    void SetValue(TColor Color);
    /// What stands in the field; whether it is no colour.
    std::string GetTyped() const;
    bool IsWrong() const;

    /// The colours that were picked last in any picker of the program, the last one first; a row of them.
    static const std::vector<TColor>& RecentColors();
    /// The colour of a square of the palette or of the recent ones, by row and column; nothing where there is
    /// none. And its place, in pixels of the control.
    std::optional<TColor> ColorAt(int Row, int Column) const;
    TRect SquareRect(int Row, int Column) const;

    /// Value has changed, by the user or the program.
    TNotifyEvent OnChange;

    void SetBounds(int Left, int Top, int Width, int Height) override;
    TAccessiblePart Accessible() const override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxColorPicker>(); }
    void Paint() override;
    bool KeyDown(const TKeyStroke& Stroke) override;
    void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    void CMFontChanged() override;

private:
    class TField;
    struct TSquare {
        int Row = 0, Column = 0;
        friend bool operator==(const TSquare&, const TSquare&) = default;
    };
    /// Takes Color over, and into the field unless it comes from there.
    void Take(TColor Color, bool Typed);
    void Pick(TSquare Square);
    bool MoveTo(int Row, int Column);
    TRect SampleRect() const;
    void PaintSquare(TSquare Square);

    TColor FValue = clBlack;
    TSquare FAt;                    // where the arrow keys have gone
    std::unique_ptr<TField> FField; // a part, no component of a form
};

} // namespace kx
