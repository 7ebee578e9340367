#pragma once
// Straight lines across a graph, at given values.

#include <kxgraph/series/Kxdataseries.h>

#include <array>
#include <span>
#include <string_view>

namespace kx {

enum TKxRuleDirection {
    rdVertical,  ///< at values of X
    rdHorizontal ///< at values of Y
};

template <>
inline constexpr auto CEnumNames<TKxRuleDirection> = std::to_array<std::string_view>({"rdVertical",
                                                                                      "rdHorizontal"});

/// A line from edge to edge of the drawing world at each value, in the line style, beneath all series that it
/// is no band of. The values are in XData, or with rdHorizontal in YData; the other vector must be there,
/// too, and may be the same one. They widen the axis that they stand on and not the other one. Takes the axes
/// of the last graph that its owner has.
class TKxRuleSeries : public TKxNotCalculatedSeries {
public:
    explicit TKxRuleSeries(TComponent* Owner);

    TKxRuleDirection GetDirection() const { return FDirection; }
    void SetDirection(TKxRuleDirection Direction);

    void DrawBeneath(TCanvas& Canvas) override;
    void DrawLine(TCanvas&) override {}
    // Has lines, no points.
    TKxDrawnPoint PointAt(int) const override { return {}; }
    TKxDrawnPoint PointNear(TPoint, int) const override { return {}; }

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxRuleSeries>(); }
    void GetIntervals(const TKxChannel& Channel, int First, std::span<TKxInterval> Intervals) const override;
    bool GoesByValues() const override { return false; }

private:
    const TKxChannel& Channel() const { return FDirection == rdVertical ? FX : FY; }

    TKxRuleDirection FDirection = rdVertical;
};

} // namespace kx
