#include "jet/values.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <utility>

namespace jet {

namespace {

std::string withFraction(std::string digits, std::size_t scale, bool isNegative)
{
    if (digits.size() <= scale)
        digits.insert(0, scale + 1 - digits.size(), '0');
    const auto whole = digits.size() - scale;
    auto fraction = digits.substr(whole);
    fraction.erase(fraction.find_last_not_of('0') + 1);
    digits.resize(whole);
    if (!fraction.empty())
        digits += "." + fraction;
    return isNegative && digits != "0" ? "-" + digits : digits;
}

using Words = std::array<std::uint32_t, 4>; // the most significant first

// Divides in place and gives the remainder.
std::uint32_t divide(Words& words, std::uint32_t divisor)
{
    std::uint64_t rest = 0;
    for (auto& word : words) {
        rest = (rest << 32U) | word;
        word = static_cast<std::uint32_t>(rest / divisor);
        rest %= divisor;
    }
    return static_cast<std::uint32_t>(rest);
}

std::string digitsOf(Words words)
{
    std::string digits;
    do
        digits += static_cast<char>('0' + divide(words, 10));
    while (words != Words{});
    std::reverse(digits.begin(), digits.end());
    return digits;
}

void appendHex(std::string& text, std::uint64_t number, unsigned digits)
{
    constexpr std::string_view hex = "0123456789ABCDEF";
    while (digits-- > 0)
        text += hex[(number >> (4U * digits)) & 0xFU];
}

std::uint64_t bigEndian(const ByteView& value, std::size_t at, std::size_t size)
{
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < size; ++i)
        number = (number << 8U) | value.u8(at + i);
    return number;
}

CalendarTime calendarOf(std::chrono::sys_seconds moment)
{
    using namespace std::chrono;
    const auto midnight = floor<days>(moment);
    const year_month_day date(midnight);
    const hh_mm_ss time(moment - midnight);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

[[noreturn]] void raiseBadDate()
{
    throw Error(Fault::Damaged, "A date lies outside the years 100 to 9999.");
}

} // namespace

std::string currencyText(std::int64_t tenThousandths)
{
    const bool isNegative = tenThousandths < 0;
    const auto bits = static_cast<std::uint64_t>(tenThousandths);
    return withFraction(std::to_string(isNegative ? 0 - bits : bits), 4, isNegative);
}

std::string decimalText(const ByteView& value, unsigned scale)
{
    const Words words = {value.u32(1), value.u32(5), value.u32(9), value.u32(13)};
    return withFraction(digitsOf(words), scale, value.u8(0) != 0);
}

std::string guidText(const ByteView& value)
{
    std::string text = "{";
    appendHex(text, value.u32(0), 8);
    text += '-';
    appendHex(text, value.u16(4), 4);
    text += '-';
    appendHex(text, value.u16(6), 4);
    text += '-';
    appendHex(text, bigEndian(value, 8, 2), 4);
    text += '-';
    appendHex(text, bigEndian(value, 10, 6), 12);
    return text + '}';
}

std::size_t sizeOf(Type type)
{
    switch (type) {
    case Type::Byte:
        return 1;
    case Type::Integer:
        return 2;
    case Type::Long:
    case Type::Single:
        return 4;
    case Type::Currency:
    case Type::Double:
    case Type::DateTime:
        return 8;
    case Type::Guid:
        return 16;
    case Type::Decimal:
        return 17;
    default:
        return 0;
    }
}

CalendarTime calendarTime(DateTime moment)
{
    using namespace std::chrono;
    constexpr double firstDay = -657434; // 100-01-01
    constexpr double endDay = 2958466;   // 10000-01-01
    constexpr double secondsPerDay = 86400;
    if (!(moment.days > firstDay - 1 && moment.days < endDay)) // not a number: neither
        raiseBadDate();
    const double day = std::trunc(moment.days);
    const auto second = std::llround(std::abs(moment.days - day) * secondsPerDay);
    constexpr sys_seconds dayZero = sys_days(year(1899) / December / 30);
    const auto time = calendarOf(dayZero + days(static_cast<int>(day)) + seconds(second));
    if (time.year > 9999) // by the rounding
        raiseBadDate();
    return time;
}

} // namespace jet
