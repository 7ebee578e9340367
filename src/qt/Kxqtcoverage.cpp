#include <kxgraph/qt/Kxqtcoverage.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace kx::qt {

namespace {

constexpr float CNowhere = std::numeric_limits<float>::infinity();
// Bars a pixel: wide pens need fewer, and so does what goes up and down within each pixel of a window.
constexpr int CFinest = 32, CCoarsest = 8, CThronged = 4;
constexpr double CBarsAPen = 96;
constexpr int CAhead = 6; // rows

/// What the pen reaches upward from two places beside the middles of bars.
void KeepReached(float* Reached, std::array<const float*, 2> Edges, std::size_t Count, float Pen) {
    const float *left = Edges[0], *right = Edges[1];
    for (std::size_t i = 0; i < Count; ++i) {
        const float edge = (right[i] < left[i] ? right[i] : left[i]) - Pen;
        Reached[i] = edge < Reached[i] ? edge : Reached[i];
    }
}

/// Whether a line goes up and down within each pixel, so far that hardly any is covered in part.
bool IsThronged(std::span<const QPointF> Line) {
    constexpr double CPoints = 3, CTravel = 16; // a pixel
    const double wide = std::abs(Line.back().x() - Line.front().x());
    if (double(Line.size()) < CPoints * wide) return false;
    double travel = 0;
    for (std::size_t i = 1; i < Line.size(); ++i) travel += std::abs(Line[i].y() - Line[i - 1].y());
    return travel > CTravel * wide;
}

int BarsFor(std::span<const QPointF> Line, int Columns, double Width) {
    if (Columns <= CCoarsest && IsThronged(Line)) return CThronged;
    return std::clamp(int(CBarsAPen / Width), CCoarsest, std::clamp(Columns, CCoarsest, CFinest));
}

} // namespace

bool TLineCoverage::IsFor(std::span<const TRealPoint> Line) {
    const auto byX = [](TRealPoint A, TRealPoint B) { return A.X < B.X; };
    return std::is_sorted(Line.begin(), Line.end(), byX) || std::is_sorted(Line.rbegin(), Line.rend(), byX);
}

void TLineCoverage::Paint(const TPixels& Image, const TRect& Window, std::span<const QPointF> Line,
                          int Columns, double Width, QRgb Color) {
    FParts = BarsFor(Line, Columns, Width);
    KeepReach(Width / 2);
    FLine = Line;
    FPassed = 0;
    FIsBackward = Line.back().x() < Line.front().x();
    const double around = std::ceil(Width / 2) + 1, first = Window.Left, last = Window.Right;
    const auto within = [&](double X, double Further) { return int(std::clamp(X + Further, first, last)); };
    const int right = within(std::ceil(Point(Line.size() - 1).x()), around);
    for (int x = within(std::floor(Point(0).x()), -around); x < right;) {
        const int behind = std::min(x + CTogether - Image.BehindLine(x), right); // each line of a cache once
        const TRect columns{std::exchange(x, behind), Window.Top, behind, Window.Bottom};
        if (!Gather(columns.Left, columns.Width())) continue;
        Widen();
        PaintColumns(Image, columns, Color);
    }
}

/// The middle of a bar lies between two halves, the left one of them even.
void TLineCoverage::KeepReach(double Radius) {
    FReach.clear();
    const auto next = [this] { return (0.25 + 0.5 * double(FReach.size())) / FParts; };
    while (next() < Radius) FReach.push_back(float(std::sqrt(Radius * Radius - next() * next())));
}

/// What the line passes in the bars of Columns pixels from Left and in those that the pen reaches from there;
/// whether there is anything.
bool TLineCoverage::Gather(int Left, int Columns) {
    const double beyond = double(Beyond()) / FParts;
    FFirst = Left - beyond;
    const double behind = Left + Columns + beyond;
    const std::size_t bars = std::size_t(Columns) * std::size_t(FParts), last = FLine.size() - 1;
    FTops.assign(bars, CNowhere);
    FBottoms.assign(bars, CNowhere);
    for (auto& edges : FEdges) edges.assign(bars + 2 * Beyond(), CNowhere);
    while (FPassed < last && Point(FPassed + 1).x() < FFirst) ++FPassed;
    if (Point(FPassed).x() > behind || Point(last).x() < FFirst) return false;
    AddSegment(Point(FPassed), Point(FPassed));
    for (std::size_t i = FPassed; i < last && Point(i).x() <= behind; ++i) AddSegment(Point(i), Point(i + 1));
    return true;
}

/// From has the smaller x.
void TLineCoverage::AddSegment(QPointF From, QPointF To) {
    const double begin = (From.x() - FFirst) * 2 * FParts, end = (To.x() - FFirst) * 2 * FParts;
    const double last = double(2 * FEdges[0].size()) - 1;
    if (end < 0 || begin > last + 1) return;
    const auto half = [last](double Place) { return std::size_t(std::clamp(Place, 0.0, last)); };
    const auto add = [this](std::size_t Half, double A, double B) {
        float &top = FEdges[Half % 2][Half / 2], &bottom = FEdges[2 + Half % 2][Half / 2];
        top = std::min(top, float(std::min(A, B)));
        bottom = std::min(bottom, -float(std::max(A, B)));
    };
    const std::size_t first = half(begin), behind = half(end);
    if (first == behind && begin >= 0 && end <= last + 1) return add(first, From.y(), To.y()); // as a rule
    const double slope = (To.y() - From.y()) / (end - begin);
    for (std::size_t i = first; i <= behind; ++i) {
        const double left = double(i), right = left + 1;
        const double a = left <= begin ? From.y() : From.y() + slope * (left - begin);
        const double b = right >= end ? To.y() : From.y() + slope * (right - begin);
        add(i, a, b);
    }
}

/// From the middle of the line to what a round pen covers.
void TLineCoverage::Widen() {
    for (std::size_t i = 0; i < FReach.size(); ++i) {
        const std::size_t left = Beyond() - (i + 1) / 2, right = Beyond() + i / 2 + i % 2;
        const auto under = [&](std::size_t Edge) {
            const std::vector<float>&even = FEdges[Edge], &odd = FEdges[Edge + 1];
            return std::array{(i % 2 ? odd : even).data() + left, (i % 2 ? even : odd).data() + right};
        };
        KeepReached(FTops.data(), under(0), FTops.size(), FReach[i]);
        KeepReached(FBottoms.data(), under(2), FTops.size(), FReach[i]);
    }
}

/// Paints the columns of Window, at most CTogether.
void TLineCoverage::PaintColumns(const TPixels& Image, const TRect& Window, QRgb Color) {
    const auto within = [&](std::size_t Bar) {
        return TBar{std::max(FTops[Bar], float(Window.Top)), std::min(-FBottoms[Bar], float(Window.Bottom))};
    };
    TBar all{CNowhere, -CNowhere};
    for (std::size_t i = 0; i < FTops.size(); ++i) {
        const TBar bar = within(i);
        if (bar.Top < bar.Bottom) all = {std::min(all.Top, bar.Top), std::max(all.Bottom, bar.Bottom)};
    }
    if (all.Top >= all.Bottom) return;
    const int top = int(std::floor(all.Top)), bottom = int(std::ceil(all.Bottom));
    FRows.resize(std::max(FRows.size(), std::size_t(bottom - top) + 2));
    for (int y = top; y < bottom + 2; ++y) FRows[std::size_t(y - top)].IsStep = false;
    for (std::size_t i = 0; i < FTops.size(); ++i)
        if (const TBar bar = within(i); bar.Top < bar.Bottom) AddBar(bar, top, i / std::size_t(FParts));
    TCovered covered{};
    for (int y = top; y < bottom; ++y) {
        const TRow& row = FRows[std::size_t(y - top)];
        if (row.IsStep) Step(covered, row);
        if (y + CAhead < bottom)
            for (int x = 0; x < Window.Width(); x += CMixed)
                __builtin_prefetch(Image.At(Window.Left + x, y + CAhead), 1);
        PaintRow(Image.At(Window.Left, y), covered, Window.Width(), Color);
    }
}

void TLineCoverage::Step(TCovered& Covered, const TRow& Row) const {
    const float to256 = 256.0f / float(FParts);
    for (std::size_t i = 0; i < CTogether; ++i) {
        Covered.Bars[i] += Row.Steps[i];
        // Never leaves 0..256, and in one vector. NOLINTNEXTLINE(bugprone-incorrect-roundings)
        Covered.Of256[i] = unsigned(int(Covered.Bars[i] * to256 + 0.5f));
    }
    for (std::size_t i = 0; i < Covered.Any.size(); ++i) {
        unsigned any = 0, all = 256;
        for (std::size_t j = i * CMixed; j < (i + 1) * CMixed; ++j) {
            any |= Covered.Of256[j];
            all &= Covered.Of256[j];
        }
        Covered.Any[i] = any;
        Covered.All[i] = all;
    }
}

/// Most rows of a dense line are covered all over or not at all.
void TLineCoverage::PaintRow(QRgb* First, const TCovered& Covered, int Columns, QRgb Color) {
    for (int x = 0; x < Columns; x += CMixed) {
        const auto mixed = std::size_t(x / CMixed), width = std::size_t(std::min(CMixed, Columns - x));
        if (Covered.All[mixed] == 256)
            std::fill_n(First + x, width, Color);
        else if (Covered.Any[mixed] > 0)
            MixPartly(First + x, std::span(Covered.Of256).subspan(std::size_t(x), width), Color);
    }
}

/// Row y of the bar is covered by what lies behind Top less what lies behind Bottom; either grows from row to
/// row by two steps. Rows are counted from Top.
void TLineCoverage::AddBar(TBar Bar, int Top, std::size_t Column) {
    const auto add = [&](float Edge, float Sign) {
        const float below = Edge - float(Top);
        const int at = int(below);
        const float part = below - float(at);
        TRow* const rows = &FRows[std::size_t(at)];
        for (TRow* row : {rows, rows + 1})
            if (!row->IsStep) *row = {.IsStep = true};
        rows[0].Steps[Column] += Sign * (1 - part);
        rows[1].Steps[Column] += Sign * part;
    };
    add(Bar.Top, 1);
    add(Bar.Bottom, -1);
}

} // namespace kx::qt
