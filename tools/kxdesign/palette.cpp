#include "kxdesign/palette.h"

#include "kxdesign/guarded.h"
#include "kxdesign/pictures.h"

#include <kxgraph/design/Kxpalette.h>

#include <QIcon>
#include <QListWidget>
#include <QPixmap>
#include <QSignalBlocker>

namespace kxdesign {

using namespace kx;

namespace {

constexpr int CIcon = 24;

QIcon IconOf(const TComponentClass& Class, double Scale) {
    const TSize size{CIcon, CIcon};
    return QIcon(QPixmap::fromImage(Drawn(size, Scale, [&](TCanvas& Canvas) {
        PaintPaletteIcon(Canvas, {0, 0, CIcon, CIcon}, Class);
    })));
}

} // namespace

TPalette::TPalette(QWidget* Parent) : QTabWidget(Parent) {
    for (const TKxPalettePage& page : MakePalette()) AddPage(page);
}

void TPalette::AddPage(const TKxPalettePage& Page) {
    auto* list = new QListWidget;
    list->setIconSize({CIcon, CIcon});
    for (const TKxPaletteEntry& entry : Page.Entries) {
        auto* item =
            new QListWidgetItem(IconOf(*entry.Class, devicePixelRatioF()), Shown(entry.Caption), list);
        item->setData(Qt::UserRole, Shown(std::string(entry.Class->Name)));
        item->setToolTip(Shown(entry.Hint));
    }
    connect(list, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* Item) {
        if (OnChoose) OnChoose(Item ? Told(Item->data(Qt::UserRole).toString()) : std::string());
    });
    connect(list, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* Item) {
        if (OnMake) OnMake(Told(Item->data(Qt::UserRole).toString()));
    });
    addTab(list, Shown(std::string(Page.Name)));
}

void TPalette::ShowChosen(const std::string& ClassName) {
    for (int page = 0; page < count(); ++page) {
        auto* list = static_cast<QListWidget*>(widget(page));
        const QSignalBlocker blocker(list);
        if (!list->currentItem() || Told(list->currentItem()->data(Qt::UserRole).toString()) != ClassName)
            list->setCurrentItem(nullptr);
        if (ClassName.empty()) list->clearSelection();
    }
}

void TPalette::Choose(const std::string& ClassName) {
    for (int page = 0; page < count(); ++page) {
        auto* list = static_cast<QListWidget*>(widget(page));
        for (int row = 0; row < list->count(); ++row)
            if (Told(list->item(row)->data(Qt::UserRole).toString()) == ClassName) {
                setCurrentIndex(page);
                list->setCurrentRow(row);
            }
    }
}

} // namespace kxdesign
