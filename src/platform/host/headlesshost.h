#pragma once
// The host without a screen, for tests and batch programs: fixed text metrics, a clock turned by hand, frames
// drawn into recordings.

#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/platform/host/host.h>

#include <atomic>
#include <string>
#include <string_view>
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
    void CopyText(const std::string& Text) override { CopyMarkup(Text, {}, {}); }
    std::string PasteText() const override { return FText; }
    void CopyMarkup(const std::string& Text, const std::string& MimeType, const std::string& Markup) override;
    std::string PasteMarkup(const std::string& MimeType) const override;
    /// Runs what was posted, then draws a frame for every window that has something invalid.
    void ProcessMessages() override;
    /// Turns frames and timers until Quit, or until nothing is left to do.
    void Run() override;
    void Quit() override { FQuit = true; }
    void Wake() override { ++FWakes; }

    /// Turns the clock on by Milliseconds; timers that fall due are called in order of their time.
    void Advance(int Milliseconds);
    TCursor GetCursor() const { return FCursor; }
    const TMetafile& GetClipboard() const { return *FClipboard; }
    /// How often another thread has called.
    int GetWakes() const { return FWakes; }
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
        THostMenu Menu; ///< the last one that was shown and of which nothing was picked
        TPoint MenuPos;
        const THostClient* PopupOf = nullptr; ///< of a popup: the client of the window that it is beside
        bool Modal = false;                   ///< keeps input from other windows now
        THostTextInput TextInput;             ///< as the client told it last
        int EndedCompositions = 0;            ///< how often the client has asked for that
    };
    /// The client of the popup that was opened last beside the window of Client; null when none is shown.
    THostClient* PopupBeside(const THostClient& Client) const;
    /// Null when Client has no window.
    const TWindowView* WindowOf(const THostClient& Client) const;
    /// Picks the first item with that caption of the menu that the window of Client shows; false when there
    /// is none, or it is disabled.
    /// What a user does who presses somewhere outside the popup of Client. False when it has none.
    bool PressOutside(THostClient& Client);
    bool PickMenuItem(const THostClient& Client, std::string_view Caption);

private:
    class TWindow;
    class TTimerEntry;
    friend class TWindow;
    friend class TTimerEntry;

    TWindow* Find(const THostClient& Client) const;
    /// Turns frames and timers while Goes answers true, or until nothing is left to do.
    template <class F>
    void RunWhile(F Goes);

    std::vector<TWindow*> FWindows;
    std::vector<TTimerEntry*> FTimers;
    std::unique_ptr<TMetafile> FClipboard;
    TSize FScreenSize{1920, 1080};
    TCursor FCursor = crDefault;
    std::string FText, FMarkupType, FMarkup;
    std::atomic<int> FWakes = 0;
    long long FNow = 0;
    bool FQuit = false;
};

} // namespace kx
