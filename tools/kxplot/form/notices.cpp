#include "kxplot/form/notices.h"

#include <kxgraph/platform/text/text.h>

#include <algorithm>

namespace kxplot {

using namespace kx;

namespace {

bool HasPlace(const TKxAxis* Axis, double Value) {
    return Axis ? Axis->HasPlace(Value) : kx::HasPlace(AxNormal, Value);
}

bool HasDrawablePoint(const TKxNotCalculatedSeries& Series) {
    if (!Series.GetXData() || !Series.GetYData()) return false;
    const auto x = Series.GetXData()->Values(), y = Series.GetYData()->Values();
    for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i)
        if (HasPlace(Series.GetXAxis(), x[i]) && HasPlace(Series.GetYAxis(), y[i])) return true;
    return false;
}

} // namespace

std::vector<std::string> NoticesOf(const TParts& Parts) {
    constexpr std::size_t most = 3;
    std::string list;
    std::size_t count = 0;
    const auto add = [&](const std::string& Column) {
        if (++count <= most) list += (count > 1 ? ", " : "") + Column;
    };
    for (std::size_t k = 0; k < Parts.Series.size(); ++k)
        if (!HasDrawablePoint(*Parts.Series[k])) add(Parts.Plan.Series[k].ShownColumn);
    for (const auto& column : Parts.Plan.LeftOut) add(column);
    if (count == 0) return {};
    if (count > most) list += " and " + std::to_string(count - most) + " more";
    return {Escaped(Parts.Plan.Table) + ": no point of column " + list + " can be drawn"};
}

} // namespace kxplot
