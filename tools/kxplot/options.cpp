#include "kxplot/options.h"

#include "kxplot/messages.h"
#include "kxplot/number.h"
#include "kxplot/rawoptions.h"
#include "kxplot/stylespec.h"

#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <iostream>

namespace kxplot {

namespace {

constexpr int CMaxSide = 20000;

kx::TSize ParseSize(const std::string& Text) {
    const auto x = Text.find('x');
    kx::TSize size;
    const auto read = [](std::string_view Part, int& Value) {
        const auto [stop, error] = std::from_chars(Part.data(), Part.data() + Part.size(), Value);
        return error == std::errc() && stop == Part.data() + Part.size() && Value >= 1 && Value <= CMaxSide;
    };
    const std::string_view view(Text);
    if (x == std::string::npos || !read(view.substr(0, x), size.Width) ||
        !read(view.substr(x + 1), size.Height))
        throw TUsageError("--size: '" + kx::Abridged(Text) + "' is not WIDTHxHEIGHT with sides from 1 to " +
                          std::to_string(CMaxSide));
    return size;
}

TAssignment ParseAssignment(const std::string& Text) {
    const auto equals = Text.find('='), point = Text.find('.');
    if (equals == std::string::npos || point == std::string::npos || point > equals || point == 0)
        throw TUsageError("--set: '" + kx::Abridged(Text) + "' is not NAME.PROPERTY=VALUE");
    return {Text.substr(0, equals), Text.substr(equals + 1)};
}

std::string DefaultOutput(const std::string& Data) {
    return Data == "-" ? "kxplot.png" : kx::ChangeFileExt(Data, ".png");
}

void CheckOutput(const std::string& FileName) {
    for (const char* known : {".png", ".svg", ".pdf"})
        if (kx::SameText(kx::ExtractFileExt(FileName), known)) return;
    throw TUsageError("-o: '" + kx::Abridged(FileName) + "' does not end with .png, .svg or .pdf");
}

void CheckScale(double Scale) {
    if (!(Scale >= 0.1 && Scale <= 20)) throw TUsageError("--scale: a number from 0.1 to 20 is expected");
}

std::optional<double> ParseLimit(const char* Option, const std::optional<std::string>& Text) {
    if (!Text) return std::nullopt;
    const auto value = ParseFinite(*Text);
    if (!value) throw TUsageError(std::string(Option) + ": '" + kx::Abridged(*Text) + "' is not a number");
    return value;
}

constexpr int CMostTimes = 1000000000;

int ParseCount(const char* Option, const std::optional<std::string>& Text, int Default, int Most = CMostTimes,
               const char* Else = "") {
    if (!Text) return Default;
    const auto count = ParseWhole(*Text, 1, Most);
    if (!count)
        throw TUsageError(std::string(Option) + ": '" + kx::Abridged(*Text) +
                          "' is not a whole number from 1 to " + std::to_string(Most) + Else);
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

struct TNeed {
    const char* Option;
    bool Given;
};

void CheckNeeds(bool Met, const char* What, std::initializer_list<TNeed> Needs) {
    for (const auto& need : Needs)
        if (need.Given && !Met)
            throw TUsageError(std::string(need.Option) + ": there is no " + What + " that it could be for");
}

void ParseFits(const TRawOptions& Raw, TOptions& Options) {
    std::size_t formulas = 0;
    for (const auto& text : Raw.Fits) {
        if (!IsFormula(text)) {
            Options.Analyses.push_back(ParseFit(text));
            continue;
        }
        const bool started = formulas < Raw.Starts.size();
        Options.Analyses.push_back(ParseFormula(text, started ? &Raw.Starts[formulas] : nullptr));
        ++formulas;
    }
    if (Raw.Starts.size() > formulas)
        throw TUsageError("--start: there is no formula for '" + kx::Abridged(Raw.Starts[formulas]) + "'");
    Options.Iterations = ParseCount("--iterations", Raw.Iterations, Options.Iterations);
    Options.Repeat = ParseRepeat(Raw.Repeat);
    CheckNeeds(formulas > 0, "--fit with a formula",
               {{"--iterations", Raw.Iterations.has_value()},
                {"--repeat", Raw.Repeat.has_value()},
                {"--covariance", Options.Covariance}});
}

void ParseCurves(const TRawOptions& Raw, TOptions& Options) {
    for (const auto& text : Raw.Curves) Options.Analyses.push_back(ParseCurve(text));
    TAnalysisSpec derived = ParseCurve(Raw.Curves.empty() ? "akima" : Raw.Curves.front());
    for (const auto& [wanted, quantity] :
         {std::pair{Raw.Derivative, TQuantity::Derivative}, std::pair{Raw.Integral, TQuantity::Integral}}) {
        derived.Quantity = quantity;
        if (wanted) Options.Analyses.push_back(derived);
    }
}

void ParseAnalyses(const TRawOptions& Raw, TOptions& Options) {
    ParseFits(Raw, Options);
    ParseCurves(Raw, Options);
    for (const auto& text : Raw.Labels) Options.Labels.push_back(ParseLabel(text));
    if (Options.Weight && Options.WeightByErrors)
        throw TUsageError("--weight-by-errors: does not go with --weight");
    Options.From = ParseLimit("--from", Raw.From);
    Options.To = ParseLimit("--to", Raw.To);
    if (Options.From && Options.To && *Options.From > *Options.To)
        throw TUsageError("--from: " + kx::Abridged(*Raw.From) + " lies above --to " + kx::Abridged(*Raw.To));
    CheckNeeds(!Options.Analyses.empty(), "--fit, --curve, --derivative or --integral",
               {{"--weight", Options.Weight.has_value()},
                {"--weight-by-errors", Options.WeightByErrors},
                {"--from", Options.From.has_value()},
                {"--to", Options.To.has_value()},
                {"--results", !Options.Results.empty()},
                {"--label", !Options.Labels.empty()}});
}

void ParseHeader(const TRawOptions& Raw, TOptions& Options) {
    if (Raw.Header && Raw.NoHeader) throw TUsageError("--header: does not go with --no-header");
    if (Raw.Header) Options.Header = kx::TKxHeaderRow::Present;
    if (Raw.NoHeader) Options.Header = kx::TKxHeaderRow::Absent;
}

void ParseDrawing(const TRawOptions& Raw, TOptions& Options) {
    constexpr int mostBins = 1000000;
    if (Raw.Style) Options.Style = ParseStyle(*Raw.Style);
    if (Raw.Legend) Options.Legend = ParseLegendPlace(*Raw.Legend);
    if (Raw.Bins) Options.Bins = ParseCount("--hist", Raw.Bins, 0, mostBins);
    CheckNeeds(
        Options.HasBars(), "--style bars, --style bars3d or --hist",
        {{"--stack", Options.Stack}, {"--shift", Options.Shift}, {"--horizontal", Options.Horizontal}});
    CheckNeeds(Options.HasArrows(), "--style arrows",
               {{"--vx", !Options.VX.empty()}, {"--vy", !Options.VY.empty()}});
    CheckTogether(Options);
}

void RefuseAnalyses(const TRawOptions& Raw, const TOptions& Options) {
    for (const auto& [option, given] : {TNeed{"--fit", !Raw.Fits.empty()},
                                        {"--curve", !Raw.Curves.empty()},
                                        {"--derivative", Raw.Derivative},
                                        {"--integral", Raw.Integral}})
        if (given)
            throw TUsageError(std::string(option) + ": does not go with " +
                              (Options.HasBars() ? "bars, whose x are edges" : "arrows") +
                              "; it needs a line or points");
}

} // namespace

std::optional<TOptions> ParseOptions(int Count, char** Arguments) {
    CLI::App app{"Draws the columns of a text table as a picture.", "kxplot"};
    TRawOptions raw;
    AddOptions(app, raw);
    app.set_version_flag("--version", "kxplot 0.1.0");
    try {
        app.parse(Count, Arguments);
    } catch (const CLI::Success& asked) {
        app.exit(asked, std::cout, std::cerr);
        Print(""); // tells whether it could be written
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        throw TUsageError(WithoutLongWords(error.what()));
    }
    TOptions& options = raw.Options;
    ParseHeader(raw, options);
    ParseDrawing(raw, options);
    ParseAnalyses(raw, options);
    if (options.HasBars() || options.HasArrows()) RefuseAnalyses(raw, options);
    if (raw.Size) options.Size = ParseSize(*raw.Size);
    CheckScale(options.Scale);
    for (const auto& text : raw.Assignments) options.Assignments.push_back(ParseAssignment(text));
    if (options.Outputs.empty())
        options.Outputs.push_back(DefaultOutput(options.Data));
    else
        for (const auto& output : options.Outputs) CheckOutput(output);
    return options;
}

} // namespace kxplot
