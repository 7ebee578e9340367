#include "kxplot/show/show.h"

#include "kxplot/plan/planner.h"
#include "kxplot/plugins/plugin.h"
#include "kxplot/program.h"

#include <kxgraph/qt/Kxqtinstall.h>

namespace kxplot::test {
namespace {

std::function<void(const TShownPicture&)> user; // in front of the window
const TWindowPart window{[] {}, [](const TShownPicture& Picture) { user(Picture); }};

/// How many paths and texts a picture has.
long Parts(const std::string& Svg) {
    long parts = 0;
    for (const char* kind : {"<path", "<text", "<g"})
        for (auto at = Svg.find(kind); at != std::string::npos; at = Svg.find(kind, at + 1)) ++parts;
    return parts;
}

struct ShownProgram : Program {
    void Show(const std::string& Arguments, const std::function<void(const TShownPicture&)>& User) {
        kx::qt::Install(true);
        const TOptions options = Parsed("d.csv --show " + Arguments);
        TPicture picture(MakePlan(kx::TKxTable("t,u\n1,2\n2,4\n3,3\n4,7\n", "d.csv"), options));
        picture.Apply();
        const TFindings found = Fit(picture.GetParts());
        picture.Finish(found.Labels);
        user = User;
        kxplot::Show(window, picture, found, options);
    }
    std::string Saved(const TShownPicture& Picture) {
        Picture.SavePicture(Path("p.svg"));
        return Read("p.svg");
    }
};

TEST_F(ShownProgram, SavesWhatItShowsInItsSizeWithFitsAndWithout) {
    for (const std::string arguments :
         {"--fit line --label Slope", "--fit line --residuals --no-legend --band confidence"})
        Show("-y u " + arguments, [&](const TShownPicture& P) {
            EXPECT_TRUE(P.HasFits);
            EXPECT_EQ(P.Title, "d.csv - kxplot");
            const std::string whole = Saved(P);
            EXPECT_TRUE(Holds(whole, "linear fit"));
            P.ShowFits(false);
            const std::string bare = Saved(P);
            EXPECT_LT(Parts(bare), Parts(whole));
            EXPECT_FALSE(Holds(bare, "linear fit"));
            P.ShowFits(true);
            EXPECT_EQ(Saved(P), whole);
            P.Form.SetBounds(0, 0, 500, 350);
            P.Resized();
            EXPECT_TRUE(Holds(Saved(P), "width=\"500\" height=\"350\""));
            EXPECT_EQ(P.Record().GetWidth(), 500);
            P.Form.SetBounds(0, 0, 900, 600);
            P.Resized();
            EXPECT_EQ(Saved(P), whole);
            P.SaveOutfit(Path("o.ini"));
            EXPECT_EQ(Read("o.ini").substr(0, 8), "[Graph1]");
        });
}

TEST_F(ShownProgram, ZoomsByTheMouseAndHasTheKeys) {
    Show("-y u", [](const TShownPicture& P) {
        EXPECT_FALSE(P.HasFits);
        auto& graph = dynamic_cast<kx::TKx2DGraph&>(*P.Form.FindComponent("Graph1"));
        EXPECT_TRUE(graph.GetAutoZoom());
        EXPECT_TRUE(graph.IsFocused());
    });
}

TEST_F(Program, OpensAWindowWhereThereIsADisplayAndWritesWhatIsAskedFor) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const TOutcome shown = Run(Words("d.csv --show-for 0.2 --fit line"));
    EXPECT_EQ(shown.Status, 0) << shown.Errors;
    EXPECT_EQ(Files(), TNames{});
    EXPECT_EQ(Run(Words("d.csv --show-for 0.2 -o p.svg")).Status, 0);
    EXPECT_EQ(Files(), TNames{"p.svg"});
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(name);
    ExpectError(1, "d.csv --show", "There is no display for a window: .*");
    setenv("DISPLAY", ":987", 1);
    ExpectError(1, "d.csv --show", ".*could not connect to display :987");
    unsetenv("DISPLAY");
}

TEST(Plugin, ThatIsNotThereIsTold) {
    const std::string message =
        kx::test::MessageOf([] { PluginFunction("--show", "kxplot-nothing", "Entry"); });
    EXPECT_TRUE(Holds(message, "--show: this part of kxplot is not installed"));
    EXPECT_TRUE(Holds(message, "kxplot-nothing.so"));
}

} // namespace
} // namespace kxplot::test
