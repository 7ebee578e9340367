#include "kxplot/plot.h"

#include "annotation/Kxcaption.h"
#include "kxplot/look.h"
#include "kxplot/results.h"
#include "platform/application.h"
#include "platform/files.h"
#include "platform/frame.h"
#include "platform/text.h"

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

/// One entry a series: the k-th option's column, or -1.
std::vector<int> ErrorColumns(const TTable& Table, const std::vector<std::string>& Names, std::size_t Count,
                              const char* Option) {
    if (Names.size() > Count)
        throw TUsageError(std::string(Option) + ": more columns of errors than series (" +
                          std::to_string(Count) + ")");
    std::vector<int> columns(Count, -1);
    for (std::size_t k = 0; k < Names.size(); ++k) columns[k] = Table.FindNumericColumn(Names[k]);
    return columns;
}

} // namespace

TPlot::TPlot(const TTable& Table, const TOptions& Options)
    : FForm(std::make_unique<TForm>(&TApplication::Instance())) {
    FForm->SetName("Form1");
    FForm->SetBounds(0, 0, Options.Size.Width, Options.Size.Height);
    const TColumns columns = ChooseColumns(Table, Options);
    FGraph = new TKx2DGraph(FForm.get()); // the form owns its components
    FGraph->SetName("Graph1");
    FGraph->SetParent(FForm.get());
    FGraph->SetBounds(0, 0, Options.Size.Width, Options.Size.Height);
    DressGraph(*FGraph);
    MakeAxes();
    MakeSideAxes(Options, columns.Y.size() > 1);
    MakeSeries(Table, columns, Options);
    CaptionAxes(Table, columns);
}

TKxAxis* TPlot::MakeAxis(const std::string& Name) {
    auto* axis = new TKxAxis(FForm.get());
    axis->SetName(Name);
    axis->SetParent(FGraph);
    DressAxis(*axis);
    return axis;
}

void TPlot::MakeAxes() {
    FGraph->SetPrimaryXAxis(FXAxis = MakeAxis("XAxis"));
    FGraph->SetPrimaryYAxis(FYAxis = MakeAxis("YAxis"));
}

// The series would find or make an axis by themselves, but derivative and integral the same one.
void TPlot::MakeSideAxes(const TOptions& Options, bool SeveralSeries) {
    for (std::size_t k = 0; k < Options.Analyses.size(); ++k) {
        const TQuantity quantity = Options.Analyses[k].Quantity;
        if (quantity == TQuantity::Value) continue;
        auto* axis = MakeAxis("SecondaryAxis" + std::to_string(FSideAxes.size() + 1));
        axis->SetPosition(AxRightPos);
        if (!SeveralSeries) DressSideAxis(*axis, AnalysisColor({int(k), 0, false}));
        FSideAxes[quantity] = axis;
    }
}

TPlot::TColumns TPlot::ChooseColumns(const TTable& Table, const TOptions& Options) const {
    TColumns columns;
    if (Options.X)
        columns.X = Table.FindNumericColumn(*Options.X);
    else if (Table.GetColumnCount() > 1)
        columns.X = 0;
    for (const auto& name : Options.Y) columns.Y.push_back(Table.FindNumericColumn(name));
    if (!Options.X && columns.X == 0 && !Table.IsNumeric(0)) Table.FindNumericColumn("1");
    if (Options.Weight) columns.Weight = Table.FindNumericColumn(*Options.Weight);
    if (Options.Y.empty()) {
        for (int i = 0; i < Table.GetColumnCount(); ++i)
            if (i != columns.X && i != columns.Weight && Table.IsNumeric(i)) columns.Y.push_back(i);
        if (columns.Y.empty())
            throw TTableError(Escaped(Table.GetName()) + ": has no numeric column for a series");
    }
    const std::size_t count = columns.Y.size();
    columns.DXPlus = ErrorColumns(Table, Options.DX, count, "--dx");
    columns.DYPlus = ErrorColumns(Table, Options.DY, count, "--dy");
    columns.DXMinus = ErrorColumns(Table, Options.DXMinus, count, "--dx-minus");
    columns.DYMinus = ErrorColumns(Table, Options.DYMinus, count, "--dy-minus");
    return columns;
}

TKxLiveVector* TPlot::MakeVector(const std::string& Name, const std::vector<double>& Values) {
    auto* vector = new TKxLiveVector(FForm.get());
    vector->SetName(Name);
    vector->AddValues(Values);
    return vector;
}

void TPlot::MakeSeries(const TTable& Table, const TColumns& Columns, const TOptions& Options) {
    // One pass over the table reads every column once; vectors are filled before series listen to them.
    std::vector<int> wanted;
    const auto want = [&wanted](int Column) {
        if (Column >= 0 && std::find(wanted.begin(), wanted.end(), Column) == wanted.end())
            wanted.push_back(Column);
    };
    want(Columns.X);
    want(Columns.Weight);
    for (const auto* list :
         {&Columns.Y, &Columns.DXPlus, &Columns.DYPlus, &Columns.DXMinus, &Columns.DYMinus})
        for (const int column : *list) want(column);
    const auto values = Table.ReadColumns(wanted);
    const auto valuesOf = [&](int Column) -> const std::vector<double>& {
        return values[std::size_t(std::find(wanted.begin(), wanted.end(), Column) - wanted.begin())];
    };
    const auto rows = values.front().size();

    std::vector<double> numbers;
    if (Columns.X < 0)
        for (std::size_t i = 0; i < rows; ++i) numbers.push_back(double(i + 1));
    auto* x = MakeVector("XData", Columns.X < 0 ? numbers : valuesOf(Columns.X));
    auto* weight = Columns.Weight < 0 ? nullptr : MakeVector("Weight", valuesOf(Columns.Weight));

    FAnalyses = std::make_unique<TAnalyses>(Options, Columns.Y.size(), FSideAxes);
    for (std::size_t k = 0; k < Columns.Y.size(); ++k) {
        const std::string number = std::to_string(k + 1);
        auto* y = MakeVector("YData" + number, valuesOf(Columns.Y[k]));
        const auto errors = [&](const char* Name, int Column) -> TKxLiveVector* {
            return Column < 0 ? nullptr : MakeVector(Name + number, valuesOf(Column));
        };
        auto* dx = errors("dX", Columns.DXPlus[k]);
        auto* dxMinus = errors("dXMinus", Columns.DXMinus[k]);
        auto* dy = errors("dY", Columns.DYPlus[k]);
        auto* dyMinus = errors("dYMinus", Columns.DYMinus[k]);

        auto* series = new TKxDataWithErrorSeries(FForm.get());
        series->SetName("Series" + number);
        const TStyle style = Options.Style.value_or(DefaultStyle(Options, rows));
        DressSeries(*series, int(k), rows == 1 && style == TStyle::Line ? TStyle::Both : style,
                    dx || dxMinus || dy || dyMinus,
                    ShowsValues(Options) && !Options.Style && rows > std::size_t(CManySymbols));
        series->SetdXPlus(dx);
        series->SetdXMinus(dxMinus ? dxMinus : dx);
        series->SetdYPlus(dy);
        series->SetdYMinus(dyMinus ? dyMinus : dy);
        series->SetXData(x);
        series->SetYData(y);
        series->SetWeight(weight);
        series->SetAutoCaption(EscapeCaption(Table.ColumnName(Columns.Y[k])));
        FSeries.push_back(series);
        FAnalyses->AddTo(*series, FForm.get());
    }
}

void TPlot::LoadOutfit(const std::string& FileName) {
    if (!FileExists(FileName)) ReadFile(FileName); // raises with the reason
    TKxIniList ini;
    ini.LoadFromFile(FileName);
    FGraph->LoadOutfit("Graph1", ini);
    // Analyses beyond those of the file have got the look of others, which would not tell them apart.
    for (std::size_t k = 0; k < FSeries.size(); ++k) {
        const int saved = ini.ReadInteger("Graph1.Series(" + std::to_string(k + 1) + ")", "ChildCount", 0);
        if (saved > 0) FAnalyses->Dress(k, std::size_t(saved));
    }
    for (TKxAxis* axis : FGraph->GetAxes()) axis->RedoRanges();
}

void TPlot::SaveOutfit(const std::string& FileName) {
    SettleTree(*FForm);
    TKxIniList ini;
    FGraph->SaveOutfit("Graph1", ini);
    while (ini.GetCount() > 0 && ini.GetLine(0).empty()) ini.Delete(0);
    ini.SaveToFile(FileName);
}

void TPlot::Apply(const TOptions& Options) {
    if (Options.LogX) FXAxis->SetScaling(AxLogEE);
    if (Options.LogY) FYAxis->SetScaling(AxLogEE);
    if (Options.Title) {
        FGraph->SetCaption(*Options.Title);
        FGraph->SetShowTitle(true);
    }
    const auto caption = [](TKxAxis& Axis, const std::optional<std::string>& Text) {
        if (!Text) return;
        Axis.SetUserCaption(*Text);
        Axis.SetDoUserCaption(true);
        Axis.SetCaption(*Text);
    };
    caption(*FXAxis, Options.XCaption);
    caption(*FYAxis, Options.YCaption);
    FAnalyses->Configure();
    FNotes = std::make_unique<TNotes>(*FGraph, FXAxis->GetFont(), *FAnalyses, Options.Labels);
    CaptionSideAxes(Options);
    FitCaptions(Options.Outfit.empty()); // the fonts of an outfit stay
    SettleTree(*FForm);                  // the ends follow the data now and no longer when they are set below
    for (const auto& assignment : Options.Assignments) Assign(assignment);
    SettleTree(*FForm);
    FAnalyses->Refuse();
    SettleTree(*FForm);
    FInterrupted = !FAnalyses->RunFormulas();
    FGraph->Modified(); // curves that are calculated outside of a frame ask for none
    SettleTree(*FForm);
    FNotes->Bind();
    FNotes->Place();
}

std::string TPlot::GetResults() const { return ResultsText(FSeries); }

void TPlot::Assign(const TAssignment& Assignment) {
    const auto point = Assignment.Path.find('.');
    const std::string name = Assignment.Path.substr(0, point), property = Assignment.Path.substr(point + 1);
    const auto find = [this](std::string_view Name) { return FForm->FindComponent(Name); };
    TComponent* component = find(name);
    if (!component) throw TUsageError("--set: there is no component '" + Escaped(name) + "'");
    try {
        SetPropertyText(*component, property, Assignment.Value, find);
    } catch (const EPropertyError& error) {
        throw TUsageError("--set " + Escaped(name) + ": " + error.what());
    }
    // An end that is given is meant to stay.
    if (auto* axis = dynamic_cast<TKxAxis*>(component)) {
        if (SameText(property, "Start")) axis->SetStartEnd(AxFixed);
        if (SameText(property, "Stop")) axis->SetStopEnd(AxFixed);
    }
}

} // namespace kxplot
