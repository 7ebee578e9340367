#pragma once
// Round ends and ticks of an axis of dates.

#include <kxgraph/graph/Kxcalendar.h>
#include <kxgraph/graph/Kxticks.h>

namespace kx {

/// Ends that follow the data lie on calendar steps, of which at least eight fit between them; fixed ones stay
/// as they are. Ends without a date are moved to the last ones that have one. Steps that a program has set
/// are not used.
TKxScaleEnds DateEnds(const TKxScaleInput& Input, const TKxCalendar& Calendar);

/// Ticks on calendar steps: twelve labels or hardly more, or fewer by Options.Coarseness. Which fits,
/// whoever draws the labels knows.
TKxTicks DateTicks(const TKxScaleEnds& Ends, const TKxAxisMap& Map, const TKxTickOptions& Options,
                   const TKxCalendar& Calendar);

} // namespace kx
