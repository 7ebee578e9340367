#pragma once
// What the library draws, as pictures of the window.

#include <kxgraph/platform/drawing/canvas.h>

#include <QImage>

#include <functional>

namespace kxdesign {

/// Scale: pixels of the screen in one of the picture. Its ground is transparent unless Draw paints one.
QImage Drawn(kx::TSize Size, double Scale, const std::function<void(kx::TCanvas&)>& Draw);

} // namespace kxdesign
