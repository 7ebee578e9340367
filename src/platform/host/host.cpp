#include <kxgraph/platform/host/host.h>

#include <algorithm>

namespace kx {

TRect PopupPlace(const TRect& Beside, TSize Size, TSize Screen) {
    const bool above = Beside.Bottom + Size.Height > Screen.Height && Beside.Top >= Size.Height;
    const int left = std::max(0, std::min(Beside.Left, Screen.Width - Size.Width));
    return TRect::Bounds(left, above ? Beside.Top - Size.Height : Beside.Bottom, Size.Width, Size.Height);
}

} // namespace kx
