#include <kxgraph/platform/drawing/simplification.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace kx {

namespace {

double Cross(TRealPoint A, TRealPoint B) { return A.X * B.Y - A.Y * B.X; }

/// Keeps the ends of straight stretches. From the last point kept, those behind it are seen in directions; as
/// long as one direction passes near to all of them, and each is as far as those before, the last of them
/// stands for all.
class TStraightener {
public:
    explicit TStraightener(std::vector<TRealPoint>& Kept) : FKept(Kept) {}

    void Add(TRealPoint P) {
        if (FKept.empty()) return Keep(P);
        if (!Continues(P)) {
            Keep(FLast);
            Continues(P);
        }
        FLast = P;
        FHasLast = true;
    }
    void End() {
        if (FHasLast) FKept.push_back(FLast);
    }

private:
    void Keep(TRealPoint P) {
        FKept.push_back(P);
        FHasLast = FHasCone = false;
        FReach = 0;
    }
    /// Whether a straight line to P passes near to all points since the last one kept. P counts from then on.
    bool Continues(TRealPoint P) {
        const TRealPoint way = P - FKept.back();
        const double square = way.X * way.X + way.Y * way.Y;
        if (square < FReach) return false;
        if (FHasCone && (Cross(FRight, way) < 0 || Cross(way, FLeft) < 0)) return false;
        FReach = square;
        constexpr double CNear = CStraightness * CStraightness;
        if (square <= CNear) return true;
        const double sine = CStraightness / std::sqrt(square), cosine = std::sqrt(1 - sine * sine);
        const TRealPoint left{way.X * cosine - way.Y * sine, way.X * sine + way.Y * cosine};
        const TRealPoint right{way.X * cosine + way.Y * sine, way.Y * cosine - way.X * sine};
        if (!FHasCone || Cross(FLeft, left) < 0) FLeft = left;
        if (!FHasCone || Cross(FRight, right) > 0) FRight = right;
        FHasCone = true;
        return true;
    }

    std::vector<TRealPoint>& FKept;
    TRealPoint FLast, FLeft, FRight; // of the cone of directions
    double FReach = 0;               // the square of the way to the farthest point
    bool FHasLast = false, FHasCone = false;
};

} // namespace

void SimplifyLine(std::span<const TRealPoint> Points, int ColumnsPerPixel, std::vector<TRealPoint>& Kept) {
    Kept.clear();
    TStraightener line(Kept);
    const std::size_t count = Points.size();
    for (std::size_t next = 0; next < count;) {
        const std::size_t first = next;
        const double column = ColumnOf(Points[first].X, ColumnsPerPixel);
        std::size_t highest = first, lowest = first;
        while (++next < count && ColumnsPerPixel > 0 && ColumnOf(Points[next].X, ColumnsPerPixel) == column) {
            if (Points[next].Y < Points[highest].Y) highest = next;
            if (Points[next].Y > Points[lowest].Y) lowest = next;
        }
        std::size_t kept = count;
        for (const std::size_t i : {first, std::min(highest, lowest), std::max(highest, lowest), next - 1}) {
            if (i != kept) line.Add(Points[i]);
            kept = i;
        }
    }
    line.End();
}

} // namespace kx
