#pragma once
// Cutting of lines and areas that reach far outside, before they meet a painter whose fixed-point arithmetic
// would overflow on them.

#include <QPointF>
#include <QRectF>

#include <functional>
#include <span>
#include <vector>

namespace kx::qt {

/// Whether every point lies in Box.
bool AllInside(std::span<const QPointF> Points, const QRectF& Box);

/// Cuts the closed polygon to Box, in place; edges along Box may coincide, which the even-odd rule forgives.
void CutPolygon(std::vector<QPointF>& Points, std::vector<QPointF>& Spare, const QRectF& Box);

/// Calls Paint for every connected piece of the line that lies in Box, with the length of the line before it.
/// Piece is storage for the pieces.
void ForPiecesInside(std::span<const QPointF> Line, const QRectF& Box, std::vector<QPointF>& Piece,
                     const std::function<void(std::span<const QPointF>, double)>& Paint);

} // namespace kx::qt
