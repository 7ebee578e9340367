#include "kxplot/plan/explain.h"

#include "kxplot/options/words.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace kxplot {

using namespace kx;

namespace {

std::string Named(const TKxTable& Table, int Column) {
    const std::string number = "column " + std::to_string(Column + 1);
    return Table.GetHeader(Column).empty() ? number : number + ", " + Table.ShownName(Column);
}

std::string ListOf(const TKxTable& Table, const std::vector<int>& Columns) {
    constexpr std::size_t most = 10;
    std::string list;
    for (std::size_t k = 0; k < Columns.size() && k < most; ++k)
        list += (k > 0 ? "; " : "") + Named(Table, Columns[k]);
    if (Columns.size() > most) list += "; and " + std::to_string(Columns.size() - most) + " more";
    return list;
}

std::string XSentence(const TKxTable& Table, const TColumns& Columns, const TScalesPlan& Scales) {
    if (Columns.Texts >= 0) return "x: the texts of " + Named(Table, Columns.Texts) + ", at 1, 2, 3, ...";
    if (Columns.X < 0) return "x: the number of the row";
    std::string text = "x: " + Named(Table, Columns.X);
    if (Scales.XIsDate && Table.IsNumeric(Columns.X)) text += ", whose numbers are dates";
    return text;
}

/// Whether the values of the series differ so much that small ones are a flat line beside large ones.
bool DifferByDecades(const TPlan& Plan) {
    double least = 0, most = 0;
    for (const TSeriesPlan& series : Plan.Series) {
        double size = 0;
        for (const double value : series.Y.Values)
            if (std::isfinite(value)) size = std::max(size, std::abs(value));
        if (size == 0) continue;
        least = least == 0 ? size : std::min(least, size);
        most = std::max(most, size);
    }
    return most > 100 * least;
}

} // namespace

std::vector<std::string> ExplainColumns(const TKxTable& Table, const TColumns& Columns, const TPlan& Plan,
                                        const TStyleChoice& Style) {
    std::vector<std::string> told;
    if (Plan.Drawing.Bins) {
        told.push_back("counted: " + ListOf(Table, Columns.Y));
        return told;
    }
    told.push_back(XSentence(Table, Columns, Plan.Scales));
    if (Columns.Names >= 0)
        told.push_back("left out: the texts of " + Named(Table, Columns.Names) +
                       ", which name the rows; -x takes them");
    told.push_back("y: " + ListOf(Table, Columns.Y));
    for (const auto& [option, columns] :
         {std::pair{"--dx", &Columns.DXPlus}, std::pair{"--dy", &Columns.DYPlus},
          std::pair{"--dx-minus", &Columns.DXMinus}, std::pair{"--dy-minus", &Columns.DYMinus}})
        for (std::size_t k = 0; k < columns->size(); ++k)
            if ((*columns)[k] >= 0)
                told.push_back(std::string("errors by ") + option + " of series " + std::to_string(k + 1) +
                               ": " + Named(Table, (*columns)[k]));
    told.push_back("style: " + WordOf(Style.Style) + ", because " + Style.Why);
    if (DifferByDecades(Plan)) told.push_back("the columns of y differ by more than two decades");
    return told;
}

} // namespace kxplot
