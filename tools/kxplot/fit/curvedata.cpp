#include "kxplot/fit/curvedata.h"

#include "kxplot/plan/captiontext.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace kxplot {

using namespace kx;

namespace {

using TValues = std::vector<double>;

struct TColumn {
    std::string Header;
    TValues Values;
};

TValues ValuesOf(const TKxCustomRealVector* Vector, int Count) {
    TValues values;
    values.reserve(std::size_t(Count));
    for (int i = 0; i < Count; ++i) values.push_back(Vector->GetValue(i));
    return values;
}

std::string Cell(const std::string& Text) {
    if (Text.find_first_of(",\"\n") == Text.npos) return Text;
    std::string cell = "\"";
    for (const char c : Text) cell.append(c == '"' ? 2 : 1, c);
    return cell + '"';
}

std::string Cell(double Value) {
    if (!std::isfinite(Value)) return {};
    char digits[32];
    return {digits, std::to_chars(digits, std::end(digits), Value).ptr};
}

/// Columns over the same x values, which are the first one.
using TGroup = std::vector<TColumn>;

/// The group of the curve's x values.
TGroup& GroupOf(std::vector<TGroup>& Groups, const TKxCalculatedSeries& Line, const std::string& XHeader) {
    TValues x = ValuesOf(Line.GetXData(), Line.GetPointsCount());
    auto group = std::find_if(Groups.begin(), Groups.end(),
                              [&](const TGroup& Group) { return Group.front().Values == x; });
    if (group == Groups.end()) group = Groups.insert(group, {{XHeader, std::move(x)}});
    return *group;
}

void Add(std::vector<TGroup>& Groups, const TKxCalculatedSeries& Line, const std::string& XHeader) {
    GroupOf(Groups, Line, XHeader)
        .push_back({PlainText(Line.GetCaption()), ValuesOf(Line.GetYData(), Line.GetPointsCount())});
}

void AddBand(std::vector<TGroup>& Groups, const TKxFitBand& Band, const std::string& XHeader) {
    TGroup& group = GroupOf(Groups, Band, XHeader);
    const std::string caption = PlainText(Band.GetCaption());
    group.push_back({caption + ", lower edge", Band.GetLowerEdge()});
    group.push_back({caption + ", upper edge", ValuesOf(Band.GetYData(), Band.GetPointsCount())});
}

} // namespace

std::string CurveData(const TParts& Parts) {
    std::vector<TGroup> groups;
    const std::string caption = PlainText(Parts.Plan.Axes.X), header = caption.empty() ? "x" : caption;
    for (const TAnalysis& analysis : Parts.Analyses)
        if (analysis.HasCurve()) Add(groups, *analysis.Line, header);
    for (const TBand& band : Parts.Bands)
        if (band.Line->GetPointsCount() > 0) AddBand(groups, *band.Line, header);
    std::vector<TColumn> columns;
    for (TGroup& group : groups) std::ranges::move(group, std::back_inserter(columns));
    std::size_t rows = 0;
    std::string text;
    for (const TColumn& column : columns) {
        rows = std::max(rows, column.Values.size());
        text += (text.empty() ? "" : ",") + Cell(column.Header);
    }
    text += '\n';
    for (std::size_t row = 0; row < rows; ++row) {
        for (const TColumn& column : columns) {
            if (&column != &columns.front()) text += ',';
            if (row < column.Values.size()) text += Cell(column.Values[row]);
        }
        text += '\n';
    }
    return text;
}

} // namespace kxplot
