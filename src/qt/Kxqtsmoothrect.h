#pragma once
// Upright rectangles between pixels, written into an image: for one of them the painter takes the time of
// many hundred pixels, and histograms have thousands.

#include <kxgraph/qt/Kxqtraster.h>

#include <QRectF>

namespace kx::qt {

/// Mixes Color into what lies inside Outer and not inside Inner, by the part of each pixel that does. Both in
/// device pixels with the first one from 0 to 1; only pixels inside Window, which lies in the image, change.
/// An empty Inner leaves nothing out.
void MixFrame(const TPixels& Image, const TRect& Window, const QRectF& Outer, const QRectF& Inner,
              QRgb Color);

} // namespace kx::qt
