#include <kxgraph/qt/Kxqtclip.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace kx::qt {

namespace {

/// One side of a box: points with Distance >= 0 are inside.
struct TSide {
    double NormalX, NormalY, Offset;
    double Distance(const QPointF& P) const { return NormalX * P.x() + NormalY * P.y() + Offset; }
};

std::array<TSide, 4> SidesOf(const QRectF& Box) {
    return {{{1, 0, -Box.left()}, {-1, 0, Box.right()}, {0, 1, -Box.top()}, {0, -1, Box.bottom()}}};
}

bool IsInside(const QPointF& P, const QRectF& Box) {
    return P.x() >= Box.left() && P.x() <= Box.right() && P.y() >= Box.top() && P.y() <= Box.bottom();
}

/// Sutherland and Hodgman: one side of the box at a time.
void CutAtSide(const std::vector<QPointF>& Points, const TSide& Side, std::vector<QPointF>& Result) {
    Result.clear();
    if (Points.empty()) return;
    QPointF from = Points.back();
    double before = Side.Distance(from);
    for (const QPointF& to : Points) {
        const double here = Side.Distance(to);
        if ((before < 0) != (here < 0)) Result.push_back(from + (to - from) * (before / (before - here)));
        if (here >= 0) Result.push_back(to);
        from = to;
        before = here;
    }
}

/// Liang and Barsky: the part of From..To in the box as two parameters; false when there is none.
bool PartInside(const QPointF& From, const QPointF& To, const std::array<TSide, 4>& Sides, double& Begin,
                double& End) {
    Begin = 0;
    End = 1;
    for (const TSide& side : Sides) {
        const double a = side.Distance(From), b = side.Distance(To);
        if (a < 0 && b < 0) return false;
        if (a < 0)
            Begin = std::max(Begin, a / (a - b));
        else if (b < 0)
            End = std::min(End, a / (a - b));
    }
    return Begin <= End;
}

} // namespace

bool AllInside(std::span<const QPointF> Points, const QRectF& Box) {
    return std::ranges::all_of(Points, [&Box](const QPointF& P) { return IsInside(P, Box); });
}

void CutPolygon(std::vector<QPointF>& Points, std::vector<QPointF>& Spare, const QRectF& Box) {
    for (const TSide& side : SidesOf(Box)) {
        CutAtSide(Points, side, Spare);
        Points.swap(Spare);
    }
}

void ForPiecesInside(std::span<const QPointF> Line, const QRectF& Box, std::vector<QPointF>& Piece,
                     const std::function<void(std::span<const QPointF>, double)>& Paint) {
    const auto sides = SidesOf(Box);
    double length = 0, lengthBefore = 0;
    Piece.clear();
    const auto finish = [&] {
        if (Piece.size() > 1) Paint(Piece, lengthBefore);
        Piece.clear();
    };
    for (std::size_t i = 1; i < Line.size(); ++i) {
        const QPointF from = Line[i - 1], way = Line[i] - from;
        const double whole = std::hypot(way.x(), way.y());
        double begin, end;
        if (PartInside(from, Line[i], sides, begin, end)) {
            if (begin > 0) finish();
            if (Piece.empty()) {
                Piece.push_back(from + way * begin);
                lengthBefore = length + whole * begin;
            }
            Piece.push_back(end < 1 ? from + way * end : Line[i]);
            if (end < 1) finish();
        } else {
            finish();
        }
        length += whole;
    }
    finish();
}

} // namespace kx::qt
