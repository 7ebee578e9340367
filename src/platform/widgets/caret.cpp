#include <kxgraph/platform/widgets/caret.h>

#include <kxgraph/platform/host/application.h>

namespace kx {

void TCaret::SetPlace(const TRect& Place) {
    FControl.InvalidateRect(FPlace);
    FPlace = Place;
    Update();
}

void TCaret::Update() {
    FTimer.reset();
    FIsOn = FControl.HasKeys();
    FBlinks = 0;
    FControl.InvalidateRect(FPlace);
    THost& host = TApplication::Instance().GetHost();
    if (const int time = host.CaretBlinkTime(); FIsOn && time > 0)
        FTimer = host.StartTimer(time, TEvent<>::Of<&TCaret::Blink>(this));
}

void TCaret::Blink() {
    constexpr int CMostBlinks = 20;
    FIsOn = !FIsOn;
    FControl.InvalidateRect(FPlace);
    if (FIsOn && ++FBlinks >= CMostBlinks) FTimer.reset(); // whoever has gone away wakes no processor
}

void TCaret::Paint(TCanvas& Canvas, TColor Color) const {
    if (!IsOn()) return;
    Canvas.Brush.SetColor(Color);
    Canvas.FillRect(FPlace);
}

} // namespace kx
