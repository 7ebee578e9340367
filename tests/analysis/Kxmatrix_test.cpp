#include "analysis/Kxmatrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace kx {
namespace {

template <class F>
std::string MessageOf(F&& Call) {
    try {
        Call();
    } catch (const EMathError& error) {
        return error.Message();
    }
    return "";
}

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

/// A x for the band matrix A.
std::vector<double> Product(const TKxRealMatrix& A, int Band, const std::vector<double>& X) {
    const int n = A.Length();
    std::vector<double> b(X.size());
    for (int i = 0; i < n; ++i)
        for (int j = std::max(0, i - Band); j <= std::min(n - 1, i + Band); ++j)
            b[std::size_t(i)] += A[i][Band + j - i] * X[std::size_t(j)];
    return b;
}

TEST(SolveBand, FindsTheVectorThatWasMultipliedForEveryWidthAndLength) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> values(-1, 1);
    for (const int band : {0, 1, 2, 4})
        for (const int n : {3, 4, 8, 60}) {
            if (2 * band > n) continue;
            TKxRealMatrix a(n, 2 * band + 1);
            std::vector<double> x;
            for (int i = 0; i < n; ++i) {
                // Elements beyond the matrix must not matter.
                for (int j = 0; j <= 2 * band; ++j)
                    a[i][j] = j == band ? 10 + values(random) : values(random);
                x.push_back(values(random));
            }
            TKxRealArray b(n);
            std::ranges::copy(Product(a, band, x), b.begin());
            SolveBand(n, band, band, a, b);
            for (int i = 0; i < n; ++i) ASSERT_NEAR(b[i], x[std::size_t(i)], 1e-14) << band << ' ' << n;
        }
}

TEST(SolveBand, LeavesColumnsOfVanishingPivotsAndGoesByTheLowerWidth) {
    TKxRealMatrix a(3, 3);
    TKxRealArray b = {2, 5, 9};
    a[0][1] = a[1][1] = a[2][1] = 1;
    a[0][1] = 2e-307; // the element below it stays what it is and is no multiplier of the elimination
    a[1][0] = 3;
    a[0][2] = 4;
    b[0] = 2e-307;
    SolveBand(3, 1, 1, a, b);
    EXPECT_EQ(b[1], 5 - 3 * 2e-307);
    EXPECT_EQ(a[1][1], 1);

    TKxRealMatrix wide(4, 3); // no diagonal on the left: those on the right do not take part
    TKxRealArray right = {1, 2, 3, 4};
    for (int i = 0; i < 4; ++i) {
        wide[i][0] = 2;
        wide[i][1] = 7;
    }
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
        return MessageOf([&] { SolveBand(N, Lower, Upper, a, b); });
    };
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_EQ(message(2, 0, 0), "Not enough data!");
    EXPECT_EQ(message(3, 2, 2), "Not enough data!");
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

TKxDoubledMatrix Hilbert(std::size_t N) {
    TKxDoubledMatrix m(N, std::vector<TKxDoubled>(N));
    for (std::size_t i = 0; i < N; ++i)
        for (std::size_t j = 0; j < N; ++j) m[i][j] = TKxDoubled(1) / double(i + j + 1);
    return m;
}

// The condition number of the Hilbert matrix of 12 rows is 1.7e16: plain doubles find no digit.
TEST(Cholesky, SolvesWhatDoublesCannot) {
    constexpr std::size_t n = 12;
    TKxDoubledMatrix m = Hilbert(n);
    std::vector<TKxDoubled> b(n);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < n; ++j) b[i] += m[i][j] * double(j + 1);
    const double least = CholeskyDecomposition(m);
    EXPECT_NEAR(least, std::pow(std::tgamma(n), 4) / std::pow(std::tgamma(2 * n - 1), 2), 1e-25);
    CholeskySolve(m, b);
    for (std::size_t j = 0; j < n; ++j) EXPECT_NEAR(b[j].Hi, double(j + 1), 1e-13);
}

TEST(Cholesky, RaisesForMatricesThatAreNotPositiveDefinite) {
    const std::string later = "Cholesky Decomposition ([i,i]): Matrix is not positive definite!";
    const struct {
        TKxDoubledMatrix Matrix;
        double Tolerance;
        std::string Message;
    } cases[] = {
        {{{1, 2}, {2}}, 0, "Cholesky Decomposition: Matrix is not square!"},
        {{{0, 2}, {2, 1}}, 0, "Cholesky Decomposition ([0,0]): Matrix is not positive definite!"},
        {{{1, 2}, {2, 4}}, 0, later},
        {{{1, 2}, {2, -5}}, 0, later},
        {{{1, 2}, {2, std::nan("")}}, 0, later},
        {{{1, 2}, {2, 4 + 1e-9}}, 1e-9, later},
        {{{1, 2}, {2, 4 + 1e-9}}, 1e-10, ""},
        {{}, 0, ""},
    };
    for (auto c : cases)
        EXPECT_EQ(MessageOf([&] { CholeskyDecomposition(c.Matrix, c.Tolerance); }), c.Message);
}

} // namespace
} // namespace kx
