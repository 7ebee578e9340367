#pragma once
// Moments, the calendar steps that ticks stand on, and how moments are written. The calendar is the proleptic
// Gregorian one, without leap seconds, and with a year 0. No axis, no pixels.

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace kx {

/// Seconds to add to UTC at a moment (in seconds since 1970, UTC) to have local time. None, and an answer
/// that is not finite, count as 0.
using TKxZoneOffset = std::function<double(double Moment)>;

/// Moments from about the year -27800 to 31700 have a date.
inline constexpr double CLastMoment = 9.4e11;
/// Whether a moment, in seconds since 1970, has a date.
bool HasDate(double Moment);

/// Microseconds of local time since 1970-01-01 00:00 there.
using TKxLocalTime = std::int64_t;

/// A step of the calendar: steps within a day begin at midnight, weeks on Mondays, half months on the 1st and
/// the 16th, months and years count from the year 0.
struct TKxDateStep {
    enum TUnit { Microseconds, Days, HalfMonths, Months };
    TUnit Unit = Days;
    std::int64_t Count = 1; ///< divides a day, or is 1, 2 or 7 days, or 1 half month
    double Seconds = 86400; ///< about
    friend bool operator==(const TKxDateStep&, const TKxDateStep&) = default;
};
/// A step for labels, and the one for the minor ticks between them.
struct TKxDateSteps {
    TKxDateStep Label, Minor;
};
/// From a microsecond to ten thousand years, ascending.
std::span<const TKxDateSteps> DateLadder();

/// A calendar at one place.
class TKxCalendar {
public:
    explicit TKxCalendar(TKxZoneOffset Offset = {}) : FOffset(std::move(Offset)) {}

    TKxLocalTime LocalOf(double Moment) const;
    /// Moments that begin the step that Moment lies in, and the one behind it, Moment itself where it begins
    /// one.
    double Floor(double Moment, const TKxDateStep& Step) const;
    double Ceil(double Moment, const TKxDateStep& Step) const;
    /// All moments from Start to Stop that begin a step, ascending. Where clocks are set back an hour has its
    /// ticks twice; where they are set forward, what is left out has none, but a day that begins later has.
    std::vector<double> MomentsBetween(double Start, double Stop, const TKxDateStep& Step) const;

    /// The lines of a label at a moment that begins a step. The first one tells what changes from step to
    /// step; what follows tells the larger units, as far as they are others than at Before, all of them where
    /// there is no Before: "Feb" but "Jan", "2004"; "06:00" but "00:00", "20 Sep".
    std::vector<std::string> LabelAt(double Moment, const TKxDateStep& Step,
                                     std::optional<double> Before) const;
    /// "2003-09-19 06:00:00.125" rounded to units of no more than Resolution (in seconds; the day that it
    /// lies in from a day on, minutes from a minute on); with 0 all digits down to microseconds that tell
    /// something, and the date alone at midnight.
    std::string TextOf(double Moment, double Resolution) const;

private:
    double OffsetAt(double Moment) const;
    void AddMoments(TKxLocalTime Local, const TKxDateStep& Step, std::vector<double>& Moments) const;
    double FirstMoment(TKxLocalTime Local) const;

    TKxZoneOffset FOffset;
};

} // namespace kx
