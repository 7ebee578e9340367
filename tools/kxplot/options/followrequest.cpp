#include "kxplot/options/followrequest.h"

#include "kxplot/options/number.h"
#include "kxplot/options/usageerror.h"

#include <CLI/CLI.hpp>

#include <limits>

namespace kxplot {

void AddFollowOptions(CLI::App& App, TFollowArguments& Given) {
    App.add_flag(
        "--follow", Given.Follow,
        "goes on reading DATA, also standard input, while it grows, is truncated or made anew; Ctrl+C "
        "writes the files that are asked for and ends");
    App.add_option("--window", Given.Window, "rows that --follow keeps, the last ones (default: all)")
        ->type_name("N");
}

TFollowRequest ParseFollow(const TFollowArguments& Given) {
    TFollowRequest request;
    request.Wanted = Given.Follow;
    if (!Given.Window) return request;
    if (!Given.Follow) throw TUsageError("--window: goes with --follow alone");
    request.Window = ParseWhole(*Given.Window, 1, std::numeric_limits<int>::max());
    if (!request.Window) FailUsage("--window", *Given.Window, "is not a whole number of rows from 1");
    return request;
}

} // namespace kxplot
