#pragma once
// The block of labels in the picture: results, and the names of fits and curves that have none in a legend.

#include "kxplot/form/parts.h"

#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/annotation/Kxlinesample.h>
#include <kxgraph/annotation/Kxresultlabel.h>

#include <string>
#include <vector>

namespace kxplot {

/// What a label shows.
struct TLabelSource {
    const TAnalysis* Analysis;
    std::string Key, ErrorKey; ///< of its results, as they are spelt there; no error key: without one
};

/// Labels on the graph that are components of its form: the names (FitName1, CurveName1, ...) and, as --label
/// asks for them, Label1, Label2, ... They are made before properties are set, and filled in and placed
/// afterwards.
class TNotes {
public:
    /// Parts must outlive the notes.
    explicit TNotes(const TParts& Parts);

    /// Ties the labels to what they show, in the order in which they were asked for.
    void Bind(const std::vector<TLabelSource>& Sources);
    /// Lines up what there is to show in the freest corner of the settled graph.
    void Place();
    /// Hides them, or shows again what was to be seen before.
    void Show(bool Shown);

private:
    static constexpr int CSampleGap = 8; ///< between sample and name
    struct TResult {
        kx::TKxResultLabel* Label;
        const TAnalysis* Analysis = nullptr;
    };
    struct TName {
        kx::TKxLabel* Label;
        kx::TKxLineSample* Sample;
    };
    /// A line of the block; the first one of an analysis may have a sample.
    struct TLine {
        kx::TKxCustomLabel* Label;
        kx::TKxLineSample* Sample;
    };
    template <class T>
    T* Make(const std::string& Name, const kx::TFont& Font);
    bool IsLabelled(const TAnalysis& Analysis) const;
    void UpdateNames();
    void ColourResults();
    std::vector<TLine> GetLines() const;
    void FitInto(kx::TSize Room, const std::vector<TLine>& Lines);
    void ShortenFormulas(int Width);
    int SampleWidth() const;
    int Indent() const { return SampleWidth() > 0 ? SampleWidth() + CSampleGap : 0; }
    kx::TSize SizeOf(const std::vector<TLine>& Lines) const;

    const TParts& FParts;
    kx::TKx2DGraph& FGraph;
    kx::TColor FInk;           ///< of labels that nobody has coloured
    std::vector<TName> FNames; ///< one an analysis
    std::vector<TResult> FResults;
    std::vector<kx::TControl*> FHidden; ///< by Show
};

} // namespace kxplot
