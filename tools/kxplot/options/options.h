#pragma once
// What the command line asks of kxplot, by the step that needs it.

#include "kxplot/options/analysisrequest.h"
#include "kxplot/options/axesrequest.h"
#include "kxplot/options/bandrequest.h"
#include "kxplot/options/databaserequest.h"
#include "kxplot/options/followrequest.h"
#include "kxplot/options/formrequest.h"
#include "kxplot/options/functionsrequest.h"
#include "kxplot/options/labelrequest.h"
#include "kxplot/options/markrequest.h"
#include "kxplot/options/methodrequest.h"
#include "kxplot/options/picturesize.h"
#include "kxplot/options/tablerequest.h"
#include "kxplot/options/windowrequest.h"

#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/platform/text/colors.h>
#include <kxgraph/table/Kxtable.h>

#include <optional>
#include <string>
#include <vector>

namespace kxplot {

/// The table.
struct TDataRequest {
    std::string File;              ///< "-" is standard input
    std::vector<std::string> More; ///< further tables in the same picture
    TDatabaseRequest Database;     ///< instead of files
    kx::TKxHeaderRow Header = kx::TKxHeaderRow::Guess;
    TTableRequest Table;

    /// All tables; none where there is none.
    std::vector<std::string> Files() const {
        std::vector<std::string> files = More;
        if (!File.empty()) files.insert(files.begin(), File);
        return files;
    }
};

/// Which columns are what: header texts, or numbers from 1.
struct TColumnRequest {
    std::optional<std::string> X, Weight;
    std::vector<std::string> Y, DX, DY, DXMinus, DYMinus;
    std::vector<std::string> VX, VY; ///< components of arrows
    bool WeightByErrors = false;
};

enum class TStyle { Line, Points, Both, Bars, Bars3D, Arrows };

/// What series are drawn as.
struct TDrawingRequest {
    std::optional<TStyle> Style;
    std::optional<int> Bins; ///< of a histogram
    bool Stack = false, Shift = false, Horizontal = false;

    bool HasBars() const { return Bins || Style == TStyle::Bars || Style == TStyle::Bars3D; }
    bool HasArrows() const { return Style == TStyle::Arrows; }
};

struct TLegendRequest {
    std::optional<kx::TKxLegendPlacement> Place;
    bool None = false;
};

/// How analyses are done.
struct TFitRequest {
    int Iterations = 1000;         ///< of formula fits
    std::optional<int> Repeat = 1; ///< likewise; nothing: until nothing is gained
    bool Covariance = false;
    TMethodRequest How;     ///< of formula fits
    bool Residuals = false; ///< shows them in a second graph
    std::optional<double> From, To;
};

struct TAssignment {
    std::string Path; ///< component and property: "Graph1.MajorGridX.Visible"
    std::string Value;
};

/// What stands behind everything; nothing where it is to be transparent.
using TGround = std::optional<kx::TColor>;

/// What else the picture is like.
struct TLookRequest {
    bool LogX = false, LogY = false;
    std::optional<std::string> Title, XCaption, YCaption;
    std::string Theme;             ///< name or file; empty: the standard one
    std::optional<TGround> Ground; ///< none asked for: that of the look
    std::vector<TAssignment> Assignments;
    std::string Outfit; ///< file; empty: none
};

/// What is written.
struct TOutputRequest {
    std::vector<std::string> Pictures;
    std::string SaveOutfit; ///< file; empty: none
    std::string Results;    ///< likewise; "-" is standard output, .json another form
    std::string CurveData;  ///< likewise; CSV
    TFormRequest Form;
    TPictureSize Size;
    double Scale = 1;      ///< pixels of a PNG in a logical one
    bool Antialias = true; ///< of PNGs

    bool AreNone() const {
        return Pictures.empty() && SaveOutfit.empty() && Results.empty() && CurveData.empty() &&
               Form.Save.empty();
    }
};

struct TOptions {
    TDataRequest Data;
    TFollowRequest Follow;
    std::vector<std::string> Batch;        ///< patterns of names of tables, each for a picture of its own
    std::optional<std::string> Properties; ///< of which component they are to be listed; empty: of all
    TColumnRequest Columns;
    TAxesRequest Axes;
    TFunctionsRequest Functions;
    TDrawingRequest Drawing;
    TLegendRequest Legend;
    std::vector<TAnalysisRequest> Analyses; ///< fits, then curves, the derivative and the integral
    TFitRequest Fitting;
    TBandRequest Bands;
    TMarkRequest Marks;
    std::vector<TLabelRequest> Labels;
    TLookRequest Look;
    TOutputRequest Outputs;
    TWindowRequest Window;
};

} // namespace kxplot
