#pragma once
// The Y axis of a derived quantity: a derivative or an integral has other units than its parent.

#include <kxgraph/analysis/Kxcalculatedseries.h>

namespace kx {

/// Finds or makes the Y axis that a series is drawn against besides its parent's. Owned by the series; the
/// axis belongs to the form and stays when the series goes.
class TKxSecondaryAxis {
public:
    /// Does nothing if Series has a Y axis, or its parent no X axis. With the graph's ZeroOrigin it takes the
    /// parent's Y axis; otherwise the last vertical axis on the graph that is not the parent's, no mirror and
    /// without measured series, which becomes visible; otherwise a new one at the right, SecondaryAxis1 or
    /// the next free number. The axis follows no master as long as the series lives.
    void Test(TKxCalculatedSeries& Series, const TKxNotCalculatedSeries& Parent);
    /// Makes the axis follow its master again if it did before. For the destructor of the series.
    void GiveBack(TKxCalculatedSeries& Series);

private:
    bool FWasSlave = false;
};

} // namespace kx
