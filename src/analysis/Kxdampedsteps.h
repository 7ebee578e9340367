#pragma once
// The single steps of damped least squares (Kxdamped.h): values, derivatives, where a step leads to.

#include <kxgraph/analysis/Kxderivatives.h>
#include <kxgraph/analysis/Kxtriangle.h>

#include <cstddef>
#include <functional>
#include <limits>
#include <span>
#include <vector>

namespace kx {

struct TKxDampedProblem {
    TKxModelValues Model;
    TKxModelDerivatives Derivatives; ///< empty: by differences of the model
    std::vector<double> Y;
    std::vector<double> Weights;              ///< magnitudes count; empty: 1; a point of weight 0 is none
    std::vector<TKxCoefficientLimits> Limits; ///< empty: none
};

/// Coefficients and what is known there. Columns leave out fixed coefficients.
struct TKxDampedPoint {
    std::vector<double> Coefficients, Residuals;
    double Sum = std::numeric_limits<double>::infinity();
    std::vector<double> Lengths; ///< of the columns of derivatives
    TKxMatrixColumns Columns;    ///< each divided by its scale
    TKxMatrixColumns Upper;      ///< their triangle
    std::vector<double> Right;   ///< what the triangle is to take away of the residuals
};

struct TKxDampedStep {
    std::vector<double> Target; ///< coefficients
    double Length = 0;          ///< in units of the scales
    double Promise = 0;         ///< by how much the sum should become smaller
};

class TKxDampedSteps {
public:
    explicit TKxDampedSteps(TKxDampedProblem Problem);

    /// Start, moved into the limits; to be called first.
    std::vector<double> Begin(std::span<const double> Start);
    /// Scales as if no step had been done.
    void ForgetScales() { FScales.assign(FScales.size(), 0.0); }

    /// The sum of squares there, infinity where it is not finite.
    void Place(TKxDampedPoint& Point, const std::vector<double>& Coefficients) const;
    /// A coefficient without a derivative stays where it is.
    void FindDerivatives(TKxDampedPoint& Point, bool Finely);
    /// The step that solves the damped system.
    TKxDampedStep Straight(const TKxDampedPoint& Point, double Damping) const {
        return Straight(Point, Solve(Point, Damping).Step);
    }
    /// The same, bent where it stays within the limits and is not bent too much.
    TKxDampedStep Bent(const TKxDampedPoint& Point, double Damping) const;
    /// Whether Step would be lost in the digits of the coefficients.
    bool IsLost(const TKxDampedPoint& Point, const TKxDampedStep& Step) const;
    /// Whether there is a minimum, given its derivatives.
    bool IsMinimum(const TKxDampedPoint& Point) const;

private:
    using TColumn = std::vector<double>;
    /// A step in units of the scales, and the triangle of the coefficients that it moves.
    struct TSolution {
        TColumn Step; ///< of all that are free
        TKxMatrixColumns Upper;
        std::vector<std::size_t> Moved;
    };

    TSolution Solve(const TKxDampedPoint& Point, double Damping) const;
    TKxDampedStep Straight(const TKxDampedPoint& Point, const TColumn& Step) const;
    double Limited(const TKxDampedPoint& Point, std::size_t J, double Step) const;
    void SetTarget(const TKxDampedPoint& Point, const TColumn& Step, TKxDampedStep& Result) const;
    TColumn Curvature(const TKxDampedPoint& Point, const TColumn& Step) const;
    bool LosesCoefficient(const TKxDampedPoint& Point) const;
    void FillColumns(const TKxDampedPoint& Point, bool Finely, TKxMatrixColumns& Columns);

    TKxDampedProblem FProblem;
    TColumn FRoots; ///< of the weights
    double FSize;   ///< of y
    TKxDifferences FDifferences;
    std::vector<std::size_t> FFree; ///< the coefficients that are not fixed
    TColumn FScales;                ///< of the free ones
};

} // namespace kx
