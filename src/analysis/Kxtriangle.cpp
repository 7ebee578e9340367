#include <kxgraph/analysis/Kxtriangle.h>

#include <kxgraph/analysis/Kxderivatives.h>

#include <cmath>
#include <cstddef>

namespace kx {

namespace {

/// Reflects Column from row First on, along Axis, whose square is Square.
void Reflect(std::span<const double> Axis, double Square, std::span<double> Column) {
    double product = 0;
    for (std::size_t i = 0; i < Axis.size(); ++i) product += Axis[i] * Column[i];
    const double factor = 2 * product / Square;
    for (std::size_t i = 0; i < Axis.size(); ++i) Column[i] -= factor * Axis[i];
}

} // namespace

void Triangulate(TKxMatrixColumns& Columns, std::vector<double>& Right) {
    std::vector<double> axis;
    for (std::size_t k = 0; k < Columns.size(); ++k) {
        const auto below = std::span(Columns[k]).subspan(k);
        const double length = std::copysign(LengthOf(below), below[0]);
        axis.assign(below.begin(), below.end());
        axis[0] += length;
        double square = 0;
        for (const double v : axis) square += v * v;
        if (square > 0) {
            for (std::size_t j = k + 1; j < Columns.size(); ++j)
                Reflect(axis, square, std::span(Columns[j]).subspan(k));
            Reflect(axis, square, std::span(Right).subspan(k));
        }
        Columns[k].resize(k + 1);
        Columns[k][k] = -length;
    }
}

std::vector<double> SolveTriangle(const TKxMatrixColumns& Triangle, std::span<const double> Right) {
    std::vector<double> solution(Right.begin(), Right.begin() + std::ptrdiff_t(Triangle.size()));
    for (std::size_t k = Triangle.size(); k-- > 0;) {
        const double pivot = Triangle[k][k];
        solution[k] = pivot == 0 ? 0 : solution[k] / pivot;
        for (std::size_t i = 0; i < k; ++i) solution[i] -= Triangle[k][i] * solution[k];
    }
    return solution;
}

std::vector<double> SolveTransposed(const TKxMatrixColumns& Triangle, std::span<const double> Right) {
    std::vector<double> solution(Right.begin(), Right.begin() + std::ptrdiff_t(Triangle.size()));
    for (std::size_t k = 0; k < Triangle.size(); ++k) {
        for (std::size_t i = 0; i < k; ++i) solution[k] -= Triangle[k][i] * solution[i];
        const double pivot = Triangle[k][k];
        solution[k] = pivot == 0 ? 0 : solution[k] / pivot;
    }
    return solution;
}

} // namespace kx
