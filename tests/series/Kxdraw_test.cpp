#include "series/Kxdraw.h"

#include "platform/controls.h"
#include "platform/exceptions.h"
#include "platform/recording.h"

#include <gtest/gtest.h>

namespace kx {
namespace {

struct TOwner : TComponent, TKxStyleOwner {
    TOwner() : TComponent(nullptr) {}
    void Modified() override { ++Count; }
    int Count = 0;
};

/// What Draw draws with a green pen of width 2 and a clear yellow brush.
template <class F>
std::string Drawn(F Draw) {
    TRecorder device({400, 400});
    TCanvas canvas(&device);
    canvas.Pen.SetColor(clGreen);
    canvas.Pen.SetWidth(2);
    canvas.Brush.SetColor(clYellow);
    canvas.Brush.SetStyle(bsClear);
    Draw(canvas);
    return device.Recording.ToText();
}

std::string Symbol(TKxPointSymbol Symbol, int Size) {
    return Drawn([=](TCanvas& Canvas) { DrawPointSymbol(50, 50, Size, Symbol, Canvas); });
}

const std::string CPen = " pen #008000 2 solid", COpen = CPen + " brush #ffff00 solid\n",
                  CFilled = CPen + " brush #008000 solid\n";

TEST(Styles, ARealChangeTellsTheOwnerOnce) {
    TOwner owner;
    TKxPointStyle point(&owner), other(nullptr);
    TKxLineStyle line(&owner);
    TKxAreaStyle area(&owner);
    point.SetSize(-3); // stored as the 5 that is there
    line.SetColor(clRed);
    EXPECT_EQ(owner.Count, 0);
    area.SetDrawXOred(false);
    line.SetWidth(-1);
    point.SetWidth(-7);
    EXPECT_EQ(owner.Count, 3);
    EXPECT_EQ(line.GetWidth(), 0);
    EXPECT_EQ(point.GetWidth(), 0);

    other.SetStyle(SyDelta);
    other.SetSize(9);
    point.Assign(other);
    EXPECT_EQ(owner.Count, 4);
    EXPECT_EQ(point.GetSize(), 9);
    EXPECT_EQ(point.GetStyle(), SyDelta);
    EXPECT_THROW(point.Assign(line), EConvertError);

    struct : TCustomPanel {
        using TCustomPanel::TCustomPanel;
        void Invalidate() override { ++Count; }
        int Count = 0;
    } windowed(nullptr);
    TKxLineStyle(&windowed).SetWidth(2);
    EXPECT_EQ(windowed.Count, 1);
}

TEST(Styles, AFreshStyleStoresNothing) {
    const auto check = [](const TPersistent& Style) {
        for (const TProperty* property : Style.PublishedProperties().All())
            EXPECT_FALSE(IsStored(Style, *property)) << Style.ClassName() << "." << property->Name;
    };
    check(TKxLineStyle(nullptr));
    check(TKxAreaStyle(nullptr));
    check(TKxPointStyle(nullptr));
}

TEST(PointSymbols, ShapesAreCutOffTowardsTheCentre) {
    EXPECT_EQ(Symbol(Sy5Star, 10), "polygon (50,40) (52,47) (60,47) (54,51) (56,58) (50,54) (44,58) (46,51) "
                                   "(40,47) (48,47)" +
                                       COpen);
    EXPECT_EQ(Symbol(SyDiamondFilled, 3), "polygon (50,47) (53,50) (50,53) (47,50)" + CFilled);
    EXPECT_EQ(Symbol(SyDelta, 4), "polygon (50,46) (54,54) (46,54)" + COpen);
    EXPECT_EQ(Symbol(SyNablaFilled, 4), "polygon (46,46) (54,46) (50,54)" + CFilled);
    EXPECT_EQ(Symbol(SyCircle, 7), "ellipse (43,43)-(58,58)" + COpen);
    EXPECT_EQ(Symbol(SySquareFilled, 7), "rectangle (43,43)-(58,58)" + CFilled);
    EXPECT_EQ(Symbol(SyPoint, 7), "polyline (50,50) (50,51)" + CPen + "\n");
    EXPECT_EQ(Symbol(SyStar, 6), Symbol(SyCross, 6) + Symbol(SyX, 6));
    const std::string far = std::to_string(CMaxPixel);
    EXPECT_EQ(Symbol(SyNabla, 2000000000),
              "polygon (-" + far + ",-" + far + ") (" + far + ",-" + far + ") (50," + far + ")" + COpen);
}

TEST(Arrows, TheHeadPointsAlongTheLine) {
    const auto arrow = [](TPoint From, TPoint To) {
        return Drawn([=](TCanvas& Canvas) { DrawArrow(From.X, From.Y, To.X, To.Y, 10, 4, Canvas); });
    };
    const auto drawn = [](const std::string& Line, const std::string& Head) {
        return "polyline " + Line + CPen + "\npolygon " + Head + CFilled;
    };
    EXPECT_EQ(arrow({0, 0}, {100, 0}), drawn("(0,0) (100,0)", "(100,0) (90,-4) (90,4)"));
    EXPECT_EQ(arrow({100, 0}, {0, 0}), drawn("(100,0) (0,0)", "(0,0) (10,4) (10,-4)"));
    EXPECT_EQ(arrow({0, 0}, {0, 100}), drawn("(0,0) (0,100)", "(0,100) (4,90) (-4,90)"));
    EXPECT_EQ(arrow({0, 0}, {60, 80}), drawn("(0,0) (60,80)", "(60,80) (57,70) (51,74)"));
    EXPECT_EQ(arrow({300000, 400000}, {0, 0}), drawn("(300000,400000) (0,0)", "(0,0) (3,10) (9,6)"));
    EXPECT_EQ(arrow({5, 6}, {5, 6}), "polyline (5,6) (5,7)" + CPen + "\n");
    EXPECT_THROW(Drawn([](TCanvas& Canvas) { DrawArrow(5, 6, 9, 6, 0, 4, Canvas); }), EZeroDivide);
}

TEST(Bars, TheDepthGoesUpAndRightWhateverTheSigns) {
    EXPECT_EQ(Drawn([](TCanvas& Canvas) {
                  Draw3DBar(30, 90, 10, 40, -8, -5, clBlack, clRed, clLime, clBlue, Canvas);
              }),
              "rectangle (10,40)-(30,90) pen #000000 2 solid brush #ff0000 solid\n"
              "polygon (10,40) (29,40) (37,34) (18,34) pen #000000 2 solid brush #00ff00 solid\n"
              "polygon (29,40) (37,34) (37,84) (29,89) pen #000000 2 solid brush #0000ff solid\n");
}

} // namespace
} // namespace kx
