// Point symbols: tables of points in hundredths of the size, and the one body that draws them.

#include <kxgraph/series/Kxdraw.h>

#include <array>
#include <cstdint>
#include <span>

namespace kx {

namespace {

enum class TShape {
    Dot,       // one pixel
    Rays,      // lines from the centre
    Polygon,   // through the points
    Ellipse,   // as large as the size allows
    Rectangle, // likewise
};

struct TSymbol {
    TShape Shape;
    bool Filled;
    std::span<const TPoint> Points; // hundredths of the size, from the centre
};

constexpr int CMaxPolygon = 10;

constexpr TPoint CRays[] = {{100, 0},   {-100, 0},   {0, 100},    {0, -100}, // upright
                            {100, 100}, {100, -100}, {-100, 100}, {-100, -100}};
constexpr TPoint CStar[CMaxPolygon] = {{0, -108}, {27, -30}, {100, -30}, {40, 12},    {64, 82},
                                       {0, 40},   {-64, 82}, {-40, 12},  {-100, -30}, {-27, -30}};
constexpr TPoint CDiamond[] = {{0, -100}, {100, 0}, {0, 100}, {-100, 0}};
constexpr TPoint CDelta[] = {{0, -100}, {100, 100}, {-100, 100}};
constexpr TPoint CNabla[] = {{-100, -100}, {100, -100}, {0, 100}};

// In the order of TKxPointSymbol.
constexpr std::array<TSymbol, CPointSymbolCount> CSymbols{{
    {TShape::Dot, false, {}},
    {TShape::Rays, false, std::span(CRays, 4)},
    {TShape::Rays, false, std::span(CRays + 4, 4)},
    {TShape::Rays, false, std::span(CRays, 8)},
    {TShape::Polygon, false, CStar},
    {TShape::Polygon, true, CStar},
    {TShape::Ellipse, false, {}},
    {TShape::Ellipse, true, {}},
    {TShape::Rectangle, false, {}},
    {TShape::Rectangle, true, {}},
    {TShape::Polygon, false, CDiamond},
    {TShape::Polygon, true, CDiamond},
    {TShape::Polygon, false, CDelta},
    {TShape::Polygon, true, CDelta},
    {TShape::Polygon, false, CNabla},
    {TShape::Polygon, true, CNabla},
}};

/// The pixel that lies Hundredths of Size away from Center, cut off towards the centre.
int PixelAt(int Center, int Hundredths, int Size) {
    const std::int64_t away = std::int64_t(Hundredths) * Size / 100;
    return RoundToInt(double(Center) + double(away));
}

void DrawRays(TPoint Center, int Size, std::span<const TPoint> Rays, TCanvas& Canvas) {
    for (const TPoint& ray : Rays)
        DrawLine(Center.X, Center.Y, PixelAt(Center.X, ray.X, Size), PixelAt(Center.Y, ray.Y, Size), Canvas);
}

void DrawPolygon(TPoint Center, int Size, std::span<const TPoint> Corners, TCanvas& Canvas) {
    std::array<TPoint, CMaxPolygon> points;
    for (std::size_t i = 0; i < Corners.size(); ++i)
        points[i] = {PixelAt(Center.X, Corners[i].X, Size), PixelAt(Center.Y, Corners[i].Y, Size)};
    Canvas.Polygon(std::span(points.data(), Corners.size()));
}

/// The pixels up to Size away from Center on all four sides.
TRect SquareAround(TPoint Center, int Size) {
    return {PixelAt(Center.X, -100, Size), PixelAt(Center.Y, -100, Size), PixelAt(Center.X, 100, Size) + 1,
            PixelAt(Center.Y, 100, Size) + 1};
}

void DrawRays(TRealPoint Center, int Size, std::span<const TPoint> Rays, TCanvas& Canvas) {
    for (const TPoint& ray : Rays)
        DrawLine(Center, {Center.X + ray.X * Size / 100.0, Center.Y + ray.Y * Size / 100.0}, Canvas);
}

void DrawPolygon(TRealPoint Center, int Size, std::span<const TPoint> Corners, TCanvas& Canvas) {
    std::array<TRealPoint, CMaxPolygon> points;
    for (std::size_t i = 0; i < Corners.size(); ++i)
        points[i] = {Center.X + Corners[i].X * Size / 100.0, Center.Y + Corners[i].Y * Size / 100.0};
    Canvas.Polygon(std::span(points.data(), Corners.size()));
}

void DrawDot(TPoint At, TCanvas& Canvas) { DrawLine(At.X, At.Y, At.X, At.Y + 1, Canvas); }
void DrawDot(TRealPoint At, TCanvas& Canvas) {
    DrawLine(TRealPoint{At.X, At.Y - 0.5}, {At.X, At.Y + 0.5}, Canvas);
}

TRealRect SquareAround(TRealPoint Center, int Size) {
    return {Center.X - Size, Center.Y - Size, Center.X + Size + 1, Center.Y + Size + 1};
}

template <class P>
void DrawSymbol(P At, int Size, TKxPointSymbol Symbol, TCanvas& Canvas) {
    const TSymbol& symbol = CSymbols.at(Symbol);
    Canvas.Brush.SetStyle(bsSolid);
    Canvas.Pen.SetStyle(psSolid);
    if (symbol.Filled) Canvas.Brush.SetColor(Canvas.Pen.GetColor());
    switch (symbol.Shape) {
    case TShape::Dot: DrawDot(At, Canvas); break;
    case TShape::Rays: DrawRays(At, Size, symbol.Points, Canvas); break;
    case TShape::Polygon: DrawPolygon(At, Size, symbol.Points, Canvas); break;
    case TShape::Ellipse: Canvas.Ellipse(SquareAround(At, Size)); break;
    case TShape::Rectangle: Canvas.Rectangle(SquareAround(At, Size)); break;
    }
}

} // namespace

void DrawPointSymbol(int X, int Y, int Size, TKxPointSymbol Symbol, TCanvas& Canvas) {
    DrawSymbol(TPoint{X, Y}, Size, Symbol, Canvas);
}

void DrawPointSymbol(TRealPoint At, int Size, TKxPointSymbol Symbol, TCanvas& Canvas) {
    DrawSymbol(At, Size, Symbol, Canvas);
}

} // namespace kx
