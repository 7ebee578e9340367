#pragma once
// Pictures that tests, documentation and the demo share: one function a picture.

#include <kxgraph/platform/drawing/canvas.h>

namespace kx::scenes {

inline constexpr TSize CSymbolSheetSize{760, 520};

/// All point symbols with their names, arrows, three-dimensional bars, frames and the caption markup.
void PaintSymbolSheet(TCanvas& Canvas);

inline constexpr TSize CEditingSheetSize{1000, 640};

/// The editing controls in their states, on a form.
void PaintEditingSheet(TCanvasDevice& Device);

inline constexpr TSize CFieldsSheetSize{660, 340};

/// Fields, lists, buttons and a grid in their states, on a form.
void PaintFieldsSheet(TCanvasDevice& Device);

} // namespace kx::scenes
