#pragma once
// A user in front of a form: types, presses, turns the wheel.

#include "support/headless.h"

#include <cctype>
#include <map>
#include <string>
#include <string_view>

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

/// Types Script: characters as they stand; {Left}, {Home}, ... are keys, before which S-, C- and A- hold
/// Shift, Ctrl and Alt, as in {C-S-Left} and {C-v}. Answers whether the last one was taken.
inline bool Type(THostClient& Client, std::string_view Script) {
    static const std::map<std::string, int, std::less<>> keys{
        {"Left", kcLeft},  {"Right", kcRight},   {"Up", kcUp},       {"Down", kcDown},     {"Home", kcHome},
        {"End", kcEnd},    {"Back", kcBack},     {"Del", kcDelete},  {"Ins", kcInsert},    {"Tab", kcTab},
        {"Esc", kcEscape}, {"Return", kcReturn}, {"PgUp", kcPageUp}, {"PgDn", kcPageDown}, {"F2", kcF1 + 1},
        {"F4", kcF1 + 3},  {"Space", kcSpace},   {"Plus", kcPlus},   {"Minus", kcMinus}};
    bool taken = false;
    for (std::size_t i = 0; i < Script.size();) {
        TKeyStroke stroke;
        std::size_t length = 1;
        if (Script[i] == '{') {
            length = Script.find('}', i) + 1 - i;
            std::string_view name = Script.substr(i + 1, length - 2);
            for (; name.size() > 2 && name[1] == '-'; name.remove_prefix(2))
                stroke.Shift |= name[0] == 'S' ? ssShift : name[0] == 'C' ? ssCtrl : ssAlt;
            stroke.Key = name.size() == 1 ? std::toupper(name[0]) : keys.find(name)->second;
            if (stroke.Key == kcSpace) stroke.Text = " ";
        } else {
            while (i + length < Script.size() && (Script[i + length] & 0xC0) == 0x80) ++length;
            stroke.Text = Script.substr(i, length);
            stroke.Key =
                std::isalnum(static_cast<unsigned char>(Script[i])) ? std::toupper(Script[i]) : kcNone;
        }
        i += length;
        taken = Client.HostKey(stroke, true);
        if (!Host().WindowOf(Client)) return taken; // gone by the key
        Client.HostKey(stroke, false);
    }
    return taken;
}

inline void Mouse(THostClient& Client, TMouseKind Kind, TPoint Pos, TShiftState Shift = 0) {
    Client.HostMouse(Kind, mbLeft, Kind == TMouseKind::Up ? Shift : Shift | ssLeft, Pos);
}

inline void Click(THostClient& Client, TPoint Pos, TShiftState Shift = 0) {
    Mouse(Client, TMouseKind::Down, Pos, Shift);
    if (Host().WindowOf(Client)) Mouse(Client, TMouseKind::Up, Pos, Shift);
}

inline bool Turn(THostClient& Client, double Up, TPoint Pos) { return Client.HostWheel({.Up = Up}, 0, Pos); }

} // namespace kx::test
