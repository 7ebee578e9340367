#include <kxgraph/table/Kxtabledates.h>

#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string>

namespace kx {

namespace {

constexpr std::string_view CMonths[] = {"january",   "february", "march",    "april",
                                        "may",       "june",     "july",     "august",
                                        "september", "october",  "november", "december"};
constexpr std::string_view CWeekdays[] = {"monday", "tuesday",  "wednesday", "thursday",
                                          "friday", "saturday", "sunday"};
constexpr double CMinute = 60, CHour = 3600, CDay = 86400;

bool IsDigit(char C) { return C >= '0' && C <= '9'; }
bool IsLetter(char C) { return (C >= 'a' && C <= 'z') || (C >= 'A' && C <= 'Z'); }

/// A number of so many digits.
struct TDigits {
    int Value = 0;
    std::size_t Count = 0;
};

/// Nothing for a number that is written like no year.
std::optional<int> YearOf(const TDigits& Digits) {
    if (Digits.Count == 4) return Digits.Value;
    if (Digits.Count == 2) return Digits.Value + (Digits.Value < 69 ? 2000 : 1900);
    return std::nullopt;
}

/// The place, from 1, of a name that is written out or by three letters at least; 0 for none.
int PlaceAmong(std::span<const std::string_view> Names, std::string_view Word) {
    if (Word.size() < 3) return 0;
    const auto found =
        std::ranges::find_if(Names, [&](std::string_view Name) { return StartsWithText(Name, Word); });
    return found == Names.end() ? 0 : int(found - Names.begin()) + 1;
}

} // namespace

/// Reads a cell from left to right. Each step takes its piece away, or leaves all as it was and says no.
class TKxDateCell::TReader {
public:
    explicit TReader(std::string_view Text) : FRest(Text) {}

    std::optional<TKxDateCell> Read();

private:
    char Next() const { return FRest.empty() ? '\0' : FRest.front(); }
    bool Take(char C);
    bool TakeAnyOf(std::string_view Chars, char& Taken);
    TDigits TakeDigits();
    std::string_view TakeWord();
    void TakeWeekday();

    bool ReadDate();
    bool ReadYearFirst(const TDigits& Year);
    bool ReadDayFirst(const TDigits& First);
    bool ReadNumbers(const TDigits& First, char Sign);
    bool ReadWordFirst();
    bool ReadQuarter(int Year);
    bool ReadCompact(const TDigits& Date);
    bool ReadTime();
    bool ReadClock();
    bool ReadCompactClock();
    bool ReadSeconds();
    bool ReadHalfDay(int& Hour);
    bool ReadZone();
    bool Know(std::optional<int> Day);

    std::string_view FRest;
    TKxDateCell FCell;
    bool FIsCompact = false; ///< 20030919: digits alone
};

bool TKxDateCell::TReader::Take(char C) {
    if (Next() != C || FRest.empty()) return false;
    FRest.remove_prefix(1);
    return true;
}

bool TKxDateCell::TReader::TakeAnyOf(std::string_view Chars, char& Taken) {
    Taken = Next();
    return Chars.find(Taken) != std::string_view::npos && Take(Taken);
}

TDigits TKxDateCell::TReader::TakeDigits() {
    TDigits digits;
    digits.Count = std::size_t(std::find_if_not(FRest.begin(), FRest.end(), IsDigit) - FRest.begin());
    if (digits.Count > 9) digits.Count = 0;
    std::from_chars(FRest.data(), FRest.data() + digits.Count, digits.Value);
    FRest.remove_prefix(digits.Count);
    return digits;
}

std::string_view TKxDateCell::TReader::TakeWord() {
    const auto count = std::size_t(std::find_if_not(FRest.begin(), FRest.end(), IsLetter) - FRest.begin());
    const std::string_view word = FRest.substr(0, count);
    FRest.remove_prefix(count);
    return word;
}

void TKxDateCell::TReader::TakeWeekday() {
    const std::string_view whole = FRest;
    if (PlaceAmong(CWeekdays, TakeWord()) == 0) {
        FRest = whole;
        return;
    }
    Take('.');
    Take(',');
    Take(' ');
}

bool TKxDateCell::TReader::Know(std::optional<int> Day) {
    FCell.FKnown = true;
    FCell.FDays[0] = Day;
    return Day.has_value();
}

std::optional<TKxDateCell> TKxDateCell::TReader::Read() {
    const std::string_view whole = FRest;
    FCell.FDays[0] = 0;
    if (ReadClock() && FRest.empty()) return FCell;
    FRest = whole;
    FCell = TKxDateCell();
    TakeWeekday();
    if (!ReadDate()) return std::nullopt;
    if (!FRest.empty() && !ReadTime()) return std::nullopt;
    if (FIsCompact && FRest.data() == whole.data() + 8) return std::nullopt; // eight digits are a number
    return FRest.empty() ? std::optional(FCell) : std::nullopt;
}

bool TKxDateCell::TReader::ReadDate() {
    if (!IsDigit(Next())) return ReadWordFirst();
    const TDigits first = TakeDigits();
    if (first.Count == 8) return ReadCompact(first);
    if (first.Count == 4) return ReadYearFirst(first);
    return (first.Count == 1 || first.Count == 2) && ReadDayFirst(first);
}

bool TKxDateCell::TReader::ReadCompact(const TDigits& Date) {
    FIsCompact = true;
    return Know(DayOfDate(Date.Value / 10000, Date.Value / 100 % 100, Date.Value % 100));
}

bool TKxDateCell::TReader::ReadQuarter(int Year) {
    const TDigits quarter = TakeDigits();
    return quarter.Count == 1 && quarter.Value <= 4 && Know(DayOfDate(Year, 3 * quarter.Value - 2, 1));
}

bool TKxDateCell::TReader::ReadYearFirst(const TDigits& Year) {
    char sign = '\0';
    TakeAnyOf("-/. ", sign);
    if (Take('Q') || Take('q')) return sign != '/' && sign != '.' && ReadQuarter(Year.Value);
    int month = 0;
    TDigits digits;
    if (IsLetter(Next())) {
        month = PlaceAmong(CMonths, TakeWord());
    } else {
        digits = TakeDigits();
        if (sign == '\0' || sign == ' ' || digits.Count < 1 || digits.Count > 2) return false;
        month = digits.Value;
    }
    const bool hasDay =
        sign != '\0' && sign != ' ' ? Take(sign) : IsDigit(FRest.size() > 1 ? FRest[1] : 'x') && Take(' ');
    if (!hasDay)
        return (digits.Count == 0 || (digits.Count == 2 && sign != '.')) &&
               Know(DayOfDate(Year.Value, month, 1));
    const TDigits day = TakeDigits();
    return day.Count >= 1 && day.Count <= 2 && Know(DayOfDate(Year.Value, month, day.Value));
}

bool TKxDateCell::TReader::ReadDayFirst(const TDigits& First) {
    char sign = '\0';
    TakeAnyOf("-/. ", sign);
    if (sign == '.') Take(' ');
    if (IsDigit(Next())) return ReadNumbers(First, sign);
    const int month = PlaceAmong(CMonths, TakeWord());
    if (sign == '.' || sign == ' ') {
        Take('.');
        Take(' ');
    } else if (sign != '\0' && !Take(sign)) {
        return false;
    }
    const auto year = YearOf(TakeDigits());
    return month > 0 && year && Know(DayOfDate(*year, month, First.Value));
}

bool TKxDateCell::TReader::ReadNumbers(const TDigits& First, char Sign) {
    if (Sign == '\0' || Sign == ' ') return false;
    const TDigits second = TakeDigits();
    if (second.Count == 4 && Sign != '.') return Know(DayOfDate(second.Value, First.Value, 1)); // 9/2003
    if (second.Count < 1 || second.Count > 2 || !Take(Sign)) return false;
    const TDigits third = TakeDigits();
    const auto year = YearOf(third);
    if (!year) return false;
    FCell.FKnown = false;
    FCell.FDays[int(TKxDateOrder::DayMonthYear)] = DayOfDate(*year, second.Value, First.Value);
    FCell.FDays[int(TKxDateOrder::MonthDayYear)] = DayOfDate(*year, First.Value, second.Value);
    if (const auto front = YearOf(First); front && third.Count == 2)
        FCell.FDays[int(TKxDateOrder::YearMonthDay)] = DayOfDate(*front, second.Value, third.Value);
    return std::ranges::any_of(FCell.FDays, [](const auto& Day) { return Day.has_value(); });
}

bool TKxDateCell::TReader::ReadWordFirst() {
    const std::string_view word = TakeWord();
    if (SameText(word, "Q")) {
        const TDigits quarter = TakeDigits();
        char sign;
        if (quarter.Count != 1 || !TakeAnyOf(" -/", sign)) return false;
        const TDigits year = TakeDigits();
        return quarter.Value <= 4 && year.Count == 4 && Know(DayOfDate(year.Value, 3 * quarter.Value - 2, 1));
    }
    const int month = PlaceAmong(CMonths, word);
    Take('.');
    char sign;
    if (month == 0 || !TakeAnyOf(" -/", sign)) return false;
    const TDigits first = TakeDigits();
    if (first.Count == 4) return Know(DayOfDate(first.Value, month, 1));
    const bool parted = sign == ' ' ? (Take(','), Take(' ')) : Take(sign);
    const TDigits year = TakeDigits();
    return parted && first.Count > 0 && year.Count == 4 && Know(DayOfDate(year.Value, month, first.Value));
}

bool TKxDateCell::TReader::ReadTime() {
    char sign;
    if (!TakeAnyOf("Tt ,", sign)) return false;
    while (Take(' ')) {
    }
    return FIsCompact ? ReadCompactClock() : ReadClock();
}

bool TKxDateCell::TReader::ReadCompactClock() {
    const TDigits clock = TakeDigits();
    if (clock.Count != 4 && clock.Count != 6) return false;
    const int time = clock.Count == 4 ? clock.Value * 100 : clock.Value;
    const int hour = time / 10000, minute = time / 100 % 100, second = time % 100;
    if (hour > 23 || minute > 59 || second > 60) return false;
    FCell.FTime = hour * CHour + minute * CMinute + second;
    return ReadZone();
}

bool TKxDateCell::TReader::ReadClock() {
    const TDigits hours = TakeDigits();
    if (hours.Count < 1 || hours.Count > 2 || !Take(':')) return false;
    const TDigits minutes = TakeDigits();
    if (minutes.Count != 2 || minutes.Value > 59) return false;
    FCell.FTime = minutes.Value * CMinute;
    if (Take(':') && !ReadSeconds()) return false;
    int hour = hours.Value;
    if (!ReadHalfDay(hour) || hour > 24 || (hour == 24 && FCell.FTime > 0)) return false;
    FCell.FTime += hour * CHour;
    return ReadZone();
}

bool TKxDateCell::TReader::ReadSeconds() {
    const TDigits seconds = TakeDigits();
    if (seconds.Count != 2 || seconds.Value > 60) return false; // a leap second is the next one's beginning
    FCell.FTime += seconds.Value;
    char sign;
    if (!TakeAnyOf(".,", sign)) return true;
    const auto count = std::size_t(std::find_if_not(FRest.begin(), FRest.end(), IsDigit) - FRest.begin());
    double fraction = 0;
    std::string text("0.");
    text += FRest.substr(0, count);
    std::from_chars(text.data(), text.data() + text.size(), fraction);
    FRest.remove_prefix(count);
    FCell.FTime += fraction;
    return count > 0;
}

bool TKxDateCell::TReader::ReadHalfDay(int& Hour) {
    const std::string_view whole = FRest;
    Take(' ');
    const std::string_view word = TakeWord();
    const bool am = SameText(word, "am"), pm = SameText(word, "pm");
    if (!am && !pm) {
        FRest = whole;
        return true;
    }
    if (Hour < 1 || Hour > 12) return false;
    Hour = Hour % 12 + (pm ? 12 : 0);
    return true;
}

bool TKxDateCell::TReader::ReadZone() {
    Take(' ');
    if (IsLetter(Next())) {
        const std::string_view word = TakeWord();
        return SameText(word, "Z") || SameText(word, "UTC") || SameText(word, "GMT");
    }
    char sign;
    if (!TakeAnyOf("+-", sign)) return true;
    TDigits hours = TakeDigits();
    int minutes = 0;
    if (hours.Count == 4) {
        minutes = hours.Value % 100;
        hours.Value /= 100;
    } else if (hours.Count != 2) {
        return false;
    } else if (Take(':')) {
        const TDigits rest = TakeDigits();
        if (rest.Count != 2) return false;
        minutes = rest.Value;
    }
    if (hours.Value > 18 || minutes > 59) return false;
    FCell.FTime -= (sign == '-' ? -1 : 1) * (hours.Value * CHour + minutes * CMinute);
    return true;
}

std::optional<TKxDateCell> TKxDateCell::Parse(std::string_view Cell) {
    Cell = Trimmed(Cell);
    if (Cell.size() < 4 || Cell.size() > 60) return std::nullopt;
    return TReader(Cell).Read();
}

bool TKxDateCell::IsSameEitherWay() const {
    return FKnown || FDays[int(TKxDateOrder::DayMonthYear)] == FDays[int(TKxDateOrder::MonthDayYear)];
}

double TKxDateCell::Seconds(TKxDateOrder Order) const {
    return *FDays[FKnown ? 0 : int(Order)] * CDay + FTime;
}

} // namespace kx
