// What a picture is made of, by table and command line; there is no component yet.

#include "kxplot/arguments.h"
#include "kxplot/options/usageerror.h"
#include "kxplot/plan/bins.h"
#include "kxplot/plan/planner.h"
#include "kxplot/plan/remedies.h"
#include "kxplot/plan/y2.h"

#include <kxgraph/table/Kxtable.h>

namespace kxplot::test::plan {

using TList = std::vector<double>;

constexpr const char* CTable = "t,u,v,e\n1,2,3,0.1\n2,4,5,0.2\n4,3,1,0.1\n";

TPlan Planned(const std::string& Arguments, const std::string& Text = "") {
    const std::string text = Text.empty() ? CTable : Text;
    const kx::TKxTable table(text, "d.csv");
    return MakePlan(table, Parsed("d.csv " + Arguments));
}

template <class T>
const T& Kind(const TPlan& Plan, std::size_t Series = 0) {
    return std::get<T>(Plan.Series.at(Series).Kind);
}

std::string TextOf(const std::string& Text) { return Text; }
std::string TextOf(double Value) { return std::isnan(Value) ? "nan" : kx::FloatToStr(Value); }
std::string Joined(const auto& Parts, const char* Between) {
    std::string all;
    for (const auto& part : Parts) all += (&part == &*Parts.begin() ? "" : Between) + TextOf(part);
    return all;
}

/// "bars" or how the points of the first series are shown.
std::string StyleOf(const TPlan& Plan) {
    const auto* points = std::get_if<TPointsPlan>(&Plan.Series[0].Kind);
    return points ? std::array{"line", "points", "both"}.at(std::size_t(points->Style)) : "bars";
}
TEST(Plan, TakesTheColumnsThatAreAskedFor) {
    for (const auto& [arguments, x, y] : Cases<TText, TText, TText>("plans", "columns")) {
        const TPlan plan = Planned(arguments);
        std::vector<TText> found;
        for (const auto& series : plan.Series) found.push_back(Joined(series.Y.Values, " "));
        EXPECT_EQ(Joined(plan.X.Values, " "), x) << arguments;
        EXPECT_EQ(Joined(found, "; "), y) << arguments;
    }
    const TPlan two = Planned("-y u --y2 v --y2 e");
    EXPECT_TRUE(!two.Series[0].OnY2 && two.Series[1].OnY2 && two.Series[2].OnY2);
    EXPECT_EQ(two.Axes.Y + "|" + two.Axes.Y2.value_or("none"), "u|v, e");
    EXPECT_EQ(Planned("", "5\n6\n").X.Values, (TList{1, 2})) << "a single column";
    EXPECT_EQ(Planned("--fit line --weight e").Weight.value().Values, (TList{0.1, 0.2, 0.1}));
}

TEST(Plan, SeriesMoreThanTwoDecadesOffTheFirstAreForASecondAxis) {
    const std::vector<TList> series = {{0, 0}, {1, -3, NAN}, {300}, {-301, 1}, {0.03}, {0.02, INFINITY}, {}};
    EXPECT_EQ(SeriesForY2(series), (std::vector<std::size_t>{3, 5}));
}

TEST(Plan, GivesSeriesTheirErrorsComponentsAndWeights) {
    const TPlan plan =
        Planned("-y u -y v --dy e --dy t --dy-minus v --dx-minus u --fit line --weight-by-errors");
    const auto &first = Kind<TPointsPlan>(plan), &second = Kind<TPointsPlan>(plan, 1);
    EXPECT_EQ(first.DYPlus.value().Values, (TList{0.1, 0.2, 0.1}));
    EXPECT_EQ(first.DYMinus.value().Values, (TList{3, 5, 1}));
    EXPECT_EQ(first.DXMinus.value().Values, (TList{2, 4, 3}));
    EXPECT_EQ(second.DYPlus.value().Values, (TList{1, 2, 4}));
    EXPECT_FALSE(first.DXPlus || second.DXPlus || second.DXMinus || second.DYMinus);
    const double mean = (0.1 + 3) / 2; // of both errors
    EXPECT_DOUBLE_EQ(plan.Series[0].Weight.value().Values[0], 1 / mean / mean);
    EXPECT_EQ(plan.Series[1].Weight.value().Values, (TList{1, 0.25, 0.0625}));
    EXPECT_FALSE(Planned("-y u --dy e --fit line").Series[0].Weight) << "errors alone weigh nothing";
    const TPlan arrows = Planned("-y u --style arrows --vx v --vy e");
    EXPECT_EQ(Kind<TArrowsPlan>(arrows).DX.Values, (TList{3, 5, 1}));
    EXPECT_EQ(Kind<TArrowsPlan>(arrows).DY.Values, (TList{0.1, 0.2, 0.1}));
}

TEST(Plan, SaysWhatIsWrongWithTheTableOrTheOptions) {
    for (const auto& [arguments, text, message] : Cases<TText, TText, TText>("plans", "faults")) {
        std::string told = "nothing";
        try {
            Planned(arguments, text);
        } catch (const TUsageError& error) {
            told = error.what();
            EXPECT_EQ(told.substr(0, 2), "--");
        } catch (const kx::ETableError& error) {
            told = error.what();
            EXPECT_EQ(told.substr(0, 5), "d.csv");
        }
        EXPECT_EQ(told, message) << arguments;
    }
}

TEST(Plan, CaptionsAreHeadersAsTheyStand) {
    for (const auto& [arguments, text, captions] : Cases<TText, TText, TText>("plans", "captions")) {
        const TAxesPlan axes = Planned(arguments, text).Axes;
        std::vector<TText> found{axes.X, axes.Y};
        for (const auto& side : axes.Side) found.push_back(side.Caption);
        EXPECT_EQ(Joined(found, "; "), captions) << arguments;
    }
}

TEST(Plan, ShowsFewPointsAndManyAndThoseOfAFitAsSuitsThem) {
    for (const auto& [rows, arguments, style, small] : Cases<int, TText, TText, bool>("plans", "styles")) {
        std::string text = "t,u\n";
        for (int i = 0; i < rows; ++i) text += std::to_string(i) + ",1\n";
        const TPlan plan = Planned(arguments, text);
        EXPECT_EQ(StyleOf(plan), style) << rows << arguments;
        EXPECT_EQ(Kind<TPointsPlan>(plan).SmallSymbols, small) << rows << arguments;
    }
    const std::tuple<const char*, bool, double> bars[] = {
        {"--style bars", false, 10}, {"--style bars3d -y v", true, 0}, {"--hist 2 -y u -y v", false, 0}};
    for (const auto& [arguments, boxes, gap] : bars) {
        const TPlan plan = Planned(arguments);
        EXPECT_EQ(std::pair(Kind<TBarsPlan>(plan).Boxes, Kind<TBarsPlan>(plan).GapPercent),
                  std::pair(boxes, gap));
    }
}

TEST(Plan, PutsTextsAndDatesOverX) {
    for (const auto& [arguments, text, x, expected, style] :
         Cases<TText, TText, TText, TText, TText>("plans", "texts and dates")) {
        SCOPED_TRACE(arguments + " " + text);
        const TOptions options = Parsed("d.csv " + arguments);
        const TPlan plan = MakePlan(kx::TKxTable(text, "d.csv", FormatOf(options)), options);
        std::string scales = plan.Axes.XLabels.Kind == kx::lkDates ? "x" : "";
        if (plan.Axes.YLabels.Kind == kx::lkDates) scales += "y";
        if (plan.Axes.Y2Labels.Kind == kx::lkDates) scales += "2";
        EXPECT_EQ(scales + Joined(plan.Axes.XLabels.Categories, " "), expected);
        EXPECT_EQ(Joined(plan.X.Values, " "), x);
        EXPECT_EQ(StyleOf(plan), style);
    }
}

TEST(Plan, NamesComponentsAndCountsAnalysesByTheirKind) {
    const TPlan plan = Planned("-y u -y v --fit line --curve akima --fit poly:2 --integral");
    std::string names;
    for (const auto& series : plan.Series) names += series.Name + " " + series.Y.Name + " ";
    for (const auto& analysis : plan.Analyses) names += analysis.Name + " ";
    EXPECT_EQ(names, "Series1 YData1 Series2 YData2 Fit1 Fit2 Curve1 Integral1 Fit3 Fit4 Curve2 Integral2 ");
    EXPECT_EQ(std::tuple(plan.Axes.Side.at(0).Name, plan.Analyses[4].Place.Series, plan.Analyses[5].Text),
              std::tuple("SecondaryAxis1", 1, "quadratic fit"));
    const std::pair<const char*, bool> legends[] = {{"-y u", false},
                                                    {"", true},
                                                    {"-y u --fit line", true},
                                                    {"-y u --legend top", true},
                                                    {"-y u --no-legend", true}};
    for (const auto& [arguments, has] : legends) EXPECT_EQ(Planned(arguments).HasLegend, has) << arguments;
}

TEST(Bins, CountEachFiniteValueOnce) {
    constexpr double inf = std::numeric_limits<double>::infinity(), huge = 1.7e308, tiny = 5e-324;
    const std::tuple<TList, int, TList, TList> cases[] = {
        {{1, 2, 2, 3, 4, 5, NAN, inf, -inf}, 4, {1, 2, 3, 4, 5}, {1, 2, 1, 2}},
        {{7, 7}, 2, {6.5, 7, 7.5}, {0, 2}},
        {{-huge, huge, 0}, 2, {-huge, 0, huge}, {1, 2}},
        {{0, tiny}, 2, {0, 0, tiny}, {0, 2}},
        {{0.1, 0.3}, 1, {0.1, 0.3}, {2}},
    };
    for (const auto& [values, count, edges, counts] : cases) {
        TFiniteRange range;
        range.Include(values);
        EXPECT_EQ(EqualBins(range, count), edges);
        EXPECT_EQ(CountInBins(edges, values), counts);
    }
    const auto edges = EqualBins({1e300, 1e300}, 1000000);
    EXPECT_TRUE(std::is_sorted(edges.begin(), edges.end(), std::less_equal<>())) << "bins have widths";
    const std::pair<TList, double> ends[] = {
        {{1, 3, 6}, 9}, {{4}, 5}, {{3, 1}, -1}, {{2, 2}, 3}, {{NAN, 2}, 3}};
    for (const auto& [values, last] : ends) {
        ASSERT_EQ(WithLastEdge(values).size(), values.size() + 1);
        EXPECT_EQ(WithLastEdge(values).back(), last);
    }
}

} // namespace kxplot::test::plan
