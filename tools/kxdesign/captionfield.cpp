#include "kxdesign/captionfield.h"

#include <QFocusEvent>
#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace kxdesign {

using namespace kx;

namespace {

constexpr int CBar = 24, CButtons = 7, CLeastWidth = 180;

} // namespace

TCaptionField::TCaptionField(QWidget* Parent) : FormView(Parent) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::ArrowCursor);
    FForm.SetColor(clBtnFace);
    FEdit.SetParent(&FForm);
    FBar.SetParent(&FForm);
    FBar.SetEdit(&FEdit);
    setForm(&FForm);
    FEdit.SetFocus();
}

TCaptionField::~TCaptionField() = default;

void TCaptionField::SetCaption(const std::string& Caption) {
    FEdit.SetCaption(Caption);
    FEdit.SelectAll();
}

void TCaptionField::SetTextFont(const TFont& Font) {
    FEdit.SetFont(Font);
    FEdit.GetFont().SetColor(clWindowText); // it stands on the ground of a field
}

TSize TCaptionField::WantedSize() const {
    return {CLeastWidth, std::max(CFieldHeight, LineHeight(FEdit.GetFont()) + 8)};
}

void TCaptionField::PlaceOver(const QRect& Place, const QRect& Room) {
    const int width = std::max(Place.width(), CButtons * CBar), height = Place.height();
    const bool isBelow = Place.bottom() + CBar <= Room.bottom() || Place.top() - CBar < Room.top();
    setGeometry(std::max(std::min(Place.left(), Room.right() + 1 - width), Room.left()),
                isBelow ? Place.top() : Place.top() - CBar, width, height + CBar);
    FEdit.SetBounds(0, isBelow ? 0 : CBar, width, height);
    FBar.SetBounds(0, isBelow ? height : 0, CButtons * CBar, CBar);
}

/// Keys that switch looks are no shortcuts of the window (Ctrl+I imports) while captions are typed.
bool TCaptionField::event(QEvent* Event) {
    if (Event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<QKeyEvent*>(Event);
        constexpr auto CLooks =
            std::to_array<int>({Qt::Key_B, Qt::Key_I, Qt::Key_U, Qt::Key_T, Qt::Key_G, Qt::Key_Up,
                                Qt::Key_Down, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Space});
        if ((key.modifiers() & Qt::ControlModifier) && std::ranges::count(CLooks, key.key()) > 0) {
            Event->accept();
            return true;
        }
    }
    return FormView::event(Event);
}

void TCaptionField::keyPressEvent(QKeyEvent* Event) {
    const bool takes = Event->key() == Qt::Key_Return || Event->key() == Qt::Key_Enter;
    if (OnFinish && (takes || Event->key() == Qt::Key_Escape)) return OnFinish(takes);
    FormView::keyPressEvent(Event);
    Event->accept(); // what is round about would move components, or other rows
}

void TCaptionField::focusOutEvent(QFocusEvent* Event) {
    FormView::focusOutEvent(Event);
    if (OnFinish && Event->reason() != Qt::PopupFocusReason && Event->reason() != Qt::ActiveWindowFocusReason)
        OnFinish(true);
}

} // namespace kxdesign
