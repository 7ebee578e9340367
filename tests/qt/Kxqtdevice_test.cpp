#include "raster.h"

#include "platform/recording.h"

#include <gtest/gtest.h>

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

/// Whether Image shows the line in thin pixels: those nearest to it, From included and To left out.
void ExpectIdealLine(const QImage& Image, TPoint From, TPoint To) {
    const double dx = double(To.X) - From.X, dy = double(To.Y) - From.Y;
    const bool steep = std::abs(dy) > std::abs(dx);
    int expected = 0, set = 0;
    const int count = steep ? Image.height() : Image.width(), across = steep ? Image.width() : Image.height();
    for (int major = 0; major < count; ++major) {
        const double begin = steep ? From.Y : From.X, end = steep ? To.Y : To.X;
        const double t = (major - begin) / (end - begin);
        if (t < 0 || t >= 1) continue;
        const double minor = steep ? From.X + t * dx : From.Y + t * dy;
        if (minor < -0.499 || minor > across - 0.501) continue;
        ++expected;
        const int low = int(std::ceil(minor - 0.5001)), high = int(std::floor(minor + 0.5001));
        bool found = false;
        for (int m = low; m <= high; ++m)
            found |= m >= 0 && m < across && (steep ? IsSet(Image, m, major) : IsSet(Image, major, m));
        set += found;
    }
    EXPECT_EQ(set, expected) << From.X << ',' << From.Y << " " << To.X << ',' << To.Y;
    EXPECT_NEAR(double(PixelsOf(Image).size()), expected, 2);
}

TEST(QtRasterLines, ArePixelsNearestToTheLineHoweverFarItReaches) {
    std::mt19937 random(3);
    for (const int reach : {30, 300, 100000, CMaxPixel}) {
        for (int i = 0; i < 300; ++i) {
            const auto place = [&] {
                return int(random() % (2u * unsigned(reach))) - (reach > 30 ? reach : 10);
            };
            const TPoint inside{int(random() % 40), int(random() % 40)}, a{place(), place()};
            const TPoint b{std::clamp(2 * inside.X - a.X, -CMaxPixel, CMaxPixel),
                           std::clamp(2 * inside.Y - a.Y, -CMaxPixel, CMaxPixel)};
            if (a == b) continue;
            ExpectIdealLine(Painted([&](auto& D) { D.Polyline(TPoints{a, b}, CThin); }), a, b);
        }
    }
}

TEST(QtRasterShapes, SymbolsCoverTheirSizeAndAreSymmetric) {
    for (int s = 0; s <= 18; ++s) {
        const TRect box{20 - s, 20 - s, 20 + s + 1, 20 + s + 1};
        const TPoints delta{{20, 20 - s}, {20 + s, 20 + s}, {20 - s, 20 + s}};
        const TPoints star{{20, 20 - 108 * s / 100},
                           {20 + 27 * s / 100, 20 - 30 * s / 100},
                           {20, 20 + s},
                           {20 - 27 * s / 100, 20 - 30 * s / 100}};
        for (const TFill& fill : {CRed, CNoFill}) {
            const QImage square = Painted([&](auto& D) { D.Rectangle(box, CThin, fill); });
            EXPECT_EQ(BoundsOf(square), box);
            if (fill.Style == bsSolid)
                EXPECT_EQ(PixelsOf(square).size(), std::size_t((2 * s + 1) * (2 * s + 1)));
            else
                EXPECT_EQ(PixelsOf(square).size(), std::size_t(std::max(1, 8 * s)));
            const QImage circle = Painted([&](auto& D) { D.Ellipse(box, CThin, fill); });
            EXPECT_EQ(BoundsOf(circle), box) << s;
            const QImage shapes[] = {square, circle, Painted([&](auto& D) { D.Polygon(delta, CThin, fill); }),
                                     Painted([&](auto& D) { D.Polygon(star, CThin, fill); })};
            for (const QImage& shape : shapes) {
                const QRect around(0, 0, 41, 40);
                const QImage odd = shape.copy(around); // column 40 is black, outside of all shapes
                QImage mirrored = odd.mirrored(true, false);
                for (const TPoint p : PixelsOf(shape))
                    EXPECT_TRUE(IsSet(mirrored, p.X, p.Y)) << s << Rows(shape);
            }
            for (const TPoint p : delta) EXPECT_TRUE(IsSet(shapes[2], p.X, p.Y));
            for (const TPoint p : PixelsOf(circle))
                EXPECT_TRUE(IsSet(circle, p.Y, p.X) && IsSet(circle, p.X, 40 - p.Y));
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
        EXPECT_EQ(image, Painted([](auto& D) {
                      D.FillRect({2, 3, 37, 36}, {clBlack, bsSolid, pmCopy});
                  }))
            << Rows(image);
    }
}

TEST(QtRasterShapes, FillRectAndClipAreExact) {
    const TRect clip{7, 9, 23, 31};
    EXPECT_EQ(PixelsOf(Painted([&](auto& D) { D.FillRect(clip, CRed); })).size(), 16u * 22u);
    const auto scene = [](auto& D) {
        D.FillRect({-CMaxPixel, 12, CMaxPixel, 14}, CRed);
        D.Polyline(TPoints{{0, 0}, {39, 25}, {3, 38}, {22, 1}}, CThin);
        D.Polygon(TPoints{{5, 5}, {35, 9}, {20, 37}}, {clBlue, 3, psSolid, pmCopy},
                  {clGreen, bsDiagCross, pmCopy});
        D.Ellipse({3, 3, 30, 38}, {clBlack, 1, psDash, pmCopy}, {clRed, bsHorizontal, pmCopy});
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
    for (const double scale : {1.0, 1.25, 2.0}) {
        for (const bool antialias : {false, true}) {
            const TRasterOptions options{{40, 40}, scale, antialias};
            const auto ground = [](auto& D) {
                EXPECT_TRUE(D.CanXor());
                D.Ellipse({2, 5, 33, 30}, CThin, {clTeal, bsSolid, pmCopy});
            };
            const QImage before = Painted(options, ground);
            for (const TPenStyle style : {psSolid, psDot, psDash, psClear}) {
                for (const int width : {0, 1, 3}) {
                    const TStroke stroke{clYellow, width, style, pmXor};
                    const TFill fill{clFuchsia, style == psDash ? bsDiagCross : bsSolid, pmXor};
                    const auto once = [&](auto& D) {
                        D.Polyline(TPoints{{1, 1}, {30, 20}, {5, 38}, {5, 2}, {36, 37}}, stroke);
                        D.Polygon(TPoints{{3, 30}, {38, 4}, {39, 39}, {7, 7}}, stroke, fill);
                        D.Rectangle({10, 10, 30, 31}, stroke, fill);
                        D.Ellipse({12, 3, 31, 28}, stroke, fill);
                        D.FillRect({20, 20, 37, 39}, fill);
                    };
                    const auto times = [&](int Count) {
                        return Painted(options, [&](auto& D) {
                            ground(D);
                            for (int i = 0; i < Count; ++i) once(D);
                        });
                    };
                    EXPECT_NE(times(1), before);
                    EXPECT_EQ(times(2), before) << scale << ' ' << antialias << ' ' << style << ' ' << width;
                }
            }
        }
    }
}

TEST(QtRasterPens, DashesAndHatchesLeaveTheGroundBetweenThem) {
    const QImage pens = Painted({{36, 8}}, [](auto& D) {
        int y = 0;
        for (const TPenStyle style : {psDash, psDot, psDashDot, psDashDotDot})
            D.Polyline(TPoints{{0, y}, {36, y}}, {clBlack, 1, style, pmCopy}), y += 2;
    });
    EXPECT_EQ(Rows(pens), "#########...#########...#########...\n....................................\n"
                          "###...###...###...###...###...###...\n....................................\n"
                          "#########...###...#########...###...\n....................................\n"
                          "#########...###...###...#########...\n....................................\n");
    const auto hatched = [](TBrushStyle Style) {
        return Painted({{40, 40}}, [Style](auto& D) {
            D.Polygon(TPoints{{0, 0}, {40, 0}, {40, 40}, {0, 40}}, CNoStroke, {clRed, Style, pmCopy});
        });
    };
    for (const TBrushStyle style :
         {bsHorizontal, bsVertical, bsFDiagonal, bsBDiagonal, bsCross, bsDiagCross}) {
        const QImage image = hatched(style);
        int stepsDown = 0, stepsUp = 0, rows = 0, columns = 0;
        for (int i = 1; i < 39; ++i) {
            for (int k = 1; k < 39; ++k) {
                if (!IsSet(image, k, i)) continue;
                stepsDown += IsSet(image, k + 1, i + 1);
                stepsUp += IsSet(image, k + 1, i - 1);
                rows += IsSet(image, k + 1, i);
                columns += IsSet(image, k, i + 1);
            }
        }
        EXPECT_EQ(rows > 90, style == bsHorizontal || style == bsCross) << style << '\n' << Rows(image);
        EXPECT_EQ(columns > 90, style == bsVertical || style == bsCross) << style;
        EXPECT_EQ(stepsDown > 90, style == bsFDiagonal || style == bsDiagCross) << style;
        EXPECT_EQ(stepsUp > 90, style == bsBDiagonal || style == bsDiagCross) << style;
        EXPECT_LT(PixelsOf(image).size(), 40u * 40u / 2);
    }
}

TEST(QtRasterPens, WidePensLieAroundTheirLineAndThinOnesAreNeverSmoothed) {
    for (const bool antialias : {false, true}) {
        const TRasterOptions options{{40, 40}, 1, antialias};
        const QImage three = Painted(options, [](auto& D) {
            D.Polyline(TPoints{{-9, 20}, {60, 20}}, {clBlack, 3, psSolid, pmCopy});
        });
        EXPECT_EQ(BoundsOf(three), (TRect{0, 19, 40, 22}));
        EXPECT_EQ(Rows(three).find('o'), std::string::npos);
        const QImage frame = Painted(options, [](auto& D) {
            D.Rectangle({10, 10, 30, 30}, {clBlack, 3, psInsideFrame, pmCopy}, CNoFill);
        });
        EXPECT_EQ(BoundsOf(frame), (TRect{10, 10, 30, 30}));
        EXPECT_EQ(PixelsOf(frame).size(), 20u * 20u - 14u * 14u);
        const QImage thin = Painted(options, [](auto& D) {
            D.Polyline(TPoints{{1, 2}, {33, 17}, {8, 37}}, {clBlack, 1, psSolid, pmCopy});
            D.Ellipse({3, 8, 30, 39}, CThin, CNoFill);
        });
        EXPECT_EQ(Rows(thin).find('o'), std::string::npos);
    }
}

TEST(QtRasterScale, AtTwoPixelsAPixelTheSamePictureIsOnlyFiner) {
    const auto scene = [](auto& D) {
        D.FillRect({1, 1, 9, 7}, CRed);
        D.Polyline(TPoints{{12, 3}, {30, 3}}, CThin);
        D.Polyline(TPoints{{12, 30}, {12, 6}}, {clBlack, 1, psSolid, pmCopy});
        D.Polyline(TPoints{{20, 20}, {20, 21}}, CThin);
        D.Rectangle({22, 8, 35, 17}, {clBlue, 1, psSolid, pmCopy}, {clGreen, bsSolid, pmCopy});
        D.FillRect({2, 24, 18, 31}, {clBlue, bsCross, pmCopy});
        D.Polyline(TPoints{{2, 33}, {38, 33}}, {clBlack, 1, psDashDot, pmCopy});
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
    const TFill black{clBlack, bsSolid, pmCopy};
    const std::size_t all = 40 * 40;
    for (const TStroke& stroke : {CNoStroke, CThin, TStroke{clBlack, 5, psSolid, pmCopy}}) {
        const auto count = [&](auto Draw) {
            return PixelsOf(Painted([&](auto& D) { Draw(D, stroke); })).size();
        };
        EXPECT_EQ(count([&](auto& D, auto& S) {
                      D.Polygon(TPoints{{-far, -far}, {far, -far}, {far, far}, {-far, far}}, S, black);
                  }),
                  all);
        EXPECT_EQ(count([&](auto& D, auto& S) { D.Ellipse({-far, -far, far, far}, S, black); }), all);
        EXPECT_EQ(count([&](auto& D, auto& S) { D.Rectangle({-far, -far, far, far}, S, black); }), all);
        EXPECT_NEAR(double(count([&](auto& D, auto& S) {
                        D.Polygon(TPoints{{-far, -far}, {far, far}, {-far, far}}, S, black);
                    })),
                    820, 130);
        EXPECT_NEAR(double(count([&](auto& D, auto& S) {
                        D.Ellipse({0, -far, far, far}, S, black);
                    })),
                    all, 40);
        EXPECT_EQ(count([&](auto& D, auto& S) { D.Ellipse({far - 9, far - 9, far, far}, S, black); }), 0u);
    }
    for (const TPenStyle style : {psSolid, psDash}) {
        for (const int width : {1, 3}) {
            const QImage image = Painted([&](auto& D) {
                D.Polyline(TPoints{{-far, 20}, {far, 20}, {20, far}, {20, -far}},
                           {clBlack, width, style, pmCopy});
            });
            const std::size_t pixels = PixelsOf(image).size(), full = std::size_t(width * 80 - width * width);
            if (style == psSolid)
                EXPECT_EQ(pixels, full);
            else
                EXPECT_TRUE(pixels > full / 2 && pixels < full) << pixels;
        }
    }
}

TEST(QtRasterStamps, ShowWhatDrawingEachWouldShow) {
    TRecorder symbol({20, 20});
    symbol.Ellipse({-4, -4, 5, 5}, {clBlue, 1, psSolid, pmCopy}, {clYellow, bsSolid, pmCopy});
    symbol.Polyline(TPoints{{-6, 0}, {7, 0}}, {clRed, 3, psSolid, pmCopy});
    TRecorder hatched = symbol;
    hatched.Rectangle({-5, -5, 4, 4}, CThin, {clRed, bsCross, pmCopy});
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
