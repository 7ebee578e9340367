// Fields, combos and modal forms in windows of Qt.

#include "qtwidgets/windows.h"
#include "support/testing.h"

#include <kxgraph/platform/host/post.h>
#include <kxgraph/platform/widgets/button.h>
#include <kxgraph/platform/widgets/combobox.h>
#include <kxgraph/platform/widgets/edit.h>
#include <kxgraph/qtwidgets/Kxformview.h>

#include <QAccessible>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>

namespace kx::test::popupwidget {

void Key(QWidget& Widget, int Code, const QString& Text = {}) {
    QKeyEvent down(QEvent::KeyPress, Code, Qt::NoModifier, Text),
        up(QEvent::KeyRelease, Code, Qt::NoModifier, Text);
    QApplication::sendEvent(&Widget, &down);
    QApplication::sendEvent(&Widget, &up);
}

void Click(QWidget& Widget, QPoint Pos) {
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const bool down = type == QEvent::MouseButtonPress;
        QMouseEvent event(type, Pos, Widget.mapToGlobal(Pos), Qt::LeftButton,
                          down ? Qt::LeftButton : Qt::NoButton, {});
        QApplication::sendEvent(&Widget, &event);
    }
}

/// A combo in a view of a Qt program.
struct TComboView {
    TComboView() {
        Combo.SetParent(Form.get());
        Combo.SetBounds(20, 10, 120, 26);
        Combo.SetItems({"one", "two", "three"});
        View = std::make_unique<qt::FormView>(*Form);
        View->resize(300, 200);
        View->show();
        View->setFocus();
        WaitFor(30);
    }
    QWidget* Open() {
        Click(*View, {30, 20});
        WaitFor(10);
        return QApplication::activePopupWidget();
    }
    std::unique_ptr<TForm> Form = std::make_unique<TForm>(nullptr);
    TComboBox& Combo = *new TComboBox(Form.get());
    std::unique_ptr<qt::FormView> View;
};

TEST(Popup, OfAComboTakesKeysAndMouseInAView) {
    TComboView f;
    QWidget* popup = f.Open();
    ASSERT_TRUE(popup);
    EXPECT_EQ(popup->pos(), f.View->mapToGlobal(QPoint(20, 36)));
    EXPECT_EQ(popup->width(), 120);
    EXPECT_TRUE(f.Form->IsActive()) << "the popup is its own";
    Key(*popup, Qt::Key_Down);
    Key(*popup, Qt::Key_Return);
    EXPECT_EQ(f.Combo.GetItemIndex(), 0);
    EXPECT_FALSE(QApplication::activePopupWidget());
    popup = f.Open();
    Click(*popup, {30, popup->height() / 2});
    EXPECT_EQ(f.Combo.GetItemIndex(), 1);
    for (const QPoint outside : {QPoint(-5, -5), QPoint(250, 20)}) {
        popup = f.Open();
        ASSERT_TRUE(popup);
        Click(*popup, outside);
        EXPECT_FALSE(f.Combo.IsDroppedDown());
    }
    f.Open();
    f.View.reset(); // takes the popup along
    EXPECT_FALSE(QApplication::activePopupWidget());
    f.Combo.CloseUp(true);
    WaitFor(10);
}

TEST(Popup, GoesWithItsForm) {
    TComboView f;
    ASSERT_TRUE(f.Open());
    f.Form.reset();
    WaitFor(10);
    EXPECT_FALSE(QApplication::activePopupWidget());
}

TEST(ModalForm, KeepsInputFromOthersUntilItIsLeft) {
    TComboView other;
    for (const bool destroyed : {false, true}) {
        auto* form = new TForm(nullptr);
        auto* button = new TButton(form);
        button->SetParent(form);
        button->SetDefault(true);
        button->SetModalResult(mrYes);
        bool wasModal = false;
        Post([&] {
            QWidget* window = QApplication::activeModalWidget();
            wasModal = window && window->isVisible() && window->windowModality() == Qt::ApplicationModal;
            if (destroyed) return delete form;
            if (window) Key(*window, Qt::Key_Return, "\r");
        });
        EXPECT_EQ(form->ShowModal(), destroyed ? mrCancel : mrYes);
        EXPECT_TRUE(wasModal);
        EXPECT_FALSE(QApplication::activeModalWidget());
        if (!destroyed) delete form;
    }
}

TEST(Edit, ComposesInAView) {
    TForm form(nullptr);
    TEdit edit(&form);
    edit.SetParent(&form);
    edit.SetName("Title");
    edit.SetFocus();
    qt::FormView view(form);
    view.show();
    view.setFocus();
    WaitFor(150);
    const int before = view.inputMethodQuery(Qt::ImCursorRectangle).toRect().left();
    QInputMethodEvent composed("ka", {});
    QApplication::sendEvent(&view, &composed);
    EXPECT_GT(view.inputMethodQuery(Qt::ImCursorRectangle).toRect().left(), before);
    EXPECT_EQ(edit.GetText(), "");
    QKeyEvent override(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
    override.ignore();
    QApplication::sendEvent(&view, &override);
    EXPECT_TRUE(override.isAccepted()) << "the program's own undo would take the key";
    QInputMethodEvent committed;
    committed.setCommitString(QString::fromUtf8("可"));
    QApplication::sendEvent(&view, &committed);
    EXPECT_EQ(edit.GetText(), "可");
    EXPECT_EQ(view.inputMethodQuery(Qt::ImSurroundingText).toString(), QString::fromUtf8("可"));
    QAccessibleInterface* part = QAccessible::queryAccessibleInterface(&view)->child(0);
    EXPECT_EQ(part->role(), QAccessible::EditableText);
    EXPECT_EQ(part->text(QAccessible::Name), "Title");
    EXPECT_EQ(part->text(QAccessible::Value), QString::fromUtf8("可"));
    EXPECT_FALSE(part->state().readOnly);
}

} // namespace kx::test::popupwidget
