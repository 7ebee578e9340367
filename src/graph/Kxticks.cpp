#include <kxgraph/graph/Kxticks.h>

#include <kxgraph/numeric/Kxarithm.h>
#include <kxgraph/numeric/Kxdecimal.h>
#include <kxgraph/platform/text/numbertext.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <utility>

namespace kx {

namespace {

constexpr int CPrecision = 15;
constexpr int CMostDecimals = 18; // of the fixed format
constexpr double CLeastTickPart = 0.2;
constexpr double CStepTolerance = 1e-6;
constexpr double CLogTolerance = 1e-9;
constexpr double CLogLimit = 310;

struct TTick {
    double Value;
    bool IsMajor;
    bool IsLabelled;
};
using TTickList = std::vector<TTick>; // by value

/// Ticks at multiples First to Last of Step. They are counted in decimals, so that each is the double next to
/// its decimal and no error adds up along the axis.
struct TGrid {
    TKxDecimal Step{1, 0};
    std::int64_t MajorEvery = 1;
    std::int64_t LabelEvery = 1;
    std::int64_t First = 0;
    std::int64_t Last = -1;

    bool IsUsable() const { return First < Last && Last - First < CMaxTicks; }
};

bool IsRange(double Start, double Stop) { return Start < Stop && std::isfinite(Stop - Start); }

/// The exponent of the last of the digits that a label of this range can tell.
int LastDigit(double Start, double Stop) {
    return GetExponent(std::max(std::abs(Start), std::abs(Stop))) - CPrecision + 1;
}

int EveryNth(double Part, double TickPart) { return std::max(1, RoundToInt(Part / TickPart)); }

TGrid MakeGrid(double Start, double Stop, const TKxSteps& Steps, int SpanExponent) {
    double tick = std::isfinite(Steps.Tick) && Steps.Tick > 0 ? Steps.Tick : CLeastTickPart;
    const int finest = LastDigit(Start, Stop) - SpanExponent;
    if (GetExponent(tick) < finest) tick = IntExp10(finest);
    TGrid grid;
    grid.Step = TKxDecimal::Of(tick).Shifted(SpanExponent);
    grid.MajorEvery = EveryNth(Steps.MajorTick, tick);
    grid.LabelEvery = EveryNth(Steps.Label, tick);
    const auto index = [&](double End) {
        return ExpMinus(End, static_cast<int>(grid.Step.Exponent)) / static_cast<double>(grid.Step.Digits);
    };
    grid.First = static_cast<std::int64_t>(std::ceil(index(Start) - CStepTolerance));
    grid.Last = static_cast<std::int64_t>(std::floor(index(Stop) + CStepTolerance));
    return grid;
}

/// What a linear scale shows: the grid and how its labels read.
struct TLinearScale {
    TGrid Grid;
    int Digits = 0;
    int Factor = 0; ///< power of ten that labels are divided by
    bool IsFactored = false;

    std::string LabelText(double Value) const {
        if (IsFactored) return FloatToStrFixed(ExpMinus(Value, Factor), CPrecision, std::max(0, Digits - 1));
        const int decimals = std::max(0, Digits - Factor - 1);
        return decimals > CMostDecimals ? FloatToStr(Value) : FloatToStrFixed(Value, CPrecision, decimals);
    }
};

TLinearScale MakeLinearScale(const TKxScaleEnds& Ends) {
    TLinearScale scale;
    scale.Factor = Ends.ScaleExponent;
    scale.IsFactored = Ends.UseScaleExponent;
    if (!IsRange(Ends.Start, Ends.Stop)) return scale;
    const TKxSteps own{0, Ends.TickPart, Ends.MajorTickPart, Ends.LabelPart};
    scale.Grid = MakeGrid(Ends.Start, Ends.Stop, own, Ends.SpanExponent);
    const bool isOwn = scale.Grid.IsUsable();
    const double span = Ends.Stop - Ends.Start;
    const int exponent = GetExponent(span);
    for (const TKxStepTable* table : {&std::as_const(StepTable()), &CBuiltInSteps})
        if (!scale.Grid.IsUsable())
            scale.Grid = MakeGrid(Ends.Start, Ends.Stop, StepsForSpan(*table, span, exponent), exponent);
    // Labels stand on multiples of the tick step, which may need more digits than the label step alone.
    const int needed =
        scale.Factor - static_cast<int>(scale.Grid.Step.Times(scale.Grid.LabelEvery).Exponent) + 1;
    scale.Digits = isOwn ? std::max(needed, Ends.LabelDigits) : needed;
    return scale;
}

TTickList TicksOfGrid(const TGrid& Grid) {
    TTickList ticks;
    if (!Grid.IsUsable()) return ticks;
    ticks.reserve(static_cast<std::size_t>(Grid.Last - Grid.First + 1));
    for (std::int64_t i = Grid.First; i <= Grid.Last; ++i)
        ticks.push_back({Grid.Step.Times(i).Value(), i % Grid.MajorEvery == 0, i % Grid.LabelEvery == 0});
    return ticks;
}

/// Pixels below which the ticks of hundreds of decades would run together to a bar.
constexpr double CLeastDecade = 3, CLeastDecadeWithMinors = 10;

TTickList LogarithmicTicks(const TKxScaleEnds& Ends, int AxisLength) {
    TTickList ticks;
    if (!IsRange(Ends.LogStart, Ends.LogStop)) return ticks;
    const double start = std::max(Ends.LogStart, -CLogLimit) - CLogTolerance;
    const double stop = std::min(Ends.LogStop, CLogLimit) + CLogTolerance;
    const auto add = [&](double Mantissa, int Decade) {
        const double logarithm = std::log10(Mantissa) + Decade;
        const bool isDecade = Mantissa == 1;
        if (logarithm >= start && logarithm <= stop)
            ticks.push_back({ExpMinus(Mantissa, -Decade), isDecade, isDecade});
    };
    const double width = std::max(1, AxisLength) / (Ends.LogStop - Ends.LogStart);
    const int stride = std::max(1, RoundToInt(std::ceil(CLeastDecade / width)));
    for (int decade = RoundToInt(std::floor(start)); decade <= stop; ++decade) {
        if (decade % stride == 0) add(1, decade);
        if (width < CLeastDecadeWithMinors) continue;
        // Kept: no tick at twice the decade; the gap shows where a decade begins.
        for (const double mantissa : {4, 6, 8}) add(mantissa, decade);
    }
    return ticks;
}

std::string DecadeText(double Value, TKxAxScaling Scaling) {
    const int exponent = GetExponent(Value);
    if (Scaling == AxLogEE) return "10\\+ " + std::to_string(exponent);
    if (exponent < -CMostDecimals) return FloatToStr(Value);
    return FloatToStrFixed(Value, CPrecision, std::max(0, -exponent));
}

int OffsetOf(double Value, const TKxAxisMap& Map, TKxSide Side) {
    const auto offset = Side.FromStart<std::int64_t>(Map.AxisLength, Map.RealToIntPosition(Value));
    return static_cast<int>(std::clamp<std::int64_t>(offset, -CMaxPixel, CMaxPixel));
}

double PlaceOf(double Value, const TKxAxisMap& Map, TKxSide Side) {
    return Side.FromStart<double>(Map.AxisLength, Map.RealToPlace(Value));
}

TKxTicks PlacedTicks(const TTickList& Ticks, const TKxAxisMap& Map, const TKxTickOptions& Options,
                     const std::function<std::string(double)>& Text, bool OmitsZero = false) {
    std::vector<TKxTick> places;
    std::vector<TKxTickLabel> labels;
    for (const TTick& tick : Ticks) {
        places.push_back({tick.Value, tick.IsMajor});
        const bool isShown = Options.ShowScaleLabels && tick.IsLabelled && !(OmitsZero && tick.Value == 0);
        if (isShown) labels.push_back({tick.Value, 0, Text(tick.Value)});
    }
    return TicksAt(places, std::move(labels), Map, Options.Side);
}

TTickList OrEnds(TTickList Ticks, const TKxScaleEnds& Ends) {
    if (Ticks.size() < 2) Ticks = {{Ends.Start, true, false}, {Ends.Stop, true, false}};
    return Ticks;
}

bool AreApart(const TKxLabelExtent& A, const TKxLabelExtent& B, int MinGap) {
    const std::int64_t distance = std::abs(std::int64_t{A.Position} - B.Position);
    return 2 * distance - A.Extent - B.Extent >= 2 * std::int64_t{std::max(1, MinGap)};
}

} // namespace

TKxTicks TicksAt(const std::vector<TKxTick>& Ticks, std::vector<TKxTickLabel> Labels, const TKxAxisMap& Map,
                 TKxSide Side) {
    const int count = static_cast<int>(Ticks.size());
    const bool runsBackwards = Side.IsHorizontal() != Map.Forward; // larger values have smaller offsets
    TKxTicks result{TKxRealArray(count), TKxIntegerArray(count), TKxBooleanArray(count), {}, {},
                    TKxRealArray(count)};
    for (int i = 0; i < count; ++i) {
        const TKxTick& tick = Ticks[static_cast<std::size_t>(runsBackwards ? count - 1 - i : i)];
        result.Values[i] = tick.Value;
        result.IsMajor[i] = tick.IsMajor;
    }
    if (runsBackwards) std::reverse(Labels.begin(), Labels.end());
    result.Labels = std::move(Labels);
    MoveTicks(result, Map, Side);
    return result;
}

TKxTicks CalculateTicks(const TKxScaleEnds& Ends, const TKxAxisMap& Map, const TKxTickOptions& Options) {
    if (Map.IsLogarithmic())
        return PlacedTicks(OrEnds(LogarithmicTicks(Ends, Map.AxisLength), Ends), Map, Options,
                           [&](double Value) { return DecadeText(Value, Map.Scaling); });
    const bool omitsZero = Options.ZeroOrigin && Ends.Start <= 0 && Ends.Stop > 0;
    const TLinearScale scale = MakeLinearScale(Ends);
    TKxTicks ticks = PlacedTicks(
        OrEnds(TicksOfGrid(scale.Grid), Ends), Map, Options,
        [&](double Value) { return scale.LabelText(Value); }, omitsZero);
    if (Options.ShowScaleLabels && scale.IsFactored)
        ticks.ExponentLabel = "\u00B710\\+" + std::to_string(scale.Factor);
    return ticks;
}

void MoveTicks(TKxTicks& Ticks, const TKxAxisMap& Map, TKxSide Side) {
    for (int i = 0; i < Ticks.Positions.Length(); ++i) {
        Ticks.Positions[i] = OffsetOf(Ticks.Values[i], Map, Side);
        Ticks.Places[i] = PlaceOf(Ticks.Values[i], Map, Side);
    }
    for (TKxTickLabel& label : Ticks.Labels) {
        label.Position = OffsetOf(label.Value, Map, Side);
        label.Place = PlaceOf(label.Value, Map, Side);
    }
}

int AnchorLabel(std::span<const TKxTickLabel> Labels) {
    const auto zero = std::find_if(Labels.begin(), Labels.end(), [](const auto& L) { return L.Value == 0; });
    return zero == Labels.end() ? 0 : static_cast<int>(zero - Labels.begin());
}

int LabelStride(std::span<const TKxLabelExtent> Labels, int MinGap, int Anchor) {
    const auto count = Labels.size();
    if (count == 0) return 1;
    const auto anchor = std::min(static_cast<std::size_t>(std::max(0, Anchor)), count - 1);
    const auto fits = [&](std::size_t Stride) {
        for (std::size_t i = anchor % Stride + Stride; i < count; i += Stride)
            if (!AreApart(Labels[i - Stride], Labels[i], MinGap)) return false;
        return true;
    };
    std::size_t stride = 1;
    while (!fits(stride)) ++stride;
    return static_cast<int>(stride);
}

} // namespace kx
