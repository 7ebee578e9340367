#include "kxdesign/textwindow.h"

#include "kxdesign/guarded.h"

#include <kxgraph/design/Kxformtocpp.h>

#include <QDialog>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QVBoxLayout>

namespace kxdesign {

void ShowText(QWidget* Parent, const QString& Title, const std::string& Text) {
    auto* window = new QDialog(Parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle(Title);
    auto* edit = new QPlainTextEdit(Shown(Text));
    edit->setReadOnly(true);
    edit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* layout = new QVBoxLayout(window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(edit);
    window->resize(760, 640);
    window->show();
}

std::string CppOf(const kx::TKxDesignDocument& Document) { return kx::FormToCpp(Document.GetForm()); }

} // namespace kxdesign
