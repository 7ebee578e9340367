// Bars, histograms, arrows and legends: how they are asked for, and what stands in the picture.

#include "kxplot/bins.h"
#include "kxplot/plot.h"
#include "kxplot/program.h"

#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/qt/Kxqtinstall.h>

#include <cmath>
#include <limits>
#include <memory>

namespace {

using namespace kxplot;
using namespace kxplot::test;
using kx::TKxBarSeries;

TOptions Parsed(const std::string& Arguments) {
    std::istringstream stream("kxplot d.csv " + Arguments);
    std::vector<std::string> words(std::istream_iterator<std::string>(stream), {});
    std::vector<char*> pointers;
    for (auto& word : words) pointers.push_back(word.data());
    return ParseOptions(int(pointers.size()), pointers.data()).value();
}

TEST(KxplotDrawing, TellsWhatDoesNotGoTogether) {
    const std::string bars = "there is no --style bars, --style bars3d or --hist that it could be for";
    const std::string places =
        "is not top-left, top-right, bottom-left, bottom-right, right, left, top or bottom";
    const std::string count = "is not a whole number from 1 to 1000000";
    const std::string edges = ": does not go with bars, whose x are edges; it needs a line or points";
    const std::pair<const char*, std::string> cases[] = {
        {"--style dots", "--style: 'dots' is not line, points, both, bars, bars3d or arrows"},
        {"--style bars --stack --shift", "--stack: does not go with --shift"},
        {"--stack", "--stack: " + bars},
        {"--style both --shift", "--shift: " + bars},
        {"--horizontal", "--horizontal: " + bars},
        {"--vx a", "--vx: there is no --style arrows that it could be for"},
        {"--style bars --vy a", "--vy: there is no --style arrows that it could be for"},
        {"--style arrows", "--style arrows: needs --vx and --vy"},
        {"--style arrows --vx a", "--style arrows: needs --vx and --vy"},
        {"--hist 5 --style points", "--hist: is drawn with --style bars or bars3d"},
        {"--hist 0", "--hist: '0' " + count},
        {"--hist 1000001", "--hist: '1000001' " + count},
        {"--hist 5 -x t", "-x: --hist takes the columns of -y alone"},
        {"--style bars --dx e", "--dx: there are no error bars on bars"},
        {"--hist 3 --dy-minus e", "--dy-minus: there are no error bars on bars"},
        {"--style arrows --vx a --vy b --dy e", "--dy: there are no error bars on arrows"},
        {"--legend middle", "--legend: 'middle' " + places},
        {"--legend top --no-legend", "--legend: does not go with --no-legend"},
        {"--style bars --fit line", "--fit" + edges},
        {"--hist 9 --curve akima", "--curve" + edges},
        {"--style bars3d --derivative", "--derivative" + edges},
        {"--style arrows --vx a --vy b --integral",
         "--integral: does not go with arrows; it needs a line or points"},
    };
    for (const auto& [arguments, message] : cases) {
        SCOPED_TRACE(arguments);
        try {
            Parsed(arguments);
            ADD_FAILURE() << "nothing was raised";
        } catch (const TUsageError& error) {
            EXPECT_EQ(error.what(), message);
        }
    }
}

TEST(KxplotBins, CountEachFiniteValueOnce) {
    constexpr double inf = std::numeric_limits<double>::infinity(), huge = 1.7e308, tiny = 5e-324;
    using TList = std::vector<double>;
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
    TFiniteRange single;
    single.Include({1e300});
    const auto edges = EqualBins(single, 1000000);
    EXPECT_TRUE(std::is_sorted(edges.begin(), edges.end(), std::less_equal<>())) << "bins have widths";
    const std::pair<TList, TList> ends[] = {{{1, 3, 6}, {1, 3, 6, 9}},
                                            {{4}, {4, 5}},
                                            {{3, 1}, {3, 1, -1}},
                                            {{2, 2}, {2, 2, 3}},
                                            {{NAN, 2}, {NAN, 2, 3}}};
    for (const auto& [values, expected] : ends) {
        const auto found = WithLastEdge(values);
        ASSERT_EQ(found.size(), expected.size());
        EXPECT_EQ(found.back(), expected.back());
    }
}

/// The plot in this process.
class KxplotDrawingPlot : public KxplotProgram {
protected:
    static void SetUpTestSuite() { kx::qt::Install(true); }

    TPlot& Plot(const std::string& Arguments, const std::string& Text = "t,u,v\n1,2,3\n2,4,5\n4,3,1\n") {
        FPlot.reset();
        FText = Text;
        FOptions = Parsed(Arguments);
        const kx::TKxTable table(FText, "d.csv");
        FPlot = std::make_unique<TPlot>(table, FOptions);
        if (!FOptions.Outfit.empty()) FPlot->LoadOutfit(FOptions.Outfit);
        FPlot->Apply(FOptions);
        return *FPlot;
    }
    template <class T>
    T& Component(const char* Name) {
        auto* found = dynamic_cast<T*>(FPlot->GetForm().FindComponent(Name));
        if (!found) throw std::runtime_error(std::string("no ") + Name);
        return *found;
    }
    static std::vector<double> Values(kx::TKxCustomRealVector* Vector) {
        return {Vector->Values().begin(), Vector->Values().end()};
    }
    std::string Captions() {
        return Component<kx::TKxAxis>("XAxis").GetCaption() + "|" +
               Component<kx::TKxAxis>("YAxis").GetCaption();
    }
    int Entries() {
        auto& legend = Component<kx::TKxLegend>("Legend1");
        return legend.GetVisible() && legend.GetGraph() ? legend.GetEntryCount() : 0;
    }

private:
    std::string FText;
    TOptions FOptions;
    std::unique_ptr<TPlot> FPlot;
};

TEST_F(KxplotDrawingPlot, BarsHaveTheirEdgesAndStandAsAsked) {
    struct TCase {
        const char* Arguments;
        bool Shift, Stack, Horizontal, Boxes;
        double Gap;
    };
    for (const auto& c : {TCase{"--style bars", true, false, false, false, 10},
                          {"--style bars -y v", false, false, false, false, 0},
                          {"--style bars --stack", false, true, false, false, 10},
                          {"--style bars3d --shift --horizontal", true, false, true, true, 10},
                          {"--hist 2 -y u -y v --style bars3d", true, false, false, true, 0}}) {
        SCOPED_TRACE(c.Arguments);
        Plot(c.Arguments);
        const auto& bars = Component<TKxBarSeries>("Series1");
        EXPECT_EQ(std::tuple(bars.GetShiftOverlays(), bars.GetStackOverlays(), bars.GetBarHorizontal(),
                             bars.GetShow3DBars(), bars.GetBarsGapPercent()),
                  std::tuple(c.Shift, c.Stack, c.Horizontal, c.Boxes, c.Gap));
        auto* const edges = c.Horizontal ? bars.GetYData() : bars.GetXData();
        auto* const lengths = c.Horizontal ? bars.GetXData() : bars.GetYData();
        EXPECT_EQ(edges->GetCount(), lengths->GetCount() + 1);
        EXPECT_EQ(bars.GetPointsCount(), lengths->GetCount()) << "every row has its bar";
    }
    Write("o.ini", Plot("--style bars --horizontal --save-outfit o.ini").GetOutfit());
    Plot("--style bars --stack --outfit " + Path("o.ini"));
    const auto& bars = Component<TKxBarSeries>("Series2");
    EXPECT_EQ(Values(bars.GetXData()), (std::vector<double>{1, 2, 4, 6})) << "whatever an outfit says";
    EXPECT_EQ(Values(bars.GetYData()), (std::vector<double>{3, 5, 1}));
    EXPECT_TRUE(bars.GetStackOverlays() && !bars.GetBarHorizontal());
}

TEST_F(KxplotDrawingPlot, HistogramsShareTheirBinsAndCountEveryColumn) {
    Plot("--hist 3 -y u -y v", "t,u,v\n1,0,1\n2,1,nan\n3,1.5,6\n4,6,5\n");
    const auto &first = Component<TKxBarSeries>("Series1"), &second = Component<TKxBarSeries>("Series2");
    EXPECT_EQ(Values(first.GetXData()), (std::vector<double>{0, 2, 4, 6}));
    EXPECT_EQ(first.GetXData(), second.GetXData());
    EXPECT_EQ(Values(first.GetYData()), (std::vector<double>{3, 0, 1}));
    EXPECT_EQ(Values(second.GetYData()), (std::vector<double>{1, 0, 2}));
    Plot("--hist 2");
    EXPECT_EQ(Values(Component<TKxBarSeries>("Series1").GetYData()), (std::vector<double>{2, 1}));
    EXPECT_THROW(Plot("--hist 2 -y u", "t,u\n1,nan\n2,\n"), kx::ETableError);
}

TEST_F(KxplotDrawingPlot, ArrowsHaveComponentsThatAreNoSeries) {
    const std::string field = "x,y,a,b\n1,2,3,4\n2,3,4,5\n";
    Plot("--style arrows --vx a --vy b", field);
    const auto& arrows = Component<kx::TKxArrowSeries>("Series1");
    EXPECT_EQ(std::tuple(arrows.GetDX(1), arrows.GetDY(0), arrows.GetYData()->GetValue(1)),
              std::tuple(4, 4, 3));
    EXPECT_THROW(Component<kx::TKxArrowSeries>("Series2"), std::runtime_error);
    EXPECT_THROW(Plot("--style arrows --vx a --vy b -y y -y a", field), TUsageError);
}

TEST_F(KxplotDrawingPlot, ALegendStandsWhereThereIsMoreThanOneEntryAndTakesTheHeaders) {
    const std::tuple<const char*, int, const char*> cases[] = {
        {"-y u", 0, "t|u"},
        {"", 2, "t|"},
        {"--no-legend", 0, "t|u, v"},
        {"--y-caption both", 2, "t|both"},
        {"-y u --legend bottom", 1, "t|u"},
        {"-y u --fit line", 2, "t|u"},
        {"-y u --fit poly:4", 0, "t|u"}, // which fails
        {"--fit line --fit poly:4", 4, "t|"},
        {"--style bars --horizontal", 2, "|t"},
        {"--style bars --horizontal -y u", 0, "u|t"},
        {"--hist 2 -y u", 0, "u|count"},
        {"--hist 2 -y u --horizontal", 0, "count|u"},
        {"--hist 2 -y u -y v", 2, "|count"},
        {"--hist 2 -y u -y v --no-legend", 0, "u, v|count"},
    };
    for (const auto& [arguments, entries, captions] : cases) {
        SCOPED_TRACE(arguments);
        Plot(arguments);
        EXPECT_EQ(Entries(), entries);
        EXPECT_EQ(Captions(), captions);
        EXPECT_EQ(Component<kx::TKxAxis>("YAxis").GetCaptionFont().GetSize(), 11) << "also without a text";
    }
}

TEST_F(KxplotDrawingPlot, ALegendIsKeptInAnOutfitAndMovedByOptions) {
    Write("o.ini", Plot("--legend top-left --set Legend1.Columns=2 --set Legend1.Gap=3").GetOutfit());
    const std::string outfit = "--outfit " + Path("o.ini");
    const std::tuple<std::string, kx::TKxLegendPlacement, int, bool> cases[] = {
        {"", kx::lgInsideTopLeft, 2, true},
        {" --legend bottom", kx::lgBottom, 0, true},
        {" --no-legend", kx::lgInsideTopLeft, 2, false},
    };
    for (const auto& [more, placement, columns, visible] : cases) {
        Plot(outfit + more);
        const auto& legend = Component<kx::TKxLegend>("Legend1");
        EXPECT_EQ(
            std::tuple(legend.GetPlacement(), legend.GetColumns(), legend.GetVisible(), legend.GetGap()),
            std::tuple(placement, columns, visible, 3))
            << more;
    }
    Plot(outfit + " -y u");
    EXPECT_EQ(Entries(), 0) << "one entry needs none";
}

TEST_F(KxplotDrawingPlot, TheProgramDrawsThem) {
    for (const char* style : {"bars", "bars --stack", "bars --horizontal", "bars3d --log-y", "bars --log-x"})
        ExpectDrawn("t,u,v\n1,2,nan\n2,-4,5\n3,3,1\n", Words(std::string("--style ") + style));
    ExpectDrawn("t,u\n3,5\n", {"--style", "bars"});
    ExpectDrawn("t,u\n3,5\n", {"--hist", "1000000"});
    ExpectDrawn("x,y,a,b\n0,1,1,nan\n1,2,-1,0\n", Words("--style arrows --vx a --vy b --log-x"));
    ExpectDrawn("t,u,v\n1,2,3\n", Words("--legend left --size 1x1"));
    Write("d.csv", "t,u\n1,nan\n2,\n");
    ExpectError(1, "d.csv -y u --hist 5 -o p.png", "d\\.csv: column u has no finite value");
    ExpectError(2, "d.csv -y u --style arrows --vx t --vx u --vy t -o p.png",
                "--vx: 2 for a number of series of 1");
}

} // namespace
