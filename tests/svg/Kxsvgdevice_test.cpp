#include "svg/Kxsvgdevice.h"

#include "platform/files.h"
#include "platform/recording.h"
#include "platform/reduction.h"
#include "support/recording.h"

#include <gtest/gtest.h>

#include <functional>

namespace kx {
namespace {

using TDraw = std::function<void(TSvgDevice&)>;
constexpr TFill CNone{clWhite, bsClear};
constexpr TStroke CNoLine{clBlack, 0, psClear};

/// What is drawn, without the frame of the document and its definitions.
std::string Drawn(const TDraw& Draw) {
    TSvgDevice device({200, 100});
    Draw(device);
    std::string text = device.Document();
    const std::string ground = "fill=\"#ffffff\"/>\n";
    text.erase(0, text.find(ground) + ground.size());
    return text.substr(0, text.find("</svg>"));
}

/// The first thing that is wrong with a document; empty when it is well-formed.
std::string Fault(std::string_view Text) {
    std::vector<std::string> open;
    Text.remove_prefix(Text.find("?>") + 2);
    while (!Text.empty()) {
        if (Text[0] != '<') {
            const auto next = std::min(Text.find('<'), Text.size());
            if (Text.substr(0, next).find('>') != Text.npos) return "a bare >";
            Text.remove_prefix(next);
            continue;
        }
        const auto end = Text.find('>');
        if (end == Text.npos) return "an open tag";
        std::string tag(Text.substr(1, end - 1));
        Text.remove_prefix(end + 1);
        if (tag[0] == '/') {
            if (open.empty() || open.back() != tag.substr(1)) return "unexpected " + tag;
            open.pop_back();
            continue;
        }
        if (std::count(tag.begin(), tag.end(), '"') % 2 != 0 || tag.find('<') != tag.npos) return tag;
        std::vector<std::string> names;
        for (auto at = tag.find("=\""); at != tag.npos; at = tag.find("=\"", tag.find('"', at + 2))) {
            const auto begin = tag.rfind(' ', at) + 1;
            names.push_back(tag.substr(begin, at - begin));
        }
        std::sort(names.begin(), names.end());
        if (std::adjacent_find(names.begin(), names.end()) != names.end())
            return "a double attribute: " + tag;
        if (tag.back() != '/') open.push_back(tag.substr(0, tag.find(' ')));
    }
    return open.empty() ? "" : "unclosed " + open.back();
}

void DrawEverything(TCanvasDevice& Device) {
    const TPoint points[] = {{1, 1}, {50, 60}, {90, 20}, {1, 1}}, dot[] = {{5, 5}, {5, 5}};
    for (int style = bsSolid; style <= bsDiagCross; ++style)
        for (int pen = psSolid; pen <= psInsideFrame; ++pen)
            for (int width : {0, 1, 5}) {
                const TFill fill{clRed, TBrushStyle(style), pen % 2 == 0 ? pmCopy : pmXor};
                const TStroke stroke{clBlue, width, TPenStyle(pen), fill.Mode};
                Device.SetClip(pen % 2 == 0 ? std::nullopt : std::optional(TRect{pen, 2, 50, 60}));
                Device.Polyline(points, stroke);
                Device.Polygon(points, stroke, fill);
                Device.Polygon(dot, stroke, fill);
                Device.Rectangle({1, 2, 30, 40}, stroke, fill);
                Device.Ellipse({1, 2, 3, 40}, stroke, fill);
                Device.FillRect({5, 5, 6, 6}, fill);
                Device.Text({style, pen}, {"A<\"'b", -10, unsigned(pen * 2), fpFixed, 100 * pen}, clRed,
                            "<&>\"\x01\xFF");
            }
}

TEST(SvgDevice, WritesOneWellFormedDeterministicDocumentWhateverIsDrawn) {
    TSvgDevice device({200, 100}, 1.5, true, clSilver), again({200, 100}, 1.5, true, clSilver);
    DrawEverything(device);
    EXPECT_EQ(Fault(device.Document()), "");
    DrawEverything(again);
    EXPECT_EQ(device.Document(), again.Document());
    EXPECT_EQ(Fault("<?xml?><a><b c=\"1\"/></c></a>"), "unexpected /c");
    EXPECT_EQ(Fault("<?xml?><a><b c=\"1\" c=\"1\"/></a>"), "a double attribute: b c=\"1\" c=\"1\"/");
}

TEST(SvgDevice, TheFrameGivesSizeViewBoxGroundAndRendering) {
    const auto head = [](double Scale, bool Antialias) {
        return TSvgDevice({20, 10}, Scale, Antialias, clSilver).Document();
    };
    EXPECT_EQ(head(1.25, false),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
              "width=\"25\" height=\"12.5\" viewBox=\"0 0 20 10\" shape-rendering=\"crispEdges\">\n"
              "<rect width=\"20\" height=\"10\" fill=\"#c0c0c0\"/>\n</svg>\n");
    EXPECT_EQ(head(1, true).find("crispEdges"), std::string::npos);
}

TEST(SvgDevice, ShapesCoverThePixelsOfARaster) {
    const TPoint right[] = {{2, 3}, {7, 3}}, left[] = {{7, 3}, {2, 3}}, slanted[] = {{0, 0}, {4, 2}},
                 nowhere[] = {{4, 4}, {4, 4}}, bent[] = {{1, 1}, {5, 1}, {5, 4}},
                 triangle[] = {{0, 0}, {9, 0}, {9, 9}};
    const TStroke thin{clBlack, 1}, wide{clRed, 4}, framed{clRed, 4, psInsideFrame};
    const TFill green{clLime};
    const std::string open = " fill=\"none\" stroke=\"#000000\" stroke-linejoin=\"round\"/>\n";
    const std::string wideOpen =
        " fill=\"none\" stroke=\"#ff0000\" stroke-width=\"4\" stroke-linejoin=\"round\" "
        "stroke-linecap=\"round\"/>\n";
    const std::string red = " fill=\"none\" stroke=\"#ff0000\" stroke-width=\"4\"/>\n";
    const std::pair<TDraw, std::string> cases[] = {
        // Lines: all of the first pixel, nothing of the last one, in either direction.
        {[&](auto& D) { D.Polyline(right, thin); }, "<path d=\"M2 3.5h5\"" + open},
        {[&](auto& D) { D.Polyline(left, {}); }, "<path d=\"M8 3.5h-5\"" + open},
        {[&](auto& D) { D.Polyline(slanted, thin); }, "<path d=\"M0 0.25l4 2\"" + open},
        {[&](auto& D) { D.Polyline(bent, thin); }, "<path d=\"M1 1.5h4.5v2.5\"" + open},
        {[&](auto& D) { D.Polyline(nowhere, thin); }, ""},
        {[&](auto& D) { D.Polyline(right, wide); }, "<path d=\"M2.5 3.5h5\"" + wideOpen},
        {[&](auto& D) { D.Polyline(right, CNoLine); }, ""},
        // Outlines run through the outermost pixels, areas end at their edges.
        {[&](auto& D) {
             D.Rectangle({1, 2, 11, 8}, thin, green);
         },
         "<rect x=\"1.5\" y=\"2.5\" width=\"9\" height=\"5\" fill=\"#00ff00\" stroke=\"#000000\"/>\n"},
        {[&](auto& D) {
             D.Rectangle({1, 2, 11, 8}, framed, CNone);
         },
         "<rect x=\"3\" y=\"4\" width=\"6\" height=\"2\"" + red},
        {[&](auto& D) {
             D.Rectangle({1, 2, 2, 8}, thin, green);
         },
         "<rect x=\"1\" y=\"2\" width=\"1\" height=\"6\" fill=\"#000000\"/>\n"},
        {[&](auto& D) {
             D.FillRect({1, 2, 11, 8}, green);
         },
         "<rect x=\"1\" y=\"2\" width=\"10\" height=\"6\" fill=\"#00ff00\"/>\n"},
        {[&](auto& D) {
             D.FillRect({1, 2, 1, 8}, green);
         },
         ""},
        {[&](auto& D) {
             D.Ellipse({0, 0, 10, 7}, thin, CNone);
         },
         "<ellipse cx=\"5\" cy=\"3.5\" rx=\"4.5\" ry=\"3\" fill=\"none\" stroke=\"#000000\"/>\n"},
        {[&](auto& D) { D.Polygon(triangle, CNoLine, green); },
         "<path d=\"M0.5 0.5h9v9z\" fill=\"#00ff00\" stroke=\"#00ff00\" stroke-linejoin=\"round\"/>\n"},
        {[&](auto& D) {
             D.Polygon(bent, {clBlack, 2, psDash}, CNone);
         },
         "<path d=\"M1.5 1.5h4v3z\" fill=\"none\" stroke=\"#000000\" stroke-width=\"2\" "
         "stroke-dasharray=\"18 6\" "
         "stroke-linejoin=\"round\"/>\n"},
        // A white XOR line shows on a white ground, and a filling does not hide what it lies on.
        {[&](auto& D) {
             D.Rectangle({1, 2, 11, 8}, {clWhite, 1, psSolid, pmXor}, {clAqua, bsSolid, pmXor});
         },
         "<rect x=\"1.5\" y=\"2.5\" width=\"9\" height=\"5\" fill=\"#ff0000\" fill-opacity=\"0.5\" "
         "stroke=\"#000000\"/>\n"},
    };
    for (const auto& [draw, expected] : cases) EXPECT_EQ(Drawn(draw), expected);
}

TEST(SvgDevice, NeighboursOfOneStyleShareAGroupAndHatchesAndClipsAreDefinedOnce) {
    TSvgDevice device({200, 100});
    const TFill hatch{clRed, bsCross};
    const TRect inner{10, 10, 50, 50}, other{0, 0, 20, 300};
    const auto fill = [&](std::optional<TRect> Clip, int X) {
        device.SetClip(Clip);
        device.FillRect({X, 0, X + 9, 9}, hatch);
    };
    fill(inner, 1);
    device.SetClip({});
    fill(inner, 2);
    fill(other, 3);
    fill(TRect{5, 5, 5, 9}, 4); // an empty clip hides everything
    fill(TRect{-5, 0, 900, 900}, 5);
    fill(inner, 6);
    const std::string document = device.Document(), rest = "\" y=\"0\" width=\"9\" height=\"9\"",
                      red = " fill=\"url(#h1)\"";
    EXPECT_NE(
        document.find("<defs>\n"
                      "<clipPath id=\"c1\"><rect x=\"10\" y=\"10\" width=\"40\" height=\"40\"/></clipPath>\n"
                      "<clipPath id=\"c2\"><rect x=\"0\" y=\"0\" width=\"20\" height=\"100\"/></clipPath>\n"
                      "<pattern id=\"h1\""),
        std::string::npos);
    EXPECT_EQ(document.find("id=\"h2\""), std::string::npos);
    EXPECT_NE(
        document.find("<g clip-path=\"url(#c1)\">\n<g" + red + ">\n<rect x=\"1" + rest + "/>\n<rect x=\"2" +
                      rest + "/>\n</g>\n</g>\n<g clip-path=\"url(#c2)\">\n<rect x=\"3" + rest + red +
                      "/>\n</g>\n<rect x=\"5" + rest + red + "/>\n<g clip-path=\"url(#c1)\">\n<rect x=\"6"),
        std::string::npos)
        << document;
}

TEST(SvgDevice, LongSolidLinesAreReducedAndValuesOffTheScaleAreCutOff) {
    std::vector<TPoint> points;
    for (int i = 0; i < CReductionThreshold; ++i) points.push_back({i / 256, i * 37 % 90});
    const auto length = [&points](TPenStyle Style) {
        return Drawn([&](auto& D) { D.Polyline(points, {clBlack, 1, Style}); }).size();
    };
    EXPECT_LT(length(psSolid), 200u);
    EXPECT_GT(length(psDash), 1500u);

    const TPoint through[] = {
        {-CMaxPixel, -CMaxPixel}, {50, 50}, {CMaxPixel, 50}, {CMaxPixel, CMaxPixel}, {60, 60}};
    EXPECT_EQ(
        Drawn([&](auto& D) {
            D.Polyline(through, {clBlack, 2});
        }),
        Drawn([](auto& D) {
            const TPoint first[] = {{-4098, -4098}, {50, 50}, {4298, 50}}, last[] = {{4198, 4198}, {60, 60}};
            D.Polyline(first, {clBlack, 2});
            D.Polyline(last, {clBlack, 2});
        }));
    for (const TDraw& draw : std::vector<TDraw>{
             [&](auto& D) { D.Polygon(through, {}, {}); },
             [](auto& D) {
                 D.Rectangle({-CMaxPixel, -CMaxPixel, CMaxPixel, 50}, {}, {});
             },
             [](auto& D) {
                 D.Ellipse({-CMaxPixel, -300, 150, CMaxPixel}, {}, {});
             },
         }) {
        const std::string drawn = Drawn(draw);
        EXPECT_NE(drawn, "");
        EXPECT_EQ(drawn.find("00000."), std::string::npos);
        EXPECT_EQ(drawn.find("10737"), std::string::npos) << drawn;
    }
}

TEST(WriteSvg, ReplacesTheFileAsAWhole) {
    const test::TTemporaryDirectory directory;
    const std::string file = directory / "a.svg";
    WriteSvg(file, {200, 100}, 1, false, clWhite, DrawEverything);
    const std::string before = ReadFile(file);
    EXPECT_EQ(Fault(before), "");
    const auto failing = [](TCanvasDevice&) { throw std::runtime_error("half way"); };
    EXPECT_THROW(WriteSvg(file, {200, 100}, 1, false, clWhite, failing), std::runtime_error);
    EXPECT_EQ(ReadFile(file), before);
}

} // namespace
} // namespace kx
