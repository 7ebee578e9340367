#include <kxgraph/design/Kxdesignhandles.h>

#include <cstdlib>
#include <vector>

namespace kx {

namespace {

constexpr int CHalf = 3;  // of a handle
constexpr int CReach = 5; // a press so near takes it
constexpr TColor CMark = static_cast<TColor>(0x00D06020), CLineMark = static_cast<TColor>(0x003030E0);

struct THandle {
    TPoint Middle;
    TKxDesignEdges Edges;
};

std::vector<THandle> HandlesOf(const TRect& Rect, bool IsForm) {
    const int in = IsForm ? CHalf + 1 : 0;
    const int left = Rect.Left, right = Rect.Right - 1 - in, top = Rect.Top, bottom = Rect.Bottom - 1 - in;
    const int x = (left + right) / 2, y = (top + bottom) / 2;
    std::vector<THandle> handles{{{right, bottom}, {false, false, true, true}},
                                 {{right, y}, {false, false, true, false}},
                                 {{x, bottom}, {false, false, false, true}}};
    if (IsForm) return handles;
    handles.insert(handles.end(), {{{left, top}, {true, true, false, false}},
                                   {{right, top}, {false, true, true, false}},
                                   {{left, bottom}, {true, false, false, true}},
                                   {{left, y}, {true, false, false, false}},
                                   {{x, top}, {false, true, false, false}}});
    return handles;
}

} // namespace

std::optional<TKxDesignEdges> HandleAt(const TRect& Rect, TPoint Pos, bool IsForm) {
    for (const THandle& handle : HandlesOf(Rect, IsForm)) {
        const TPoint by = Pos - handle.Middle;
        if (std::abs(by.X) <= CReach && std::abs(by.Y) <= CReach) return handle.Edges;
    }
    return {};
}

void PaintHandle(TCanvas& Canvas, TPoint Middle, bool IsPrimary) {
    Canvas.Pen.SetColor(IsPrimary ? clWhite : CMark);
    Canvas.Pen.SetWidth(1);
    Canvas.Pen.SetStyle(psSolid);
    Canvas.Brush.SetStyle(bsSolid);
    Canvas.Brush.SetColor(IsPrimary ? CMark : clWhite);
    Canvas.Rectangle(Middle.X - CHalf, Middle.Y - CHalf, Middle.X + CHalf + 1, Middle.Y + CHalf + 1);
}

namespace {

void PaintRect(TCanvas& Canvas, const TRect& Rect, TColor Color, TPenStyle Style) {
    Canvas.Pen.SetColor(Color);
    Canvas.Pen.SetWidth(1);
    Canvas.Pen.SetStyle(Style);
    Canvas.Brush.SetStyle(bsClear);
    Canvas.Rectangle(Rect);
}

} // namespace

void PaintFrame(TCanvas& Canvas, const TRect& Rect, bool Resizes, bool IsForm) {
    PaintRect(Canvas, Rect, CMark, Resizes ? psSolid : psDot);
    if (!Resizes) return;
    for (const THandle& handle : HandlesOf(Rect, IsForm)) PaintHandle(Canvas, handle.Middle, true);
}

void PaintOutline(TCanvas& Canvas, const TRect& Rect) { PaintRect(Canvas, Rect, CMark, psDash); }

void PaintGuide(TCanvas& Canvas, const TRect& Line) {
    Canvas.Brush.SetStyle(bsSolid);
    Canvas.Brush.SetColor(CLineMark);
    Canvas.FillRect(Line);
}

} // namespace kx
