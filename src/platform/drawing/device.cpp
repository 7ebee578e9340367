#include <kxgraph/platform/drawing/device.h>

#include <array>

namespace kx {

void TCanvasDevice::Rectangle(const TRect& Rect, const TStroke& Stroke, const TFill& Fill) {
    if (Rect.IsEmpty()) return;
    const int right = Rect.Right - 1, bottom = Rect.Bottom - 1;
    const std::array<TPoint, 4> corners{
        {{Rect.Left, Rect.Top}, {right, Rect.Top}, {right, bottom}, {Rect.Left, bottom}}};
    Polygon(corners, Stroke, Fill);
}

} // namespace kx
