#pragma once
// Lines on logarithmic axes, which are fitted to the logarithms.

#include "kxplot/form/parts.h"

namespace kxplot {

/// Takes lines out of the picture whose points have no place on a logarithmic axis.
void RefuseLines(TParts& Parts);
/// Gives lines that are fitted to logarithms of y the weights of those, given weights by errors of y.
void WeighLogarithms(TParts& Parts);

} // namespace kxplot
