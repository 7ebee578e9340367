// kxplot with a table that a database gives.

#include "qtsql/peer.h"
#include "qtsql/server.h"

#include <regex>

namespace kx::qt {
namespace {

/// Runs kxplot as a shell does; Arguments are its words.
class KxplotDb : public testing::Test {
protected:
    struct TOutcome {
        int Status;
        std::string Told;
    };
    TOutcome Run(const std::string& Arguments) {
        const std::string log = FDirectory / "log";
        const int status = std::system(
            ("cd " + (FDirectory / "") + " && " KXPLOT " " + Arguments + " >" + log + " 2>&1").c_str());
        return {WEXITSTATUS(status), ReadFile(log)};
    }

    test::TTemporaryDirectory FDirectory;
};

constexpr const char* CTable =
    "create table r (day date, x integer, u double precision, code text);"
    "insert into r values ('2003-09-19', 20030919, 1, '01'), ('2003-09-20', 20030920, null, '02'),"
    "('2003-09-21', 20030921, 5, '03'), ('2003-09-22', 20030922, 7, '04')";

TEST_F(KxplotDb, DrawsTheColumnsOfAQueryWithTheirTypes) {
    std::optional<test::TServer> server;
    if (!test::TServer::Programs().empty()) server.emplace();
    for (const std::string& url : {"sqlite:" + (FDirectory / "data.db"), server ? server->Url() : ""}) {
        if (url.empty()) continue;
        TPeer(url).Run(CTable);
        const std::string from = "--db " + url + " -o p.svg --query ";
        const auto explained = Run(from + "'select day, x, u, code from r order by day' --explain").Told;
        EXPECT_TRUE(test::Holds(explained,
                                "column 1, day: dates\ncolumn 2, x: numbers\ncolumn 3, u: numbers\n"
                                "column 4, code: texts\n"));
        const auto fitted =
            Run(from + "'select x - 20030918 as n, u from r order by 1' --fit line --results -");
        EXPECT_EQ(fitted.Status, 0) << fitted.Told;
        EXPECT_TRUE(test::Holds(fitted.Told, "Points=3")) << "an empty field is no value";
        EXPECT_TRUE(test::Holds(fitted.Told, "\nSlope=2\n"));
        const std::tuple<const char*, const char*, bool> texts[] = {
            {"day", ">20 Sep<", true}, {"x", "Sep<", false}, {"code", ">03<", true}};
        for (const auto& [x, text, isThere] : texts) {
            const auto drawn = Run(from + "'select " + x + ", u from r order by day' -y u");
            EXPECT_EQ(drawn.Told, "");
            EXPECT_EQ(ReadFile(FDirectory / "p.svg").find(text) != std::string::npos, isThere) << text;
        }
    }
    if (!server) GTEST_SKIP() << "there is no PostgreSQL server program";
}

TEST_F(KxplotDb, SaysInOneLineWhatIsWrong) {
    TPeer("sqlite:" + (FDirectory / "data.db")).Run(CTable);
    for (const auto& [status, arguments, message] :
         test::Cases<int, test::TText, test::TText>("sql", "kxplot")) {
        const TOutcome outcome = Run(arguments);
        EXPECT_EQ(outcome.Status, status);
        EXPECT_TRUE(std::regex_match(outcome.Told, std::regex("kxplot: " + std::string(message) + "\n")))
            << outcome.Told;
    }
}

} // namespace
} // namespace kx::qt
