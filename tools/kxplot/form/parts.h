#pragma once
// The components of a picture.

#include "kxplot/plan/plan.h"

#include <kxgraph/analysis/Kxcalculatedseries.h>
#include <kxgraph/analysis/Kxfitband.h>
#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/look/Kxtheme.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/series/Kxbarseries.h>
#include <kxgraph/series/Kxdataseries.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kxplot {

/// A series of bars and what it is bound to: an outfit may name other vectors.
struct TBars {
    kx::TKxBarSeries* Series;
    kx::TKxCustomRealVector* X;
    kx::TKxCustomRealVector* Y;
};

/// One analysis of one series.
struct TAnalysis {
    const TAnalysisPlan* Plan;
    kx::TKxNotCalculatedSeries* Parent;
    kx::TKxCalculatedSeries* Line;
    std::string Refusal; ///< why it is not made at all

    /// Whether there is nothing to show because it was refused or its calculation raised.
    bool HasFailed() const { return !Refusal.empty() || !Line->GetError().empty(); }
    /// Whether the calculation gave a curve. Data that determine none raise nothing.
    bool HasCurve() const { return !HasFailed() && Line->GetPointsCount() > 0; }
    bool IsDrawn() const { return HasCurve() && Line->GetLineStyle().GetVisible(); }
};

/// A band about a fit.
struct TBand {
    kx::TKxFitBand* Line;
    std::size_t Analysis; ///< its place among all
    kx::TKxBandKind Kind;
};

/// The residuals of a fit, in a graph of their own.
struct TResiduals {
    kx::TKxDataSeries* Series;
    kx::TKxLiveVector* X;
    kx::TKxLiveVector* Y;
    std::size_t Analysis; ///< its place among all
};

/// The plan, whose values have gone into the vectors, and the components, which the form owns.
struct TParts {
    TPlan Plan;
    kx::TKxTheme Theme;
    std::unique_ptr<kx::TForm> Form; ///< never shown
    kx::TKx2DGraph* Graph = nullptr;
    kx::TKxAxis* XAxis = nullptr;
    kx::TKxAxis* YAxis = nullptr;
    kx::TKxAxis* Y2Axis = nullptr;              ///< of --y2
    std::map<TQuantity, kx::TKxAxis*> SideAxes; ///< of derivatives and integrals
    std::vector<kx::TKxNotCalculatedSeries*> Series;
    std::vector<kx::TKxNotCalculatedSeries*> Analysed; ///< of each series: itself, or the middles of its bins
    std::vector<kx::TKxSeries*> Functions;
    std::vector<TBars> Bars;
    std::vector<TAnalysis> Analyses;     ///< as the plan has them
    std::vector<TBand> Bands;            ///< series by series
    kx::TCustomControl* Sheet = nullptr; ///< holds both graphs, where there are two
    kx::TKx2DGraph* Graph2 = nullptr;    ///< of residuals
    std::vector<TResiduals> Residuals;   ///< one a fit
    std::vector<kx::TKxLabel*> Texts;    ///< as the plan has them
    kx::TKxLegend* Legend = nullptr;
    std::vector<kx::TKxSeries*> LeftOut; ///< of the legend, because they are not drawn
};

} // namespace kxplot
