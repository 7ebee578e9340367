// What a picture is made of, by table and command line; there is no component yet.

#include "kxplot/arguments.h"
#include "kxplot/options/usageerror.h"
#include "kxplot/plan/bins.h"
#include "kxplot/plan/planner.h"
#include "kxplot/plan/remedies.h"
#include "kxplot/plan/y2.h"

#include <kxgraph/table/Kxtable.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace {

using namespace kxplot;
using test::Parsed;
using TList = std::vector<double>;

constexpr const char* CTable = "t,u,v,e\n1,2,3,0.1\n2,4,5,0.2\n4,3,1,0.1\n";

TPlan Planned(const std::string& Arguments, const std::string& Text = CTable) {
    const kx::TKxTable table(Text, "d.csv");
    return MakePlan(table, Parsed("d.csv " + Arguments));
}

template <class T>
const T& Kind(const TPlan& Plan, std::size_t Series = 0) {
    return std::get<T>(Plan.Series.at(Series).Kind);
}

TEST(Plan, TakesTheColumnsThatAreAskedFor) {
    const std::tuple<const char*, TList, std::vector<TList>> cases[] = {
        {"-y u", {1, 2, 4}, {{2, 4, 3}}},
        {"-y 2 -x v", {3, 5, 1}, {{2, 4, 3}}},
        {"", {1, 2, 4}, {{2, 4, 3}, {3, 5, 1}, {0.1, 0.2, 0.1}}},
        {"--fit line --weight e", {1, 2, 4}, {{2, 4, 3}, {3, 5, 1}}},
        {"--y2 u --dy e", {1, 2, 4}, {{3, 5, 1}, {0.1, 0.2, 0.1}, {2, 4, 3}}},
        {"-x e -y t -y t", {0.1, 0.2, 0.1}, {{1, 2, 4}, {1, 2, 4}}},
        {"-y v --style bars", {1, 2, 4, 6}, {{3, 5, 1}}},
        {"-y v --style bars --horizontal", {1, 2, 4, 6}, {{3, 5, 1}}},
        {"--style arrows --vx u --vy v", {1, 2, 4}, {{0.1, 0.2, 0.1}}},
        {"--hist 3", {1, 2, 3, 4}, {{1, 1, 1}}},
        {"--hist 2 -y t -y v", {1, 3, 5}, {{2, 1}, {1, 2}}},
    };
    for (const auto& [arguments, x, y] : cases) {
        const TPlan plan = Planned(arguments);
        std::vector<TList> found;
        for (const auto& series : plan.Series) found.push_back(series.Y.Values);
        EXPECT_EQ(plan.X.Values, x) << arguments;
        EXPECT_EQ(found, y) << arguments;
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
    const std::string weighed = "--fit line --weight-by-errors ";
    const char* const gaps = "# two lines\nt,u,s\n1,2,0.1\n3,,\n4,5,0\n5,6,\n";
    const std::tuple<std::string, const char*, const char*> cases[] = {
        {"-y w", CTable, "d.csv: has no column 'w'; it has 4 columns"},
        {"-y u --dy e --dy e", CTable, "--dy: more columns of errors than series (1)"},
        {"-y u --dx e --dx e", CTable, "--dx: more columns of errors than series (1)"},
        {"-y u --dx-minus e --dx-minus e", CTable, "--dx-minus: more columns of errors than series (1)"},
        {"-y u --dy-minus e --dy-minus e", CTable, "--dy-minus: more columns of errors than series (1)"},
        {"-y u --style arrows --vx t --vx u --vy t", CTable, "--vx: 2 for a number of series of 1"},
        {"-y u -y v --style arrows --vx t --vx u --vy t", CTable, "--vy: 1 for a number of series of 2"},
        {"", "t,u\n1,y\n", "d.csv: has no numeric column for a series"},
        {"", "t,u\n,1\n", "d.csv: column t is not numeric"},
        {"--log-x", "c,u\na,1\n", "--log-x: there are texts on this axis"},
        {"--log-x", "c,u\n1974Q1,1\n", "--log-x: there are dates on this axis"},
        {"", "t,u\n1,2\n2,\x01\xE9\n", "d.csv:3: column u: '\\x01\\xE9' is not a number"},
        {"-y u --hist 5", "t,u\n1,nan\n2,\n", "d.csv: column u has no finite value"},
        {weighed + "-y u --dy s", gaps, "d.csv:5: the error of u is 0; --weight-by-errors needs one above 0"},
        {weighed + "-y u --dy s --to 3", gaps,
         "d.csv:5: the error of u is 0; --weight-by-errors needs one above 0"},
        {weighed + "-x t -y t --dy-minus s", gaps,
         "d.csv:4: the error of t is missing; --weight-by-errors needs one above 0"},
        {weighed + "-y u -y s --dy t", gaps, "--weight-by-errors: series 2, s, has no --dy"},
    };
    for (const auto& [arguments, text, message] : cases) {
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
    const std::tuple<const char*, const char*, std::vector<std::string>> cases[] = {
        {"-y u", CTable, {"t", "u"}},
        {"-y u -y v", CTable, {"t", "u, v"}},
        {"-y u --style bars --horizontal", CTable, {"u", "t"}},
        {"--hist 2 -y u -y v", CTable, {"u, v", "count"}},
        {"--hist 2 -y u --horizontal", CTable, {"count", "u"}},
        {"", "a\\bc,b & d\n1,2\n2,3\n", {"a\\\\bc", "b & d"}},
        {"", "1,2\n3,4\n", {"", ""}},
        {"", "t,u\ns,(V)\n1,2\n2,3\n", {"t / s", "u (V)"}},
        {"-y u --derivative --integral", CTable, {"t", "u", "d(u) / d(t)", "integral of u"}},
        {"--derivative --integral", "1,2\n3,4\n", {"", "", "dy / dx", "integral of y"}},
        {"-y u --derivative --x-caption T --y-caption \\iU", CTable, {"t", "u", "d(\\iU\\i) / d(T)"}},
    };
    for (const auto& [arguments, text, captions] : cases) {
        const TAxesPlan axes = Planned(arguments, text).Axes;
        std::vector<std::string> found{axes.X, axes.Y};
        for (const auto& side : axes.Side) found.push_back(side.Caption);
        EXPECT_EQ(found, captions) << arguments;
    }
}

TEST(Plan, ShowsFewPointsAndManyAndThoseOfAFitAsSuitsThem) {
    const std::tuple<int, const char*, TStyle, bool> cases[] = {
        {50, "", TStyle::Both, false},
        {51, "", TStyle::Line, false},
        {51, "--style both", TStyle::Both, false},
        {51, "--fit line", TStyle::Points, false},
        {500, "--curve akima", TStyle::Points, false},
        {501, "--curve akima", TStyle::Points, true},
        {501, "--curve akima --style points", TStyle::Points, false},
        {51, "--derivative", TStyle::Line, false}, // it stands on its own axis
        {1, "--style line", TStyle::Both, false},
    };
    for (const auto& [rows, arguments, style, small] : cases) {
        std::string text = "t,u\n";
        for (int i = 0; i < rows; ++i) text += std::to_string(i) + ",1\n";
        const TPlan plan = Planned(arguments, text);
        EXPECT_EQ(Kind<TPointsPlan>(plan).Style, style) << rows << arguments;
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
    struct TCase {
        const char *Arguments, *Text;
        TList X;
        const char* Scales; ///< "x", "y" and "2" for dates, or the texts
        TStyle Style;
    };
    constexpr double day = 86400;
    const TCase cases[] = {
        {"", "c,u\na,1\nb,2\n", {0.5, 1.5, 2.5}, "a b ", TStyle::Bars},
        {"--style points", "c,u\na,1\nb,2\n", {1, 2}, "a b ", TStyle::Points},
        {"", "c,u\na,1\nb,2\na,3\n", {1, 2, 1}, "a b ", TStyle::Points},
        {"--style bars", "c,u\na,1\nb,2\na,3\n", {0.5, 1.5, 2.5, 3.5}, "a b a ", TStyle::Bars},
        {"--dy v -y u", "c,u,v\na,1,1\nb,2,1\n", {1, 2}, "a b ", TStyle::Points},
        {"", "u,v\na 5 1\nb 6 2\n", {5, 6}, "", TStyle::Both},
        {"", "c,u,v\na,5,1\na,6,2\n", {5, 6}, "", TStyle::Both},
        {"", "c,d,u\na,1970-01-02,1\nb,1970-01-03,2\n", {day, 2 * day}, "x", TStyle::Both},
        {"-x 1 -y u", "c,d,u\na,1970-01-02,1\nb,1970-01-03,2\n", {0.5, 1.5, 2.5}, "a b ", TStyle::Bars},
        {"-x u -y d", "u,d\n1,1970-01-02\n2,1970-01-03\n", {1, 2}, "y", TStyle::Both},
        {"-x u -y u --y2 d", "u,d\n1,1970-01-02\n2,1970-01-03\n", {1, 2}, "2", TStyle::Both},
        {"--time 2 -y 1", "5,100\n6,200\n", {100, 200}, "x", TStyle::Both},
        {"", "19700102,1\n19700103,2\n", {day, 2 * day}, "x", TStyle::Both},
        {"", "19700103,1\n19700102,2\n", {19700103, 19700102}, "", TStyle::Both},
        {"", "1\n2\n\n3\n4\n", {1, 2, NAN, 3, 4}, "", TStyle::Both},
        {"", "0 1\n1 1\n1 2\n0 2\n0 1\n", {0, 1, 1, 0, 0}, "", TStyle::Both}, // a closed curve
        {"", "3 1\n1 2\n2 5\n0 1\n", {3, 1, 2, 0}, "", TStyle::Points},
        {"--style line", "3 1\n1 2\n2 5\n0 1\n", {3, 1, 2, 0}, "", TStyle::Line},
    };
    for (const auto& c : cases) {
        const TOptions options = Parsed(std::string("d.csv ") + c.Arguments);
        const TPlan plan = MakePlan(kx::TKxTable(c.Text, "d.csv", FormatOf(options)), options);
        std::string scales = plan.Axes.XLabels.Kind == kx::lkDates ? "x" : "";
        if (plan.Axes.YLabels.Kind == kx::lkDates) scales += "y";
        if (plan.Axes.Y2Labels.Kind == kx::lkDates) scales += "2";
        for (const auto& text : plan.Axes.XLabels.Categories) scales += text + " ";
        EXPECT_EQ(scales, c.Scales) << c.Text;
        ASSERT_EQ(plan.X.Values.size(), c.X.size()) << c.Text;
        for (std::size_t i = 0; i < c.X.size(); ++i)
            EXPECT_TRUE(plan.X.Values[i] == c.X[i] || std::isnan(c.X[i])) << c.Text << i;
        const auto* points = std::get_if<TPointsPlan>(&plan.Series[0].Kind);
        EXPECT_EQ(points ? points->Style : TStyle::Bars, c.Style) << c.Text;
    }
}

TEST(Plan, NamesComponentsAndCountsAnalysesByTheirKind) {
    const TPlan plan = Planned("-y u -y v --fit line --curve akima --fit poly:2 --integral");
    std::string names;
    for (const auto& series : plan.Series) names += series.Name + " " + series.Y.Name + " ";
    for (const auto& analysis : plan.Analyses) names += analysis.Name + " ";
    EXPECT_EQ(names, "Series1 YData1 Series2 YData2 Fit1 Fit2 Curve1 Integral1 Fit3 Fit4 Curve2 Integral2 ");
    EXPECT_EQ(plan.Axes.Side.at(0).Name, "SecondaryAxis1");
    EXPECT_EQ(plan.Analyses[4].Place.Series, 1);
    EXPECT_EQ(plan.Analyses[5].Text, "quadratic fit");
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

} // namespace
