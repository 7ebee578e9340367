#pragma once
// The ends that an axis has after a zoom or a pan. No axis, no graph.

#include <kxgraph/graph/Kxlabelling.h>
#include <kxgraph/graph/Kxscale.h>

#include <optional>

namespace kx {

/// The ends of a view, Start below Stop.
struct TKxViewEnds {
    double Start, Stop;
    friend bool operator==(const TKxViewEnds&, const TKxViewEnds&) = default;
};

/// The view of an axis of this kind whose span is Factor times that of Map (which is what the axis shows),
/// where the value at pixel At stays. Null where the axis could not tell the numbers of the new view apart,
/// or where an end would lie beyond what such an axis shows.
std::optional<TKxViewEnds> ZoomedAbout(const TKxAxisMap& Map, TKxLabelKind Kind, double At, double Factor);
/// The view that has at pixel 0 what Map has at pixel By. Null as above.
std::optional<TKxViewEnds> PannedBy(const TKxAxisMap& Map, TKxLabelKind Kind, double By);

} // namespace kx
