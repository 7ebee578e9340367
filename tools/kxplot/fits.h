#pragma once
// The fits of a picture: made as children of their series, adjusted to the command line, and asked for what
// became of them.

#include "analysis/Kxcalculatedseries.h"
#include "kxplot/options.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kxplot {

/// One fit of one series.
struct TFit {
    TFitSpec Spec;
    kx::TKxNotCalculatedSeries* Parent = nullptr;
    kx::TKxCalculatedSeries* Line = nullptr; ///< a component of the form: Fit1, Fit2, ...
    std::string Refusal;                     ///< why it is not made at all

    /// Whether there is nothing to show because it was refused or its calculation raised.
    bool HasFailed() const { return !Refusal.empty() || !Line->GetError().empty(); }
    /// Whether the calculation gave a curve. Data that determine none raise nothing.
    bool HasCurve() const { return !HasFailed() && Line->GetPointsCount() > 0; }
    bool IsDrawn() const { return HasCurve() && Line->GetLineStyle().GetVisible(); }
};

/// All fits of the command line, series by series.
class TFits {
public:
    /// Each of the SeriesCount series will get each fit of Options, which must outlive this object.
    TFits(const TOptions& Options, std::size_t SeriesCount);

    /// Makes the fits of the next series.
    void AddTo(kx::TKxNotCalculatedSeries& Series, kx::TComponent* Form);
    /// Gives the fits of a series that come after the First ones kxplot's own look.
    void Dress(std::size_t Series, std::size_t First);
    /// Sets what the command line says of order, offset and range, and the captions. An outfit may have
    /// changed them.
    void Configure();
    /// Takes fits out of the picture whose points have no place on a logarithmic axis.
    void Refuse();

    const std::vector<TFit>& GetItems() const { return FItems; }
    /// The fit that Label means; its key as the fit spells it goes into Label. Raises TUsageError when there
    /// is none, unless the fit that should have the key has failed.
    const TFit& Find(TLabelSpec& Label) const;
    /// One line in plain text for each fit without a curve.
    std::vector<std::string> GetFailures() const;
    /// The caption of Fit, plain.
    static std::string PlainCaption(const TFit& Fit);

private:
    std::string CaptionOf(const TFit& Fit) const;
    void Configure(const TFit& Fit) const;

    const TOptions& FOptions;
    std::size_t FSeriesCount;
    std::vector<TFit> FItems;
};

/// A caption as plain text in one line.
std::string PlainText(const kx::AnsiString& Caption);

} // namespace kxplot
