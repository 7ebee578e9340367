#pragma once
// What the labels of an axis tell: a kind, and what it needs. All that depends on the kind is asked for here:
// round ends, ticks with labels, and how a value reads.

#include <kxgraph/graph/Kxcalendar.h>
#include <kxgraph/graph/Kxcategories.h>
#include <kxgraph/graph/Kxscale.h>
#include <kxgraph/graph/Kxticks.h>
#include <kxgraph/platform/objects/typenames.h>

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace kx {

enum TKxLabelKind {
    lkNumbers,   ///< the values
    lkDates,     ///< values are seconds since 1970, UTC; ticks on steps of the calendar
    lkCategories ///< texts at 1, 2, 3, ...
};
template <>
inline constexpr auto CEnumNames<TKxLabelKind> = std::to_array<std::string_view>({"lkNumbers", "lkDates",
                                                                                  "lkCategories"});

/// Dates and categories stand on linear scales alone.
struct TKxLabelling {
    TKxLabelKind Kind = lkNumbers;
    TKxCategories Categories;
    TKxZoneOffset ZoneOffset;
    /// One of its own for each ZoneOffset: functions cannot be compared.
    int Zone = 0;

    /// Equal where dates read alike.
    std::pair<TKxLabelKind, int> Reading() const { return {Kind, Kind == lkDates ? Zone : 0}; }
    TKxScaleEnds CalculateEnds(const TKxScaleInput& Input) const;
    TKxTicks CalculateTicks(const TKxScaleEnds& Ends, const TKxAxisMap& Map,
                            const TKxTickOptions& Options) const;
    /// Whether ticks are made for a length and must be made anew for another one.
    bool GoesByLength(TKxAxScaling Scaling) const { return Kind != lkNumbers || Scaling != AxNormal; }
    /// A value as it reads where differences below Resolution do not matter: a number, a date, the category
    /// that it lies in (the number where it lies in none). 0: all digits.
    std::string TextOf(double Value, double Resolution) const;
    /// Raises EPropertyError for a kind that such a scale does not have.
    void DemandScaling(TKxAxScaling Scaling) const;
};

} // namespace kx
