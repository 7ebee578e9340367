#pragma once
// What a picture will be made of: values that follow from the table and the command line, before there is any
// component.

#include "kxplot/options/options.h"

#include <kxgraph/annotation/Kxcaption.h>
#include <kxgraph/graph/Kxlabelling.h>

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace kxplot {

/// A column of a table, for a form that does not hold its values.
struct TColumnSource {
    std::string File, Column;
};

/// A vector: its component's name and what it holds.
struct TVectorPlan {
    std::string Name;
    std::vector<double> Values;
    std::optional<TColumnSource> Source = std::nullopt;
};

struct TPointsPlan {
    TStyle Style = TStyle::Both;
    bool SmallSymbols = false; ///< for a cloud of points
    std::optional<TVectorPlan> DXPlus, DXMinus, DYPlus, DYMinus;

    bool HasErrors() const { return DXPlus || DXMinus || DYPlus || DYMinus; }
};

struct TBarsPlan {
    bool Boxes = false;
    double GapPercent = 0;
};

/// Arrows and their components.
struct TArrowsPlan {
    TVectorPlan DX, DY;
};

struct TSeriesPlan {
    std::string Name;             ///< of the component
    kx::TKxCaption Caption;       ///< of the column's header
    std::string ShownColumn;      ///< the same for messages
    std::optional<TVectorPlan> X; ///< where it is not that of the plan
    TVectorPlan Y;                ///< values, or the lengths of bars
    std::optional<TVectorPlan> Weight;
    std::variant<TPointsPlan, TBarsPlan, TArrowsPlan> Kind;
    bool OnY2 = false; ///< stands on the second y axis
};

/// How an analysis is told from others. Of several series each lends its colour, and patterns tell its
/// analyses apart.
struct TAnalysisPlace {
    int Number = 0; ///< from 0, among those of the series
    int Series = 0; ///< from 0
    bool SeveralSeries = false;
};

/// One analysis of one series.
struct TAnalysisPlan {
    TAnalysisRequest Request;
    int Number = 1;   ///< among those of its kind
    std::string Name; ///< of the component: its kind and number, Fit1
    std::string Text; ///< what it is, plain
    TAnalysisPlace Place;
};

/// An axis at the right.
struct TSideAxisPlan {
    TQuantity Quantity; ///< that stands on it
    std::string Name;   ///< of the component
    kx::TKxCaption Caption;
    TAnalysisPlace Place; ///< of its only curve, where there is one series
};

/// What the labels of an axis tell.
struct TLabelPlan {
    kx::TKxLabelKind Kind = kx::lkNumbers;
    kx::TKxCategories Categories; ///< with lkCategories
};

struct TAxesPlan {
    kx::TKxCaption X, Y;              ///< captions of the headers
    bool SeriesOnX = false;           ///< which of the two is called like the series
    std::optional<kx::TKxCaption> Y2; ///< caption of the second y axis, where there is one
    TLabelPlan XLabels, YLabels, Y2Labels;
    std::optional<std::string> Zone; ///< of dates
    bool Box = false;
    std::vector<TSideAxisPlan> Side;
};

struct TPlan {
    std::string Table; ///< its name, for messages
    kx::TSize Size;
    TVectorPlan X;                     ///< what all series share: x values, or the edges of bars
    std::optional<TVectorPlan> Weight; ///< likewise, where series have none of their own
    std::vector<TSeriesPlan> Series;
    std::vector<TSeriesPlan> Functions;  ///< lines that nothing is computed from
    std::vector<std::string> LeftOut;    ///< columns without values, for messages
    std::vector<TAnalysisPlan> Analyses; ///< series by series, as many of each
    TAxesPlan Axes;
    bool HasLegend = false;
    bool WeighLogarithms = false; ///< weights are those of y, by its errors

    // As they were asked for.
    TDrawingRequest Drawing;
    TLegendRequest Legend;
    TFitRequest Fitting;
    TBandRequest Bands;
    TMarkRequest Marks;
    std::vector<TLabelRequest> Labels;
    TLookRequest Look;

    bool SeveralSeries() const { return Series.size() > 1; }
};

} // namespace kxplot
