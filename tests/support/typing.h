#pragma once
// Keys and mouse of a form, as a host would tell it.

#include "support/headless.h"

#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/text/text.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

namespace kx::test {

/// The code of a key by its name: Left, Home, Del, ..., or a letter, a digit, + or -.
inline int KeyNamed(std::string_view Name) {
    static constexpr std::pair<std::string_view, int> keys[] = {
        {"Left", kcLeft},    {"Right", kcRight}, {"Up", kcUp},      {"Down", kcDown},   {"Home", kcHome},
        {"End", kcEnd},      {"Back", kcBack},   {"Del", kcDelete}, {"Ins", kcInsert},  {"Space", kcSpace},
        {"Enter", kcReturn}, {"Esc", kcEscape},  {"Tab", kcTab},    {"PgUp", kcPageUp}, {"PgDn", kcPageDown},
        {"+", kcPlus},       {"-", kcMinus},     {"F2", kcF1 + 1},  {"F4", kcF1 + 3}};
    for (const auto& [name, code] : keys)
        if (name == Name) return code;
    return Name.front();
}

/// Presses what Keys say: characters type themselves, {Left}, {Ctrl Shift Z} and the like are strokes.
/// Answers whether the last one was taken. Ends with a stroke that takes the client's window away.
inline bool Press(THostClient& Client, std::string_view Keys) {
    bool taken = false;
    for (std::size_t at = 0; at < Keys.size();) {
        TKeyStroke stroke;
        const auto end = Keys[at] == '{' ? Keys.find('}', at) : Keys.npos;
        if (end == Keys.npos) {
            stroke.Text = Keys.substr(at, std::size_t(DecodeAt(Keys, at).Length));
            at += stroke.Text.size();
        } else {
            std::string_view words = Keys.substr(at + 1, end - at - 1);
            for (std::size_t blank; (blank = words.find(' ')) != words.npos; words.remove_prefix(blank + 1)) {
                const std::string_view word = words.substr(0, blank);
                stroke.Shift |= word == "Ctrl" ? ssCtrl : word == "Shift" ? ssShift : ssAlt;
            }
            stroke.Key = KeyNamed(words);
            at = end + 1;
        }
        const bool shown = Host().WindowOf(Client);
        taken = Client.HostKey(stroke, true);
        if (shown && !Host().WindowOf(Client)) break;
        Client.HostKey(stroke, false);
    }
    return taken;
}
inline void Press(TForm& Form, std::string_view Keys) { Press(Form.AsHostClient(), Keys); }

/// Presses the left button at From, a place of Control, and releases it at To.
inline void Drag(TForm& Form, TControl& Control, TPoint From, TPoint To, TShiftState Shift = 0) {
    THostClient& client = Form.AsHostClient();
    const TPoint from = Control.ClientToRoot(From), to = Control.ClientToRoot(To);
    client.HostMouse(TMouseKind::Down, mbLeft, Shift | ssLeft, from);
    if (from != to) client.HostMouse(TMouseKind::Move, mbLeft, (Shift & ~unsigned(ssDouble)) | ssLeft, to);
    client.HostMouse(TMouseKind::Up, mbLeft, Shift & ~unsigned(ssDouble), to);
}
inline void PressAt(TForm& Form, TControl& Control, TPoint At, TShiftState Shift = 0) {
    Drag(Form, Control, At, At, Shift);
}

} // namespace kx::test
