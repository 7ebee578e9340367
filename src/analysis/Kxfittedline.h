#pragma once
// Any model fitted to the points of a series, by the downhill simplex or by damped least squares.

#include <kxgraph/analysis/Kxbands.h>
#include <kxgraph/analysis/Kxcalculatedseries.h>
#include <kxgraph/analysis/Kxcurvature.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

namespace kx {

class TKxSimplex;

enum TKxFittingMethod {
    fmSimplex,    ///< the downhill simplex (Kxsimplex.h): asks for nothing but values and does all its
                  ///< iterations
    fmDamped,     ///< damped least squares (Kxdamped.h): goes by derivatives and stops at the minimum
    fmDampedFirst ///< the same; where that ends at no minimum, once more from what the simplex finds
};

template <>
inline constexpr auto CEnumNames<TKxFittingMethod> = std::to_array<std::string_view>({"fmSimplex", "fmDamped",
                                                                                      "fmDampedFirst"});

/// The model: y at X for the given coefficients.
using TKxFittingFkt = std::function<double(double X, const TKxRealArray& Coefficients)>;
/// The model at many places: Y[i] at X[i]. For models that are faster in blocks.
using TKxFittingBlockFkt =
    std::function<void(std::span<const double> X, const TKxRealArray& Coefficients, std::span<double> Y)>;
/// Fills Derivatives, which has an element for each coefficient, with the model's derivatives by them at X.
using TKxFittingDerivativesFkt =
    std::function<void(double X, const TKxRealArray& Coefficients, TKxRealArray& Derivatives)>;

/// A curve with Order coefficients, which start from values that the program gives (for the simplex none of
/// them 0: there a coefficient of 0 never moves) and are moved until the sum over the points is smallest: of
/// |w| r^2, or with DoCovariance of |w d r|, r being a point's distance from the model and d its distance
/// from the Akima interpolant of the points (so only points of equal x have any).
///
/// Each calculation starts from the coefficients that the one before has left. So live data keep the fit
/// near, and repeating a calculation opens a simplex that has frozen.
class TKxFittedLine : public TKxCalculatedSeries, public TKxBandedFit {
public:
    using TKxCalculatedSeries::TKxCalculatedSeries;

    bool GetDoCovariance() const { return FDoCovariance; }
    void SetDoCovariance(bool DoCovariance) { ChangeSetting(FDoCovariance, DoCovariance); }
    /// How the smallest sum is looked for; by the simplex at first, and always with DoCovariance, whose sum
    /// is none of squares.
    TKxFittingMethod GetMethod() const { return FMethod; }
    void SetMethod(TKxFittingMethod Method) { ChangeSetting(FMethod, Method); }
    /// The budget: at most Iterations + 1 of the simplex are done, at most Iterations of damped least
    /// squares. 1000 at first.
    int GetIterations() const { return FIterations; }
    void SetIterations(int Iterations) { ChangeSetting(FIterations, Iterations); }
    /// The number of coefficients; those that are gained are 0 and have to be set.
    int GetOrder() const { return FCoefficients.Length(); }
    void SetOrder(int Order);
    const TKxFittingFkt& GetFittingFunction() const { return FFittingFunction; }
    void SetFittingFunction(TKxFittingFkt Function);
    /// Any callable of the same form; it is called without a detour for each point. Copies of it are kept.
    template <class F>
    requires(
        !std::is_same_v<F, TKxFittingFkt> &&
        std::is_invocable_r_v<double, F&, double, const TKxRealArray&>) void SetFittingFunction(F Function) {
        StoreFunction(Function, InBlocks(Function));
    }
    /// Beside FittingFunction, and used in its place by the fit; empty for none.
    void SetFittingBlockFunction(TKxFittingBlockFkt Function);
    /// Beside FittingFunction, and used by damped least squares and for standard errors in place of
    /// differences of the model; empty for none.
    const TKxFittingDerivativesFkt& GetFittingDerivatives() const { return FFittingDerivatives; }
    void SetFittingDerivatives(TKxFittingDerivativesFkt Function);
    /// The formula as text, for results and legends.
    const AnsiString& GetExpression() const { return FExpression; }
    void SetExpression(const AnsiString& Expression);

    /// Raise ERangeError "Fitted Line: Index of coefficient out of range".
    double GetCoefficient(int I) const;
    void SetCoefficient(int I, double Value);
    /// As they were set last, whatever fits have made of them since. These are what form files hold: what a
    /// fit has found is a result.
    const std::vector<double>& GetStartCoefficients() const { return FStart; }
    /// What makes an expression the model of a line that was read from a form file without a function; it
    /// leaves the line as it is where it cannot. The formula library enters itself.
    using TKxFormulaBinder = void (*)(TKxFittedLine& Line);
    static void SetFormulaBinder(TKxFormulaBinder Binder) { FFormulaBinder = Binder; }
    /// What the coefficients are called; may be fewer than there are. They then stand in the results under
    /// their names, too.
    const std::vector<AnsiString>& GetCoefficientNames() const { return FNames; }
    void SetCoefficientNames(const std::vector<AnsiString>& Names) { FNames = Names; }
    /// The coefficients that keep their values, as a list of names, or of numbers from 1: "b, c".
    const AnsiString& GetFixedCoefficients() const { return FFixed; }
    void SetFixedCoefficients(const AnsiString& List) { ChangeSetting(FFixed, List); }
    /// Where others are held, both ends included: "a=0..1, c=..5". A start outside is moved to the nearer
    /// end.
    const AnsiString& GetBounds() const { return FBounds; }
    void SetBounds(const AnsiString& List) { ChangeSetting(FBounds, List); }
    /// Whether it is found out after each fit if it has come to rest: a simplex that has frozen looks like
    /// one that has arrived. The fit is done once more from its coefficients, on a copy: they, the results
    /// and the curve stay. Off at first, for that may take as long as the fit. Damped least squares know it
    /// anyway.
    bool GetCheckConvergence() const { return FCheckConvergence; }
    void SetCheckConvergence(bool Check) { ChangeSetting(FCheckConvergence, Check); }
    /// Of the simplex false when that has made the best sum smaller by more than 1e-8 of itself; nothing
    /// without a check. Of damped least squares whether they have ended at a minimum.
    std::optional<bool> GetConverged() const { return FConverged; }
    /// Whether the iterations of OnIteration are those of the check.
    bool IsChecking() const { return FChecking; }
    /// The best sum of the last fit.
    double GetChiSquare() const { return FChiSquare; }
    /// Standard error of a coefficient (0 of a fixed one), from the curvature of the sum of squares at the
    /// minimum (Kxcurvature.h), scaled by the reduced chi-square; CMaxReal where it cannot be told. Raises as
    /// GetCoefficient does.
    double GetDeltaCoefficient(int I) const;
    /// Of all coefficients, those of the last fit; of nothing after a failure.
    const TKxCovariance& GetCovariance() const { return FCovariance; }
    /// Iterations that the last fit has done.
    int GetIterationsDone() const { return FIterationsDone; }

    /// Ends a running fit, or its check, after its present iteration; the best coefficients so far are the
    /// result, and nothing is known of convergence. For handlers of OnIteration, and safe in a signal
    /// handler.
    void Stop() { FStopped = true; }
    TKxAnyEvent OnIteration; ///< after every iteration

    static AnsiString CalculationID() { return "Nonlinear Regression"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    AnsiString GetFormula() const override { return FExpression; }
    double GetY(double X) const override;
    /// From the covariance of the coefficients and the derivatives of the model at X.
    std::vector<TKxBandValue> GetBands(std::span<const double> X, double Level,
                                       TKxBandKind Kind) const override;
    /// Keys after those of the base: VarianceCoVariance ("Covariance" or "Variance"), ChiSquare, Order,
    /// Iterations, CoeffName(i) and Coeff(i) of each coefficient from i = 1; then Points, the number N of
    /// points that took part; ResidualVariance = sum of |w| r^2 / (N - n), n the number of coefficients that
    /// are not fixed, where N > n, N without points of weight 0; Converged, where it is known; DeltaCoeff(i),
    /// see GetDeltaCoefficient, where it can be told; all again under the coefficients' names, where they
    /// have any that is no other key: a, Delta(a), ...; R2 = 1 - sum of |w| r^2 / Syy, unless y are all equal
    /// or a coefficient has that name; and of damped least squares Covariance(i,k) for i < k, where it can be
    /// told.
    void CollectResults(TKxResults& Results) const override;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxFittedLine>(); }
    /// "Coefficients", those to start from, and "CoefficientNames".
    void DefineProperties(TFiler& Filer) override;
    void Loaded() override;
    void CalculateFunction() override;
    /// Moves the coefficients to the smallest sum. Raises EMathError "Simplex Fit: no order set!", "Simplex
    /// Fit: no iterations set!", "Not enough data!" for fewer points than coefficients, "Reciprocal
    /// indefinite!" when all weights are 0.
    void DoFit();
    /// Whether it is done by damped least squares.
    bool IsDamped() const { return FMethod != fmSimplex && !FDoCovariance; }
    /// Whether the fit that has just been done is at rest. With CheckConvergence does it again.
    virtual std::optional<bool> TestConvergence();
    /// Whether a sum is smaller than the one Before by more than 1e-8 of that.
    static bool IsImproved(double Sum, double Before) { return Before - Sum > CLeastImprovement * Before; }

private:
    static inline TKxFormulaBinder FFormulaBinder = nullptr;
    void ReadCoefficients(TReader& Reader);
    void WriteCoefficients(TWriter& Writer) const;
    void ReadNames(TReader& Reader);
    void WriteNames(TWriter& Writer) const;
    std::vector<double> KeptCoefficients() const;
    void LoadCoefficients(const std::vector<double>& Values);
    static constexpr double CLeastImprovement = 1e-8;
    template <class F>
    static TKxFittingBlockFkt InBlocks(F Function) {
        return [Function](std::span<const double> X, const TKxRealArray& Coefficients,
                          std::span<double> Y) mutable {
            for (std::size_t i = 0; i < X.size(); ++i) Y[i] = Function(X[i], Coefficients);
        };
    }
    void StoreFunction(TKxFittingFkt Function, TKxFittingBlockFkt Blocks);
    void FindLimits();
    int FreeCount() const;
    TKxRealArray Spread(std::span<const double> Free) const;
    bool Follow(const TKxRealArray& Best, double Value);
    void RunSimplex(const std::function<bool(const TKxSimplex&)>& Progress) const;
    void DoSimplex();
    void DoDamped();
    void DoDampedAgain(const TKxRealArray& Start);
    TKxModelValues ModelAt(std::span<const double> X) const;
    TKxModelDerivatives DerivativesAt(std::span<const double> X) const;
    double DeviationOfPoint() const;
    std::vector<std::vector<double>> ColumnsAt(std::span<const double> X, const std::vector<double>& Y) const;
    void CollectPoints();
    void FindDeviations();
    void EvaluateModel(std::span<const double> X, const TKxRealArray& Coefficients,
                       std::span<double> Y) const;
    template <class F>
    double SumOverPoints(const TKxRealArray& Coefficients, F Term) const;
    double Goodness(const TKxRealArray& Coefficients) const;
    double WeightOf(std::size_t Point) const { return FTaken.W.empty() ? 1 : FTaken.W[Point]; }
    double SumOfDeviations() const;
    int Freedom() const;
    void FindStatistics();
    void AddNamed(TKxResults& Results) const;
    void AddCovariances(TKxResults& Results) const;
    void CheckIndex(int I) const;

    TKxFittingMethod FMethod = fmSimplex;
    bool FDoCovariance = false, FCheckConvergence = false, FChecking = false, FAtMinimum = false;
    std::optional<bool> FConverged;
    int FIterations = 1000, FIterationsDone = 0;
    TKxFittingFkt FFittingFunction;
    TKxFittingBlockFkt FFunctionInBlocks; ///< the same
    TKxFittingBlockFkt FFittingBlockFunction;
    TKxFittingDerivativesFkt FFittingDerivatives;
    AnsiString FExpression, FFixed, FBounds;
    std::vector<AnsiString> FNames;
    TKxRealArray FCoefficients;
    std::vector<double> FStart;
    std::vector<TKxCoefficientLimits> FLimits; // of the fit, one a coefficient
    TKxCovariance FCovariance;
    double FChiSquare = 0, FSumOfSquares = 0, FDetermination = NAN;
    TKxFitCopies FTaken;             // by the fit; weights without sign
    std::vector<double> FDeviations; // of these points, where they weigh
    volatile bool FStopped = false;
};

} // namespace kx
