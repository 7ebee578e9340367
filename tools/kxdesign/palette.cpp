#include "kxdesign/palette.h"

#include "kxdesign/guarded.h"

#include <kxgraph/design/Kxpalette.h>
#include <kxgraph/qt/Kxqtpicture.h>

#include <QIcon>
#include <QListWidget>
#include <QPixmap>
#include <QSignalBlocker>

#include <optional>

namespace kxdesign {

using namespace kx;

namespace {

QIcon IconOf(const TComponentClass& Class) {
    constexpr int CSize = 24;
    const std::string png =
        qt::PngBytes({.Size = {CSize, CSize}, .Scale = 2, .Antialias = true, .Ground = std::nullopt},
                     [&](TCanvasDevice& Device) {
                         TCanvas canvas(&Device);
                         PaintPaletteIcon(canvas, {0, 0, CSize, CSize}, Class);
                     });
    QPixmap picture;
    picture.loadFromData(reinterpret_cast<const uchar*>(png.data()), unsigned(png.size()), "PNG");
    picture.setDevicePixelRatio(2);
    return QIcon(picture);
}

} // namespace

TPalette::TPalette(QWidget* Parent) : QTabWidget(Parent) {
    for (const TKxPalettePage& page : MakePalette()) AddPage(page);
}

void TPalette::AddPage(const TKxPalettePage& Page) {
    auto* list = new QListWidget;
    list->setIconSize({24, 24});
    for (const TKxPaletteEntry& entry : Page.Entries) {
        auto* item = new QListWidgetItem(IconOf(*entry.Class), Shown(entry.Caption), list);
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
