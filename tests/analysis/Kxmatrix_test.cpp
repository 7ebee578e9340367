#include <kxgraph/analysis/Kxmatrix.h>

#include "support/testing.h"

namespace kx::test::matrix {

TEST(RealMatrix, SharesOnAssignmentUntilItIsResized) {
    TKxRealMatrix a(2, 3);
    const TKxRealMatrix b = a;
    a[1][2] = 5;
    EXPECT_EQ(b[1][2], 5);
    a.SetLength(4, 4);
    a[1][2] = 6;
    EXPECT_EQ(b[1][2], 5);
    EXPECT_EQ(a[1][3] + a[3][3], 0);
    EXPECT_EQ(b.Length(), 2);
    EXPECT_EQ(TKxRealMatrix().Length(), 0);
}

TEST(SolveBand, FindsTheVectorThatWasMultipliedForEveryWidthAndLength) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> values(-1, 1);
    for (const auto& [band, n] : {std::pair(0, 3), {1, 3}, {1, 4}, {2, 4}, {2, 60}, {4, 8}, {4, 60}}) {
        TKxRealMatrix a(n, 2 * band + 1);
        TKxRealArray x(n), b(n);
        for (double& value : x) value = values(random);
        for (int i = 0; i < n; ++i)
            for (int k = 0; k <= 2 * band; ++k) {
                a[i][k] = values(random) + (k == band ? 10 : 0);
                // Elements beyond the matrix must not matter.
                if (const int j = i + k - band; j >= 0 && j < n) b[i] += a[i][k] * x[j];
            }
        SolveBand(n, band, band, a, b);
        for (int i = 0; i < n; ++i) ASSERT_NEAR(b[i], x[i], 1e-14) << band << ' ' << n;
    }
}

TEST(SolveBand, LeavesColumnsOfVanishingPivotsAndGoesByTheLowerWidth) {
    TKxRealMatrix a(3, 3);
    TKxRealArray b = {2e-307, 5, 9};
    a[0] = {0, 2e-307, 4};
    a[1] = {3, 1, 0}; // the 3 stays what it is and is no multiplier of the elimination
    a[2] = {0, 1, 0};
    SolveBand(3, 1, 1, a, b);
    EXPECT_EQ(b[1], 5 - 3 * 2e-307);
    EXPECT_EQ(a[1][1], 1);

    TKxRealMatrix wide(4, 3); // no diagonal on the left: those on the right do not take part
    TKxRealArray right = {1, 2, 3, 4};
    for (int i = 0; i < 4; ++i) wide[i] = {2, 7, 0};
    SolveBand(4, 0, 2, wide, right);
    EXPECT_EQ(right[0], 0.5);
    TKxRealMatrix low(4, 2); // and none on the right: nothing is read behind the rows
    for (int i = 0; i < 4; ++i) low[i][1] = 1;
    low[3][0] = 1;
    SolveBand(4, 1, 0, low, right);
    EXPECT_EQ(right[3], 2 - 1.5);
}

TEST(SolveBand, RaisesForWhatItCannotSolve) {
    TKxRealMatrix a(3, 3);
    TKxRealArray b(3);
    const auto message = [&](int N, int Lower, int Upper) {
        return MessageOf<EMathError>([&] { SolveBand(N, Lower, Upper, a, b); });
    };
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_EQ(message(2, 0, 0), "Not enough data!");
    EXPECT_EQ(message(3, most, most), "Not enough data!");
    EXPECT_EQ(message(3, -1, 1), "Matrix: Diagonal-Dimensions must be positive!");
    EXPECT_EQ(message(3, 1, -1), "Matrix: Diagonal-Dimensions must be positive!");
    EXPECT_THROW(SolveBand(4, 1, 1, a, b), ERangeError);
    EXPECT_THROW(SolveBand(3, 2, 1, a, b), ERangeError);
    EXPECT_THROW(SolveBand(3, 1, 1, a, b), EZeroDivide);
    for (int i = 0; i < 3; ++i) a[i][1] = 1;
    b[2] = std::nan("");
    EXPECT_THROW(SolveBand(3, 1, 1, a, b), EInvalidOp);
    b.SetLength(2);
    EXPECT_THROW(SolveBand(3, 1, 1, a, b), ERangeError);
}

// The condition number of the Hilbert matrix of 12 rows is 1.7e16: plain doubles find no digit.
TEST(Cholesky, SolvesWhatDoublesCannot) {
    constexpr std::size_t n = 12;
    TKxDoubledMatrix m(n, std::vector<TKxDoubled>(n));
    std::vector<TKxDoubled> b(n);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < n; ++j) {
            m[i][j] = TKxDoubled(1) / double(i + j + 1);
            b[i] += m[i][j] * double(j + 1);
        }
    const double least = CholeskyDecomposition(m);
    EXPECT_NEAR(least, std::pow(std::tgamma(n), 4) / std::pow(std::tgamma(2 * n - 1), 2), 1e-25);
    CholeskySolve(m, b);
    for (std::size_t j = 0; j < n; ++j) EXPECT_NEAR(b[j].Hi, double(j + 1), 1e-13);
}

TEST(Cholesky, RaisesForMatricesThatAreNotPositiveDefinite) {
    const auto message = [](TKxDoubledMatrix Matrix, double Tolerance = 0) {
        return MessageOf<EMathError>([&] { CholeskyDecomposition(Matrix, Tolerance); });
    };
    const std::string later = "Cholesky Decomposition ([i,i]): Matrix is not positive definite!";
    EXPECT_EQ(message({{1, 2}, {2}}), "Cholesky Decomposition: Matrix is not square!");
    EXPECT_EQ(message({{0, 2}, {2, 1}}), "Cholesky Decomposition ([0,0]): Matrix is not positive definite!");
    EXPECT_EQ(message({{1, 2}, {2, 4}}), later);
    EXPECT_EQ(message({{1, 2}, {2, std::nan("")}}), later);
    EXPECT_EQ(message({{1, 2}, {2, 4 + 1e-9}}, 1e-9), later);
    EXPECT_EQ(message({{1, 2}, {2, 4 + 1e-9}}, 1e-10), "");
}

} // namespace kx::test::matrix
