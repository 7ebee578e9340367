#include "raster.h"

#include "platform/recording.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace kx::test {
namespace {

using TPoints = std::vector<TPoint>;

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
    EXPECT_EQ(Rows(image), "..............................\n"
                           ".#....#...#.#.........###..###\n"
                           "....#........#....#...........\n"
                           "..............#....#..........\n"
                           "....................#.........\n"
                           "..............................\n"
                           ".#....##.....#........####....\n"
                           ".#..#...##....##......#..#....\n"
                           ".#..#.....#.....##....#..#....\n"
                           "....#.................####....\n");
}

TEST(QtRasterLines, ArePixelsNearestToTheLineHoweverFarItReaches) {
    std::mt19937 random(3);
    for (const int reach : {30, 300, 100000, CMaxPixel}) {
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
            const auto count = std::ranges::count_if(pixels, [&](TPoint P) { return P == inside || P == b; });
            EXPECT_EQ(count, 1) << inside.X << ',' << inside.Y;
            if (reach == 30 && TRect{0, 0, 40, 40}.Contains(a) && TRect{0, 0, 40, 40}.Contains(b)) {
                EXPECT_EQ(pixels.size(), std::size_t(longer));
            }
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
            const int side = 2 * s + 1, area = fill.Style == bsSolid ? side * side : std::max(1, 8 * s);
            EXPECT_EQ(PixelsOf(shapes[0]).size(), std::size_t(area));
            for (const TPoint p : PixelsOf(shapes[1])) EXPECT_TRUE(IsSet(shapes[1], p.Y, p.X));
            for (const TPoint p : delta) EXPECT_TRUE(IsSet(shapes[2], p.X, p.Y));
        }
    }
}

TEST(QtRasterShapes, AreasBesideEachOtherCoverEveryPixelOnce) {
    const TFill invert{clWhite, bsSolid, pmXor};
    std::mt19937 random(5);
    for (int i = 0; i < 50; ++i) {
        const TPoint middle{int(random() % 30) + 5, int(random() % 30) + 5};
        const TPoint corners[] = {{2, 3}, {37, 3}, {37, 36}, {2, 36}};
        const QImage image = Painted([&](auto& D) {
            for (int k = 0; k < 4; ++k)
                D.Polygon(TPoints{corners[k], corners[(k + 1) % 4], middle}, CNoStroke, invert);
        });
        EXPECT_EQ(image, Painted([](auto& D) { D.FillRect({2, 3, 37, 36}, {clBlack}); })) << Rows(image);
    }
}

TEST(QtRasterShapes, FillRectAndClipAreExact) {
    const TRect clip{7, 9, 23, 31};
    EXPECT_EQ(PixelsOf(Painted([&](auto& D) { D.FillRect(clip, CRed); })).size(), 16u * 22u);
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
    EXPECT_TRUE(PixelsOf(Painted([&](auto& D) {
                    D.SetClip(TRect{50, 50, 60, 60});
                    scene(D);
                })).empty());
}

TEST(QtRasterXor, DrawingTwiceRestores) {
    for (const TRasterOptions& options :
         {TRasterOptions{}, {{40, 40}, 1, true}, {{40, 40}, 1.25}, {{40, 40}, 2, true}}) {
        for (const TStroke stroke :
             {TStroke{clYellow, 0}, {clYellow, 1, psDot}, {clRed, 3, psDash}, {clRed, 4}, CNoStroke}) {
            const auto drawn = [&](int Times) {
                return Painted(options, [&](auto& D) {
                    EXPECT_TRUE(D.CanXor());
                    D.Ellipse({2, 5, 33, 30}, CThin, {clTeal});
                    const TStroke line{stroke.Color, stroke.Width, stroke.Style, pmXor};
                    const TFill fill{clFuchsia, stroke.Style == psDot ? bsDiagCross : bsSolid, pmXor};
                    for (int i = 0; i < Times; ++i) {
                        D.Polyline(TPoints{{1, 1}, {30, 20}, {5, 38}, {5, 2}, {36, 37}}, line);
                        D.Polygon(TPoints{{3, 30}, {38, 4}, {39, 39}, {7, 7}}, line, fill);
                        D.Ellipse({12, 3, 31, 28}, line, fill);
                        D.FillRect({20, 20, 37, 39}, fill);
                    }
                });
            };
            EXPECT_NE(drawn(1), drawn(0));
            EXPECT_EQ(drawn(2), drawn(0)) << options.Scale << ' ' << options.Antialias << ' ' << stroke.Style;
        }
    }
}

TEST(QtRasterPens, DashesAndHatchesLeaveTheGroundBetweenThem) {
    const QImage pens = Painted({{36, 8}}, [](auto& D) {
        int y = 0;
        for (const TPenStyle style : {psDash, psDot, psDashDot, psDashDotDot})
            D.Polyline(TPoints{{0, y}, {36, y}}, {clBlack, 1, style}), y += 2;
    });
    EXPECT_EQ(Rows(pens), "#########...#########...#########...\n....................................\n"
                          "###...###...###...###...###...###...\n....................................\n"
                          "#########...###...#########...###...\n....................................\n"
                          "#########...###...###...#########...\n....................................\n");
    const struct {
        TBrushStyle Style;
        bool Right, Down, DownRight, UpRight; // where a line's next pixel is
    } cases[] = {{bsHorizontal, true, false, false, false}, {bsVertical, false, true, false, false},
                 {bsFDiagonal, false, false, true, false},  {bsBDiagonal, false, false, false, true},
                 {bsCross, true, true, false, false},       {bsDiagCross, false, false, true, true}};
    for (const auto& c : cases) {
        const QImage image = Painted([&](auto& D) { D.FillRect({0, 0, 40, 40}, {clRed, c.Style}); });
        const auto follows = [&](int DX, int DY) {
            return std::ranges::count_if(PixelsOf(image), [&](TPoint P) {
                       return QRect(0, 0, 40, 40).contains(P.X + DX, P.Y + DY) &&
                              IsSet(image, P.X + DX, P.Y + DY);
                   }) > 100;
        };
        EXPECT_EQ((std::array{follows(1, 0), follows(0, 1), follows(1, 1), follows(1, -1)}),
                  (std::array{c.Right, c.Down, c.DownRight, c.UpRight}))
            << Rows(image);
        EXPECT_LT(PixelsOf(image).size(), 40u * 40u / 2);
    }
}

TEST(QtRasterPens, WidePensLieAroundTheirLineAndThinOnesAreNeverSmoothed) {
    for (const bool antialias : {false, true}) {
        const TRasterOptions options{{40, 40}, 1, antialias};
        const QImage three = Painted(options, [](auto& D) {
            D.Polyline(TPoints{{-9, 20}, {60, 20}}, {clBlack, 3});
        });
        EXPECT_EQ(BoundsOf(three), (TRect{0, 19, 40, 22}));
        EXPECT_EQ(Rows(three).find('o'), std::string::npos);
        const QImage frame = Painted(options, [](auto& D) {
            D.Rectangle({10, 10, 30, 30}, {clBlack, 3, psInsideFrame}, CNoFill);
        });
        EXPECT_EQ(BoundsOf(frame), (TRect{10, 10, 30, 30}));
        EXPECT_EQ(PixelsOf(frame).size(), 20u * 20u - 14u * 14u);
        const QImage thin = Painted(options, [](auto& D) {
            D.Polyline(TPoints{{1, 2}, {33, 17}, {8, 37}}, {clBlack, 1});
            D.Ellipse({3, 8, 30, 39}, CThin, CNoFill);
        });
        EXPECT_EQ(Rows(thin).find('o'), std::string::npos);
    }
}

TEST(QtRasterScale, AtTwoPixelsAPixelTheSamePictureIsOnlyFiner) {
    const auto scene = [](auto& D) {
        D.FillRect({1, 1, 9, 7}, CRed);
        D.Polyline(TPoints{{12, 3}, {30, 3}}, CThin);
        D.Polyline(TPoints{{12, 30}, {12, 6}}, {clBlack, 1});
        D.Polyline(TPoints{{20, 20}, {20, 21}}, CThin);
        D.Rectangle({22, 8, 35, 17}, {clBlue, 1}, {clGreen});
        D.FillRect({2, 24, 18, 31}, {clBlue, bsCross});
        D.Polyline(TPoints{{2, 33}, {38, 33}}, {clBlack, 1, psDashDot});
    };
    for (const int scale : {2, 3}) {
        for (const bool antialias : {false, true}) {
            const QImage fine = Painted({{40, 40}, double(scale), antialias}, scene);
            EXPECT_EQ(fine, Painted(scene).scaled(40 * scale, 40 * scale))
                << scale << antialias << Rows(fine);
        }
    }
    const QImage quarter = Painted({{40, 40}, 0.25}, [](auto& D) {
        D.Polyline(TPoints{{0, 20}, {40, 20}}, CThin);
    });
    EXPECT_EQ(BoundsOf(quarter), (TRect{0, 5, 10, 6}));
}

TEST(QtRasterFar, ShapesThatReachFarOutsideAreSeenInside) {
    constexpr int far = CMaxPixel;
    const TFill black{clBlack};
    for (const TStroke& stroke : {CNoStroke, CThin, TStroke{clBlack, 5}}) {
        const auto count = [&](const TPaint& Paint) { return double(PixelsOf(Painted(Paint)).size()); };
        EXPECT_EQ(count([&](auto& D) { D.Ellipse({-far, -far, far, far}, stroke, black); }), 1600);
        EXPECT_EQ(count([&](auto& D) { D.Rectangle({-far, -far, far, far}, stroke, black); }), 1600);
        EXPECT_EQ(count([&](auto& D) { D.Ellipse({far - 9, far - 9, far, far}, stroke, black); }), 0);
        EXPECT_NEAR(count([&](auto& D) { D.Ellipse({0, -far, far, far}, stroke, black); }), 1600, 40);
        const TPoints half{{-far, -far}, {far, far}, {-far, far}};
        EXPECT_NEAR(count([&](auto& D) { D.Polygon(half, stroke, black); }), 820, 130);
        for (const TPenStyle style : {psSolid, psDash}) {
            const int width = std::max(1, stroke.Width);
            const TPoints cross{{-far, 20}, {far, 20}, {20, far}, {20, -far}};
            const double share = count([&](auto& D) {
                                     D.Polyline(cross, {clBlack, width, style});
                                 }) /
                                 (width * (80 - width));
            EXPECT_TRUE(style == psSolid ? share == 1 : share > 0.5 && share < 1) << share;
        }
    }
}

TEST(QtRasterStamps, ShowWhatDrawingEachWouldShow) {
    TRecorder symbol({20, 20});
    symbol.Ellipse({-4, -4, 5, 5}, {clBlue, 1}, {clYellow});
    symbol.Polyline(TPoints{{-6, 0}, {7, 0}}, {clRed, 3});
    TRecorder hatched = symbol;
    hatched.Rectangle({-5, -5, 4, 4}, CThin, {clRed, bsCross});
    std::mt19937 random(9);
    TPoints places;
    for (int i = 0; i < 3000; ++i) places.push_back({int(random() % 70) - 15, int(random() % 70) - 15});
    places.push_back({CMaxPixel, -CMaxPixel});
    for (const TRecorder* recorder : {&symbol, &hatched}) {
        for (const double scale : {1.0, 2.0}) {
            const auto draw = [&](auto Stamps) {
                return Painted({{40, 40}, scale}, [&](auto& D) {
                    D.SetClip(TRect{3, 4, 37, 40});
                    Stamps(D);
                });
            };
            EXPECT_EQ(draw([&](auto& D) { D.Stamps(places, recorder->Recording); }),
                      draw([&](auto& D) { D.TCanvasDevice::Stamps(places, recorder->Recording); }));
        }
    }
}

} // namespace
} // namespace kx::test
