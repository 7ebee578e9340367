#pragma once
// The scale of an axis as values: round ends and tick steps from the extent of the data, and the one map
// between values and pixels. No settings file, no canvas, no component.

#include <kxgraph/graph/Kxside.h>
#include <kxgraph/platform/drawing/geometry.h>
#include <kxgraph/platform/objects/typenames.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>
#include <string_view>

namespace kx {

enum TKxAxEnd {
    AxAutoRange, ///< follows the data
    AxFirstSet,  ///< follows the data outward only
    AxFixed      ///< stays where it was set (linear: snapped outward to a tick)
};
template <>
inline constexpr auto CEnumNames<TKxAxEnd> = std::to_array<std::string_view>({"AxAutoRange", "AxFirstSet",
                                                                              "AxFixed"});

enum TKxAxScaling {
    AxNormal, ///< linear
    AxLog,    ///< logarithmic, decades labelled as plain numbers
    AxLogEE   ///< logarithmic, decades labelled as 10 with a superscript exponent
};
template <>
inline constexpr auto CEnumNames<TKxAxScaling> = std::to_array<std::string_view>({"AxNormal", "AxLog",
                                                                                  "AxLogEE"});
/// Whether Value stands anywhere on such a scale: it is finite, and positive on a logarithmic one.
inline bool HasPlace(TKxAxScaling Scaling, double Value) {
    return std::isfinite(Value) && (Scaling == AxNormal || Value > 0);
}

/// Steps for each rounded mantissa of the span, in units of 10 to the power of the span's exponent. Row 0 is
/// not used.
struct TKxStepTable {
    std::array<double, 11> Rounding; ///< of the ends
    std::array<double, 11> Tick;
    std::array<double, 11> MajorTick;
    std::array<double, 11> Label;
};

inline constexpr TKxStepTable CBuiltInSteps = {
    {0, 0.1, 0.25, 0.5, 0.5, 0.5, 0.5, 1, 1, 1, 1},
    {0, 0.02, 0.05, 0.1, 0.1, 0.1, 0.1, 0.2, 0.2, 0.2, 0.2},
    {0, 0.1, 0.25, 0.5, 0.5, 0.5, 0.5, 1, 1, 1, 1},
    {0, 0.2, 0.5, 1, 1, 1, 1, 2, 2, 2, 2},
};

/// The table that all axes share; the built-in one until the program changes it.
TKxStepTable& StepTable();

/// The steps of one row.
struct TKxSteps {
    double Rounding;
    double Tick;
    double MajorTick;
    double Label;
};
/// The row for a span whose decimal exponent is SpanExponent: the mantissa rounded half to even, 1 to 10. An
/// entry below 1e-6, or not finite, gives way to the built-in one.
TKxSteps StepsForSpan(const TKxStepTable& Table, double Span, int SpanExponent);

/// What an axis knows before its ends are made round.
struct TKxScaleInput {
    TKxAxScaling Scaling = AxNormal;
    double Start = 0;
    double Stop = 100;
    TKxAxEnd StartEnd = AxAutoRange;
    TKxAxEnd StopEnd = AxAutoRange;
    bool AutoTicks = true;
    double TickPart = 0.05; ///< the parts count without AutoTicks; in units of 10 to the power SpanExponent
    double MajorTickPart = 0.1;
    double LabelPart = 0.5;
    int MaxExpForScaleExp = 3;
    int MinExpForScaleExp = -2;
    bool KeepStart = false; ///< it is round already and stays as it is
    bool KeepStop = false;
    friend bool operator==(const TKxScaleInput&, const TKxScaleInput&) = default;
};

/// Round ends and what follows from them.
struct TKxScaleEnds {
    double Start = 0; ///< always below Stop; both positive on a logarithmic scale
    double Stop = 100;
    bool EndsCorrected = false; ///< an empty or inverted range was replaced
    double TickPart = 0.05;     ///< steps in units of 10 to the power SpanExponent
    double MajorTickPart = 0.1;
    double LabelPart = 0.5;
    int SpanExponent = 2;  ///< of Stop - Start; logarithmic: the number of decades
    int ScaleExponent = 0; ///< the power of ten that labels are divided by; logarithmic: 0
    int LabelDigits = 0;   ///< significant digits that labels need
    bool UseScaleExponent = false;
    double LogStart = 0; ///< log10 of the ends; logarithmic only
    double LogStop = 0;
};

/// Makes a range presentable. Total: a NaN counts as an inverted range, ends beyond +-1.7e308 stop there,
/// magnitudes below 1e-280 count as 0, ends of a span that a double cannot hold are cut to +-8.5e307. A
/// logarithmic scale lies between 1e-307 and 1e308. Not always idempotent: round ends may fall into another
/// row of the table than the data did.
TKxScaleEnds CalculateEnds(const TKxScaleInput& Input);

/// The map between the values of an axis and pixels along it: a horizontal axis counts from its left end, a
/// vertical one downward from its top, whatever its direction.
struct TKxAxisMap {
    TKxAxScaling Scaling = AxNormal;
    double Start = 0;
    double Stop = 100;
    double LogStart = 0; ///< log10 of the ends; logarithmic only
    double LogStop = 0;
    double Scale = 1; ///< value units a pixel; logarithmic: decades a pixel; never 0
    int AxisLength = 0;
    bool Forward = true; ///< values grow with pixels

    /// Total: ends that no map can have are replaced; Start above Stop is an inverted map; an AxisLength
    /// below 1 scales as 1.
    static TKxAxisMap Make(TKxAxScaling Scaling, double Start, double Stop, int AxisLength,
                           TKxAxisOrientation Orientation, bool Twisted);
    static TKxAxisMap Make(TKxAxScaling Scaling, const TKxScaleEnds& Ends, int AxisLength,
                           TKxAxisOrientation Orientation, bool Twisted) {
        return Make(Scaling, Ends.Start, Ends.Stop, AxisLength, Orientation, Twisted);
    }

    bool IsLogarithmic() const { return Scaling != AxNormal; }
    bool HasPlace(double Value) const { return kx::HasPlace(Scaling, Value); }
    /// The pixel of Value, half to even; saturates at +-CMaxPixel; CNoPixel for a NaN; -1 for a value that is
    /// not positive on a logarithmic scale. Raises EConvertError "Axis scaling not supportet" for a Scaling
    /// that is none of the three.
    int RealToIntPosition(double Value) const;
    /// The same of an end of something that has a place, such as a bar's: the start of a logarithmic scale
    /// where the end lies below it; CNoPixel for one that is not finite.
    int EndPosition(double Value) const {
        if (!std::isfinite(Value)) return CNoPixel;
        return RealToIntPosition(HasPlace(Value) ? Value : Start);
    }
    /// The same for many: the pixel of Values[i] goes to First[i * StrideInInts].
    void RealToIntPositions(std::span<const double> Values, int* First, std::ptrdiff_t StrideInInts) const;
    /// The same without rounding: RoundToInt makes RealToIntPosition of it. A NaN for a NaN.
    double RealToPlace(double Value) const;
    double EndPlace(double Value) const {
        if (!std::isfinite(Value)) return std::numeric_limits<double>::quiet_NaN();
        return RealToPlace(HasPlace(Value) ? Value : Start);
    }
    /// The place of Values[i] goes to First[i * StrideInDoubles].
    void RealToPlaces(std::span<const double> Values, double* First, std::ptrdiff_t StrideInDoubles) const;
    /// The value at pixel Position, at most 1.7e308 in magnitude. Raises as RealToIntPosition does.
    double IntToRealPosition(int Position) const;
    /// The value at Place, which may be a part of a pixel, as far as doubles tell.
    double PlaceToReal(double Place) const;

    friend bool operator==(const TKxAxisMap&, const TKxAxisMap&) = default;
};

} // namespace kx
