#include <kxgraph/qtwidgets/Kxformview.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/base/ownedcast.h>
#include <kxgraph/platform/streaming/formfile.h>
#include <kxgraph/qtwidgets/Kxpopupwidget.h>
#include <kxgraph/qtwidgets/Kxqtaccessible.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QUrl>

#include <exception>
#include <memory>
#include <string>

namespace kx::qt {

FormView::FormView(QWidget* Parent) : TClientWidget(Parent) {
    InstallAccessibility();
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

FormView::FormView(TForm& Form, QWidget* Parent) : FormView(Parent) { setForm(&Form); }

FormView::~FormView() { Take(nullptr); }

void FormView::setForm(TForm* Form) {
    if (Form == FForm && FFormFile.isEmpty()) return;
    Drop();
    Take(Form);
    if (FFormFile.isEmpty()) return;
    FFormFile.clear();
    Q_EMIT formFileChanged(FFormFile);
}

/// The form that was read, and what was wrong.
void FormView::Drop() {
    if (FRead) Take(nullptr);
    FRead.reset();
    FFormError.clear();
    update();
}

void FormView::Take(TForm* Form) {
    if (Form == FForm) return;
    if (FForm) FForm->ShowIn(nullptr); // comes back as Released
    if (!Form) return;
    const TRect bounds = Form->GetBoundsRect();
    FHint = {bounds.Width(), bounds.Height()};
    auto window = std::make_unique<TClientWindow>(*this);
    FForm = Form;
    FWindow = window.get();
    SetClient(&Form->AsHostClient());
    Form->ShowIn(std::move(window));
    updateGeometry();
    GiveSize();
    if (hasFocus()) Form->AsHostClient().HostActivated(true);
}

void FormView::setFormFile(const QString& FileName) {
    const bool isOther = FileName != FFormFile;
    Drop();
    Take(nullptr);
    FFormFile = FileName;
    try {
        if (!FileName.isEmpty()) FRead = Read(FindFile(FileName));
    } catch (const std::exception& error) {
        FFormError = QString::fromStdString(error.what());
    }
    Take(FRead.get());
    if (isOther) Q_EMIT formFileChanged(FFormFile);
}

QString FormView::FindFile(const QString& FileName) const {
    if (const QUrl url(FileName); url.scheme() == "qrc") return ":" + url.path();
    const QString beside = QDir(QCoreApplication::applicationDirPath()).filePath(FileName);
    return QFile::exists(FileName) || !QFile::exists(beside) ? FileName : beside;
}

/// Resources have no place among the files that a form may name.
std::unique_ptr<TForm> FormView::Read(const QString& FileName) const {
    QFile file(FileName);
    const std::string name = file.fileName().toStdString();
    if (!file.open(QIODevice::ReadOnly)) throw EFileError(name + ": " + file.errorString().toStdString());
    const QByteArray text = file.readAll();
    std::unique_ptr<TComponent> root =
        FormFromText({text.constData(), std::size_t(text.size())}, name, Reading());
    std::unique_ptr<TForm> form = OwnedCast<TForm>(root);
    if (!form) throw EFormError(name + ": a form is expected, not a " + root->ClassName());
    return form;
}

void FormView::paintEvent(QPaintEvent* Event) {
    TClientWidget::paintEvent(Event);
    if (FFormError.isEmpty()) return;
    constexpr int CMargin = 8;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect().adjusted(CMargin, CMargin, -CMargin, -CMargin),
                     Qt::AlignLeft | Qt::AlignTop | Qt::TextWrapAnywhere, FFormError);
}

void FormView::Released() {
    FForm = nullptr;
    FWindow = nullptr;
    FShown = false;
    SetClient(nullptr);
}

QSize FormView::minimumSizeHint() const {
    constexpr QSize CSmallest{80, 60};
    return CSmallest;
}

void FormView::PlaceBy(const TRect& Bounds) {
    const QSize wanted(Bounds.Width(), Bounds.Height());
    if (wanted == size()) return;
    FHint = wanted;
    updateGeometry();
    GiveSize();
}

void FormView::ShowBy(bool Visible) {
    FShown = Visible;
    update();
}

void FormView::resizeEvent(QResizeEvent* Event) {
    TClientWidget::resizeEvent(Event);
    GiveSize();
}

void FormView::GiveSize() {
    if (THostClient* client = GetClient()) client->HostResized({0, 0, width(), height()});
}

std::unique_ptr<THostWindow> FormView::PopupBy(THostClient& Client, const TRect& Beside) {
    return TPopupWidget::Open(Client, *this, Beside);
}

} // namespace kx::qt
