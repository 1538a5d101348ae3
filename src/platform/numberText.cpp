#include "platform/numberText.h"

#include "platform/runtimeError.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace platform {

namespace {

constexpr int significantDigits = 15;
constexpr int digitsOfAnyDouble = 17; // two doubles never have the same text of so many

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

std::size_t skipDigits(std::string_view text, std::size_t position)
{
    while (position < text.size() && isDigit(text[position]))
        ++position;
    return position;
}

std::size_t skipSign(std::string_view text, std::size_t position)
{
    const bool sign = position < text.size() && (text[position] == '+' || text[position] == '-');
    return sign ? position + 1 : position;
}

// Behind the exponent that begins at the position; the position itself when there is no whole one.
std::size_t skipExponent(std::string_view text, std::size_t position)
{
    if (position >= text.size() || (text[position] != 'E' && text[position] != 'e'))
        return position;
    const auto digits = skipSign(text, position + 1);
    const auto end = skipDigits(text, digits);
    return end == digits ? position : end;
}

// Length of the number at the beginning of the text, 0 for none.
std::size_t numberLength(std::string_view text)
{
    const auto first = skipSign(text, 0);
    auto end = skipDigits(text, first);
    auto digits = end - first;
    if (end < text.size() && text[end] == '.') {
        const auto decimals = skipDigits(text, end + 1);
        digits += decimals - end - 1;
        end = decimals;
    }
    return digits == 0 ? 0 : skipExponent(text, end);
}

// Whether a number that no double holds is too large rather than too small: decided by the exponent of its
// first digit that counts.
bool isTooLarge(std::string_view number)
{
    const auto exponentAt = number.find_first_of("Ee");
    const auto mantissa = number.substr(0, exponentAt);
    const auto firstDigit = mantissa.find_first_of("123456789");
    if (firstDigit == std::string_view::npos)
        return false;
    auto point = mantissa.find('.');
    if (point == std::string_view::npos)
        point = mantissa.size();
    const double digitsBeforePoint = static_cast<double>(point) - static_cast<double>(firstDigit);
    if (exponentAt == std::string_view::npos)
        return digitsBeforePoint > 0;

    auto digits = number.substr(exponentAt + 1);
    const bool negative = digits.front() == '-';
    digits = digits.substr(skipSign(digits, 0));
    double exponent = 0;
    for (const char digit : digits)
        exponent = exponent * 10 + (digit - '0');
    return digitsBeforePoint + (negative ? -exponent : exponent) > 0;
}

// A number as digits "d.ddd" without trailing zeros, and its decimal exponent.
struct Decimal
{
    std::string digits;
    int exponent;
};

Decimal roundedDecimal(double magnitude, int digits)
{
    std::array<char, 32> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                            std::chars_format::scientific, digits - 1);
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    const auto exponentAt = text.find('e');
    Decimal decimal{{text.front()}, 0};
    decimal.digits += text.substr(2, exponentAt - 2);
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);

    const auto signAt = exponentAt + 1;
    std::from_chars(text.data() + signAt + 1, end, decimal.exponent);
    if (text[signAt] == '-')
        decimal.exponent = -decimal.exponent;
    return decimal;
}

std::string plainText(const Decimal& decimal)
{
    if (decimal.exponent < 0)
        return "0." + std::string(static_cast<std::size_t>(-decimal.exponent - 1), '0') + decimal.digits;
    auto text = decimal.digits;
    const auto whole = static_cast<std::size_t>(decimal.exponent) + 1;
    if (text.size() <= whole)
        text.append(whole - text.size(), '0');
    else
        text.insert(whole, ".");
    return text;
}

std::string exponentText(const Decimal& decimal)
{
    auto text = decimal.digits;
    if (text.size() > 1)
        text.insert(1, ".");
    const int exponent = std::abs(decimal.exponent);
    text += decimal.exponent < 0 ? "E-" : "E+";
    if (exponent < 10)
        text += '0';
    return text + std::to_string(exponent);
}

std::string magnitudeText(double magnitude, int digits)
{
    const auto decimal = roundedDecimal(magnitude, digits);
    const auto decimals = static_cast<int>(decimal.digits.size()) - 1 - decimal.exponent;
    const bool isPlain =
        decimal.exponent < significantDigits && (decimal.exponent >= 0 || decimals <= digits);
    return isPlain ? plainText(decimal) : exponentText(decimal);
}

std::string numberTextOf(double number, int digits)
{
    // Only a database from elsewhere can hold such a number; its text is none, and is refused where one is
    // read.
    if (!std::isfinite(number))
        return number < 0 ? "-inf" : "inf";
    return (number < 0 ? "-" : "") + magnitudeText(std::abs(number), digits);
}

// Whether a text of the module's own making reads back as the number.
bool isTextOf(const std::string& text, double number)
{
    double read = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), read);
    return error == std::errc() && read == number;
}

template <class Whole>
Whole roundTo(double number)
{
    const double whole = std::nearbyint(number); // halves to even in the rounding mode that nobody changes
    const bool fits =
        whole >= std::numeric_limits<Whole>::min() && whole <= std::numeric_limits<Whole>::max();
    if (!fits) // not a number fails too
        raise(errOverflow);
    return static_cast<Whole>(whole);
}

} // namespace

bool isNumeric(std::string_view text)
{
    return !text.empty() && numberLength(text) == text.size();
}

double readNumber(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return 0;
    text.remove_prefix(first);
    text = text.substr(0, numberLength(text));
    if (text.empty())
        return 0;
    if (text.front() == '+') // from_chars knows no plus sign
        text.remove_prefix(1);

    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc::result_out_of_range)
        return number;
    if (isTooLarge(text))
        raise(errOverflow);
    return 0;
}

std::string numberText(double number)
{
    return numberTextOf(number, significantDigits);
}

std::string exactNumberText(double number)
{
    auto text = numberText(number);
    for (int digits = significantDigits + 1; digits <= digitsOfAnyDouble && !isTextOf(text, number); ++digits)
        text = numberTextOf(number, digits);
    return text;
}

std::string signedNumberText(double number)
{
    auto text = numberText(number);
    if (text.front() != '-')
        text.insert(text.begin(), ' ');
    return text;
}

std::string integerText(std::int64_t number)
{
    return std::to_string(number);
}

std::int32_t roundToLong(double number)
{
    return roundTo<std::int32_t>(number);
}

std::int16_t roundToInteger(double number)
{
    return roundTo<std::int16_t>(number);
}

} // namespace platform
