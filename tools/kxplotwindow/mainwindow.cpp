#include "kxplotwindow/mainwindow.h"

#include <kxgraph/platform/host/application.h>
#include <kxgraph/qtwidgets/Kxqtprinting.h>

#include <QFileDialog>
#include <QFileInfo>
#include <QKeySequence>
#include <QMenuBar>
#include <QMessageBox>
#include <QPrintPreviewDialog>
#include <QScreen>

#include <exception>
#include <utility>

namespace kxplot {

/// The picture goes with the size of its widget.
class TMainWindow::TView : public kx::qt::FormView {
public:
    TView(const TShownPicture& Picture, QWidget* Parent) : FormView(Parent), FResized(Picture.Resized) {
        SetAntialias(Picture.Antialias);
        setForm(&Picture.Form);
    }

protected:
    void resizeEvent(QResizeEvent* Event) override {
        FormView::resizeEvent(Event);
        FResized();
    }

private:
    std::function<void()> FResized;
};

TMainWindow::TMainWindow(const TShownPicture& Picture) : FPicture(Picture), FView(new TView(Picture, this)) {
    setWindowTitle(QString::fromStdString(Picture.Title));
    setCentralWidget(FView);
    MakeMenus();
    resize(sizeHint().boundedTo(screen()->availableSize())); // the picture in the size that was asked for
    FView->setFocus();
}

QAction* TMainWindow::Add(QMenu& Menu, QToolBar* Bar, const QString& Text, const QKeySequence& Keys,
                          std::function<void()> Act) {
    QAction* action = Menu.addAction(Text);
    action->setShortcut(Keys);
    connect(action, &QAction::triggered, this, [this, act = std::move(Act)] { Try(act); });
    if (Bar) Bar->addAction(action);
    return action;
}

void TMainWindow::MakeMenus() {
    QMenu& file = *menuBar()->addMenu("&File");
    QMenu& edit = *menuBar()->addMenu("&Edit");
    QMenu& view = *menuBar()->addMenu("&View");
    QToolBar& bar = *addToolBar("Picture");
    Add(edit, &bar, "&Copy", QKeySequence::Copy,
        [this] { kx::TApplication::Instance().GetHost().CopyToClipboard(FPicture.Record()); });
    Add(file, &bar, "Save as P&NG...", QKeySequence::Save, [this] { SavePicture("png"); });
    Add(file, &bar, "Save as &SVG...", {}, [this] { SavePicture("svg"); });
    Add(file, &bar, "Save as P&DF...", {}, [this] { SavePicture("pdf"); });
    Add(file, &bar, "&Print...", QKeySequence::Print,
        [this] { kx::qt::PreviewPrint(this, FPicture.Record(), QString::fromStdString(FPicture.Title)); });
    if (FPicture.SaveOutfit)
        Add(file, &bar, "Save &outfit...", {},
            [this] { SaveAs("Save outfit", "Outfits (*.ini)", "ini", FPicture.SaveOutfit); });
    file.addSeparator();
    Add(file, nullptr, "&Close", QKeySequence::Close, [this] { close(); });
    MakeFitsAction(view, bar);
}

void TMainWindow::MakeFitsAction(QMenu& Menu, QToolBar& Bar) {
    QAction* fits = Menu.addAction("&Fits");
    fits->setCheckable(true);
    fits->setChecked(true);
    fits->setEnabled(FPicture.HasFits);
    connect(fits, &QAction::toggled, this, [this](bool Shown) { Try([&] { FPicture.ShowFits(Shown); }); });
    Bar.addAction(fits);
}

void TMainWindow::SavePicture(const char* Suffix) {
    const QString suffix(Suffix);
    SaveAs("Save picture", suffix.toUpper() + " (*." + suffix + ")", suffix, FPicture.SavePicture);
}

void TMainWindow::SaveAs(const QString& Title, const QString& Filters, const QString& Suffix,
                         const std::function<void(const std::string&)>& Write) {
    QFileDialog dialog(this, Title, {}, Filters);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(Suffix);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
    Write(dialog.selectedFiles().front().toStdString());
}

void TMainWindow::Try(const std::function<void()>& Act) {
    try {
        Act();
    } catch (const std::exception& error) {
        QMessageBox::warning(this, windowTitle(), QString::fromUtf8(error.what()));
    }
}

} // namespace kxplot
