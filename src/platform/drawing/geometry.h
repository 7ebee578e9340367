#pragma once
// Points, sizes and rectangles in whole pixels and with fractions, and the one rule that turns a value into a
// pixel.

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <type_traits>

namespace kx {

struct TPoint {
    int X = 0;
    int Y = 0;
    friend bool operator==(const TPoint&, const TPoint&) = default;
    friend TPoint operator+(TPoint A, TPoint B) { return {A.X + B.X, A.Y + B.Y}; }
    friend TPoint operator-(TPoint A, TPoint B) { return {A.X - B.X, A.Y - B.Y}; }
};

struct TSize {
    int Width = 0;
    int Height = 0;
    friend bool operator==(const TSize&, const TSize&) = default;
};

/// A rectangle of pixels: Left..Right-1 and Top..Bottom-1.
struct TRect {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    int Width() const { return Right - Left; }
    int Height() const { return Bottom - Top; }
    TPoint TopLeft() const { return {Left, Top}; }
    TSize Size() const { return {Width(), Height()}; }
    bool IsEmpty() const { return Right <= Left || Bottom <= Top; }
    bool Contains(TPoint P) const { return P.X >= Left && P.X < Right && P.Y >= Top && P.Y < Bottom; }
    TRect MovedBy(TPoint D) const { return {Left + D.X, Top + D.Y, Right + D.X, Bottom + D.Y}; }
    /// The common part; an empty rectangle where there is none.
    TRect Intersected(const TRect& O) const {
        TRect r{std::max(Left, O.Left), std::max(Top, O.Top), std::min(Right, O.Right),
                std::min(Bottom, O.Bottom)};
        return r.IsEmpty() ? TRect{} : r;
    }
    /// The smallest rectangle that holds both; an empty one does not count.
    TRect United(const TRect& O) const {
        if (IsEmpty()) return O;
        if (O.IsEmpty()) return *this;
        return {std::min(Left, O.Left), std::min(Top, O.Top), std::max(Right, O.Right),
                std::max(Bottom, O.Bottom)};
    }
    static TRect Bounds(int Left, int Top, int Width, int Height) {
        return {Left, Top, Left + Width, Top + Height};
    }
    friend bool operator==(const TRect&, const TRect&) = default;
};

/// The pixel that a NaN has: none. No other value is ever rounded to it.
inline constexpr int CNoPixel = INT_MIN;
/// Whether a point has both of its pixels.
inline bool IsPlaced(TPoint P) { return P.X != CNoPixel && P.Y != CNoPixel; }
/// Pixels saturate here, so that sums of a few of them stay defined.
inline constexpr int CMaxPixel = 1 << 30;

/// The most that settings give a width, a gap or another length: more than any picture has, and yet sums of
/// many and small multiples of it stay defined.
inline constexpr int CMostLength = 1 << 14;
/// A length as it counts, of those that settings hold.
inline int LimitedLength(int Pixels) { return std::clamp(Pixels, -CMostLength, CMostLength); }

/// Value rounded to the nearest integer, half to even, saturated at +-CMaxPixel; CNoPixel for a NaN.
inline int RoundToInt(double Value) {
    if (std::isnan(Value)) return CNoPixel;
    return static_cast<int>(std::nearbyint(std::clamp(Value, -double(CMaxPixel), double(CMaxPixel))));
}

/// A place with fractions of a pixel. As a point of a line v.0 is the middle of pixel v, as an edge or a
/// corner of an area its left or upper edge: what is whole is where whole pixels are.
struct TRealPoint {
    double X = 0;
    double Y = 0;

    constexpr TRealPoint() = default;
    constexpr TRealPoint(TPoint P) : X(P.X), Y(P.Y) {}
    template <class A, class B>
    requires(std::is_arithmetic_v<A>&& std::is_arithmetic_v<B>) constexpr TRealPoint(A X, B Y)
        : X(static_cast<double>(X)), Y(static_cast<double>(Y)) {}

    friend bool operator==(const TRealPoint&, const TRealPoint&) = default;
    friend TRealPoint operator+(TRealPoint A, TRealPoint B) { return {A.X + B.X, A.Y + B.Y}; }
    friend TRealPoint operator-(TRealPoint A, TRealPoint B) { return {A.X - B.X, A.Y - B.Y}; }
};
/// What a point has that stands nowhere.
inline constexpr TRealPoint CNoPlace{std::numeric_limits<double>::quiet_NaN(),
                                     std::numeric_limits<double>::quiet_NaN()};
inline bool IsPlace(TRealPoint P) { return !std::isnan(P.X) && !std::isnan(P.Y); }
inline TPoint RoundToPixel(TRealPoint P) { return {RoundToInt(P.X), RoundToInt(P.Y)}; }

/// A rectangle between edges with fractions.
struct TRealRect {
    double Left = 0;
    double Top = 0;
    double Right = 0;
    double Bottom = 0;

    constexpr TRealRect() = default;
    constexpr TRealRect(const TRect& R) : Left(R.Left), Top(R.Top), Right(R.Right), Bottom(R.Bottom) {}
    template <class A, class B, class C, class D>
    requires(std::is_arithmetic_v<A>&& std::is_arithmetic_v<B>&& std::is_arithmetic_v<C>&&
                 std::is_arithmetic_v<D>) constexpr TRealRect(A Left, B Top, C Right, D Bottom)
        : Left(static_cast<double>(Left)), Top(static_cast<double>(Top)), Right(static_cast<double>(Right)),
          Bottom(static_cast<double>(Bottom)) {}

    double Width() const { return Right - Left; }
    double Height() const { return Bottom - Top; }
    TRealPoint TopLeft() const { return {Left, Top}; }
    bool IsEmpty() const { return !(Right > Left && Bottom > Top); }
    TRealRect Intersected(const TRealRect& O) const {
        const TRealRect r{std::max(Left, O.Left), std::max(Top, O.Top), std::min(Right, O.Right),
                          std::min(Bottom, O.Bottom)};
        return r.IsEmpty() ? TRealRect{} : r;
    }
    TRealRect United(const TRealRect& O) const {
        if (IsEmpty()) return O;
        if (O.IsEmpty()) return *this;
        return {std::min(Left, O.Left), std::min(Top, O.Top), std::max(Right, O.Right),
                std::max(Bottom, O.Bottom)};
    }
    friend bool operator==(const TRealRect&, const TRealRect&) = default;
};
inline TRect RoundToPixels(const TRealRect& R) {
    return {RoundToInt(R.Left), RoundToInt(R.Top), RoundToInt(R.Right), RoundToInt(R.Bottom)};
}

} // namespace kx
