#include "kxdesign/textswindow.h"

#include "kxdesign/guarded.h"

#include <kxgraph/design/Kxtextseditor.h>

#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QTextBlock>
#include <QVBoxLayout>

namespace kxdesign {

using namespace kx;

namespace {

class TTextsWindow : public QDialog {
public:
    TTextsWindow(QWidget* Parent, const TKxPropertyPlace& Place)
        : QDialog(Parent), FEditor(Place), FEdit(new QPlainTextEdit), FCount(new QLabel) {
        setAttribute(Qt::WA_DeleteOnClose);
        setWindowTitle(Shown(Place.GetTold()));
        FEdit->setLineWrapMode(QPlainTextEdit::NoWrap);
        FEdit->setTabChangesFocus(!FEditor.HasCells());
        auto* close = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        connect(close, &QDialogButtonBox::accepted, this, &TTextsWindow::Take);
        connect(close, &QDialogButtonBox::rejected, this, &QDialog::reject);
        for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) // Return alone begins a line
            connect(new QShortcut(Qt::CTRL | key, this), &QShortcut::activated, this, &TTextsWindow::Take);
        auto* foot = new QHBoxLayout;
        foot->addWidget(FCount, 1);
        foot->addWidget(close);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(
            new QLabel(FEditor.HasCells() ? "A row a line, tabs between its cells:" : "A text a line:"));
        layout->addWidget(FEdit);
        layout->addLayout(foot);
        connect(FEdit, &QPlainTextEdit::textChanged, this, &TTextsWindow::Count);
        FEdit->setPlainText(Shown(FEditor.GetLines()));
        FBefore = FEdit->toPlainText();
        Count();
        resize(380, 360);
    }

private:
    /// A last line that is empty is only where the next text would begin.
    void Count() {
        const int count = FEdit->blockCount() - int(FEdit->document()->lastBlock().length() <= 1);
        FCount->setText(QString::number(count) + (count == 1 ? " line" : " lines"));
    }
    /// What was left as it is stays, whatever the window makes of it: line ends of other systems.
    void Take() {
        const QString text = FEdit->toPlainText();
        if (text == FBefore || Try(this, [&] { FEditor.SetLines(Told(text)); })) accept();
    }

    TKxTextsEditor FEditor;
    QPlainTextEdit* FEdit;
    QLabel* FCount;
    QString FBefore;
};

} // namespace

void EditTexts(QWidget* Parent, const TKxPropertyPlace& Place) { (new TTextsWindow(Parent, Place))->open(); }

} // namespace kxdesign
