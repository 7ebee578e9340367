#pragma once
// The legend: when there is one, and how it is made to fit.

#include "kxplot/form/parts.h"

namespace kxplot {

bool IsShown(const kx::TKxLegend& Legend);
void MakeLegend(TParts& Parts);
/// Makes it what the command line says, whatever an outfit has made of it.
void ConfigureLegend(TParts& Parts);
/// Entries are of what is drawn, and as long as there is room for.
void FinishLegend(TParts& Parts);
/// The same again where it has got less room.
void FitLegend(TParts& Parts);

} // namespace kxplot
