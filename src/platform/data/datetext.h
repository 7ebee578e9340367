#pragma once
// Moments as texts of the ISO kind, for fields that hold dates. Moments are seconds since 1970-01-01 00:00,
// in the calendar of today carried back.

#include <optional>
#include <string>
#include <string_view>

namespace kx {

/// "2003-09-19"; of a moment within a day that of the day. Empty for what has no date: years before 0 and
/// after 9999.
std::string DateText(double Moment);
/// "2003-09-19 13:05:07.25": with seconds always, with up to six digits behind them as far as they tell
/// something.
std::string DateTimeText(double Moment);
/// Both, with T for the blank, without seconds, and with Z or an offset as +01:00, +0100 or +01 behind the
/// time, too. Nothing for any other text, and for a day or a time that there is not.
std::optional<double> MomentOfText(std::string_view Text);

} // namespace kx
