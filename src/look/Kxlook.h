#pragma once
// The good look: pictures that are fit to be shown as they are. kxplot has it, and programs call it.

#include <kxgraph/analysis/Kxfitband.h>
#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/look/Kxtheme.h>
#include <kxgraph/series/Kxarrowseries.h>
#include <kxgraph/series/Kxbarseries.h>
#include <kxgraph/series/Kxdataseries.h>

namespace kx {

/// The graph, its axes, its series with what is computed from them, and its legends, all of them components
/// of the graph's owner. Series get their colours, symbols and dashes in their order; whether lines and
/// symbols show stays as it is. Raises EThemeError for a line of the theme that does not fit.
void Dress(TKx2DGraph& Graph, const TKxTheme& Theme = TKxTheme());

// One by one, without the lines of the theme: TKxTheme::ApplyTo follows. Number counts series from 0.

void DressGraph(TKx2DGraph& Graph, const TKxTheme& Theme);
void DressAxis(TKxAxis& Axis, const TKxTheme& Theme);
/// An axis of one curve's own takes the colour of that curve.
void DressSideAxis(TKxAxis& Axis, TColor Color);
/// Any series: colour and dash of the line, tint of the area.
void DressLine(TKxSeries& Series, int Number, const TKxTheme& Theme);
/// Symbols as well, and error bars where there are some.
void DressPoints(TKxDataSeries& Series, int Number, const TKxTheme& Theme);
/// Flat bars are tinted; boxes are darker, for their other faces are made of the colour of the front.
void DressBars(TKxBarSeries& Series, int Number, bool Boxes, const TKxTheme& Theme);
void DressArrows(TKxArrowSeries& Series, int Number, const TKxTheme& Theme);
/// A curve that was computed: twice as wide as the line of a series, in Color, the Pattern-th dash.
void DressCurve(TKxSeries& Curve, TColor Color, int Pattern);
/// The band about a curve: a light area with thin edges, those of a prediction dashed.
void DressBand(TKxFitBand& Band, TColor Color, const TKxTheme& Theme);
void DressLegend(TKxLegend& Legend, const TKxTheme& Theme);

} // namespace kx
