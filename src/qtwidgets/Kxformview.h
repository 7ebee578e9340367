#pragma once
// A form as a part of a Qt program: a widget for any layout.

#include <kxgraph/platform/controls/form.h>
#include <kxgraph/qtwidgets/Kxclientwidget.h>

#include <QSize>

namespace kx::qt {

/// Shows a form, which it does not own. The widget's size is the form's; a size that the form sets itself is
/// what the layout is asked for. Widget and form may be destroyed in any order; a form that is shown in
/// another view, or in a window of its own, leaves this one empty.
class FormView : public TClientWidget {
    Q_OBJECT

public:
    explicit FormView(QWidget* Parent = nullptr);
    explicit FormView(TForm& Form, QWidget* Parent = nullptr);
    ~FormView() override;

    /// Null: none.
    void setForm(TForm* Form);
    TForm* form() const { return FForm; }
    QSize sizeHint() const override { return FHint; }
    QSize minimumSizeHint() const override;

    void PlaceBy(const TRect& Bounds) override;
    void ShowBy(bool Visible) override;
    bool KeepsTab() const override { return false; }
    void Released() override;
    std::unique_ptr<THostWindow> PopupBy(THostClient& Client, const TRect& Beside) override;

protected:
    bool IsSeen() const override { return FShown && TClientWidget::IsSeen(); }
    void resizeEvent(QResizeEvent* Event) override;

private:
    void GiveSize();

    TForm* FForm = nullptr;
    TClientWindow* FWindow = nullptr;
    QSize FHint{640, 480};
    bool FShown = false;
};

} // namespace kx::qt
