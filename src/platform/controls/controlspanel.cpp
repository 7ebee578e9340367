#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/controls/controls.h>

namespace kx {

TGraphicControl::TGraphicControl(TComponent* Owner) : TControl(Owner) {}

void TGraphicControl::PaintOn(TCanvas& Canvas) {
    const TScopedValue attached(FCanvas, &Canvas);
    Paint();
}

TCustomControl::TCustomControl(TComponent* Owner) : TWinControl(Owner) {}

void TCustomControl::PaintOn(TCanvas& Canvas) {
    const TScopedValue attached(FCanvas, &Canvas);
    Paint();
}

TCustomPanel::TCustomPanel(TComponent* Owner) : TCustomControl(Owner) {}

void TCustomPanel::Paint() {
    GetCanvas().Brush.SetColor(GetColor());
    GetCanvas().FillRect(GetClientRect());
}

} // namespace kx
