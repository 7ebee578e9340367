#pragma once
// Finds room for a block of labels among what is drawn.

#include <kxgraph/graph/Kxgraph2d.h>

namespace kxplot {

/// Where in the graph the top left of a block of Size goes: Gap pixels off the edges of the drawing world, in
/// the corner where it hides the least of symbols, error bars, lines and curves; of equal ones the first of
/// top left, top right, bottom left and bottom right. The graph must be settled. A block that is too large
/// keeps to the left and to the top. What lies in Taken, pixels of the graph, is hidden in no case if it can
/// be helped.
kx::TPoint FreestCorner(kx::TKx2DGraph& Graph, kx::TSize Size, int Gap, const kx::TRect& Taken);

} // namespace kxplot
