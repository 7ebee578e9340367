#include <kxgraph/qtwidgets/Kxqtmenu.h>

#include <kxgraph/platform/objects/guarded.h>

#include <QAction>
#include <QCoreApplication>
#include <QMenu>

namespace kx::qt {

namespace {

void AddItem(QMenu& Menu, const THostMenuItem& Item);

void AddItems(QMenu& Menu, const THostMenu& Items) {
    for (const auto& item : Items) AddItem(Menu, item);
}

void AddItem(QMenu& Menu, const THostMenuItem& Item) {
    if (Item.Separator) {
        Menu.addSeparator();
        return;
    }
    QString caption = QString::fromStdString(Item.Caption);
    if (!Item.ShortCut.empty()) caption += '\t' + QString::fromStdString(Item.ShortCut);
    if (!Item.Items.empty()) {
        QMenu* inner = Menu.addMenu(caption);
        inner->setEnabled(Item.Enabled);
        return AddItems(*inner, Item.Items);
    }
    QAction* action = Menu.addAction(caption);
    action->setEnabled(Item.Enabled);
    action->setCheckable(Item.Checked);
    action->setChecked(Item.Checked);
    // Later: it may destroy the window, and the menu with it.
    QObject::connect(
        action, &QAction::triggered, QCoreApplication::instance(),
        [pick = Item.Pick] {
            if (pick) Guarded(pick);
        },
        Qt::QueuedConnection);
}

} // namespace

void PopUp(const THostMenu& Menu, QWidget& Parent, const QPoint& Pos) {
    auto* menu = new QMenu(&Parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    AddItems(*menu, Menu);
    menu->popup(Parent.mapToGlobal(Pos));
}

} // namespace kx::qt
