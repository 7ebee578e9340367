#include <kxgraph/table/Kxtabledates.h>

#include <kxgraph/platform/text/text.h>
#include <kxgraph/table/Kxtableclock.h>
#include <kxgraph/table/Kxtablescanner.h>

#include <algorithm>
#include <cstddef>

namespace kx {

namespace {

constexpr std::string_view CMonths[] = {"january",   "february", "march",    "april",
                                        "may",       "june",     "july",     "august",
                                        "september", "october",  "november", "december"};
constexpr std::string_view CWeekdays[] = {"monday", "tuesday",  "wednesday", "thursday",
                                          "friday", "saturday", "sunday"};

/// Nothing for a number that is written like no year.
std::optional<int> YearOf(const TKxDigits& Digits) {
    if (Digits.Count == 4) return Digits.Value;
    if (Digits.Count == 2) return Digits.Value + (Digits.Value < 69 ? 2000 : 1900);
    return std::nullopt;
}

bool HasOneOrTwo(const TKxDigits& Digits) { return Digits.Count == 1 || Digits.Count == 2; }

/// The place, from 1, of a name that is written out or by three letters at least; 0 for none.
int PlaceAmong(std::span<const std::string_view> Names, std::string_view Word) {
    if (Word.size() < 3) return 0;
    const auto found =
        std::ranges::find_if(Names, [&](std::string_view Name) { return StartsWithText(Name, Word); });
    return found == Names.end() ? 0 : int(found - Names.begin()) + 1;
}

std::optional<int> DayOfQuarter(int Year, const TKxDigits& Quarter) {
    if (Quarter.Count != 1 || Quarter.Value > 4) return std::nullopt;
    return DayOfDate(Year, 3 * Quarter.Value - 2, 1);
}

} // namespace

/// Reads a cell. Each step says whether it has found what it is for.
class TKxDateCell::TReader {
public:
    explicit TReader(std::string_view Text) : FText(Text) {}

    std::optional<TKxDateCell> Read();

private:
    std::optional<TKxDateCell> ReadTimeAlone() const;
    void SkipWeekday();
    bool ReadDate();
    bool ReadYearFirst(const TKxDigits& Year);
    bool ReadMonthOfYear(int Year, char Sign);
    bool ReadDayFirst(const TKxDigits& First);
    bool ReadNumbers(const TKxDigits& First, char Sign);
    bool ReadWordFirst();
    bool ReadQuarterFirst();
    bool ReadCompact(const TKxDigits& Date);
    bool ReadTime();
    bool Know(std::optional<int> Day);

    TKxCellScanner FText;
    TKxDateCell FCell;
    bool FIsCompact = false; ///< digits alone, which are a number without a time behind them
};

bool TKxDateCell::TReader::Know(std::optional<int> Day) {
    FCell.FDays[0] = Day;
    return Day.has_value();
}

std::optional<TKxDateCell> TKxDateCell::TReader::Read() {
    if (const auto time = ReadTimeAlone()) return time;
    SkipWeekday();
    if (!ReadDate()) return std::nullopt;
    if (FText.IsAtEnd() ? FIsCompact : !ReadTime()) return std::nullopt;
    return FText.IsAtEnd() ? std::optional(FCell) : std::nullopt;
}

std::optional<TKxDateCell> TKxDateCell::TReader::ReadTimeAlone() const {
    TKxCellScanner text = FText;
    const auto seconds = TakeClock(text);
    if (!seconds || !text.IsAtEnd()) return std::nullopt;
    TKxDateCell cell;
    cell.FDays[0] = 0;
    cell.FTime = *seconds;
    return cell;
}

void TKxDateCell::TReader::SkipWeekday() {
    TKxCellScanner ahead = FText;
    if (PlaceAmong(CWeekdays, ahead.TakeWord()) == 0) return;
    ahead.TakeAnyOf(".,");
    ahead.Take(' ');
    FText = ahead;
}

bool TKxDateCell::TReader::ReadDate() {
    if (!FText.NextIsDigit()) return ReadWordFirst();
    const TKxDigits first = FText.TakeDigits();
    if (first.Count == 8) return ReadCompact(first);
    if (first.Count == 4) return ReadYearFirst(first);
    return HasOneOrTwo(first) && ReadDayFirst(first);
}

bool TKxDateCell::TReader::ReadCompact(const TKxDigits& Date) {
    FIsCompact = true;
    return Know(DayOfDate(Date.Value / 10000, Date.Value / 100 % 100, Date.Value % 100));
}

bool TKxDateCell::TReader::ReadYearFirst(const TKxDigits& Year) {
    const char sign = FText.TakeAnyOf("-/. ");
    if (sign != '/' && sign != '.' && FText.TakeAnyOf("Qq") != '\0')
        return Know(DayOfQuarter(Year.Value, FText.TakeDigits()));
    return sign != '\0' && ReadMonthOfYear(Year.Value, sign);
}

// Of "2003.5" nobody knows whether it is a month, of "2003 5" neither.
bool TKxDateCell::TReader::ReadMonthOfYear(int Year, char Sign) {
    const bool isName = FText.NextIsLetter();
    const TKxDigits digits = FText.TakeDigits();
    const int month = isName ? PlaceAmong(CMonths, FText.TakeWord()) : digits.Value;
    if (!isName && (Sign == ' ' || !HasOneOrTwo(digits))) return false;
    const bool hasDay = Sign == ' ' ? FText.NextIsDigit(1) && FText.Take(' ') : FText.Take(Sign);
    if (!hasDay) return (isName || (digits.Count == 2 && Sign != '.')) && Know(DayOfDate(Year, month, 1));
    const TKxDigits day = FText.TakeDigits();
    return HasOneOrTwo(day) && Know(DayOfDate(Year, month, day.Value));
}

bool TKxDateCell::TReader::ReadDayFirst(const TKxDigits& First) {
    const char sign = FText.TakeAnyOf("-/. ");
    if (sign == '.') FText.Take(' ');
    if (FText.NextIsDigit()) return ReadNumbers(First, sign);
    const int month = PlaceAmong(CMonths, FText.TakeWord());
    if (sign == '.' || sign == ' ') {
        FText.Take('.');
        FText.Take(' ');
    } else if (sign != '\0' && !FText.Take(sign)) {
        return false;
    }
    const auto year = YearOf(FText.TakeDigits());
    return month > 0 && year && Know(DayOfDate(*year, month, First.Value));
}

bool TKxDateCell::TReader::ReadNumbers(const TKxDigits& First, char Sign) {
    if (Sign == '\0' || Sign == ' ') return false;
    const TKxDigits second = FText.TakeDigits();
    if (second.Count == 4 && Sign != '.') return Know(DayOfDate(second.Value, First.Value, 1)); // 9/2003
    if (!HasOneOrTwo(second) || !FText.Take(Sign)) return false;
    const TKxDigits third = FText.TakeDigits();
    const auto year = YearOf(third), front = third.Count == 2 ? YearOf(First) : std::nullopt;
    if (!year) return false;
    FCell.FKnown = false;
    FCell.FDays[int(TKxDateOrder::DayMonthYear)] = DayOfDate(*year, second.Value, First.Value);
    FCell.FDays[int(TKxDateOrder::MonthDayYear)] = DayOfDate(*year, First.Value, second.Value);
    if (front) FCell.FDays[int(TKxDateOrder::YearMonthDay)] = DayOfDate(*front, second.Value, third.Value);
    return std::ranges::any_of(FCell.FDays, [](const auto& Day) { return Day.has_value(); });
}

bool TKxDateCell::TReader::ReadWordFirst() {
    if (FText.Next(1) >= '1' && FText.Next(1) <= '4' && FText.TakeAnyOf("Qq") != '\0')
        return ReadQuarterFirst();
    const int month = PlaceAmong(CMonths, FText.TakeWord());
    FText.Take('.');
    const char sign = FText.TakeAnyOf(" -/");
    if (month == 0 || sign == '\0') return false;
    const TKxDigits first = FText.TakeDigits();
    if (first.Count == 4) return Know(DayOfDate(first.Value, month, 1));
    if (sign == ' ') FText.Take(',');
    if (!FText.Take(sign)) return false;
    const TKxDigits year = FText.TakeDigits();
    return HasOneOrTwo(first) && year.Count == 4 && Know(DayOfDate(year.Value, month, first.Value));
}

bool TKxDateCell::TReader::ReadQuarterFirst() {
    const TKxDigits quarter = FText.TakeDigits();
    if (FText.TakeAnyOf(" -/") == '\0') return false;
    const TKxDigits year = FText.TakeDigits();
    return year.Count == 4 && Know(DayOfQuarter(year.Value, quarter));
}

bool TKxDateCell::TReader::ReadTime() {
    if (FText.TakeAnyOf("Tt ,") == '\0') return false;
    while (FText.Take(' ')) {
    }
    const auto seconds = FIsCompact ? TakeCompactClock(FText) : TakeClock(FText);
    FCell.FTime = seconds.value_or(0);
    return seconds.has_value();
}

std::optional<TKxDateCell> TKxDateCell::Parse(std::string_view Cell) {
    Cell = Trimmed(Cell);
    constexpr std::size_t least = 4, most = 60;
    if (Cell.size() < least || Cell.size() > most) return std::nullopt;
    return TReader(Cell).Read();
}

bool TKxDateCell::IsSameEitherWay() const {
    return FKnown || FDays[int(TKxDateOrder::DayMonthYear)] == FDays[int(TKxDateOrder::MonthDayYear)];
}

double TKxDateCell::Seconds(TKxDateOrder Order) const {
    constexpr double secondsADay = 86400;
    return *FDays[FKnown ? 0 : int(Order)] * secondsADay + FTime;
}

} // namespace kx
