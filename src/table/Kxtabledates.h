#pragma once
// Dates and times as people and programs write them into the cells of tables. They become seconds since
// 1970-01-01 00:00 UTC, in the calendar of today carried back; a time without a zone counts as UTC.

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace kx {

/// Days since 1970-01-01; nothing for a day that the calendar lacks.
std::optional<int> DayOfDate(int Year, int Month, int Day);

/// How three numbers such as 3/4/2005 are meant.
enum class TKxDateOrder { DayMonthYear, MonthDayYear, YearMonthDay };

/// The date of one cell. Of three numbers with two digits in front the cell alone does not tell the order of
/// day and month: it keeps all that give a date.
class TKxDateCell {
public:
    /// Understood are 2003-09-19, 2003-09, 2003/9/19 and 2003.9.19; 19-Sep-03, 19 September 2003,
    /// Sep 19, 2003 and Sep 2003 (English months; two digits of a year are those from 1969 to 2068); 1974Q1,
    /// 1974-Q1 and Q1 1974; 2/27/2003, 27.2.2003, 27-2-03 and 9/2003. After a date, behind a blank or T, or
    /// alone: 13:05, 13:05:07.25, 1:05 PM, with Z or +01:00 behind it; also 20030919T130507Z. A time alone
    /// is one of 1970-01-01. Nothing for any other text, and for a day that the calendar lacks.
    static std::optional<TKxDateCell> Parse(std::string_view Cell);

    /// Whether the cell is a date when its numbers stand in that order; always where it knows by itself.
    bool Allows(TKxDateOrder Order) const { return FKnown || FDays[static_cast<int>(Order)]; }
    bool KnowsItsOrder() const { return FKnown; }
    /// Whether day and month are the same number.
    bool IsSameEitherWay() const;
    /// Order must be allowed.
    double Seconds(TKxDateOrder Order) const;

private:
    class TReader;
    bool FKnown = true;
    std::optional<int> FDays[3]; ///< since 1970, by order; the first one where the cell knows
    double FTime = 0;            ///< seconds since midnight UTC of that day
};

/// Which orders all the dates of a column allow.
class TKxDateOrders {
public:
    /// A date that contradicts those before changes nothing.
    void Add(const TKxDateCell& Cell);
    /// The order, when the dates decide it. The year is taken to stand in front of two more numbers only
    /// where it cannot stand behind.
    std::optional<TKxDateOrder> Decided() const;
    /// Whether any date left the order open.
    bool WasAsked() const { return FWasAsked; }

private:
    bool FAllowed[3]{true, true, true};
    bool FWasAsked = false;
    bool FDiffers = false; ///< whether it matters which number is the day
};

/// The days that numbers of eight digits, 20030919, mean: where all are such days of the years 1800 to 2200,
/// at least two, each later than the one before. Nothing for any others.
std::optional<std::vector<double>> DatesOfEightDigits(std::span<const double> Values);

} // namespace kx
