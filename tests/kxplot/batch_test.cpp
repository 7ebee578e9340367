// Many tables at once, results in other forms, and what kxplot tells about itself.

#include "kxplot/fit/resultsjson.h"
#include "kxplot/options/arguments.h"
#include "kxplot/options/optiontable.h"
#include "kxplot/program.h"

namespace kxplot::test::batch {

class Batch : public Program {};

TEST_F(Batch, DrawsEachTableAndTellsOfThoseThatFail) {
    for (const char* name : {"a1.csv", "a2.csv", "a3.csv", "a4.csv"}) Write(name, "x,y\n1,1\n2,3\n3,2\n");
    Write("a2.csv", "x,y\n1,1\n2,b\n");
    const TOutcome outcome =
        Run({"--batch", "a*.csv", "-o", "{name}-plot.svg", "--fit", "line", "--results", "{name}.json"});
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_TRUE(
        std::regex_match(outcome.Errors, std::regex("kxplot: a2.csv:3: .*\nkxplot: 1 of 4 tables failed\n")))
        << outcome.Errors;
    EXPECT_EQ(Files(), (TNames{"a1-plot.svg", "a1.csv", "a1.json", "a2.csv", "a3-plot.svg", "a3.csv",
                               "a3.json", "a4-plot.svg", "a4.csv", "a4.json"}));
    EXPECT_TRUE(Holds(Read("a4.json"), "\"Slope\": 0.5,"));
    ExpectError(2, "--batch a*.csv -o p.svg", "--batch: p.svg would be written for several tables; .*");
    ExpectError(2, "--batch b*.csv", "--batch: 'b\\*.csv' names no file");
    ExpectError(2, "d.csv --batch a*.csv", "--batch: 'd.csv' does not go with it: .*");
}

TEST_F(Batch, WritesCurvesAsATable) {
    Write("d.csv", "t / s,u\n0,1\n1,3\n2,5\n3,7\n");
    const TOutcome outcome = Run(Words("d.csv --fit poly:2 --fit line --fit poly:3 --curve-data c.csv"));
    EXPECT_EQ(outcome.Errors, "");
    const std::string table = Read("c.csv");
    EXPECT_TRUE(table.starts_with("t / s,quadratic fit,cubic fit,t / s,linear fit\n0,1,1,0,1\n"))
        << table.substr(0, 80);
    EXPECT_TRUE(Holds(table, "\n3,7,"));
    EXPECT_EQ(Run(Words("c.csv -o c.svg")).Status, 0);
}

TEST_F(Batch, SeveralTablesAndFunctionsStandInOnePicture) {
    Write("a.csv", "t,u\n0,1\n1,3\n2,5\n");
    Write("b.csv", "t,u\n0,1\n1,2\n2,4\n3,9\n");
    Write("c.csv", "t,u\n0,1\n1,2\n2,4\n");
    EXPECT_EQ(Run(Words("a.csv b.csv --fit line --function=-x --results r.ini -o p.svg")).Errors, "");
    for (const char* text : {">a: u<", ">b: u<", ">-x<", ">a: u: linear fit<"})
        EXPECT_TRUE(Holds(Read("p.svg"), text)) << text;
    EXPECT_EQ(Value(Read("r.ini"), "Series1.LinearRegression", "Points"), "3");
    EXPECT_EQ(Value(Read("r.ini"), "Series2.LinearRegression", "Points"), "4");
    EXPECT_EQ(Run(Words("a.csv c.csv --difference c.csv,a.csv --fit line --results r.ini -o p.svg")).Errors,
              "");
    EXPECT_EQ(Value(Read("r.ini"), "LinearRegression", "Slope"), "-0.5"); // of 0, -1, -1
    ExpectError(1, "a.csv b.csv --difference a.csv,b.csv",
                "b.csv: --difference: its x are not those of a.csv");
    EXPECT_EQ(Run(Words("--function sin(x)/x --range=-10:10 -o f.svg")).Errors, "");
    EXPECT_TRUE(Holds(Read("f.svg"), ">sin(x)/x<")); // the y axis is called so
    ExpectError(2, "--function sin(x)", "--function: without DATA it needs --range");
}

TEST_F(Batch, ResultsAreNumbersAndTextsInJson) {
    EXPECT_EQ(kxplot::ResultsAsJson("[A]\nx=1.50\ny=NAN\nz=a \"q\"\\\n\n[B(2)]\n\n[C]\nn=-2E5\n"),
              "{\n  \"A\": {\n    \"x\": 1.5,\n    \"y\": \"NAN\",\n    \"z\": \"a \\\"q\\\"\\\\\"\n  },\n  "
              "\"B(2)\": {},\n"
              "  \"C\": {\n    \"n\": -2e+05\n  }\n}\n");
    EXPECT_EQ(kxplot::ResultsAsJson(""), "{}\n");
}

TEST_F(Batch, ListsPropertiesAsSetTakesThem) {
    const std::string list =
        Run(Words("--properties Series1 --set Series1.Line.Width=3 --style line")).Output;
    EXPECT_TRUE(Holds(list, "\nSeries1.LineStyle.Width=3\n    whole number; default 1. "));
    const std::string all = Run(Words("d.csv -y u --fit line --properties")).Output;
    for (const char* line : {"\nGraph1.MajorGridX.Style=psSolid\n", "\nXAxis.", "\nFit1.", "\nLegend1."})
        EXPECT_TRUE(Holds(all, line)) << line;
    ExpectError(2, "--properties Sries1",
                "--properties: 'Sries1' is no component of this picture; did you mean 'Series1'\\?");
}

// Every option stands in each of the texts, in lines that fit, and shells take the scripts.
TEST_F(Batch, HelpManPageAndCompletionsHaveAllOptions) {
    CLI::App app;
    kxplot::TArguments given;
    kxplot::AddOptions(app, given);
    const std::string help = Run({"--help"}).Output, man = Run({"--man"}).Output;
    std::istringstream lines(help);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80u) << line;
    for (const char* shell : {"bash", "zsh", "fish"}) {
        const std::string script = Run({"--completions", shell}).Output;
        for (const auto& group : kxplot::TableOf(app))
            for (const auto& row : group.Rows) {
                if (row.IsArgument()) continue;
                const std::string& name = row.Names.back();
                EXPECT_TRUE(Holds(script, name.substr(name.find_first_not_of('-')))) << shell << name;
                EXPECT_TRUE(Holds(help, "  " + row.Names.front())) << name;
                std::string inPage;
                for (const char c : name) (inPage += c == '-' ? "\\" : "") += c;
                EXPECT_TRUE(Holds(man, "\\fB" + inPage + "\\fR")) << name;
            }
    }
    Write("c.bash", Run({"--completions", "bash"}).Output);
    EXPECT_EQ(std::system(("bash -n " + Path("c.bash")).c_str()), 0);
}

} // namespace kxplot::test::batch
