#pragma once
// Labels: controls that show one rich caption at any angle and fit themselves to it.

#include <kxgraph/annotation/Kxcaption.h>
#include <kxgraph/platform/controls/customlabel.h>

namespace kx {

/// Shows its text as a caption. With AutoSize the bounds are those of the turned text. XPosition anchors the
/// label in its parent: at angle 0 it is the left, middle or right of the label as Alignment says and stays
/// where it is when the text changes; at any other angle it is Left. The font is Arial until it is changed.
class TKxCustomLabel : public TCustomLabel {
public:
    explicit TKxCustomLabel(TComponent* Owner);

    TKxCaption GetCaption() const { return GetText(); }
    void SetCaption(const TKxCaption& Caption) { SetText(Caption); }
    int GetAngle() const { return FAngle; }
    /// Tenths of a degree, counter-clockwise; stored without whole turns, the sign is kept (-900 stays -900).
    void SetAngle(int Angle);
    int GetXPosition() const { return FXPosition; }
    /// Moves the label so that its text is anchored at XPosition. Where the label is not as wide as its text,
    /// XPosition then follows from the new bounds.
    void SetXPosition(int XPosition);
    void SetAlignment(TAlignment Alignment) override;
    /// XPosition follows the bounds.
    void SetBounds(int Left, int Top, int Width, int Height) override;

    /// Height of a line of the text.
    int GetTextHeight() const { return FTextHeight; }
    /// Advance width of the caption, unrotated.
    int GetTextWidth() const { return FTextWidth; }
    /// Where in the label the top left of the caption's first character cell lies.
    int GetPaintX() const { return FPaintX; }
    int GetPaintY() const { return FPaintY; }

    /// Computes the direction and, with AutoSize, measures the caption on the screen and fits the bounds.
    void AdjustBounds() override;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    void CMTextChanged() override;
    void Paint() override;
    TRect GetPaintedRect() const override;

private:
    struct TExtent;
    TExtent TurnedExtent() const;
    int TurnedBy() const { return FAngle < 0 ? FAngle + 3600 : FAngle; } // from 0 on, for the same direction
    void MeasureText();

    int FAngle = 0;
    int FPaintX = 0;
    int FPaintY = 0;
    int FTextHeight = 0;
    int FTextWidth = 0;
    int FXPosition = 0;
    TKxDirection FDirection;
    TKxParsedCaption FParsed; // of the text
};

/// The label to put on a form.
class TKxLabel : public TKxCustomLabel {
public:
    explicit TKxLabel(TComponent* Owner) : TKxCustomLabel(Owner) {}
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxLabel>(); }
};

} // namespace kx
