#pragma once
// Curves through the points of a series by Akima's method.

#include <kxgraph/analysis/Kxakima.h>
#include <kxgraph/analysis/Kxcalculatedseries.h>

#include <memory>

namespace kx {

/// The base of the series that are computed from a piecewise polynomial through or near their parent's
/// points. Owns the polynomial, which its descendants make.
class TKxInterpolatedFunction : public TKxCalculatedSeries {
public:
    /// Minima and maxima of what the series shows, as (x, y); they share the polynomial's arrays.
    virtual TKxRealPosArray GetMinima() const { return FPolynom->Minima; }
    virtual TKxRealPosArray GetMaxima() const { return FPolynom->Maxima; }
    /// Keys after those of the base: X-Minima(k) and Y-Minima(k) of each minimum from k = 1, then X-Maxima(k)
    /// and Y-Maxima(k); for a differential those of the slope, for an integral those of the integral.
    void CollectResults(TKxResults& Results) const override;

protected:
    TKxInterpolatedFunction(TComponent* Owner, std::unique_ptr<TKxIntPolynom> Polynom);
    /// Computes the polynomial from the parent's points in the calculation range, and the extrema and the
    /// curve of what the series shows.
    void CalculateFunction() override;
    virtual void FindExtremaOfCurve() { FPolynom->FindExtrema(); }
    /// Adjusts the polynomial's settings before it is computed.
    virtual void PreparePolynom() {}
    /// Evaluating moves the place where the next search starts, nothing else.
    TKxIntPolynom& Polynom() const { return *FPolynom; }

private:
    std::unique_ptr<TKxIntPolynom> FPolynom;
};

/// Makes the polynomial by Akima's method, after smoothing the data if that is wished.
class TKxAkimaFunction : public TKxInterpolatedFunction {
public:
    explicit TKxAkimaFunction(TComponent* Owner);

    /// Whether the data go through a triangular moving average first.
    bool GetDoSmoothing() const { return FAkima.Smooth; }
    void SetDoSmoothing(bool DoSmoothing) { ChangeSetting(FAkima.Smooth, DoSmoothing); }
    /// Half the width of the average's base in units of x, in decades on a logarithmic X axis. Setting it
    /// switches DoSmoothing on.
    double GetSmoothM() const { return FAkima.SmoothM; }
    void SetSmoothM(double SmoothM);

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    void PreparePolynom() override;

private:
    void LoadSmoothing(bool DoSmoothing) { FAkima.Smooth = DoSmoothing; }
    void LoadSmoothM(double SmoothM) { FAkima.SmoothM = SmoothM; }
    TKxAkimaFunction(TComponent* Owner, std::unique_ptr<TKxAkima> Akima);

    TKxAkima& FAkima; ///< the polynomial
};

/// The interpolated curve with its minima and maxima.
class TKxInterpolatedLine : public TKxAkimaFunction {
public:
    using TKxAkimaFunction::TKxAkimaFunction;

    static AnsiString CalculationID() { return "Interpolation"; }
    AnsiString GetCalculationID() const override { return CalculationID(); }
    AnsiString GetFormula() const override { return CalculationID(); }
    double GetY(double X) const override { return Polynom().Interpolate(X); }

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxInterpolatedLine>(); }
};

} // namespace kx
