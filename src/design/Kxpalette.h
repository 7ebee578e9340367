#pragma once
// The palette of a designer, as a model: what can be put onto a form, by pages, and how it is drawn there.

#include <kxgraph/platform/drawing/canvas.h>
#include <kxgraph/platform/objects/classes.h>

#include <string>
#include <string_view>
#include <vector>

namespace kx {

struct TKxPaletteEntry {
    const TComponentClass* Class;
    std::string Caption; ///< the class without its first letters: "DataSeries"
    std::string Hint;    ///< the caption and what distinguishes it: "DataSeries, a TKxLineSeries"
    bool IsVisual;       ///< a control, which has a place; others belong to the form alone
};

struct TKxPalettePage {
    std::string_view Name;
    std::vector<TKxPaletteEntry> Entries;
};

/// All registered classes that have a page, in the order in which they were entered: those of the library on
/// "Kx-General" and "Kx-Graph2D", a program's own on whatever page it has named.
std::vector<TKxPalettePage> MakePalette();

/// Draws the picture of a class into a square of Rect, at any size; that of the nearest base class which has
/// one, or a plain one.
void PaintPaletteIcon(TCanvas& Canvas, const TRect& Rect, const TComponentClass& Class);

} // namespace kx
