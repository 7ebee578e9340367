#pragma once
// The window of a form that has one of its own.

#include <kxgraph/qtwidgets/Kxclientwidget.h>

class QEventLoop;

namespace kx::qt {

/// Belongs to its client: it goes when that lets its window go.
class TWindowWidget : public TClientWidget {
public:
    explicit TWindowWidget(THostClient& Client);

    void PlaceBy(const TRect& Bounds) override;
    void ShowBy(bool Visible) override { setVisible(Visible); }
    void CaptionBy(const std::string& Caption) override;
    void StateBy(TWindowState State) override;
    bool KeepsTab() const override { return true; }
    void Released() override;
    std::unique_ptr<THostWindow> PopupBy(THostClient& Client, const TRect& Beside) override;
    void RunModalBy() override;
    void EndModalBy() override;

protected:
    void resizeEvent(QResizeEvent* Event) override;
    void moveEvent(QMoveEvent* Event) override;
    void changeEvent(QEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;

private:
    void Report();

    TRect FReported;
    TWindowState FState = wsNormal;
    bool FPlacing = false;
    QEventLoop* FLoop = nullptr; // of RunModalBy
};

} // namespace kx::qt
