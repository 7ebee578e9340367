#include "analysis/Kxintegral.h"

namespace kx {

void TKxIntegral::CalculateLine() {
    if (!CurveIsOutgrown()) return;
    FillCurve();
    CurveChanged();
}

} // namespace kx
