#pragma once
// kxplot's own look: what a picture is like when nothing is asked for.

#include "graph/Kxgraph2d.h"
#include "kxplot/options.h"
#include "series/Kxdataseries.h"

namespace kxplot {

void DressGraph(kx::TKx2DGraph& Graph);
void DressAxis(kx::TKxAxis& Axis);
/// Number counts from 0; HasErrors keeps the error bars shown in every style.
void DressSeries(kx::TKxDataWithErrorSeries& Series, int Number, TStyle Style, bool HasErrors);

} // namespace kxplot
