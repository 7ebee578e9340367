#pragma once
// Between which values a fitted curve lies, and a further point of it.

#include <kxgraph/platform/objects/typenames.h>

#include <array>
#include <span>
#include <string_view>
#include <vector>

namespace kx {

enum TKxBandKind {
    bkConfidence, ///< where the curve of all points there could be lies, at each x by itself
    bkPrediction  ///< where one further point lies
};

template <>
inline constexpr auto CEnumNames<TKxBandKind> = std::to_array<std::string_view>({"bkConfidence",
                                                                                 "bkPrediction"});

/// Both NaN where nothing can be told.
struct TKxBandValue {
    double Low, High;
};

/// What a fit knows of its curve at some x, in the space that it is fitted in.
struct TKxCurveValue {
    double Value;
    double Error;     ///< standard error of Value
    double Deviation; ///< standard deviation of one further point
    double Freedom;   ///< the degrees of freedom that both come from
};

/// Value, and to both sides the error, or that and the deviation together, times the limit of Student's t
/// that is exceeded with the probability 1 - Level.
TKxBandValue BandOf(const TKxCurveValue& Curve, double Level, TKxBandKind Kind);

/// A fit that knows how uncertain it is.
class TKxBandedFit {
public:
    /// At each X, in data units.
    virtual std::vector<TKxBandValue> GetBands(std::span<const double> X, double Level,
                                               TKxBandKind Kind) const = 0;
    TKxBandValue GetBand(double X, double Level = 0.95, TKxBandKind Kind = bkConfidence) const {
        return GetBands({&X, 1}, Level, Kind).front();
    }

protected:
    ~TKxBandedFit() = default;
};

} // namespace kx
