#include "kxplot/fitting.h"
#include "kxplot/program.h"

#include <gtest/gtest.h>

#include <chrono>

namespace kxplot {
namespace {

TEST(Fitting, FindsTheFewestStepsAndTheLongestBeginningWithFewTrials) {
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
        EXPECT_EQ(LongestFitting("äböx", [&](const auto& S) { return S.size() <= room; }), expected) << room;
    EXPECT_EQ(LongestFitting("", [](const auto&) { return true; }), "");
}

class KxplotFitting : public test::KxplotProgram {};

// Each of these settled the whole form for every character, point or column.
TEST_F(KxplotFitting, LongNamesManyColumnsAndHugeFontsTakeNoTime) {
    std::string columns = "t", row = "1", next = "2";
    for (int i = 0; i < 500; ++i) {
        columns.append(",column").append(std::to_string(i));
        row.append(",").append(std::to_string(i % 7));
        next.append(",").append(std::to_string(i % 5));
    }
    const std::string many = columns + "\n" + row + "\n" + next + "\n";
    const std::string name = "t," + std::string(10000, 'm') + "\n1,2\n2,4\n3,3\n";
    const std::string two = "t,u,v\n1,2,3\n2,4,5\n";
    const std::tuple<std::string, test::TNames> cases[] = {
        {name, {}},
        {name, {"--fit", "line", "--legend", "right"}},
        {name, {"--fit", "line", "--no-legend"}},
        {many, {"--no-legend"}},
        {two, {"--set", "Legend1.Font.Size=1000000"}},
        {two, {"--fit", "line", "--label", "Slope", "--set", "Label1.Font.Height=-2000000000"}},
    };
    for (const auto& [data, arguments] : cases) {
        Write("d.csv", data);
        test::TNames all{Path("d.csv"), "-o", Path("p.svg")};
        all.insert(all.end(), arguments.begin(), arguments.end());
        const auto start = std::chrono::steady_clock::now();
        const auto outcome = Run(all);
        const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
        EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
        EXPECT_LT(seconds.count(), 10) << data.size() << testing::PrintToString(arguments);
    }
}

} // namespace
} // namespace kxplot
