#include "kxplot/options/formrequest.h"

#include "kxplot/options/usageerror.h"

#include <kxgraph/platform/streaming/formfile.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <string_view>

namespace kxplot {

namespace {

/// What a form is drawn with.
constexpr auto CForForms =
    std::to_array<std::string_view>({"DATA", "-o", "--set", "--scale", "--dpi", "--antialias",
                                     "--no-antialias", "--show", "--show-for", "--edit", "--save-form"});

} // namespace

bool IsFormFile(const std::string& FileName) {
    return kx::SameText(kx::ExtractFileExt(FileName), kx::CFormExtension);
}

void AddFormOptions(CLI::App& App, TFormRequest& Given) {
    App.add_option(
           "--save-form", Given.Save,
           "writes the picture as a form: a text file of all its parts, which kxplot draws as it draws a "
           "table; columns of the table stay there")
        ->type_name("FILE.kxf")
        ->check([](const std::string& Name) {
            return IsFormFile(Name) ? std::string()
                                    : "a name that ends with .kxf is expected, not " + Quoted(Name);
        });
    App.add_flag("--inline", Given.Inline, "the form holds the data, too");
    App.add_flag(
        "--edit", Given.Edit,
        "opens the picture in kxdesign, to go on by hand: the form of --save-form, or a new one; with -o it "
        "is written, too");
    App.add_option("--describe", Given.Describe,
                   "prints the properties of a class of components, or of all, and draws nothing")
        ->type_name("[CLASS]")
        ->expected(0, 1);
}

void CheckForm(const CLI::App& App, const TFormRequest& Given, const std::vector<std::string>& Files) {
    if (Given.Inline && Given.Save.empty())
        throw TUsageError("--inline: there is no --save-form that it could be for");
    if (std::ranges::none_of(Files, IsFormFile)) return;
    if (Files.size() > 1) throw TUsageError("a form is drawn alone: kxplot " + kx::Escaped(Files.front()));
    for (const CLI::Option* option : App.get_options()) {
        const std::string name = option->get_single_name(), dashed = (name.size() > 1 ? "--" : "-") + name;
        const std::string shown = option->get_positional() ? name : dashed;
        if (option->count() > 0 && std::ranges::find(CForForms, shown) == CForForms.end())
            throw TUsageError(shown + ": does not go with a form, which holds all that is drawn");
    }
}

} // namespace kxplot
