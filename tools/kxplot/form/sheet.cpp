#include "kxplot/form/sheet.h"

#include "kxplot/form/residuals.h"

#include <kxgraph/platform/controls/frame.h>

namespace kxplot {

using namespace kx;

void FillForm(const TParts& Parts) {
    const TSize size = Parts.Form->GetClientRect().Size();
    if (Parts.Sheet)
        PlaceGraphs(Parts, size);
    else
        Parts.Graph->SetBounds(0, 0, size.Width, size.Height);
    SettleTree(*Parts.Form);
}

const TMetafile& Recorded(const TParts& Parts, TMetafile& Own) {
    if (!Parts.Sheet) {
        Parts.Graph->PaintToMetafile();
        return Parts.Graph->GetMetafile();
    }
    const TSize size = Parts.Sheet->GetClientRect().Size();
    TRecorder whole(size), smooth(size, TFont::CPixelsPerInch, false, true);
    PaintFrame(*Parts.Sheet, whole);
    PaintFrame(*Parts.Sheet, smooth);
    Own.SetPicture(size, std::move(whole.Recording), std::move(smooth.Recording));
    return Own;
}

} // namespace kxplot
