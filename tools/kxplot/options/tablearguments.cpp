#include "kxplot/options/tablearguments.h"

#include "kxplot/options/number.h"
#include "kxplot/options/usageerror.h"

namespace kxplot {

namespace {

std::optional<int> ParseLines(const char* Option, const std::optional<std::string>& Text, int Lowest) {
    constexpr int most = 1000000000;
    if (!Text) return std::nullopt;
    const auto count = ParseWhole(*Text, Lowest, most);
    if (!count) FailUsage(Option, *Text, "is not a whole number from " + std::to_string(Lowest) + " on");
    return count;
}

std::optional<kx::TKxDateOrder> ParseDateOrder(const std::optional<std::string>& Text) {
    if (!Text) return std::nullopt;
    if (*Text == "dmy") return kx::TKxDateOrder::DayMonthYear;
    if (*Text == "mdy") return kx::TKxDateOrder::MonthDayYear;
    if (*Text == "ymd") return kx::TKxDateOrder::YearMonthDay;
    FailUsage("--date-order", *Text, "is not dmy, mdy or ymd");
}

std::optional<char> ParseDecimal(const std::optional<std::string>& Text) {
    if (!Text) return std::nullopt;
    if (*Text == "point") return '.';
    if (*Text == "comma") return ',';
    FailUsage("--decimal", *Text, "is not point or comma");
}

} // namespace

void AddTableOptions(CLI::App& App, TTableArguments& Given) {
    App.add_flag("--explain", Given.Explain,
                 "tells how the table is read, every guess, and what would be drawn, and draws nothing");
    App.add_option("--skip", Given.Skip, "lines in front of the table (default: found by looking)")
        ->type_name("N");
    App.add_option("--block", Given.Block,
                   "draws this block alone, from 1 on; blocks are parted by empty lines or a lone &, and "
                   "lines break between them")
        ->type_name("N");
    App.add_option("--date-order", Given.DateOrder,
                   "how dates such as 3/4/2005 are meant (default: as all dates of the column allow)")
        ->type_name("dmy|mdy|ymd");
    App.add_option("--time", Given.Time, "column of the x values, which are seconds since 1970 (Unix time)")
        ->type_name("COL");
    App.add_option("--decimal", Given.Decimal,
                   "decimal sign; the other one groups thousands (default: found by looking)")
        ->type_name("point|comma");
    App.add_option("--missing", Given.Missing,
                   "cells that stand for no value (several allowed), beside empty ones, NA, N/A, -, ?, * "
                   "and a lone point")
        ->type_name("TEXT")
        ->allow_extra_args(false);
}

void ReadTableOptions(const TTableArguments& Given, TOptions& Options) {
    TTableRequest& table = Options.Data.Table;
    table.Format.Skip = ParseLines("--skip", Given.Skip, 0);
    table.Format.Block = ParseLines("--block", Given.Block, 1);
    table.Format.DateOrder = ParseDateOrder(Given.DateOrder);
    table.Format.DecimalSign = ParseDecimal(Given.Decimal);
    table.Format.Missing = Given.Missing;
    table.Explain = Given.Explain;
    table.Time = Given.Time;
    if (table.Explain && !Options.Batch.empty()) throw TUsageError("--explain: does not go with --batch");
    if (!table.Time) return;
    if (Options.Columns.X) throw TUsageError("--time: does not go with -x, it names the column of x itself");
    if (Options.Drawing.Bins) throw TUsageError("--time: --hist takes the columns of -y alone");
    Options.Columns.X = table.Time;
}

} // namespace kxplot
