#include <kxgraph/annotation/Kxlabel.h>

#include <kxgraph/platform/objects/published.h>

#include <algorithm>

namespace kx {

namespace {

double AnchorOf(TAlignment Alignment) {
    return Alignment == taCenter ? 0.5 : Alignment == taRightJustify ? 1 : 0;
}

} // namespace

/// Where the caption begins in the label, and the label's size.
struct TKxCustomLabel::TExtent {
    TPoint Start;
    TSize Size;
};

TKxCustomLabel::TKxCustomLabel(TComponent* Owner) : TCustomLabel(Owner) {
    GetFont().SetName("Arial");
    SetParentFont(false);
}

const TPropertyTable& TKxCustomLabel::Properties() {
    using T = TKxCustomLabel;
    static const TPropertyTable table(
        "TKxCustomLabel", &TCustomLabel::Properties(),
        {Published<&T::GetAngle, &T::SetAngle>("Angle", 0,
                                               "Writing direction, tenths of a degree counter-clockwise"),
         Published<&T::GetParentFont, &T::SetParentFont>("ParentFont", false,
                                                         "Whether the parent's font is taken"),
         Published<&T::GetXPosition, &T::SetXPosition>("XPosition", std::monostate{},
                                                       "Anchor in the parent, pixels from its left")});
    return table;
}

const TPropertyTable& TKxLabel::Properties() {
    static const TPropertyTable table("TKxLabel", &TKxCustomLabel::Properties(),
                                      {Published<&TKxLabel::GetCaption, &TKxLabel::SetCaption>(
                                          "Caption", "", "Text with rich caption markup")});
    return table;
}

void TKxCustomLabel::SetAngle(int Angle) {
    FAngle = Angle % 3600;
    AdjustBounds();
    Invalidate();
}

void TKxCustomLabel::SetXPosition(int XPosition) {
    FXPosition = std::clamp(XPosition, -CMaxPixel, CMaxPixel);
    if (IsIn(csLoading)) return; // the text that it goes by is not known yet
    int left = FXPosition;
    if (FAngle == 0 && GetAlignment() == taRightJustify) left -= FTextWidth;
    if (FAngle == 0 && GetAlignment() == taCenter) left -= FTextWidth / 2;
    SetLeft(left);
}

void TKxCustomLabel::SetAlignment(TAlignment Alignment) {
    StoreAlignment(Alignment);
    SetXPosition(FXPosition);
}

// Kept: by the width of the control, where SetXPosition goes by the text's. A label that does not fit itself
// is so anchored by its frame as soon as it is placed.
void TKxCustomLabel::SetBounds(int Left, int Top, int Width, int Height) {
    Left = std::clamp(Left, -CMaxPixel, CMaxPixel);
    Width = std::clamp(Width, 0, CMaxPixel - 1);
    FXPosition = Left;
    if (FAngle == 0 && GetAlignment() == taRightJustify) FXPosition += Width;
    if (FAngle == 0 && GetAlignment() == taCenter) FXPosition += Width / 2;
    TCustomLabel::SetBounds(Left, Top, Width, Height);
}

void TKxCustomLabel::AdjustBounds() {
    FPaintX = FPaintY = 0;
    FDirection = DirectionOf(TurnedBy());
    if (!GetAutoSize() || IsIn(csLoading)) return;
    MeasureText();
    SetXPosition(FXPosition);
    const TExtent extent = TurnedExtent();
    FPaintX = extent.Start.X;
    FPaintY = extent.Start.Y;
    SetBounds(GetLeft(), GetTop(), extent.Size.Width, extent.Size.Height);
}

void TKxCustomLabel::MeasureText() {
    TCanvas canvas;
    canvas.Font.Assign(GetFont());
    FTextHeight = canvas.TextHeight(GetText());
    FTextWidth = MeasureCaption(FParsed, canvas);
}

// The quarter turns come out exact because their directions are.
TKxCustomLabel::TExtent TKxCustomLabel::TurnedExtent() const {
    const auto r = [](long double Value) { return RoundToInt(double(Value)); };
    const long double wc = FTextWidth * FDirection.Cos, ws = FTextWidth * FDirection.Sin;
    const long double hc = FTextHeight * FDirection.Cos, hs = FTextHeight * FDirection.Sin;
    const int angle = TurnedBy();
    if (angle < 900) return {{0, r(ws)}, {r(wc + hs), r(ws + hc)}};
    if (angle < 1800) return {{r(-wc), r(ws - hc)}, {r(-wc + hs), r(ws - hc)}};
    if (angle < 2700) return {{r(-wc - hs), r(-hc)}, {r(-wc - hs), r(-ws - hc)}};
    return {{r(-hs), 0}, {r(wc - hs), r(-ws + hc)}};
}

void TKxCustomLabel::CMTextChanged() {
    FParsed = ParseCaption(GetText());
    TCustomLabel::CMTextChanged();
}

// As far as the last letter may reach over its cell.
TRect TKxCustomLabel::GetPaintedRect() const {
    const int reach = GetAutoSize() ? FTextHeight : 0;
    return {-reach, -reach, GetWidth() + reach, GetHeight() + reach};
}

void TKxCustomLabel::Paint() {
    TCanvas& canvas = GetCanvas();
    if (!GetTransparent()) {
        canvas.Brush.SetColor(GetColor());
        canvas.Brush.SetStyle(bsSolid);
        canvas.FillRect(GetClientRect());
    }
    canvas.Brush.SetStyle(bsClear);
    canvas.Font.Assign(GetFont());
    // A slanted last letter reaches over the cell that it is measured by, and so does a viewer's other font.
    if (GetAutoSize()) canvas.SetClip(std::nullopt);
    PaintCaption(FParsed, canvas, FPaintX, FPaintY, TurnedBy(), {AnchorOf(GetAlignment())});
}

} // namespace kx
