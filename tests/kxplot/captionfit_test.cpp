#include "kxplot/form/captionfit.h"
#include "kxplot/program.h"

#include <sys/resource.h>

namespace kxplot {
namespace {

TEST(CaptionFit, FindsTheFewestStepsAndTheLongestBeginningWithFewTrials) {
    for (const int most : {1, 2, 7, 100000})
        for (const int needed : {1, 2, 5, 99999, 200000}) {
            int trials = 0;
            const int steps = StepsToFit(most, [&](int Steps) { return ++trials, Steps >= needed; });
            EXPECT_EQ(steps, std::min(most, needed));
            EXPECT_LE(trials, 17);
        }
    const std::pair<std::size_t, const char*> cases[] = {
        {9, "äbö"}, {5, "äbö"}, {4, "äb"}, {2, "ä"}, {1, ""}};
    for (const auto& [room, expected] : cases)
        EXPECT_EQ(LongestFitting("äböx", [most = room](const auto& S) { return S.size() <= most; }), expected)
            << room;
    EXPECT_EQ(LongestFitting("", [](const auto&) { return true; }), "");
    EXPECT_EQ(Shortened("a\\bc", ": d", [](const auto& S) { return S.size() <= 10; }), "a\\\\b…: d");
    int points = 12;
    const auto takeOff = [&](int Steps) { points = 12 - Steps; };
    for (const auto& [room, fitting] : {std::pair{20, 12}, {12, 12}, {10, 10}, {8, 8}, {1, 8}}) {
        points = 12;
        ShrinkToFit(12, takeOff, [&, most = room] { return points <= most; });
        EXPECT_EQ(points, fitting) << room;
    }
}

class ProgramInTime : public test::Program {};

// Each of these settled the whole form for every character, point or column, or searched at every series.
/// Processor time of the programs that were run.
double SecondsOfChildren() {
    rusage used{};
    getrusage(RUSAGE_CHILDREN, &used);
    return double(used.ru_utime.tv_sec) + double(used.ru_utime.tv_usec) / 1e6;
}

TEST_F(ProgramInTime, DrawsLongNamesManyColumnsAndHugeFonts) {
    const auto table = [](int Columns) {
        std::ostringstream text("t", std::ios::ate);
        for (int i = 0; i < Columns; ++i) text << ",column" << i;
        for (const int row : {1, 2, 3})
            for (int i = 0; i <= Columns; ++i) text << (i ? ',' : '\n') << i * row % 7 + row;
        return text.str();
    };
    const std::string name = "t," + std::string(10000, 'm') + "\n1,2\n2,4\n3,3\n";
    const std::pair<std::string, const char*> cases[] = {
        {name, ""},
        {name, "--fit line --legend right"},
        {name, "--fit line --no-legend"},
        {table(500), "--no-legend"},
        {table(4000), "--no-legend --style line"},
        {table(2), "--set Legend1.Font.Size=1000000"},
        {table(2), "--fit line --label Slope --set Label1.Font.Height=-2000000000"},
    };
    for (const auto& [data, arguments] : cases) {
        Write("d.csv", data);
        const double before = SecondsOfChildren();
        Svg(arguments);
        EXPECT_LT(SecondsOfChildren() - before, 15) << data.size() << arguments;
    }
}

} // namespace
} // namespace kxplot
