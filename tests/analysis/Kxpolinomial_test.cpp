#include <kxgraph/analysis/Kxpolinomial.h>

#include "support/graphfixture.h"

#include <cmath>

namespace kx {
namespace {

using test::MessageOf;
using test::TGraphForm;

struct TFixture : TGraphForm {
    TFixture() { Fit->SetName("Fit1"); }
    double Result(const char* Key) const { return Fit->GetResults().ReadReal("Fit1", Key, NAN); }
    TKxDataWithErrorSeries* Series = AddSeries();
    TKxPolynomLine* Fit = new TKxPolynomLine(Form);
};

TEST(PolynomLine, FitsDrawsAndWritesItsResults) {
    TFixture f;
    EXPECT_EQ(f.Fit->GetOrder(), 2);
    f.Fill({{0, 1}, {1, 6}, {2, 17}});
    f.Fit->SetParentSeries(f.Series);
    f.Draw();
    const double expected[] = {1, 2, 3};
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(f.Fit->GetCoeff(i), expected[i], 1e-14) << i;
    EXPECT_NEAR(f.Result("Coeff(3)"), 3, 1e-13);
    EXPECT_EQ(f.Fit->GetResults().ReadString("Fit1", "CoeffName(3)", ""), "c");
    EXPECT_NEAR(f.Result("ChiSquare"), 0, 1e-20);
    EXPECT_TRUE(std::isnan(f.Result("DeltaCoeff(1)"))) << "no degrees of freedom";
    EXPECT_NEAR(f.Fit->GetYData()->GetValue(100), f.Fit->GetY(f.Fit->GetXData()->GetValue(100)), 0);
    EXPECT_THROW(f.Fit->GetCoeff(3), ERangeError);
    EXPECT_THROW(f.Fit->GetCoeff(-1), ERangeError);

    f.Fill({{3, 30}, {4, 60}, {5, 85}});
    f.Draw();
    EXPECT_EQ(f.Result("Points"), 6);
    EXPECT_GT(f.Result("DeltaCoeff(3)"), 0);
    EXPECT_LT(f.Result("AdjR2"), f.Result("r2"));
    EXPECT_NEAR(f.Result("QRel%"), 100 * std::sqrt(f.Result("ChiSquare") / 4), 1e-9);

    f.Fit->SetOrder(4);
    f.Draw();
    EXPECT_FALSE(std::isnan(f.Result("Coeff(5)")));
    EXPECT_EQ(f.Fit->GetFormula(), "Y=a+bX+cX\\+2\\++dX\\+3\\++eX\\+4\\+");
    f.Fit->SetOrder(0);
    f.Draw();
    EXPECT_EQ(f.Fit->GetOrder(), 2);
    EXPECT_TRUE(std::isnan(f.Result("Coeff(5)"))) << "keys of a higher order are gone";
}

TEST(PolynomLine, FailuresNameTheSeries) {
    TFixture f;
    f.Fit->SetCaption("Parabola");
    f.Fill({{0, 1}, {1, 6}});
    EXPECT_EQ(MessageOf<EMathError>([&] { f.Fit->SetParentSeries(f.Series); }), "Parabola: Not enough data!");
    f.Fill({{1, 2}, {1, 4}});
    EXPECT_EQ(MessageOf<EMathError>([&] { f.Fit->Calculate(); }),
              "Parabola: Cholesky Decomposition ([i,i]): Matrix is not positive definite!");
    EXPECT_EQ(f.Fit->GetCoeff(2), 0);
}

TEST(PolynomLine, ADiveTowardsZeroTakesALogarithmicAxisADecadeBeyondTheDataAtMost) {
    TFixture f;
    f.Y->SetScaling(AxLogEE);
    f.Fill({{0, 10}, {1, 1}, {2, 1}, {3, 10}}); // the parabola has zeros between
    f.Fit->SetParentSeries(f.Series);
    f.Draw();
    EXPECT_LT(f.Fit->GetY(1.5), 0.2);
    EXPECT_GE(f.Y->GetStart(), 0.1);
    EXPECT_GE(f.Y->GetStop(), 10);
    EXPECT_LE(f.Y->GetStop(), 100);
}

} // namespace
} // namespace kx
