#pragma once
// What screen readers are told when a part of a window has changed, and the text of a part that is edited.

#include <kxgraph/platform/host/accessible.h>

#include <QAccessible>
#include <QWidget>

#include <functional>
#include <vector>

namespace kx::qt {

/// Which part: the place among its neighbours on each level, from the top.
using TAccessiblePath = std::vector<int>;

/// Whether anybody reads: then changes are told.
bool HasReaders();
void Send(QAccessibleEvent& Event);
/// Hears instead of Qt, whose own handlers hear nothing where the desktop has no readers; null: nobody.
using TAccessibleListener = void (*)(QAccessibleEvent& Event);
void ListenToAccessible(TAccessibleListener Listener);

/// The way to the part that the user's keys go to; empty for none.
TAccessiblePath FocusIn(const TAccessiblePart& Window);

/// Tells of all that differs from one state of a window to the next. Of what has other parts than before
/// only its own values are compared; readers ask for the rest.
void TellChanges(const TAccessiblePart& Before, const TAccessiblePart& Now,
                 const std::function<QAccessibleInterface*(const TAccessiblePath&)>& InterfaceOf);

/// An interface of a window that tells Qt of all that is different from what it has told before.
class TAccessibleTeller {
public:
    virtual void TellChanges() = 0;

protected:
    ~TAccessibleTeller() = default;
};
/// Does that where the interface of Widget is one.
void TellAccessibleChanges(QWidget& Widget);

/// The state of a part.
QAccessible::State StateOf(const TAccessiblePart& Part, bool HasKeys);

/// The text of a field, its caret and what is selected, to be read.
class TTextAccess : public QAccessibleTextInterface {
public:
    void selection(int Index, int* Start, int* End) const override;
    int selectionCount() const override;
    int cursorPosition() const override;
    QString text(int Start, int End) const override;
    int characterCount() const override;
    /// The whole field: where its characters stand only the field knows.
    QRect characterRect(int) const override { return FieldRect(); }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    QString attributes(int, int* Start, int* End) const override;
    // The user does that.
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    void setCursorPosition(int) override {}
    void scrollToSubstring(int, int) override {}

protected:
    /// Null when it has gone.
    virtual const TAccessiblePart* Field() const = 0;
    virtual QRect FieldRect() const = 0;
};

} // namespace kx::qt
