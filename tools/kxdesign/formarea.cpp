#include "kxdesign/formarea.h"

namespace kxdesign {

using namespace kx;

void TDesignView::PlaceBy(const TRect& Bounds) {
    resize(Bounds.Width(), Bounds.Height());
    FormView::PlaceBy(Bounds);
}

void TDesignView::ShowForm(TForm& Form) {
    const TRect bounds = Form.GetBoundsRect();
    setForm(nullptr);
    resize(bounds.Width(), bounds.Height());
    setForm(&Form);
    Form.SetBounds(bounds.Left, bounds.Top, bounds.Width(), bounds.Height());
}

// A size that the form has given itself is no news to it; where it stands on the screen is not ours to say.
// NOLINTBEGIN(bugprone-parent-virtual-call): the view's own way is left out
void TDesignView::resizeEvent(QResizeEvent* Event) {
    const bool known = form() && size() == QSize(form()->GetWidth(), form()->GetHeight());
    known ? TClientWidget::resizeEvent(Event) : FormView::resizeEvent(Event);
}
// NOLINTEND(bugprone-parent-virtual-call)

TFormArea::TFormArea(TKxDesignDocument& Document, QWidget* Parent)
    : QScrollArea(Parent), FDocument(Document), FView(new TDesignView) {
    setBackgroundRole(QPalette::Dark);
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setViewportMargins(12, 12, 12, 12);
    setWidget(FView);
    setWidgetResizable(false);
    FView->setFocusPolicy(Qt::StrongFocus);
    FView->setAcceptDrops(false); // files are the window's
    FDocument.AddObserver(this);
    TFormArea::FormReplaced();
}

TFormArea::~TFormArea() {
    FDocument.RemoveObserver(this);
    FView->setForm(nullptr);
}

void TFormArea::FormReplaced() { FView->ShowForm(FDocument.GetForm()); }

} // namespace kxdesign
