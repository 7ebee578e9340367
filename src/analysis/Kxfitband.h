#pragma once
// The band about a fit, as a series of its own.

#include <kxgraph/analysis/Kxbands.h>
#include <kxgraph/analysis/Kxcalculatedseries.h>

#include <vector>

namespace kx {

/// The confidence or the prediction band of a fit: an area (AreaStyle) with a line at both edges (LineStyle),
/// drawn beneath all series of the graph. A child of the series that the fit is a child of, behind the fit:
/// children are calculated in their order. Its data are the upper edge. It widens the Y axis by what it spans
/// where the fit took its points from, but no further than half of what the points span (of their decades on
/// a logarithmic axis).
///
/// Where weights are precisions, as they always are for TKxFittedLine, one further point is one of the mean
/// weight of those that took part, else one of weight 1. What a coefficient that is held at a bound would add
/// is left out.
class TKxFitBand : public TKxCalculatedSeries {
public:
    explicit TKxFitBand(TComponent* Owner);
    ~TKxFitBand() override;

    /// The fit, not owned: a TKxLinearRegressionLine, TKxPolynomLine or TKxFittedLine.
    TKxCalculatedSeries* GetFit() const { return FFit; }
    void SetFit(TKxCalculatedSeries* Fit);
    TKxBandKind GetKind() const { return FKind; }
    void SetKind(TKxBandKind Kind) { ChangeSetting(FKind, Kind); }
    /// The probability that the band holds what it is about, between 0 and 1; 0.95 at first.
    double GetLevel() const { return FLevel; }
    void SetLevel(double Level) { ChangeSetting(FLevel, Level); }

    /// NaN without a fit, and where that cannot tell.
    TKxBandValue GetBand(double X) const { return GetBand(X, FLevel); }
    TKxBandValue GetBand(double X, double Level) const;

    static AnsiString CalculationID() { return "Band"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    /// "95 % confidence band"
    AnsiString GetFormula() const override;
    /// The upper edge.
    double GetY(double X) const override { return GetBand(X).High; }
    /// The lower edge at the points of the curve.
    const std::vector<double>& GetLowerEdge() const { return FLow; }
    /// Keys after those of the base: Fit, Kind, Level.
    void CollectResults(TKxResults& Results) const override;

    void DrawBeneath(TCanvas& Canvas) override;
    void Draw(TCanvas&) override {}
    void DrawSample(TCanvas& Canvas, const TRect& Rect) override;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    void Notification(TComponent* Component, TOperation Operation) override;
    /// Raises EMathError "Band: the level must lie between 0 and 1", "Band: there is no fit", "Band: this is
    /// no fit that has a band", "Band: the fit tells no standard errors".
    void CalculateFunction() override;
    void EvaluateAt(const std::vector<double>& X, std::vector<double>& Y) override;
    void GetNewYStartStop() override;

private:
    struct TRun;
    const TKxBandedFit* BandedFit() const;
    TKxInterval WidestExtent();
    std::vector<TRun> Runs() const;

    TKxCalculatedSeries* FFit = nullptr;
    TKxBandKind FKind = bkConfidence;
    double FLevel = 0.95;
    std::vector<double> FLow;
};

} // namespace kx
