#pragma once
// The editors of single properties in their line of the tree.

#include <kxgraph/design/Kxinspector.h>

#include <QStyledItemDelegate>

#include <functional>
#include <string>

class QTreeWidgetItem;

namespace kxdesign {

/// Hands what was typed or chosen on, with the path of its property, when it is finished.
class TPropertyDelegate : public QStyledItemDelegate {
public:
    using TTake = std::function<void(const std::string& Path, const std::string& Text)>;
    /// The inspector must outlive this.
    TPropertyDelegate(kx::TKxInspector& Inspector, TTake Take, QObject* Parent);

    QWidget* createEditor(QWidget* Parent, const QStyleOptionViewItem& Option,
                          const QModelIndex& Index) const override;
    void setEditorData(QWidget* Editor, const QModelIndex& Index) const override;
    void setModelData(QWidget* Editor, QAbstractItemModel* Model, const QModelIndex& Index) const override;

private:
    const kx::TKxInspectorRow* RowAt(const QModelIndex& Index) const;

    kx::TKxInspector& FInspector;
    TTake FTake;
};

/// A small square in the colour that the row has.
void ShowColor(QTreeWidgetItem& Item, const kx::TKxInspectorRow& Row);

} // namespace kxdesign
