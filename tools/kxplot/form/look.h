#pragma once
// What kxplot's look adds to the library's: what shows of a series, and which colour is whose.

#include "kxplot/plan/plan.h"

#include <kxgraph/look/Kxlook.h>

namespace kxplot {

/// Number counts from 0.
void DressSeries(kx::TKxDataWithErrorSeries& Series, int Number, const TPointsPlan& Plan,
                 const kx::TKxTheme& Theme);
kx::TColor AnalysisColor(const TAnalysisPlace& Place, const kx::TKxTheme& Theme);
/// A curve on an axis of its own has no pattern unless it needs one.
void DressAnalysis(kx::TKxSeries& Line, const TAnalysisPlace& Place, bool HasOwnAxis,
                   const kx::TKxTheme& Theme);

} // namespace kxplot
