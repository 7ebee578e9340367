#pragma once
// The sides of a drawing world as values: along and across, near and far, inwards and outwards. Layout, axes
// and what stands beside them are written once for all sides.

#include <kxgraph/platform/drawing/geometry.h>
#include <kxgraph/platform/objects/typenames.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace kx {

enum TKxAxisPos {
    AxBottomPos,   ///< below the drawing world; horizontal
    AxLeftPos,     ///< left of it; vertical
    AxTopPos,      ///< above it; horizontal
    AxRightPos,    ///< right of it; vertical
    AxFreeFloating ///< wherever the axis was put
};
template <>
inline constexpr auto CEnumNames<TKxAxisPos> =
    std::to_array<std::string_view>({"AxBottomPos", "AxLeftPos", "AxTopPos", "AxRightPos", "AxFreeFloating"});

enum TKxAxisOrientation { AxHorizontal, AxVertical };
template <>
inline constexpr auto CEnumNames<TKxAxisOrientation> = std::to_array<std::string_view>({"AxHorizontal",
                                                                                        "AxVertical"});

/// A side of a rectangle, or free floating, which has a direction alone and else is as at the bottom or, when
/// vertical, at the left. Along is x at bottom and top, y at left and right; across is the other one.
/// Outwards leads away from the middle of the rectangle.
class TKxSide {
public:
    constexpr TKxSide(TKxAxisPos Position = AxLeftPos) : TKxSide(Position, AxVertical) {}
    /// Free floating in this direction.
    constexpr TKxSide(TKxAxisOrientation Orientation) : TKxSide(AxFreeFloating, Orientation) {}

    constexpr TKxAxisPos Position() const { return FPosition; }
    constexpr bool IsFree() const { return FPosition == AxFreeFloating; }
    constexpr bool IsHorizontal() const { return FSeat == AxBottomPos || FSeat == AxTopPos; }
    constexpr TKxAxisOrientation Orientation() const { return IsHorizontal() ? AxHorizontal : AxVertical; }
    /// What floats freely keeps the direction that it had.
    constexpr TKxSide MovedTo(TKxAxisPos Position) const { return {Position, Orientation()}; }
    constexpr TKxSide Opposite() const { return Seat(FSeat + 2); }
    /// Where the first axis of this direction stands: bottom or left.
    constexpr TKxSide Near() const { return IsHorizontal() ? AxBottomPos : AxLeftPos; }
    /// The sides at the two ends of what lies along this one; values start at the left and at the bottom.
    constexpr TKxSide AtStart() const { return IsHorizontal() ? AxLeftPos : AxBottomPos; }
    constexpr TKxSide AtStop() const { return AtStart().Opposite(); }
    /// 1 where pixels grow outwards, -1 at left and top.
    constexpr int Outward() const { return FSeat == AxBottomPos || FSeat == AxRightPos ? 1 : -1; }

    constexpr int Along(TPoint P) const { return IsHorizontal() ? P.X : P.Y; }
    constexpr int Across(TPoint P) const { return IsHorizontal() ? P.Y : P.X; }
    constexpr int Along(TSize S) const { return IsHorizontal() ? S.Width : S.Height; }
    constexpr int Across(TSize S) const { return AcrossOf(S); }
    constexpr int& AcrossOf(TSize& S) const { return IsHorizontal() ? S.Height : S.Width; }
    constexpr TPoint Point(int Along, int Across) const {
        return IsHorizontal() ? TPoint{Along, Across} : TPoint{Across, Along};
    }
    constexpr TRealPoint Place(double Along, double Across) const {
        return IsHorizontal() ? TRealPoint{Along, Across} : TRealPoint{Across, Along};
    }
    constexpr TSize Size(int Along, int Across) const {
        return IsHorizontal() ? TSize{Along, Across} : TSize{Across, Along};
    }
    /// Pixels count from the left and from the top, what stands along a side from its start. Its own inverse.
    template <class T>
    constexpr T FromStart(T Length, T Offset) const {
        return IsHorizontal() ? Offset : Length - Offset;
    }

    /// Of four numbers, one for each side, that of this one.
    constexpr int& Of(TRect& Sides) const { return Sides.*CSides[FSeat]; }
    constexpr int Of(const TRect& Sides) const { return Sides.*CSides[FSeat]; }
    /// The outermost pixel of Rect, and the innermost one.
    constexpr int OuterPixel(const TRect& Rect) const { return Of(Rect) - (Outward() > 0); }
    constexpr int InnerPixel(const TRect& Rect) const { return Opposite().OuterPixel(Rect); }
    /// The least of Extent pixels that reach outwards from the pixel From.
    constexpr int LeastFrom(int From, int Extent) const { return Outward() > 0 ? From : From - Extent + 1; }
    /// The least of Extent pixels inside of Rect that keep Gap pixels off this side of it.
    constexpr int LeastInside(const TRect& Rect, int Gap, int Extent) const {
        return Opposite().LeastFrom(OuterPixel(Rect) - Outward() * Gap, Extent);
    }
    /// As long as Area, Extent pixels across that reach outwards from the pixel From.
    constexpr TRect Band(const TRect& Area, int From, int Extent) const {
        const int least = LeastFrom(From, Extent);
        return IsHorizontal() ? TRect{Area.Left, least, Area.Right, least + Extent}
                              : TRect{least, Area.Top, least + Extent, Area.Bottom};
    }
    /// Rect less Depth pixels at this side, as far as there are.
    constexpr TRect Cut(TRect Rect, int Depth) const {
        const int end = Opposite().Of(Rect), to = Of(Rect) - Outward() * Depth;
        Of(Rect) = Outward() > 0 ? std::max(end, to) : std::min(end, to);
        return Rect;
    }

    friend constexpr bool operator==(const TKxSide&, const TKxSide&) = default;

private:
    static constexpr int TRect::*CSides[] = {&TRect::Bottom, &TRect::Left, &TRect::Top, &TRect::Right};
    static constexpr TKxAxisPos Seat(int Position) { return static_cast<TKxAxisPos>(Position % 4); }

    constexpr TKxSide(TKxAxisPos Position, TKxAxisOrientation WhenFree)
        : FPosition(Position), FSeat(Position < AxFreeFloating  ? Position
                                     : WhenFree == AxHorizontal ? AxBottomPos
                                                                : AxLeftPos) {}

    TKxAxisPos FPosition;
    TKxAxisPos FSeat; ///< the side that it is like; never free floating
};

} // namespace kx
