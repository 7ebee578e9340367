// Forms: what kxplot saves draws the same picture, and what it says of others.

#include "kxplot/program.h"

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/streaming/describe.h>

namespace kxplot::test::formfile {

class FormFile : public Program {
protected:
    /// The form of a command draws what the command draws, to the byte.
    void ExpectSame(TNames Words) {
        Words.insert(Words.end(), {"-o", "a.png", "--save-form", "f.kxf"});
        const TOutcome saved = Run(Words);
        ASSERT_EQ(saved.Status, 0) << saved.Errors;
        const TOutcome drawn = Run({"f.kxf", "-o", "b.png"});
        EXPECT_EQ(drawn.Status, 0) << drawn.Errors;
        EXPECT_TRUE(Read("a.png") == Read("b.png"));
    }
    /// The words of a line as a shell has them.
    static TNames Split(const std::string& Line) {
        TNames words{""};
        char quote = 0;
        for (const char c : Line)
            if (quote ? c == quote : c == '\'' || c == '"')
                quote = quote ? 0 : c;
            else if (c == ' ' && !quote)
                words.emplace_back();
            else
                words.back() += c;
        std::erase(words, "");
        return words;
    }
};

TEST_F(FormFile, DrawsThePicturesOfTheExamples) {
    int count = 0, inTable = 0;
    for (const auto& entry : fs::directory_iterator(KX_SOURCE "/examples")) {
        if (entry.path().extension() != ".csv") continue;
        SCOPED_TRACE(entry.path().filename());
        const std::string text = kx::ReadFile(entry.path()), mark = "# kxplot ";
        const auto at = text.find(mark);
        ASSERT_NE(at, text.npos);
        Write(entry.path().filename(), text);
        TNames words = Split(text.substr(at + mark.size(), text.find('\n', at) - at - mark.size()));
        ExpectSame(words);
        inTable += Read("f.kxf").find("TKxFileVector") != std::string::npos;
        words.push_back("--inline");
        if (++count % 4 == 0) ExpectSame(words);
    }
    EXPECT_GT(count, 12);
    EXPECT_GT(inTable, 8);
}

TEST_F(FormFile, DrawsWhatOptionsMake) {
    Write("d.csv", "t,u,v,e,n\n1,2,3,0.1,x\n2,4,5,0.2,y\n3,3,nan,0.1,z\n4,8,2,0.3,x\n5,7,9,0.2,w\n");
    for (const auto& row : kx::test::RowsOf("programs", "pictures")) {
        const std::string& line = row[0];
        SCOPED_TRACE(line);
        TNames words = Split(line);
        words.insert(words.begin(), "d.csv");
        ExpectSame(words);
    }
}

TEST_F(FormFile, TakesOptionsOfPicturesAloneAndSaysWhatIsWrong) {
    ASSERT_EQ(Run({"d.csv", "-y", "u", "-o", "a.svg", "--save-form", "f.kxf"}).Status, 0);
    const TOutcome set =
        Run({"f.kxf", "-o", "b.svg", "--set", "Graph1.Caption=Again", "--set", "Graph1.ShowTitle=1"});
    EXPECT_EQ(set.Status, 0) << set.Errors;
    EXPECT_TRUE(Holds(Read("b.svg"), ">Again</text>"));
    Write("g.kxf", "object TKxForm\nend\n");
    Write("h.kxf", "object TForm\nend\n");
    for (const auto& [status, arguments, message] : Cases<int, TText, TText>("programs", "forms"))
        ExpectError(status, arguments, message);
    fs::remove(Path("d.csv"));
    EXPECT_TRUE(Holds(Run({"f.kxf", "-o", "c.png"}).Errors, "XData: d.csv: No such file"));
    EXPECT_FALSE(Has("c.png"));
}

TEST_F(FormFile, IsWrittenAgainWithWhatOtherProgramsHandle) {
    ASSERT_EQ(Run({"d.csv", "-y", "u", "--fit", "line", "--save-form", "f.kxf"}).Status, 0);
    std::string text = Read("f.kxf");
    const std::string graph = ": TKx2DGraph\n", handler = "OnMouseDown = PickedByTheirProgram\n";
    text.insert(text.find(graph) + graph.size(), "    " + handler);
    Write("f.kxf", text);
    fs::create_directory(Path("inner"));
    const TOutcome set = Run({"f.kxf", "--set", "Graph1.Caption=Again", "--save-form", "inner/g.kxf"});
    EXPECT_EQ(set.Status, 0) << set.Errors;
    for (const char* part : {handler.c_str(), "Caption = \"Again\"", "FileName = \"../d.csv\""})
        EXPECT_TRUE(Holds(Read("inner/g.kxf"), part)) << part;
    EXPECT_EQ(Run({"inner/g.kxf", "-o", "g.png", "--save-form", "inner/h.kxf"}).Status, 0);
    EXPECT_EQ(Read("inner/h.kxf"), Read("inner/g.kxf"));
    EXPECT_TRUE(Has("g.png"));
}

TEST_F(FormFile, TheReferenceIsThatOfTheRows) {
    kx::RegisterClasses();
    EXPECT_EQ(kx::ReadFile(KX_SOURCE "/docs/properties.md"), "# Properties\n\n" + kx::DescribeClasses())
        << "kxplot --describe > docs/properties.md";
    EXPECT_EQ(Run({"--describe"}).Output, kx::ReadFile(KX_SOURCE "/docs/properties.md"));
    const std::string axis = Run({"--describe", "tkxaxis"}).Output;
    EXPECT_TRUE(Holds(axis, "| `Twisted` | `True`, `False` | `False` | runs in reverse |\n"));
    EXPECT_TRUE(Holds(axis, "## TControl\n"));
}

} // namespace kxplot::test::formfile
