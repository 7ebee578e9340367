#pragma once
// The block of labels in the picture: results, and the names of fits and curves that have none in a legend.

#include "kxplot/analyses.h"

#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/annotation/Kxresultlabel.h>
#include <kxgraph/graph/Kxgraph2d.h>

#include <vector>

namespace kxplot {

class TLineSample;

/// Labels on the graph that are components of its form: the names (FitName1, CurveName1, ...) and, as --label
/// asks for them, Label1, Label2, ... They are made before properties are set, and filled in and placed
/// afterwards.
class TNotes {
public:
    TNotes(kx::TKx2DGraph& Graph, const kx::TFont& Font, const TAnalyses& Analyses,
           const std::vector<TLabelSpec>& Labels, const kx::TKxLegend& Legend);

    /// Ties the result labels to their analyses. Raises TUsageError for a key that there is not.
    void Bind();
    /// Lines up what there is to show in the freest corner of the settled graph.
    void Place();

private:
    static constexpr int CSampleGap = 8; ///< between sample and name
    struct TResult {
        TLabelSpec Spec;
        kx::TKxResultLabel* Label;
        const TAnalysis* Analysis = nullptr;
    };
    struct TName {
        kx::TKxLabel* Label;
        TLineSample* Sample;
    };
    /// A line of the block; the first one of an analysis may have a sample.
    struct TLine {
        kx::TKxCustomLabel* Label;
        TLineSample* Sample;
    };
    template <class T>
    T* Make(const std::string& Name, const kx::TFont& Font);
    bool HasLegend() const { return FLegend.GetGraph() && FLegend.GetVisible(); }
    bool IsLabelled(const TAnalysis& Analysis) const;
    void UpdateNames();
    void ColourResults();
    std::vector<TLine> GetLines() const;
    void FitInto(kx::TSize Room, const std::vector<TLine>& Lines);
    void ShortenFormulas(int Width);
    void ShortenName(std::size_t Index, int Width);
    int SampleWidth() const;
    int Indent() const { return SampleWidth() > 0 ? SampleWidth() + CSampleGap : 0; }
    kx::TSize SizeOf(const std::vector<TLine>& Lines) const;

    kx::TKx2DGraph& FGraph;
    const TAnalyses& FAnalyses;
    const kx::TKxLegend& FLegend;
    kx::TColor FInk;           ///< of labels that nobody has coloured
    std::vector<TName> FNames; ///< one an analysis
    std::vector<TResult> FResults;
};

} // namespace kxplot
