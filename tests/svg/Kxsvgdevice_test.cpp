#include <kxgraph/svg/Kxsvgdevice.h>

#include "support/testing.h"
#include "support/xml.h"

#include <kxgraph/platform/drawing/reduction.h>

namespace kx::test::svgdevice {

std::string Drawn(const std::function<void(TCanvasDevice&)>& Draw) {
    TSvgDevice device({200, 100}, 1.25, clSilver);
    Draw(device);
    return device.Document();
}

int Count(const std::string& Text, const std::string& Part) {
    int count = 0;
    for (auto at = Text.find(Part); at != std::string::npos; at = Text.find(Part, at + 1)) ++count;
    return count;
}

/// Every kind of call in every style, without regard to how it looks.
void DrawEverything(TCanvasDevice& Device) {
    const TPoint points[] = {{1, 1}, {50, 60}, {90, 20}, {1, 1}}, dot[] = {{5, 5}, {5, 5}};
    for (int i = 0; i < 8 * 7 * 3; ++i) {
        const TPenMode mode = i % 2 == 0 ? pmCopy : pmXor;
        const TFill fill{clRed, TBrushStyle(i % 8), mode};
        const TStroke stroke{clBlue, i % 3 * 2, TPenStyle(i % 7), mode};
        Device.SetClip(i % 5 == 0 ? std::nullopt : std::optional(TRect{i, 2, 50, 60}));
        Device.Polyline(points, stroke);
        Device.Polygon(points, stroke, fill);
        Device.Polygon(dot, stroke, fill);
        Device.Rectangle({1, 2, 30, 40}, stroke, fill);
        Device.Ellipse({1, 2, 3, 40}, stroke, fill);
        Device.Text({i, i}, {"A<\"'b", -10, unsigned(i % 16), fpFixed, 100 * i}, clRed, "<&>\"\x01\xFF");
    }
}

TEST(SvgDevice, WritesAWellFormedDocumentWhateverIsDrawn) {
    EXPECT_NO_THROW(TextOfXml(Drawn(DrawEverything)));
}

TEST(SvgDevice, CoversThePixelsOfARasterWithShapes) {
    const TPoint right[] = {{2, 3}, {7, 3}}, left[] = {{7, 3}, {2, 3}}, slanted[] = {{0, 0}, {4, 2}},
                 nowhere[] = {{4, 4}, {4, 4}}, bent[] = {{1, 1}, {5, 1}, {5, 4}};
    const TRect box{1, 2, 11, 8}, bar{1, 2, 2, 8};
    const TStroke thin{clBlack, 1}, wide{clRed, 4}, clear{clBlack, 1, psClear};
    const TFill green{clLime}, none{clWhite, bsClear};
    ExpectRecording("svgshapes", Drawn([&](TCanvasDevice& D) {
                        for (const auto& line : {right, left, slanted, nowhere})
                            D.Polyline(std::span(line, 2), thin);
                        D.Polyline(bent, {});
                        D.Polyline(right, wide);
                        D.Rectangle(box, thin, green);
                        D.Rectangle(box, {clRed, 4, psInsideFrame}, none);
                        D.FillRect(box, green);
                        D.Ellipse(box, thin, none);
                        D.Ellipse(bar, {clLime}, {});
                        D.Polygon(bent, clear, green);
                        D.Polygon(bent, {clBlack, 2, psDash}, none);
                        D.Polygon(nowhere, thin, none);
                        // Seen on the ground, and not hiding what is below.
                        D.Rectangle(box, {clWhite, 1, psSolid, pmXor}, {clAqua, bsSolid, pmXor});
                    }));
}

TEST(SvgDevice, SharesGroupsAndDefinesHatchesAndClipsOnce) {
    const TRect inner{10, 10, 50, 50}, empty{5, 5, 5, 9};
    ExpectRecording("svggroups", Drawn([&](TCanvasDevice& D) {
                        int x = 0;
                        const auto fill = [&](std::optional<TRect> Clip, TBrushStyle Style) {
                            D.SetClip(Clip);
                            ++x;
                            D.FillRect({x, 0, x + 9, 9}, {clRed, Style});
                        };
                        fill(inner, bsCross);
                        D.SetClip({});
                        fill(inner, bsCross);
                        fill(TRect{0, 0, 20, 300}, bsFDiagonal);
                        fill(empty, bsVertical);
                        fill(TRect{-5, 0, 900, 900}, bsCross);
                        fill(inner, bsFDiagonal);
                    }));
}

TEST(SvgDevice, ReducesLongSolidLines) {
    std::vector<TPoint> points;
    for (int i = 0; i < CReductionThreshold; ++i) points.push_back({i / 256, i * 37 % 90});
    const auto solid = Drawn([&](auto& D) { D.Polyline(points, {clBlack, 1}); });
    const auto dashed = Drawn([&](auto& D) { D.Polyline(points, {clBlack, 1, psDash}); });
    EXPECT_LT(solid.size(), dashed.size() / 3);
}

TEST(SvgDevice, ShowsManyDiscsInFewElements) {
    std::vector<TPoint> places(20000);
    for (int i = 0; i < 20000; ++i) places[std::size_t(i)] = {i * 37 % 211, i * 53 % 113};
    TRecorder disc({}), ring({});
    disc.Ellipse({-3, -3, 4, 4}, {clBlue, 1}, {clBlue});
    ring.Ellipse({-3, -3, 4, 4}, {clBlue, 1}, {clWhite});
    const auto discs = Drawn([&](auto& D) { D.Stamps(places, disc.Recording); });
    EXPECT_TRUE(Holds(discs, "stroke-width=\"7\""));
    EXPECT_LT(Count(discs, "<path"), 60);
    EXPECT_EQ(Count(discs, "<ellipse"), 0);
    const auto rings = Drawn([&](auto& D) { D.Stamps(places, ring.Recording); });
    EXPECT_LT(Count(rings, "<ellipse"), 20000);
    EXPECT_GT(Count(rings, "<ellipse"), 1000);
}

TEST(SvgDevice, CutsOffValuesOffTheScaleOutsideThePicture) {
    const TPoint through[] = {
        {-CMaxPixel, -CMaxPixel}, {50, 50}, {CMaxPixel, 50}, {CMaxPixel, CMaxPixel}, {60, 60}};
    const TRect tall{10, -CMaxPixel, 50, CMaxPixel}, flat{-CMaxPixel, -100, CMaxPixel, 50};
    const auto cut = Drawn([&](auto& D) { D.Polyline(through, {}); });
    EXPECT_TRUE(Holds(cut, "\"M-4096-4096l4146.5 4146.5h4245.5\""));
    EXPECT_TRUE(Holds(cut, "\"M4197 4197l-4136-4136\""));
    for (const std::string& drawn : {cut, Drawn([&](auto& D) { D.Polygon(through, {}, {}); }),
                                     Drawn([&](auto& D) { D.Rectangle(tall, {}, {}); }),
                                     Drawn([&](auto& D) { D.Ellipse(flat, {}, {}); })}) {
        EXPECT_GT(drawn.size(), Drawn([](auto&) {}).size() + 30);
        EXPECT_FALSE(Holds(drawn, "107374"));
    }
}

TEST(WriteSvg, ReplacesTheFileAsAWhole) {
    const TTemporaryDirectory directory;
    const std::string file = directory / "a.svg";
    const auto write = [&](auto Paint) { WriteSvg(file, {200, 100}, 1.25, clSilver, Paint); };
    write(DrawEverything);
    EXPECT_THROW(write([](TCanvasDevice&) { throw std::runtime_error("half way"); }), std::runtime_error);
    EXPECT_EQ(ReadFile(file), Drawn(DrawEverything));
}

} // namespace kx::test::svgdevice
