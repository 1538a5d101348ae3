#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

// The clock, and the host's short date, long time and date separator.
namespace platform {

// A moment of the host's local time.
struct LocalTime
{
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    bool operator==(const LocalTime&) const = default;
};

// A day of the calendar.
struct CalendarDay
{
    int year = 0, month = 0, day = 0;
    bool operator==(const CalendarDay&) const = default;
};

[[nodiscard]] LocalTime now();
[[nodiscard]] LocalTime localTime(std::chrono::system_clock::time_point moment);
// Lets the clock stand still at a moment, or run again.
void setClock(std::optional<LocalTime> moment);

// The locale whose formats are used, as in "de_DE.UTF-8"; empty for the host's own, the state at start.
void setHostLocale(std::string_view name);

// Short date with a year of four digits, long time with seconds.
[[nodiscard]] std::string shortDateText(const LocalTime& moment);
[[nodiscard]] std::string longTimeText(const LocalTime& moment);
// Both, parted by a blank; the date alone at exactly midnight.
[[nodiscard]] std::string generalDateText(const LocalTime& moment);
// The sign between the parts of a short date: "/", ".", "-".
[[nodiscard]] std::string dateSeparator();

// Reads three numbers parted by "/", "." or "-", with or without a time of day behind them: year first when
// the first has more than two digits, otherwise in the host's order, or in the other order of day and month
// when only that gives a day of the calendar. A year of two digits is 1930 to 2029. Nothing when the text is
// no date.
[[nodiscard]] std::optional<CalendarDay> readDate(std::string_view text);

} // namespace platform
