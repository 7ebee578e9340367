#pragma once
// Dragging: a control that is taken up by the mouse and dropped on another one of the same window.

#include <kxgraph/platform/base/event.h>
#include <kxgraph/platform/drawing/geometry.h>
#include <kxgraph/platform/objects/typenames.h>

#include <array>

namespace kx {

class TControl;

/// Whether a drag is begun by the program (BeginDrag), or by a left press and a move of more than 4 pixels.
enum TDragMode { dmManual, dmAutomatic };
template <>
inline constexpr auto CEnumNames<TDragMode> = std::to_array<std::string_view>({"dmManual", "dmAutomatic"});
/// What the mouse does with a drag over a control.
enum TDragState { dsDragEnter, dsDragLeave, dsDragMove };

// Points are in pixels of the first parameter, the sender.
using TStartDragEvent = TEvent<TControl*>;
using TDragOverEvent = TEvent<TControl*, TControl*, int, int, TDragState, bool&>;
using TDragDropEvent = TEvent<TControl*, TControl*, int, int>;
using TEndDragEvent = TEvent<TControl*, TControl*, int, int>;

/// What a topmost control knows of the left press and of the drag that it may become; pixels of that control.
struct TDragging {
    TControl* Source = nullptr; ///< set by the press where it may become a drag
    TControl* Over = nullptr;   ///< whom OnDragOver told last that the drag is over it
    TPoint Pressed{}, Last{};
    bool LeftDown = false;
    bool Active = false;
    bool Accepted = false; ///< by Over
};

} // namespace kx
