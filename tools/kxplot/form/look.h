#pragma once
// kxplot's own look: what a picture is like when nothing is asked for.

#include "kxplot/plan/plan.h"

#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/series/Kxarrowseries.h>
#include <kxgraph/series/Kxbarseries.h>
#include <kxgraph/series/Kxdataseries.h>

namespace kxplot {

void DressGraph(kx::TKx2DGraph& Graph);
void DressAxis(kx::TKxAxis& Axis);
/// An axis of one curve's own takes the colour of that curve.
void DressSideAxis(kx::TKxAxis& Axis, kx::TColor Color);
/// Number counts from 0; HasErrors keeps the error bars shown in every style, SmallSymbols is for a cloud of
/// points.
void DressSeries(kx::TKxDataWithErrorSeries& Series, int Number, TStyle Style, bool HasErrors,
                 bool SmallSymbols);
/// Boxes are darker: the library makes their other faces of the colour of the front.
void DressBars(kx::TKxBarSeries& Series, int Number, bool Boxes, double GapPercent);
void DressArrows(kx::TKxArrowSeries& Series, int Number);
void DressLegend(kx::TKxLegend& Legend);
kx::TColor AnalysisColor(const TAnalysisPlace& Place);
/// A curve on an axis of its own has no pattern unless it needs one.
void DressAnalysis(kx::TKxSeries& Line, const TAnalysisPlace& Place, bool HasOwnAxis);

} // namespace kxplot
