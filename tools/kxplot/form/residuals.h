#pragma once
// Residuals of fits, in a second graph (Graph2 with XAxis2 and YAxis2) under the first one: Residuals1, ...

#include "kxplot/form/parts.h"

namespace kxplot {

/// Puts both graphs on a sheet, and the residuals of every fit into the lower one. Behind everything else,
/// for series take the axes of the last graph.
void MakeResiduals(TParts& Parts);
/// Gives both graphs their places on a sheet of that size.
void PlaceGraphs(const TParts& Parts, kx::TSize Size);
/// Once the fits are done.
void FillResiduals(TParts& Parts);
/// Gives both drawing worlds the same left and right edges.
void AlignGraphs(TParts& Parts);

} // namespace kxplot
