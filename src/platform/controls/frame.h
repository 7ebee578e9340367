#pragma once
// A frame is settled before it is painted: the one way in which trees of controls come onto a device.
// Windows, metafiles, the clipboard and programs without a window all go through it.

#include <kxgraph/platform/controls/controls.h>

namespace kx {

/// At most so many rounds of settling precede a paint.
inline constexpr int CMaxSettleRounds = 24;

/// Lets every control of the tree compute what it still has to, until none asks again or the rounds are used
/// up; where they go round in a circle they are stopped. Exceptions go to the application's OnException; the
/// others go on. Returns whether all is settled.
bool SettleTree(TWinControl& Root);

/// Paints Root and its visible children on Device, Root's top left at (0, 0), without settling. Dirty bounds
/// what is painted. A graphic control that lifts its clip reaches as far as its parent does. An exception
/// from a Paint goes to the application's OnException; the rest is painted.
void PaintTree(TWinControl& Root, TCanvasDevice& Device, const TRect& Dirty);

/// Settles the tree that Root belongs to and paints Root on Device.
void PaintFrame(TWinControl& Root, TCanvasDevice& Device);

} // namespace kx
