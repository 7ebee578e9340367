#include "raster.h"

#include <kxgraph/platform/drawing/visible.h>

namespace kx::test::qtdevice {

TEST(QtRasterLines, LeaveOutTheEndPixelInEveryDirection) {
    const QImage image = Painted({{30, 10}}, [](auto& Device) {
        const TPoints lines[] = {{{1, 1}, {1, 2}},   {{4, 2}, {4, 1}},
                                 {{6, 1}, {7, 1}},   {{10, 1}, {9, 1}},
                                 {{12, 1}, {15, 4}}, {{20, 4}, {17, 1}},
                                 {{22, 1}, {25, 1}}, {{29, 1}, {26, 1}},
                                 {{1, 6}, {1, 9}},   {{4, 9}, {4, 6}},
                                 {{6, 6}, {11, 8}},  {{17, 8}, {12, 6}},
                                 {{20, 8}, {20, 8}}, {{22, 6}, {25, 6}, {25, 9}, {22, 9}, {22, 6}}};
        for (const auto& line : lines) Device.Polyline(line, CThin);
    });
    ExpectRecording("qtlines", Rows(image));
}

TEST(QtRasterLines, ArePixelsNearestToTheLineHoweverFarItReaches) {
    std::mt19937 random(3);
    for (const int reach : {30, 100000, CMaxPixel}) {
        for (int i = 0; i < 300; ++i) {
            const auto place = [&] { return int(random() % (2u * unsigned(reach))) - reach; };
            const TPoint inside{int(random() % 40), int(random() % 40)}, a{place(), place()};
            const TPoint b{2 * inside.X - a.X, 2 * inside.Y - a.Y};
            if (std::max(std::abs(b.X), std::abs(b.Y)) > CMaxPixel || a == b) continue;
            const auto pixels = PixelsOf(Painted([&](auto& D) { D.Polyline(TPoints{a, b}, CThin); }));
            const double dx = double(b.X) - a.X, dy = double(b.Y) - a.Y,
                         longer = std::max(std::abs(dx), std::abs(dy));
            for (const TPoint p : pixels)
                EXPECT_LE(std::abs((double(p.X) - a.X) * dy - (double(p.Y) - a.Y) * dx), longer * 0.5001);
            EXPECT_EQ(std::ranges::count(pixels, inside), 1) << inside.X << ',' << inside.Y;
        }
    }
}

TEST(QtRasterShapes, SymbolsCoverTheirSizeAndAreSymmetric) {
    for (int s = 0; s <= 18; ++s) {
        const TRect box{20 - s, 20 - s, 20 + s + 1, 20 + s + 1};
        const TPoints delta{{20, 20 - s}, {20 + s, 20 + s}, {20 - s, 20 + s}};
        for (const TFill& fill : {CRed, CNoFill}) {
            const QImage shapes[] = {Painted([&](auto& D) { D.Rectangle(box, CThin, fill); }),
                                     Painted([&](auto& D) { D.Ellipse(box, CThin, fill); }),
                                     Painted([&](auto& D) { D.Polygon(delta, CThin, fill); })};
            for (const QImage& shape : shapes) {
                EXPECT_EQ(BoundsOf(shape), box) << s;
                for (const TPoint p : PixelsOf(shape))
                    EXPECT_TRUE(IsSet(shape, 40 - p.X, p.Y)) << Rows(shape);
            }
            for (const TPoint p : PixelsOf(shapes[1])) EXPECT_TRUE(IsSet(shapes[1], p.Y, p.X));
            for (const TPoint p : delta) EXPECT_TRUE(IsSet(shapes[2], p.X, p.Y));
        }
    }
}

TEST(QtRasterShapes, AreasBesideEachOtherCoverEveryPixelOnce) {
    const TPoint corners[] = {{2, 3}, {37, 3}, {37, 36}, {2, 36}, {2, 3}};
    for (int i = 0; i < 50; ++i) {
        const TPoint middle{i * 7 % 30 + 5, i * 11 % 30 + 5};
        const QImage image = Painted([&](auto& D) {
            for (int k = 0; k < 4; ++k)
                D.Polygon(TPoints{corners[k], corners[k + 1], middle}, CNoStroke, {clWhite, bsSolid, pmXor});
        });
        EXPECT_EQ(image, Painted([](auto& D) { D.FillRect({2, 3, 37, 36}, {clBlack}); })) << Rows(image);
    }
}

TEST(QtRasterShapes, AClipIsExact) {
    const TRect clip{7, 9, 23, 31};
    const auto scene = [](auto& D) {
        D.FillRect({-CMaxPixel, 12, CMaxPixel, 14}, CRed);
        D.Polyline(TPoints{{0, 0}, {39, 25}, {3, 38}, {22, 1}}, CThin);
        D.Polygon(TPoints{{5, 5}, {35, 9}, {20, 37}}, {clBlue, 3}, {clGreen, bsDiagCross});
        D.Ellipse({3, 3, 30, 38}, {clBlack, 1, psDash}, {clRed, bsHorizontal});
        D.Text({2, 20}, {"Arial", -13, 0, fpDefault, 300}, clBlack, "Clipped");
    };
    QImage expected = Painted(scene);
    for (const TPoint p : PixelsOf(expected))
        if (!clip.Contains(p)) expected.setPixel(p.X, p.Y, 0xFFFFFFFF);
    EXPECT_EQ(Painted([&](auto& D) {
                  D.SetClip(clip);
                  scene(D);
              }),
              expected);
}

TEST(QtRasterXor, DrawingTwiceRestores) {
    const TStroke strokes[] = {
        {clYellow, 0}, {clYellow, 1, psDot}, {clRed, 3, psDash}, {clRed, 4}, CNoStroke};
    for (const TRasterOptions& options : {TRasterOptions{}, {{40, 40}, 1.25}, {{40, 40}, 2}}) {
        for (TStroke stroke : strokes) {
            const TFill fill{clFuchsia, stroke.Style == psDot ? bsDiagCross : bsSolid, pmXor};
            stroke.Mode = pmXor;
            const auto drawn = [&](int Times) {
                return Painted(options, [&](auto& D) {
                    D.Ellipse({2, 5, 33, 30}, CThin, {clTeal});
                    for (int i = 0; i < Times; ++i) {
                        D.Polyline(TPoints{{1, 1}, {30, 20}, {5, 38}, {5, 2}, {36, 37}}, stroke);
                        D.Polygon(TPoints{{3, 30}, {38, 4}, {39, 39}, {7, 7}}, stroke, fill);
                        D.Ellipse({12, 3, 31, 28}, stroke, fill);
                    }
                });
            };
            EXPECT_NE(drawn(1), drawn(0));
            EXPECT_EQ(drawn(2), drawn(0)) << options.Scale << ' ' << stroke.Style;
        }
    }
}

TEST(QtRasterPens, DashesAndHatchesLeaveTheGroundBetweenThem) {
    std::string rows;
    for (const auto style : {psDash, psDot, psDashDot, psDashDotDot}) {
        const TPoints line{{0, 0}, {36, 0}};
        rows += Rows(Painted({{36, 1}}, [&](auto& D) { D.Polyline(line, {clBlack, 1, style}); })) + '\n';
    }
    for (const auto style : {bsHorizontal, bsVertical, bsFDiagonal, bsBDiagonal, bsCross, bsDiagCross})
        rows += Rows(Painted({{8, 8}}, [&](auto& D) { D.FillRect({0, 0, 8, 8}, {clBlack, style}); })) + '\n';
    ExpectRecording("qtpatterns", rows);
}

TEST(QtRasterPens, WidePensLieAroundTheirLineAndSmoothOnesHaveNoXor) {
    const TRasterOptions smooth{{40, 40}, 1, true};
    const auto isSmoothed = [&](TStroke Stroke, TPoint To) {
        const QImage image = Painted(smooth, [&](auto& D) { D.Polyline(TPoints{{-9, 2}, To}, Stroke); });
        return Rows(image).find('o') != std::string::npos;
    };
    EXPECT_FALSE(isSmoothed({clBlack, 3}, {60, 2}));
    EXPECT_TRUE(isSmoothed({clBlack, 1}, {60, 17}));
    EXPECT_TRUE(isSmoothed({clWhite, 1, psSolid, pmXor}, {60, 17})); // black, as on white paper
    Painted(smooth, [](auto& D) { EXPECT_FALSE(D.CanXor()); });
    const QImage frame = Painted(smooth, [](auto& D) {
        D.Rectangle({10, 10, 30, 30}, {clBlack, 3, psInsideFrame}, CNoFill);
        D.Polyline(TPoints{{-9, 35}, {60, 35}}, {clBlack, 3});
    });
    EXPECT_EQ(BoundsOf(frame), (TRect{0, 10, 40, 37}));
    EXPECT_FALSE(IsSet(frame, 9, 20) || IsSet(frame, 13, 20) || !IsSet(frame, 12, 20));
}

TEST(QtRasterPens, CrispLinesAreThoseOfThePainter) {
    std::mt19937 random(11);
    const auto any = [&](int Low, int High) { return std::uniform_int_distribution(Low, High)(random); };
    for (int round = 0; round < 2000; ++round) {
        const double scale = any(2, 5) / 2.0;
        const TStroke stroke{clBlue, any(0, 3), TPenStyle(any(psSolid, psDashDotDot)), pmCopy, true};
        const bool smooth =
            scale == 1 || stroke.Width > 1 || any(0, 1) != 0; // else the painter rounds its ends
        const auto place = [&] { // the painter's dashes move where its clip begins
            if (stroke.Style != psSolid) return any(4, 36);
            return any(0, 9) ? any(-9, 49) : any(-1000, 1000);
        };
        const double across = place() + any(0, 1) * 0.3, from = place() + any(0, 1) * 0.4, to = place();
        const bool isLevel = any(0, 1) != 0, isExact = any(0, 1) != 0;
        const auto at = [&](double Along) {
            return isLevel ? TRealPoint{Along, across} : TRealPoint{across, Along};
        };
        const std::array exact{at(from), at(to)};
        const std::array whole{RoundToPixel(exact[0]), RoundToPixel(exact[1])};
        const auto painted =
            [&](QImage::Format Format) { // into the one pixels are written, not into the other
                QImage image(int(40 * scale), int(40 * scale), Format);
                image.fill(Qt::white);
                QPainter painter(&image);
                qt::TPainterDevice device(painter, {40, 40}, scale, smooth);
                device.SetClip(TRect{3, 2, 37, 39});
                device.Polyline(isExact ? TPointSpan(exact) : TPointSpan(whole), stroke);
                painter.end();
                return image.convertToFormat(QImage::Format_RGB32);
            };
        ASSERT_EQ(painted(QImage::Format_RGB32), painted(QImage::Format_RGB888))
            << round << ' ' << scale << ' ' << stroke.Width << ' ' << stroke.Style << ' ' << from << ' '
            << to;
    }
}

TEST(QtRasterScale, AtTwoPixelsAPixelTheSamePictureIsOnlyFiner) {
    const auto scene = [](auto& D) {
        D.FillRect({1, 1, 9, 7}, CRed);
        D.Polyline(TPoints{{12, 30}, {12, 6}}, {clBlack, 1});
        D.Polyline(TPoints{{20, 20}, {20, 21}}, CThin);
        D.Rectangle({22, 8, 35, 17}, {clBlue, 1}, {clGreen});
        D.FillRect({2, 24, 18, 31}, {clBlue, bsCross});
        D.Polyline(TPoints{{2, 33}, {38, 33}}, {clBlack, 1, psDashDot});
    };
    for (const bool antialias : {false, true})
        EXPECT_EQ(Painted({{40, 40}, 2, antialias}, scene), Painted(scene).scaled(80, 80)) << antialias;
}

TEST(QtRasterFar, ShapesThatReachFarOutsideAreSeenInside) {
    constexpr int far = CMaxPixel;
    const TPoints half{{-far, -far}, {far, far}, {-far, far}},
        cross{{-far, 20}, {far, 20}, {20, far}, {20, -far}};
    const auto count = [](const TPaint& Paint) { return double(PixelsOf(Painted(Paint)).size()); };
    for (const TStroke& stroke : {CNoStroke, CThin, TStroke{clBlack, 5}}) {
        EXPECT_EQ(count([&](auto& D) { D.Ellipse({-far, -far, far, far}, stroke, CRed); }), 1600);
        EXPECT_EQ(count([&](auto& D) { D.Ellipse({far - 9, far - 9, far, far}, stroke, CRed); }), 0);
        EXPECT_NEAR(count([&](auto& D) { D.Polygon(half, stroke, CRed); }), 820, 130);
    }
    EXPECT_EQ(count([&](auto& D) { D.Polyline(cross, {clBlack, 1}); }), 79);
    EXPECT_EQ(count([&](auto& D) { D.Polyline(cross, {clBlack, 5}); }), 375);
    EXPECT_NEAR(count([&](auto& D) { D.Polyline(cross, {clBlack, 5, psDash}); }), 280, 60);
}

TEST(QtRasterStamps, ShowWhatDrawingEachWouldShow) {
    std::mt19937 random(9);
    TPoints places{{CMaxPixel, -CMaxPixel}};
    for (int i = 0; i < 3000; ++i) places.push_back({int(random() % 70) - 15, int(random() % 70) - 15});
    for (const TBrushStyle style : {bsSolid, bsCross}) {
        TRecorder symbol({20, 20});
        symbol.Ellipse({-4, -4, 5, 5}, {clBlue, 1}, {clYellow});
        symbol.Rectangle({-5, -5, 4, 4}, CThin, {clRed, style});
        for (const double scale : {1.0, 2.0}) {
            const auto drawn = [&](bool Composed) {
                return Painted({{40, 40}, scale}, [&](auto& D) {
                    D.SetClip(TRect{3, 4, 37, 40});
                    Composed ? D.TCanvasDevice::Stamps(places, symbol.Recording)
                             : D.Stamps(places, symbol.Recording);
                });
            };
            EXPECT_EQ(drawn(false), drawn(true));
        }
    }
}

TEST(QtRasterStamps, ThatOthersHideAreLeftOutAndShowInNoDetail) {
    std::mt19937 random(5);
    TPoints places;
    for (int i = 0; i < 2000; ++i) places.push_back({int(random() % 90) - 25, int(random() % 90) - 25});
    const struct {
        const char* Case;
        TRecording::TCall Symbol;
        std::size_t Most; // of 2000 places, that may stay
    } cases[] = {{"circle", TRecording::TEllipse{{-5, -5, 6, 6}, {clBlue, 1}, {clYellow}}, 600},
                 {"disc", TRecording::TEllipse{{-4, -2, 5, 3}, {clBlue, 1, psClear}, {clBlue}}, 1100},
                 {"box", TRecording::TRectangle{{-4, -4, 5, 5}, {clBlue, 1, psDot}, {clYellow}}, 700},
                 {"ring", TRecording::TEllipse{{-5, -5, 6, 6}, {clBlue, 3}, CNoFill}, 1500},
                 {"xor", TRecording::TEllipse{{-5, -5, 6, 6}, {clBlue, 1, psSolid, pmXor}, {clYellow}}, 2000},
                 {"triangle", TRecording::TPolygon{{{0, -4}, {4, 4}, {-4, 4}}, {clBlue}, {clYellow}}, 2000}};
    for (const auto& c : cases) {
        const TRecording one{{c.Symbol}};
        const auto visible = VisiblePlaces(places, one, {40, 40});
        EXPECT_LE(visible.size(), c.Most) << c.Case;
        EXPECT_EQ(visible.size() == places.size(), c.Most == places.size()) << c.Case;
        const auto drawn = [&one](TPointSpan Places) {
            return Painted({{40, 40}, 4}, [&](auto& D) { D.TCanvasDevice::Stamps(Places, one); });
        };
        EXPECT_EQ(drawn(visible), drawn(places)) << c.Case;
    }
}

} // namespace kx::test::qtdevice
