// Formula fits: how often they run, and how they are ended.

#include "kxplot/methods/watch.h"
#include "kxplot/program.h"

#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/formula/Kxformula.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/series/Kxdataseries.h>

#include <csignal>

namespace kxplot::test::formulas {

class Formulas : public Program {
protected:
    void SetUp() override { Write("d.csv", "t,u,w\n1,5,1\n2,1,2\n3,1.5,1\n4,0.2,0\n6,0.4,1\n"); }

    /// The first coefficient, when the library is told directly how often to fit.
    static double FromTheLibrary(int Iterations, int Times) {
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
        return line.GetCoefficient(0);
    }
};

// Each calculation goes on from the coefficients of the one before: one too many or too few shows.
TEST_F(Formulas, RunExactlyAsOftenAsAskedWhateverElseIsDrawn) {
    for (const int times : {1, 3}) {
        const std::string fit =
            "-y u --fit a*exp(-b*x) --start a=1,b=1 --method simplex --iterations 4 --repeat " +
            std::to_string(times);
        for (const char* more :
             {"", " --log-y --log-x", " --curve akima --derivative --title T -o p.svg -o p.png",
              " --outfit o.ini --fit a+x --start a=9 --label 1.a --save-outfit o.ini"}) {
            Run(Words("d.csv -y u --fit a*x^b --start a=7,b=3 --save-outfit o.ini"));
            EXPECT_NEAR(Result(fit + more, "NonlinearRegression", "a"), FromTheLibrary(4, times), 1e-12)
                << times << more;
        }
    }
    EXPECT_GT(std::abs(FromTheLibrary(4, 2) - FromTheLibrary(4, 1)), 1e-6) << "or this could not fail";
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

TEST_F(Formulas, CtrlCEndsThemAndKeepsTheBestSoFar) {
    const TTerminal terminal;
    if (!terminal.IsReady()) GTEST_SKIP() << "there are no pseudo-terminals here";
    const pid_t child = Start(Words("d.csv -y u --fit a*exp(-b*x) --start a=1,b=1 --fit a+x --start a=1 "
                                    "--method simplex --iterations 1000000000 --results r.ini -o p.svg"),
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

TEST(FitWatchDeathTest, CatchesOneInterruptAndNoneWhereTheyAreIgnored) {
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

} // namespace kxplot::test::formulas
