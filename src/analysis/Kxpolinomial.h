#pragma once
// A polynomial fitted to the points of a series.

#include <kxgraph/analysis/Kxcalculatedseries.h>
#include <kxgraph/analysis/Kxpolyregr.h>

#include <span>
#include <vector>

namespace kx {

/// Y = a + b X + c X^2 + ... of a given order by least squares, in data units whatever the axes' scaling.
class TKxPolynomLine : public TKxCalculatedSeries, public TKxBandedFit {
public:
    explicit TKxPolynomLine(TComponent* Owner);

    /// The degree, at least 2.
    int GetOrder() const { return FFit.Order; }
    void SetOrder(int Order);
    /// What weights mean for variances; counts at first. See Kxpolyregr.h.
    TKxWeightMeaning GetWeightMeaning() const { return FWeightMeaning; }
    void SetWeightMeaning(TKxWeightMeaning Meaning) { ChangeSetting(FWeightMeaning, Meaning); }
    /// Coefficient of X to the power I, 0 <= I <= Order; 0 before the first fit. Raises ERangeError
    /// "Polynomial: Index of variable out of range".
    double GetCoeff(int I) const;
    /// Of the last calculation.
    const TKxPolynomRegessionResults& GetFit() const { return FFit; }

    static AnsiString CalculationID() { return "Polynomial Regression"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    AnsiString GetFormula() const override;
    double GetY(double X) const override { return EvaluateFit(FFit, X); }
    std::vector<TKxBandValue> GetBands(std::span<const double> X, double Level,
                                       TKxBandKind Kind) const override;
    /// Keys after those of the base: Order, AverageX, VarianceX, AverageY, VarianceY, r2, ChiSquare, QRel%
    /// (100 QRel), CoeffName(i) and Coeff(i) of each coefficient from i = 1; then Points, the number N of
    /// points that took part; AdjR2 = 1 - (1 - r2) (N - 1) / (N - Order - 1); DeltaCoeff(i), the
    /// coefficients' standard errors sqrt(ChiSquare / (N - Order - 1) (inverse of the normal matrix)[i][i]),
    /// so scaled by the reduced chi-square. AdjR2 and DeltaCoeff are written where N > Order + 1. Where
    /// weights are precisions N of all but Points leaves out the points of weight 0.
    void CollectResults(TKxResults& Results) const override;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxPolynomLine>(); }
    void CalculateFunction() override;

private:
    void StoreOrder(int Order);
    void LoadOrder(int Order);

    TKxPolynomRegessionResults FFit;
    TKxWeightMeaning FWeightMeaning = wmCounts;
};

} // namespace kx
