#pragma once
// In the form designer: notices when a component changes its place among its owner's.

#include <kxgraph/platform/host/timer.h>

namespace kx {

/// Looks ten times a second. The component must outlive it.
class TKxOrderWatch {
public:
    /// OnMoved is called after the first look, too.
    TKxOrderWatch(const TComponent& Watched, TEvent<> OnMoved);

private:
    void Look();

    const TComponent& FWatched;
    TEvent<> FOnMoved;
    TTimer FTimer;
    int FIndex = -1;
};

} // namespace kx
