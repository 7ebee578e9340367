#include <kxgraph/analysis/Kxbands.h>

#include <kxgraph/numeric/Kxstudent.h>

#include <cmath>
#include <limits>

namespace kx {

TKxBandValue BandOf(const TKxCurveValue& Curve, double Level, TKxBandKind Kind) {
    const double error = Kind == bkConfidence ? Curve.Error : std::hypot(Curve.Error, Curve.Deviation);
    const double half = StudentLimit(Level, Curve.Freedom) * error;
    if (!std::isfinite(Curve.Value) || !std::isfinite(half)) {
        constexpr double none = std::numeric_limits<double>::quiet_NaN();
        return {none, none};
    }
    return {Curve.Value - half, Curve.Value + half};
}

} // namespace kx
