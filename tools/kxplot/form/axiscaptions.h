#pragma once
// What the axes are called, and how captions are made to fit.

#include "kxplot/form/parts.h"

namespace kxplot {

void CaptionAxes(TParts& Parts);
/// Captions of the axes at the right, which an outfit may have changed.
void CaptionSideAxes(TParts& Parts);
/// Title and captions too long for the picture get a smaller font, but with an outfit, whose fonts stay;
/// those of header texts are cut off after that.
void FitCaptions(TParts& Parts);

} // namespace kxplot
