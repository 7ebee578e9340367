#pragma once
// Derivatives of a model by its coefficients, by differences of its values. Pure: numbers in, numbers out.

#include <cstddef>
#include <functional>
#include <limits>
#include <span>
#include <vector>

namespace kx {

/// Fills Values with the model's y at every point, for the given coefficients.
using TKxModelValues = std::function<void(std::span<const double> Coefficients, std::span<double> Values)>;

/// Fills Columns, one a coefficient, with the derivatives of the model at every point.
using TKxModelDerivatives =
    std::function<void(std::span<const double> Coefficients, std::span<const std::span<double>> Columns)>;

/// Where a coefficient may be, both ends included. One of equal ends is fixed.
struct TKxCoefficientLimits {
    double Low = -std::numeric_limits<double>::infinity();
    double High = std::numeric_limits<double>::infinity();

    bool Contains(double Value) const { return Low <= Value && Value <= High; }
    bool IsFixed() const { return Low == High; }
};

/// The length of a column, without overflow; NaN if there is one in it.
double LengthOf(std::span<const double> Column);

/// Values times roots of weights, but 0 where those are 0, even where there is no value.
void Weigh(std::span<double> Values, std::span<const double> Roots);

/// Columns of derivatives times the roots of the weights: what the points of a fit see of a change of one
/// coefficient. Points of weight 0 see nothing, even where the model has no value.
class TKxDifferences {
public:
    using TColumn = std::vector<double>;

    /// RootWeights has an entry for each point. The model is called at no coefficient outside of Limits,
    /// which may be empty for none.
    TKxDifferences(TKxModelValues Model, TColumn RootWeights, std::vector<TKxCoefficientLimits> Limits = {});

    /// Differences improved by Richardson's rule, central ones where the limits leave room, with a step in
    /// proportion to the coefficient as long as that works: good to about 11 digits for four calls of the
    /// model. False when no step gives a derivative.
    bool Find(std::span<const double> Coefficients, std::size_t Index, TColumn& Column);
    /// Plain central differences, good to about 9 digits for two calls; what Find gives where they fail.
    bool Estimate(std::span<const double> Coefficients, std::size_t Index, TColumn& Column);

private:
    /// How much differences of one and two steps disagree, in proportion to Column, the improved derivative.
    double Try(std::size_t Index, double Step, TColumn& Column);
    void Difference(std::size_t Index, double Step, TColumn& Column);
    void OneSided(std::size_t Index, double Step, TColumn& Column);
    /// The model's values with coefficient Index moved; returns by how much.
    double Evaluate(std::size_t Index, double Move, TColumn& Values);
    bool IsWithin(std::size_t Index, double Value) const;

    TKxModelValues FModel;
    TColumn FRootWeights;
    std::vector<TKxCoefficientLimits> FLimits;
    std::vector<double> FCoefficients;
    TColumn FBase, FSecond; // work
};

} // namespace kx
