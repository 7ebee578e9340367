#pragma once
// Where the legend stands when nobody has said it.

#include "kxplot/form/parts.h"

namespace kxplot {

/// With the columns that suit the place, unless it stands there already.
void PlaceLegend(kx::TKxLegend& Legend, kx::TKxLegendPlacement Place);
/// Beside the data of a small picture a legend would take too much of the width: one whose place was left
/// open goes into a corner where no data are, or else below them, if it is low enough. The form is settled.
void LeaveWidthToTheData(const TParts& Parts);

} // namespace kxplot
