#pragma once
// The host without a screen, for tests and batch programs: fixed text metrics, a clock turned by hand, frames
// drawn into recordings.

#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/platform/host/host.h>

#include <vector>

namespace kx {

/// Texts have their FixedTextSize. The screen is 1920 x 1080 at 96 per inch.
class THeadlessHost : public THost {
public:
    THeadlessHost();
    ~THeadlessHost() override;

    std::unique_ptr<THostWindow> OpenWindow(THostClient& Client) override;
    std::unique_ptr<THostTimer> StartTimer(int Interval, TEvent<> Tick) override;
    TSize ScreenSize() const override { return FScreenSize; }
    int PixelsPerInch() const override { return 96; }
    TSize MeasureText(const TFontFace& Face, std::string_view Text) const override {
        return FixedTextSize(Face, Text);
    }
    void SetCursor(TCursor Cursor) override { FCursor = Cursor; }
    void CopyToClipboard(const TMetafile& Picture) override;
    /// Draws a frame for every window that has something invalid.
    void ProcessMessages() override;
    /// Turns frames and timers until Quit, or until nothing is left to do.
    void Run() override;
    void Quit() override { FQuit = true; }

    /// Turns the clock on by Milliseconds; timers that fall due are called in order of their time.
    void Advance(int Milliseconds);
    TCursor GetCursor() const { return FCursor; }
    const TMetafile& GetClipboard() const { return *FClipboard; }
    void SetScreenSize(TSize Size) { FScreenSize = Size; }

    /// What a test knows of the window of Client: the last frame, how many frames there were, what is
    /// invalid.
    struct TWindowView {
        TRecording LastFrame;
        int Frames = 0;
        TRect Invalid;
        TRect Bounds;
        bool Visible = false;
        bool Captured = false;
        TCursor Cursor = crDefault;
        std::string Caption;
        TWindowState State = wsNormal;
    };
    /// Null when Client has no window.
    const TWindowView* WindowOf(const THostClient& Client) const;

private:
    class TWindow;
    class TTimerEntry;
    friend class TWindow;
    friend class TTimerEntry;

    std::vector<TWindow*> FWindows;
    std::vector<TTimerEntry*> FTimers;
    std::unique_ptr<TMetafile> FClipboard;
    TSize FScreenSize{1920, 1080};
    TCursor FCursor = crDefault;
    long long FNow = 0;
    bool FQuit = false;
};

} // namespace kx
