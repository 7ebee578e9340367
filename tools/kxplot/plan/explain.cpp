#include "kxplot/plan/explain.h"

#include "kxplot/options/words.h"
#include "kxplot/plan/y2.h"

#include <cstddef>
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

std::string XSentence(const TKxTable& Table, const TColumns& Columns, const TAxesPlan& Axes) {
    if (Columns.Texts >= 0) return "x: the texts of " + Named(Table, Columns.Texts) + ", at 1, 2, 3, ...";
    if (Columns.X < 0) return "x: the number of the row";
    std::string text = "x: " + Named(Table, Columns.X);
    if (Columns.Clock >= 0) text += ", with the times of " + Named(Table, Columns.Clock);
    const bool dates = Axes.XLabels.Kind == lkDates || Axes.YLabels.Kind == lkDates; // where bars lie
    if (dates && Table.IsNumeric(Columns.X)) text += ", whose numbers are dates";
    return text;
}

/// That a line would show next to nothing of values with gaps about them.
std::string AloneSentence(const TKxTable& Table, const TColumns& Columns, const TPlan& Plan,
                          const TStyleChoice& Style) {
    std::vector<int> alone;
    for (std::size_t k = 0; k < Plan.Series.size(); ++k) {
        const auto* points = std::get_if<TPointsPlan>(&Plan.Series[k].Kind);
        if (points && points->Style != Style.Style) alone.push_back(Columns.Y[k]);
    }
    if (alone.empty()) return {};
    return "symbols too, because most values stand alone between gaps: " + ListOf(Table, alone);
}

/// That small values are a flat line beside large ones.
std::string Y2Sentence(const TKxTable& Table, const TColumns& Columns, const TPlan& Plan) {
    std::vector<std::vector<double>> values;
    for (const TSeriesPlan& series : Plan.Series)
        if (!series.OnY2) values.push_back(series.Y.Values);
    std::vector<int> off;
    for (const std::size_t k : SeriesForY2(values)) off.push_back(Columns.Y[k]);
    if (off.empty()) return {};
    return "more than two decades off the first of y: " + ListOf(Table, off) +
           "; --y2 gives them an axis of their own";
}

} // namespace

std::vector<std::string> ExplainColumns(const TKxTable& Table, const TColumns& Columns, const TPlan& Plan,
                                        const TStyleChoice& Style) {
    std::vector<std::string> told;
    if (Plan.Drawing.Bins) {
        told.push_back("counted: " + ListOf(Table, Columns.Y));
        return told;
    }
    told.push_back(XSentence(Table, Columns, Plan.Axes));
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
    if (const std::string alone = AloneSentence(Table, Columns, Plan, Style); !alone.empty())
        told.push_back(alone);
    if (const std::string y2 = Y2Sentence(Table, Columns, Plan); !y2.empty()) told.push_back(y2);
    return told;
}

} // namespace kxplot
