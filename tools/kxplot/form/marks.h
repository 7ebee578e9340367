#pragma once
// Lines, texts and arrows that are put into a picture: Rule1 for the vertical lines, Rule2 for the horizontal
// ones, Text1, ..., Arrows1.

#include "kxplot/form/parts.h"

namespace kxplot {

/// Behind the series, so that outfits know those by their numbers.
void MakeMarks(TParts& Parts);
/// Puts texts where they belong in the settled graph.
void PlaceTexts(TParts& Parts);

} // namespace kxplot
