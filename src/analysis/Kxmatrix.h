#pragma once
// Matrices as arrays of rows, and two solvers of linear systems: one for band matrices in double precision,
// one for symmetric positive definite matrices in pairs of doubles.

#include <kxgraph/numeric/Kxconsts.h>
#include <kxgraph/numeric/Kxdoubled.h>

#include <memory>
#include <span>
#include <vector>

namespace kx {

/// A dynamic array of dynamic arrays of double: [row][column], zero-based, rows of any length. As with all
/// dynamic arrays assignment shares, and resizing makes the array of rows its holder's own (not the rows,
/// until they are resized themselves).
class TKxRealMatrix {
public:
    TKxRealMatrix() = default;
    TKxRealMatrix(int Rows, int Columns) { SetLength(Rows, Columns); }

    /// The number of rows.
    int Length() const { return FRows ? static_cast<int>(FRows->size()) : 0; }
    /// The row Index, unchecked.
    TKxRealArray& operator[](int Index) const { return (*FRows)[static_cast<std::size_t>(Index)]; }

    /// Changes the number of rows; new ones are empty. A negative one counts as 0.
    void SetLength(int Rows);
    /// Changes the number of rows and the length of each; new elements are zero.
    void SetLength(int Rows, int Columns);

private:
    std::shared_ptr<std::vector<TKxRealArray>> FRows;
};

/// Solves A x = B for a band matrix with N rows, Lower diagonals on the left of the main one and Upper on its
/// right; B (N values) is replaced by the solution and A by its factors. Row i of A holds the elements of the
/// matrix row from column i - Lower to column i + Upper: A[i][Lower] is the diagonal one.
///
/// Elimination without pivoting, in place. A pivot below about 2.2e-307 leaves its column as it is, without
/// an error. Meant for symmetric bands, Lower = Upper: the substitutions go by Lower in both directions.
///
/// Raises EMathError "Not enough data!" for N < 3 or Lower + Upper > N, EMathError "Matrix:
/// Diagonal-Dimensions must be positive!" for a negative Lower or Upper, ERangeError when A or B has too few
/// rows or A a row of less than Lower + Upper + 1 elements, and EZeroDivide, EOverflow or EInvalidOp when
/// there is no finite solution.
void SolveBand(int N, int Lower, int Upper, TKxRealMatrix& A, TKxRealArray& B);

/// [row][column]
using TKxDoubledMatrix = std::vector<std::vector<TKxDoubled>>;

/// Decomposes a symmetric positive definite matrix, of which the upper triangle is read and replaced by U,
/// with the transpose of U times U = M. Returns the least ratio of a pivot to the diagonal element that it is
/// left from: 1 for orthogonal columns, about 2^-104 where nothing but rounding noise is left.
///
/// A pivot counts as positive when it exceeds Tolerance times its diagonal element. Raises EMathError
/// "Cholesky Decomposition: Matrix is not square!", and "Cholesky Decomposition ([0,0]): Matrix is not
/// positive definite!" or the same with "[i,i]" (literally) for the first pivot or a later one. An empty
/// matrix is left as it is.
double CholeskyDecomposition(TKxDoubledMatrix& M, double Tolerance = 0);
/// Raises the error of a pivot after the first, for callers who know beforehand.
[[noreturn]] void RaiseNotPositiveDefinite();

/// Replaces B by the solution of M x = B; U is what CholeskyDecomposition made of M, B has as many values.
void CholeskySolve(const TKxDoubledMatrix& U, std::span<TKxDoubled> B);
/// The second half of it: replaces B by the solution of U x = B.
void CholeskySolveUpper(const TKxDoubledMatrix& U, std::span<TKxDoubled> B);

} // namespace kx
