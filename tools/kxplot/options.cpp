#include "kxplot/options.h"

#include "kxplot/number.h"
#include "platform/files.h"
#include "platform/text.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <initializer_list>
#include <iostream>
#include <map>

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
        throw TUsageError("--size: '" + kx::Escaped(Text) + "' is not WIDTHxHEIGHT with sides from 1 to " +
                          std::to_string(CMaxSide));
    return size;
}

TAssignment ParseAssignment(const std::string& Text) {
    const auto equals = Text.find('='), point = Text.find('.');
    if (equals == std::string::npos || point == std::string::npos || point > equals || point == 0)
        throw TUsageError("--set: '" + kx::Escaped(Text) + "' is not NAME.PROPERTY=VALUE");
    return {Text.substr(0, equals), Text.substr(equals + 1)};
}

std::string DefaultOutput(const std::string& Data) {
    return Data == "-" ? "kxplot.png" : kx::ChangeFileExt(Data, ".png");
}

void CheckOutput(const std::string& FileName) {
    for (const char* known : {".png", ".svg", ".pdf"})
        if (kx::SameText(kx::ExtractFileExt(FileName), known)) return;
    throw TUsageError("-o: '" + kx::Escaped(FileName) + "' does not end with .png, .svg or .pdf");
}

const std::map<std::string, TStyle> CStyles{
    {"line", TStyle::Line}, {"points", TStyle::Points}, {"both", TStyle::Both}};

/// The options as CLI11 stores them, before they are checked.
struct TRaw {
    TOptions Options;
    std::string Size, Style;
    std::optional<std::string> From, To;
    std::optional<std::string> Iterations, Repeat;
    std::vector<std::string> Assignments, Fits, Starts, Curves, Labels;
    bool Derivative = false, Integral = false;
};

void AddDataOptions(CLI::App& App, TRaw& Raw) {
    auto& o = Raw.Options;
    App.add_option("DATA", o.Data, "text table with the data; - reads standard input")->required();
    App.add_option("-x", o.X, "column of the x values: header text or 1-based number (default: the first)")
        ->type_name("COL");
    const auto columns = [&App](const char* Name, std::vector<std::string>& Target, const char* Help) {
        App.add_option(Name, Target, Help)->type_name("COL")->allow_extra_args(false);
    };
    columns("-y", o.Y,
            "column of a series (several allowed; default: every other numeric column but that of --weight)");
    columns("--dx", o.DX, "errors of x; the k-th belongs to the k-th series");
    columns("--dy", o.DY, "errors of y, likewise");
    columns("--dx-minus", o.DXMinus, "errors towards smaller x where they differ from --dx");
    columns("--dy-minus", o.DYMinus, "errors towards smaller y where they differ from --dy");
}

void AddFitOptions(CLI::App& App, TRaw& Raw) {
    const auto several = [&App](const char* Name, std::vector<std::string>& Target, const char* Type,
                                const char* Help) {
        App.add_option(Name, Target, Help)->type_name(Type)->allow_extra_args(false);
    };
    several("--fit", Raw.Fits, "FIT",
            "fits every series (several allowed): line, line:offset=VALUE for a line through (0, VALUE), "
            "poly:DEGREE for a polynomial of a degree from 2, or a formula such as 'a*exp(-b*x)+c' with "
            "--start. On a logarithmic axis a line is fitted to the decimal logarithms, all else to the "
            "values as they are. Formulas have the point as decimal separator; x, pi and e are known, every "
            "other name is a coefficient; one that begins with - needs --fit=");
    several("--start", Raw.Starts, "a=1,b=0.5,...",
            "where the coefficients of a formula start from, none of them at 0; the k-th belongs to the k-th "
            "formula. Ctrl+C ends a fit that takes too long; the best so far is kept");
    App.add_option("--iterations", Raw.Iterations, "steps of a formula fit (default: 1000)")->type_name("N");
    App.add_option("--repeat", Raw.Repeat,
                   "how many times a formula is fitted, each time from the coefficients before; opens a fit "
                   "that got stuck (default: 1)")
        ->type_name("N");
    App.add_flag("--covariance", Raw.Options.Covariance,
                 "formula fits heed the points by their scatter about others of the same x");
}

void AddCurveOptions(CLI::App& App, TRaw& Raw) {
    App.add_option("--curve", Raw.Curves,
                   "draws a curve through every series (several allowed): akima, akima:smooth=WIDTH after "
                   "averaging over WIDTH to both sides (decades on a logarithmic x axis), spline for a "
                   "smoothing spline (six points at least), spline:weight=FACTOR for one closer to the "
                   "points (above 1) or further "
                   "off")
        ->type_name("CURVE")
        ->allow_extra_args(false);
    App.add_flag("--derivative", Raw.Derivative,
                 "draws the derivative against an axis at the right, of the first --curve (default: akima)");
    App.add_flag("--integral", Raw.Integral, "draws the integral from the first point on, likewise");
}

void AddAnalysisOptions(CLI::App& App, TRaw& Raw) {
    auto& o = Raw.Options;
    App.add_option("--weight", o.Weight, "column of the points' weights in fits and curves, e.g. 1/variance")
        ->type_name("COL");
    App.add_option("--from", Raw.From, "fits and curves take the points from this x on, and begin there")
        ->type_name("X");
    App.add_option("--to", Raw.To, "fits and curves take the points up to this x, and end there")
        ->type_name("X");
    App.add_option("--results", o.Results,
                   "writes what fits and curves found as INI text; - is standard output")
        ->type_name("FILE");
    App.add_option("--label", Raw.Labels,
                   "shows a result in the picture, e.g. Slope:6 (several allowed). KEY is one of those in "
                   "--results, DIGITS how many characters a number may take (0 to 18, default: 8). It is "
                   "that of the first fit or curve that has KEY; 2.KEY is that of the second one, counted "
                   "through fits, curves, derivative and integral of the first series, then of the next")
        ->type_name("KEY[:DIGITS]")
        ->allow_extra_args(false);
}

void AddPictureOptions(CLI::App& App, TRaw& Raw) {
    auto& o = Raw.Options;
    App.add_option(
           "--style", Raw.Style,
           "line, points or both (default: points with --fit or --curve; else both up to 50 points, line "
           "above)")
        ->type_name("STYLE");
    App.add_flag("--log-x", o.LogX, "logarithmic x axis");
    App.add_flag("--log-y", o.LogY, "logarithmic y axis");
    App.add_option("--title", o.Title,
                   "title; captions take markup: \\b bold, \\i italic, \\+ superscript, "
                   "\\- subscript, \\s Greek; each swallows one blank behind it")
        ->type_name("TEXT");
    App.add_option("--x-caption", o.XCaption, "caption of the x axis (default: its header)")
        ->type_name("TEXT");
    App.add_option("--y-caption", o.YCaption, "caption of the y axis (default: the headers)")
        ->type_name("TEXT");
    App.add_option("--size", Raw.Size, "size in pixels at 96 per inch (default: 900x600)")->type_name("WxH");
    App.add_option("--scale", o.Scale, "pixels of a PNG for one pixel of --size (default: 1)")
        ->type_name("S");
    App.add_flag("--antialias", o.Antialias, "smooth lines in a PNG (SVG and PDF are smooth)");
}

void AddOutfitOptions(CLI::App& App, TRaw& Raw) {
    auto& o = Raw.Options;
    App.add_option("--set", Raw.Assignments,
                   "sets a property, e.g. Graph1.MajorGridX.Visible=1; components: Graph1, XAxis, YAxis, "
                   "SecondaryAxis1, SecondaryAxis2, Series1, ..., Fit1, ..., Curve1, ..., Derivative1, ..., "
                   "Integral1, ..., Label1, ...")
        ->type_name("NAME.PROPERTY=VALUE")
        ->allow_extra_args(false);
    App.add_option("--outfit", o.Outfit, "takes the appearance from a file")->type_name("FILE.ini");
    App.add_option("--save-outfit", o.SaveOutfit, "keeps the appearance in a file")->type_name("FILE.ini");
    App.add_option("-o", o.Outputs, "picture to write: .png, .svg or .pdf (several allowed)")
        ->type_name("FILE")
        ->allow_extra_args(false);
}

void CheckScale(double Scale) {
    if (!(Scale >= 0.1 && Scale <= 20)) throw TUsageError("--scale: a number from 0.1 to 20 is expected");
}

std::optional<double> ParseLimit(const char* Option, const std::optional<std::string>& Text) {
    if (!Text) return std::nullopt;
    const auto value = ParseFinite(*Text);
    if (!value) throw TUsageError(std::string(Option) + ": '" + kx::Escaped(*Text) + "' is not a number");
    return value;
}

int ParseCount(const char* Option, const std::optional<std::string>& Text, int Default) {
    constexpr int most = 1000000000;
    if (!Text) return Default;
    const auto count = ParseWhole(*Text, 1, most);
    if (!count)
        throw TUsageError(std::string(Option) + ": '" + kx::Escaped(*Text) +
                          "' is not a whole number from 1 to " + std::to_string(most));
    return *count;
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

void ParseFits(const TRaw& Raw, TOptions& Options) {
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
        throw TUsageError("--start: there is no formula for '" + kx::Escaped(Raw.Starts[formulas]) + "'");
    Options.Iterations = ParseCount("--iterations", Raw.Iterations, Options.Iterations);
    Options.Repeat = ParseCount("--repeat", Raw.Repeat, Options.Repeat);
    CheckNeeds(formulas > 0, "--fit with a formula",
               {{"--iterations", Raw.Iterations.has_value()},
                {"--repeat", Raw.Repeat.has_value()},
                {"--covariance", Options.Covariance}});
}

void ParseCurves(const TRaw& Raw, TOptions& Options) {
    for (const auto& text : Raw.Curves) Options.Analyses.push_back(ParseCurve(text));
    TAnalysisSpec derived = ParseCurve(Raw.Curves.empty() ? "akima" : Raw.Curves.front());
    for (const auto& [wanted, quantity] :
         {std::pair{Raw.Derivative, TQuantity::Derivative}, std::pair{Raw.Integral, TQuantity::Integral}}) {
        derived.Quantity = quantity;
        if (wanted) Options.Analyses.push_back(derived);
    }
}

void ParseAnalyses(const TRaw& Raw, TOptions& Options) {
    ParseFits(Raw, Options);
    ParseCurves(Raw, Options);
    for (const auto& text : Raw.Labels) Options.Labels.push_back(ParseLabel(text));
    Options.From = ParseLimit("--from", Raw.From);
    Options.To = ParseLimit("--to", Raw.To);
    if (Options.From && Options.To && *Options.From > *Options.To)
        throw TUsageError("--from: " + *Raw.From + " lies above --to " + *Raw.To);
    CheckNeeds(!Options.Analyses.empty(), "--fit, --curve, --derivative or --integral",
               {{"--weight", Options.Weight.has_value()},
                {"--from", Options.From.has_value()},
                {"--to", Options.To.has_value()},
                {"--results", !Options.Results.empty()},
                {"--label", !Options.Labels.empty()}});
}

} // namespace

std::optional<TOptions> ParseOptions(int Count, char** Arguments) {
    CLI::App app{"Draws the columns of a text table as a picture.", "kxplot"};
    TRaw raw;
    AddDataOptions(app, raw);
    AddFitOptions(app, raw);
    AddCurveOptions(app, raw);
    AddAnalysisOptions(app, raw);
    AddPictureOptions(app, raw);
    AddOutfitOptions(app, raw);
    app.set_version_flag("--version", "kxplot 0.1.0");
    try {
        app.parse(Count, Arguments);
    } catch (const CLI::Success& asked) {
        app.exit(asked, std::cout, std::cerr);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        throw TUsageError(error.what());
    }
    TOptions& options = raw.Options;
    if (!raw.Style.empty()) {
        const auto style = CStyles.find(raw.Style);
        if (style == CStyles.end())
            throw TUsageError("--style: '" + kx::Escaped(raw.Style) + "' is not line, points or both");
        options.Style = style->second;
    }
    ParseAnalyses(raw, options);
    if (!raw.Size.empty()) options.Size = ParseSize(raw.Size);
    CheckScale(options.Scale);
    for (const auto& text : raw.Assignments) options.Assignments.push_back(ParseAssignment(text));
    if (options.Outputs.empty())
        options.Outputs.push_back(DefaultOutput(options.Data));
    else
        for (const auto& output : options.Outputs) CheckOutput(output);
    return options;
}

} // namespace kxplot
