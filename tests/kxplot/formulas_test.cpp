// Formula fits: what they find, how often they run, and how they are ended.

#include "kxplot/analysisprogram.h"
#include "kxplot/watch.h"

#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/formula/Kxformula.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/series/Kxdataseries.h>

#include <csignal>
#include <cstdlib>

namespace {

using namespace kxplot::test;

class KxplotFormulas : public KxplotAnalyses {
protected:
    void SetUp() override { Write("d.csv", "t,u,w\n1,5,1\n2,1,2\n3,1.5,1\n4,0.2,0\n6,0.4,1\n"); }

    /// The coefficients and their standard errors, when the library is told directly how often to fit.
    static TNames FromTheLibrary(int Iterations, int Times) {
        kx::TKxLiveVector x(nullptr), y(nullptr);
        x.AddValues(std::vector<double>{1, 2, 3, 4, 6});
        y.AddValues(std::vector<double>{5, 1, 1.5, 0.2, 0.4});
        kx::TKxLineSeries series(nullptr);
        series.SetXData(&x);
        series.SetYData(&y);
        kx::TKxFittedLine line(nullptr);
        line.OnError = [](kx::TComponent*, const kx::Exception&) {}; // there is no formula yet
        line.SetParentSeries(&series);
        kx::SetFormula(line, "a*exp(-b*x)");
        line.SetCoefficient(0, 1);
        line.SetCoefficient(1, 1);
        line.SetIterations(Iterations);
        for (int i = 0; i < Times; ++i) line.Calculate();
        kx::TKxIniList list;
        line.WriteResults(list, "S");
        return {list.ReadString("S", "a", ""), list.ReadString("S", "Delta(b)", "")};
    }
};

// Certified by NIST, Statistical Reference Datasets, Chwirut2; from its first set of start values.
TEST_F(KxplotFormulas, FindWhatIsCertified) {
    Write("d.csv", kx::ReadFile(KX_SOURCE "/examples/ultrasonic_response.csv"));
    const std::string results =
        Results("--fit exp(-b1*x)/(b2+b3*x) --start b1=0.1,b2=0.01,b3=0.02 --repeat 3");
    const std::tuple<const char*, double, double> cases[] = {{"b1", 1.6657666537e-01, 1e-6},
                                                             {"b2", 5.1653291286e-03, 1e-6},
                                                             {"b3", 1.2150007096e-02, 1e-6},
                                                             {"Delta(b1)", 3.8303286810e-02, 1e-4},
                                                             {"ChiSquare", 5.1304802941e+02, 1e-9}};
    for (const auto& [key, certified, tolerance] : cases) {
        const std::string value = Value(results, "NonlinearRegression", key);
        ASSERT_NE(value, "") << key;
        EXPECT_NEAR(std::stod(value), certified, tolerance * certified) << key;
    }
}

// Each calculation goes on from the coefficients of the one before: one too many or too few shows.
TEST_F(KxplotFormulas, RunExactlyAsOftenAsAskedWhateverElseIsDrawn) {
    for (const int times : {1, 3}) {
        const std::string fit =
            "-y u --fit a*exp(-b*x) --start a=1,b=1 --iterations 4 --repeat " + std::to_string(times);
        for (const char* more :
             {"", "--log-y --log-x", "--curve akima --derivative --title T -o p.svg -o p.png",
              "--outfit o.ini --fit a+x --start a=9 --label 1.a --save-outfit o.ini"}) {
            SCOPED_TRACE(fit + " " + more);
            Run(Words("d.csv -y u --fit a*x^b --start a=7,b=3 --save-outfit o.ini"));
            const std::string results = Results(fit + " " + more), section = "NonlinearRegression";
            const TNames found = {Value(results, section, "a"), Value(results, section, "Delta(b)")};
            EXPECT_EQ(found, FromTheLibrary(4, times));
        }
    }
    EXPECT_NE(FromTheLibrary(4, 2), FromTheLibrary(4, 1)) << "or this could not fail";
}

TEST_F(KxplotFormulas, AreToldWhereOneMoreRunWouldGainAndRepeatUntilNoneDoes) {
    Write("d.csv", kx::ReadFile(KX_SOURCE "/examples/ultrasonic_response.csv"));
    const char* best = " --fit exp(-b1*x)/(b2+b3*x) --start b1=0.1,b2=0.01,b3=0.02";
    const char* slow = " --fit a+b*x+c*x^2+d*x^3 --start a=1,b=1,c=1,d=1.1";
    const std::string told = "kxplot: ultrasonic response: .*: the fit has not converged: ";
    const std::tuple<const char*, const char*, const char*, std::string> cases[] = {
        {"--iterations 40", best, "0", told + "one more run lowers the .* \\(--repeat auto goes on\\)\n"},
        {"--iterations 40 --repeat 20", best, "1", ""},
        {"--iterations 40 --repeat auto", best, "1", ""},
        {"--iterations 30 --repeat auto", slow, "0", told + "the last run still lowered the .*\n"},
    };
    for (const auto& [arguments, fit, converged, message] : cases) {
        const TOutcome outcome = Run(Words("d.csv --results - " + std::string(arguments) + fit));
        EXPECT_EQ(outcome.Status, 0);
        EXPECT_TRUE(std::regex_match(outcome.Errors, std::regex(message))) << outcome.Errors;
        EXPECT_EQ(Value(outcome.Output, "NonlinearRegression", "Converged"), converged) << arguments;
        const double chi = std::stod(Value(outcome.Output, "NonlinearRegression", "ChiSquare"));
        EXPECT_EQ(chi < 513.0480295 * (1 + 1e-8), *converged == '1') << arguments;
    }
}

TEST_F(KxplotFormulas, HeedWeightsRangesAndCovariance) {
    const std::string fit = " --fit a+b*x --start a=1,b=1 --iterations 3000 --repeat 3";
    const std::tuple<std::string, const char*, double> cases[] = {
        {"-y u --from 2 --to 3" + fit, "b", 0.5},
        {"-y u --weight w --to 4" + fit, "Points", 4},
        {"-y u --weight w --from 2 --to 4" + fit, "b", 0.5}, // the third weighs nothing
    };
    for (const auto& [arguments, key, expected] : cases)
        EXPECT_NEAR(Result(arguments, "NonlinearRegression", key), expected, 1e-6) << arguments;
    Write("d.csv", "t,u\n1,1\n1,3\n2,4\n2,5\n3,6\n4,9\n");
    const std::string covariance =
        Results("-y u --covariance --iterations 77" + fit.substr(0, fit.find(" --it")));
    EXPECT_EQ(Value(covariance, "NonlinearRegression", "VarianceCoVariance"), "Covariance");
    EXPECT_EQ(Value(covariance, "NonlinearRegression", "Iterations"), "77");
}

TEST_F(KxplotFormulas, AreNamedByTheFormulaThatIsCutWhereItIsTooLong) {
    const TNames base = {"-y", "u", "--start", "a=2,b=1"};
    const std::tuple<const char*, const char*, TNames> cases[] = {
        {"a*exp(-b*x)",
         "--label a:4 --label 1.Delta(b):3",
         {">a*exp(-b*x)</text>", ">a = ", ">Delta(b) = 0."}},
        {"a * (x<3 ? b : 1)", "", {">a * (x&lt;3 ? b : 1)</text>"}},
        {"a+b*x+0*(x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x+x)",
         "",
         {">a+b*x+0*(x+x+x+x+x+", "…</text>"}},
    };
    for (const auto& [formula, more, shown] : cases) {
        TNames arguments = base;
        arguments.insert(arguments.end(), {"--fit", formula});
        for (const auto& word : Words(more)) arguments.push_back(word);
        for (const char* legend : {"--legend=right", "--no-legend"}) {
            TNames all = arguments;
            all.push_back(legend);
            const std::string svg = Svg(all);
            for (const auto& text : shown) EXPECT_NE(svg.find(text), std::string::npos) << text << legend;
        }
    }
}

TEST_F(KxplotFormulas, WhatFailsIsToldAndTheRestIsDrawn) {
    const std::pair<const char*, const char*> cases[] = {
        {"--start a=1 --fit a/(x-x)",
         "u: a/\\(x-x\\): Fitted Line: the function has no finite value at the start"},
        {"--start a=1 --covariance --fit a*x", "u: a\\*x: Fitted Line: covariance needs points of equal x"},
        {"--start a=1,b=1 --from 5.5 --fit a*(x+b)", "u: a\\*\\(x\\+b\\): Not enough data!"},
    };
    for (const auto& [arguments, message] : cases) {
        ExpectError(1, std::string("d.csv -y u -o p.svg --label a ") + arguments, message);
        EXPECT_NE(Read("p.svg").find(">a = ...</text>"), std::string::npos);
        fs::remove(Path("p.svg"));
    }
}

/// The other side of a terminal that the program's standard error goes to.
class TTerminal {
public:
    TTerminal() : FMaster(posix_openpt(O_RDWR | O_NOCTTY)) {
        FReady = FMaster >= 0 && grantpt(FMaster) == 0 && unlockpt(FMaster) == 0;
    }
    /// A machine need not have any.
    bool IsReady() const { return FReady; }
    TTerminal(const TTerminal&) = delete;
    TTerminal& operator=(const TTerminal&) = delete;
    ~TTerminal() { close(FMaster); }

    std::string Name() const { return ptsname(FMaster); }
    /// What the program writes next; empty when it has ended.
    std::string Next() const {
        char buffer[1000];
        const auto count = read(FMaster, buffer, sizeof buffer);
        return count > 0 ? std::string(buffer, std::size_t(count)) : std::string();
    }

private:
    int FMaster;
    bool FReady = false;
};

TEST_F(KxplotFormulas, CtrlCEndsThemAndKeepsTheBestSoFar) {
    const TTerminal terminal;
    if (!terminal.IsReady()) GTEST_SKIP() << "there are no pseudo-terminals here";
    const pid_t child = Start(Words("d.csv -y u --fit a*exp(-b*x) --start a=1,b=1 --fit a+x --start a=1 "
                                    "--iterations 1000000000 --results r.ini -o p.svg"),
                              "/dev/null", "/dev/null", terminal.Name());
    std::string shown;
    bool interrupted = false;
    for (std::string next = terminal.Next(); !next.empty(); next = terminal.Next()) {
        shown += next;
        if (!interrupted && shown.find("chi-square") != std::string::npos)
            interrupted = kill(child, SIGINT) == 0;
    }
    EXPECT_EQ(StatusOf(child), 130);
    const std::regex expected("(\rfit 1: iteration [0-9]+ of 1000000000, chi-square [0-9.]+ *)+\r +\r"
                              "kxplot: fit 1: stopped after [0-9]+ iterations\r\n"
                              "kxplot: u: a\\+x: the fits were interrupted before this one\r\n");
    EXPECT_TRUE(std::regex_match(shown, expected)) << shown;
    EXPECT_EQ(Files(), (TNames{"p.svg", "r.ini"}));
    const std::string best = Value(Read("r.ini"), "NonlinearRegression", "a");
    ASSERT_NE(best, "");
    EXPECT_NEAR(std::stod(best), 14.339, 0.001); // the least squares there are
    EXPECT_NE(Value(Read("r.ini"), "NonlinearRegression(2)", "Error"), "");
}

TEST(KxplotFitWatchDeathTest, CatchesOneInterruptAndNoneWhereTheyAreIgnored) {
    const auto interrupt = [](const char* Word) {
        std::raise(SIGINT);
        std::fputs(Word, stderr);
    };
    const auto watch = [&] {
        const kxplot::TFitWatch watching;
        interrupt("alive");
        std::_Exit(watching.WasInterrupted() ? 130 : 0);
    };
    EXPECT_EXIT(watch(), testing::ExitedWithCode(130), "alive");
    EXPECT_EXIT((std::signal(SIGINT, SIG_IGN), watch()), testing::ExitedWithCode(0), "alive");
    const auto twice = [&] {
        const kxplot::TFitWatch watching;
        interrupt("alive");
        interrupt("still alive");
        std::_Exit(0);
    };
    EXPECT_EXIT(twice(), testing::KilledBySignal(SIGINT), "alive$");
}

} // namespace
