#include <kxgraph/series/Kxdraw.h>

#include <kxgraph/numeric/Kxarithm.h>
#include <kxgraph/platform/controls/controls.h>
#include <kxgraph/platform/objects/published.h>

#include <array>
#include <cmath>

namespace kx {

// The owner is looked up at the time of the change: while the style is made, the owner may still be under
// construction and not yet be what it is going to be.
void TKxStyle::Changed() {
    if (auto* owner = dynamic_cast<TKxStyleOwner*>(FOwner))
        owner->Modified();
    else if (auto* control = dynamic_cast<TWinControl*>(FOwner))
        control->Invalidate();
}

void TKxLineStyle::Assign(const TPersistent& Source) {
    if (const auto* style = dynamic_cast<const TKxLineStyle*>(&Source))
        Store(FValues, style->FValues);
    else
        TPersistent::Assign(Source);
}

void TKxAreaStyle::Assign(const TPersistent& Source) {
    if (const auto* style = dynamic_cast<const TKxAreaStyle*>(&Source))
        Store(FValues, style->FValues);
    else
        TPersistent::Assign(Source);
}

void TKxPointStyle::Assign(const TPersistent& Source) {
    if (const auto* style = dynamic_cast<const TKxPointStyle*>(&Source))
        Store(FValues, style->FValues);
    else
        TPersistent::Assign(Source);
}

const TPropertyTable& TKxLineStyle::Properties() {
    using T = TKxLineStyle;
    static const TPropertyTable table(
        "TKxLineStyle", nullptr,
        {Published<&T::GetVisible, &T::SetVisible>("Visible", true, "Whether the line is drawn"),
         PublishedColor<&T::GetColor, &T::SetColor>("Color", clRed, "Colour of the line"),
         Published<&T::GetStyle, &T::SetStyle>("Style", psSolid, "Solid, dashed or dotted"),
         Published<&T::GetWidth, &T::SetWidth>("Width", 1, "Width in pixels, at least 0")},
        {"Visible", "Color", "Style", "Width"});
    return table;
}

const TPropertyTable& TKxAreaStyle::Properties() {
    using T = TKxAreaStyle;
    static const TPropertyTable table(
        "TKxAreaStyle", nullptr,
        {Published<&T::GetVisible, &T::SetVisible>("Visible", true, "Whether the area is filled"),
         Published<&T::GetDrawXOred, &T::SetDrawXOred>(
             "DrawXOred", true,
             "Whether the area is drawn in XOR mode, so that what lies below shows through")
             .WithKey("DrawXORed"),
         PublishedColor<&T::GetColor, &T::SetColor>("Color", clGray, "Colour of the area"),
         Published<&T::GetStyle, &T::SetStyle>("Style", bsSolid, "Solid or hatched")},
        {"Visible", "Color", "Style", "DrawXOred"});
    return table;
}

const TPropertyTable& TKxPointStyle::Properties() {
    using T = TKxPointStyle;
    static const TPropertyTable table(
        "TKxPointStyle", nullptr,
        {Published<&T::GetVisible, &T::SetVisible>("Visible", true, "Whether the points are drawn"),
         PublishedColor<&T::GetColor, &T::SetColor>("Color", clBlue, "Colour of the symbol's outline"),
         Published<&T::GetStyle, &T::SetStyle>("Style", SyCircle, "Shape of the symbol"),
         Published<&T::GetSize, &T::SetSize>("Size", T::CDefaultSize,
                                             "Pixels from the centre to the outer edge"),
         Published<&T::GetWidth, &T::SetWidth>("Width", 1, "Width of the outline in pixels, at least 0")
             .WithKey("With")}, // Kept: files are spelled so
        {"Visible", "Color", "Size", "Width", "Style"});
    return table;
}

namespace {

void MakeThinPenCosmetic(TPen& Pen) {
    if (Pen.GetWidth() == 1) Pen.SetWidth(0);
}

} // namespace

void UseLinePen(TCanvas& Canvas, const TKxLineStyle& Style) {
    Canvas.Pen.SetMode(pmCopy);
    Canvas.Pen.SetStyle(Style.GetStyle());
    Canvas.Pen.SetWidth(Style.GetWidth() == 1 ? 0 : Style.GetWidth());
    Canvas.Pen.SetColor(Style.GetColor());
}

void DrawLine(int X1, int Y1, int X2, int Y2, TCanvas& Canvas) {
    MakeThinPenCosmetic(Canvas.Pen);
    if (X1 != X2 || Y1 != Y2) Canvas.Polyline(std::array{TPoint{X1, Y1}, TPoint{X2, Y2}});
}

void DrawLine(TRealPoint From, TRealPoint To, TCanvas& Canvas) {
    MakeThinPenCosmetic(Canvas.Pen);
    Canvas.Polyline(std::array{From, To});
}

void DrawFrame(int X1, int Y1, int X2, int Y2, TCanvas& Canvas) {
    MakeThinPenCosmetic(Canvas.Pen);
    const TPoint corners[] = {{X1, Y1}, {X1, Y2}, {X2, Y2}, {X2, Y1}, {X1, Y1}};
    Canvas.Polyline(corners);
}

namespace {

struct TBoxColors {
    TColor Frame, Front, Top, Side;
};

/// The faces of a box; Limited keeps corners on the canvas's pixels.
template <class P, class R, class L>
void DrawBox(const R& Front, int DX, int DY, const TBoxColors& Colors, TCanvas& Canvas, L Limited) {
    const auto right = Front.Right - 1;
    const auto backRight = Limited(right + std::abs(double(DX))),
               backLeft = Limited(Front.Left + std::abs(double(DX)));
    const double rise = std::abs(double(DY)) + 1;
    const auto backTop = Limited(Front.Top - rise), backBottom = Limited(Front.Bottom - rise);

    Canvas.Brush.SetStyle(bsSolid);
    Canvas.Brush.SetColor(Colors.Front);
    Canvas.Pen.SetStyle(psSolid);
    Canvas.Pen.SetColor(Colors.Frame);
    Canvas.Rectangle(Front);

    const P top[] = {{Front.Left, Front.Top}, {right, Front.Top}, {backRight, backTop}, {backLeft, backTop}};
    Canvas.Brush.SetColor(Colors.Top);
    Canvas.Polygon(top);

    const P side[] = {
        {right, Front.Top}, {backRight, backTop}, {backRight, backBottom}, {right, Front.Bottom - 1}};
    Canvas.Brush.SetColor(Colors.Side);
    Canvas.Polygon(side);
}

} // namespace

void Draw3DBar(int X1, int Y1, int X2, int Y2, int DX, int DY, TColor FrameColor, TColor FrontColor,
               TColor TopColor, TColor SideColor, TCanvas& Canvas) {
    DrawBox<TPoint>(OrderedRect(X1, Y1, X2, Y2), DX, DY, {FrameColor, FrontColor, TopColor, SideColor},
                    Canvas, [](double Place) { return RoundToInt(Place); });
}

void Draw3DBar(const TRealRect& Front, int DX, int DY, TColor FrameColor, TColor FrontColor, TColor TopColor,
               TColor SideColor, TCanvas& Canvas) {
    DrawBox<TRealPoint>(Front, DX, DY, {FrameColor, FrontColor, TopColor, SideColor}, Canvas,
                        [](double Place) { return Place; });
}

} // namespace kx
