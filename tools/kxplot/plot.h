#pragma once
// The form that kxplot draws: one graph, two axes, the vectors and a series a column.

#include "graph/Kxgraph2d.h"
#include "kxplot/analyses.h"
#include "kxplot/notes.h"
#include "kxplot/options.h"
#include "kxplot/table.h"
#include "numeric/Kxvector.h"
#include "platform/form.h"
#include "series/Kxdataseries.h"

#include <memory>
#include <string>
#include <vector>

namespace kxplot {

/// Components with stable names (Form1, Graph1, XAxis, YAxis, Series1, ..., Fit1, ..., Label1, ...), owned by
/// a form that is never shown.
class TPlot {
public:
    /// Reads the columns that Options asks for and builds the picture in kxplot's own look. Raises
    /// TTableError, and TUsageError for more error columns than series. Options must outlive the plot.
    TPlot(const TTable& Table, const TOptions& Options);

    kx::TForm& GetForm() { return *FForm; }
    kx::TKx2DGraph& GetGraph() { return *FGraph; }

    /// The appearance from a file; automatic ends follow the data afterwards. Raises kx::EFileError.
    void LoadOutfit(const std::string& FileName);
    void SaveOutfit(const std::string& FileName);
    /// What was asked for on the command line beside the data. Formula fits run here. Raises TUsageError.
    void Apply(const TOptions& Options);

    /// Whether the user ended a fit before its time.
    bool WasInterrupted() const { return FInterrupted; }
    /// What the analyses found, as text.
    std::string GetResults() const;
    /// A line for each analysis without a curve.
    std::vector<std::string> GetFailures() const { return FAnalyses->GetFailures(); }

private:
    struct TColumns {
        int X = -1;      ///< -1: 1, 2, 3, ...
        int Weight = -1; ///< -1: none
        std::vector<int> Y;
        std::vector<int> DXPlus, DYPlus, DXMinus, DYMinus; ///< a column a series, or -1
    };
    TColumns ChooseColumns(const TTable& Table, const TOptions& Options) const;
    kx::TKxAxis* MakeAxis(const std::string& Name);
    void MakeAxes();
    void MakeSideAxes(const TOptions& Options, bool SeveralSeries);
    kx::TKxLiveVector* MakeVector(const std::string& Name, const std::vector<double>& Values);
    void MakeSeries(const TTable& Table, const TColumns& Columns, const TOptions& Options);
    void CaptionAxes(const TTable& Table, const TColumns& Columns);
    void CaptionSideAxes(const TOptions& Options);
    /// Captions too long for the picture get a smaller font; those of header texts are cut off after that.
    void FitCaptions(bool MayShrink);
    void Assign(const TAssignment& Assignment);

    std::unique_ptr<kx::TForm> FForm;
    kx::TKx2DGraph* FGraph = nullptr;
    kx::TKxAxis* FXAxis = nullptr;
    kx::TKxAxis* FYAxis = nullptr;
    TSideAxes FSideAxes;
    std::vector<kx::TKxDataWithErrorSeries*> FSeries;
    std::unique_ptr<TAnalyses> FAnalyses;
    std::unique_ptr<TNotes> FNotes;
    std::string FXHeader, FYHeader; ///< what the axes are called in the table
    bool FInterrupted = false;
};

} // namespace kxplot
