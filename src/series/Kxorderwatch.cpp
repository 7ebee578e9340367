#include <kxgraph/series/Kxorderwatch.h>

#include <utility>

namespace kx {

TKxOrderWatch::TKxOrderWatch(const TComponent& Watched, TEvent<> OnMoved)
    : FWatched(Watched), FOnMoved(std::move(OnMoved)), FTimer(nullptr) {
    FTimer.SetInterval(100);
    FTimer.OnTimer = TEvent<>::Of<&TKxOrderWatch::Look>(this);
}

void TKxOrderWatch::Look() {
    if (FWatched.GetComponentIndex() == FIndex) return;
    FIndex = FWatched.GetComponentIndex();
    FOnMoved();
}

} // namespace kx
