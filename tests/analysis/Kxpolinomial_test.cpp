#include <kxgraph/analysis/Kxpolinomial.h>

#include "support/curveform.h"

namespace kx::test::polinomial {

using TFixture = TCurveForm<TKxPolynomLine>;

TEST(PolynomLine, FitsDrawsAndWritesItsResults) {
    TFixture f;
    EXPECT_EQ(f.Curve->GetOrder(), 2);
    f.Fill({{0, 1}, {1, 6}, {2, 17}});
    f.Join();
    f.Draw();
    const double expected[] = {1, 2, 3};
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(f.Curve->GetCoeff(i), expected[i], 1e-14) << i;
    EXPECT_NEAR(f.Result("Coeff(3)"), 3, 1e-13);
    EXPECT_EQ(f.ResultText("CoeffName(3)"), "c");
    EXPECT_NEAR(f.Result("ChiSquare"), 0, 1e-20);
    EXPECT_TRUE(std::isnan(f.Result("DeltaCoeff(1)"))) << "no degrees of freedom";
    EXPECT_NEAR(f.Curve->GetYData()->GetValue(100), f.Curve->GetY(f.Curve->GetXData()->GetValue(100)), 0);
    for (const int beyond : {3, -1}) EXPECT_THROW(f.Curve->GetCoeff(beyond), ERangeError);

    f.Fill({{3, 30}, {4, 60}, {5, 85}});
    f.Draw();
    EXPECT_EQ(f.Result("Points"), 6);
    EXPECT_GT(f.Result("DeltaCoeff(3)"), 0);
    EXPECT_LT(f.Result("AdjR2"), f.Result("r2"));
    EXPECT_NEAR(f.Result("QRel%"), 100 * std::sqrt(f.Result("ChiSquare") / 4), 1e-9);

    f.Curve->SetOrder(4);
    f.Draw();
    EXPECT_FALSE(std::isnan(f.Result("Coeff(5)")));
    EXPECT_EQ(f.Curve->GetFormula(), "Y=a+bX+cX\\+2\\++dX\\+3\\++eX\\+4\\+");
    f.Curve->SetOrder(0);
    f.Draw();
    EXPECT_EQ(f.Curve->GetOrder(), 2);
    EXPECT_TRUE(std::isnan(f.Result("Coeff(5)"))) << "keys of a higher order are gone";
}

TEST(PolynomLine, TakesALogarithmicAxisADecadeBeyondTheDataAtMost) {
    TFixture f;
    f.Y->SetScaling(AxLogEE);
    f.Fill({{0, 10}, {1, 1}, {2, 1}, {3, 10}}); // the parabola has zeros between
    f.Join();
    f.Draw();
    EXPECT_LT(f.Curve->GetY(1.5), 0.2);
    EXPECT_GE(f.Y->GetStart(), 0.1);
    EXPECT_GE(f.Y->GetStop(), 10);
    EXPECT_LE(f.Y->GetStop(), 100);
}

} // namespace kx::test::polinomial
