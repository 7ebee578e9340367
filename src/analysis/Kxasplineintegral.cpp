#include "analysis/Kxasplineintegral.h"

namespace kx {

void TKxASplineIntegral::CalculateLine() {
    if (!CurveIsOutgrown()) return;
    FillCurve();
    CurveChanged();
}

} // namespace kx
