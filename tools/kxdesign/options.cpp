#include "kxdesign/options.h"

#include <kxgraph/platform/base/version.h>
#include <kxgraph/platform/streaming/formfile.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>

#include <CLI/CLI.hpp>

#include <iostream>

namespace kxdesign {

bool IsFormFile(const std::string& FileName) {
    return kx::SameText(kx::ExtractFileExt(FileName), kx::CFormExtension);
}

void TellError(const std::string& Message) { std::cerr << "kxdesign: " << Message << '\n'; }

std::optional<TOptions> ParseOptions(int Count, char** Arguments, int& Status) {
    TOptions options;
    CLI::App app(
        "Puts scientific graphs together by hand: components from palettes onto a form, properties in an "
        "inspector.",
        "kxdesign");
    app.set_version_flag("--version", std::string("kxdesign ") + KXGRAPH_VERSION);
    app.add_option("FILE", options.File, "a form (.kxf), or a table of data, which is imported");
    app.add_flag("--untitled", options.Untitled,
                 "FILE (-: standard input) describes a new form, which is saved under another name");
    try {
        app.parse(Count, Arguments);
    } catch (const CLI::Success& success) {
        Status = app.exit(success);
        return {};
    } catch (const CLI::ParseError& error) {
        TellError(error.what());
        Status = CUsage;
        return {};
    }
    if (options.Untitled && options.File != "-" && !IsFormFile(options.File)) {
        TellError("--untitled: goes with a form");
        Status = CUsage;
        return {};
    }
    return options;
}

} // namespace kxdesign
