#include <kxgraph/table/Kxtableclock.h>

#include <kxgraph/platform/text/text.h>

#include <charconv>
#include <string>

namespace kx {

namespace {

constexpr double CMinute = 60, CHour = 3600;

std::optional<double> TakeSeconds(TKxCellScanner& Cell) {
    const TKxDigits whole = Cell.TakeDigits();
    if (whole.Count != 2 || whole.Value > 60) return std::nullopt;
    if (Cell.TakeAnyOf(".,") == '\0') return whole.Value;
    const std::string_view digits = Cell.TakeDigitText();
    if (digits.empty()) return std::nullopt;
    double fraction = 0;
    const std::string text = std::string("0.").append(digits);
    std::from_chars(text.data(), text.data() + text.size(), fraction);
    return whole.Value + fraction;
}

/// The hour as it counts behind AM or PM; nothing where there is no such hour.
std::optional<int> TakeHalfDay(TKxCellScanner& Cell, int Hour) {
    TKxCellScanner ahead = Cell;
    ahead.Take(' ');
    const std::string_view word = ahead.TakeWord();
    const bool am = SameText(word, "am"), pm = SameText(word, "pm");
    if (!am && !pm) return Hour;
    if (Hour < 1 || Hour > 12) return std::nullopt;
    Cell = ahead;
    return Hour % 12 + (pm ? 12 : 0);
}

/// How far the zone lies ahead of UTC; nothing for what is no zone.
std::optional<double> TakeZone(TKxCellScanner& Cell) {
    Cell.Take(' ');
    if (Cell.NextIsLetter()) {
        const std::string_view word = Cell.TakeWord();
        const bool isUtc = SameText(word, "Z") || SameText(word, "UTC") || SameText(word, "GMT");
        return isUtc ? std::optional(0.0) : std::nullopt;
    }
    const char sign = Cell.TakeAnyOf("+-");
    if (sign == '\0') return 0;
    const TKxDigits hours = Cell.TakeDigits();
    const TKxDigits minutes = hours.Count == 2 && Cell.Take(':') ? Cell.TakeDigits() : TKxDigits{0, 2};
    const int minute = hours.Count == 4 ? hours.Value % 100 : minutes.Value;
    const int hour = hours.Count == 4 ? hours.Value / 100 : hours.Value;
    if ((hours.Count != 2 && hours.Count != 4) || minutes.Count != 2 || hour > 18 || minute > 59)
        return std::nullopt;
    return (sign == '-' ? -1 : 1) * (hour * CHour + minute * CMinute);
}

std::optional<double> InZone(TKxCellScanner& Cell, double Seconds) {
    const auto ahead = TakeZone(Cell);
    return ahead ? std::optional(Seconds - *ahead) : std::nullopt;
}

} // namespace

std::optional<double> TakeClock(TKxCellScanner& Cell) {
    const TKxDigits hours = Cell.TakeDigits();
    if (hours.Count < 1 || hours.Count > 2 || !Cell.Take(':')) return std::nullopt;
    const TKxDigits minutes = Cell.TakeDigits();
    if (minutes.Count != 2 || minutes.Value > 59) return std::nullopt;
    const auto seconds = Cell.Take(':') ? TakeSeconds(Cell) : 0;
    const auto hour = TakeHalfDay(Cell, hours.Value);
    if (!seconds || !hour) return std::nullopt;
    const double inHour = minutes.Value * CMinute + *seconds;
    if (*hour > 24 || (*hour == 24 && inHour > 0)) return std::nullopt;
    return InZone(Cell, *hour * CHour + inHour);
}

std::optional<double> TakeCompactClock(TKxCellScanner& Cell) {
    const TKxDigits clock = Cell.TakeDigits();
    if (clock.Count != 4 && clock.Count != 6) return std::nullopt;
    const int time = clock.Count == 4 ? clock.Value * 100 : clock.Value;
    const int hour = time / 10000, minute = time / 100 % 100, second = time % 100;
    if (hour > 23 || minute > 59 || second > 60) return std::nullopt;
    return InZone(Cell, hour * CHour + minute * CMinute + second);
}

} // namespace kx
