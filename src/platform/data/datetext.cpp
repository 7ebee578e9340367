#include <kxgraph/platform/data/datetext.h>

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace kx {

namespace {

constexpr std::int64_t CMicro = 1000000, CDay = 86400;
constexpr double CFirst = -62167219200.0, CEnd = 253402300800.0; // the years 0 to 9999

bool HasText(double Moment) { return Moment >= CFirst && Moment < CEnd; }

/// Microseconds since 1970.
std::int64_t Microseconds(double Moment) { return std::llround(Moment * double(CMicro)); }

std::int64_t FloorDiv(std::int64_t A, std::int64_t B) { return A / B - (A % B < 0); }

std::string DayText(std::int64_t Day) {
    const std::chrono::year_month_day date{std::chrono::sys_days(std::chrono::days(Day))};
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", int(date.year()), unsigned(date.month()),
                  unsigned(date.day()));
    return text;
}

/// Takes a text from left to right.
class TReader {
public:
    explicit TReader(std::string_view Text) : FText(Text) {}

    bool IsAtEnd() const { return FText.empty(); }
    bool Take(char C) {
        if (FText.empty() || FText.front() != C) return false;
        FText.remove_prefix(1);
        return true;
    }
    /// A number of exactly Digits digits.
    std::optional<int> Number(std::size_t Digits) {
        int value = 0;
        if (FText.size() < Digits) return {};
        const auto [end, error] = std::from_chars(FText.data(), FText.data() + Digits, value);
        if (error != std::errc() || end != FText.data() + Digits || FText.front() == '-') return {};
        FText.remove_prefix(Digits);
        return value;
    }
    /// What stands behind a decimal point; 0 without one.
    std::optional<double> Fraction() {
        if (!Take('.')) return 0.0;
        std::size_t digits = 0;
        while (digits < FText.size() && FText[digits] >= '0' && FText[digits] <= '9') ++digits;
        if (digits == 0) return {};
        double value = 0;
        const std::string text = "0." + std::string(FText.substr(0, digits));
        std::from_chars(text.data(), text.data() + text.size(), value);
        FText.remove_prefix(digits);
        return value;
    }

private:
    std::string_view FText;
};

std::optional<std::int64_t> ReadDay(TReader& Reader) {
    const auto year = Reader.Number(4);
    if (!year || !Reader.Take('-')) return {};
    const auto month = Reader.Number(2);
    if (!month || !Reader.Take('-')) return {};
    const auto day = Reader.Number(2);
    if (!day) return {};
    const std::chrono::year_month_day date{std::chrono::year(*year), std::chrono::month(unsigned(*month)),
                                           std::chrono::day(unsigned(*day))};
    if (!date.ok()) return {};
    return std::chrono::sys_days(date).time_since_epoch().count();
}

std::optional<double> ReadClock(TReader& Reader) {
    const auto hours = Reader.Number(2);
    if (!hours || *hours > 23 || !Reader.Take(':')) return {};
    const auto minutes = Reader.Number(2);
    if (!minutes || *minutes > 59) return {};
    double seconds = 0;
    if (Reader.Take(':')) {
        const auto whole = Reader.Number(2);
        if (!whole || *whole > 59) return {};
        const auto fraction = Reader.Fraction();
        if (!fraction) return {};
        seconds = *whole + *fraction;
    }
    return *hours * 3600 + *minutes * 60 + seconds;
}

/// Seconds that local time is ahead of UTC; nothing behind the clock means UTC.
std::optional<double> ReadOffset(TReader& Reader) {
    if (Reader.IsAtEnd() || Reader.Take('Z')) return 0.0;
    const bool isAhead = Reader.Take('+');
    if (!isAhead && !Reader.Take('-')) return {};
    const auto hours = Reader.Number(2);
    if (!hours) return {};
    Reader.Take(':');
    const auto minutes = Reader.IsAtEnd() ? std::optional(0) : Reader.Number(2);
    if (!minutes || *minutes > 59) return {};
    return (isAhead ? 60 : -60) * (*hours * 60 + *minutes);
}

} // namespace

std::string DateText(double Moment) {
    return HasText(Moment) ? DayText(FloorDiv(Microseconds(Moment), CDay * CMicro)) : "";
}

std::string DateTimeText(double Moment) {
    if (!HasText(Moment)) return "";
    const std::int64_t all = Microseconds(Moment), seconds = FloorDiv(all, CMicro),
                       day = FloorDiv(seconds, CDay), clock = seconds - day * CDay;
    char text[32];
    std::snprintf(text, sizeof text, " %02d:%02d:%02d", int(clock / 3600), int(clock / 60 % 60),
                  int(clock % 60));
    std::string result = DayText(day) + text;
    if (all == seconds * CMicro) return result;
    std::snprintf(text, sizeof text, ".%06d", int(all - seconds * CMicro));
    result += text;
    result.erase(result.find_last_not_of('0') + 1);
    return result;
}

std::optional<double> MomentOfText(std::string_view Text) {
    TReader reader(Text);
    const auto day = ReadDay(reader);
    if (!day) return {};
    const double start = double(*day) * double(CDay);
    if (reader.IsAtEnd()) return start;
    if (!reader.Take(' ') && !reader.Take('T')) return {};
    const auto clock = ReadClock(reader);
    if (!clock) return {};
    const auto offset = ReadOffset(reader);
    if (!offset || !reader.IsAtEnd()) return {};
    return start + *clock - *offset;
}

} // namespace kx
