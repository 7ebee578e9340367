#include "kxdesign/objecttree.h"

#include "kxdesign/guarded.h"

#include <kxgraph/design/Kxdesigncommands.h>
#include <kxgraph/platform/base/scopedvalue.h>

#include <QDropEvent>
#include <QHash>
#include <QHeaderView>
#include <QTimer>

#include <unordered_map>

namespace kxdesign {

using namespace kx;

TObjectTree::TObjectTree(TKxDesignDocument& Document, QWidget* Parent)
    : QTreeWidget(Parent), FDocument(Document) {
    setHeaderHidden(true);
    setColumnCount(2);
    header()->setMinimumSectionSize(0);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(ExtendedSelection);
    setDragDropMode(InternalMove);
    setEditTriggers(SelectedClicked | EditKeyPressed);
    connect(this, &QTreeWidget::itemSelectionChanged, this, [this] { TakeSelection(); });
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* Item, int Column) {
        if (!FShowing && Column == 0) TakeName(*Item);
    });
    FDocument.AddObserver(this);
    Build();
}

TObjectTree::~TObjectTree() { FDocument.RemoveObserver(this); }

TComponent* TObjectTree::ComponentOf(const QTreeWidgetItem* Item) const {
    return Item ? FDocument.Find(Told(Item->data(0, Qt::UserRole).toString())) : nullptr;
}

namespace {

/// What stands in what, as a text that is compared.
QString Described(const TForm& Form) {
    QString text = Shown(Form.GetName());
    for (const TComponent* component : Form.GetComponents()) {
        const TComponent* parent = component->GetParentComponent();
        text += '\n' + Shown(component->GetName()) + ' ' + Shown(component->ClassName()) + ' ' +
                (parent ? Shown(parent->GetName()) : QString());
    }
    return text;
}

QTreeWidgetItem* NewItem(const TComponent& Component) {
    auto* item = new QTreeWidgetItem({Shown(Component.GetName()), Shown(Component.ClassName())});
    item->setData(0, Qt::UserRole, Shown(Component.GetName()));
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    item->setForeground(1, Qt::gray);
    for (int column = 0; column < 2; ++column) item->setToolTip(column, item->text(1)); // it may be cut off
    return item;
}

} // namespace

void TObjectTree::Build() {
    const TForm& form = FDocument.GetForm();
    const QString described = Described(form);
    if (described == FBuilt) return;
    FBuilt = described;
    const TScopedValue showing(FShowing, true);
    clear();
    std::unordered_map<const TComponent*, QTreeWidgetItem*> items;
    auto* top = NewItem(form);
    addTopLevelItem(top);
    items[&form] = top;
    for (const TComponent* component : form.GetComponents()) items[component] = NewItem(*component);
    for (const TComponent* component : form.GetComponents()) {
        const auto parent = items.find(component->GetParentComponent());
        (parent == items.end() ? top : parent->second)->addChild(items[component]);
    }
    expandAll();
    resizeColumnToContents(0);
    ShowSelection();
}

QTreeWidgetItem* TObjectTree::ItemOf(const std::string& Name) const {
    for (QTreeWidgetItemIterator item(const_cast<TObjectTree*>(this)); *item; ++item)
        if ((*item)->data(0, Qt::UserRole).toString() == Shown(Name)) return *item;
    return nullptr;
}

void TObjectTree::ShowSelection() {
    const TScopedValue showing(FShowing, true);
    for (QTreeWidgetItemIterator item(this); *item; ++item) {
        const TComponent* component = ComponentOf(*item);
        (*item)->setSelected(component && FDocument.IsSelected(component));
    }
    if (const TComponent* primary = FDocument.GetPrimary())
        if (QTreeWidgetItem* item = ItemOf(primary->GetName())) scrollToItem(item);
}

void TObjectTree::TakeSelection() {
    if (FShowing) return;
    std::vector<TComponent*> selection;
    for (const QTreeWidgetItem* item : selectedItems())
        if (TComponent* component = ComponentOf(item)) selection.push_back(component);
    FDocument.Select(selection);
}

// The items are made anew when that of this one is on the stack no more.
void TObjectTree::TakeName(QTreeWidgetItem& Item) {
    const QString before = Item.data(0, Qt::UserRole).toString(), name = Item.text(0);
    QTimer::singleShot(0, this, [this, before, name] {
        TComponent* component = FDocument.Find(Told(before));
        Try(this, [&] {
            if (component) RenameComponent(FDocument, *component, Told(name));
        });
        FBuilt.clear();
        Build();
    });
}

// The tree follows the form, never the mouse.
void TObjectTree::dropEvent(QDropEvent* Event) {
    auto* parent = dynamic_cast<TWinControl*>(ComponentOf(itemAt(Event->position().toPoint())));
    Event->setDropAction(Qt::IgnoreAction);
    Event->accept();
    if (parent) Try(this, [&] { ReparentSelected(FDocument, *parent); });
}

} // namespace kxdesign
