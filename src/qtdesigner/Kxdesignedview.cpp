#include <kxgraph/qtdesigner/Kxdesignedview.h>

#include <QEvent>
#include <QFile>
#include <QPainter>
#include <QtDesigner/QDesignerFormWindowInterface>

namespace kx::qt {

namespace {

bool IsInput(QEvent::Type Type) {
    switch (Type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::ShortcutOverride:
    case QEvent::ToolTip: return true;
    default: return false;
    }
}

} // namespace

/// Asks for the interface by its name: the plugin is loaded where there is no library of Designer, too.
std::optional<QDir> TDesignedView::DesignedIn() const {
    const QWidget* widget = FWithDesigner ? parentWidget() : nullptr;
    while (widget && !widget->inherits("QDesignerFormWindowInterface")) widget = widget->parentWidget();
    if (!widget) return std::nullopt;
    return static_cast<const QDesignerFormWindowInterface*>(widget)->absoluteDir();
}

QString TDesignedView::FindFile(const QString& FileName) const {
    const auto directory = DesignedIn();
    const QString beside = directory ? directory->filePath(FileName) : FileName;
    return QFile::exists(beside) ? beside : FormView::FindFile(FileName);
}

bool TDesignedView::event(QEvent* Event) {
    if (!IsInput(Event->type()) || !DesignedIn()) return FormView::event(Event);
    Event->ignore();
    return false;
}

/// A view without a form can be seen, too.
void TDesignedView::paintEvent(QPaintEvent* Event) {
    FormView::paintEvent(Event);
    if (form() || !formError().isEmpty() || !DesignedIn()) return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::PlaceholderText), 1, Qt::DashLine));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("formFile: none"));
}

} // namespace kx::qt
