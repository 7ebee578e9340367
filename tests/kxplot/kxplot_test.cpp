// Runs the program itself, as a shell would, in a directory of its own.

#include "platform/files.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using TNames = std::vector<std::string>;

struct TOutcome {
    int Status = -1;
    std::string Output, Errors;
};

class KxplotProgram : public testing::Test {
protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "kxplotXXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        FDirectory = name;
        Write("d.csv", "t,u,v,e\n1,2,3,0.1\n2,4,5,0.2\n3,3,nan,0.1\n");
    }
    void TearDown() override { fs::remove_all(FDirectory); }

    std::string PathOf(const std::string& Name) const { return (FDirectory / Name).string(); }
    void Write(const std::string& Name, const std::string& Text) const {
        kx::ReplaceFile(PathOf(Name), Text);
    }
    std::string Read(const std::string& Name) const { return kx::ReadFile(PathOf(Name)); }
    bool Has(const std::string& Name) const { return fs::exists(FDirectory / Name); }
    /// The files of the directory but d.csv, hidden ones too.
    TNames Files() const {
        TNames names;
        for (const auto& entry : fs::directory_iterator(FDirectory))
            if (entry.path().filename() != "d.csv") names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    TOutcome Run(TNames Arguments, const std::string& Input = "") const {
        const fs::path streams = FDirectory.string() + ".streams";
        fs::create_directory(streams);
        kx::ReplaceFile(streams / "in", Input);
        const pid_t child = fork();
        if (child == 0) RunChild(Arguments, streams);
        int status = 0;
        waitpid(child, &status, 0);
        TOutcome outcome{WIFEXITED(status) ? WEXITSTATUS(status) : -1, kx::ReadFile(streams / "out"),
                         kx::ReadFile(streams / "err")};
        fs::remove_all(streams);
        return outcome;
    }

    /// The picture as SVG; a failure shows what the program said.
    std::string Svg(TNames Arguments) const {
        Arguments.insert(Arguments.begin(), "d.csv");
        Arguments.insert(Arguments.end(), {"-o", "p.svg"});
        const TOutcome outcome = Run(Arguments);
        EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
        return outcome.Status == 0 ? Read("p.svg") : "";
    }

    /// A picture with data that is drawn, without a word.
    void ExpectDrawn(const std::string& Text, TNames Arguments = {}) const {
        SCOPED_TRACE(Text);
        Write("case.csv", Text);
        Arguments.insert(Arguments.begin(), "case.csv");
        const TOutcome outcome = Run(Arguments);
        EXPECT_EQ(outcome.Status, 0);
        EXPECT_EQ(outcome.Errors, "");
        EXPECT_TRUE(Has("case.png"));
    }

private:
    [[noreturn]] void RunChild(TNames& Arguments, const fs::path& Streams) const {
        const auto open = [&](const char* Name, int Flags, int Target) {
            dup2(::open((Streams / Name).c_str(), Flags | O_CREAT, 0600), Target);
        };
        open("in", O_RDONLY, 0);
        open("out", O_WRONLY, 1);
        open("err", O_WRONLY, 2);
        if (chdir(FDirectory.c_str()) != 0) _exit(126);
        setenv("LC_ALL", "de_DE.UTF-8", 1); // its decimal comma must show nowhere
        Arguments.insert(Arguments.begin(), KXPLOT);
        std::vector<char*> pointers;
        for (auto& argument : Arguments) pointers.push_back(argument.data());
        pointers.push_back(nullptr);
        execv(KXPLOT, pointers.data());
        _exit(127);
    }

    fs::path FDirectory;
};

std::size_t CountOf(const std::string& Text, const std::string& Part) {
    std::size_t count = 0;
    for (auto at = Text.find(Part); at != std::string::npos; at = Text.find(Part, at + 1)) ++count;
    return count;
}

TEST_F(KxplotProgram, WritesAPngOfDefaultSizeBesideTheDataAndNothingElse) {
    const TOutcome outcome = Run({"d.csv"});
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Output + outcome.Errors, "");
    EXPECT_EQ(Files(), TNames{"d.png"});
    const std::string png = Read("d.png");
    ASSERT_GT(png.size(), 24u);
    EXPECT_EQ(png.substr(0, 4), "\x89PNG");
    EXPECT_EQ(png.substr(16, 8), std::string("\0\0\x03\x84\0\0\x02\x58", 8));
}

TEST_F(KxplotProgram, WritesAllFormatsAtOnceAndReadsStandardInput) {
    Write("a.svg", "old");
    const TOutcome outcome =
        Run({"-", "-o", "a.svg", "-o", "b.PDF", "-o", "c.png", "--size", "300x200", "--scale", "2"},
            Read("d.csv"));
    EXPECT_EQ(outcome.Status, 0) << outcome.Errors;
    EXPECT_EQ(Files(), (TNames{"a.svg", "b.PDF", "c.png"}));
    EXPECT_EQ(Read("a.svg").substr(0, 5), "<?xml");
    EXPECT_EQ(Read("b.PDF").substr(0, 5), "%PDF-");
    EXPECT_EQ(Read("c.png").substr(16, 8), std::string("\0\0\x02\x58\0\0\x01\x90", 8));
    EXPECT_EQ(Run({"-"}, "1\n2\n").Status, 0);
    EXPECT_TRUE(Has("kxplot.png"));
}

TEST_F(KxplotProgram, DrawsDifficultData) {
    ExpectDrawn("t,u\n3,5\n");
    ExpectDrawn("t,u\n3,5\n", {"--style", "line"});
    ExpectDrawn("t,u\n1,5\n2,5\n3,5\n");
    ExpectDrawn("t,u\n1,1e300\n2,1e-300\n");
    ExpectDrawn("t,u\n-1.8e308,1.8e308\n1.7e308,-1.7e308\n-1.7e308,1.7e308\n1.8e308,-1.8e308\n");
    ExpectDrawn("t,u\n1e15,1000000000000000\n1000000000000000.5,1000000000000001\n");
    ExpectDrawn("t,u\n1e-300,1e-300\n1e300,1e300\n", {"--log-x", "--log-y"});
    ExpectDrawn("t,u\n-1,-2\n0,0\n", {"--log-x", "--log-y"});
    ExpectDrawn("t,u\n1,nan\n2,\n", {"--size", "1x1"});
}

TEST_F(KxplotProgram, TellsWhatIsWrongWithTheDataInOneLineAndLeavesNoFile) {
    struct TCase {
        const char* Text;
        TNames Arguments;
        const char* Message; ///< a regular expression
    };
    const TCase cases[] = {
        {"t,u\n1,2\n2,abc\n", {"bad.csv"}, "kxplot: bad\\.csv:3: column u: 'abc' is not a number\n"},
        {"t,u\n1,2\n2,\x01\xE9\n",
         {"bad.csv"},
         "kxplot: bad\\.csv:3: column u: '\\\\x01\\\\xE9' is not a number\n"},
        {"t,u\n1,2\n2\n", {"bad.csv"}, "kxplot: bad\\.csv:3: 1 cell where the first row has 2\n"},
        {"", {"bad.csv"}, "kxplot: bad\\.csv: is empty\n"},
        {"t,u\n", {"bad.csv"}, "kxplot: bad\\.csv: has a header but no rows\n"},
        {"t,u\n1,2\n", {"bad.csv", "-y", "w"}, "kxplot: bad\\.csv: has no column 'w'; it has 2 columns\n"},
        {"t,u\nx,y\n", {"bad.csv"}, "kxplot: bad\\.csv: column t is not numeric\n"},
        {"t,u\n1,y\n", {"bad.csv"}, "kxplot: bad\\.csv: has no numeric column for a series\n"},
        {"1,2\n3,z\n", {"-"}, "kxplot: standard input:2: column 2: 'z' is not a number\n"},
        {"", {"missing.csv"}, "kxplot: missing\\.csv: .+\n"},
        {"", {"."}, "kxplot: \\.: is a directory\n"},
        {"1,2\n", {"bad.csv", "-o", "none/p.svg"}, "kxplot: none/p\\.svg: .+\n"},
        {"1,2\n", {"bad.csv", "-o", "none/p.png"}, "kxplot: none/p\\.png: .+\n"},
        {"1,2\n", {"bad.csv", "-o", "none/p.pdf"}, "kxplot: none/p\\.pdf: .+\n"},
        {"1,2\n", {"bad.csv", "-o", "p.png", "-o", "none/p.png"}, "kxplot: none/p\\.png: .+\n"},
        {"1,2\n", {"bad.csv", "-o", "p.png", "--outfit", "none.ini"}, "kxplot: none\\.ini: .+\n"},
        {"1,2\n", {"bad.csv", "-o", "p.png", "--save-outfit", "none/o.ini"}, "kxplot: none/o\\.ini: .+\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Message);
        Write("bad.csv", c.Text);
        const TOutcome outcome = Run(c.Arguments, c.Text);
        EXPECT_EQ(outcome.Status, 1);
        EXPECT_TRUE(std::regex_match(outcome.Errors, std::regex(c.Message))) << outcome.Errors;
        EXPECT_EQ(Files(), TNames{"bad.csv"});
    }
}

TEST_F(KxplotProgram, RefusesWrongOptions) {
    const TNames cases[] = {
        {},
        {"--no-such-option"},
        {"d.csv", "-o", "p.gif"},
        {"d.csv", "-o", "p"},
        {"d.csv", "--style", "dots"},
        {"d.csv", "--size", "300"},
        {"d.csv", "--size", "0x200"},
        {"d.csv", "--scale", "0"},
        {"d.csv", "--scale", "two"},
        {"d.csv", "-y", "u", "--dy", "e", "--dy", "e"},
        {"d.csv", "--set", "Graph1"},
        {"d.csv", "--set", "Graph1.Colour=1"},
        {"d.csv", "--set", "Graph9.Color=1"},
        {"d.csv", "--set", "XAxis.TickLength=long"},
        {"d.csv", "other.csv"},
    };
    for (const auto& arguments : cases) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const TOutcome outcome = Run(arguments);
        EXPECT_EQ(outcome.Status, 2);
        EXPECT_TRUE(std::regex_match(outcome.Errors, std::regex("kxplot: [^\n]+\n"))) << outcome.Errors;
        EXPECT_TRUE(Files().empty());
    }
    EXPECT_EQ(Run({"--help"}).Status, 0);
    EXPECT_NE(Run({"--help"}).Output.find("--dx-minus"), std::string::npos);
}

TEST_F(KxplotProgram, CaptionsComeFromHeadersAsTheyStandOrFromOptionsWithMarkup) {
    Write("d.csv", "a\\bc,b & d\n1,2\n2,3\n");
    const std::string plain = Svg({});
    EXPECT_NE(plain.find(">a\\bc<"), std::string::npos);
    EXPECT_NE(plain.find(">b &amp; d<"), std::string::npos);
    const std::string given = Svg({"--title", "no \\b bold\\b", "--x-caption", "X", "--y-caption", ""});
    EXPECT_NE(given.find(">bold<"), std::string::npos);
    EXPECT_NE(given.find(">X<"), std::string::npos);
    EXPECT_EQ(given.find(">a\\bc<"), std::string::npos);
    EXPECT_EQ(given.find(">b &amp; d<"), std::string::npos);
    Write("d.csv", "t," + std::string(300, 'm') + "\n1,2\n2,3\n");
    EXPECT_NE(Svg({}).find("m…<"), std::string::npos) << "a header too long is cut off";
}

TEST_F(KxplotProgram, DrawsColumnsStylesAndErrorsAsAsked) {
    const std::string all = Svg({"--style", "line"}), one = Svg({"--style", "line", "-y", "2"});
    EXPECT_EQ(CountOf(one, "#0072b2"), 1u);
    EXPECT_EQ(CountOf(one, "#d55e00"), 0u);
    EXPECT_EQ(CountOf(all, "#d55e00"), 1u);
    EXPECT_EQ(Svg({"--style", "line", "-y", "u"}), one);
    EXPECT_NE(Svg({"--style", "line", "-x", "u", "-y", "t"}), one);
    const std::string both = Svg({"-y", "u"});
    EXPECT_EQ(Svg({"-y", "u", "--style", "both"}), both) << "few points show their symbols";
    EXPECT_NE(Svg({"-y", "u", "--style", "points"}), both);
    for (const char* style : {"line", "points", "both"}) {
        SCOPED_TRACE(style);
        const std::string bare = Svg({"-y", "u", "--style", style});
        const std::string bars = Svg({"-y", "u", "--style", style, "--dy", "e"});
        EXPECT_GT(bars.size(), bare.size());
        const std::string skew = Svg({"-y", "u", "--style", style, "--dy", "e", "--dy-minus", "v"});
        EXPECT_NE(skew, bars);
        EXPECT_NE(Svg({"-y", "u", "--style", style, "--dx", "e"}), bars);
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

TEST_F(KxplotProgram, LogarithmicAndGivenEndsShowInTheLabels) {
    Write("d.csv", "t,u\n1,0.01\n3,100\n");
    EXPECT_NE(Svg({"--log-y"}), Svg({}));
    const std::string fixed = Svg({"--set", "XAxis.Start=0", "--set", "XAxis.Stop=8"});
    EXPECT_NE(fixed.find(">8<"), std::string::npos);
    EXPECT_EQ(Svg({}).find(">8<"), std::string::npos);
}

} // namespace
