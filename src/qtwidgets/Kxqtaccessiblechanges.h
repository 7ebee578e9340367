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

/// A part in two states of a window. Of one that has gone there is no Now, of one that has come no Before;
/// what lies in these is not listed.
struct TAccessibleMatch {
    const TAccessiblePart *Before, *Now;
    TAccessiblePath WasAt, IsAt; ///< empty: the window, or nowhere
};
/// All parts of both, outer ones first. Parts with as many neighbours as before are who stands in their
/// place; otherwise those of one kind and name that lie before or behind all that has come or gone.
std::vector<TAccessibleMatch> MatchParts(const TAccessiblePart& Before, const TAccessiblePart& Now);

/// Tells of all that differs between two states of one part, apart from what lies in it.
void TellChange(QAccessibleInterface& Of, const TAccessiblePart& Before, const TAccessiblePart& Now);
/// Tells of nothing but that something has happened to a part.
void Tell(QAccessibleInterface& Of, QAccessible::Event What);
bool IsSameAlone(const TAccessiblePart& A, const TAccessiblePart& B);

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
