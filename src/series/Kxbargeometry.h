#pragma once
// Where bars stand: how a bin is divided into slots, what a stack adds up to, which pixels a bar covers and
// how deep it is drawn. Pure: no series, no canvas. All positions are pixels as axes give them (x to the
// right, y downwards).

#include <kxgraph/graph/Kxscale.h>
#include <kxgraph/platform/drawing/geometry.h>
#include <kxgraph/platform/text/colors.h>

#include <span>

namespace kx {

/// How bins are shared by the series of a group that stand side by side.
struct TKxBarLayout {
    int Count = 1;            ///< slots of a bin, at least 1
    int Place = 1;            ///< the slot of this series, 1 next to the bin's first edge
    double GapPercent = 0;    ///< of the bin, half of it free at each side
    double DepthPercent = 50; ///< of what the gaps leave
};

/// What one bar takes of its bin, from Near (towards the first edge) to Far, and its depth to the right and
/// upwards. Neighbours share their border pixel.
struct TKxBarSlot {
    int Near = 0;
    int Far = 0;
    int DepthX = 0;
    int DepthY = 0;
    friend bool operator==(const TKxBarSlot&, const TKxBarSlot&) = default;
};

/// The same before anything is rounded; without a depth.
struct TKxBarSpan {
    double Near = 0;
    double Far = 0;
};

/// The slot between two edges, in whichever direction they follow one another. With w pixels between them the
/// gap is Round(w GapPercent / 200) at each side, and of the rest w' slot k ends at Round(w' k / Count)
/// behind the first gap; the depth is Round(w' DepthPercent / 240) to the right and / 400 upwards. Gaps that
/// meet leave a bar without width in the middle. A percentage that is not finite counts as 0.
TKxBarSlot SlotInBin(int Edge, int NextEdge, const TKxBarLayout& Layout);

TKxBarSpan SpanInBin(double Edge, double NextEdge, const TKxBarLayout& Layout);

/// The pixels of edges or ends (TKxAxisMap::EndPosition): that of Values[i] goes to First[i * Stride].
void BarPixels(const TKxAxisMap& Map, std::span<const double> Values, int* First, std::ptrdiff_t Stride);

using TKxBarValues = std::span<const double>;
/// Where bar Index of a stack begins: the sum of the series below that have such a bar, 0 when none has.
/// Values that are not finite are not drawn and carry nothing.
double StackBelow(std::span<const TKxBarValues> Below, std::size_t Index);
/// The same where a stack grows away from zero on both sides: the sum of the values below that lie on Value's
/// side. 0 lies above.
double StackBeside(std::span<const TKxBarValues> Below, std::size_t Index, double Value);

/// The pixels of a bar with its outline: across from slot side to slot side, along from Start to End, all of
/// them included.
TRect BarOutline(const TKxBarSlot& Slot, int Start, int End, bool Horizontal);
TRealRect BarOutline(const TKxBarSpan& Span, double Start, double End, bool Horizontal);
/// What is filled of a bar that has no outline: without the border pixels that it shares with its right and
/// lower neighbour, yet at least one pixel across.
TRect BarArea(const TRect& Outline, bool Horizontal);
/// The same of an exact one: between the lines that an outline would be.
TRealRect BarArea(const TRealRect& Outline, bool Horizontal);
/// Whether more of a bar than its border lies in a world of that size.
bool IsBarInside(const TRect& Outline, TSize World);
/// Whether two bars, both one pixel across, share that pixel and meet along it: their union is drawn as they
/// both are. Bars without depth only.
bool AreOneLine(const TRect& A, const TRect& B, bool Horizontal);
/// The same of exact ones that together are hardly wider than a pixel.
bool AreOneLine(const TRealRect& A, const TRealRect& B, bool Horizontal);
/// Whether bars are to be painted in the order of their edges, so that each covers the depth of the one
/// before.
bool PaintsInEdgeOrder(int FirstEdge, int LastEdge, bool Horizontal);
/// Whether, of two boxes in one bin, A is to be painted before B: depth goes to the right and upwards.
bool PaintsBefore(const TRect& A, const TRect& B, bool Horizontal);

/// The faces of a bar of that colour: each channel c becomes (c div 10) times 13 above, times 6 at the side.
/// Kept: channels above 196 wrap round in eight bits, and white bars have a dark grey top.
TColor BarTopColor(TColor Front);
TColor BarSideColor(TColor Front);

} // namespace kx
