#include <kxgraph/platform/drawing/device.h>

#include <array>

namespace kx {

void TCanvasDevice::Rectangle(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) {
    if (Rect.IsEmpty()) return;
    const double right = Rect.Right - 1, bottom = Rect.Bottom - 1;
    const std::array<TRealPoint, 4> corners{
        {{Rect.Left, Rect.Top}, {right, Rect.Top}, {right, bottom}, {Rect.Left, bottom}}};
    Polygon(corners, Stroke, Fill);
}

} // namespace kx
