#include <kxgraph/analysis/Kxmatrix.h>

#include <kxgraph/analysis/Kxfitpoints.h>
#include <kxgraph/platform/base/matherror.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace kx {

namespace {

constexpr double CLeastPivot = 2.2274572859415876e-307; // just above the smallest normal double

void CheckBand(int N, int Lower, int Upper, const TKxRealMatrix& A, const TKxRealArray& B) {
    const std::int64_t others = std::int64_t(Lower) + Upper;
    if (N < 3 || others > N) RaiseNotEnoughData();
    if (Lower < 0 || Upper < 0) throw EMathError("Matrix: Diagonal-Dimensions must be positive!");
    if (A.Length() < N || B.Length() < N) throw ERangeError("Matrix: Too few rows");
    for (int i = 0; i < N; ++i)
        if (A[i].Length() <= others) throw ERangeError("Matrix: Too few columns");
}

void Eliminate(int N, int Lower, int Upper, TKxRealMatrix& A) {
    for (int k = 0; k < N - 1; ++k) {
        const double* pivot = A[k].Data() + Lower;
        if (!(std::abs(*pivot) >= CLeastPivot)) continue;
        const int rows = std::min(Lower + 1, N - k);
        const int columns = std::min(Upper + 1, N - k);
        for (int i = 1; i < rows; ++i) {
            double* row = A[k + i].Data() + Lower - i;
            row[0] /= *pivot;
            for (int j = 1; j < columns; ++j) row[j] -= row[0] * pivot[j];
        }
    }
}

} // namespace

void TKxRealMatrix::SetLength(int Rows) {
    auto rows = FRows ? std::make_shared<std::vector<TKxRealArray>>(*FRows)
                      : std::make_shared<std::vector<TKxRealArray>>();
    rows->resize(static_cast<std::size_t>(std::max(Rows, 0)));
    FRows = std::move(rows);
}

void TKxRealMatrix::SetLength(int Rows, int Columns) {
    SetLength(Rows);
    for (TKxRealArray& row : *FRows) row.SetLength(Columns);
}

void SolveBand(int N, int Lower, int Upper, TKxRealMatrix& A, TKxRealArray& B) {
    CheckBand(N, Lower, Upper, A, B);
    Eliminate(N, Lower, Upper, A);
    // Kept: both directions go by the lower band width, so an unsymmetric band is not solved in full.
    const int band = std::min(Lower + 1, N - 1);
    for (int k = 0; k < N - 1; ++k)
        for (int i = 1; i < std::min(band, N - k); ++i) B[k + i] -= A[k + i][Lower - i] * B[k];
    const int right = std::min(band, Upper + 1);
    for (int k = N - 1; k >= 0; --k) {
        for (int j = 1; j < std::min(right, N - k); ++j) B[k] -= A[k][Lower + j] * B[k + j];
        B[k] = CheckedResult(B[k] / CheckedDivisor(A[k][Lower]));
    }
}

void RaiseNotPositiveDefinite() {
    throw EMathError("Cholesky Decomposition ([i,i]): Matrix is not positive definite!");
}

double CholeskyDecomposition(TKxDoubledMatrix& M, double Tolerance) {
    for (const auto& row : M)
        if (row.size() != M.size()) throw EMathError("Cholesky Decomposition: Matrix is not square!");
    double least = 1;
    for (std::size_t j = 0; j < M.size(); ++j) {
        for (std::size_t i = 0; i < j; ++i) {
            for (std::size_t k = 0; k < i; ++k) M[i][j] -= M[k][i] * M[k][j];
            M[i][j] = M[i][j] / M[i][i];
        }
        const double diagonal = M[j][j].Hi;
        for (std::size_t k = 0; k < j; ++k) M[j][j] -= M[k][j] * M[k][j];
        const double pivot = M[j][j].Hi;
        // Negated, so that a NaN is not positive either.
        if (!(pivot > 0 && pivot > Tolerance * diagonal)) {
            if (j > 0) RaiseNotPositiveDefinite();
            throw EMathError("Cholesky Decomposition ([0,0]): Matrix is not positive definite!");
        }
        least = std::min(least, pivot / diagonal);
        M[j][j] = Sqrt(M[j][j]);
    }
    return least;
}

void CholeskySolve(const TKxDoubledMatrix& U, std::span<TKxDoubled> B) {
    for (std::size_t i = 0; i < B.size(); ++i) {
        for (std::size_t k = 0; k < i; ++k) B[i] -= U[k][i] * B[k];
        B[i] = B[i] / U[i][i];
    }
    CholeskySolveUpper(U, B);
}

void CholeskySolveUpper(const TKxDoubledMatrix& U, std::span<TKxDoubled> B) {
    for (std::size_t i = B.size(); i-- > 0;) {
        for (std::size_t k = i + 1; k < B.size(); ++k) B[i] -= U[i][k] * B[k];
        B[i] = B[i] / U[i][i];
    }
}

} // namespace kx
