#pragma once
// The form that kxplot draws: one graph, two axes, the vectors and a series a column.

#include "kxplot/analyses.h"
#include "kxplot/notes.h"
#include "kxplot/options.h"

#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/series/Kxarrowseries.h>
#include <kxgraph/series/Kxbarseries.h>
#include <kxgraph/series/Kxdataseries.h>
#include <kxgraph/table/Kxtable.h>

#include <memory>
#include <string>
#include <vector>

namespace kxplot {

/// Components with stable names (Form1, Graph1, XAxis, YAxis, Series1, ..., Fit1, ..., Legend1, Label1, ...),
/// owned by a form that is never shown.
class TPlot {
public:
    /// Reads the columns that Options asks for and builds the picture in kxplot's own look. Raises
    /// kx::ETableError, and TUsageError for more error columns than series or arrows without components.
    /// Options must outlive the plot.
    TPlot(const kx::TKxTable& Table, const TOptions& Options);

    kx::TForm& GetForm() { return *FForm; }
    kx::TKx2DGraph& GetGraph() { return *FGraph; }

    /// The appearance from a file; automatic ends follow the data afterwards. Raises kx::EFileError.
    void LoadOutfit(const std::string& FileName);
    /// The appearance as the text of such a file.
    std::string GetOutfit();
    /// What was asked for on the command line beside the data. Formula fits run here. Raises TUsageError.
    void Apply(const TOptions& Options);

    /// Whether the user ended a fit before its time.
    bool WasInterrupted() const { return FInterrupted; }
    /// What the analyses found, as text.
    const std::string& GetResults() const { return FResults; }
    /// A line for each analysis without a curve.
    const std::vector<std::string>& GetFailures() const { return FFailures; }
    /// A line for each fit whose result is not the best there is.
    const std::vector<std::string>& GetRemarks() const { return FRemarks; }
    /// What users should know about a picture that was drawn all the same, a line each.
    std::vector<std::string> GetNotices() const;

private:
    struct TColumns {
        int X = -1;      ///< -1: 1, 2, 3, ...
        int Weight = -1; ///< -1: none
        std::vector<int> Y;
        std::vector<int> DXPlus, DYPlus, DXMinus, DYMinus; ///< a column a series, or -1
        std::vector<int> VX, VY;                           ///< a column a series of arrows
        std::vector<int> All() const;                      ///< each once, ascending
    };
    /// What is read of the table.
    struct TValues {
        std::vector<int> Columns; ///< ascending
        std::vector<std::vector<double>> Values;
        std::size_t Rows() const { return Values.front().size(); }
        const std::vector<double>& Of(int Column) const;
    };
    /// A series of bars and what it is bound to: an outfit may name other vectors.
    struct TBars {
        kx::TKxBarSeries* Series;
        kx::TKxCustomRealVector* X;
        kx::TKxCustomRealVector* Y;
    };
    TColumns ChooseColumns(const kx::TKxTable& Table, const TOptions& Options) const;
    kx::TKxAxis* MakeAxis(const std::string& Name);
    void MakeAxes();
    void MakeSideAxes(const TOptions& Options, bool SeveralSeries);
    kx::TKxLiveVector* MakeVector(const std::string& Name, const std::vector<double>& Values);
    void MakeSeries(const kx::TKxTable& Table, const TColumns& Columns, const TOptions& Options);
    /// What all series share: x values, or the edges of bars.
    std::vector<double> MakeX(const kx::TKxTable& Table, const TColumns& Columns, const TValues& Values,
                              const TOptions& Options) const;
    kx::TKxNotCalculatedSeries* MakeOne(const TColumns& Columns, const TValues& Values,
                                        const TOptions& Options);
    kx::TKxNotCalculatedSeries* MakePoints(const TColumns& Columns, const TValues& Values,
                                           const TOptions& Options);
    /// The weights of the next series; null for none.
    kx::TKxLiveVector* MakeErrorWeight(const kx::TKxTable& Table, const TColumns& Columns,
                                       const TValues& Values);
    kx::TKxNotCalculatedSeries* MakeArrows(const TColumns& Columns, const TValues& Values);
    kx::TKxNotCalculatedSeries* MakeBars(const TColumns& Columns, const TValues& Values,
                                         const TOptions& Options);
    void ConfigureBars(const TOptions& Options);
    void CaptionAxes(const kx::TKxTable& Table, const TColumns& Columns, const TOptions& Options);
    void CaptionSideAxes(const TOptions& Options);
    /// Captions too long for the picture get a smaller font; those of header texts are cut off after that.
    void FitCaptions(bool MayShrink);
    void Assign(const TAssignment& Assignment);
    void MakeLegend(const TOptions& Options);
    void ConfigureLegend(const TOptions& Options);
    bool HasLegend() const { return FLegend->GetGraph() && FLegend->GetVisible(); }
    /// Entries are of what is drawn, and as long as there is room for.
    void FinishLegend(const TOptions& Options);
    /// Cuts captions off whose entries would end beyond Width pixels.
    void ShortenEntries(int Width, bool FormulasAlone);
    /// How far entries reach beyond the legend's edges.
    kx::TSize LegendOverflow() const;

    std::unique_ptr<kx::TForm> FForm;
    kx::TKx2DGraph* FGraph = nullptr;
    kx::TKxAxis* FXAxis = nullptr;
    kx::TKxAxis* FYAxis = nullptr;
    TSideAxes FSideAxes;
    std::vector<kx::TKxNotCalculatedSeries*> FSeries;
    kx::TKxLiveVector* FXVector = nullptr;
    std::vector<TBars> FBars;
    kx::TKxLegend* FLegend = nullptr;
    std::vector<kx::TKxSeries*> FLeftOut; ///< of the legend, because they are not drawn
    std::unique_ptr<TAnalyses> FAnalyses;
    std::unique_ptr<TNotes> FNotes;
    std::string FTableName;
    std::vector<std::string> FColumnNames; ///< of the series, for messages
    std::string FXHeader, FYHeader;        ///< what the axes are called in the table
    kx::TKxAxis* FSeriesAxis = nullptr;    ///< the one that is called like the series
    std::string FResults;
    std::vector<std::string> FFailures, FRemarks;
    bool FInterrupted = false;
};

} // namespace kxplot
