// What the program draws, and what it says.

#include "kxplot/program.h"

#include <sys/resource.h>

#include <chrono>
#include <set>

namespace {

using namespace kxplot::test;

TEST_F(KxplotProgram, WritesAPngOfDefaultSizeBesideTheDataAndNothingElse) {
    const TOutcome outcome = Run({"d.csv"});
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Output + outcome.Errors, "");
    EXPECT_EQ(Files(), TNames{"d.png"});
    EXPECT_EQ(Read("d.png").substr(0, 4), "\x89PNG");
    EXPECT_EQ(Read("d.png").substr(16, 8), std::string("\0\0\x03\x84\0\0\x02\x58", 8));
}

TEST_F(KxplotProgram, WritesAllFormatsAtOnceAndReadsStandardInput) {
    Write("a.svg", "old");
    const TOutcome outcome =
        Run({"-", "-o", "a.svg", "-o", "b.PDF", "-o", "c.png", "--size", "300x200", "--scale", "2"},
            Read("d.csv"));
    EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
    EXPECT_EQ(Files(), (TNames{"a.svg", "b.PDF", "c.png"}));
    EXPECT_EQ(Read("a.svg").substr(0, 5) + Read("b.PDF").substr(0, 5), "<?xml%PDF-");
    EXPECT_NE(Read("a.svg").find(" width=\"300\" height=\"200\""), std::string::npos) << "has no pixels";
    EXPECT_EQ(Read("c.png").substr(16, 8), std::string("\0\0\x02\x58\0\0\x01\x90", 8));
}

TEST_F(KxplotProgram, DrawsDifficultData) {
    ExpectDrawn("t,u\n3,5\n", {"--style", "line"});
    ExpectDrawn("t,u\n1,5\n2,5\n3,5\n");
    ExpectDrawn("t,u\n1,1e300\n2,1e-300\n");
    ExpectDrawn("t,u\n-1.8e308,1.8e308\n1.7e308,-1.7e308\n-1.7e308,1.7e308\n1.8e308,-1.8e308\n");
    ExpectDrawn("t,u\n1e-300,1e-300\n1e300,1e300\n", {"--log-x", "--log-y"});
    ExpectDrawn("t,u\n1,5\n2,\n", {"--size", "1x1"});
}

TEST_F(KxplotProgram, SaysSoWhereAColumnHasNothingToDraw) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"t,u,v\n-1,-2,3\n0,0,4\n", "--log-x --log-y", "u, v"},
        {"t,u,v\n1,nan,3\n2,,4\n", "", "u"},
        {"t,a,b,c,d,e\n1,nan,3,nan,inf,-inf\n", "--style bars", "a, c, d and 1 more"},
    };
    for (const auto& [text, arguments, columns] : cases) {
        SCOPED_TRACE(text);
        Write("case.csv", text);
        const TOutcome outcome = Run(Words(std::string("case.csv ") + arguments));
        EXPECT_EQ(outcome.Status, 0);
        EXPECT_EQ(outcome.Errors,
                  "kxplot: case.csv: no point of column " + std::string(columns) + " can be drawn\n");
    }
}

TEST_F(KxplotProgram, NeverWritesOverWhatItReadsOrOverAnotherOutput) {
    Write("e.png", Read("d.csv"));
    fs::create_symlink("d.csv", Path("link.png"));
    fs::create_hard_link(Path("e.png"), Path("hard.png"));
    Write("o.ini", "[Graph1]\nColor=255\n");
    const std::pair<const char*, const char*> cases[] = {
        {"e.png", "-o: e\\.png is the file of the data"},
        {"e.png -o ./e.png", "-o: \\./e\\.png is the file of the data"},
        {"e.png -o hard.png", "-o: hard\\.png is the file of the data"},
        {"d.csv -o link.png", "-o: link\\.png is the file of the data"},
        {"d.csv --fit line --results d.csv", "--results: d\\.csv is the file of the data"},
        {"d.csv -o a.png -o ./a.png", "-o: \\./a\\.png is written by -o, too"},
        {"d.csv --fit line --results r.ini --save-outfit r.ini",
         "--results: r\\.ini is written by --save-outfit, too"},
        {"d.csv --fit line --outfit o.ini --results o.ini", "--results: o\\.ini is the file of --outfit"},
    };
    const TNames before = Files();
    for (const auto& [arguments, message] : cases) ExpectError(2, arguments, message);
    EXPECT_EQ(Read("d.csv") + Read("hard.png"), Read("e.png") + Read("e.png"));
    EXPECT_EQ(Files(), before);
    EXPECT_EQ(Run(Words("d.csv --outfit o.ini --save-outfit o.ini --fit line --results /dev/null")).Status,
              0);
}

TEST_F(KxplotProgram, ReplacesAllFilesOrNone) {
    Write("a.svg", "old");
    Write("b.svg", "old");
    fs::permissions(Path("b.svg"), fs::perms::owner_read);
    ExpectError(1, "d.csv -o a.svg -o b.svg", "b\\.svg: is write-protected");
    EXPECT_EQ(Read("a.svg") + Read("b.svg"), "oldold");
    EXPECT_EQ(Files(), (TNames{"a.svg", "b.svg"}));
}

// The first file waits while the second one is painted: long enough to be caught.
TEST_F(KxplotProgram, LeavesNothingBehindWhenASignalEndsIt) {
    const pid_t child = Start(Words("d.csv -o a.svg -o b.png --size 3000x2000 --scale 2 --antialias"),
                              "/dev/null", "/dev/null", "/dev/null");
    int status = 0;
    while (waitpid(child, &status, WNOHANG) == 0)
        if (!Files().empty()) kill(child, SIGTERM);
    for (const auto& name : Files()) EXPECT_NE(name.substr(0, 3), ".kx");
}

// Below what it needs memory runs out at some step of the frame or of the writing.
TEST_F(KxplotProgram, DrawsAllOrKeepsTheOldPictureWhateverMemoryThereIs) {
    std::string text = "t,u\n";
    for (int i = 0; i < 20000; ++i) text += std::to_string(i) + "," + std::to_string(i * i % 1009) + "\n";
    Write("d.csv", text);
    const std::string good = Svg({"--style", "points"});
    const auto statusWith = [&](rlim_t Kilobytes) {
        Write("p.svg", "old");
        rlimit before{};
        getrlimit(RLIMIT_AS, &before);
        const rlimit limit{Kilobytes * 1024, before.rlim_max};
        setrlimit(RLIMIT_AS, &limit);
        const pid_t child =
            Start(Words("d.csv --style points -o p.svg"), "/dev/null", "/dev/null", Path("err"));
        setrlimit(RLIMIT_AS, &before);
        const int status = StatusOf(child);
        EXPECT_EQ(Read("p.svg") == (status == 0 ? good : "old"), true) << Kilobytes;
        EXPECT_TRUE(status != 1 || Read("err").find("kxplot: ") != std::string::npos) << Kilobytes;
        Write("err", "");
        return status;
    };
    rlim_t low = 32768, high = 2 * low;
    while (statusWith(high) != 0)
        if ((high *= 2) > 4194304) GTEST_SKIP() << "memory cannot be limited here";
    while (high - low > 1024) (statusWith((low + high) / 2) == 0 ? high : low) = (low + high) / 2;
    for (rlim_t less = 0; less < 8192; less += 512) statusWith(high - less);
}

TEST_F(KxplotProgram, KeepsErrorLinesShort) {
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

// 4,000 columns took minutes when anything was searched for at every series.
TEST_F(KxplotProgram, DrawsThousandsOfColumns) {
    std::string row;
    for (int i = 0; i < 4000; ++i) row.append(i ? "," : "").append(std::to_string(i * 7 % 1000));
    const auto begin = std::chrono::steady_clock::now();
    ExpectDrawn("1" + row + "\n2" + row + "\n", {"--no-legend"});
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20));
}

TEST_F(KxplotProgram, TellsWhatIsWrongWithTheDataInOneLineAndLeavesNoFile) {
    struct TCase {
        const char *Text, *Arguments;
        const char* Message; ///< a regular expression, behind the program's name
    };
    const TCase cases[] = {
        {"t,u\n1,2\n2,\x01\xE9\n", "bad.csv", "bad\\.csv:3: column u: '\\\\x01\\\\xE9' is not a number"},
        {"t,u\n1,2\n", "bad.csv -y w", "bad\\.csv: has no column 'w'; it has 2 columns"},
        {"t,u\n1,y\n", "bad.csv", "bad\\.csv: has no numeric column for a series"},
        {"1,2\n3,z\n", "-", "standard input:2: column 2: 'z' is not a number"},
        {"", "missing.csv", "missing\\.csv: .+"},
        {"", ".", "\\.: is a directory"},
        {"1,2\n", "bad.csv -o none/p.svg", "none/p\\.svg: .+"},
        {"1,2\n", "bad.csv -o none/p.pdf", "none/p\\.pdf: .+"},
        {"1,2\n", "bad.csv -o p.png -o none/p.png", "none/p\\.png: .+"},
        {"1,2\n", "bad.csv -o p.png --outfit none.ini", "none\\.ini: .+"},
        {"1,2\n", "bad.csv -o p.png --save-outfit none/o.ini", "none/o\\.ini: .+"},
        {"1,2\n", "bad.csv -o p.png --outfit bad.csv",
         "bad\\.csv: is no outfit: it has no section \\[Graph1\\]"},
        {"1,2\n2,n/a\n3,4\n", "bad.csv --header", "bad\\.csv:2: column 2: 'n/a' is not a number"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Message);
        Write("bad.csv", c.Text);
        ExpectError(1, c.Arguments, c.Message, c.Text);
        EXPECT_EQ(Files(), TNames{"bad.csv"});
    }
}

TEST_F(KxplotProgram, RefusesWrongOptions) {
    for (const char* arguments :
         {"", "--no-such-option", "d.csv -o p.gif", "d.csv --style dots", "d.csv --size 0x200",
          "d.csv --scale two", "d.csv -y u --dy e --dy e", "d.csv --set Graph1",
          "d.csv --set Graph1.Colour=1", "d.csv --set Graph9.Color=1", "d.csv --set XAxis.TickLength=long",
          "d.csv other.csv", "d.csv --header --no-header"})
        ExpectError(2, arguments, "[^\n]+");
    for (const TNames& arguments : {TNames{"d.csv", "--size", ""},
                                    {"d.csv", "--style", ""},
                                    {"d.csv", "--outfit", ""},
                                    {""},
                                    {"d.csv", "--set", "Graph1.Name=1 x"}})
        EXPECT_EQ(Run(arguments).Status, 2) << arguments.back();
    EXPECT_TRUE(Files().empty());
    EXPECT_EQ(StatusOf(Start({"--help"}, "/dev/null", "/dev/full", "/dev/null")), 1);
    const TOutcome help = Run({"--help"});
    EXPECT_EQ(help.Status, 0);
    EXPECT_NE(help.Output.find("--dx-minus"), std::string::npos);
}

TEST_F(KxplotProgram, CaptionsComeFromHeadersAsTheyStandOrFromOptionsWithMarkup) {
    Write("d.csv", "a\\bc,b & d\n1,2\n2,3\n");
    const std::string plain = Svg({});
    const std::string given = Svg({"--title", "no \\b bold\\b", "--x-caption", "X", "--y-caption", ""});
    for (const auto& [text, isPlain, isGiven] :
         {std::tuple{">a\\bc<", 1, 0}, {">b &amp; d<", 1, 0}, {">bold<", 0, 1}, {">X<", 0, 1}}) {
        EXPECT_EQ(plain.find(text) != std::string::npos, isPlain) << text;
        EXPECT_EQ(given.find(text) != std::string::npos, isGiven) << text;
    }
    Write("d.csv", "t," + std::string(300, 'm') + "\n1,2\n2,3\n");
    EXPECT_NE(Svg({}).find("m…<"), std::string::npos) << "a header too long is cut off";
}

TEST_F(KxplotProgram, DrawsColumnsStylesAndErrorsAsAsked) {
    const std::string all = Svg({"--style", "line"}), one = Svg({"--style", "line", "-y", "2"});
    EXPECT_NE(one.find("#0072b2"), std::string::npos);
    EXPECT_EQ(one.find("#d55e00"), std::string::npos);
    EXPECT_NE(all.find("#d55e00"), std::string::npos);
    EXPECT_EQ(Svg({"--style", "line", "-y", "u"}), one);
    EXPECT_NE(Svg({"--style", "line", "-x", "u", "-y", "t"}), one);
    const std::string both = Svg({"-y", "u"});
    EXPECT_EQ(Svg({"-y", "u", "--style", "both"}), both) << "few points show their symbols";
    EXPECT_NE(Svg({"-y", "u", "--style", "points"}), both);
    EXPECT_NE(Svg({"-y", "u", "--log-y"}), both);
    for (const char* style : {"line", "points", "both"}) {
        SCOPED_TRACE(style);
        const std::set<std::string> pictures = {Svg({"-y", "u", "--style", style}),
                                                Svg({"-y", "u", "--style", style, "--dy", "e"}),
                                                Svg({"-y", "u", "--style", style, "--dx", "e"}),
                                                Svg({"-y", "u", "--style", style, "--dy-minus", "e"})};
        EXPECT_EQ(pictures.size(), 4u) << "each error is seen";
    }
}

TEST_F(KxplotProgram, AnOutfitGoesBeforeTheOwnLookAndOptionsBeforeTheOutfit) {
    const TNames dressed = {"--set",       "Graph1.MajorGridX.Visible=1",
                            "--set",       "XAxis.TickLength=9",
                            "--set",       "Series1.LineStyle.Color=#123456",
                            "--title",     "T",
                            "--y-caption", "given"};
    TNames saving = dressed;
    saving.insert(saving.end(), {"--save-outfit", "o.ini"});
    const std::string first = Svg(saving);
    EXPECT_NE(first.find("#123456"), std::string::npos);
    EXPECT_EQ(first, Svg(dressed)) << "saving changes nothing";
    EXPECT_EQ(Svg({"--outfit", "o.ini"}), first);

    const std::string outfit = Read("o.ini");
    const std::string changed =
        Svg({"--outfit", "o.ini", "--set", "Series1.LineStyle.Color=#654321", "--title", "U"});
    EXPECT_EQ(changed.find("#123456"), std::string::npos);
    EXPECT_NE(changed.find("#654321"), std::string::npos);
    EXPECT_NE(changed.find(">U<"), std::string::npos);
    EXPECT_EQ(Read("o.ini"), outfit) << "an outfit that is loaded is not written";
    EXPECT_EQ(Files(), (TNames{"o.ini", "p.svg"}));
}

TEST_F(KxplotProgram, AnOutfitOfAnotherFormulaGivesItsLook) {
    Svg({"-y", "u", "--fit", "a+b*x", "--start", "a=1,b=1", "--set", "Fit1.LineStyle.Color=#123456",
         "--save-outfit", "o.ini"});
    const TNames other = {"-y", "u", "--fit", "a+b*x+c*x^2", "--start", "a=1,b=1,c=1", "--outfit", "o.ini"};
    EXPECT_NE(Svg(other).find("#123456"), std::string::npos);
    Write("o.ini", "[Graph1]\nSeriesCount=1\n\n[Graph1.Series(1)]\nChildCount=1\n\n"
                   "[Graph1.Series(1).Child(1)]\nCoefs=1;2;x\n");
    TNames arguments = {"d.csv"};
    arguments.insert(arguments.end(), other.begin(), other.end());
    const TOutcome outcome = Run(arguments);
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(outcome.Errors.find("kxplot: o.ini: [Graph1.Series(1).Child(1)] Coefs: '1;2;x' "), 0u)
        << outcome.Errors;
}

} // namespace
