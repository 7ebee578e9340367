// Ends, map and ticks of an axis over all doubles.

#include "fuzz/fuzz.h"

#include <kxgraph/graph/Kxticks.h>
#include <kxgraph/platform/text/numbertext.h>

namespace kx::fuzz::scaletarget {

TKxScaleInput InputOf(TData& Data) {
    TKxScaleInput input;
    input.Scaling = Data.OneOf({AxNormal, AxNormal, AxLog, AxLogEE});
    input.StartEnd = Data.OneOf({AxAutoRange, AxFirstSet, AxFixed});
    input.StopEnd = Data.OneOf({AxAutoRange, AxFirstSet, AxFixed});
    input.Start = Data.Real();
    input.Stop = Data.Real();
    input.AutoTicks = Data.Between(0, 3) != 0;
    input.TickPart = Data.Real();
    input.MajorTickPart = Data.Real();
    input.LabelPart = Data.Real();
    return input;
}

std::string Shown(double A, double B) { return "(" + FloatToStr(A) + ", " + FloatToStr(B) + ")"; }

/// Ends are ordered and finite, and data that can be shown lie between them.
void DemandEnds(const TKxScaleInput& Input, const TKxScaleEnds& Ends) {
    KX_DEMAND(std::isfinite(Ends.Start) && std::isfinite(Ends.Stop) && Ends.Start < Ends.Stop,
              +Shown(Ends.Start, Ends.Stop));
    KX_DEMAND(std::isfinite(Ends.Stop - Ends.Start));
    if (Input.Scaling != AxNormal) KX_DEMAND(Ends.Start > 0 && std::isfinite(Ends.LogStop - Ends.LogStart));
    const double low = Input.Scaling == AxNormal ? -8e307 : 1e-300,
                 high = Input.Scaling == AxNormal ? 8e307 : 1e300;
    const bool isShowable = Input.Start < Input.Stop && Input.Start > low && Input.Stop < high;
    if (!isShowable) return;
    const double cut = 0.0101 * (Ends.Stop - Ends.Start) + 1e-280;
    KX_DEMAND(Ends.Start <= Input.Start + cut && Ends.Stop >= Input.Stop - cut,
              +Shown(Input.Start, Input.Stop) + Shown(Ends.Start, Ends.Stop));
}

/// The map keeps the order of values, and its ends stand at the ends of the axis.
void DemandMap(const TKxScaleEnds& Ends, const TKxAxisMap& Map, double A, double B) {
    const int first = Map.RealToIntPosition(Ends.Start), last = Map.RealToIntPosition(Ends.Stop);
    KX_DEMAND(std::abs(first - last) <= std::max(Map.AxisLength, 1));
    for (const int end : {first, last}) // an axis without length still tells its ends apart
        KX_DEMAND(end >= std::min(Map.AxisLength, 1) - 1 && end <= std::max(Map.AxisLength, 1),
                  +std::to_string(end) + " of " + std::to_string(Map.AxisLength) +
                      Shown(Ends.Start, Ends.Stop));
    for (const double value : {A, B, Map.IntToRealPosition(first - 7), Map.IntToRealPosition(last + 1000000)})
        KX_DEMAND(std::isnan(value) == (Map.RealToIntPosition(value) == CNoPixel) || !std::isfinite(value));
    if (Map.IsLogarithmic() && !(A > 0 && B > 0)) return;
    const int a = Map.RealToIntPosition(A), b = Map.RealToIntPosition(B);
    if (A < B) KX_DEMAND(Map.Forward ? a <= b : a >= b, +Shown(A, B));
    int many[2];
    Map.RealToIntPositions(std::vector<double>{A, B}, many, 1);
    KX_DEMAND(many[0] == a && many[1] == b, +Shown(A, B));
}

void DemandTicks(const TKxScaleEnds& Ends, const TKxAxisMap& Map, const TKxTickOptions& Options) {
    const TKxTicks ticks = CalculateTicks(Ends, Map, Options);
    const int count = ticks.Positions.Length();
    KX_DEMAND(count >= 2 && count <= CMaxTicks + 2, +std::to_string(count));
    KX_DEMAND(ticks.Values.Length() == count && ticks.IsMajor.Length() == count);
    for (int i = 0; i < count; ++i) {
        KX_DEMAND(ticks.Positions[i] >= -1 && ticks.Positions[i] <= Map.AxisLength + 1);
        if (i > 0) KX_DEMAND(ticks.Positions[i] >= ticks.Positions[i - 1]);
    }
    const auto& labels = ticks.Labels;
    std::vector<TKxLabelExtent> extents;
    for (const auto& label : labels) {
        KX_DEMAND(!label.Text.empty() && std::isfinite(label.Value));
        extents.push_back({label.Position, 8});
    }
    const int anchor = AnchorLabel(labels), stride = LabelStride(extents, 2, anchor);
    KX_DEMAND(stride >= 1);
    int last = -1;
    for (int i = 0; i < int(labels.size()); ++i) {
        if (!IsKeptLabel(i, anchor, stride)) continue;
        if (last >= 0)
            KX_DEMAND(std::abs(labels[std::size_t(i)].Position - labels[std::size_t(last)].Position) >= 10);
        last = i;
    }
}

KX_FUZZ(scale) {
    const TKxScaleInput input = InputOf(Data);
    const TKxScaleEnds ends = CalculateEnds(input);
    DemandEnds(input, ends);
    const int length = Data.Between(0, 2000);
    const auto orientation = Data.Flag() ? AxHorizontal : AxVertical;
    const TKxAxisMap map = TKxAxisMap::Make(input.Scaling, ends, length, orientation, Data.Flag());
    DemandMap(ends, map, Data.Real(), Data.Real());
    DemandTicks(ends, map, {orientation, true, Data.Flag()});
}

} // namespace kx::fuzz::scaletarget
