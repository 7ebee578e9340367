#pragma once
// The fits and curves of a picture: made as children of their series, adjusted to the command line, and asked
// for what became of them.

#include "kxplot/options.h"

#include <kxgraph/analysis/Kxcalculatedseries.h>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace kxplot {

/// One analysis of one series.
struct TAnalysis {
    TAnalysisSpec Spec;
    kx::TKxNotCalculatedSeries* Parent = nullptr;
    kx::TKxCalculatedSeries* Line = nullptr; ///< a component of the form
    int Number = 1;                          ///< among those of its kind: the 1 of Fit1
    std::string Refusal;                     ///< why it is not made at all

    /// Whether there is nothing to show because it was refused or its calculation raised.
    bool HasFailed() const { return !Refusal.empty() || !Line->GetError().empty(); }
    /// Whether the calculation gave a curve. Data that determine none raise nothing.
    bool HasCurve() const { return !HasFailed() && Line->GetPointsCount() > 0; }
    bool IsDrawn() const { return HasCurve() && Line->GetLineStyle().GetVisible(); }
};

/// The axes of derivatives and integrals; other curves stand on those of their series.
using TSideAxes = std::map<TQuantity, kx::TKxAxis*>;

/// All analyses of the command line, series by series. Components are called Fit1, Curve1, Derivative1,
/// Integral1 and so on, each kind counted for itself.
class TAnalyses {
public:
    /// Each of the SeriesCount series will get each analysis of Options. Both references must outlive this
    /// object.
    TAnalyses(const TOptions& Options, std::size_t SeriesCount, const TSideAxes& SideAxes);

    /// Makes the analyses of the next series.
    void AddTo(kx::TKxNotCalculatedSeries& Series, kx::TComponent* Form);
    /// Gives the analyses of a series that come after the First ones kxplot's own look.
    void Dress(std::size_t Series, std::size_t First);
    /// Makes them what the command line says. An outfit may have changed them.
    void Configure();
    /// Takes lines out of the picture whose points have no place on a logarithmic axis.
    void Refuse();
    /// Gives lines that are fitted to logarithms of y the weights of those, given weights by errors of y.
    void WeighLogarithms();
    /// Does the formula fits, on a settled graph, after which nothing may be changed that they depend on.
    /// Returns false after an interruption.
    bool RunFormulas();

    const std::vector<TAnalysis>& GetItems() const { return FItems; }
    /// The analysis that Label means; its keys as they stand in the results go into Label. Raises TUsageError
    /// when there is none, unless the one that should have the key has failed or its data leave it open.
    const TAnalysis& Find(TLabelSpec& Label) const;
    /// One line in plain text for each analysis without a curve.
    std::vector<std::string> GetFailures() const;
    /// One for each fit that has not come to rest.
    std::vector<std::string> GetRemarks() const;

private:
    std::string CaptionOf(const TAnalysis& Analysis) const;
    void Configure(const TAnalysis& Analysis) const;
    kx::TKxAxis* YAxisOf(const TAnalysis& Analysis) const;
    std::string SeriesOf(const TAnalysis& Analysis) const;
    const TAnalysis& FindKey(TLabelSpec& Label) const;
    std::vector<const TAnalysis*> Numbered(const TLabelSpec& Label) const;

    const TOptions& FOptions;
    std::size_t FSeriesCount;
    const TSideAxes& FSideAxes;
    std::vector<TAnalysis> FItems;
};

} // namespace kxplot
