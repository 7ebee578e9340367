#pragma once
// What the command line asks of kxplot.

#include "kxplot/analysisspec.h"
#include "kxplot/labelspec.h"

#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/platform/drawing/geometry.h>
#include <kxgraph/table/Kxtable.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace kxplot {

/// Wrong options: the message for standard error, without the program's name.
class TUsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

enum class TStyle { Line, Points, Both, Bars, Bars3D, Arrows };

struct TAssignment {
    std::string Path; ///< component and property: "Graph1.MajorGridX.Visible"
    std::string Value;
};

struct TOptions {
    std::string Data;
    kx::TKxHeaderRow Header = kx::TKxHeaderRow::Guess;
    std::optional<std::string> X;
    std::vector<std::string> Y, DX, DY, DXMinus, DYMinus;
    std::vector<std::string> VX, VY; ///< components of arrows
    std::optional<TStyle> Style;
    std::optional<int> Bins; ///< of a histogram
    bool Stack = false, Shift = false, Horizontal = false;
    std::optional<kx::TKxLegendPlacement> Legend;
    bool NoLegend = false;
    std::vector<TAnalysisSpec> Analyses; ///< fits, then curves, the derivative and the integral
    int Iterations = 1000;               ///< of formula fits
    std::optional<int> Repeat = 1;       ///< likewise; nothing: until nothing is gained
    bool Covariance = false;
    std::optional<std::string> Weight; ///< column
    bool WeightByErrors = false;
    std::optional<double> From, To;
    std::string Results; ///< file; "-" is standard output, empty none
    std::vector<TLabelSpec> Labels;
    bool LogX = false, LogY = false;
    std::optional<std::string> Title, XCaption, YCaption;
    kx::TSize Size{900, 600};
    double Scale = 1;
    bool Antialias = false;
    std::vector<TAssignment> Assignments;
    std::string Outfit, SaveOutfit;
    std::vector<std::string> Outputs;

    bool HasBars() const { return Bins || Style == TStyle::Bars || Style == TStyle::Bars3D; }
    bool HasArrows() const { return Style == TStyle::Arrows; }
};

/// Reads the command line. Nothing: help or version were asked for and have been printed. Raises TUsageError.
std::optional<TOptions> ParseOptions(int Count, char** Arguments);

} // namespace kxplot
