#include <kxgraph/table/Kxfilevector.h>

#include "support/testing.h"

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/streaming/formfile.h>

namespace kx::test::filevector {

struct FileVector : testing::Test {
    FileVector() {
        RegisterClasses();
        std::filesystem::create_directory(Folder + "data");
        ReplaceFile(Folder + "data/cooling.csv", "t;T / K\n0;300,5\n1;290\n2;281,25\n");
    }
    std::string FormOf(const std::string& FileName, const std::string& Column) const {
        return "object F: TForm\n  object V: TKxFileVector\n    FileName = \"" + FileName +
               "\"\n    Column = \"" + Column +
               "\"\n  end\n  object W: TKxFileVector\n    FileName = \"data/cooling.csv\"\n    Column = "
               "\"1\"\n  end\nend\n";
    }
    static std::vector<double> ValuesOf(const TComponent& Form, const char* Name) {
        const auto values = dynamic_cast<const TKxFileVector&>(*Form.FindComponent(Name)).Values();
        return {values.begin(), values.end()};
    }
    const TTemporaryDirectory Directory;
    const std::string Folder = Directory / "";
};

TEST_F(FileVector, ReadsItsColumnBesideTheForm) {
    const std::string file = Folder + "form.kxf";
    ReplaceFile(file, FormOf("data/cooling.csv", "T / K"));
    const auto form = LoadForm(file);
    EXPECT_EQ(ValuesOf(*form, "V"), (std::vector<double>{300.5, 290, 281.25}));
    EXPECT_EQ(ValuesOf(*form, "W"), (std::vector<double>{0, 1, 2}));
    const std::string text = FormToText(*form, file);
    EXPECT_TRUE(Holds(text, "Column = \"T / K\"\n"));
    EXPECT_FALSE(Holds(text, "300")) << "values stay where they are";
    auto& vector = dynamic_cast<TKxFileVector&>(*form->FindComponent("V"));
    EXPECT_EQ(MessageOf([&] { vector.SetColumn("p"); }),
              Folder + "data/cooling.csv: has no column 'p'; it has 2 columns");
    EXPECT_EQ(std::tuple(vector.GetColumn(), vector.GetCount()), std::tuple("T / K", 3));
    int told = 0;
    vector.Listeners().Add(TKxValueIChangedEvent([&](int, bool) { ++told; }));
    vector.SetColumn("t");
    EXPECT_EQ(ValuesOf(*form, "V"), (std::vector<double>{0, 1, 2}));
    EXPECT_GT(told, 0);
    vector.SetFileName("");
    EXPECT_EQ(vector.GetCount(), 0);
}

TEST_F(FileVector, TellsWhereWhatIsMissingIsNamed) {
    const std::string file = Folder + "form.kxf";
    ReplaceFile(file, FormOf("gone.csv", "t"));
    EXPECT_EQ(MessageOf<EFormError>([&] { LoadForm(file); }),
              file + ":2:13: V: " + Folder + "gone.csv: No such file or directory");
    ReplaceFile(file, FormOf("data/cooling.csv", "p"));
    EXPECT_EQ(MessageOf<EFormError>([&] { LoadForm(file); }).substr(0, file.size() + 9), file + ":2:13: V:");
}

} // namespace kx::test::filevector
