#include "kxplot/options/commandline.h"

#include "kxplot/messages.h"
#include "kxplot/options/about.h"
#include "kxplot/options/arguments.h"
#include "kxplot/options/checks.h"
#include "kxplot/options/number.h"
#include "kxplot/options/usageerror.h"
#include "kxplot/options/words.h"

#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace kxplot {

namespace {

TGround ParseGround(const std::string& Text) {
    if (kx::SameText(Text, "none")) return std::nullopt;
    if (const auto color = kx::ColorFromText(Text)) return color;
    FailUsage("--ground", Text, "is not none or a colour, such as #f0f0f0 or clWhite");
}

TAssignment ParseAssignment(const std::string& Text) {
    const auto equals = Text.find('='), point = Text.find('.');
    if (equals == std::string::npos || point == std::string::npos || point > equals || point == 0)
        FailUsage("--set", Text, "is not NAME.PROPERTY=VALUE");
    return {Text.substr(0, equals), Text.substr(equals + 1)};
}

void CheckFollow(const TOptions& Options) {
    if (!Options.Follow.Wanted) return;
    if (!Options.Data.More.empty() || !Options.Batch.empty() || Options.Data.File.empty())
        throw TUsageError("--follow: goes with one table alone");
    if (Options.Data.Table.Explain) throw TUsageError("--follow: does not go with --explain");
}

void CheckData(const TOptions& Options) {
    const bool isBatch = !Options.Batch.empty();
    CheckFollow(Options);
    CheckDatabase(Options.Data.Database, isBatch ? Options.Batch.front() : Options.Data.File);
    const bool hasTable = isBatch || !Options.Data.File.empty() || Options.Data.Database.IsGiven();
    CheckFunctions(Options.Functions, hasTable);
    const bool isAsked = Options.Properties || Options.Outputs.Form.Describe;
    if (!hasTable && !isAsked && Options.Functions.Functions.empty())
        throw TUsageError("DATA is required; kxplot --help tells more");
    if (!isBatch) return;
    if (!Options.Data.File.empty())
        FailUsage("--batch", Options.Data.File, "does not go with it: tables are named by patterns alone");
    if (Options.Properties) throw TUsageError("--properties: does not go with --batch");
    if (Options.Outputs.Results == "-") throw TUsageError("--results: the results of a batch go to files");
}

std::string DefaultOutput(const std::string& Data) {
    return Data.empty() || Data == "-" ? "kxplot.png" : kx::ChangeFileExt(Data, ".png");
}

void CheckOutput(const std::string& FileName) {
    for (const char* known : {".png", ".svg", ".pdf"})
        if (kx::SameText(kx::ExtractFileExt(FileName), known)) return;
    FailUsage("-o", FileName, "does not end with .png, .svg or .pdf");
}

std::optional<double> ParseLimit(const char* Option, const std::optional<std::string>& Text) {
    if (!Text) return std::nullopt;
    const auto value = ParsePlace(*Text);
    if (!value) FailUsage(Option, *Text, "is neither a number nor a date such as 2003-09-19");
    return value;
}

constexpr int CMostTimes = 1000000000;

int ParseCount(const char* Option, const std::optional<std::string>& Text, int Default, int Most = CMostTimes,
               const char* Else = "") {
    if (!Text) return Default;
    const auto count = ParseWhole(*Text, 1, Most);
    if (!count) FailUsage(Option, *Text, "is not a whole number from 1 to " + std::to_string(Most) + Else);
    return *count;
}

/// Nothing for "auto".
std::optional<int> ParseRepeat(const std::optional<std::string>& Text) {
    if (Text == "auto") return std::nullopt;
    return ParseCount("--repeat", Text, 1, CMostTimes, " or auto");
}

/// Arguments stand in the parser's messages as they were given.
std::string WithoutLongWords(const std::string& Message) {
    std::string text;
    for (std::size_t begin = 0; begin <= Message.size();) {
        const std::size_t end = std::min(Message.find(' ', begin), Message.size());
        text += (begin > 0 ? " " : "") + kx::Abridged(Message.substr(begin, end - begin));
        begin = end + 1;
    }
    return text;
}

void ReadFits(const TArguments& Given, TOptions& Options) {
    std::size_t formulas = 0;
    for (const auto& text : Given.Fits) {
        if (!IsFormula(text)) {
            Options.Analyses.push_back(ParseFit(text));
            continue;
        }
        const bool started = formulas < Given.Starts.size();
        Options.Analyses.push_back(ParseFormula(text, started ? &Given.Starts[formulas] : nullptr));
        ++formulas;
    }
    if (Given.Starts.size() > formulas)
        throw TUsageError("--start: there is no formula for " + Quoted(Given.Starts[formulas]));
    Options.Fitting.Iterations = ParseCount("--iterations", Given.Iterations, Options.Fitting.Iterations);
    Options.Fitting.Repeat = ParseRepeat(Given.Repeat);
    CheckFormulaOptions(Given, formulas > 0);
    Options.Fitting.How = ParseMethod(Given.Method, Options.Analyses, Options.Fitting.Covariance);
}

void ReadCurves(const TArguments& Given, TOptions& Options) {
    for (const auto& text : Given.Curves) Options.Analyses.push_back(ParseCurve(text));
    TAnalysisRequest derived = ParseCurve(Given.Curves.empty() ? "akima" : Given.Curves.front());
    for (const auto& [wanted, quantity] : {std::pair{Given.Derivative, TQuantity::Derivative},
                                           std::pair{Given.Integral, TQuantity::Integral}}) {
        derived.Quantity = quantity;
        if (wanted) Options.Analyses.push_back(derived);
    }
}

void ReadAnalyses(const TArguments& Given, TOptions& Options) {
    ReadFits(Given, Options);
    ReadCurves(Given, Options);
    for (const auto& text : Given.Labels) Options.Labels.push_back(ParseLabel(text));
    if (Options.Columns.Weight && Options.Columns.WeightByErrors)
        throw TUsageError("--weight-by-errors: does not go with --weight");
    Options.Bands = ParseBands(Given.Band, Options.Analyses);
    Options.Fitting.From = ParseLimit("--from", Given.From);
    Options.Fitting.To = ParseLimit("--to", Given.To);
    CheckAnalyses(Given, Options);
}

void ReadHeader(const TArguments& Given, TOptions& Options) {
    if (Given.Header && Given.NoHeader) throw TUsageError("--header: does not go with --no-header");
    if (Given.Header) Options.Data.Header = kx::TKxHeaderRow::Present;
    if (Given.NoHeader) Options.Data.Header = kx::TKxHeaderRow::Absent;
}

void ReadDrawing(const TArguments& Given, TOptions& Options) {
    constexpr int mostBins = 1000000;
    if (Given.Style) Options.Drawing.Style = ParseStyle(*Given.Style);
    if (Given.Legend) Options.Legend.Place = ParseLegendPlace(*Given.Legend);
    if (Given.Bins) Options.Drawing.Bins = ParseCount("--hist", Given.Bins, 0, mostBins);
    CheckDrawing(Options);
    CheckAxes(Options.Axes, Options.Drawing.HasBars());
}

void CheckEditing(const TOptions& Options) {
    if (!Options.Outputs.Form.Edit) return;
    for (const auto& [given, name] :
         {std::pair{!Options.Batch.empty(), "--batch"}, std::pair{Options.Follow.Wanted, "--follow"},
          std::pair{Options.Window.Show, "--show"}})
        if (given) throw TUsageError(std::string("--edit: does not go with ") + name);
}

void ReadOutputs(const TArguments& Given, TOptions& Options) {
    if (Given.Size) Options.Outputs.Size = ParsePictureSize(*Given.Size);
    if (Given.Antialias && Given.NoAntialias)
        throw TUsageError("--antialias: does not go with --no-antialias");
    Options.Outputs.Antialias = !Given.NoAntialias;
    Options.Outputs.Scale = ScaleOf(Given.Scale, Given.Dpi);
    Options.Marks = ParseMarks(Given.Mark);
    if (Given.Ground) Options.Look.Ground = ParseGround(*Given.Ground);
    for (const auto& text : Given.Assignments) Options.Look.Assignments.push_back(ParseAssignment(text));
    Options.Window = ParseWindow(Given.Window);
    CheckEditing(Options);
    if (Options.Window.Show && !Options.Batch.empty()) throw TUsageError("--show: does not go with --batch");
    if (Options.Outputs.Pictures.empty() && Options.Batch.empty() && !Options.Window.Show &&
        !Options.Outputs.Form.Edit)
        Options.Outputs.Pictures = {DefaultOutput(Options.Data.File)};
    else
        for (const auto& output : Options.Outputs.Pictures) CheckOutput(output);
}

} // namespace

std::optional<TOptions> ParseOptions(int Count, char** Arguments) {
    CLI::App app("", "kxplot");
    TArguments given;
    AddOptions(app, given);
    AddOptionsAboutKxplot(app);
    try {
        app.parse(Count, Arguments);
    } catch (const TAnswer& answer) {
        Print(answer.Text);
        return std::nullopt;
    } catch (const CLI::ExtrasError& error) {
        throw TUsageError(WithoutLongWords(error.what()) + SuggestionFor(app.remaining(), app));
    } catch (const CLI::ParseError& error) {
        throw TUsageError(WithoutLongWords(error.what()));
    }
    TOptions& options = given.Options;
    options.Follow = ParseFollow(given.Follow);
    CheckForm(app, options.Outputs.Form, options.Data.Files());
    CheckData(options);
    ReadHeader(given, options);
    ReadDrawing(given, options);
    ReadTableOptions(given.Table, options);
    ReadAnalyses(given, options);
    ReadOutputs(given, options);
    return std::move(options);
}

} // namespace kxplot
