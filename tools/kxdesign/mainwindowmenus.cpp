// The menus of the window.

#include "kxdesign/mainwindow.h"

#include "kxdesign/exporting.h"
#include "kxdesign/formarea.h"
#include "kxdesign/guarded.h"
#include "kxdesign/textwindow.h"

#include <kxgraph/design/Kxdesignarrange.h>
#include <kxgraph/design/Kxdesignclipboard.h>
#include <kxgraph/design/Kxdesigncommands.h>
#include <kxgraph/design/Kxdesignimport.h>
#include <kxgraph/platform/base/version.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/qtwidgets/Kxqtprinting.h>

#include <QAction>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QPrintPreviewDialog>
#include <QSettings>

namespace kxdesign {

using namespace kx;

namespace {

constexpr int CMostRecent = 8;
const char* const CForms = "Forms (*.kxf)";
const char* const CTables = "Tables (*.csv *.tsv *.txt *.dat);;All files (*)";
const char* const CPictures = "Pictures (*.png *.svg *.pdf)";

QStringList RecentFiles() { return QSettings("kxgraph", "kxdesign").value("recent").toStringList(); }

} // namespace

QAction* TMainWindow::Add(QMenu& Menu, const QString& Text, const QKeySequence& Keys,
                          std::function<void()> Action) {
    auto* action = Menu.addAction(Text);
    action->setShortcut(Keys);
    connect(action, &QAction::triggered, this, [this, Action = std::move(Action)] { Try(this, Action); });
    addAction(action);
    return action;
}

QAction* TMainWindow::ActionNamed(const QString& Name) const {
    for (QAction* action : actions())
        if (action->text().remove('&').startsWith(Name)) return action;
    return nullptr;
}

void TMainWindow::MakeFileMenu() {
    QMenu& menu = *menuBar()->addMenu("&File");
    Add(menu, "&New", QKeySequence::New, [this] { New(); });
    Add(menu, "&Open…", QKeySequence::Open, [this] { Open(); });
    FRecentMenu = menu.addMenu("Open &Recent");
    ShowRecent();
    menu.addSeparator();
    Add(menu, "&Save", QKeySequence::Save, [this] { Save(); });
    Add(menu, "Save &As…", QKeySequence("Ctrl+Shift+S"), [this] { SaveAs(); });
    menu.addSeparator();
    Add(menu, "&Import Table…", QKeySequence("Ctrl+I"), [this] { Import(); });
    Add(menu, "&Export Picture…", QKeySequence("Ctrl+E"), [this] { Export(); });
    Add(menu, "Show as C++…", {}, [this] { ShowAsCpp(); });
    Add(menu, "&Print…", QKeySequence::Print, [this] { Print(); });
    menu.addSeparator();
    Add(menu, "&Quit", QKeySequence::Quit, [this] { close(); });
}

void TMainWindow::MakeEditMenu() {
    QMenu& menu = *(FEditMenu = menuBar()->addMenu("&Edit"));
    FUndo = Add(menu, "&Undo", QKeySequence::Undo, [this] { FDocument.Undo(); });
    FRedo = Add(menu, "&Redo", QKeySequence("Ctrl+Y"), [this] { FDocument.Redo(); });
    menu.addSeparator();
    Add(menu, "Cu&t", QKeySequence::Cut, [this] { CutSelected(FDocument); });
    Add(menu, "&Copy", QKeySequence::Copy, [this] { CopySelected(FDocument); });
    Add(menu, "&Paste", QKeySequence::Paste, [this] {
        if (CanPaste()) Paste(FDocument);
    });
    Add(menu, "D&uplicate", QKeySequence("Ctrl+D"), [this] { DuplicateSelected(FDocument); });
    Add(menu, "&Delete", QKeySequence::Delete, [this] { DeleteSelected(FDocument); });
    menu.addSeparator();
    Add(menu, "Select &All", QKeySequence::SelectAll, [this] { SelectAll(FDocument); });
    Add(menu, "Copy Picture", QKeySequence("Ctrl+Shift+C"), [this] { CopyPicture(); });
}

void TMainWindow::MakeArrangeMenu() {
    QMenu& menu = *menuBar()->addMenu("&Arrange");
    using E = TKxDesignEdge;
    constexpr std::pair<const char*, E> edges[]{{"Align &Left", E::Left},      {"Align &Centers", E::Center},
                                                {"Align &Right", E::Right},    {"Align &Top", E::Top},
                                                {"Align &Middles", E::Middle}, {"Align &Bottom", E::Bottom}};
    for (const auto& one : edges)
        Add(menu, one.first, {}, [this, edge = one.second] { AlignSelected(FDocument, edge); });
    menu.addSeparator();
    Add(menu, "Space Evenly Across", {},
        [this] { SpreadSelected(FDocument, TKxDesignSpread::Horizontally); });
    Add(menu, "Space Evenly Down", {}, [this] { SpreadSelected(FDocument, TKxDesignSpread::Vertically); });
    Add(menu, "Same &Width", {}, [this] { SameSizeSelected(FDocument, TKxDesignSize::Width); });
    Add(menu, "Same &Height", {}, [this] { SameSizeSelected(FDocument, TKxDesignSize::Height); });
    Add(menu, "Same &Size", {}, [this] { SameSizeSelected(FDocument, TKxDesignSize::Both); });
    menu.addSeparator();
    Add(menu, "Bring to &Front", QKeySequence("Ctrl+Shift+Up"), [this] { BringSelectedToFront(FDocument); });
    Add(menu, "Send to Bac&k", QKeySequence("Ctrl+Shift+Down"), [this] { SendSelectedToBack(FDocument); });
}

void TMainWindow::MakeViewMenu() {
    QMenu& menu = *menuBar()->addMenu("&View");
    for (QDockWidget* dock : findChildren<QDockWidget*>()) menu.addAction(dock->toggleViewAction());
    menu.addSeparator();
    const int grid = FSurface.GetGrid();
    auto* toGrid = menu.addAction("Snap to &Grid");
    auto* toEdges = menu.addAction("Snap to &Edges");
    for (QAction* action : {toGrid, toEdges}) action->setCheckable(true), action->setChecked(true);
    connect(toGrid, &QAction::toggled, this, [this, grid](bool On) { FSurface.SetGrid(On ? grid : 0); });
    connect(toEdges, &QAction::toggled, this, [this](bool On) { FSurface.SetSnapsToEdges(On); });
}

void TMainWindow::MakeHelpMenu() {
    QMenu& menu = *menuBar()->addMenu("&Help");
    Add(menu, "&About kxdesign", {}, [this] {
        QMessageBox::about(this, "kxdesign",
                           "kxdesign " KXGRAPH_VERSION "\nPuts scientific graphs together by hand.");
    });
}

// Files.

void TMainWindow::ShowRecent() {
    QSettings settings("kxgraph", "kxdesign");
    QStringList files = RecentFiles();
    if (const std::string& name = FDocument.GetFileName(); !name.empty()) {
        const QString full = QFileInfo(Shown(name)).absoluteFilePath();
        files.removeAll(full);
        files.prepend(full);
        settings.setValue("recent", files = files.mid(0, CMostRecent));
    }
    FRecentMenu->clear();
    for (const QString& file : files)
        connect(FRecentMenu->addAction(file), &QAction::triggered, this,
                [this, file] { Try(this, [&] { OpenFile(Told(file)); }); });
}

namespace {

QString FileBy(QWidget* Parent, bool Save, const QString& Title, const QString& Filter) {
    return Save ? QFileDialog::getSaveFileName(Parent, Title, {}, Filter)
                : QFileDialog::getOpenFileName(Parent, Title, {}, Filter);
}

} // namespace

void TMainWindow::New() {
    if (MayLeave()) FDocument.New();
}

void TMainWindow::Open() {
    const QString name = AskFile ? AskFile(false, "Open", CForms) : FileBy(this, false, "Open", CForms);
    if (!name.isEmpty()) OpenFile(Told(name));
}

bool TMainWindow::Save() {
    if (FDocument.GetFileName().empty()) return SaveAs();
    return Try(this, [&] {
        FDocument.Save();
        if (FAutosave) FAutosave->Write();
    });
}

bool TMainWindow::SaveAs() {
    QString name = AskFile ? AskFile(true, "Save As", CForms) : FileBy(this, true, "Save As", CForms);
    if (name.isEmpty()) return false;
    if (!IsFormFile(Told(name))) name += ".kxf";
    return Try(this, [&] {
        FDocument.SaveAs(Told(name));
        if (FAutosave) FAutosave->Write();
        ShowRecent();
    });
}

void TMainWindow::Import() {
    const QString name =
        AskFile ? AskFile(false, "Import", CTables) : FileBy(this, false, "Import Table", CTables);
    if (!name.isEmpty()) ImportTable(FDocument, Told(name));
}

void TMainWindow::Export() {
    const QString name =
        AskFile ? AskFile(true, "Export", CPictures) : FileBy(this, true, "Export", CPictures);
    if (!name.isEmpty()) ExportForm(FDocument.GetForm(), Told(name));
}

void TMainWindow::CopyPicture() {
    TMetafile picture;
    TakePicture(FDocument.GetForm(), picture);
    TApplication::Instance().GetHost().CopyToClipboard(picture);
}

void TMainWindow::Print() {
    TMetafile picture;
    TakePicture(FDocument.GetForm(), picture);
    qt::PreviewPrint(this, picture, Shown(FDocument.GetTitle()));
}

void TMainWindow::ShowAsCpp() { ShowText(this, "C++ of " + Shown(FDocument.GetTitle()), CppOf(FDocument)); }

} // namespace kxdesign
