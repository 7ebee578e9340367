#include "kxplot/options/axesrequest.h"

#include "kxplot/options/usageerror.h"

namespace kxplot {

void AddAxesOptions(CLI::App& App, TAxesRequest& Request) {
    App.add_option("--y2", Request.Y2,
                   "column of a series against a second y axis, at the right (several allowed); of a single "
                   "one the axis has the colour")
        ->type_name("COL")
        ->allow_extra_args(false);
    App.add_flag("--box", Request.Box, "axes on all four sides, those opposite without labels");
    App.add_option("--zone", Request.Zone,
                   "time zone that dates are shown in, e.g. Europe/Berlin or UTC+02:00 (default: UTC)")
        ->type_name("NAME");
}

void CheckAxes(const TAxesRequest& Request, bool HasBars) {
    if (!Request.Y2.empty() && HasBars)
        throw TUsageError("--y2: does not go with bars; it needs lines, points or arrows");
}

} // namespace kxplot
