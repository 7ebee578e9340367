#include <kxgraph/graph/Kxcalendar.h>

#include <kxgraph/numeric/Kxarithm.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <utility>

namespace kx {

namespace {

constexpr std::int64_t CSecond = 1000000, CMinute = 60 * CSecond, CHour = 60 * CMinute, CDay = 24 * CHour;
constexpr double CDaySeconds = 86400, CMonthSeconds = 365.2425 / 12 * CDaySeconds;
constexpr std::int64_t CFirstMonday = 4; // 5 January 1970
constexpr std::int64_t CMostMoments = 20000;

TKxLocalTime InMicroseconds(double Seconds) { return std::llround(Seconds * double(CSecond)); }

std::int64_t FloorDiv(std::int64_t A, std::int64_t B) { return A / B - (A % B < 0); }

std::chrono::year_month_day DateOf(TKxLocalTime Local) {
    return std::chrono::sys_days(std::chrono::days(static_cast<int>(FloorDiv(Local, CDay))));
}

std::int64_t MonthOf(const std::chrono::year_month_day& Date) {
    return std::int64_t{int(Date.year())} * 12 + unsigned(Date.month()) - 1;
}

TKxLocalTime LocalOfDay(std::int64_t Month, unsigned Day) {
    const std::chrono::year year(static_cast<int>(FloorDiv(Month, 12)));
    const std::chrono::month month(static_cast<unsigned>(Month - FloorDiv(Month, 12) * 12 + 1));
    return std::chrono::sys_days(year / month / Day).time_since_epoch().count() * CDay;
}

// Steps are counted: step Index begins at At, and a time lies in step IndexOf.

std::int64_t IndexOf(TKxLocalTime Local, const TKxDateStep& Step) {
    switch (Step.Unit) {
    case TKxDateStep::Microseconds: return FloorDiv(Local, Step.Count);
    case TKxDateStep::Days: return FloorDiv(FloorDiv(Local, CDay) - CFirstMonday, Step.Count);
    case TKxDateStep::HalfMonths: return 2 * MonthOf(DateOf(Local)) + (unsigned(DateOf(Local).day()) > 15);
    case TKxDateStep::Months: break;
    }
    return FloorDiv(MonthOf(DateOf(Local)), Step.Count);
}

TKxLocalTime At(std::int64_t Index, const TKxDateStep& Step) {
    switch (Step.Unit) {
    case TKxDateStep::Microseconds: return Index * Step.Count;
    case TKxDateStep::Days: return (Index * Step.Count + CFirstMonday) * CDay;
    case TKxDateStep::HalfMonths:
        return LocalOfDay(FloorDiv(Index, 2), Index - FloorDiv(Index, 2) * 2 == 0 ? 1 : 16);
    case TKxDateStep::Months: break;
    }
    return LocalOfDay(Index * Step.Count, 1);
}

constexpr TKxDateStep Within(std::int64_t Microseconds) {
    return {TKxDateStep::Microseconds, Microseconds, double(Microseconds) / double(CSecond)};
}
constexpr TKxDateStep Days(int Count) { return {TKxDateStep::Days, Count, Count * CDaySeconds}; }
constexpr TKxDateStep Months(int Count) { return {TKxDateStep::Months, Count, Count * CMonthSeconds}; }
constexpr TKxDateStep CHalfMonth{TKxDateStep::HalfMonths, 1, CMonthSeconds / 2};

std::vector<TKxDateSteps> MakeLadder() {
    std::vector<TKxDateSteps> ladder;
    for (std::int64_t unit = 1; unit < CSecond; unit *= 10) {
        ladder.push_back({Within(unit), Within(std::max<std::int64_t>(1, unit / 5))});
        ladder.push_back({Within(2 * unit), Within(std::max<std::int64_t>(1, unit / 2))});
        ladder.push_back({Within(5 * unit), Within(unit)});
    }
    for (const auto& [unit, part] : {std::pair{CSecond, CSecond / 5}, {CMinute, CMinute / 6}})
        for (const auto& [label, minor] : {std::pair{unit, part},
                                           {2 * unit, unit / 2},
                                           {5 * unit, unit},
                                           {10 * unit, 2 * unit},
                                           {15 * unit, 5 * unit},
                                           {30 * unit, 5 * unit}})
            ladder.push_back({Within(label), Within(minor)});
    for (const auto& [label, minor] : {std::pair{CHour, 15 * CMinute},
                                       {2 * CHour, 30 * CMinute},
                                       {3 * CHour, CHour},
                                       {6 * CHour, CHour},
                                       {12 * CHour, 3 * CHour}})
        ladder.push_back({Within(label), Within(minor)});
    ladder.push_back({Days(1), Within(6 * CHour)});
    ladder.push_back({Days(2), Within(12 * CHour)});
    ladder.push_back({Days(7), Days(1)});
    ladder.push_back({CHalfMonth, Days(1)});
    for (const auto& [label, minor] : {std::pair{Months(1), CHalfMonth},
                                       {Months(3), Months(1)},
                                       {Months(6), Months(1)},
                                       {Months(12), Months(3)},
                                       {Months(24), Months(6)},
                                       {Months(60), Months(12)}})
        ladder.push_back({label, minor});
    for (int years = 10; years <= 10000; years *= 10) {
        ladder.push_back({Months(12 * years), Months(12 * years / 5)});
        ladder.push_back({Months(24 * years), Months(12 * years / 2)});
        ladder.push_back({Months(60 * years), Months(12 * years)});
    }
    return ladder;
}

template <class... A>
std::string Formatted(const char* Format, A... Arguments) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), Format, Arguments...);
    return text.data();
}

/// A time of the day, as far as Unit tells it.
std::string ClockText(TKxLocalTime Local, std::int64_t Unit) {
    const auto time = Local - FloorDiv(Local, CDay) * CDay;
    std::string text = Formatted("%02d:%02d", int(time / CHour), int(time / CMinute % 60));
    if (Unit < CMinute) text += Formatted(":%02d", int(time / CSecond % 60));
    return text;
}

/// What stands behind the seconds: as many digits as Unit has.
std::string FractionText(TKxLocalTime Local, std::int64_t Unit) {
    std::string digits = Formatted("%06d", int(Local - FloorDiv(Local, CSecond) * CSecond));
    for (std::int64_t tenth = 10; Unit % tenth == 0 && digits.size() > 1; tenth *= 10) digits.pop_back();
    return "." + digits;
}

std::string MonthText(const std::chrono::year_month_day& Date) {
    static constexpr std::array names = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return names[unsigned(Date.month()) - 1];
}

/// What a label can tell; what the step does not need is empty.
struct TLabelParts {
    std::string Text, Time, Day, Year;
};

TLabelParts PartsAt(TKxLocalTime Local, const TKxDateStep& Step) {
    const auto date = DateOf(Local);
    const std::string month = MonthText(date), year = std::to_string(int(date.year()));
    const std::string day = std::to_string(unsigned(date.day()));
    if (Step.Unit == TKxDateStep::Months && Step.Count % 12 == 0) return {year, "", "", ""};
    if (Step.Unit == TKxDateStep::Months) return {month, "", "", year};
    if (Step.Unit == TKxDateStep::HalfMonths || (Step.Unit == TKxDateStep::Days && Step.Count > 2))
        return {day + " " + month, "", "", year};
    if (Step.Unit == TKxDateStep::Days) return {day, "", month, year};
    if (Step.Count >= CSecond) return {ClockText(Local, Step.Count), "", day + " " + month, year};
    return {FractionText(Local, Step.Count), ClockText(Local, CSecond), day + " " + month, year};
}

} // namespace

bool HasDate(double Moment) { return std::abs(Moment) <= CLastMoment; }

std::span<const TKxDateSteps> DateLadder() {
    static const std::vector<TKxDateSteps> ladder = MakeLadder();
    return ladder;
}

double TKxCalendar::OffsetAt(double Moment) const {
    const double offset = FOffset ? FOffset(Moment) : 0;
    return std::isfinite(offset) ? std::clamp(offset, -CDaySeconds, CDaySeconds) : 0;
}

TKxLocalTime TKxCalendar::LocalOf(double Moment) const {
    const double moment = std::clamp(std::isnan(Moment) ? 0 : Moment, -CLastMoment, CLastMoment);
    return InMicroseconds(moment) + InMicroseconds(OffsetAt(moment));
}

// Clocks that are set have one offset a day before and another one a day behind.
void TKxCalendar::AddMoments(TKxLocalTime Local, const TKxDateStep& Step,
                             std::vector<double>& Moments) const {
    const double local = double(Local) / double(CSecond);
    const double before = local - OffsetAt(local - CDaySeconds),
                 behind = local - OffsetAt(local + CDaySeconds);
    if (before == behind || Step.Unit != TKxDateStep::Microseconds)
        return Moments.push_back(FirstMoment(Local));
    for (const double moment : {before, behind})
        if (LocalOf(moment) == Local) Moments.push_back(moment);
}

double TKxCalendar::FirstMoment(TKxLocalTime Local) const {
    const double local = double(Local) / double(CSecond);
    const double before = local - OffsetAt(local - CDaySeconds),
                 behind = local - OffsetAt(local + CDaySeconds);
    return LocalOf(before) != Local && LocalOf(behind) == Local ? behind : before;
}

double TKxCalendar::Floor(double Moment, const TKxDateStep& Step) const {
    return FirstMoment(At(IndexOf(LocalOf(Moment), Step), Step));
}

double TKxCalendar::Ceil(double Moment, const TKxDateStep& Step) const {
    const TKxLocalTime local = LocalOf(Moment);
    const std::int64_t index = IndexOf(local, Step);
    return At(index, Step) == local ? Moment : FirstMoment(At(index + 1, Step));
}

std::vector<double> TKxCalendar::MomentsBetween(double Start, double Stop, const TKxDateStep& Step) const {
    std::vector<double> moments;
    if (!HasDate(Start) || !HasDate(Stop) || (Stop - Start) / Step.Seconds > CMostMoments) return moments;
    const double atStart = OffsetAt(Start), atStop = OffsetAt(Stop); // clocks may be set in between
    const auto first = IndexOf(InMicroseconds(Start) + InMicroseconds(std::min(atStart, atStop)), Step);
    const auto last = IndexOf(InMicroseconds(Stop) + InMicroseconds(std::max(atStart, atStop)), Step);
    for (auto index = first; index <= last; ++index) AddMoments(At(index, Step), Step, moments);
    const auto isOutside = [&](double Moment) { return Moment < Start || Moment > Stop; };
    std::erase_if(moments, isOutside);
    std::sort(moments.begin(), moments.end());
    moments.erase(std::unique(moments.begin(), moments.end()), moments.end());
    return moments;
}

std::vector<std::string> TKxCalendar::LabelAt(double Moment, const TKxDateStep& Step,
                                              std::optional<double> Before) const {
    // Far from 1970 a double holds no microsecond: it is the nearest step that is told.
    const auto partsOf = [&](double At) {
        const TKxLocalTime local = LocalOf(At), count = Step.Count;
        const bool isTime = Step.Unit == TKxDateStep::Microseconds;
        return PartsAt(isTime ? FloorDiv(local + count / 2, count) * count : local, Step);
    };
    const TLabelParts parts = partsOf(Moment), before = Before ? partsOf(*Before) : TLabelParts();
    std::vector<std::string> lines = {parts.Text};
    if (parts.Time != before.Time) lines.push_back(parts.Time);
    if (parts.Year != before.Year)
        lines.push_back(parts.Day + (parts.Day.empty() ? "" : " ") + parts.Year);
    else if (parts.Day != before.Day)
        lines.push_back(parts.Day);
    return lines;
}

std::string TKxCalendar::TextOf(double Moment, double Resolution) const {
    TKxLocalTime local = LocalOf(Moment);
    std::int64_t unit = Resolution < 60 ? CSecond : CMinute;
    if (Resolution < 1)
        while (unit > 1 && (Resolution > 0 ? double(unit) > Resolution * CSecond : local % unit != 0))
            unit /= 10;
    const bool isDay = Resolution >= CDaySeconds || (Resolution <= 0 && local % CDay == 0);
    if (!isDay) local = FloorDiv(local + unit / 2, unit) * unit;
    const auto date = DateOf(local);
    std::string day =
        Formatted("%04d-%02u-%02u", int(date.year()), unsigned(date.month()), unsigned(date.day()));
    if (isDay) return day;
    return day + " " + ClockText(local, unit) + (unit < CSecond ? FractionText(local, unit) : "");
}

} // namespace kx
