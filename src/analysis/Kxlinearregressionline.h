#pragma once
// A straight line fitted to the points of a series, in the space that its axes show.

#include <kxgraph/analysis/Kxcalculatedseries.h>
#include <kxgraph/analysis/Kxlinregr.h>

#include <span>
#include <vector>

namespace kx {

/// Y = a + b X by least squares. On a logarithmic axis the decimal logarithms of that coordinate are fitted:
/// lg Y = a + b X, Y = a + b lg X or lg Y = a + b lg X. The line is drawn between two points.
class TKxLinearRegressionLine : public TKxCalculatedSeries, public TKxBandedFit {
public:
    using TKxCalculatedSeries::TKxCalculatedSeries;

    /// Whether the line keeps the given Offset.
    bool GetDoFixedOffset() const { return FDoFixedOffset; }
    void SetDoFixedOffset(bool DoFixed) { ChangeSetting(FDoFixedOffset, DoFixed); }
    /// a: given or found; on a logarithmic Y axis its logarithm.
    double GetOffset() const { return FFit.Offset; }
    /// Switches DoFixedOffset on.
    void SetFixedOffset(double Offset);
    /// What weights mean for variances and standard errors; counts at first.
    TKxWeightMeaning GetWeightMeaning() const { return FWeightMeaning; }
    void SetWeightMeaning(TKxWeightMeaning Meaning) { ChangeSetting(FWeightMeaning, Meaning); }
    /// Whether what the data leave open has a marker (the default): in the results Slope and Offset 1.7E308,
    /// R and R2 1, standard errors 0; and no line for equal y. Without markers the results have no such keys,
    /// and the line through equal y is level.
    bool GetMarkers() const { return FMarkers; }
    void SetMarkers(bool Markers) { ChangeSetting(FMarkers, Markers); }
    /// Of the last calculation; on logarithmic axes of the logarithms.
    const TKxLinearRegessionResults& GetFit() const { return FFit; }

    static AnsiString CalculationID() { return "Linear Regression"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    AnsiString GetFormula() const override;
    /// The line at X; NaN where there is none.
    double GetY(double X) const override;
    /// On a logarithmic Y axis ten to the power of the ends of the logarithm's band.
    std::vector<TKxBandValue> GetBands(std::span<const double> X, double Level,
                                       TKxBandKind Kind) const override;
    /// The two end points stay where they are, unless the axis has outgrown an automatic end.
    void CalculateLine() override;
    /// Keys after those of the base: DoFixedOffset; AverageX, VarianceX, AverageY, VarianceY (on a
    /// logarithmic axis 10 to that power); R, ChiSquare, Offset, DeltaOffset, DeltaOffset% (of |Offset|,
    /// unless that is 0), Slope, DeltaSlope, DeltaSlope%; then Points, the number N of points that took part;
    /// R2 = 1 - ChiSquare / Syy; AdjR2 = 1 - (1 - R2) (N - 1) / (N - p) with p = 2 coefficients, or 1 with a
    /// fixed offset, and without points of weight 0 where weights are precisions. The standard errors
    /// DeltaOffset and DeltaSlope are scaled by the reduced chi-square.
    void CollectResults(TKxResults& Results) const override;
    /// Keys that the results lack because the data leave them open.
    std::vector<AnsiString> KeysWithoutValue() const;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxLinearRegressionLine>(); }
    void CalculateFunction() override;

private:
    void LoadOffset(double Offset) { FFit.Offset = Offset; }
    /// A result; unknown when it is a marker.
    struct TValue {
        const char* Key;
        double Value;
        bool Known;
    };
    std::vector<TValue> Values() const;
    double AdjustedDetermination() const;
    bool HasLine() const;
    void PlaceEnds();
    bool IsLogX() const;
    bool IsLogY() const;
    TKxFitPoints InDecades(TKxFitPoints Points, TKxFitCopies& Copies) const;

    bool FDoFixedOffset = false, FMarkers = true;
    TKxWeightMeaning FWeightMeaning = wmCounts;
    TKxLinearRegessionResults FFit;
};

} // namespace kx
