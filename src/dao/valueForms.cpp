#include "dao/valueForms.h"

#include "platform/ansiText.h"
#include "platform/hostFormat.h"
#include "platform/numberText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstdio>

namespace dao {

namespace {

constexpr std::string_view hexDigits = "0123456789abcdef";

template <class Number>
std::string shortest(Number number)
{
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

// The text of a number in which no digit is lost, for one that is a number or reads as one.
std::optional<std::string> numberOf(const Value& value)
{
    if (const auto* number = std::get_if<double>(&value.variant()))
        return shortest(*number);
    const auto text = value.text();
    const auto trimmed = platform::trimBlanks(text);
    return platform::isNumeric(trimmed) ? std::optional<std::string>(trimmed) : std::nullopt;
}

// Digits of a whole number, times ten to a power.
struct Decimal
{
    bool negative = false;
    std::string digits;
    std::int64_t exponent = 0;
};

// From text that is numeric; nothing for an exponent beyond all numbers of interest.
std::optional<Decimal> readDecimal(std::string_view text)
{
    Decimal decimal;
    decimal.negative = text.front() == '-';
    const auto exponentAt = std::min(text.find_first_of("eE"), text.size());
    bool behindPoint = false;
    for (const char sign : text.substr(0, exponentAt)) {
        behindPoint = behindPoint || sign == '.';
        if (std::isdigit(static_cast<unsigned char>(sign)) == 0)
            continue;
        decimal.digits += sign;
        decimal.exponent -= behindPoint ? 1 : 0;
    }
    if (exponentAt < text.size()) {
        auto power = text.substr(exponentAt + 1);
        if (power.front() == '+')
            power.remove_prefix(1);
        std::int32_t exponent = 0;
        if (std::from_chars(power.data(), power.data() + power.size(), exponent).ec != std::errc{})
            return std::nullopt;
        decimal.exponent += exponent;
    }
    decimal.digits.erase(0, decimal.digits.find_first_not_of('0'));
    return decimal;
}

void addOne(std::string& digits)
{
    for (auto place = digits.size(); place-- > 0;) {
        char& digit = digits[place];
        if (digit != '9') {
            ++digit;
            return;
        }
        digit = '0';
    }
    digits.insert(digits.begin(), '1');
}

// Whether what is cut off behind the digits that stay rounds them up.
bool roundsUp(std::string_view kept, std::string_view cut)
{
    if (cut.empty() || cut.front() != '5')
        return !cut.empty() && cut.front() > '5';
    if (cut.find_first_not_of('0', 1) != std::string_view::npos)
        return true;
    return !kept.empty() && (kept.back() - '0') % 2 == 1;
}

// The digits of the number times ten to the scale, without leading zeros; nothing for more than the largest
// number has.
std::optional<std::string> scaledDigits(Decimal decimal, std::int64_t scale)
{
    constexpr std::int64_t longest = 64;
    const auto shift = decimal.exponent + scale;
    auto& digits = decimal.digits;
    const auto count = static_cast<std::int64_t>(digits.size());
    if (digits.empty() || count + shift < 0)
        return std::string();
    if (count + shift > longest)
        return std::nullopt;
    if (shift >= 0)
        return digits.append(static_cast<std::size_t>(shift), '0');
    const auto cut = digits.substr(static_cast<std::size_t>(count + shift));
    digits.resize(static_cast<std::size_t>(count + shift));
    if (roundsUp(digits, cut))
        addOne(digits);
    return digits;
}

// Without zeros at the end of the decimals.
std::string withPoint(bool negative, std::string digits, std::size_t scale)
{
    if (digits.size() <= scale)
        digits.insert(0, scale + 1 - digits.size(), '0');
    auto decimals = digits.substr(digits.size() - scale);
    digits.resize(digits.size() - scale);
    decimals.erase(decimals.find_last_not_of('0') + 1);
    if (!decimals.empty())
        digits.append(".").append(decimals);
    return (negative && digits != "0" ? "-" : "") + digits;
}

bool fits(const std::string& digits, bool negative, const ColumnType& type)
{
    constexpr std::size_t mostDigits = 28;
    if (type.type == DataType::dbDecimal)
        return digits.size() <= (type.precision != 0 ? type.precision : mostDigits);
    // A 64-bit number of ten-thousandths.
    const std::string_view largest = negative ? "9223372036854775808" : "9223372036854775807";
    return digits.size() < largest.size() || (digits.size() == largest.size() && digits <= largest);
}

// "h:mm" or "h:mm:ss".
std::optional<std::array<int, 3>> readTime(std::string_view text)
{
    constexpr std::array limits = {24, 60, 60};
    std::array<int, 3> time{};
    for (std::size_t part = 0; part < time.size(); ++part) {
        const auto result = std::from_chars(text.data(), text.data() + text.size(), time[part]);
        if (result.ec != std::errc{} || time[part] < 0 || time[part] >= limits[part])
            return std::nullopt;
        text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
        if (text.empty())
            return part > 0 ? std::optional(time) : std::nullopt;
        if (text.front() != ':')
            return std::nullopt;
        text.remove_prefix(1);
    }
    return std::nullopt;
}

int hexDigit(char sign)
{
    const auto lower = static_cast<char>(std::tolower(static_cast<unsigned char>(sign)));
    const auto place = hexDigits.find(lower);
    return place == std::string_view::npos ? -1 : static_cast<int>(place);
}

} // namespace

double shortestNumber(float number)
{
    std::array<char, 32> text{};
    const auto* const end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    double shortestOne = number; // for what is no number
    std::from_chars(text.data(), end, shortestOne);
    return shortestOne;
}

std::string shortestText(double number)
{
    return shortest(number);
}

std::string momentText(int year, int month, int day, int hour, int minute, int second)
{
    std::array<char, 80> text{}; // six numbers of any length
    const bool midnight = hour == 0 && minute == 0 && second == 0;
    const int length = midnight ? std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", year, month, day)
                                : std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d",
                                                year, month, day, hour, minute, second);
    return {text.data(), static_cast<std::size_t>(length)};
}

std::string hexText(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        text += hexDigits[value >> 4U];
        text += hexDigits[value & 0xfU];
    }
    return text;
}

std::optional<std::string> bytesOfHex(std::string_view text)
{
    if (text.size() % 2 != 0)
        return std::nullopt;
    std::string bytes;
    bytes.reserve(text.size() / 2);
    for (std::size_t place = 0; place < text.size(); place += 2) {
        const int high = hexDigit(text[place]);
        const int low = hexDigit(text[place + 1]);
        if (high < 0 || low < 0)
            return std::nullopt;
        bytes += static_cast<char>(high * 16 + low);
    }
    return bytes;
}

std::optional<Value> asBoolean(const Value& value)
{
    struct Word
    {
        std::string_view word;
        bool truth;
    };
    constexpr std::array words = {Word{"TRUE", true}, Word{"FALSE", false}, Word{"Yes", true},
                                  Word{"No", false}};
    const auto text = value.text();
    const auto trimmed = platform::trimBlanks(text);
    for (const auto& [word, truth] : words) {
        if (platform::equalNoCase(trimmed, word))
            return truth ? "TRUE" : "FALSE";
    }
    if (!platform::isNumeric(trimmed))
        return std::nullopt;
    // Not a zero of any length.
    return trimmed.substr(0, trimmed.find_first_of("eE")).find_first_of("123456789") != std::string_view::npos
               ? "TRUE"
               : "FALSE";
}

std::optional<Value> asMoment(const Value& value)
{
    const auto* text = std::get_if<std::string>(&value.variant());
    const auto day = text != nullptr ? platform::readDate(*text) : std::nullopt;
    if (!day)
        return std::nullopt;
    std::array<int, 3> time{};
    if (const auto colon = text->find(':'); colon != std::string::npos) {
        const auto trimmed = platform::trimBlanks(*text);
        const auto read = readTime(trimmed.substr(trimmed.rfind(' ') + 1));
        if (!read)
            return std::nullopt;
        time = *read;
    }
    return momentText(day->year, day->month, day->day, time[0], time[1], time[2]);
}

std::optional<Value> asGuid(const Value& value)
{
    constexpr std::string_view pattern = "{00000000-0000-0000-0000-000000000000}";
    auto text = std::string(platform::trimBlanks(value.text()));
    if (text.size() + 2 == pattern.size())
        text = "{" + text + "}";
    const bool good = text.size() == pattern.size() &&
                      std::equal(text.begin(), text.end(), pattern.begin(), [](char sign, char place) {
                          return place == '0' ? hexDigit(sign) >= 0 : sign == place;
                      });
    return good ? std::optional<Value>(text) : std::nullopt;
}

std::optional<Value> asExactNumber(const Value& value, const ColumnType& type)
{
    constexpr std::uint8_t decimalsOfCurrency = 4;
    const auto text = numberOf(value);
    const auto decimal = text && platform::isNumeric(*text) ? readDecimal(*text) : std::nullopt;
    if (!decimal)
        return std::nullopt;
    const auto scale = type.type == DataType::dbDecimal ? type.scale : decimalsOfCurrency;
    const auto digits = scaledDigits(*decimal, scale);
    if (!digits || !fits(*digits, decimal->negative, type))
        return std::nullopt;
    return withPoint(decimal->negative, *digits, scale);
}

} // namespace dao
