#pragma once
// A user in front of a form: a control in it, mouse and wheel; for keys see typing.h.

#include "support/headless.h"
#include "support/typing.h"

namespace kx::test {

/// A form that is shown and has the keys, with a control of type T in it.
template <class T>
struct TWidgetForm {
    TWidgetForm() {
        Form.SetBounds(0, 0, 400, 300);
        Widget.SetParent(&Form);
        Widget.SetBounds(20, 10, 120, 26);
        Form.Show();
        Form.AsHostClient().HostActivated(true);
        Widget.SetFocus();
    }
    THostClient& Client() { return Form.AsHostClient(); }
    TForm Form{nullptr};
    T Widget{&Form};
};

inline void Mouse(THostClient& Client, TMouseKind Kind, TPoint Pos, TShiftState Shift = 0) {
    Client.HostMouse(Kind, mbLeft, Kind == TMouseKind::Up ? Shift : Shift | ssLeft, Pos);
}

inline void Click(THostClient& Client, TPoint Pos, TShiftState Shift = 0) {
    Mouse(Client, TMouseKind::Down, Pos, Shift);
    if (Host().WindowOf(Client)) Mouse(Client, TMouseKind::Up, Pos, Shift);
}

inline bool Turn(THostClient& Client, double Up, TPoint Pos) { return Client.HostWheel({.Up = Up}, 0, Pos); }

} // namespace kx::test
