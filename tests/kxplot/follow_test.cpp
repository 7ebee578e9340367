// A table that grows under kxplot's eyes.

#include "kxplot/follow/followedtable.h"
#include "kxplot/program.h"

namespace kxplot::test::follow {

class Follow : public Program {
protected:
    /// One thing that happens to the file, and what is seen of it: the kind of news, and the text that is
    /// kept.
    struct TStep {
        const char*
            What; ///< "+" adds, "=" writes over in place, "!" makes anew under the name; then the text
        TFollowedTable::TNews News;
        std::string Kept;
    };
    /// Whoever has opened its file hears signals.
    void WaitUntilOpen(pid_t Child, const std::string& Name) const {
        for (int i = 0; i < 2000; ++i, usleep(10000)) {
            std::error_code gone;
            for (const auto& file : fs::directory_iterator("/proc/" + std::to_string(Child) + "/fd", gone))
                if (fs::read_symlink(file.path(), gone).filename() == Name) return;
        }
    }
    void Expect(const std::string& Options, const std::vector<TStep>& Steps) {
        const std::string file = Path("g.csv");
        fs::remove(file);
        TFollowedTable table(Parsed(file + " --follow " + Options));
        EXPECT_EQ(table.Poll(), TFollowedTable::TNews::None);
        for (const auto& [what, news, kept] : Steps) {
            SCOPED_TRACE(what);
            if (*what == '!') fs::rename(file, file + ".old");
            std::ofstream(file, *what == '+' ? std::ios::app : std::ios::trunc) << what + 1;
            EXPECT_EQ(table.Poll(), news);
            EXPECT_EQ(table.GetText(), kept);
        }
    }
};

TEST_F(Follow, TakesWholeLinesThatFitAndBeginsAnewWithTheFile) {
    using enum TFollowedTable::TNews;
    testing::internal::CaptureStderr();
    Expect("", {{"+t;u\n", None, "t;u\n"},
                {"+1;2,5\n2;", Anew, "t;u\n1;2,5\n"},
                {"+3\nx;1\n4\n5;y\n6;7\n", Rows, "t;u\n1;2,5\n2;3\n6;7\n"},
                {"+z;1\n# a remark\n7;8\n", Rows, "t;u\n1;2,5\n2;3\n6;7\n# a remark\n7;8\n"},
                {"=t;u\n9;1\n", Anew, "t;u\n9;1\n"},
                {"=t;u\n9;2\n8;1\n7;1\n", Anew, "t;u\n9;2\n8;1\n7;1\n"}, // longer than before
                {"!a b\n1 2\n", Anew, "a b\n1 2\n"}});
    const std::string told = testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 3) << told;
    for (const char* piece : {":4: column t: 'x' is not a number", ":5: 1 cell where", ":6: column u: 'y'"})
        EXPECT_TRUE(Holds(told, piece));
}

TEST_F(Follow, RemembersWhatTheFirstLinesHaveTold) {
    using enum TFollowedTable::TNews;
    Expect("", {{"+03.04.2020,1\n13.04.2020,2\n", Anew, "03.04.2020,1\n13.04.2020,2\n"},
                {"+04.05.2020,3\n", Rows, "03.04.2020,1\n13.04.2020,2\n04.05.2020,3\n"}});
    Expect("--window 2", {{"+t,u\n1,1\n2,2\n3,3\n", Anew, "t,u\n2,2\n3,3\n"},
                          {"+4,4\n", Rows, "t,u\n3,3\n4,4\n"},
                          {"+# no row\n5,5\n", Rows, "t,u\n4,4\n# no row\n5,5\n"}});
}

TEST_F(Follow, WritesWhatWasAskedForAtCtrlCAndAtTheEndOfItsInput) {
    Write("g.csv", "t,u\n1,1\n");
    const pid_t child = Start(Words("g.csv --follow --fit line --results r.ini -o p.svg"), "/dev/null",
                              Path("out"), Path("err"));
    std::ofstream(Path("g.csv"), std::ios::app) << "2,3\n3,5\n";
    WaitUntilOpen(child, "g.csv");
    kill(child, SIGINT);
    EXPECT_EQ(StatusOf(child), 0) << Read("err");
    EXPECT_TRUE(Holds(Read("r.ini"), "Slope=2\n"));
    EXPECT_TRUE(Has("p.svg"));
    const TOutcome outcome = Run(Words("- --follow --window 3 --fit line --results -"), "1 1\n2 5\n3 3\n4 1");
    EXPECT_TRUE(Holds(outcome.Output, "CalcStart=2\n")) << outcome.Errors;
    ExpectError(2, "d.csv --window 3", "--window: goes with --follow alone");
    ExpectError(2, "d.csv --follow d.csv", "--follow: goes with one table alone");
}

TEST_F(Follow, AWindowGoesOnWhereLinesDoNotFitAndAFileBeginsAnew) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    Write("g.csv", "t,u\n1,1\n2,9\n");
    const pid_t child = Start(Words("g.csv --follow --show-for 1.5 --fit line --results r.ini"), "/dev/null",
                              Path("out"), Path("err"));
    WaitUntilOpen(child, "g.csv");
    std::ofstream(Path("g.csv"), std::ios::app) << "x,5\ny,6\n3,7\n";
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    Write("new", "t,u\n1,1\n2,3\n3,5\n4,");
    std::filesystem::rename(Path("new"), Path("g.csv"));
    EXPECT_EQ(StatusOf(child), 0);
    EXPECT_TRUE(Holds(Read("r.ini"), "CalcStop=3\n")) << Read("r.ini");
    EXPECT_TRUE(Holds(Read("r.ini"), "Slope=2\n"));
    const std::string told = Read("err");
    const auto line = told.find("g.csv:4: column t: 'x' is not a number");
    EXPECT_NE(line, told.npos) << told;
    EXPECT_EQ(told.find("is not a number", line + 40), told.npos) << "once for each kind: " << told;
    unsetenv("QT_QPA_PLATFORM");
}

} // namespace kxplot::test::follow
