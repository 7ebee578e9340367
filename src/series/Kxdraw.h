#pragma once
// How a line, an area and a data point look, and the routines that draw lines, frames, point symbols, arrows
// and three-dimensional bars. Everything here is in pixels; values become pixels on the axes.

#include <kxgraph/platform/drawing/canvas.h>
#include <kxgraph/platform/objects/persistent.h>
#include <kxgraph/platform/objects/typenames.h>

namespace kx {

class TComponent;

/// The shape of a data point. The filled ones are filled with the pen's colour, the open closed shapes with
/// the colour of the brush.
enum TKxPointSymbol {
    SyPoint, ///< one pixel, whatever the size
    SyCross, ///< upright cross
    SyX,     ///< diagonal cross
    SyStar,  ///< both crosses
    Sy5Star, ///< five-pointed star; its top ray reaches 1.08 sizes above the centre
    Sy5StarFilled,
    SyCircle,
    SyCircleFilled,
    SySquare,
    SySquareFilled,
    SyDiamond,
    SyDiamondFilled,
    SyDelta, ///< triangle, apex up
    SyDeltaFilled,
    SyNabla, ///< triangle, apex down
    SyNablaFilled
};
inline constexpr int CPointSymbolCount = 16;
template <>
inline constexpr auto CEnumNames<TKxPointSymbol> = std::to_array<std::string_view>(
    {"SyPoint", "SyCross", "SyX", "SyStar", "Sy5Star", "Sy5StarFilled", "SyCircle", "SyCircleFilled",
     "SySquare", "SySquareFilled", "SyDiamond", "SyDiamondFilled", "SyDelta", "SyDeltaFilled", "SyNabla",
     "SyNablaFilled"});

/// What the owner of a style implements to hear of changes: series and graph do.
struct TKxStyleOwner {
    virtual void Modified() = 0;

protected:
    ~TKxStyleOwner() = default;
};

/// What the three styles share: the owner, which must outlive the style and may be null. After a change of
/// value a TKxStyleOwner is told, any other windowed control is invalidated, any other owner hears nothing.
/// Constructing a style tells nobody.
class TKxStyle : public TPersistent {
public:
    TComponent* GetOwner() const { return FOwner; }

protected:
    explicit TKxStyle(TComponent* Owner) : FOwner(Owner) {}
    template <class T>
    void Store(T& Field, const T& Value) {
        if (Field == Value) return;
        Field = Value;
        Changed();
    }

private:
    void Changed();
    TComponent* FOwner;
};

/// How a line looks: visible, red, solid, one pixel wide.
class TKxLineStyle : public TKxStyle {
public:
    explicit TKxLineStyle(TComponent* Owner) : TKxStyle(Owner) {}

    bool GetVisible() const { return FValues.Visible; }
    void SetVisible(bool Visible) { Store(FValues.Visible, Visible); }
    TColor GetColor() const { return FValues.Color; }
    void SetColor(TColor Color) { Store(FValues.Color, Color); }
    TPenStyle GetStyle() const { return FValues.Style; }
    void SetStyle(TPenStyle Style) { Store(FValues.Style, Style); }
    int GetWidth() const { return FValues.Width; }
    /// Pixels; a negative width is stored as 0.
    void SetWidth(int Width) { Store(FValues.Width, Width < 0 ? 0 : LimitedLength(Width)); }

    /// Takes over the values of a TKxLineStyle, not its owner; tells the own owner at most once.
    void Assign(const TPersistent& Source) override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

private:
    struct TValues {
        bool Visible = true;
        TColor Color = clRed;
        TPenStyle Style = psSolid;
        int Width = 1;
        friend bool operator==(const TValues&, const TValues&) = default;
    };
    TValues FValues;
};

/// How an area looks: visible, grey, solid, drawn in XOR mode. Nothing in this unit draws areas; who does
/// honours DrawXOred.
class TKxAreaStyle : public TKxStyle {
public:
    explicit TKxAreaStyle(TComponent* Owner) : TKxStyle(Owner) {}

    bool GetVisible() const { return FValues.Visible; }
    void SetVisible(bool Visible) { Store(FValues.Visible, Visible); }
    bool GetDrawXOred() const { return FValues.DrawXOred; }
    void SetDrawXOred(bool DrawXOred) { Store(FValues.DrawXOred, DrawXOred); }
    TColor GetColor() const { return FValues.Color; }
    void SetColor(TColor Color) { Store(FValues.Color, Color); }
    TBrushStyle GetStyle() const { return FValues.Style; }
    void SetStyle(TBrushStyle Style) { Store(FValues.Style, Style); }

    /// Takes over the values of a TKxAreaStyle, not its owner; tells the own owner at most once.
    void Assign(const TPersistent& Source) override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

private:
    struct TValues {
        bool Visible = true;
        bool DrawXOred = true;
        TColor Color = clGray;
        TBrushStyle Style = bsSolid;
        friend bool operator==(const TValues&, const TValues&) = default;
    };
    TValues FValues;
};

/// How a data point looks: visible, a blue circle of size 5 with an outline of one pixel.
class TKxPointStyle : public TKxStyle {
public:
    static constexpr int CDefaultSize = 5;
    explicit TKxPointStyle(TComponent* Owner) : TKxStyle(Owner) {}

    bool GetVisible() const { return FValues.Visible; }
    void SetVisible(bool Visible) { Store(FValues.Visible, Visible); }
    TColor GetColor() const { return FValues.Color; }
    void SetColor(TColor Color) { Store(FValues.Color, Color); }
    TKxPointSymbol GetStyle() const { return FValues.Style; }
    void SetStyle(TKxPointSymbol Style) { Store(FValues.Style, Style); }
    int GetSize() const { return FValues.Size; }
    /// Pixels from the centre to the outer edge; a negative size is stored as 5.
    void SetSize(int Size) { Store(FValues.Size, Size < 0 ? CDefaultSize : LimitedLength(Size)); }
    int GetWidth() const { return FValues.Width; }
    /// Pen width of the outline in pixels; a negative width is stored as 0.
    void SetWidth(int Width) { Store(FValues.Width, Width < 0 ? 0 : LimitedLength(Width)); }

    /// Takes over the values of a TKxPointStyle, not its owner; tells the own owner at most once.
    void Assign(const TPersistent& Source) override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

private:
    struct TValues {
        bool Visible = true;
        TColor Color = clBlue;
        TKxPointSymbol Style = SyCircle;
        int Size = CDefaultSize;
        int Width = 1;
        friend bool operator==(const TValues&, const TValues&) = default;
    };
    TValues FValues;
};

// The caller sets pen colour, pen width and brush colour; pen and brush styles are set here where it is said.
// What is changed on the canvas stays changed.

/// The pen of a line in Style: a width of 1 as a cosmetic one.
void UseLinePen(TCanvas& Canvas, const TKxLineStyle& Style);

/// The line without its end pixel. A pen of width 1 becomes one of width 0 (exactly one pixel wide).
void DrawLine(int X1, int Y1, int X2, int Y2, TCanvas& Canvas);
inline void DrawLine(TPoint From, TPoint To, TCanvas& Canvas) {
    DrawLine(From.X, From.Y, To.X, To.Y, Canvas);
}

/// On a smooth canvas: the line from end to end, cut off there.
void DrawLine(TRealPoint From, TRealPoint To, TCanvas& Canvas);

/// The outline of the rectangle, corners included, not filled. The pen as with DrawLine.
void DrawFrame(int X1, int Y1, int X2, int Y2, TCanvas& Canvas);

/// One symbol, centred at (X, Y) and reaching Size pixels from there, in the canvas's pen. Sets pen and brush
/// style to solid, and the brush to the pen's colour for a filled symbol.
void DrawPointSymbol(int X, int Y, int Size, TKxPointSymbol Symbol, TCanvas& Canvas);
inline void DrawPointSymbol(TPoint At, int Size, TKxPointSymbol Symbol, TCanvas& Canvas) {
    DrawPointSymbol(At.X, At.Y, Size, Symbol, Canvas);
}
/// On a smooth canvas: the same about an exact place, with corners where they belong.
void DrawPointSymbol(TRealPoint At, int Size, TKxPointSymbol Symbol, TCanvas& Canvas);

/// A line from (X1, Y1) to the tip (X2, Y2) with a filled head there, TipLength long and twice TipWidth wide.
/// An arrow of no length is one pixel. Sets the brush: clear for that pixel, else solid in the pen's colour.
/// Raises EZeroDivide "Floating point division by zero" for a TipLength of 0, after the line is drawn.
void DrawArrow(int X1, int Y1, int X2, int Y2, int TipLength, int TipWidth, TCanvas& Canvas);
/// On a smooth canvas; the shaft ends where the head begins.
void DrawArrow(TRealPoint From, TRealPoint To, int TipLength, int TipWidth, TCanvas& Canvas);

/// A box with a front face between the two corners, a top face and a right side face. The depth, |DX| and
/// |DY| pixels, goes up and to the right. Sets pen and brush to solid; leaves FrameColor and SideColor in
/// them.
void Draw3DBar(int X1, int Y1, int X2, int Y2, int DX, int DY, TColor FrameColor, TColor FrontColor,
               TColor TopColor, TColor SideColor, TCanvas& Canvas);
/// On a smooth canvas: the same with an exact front.
void Draw3DBar(const TRealRect& Front, int DX, int DY, TColor FrameColor, TColor FrontColor, TColor TopColor,
               TColor SideColor, TCanvas& Canvas);

} // namespace kx
