#pragma once
// What mouse, wheel and keys of Qt are in the words of the platform.

#include <kxgraph/platform/host/host.h>

#include <QByteArray>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <optional>

namespace kx::qt {

TShiftState ShiftOf(Qt::KeyboardModifiers Modifiers, Qt::MouseButtons Buttons = {});
/// Nothing for buttons that a form does not know.
std::optional<TMouseButton> ButtonOf(Qt::MouseButton Button);
/// The pixel that a place lies in.
TPoint PixelOf(const QPointF& Place);
Qt::CursorShape ShapeOf(TCursor Cursor);

/// kcNone for keys that have no code: what they type tells more than their place on a keyboard.
int KeyCodeOf(int Key);
/// What the key types as UTF-8; empty for control characters.
QByteArray TypedText(const QKeyEvent& Event);
/// Whether a field for text uses the key, which shortcuts of the program must leave to it then.
bool IsEditingKey(const QKeyEvent& Event);
/// Whether the key is Tab, with or without Shift alone.
bool IsTab(const QKeyEvent& Event);

/// Turns of one window's wheel, with the gestures that touchpads tell.
class TWheelReader {
public:
    /// Nothing for an event that only begins or ends a gesture.
    std::optional<TWheelTurn> Read(const QWheelEvent& Event);

private:
    bool FTurned = false; // within the present gesture
};

} // namespace kx::qt
