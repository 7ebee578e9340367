#pragma once
// The axes of a picture, and what their labels tell.

#include "kxplot/form/parts.h"

namespace kxplot {

/// Makes the two primary axes, those at the right, that of --y2 next to the data, and those opposite of
/// --box.
void MakeAxes(TParts& Parts);
/// An axis of the data axes that has one series while there are two such axes takes the colour of it.
void ColourDataAxes(TParts& Parts);
/// Puts series on the axes that the command line says, whatever an outfit says.
void PutOnAxes(TParts& Parts);
/// Makes labels what the data say: dates, categories. An outfit may come from other data.
void ConfigureLabels(TParts& Parts);

} // namespace kxplot
