#pragma once
// Where the line of an axis stands, and what lies beside it.

#include <kxgraph/graph/Kxside.h>
#include <kxgraph/platform/drawing/geometry.h>

namespace kx {

/// In pixels of the axis's control. Offsets count along the line from the axis's start, distances outwards
/// from the line.
struct TKxAxisLine {
    TKxSide Side;
    TPoint Origin; ///< left end of a horizontal line, upper end of a vertical one
    int Length = 0;
    int CaptionFrom = 0; ///< a caption keeps so far off the line at least

    TPoint PointAt(int Offset, int Distance) const {
        return Origin + Side.Point(Side.FromStart(Length, Offset), Side.Outward() * Distance);
    }
    TRealPoint PlaceAt(double Offset, double Distance) const {
        return TRealPoint(Origin) +
               Side.Place(Side.FromStart<double>(Length, Offset), Side.Outward() * Distance);
    }
    /// The top left of what begins at Along, wherever the line is, and reaches outwards from Distance.
    TPoint PlaceOutwards(int Along, int Distance, TSize Size) const {
        const int from = Side.Across(Origin) + Side.Outward() * Distance;
        return Side.Point(Along, Side.LeastFrom(from, Side.Across(Size)));
    }
};

} // namespace kx
