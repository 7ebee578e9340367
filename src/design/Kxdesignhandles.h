#pragma once
// The marks by which a designer shows what is selected. For Kxdesignsurface alone.

#include <kxgraph/design/Kxdesignarrange.h>
#include <kxgraph/platform/drawing/canvas.h>

#include <optional>

namespace kx {

/// The edges that the handle at Pos moves, of a control at Rect; of a form those alone at the right and
/// below, inside of it.
std::optional<TKxDesignEdges> HandleAt(const TRect& Rect, TPoint Pos, bool IsForm);

void PaintHandle(TCanvas& Canvas, TPoint Middle, bool IsPrimary);
/// A frame about Rect, with handles where it can be resized.
void PaintFrame(TCanvas& Canvas, const TRect& Rect, bool Resizes, bool IsForm);
void PaintOutline(TCanvas& Canvas, const TRect& Rect);
void PaintGuide(TCanvas& Canvas, const TRect& Line);

} // namespace kx
