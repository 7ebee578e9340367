#include <kxgraph/platform/controls/controls.h>

#include <utility>

namespace kx {

namespace {

/// The canvas of a control while it is painted, which may take the control away.
class TAttached {
public:
    TAttached(TControl& Control, TCanvas*& Attached, TCanvas& Canvas)
        : FControl(&Control), FAttached(Attached), FBefore(std::exchange(Attached, &Canvas)) {}
    ~TAttached() {
        if (FControl) FAttached = FBefore;
    }
    TAttached(const TAttached&) = delete;
    TAttached& operator=(const TAttached&) = delete;

private:
    TComponentRef<TControl> FControl;
    TCanvas*& FAttached;
    TCanvas* FBefore;
};

} // namespace

TGraphicControl::TGraphicControl(TComponent* Owner) : TControl(Owner) {}

void TGraphicControl::PaintOn(TCanvas& Canvas) {
    const TAttached attached(*this, FCanvas, Canvas);
    Paint();
}

TCustomControl::TCustomControl(TComponent* Owner) : TWinControl(Owner) {}

void TCustomControl::PaintOn(TCanvas& Canvas) {
    const TAttached attached(*this, FCanvas, Canvas);
    Paint();
}

TCustomPanel::TCustomPanel(TComponent* Owner) : TCustomControl(Owner) {}

void TCustomPanel::Paint() {
    GetCanvas().Brush.SetColor(GetColor());
    GetCanvas().FillRect(GetClientRect());
}

} // namespace kx
