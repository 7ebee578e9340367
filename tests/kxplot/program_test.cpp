// What the program reads and writes, and what it says.

#include "kxplot/program.h"

#include <sys/resource.h>

namespace kxplot::test::program {

TEST_F(Program, WritesAPngOfDefaultSizeBesideTheDataAndNothingElse) {
    const TOutcome outcome = Run({"d.csv"});
    EXPECT_EQ(std::tuple(outcome.Status, outcome.Output + outcome.Errors), std::tuple(0, ""));
    EXPECT_EQ(Files(), TNames{"d.png"});
    EXPECT_EQ(Read("d.png").substr(0, 4), "\x89PNG");
    EXPECT_EQ(Read("d.png").substr(16, 8), std::string("\0\0\x03\x84\0\0\x02\x58", 8));
}

TEST_F(Program, WritesAllFormatsAtOnceAndReadsStandardInput) {
    Write("a.svg", "old");
    const TOutcome outcome =
        Run(Words("- -o a.svg -o b.PDF -o c.png --size 300x200 --scale 2 --antialias"), Read("d.csv"));
    EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
    EXPECT_EQ(Files(), (TNames{"a.svg", "b.PDF", "c.png"}));
    EXPECT_EQ(Read("a.svg").substr(0, 5) + Read("b.PDF").substr(0, 5), "<?xml%PDF-");
    EXPECT_TRUE(Holds(Read("a.svg"), " width=\"300\" height=\"200\"")) << "has no pixels";
    EXPECT_EQ(Read("c.png").substr(16, 8), std::string("\0\0\x02\x58\0\0\x01\x90", 8));
}

TEST_F(Program, NeverWritesOverWhatItReadsOrOverAnotherOutput) {
    Write("e.png", Read("d.csv"));
    fs::create_symlink("d.csv", Path("link.png"));
    fs::create_hard_link(Path("e.png"), Path("hard.png"));
    Write("o.ini", "[Graph1]\nColor=255\n");
    const TNames before = Files();
    for (const auto& [arguments, message] : Cases<TText, TText>("programs", "files twice"))
        ExpectError(2, arguments, message);
    EXPECT_EQ(Read("d.csv") + Read("hard.png"), Read("e.png") + Read("e.png"));
    EXPECT_EQ(Files(), before);
    EXPECT_EQ(Run(Words("d.csv --outfit o.ini --save-outfit o.ini --fit line --results /dev/null")).Status,
              0);
}

TEST_F(Program, ReplacesAllFilesOrNone) {
    Write("a.svg", "old");
    Write("b.svg", "old");
    fs::permissions(Path("b.svg"), fs::perms::owner_read);
    ExpectError(1, "d.csv -o a.svg -o b.svg", "b\\.svg: is write-protected");
    EXPECT_EQ(Read("a.svg") + Read("b.svg"), "oldold");
    EXPECT_EQ(Files(), (TNames{"a.svg", "b.svg"}));
}

// The first file waits while the second one is painted: long enough to be caught.
TEST_F(Program, LeavesNothingBehindWhenASignalEndsIt) {
    const pid_t child = Start(Words("d.csv -o a.svg -o b.png --size 3000x2000 --scale 2 --antialias"),
                              "/dev/null", "/dev/null", "/dev/null");
    int status = 0;
    while (waitpid(child, &status, WNOHANG) == 0)
        if (!Files().empty()) kill(child, SIGTERM);
    for (const auto& name : Files()) EXPECT_NE(name.substr(0, 3), ".kx");
}

class ShortMemory : public Program {
protected:
    void SetUp() override {
        if (!*KX_FAILING_ALLOCATION) GTEST_SKIP() << "a sanitizer has allocation functions of its own";
        Program::SetUp();
    }
    /// The status of a run for which Limit holds; its picture is whole, or the old one is there and a line
    /// says so.
    template <class F>
    int StatusUnder(F Limit, const std::string& Name) {
        Write("p.svg", "old");
        Write("err", "");
        const pid_t child = Limit([this] {
            return Start(Words("d.csv --style points -o p.svg"), "/dev/null", "/dev/null", Path("err"));
        });
        const int status = StatusOf(child);
        EXPECT_EQ(Read("p.svg") == (status == 0 ? FGood : "old"), true) << Name;
        if (status == 127) return status; // the loader of libraries had too little already
        EXPECT_EQ(status, status == 0 ? 0 : 1) << Name;
        EXPECT_TRUE(std::regex_match(Read("err"), std::regex(status == 0 ? "" : "kxplot: [^\n]+\n"))) << Name;
        EXPECT_EQ(Files(), (TNames{"err", "p.svg"})) << Name;
        return status;
    }
    int StatusWith(rlim_t Kilobytes) {
        const auto limit = [Kilobytes](const auto& Begin) {
            rlimit before{};
            getrlimit(RLIMIT_AS, &before);
            const rlimit limit{Kilobytes * 1024, before.rlim_max};
            setrlimit(RLIMIT_AS, &limit);
            const pid_t child = Begin();
            setrlimit(RLIMIT_AS, &before);
            return child;
        };
        return StatusUnder(limit, std::to_string(Kilobytes) + " KB");
    }
    int StatusFrom(long Allocation) {
        const auto limit = [Allocation](const auto& Begin) {
            setenv("LD_PRELOAD", KX_FAILING_ALLOCATION, 1);
            setenv("KX_FAIL", std::to_string(Allocation).c_str(), 1);
            const pid_t child = Begin();
            unsetenv("LD_PRELOAD");
            unsetenv("KX_FAIL");
            return child;
        };
        return StatusUnder(limit, "allocation " + std::to_string(Allocation));
    }
    void Draw(int Count) {
        std::string text = "t,u\n";
        for (int i = 0; i < Count; ++i) text += std::to_string(i) + "," + std::to_string(i * i % 1009) + "\n";
        Write("d.csv", text);
        FGood = Svg("--style points");
    }

private:
    std::string FGood;
};

// Below what it needs memory runs out at some step of the frame or of the writing.
TEST_F(ShortMemory, KeepsTheOldPictureAndSaysSoWhateverMemoryThereIs) {
    Draw(20000);
    rlim_t low = 32768, high = 2 * low;
    while (StatusWith(high) != 0)
        if ((high *= 2) > 4194304) GTEST_SKIP() << "memory cannot be limited here";
    while (high - low > 1024) (StatusWith((low + high) / 2) == 0 ? high : low) = (low + high) / 2;
    for (rlim_t less = 0; less < 8192; less += 512) StatusWith(high - less);
}

TEST_F(ShortMemory, KeepsTheOldPictureAndSaysSoWhateverAllocationFails) {
    Draw(100);
    long low = 0, high = 1 << 20;
    EXPECT_EQ(StatusFrom(high), 0);
    while (high - low > 1) (StatusFrom((low + high) / 2) == 0 ? high : low) = (low + high) / 2;
    for (long n = 1; n < high; n += 509) StatusFrom(n);
    for (long n = high - 1; n > high - 100; n -= 3) StatusFrom(n);
}

TEST_F(Program, KeepsErrorLinesShort) {
    const std::string much(100000, 'a');
    Write("zero.csv", "1,2\n3," + std::string(100000, '\0') + "\n");
    const TNames cases[] = {
        {"zero.csv"},          {"d.csv", "-y", much},    {"d.csv", "--" + much},
        {"d.csv", much},       {"d.csv", "--fit", much}, {"d.csv", "--set", "Graph1." + much + "=1"},
        {"d.csv", "-o", much}, {"d.csv", "--size", much}};
    for (const TNames& arguments : cases) {
        const TOutcome outcome = Run(arguments);
        EXPECT_NE(outcome.Status, 0);
        EXPECT_EQ(outcome.Errors.substr(0, 8), "kxplot: ");
        EXPECT_LT(outcome.Errors.size(), 1100u) << arguments.back().substr(0, 20);
    }
}

TEST_F(Program, TellsWhatIsWrongInOneLineAndLeavesNoFile) {
    for (const auto& [status, arguments, message] : Cases<int, TText, TText>("programs", "faults"))
        ExpectError(status, arguments, message, "1,2\n2,n/a\n3,4\n");
    for (const TNames& empty :
         {TNames{""}, {"d.csv", "--outfit", ""}, {"d.csv", "--size", ""}, {"d.csv", "--style", ""}})
        EXPECT_EQ(Run(empty).Status, 2) << empty.back();
    EXPECT_TRUE(Files().empty());
    EXPECT_EQ(StatusOf(Start({"--help"}, "/dev/null", "/dev/full", "/dev/null")), 1);
    const TOutcome help = Run({"--help"});
    EXPECT_EQ(help.Status, 0);
    EXPECT_TRUE(Holds(help.Output, "--dx-minus"));
}

TEST_F(Program, DrawsEachStyleAndTheErrorsOnIt) {
    std::set<std::string> pictures;
    for (const char* style : {"line", "points", "both"})
        for (const char* more : {"", " --dy e", " --dx e", " --dy-minus e", " --dx-minus e", " --log-y"})
            pictures.insert(Svg(std::string("-y u --style ") + style + more));
    EXPECT_EQ(pictures.size(), 18u);
    const std::string two = Svg("--style line"), one = Svg("-y u --style line");
    for (const auto& [colour, inOne] : {std::pair{"#0072b2", true}, {"#d55e00", false}}) {
        EXPECT_EQ(one.find(colour) != std::string::npos, inOne);
        EXPECT_TRUE(Holds(two, colour));
    }
}

TEST_F(Program, AnOutfitGoesBeforeTheOwnLookAndOptionsBeforeTheOutfit) {
    const std::string dressed = "--set Graph1.MajorGridX.Visible=1 --set XAxis.TickLength=9 "
                                "--set Series1.LineStyle.Color=#123456 --title T --y-caption given";
    const std::string first = Svg(dressed + " --save-outfit o.ini");
    EXPECT_TRUE(Holds(first, "#123456"));
    EXPECT_EQ(first, Svg(dressed)) << "saving changes nothing";
    EXPECT_EQ(Svg("--outfit o.ini"), first);

    const std::string outfit = Read("o.ini");
    const std::string changed = Svg("--outfit o.ini --set Series1.LineStyle.Color=#654321 --title U");
    EXPECT_FALSE(Holds(changed, "#123456"));
    EXPECT_TRUE(Holds(changed, "#654321"));
    EXPECT_TRUE(Holds(changed, ">U<"));
    EXPECT_EQ(Read("o.ini"), outfit) << "an outfit that is loaded is not written";
    EXPECT_EQ(Files(), (TNames{"o.ini", "p.svg"}));
}

TEST_F(Program, RefusesAnOutfitThatHoldsNoNumbersWhereTheyBelong) {
    Write("o.ini", "[Graph1]\nSeriesCount=1\n\n[Graph1.Series(1)]\nChildCount=1\n\n"
                   "[Graph1.Series(1).Child(1)]\nCoefs=1;2;x\n");
    ExpectError(1, "d.csv -y u --fit a+b*x+c*x^2 --start a=1,b=1,c=1 --outfit o.ini",
                "o\\.ini: \\[Graph1\\.Series\\(1\\)\\.Child\\(1\\)\\] Coefs: '1;2;x' .*");
}

/// The file beside this one: a table ("|" for the end of a line), options, and what is told of it.
TEST_F(Program, ExplainsHowATableIsReadAndDrawsNothing) {
    std::istringstream file(kx::ReadFile(KX_SOURCE "/tests/kxplot/explained.txt"));
    for (std::string table, options; std::getline(file, table, '\n') && std::getline(file, options);) {
        SCOPED_TRACE(table);
        std::string output, error;
        for (std::string line; std::getline(file, line) && !line.empty();)
            (line.starts_with("kxplot: ") ? error : output) += line + "\n";
        std::ranges::replace(table, '|', '\n');
        Write("t.csv", table);
        const TOutcome outcome = Run(Words("t.csv --explain " + options));
        EXPECT_EQ(outcome.Output, output);
        EXPECT_EQ(outcome.Errors, error);
        EXPECT_EQ(outcome.Status, error.empty() ? 0 : 1);
        EXPECT_EQ(Files(), TNames{"t.csv"});
    }
}

TEST_F(Program, WritesResultsToAFileOrToStandardOutputAlone) {
    const std::string one = Results("-y u --fit line"), two = Results("-y u -y e --fit line");
    EXPECT_EQ(one.substr(0, 24), "[Datapoints]\nCaption=u\n\n");
    EXPECT_EQ(two.substr(0, 32), "[Series1.Datapoints]\nCaption=u\n\n");
    EXPECT_FALSE(Holds(two, "\n\n\n"));
    EXPECT_EQ(Value(two, "Series2.LinearRegression", "Caption"), "e: linear fit");
    const TOutcome outcome = Run(Words("d.csv -y u --fit line --results r.ini -o p.png"));
    EXPECT_EQ(std::tuple(outcome.Status, outcome.Output + outcome.Errors), std::tuple(0, ""));
    EXPECT_EQ(Read("r.ini"), one);
}

} // namespace kxplot::test::program
