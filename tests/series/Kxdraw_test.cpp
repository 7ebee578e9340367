#include <kxgraph/series/Kxdraw.h>

#include "support/testing.h"

#include <kxgraph/platform/objects/component.h>

namespace kx::test::draw {

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

TEST(Styles, TellTheirOwnerOnceOfARealChange) {
    TOwner owner;
    TKxPointStyle point(&owner), other(nullptr);
    TKxLineStyle line(&owner);
    point.SetSize(-3); // stored as the 5 that is there
    line.SetColor(clRed);
    EXPECT_EQ(owner.Count, 0);
    line.SetWidth(-1);
    EXPECT_EQ(line.GetWidth(), 0);
    other.SetStyle(SyDelta);
    other.SetSize(9);
    point.Assign(other);
    EXPECT_EQ(std::tuple(owner.Count, point.GetSize(), point.GetStyle()), std::tuple(2, 9, SyDelta));
    EXPECT_THROW(point.Assign(line), EConvertError);
}

// The shapes themselves stand in the recorded sheet of symbols.
TEST(PointSymbols, AreCutOffTowardsTheCentreAndStayInRange) {
    EXPECT_EQ(Symbol(Sy5Star, 10), "polygon (50,40) (52,47) (60,47) (54,51) (56,58) (50,54) (44,58) (46,51) "
                                   "(40,47) (48,47)" +
                                       COpen);
    const std::string far = std::to_string(CMaxPixel);
    EXPECT_EQ(Symbol(SyNabla, 2000000000),
              "polygon (-" + far + ",-" + far + ") (" + far + ",-" + far + ") (50," + far + ")" + COpen);
}

TEST(Arrows, HaveTheirHeadsAlongTheLine) {
    const auto arrow = [](TPoint From, TPoint To, int Length) {
        return Drawn([=](TCanvas& Canvas) { DrawArrow(From.X, From.Y, To.X, To.Y, Length, 4, Canvas); });
    };
    EXPECT_EQ(arrow({0, 0}, {60, 80}, 10),
              "polyline (0,0) (60,80)" + CPen + "\npolygon (60,80) (57,70) (51,74)" + CFilled);
    EXPECT_EQ(arrow({300000, 400000}, {0, 0}, 10),
              "polyline (300000,400000) (0,0)" + CPen + "\npolygon (0,0) (3,10) (9,6)" + CFilled);
    EXPECT_EQ(arrow({5, 6}, {5, 6}, 10), "polyline (5,6) (5,7)" + CPen + "\n");
    EXPECT_THROW(arrow({5, 6}, {9, 6}, 0), EZeroDivide);
}

TEST(Bars, HaveTheirDepthUpAndRightWhateverTheSigns) {
    const auto bar = [](int X1, int X2, int DX, int DY) {
        return Drawn([=](TCanvas& Canvas) {
            Draw3DBar(X1, 90, X2, 40, DX, DY, clBlack, clRed, clLime, clBlue, Canvas);
        });
    };
    EXPECT_EQ(bar(30, 10, -8, -5), bar(10, 30, 8, 5));
}

} // namespace kx::test::draw
