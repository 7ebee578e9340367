#pragma once
// The properties of what is selected, in a tree of two columns, each with the editor that it asks for.

#include <kxgraph/design/Kxdesigndocument.h>
#include <kxgraph/design/Kxinspector.h>

#include <QWidget>

#include <functional>
#include <string>

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace kxdesign {

/// The document must outlive this.
class TInspectorPanel : public QWidget, private kx::TKxDesignObserver {
public:
    explicit TInspectorPanel(kx::TKxDesignDocument& Document, QWidget* Parent = nullptr);
    ~TInspectorPanel() override;

    kx::TKxInspector& GetInspector() { return FInspector; }
    /// Shows a property and begins to edit it; does nothing where there is none of that name.
    void EditProperty(const std::string& Path);
    /// Null where it is not shown.
    QTreeWidgetItem* ItemOf(const std::string& Path) const;
    QTreeWidget& GetTree() const { return *FTree; }
    kx::TKxInspectorRow* RowOf(const QTreeWidgetItem* Item) const;
    /// Gives the property a value; what is refused is shown.
    void SetText(const std::string& Path, const std::string& Text);

    /// The line that explains the chosen property.
    std::function<void(const QString&)> OnHelp;

private:
    void FormReplaced() override;
    void FormChanged() override;
    void SelectionChanged() override;

    void RowsChanged(bool AreOthers);
    void Build();
    void AddRow(QTreeWidgetItem& Parent, kx::TKxInspectorRow& Row);
    void ShowTexts();
    void ShowMenu(const QPoint& Pos);
    void Open(QTreeWidgetItem* Item);

    kx::TKxDesignDocument& FDocument;
    kx::TKxInspector FInspector;
    QLabel* FTitle;
    QLineEdit* FSearch;
    QTreeWidget* FTree;
    bool FBuilding = false;
};

} // namespace kxdesign
