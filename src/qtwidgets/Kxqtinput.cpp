#include <kxgraph/qtwidgets/Kxqtinput.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace kx::qt {

namespace {

constexpr double CEighthsOfDegreePerNotch = 120;
constexpr double CPixelsPerNotch = 50; // what a notch scrolls a page by

constexpr std::array<std::pair<int, int>, 20> CKeys{
    {{Qt::Key_Backspace, kcBack}, {Qt::Key_Tab, kcTab},       {Qt::Key_Backtab, kcTab},
     {Qt::Key_Return, kcReturn},  {Qt::Key_Enter, kcReturn},  {Qt::Key_Escape, kcEscape},
     {Qt::Key_Space, kcSpace},    {Qt::Key_PageUp, kcPageUp}, {Qt::Key_PageDown, kcPageDown},
     {Qt::Key_End, kcEnd},        {Qt::Key_Home, kcHome},     {Qt::Key_Left, kcLeft},
     {Qt::Key_Up, kcUp},          {Qt::Key_Right, kcRight},   {Qt::Key_Down, kcDown},
     {Qt::Key_Insert, kcInsert},  {Qt::Key_Delete, kcDelete}, {Qt::Key_Plus, kcPlus},
     {Qt::Key_Minus, kcMinus},    {Qt::Key_Menu, kcMenu}}};

} // namespace

TShiftState ShiftOf(Qt::KeyboardModifiers Modifiers, Qt::MouseButtons Buttons) {
    TShiftState shift = 0;
    if (Modifiers & Qt::ShiftModifier) shift |= ssShift;
    if (Modifiers & Qt::AltModifier) shift |= ssAlt;
    if (Modifiers & Qt::ControlModifier) shift |= ssCtrl;
    if (Buttons & Qt::LeftButton) shift |= ssLeft;
    if (Buttons & Qt::RightButton) shift |= ssRight;
    if (Buttons & Qt::MiddleButton) shift |= ssMiddle;
    return shift;
}

std::optional<TMouseButton> ButtonOf(Qt::MouseButton Button) {
    switch (Button) {
    case Qt::LeftButton: return mbLeft;
    case Qt::RightButton: return mbRight;
    case Qt::MiddleButton: return mbMiddle;
    default: return std::nullopt;
    }
}

TPoint PixelOf(const QPointF& Place) { return {int(std::floor(Place.x())), int(std::floor(Place.y()))}; }

Qt::CursorShape ShapeOf(TCursor Cursor) {
    switch (Cursor) {
    case crDefault:
    case crArrow: return Qt::ArrowCursor;
    case crCross: return Qt::CrossCursor;
    case crHourGlass: return Qt::WaitCursor;
    case crSizeWE: return Qt::SizeHorCursor;
    case crSizeNS: return Qt::SizeVerCursor;
    case crHandPoint: return Qt::PointingHandCursor;
    case crDrag: return Qt::ClosedHandCursor;
    case crNoDrop: return Qt::ForbiddenCursor;
    case crIBeam: return Qt::IBeamCursor;
    }
    return Qt::ArrowCursor;
}

int KeyCodeOf(int Key) {
    const bool isCharacter = (Key >= Qt::Key_A && Key <= Qt::Key_Z) || (Key >= Qt::Key_0 && Key <= Qt::Key_9);
    if (isCharacter) return Key; // both worlds have ASCII here
    if (Key >= Qt::Key_F1 && Key <= Qt::Key_F24) return kcF1 + (Key - Qt::Key_F1);
    for (const auto& [theirs, ours] : CKeys)
        if (theirs == Key) return ours;
    return kcNone;
}

QByteArray TypedText(const QKeyEvent& Event) {
    const QString text = Event.text();
    const bool types = !text.isEmpty() && text.at(0) >= QChar(' ') && text.at(0) != QChar(0x7f);
    return types ? text.toUtf8() : QByteArray();
}

bool IsEditingKey(const QKeyEvent& Event) {
    constexpr std::array<int, 6> CMoving{Qt::Key_Left, Qt::Key_Right,  Qt::Key_Home,
                                         Qt::Key_End,  Qt::Key_Delete, Qt::Key_Backspace};
    constexpr std::array<int, 6> CWithCtrl{Qt::Key_A, Qt::Key_C, Qt::Key_V, Qt::Key_X, Qt::Key_Y, Qt::Key_Z};
    const bool ctrl = Event.modifiers() & Qt::ControlModifier, alt = Event.modifiers() & Qt::AltModifier;
    const auto isOf = [&](const auto& Keys) { return std::ranges::find(Keys, Event.key()) != Keys.end(); };
    if (ctrl != alt) return ctrl && (isOf(CMoving) || isOf(CWithCtrl));
    return isOf(CMoving) || !TypedText(Event).isEmpty();
}

bool IsTab(const QKeyEvent& Event) {
    return (Event.key() == Qt::Key_Tab || Event.key() == Qt::Key_Backtab) &&
           !(Event.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
}

std::optional<TWheelTurn> TWheelReader::Read(const QWheelEvent& Event) {
    const auto phase = Event.phase();
    const bool inGesture = phase == Qt::ScrollUpdate || phase == Qt::ScrollMomentum || phase == Qt::ScrollEnd;
    if (!inGesture) FTurned = false;
    const QPointF notches = phase != Qt::NoScrollPhase && !Event.pixelDelta().isNull()
                                ? QPointF(Event.pixelDelta()) / CPixelsPerNotch
                                : QPointF(Event.angleDelta()) / CEighthsOfDegreePerNotch;
    if (notches.isNull()) return std::nullopt;
    // To the right is negative there.
    return TWheelTurn{-notches.x(), notches.y(), std::exchange(FTurned, true) && inGesture};
}

} // namespace kx::qt
