#include "kxplot/options/arguments.h"

namespace kxplot {

namespace {

/// Of an option that takes the name of a file.
std::string RefuseEmpty(const std::string& Name) { return Name.empty() ? "a file name is expected" : ""; }

void AddDataOptions(CLI::App& App, TArguments& Given) {
    App.option_defaults()->group("Table");
    auto& o = Given.Options;
    App.add_option_function<std::vector<std::string>>(
           "DATA",
           [&o](const std::vector<std::string>& Files) {
               o.Data.File = Files.front();
               o.Data.More.assign(Files.begin() + 1, Files.end());
           },
           "text table with the data, or a form of --save-form; - reads standard input. Of several tables "
           "each gives the same columns, over its own x")
        ->check(RefuseEmpty);
    App.add_option(
           "--batch", o.Batch,
           "draws a picture of each file that a pattern names, as many at once as there are cores; in "
           "names of outputs {name} stands for the file's without folder and extension")
        ->type_name("FILE...");
    AddDatabaseOptions(App, o.Data.Database);
    App.add_flag("--header", Given.Header, "the first row is a header, whatever it looks like");
    App.add_flag("--no-header", Given.NoHeader,
                 "the first row is data (default: it is a header when any text in it stands over numbers)");
    AddTableOptions(App, Given.Table);
    AddFollowOptions(App, Given.Follow);
    App.add_option("-x", o.Columns.X,
                   "column of the x values: header text or 1-based number (default: the first)")
        ->type_name("COL");
    const auto columns = [&App](const char* Name, std::vector<std::string>& Target, const char* Help) {
        App.add_option(Name, Target, Help)->type_name("COL")->allow_extra_args(false);
    };
    columns(
        "-y", o.Columns.Y,
        "column of a series, or a formula over columns such as 'u-2*t' (other names in backticks; several "
        "allowed; default: every other numeric column but that of --weight)");
    columns("--dx", o.Columns.DX, "errors of x; the k-th belongs to the k-th series");
    columns("--dy", o.Columns.DY, "errors of y, likewise; they weigh nothing without --weight-by-errors");
    columns("--dx-minus", o.Columns.DXMinus, "errors towards smaller x where they differ from --dx");
    columns("--dy-minus", o.Columns.DYMinus, "errors towards smaller y where they differ from --dy");
    columns("--vx", o.Columns.VX, "x components of --style arrows; the k-th belongs to the k-th series");
    columns("--vy", o.Columns.VY, "y components, likewise");
}

void AddFitOptions(CLI::App& App, TArguments& Given) {
    App.option_defaults()->group("Fits");
    const auto several = [&App](const char* Name, std::vector<std::string>& Target, const char* Type,
                                const char* Help) {
        App.add_option(Name, Target, Help)->type_name(Type)->allow_extra_args(false);
    };
    several("--fit", Given.Fits, "FIT",
            "fits every series (several allowed): line, line:offset=VALUE for a line through (0, VALUE), "
            "poly:DEGREE for a polynomial of a degree from 2, or a formula such as 'a*exp(-b*x)+c' with "
            "--start. On a logarithmic axis a line is fitted to the decimal logarithms, all else to the "
            "values as they are. Formulas have the point as decimal separator; x, pi and e are known, every "
            "other name is a coefficient; one that begins with - needs --fit=");
    several("--start", Given.Starts, "a=1,b=0.5,...",
            "where the coefficients of a formula start from; the k-th belongs to the k-th formula. Ctrl+C "
            "ends a fit that takes too long; the best so far is kept");
    AddMethodOptions(App, Given.Method);
    App.add_option("--iterations", Given.Iterations, "most steps of a formula fit (default: 1000)")
        ->type_name("N");
    App.add_option(
           "--repeat", Given.Repeat,
           "how many times a formula is fitted, each time from the coefficients before; opens a fit "
           "that got stuck (default: 1). auto goes on until the sum of squares falls by no more than "
           "1e-8 of itself, at most 100 times. A fit that has not arrived is told, and has Converged=0 in "
           "--results")
        ->type_name("N|auto");
    App.add_flag("--covariance", Given.Options.Fitting.Covariance,
                 "formula fits heed the points by their scatter about others of the same x");
    App.add_flag("--residuals", Given.Options.Fitting.Residuals,
                 "draws what fits leave of y in a second graph under the first");
    AddBandOptions(App, Given.Band);
}

void AddCurveOptions(CLI::App& App, TArguments& Given) {
    App.option_defaults()->group("Curves");
    App.add_option("--curve", Given.Curves,
                   "draws a curve through every series (several allowed): akima, akima:smooth=WIDTH after "
                   "averaging over WIDTH to both sides (decades on a logarithmic x axis), spline for a "
                   "smoothing spline (six points at least), spline:weight=FACTOR for one closer to the "
                   "points (above 1) or further "
                   "off")
        ->type_name("CURVE")
        ->allow_extra_args(false);
    App.add_flag("--derivative", Given.Derivative,
                 "draws the derivative against an axis at the right, of the first --curve (default: akima)");
    App.add_flag("--integral", Given.Integral, "draws the integral from the first point on, likewise");
}

void AddAnalysisOptions(CLI::App& App, TArguments& Given) {
    App.option_defaults()->group("Fits and curves");
    auto& o = Given.Options;
    App.add_option("--weight", o.Columns.Weight,
                   "column of the points' weights in fits and curves: 1/variance up to a factor, which "
                   "changes no standard error")
        ->type_name("COL");
    App.add_flag("--weight-by-errors", o.Columns.WeightByErrors,
                 "weighs the points in fits and curves by 1/error^2 of --dy (of the mean of --dy and "
                 "--dy-minus); --dy alone weighs nothing");
    App.add_option("--from", Given.From,
                   "fits and curves take the points from this x on, a number or a date, and begin there")
        ->type_name("X");
    App.add_option("--to", Given.To, "fits and curves take the points up to this x, and end there")
        ->type_name("X");
    App.add_option(
           "--results", o.Outputs.Results,
           "writes what fits and curves found: as JSON for .json, else as INI text; - is standard output")
        ->type_name("FILE")
        ->check(RefuseEmpty);
    App.add_option("--label", Given.Labels,
                   "shows a result in the picture, e.g. Slope:6 (several allowed). KEY is one of those in "
                   "--results, DIGITS how many significant digits a number has (0 to 18, default: 8; 0: "
                   "all). KEY:3+- adds the "
                   "standard error, rounded to the same place. It is "
                   "that of the first fit or curve that has KEY; 2.KEY is that of the second one, counted "
                   "through fits, curves, derivative and integral of the first series, then of the next")
        ->type_name("KEY[:DIGITS[+-]]")
        ->allow_extra_args(false);
}

void AddPictureOptions(CLI::App& App, TArguments& Given) {
    App.option_defaults()->group("Picture");
    auto& o = Given.Options;
    App.add_option("--style", Given.Style,
                   "what series are drawn as (default: points with --fit or --curve; else "
                   "both up to 50 points, line above). Bars begin at x, and the last is as wide as the one "
                   "before it")
        ->type_name("line|points|both|bars|bars3d|arrows");
    App.add_option(
           "--hist", Given.Bins,
           "draws how many values of the -y columns (default: the first column) lie in each of N "
           "equal bins between the smallest and the largest; --fit fits the counts at the middles of the "
           "bins")
        ->type_name("N");
    App.add_flag("--shift", o.Drawing.Shift, "the bars of several series stand side by side (default)");
    App.add_flag("--stack", o.Drawing.Stack,
                 "the bars of several series stand upon one another, values below zero "
                 "downwards");
    App.add_flag("--horizontal", o.Drawing.Horizontal, "bars lie; the axes change places");
    App.add_option(
           "--legend", Given.Legend,
           "where the legend stands: in a corner among the data, or beside them (default: right when it "
           "has more than one entry)")
        ->type_name("top-left|top-right|bottom-left|bottom-right|right|left|top|bottom");
    App.add_flag("--no-legend", o.Legend.None, "no legend; fits and curves are named among the data");
    App.add_flag("--log-x", o.Look.LogX, "logarithmic x axis");
    App.add_flag("--log-y", o.Look.LogY, "logarithmic y axis");
    AddMarkOptions(App, Given.Mark);
    App.add_option("--title", o.Look.Title,
                   "title; captions take markup: \\b bold, \\i italic, \\+ superscript, "
                   "\\- subscript, \\s Greek; each swallows one blank behind it")
        ->type_name("TEXT");
    App.add_option("--x-caption", o.Look.XCaption, "caption of the x axis (default: its header)")
        ->type_name("TEXT");
    App.add_option("--y-caption", o.Look.YCaption,
                   "caption of the y axis (default: its header; of several series with a legend none)")
        ->type_name("TEXT");
    App.add_option("--size", Given.Size,
                   "size in pixels at 96 per inch, or in mm, cm or in, as in 85mmx60mm (default: 900x600)")
        ->type_name("WxH");
    App.add_option("--dpi", Given.Dpi, "pixels of a PNG per inch of --size (default: 96)")->type_name("N");
    App.add_option("--scale", Given.Scale, "pixels of a PNG for one pixel of --size (default: 1)")
        ->type_name("S");
    App.add_option("--ground", Given.Ground, "colour behind everything, or none for a transparent picture")
        ->type_name("COLOR");
    App.add_flag("--antialias", Given.Antialias, "smooth lines in a PNG (default; SVG and PDF are smooth)");
    App.add_flag("--no-antialias", Given.NoAntialias, "whole pixels in a PNG");
}

void AddOutfitOptions(CLI::App& App, TArguments& Given) {
    App.option_defaults()->group("Look and files");
    auto& o = Given.Options;
    App.add_option("--curve-data", o.Outputs.CurveData, "writes the sampled curves as columns of a CSV table")
        ->type_name("FILE.csv")
        ->check(RefuseEmpty);
    App.add_option("--set", Given.Assignments,
                   "sets a property, e.g. Graph1.MajorGridX.Visible=1; components: Graph1, XAxis, YAxis, "
                   "Y2Axis, SecondaryAxis1, SecondaryAxis2, XMirror, YMirror, Series1, ..., Fit1, ..., "
                   "Curve1, ..., Derivative1, ..., "
                   "Integral1, ..., Legend1, Label1, ...")
        ->type_name("NAME.PROPERTY=VALUE")
        ->allow_extra_args(false);
    App.add_option(
           "--theme", o.Look.Theme,
           "look of the picture: print (a journal's column), dark, presentation, or a file of lines as "
           "--set takes them, also for Series*, with Colors, Symbols and Dashes of the series")
        ->type_name("print|dark|presentation|FILE")
        ->check(RefuseEmpty);
    App.add_option(
           "--properties", o.Properties,
           "lists what --set takes: the properties of a component, or of all, of the picture that the "
           "other options describe (without DATA of a small one), and draws nothing")
        ->type_name("[NAME]")
        ->expected(0, 1);
    App.add_option("--outfit", o.Look.Outfit, "takes the appearance from a file")
        ->type_name("FILE.ini")
        ->check(RefuseEmpty);
    App.add_option("--save-outfit", o.Outputs.SaveOutfit, "keeps the appearance in a file")
        ->type_name("FILE.ini")
        ->check(RefuseEmpty);
    AddFormOptions(App, o.Outputs.Form);
    App.add_option("-o", o.Outputs.Pictures, "picture to write: .png, .svg or .pdf (several allowed)")
        ->type_name("FILE")
        ->allow_extra_args(false);
    AddWindowOptions(App, Given.Window);
}

} // namespace

void AddOptions(CLI::App& App, TArguments& Given) {
    AddDataOptions(App, Given);
    App.option_defaults()->group("Functions");
    AddFunctionOptions(App, Given.Options.Functions);
    AddFitOptions(App, Given);
    AddCurveOptions(App, Given);
    AddAnalysisOptions(App, Given);
    AddPictureOptions(App, Given);
    AddAxesOptions(App, Given.Options.Axes);
    AddOutfitOptions(App, Given);
}

} // namespace kxplot
