#include "kxplot/plan/captions.h"

#include "kxplot/plan/captiontext.h"

#include <span>
#include <utility>

namespace kxplot {

using namespace kx;

namespace {

std::string SeriesHeaders(const TKxTable& Table, std::span<const int> Columns) {
    std::string headers;
    for (const int column : Columns) {
        const std::string header = HeaderWithUnit(Table, column);
        headers += (headers.empty() || header.empty() ? "" : ", ") + header;
    }
    return headers;
}

TKxCaption SideCaption(TQuantity Quantity, const TKxCaption& X, const TKxCaption& Y) {
    if (Quantity == TQuantity::Integral) return "integral of " + (Y.empty() ? "y" : Y);
    return "d" + (Y.empty() ? "y" : "(" + Y + ")") + " / d" + (X.empty() ? "x" : "(" + X + ")");
}

} // namespace

std::string HeaderWithUnit(const TKxTable& Table, int Column) {
    std::string header = Table.GetHeader(Column);
    const std::string unit = Table.GetUnit(Column);
    if (unit.empty() || header.empty()) return header;
    const bool isEnclosed = unit.front() == '(' || unit.front() == '[';
    return header + (isEnclosed ? " " : " / ") + unit;
}

// Series would find or make an axis at the right by themselves, but derivative and integral the same one.
TAxesPlan PlanAxes(const TKxTable& Table, const TColumns& Columns, const TOptions& Options) {
    const auto series = std::span(Columns.Y);
    const std::string headers = SeriesHeaders(Table, series.first(Columns.FirstOnY2));
    const bool bins = Options.Drawing.Bins.has_value();
    TAxesPlan axes;
    const int x = Columns.Texts >= 0 ? Columns.Texts : Columns.X;
    axes.X = EscapeCaption(bins ? headers : x >= 0 ? HeaderWithUnit(Table, x) : "");
    axes.Y = EscapeCaption(bins ? "count" : headers);
    axes.SeriesOnX = bins != Options.Drawing.Horizontal;
    if (const auto y2 = series.subspan(Columns.FirstOnY2); !y2.empty())
        axes.Y2 = EscapeCaption(SeriesHeaders(Table, y2));
    axes.Zone = Options.Axes.Zone;
    axes.Box = Options.Axes.Box;
    if (Options.Drawing.Horizontal) std::swap(axes.X, axes.Y);
    const auto shown = [](const std::optional<std::string>& Given, const TKxCaption& Header) {
        return Given ? Closed(*Given) : Header;
    };
    const TKxCaption overX = shown(Options.Look.XCaption, axes.X),
                     overY = shown(Options.Look.YCaption, axes.Y);
    for (std::size_t k = 0; k < Options.Analyses.size(); ++k)
        if (const TQuantity quantity = Options.Analyses[k].Quantity; quantity != TQuantity::Value)
            axes.Side.push_back({quantity,
                                 "SecondaryAxis" + std::to_string(axes.Side.size() + 1),
                                 SideCaption(quantity, overX, overY),
                                 {int(k), 0, false}});
    return axes;
}

} // namespace kxplot
