#include <kxgraph/platform/drawing/canvas.h>

#include <kxgraph/platform/drawing/recording.h>

#include <gtest/gtest.h>

namespace kx {
namespace {

/// A recorder with a canvas on it.
struct TSheet {
    explicit TSheet(bool CanXor = false) : Device({200, 100}, 96, CanXor), Canvas(&Device) {}
    std::string Drawn() { return std::exchange(Device.Recording, {}).ToText(); }

    TRecorder Device;
    TCanvas Canvas;
};

TEST(Canvas, hands_down_resolved_values_moved_by_the_origin) {
    TSheet sheet;
    TCanvas& canvas = sheet.Canvas;
    canvas.SetOrigin({100, 50});
    canvas.Pen.SetColor(clWindowText);
    canvas.Pen.SetWidth(0);
    canvas.Brush.SetColor(clRed);
    const TPoint line[] = {{1, 2}, {3, 4}, {CMaxPixel, -CMaxPixel}};
    canvas.Polyline(line);
    canvas.Pen.SetStyle(psDot);
    canvas.Rectangle(9, 8, 1, 2);
    canvas.Pen.SetMode(pmXor);
    canvas.Ellipse(0, 0, 5, 5);
    canvas.FillRect({0, 0, 5, 5});
    EXPECT_EQ(sheet.Drawn(), "polyline (101,52) (103,54) (1073741824,-1073741774) pen #000000 0 solid\n"
                             "rectangle (101,52)-(109,58) pen #000000 0 dot brush #ff0000 solid\n"
                             "ellipse (100,50)-(105,55) pen #000000 0 dot xor brush #ff0000 solid xor\n"
                             "fill (100,50)-(105,55) brush #ff0000 solid\n");
    EXPECT_EQ(canvas.GetClipRect(), (TRect{-100, -50, 100, 50}));
}

TEST(Canvas, draws_nothing_without_extent_or_device) {
    TSheet sheet;
    sheet.Canvas.MoveTo(3, 4);
    sheet.Canvas.LineTo(3, 4);
    sheet.Canvas.FillRect({5, 5, 5, 9});
    sheet.Canvas.TextOut(0, 0, "");
    EXPECT_EQ(sheet.Drawn(), "");
    sheet.Canvas.LineTo(7, 4);
    EXPECT_EQ(sheet.Drawn(), "polyline (3,4) (7,4) pen #000000 1 solid\n");

    TCanvas loose;
    loose.LineTo(5, 5);
    EXPECT_EQ(loose.TextExtent("abc"), (TSize{24, 13})); // 13 high, 8 a character
}

TEST(Canvas, a_focus_rectangle_inverts_where_the_device_can) {
    for (const bool canXor : {false, true}) {
        TSheet sheet(canXor);
        sheet.Canvas.DrawFocusRect({1, 2, 30, 40});
        EXPECT_EQ(sheet.Drawn(), canXor ? "rectangle (1,2)-(30,40) pen #ffffff 0 dot xor brush clear\n"
                                        : "rectangle (1,2)-(30,40) pen #000000 0 dot brush clear\n");
    }
}

TEST(Canvas, text_goes_down_with_its_face_and_symbols_as_the_characters_they_show) {
    TSheet sheet;
    sheet.Canvas.Font.SetStyle(fsBold | fsItalic);
    sheet.Canvas.Font.SetOrientation(900);
    sheet.Canvas.Font.SetColor(clBlue);
    sheet.Canvas.TextOut(1, 2, "a\"b\\");
    sheet.Canvas.Font.SetName("symbol");
    sheet.Canvas.TextOut(1, 2, "aD\xB1");
    EXPECT_EQ(sheet.Drawn(), "text (1,2) \"a\\\"b\\\\\" #0000ff font \"Arial\" -13 bi 900\n"
                             "text (1,2) \"αΔ±\" #0000ff font \"Arial\" -13 bi 900\n");
    EXPECT_EQ(sheet.Canvas.TextWidth("\xB1"), 8);
    EXPECT_EQ(SymbolText("W ~\x7F mu 5 [x] ¥£ÿ € \xF2"), "Ω ∼\x7F μυ 5 [ξ] ∞≤ÿ € ∫");
}

TEST(Canvas, clips_narrow_within_the_base_clip_and_are_restored) {
    TRecorder dot({5, 5});
    dot.SetClip(TRect{0, 0, 2, 2});
    TSheet sheet;
    TCanvas& canvas = sheet.Canvas;
    canvas.SetBaseClip(TRect{10, 10, 50, 50});
    try {
        const TCanvas::TSaved saved(canvas);
        canvas.SetOrigin({20, 20});
        canvas.SetClip(TRect{0, 0, 100, 10});
        EXPECT_EQ(canvas.GetClipRect(), (TRect{0, 0, 30, 10}));
        canvas.SetClip(TRect{90, 90, 95, 95});
        canvas.SetClip({});
        canvas.SetClip(TRect{1, 1, 2, 2});
        const TPoint places[] = {{1, 1}, {2, 2}};
        canvas.Stamps(places, dot.Recording); // has a clip of its own
        throw std::runtime_error("inside");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(canvas.GetOrigin(), TPoint{});
    canvas.SetDevice(nullptr);
    EXPECT_EQ(sheet.Drawn(), "clip (10,10)-(50,50)\nclip (20,20)-(50,30)\nclip (0,0)-(0,0)\n"
                             "clip (10,10)-(50,50)\nclip (21,21)-(22,22)\n"
                             "stamps (21,21) (22,22)\n  clip (0,0)-(2,2)\nclip (21,21)-(22,22)\n"
                             "clip (10,10)-(50,50)\nclip none\n");
}

} // namespace
} // namespace kx
