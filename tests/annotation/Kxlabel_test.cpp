#include <kxgraph/annotation/Kxlabel.h>

#include "support/testing.h"

#include <kxgraph/platform/controls/frame.h>

namespace kx::test::label {

/// A label whose characters are 6 wide and 10 high.
struct TSmall : TKxLabel {
    explicit TSmall(const TKxCaption& Caption) : TKxLabel(nullptr) {
        GetFont().SetHeight(-10);
        SetCaption(Caption);
    }
};

TEST(Labels, BoundsAndStartFollowFromTheAngle) {
    const struct {
        int Angle, Stored;
        TPoint Start;
        TSize Size;
    } cases[] = {
        {0, 0, {0, 0}, {60, 10}},        {900, 900, {0, 60}, {10, 60}},  {1800, 1800, {60, 10}, {60, 10}},
        {2700, 2700, {10, 0}, {10, 60}}, {300, 300, {0, 30}, {57, 39}},  {1200, 1200, {30, 57}, {39, 57}},
        {2100, 2100, {57, 9}, {57, 39}}, {3300, 3300, {5, 0}, {57, 39}}, {3700, 100, {0, 10}, {61, 20}},
        {-900, -900, {10, 0}, {10, 60}}, {-300, -300, {5, 0}, {57, 39}}, {-3000, -3000, {0, 52}, {39, 57}},
    };
    TCustomPanel panel(nullptr);
    panel.SetBounds(0, 0, 200, 200);
    for (const auto& c : cases) {
        TSmall label("0123\\b456789");
        label.SetAngle(c.Angle);
        EXPECT_EQ(label.GetAngle(), c.Stored);
        EXPECT_EQ((TPoint{label.GetPaintX(), label.GetPaintY()}), c.Start) << c.Angle;
        EXPECT_EQ(label.GetBoundsRect().Size(), c.Size) << c.Angle;
        const auto painted = [&](int Angle) {
            label.SetAngle(Angle);
            TRecorder device({200, 200});
            PaintFrame(panel, device);
            return device.Recording.ToText();
        };
        label.SetParent(&panel);
        EXPECT_EQ(painted(c.Angle), painted(c.Angle + 3600 * (c.Angle < 0))) << c.Angle;
    }
}

TEST(Labels, TheAnchorStaysWhileTheTextChanges) {
    const struct {
        TAlignment Alignment;
        int Left, LeftOfLonger;
    } cases[] = {{taLeftJustify, 100, 100}, {taCenter, 91, 82}, {taRightJustify, 82, 64}};
    for (const auto& c : cases) {
        TSmall label("abc");
        label.SetAlignment(c.Alignment);
        label.SetXPosition(100);
        EXPECT_EQ(label.GetLeft(), c.Left);
        label.SetCaption("abcdef");
        EXPECT_EQ(std::tuple(label.GetLeft(), label.GetXPosition()), std::tuple(c.LeftOfLonger, 100));
        label.SetAngle(900);
        EXPECT_EQ(label.GetLeft(), 100) << "turned text is anchored at its left";
    }
}

TEST(Labels, ItPaintsItsCaptionOnItsColour) {
    TCustomPanel panel(nullptr);
    panel.GetFont().SetName("Courier"); // is not taken over
    panel.SetBounds(0, 0, 200, 100);
    TSmall label("a\\bb");
    label.SetParent(&panel);
    label.SetBounds(50, 40, 0, 0);
    label.SetColor(clYellow);
    label.SetAngle(900);
    for (const bool transparent : {false, true}) {
        label.SetTransparent(transparent);
        TRecorder device({200, 100});
        PaintFrame(panel, device);
        const std::string drawn = device.Recording.ToText();
        EXPECT_EQ(drawn.find("#ffff00") == std::string::npos, transparent);
        EXPECT_TRUE(Holds(drawn, "text (50,52) \"a\" #000000 font \"Arial\" -10 - 900\n"
                                 "text (50,46) \"b\" #000000 font \"Arial\" -10 b 900\n"));
    }
}

} // namespace kx::test::label
