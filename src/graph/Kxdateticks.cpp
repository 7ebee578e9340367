#include <kxgraph/graph/Kxdateticks.h>

#include <kxgraph/numeric/Kxarithm.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>

namespace kx {

namespace {

constexpr double CLeastRoundingSteps = 8, CMostLabels = 12.5;
constexpr double CLeastMinorDistance = 4; // pixels
constexpr double CDay = 86400;

/// The largest step of which so many fit into the span; null when none is as small.
const TKxDateStep* RoundingStep(double Span) {
    const TKxDateStep* step = nullptr;
    for (const TKxDateSteps& steps : DateLadder())
        if (steps.Label.Seconds * CLeastRoundingSteps <= Span) step = &steps.Label;
    return step;
}

/// Index of the smallest step of which no more than CMostLabels fit.
std::size_t FinestSteps(double Span) {
    const auto ladder = DateLadder();
    const auto fits = [&](const TKxDateSteps& Steps) { return Steps.Label.Seconds * CMostLabels >= Span; };
    const auto found = std::find_if(ladder.begin(), ladder.end(), fits);
    return std::min(ladder.size() - 1, static_cast<std::size_t>(found - ladder.begin()));
}

double EndWithin(double End) { return std::clamp(End, -CLastMoment, CLastMoment); }

std::vector<TKxTick> Merged(const std::vector<double>& Majors, const std::vector<double>& Minors) {
    std::vector<TKxTick> ticks;
    auto major = Majors.begin();
    for (const double minor : Minors) {
        for (; major != Majors.end() && *major <= minor; ++major) ticks.push_back({*major, true});
        if (ticks.empty() || ticks.back().Value != minor) ticks.push_back({minor, false});
    }
    for (; major != Majors.end(); ++major) ticks.push_back({*major, true});
    return ticks;
}

/// With the ends where there would be less than two ticks.
std::vector<TKxTick> OrEnds(std::vector<TKxTick> Ticks, const TKxScaleEnds& Ends) {
    if (Ticks.size() > 1) return Ticks;
    if (Ticks.empty() || Ticks.front().Value > Ends.Start) Ticks.insert(Ticks.begin(), {Ends.Start, false});
    if (Ticks.back().Value < Ends.Stop) Ticks.push_back({Ends.Stop, false});
    return Ticks;
}

std::vector<TKxTickLabel> LabelsAt(const std::vector<double>& Moments, const TKxDateStep& Step,
                                   const TKxCalendar& Calendar) {
    std::vector<TKxTickLabel> labels;
    std::optional<double> before;
    for (const double moment : Moments) {
        auto lines = Calendar.LabelAt(moment, Step, before);
        labels.push_back({moment, 0, lines.front()});
        labels.back().More.assign(lines.begin() + 1, lines.end());
        before = moment;
    }
    return labels;
}

} // namespace

TKxScaleEnds DateEnds(const TKxScaleInput& Input, const TKxCalendar& Calendar) {
    TKxScaleEnds ends;
    ends.TickPart = Input.TickPart;
    ends.MajorTickPart = Input.MajorTickPart;
    ends.LabelPart = Input.LabelPart;
    double start = EndWithin(Input.Start), stop = EndWithin(Input.Stop);
    ends.EndsCorrected = !(start < stop);
    if (!(start <= stop)) start = 0, stop = 100;
    if (start == stop) start -= CDay, stop += CDay;
    ends.Start = start;
    ends.Stop = stop;
    if (const TKxDateStep* step = RoundingStep(stop - start)) {
        const double floor = Calendar.Floor(start, *step), ceil = Calendar.Ceil(stop, *step);
        if (Input.StartEnd != AxFixed && !Input.KeepStart && floor <= start) ends.Start = floor;
        if (Input.StopEnd != AxFixed && !Input.KeepStop && ceil >= stop) ends.Stop = ceil;
    }
    ends.SpanExponent = GetExponent(ends.Stop - ends.Start);
    return ends;
}

TKxTicks DateTicks(const TKxScaleEnds& Ends, const TKxAxisMap& Map, const TKxTickOptions& Options,
                   const TKxCalendar& Calendar) {
    const auto ladder = DateLadder();
    const std::size_t index =
        std::min(FinestSteps(Ends.Stop - Ends.Start) + std::size_t(std::max(0, Options.Coarseness)),
                 ladder.size() - 1);
    const auto& [label, minor] = ladder[index];
    const auto majors = Calendar.MomentsBetween(Ends.Start, Ends.Stop, label);
    const bool hasMinors = minor.Seconds >= CLeastMinorDistance * std::abs(Map.Scale);
    const auto minors = hasMinors ? Calendar.MomentsBetween(Ends.Start, Ends.Stop, minor) : majors;
    auto labels = Options.ShowScaleLabels ? LabelsAt(majors, label, Calendar) : std::vector<TKxTickLabel>();
    TKxTicks ticks = TicksAt(OrEnds(Merged(majors, minors), Ends), std::move(labels), Map, Options.Side);
    ticks.MustThin = true;
    ticks.CanBeCoarser = ticks.Labels.size() > 2 && index + 1 < ladder.size();
    return ticks;
}

} // namespace kx
