#pragma once
// The host with windows.

#include <kxgraph/qt/Kxqthost.h>

#include <QObject>

#include <memory>

namespace kx::qt {

/// Windows, timers, clipboard and messages are Qt's. Needs a QApplication. Run ends when Quit is called or
/// when the user has closed the last window.
class TQtWidgetsHost : public TQtMeasured<THost> {
public:
    TQtWidgetsHost();
    ~TQtWidgetsHost() override;

    std::unique_ptr<THostWindow> OpenWindow(THostClient& Client) override;
    std::unique_ptr<THostTimer> StartTimer(int Interval, TEvent<> Tick) override;
    /// Of the primary screen.
    TSize ScreenSize() const override;
    int PixelsPerInch() const override { return 96; }
    void SetCursor(TCursor Cursor) override;
    int CaretBlinkTime() const override;
    void CopyToClipboard(const TMetafile& Picture) override;
    void CopyText(const std::string& Text) override;
    std::string PasteText() const override;
    void CopyMarkup(const std::string& Text, const std::string& MimeType, const std::string& Markup) override;
    std::string PasteMarkup(const std::string& MimeType) const override;
    void ProcessMessages() override;
    void Run() override;
    void Quit() override;
    void Wake() override;

private:
    class TWoken;
    std::unique_ptr<TWoken> FWoken;
    TCursor FCursor = crDefault;
};

/// Makes a QApplication if the program has none, and installs a TQtWidgetsHost in the application. The locale
/// of numbers stays as it was. Raises Exception when there is no display, and when the program has made a Qt
/// application that knows no widgets.
void InstallWidgets();

} // namespace kx::qt
