#include "kxdesign/guarded.h"

#include <QMessageBox>

namespace kxdesign {

void ShowFault(QWidget* Parent, const std::string& Message) {
    auto* box = new QMessageBox(QMessageBox::Warning, "kxdesign", Shown(Message), QMessageBox::Ok, Parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

} // namespace kxdesign
