#include <kxgraph/design/Kxdesignimport.h>

#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/design/Kxdesigncommands.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/look/Kxlook.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/streaming/formfile.h>
#include <kxgraph/platform/streaming/formvalues.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/series/Kxdataseries.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>

namespace kx {

namespace {

/// Letters and digits alone, in upper case.
std::string Bare(const std::string& Header) {
    std::string bare;
    for (const char c : UpperCase(Header))
        if (std::isalnum(static_cast<unsigned char>(c)) || static_cast<unsigned char>(c) > 127) bare += c;
    return bare;
}

bool IsErrorOf(const std::string& Header, const std::string& Of) {
    static constexpr std::array<std::string_view, 8> words{"ERROR", "ERR",         "SD",       "SIGMA",
                                                           "STD",   "UNCERTAINTY", "\xC2\xB1", "\xCE\x94"};
    const std::string bare = Bare(Header), of = Bare(Of);
    if (bare.empty() || of.empty()) return false;
    if (bare == "D" + of) return true;
    return std::ranges::any_of(words, [&](std::string_view Word) {
        const std::string word(Word);
        return bare == word || bare == word + of || bare == of + word;
    });
}

bool HasValues(const TKxTable& Table, int Column) { return Table.IsNumeric(Column) || Table.IsDate(Column); }

} // namespace

TKxImportPlan PlanImport(const TKxTable& Table) {
    TKxImportPlan plan;
    std::vector<int> columns;
    for (int column = 0; column < Table.GetColumnCount(); ++column)
        if (HasValues(Table, column)) columns.push_back(column);
    if (columns.empty()) throw ETableError(Table.GetName() + ": no column of numbers or dates");
    if (columns.size() > 1) plan.X = columns[0];
    for (std::size_t i = columns.size() > 1; i < columns.size(); ++i) {
        const int column = columns[i];
        const bool isError = !plan.Series.empty() && plan.Series.back().Error < 0 &&
                             IsErrorOf(Table.GetHeader(column), Table.GetHeader(plan.Series.back().Y));
        if (isError)
            plan.Series.back().Error = column;
        else
            plan.Series.push_back({column, -1});
    }
    return plan;
}

namespace {

constexpr int CManyPoints = 300; // more are drawn as a line

class TImport {
public:
    TImport(TKxDesignDocument& Document, const std::string& FileName, const TKxTable& Table)
        : FDocument(Document), FForm(Document.GetForm()), FTable(Table), FPlan(PlanImport(Table)),
          FFileName(FileName) {}

    void Run(TKx2DGraph* Graph) {
        const bool isNew = !Graph;
        FGraph = isNew ? NewGraph() : Graph;
        FNumber = FGraph->GetSeriesList().GetCount();
        TKxCustomRealVector* x = FPlan.X < 0 ? Counted() : VectorOf(FPlan.X);
        for (const TKxImportPlan::TSeries& series : FPlan.Series) AddSeries(*x, series);
        if (isNew) CaptionAxes();
        ShowLegend();
    }
    const std::vector<std::string>& GetMade() const { return FMade; }

private:
    TKx2DGraph* NewGraph() {
        const int margin = 8;
        auto* graph = dynamic_cast<TKx2DGraph*>(CreateComponent(
            FDocument, "TKx2DGraph",
            {&FForm, {margin, margin}, {FForm.GetWidth() - 2 * margin, FForm.GetHeight() - 2 * margin}}));
        Dress(*graph);
        return graph;
    }

    /// The words of a header as a name, or the class of what is named.
    std::string NameFor(int Column, const std::string& Otherwise) const {
        std::string name;
        bool begins = true;
        for (const char c : FTable.GetHeader(Column)) {
            const auto byte = static_cast<unsigned char>(c);
            const bool letter = byte < 128 && std::isalnum(byte);
            if (letter && !(name.empty() && std::isdigit(byte)))
                name += begins ? char(std::toupper(byte)) : c;
            begins = !letter;
        }
        if (name.empty()) name = Otherwise;
        return FDocument.Find(name) ? FDocument.UniqueName(name) : name;
    }

    std::string TableName() const {
        namespace fs = std::filesystem;
        const fs::path file = fs::absolute(FFileName).lexically_normal();
        if (FDocument.GetFileName().empty()) return file.string();
        const fs::path home = fs::absolute(FDocument.GetFileName()).lexically_normal().parent_path();
        const std::string relative = file.lexically_relative(home).string();
        return relative.empty() || relative.starts_with("..") ? file.string() : relative;
    }

    /// A header names its column for good; where it is another one's too, the number does.
    std::string ColumnName(int Column) const {
        const std::string header = FTable.GetHeader(Column);
        for (int other = 0; other < FTable.GetColumnCount(); ++other)
            if (other != Column && FTable.GetHeader(other) == header) return std::to_string(Column + 1);
        return header.empty() ? std::to_string(Column + 1) : header;
    }

    TKxCustomRealVector* VectorOf(int Column) {
        const std::string name = NameFor(Column, "Column" + std::to_string(Column + 1));
        std::string text = "object " + name + ": TKxFileVector\n";
        text.append("FileName = ").append(QuotedForm(TableName())) += '\n';
        text.append("Column = ").append(QuotedForm(ColumnName(Column))).append("\nend\n");
        return dynamic_cast<TKxCustomRealVector*>(UpdateForm(FForm, text, FDocument.GetFileName()).at(0));
    }

    TKxCustomRealVector* Counted() {
        auto* rows = new TKxLiveVector(&FForm);
        rows->SetName(FDocument.UniqueName("Rows1"));
        rows->SetPersistentValues(true);
        const auto count = FTable.ReadColumns({FPlan.Series[0].Y})[0].size();
        for (std::size_t i = 1; i <= count; ++i) rows->Add(double(i));
        return rows;
    }

    void AddSeries(TKxCustomRealVector& X, const TKxImportPlan::TSeries& Plan) {
        TKxCustomRealVector* y = VectorOf(Plan.Y);
        TKxCustomRealVector* error = Plan.Error < 0 ? nullptr : VectorOf(Plan.Error);
        FDocument.Select(FGraph);
        const char* type = error ? "TKxDataWithErrorSeries" : "TKxDataSeries";
        auto& series = dynamic_cast<TKxDataSeries&>(*CreateComponent(FDocument, type));
        series.SetXData(&X);
        series.SetYData(y);
        series.SetXAxis(FGraph->GetPrimaryXAxis());
        series.SetYAxis(FGraph->GetPrimaryYAxis());
        if (auto* with = dynamic_cast<TKxDataWithErrorSeries*>(&series)) {
            with->SetdYPlus(error);
            with->SetdYMinus(error);
        }
        series.SetCaption(CaptionOf(Plan.Y));
        DressPoints(series, FNumber++, TKxTheme());
        const bool isLine = y->GetCount() > CManyPoints;
        series.GetPointStyle().SetVisible(!isLine);
        series.GetLineStyle().SetVisible(isLine);
        FMade.push_back(series.GetName());
    }

    TKxCaption CaptionOf(int Column) const {
        const std::string unit = FTable.GetUnit(Column), header = FTable.GetHeader(Column);
        return EscapeCaption(unit.empty() ? header : header + " / " + unit);
    }

    void CaptionAxes() {
        if (FPlan.X >= 0) {
            FGraph->GetPrimaryXAxis()->SetCaption(CaptionOf(FPlan.X));
            if (FTable.IsDate(FPlan.X)) FGraph->GetPrimaryXAxis()->SetLabelKind(lkDates);
        }
        if (FPlan.Series.size() == 1) FGraph->GetPrimaryYAxis()->SetCaption(CaptionOf(FPlan.Series[0].Y));
        if (std::ranges::all_of(FPlan.Series, [&](const auto& One) { return FTable.IsDate(One.Y); }))
            FGraph->GetPrimaryYAxis()->SetLabelKind(lkDates);
    }

    void ShowLegend() {
        if (FGraph->GetSeriesList().GetCount() < 2) return;
        for (const TComponent* component : FForm.GetComponents())
            if (const auto* legend = dynamic_cast<const TKxLegend*>(component);
                legend && legend->GetGraph() == FGraph)
                return;
        FDocument.Select(FGraph);
        CreateComponent(FDocument, "TKxLegend", {FGraph});
    }

    TKxDesignDocument& FDocument;
    TForm& FForm;
    const TKxTable& FTable;
    const TKxImportPlan FPlan;
    const std::string FFileName;
    TKx2DGraph* FGraph = nullptr;
    int FNumber = 0;
    std::vector<std::string> FMade;
};

/// The graph that is selected, or in which something is, or the only one.
TKx2DGraph* GraphFor(const TKxDesignDocument& Document) {
    auto* control = dynamic_cast<TControl*>(Document.GetPrimary());
    while (control && !dynamic_cast<TKx2DGraph*>(control)) control = control->GetParent();
    if (control) return dynamic_cast<TKx2DGraph*>(control);
    const auto graphs = TKx2DGraph::OwnedBy(Document.GetForm());
    return graphs.size() == 1 ? graphs[0] : nullptr;
}

} // namespace

std::vector<TComponent*> ImportTable(TKxDesignDocument& Document, const std::string& FileName,
                                     TKx2DGraph* Graph) {
    const std::string text = ReadFile(FileName);
    const TKxTable table(text, FileName);
    TImport import(Document, FileName, table);
    if (!Graph) Graph = GraphFor(Document);
    if (Graph && (!Graph->GetPrimaryXAxis() || !Graph->GetPrimaryYAxis())) Graph = nullptr;
    const auto selection = Document.GetSelection();
    try {
        Document.Run({"Import " + ExtractFileName(FileName)}, [&] { import.Run(Graph); });
    } catch (...) {
        Document.Select(selection);
        throw;
    }
    std::vector<TComponent*> made;
    for (const std::string& name : import.GetMade()) made.push_back(Document.Find(name));
    Document.Select(made);
    return made;
}

} // namespace kx
