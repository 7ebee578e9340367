#pragma once
// What --fit, --curve, --derivative and --integral ask for.

#include <optional>
#include <string>
#include <vector>

namespace kxplot {

enum class TMethod { Line, Polynomial, Formula, Akima, Spline };

/// What of the curve is shown; derivative and integral have axes of their own.
enum class TQuantity { Value, Derivative, Integral };

struct TStartValue {
    std::string Name;
    double Value = 0;
    friend bool operator==(const TStartValue&, const TStartValue&) = default;
};

/// One analysis of every series.
struct TAnalysisRequest {
    TMethod Method = TMethod::Line;
    TQuantity Quantity = TQuantity::Value;
    int Degree = 1;                ///< of a polynomial
    std::optional<double> Setting; ///< a line's offset, Akima's smoothing width, a spline's weight factor
    std::string Formula;
    std::vector<TStartValue> Start; ///< of the formula's coefficients, in their order

    bool IsFit() const { return Method < TMethod::Akima; }
    friend bool operator==(const TAnalysisRequest&, const TAnalysisRequest&) = default;
};

/// Whether a fit is a formula: it begins like no other kind.
bool IsFormula(const std::string& Text);
/// "line", "line:offset=1.5" or "poly:3". Raises TUsageError.
TAnalysisRequest ParseFit(const std::string& Text);
/// A formula, and the start values of its coefficients: "a=1,b=0.5", or null for none. Raises TUsageError
/// that tells the place in the formula.
TAnalysisRequest ParseFormula(const std::string& Text, const std::string* Start);
/// "akima", "akima:smooth=0.3", "spline" or "spline:weight=2". Raises TUsageError.
TAnalysisRequest ParseCurve(const std::string& Text);

} // namespace kxplot
