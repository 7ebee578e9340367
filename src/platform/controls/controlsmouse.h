#pragma once
// Inner parts of the mouse dispatch, shared by its sources.

#include <kxgraph/platform/controls/controls.h>
#include <kxgraph/platform/objects/guarded.h>

namespace kx {

/// One mouse event on its way. Lies on the stack, linked from the topmost control, and is told by controls
/// that leave the tree; so nothing is called on one that a handler has destroyed.
struct TWinControl::TDispatch {
    TDispatch(TWinControl& R, TControl* T) : Root(&R), Target(T), Outer(R.FDispatch) { R.FDispatch = this; }
    ~TDispatch() {
        if (Root) Root->FDispatch = Outer;
    }
    TDispatch(const TDispatch&) = delete;
    TDispatch& operator=(const TDispatch&) = delete;

    template <class F>
    void Call(F Handler) {
        if (Target) Guarded([&] { Handler(*Target); });
    }
    void Press(TMouseButton Button, TShiftState Shift, TPoint Pos);
    void Release(TMouseButton Button, TShiftState Shift, TPoint Pos);
    /// Asks the target, at Pos of the root, whether it accepts the root's drag.
    bool AskDragOver(TDragState State, TPoint Pos);

    TWinControl* Root;
    TControl* Target;
    TDispatch* Outer;
};

bool IsWithin(const TControl* Inner, const TControl& Outer);
/// Shows the cursor of Target or, where it has none of its own, of its nearest parent that has one.
void ShowCursorOf(const TControl& Target);

} // namespace kx
