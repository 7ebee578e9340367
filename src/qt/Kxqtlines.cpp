#include <kxgraph/qt/Kxqtlines.h>

#include <array>
#include <cstdlib>
#include <utility>

namespace kx::qt {

namespace {

constexpr std::array CDash{9, 3}, CDot{3, 3};
constexpr std::array CDashDot{9, 3, 3, 3};
constexpr std::array CDashDotDot{9, 3, 3, 3, 3, 3};

struct TInterval {
    std::int64_t First, Last;
};

/// The steps in direction Sign from Start that lie in Low..High-1.
TInterval StepsInside(std::int64_t Start, int Sign, std::int64_t Low, std::int64_t High) {
    if (Sign > 0) return {Low - Start, High - 1 - Start};
    return {Start - (High - 1), Start - Low};
}

TPoint Saturated(TPoint P) {
    return {std::clamp(P.X, -CMaxPixel, CMaxPixel), std::clamp(P.Y, -CMaxPixel, CMaxPixel)};
}

} // namespace

std::span<const int> DashesOf(TPenStyle Style) {
    switch (Style) {
    case psDash: return CDash;
    case psDot: return CDot;
    case psDashDot: return CDashDot;
    case psDashDotDot: return CDashDotDot;
    default: return {};
    }
}

/// A line from its upper end: pixel i is i steps along the longer direction (Length of them) and the nearest
/// number of steps, the larger one of two, along the other.
struct TLineScanner::TSlope {
    TPoint Start;
    std::int64_t Length, Rise;
    int SignX, SignY;
    bool Steep;      // longer along Y
    bool Forward;    // travels away from Start
    TInterval Steps; // in the window along the longer direction, the end pixel left out
    TInterval Rises; // in the window along the other one

    std::int64_t RiseAt(std::int64_t Step) const {
        if (Step == 0) return 0;
        const auto length = std::uint64_t(Length);
        return std::int64_t((2 * std::uint64_t(Step) * std::uint64_t(Rise) + length) / (2 * length));
    }
};

/// The first step of one rise after another: (2 rise - 1) Length / (2 Rise), rounded up, without a division
/// for each.
class TLineScanner::TRises {
public:
    TRises(const TSlope& Line, std::int64_t From) : FLine(Line), FRise(From) {
        if (Line.Rise == 0 || From > Line.Rise) return;
        const auto length = std::uint64_t(Line.Length), twice = 2 * std::uint64_t(Line.Rise);
        FSteps = Line.Rise == 1 ? Line.Length : Line.Length / Line.Rise;
        FRest = 2 * (Line.Length - FSteps * Line.Rise);
        const std::uint64_t exact = std::uint64_t(2 * std::max<std::int64_t>(From, 1) - 1) * length;
        FNext = std::int64_t((exact + twice - 1) / twice);
        FSlack = std::int64_t(std::uint64_t(FNext) * twice - exact);
    }
    std::int64_t Next() {
        const std::int64_t rise = FRise++;
        if (rise == 0) return 0;
        if (rise > FLine.Rise) return FLine.Length + 1;
        const std::int64_t first = FNext;
        FNext += FSteps;
        FSlack -= FRest;
        if (FSlack < 0) {
            ++FNext;
            FSlack += 2 * FLine.Rise;
        }
        return first;
    }

private:
    const TSlope& FLine;
    std::int64_t FRise, FNext = 0, FSteps = 0; // steps from one rise to the next, and
    std::int64_t FRest = 0, FSlack = 0;        // in parts of a step, 2 Rise of them
};

TLineScanner::TLineScanner(const TRect& Window, TPenStyle Style, bool Join, std::vector<QRect>& Runs)
    : FWindow(Window), FJoin(Join), FRuns(Runs) {
    const auto dashes = DashesOf(Style);
    if (dashes.empty()) return;
    FPattern = 0;
    FPeriod = 0;
    bool on = true;
    for (const int length : dashes) {
        if (on) FPattern |= ((1u << length) - 1) << FPeriod;
        FPeriod += length;
        on = !on;
    }
}

void TLineScanner::Polyline(std::span<const TPoint> Points) {
    for (std::size_t i = 1; i < Points.size(); ++i) Segment(Points[i - 1], Points[i]);
}

void TLineScanner::Polygon(std::span<const TPoint> Points) {
    if (Points.empty()) return;
    const std::int64_t before = FDone;
    Polyline(Points);
    Segment(Points.back(), Points.front());
    if (FDone == before && FWindow.Contains(Points[0])) FRuns.emplace_back(Points[0].X, Points[0].Y, 1, 1);
}

void TLineScanner::Segment(TPoint From, TPoint To) {
    const TRect& window = FWindow;
    From = Saturated(From);
    To = Saturated(To);
    const bool forward = From.Y < To.Y || (From.Y == To.Y && From.X <= To.X);
    const TPoint start = forward ? From : To, end = forward ? To : From;
    const std::int64_t wide = std::abs(std::int64_t(end.X) - start.X), high = std::int64_t(end.Y) - start.Y;
    const std::int64_t length = std::max(wide, high);
    if (length > 0 && start.Y < window.Bottom && end.Y >= window.Top &&
        std::min(From.X, To.X) < window.Right && std::max(From.X, To.X) >= window.Left) {
        TSlope line{start, length, std::min(wide, high), end.X < start.X ? -1 : 1, 1, high > wide, forward,
                    {},    {}};
        line.Steps = StepsInside(start.X, line.SignX, window.Left, window.Right);
        line.Rises = StepsInside(start.Y, line.SignY, window.Top, window.Bottom);
        if (line.Steep) std::swap(line.Steps, line.Rises);
        line.Steps.First = std::max<std::int64_t>(line.Steps.First, forward ? 0 : 1);
        line.Steps.Last = std::min(line.Steps.Last, forward ? length - 1 : length);
        if (line.Steps.First <= line.Steps.Last) Scan(line);
    }
    FDone += length;
}

void TLineScanner::Scan(const TSlope& Line) {
    if (Line.Rise == 0) { // level or upright
        if (Line.Rises.First <= 0 && Line.Rises.Last >= 0) Run(Line, Line.Steps.First, Line.Steps.Last, 0);
        return;
    }
    std::int64_t rise = std::max(Line.Rises.First, Line.RiseAt(Line.Steps.First));
    TRises rises(Line, rise);
    std::int64_t next = rises.Next();
    for (; rise <= std::min(Line.Rises.Last, Line.Rise) && next <= Line.Steps.Last; ++rise) {
        const std::int64_t first = std::max(next, Line.Steps.First);
        next = rises.Next();
        if (first < next) Run(Line, first, std::min(next - 1, Line.Steps.Last), rise);
    }
}

void TLineScanner::Run(const TSlope& Line, std::int64_t First, std::int64_t Last, std::int64_t Rise) {
    if (FPeriod == 1) return Emit(Line, First, Last, Rise);
    constexpr std::int64_t CNone = -1;
    std::int64_t begin = CNone;
    auto place = int((FDone + (Line.Forward ? First : Line.Length - First)) % FPeriod);
    for (std::int64_t i = First; i <= Last; ++i) {
        const bool isOn = (FPattern >> place & 1) != 0;
        if (isOn && begin == CNone) begin = i;
        if (!isOn && begin != CNone) Emit(Line, std::exchange(begin, CNone), i - 1, Rise);
        if (Line.Forward)
            place = place + 1 < FPeriod ? place + 1 : 0;
        else
            place = place > 0 ? place - 1 : FPeriod - 1;
    }
    if (begin != CNone) Emit(Line, begin, Last, Rise);
}

void TLineScanner::Emit(const TSlope& Line, std::int64_t First, std::int64_t Last, std::int64_t Rise) {
    const int count = int(Last - First) + 1;
    if (Line.Steep) {
        const int top = int(Line.Start.Y + First);
        EmitColumn(int(Line.Start.X + Line.SignX * Rise), top, top + count - 1);
    } else {
        const std::int64_t left = Line.SignX > 0 ? Line.Start.X + First : Line.Start.X - Last;
        FRuns.emplace_back(int(left), int(Line.Start.Y + Rise), count, 1);
    }
}

/// A dense line goes from column to column with one step, whose upper part comes first: what there is to join
/// is the run before or the one before that.
void TLineScanner::EmitColumn(int X, int Top, int Bottom) {
    const auto joins = [&](QRect& Run) {
        if (Run.left() != X || Run.right() != X || Top > Run.bottom() + 1 || Bottom < Run.top() - 1)
            return false;
        Run.setTop(std::min(Run.top(), Top));
        Run.setBottom(std::max(Run.bottom(), Bottom));
        return true;
    };
    if (FJoin && !FRuns.empty()) {
        if (joins(FRuns.back())) return;
        if (FRuns.size() > 1 && joins(FRuns[FRuns.size() - 2])) return;
    }
    FRuns.emplace_back(X, Top, 1, Bottom - Top + 1);
}

} // namespace kx::qt
