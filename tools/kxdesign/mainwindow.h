#pragma once
// The window of kxdesign: a form in the middle, and round about what it is changed with.

#include "kxdesign/options.h"

#include <kxgraph/design/Kxdesignautosave.h>
#include <kxgraph/design/Kxdesigndocument.h>
#include <kxgraph/design/Kxdesignsurface.h>

#include <QMainWindow>

#include <functional>
#include <memory>
#include <string>
#include <vector>

class QAction;
class QLabel;
class QMenu;

namespace kxdesign {

class TFormArea;
class TInplaceCaption;
class TInspectorPanel;
class TObjectTree;
class TPalette;

enum class TAnswer { Save, Discard, Cancel };

class TMainWindow : public QMainWindow, private kx::TKxDesignObserver {
public:
    /// StateDirectory: where unsaved work is kept; empty: nowhere.
    explicit TMainWindow(const std::string& StateDirectory = {});
    ~TMainWindow() override;

    kx::TKxDesignDocument& GetDocument() { return FDocument; }
    kx::TKxDesignSurface& GetSurface() { return FSurface; }
    TFormArea& GetArea() const { return *FArea; }
    TPalette& GetPalette() const { return *FPalette; }
    TObjectTree& GetTree() const { return *FTree; }
    TInspectorPanel& GetInspector() const { return *FInspector; }
    TInplaceCaption& GetInplace() const { return *FInplace; }

    /// What was asked for at the start. Raises what cannot be read.
    void Start(const TOptions& Options);
    /// Opens a form, or imports a table.
    void OpenFile(const std::string& FileName);
    /// Offers what other runs have left, if there is something; takes up what is agreed to.
    void OfferRecovery();
    /// The action with that text, "&" left out, and without what it would act on.
    QAction* ActionNamed(const QString& Name) const;

    // Asked in the place of a dialog, by tests.
    std::function<TAnswer()> AskSave;
    std::function<bool(const kx::TKxDesignRecovery&)> AskRecover;
    std::function<QString(bool Save, const QString& Title, const QString& Filter)> AskFile;

protected:
    void closeEvent(QCloseEvent* Event) override;
    void dragEnterEvent(QDragEnterEvent* Event) override;
    void dropEvent(QDropEvent* Event) override;

private:
    void FormReplaced() override;
    void FormChanged() override;
    void SelectionChanged() override;
    void FileChanged() override;

    bool WantsRecovery(const kx::TKxDesignRecovery& Recovery);
    void MakeDocks();
    void MakeFileMenu();
    void MakeEditMenu();
    void MakeArrangeMenu();
    void MakeViewMenu();
    void MakeHelpMenu();
    QAction* Add(QMenu& Menu, const QString& Text, const QKeySequence& Keys, std::function<void()> Action);
    void AddRecent(QMenu& Menu);
    void ShowRecent();

    void New();
    void Open();
    bool Save();
    bool SaveAs();
    /// Whether what is unsaved may go.
    bool MayLeave();
    void Import();
    void Export();
    void CopyPicture();
    void Print();
    void ShowAsCpp();
    void ShowTitle();
    void ShowStatus();
    void ShowState();
    void Edit(kx::TComponent* Component, const std::string& Property);
    void ShowMenu(kx::TPoint Pos);
    void Make(const std::string& ClassName);

    kx::TKxDesignDocument FDocument;
    kx::TKxDesignSurface FSurface;
    std::unique_ptr<kx::TKxDesignAutosave> FAutosave;
    std::string FStateDirectory;
    TFormArea* FArea;
    TInplaceCaption* FInplace; // the area's
    TPalette* FPalette = nullptr;
    TObjectTree* FTree = nullptr;
    TInspectorPanel* FInspector = nullptr;
    QMenu *FEditMenu = nullptr, *FRecentMenu = nullptr;
    QAction *FUndo = nullptr, *FRedo = nullptr;
    QLabel *FPlace = nullptr, *FHelp = nullptr;
};

} // namespace kxdesign
