#pragma once
// What a user may do with a graph beside the zoom rectangle.

namespace kx {

/// Everything is off by default.
struct TKxInteraction {
    bool WheelZoom = false;        ///< the wheel zooms about the pointer
    bool Panning = false;          ///< the middle button, or Space and the left one, drag the view
    bool ZoomKeys = false;         ///< keys zoom and pan
    bool UnzoomOnDblClick = false; ///< a double click shows the unzoomed view
    bool Readout = false;          ///< the point under the mouse tells its values
    bool CrossHair = false;        ///< lines through the mouse
    bool LegendPicking = false;    ///< entries of legends hide and show their series
};

} // namespace kx
