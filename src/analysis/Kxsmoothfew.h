#pragma once
// Triangular averages over windows of few points, for Kxsmoothascending alone.

#include <kxgraph/numeric/Kxwide.h>

#include <algorithm>
#include <cstddef>

namespace kx {

/// The points and the half width of the window. Powers of two bring y and distances to where no sum
/// overflows.
struct TSmoothPoints {
    const double *X, *Y;
    std::size_t Count;
    double M;
    double XScale, YScale;

    KX_INLINED double HalfWidth() const { return M * XScale; }
    KX_INLINED double DistanceOf(std::size_t i, std::size_t From) const { return (X[i] - X[From]) * XScale; }
    KX_INLINED double ScaledY(std::size_t i) const { return Y[i] * YScale; }
    KX_INLINED bool AreNear(std::size_t Lower, std::size_t Upper) const { return X[Upper] - X[Lower] < M; }
    /// The mean that weights, and values times weights, of the other points give, in units of HalfWidth.
    KX_INLINED double Mean(std::size_t i, double Weights, double Values) const {
        const double mean = (HalfWidth() * ScaledY(i) + Values) / (HalfWidth() + Weights) * (1 / YScale);
        return Weights > 0 ? mean : Y[i];
    }
    /// The first point from From on that is not near i, which all points between are.
    std::size_t EndNear(std::size_t i, std::size_t From) const {
        std::size_t end = From, step = 1;
        for (; end + step <= Count && AreNear(i, end + step - 1); step *= 2) end += step;
        return std::size_t(std::partition_point(X + end, X + std::min(Count, end + step),
                                                [&](double x) { return x - X[i] < M; }) -
                           X);
    }
};

/// The mean at each point where no point has more than about a dozen neighbours on one side; else false, and
/// nothing is done.
bool SmoothFew(const TSmoothPoints& Points, double* Result);

} // namespace kx
