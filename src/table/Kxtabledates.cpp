#include <kxgraph/table/Kxtabledates.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <iterator>
#include <utility>

namespace kx {

std::optional<int> DayOfDate(int Year, int Month, int Day) {
    using namespace std::chrono;
    if (Month < 1 || Day < 1) return std::nullopt;
    const year_month_day date{year{Year}, month{unsigned(Month)}, day{unsigned(Day)}};
    if (!date.ok()) return std::nullopt;
    return int(sys_days(date).time_since_epoch().count());
}

void TKxDateOrders::Add(const TKxDateCell& Cell) {
    if (Cell.KnowsItsOrder()) return;
    FWasAsked = true;
    bool allowed[3] = {};
    for (const auto order :
         {TKxDateOrder::DayMonthYear, TKxDateOrder::MonthDayYear, TKxDateOrder::YearMonthDay})
        allowed[int(order)] = FAllowed[int(order)] && Cell.Allows(order);
    if (!allowed[0] && !allowed[1] && !allowed[2]) return;
    FDiffers |= !Cell.IsSameEitherWay();
    std::copy(std::begin(allowed), std::end(allowed), FAllowed);
}

std::optional<TKxDateOrder> TKxDateOrders::Decided() const {
    const bool dayFirst = FAllowed[int(TKxDateOrder::DayMonthYear)];
    const bool monthFirst = FAllowed[int(TKxDateOrder::MonthDayYear)];
    if (dayFirst && monthFirst && FDiffers) return std::nullopt;
    if (dayFirst) return TKxDateOrder::DayMonthYear;
    if (monthFirst) return TKxDateOrder::MonthDayYear;
    return TKxDateOrder::YearMonthDay;
}

std::optional<std::vector<double>> DatesOfEightDigits(std::span<const double> Values) {
    constexpr double first = 18000101, last = 22001231, secondsADay = 86400;
    if (Values.size() < 2) return std::nullopt;
    std::vector<double> dates;
    dates.reserve(Values.size());
    double before = 0;
    for (const double value : Values) {
        if (std::isnan(value)) {
            dates.push_back(value); // a gap
            continue;
        }
        if (!(value > before && value >= first && value <= last && value == std::floor(value)))
            return std::nullopt;
        const int digits = int(value);
        const auto day = DayOfDate(digits / 10000, digits / 100 % 100, digits % 100);
        if (!day) return std::nullopt;
        dates.push_back(*day * secondsADay);
        before = value;
    }
    return before > 0 ? std::optional(std::move(dates)) : std::nullopt;
}

} // namespace kx
