#pragma once
// The caret of a control that takes text.

#include <kxgraph/platform/controls/controls.h>

#include <memory>

namespace kx {

/// A bar that blinks where the next character goes, in the host's time and only while the control has the
/// keys. It rests, shown, after some seconds without a key. A part of the control, which paints it, and
/// calls Update when it gets or loses the keys (Enter, Exit, CMActiveChanged).
class TCaret {
public:
    /// Control is not owned and must outlive the caret.
    explicit TCaret(TWinControl& Control) : FControl(Control) {}
    TCaret(const TCaret&) = delete;
    TCaret& operator=(const TCaret&) = delete;

    /// Where it stands, in the control's pixels; an empty rectangle hides it.
    const TRect& GetPlace() const { return FPlace; }
    /// Moves it and begins a new blink.
    void SetPlace(const TRect& Place);
    /// Shows it from now on where the control has the keys, and hides it elsewhere.
    void Update();
    /// Whether a paint shows it now.
    bool IsOn() const { return FIsOn && !FPlace.IsEmpty(); }
    void Paint(TCanvas& Canvas, TColor Color) const;

private:
    void Blink();

    TWinControl& FControl;
    TRect FPlace;
    std::unique_ptr<THostTimer> FTimer;
    int FBlinks = 0;
    bool FIsOn = false;
};

} // namespace kx
