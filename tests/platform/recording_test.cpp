#include "platform/recording.h"

#include "platform/exceptions.h"

#include <gtest/gtest.h>

using namespace kx;

namespace {

/// Composes rectangles and stamps from other calls, as a device may.
class TPlainDevice : public TRecorder {
public:
    using TRecorder::TRecorder;
    void Rectangle(const TRect& R, const TStroke& S, const TFill& F) override {
        TCanvasDevice::Rectangle(R, S, F);
    }
    void Stamps(std::span<const TPoint> P, const TRecording& One) override { TCanvasDevice::Stamps(P, One); }
};

/// One call of each kind.
TRecording Everything() {
    const TPoint points[] = {{0, 0}, {10, 5}, {3, 9}};
    TRecorder dot({5, 5});
    dot.FillRect({0, 0, 2, 2}, {clLime, bsSolid, pmCopy});
    TRecorder device({100, 100});
    device.SetClip(TRect{0, 0, 50, 50});
    device.Polyline(points, {clRed, 2, psDashDot, pmXor});
    device.Polygon(points, {clRed, 0, psClear, pmCopy}, {clBlue, bsDiagCross, pmXor});
    device.Ellipse({1, 2, 3, 4}, {}, {clWhite, bsClear, pmCopy});
    device.Rectangle({1, 2, 5, 6}, {}, {});
    device.Text({7, 8}, {"A \"B\"", 20, fsUnderline | fsStrikeOut, fpFixed, -450}, clBlack, "x\n\xFFy");
    device.Stamps(points, dot.Recording);
    device.SetClip({});
    return device.Recording;
}

} // namespace

TEST(Recording, lists_one_line_a_call) {
    EXPECT_EQ(Everything().ToText(),
              "clip (0,0)-(50,50)\n"
              "polyline (0,0) (10,5) (3,9) pen #ff0000 2 dashdot xor\n"
              "polygon (0,0) (10,5) (3,9) pen clear brush #0000ff diagcross xor\n"
              "ellipse (1,2)-(3,4) pen #000000 0 solid brush clear\n"
              "rectangle (1,2)-(5,6) pen #000000 0 solid brush #ffffff solid\n"
              "text (7,8) \"x\\x0A\\xFFy\" #000000 font \"A \\\"B\\\"\" 20 us -450 fixed\n"
              "stamps (0,0) (10,5) (3,9)\n"
              "  fill (0,0)-(2,2) brush #00ff00 solid\n"
              "clip none\n");
}

TEST(Recording, replays_as_it_was_and_moved) {
    const TRecording all = Everything();
    TRecorder same({100, 100}), moved({100, 100}), back({100, 100});
    all.Replay(same);
    EXPECT_EQ(same.Recording.ToText(), all.ToText() + "clip none\n"); // a picture never leaves a clip behind
    all.Replay(moved, {100, -7});
    EXPECT_TRUE(
        moved.Recording.ToText().starts_with("clip (100,-7)-(150,43)\npolyline (100,-7) (110,-2) (103,2) "))
        << moved.Recording.ToText();
    moved.Recording.Calls.pop_back();
    moved.Recording.Replay(back, {-100, 7});
    EXPECT_EQ(back.Recording.ToText(), same.Recording.ToText());
}

TEST(Recording, a_device_composes_rectangles_and_stamps_from_simpler_calls) {
    TPlainDevice device({100, 100});
    device.SetClip(TRect{0, 0, 9, 9});
    device.Rectangle({1, 2, 5, 6}, {}, {});
    device.Rectangle({1, 2, 1, 6}, {}, {});
    TRecorder dot({5, 5});
    dot.FillRect({0, 0, 2, 2}, {});
    const TPoint places[] = {{10, 10}, {20, 20}};
    device.Stamps(places, dot.Recording);
    EXPECT_EQ(device.Recording.ToText(),
              "clip (0,0)-(9,9)\n"
              "polygon (1,2) (4,2) (4,5) (1,5) pen #000000 0 solid brush #ffffff solid\n"
              "fill (10,10)-(12,12) brush #ffffff solid\n"
              "fill (20,20)-(22,22) brush #ffffff solid\n");
}

TEST(Metafile, keeps_a_picture_of_its_own) {
    TMetafile picture, copy;
    picture.SetPicture({30, 40}, Everything());
    copy.Assign(picture);
    picture.Clear();
    EXPECT_TRUE(picture.IsEmpty());
    EXPECT_EQ(copy.GetWidth() * 100 + copy.GetHeight(), 3040);
    EXPECT_EQ(copy.ToText(), Everything().ToText());
    EXPECT_THROW(copy.Assign(TPen()), EConvertError);
}
