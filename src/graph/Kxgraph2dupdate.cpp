// Brackets of a program that changes much at once: what is painted meanwhile, and the frame after them.

#include <kxgraph/graph/Kxgraph2dupdate.h>

#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/host/application.h>

#include <utility>

namespace kx {

void TKx2DGraph::BeginUpdate() {
    // A handler that is called while the graph is painted must not have it painted inside of that.
    const bool painting = GetCanvas().GetDevice() || FWorld->GetCanvas().GetDevice();
    if (NotUpdating() && FPainted && !FKeeping && !painting) KeepPicture();
    ++FUpdateCount;
}

void TKx2DGraph::EndUpdate() {
    if (NotUpdating() || --FUpdateCount > 0) return;
    if (NeedsSettling() || FRepeated) Invalidate();
    FRepeated = false;
}

// Once a frame at most: until the next one is painted the picture stays the one of the frame before.
void TKx2DGraph::KeepPicture() {
    const TScopedValue keeping(FKeeping, true);
    SettleTree(*this);
    TRecorder recorder(GetBoundsRect().Size(), Screen.GetPixelsPerInch(), FPaintedXor, FPaintedSmooth);
    PaintTree(*this, recorder, GetClientRect());
    FKeptPicture = std::move(recorder.Recording);
    FPainted = false;
}

void TKx2DGraph::PaintKeptPicture() {
    FRepeated = true; // what has been invalidated meanwhile was not painted
    GetCanvas().Replay(FKeptPicture);
}

} // namespace kx
