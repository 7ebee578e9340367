#include <kxgraph/series/Kxbargeometry.h>

#include <cmath>

namespace kx {

namespace {

double FiniteOr0(double Value) { return std::isfinite(Value) ? Value : 0; }

TColor ScaledColor(TColor Color, int Factor) {
    Color = ColorToRGB(Color);
    const auto scaled = [Factor](int Channel) { return Channel / 10 * Factor & 0xFF; };
    return RGB(scaled(RedOf(Color)), scaled(GreenOf(Color)), scaled(BlueOf(Color)));
}

/// Whether the pixels First..Last, border included, lie outside 0..Size-1 or only touch it.
bool Misses(int First, int Last, int Size) {
    const int end = Size - 1;
    return First < Last ? Last <= 0 || First >= end : Last < 0 || First > end;
}

} // namespace

// Edges may saturate at opposite ends, where their distance exceeds an int.
TKxBarSlot SlotInBin(int Edge, int NextEdge, const TKxBarLayout& Layout) {
    const double width = double(NextEdge) - Edge;
    const double gap = std::nearbyint(width * FiniteOr0(Layout.GapPercent) / 200);
    const bool gapsMeet = std::abs(2 * gap) > std::abs(width) && gap * width > 0;
    const double from = Edge + (gapsMeet ? std::nearbyint(width / 2) : gap);
    const double rest = gapsMeet ? 0 : width - 2 * gap;
    const auto border = [&](int Slot) {
        return RoundToInt(from + std::nearbyint(rest / Layout.Count * Slot));
    };
    const double depth = std::abs(rest) * FiniteOr0(Layout.DepthPercent);
    return {border(Layout.Place - 1), border(Layout.Place), RoundToInt(depth / 240), RoundToInt(depth / 400)};
}

TKxBarSpan SpanInBin(double Edge, double NextEdge, const TKxBarLayout& Layout) {
    const double width = NextEdge - Edge;
    const double gap = std::min(FiniteOr0(Layout.GapPercent), 100.0) / 200;
    const double from = Edge + width * gap, slot = width * (1 - 2 * gap) / Layout.Count;
    return {from + slot * (Layout.Place - 1), from + slot * Layout.Place};
}

void BarPixels(const TKxAxisMap& Map, std::span<const double> Values, int* First, std::ptrdiff_t Stride) {
    Map.RealToIntPositions(Values, First, Stride);
    const int start = Map.RealToIntPosition(Map.Start);
    for (std::size_t i = 0; i < Values.size(); ++i) {
        int& pixel = First[static_cast<std::ptrdiff_t>(i) * Stride];
        if (Map.IsLogarithmic() && Values[i] <= 0) pixel = start;
        if (!std::isfinite(Values[i])) pixel = CNoPixel;
    }
}

namespace {

template <class F>
double SumBelow(std::span<const TKxBarValues> Below, std::size_t Index, F Counts) {
    double sum = 0;
    for (const TKxBarValues values : Below)
        if (Index < values.size() && Counts(values[Index])) sum += FiniteOr0(values[Index]);
    return sum;
}

} // namespace

double StackBelow(std::span<const TKxBarValues> Below, std::size_t Index) {
    return SumBelow(Below, Index, [](double) { return true; });
}

double StackBeside(std::span<const TKxBarValues> Below, std::size_t Index, double Value) {
    return SumBelow(Below, Index, [Value](double Other) { return (Other < 0) == (Value < 0); });
}

TRect BarOutline(const TKxBarSlot& Slot, int Start, int End, bool Horizontal) {
    const auto [a0, a1] = std::minmax(Slot.Near, Slot.Far);
    const auto [v0, v1] = std::minmax(Start, End);
    return Horizontal ? TRect{v0, a0, v1 + 1, a1 + 1} : TRect{a0, v0, a1 + 1, v1 + 1};
}

TRealRect BarOutline(const TKxBarSpan& Span, double Start, double End, bool Horizontal) {
    const auto [a0, a1] = std::minmax(Span.Near, Span.Far);
    const auto [v0, v1] = std::minmax(Start, End);
    return Horizontal ? TRealRect{v0, a0, v1 + 1, a1 + 1} : TRealRect{a0, v0, a1 + 1, v1 + 1};
}

TRect BarArea(const TRect& Outline, bool Horizontal) {
    TRect area = Outline;
    if (Horizontal || area.Width() > 1) --area.Right;
    if (!Horizontal || area.Height() > 1) --area.Bottom;
    return area;
}

TRealRect BarArea(const TRealRect& Outline, bool Horizontal) {
    const double across = (Horizontal ? Outline.Height() : Outline.Width()) - 1;
    const double thin = std::max(0.0, 1 - across) / 2; // at least a pixel across
    const double x = Horizontal ? 0.5 : 0.5 - thin, y = Horizontal ? 0.5 - thin : 0.5;
    return {Outline.Left + x, Outline.Top + y, Outline.Right - x, Outline.Bottom - y};
}

bool IsBarInside(const TRect& Outline, TSize World) {
    return !Misses(Outline.Left, Outline.Right - 1, World.Width) &&
           !Misses(Outline.Top, Outline.Bottom - 1, World.Height);
}

bool AreOneLine(const TRect& A, const TRect& B, bool Horizontal) {
    if (Horizontal)
        return A.Top == B.Top && A.Height() == 1 && B.Height() == 1 && A.Left <= B.Right && B.Left <= A.Right;
    return A.Left == B.Left && A.Width() == 1 && B.Width() == 1 && A.Top <= B.Bottom && B.Top <= A.Bottom;
}

bool AreOneLine(const TRealRect& A, const TRealRect& B, bool Horizontal) {
    constexpr double CNear = 0.05; // of a pixel
    const auto isNarrow = [](double From, double To) { return To - From <= 1 + CNear; };
    if (Horizontal)
        return isNarrow(std::min(A.Top, B.Top), std::max(A.Bottom, B.Bottom)) && A.Left <= B.Right &&
               B.Left <= A.Right;
    return isNarrow(std::min(A.Left, B.Left), std::max(A.Right, B.Right)) && A.Top <= B.Bottom &&
           B.Top <= A.Bottom;
}

bool PaintsInEdgeOrder(int FirstEdge, int LastEdge, bool Horizontal) {
    return Horizontal ? FirstEdge >= LastEdge : FirstEdge <= LastEdge;
}

bool PaintsBefore(const TRect& A, const TRect& B, bool Horizontal) {
    if (Horizontal && A.Bottom != B.Bottom) return A.Bottom > B.Bottom;
    return A.Left != B.Left ? A.Left < B.Left : A.Bottom > B.Bottom;
}

TColor BarTopColor(TColor Front) { return ScaledColor(Front, 13); }
TColor BarSideColor(TColor Front) { return ScaledColor(Front, 6); }

} // namespace kx
