#include <kxgraph/graph/Kxscale.h>

#include <kxgraph/numeric/Kxarithm.h>
#include <kxgraph/numeric/Kxconsts.h>
#include <kxgraph/platform/base/exceptions.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace kx {

namespace {

constexpr double CLowestMagnitude = 1e-280; // fifteen digits of a range's parts are still normal doubles
constexpr double CWidestEnd = CMaxReal / 2;
constexpr double CLowestLog = 1e-307;
constexpr double CHighestLog = 1e308;
constexpr double CLowestLogStart = 1e-10; // instead of a start that has no logarithm
constexpr double CLogStep = 0.2;
constexpr double CLeastStep = 1e-6; // smaller ones would make millions of ticks
constexpr double CAutoSnap = 0.02;
constexpr double CTolerableCut = 0.01;

struct TEnds {
    double Start;
    double Stop;
    bool IsRange() const { return Start < Stop; }
};

double StepOr(double Step, double Instead) {
    return std::isfinite(Step) && Step >= CLeastStep ? Step : Instead;
}

double EndWithin(double Value) {
    // Adding 0 turns a negative zero into the plain one.
    return std::abs(Value) < CLowestMagnitude ? 0 : std::clamp(Value, -CMaxReal, CMaxReal) + 0.0;
}

bool HasSpan(TEnds Ends) { return std::abs(Ends.Stop / 2 - Ends.Start / 2) <= CWidestEnd; }

/// Ends, and a distance between them, that a double holds. A NaN stays one.
TEnds EndsWithin(TEnds Ends) {
    const TEnds within{EndWithin(Ends.Start), EndWithin(Ends.Stop)};
    if (HasSpan(within)) return within;
    return {std::clamp(within.Start, -CWidestEnd, CWidestEnd),
            std::clamp(within.Stop, -CWidestEnd, CWidestEnd)};
}

TEnds Widened(TEnds Ends) {
    if (Ends.Start == 0 && Ends.Stop == 0) return {-1, 1};
    return EndsWithin(
        {Ends.Start - IntExp10(GetExponent(Ends.Start)), Ends.Stop + IntExp10(GetExponent(Ends.Stop))});
}

template <class F>
double RoundedOr(double End, F&& Round) {
    try {
        const double rounded = Round();
        return std::abs(rounded) <= CMaxReal ? rounded + 0.0 : End;
    } catch (const EMathError&) {
        return End;
    }
}

TEnds RoundedEnds(TEnds Ends, const TKxScaleInput& Input, double TickPart) {
    const double span = Ends.Stop - Ends.Start;
    const int exponent = GetExponent(span);
    const double row = StepsForSpan(StepTable(), span, exponent).Rounding;
    const auto step = [&](TKxAxEnd Kind) { return Kind == AxFixed ? TickPart : row; };
    const auto start = [&] { return RoundDown(Ends.Start, step(Input.StartEnd), exponent); };
    const auto stop = [&] { return RoundUp(Ends.Stop, step(Input.StopEnd), exponent); };
    return {Input.KeepStart ? Ends.Start : RoundedOr(Ends.Start, start),
            Input.KeepStop ? Ends.Stop : RoundedOr(Ends.Stop, stop)};
}

/// The rounded ends but for those that would hide part of the data: rounding outward may lead inward at the
/// limits of fifteen digits and of the range of a double, and with steps that dwarf the range.
TEnds WithoutCuts(TEnds Ends, TEnds Rounded) {
    const double cut = CTolerableCut * (Ends.Stop - Ends.Start);
    const TEnds result{Rounded.Start - Ends.Start > cut ? Ends.Start : Rounded.Start,
                       Ends.Stop - Rounded.Stop > cut ? Ends.Stop : Rounded.Stop};
    return HasSpan(result) ? result : Ends;
}

/// Rounds a range; one that vanishes in rounding is widened and rounded again.
TEnds RoundRange(TEnds Ends, const TKxScaleInput& Input, double TickPart, bool& Corrected) {
    for (int round = 0; round < 2; ++round) {
        const TEnds rounded = RoundedEnds(Ends, Input, TickPart);
        if (rounded.IsRange()) return WithoutCuts(Ends, rounded);
        Ends = Widened(Ends);
        Corrected = true;
    }
    return Ends;
}

/// The exponent of the end that is larger in magnitude, as a rule.
int FactorExponent(double Start, double Stop) {
    const int ofStart = GetExponent(Start);
    const int ofStop = GetExponent(Stop);
    if (ofStop > ofStart) return Stop == 0 ? ofStart : ofStop;
    return Start == 0 ? ofStop : ofStart;
}

bool IsFactored(const TKxScaleInput& Input, const TKxScaleEnds& Ends) {
    const bool isLarge =
        Ends.ScaleExponent > Input.MaxExpForScaleExp && Ends.ScaleExponent > Ends.LabelDigits;
    return isLarge || Ends.ScaleExponent < Input.MinExpForScaleExp;
}

TKxScaleEnds LinearEnds(const TKxScaleInput& Input) {
    TKxScaleEnds result;
    TEnds ends = EndsWithin({Input.Start, Input.Stop});
    result.EndsCorrected = !ends.IsRange();
    if (ends.Start == ends.Stop)
        ends = Widened(ends);
    else if (!ends.IsRange())
        ends = {0, 100};

    result.TickPart = Input.AutoTicks ? CAutoSnap : StepOr(Input.TickPart, CLogStep);
    result.MajorTickPart = StepOr(Input.MajorTickPart, result.TickPart);
    result.LabelPart = StepOr(Input.LabelPart, result.TickPart);
    ends = RoundRange(ends, Input, result.TickPart, result.EndsCorrected);
    result.Start = ends.Start;
    result.Stop = ends.Stop;
    const double span = ends.Stop - ends.Start;
    result.SpanExponent = GetExponent(span);
    if (Input.AutoTicks) {
        const TKxSteps steps = StepsForSpan(StepTable(), span, result.SpanExponent);
        result.TickPart = steps.Tick;
        result.MajorTickPart = steps.MajorTick;
        result.LabelPart = steps.Label;
    }
    result.ScaleExponent = FactorExponent(ends.Start, ends.Stop);
    result.LabelDigits = result.ScaleExponent - result.SpanExponent - GetExponent(result.LabelPart) +
                         LastSignificant(result.LabelPart);
    result.UseScaleExponent = IsFactored(Input, result);
    return result;
}

/// Ends with a logarithm, Start below Stop.
TEnds PositiveEnds(TEnds Ends, bool& Corrected) {
    Corrected = !(Ends.Start < Ends.Stop);
    if (!(Ends.Start <= Ends.Stop)) Ends = {1, 10};
    Ends.Stop = std::min(Ends.Stop, CHighestLog);
    Ends.Start = std::min(Ends.Start, Ends.Stop);
    const auto isNarrow = [&Ends] { return 0.01 * Ends.Stop > Ends.Stop - Ends.Start; };
    if (isNarrow()) Ends = {IntExp10(GetExponent(Ends.Start) - 1), IntExp10(GetExponent(Ends.Stop) + 1)};
    Ends.Start = std::clamp(Ends.Start > 0 ? Ends.Start : CLowestLogStart, CLowestLog, CHighestLog / 10);
    Ends.Stop = std::clamp(Ends.Stop > 0 ? Ends.Stop : 1, CLowestLog * 10, CHighestLog);
    if (!isNarrow()) return Ends; // what stands for a start that has no logarithm may lie beside the stop
    Corrected = true;
    return {std::max(Ends.Stop / 10, CLowestLog), Ends.Stop};
}

/// 10 to the power Decade, the nearest double.
double DecadeAt(double Decade) { return ExpMinus(1, -RoundToInt(Decade)); }

TKxScaleEnds LogarithmicEnds(const TKxScaleInput& Input) {
    TKxScaleEnds result;
    const TEnds ends = PositiveEnds({Input.Start, Input.Stop}, result.EndsCorrected);
    const double logStart = std::log10(ends.Start);
    const double logStop = std::log10(ends.Stop);
    const bool spansDecade = logStop - logStart > 1 - 1e-9;
    const auto fromDecade = [&](double End, TKxAxEnd Kind, double Decade) {
        return Kind == AxFixed && spansDecade ? End : DecadeAt(Decade);
    };
    // Shifting by nothing leaves the fifteen digits that are meant, without what the power added.
    const auto start = [&] {
        const double from = fromDecade(ends.Start, Input.StartEnd, RoundDown(logStart, 1, 0));
        return ExpMinus(RoundLogDown(from, 1, CLogStep), 0);
    };
    const auto stop = [&] {
        const double from = fromDecade(ends.Stop, Input.StopEnd, RoundUp(logStop, 1, 0));
        return ExpMinus(RoundLogUp(from, 1, CLogStep), 0);
    };
    result.Start = Input.KeepStart ? ends.Start : start();
    result.Stop = Input.KeepStop ? ends.Stop : stop();
    result.LogStart = std::log10(result.Start);
    result.LogStop = std::log10(result.Stop);
    result.TickPart = CLogStep;
    result.MajorTickPart = result.LabelPart = 1;
    result.SpanExponent = RoundToInt(result.LogStop - result.LogStart);
    result.LabelDigits = 1;
    result.UseScaleExponent = 0 < Input.MinExpForScaleExp;
    return result;
}

/// RoundToInt without a branch, in two steps. The first gives a double whose low bits are the pixel: adding
/// the constant rounds half to even and leaves the integer there.
inline double PixelBits(double Value) {
    constexpr double CRounder = 6755399441055744.0; // 1.5 times 2 to the power 52
    const double low = Value < -CMaxPixel ? -CMaxPixel : Value;
    const double saturated = low > CMaxPixel ? CMaxPixel : low;
    return (Value == Value ? saturated : CNoPixel) + CRounder;
}
inline int PixelOf(double Bits) { return static_cast<int>(std::bit_cast<std::int64_t>(Bits)); }

/// Value to pixel with what is the same for all values known beforehand.
struct TPixelLine {
    double Start, Scale, Base, Sign;
    TPixelLine(const TKxAxisMap& Map, double Start)
        : Start(Start), Scale(Map.Scale), Base(Map.Forward ? 0 : Map.AxisLength), Sign(Map.Forward ? 1 : -1) {
    }
    double BitsAt(double Value) const { return PixelBits(Base + Sign * ((Value - Start) / Scale)); }
    int At(double Value) const { return PixelOf(BitsAt(Value)); }
    double PlaceAt(double Value) const {
        const double place = Base + Sign * ((Value - Start) / Scale);
        const double low = place < -CMaxPixel ? -CMaxPixel : place; // a NaN stays one
        return low > CMaxPixel ? CMaxPixel : low;
    }
};

int LogPixelAt(const TPixelLine& Line, double Value) { return Value <= 0 ? -1 : Line.At(std::log10(Value)); }
double LogPlaceAt(const TPixelLine& Line, double Value) {
    return Value <= 0 ? -1 : Line.PlaceAt(std::log10(Value));
}

constexpr std::size_t CBlock = 64;

/// One block of a linear axis. Two loops, so that compilers use vectors in the first whatever the stride.
void LinearBlock(const TPixelLine Line, const double* Values, int* First, std::ptrdiff_t Stride) {
    double bits[CBlock];
    for (std::size_t i = 0; i < CBlock; ++i) bits[i] = Line.BitsAt(Values[i]);
    for (std::size_t i = 0; i < CBlock; ++i)
        First[static_cast<std::ptrdiff_t>(i) * Stride] = PixelOf(bits[i]);
}

/// log10 of a normal positive number to about 1e-11, without a branch. With m the mantissa between the root
/// of a half and the root of two: ln m = 2 artanh((m - 1) / (m + 1)), by the first terms of its series.
inline double RoughLog10(double Value) {
    constexpr std::uint64_t CRootOfHalf = 0x3FE6A09E667F3BCD, COne = 0x3FF0000000000000;
    constexpr double CLog10Of2 = 0.30102999566398119521, CLog10OfE = 0.43429448190325182765;
    const auto bits = std::bit_cast<std::uint64_t>(Value);
    const std::uint64_t exponent = (bits - CRootOfHalf + COne) >> 52; // with the bias of 1023
    const double m = std::bit_cast<double>(bits - (exponent << 52) + COne);
    constexpr std::uint64_t CBitsOf2To52 = 0x4330000000000000;
    const double power = std::bit_cast<double>(CBitsOf2To52 | exponent) - (4503599627370496.0 + 1023);
    const double t = (m - 1) / (m + 1), t2 = t * t;
    const double series =
        t * (2 + t2 * (2.0 / 3 + t2 * (2.0 / 5 + t2 * (2.0 / 7 + t2 * (2.0 / 9 + t2 * (2.0 / 11))))));
    return power * CLog10Of2 + series * CLog10OfE;
}

/// One block of a logarithmic axis: where the rough logarithm leaves no doubt about the pixel, it is the
/// pixel of the exact one.
void LogBlock(const TPixelLine Line, const double* Values, int* First, std::ptrdiff_t Stride) {
    constexpr double CRough = 1e-10, CRounder = 6755399441055744.0;
    constexpr double CLeast = std::numeric_limits<double>::min(), CMost = std::numeric_limits<double>::max();
    constexpr double CRounding = 1e-5; // pixels, of numbers up to CMaxPixel
    const double within = 0.5 - CRounding - CRough / Line.Scale;
    double pixels[CBlock], doubts[CBlock];
    for (std::size_t i = 0; i < CBlock; ++i) {
        const double at = Line.Base + Line.Sign * ((RoughLog10(Values[i]) - Line.Start) / Line.Scale);
        pixels[i] = at + CRounder;
        doubts[i] = std::abs(at - (pixels[i] - CRounder)) - within;
    }
    for (std::size_t i = 0; i < CBlock; ++i) {
        const bool certain = doubts[i] < 0 && Values[i] >= CLeast && Values[i] <= CMost &&
                             std::abs(pixels[i] - CRounder) < CMaxPixel;
        First[static_cast<std::ptrdiff_t>(i) * Stride] =
            certain ? PixelOf(pixels[i]) : LogPixelAt(Line, Values[i]);
    }
}

double NumberOr(double Value, double Instead) { return std::isnan(Value) ? Instead : Value; }

double PositiveOr(double Value, double Instead) { return Value > 0 ? std::min(Value, CMaxReal) : Instead; }

void CheckScaling(TKxAxScaling Scaling) {
    if (Scaling < AxNormal || Scaling > AxLogEE) throw EConvertError("Axis scaling not supportet");
}

} // namespace

TKxStepTable& StepTable() {
    static TKxStepTable table = CBuiltInSteps;
    return table;
}

TKxSteps StepsForSpan(const TKxStepTable& Table, double Span, int SpanExponent) {
    const auto row = static_cast<std::size_t>(std::clamp(RoundToInt(ExpMinus(Span, SpanExponent)), 1, 10));
    return {StepOr(Table.Rounding[row], CBuiltInSteps.Rounding[row]),
            StepOr(Table.Tick[row], CBuiltInSteps.Tick[row]),
            StepOr(Table.MajorTick[row], CBuiltInSteps.MajorTick[row]),
            StepOr(Table.Label[row], CBuiltInSteps.Label[row])};
}

TKxScaleEnds CalculateEnds(const TKxScaleInput& Input) {
    return Input.Scaling == AxNormal ? LinearEnds(Input) : LogarithmicEnds(Input);
}

TKxAxisMap TKxAxisMap::Make(TKxAxScaling Scaling, double Start, double Stop, int AxisLength,
                            TKxAxisOrientation Orientation, bool Twisted) {
    TKxAxisMap map;
    map.Scaling = Scaling;
    map.AxisLength = AxisLength;
    map.Forward = (Orientation == AxHorizontal) != Twisted;
    double span = 0;
    if (map.IsLogarithmic()) {
        map.Start = PositiveOr(Start, CLowestLogStart);
        map.Stop = PositiveOr(Stop, 1);
        map.LogStart = std::log10(map.Start);
        map.LogStop = std::log10(map.Stop);
        span = map.LogStop - map.LogStart;
    } else {
        const TEnds ends = EndsWithin({NumberOr(Start, 0), NumberOr(Stop, 100)});
        map.Start = ends.Start;
        map.Stop = ends.Stop;
        span = map.Stop - map.Start;
    }
    map.Scale = span / std::max(AxisLength, 1);
    if (map.Scale == 0) map.Scale = 1;
    return map;
}

int TKxAxisMap::RealToIntPosition(double Value) const {
    CheckScaling(Scaling);
    if (IsLogarithmic()) return LogPixelAt(TPixelLine(*this, LogStart), Value);
    return TPixelLine(*this, Start).At(Value);
}

void TKxAxisMap::RealToIntPositions(std::span<const double> Values, int* First,
                                    std::ptrdiff_t StrideInInts) const {
    CheckScaling(Scaling);
    const TPixelLine line(*this, IsLogarithmic() ? LogStart : Start);
    const auto at = [&](std::size_t i) -> int& {
        return First[static_cast<std::ptrdiff_t>(i) * StrideInInts];
    };
    std::size_t i = 0;
    const auto block = IsLogarithmic() ? LogBlock : LinearBlock;
    for (; Values.size() - i >= CBlock; i += CBlock) block(line, &Values[i], &at(i), StrideInInts);
    for (; i < Values.size(); ++i) at(i) = IsLogarithmic() ? LogPixelAt(line, Values[i]) : line.At(Values[i]);
}

double TKxAxisMap::RealToPlace(double Value) const {
    CheckScaling(Scaling);
    if (IsLogarithmic()) return LogPlaceAt(TPixelLine(*this, LogStart), Value);
    return TPixelLine(*this, Start).PlaceAt(Value);
}

void TKxAxisMap::RealToPlaces(std::span<const double> Values, double* First,
                              std::ptrdiff_t StrideInDoubles) const {
    CheckScaling(Scaling);
    const TPixelLine line(*this, IsLogarithmic() ? LogStart : Start);
    const auto place = [&](auto At) {
        for (std::size_t i = 0; i < Values.size(); ++i)
            First[static_cast<std::ptrdiff_t>(i) * StrideInDoubles] = At(Values[i]);
    };
    if (IsLogarithmic())
        place([&line](double Value) { return LogPlaceAt(line, Value); });
    else
        place([&line](double Value) { return line.PlaceAt(Value); });
}

double TKxAxisMap::IntToRealPosition(int Position) const { return PlaceToReal(Position); }

double TKxAxisMap::PlaceToReal(double Place) const {
    CheckScaling(Scaling);
    const double along = Forward ? Place : AxisLength - Place;
    if (IsLogarithmic()) return Exp10(along * Scale + LogStart);
    return std::clamp(along * Scale + Start, -CMaxReal, CMaxReal);
}

} // namespace kx
