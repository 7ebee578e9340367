#pragma once
// How an axis looks.

#include <kxgraph/platform/drawing/canvas.h>

#include <cstdlib>

namespace kx {

/// Gaps, lengths and thicknesses in pixels; positive ticks point outwards, to the labels.
struct TKxAxisLook {
    int BorderCaptionGap = 0, CaptionScalingsGap = 0, ScalingsTicksGap = 1, ExponentScalingsGap = 10,
        ValuesTicksGap = 0;
    int MajorTickLength = 10, TickLength = 6;
    TColor AxisColor = clBlack, TickColor = clBlack, MajorTickColor = clBlack;
    int AxisThicknes = 0, TickThicknes = 0, MajorTickThicknes = 0;
    TFont CaptionFont;
    bool ShowCaption = false, ShowScaleLabels = true, AutoSize = true, Transparent = true, ThinLabels = false;

    /// Where the labels begin, counted from the axis line.
    int LabelDistance() const { return std::abs(MajorTickLength) + ScalingsTicksGap; }
};

} // namespace kx
