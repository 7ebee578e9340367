#pragma once
// Slow ways to numbers that the library finds in fast ones, for tests and benchmarks: one point after the
// other, in doubled arithmetic.

#include <kxgraph/numeric/Kxdoubled.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace kx::test {

using TDoubles = std::vector<double>;

/// Solves the normal equations; Matrix has the right sides for its last column.
inline std::vector<TKxDoubled> Solved(std::vector<std::vector<TKxDoubled>> Matrix) {
    const std::size_t n = Matrix.size();
    for (std::size_t k = 0; k < n; ++k)
        for (std::size_t i = 0; i < n; ++i) {
            if (i == k) continue;
            const TKxDoubled factor = Matrix[i][k] / Matrix[k][k];
            for (std::size_t j = k; j <= n; ++j) Matrix[i][j] -= factor * Matrix[k][j];
        }
    std::vector<TKxDoubled> solution;
    for (std::size_t k = 0; k < n; ++k) solution.push_back(Matrix[k][n] / Matrix[k][k]);
    return solution;
}

/// The coefficients of the polynomial of degree Order through finite points; no weights are ones.
inline TDoubles FittedPolynomial(const TDoubles& X, const TDoubles& Y, const TDoubles& W, int Order) {
    const auto n = std::size_t(Order) + 1;
    const auto [low, high] = std::ranges::minmax(X);
    const double origin = low / 2 + high / 2;
    const int exponent = std::ilogb(high - low);
    std::vector<std::vector<TKxDoubled>> matrix(n, std::vector<TKxDoubled>(n + 1));
    for (std::size_t p = 0; p < X.size(); ++p) {
        const TKxDoubled t = Scaled(TwoSum(X[p], -origin), -exponent);
        std::vector<TKxDoubled> powers{TKxDoubled(1)};
        while (powers.size() < n) powers.push_back(powers.back() * t);
        for (std::size_t i = 0; i < n; ++i) {
            const TKxDoubled weighted = powers[i] * TKxDoubled(W.empty() ? 1 : W[p]);
            for (std::size_t j = 0; j < n; ++j) matrix[i][j] += weighted * powers[j];
            matrix[i][n] += weighted * TKxDoubled(Y[p]);
        }
    }
    std::vector<TKxDoubled> c = Solved(matrix);
    for (std::size_t k = 0; k < n; ++k) c[k] = Scaled(c[k], -exponent * int(k));
    for (std::size_t from = 0; from + 1 < n; ++from)
        for (std::size_t k = n - 1; k-- > from;) c[k] -= TKxDoubled(origin) * c[k + 1];
    TDoubles values;
    for (const TKxDoubled& value : c) values.push_back(value.Hi);
    return values;
}

/// The mean of Y around point I, weighted by a triangle of half width M.
inline double TriangularMean(double M, const TDoubles& X, const TDoubles& Y, std::size_t I) {
    long double sum = 0, weights = 0;
    for (std::size_t l = 0; l < X.size(); ++l) {
        const long double weight = 1 - std::abs((long double)(X[I]) - X[l]) / M;
        if (weight <= 0) continue;
        sum += weight * Y[l];
        weights += weight;
    }
    return double(sum / weights);
}

/// The smoothing spline at its knots: Reinsch's band system for half its second derivatives.
inline TDoubles SmoothedBySpline(const TDoubles& X, const TDoubles& Y, const TDoubles& W) {
    const std::size_t n = X.size(), rows = n - 2;
    const auto h = [&](std::size_t i) { return TwoSum(X[i + 1], -X[i]); };
    const auto over = [](TKxDoubled A) { return TKxDoubled(1) / A; };
    // Column i of Q has three numbers from row i on.
    const auto q = [&](std::size_t i, std::size_t row) {
        const TKxDoubled left = over(h(i)), right = over(h(i + 1));
        return row == i ? left : row == i + 1 ? -(left + right) : right;
    };
    const auto entry = [&](std::size_t i, std::size_t j) { // of the matrix, i <= j
        TKxDoubled sum = j == i ? (h(i) + h(i + 1)) * TKxDoubled(2) : j == i + 1 ? h(i + 1) : TKxDoubled();
        for (std::size_t row = j; row <= i + 2; ++row)
            sum += q(i, row) * q(j, row) * TKxDoubled(6) / TKxDoubled(W[row]);
        return sum;
    };
    std::vector<TKxDoubled> pivot(rows), first(rows), second(rows), c(rows);
    for (std::size_t i = 0; i < rows; ++i) {
        pivot[i] = entry(i, i);
        if (i + 1 < rows) first[i] = entry(i, i + 1);
        if (i + 2 < rows) second[i] = entry(i, i + 2);
        for (std::size_t row = i; row <= i + 2; ++row) c[i] += q(i, row) * TKxDoubled(Y[row]) * TKxDoubled(3);
        if (i > 0) {
            const TKxDoubled factor = first[i - 1] / pivot[i - 1];
            pivot[i] -= factor * first[i - 1];
            first[i] -= factor * second[i - 1];
            c[i] -= factor * c[i - 1];
        }
        if (i > 1) {
            const TKxDoubled factor = second[i - 2] / pivot[i - 2];
            pivot[i] -= factor * second[i - 2];
            c[i] -= factor * c[i - 2];
        }
    }
    for (std::size_t i = rows; i-- > 0;) {
        if (i + 1 < rows) c[i] -= first[i] * c[i + 1];
        if (i + 2 < rows) c[i] -= second[i] * c[i + 2];
        c[i] = c[i] / pivot[i];
    }
    TDoubles values;
    for (std::size_t row = 0; row < n; ++row) {
        TKxDoubled value = Y[row];
        for (std::size_t i = row < 2 ? 0 : row - 2; i <= row && i < rows; ++i)
            value -= q(i, row) * c[i] * TKxDoubled(2) / TKxDoubled(W[row]);
        values.push_back(value.Hi);
    }
    return values;
}

} // namespace kx::test
