#pragma once
// The window of a client that pops up beside a place of another one.

#include <kxgraph/qtwidgets/Kxclientwidget.h>

namespace kx::qt {

/// While it is shown it has keys and mouse; a press outside closes it. Goes when its client lets it go, or
/// with the widget that it is beside.
class TPopupWidget : public TClientWidget {
public:
    /// Beside: in pixels of Owner, over which it stays.
    static std::unique_ptr<THostWindow> Open(THostClient& Client, QWidget& Owner, const TRect& Beside);
    ~TPopupWidget() override;

    /// The size alone counts.
    void PlaceBy(const TRect& Bounds) override;
    void ShowBy(bool Visible) override { setVisible(Visible); }
    bool KeepsTab() const override { return true; }
    void Released() override;
    std::unique_ptr<THostWindow> PopupBy(THostClient& Client, const TRect& Beside) override;

protected:
    void mousePressEvent(QMouseEvent* Event) override;
    void showEvent(QShowEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;
    void hideEvent(QHideEvent* Event) override;

private:
    TPopupWidget(THostClient& Client, QWidget& Owner, const TRect& Beside);

    TClientWindow* FWindow = nullptr;
    TRect FBeside; // on the screen
};

} // namespace kx::qt
