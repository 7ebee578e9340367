#include "kxdesign/mainwindow.h"

#include "kxdesign/formarea.h"
#include "kxdesign/guarded.h"
#include "kxdesign/inplacecaption.h"
#include "kxdesign/inspectorpanel.h"
#include "kxdesign/objecttree.h"
#include "kxdesign/palette.h"

#include <kxgraph/design/Kxdesigncommands.h>
#include <kxgraph/design/Kxdesignimport.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/streaming/formfile.h>
#include <kxgraph/platform/text/files.h>

#include <QAction>
#include <QCloseEvent>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QStatusBar>
#include <QUrl>

namespace kxdesign {

using namespace kx;

namespace {

constexpr int CFaultShows = 15000; // ms

} // namespace

TMainWindow::TMainWindow(const std::string& StateDirectory)
    : FSurface(FDocument), FStateDirectory(StateDirectory), FArea(new TFormArea(FDocument, this)),
      FInplace(new TInplaceCaption(FDocument, FArea->GetView())) {
    // Of a frame: a fit that has no function yet says so time and again, and nobody has asked for it.
    TApplication::Instance().OnException = [this](const std::exception& Error) {
        statusBar()->showMessage(Shown(Error.what()), CFaultShows);
    };
    setCentralWidget(FArea);
    setAcceptDrops(true);
    MakeDocks();
    MakeFileMenu();
    MakeEditMenu();
    MakeArrangeMenu();
    MakeViewMenu();
    MakeHelpMenu();
    FPlace = new QLabel;
    FHelp = new QLabel;
    statusBar()->addWidget(FHelp, 1);
    statusBar()->addPermanentWidget(FPlace);
    FSurface.OnEdit = TEvent<TComponent*, const std::string&>::Of<&TMainWindow::Edit>(this);
    FSurface.OnState = TEvent<>::Of<&TMainWindow::ShowState>(this);
    FSurface.OnMenu = TEvent<TPoint>::Of<&TMainWindow::ShowMenu>(this);
    FDocument.AddObserver(this);
    if (!FStateDirectory.empty())
        Try(this, [&] { FAutosave = std::make_unique<TKxDesignAutosave>(FDocument, FStateDirectory); });
    resize(1280, 820);
    ShowTitle();
    TMainWindow::FormChanged();
}

TMainWindow::~TMainWindow() {
    TApplication::Instance().OnException = nullptr;
    FDocument.RemoveObserver(this);
    FAutosave.reset();
    delete FInspector; // before the document, which they look at
    delete FTree;
    delete FArea;
}

void TMainWindow::MakeDocks() {
    const auto dock = [this](const QString& Title, QWidget* Content, Qt::DockWidgetArea Area) {
        auto* made = new QDockWidget(Title, this);
        made->setObjectName(Title);
        made->setWidget(Content);
        addDockWidget(Area, made);
    };
    FPalette = new TPalette;
    FPalette->OnChoose = [this](const std::string& Name) { FSurface.SetCreating(Name); };
    FPalette->OnMake = [this](const std::string& Name) { Make(Name); };
    FTree = new TObjectTree(FDocument);
    FInspector = new TInspectorPanel(FDocument);
    FInspector->OnHelp = [this](const QString& Help) { FHelp->setText(Help); };
    dock("Palette", FPalette, Qt::LeftDockWidgetArea);
    dock("Objects", FTree, Qt::LeftDockWidgetArea);
    dock("Properties", FInspector, Qt::RightDockWidgetArea);
    resizeDocks({findChild<QDockWidget*>("Palette"), findChild<QDockWidget*>("Properties")}, {230, 330},
                Qt::Horizontal);
}

// At the start, and what the files are.

void TMainWindow::Start(const TOptions& Options) {
    if (Options.File.empty()) return;
    if (Options.Untitled)
        FDocument.Read(ReadTextFile(Options.File).Text, {}, true);
    else
        OpenFile(Options.File);
}

void TMainWindow::OpenFile(const std::string& FileName) {
    if (!IsFormFile(FileName)) {
        ImportTable(FDocument, FileName);
        return;
    }
    if (!MayLeave()) return;
    FDocument.Open(FileName);
    ShowRecent();
}

bool TMainWindow::WantsRecovery(const TKxDesignRecovery& Recovery) {
    if (AskRecover) return AskRecover(Recovery);
    const QString name = Recovery.Original.empty() ? "an untitled form" : Shown(Recovery.Original);
    return QMessageBox::question(this, "kxdesign",
                                 "kxdesign has ended without saving " + name +
                                     ". Take up the work? It is thrown away otherwise.") == QMessageBox::Yes;
}

// With a form open, what was left of that one alone.
void TMainWindow::OfferRecovery() {
    if (FStateDirectory.empty() || FDocument.IsModified()) return;
    const QString open = Shown(FDocument.GetFileName());
    for (const TKxDesignRecovery& recovery : FindRecoveries(FStateDirectory)) {
        if (!open.isEmpty() && QFileInfo(open).absoluteFilePath() != Shown(recovery.Original)) continue;
        const bool wanted = WantsRecovery(recovery);
        const bool taken = wanted && Try(this, [&] {
                               Recover(FDocument, recovery);
                               if (FAutosave) FAutosave->Write();
                           });
        if (taken || !wanted) Forget(recovery); // else it stays for another try
        if (taken) return;
    }
}

bool TMainWindow::MayLeave() {
    if (!FDocument.IsModified()) return true;
    const auto ask = [this] {
        const auto answer = QMessageBox::question(
            this, "kxdesign", "Save the changes to " + Shown(FDocument.GetTitle()) + "?",
            QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
        return answer == QMessageBox::Save      ? TAnswer::Save
               : answer == QMessageBox::Discard ? TAnswer::Discard
                                                : TAnswer::Cancel;
    };
    const TAnswer answer = AskSave ? AskSave() : ask();
    return answer == TAnswer::Save ? Save() : answer == TAnswer::Discard;
}

void TMainWindow::closeEvent(QCloseEvent* Event) {
    if (!MayLeave()) return Event->ignore();
    FAutosave.reset();
    Event->accept();
}

void TMainWindow::dragEnterEvent(QDragEnterEvent* Event) {
    if (Event->mimeData()->hasUrls()) Event->acceptProposedAction();
}

void TMainWindow::dropEvent(QDropEvent* Event) {
    Event->acceptProposedAction();
    for (const QUrl& url : Event->mimeData()->urls())
        if (url.isLocalFile()) Try(this, [&] { OpenFile(Told(url.toLocalFile())); });
}

// What the document says.

void TMainWindow::FormReplaced() { FormChanged(); }

void TMainWindow::FormChanged() {
    const auto named = [](const QString& Verb, const std::string& Name) {
        return Name.empty() ? Verb : Verb + ' ' + Shown(Name);
    };
    FUndo->setText(named("&Undo", FDocument.GetUndoName()));
    FUndo->setEnabled(FDocument.CanUndo());
    FRedo->setText(named("&Redo", FDocument.GetRedoName()));
    FRedo->setEnabled(FDocument.CanRedo());
    ShowTitle();
    ShowStatus();
}

void TMainWindow::SelectionChanged() { ShowStatus(); }
void TMainWindow::FileChanged() { ShowTitle(); }

void TMainWindow::ShowTitle() {
    setWindowTitle(Shown(FDocument.GetTitle()) + "[*] - kxdesign");
    setWindowModified(FDocument.IsModified());
    setWindowFilePath(Shown(FDocument.GetFileName()));
}

void TMainWindow::ShowStatus() {
    const auto* control = dynamic_cast<TControl*>(FDocument.GetPrimary());
    const TRect rect = FSurface.GetDragged().value_or(control ? control->GetBoundsRect() : TRect());
    const QString place =
        QString("%1, %2   %3 × %4").arg(rect.Left).arg(rect.Top).arg(rect.Width()).arg(rect.Height());
    FPlace->setText(control || FSurface.GetDragged() ? place : QString());
}

void TMainWindow::ShowState() {
    FPalette->ShowChosen(FSurface.GetCreating());
    ShowStatus();
}

void TMainWindow::Edit(TComponent* Component, const std::string& Property) {
    FDocument.Select(Component);
    if (!FInplace->Begin(*Component, Property)) FInspector->EditProperty(Property);
}

void TMainWindow::ShowMenu(TPoint Pos) {
    FEditMenu->popup(FArea->GetView().mapToGlobal(QPoint(Pos.X, Pos.Y)));
}

void TMainWindow::Make(const std::string& ClassName) {
    FSurface.SetCreating({});
    Try(this, [&] { CreateComponent(FDocument, ClassName, {nullptr, {16, 16}}); });
}

} // namespace kxdesign
