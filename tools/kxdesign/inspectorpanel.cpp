#include "kxdesign/inspectorpanel.h"

#include "kxdesign/gridwindow.h"
#include "kxdesign/guarded.h"
#include "kxdesign/propertydelegate.h"
#include "kxdesign/textswindow.h"

#include <kxgraph/design/Kxdesigneditors.h>
#include <kxgraph/platform/base/scopedvalue.h>

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <set>

namespace kxdesign {

using namespace kx;

namespace {

constexpr int CPath = Qt::UserRole;

/// Lists of texts have several lines, the last of which may end.
QString InOneLine(QString Text) {
    if (Text.endsWith('\n')) Text.chop(1);
    return Text.replace('\n', "; ");
}

TKxDesignChange& WithEditors(TKxDesignDocument& Document) {
    RegisterPropertyEditors();
    return Document;
}

} // namespace

TInspectorPanel::TInspectorPanel(TKxDesignDocument& Document, QWidget* Parent)
    : QWidget(Parent), FDocument(Document), FInspector(WithEditors(Document)), FTitle(new QLabel),
      FSearch(new QLineEdit), FTree(new QTreeWidget) {
    auto* hides = new QCheckBox("Changed ones alone");
    FSearch->setPlaceholderText("Search");
    FSearch->setClearButtonEnabled(true);
    FTree->setColumnCount(2);
    FTree->setHeaderHidden(true);
    FTree->header()->setStretchLastSection(true);
    FTree->setColumnWidth(0, 160);
    FTree->setIconSize({12, 12});
    FTree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    FTree->setContextMenuPolicy(Qt::CustomContextMenu);
    FTree->setItemDelegateForColumn(
        1, new TPropertyDelegate(
               FInspector, [this](const std::string& Path, const std::string& Text) { SetText(Path, Text); },
               this));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    for (QWidget* widget : {static_cast<QWidget*>(FTitle), static_cast<QWidget*>(FSearch),
                            static_cast<QWidget*>(hides), static_cast<QWidget*>(FTree)})
        layout->addWidget(widget);
    connect(FSearch, &QLineEdit::textChanged, this,
            [this](const QString& Text) { FInspector.SetSearch(Told(Text)); });
    connect(hides, &QCheckBox::toggled, this, [this](bool On) { FInspector.SetHidesDefaults(On); });
    connect(FTree, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* Item, int Column) {
        if (Column == 1) Open(Item);
    });
    connect(FTree, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* Item) { Open(Item); });
    connect(FTree, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* Item) {
        const TKxInspectorRow* row = RowOf(Item);
        if (OnHelp && !FBuilding) OnHelp(row ? Shown(row->Name + ": " + row->Help) : QString());
    });
    connect(FTree, &QTreeWidget::customContextMenuRequested, this,
            [this](const QPoint& Pos) { ShowMenu(Pos); });
    FInspector.OnChange = TEvent<bool>::Of<&TInspectorPanel::RowsChanged>(this);
    FDocument.AddObserver(this);
    TInspectorPanel::SelectionChanged();
}

TInspectorPanel::~TInspectorPanel() {
    FDocument.RemoveObserver(this);
    FInspector.OnChange = {};
}

void TInspectorPanel::FormReplaced() { SelectionChanged(); }
void TInspectorPanel::FormChanged() { FInspector.Refresh(); }

void TInspectorPanel::SelectionChanged() {
    const auto selection = FDocument.GetSelection();
    if (selection.empty())
        FInspector.Clear();
    else
        FInspector.Select(FDocument.GetForm(), selection);
}

void TInspectorPanel::RowsChanged(bool AreOthers) {
    FTitle->setText("<b>" + Shown(FInspector.GetTitle()).toHtmlEscaped() + "</b>");
    AreOthers ? Build() : ShowTexts();
}

TKxInspectorRow* TInspectorPanel::RowOf(const QTreeWidgetItem* Item) const {
    const std::string path = Item ? Told(Item->data(0, CPath).toString()) : std::string();
    return path.empty() ? nullptr : FInspector.Find(path);
}

void TInspectorPanel::AddRow(QTreeWidgetItem& Parent, TKxInspectorRow& Row) {
    if (!Row.IsShown) return;
    auto* item = new QTreeWidgetItem(&Parent);
    item->setText(0, Shown(Row.Name));
    item->setData(0, CPath, Shown(Row.Path));
    if (!Row.IsReadOnly) item->setFlags(item->flags() | Qt::ItemIsEditable);
    for (const auto& part : Row.Parts) AddRow(*item, *part);
}

// What was open stays open.
void TInspectorPanel::Build() {
    const TScopedValue building(FBuilding, true);
    std::set<QString> open;
    for (QTreeWidgetItemIterator item(FTree); *item; ++item)
        if ((*item)->isExpanded()) open.insert((*item)->data(0, CPath).toString());
    FTree->clear();
    for (const std::string_view category : FInspector.GetCategories()) {
        auto* heading = new QTreeWidgetItem(FTree);
        heading->setText(0, Shown(std::string(category)));
        heading->setFirstColumnSpanned(true);
        heading->setBackground(0, palette().alternateBase());
        heading->setExpanded(true);
        for (TKxInspectorRow* row : FInspector.GetShown(category)) AddRow(*heading, *row);
    }
    for (QTreeWidgetItemIterator item(FTree); *item; ++item)
        if (const QString path = (*item)->data(0, CPath).toString(); !path.isEmpty())
            (*item)->setExpanded(open.contains(path));
    ShowTexts();
}

void TInspectorPanel::ShowTexts() {
    for (QTreeWidgetItemIterator item(FTree); *item; ++item) {
        const TKxInspectorRow* row = RowOf(*item);
        if (!row) continue;
        QFont font = FTree->font();
        font.setBold(!row->IsDefault && row->Parts.empty());
        (*item)->setFont(1, font);
        (*item)->setText(1, InOneLine(Shown(row->Text)));
        if (row->Editor->GetKind() == TKxEditorKind::Color) ShowColor(**item, *row);
        (*item)->setToolTip(1, Shown(row->Help));
    }
}

QTreeWidgetItem* TInspectorPanel::ItemOf(const std::string& Path) const {
    for (QTreeWidgetItemIterator item(FTree); *item; ++item)
        if ((*item)->data(0, CPath).toString() == Shown(Path)) return *item;
    return nullptr;
}

void TInspectorPanel::EditProperty(const std::string& Path) {
    QTreeWidgetItem* item = Path.empty() ? nullptr : ItemOf(Path);
    if (!item) return;
    for (QTreeWidgetItem* parent = item->parent(); parent; parent = parent->parent())
        parent->setExpanded(true);
    FTree->scrollToItem(item);
    FTree->setCurrentItem(item);
    Open(item);
}

void TInspectorPanel::Open(QTreeWidgetItem* Item) {
    const TKxInspectorRow* row = RowOf(Item);
    if (!row) return;
    switch (row->Editor->GetKind()) {
    case TKxEditorKind::Values: return EditValues(this, row->Editor->GetPlace());
    case TKxEditorKind::Coefficients: return EditCoefficients(this, row->Editor->GetPlace());
    case TKxEditorKind::Texts: return EditTexts(this, row->Editor->GetPlace());
    case TKxEditorKind::Object: return Item->setExpanded(true);
    default: break;
    }
    if (!row->IsReadOnly) FTree->editItem(Item, 1);
}

// Rows may be other ones afterwards; nothing of them is used then.
void TInspectorPanel::SetText(const std::string& Path, const std::string& Text) {
    Try(this, [&] { FInspector.SetText(Path, Text); });
}

void TInspectorPanel::ShowMenu(const QPoint& Pos) {
    const TKxInspectorRow* row = RowOf(FTree->itemAt(Pos));
    if (!row || !row->CanReset) return;
    QMenu menu;
    menu.addAction("Reset " + Shown(row->Name));
    const std::string path = row->Path;
    if (menu.exec(FTree->viewport()->mapToGlobal(Pos))) Try(this, [&] { FInspector.Reset(path); });
}

} // namespace kxdesign
