#include "kxplot/options/windowrequest.h"

#include "kxplot/options/number.h"
#include "kxplot/options/usageerror.h"

#include <CLI/CLI.hpp>

namespace kxplot {

void AddWindowOptions(CLI::App& App, TWindowArguments& Given) {
    App.add_flag(
        "--show", Given.Show,
        "opens a window with the picture, to zoom, copy, print and save it; with -o it is written, too");
    App.add_option("--show-for", Given.Seconds, "the same, and closes the window after that time")
        ->type_name("SECONDS");
}

TWindowRequest ParseWindow(const TWindowArguments& Given) {
    TWindowRequest request{Given.Show || Given.Seconds, std::nullopt};
    if (!Given.Seconds) return request;
    request.Seconds = ParseFinite(*Given.Seconds);
    constexpr double CMostSeconds = 1e6;
    if (!request.Seconds || *request.Seconds <= 0 || *request.Seconds > CMostSeconds)
        FailUsage("--show-for", *Given.Seconds, "is not a number of seconds");
    return request;
}

} // namespace kxplot
