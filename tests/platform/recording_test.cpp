#include <kxgraph/platform/drawing/recording.h>

#include "support/testing.h"

namespace kx::test::recording {

/// One call of each kind.
void DrawEverything(TCanvasDevice& Device) {
    const TPoint points[] = {{0, 0}, {10, 5}, {3, 9}};
    TRecorder dot({5, 5});
    dot.FillRect({0, 0, 2, 2}, {clLime, bsSolid, pmCopy});
    Device.SetClip(TRect{0, 0, 50, 50});
    Device.Polyline(points, {clRed, 2, psDashDot, pmXor});
    Device.Polygon(points, {clRed, 0, psClear, pmCopy}, {clBlue, bsDiagCross, pmXor});
    Device.Ellipse({1, 2, 3, 4}, {}, {clWhite, bsClear, pmCopy});
    Device.Rectangle({1, 2, 5, 6}, {}, {});
    Device.Text({7, 8}, {"A \"B\"", 20, fsUnderline | fsStrikeOut, fpFixed, -450}, clBlack, "x\n\xFFy");
    Device.Stamps(points, dot.Recording);
    Device.SetClip({});
}

TEST(Recording, ListsOneLineACallAndReplaysAsItWasOrMoved) {
    const std::string expected =
        "clip (0,0)-(50,50)\n"
        "polyline (0,0) (10,5) (3,9) pen #ff0000 2 dashdot xor\n"
        "polygon (0,0) (10,5) (3,9) pen clear brush #0000ff diagcross xor\n"
        "ellipse (1,2)-(3,4) pen #000000 0 solid brush clear\n"
        "rectangle (1,2)-(5,6) pen #000000 0 solid brush #ffffff solid\n"
        "text (7,8) \"x\\x0A\\xFFy\" #000000 font \"A \\\"B\\\"\" 20 us -450 fixed\n"
        "stamps (0,0) (10,5) (3,9)\n  fill (0,0)-(2,2) brush #00ff00 solid\nclip none\n";
    TRecorder all({100, 100}), moved({100, 100}), back({100, 100});
    DrawEverything(all);
    EXPECT_EQ(all.Recording.ToText(), expected);
    all.Recording.Replay(moved, {100, -7});
    EXPECT_TRUE(moved.Recording.ToText().starts_with("clip (100,-7)-(150,43)\npolyline (100,-7) (110,-2) "));
    moved.Recording.Calls.pop_back();
    moved.Recording.Replay(back, {-100, 7});
    EXPECT_EQ(back.Recording.ToText(), expected + "clip none\n"); // a picture never leaves a clip behind
}

} // namespace kx::test::recording
