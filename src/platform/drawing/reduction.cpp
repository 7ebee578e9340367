#include <kxgraph/platform/drawing/reduction.h>

#include <algorithm>

namespace kx {

namespace {

/// Gathers the indexes to keep, which come in ascending order, as ranges and copies each range at once.
template <class P>
class TKeeper {
public:
    TKeeper(std::span<const P> Points, std::vector<P>& Kept) : FPoints(Points), FKept(Kept) {}

    /// Keeps First..Last and the neighbours of both.
    void Keep(std::size_t First, std::size_t Last) {
        const std::size_t begin = First > 0 ? First - 1 : 0;
        if (begin > FEnd) {
            Flush();
            FBegin = begin;
        }
        FEnd = std::min(Last + 2, FPoints.size());
    }
    void Flush() { FKept.insert(FKept.end(), FPoints.begin() + FBegin, FPoints.begin() + FEnd); }

private:
    std::span<const P> FPoints;
    std::vector<P>& FKept;
    std::size_t FBegin = 0, FEnd = 0;
};

template <class P>
void Reduce(std::span<const P> Points, std::vector<P>& Kept) {
    Kept.clear();
    TKeeper keeper(Points, Kept);
    const std::size_t count = Points.size();
    for (std::size_t next = 0; next < count;) {
        const std::size_t first = next;
        const auto x = Points[first].X;
        std::size_t highest = first, lowest = first;
        auto top = Points[first].Y, bottom = top;
        while (++next < count && Points[next].X == x) {
            const auto y = Points[next].Y;
            if (y < top) {
                top = y;
                highest = next;
            } else if (y > bottom) {
                bottom = y;
                lowest = next;
            }
        }
        const std::size_t last = next - 1;
        if (last - first < 4) {
            keeper.Keep(first, last); // the ends and their neighbours are all there is
            continue;
        }
        const auto [early, late] = std::minmax(highest, lowest);
        for (std::size_t index : {first, early, late, last}) keeper.Keep(index, index);
    }
    keeper.Flush();
}

} // namespace

void ReducePolyline(std::span<const TPoint> Points, std::vector<TPoint>& Kept) { Reduce(Points, Kept); }

void ReducePolyline(std::span<const TRealPoint> Points, std::vector<TRealPoint>& Kept) {
    Reduce(Points, Kept);
}

} // namespace kx
