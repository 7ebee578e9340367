#pragma once
// All components of the form as a tree, by what they stand in; also those that show nowhere on it.

#include <kxgraph/design/Kxdesigndocument.h>

#include <QTreeWidget>

namespace kxdesign {

/// Selects as the form does, both ways; an item that is dropped on another one goes into that; a second click
/// changes a name. The document must outlive this.
class TObjectTree : public QTreeWidget, private kx::TKxDesignObserver {
public:
    explicit TObjectTree(kx::TKxDesignDocument& Document, QWidget* Parent = nullptr);
    ~TObjectTree() override;
    /// Null when there is none.
    QTreeWidgetItem* ItemOf(const std::string& Name) const;

protected:
    void dropEvent(QDropEvent* Event) override;

private:
    void FormReplaced() override { Build(); }
    void FormChanged() override { Build(); }
    void SelectionChanged() override { ShowSelection(); }
    void Build();
    void ShowSelection();
    void TakeSelection();
    void TakeName(QTreeWidgetItem& Item);
    kx::TComponent* ComponentOf(const QTreeWidgetItem* Item) const;

    kx::TKxDesignDocument& FDocument;
    QString FBuilt; // what the items say
    bool FShowing = false;
};

} // namespace kxdesign
