#pragma once
// The place of a form designer: between a form's window and its controls.

#include <kxgraph/platform/drawing/canvas.h>
#include <kxgraph/platform/host/input.h>

namespace kx {

/// Gets mouse and keys of a form in the place of the form's controls, in pixels of the form, and paints over
/// them in the window alone: pictures, metafiles and printers know nothing of it.
class TFormDesigner {
public:
    virtual void DesignMouse(TMouseKind Kind, TMouseButton Button, TShiftState Shift, TPoint Pos) = 0;
    virtual void DesignMouseLeft() {}
    /// Whether it took them; others are the window's surroundings'.
    virtual bool DesignWheel(const TWheelTurn&, TShiftState, TPoint) { return false; }
    virtual bool DesignKey(const TKeyStroke& Stroke, bool Down) = 0;
    virtual void PaintDesign(TCanvas& Canvas) = 0;

protected:
    ~TFormDesigner() = default;
};

} // namespace kx
