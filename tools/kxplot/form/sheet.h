#pragma once
// What is drawn as a whole: a graph, or the sheet with two of them.

#include "kxplot/form/parts.h"

#include <kxgraph/platform/drawing/recording.h>

namespace kxplot {

/// Gives the picture the size of its form.
void FillForm(const TParts& Parts);
/// The picture as a metafile; Own holds it where there are two graphs.
const kx::TMetafile& Recorded(const TParts& Parts, kx::TMetafile& Own);

} // namespace kxplot
