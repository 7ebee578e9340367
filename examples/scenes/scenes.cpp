#include "scenes/scenes.h"

#include <kxgraph/annotation/Kxcaption.h>
#include <kxgraph/series/Kxdraw.h>

#include <cmath>
#include <numbers>

namespace kx::scenes {

namespace {

constexpr TColor CInk = RGB(40, 44, 52), CFaint = RGB(120, 126, 138), CRule = RGB(205, 209, 216);
constexpr TColor CBlue = RGB(31, 98, 176), COrange = RGB(214, 108, 20), CGreen = RGB(44, 134, 74);

void Write(TCanvas& Canvas, int X, int Y, const TKxCaption& Caption, int Points = 10, TColor Color = CInk,
           int Angle = 0) {
    Canvas.Font.SetName("Arial");
    Canvas.Font.SetSize(Points);
    Canvas.Font.SetColor(Color);
    PaintCaption(ParseCaption(Caption), Canvas, X, Y, Angle);
}

void UsePen(TCanvas& Canvas, TColor Color, int Width) {
    Canvas.Pen.SetStyle(psSolid);
    Canvas.Pen.SetColor(Color);
    Canvas.Pen.SetWidth(Width);
}

/// A heading with a rule below it.
void Head(TCanvas& Canvas, int X, int Y, int Width, const TKxCaption& Caption) {
    Write(Canvas, X, Y, "\\b" + Caption);
    UsePen(Canvas, CRule, 1);
    DrawLine(X, Y + 20, X + Width, Y + 20, Canvas);
}

void PaintSymbols(TCanvas& Canvas, int X, int Y) {
    struct TLook {
        int Size, Width;
        TColor Color;
    };
    static constexpr TLook looks[] = {{4, 1, CBlue}, {7, 1, COrange}, {9, 2, CGreen}};
    for (int i = 0; i < CPointSymbolCount; ++i) {
        const int left = X + i % 2 * 200, middle = Y + i / 2 * 26;
        Write(Canvas, left, middle - 8, std::string(CEnumNames<TKxPointSymbol>[std::size_t(i)]));
        int x = left + 118;
        for (const TLook& look : looks) {
            UsePen(Canvas, look.Color, look.Width);
            Canvas.Brush.SetColor(clWhite);
            DrawPointSymbol(x, middle, look.Size, static_cast<TKxPointSymbol>(i), Canvas);
            x += 28;
        }
    }
}

/// Arrows from the middle to all sides, every other one with a larger and flatter head.
void PaintArrows(TCanvas& Canvas, TPoint Middle) {
    constexpr int count = 16, inner = 18, outer = 84;
    for (int i = 0; i < count; ++i) {
        const double angle = 2 * std::numbers::pi * i / count;
        const auto at = [&](int Radius) {
            return Middle +
                   TPoint{RoundToInt(Radius * std::cos(angle)), -RoundToInt(Radius * std::sin(angle))};
        };
        const bool large = i % 2 == 0;
        UsePen(Canvas, large ? CBlue : COrange, 1);
        DrawArrow(at(inner).X, at(inner).Y, at(outer).X, at(outer).Y, large ? 18 : 12, large ? 6 : 3, Canvas);
    }
    DrawArrow(Middle.X, Middle.Y, Middle.X, Middle.Y, 12, 4, Canvas);
}

void PaintBars(TCanvas& Canvas, int X, int Bottom) {
    static constexpr int heights[] = {46, 82, 64, 28};
    int x = X;
    for (const int height : heights) {
        UsePen(Canvas, CInk, 1);
        Draw3DBar(x, Bottom, x + 22, Bottom - height, 9, 7, CInk, RGB(112, 160, 214), RGB(188, 212, 238),
                  RGB(70, 112, 164), Canvas);
        x += 32;
    }
}

void PaintFrames(TCanvas& Canvas, int X, int Y) {
    static constexpr TPenStyle styles[] = {psSolid, psDash, psDot, psDashDot};
    int x = X;
    for (const TPenStyle style : styles) {
        UsePen(Canvas, CGreen, 1);
        Canvas.Pen.SetStyle(style);
        DrawFrame(x, Y, x + 26, Y + 26, Canvas);
        x += 34;
    }
    UsePen(Canvas, CGreen, 3);
    DrawFrame(X + 1, Y + 38, X + 127, Y + 56, Canvas);
}

/// Captions as they are written, and as they show.
void PaintMarkup(TCanvas& Canvas, int X, int Y) {
    static const TKxCaption captions[] = {
        "plain text",
        "\\b bold\\b  text",
        "\\i italic\\i  text",
        "\\u underlined\\u  text",
        "\\o struck out\\o  text",
        "H\\-2\\-O, E = mc\\+2\\+",
        "\\sa\\s  = \\sDl\\s  / \\sl\\s\\-0\\-",
        "\\b\\i x\\i\\-max\\-\\b, 10\\+-3\\+  \\sW\\sm",
        "C:\\\\data\\\\run",
    };
    for (const TKxCaption& caption : captions) {
        Write(Canvas, X, Y, EscapeCaption(caption), 9, CFaint);
        Write(Canvas, X + 218, Y - 2, caption, 12);
        Y += 25;
    }
}

/// One caption in several directions about a point.
void PaintTurned(TCanvas& Canvas, TPoint Middle) {
    static constexpr int angles[] = {0, 300, 600, 900, 1800, 2700};
    for (const int angle : angles) {
        UsePen(Canvas, COrange, 1);
        DrawPointSymbol(Middle.X, Middle.Y, 2, SyCross, Canvas);
        const TKxDirection d = DirectionOf(angle);
        const int x = RoundToInt(double(Middle.X + 26 * d.Cos - 9 * d.Sin));
        const int y = RoundToInt(double(Middle.Y - 26 * d.Sin - 9 * d.Cos));
        const std::string degrees = std::to_string(angle / 10);
        Write(Canvas, x, y, "\\b y\\b\\-1\\-  = sin \\u\\sj\\s\\u\\+" + degrees + "\xC2\xB0", 12, CInk,
              angle);
    }
}

} // namespace

void PaintSymbolSheet(TCanvas& Canvas) {
    Canvas.Brush.SetColor(clWhite);
    Canvas.Brush.SetStyle(bsSolid);
    Canvas.FillRect({0, 0, CSymbolSheetSize.Width, CSymbolSheetSize.Height});
    Head(Canvas, 16, 12, 386, "Point symbols");
    PaintSymbols(Canvas, 16, 54);
    Head(Canvas, 426, 12, 168, "Arrows");
    PaintArrows(Canvas, {510, 140});
    Head(Canvas, 616, 12, 128, "Bars and frames");
    PaintBars(Canvas, 616, 142);
    PaintFrames(Canvas, 616, 170);
    Head(Canvas, 16, 260, 386, "Caption markup");
    PaintMarkup(Canvas, 16, 292);
    Head(Canvas, 426, 260, 318, "Captions at any angle");
    PaintTurned(Canvas, {560, 398});
}

} // namespace kx::scenes
