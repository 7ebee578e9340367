#include "analysis/Kxdifferential.h"

namespace kx {

void TKxInterpolatedSecondary::TestSecondaryAxis() {
    if (const auto* parent = GetParentSeries()) FSecondary.Test(*this, *parent);
}

void TKxInterpolatedSecondary::TakeYAxis(TKxNotCalculatedSeries&) {
    if (!IsIn(csLoading)) TestSecondaryAxis();
}

} // namespace kx
