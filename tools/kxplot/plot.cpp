#include "kxplot/plot.h"

#include "kxplot/look.h"
#include "kxplot/outfit.h"
#include "kxplot/results.h"

#include <kxgraph/annotation/Kxcaption.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>

namespace kxplot {

using namespace kx;

namespace {

/// The k-th option's column for the k-th series.
std::vector<int> ComponentColumns(const kx::TKxTable& Table, const std::vector<std::string>& Names) {
    std::vector<int> columns;
    for (const auto& name : Names) columns.push_back(Table.FindNumericColumn(name));
    return columns;
}

void CheckComponents(const std::vector<int>& Columns, std::size_t Count, const char* Option) {
    if (Columns.size() != Count)
        throw TUsageError(std::string(Option) + ": " + std::to_string(Columns.size()) +
                          " for a number of series of " + std::to_string(Count));
}

/// One entry a series: the k-th option's column, or -1.
std::vector<int> ErrorColumns(const kx::TKxTable& Table, const std::vector<std::string>& Names,
                              std::size_t Count, const char* Option) {
    if (Names.size() > Count)
        throw TUsageError(std::string(Option) + ": more columns of errors than series (" +
                          std::to_string(Count) + ")");
    std::vector<int> columns(Count, -1);
    for (std::size_t k = 0; k < Names.size(); ++k) columns[k] = Table.FindNumericColumn(Names[k]);
    return columns;
}

} // namespace

TPlot::TPlot(const kx::TKxTable& Table, const TOptions& Options)
    : FForm(std::make_unique<TForm>(&TApplication::Instance())), FTableName(Table.GetName()) {
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
    MakeLegend(Options);
    CaptionAxes(Table, columns, Options);
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

TPlot::TColumns TPlot::ChooseColumns(const kx::TKxTable& Table, const TOptions& Options) const {
    TColumns columns;
    for (const auto& name : Options.Y) columns.Y.push_back(Table.FindNumericColumn(name));
    if (Options.Bins) {
        if (Options.Y.empty()) columns.Y.push_back(Table.FindNumericColumn("1"));
        return columns;
    }
    if (Options.X)
        columns.X = Table.FindNumericColumn(*Options.X);
    else if (Table.GetColumnCount() > 1)
        columns.X = 0;
    columns.VX = ComponentColumns(Table, Options.VX);
    columns.VY = ComponentColumns(Table, Options.VY);
    if (!Options.X && columns.X == 0 && !Table.IsNumeric(0)) Table.FindNumericColumn("1");
    if (Options.Weight) columns.Weight = Table.FindNumericColumn(*Options.Weight);
    if (Options.Y.empty()) {
        const auto isOther = [&](int Column) {
            if (Column == columns.X || Column == columns.Weight) return false;
            for (const auto* list : {&columns.VX, &columns.VY})
                if (std::find(list->begin(), list->end(), Column) != list->end()) return false;
            return true;
        };
        for (int i = 0; i < Table.GetColumnCount(); ++i)
            if (isOther(i) && Table.IsNumeric(i)) columns.Y.push_back(i);
        if (columns.Y.empty())
            throw kx::ETableError(Escaped(Table.GetName()) + ": has no numeric column for a series");
    }
    const std::size_t count = columns.Y.size();
    if (Options.HasArrows()) {
        CheckComponents(columns.VX, count, "--vx");
        CheckComponents(columns.VY, count, "--vy");
    }
    columns.DXPlus = ErrorColumns(Table, Options.DX, count, "--dx");
    columns.DYPlus = ErrorColumns(Table, Options.DY, count, "--dy");
    columns.DXMinus = ErrorColumns(Table, Options.DXMinus, count, "--dx-minus");
    columns.DYMinus = ErrorColumns(Table, Options.DYMinus, count, "--dy-minus");
    return columns;
}

void TPlot::LoadOutfit(const std::string& FileName) {
    TKxIniList ini;
    LoadOutfitFile(*FGraph, FileName, ini);
    // Analyses beyond those of the file have got the look of others, which would not tell them apart.
    for (std::size_t k = 0; k < FSeries.size(); ++k) {
        const int saved = ini.ReadInteger("Graph1.Series(" + std::to_string(k + 1) + ")", "ChildCount", 0);
        if (saved > 0) FAnalyses->Dress(k, std::size_t(saved));
    }
    for (TKxAxis* axis : FGraph->GetAxes()) axis->RedoRanges();
}

std::string TPlot::GetOutfit() {
    for (TKxSeries* line : FLeftOut) line->SetIncludeInLegend(true); // with other data it is drawn
    SettleTree(*FForm);
    TKxIniList ini;
    FGraph->SaveOutfit("Graph1", ini);
    while (ini.GetCount() > 0 && ini.GetLine(0).empty()) ini.Delete(0);
    return ini.GetText();
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
    ConfigureBars(Options);
    ConfigureLegend(Options);
    FNotes = std::make_unique<TNotes>(*FGraph, FXAxis->GetFont(), *FAnalyses, Options.Labels, *FLegend);
    CaptionSideAxes(Options);
    FitCaptions(Options.Outfit.empty()); // the fonts of an outfit stay
    SettleTree(*FForm);                  // the ends follow the data now and no longer when they are set below
    for (const auto& assignment : Options.Assignments) Assign(assignment);
    SettleTree(*FForm);
    FAnalyses->Refuse();
    if (Options.WeightByErrors) FAnalyses->WeighLogarithms();
    SettleTree(*FForm);
    FInterrupted = !FAnalyses->RunFormulas();
    FGraph->Modified(); // curves that are calculated outside of a frame ask for none
    SettleTree(*FForm);
    FNotes->Bind();
    FResults = ResultsText(FSeries); // with the captions as they are, before the legend shortens them
    FFailures = FAnalyses->GetFailures();
    FRemarks = FAnalyses->GetRemarks();
    FinishLegend(Options);
    FNotes->Place();
}

void TPlot::Assign(const TAssignment& Assignment) {
    const auto point = Assignment.Path.find('.');
    const std::string name = Assignment.Path.substr(0, point), property = Assignment.Path.substr(point + 1);
    const auto find = [this](std::string_view Name) { return FForm->FindComponent(Name); };
    TComponent* component = find(name);
    if (!component) throw TUsageError("--set: there is no component '" + Abridged(name) + "'");
    try {
        SetPropertyText(*component, property, Assignment.Value, find);
    } catch (const Exception& error) {
        throw TUsageError("--set " + Abridged(name) + ": " + error.what());
    }
    // An end that is given is meant to stay.
    if (auto* axis = dynamic_cast<TKxAxis*>(component)) {
        if (SameText(property, "Start")) axis->SetStartEnd(AxFixed);
        if (SameText(property, "Stop")) axis->SetStopEnd(AxFixed);
    }
}

} // namespace kxplot
