#include "kxplot/options/about.h"

#include "kxplot/options/completions.h"
#include "kxplot/options/help.h"
#include "kxplot/options/manpage.h"
#include "kxplot/options/paragraph.h"
#include "kxplot/options/usageerror.h"

#include <kxgraph/platform/base/version.h>
#include <kxgraph/platform/text/suggest.h>

#include <string_view>

namespace kxplot {

namespace {

constexpr const char *CVersion = "kxplot " KXGRAPH_VERSION,
                     *CDescription =
                         "Draws the columns of a text table as a picture, and analyses them. Without "
                         "options every numeric column is drawn against the first one.";

std::string Completions(const std::string& Shell, const CLI::App& App) {
    std::string text = CompletionsFor(Shell, TableOf(App));
    if (text.empty()) FailUsage("--completions", Shell, "is not bash, zsh or fish");
    return text;
}

} // namespace

void AddOptionsAboutKxplot(CLI::App& App) {
    App.option_defaults()->group("About kxplot");
    App.set_help_flag();
    App.add_flag_callback(
           "-h,--help", [&App] { throw TAnswer{HelpText(CDescription, TableOf(App), WidthOfOutput())}; },
           "prints this help")
        ->trigger_on_parse();
    App.add_flag_callback(
           "--man", [&App] { throw TAnswer{ManPage(CVersion, CDescription, TableOf(App))}; },
           "prints the manual page, as in kxplot --man | man -l -")
        ->trigger_on_parse();
    App.add_option_function<std::string>(
           "--completions", [&App](const std::string& Shell) { throw TAnswer{Completions(Shell, App)}; },
           "prints a script that makes a shell complete options, as in source <(kxplot --completions bash)")
        ->type_name("bash|zsh|fish")
        ->trigger_on_parse();
    App.add_flag_callback(
           "--version", [] { throw TAnswer{std::string(CVersion) + "\n"}; }, "prints the version")
        ->trigger_on_parse();
}

std::string SuggestionFor(const std::vector<std::string>& Unknown, const CLI::App& App) {
    const TOptionTable table = TableOf(App);
    std::vector<std::string_view> names;
    for (const auto& group : table)
        for (const auto& row : group.Rows) names.insert(names.end(), row.Names.begin(), row.Names.end());
    for (const auto& argument : Unknown) {
        auto text = kx::DidYouMean(std::string_view(argument).substr(0, argument.find('=')), names);
        if (!text.empty()) return text;
    }
    return {};
}

} // namespace kxplot
