#pragma once
// Ticks and labels of an axis as values. Pixels here are offsets from the start of the axis: from the left
// end of a horizontal one, from the bottom of a vertical one (y = AxisLength - offset).

#include <kxgraph/graph/Kxscale.h>
#include <kxgraph/graph/Kxside.h>
#include <kxgraph/numeric/Kxconsts.h>

#include <span>
#include <string>
#include <vector>

namespace kx {

/// More ticks than this are never made of a linear scale; steps that ask for more give way to automatic ones.
inline constexpr int CMaxTicks = 20000;

struct TKxTickLabel {
    double Value;
    int Position; ///< that of its tick
    std::string Text;
    double Place = 0;                ///< that of its tick, not rounded
    std::vector<std::string> More{}; ///< further lines, outwards, or above beside a vertical axis
};

/// Ticks in order of their offset.
struct TKxTicks {
    TKxRealArray Values;
    TKxIntegerArray Positions;
    TKxBooleanArray IsMajor;
    std::vector<TKxTickLabel> Labels;
    std::string ExponentLabel; ///< caption markup; empty unless labels are factored
    TKxRealArray Places;       ///< Positions before they are rounded

    // What is to be done about labels that touch.
    bool CanBeCoarser = false; ///< more Coarseness gives others
    bool MayTurn = false;      ///< written upwards where that makes them shorter along the axis
    bool MustThin = false;     ///< thinned out after that, whether the axis is told to or not
};

struct TKxTickOptions {
    TKxSide Side;                ///< of the direction that the map was made with
    bool ShowScaleLabels = true; ///< without, there are ticks only
    bool ZeroOrigin = false;     ///< the axes cross at 0: a linear scale through 0 leaves its label 0 out
    int Coarseness = 0;          ///< how many attempts gave labels that touch
};

/// The ticks of the scale Ends under Map. A tick stands where the map puts its value and a label tells the
/// value of its place: ticks are the multiples of the tick step inside the range, logarithmic ones the
/// decades and 4, 6 and 8 times a decade (fewer where a decade has hardly a pixel). There are two ticks at
/// least, at the ends where no step fits. Raises EConvertError as Map does.
TKxTicks CalculateTicks(const TKxScaleEnds& Ends, const TKxAxisMap& Map, const TKxTickOptions& Options);

struct TKxTick {
    double Value;
    bool IsMajor;
};
/// Ticks and labels, both sorted by value, where Map has them; positions in Labels are not used.
TKxTicks TicksAt(const std::vector<TKxTick>& Ticks, std::vector<TKxTickLabel> Labels, const TKxAxisMap& Map,
                 TKxSide Side);
/// Moves the ticks of a linear scale to where another map of the same scale has them.
void MoveTicks(TKxTicks& Ticks, const TKxAxisMap& Map, TKxSide Side);

/// The room that a label takes along the axis.
struct TKxLabelExtent {
    int Position; ///< of its centre
    int Extent;
};

/// The label that stays whatever the stride: the one that reads zero, else the first (0).
int AnchorLabel(std::span<const TKxTickLabel> Labels);
/// Whether the label at Index is kept: every Stride-th, counted from Anchor in both directions.
inline bool IsKeptLabel(int Index, int Anchor, int Stride) { return (Index - Anchor) % Stride == 0; }
/// The smallest stride that leaves MinGap pixels (at least 1) between neighbours kept, down to the anchor
/// alone; 1 for no labels. Labels are in order of position, ascending or descending.
int LabelStride(std::span<const TKxLabelExtent> Labels, int MinGap, int Anchor);

} // namespace kx
