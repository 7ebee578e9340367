// The series: of points, of bars and of arrows, and the vectors that they are bound to.

#include "kxplot/bins.h"
#include "kxplot/look.h"
#include "kxplot/plot.h"
#include "kxplot/weights.h"

#include <kxgraph/annotation/Kxcaption.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>

namespace kxplot {

using namespace kx;

namespace {

constexpr int CFewPoints = 50, CManySymbols = 500;

/// Whether there is a fit or a curve among the points.
bool ShowsValues(const TOptions& Options) {
    return std::any_of(Options.Analyses.begin(), Options.Analyses.end(),
                       [](const TAnalysisSpec& Spec) { return Spec.Quantity == TQuantity::Value; });
}

TStyle DefaultStyle(const TOptions& Options, std::size_t Rows) {
    if (ShowsValues(Options)) return TStyle::Points;
    return Rows <= std::size_t(CFewPoints) ? TStyle::Both : TStyle::Line;
}

/// Bars of several series that are beside or upon one another belong together.
double GapOf(const TOptions& Options, std::size_t SeriesCount) {
    constexpr double gap = 10;
    return SeriesCount > 1 && !Options.Bins ? gap : 0;
}

} // namespace

std::vector<int> TPlot::TColumns::All() const {
    std::vector<int> all{X, Weight};
    for (const auto* list : {&Y, &DXPlus, &DYPlus, &DXMinus, &DYMinus, &VX, &VY})
        all.insert(all.end(), list->begin(), list->end());
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    std::erase_if(all, [](int Column) { return Column < 0; });
    return all;
}

const std::vector<double>& TPlot::TValues::Of(int Column) const {
    return Values[std::size_t(std::lower_bound(Columns.begin(), Columns.end(), Column) - Columns.begin())];
}

TKxLiveVector* TPlot::MakeVector(const std::string& Name, const std::vector<double>& Values) {
    auto* vector = new TKxLiveVector(FForm.get());
    vector->SetName(Name);
    vector->AddValues(Values);
    return vector;
}

std::vector<double> TPlot::MakeX(const kx::TKxTable& Table, const TColumns& Columns, const TValues& Values,
                                 const TOptions& Options) const {
    if (Options.Bins) {
        TFiniteRange range;
        for (const int column : Columns.Y) {
            TFiniteRange own;
            own.Include(Values.Of(column));
            if (own.IsEmpty())
                throw kx::ETableError(Escaped(Table.GetName()) + ": column " + Table.ShownName(column) +
                                      " has no finite value");
            range.Include({own.Low, own.High});
        }
        return EqualBins(range, *Options.Bins);
    }
    std::vector<double> x;
    if (Columns.X >= 0)
        x = Values.Of(Columns.X);
    else
        for (std::size_t i = 0; i < Values.Rows(); ++i) x.push_back(double(i + 1));
    return Options.HasBars() ? WithLastEdge(x) : x;
}

// One pass over the table reads every column once; vectors are filled before series listen to them.
void TPlot::MakeSeries(const kx::TKxTable& Table, const TColumns& Columns, const TOptions& Options) {
    const auto wanted = Columns.All();
    const TValues values{wanted, Table.ReadColumns(wanted)};
    FXVector = MakeVector("XData", MakeX(Table, Columns, values, Options));
    auto* weight = Columns.Weight < 0 ? nullptr : MakeVector("Weight", values.Of(Columns.Weight));
    FAnalyses = std::make_unique<TAnalyses>(Options, Columns.Y.size(), FSideAxes);
    for (const int column : Columns.Y) {
        auto* series = MakeOne(Columns, values, Options);
        series->SetName("Series" + std::to_string(FSeries.size() + 1));
        series->SetWeight(Options.WeightByErrors ? MakeErrorWeight(Table, Columns, values) : weight);
        series->SetAutoCaption(EscapeCaption(Table.ColumnName(column)));
        FSeries.push_back(series);
        FColumnNames.push_back(Table.ShownName(column));
        FAnalyses->AddTo(*series, FForm.get());
    }
    ConfigureBars(Options);
}

TKxNotCalculatedSeries* TPlot::MakeOne(const TColumns& Columns, const TValues& Values,
                                       const TOptions& Options) {
    if (Options.HasBars()) return MakeBars(Columns, Values, Options);
    if (Options.HasArrows()) return MakeArrows(Columns, Values);
    return MakePoints(Columns, Values, Options);
}

TKxNotCalculatedSeries* TPlot::MakePoints(const TColumns& Columns, const TValues& Values,
                                          const TOptions& Options) {
    const std::size_t k = FSeries.size();
    const std::string number = std::to_string(k + 1);
    auto* y = MakeVector("YData" + number, Values.Of(Columns.Y[k]));
    const auto errors = [&](const char* Name, int Column) -> TKxLiveVector* {
        return Column < 0 ? nullptr : MakeVector(Name + number, Values.Of(Column));
    };
    auto* dx = errors("dX", Columns.DXPlus[k]);
    auto* dxMinus = errors("dXMinus", Columns.DXMinus[k]);
    auto* dy = errors("dY", Columns.DYPlus[k]);
    auto* dyMinus = errors("dYMinus", Columns.DYMinus[k]);

    auto* series = new TKxDataWithErrorSeries(FForm.get());
    const std::size_t rows = Values.Rows();
    const TStyle style = Options.Style.value_or(DefaultStyle(Options, rows));
    DressSeries(*series, int(k), rows == 1 && style == TStyle::Line ? TStyle::Both : style,
                dx || dxMinus || dy || dyMinus,
                ShowsValues(Options) && !Options.Style && rows > std::size_t(CManySymbols));
    series->SetdXPlus(dx);
    series->SetdXMinus(dxMinus ? dxMinus : dx);
    series->SetdYPlus(dy);
    series->SetdYMinus(dyMinus ? dyMinus : dy);
    series->SetXData(FXVector);
    series->SetYData(y);
    return series;
}

TKxLiveVector* TPlot::MakeErrorWeight(const kx::TKxTable& Table, const TColumns& Columns,
                                      const TValues& Values) {
    const std::size_t k = FSeries.size();
    const std::string name = Table.ColumnName(Columns.Y[k]), number = std::to_string(k + 1);
    const int plus = Columns.DYPlus[k], minus = Columns.DYMinus[k];
    if (plus < 0 && minus < 0)
        throw TUsageError("--weight-by-errors: series " + number + ", " + name + ", has no --dy");
    const auto errors = [&](int Column) {
        return Column < 0 ? std::span<const double>() : std::span<const double>(Values.Of(Column));
    };
    return MakeVector("Weight" + number,
                      WeightsByErrors(Table, {name, FXVector->Values(), Values.Of(Columns.Y[k]), errors(plus),
                                              errors(minus)}));
}

TKxNotCalculatedSeries* TPlot::MakeArrows(const TColumns& Columns, const TValues& Values) {
    const std::size_t k = FSeries.size();
    const auto vector = [&](const char* Name, int Column) {
        return MakeVector(Name + std::to_string(k + 1), Values.Of(Column));
    };
    auto* series = new TKxArrowSeries(FForm.get());
    DressArrows(*series, int(k));
    series->SetDX(vector("VX", Columns.VX[k]));
    series->SetDY(vector("VY", Columns.VY[k]));
    series->SetXData(FXVector);
    series->SetYData(vector("YData", Columns.Y[k]));
    return series;
}

TKxNotCalculatedSeries* TPlot::MakeBars(const TColumns& Columns, const TValues& Values,
                                        const TOptions& Options) {
    const std::size_t k = FSeries.size();
    const auto& column = Values.Of(Columns.Y[k]);
    auto* values = MakeVector("YData" + std::to_string(k + 1),
                              Options.Bins ? CountInBins(FXVector->Values(), column) : column);
    auto* series = new TKxBarSeries(FForm.get());
    DressBars(*series, int(k), Options.Style == TStyle::Bars3D, GapOf(Options, Columns.Y.size()));
    series->SetShiftOverlays(Columns.Y.size() > 1);
    series->SetStackSignsApart(true);
    if (Options.Horizontal)
        FBars.push_back({series, values, FXVector});
    else
        FBars.push_back({series, FXVector, values});
    return series;
}

// An outfit may come from other bars.
void TPlot::ConfigureBars(const TOptions& Options) {
    for (const auto& [series, x, y] : FBars) {
        series->SetBarHorizontal(Options.Horizontal);
        if (series->GetXData() != x) series->SetXData(x);
        if (series->GetYData() != y) series->SetYData(y);
        if (Options.Stack) series->SetStackOverlays(true);
        if (Options.Shift) series->SetShiftOverlays(true);
        if (Options.Style) series->SetShowAs3D(Options.Style == TStyle::Bars3D);
    }
}

} // namespace kxplot
