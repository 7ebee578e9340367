#include <kxgraph/qt/Kxqtcoverage.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace kx::qt {

namespace {

constexpr double CNowhere = std::numeric_limits<double>::infinity();
constexpr int CFinest = 32, CCoarsest = 8; // bars a pixel; wide pens need fewer
constexpr double CBarsAPen = 96;
constexpr std::size_t CWidenedTogether = 1024; // bars that stay near to the processor

/// What the pen reaches upward from two places beside the middles of bars.
void KeepReached(float* Reached, std::array<const float*, 2> Edges, std::size_t Count, float Pen) {
    const float *left = Edges[0], *right = Edges[1];
    for (std::size_t i = 0; i < Count; ++i) {
        const float edge = (right[i] < left[i] ? right[i] : left[i]) - Pen;
        Reached[i] = edge < Reached[i] ? edge : Reached[i];
    }
}

} // namespace

bool TLineCoverage::IsFor(std::span<const TRealPoint> Line) {
    const auto byX = [](TRealPoint A, TRealPoint B) { return A.X < B.X; };
    return std::is_sorted(Line.begin(), Line.end(), byX) || std::is_sorted(Line.rbegin(), Line.rend(), byX);
}

void TLineCoverage::Paint(const TPixels& Image, const TRect& Window, std::span<const QPointF> Line,
                          int Columns, double Width, QRgb Color) {
    FParts = std::clamp(int(CBarsAPen / Width), CCoarsest, std::clamp(Columns, CCoarsest, CFinest));
    const double radius = Width / 2;
    const int around = int(std::ceil(radius)) + 1;
    const auto [low, high] = std::minmax({Line.front().x(), Line.back().x()});
    if (high < Window.Left - around || low > Window.Right + around) return;
    const double first = Window.Left, last = Window.Right;
    const int left = int(std::floor(std::clamp(low, first, last))) - around,
              right = int(std::ceil(std::clamp(high, first, last))) + around;
    FFirst = left;
    FHalves.assign(std::size_t(right - left) * std::size_t(2 * FParts), TBar{CNowhere, -CNowhere});
    Gather(Line);
    Widen(radius);
    const TRect part = Window.Intersected({left, Window.Top, right, Window.Bottom});
    for (int x = part.Left; x < part.Right; x += CTogether) {
        const TRect columns{x, part.Top, std::min(x + CTogether, part.Right), part.Bottom};
        PaintColumns(Image, columns, x - left, Color);
    }
}

void TLineCoverage::Gather(std::span<const QPointF> Line) {
    AddSegment(Line[0], Line[0]);
    for (std::size_t i = 1; i < Line.size(); ++i)
        Line[i - 1].x() <= Line[i].x() ? AddSegment(Line[i - 1], Line[i]) : AddSegment(Line[i], Line[i - 1]);
}

/// From has the smaller x.
void TLineCoverage::AddSegment(QPointF From, QPointF To) {
    const double begin = (From.x() - FFirst) * 2 * FParts, end = (To.x() - FFirst) * 2 * FParts;
    const double last = double(FHalves.size()) - 1;
    if (end < 0 || begin > last + 1) return;
    const int first = int(std::clamp(std::floor(begin), 0.0, last)),
              behind = int(std::clamp(std::floor(end), 0.0, last));
    const double slope = end > begin ? (To.y() - From.y()) / (end - begin) : 0;
    for (int i = first; i <= behind; ++i) {
        const double a = i <= begin ? From.y() : From.y() + slope * (i - begin);
        const double b = i + 1 >= end ? To.y() : From.y() + slope * (i + 1 - begin);
        TBar& bar = FHalves[std::size_t(i)];
        bar.Top = std::min({bar.Top, a, b});
        bar.Bottom = std::max({bar.Bottom, a, b});
    }
}

/// From the middle of the line to what a round pen covers. The middle of a bar lies between two halves, the
/// left one of them even.
void TLineCoverage::Widen(double Radius) {
    FReach.clear();
    const auto next = [this] { return (0.25 + 0.5 * double(FReach.size())) / FParts; };
    while (next() < Radius) FReach.push_back(float(std::sqrt(Radius * Radius - next() * next())));
    const std::size_t count = FHalves.size() / 2, beyond = FReach.size() / 2 + 1;
    FEdges.resize(4);
    for (auto& edges : FEdges) edges.assign(count + 2 * beyond, float(CNowhere));
    for (std::size_t i = 0; i < FHalves.size(); ++i) {
        FEdges[i % 2][beyond + i / 2] = float(FHalves[i].Top);
        FEdges[2 + i % 2][beyond + i / 2] = -float(FHalves[i].Bottom);
    }
    FTops.assign(count, float(CNowhere));
    FBottoms = FTops;
    for (std::size_t first = 0; first < count; first += CWidenedTogether) {
        const std::size_t bars = std::min(CWidenedTogether, count - first);
        for (std::size_t i = 0; i < FReach.size(); ++i) {
            const std::size_t left = first + beyond - (i + 1) / 2, right = first + beyond + i / 2 + i % 2;
            const auto under = [&](std::size_t Edge) {
                const std::vector<float>&even = FEdges[Edge], &odd = FEdges[Edge + 1];
                return std::array{(i % 2 ? odd : even).data() + left, (i % 2 ? even : odd).data() + right};
            };
            KeepReached(FTops.data() + first, under(0), bars, FReach[i]);
            KeepReached(FBottoms.data() + first, under(2), bars, FReach[i]);
        }
    }
    FWide.resize(count);
    for (std::size_t i = 0; i < count; ++i) FWide[i] = {FTops[i], -FBottoms[i]};
}

/// Paints the columns of Window, at most CTogether; the first one is Column of those that bars are known of.
void TLineCoverage::PaintColumns(const TPixels& Image, const TRect& Window, int Column, QRgb Color) {
    const auto bars = std::span(FWide).subspan(std::size_t(Column) * std::size_t(FParts),
                                               std::size_t(Window.Width()) * std::size_t(FParts));
    TBar all{CNowhere, -CNowhere};
    for (TBar& bar : bars) {
        bar.Top = std::max(bar.Top, double(Window.Top));
        bar.Bottom = std::min(bar.Bottom, double(Window.Bottom));
        if (bar.Top < bar.Bottom) all = {std::min(all.Top, bar.Top), std::max(all.Bottom, bar.Bottom)};
    }
    if (all.Top >= all.Bottom) return;
    const int top = int(std::floor(all.Top)), bottom = int(std::ceil(all.Bottom));
    FRows.resize(std::max(FRows.size(), std::size_t(bottom - top) + 2));
    for (int y = top; y < bottom + 2; ++y) FRows[std::size_t(y - top)].IsStep = false;
    for (std::size_t i = 0; i < bars.size(); ++i)
        if (bars[i].Top < bars[i].Bottom) AddBar(bars[i], top, i / std::size_t(FParts));
    TCovered covered{};
    for (int y = top; y < bottom; ++y) {
        const TRow& row = FRows[std::size_t(y - top)];
        if (row.IsStep) Step(covered, row);
        MixRow(Image.At(Window.Left, y), std::span(covered.Of256).first(std::size_t(Window.Width())), Color);
    }
}

void TLineCoverage::Step(TCovered& Covered, const TRow& Row) const {
    const float to256 = 256.0f / float(FParts);
    for (std::size_t i = 0; i < CTogether; ++i) {
        Covered.Bars[i] += Row.Steps[i];
        // Never leaves 0..256, and in one vector. NOLINTNEXTLINE(bugprone-incorrect-roundings)
        Covered.Of256[i] = unsigned(int(Covered.Bars[i] * to256 + 0.5f));
    }
}

/// Row y of the bar is covered by what lies behind Top less what lies behind Bottom; either grows from row to
/// row by two steps. Rows are counted from Top.
void TLineCoverage::AddBar(TBar Bar, int Top, std::size_t Column) {
    const auto add = [&](double Edge, double Sign) {
        const auto at = std::size_t(Edge - Top);
        const double part = Edge - Top - double(at);
        for (const auto& [row, step] : {std::pair{at, 1 - part}, {at + 1, part}}) {
            if (!FRows[row].IsStep) FRows[row] = {.IsStep = true};
            FRows[row].Steps[Column] += float(Sign * step);
        }
    };
    add(Bar.Top, 1);
    add(Bar.Bottom, -1);
}

} // namespace kx::qt
