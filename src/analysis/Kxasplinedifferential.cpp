#include "analysis/Kxasplinedifferential.h"

namespace kx {

void TKxApproxSplineSecondary::TestSecondaryAxis() {
    if (const auto* parent = GetParentSeries()) FSecondary.Test(*this, *parent);
}

void TKxApproxSplineSecondary::TakeYAxis(TKxNotCalculatedSeries&) {
    if (!IsIn(csLoading)) TestSecondaryAxis();
}

} // namespace kx
