// Tables that come onto a form.

#include <kxgraph/design/Kxdesignimport.h>

#include "support/testing.h"

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/series/Kxdataseries.h>

namespace kx::test::designimport {

class DesignImport : public testing::Test {
protected:
    DesignImport() : Directory(std::filesystem::path(testing::TempDir()) / "designimport") {
        std::filesystem::create_directories(Directory);
    }
    ~DesignImport() override { std::filesystem::remove_all(Directory); }
    std::string Table(const char* Text) {
        const std::string name = (Directory / "table.csv").string();
        std::ofstream(name) << Text;
        return name;
    }

    const bool IsRegistered = (RegisterClasses(), true);
    std::filesystem::path Directory;
    TKxDesignDocument Document;
};

TEST_F(DesignImport, TellsErrorsFromSeriesByTheirHeaders) {
    struct {
        const char* Text;
        int X;
        std::vector<std::pair<int, int>> Series;
    } const cases[]{
        {"t,U,dU,I\n1,2,3,4\n2,3,4,5\n", 0, {{1, 2}, {3, -1}}},
        {"t,U,U error,sd\n1,2,3,4\n2,3,4,5\n", 0, {{1, 2}, {3, -1}}},
        {"name,t,U\na,1,2\nb,2,3\n", 1, {{2, -1}}},
        {"5\n6\n7\n", -1, {{0, -1}}},
    };
    for (const auto& c : cases) {
        const TKxImportPlan plan = PlanImport(TKxTable(c.Text, "table"));
        EXPECT_EQ(plan.X, c.X) << c.Text;
        ASSERT_EQ(plan.Series.size(), c.Series.size()) << c.Text;
        for (std::size_t i = 0; i < c.Series.size(); ++i) {
            EXPECT_EQ(plan.Series[i].Y, c.Series[i].first) << c.Text;
            EXPECT_EQ(plan.Series[i].Error, c.Series[i].second) << c.Text;
        }
    }
}

TEST_F(DesignImport, IsOneStepWithAGraphAndAxesOfDates) {
    const std::string before = Document.GetText();
    const auto made = ImportTable(Document, Table("day,U,dU\n2024-01-01,1,0.1\n2024-01-02,3,0.2\n"));
    ASSERT_EQ(made.size(), 1U);
    const auto& series = dynamic_cast<TKxDataWithErrorSeries&>(*made[0]);
    EXPECT_EQ(series.GetYData()->GetName(), "U");
    EXPECT_EQ(series.GetdYPlus()->GetValue(1), 0.2);
    EXPECT_EQ(series.GetXAxis()->GetLabelKind(), lkDates);
    EXPECT_EQ(series.GetYAxis()->GetCaption(), "U");
    EXPECT_EQ(Document.GetUndoName(), "Import table.csv");
    const std::string after = Document.GetText();
    Document.Undo();
    EXPECT_EQ(Document.GetText(), before);
    Document.Redo();
    EXPECT_EQ(Document.GetText(), after);
}

TEST_F(DesignImport, NamesTablesBesideTheFormByTheWayFromThere) {
    Document.SaveAs((Directory / "figure.kxf").string());
    ImportTable(Document, Table("x,y 1\n1,2\n"));
    EXPECT_NE(Document.GetText().find("FileName = \"table.csv\""), std::string::npos);
    ImportTable(Document, Table("x,y 1\n1,2\n"));
    EXPECT_EQ(TKx2DGraph::OwnedBy(Document.GetForm()).size(), 1U) << "drawn on the graph that is there";
    std::filesystem::create_directories(Directory / "deeper");
    Document.SaveAs((Directory / "deeper" / "figure.kxf").string());
    EXPECT_NE(Document.GetText().find("FileName = \"../table.csv\""), std::string::npos);
    TKxDesignDocument again;
    again.Open(Document.GetFileName());
    EXPECT_EQ(again.GetText(), Document.GetText());
    EXPECT_THROW(ImportTable(again, Table("a\nb\n")), Exception);
    EXPECT_EQ(again.GetText(), Document.GetText());
}

} // namespace kx::test::designimport
