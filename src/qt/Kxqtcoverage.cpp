#include <kxgraph/qt/Kxqtcoverage.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace kx::qt {

namespace {

constexpr double CNowhere = std::numeric_limits<double>::infinity();
constexpr int CFinest = 32, CCoarsest = 8; // bars a pixel; wide pens need fewer
constexpr double CBarsAPen = 96;

} // namespace

bool TLineCoverage::IsFor(std::span<const QPointF> Line) {
    const auto byX = [](const QPointF& A, const QPointF& B) { return A.x() < B.x(); };
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
    for (int x = std::max(left, Window.Left); x < std::min(right, Window.Right); ++x) {
        FSteps.assign(std::size_t(Window.Height()) + 2, 0);
        const auto bars = std::span(FWide).subspan(std::size_t(x - left) * std::size_t(FParts));
        for (const TBar& bar : bars.first(std::size_t(FParts))) AddBar(bar, Window);
        Blend(Image, Window, x, Color);
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

/// From the middle of the line to what a round pen covers. The middle of a bar lies between two halves.
void TLineCoverage::Widen(double Radius) {
    FReach.clear();
    for (double aside = 0.25 / FParts; aside < Radius; aside += 0.5 / FParts)
        FReach.push_back(std::sqrt(Radius * Radius - aside * aside));
    FWide.assign(FHalves.size() / 2, TBar{CNowhere, -CNowhere});
    const auto count = std::ptrdiff_t(FHalves.size()), reach = std::ptrdiff_t(FReach.size());
    for (std::ptrdiff_t middle = 1; middle < count; middle += 2) {
        TBar wide{CNowhere, -CNowhere};
        const auto take = [&wide](const TBar& Half, double Pen) {
            wide.Top = std::min(wide.Top, Half.Top - Pen);
            wide.Bottom = std::max(wide.Bottom, Half.Bottom + Pen);
        };
        for (std::ptrdiff_t i = 0; i < std::min(reach, middle); ++i)
            take(FHalves[std::size_t(middle - 1 - i)], FReach[std::size_t(i)]);
        for (std::ptrdiff_t i = 0; i < std::min(reach, count - middle); ++i)
            take(FHalves[std::size_t(middle + i)], FReach[std::size_t(i)]);
        FWide[std::size_t(middle / 2)] = wide;
    }
}

/// Row y of the bar is covered by what lies behind Top less what lies behind Bottom; either grows from row to
/// row by two steps.
void TLineCoverage::AddBar(TBar Bar, const TRect& Window) {
    const double top = std::clamp(Bar.Top - Window.Top, 0.0, double(Window.Height())),
                 bottom = std::clamp(Bar.Bottom - Window.Top, 0.0, double(Window.Height()));
    if (!(top < bottom)) return;
    const auto add = [this](double Edge, double Sign) {
        const auto row = std::size_t(Edge);
        const double part = Edge - double(row);
        FSteps[row] += float(Sign * (1 - part));
        FSteps[row + 1] += float(Sign * part);
    };
    add(top, 1);
    add(bottom, -1);
}

void TLineCoverage::Blend(const TPixels& Image, const TRect& Window, int X, QRgb Color) {
    float covered = 0;
    const float toParts = 256.0f / float(FParts);
    QRgb* pixel = Image.At(X, Window.Top);
    for (int y = 0; y < Window.Height(); ++y, pixel += Image.Stride) {
        covered += FSteps[std::size_t(y)];
        Mix(*pixel, Color, int(covered * toParts + 0.5f));
    }
}

} // namespace kx::qt
