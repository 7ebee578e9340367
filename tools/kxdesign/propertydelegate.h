#pragma once
// The editors of single properties in their line of the tree.

#include <kxgraph/design/Kxinspector.h>

#include <QStyledItemDelegate>

#include <functional>
#include <string>

class QComboBox;
class QTreeWidgetItem;

namespace kxdesign {

/// Hands what was typed or chosen on, with the path of its property, when it is finished.
class TPropertyDelegate : public QStyledItemDelegate {
public:
    using TTake = std::function<void(const std::string& Path, const std::string& Text)>;
    /// The inspector must outlive this.
    TPropertyDelegate(kx::TKxInspector& Inspector, TTake Take, QObject* Parent);

    /// Captions as they will be painted.
    void paint(QPainter* Painter, const QStyleOptionViewItem& Option,
               const QModelIndex& Index) const override;
    /// At least as high as a combo needs.
    QSize sizeHint(const QStyleOptionViewItem& Option, const QModelIndex& Index) const override;
    QWidget* createEditor(QWidget* Parent, const QStyleOptionViewItem& Option,
                          const QModelIndex& Index) const override;
    void setEditorData(QWidget* Editor, const QModelIndex& Index) const override;
    void updateEditorGeometry(QWidget* Editor, const QStyleOptionViewItem& Option,
                              const QModelIndex& Index) const override;
    void setModelData(QWidget* Editor, QAbstractItemModel* Model, const QModelIndex& Index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* Option, const QModelIndex& Index) const override;

private:
    const kx::TKxInspectorRow* RowAt(const QModelIndex& Index) const;
    QComboBox* NewBox(QWidget* Parent, const kx::TKxInspectorRow& Row) const;
    void FinishWhenLeft(QWidget& Editor) const;

    kx::TKxInspector& FInspector;
    TTake FTake;
};

/// A small square in the colour that the row has.
void ShowColor(QTreeWidgetItem& Item, const kx::TKxInspectorRow& Row);

} // namespace kxdesign
