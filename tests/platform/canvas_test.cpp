#include <kxgraph/platform/drawing/canvas.h>

#include "support/testing.h"

namespace kx::test::canvas {

/// A recorder with a canvas on it.
struct TSheet {
    explicit TSheet(bool CanXor = false) : Device({200, 100}, 96, CanXor), Canvas(&Device) {}
    std::string Drawn() { return std::exchange(Device.Recording, {}).ToText(); }

    TRecorder Device;
    TCanvas Canvas;
};

TEST(Canvas, HandsDownResolvedValuesMovedByTheOrigin) {
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
    ExpectRecording("canvasorigin", sheet.Drawn());
    EXPECT_EQ(canvas.GetClipRect(), (TRect{-100, -50, 100, 50}));
}

TEST(Canvas, DrawsNothingWithoutExtentOrDevice) {
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

TEST(Canvas, InvertsAFocusRectangleWhereTheDeviceCan) {
    for (const bool canXor : {false, true}) {
        TSheet sheet(canXor);
        sheet.Canvas.DrawFocusRect({1, 2, 30, 40});
        const std::string pen = canXor ? "#ffffff 0 dot xor" : "#000000 0 dot";
        EXPECT_EQ(sheet.Drawn(), "rectangle (1,2)-(30,40) pen " + pen + " brush clear\n");
    }
}

TEST(Canvas, HandsDownTextWithItsFaceAndSymbolsAsWhatTheyShow) {
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

TEST(Canvas, NarrowsClipsWithinTheBaseClipAndRestoresThem) {
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
    ExpectRecording("canvasclips", sheet.Drawn());
}

} // namespace kx::test::canvas
