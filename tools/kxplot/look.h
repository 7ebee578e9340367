#pragma once
// kxplot's own look: what a picture is like when nothing is asked for.

#include "graph/Kxgraph2d.h"
#include "kxplot/options.h"
#include "series/Kxdataseries.h"

namespace kxplot {

void DressGraph(kx::TKx2DGraph& Graph);
void DressAxis(kx::TKxAxis& Axis);
/// Number counts from 0; HasErrors keeps the error bars shown in every style, SmallSymbols is for a cloud of
/// points.
void DressSeries(kx::TKxDataWithErrorSeries& Series, int Number, TStyle Style, bool HasErrors,
                 bool SmallSymbols);
/// Number and Series count from 0. Of several series each lends its fits its colour.
void DressFit(kx::TKxSeries& Fit, int Number, int Series, bool SeveralSeries);

} // namespace kxplot
