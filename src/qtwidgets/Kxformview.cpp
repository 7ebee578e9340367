#include <kxgraph/qtwidgets/Kxformview.h>

#include <kxgraph/qtwidgets/Kxpopupwidget.h>
#include <kxgraph/qtwidgets/Kxqtaccessible.h>

#include <memory>

namespace kx::qt {

FormView::FormView(QWidget* Parent) : TClientWidget(Parent) {
    InstallAccessibility();
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

FormView::FormView(TForm& Form, QWidget* Parent) : FormView(Parent) { setForm(&Form); }

FormView::~FormView() { setForm(nullptr); }

void FormView::setForm(TForm* Form) {
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
