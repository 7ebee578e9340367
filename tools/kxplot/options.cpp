#include "kxplot/options.h"

#include "platform/files.h"
#include "platform/text.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <cmath>
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
    std::vector<std::string> Assignments;
};

void AddDataOptions(CLI::App& App, TRaw& Raw) {
    auto& o = Raw.Options;
    App.add_option("DATA", o.Data, "text table with the data; - reads standard input")->required();
    App.add_option("-x", o.X, "column of the x values: header text or 1-based number (default: the first)")
        ->type_name("COL");
    const auto columns = [&App](const char* Name, std::vector<std::string>& Target, const char* Help) {
        App.add_option(Name, Target, Help)->type_name("COL")->allow_extra_args(false);
    };
    columns("-y", o.Y, "column of a series (several allowed; default: every other numeric column)");
    columns("--dx", o.DX, "errors of x; the k-th belongs to the k-th series");
    columns("--dy", o.DY, "errors of y, likewise");
    columns("--dx-minus", o.DXMinus, "errors towards smaller x where they differ from --dx");
    columns("--dy-minus", o.DYMinus, "errors towards smaller y where they differ from --dy");
}

void AddPictureOptions(CLI::App& App, TRaw& Raw) {
    auto& o = Raw.Options;
    App.add_option("--style", Raw.Style, "line, points or both (default: both up to 50 points, else line)")
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
                   "Series1, ...")
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

} // namespace

std::optional<TOptions> ParseOptions(int Count, char** Arguments) {
    CLI::App app{"Draws the columns of a text table as a picture.", "kxplot"};
    TRaw raw;
    AddDataOptions(app, raw);
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
