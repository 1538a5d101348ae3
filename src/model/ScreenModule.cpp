#include "model/ScreenModule.h"

#include "platform/ansiText.h"
#include "platform/hostFormat.h"
#include "platform/numberText.h"
#include "platform/runtimeError.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace ScreenModule {

namespace {

constexpr std::string_view lineEnd = "\r\n";

bool isOneOf(std::string_view text, std::initializer_list<std::string_view> choices)
{
    return std::any_of(choices.begin(), choices.end(),
                       [text](std::string_view choice) { return platform::equalNoCase(text, choice); });
}

std::string twoDigits(int number)
{
    return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

std::string replaceAll(std::string_view text, std::string_view old, std::string_view replacement)
{
    std::string result;
    for (;;) {
        const auto found = text.find(old);
        result += text.substr(0, found);
        if (found == std::string_view::npos)
            return result;
        result += replacement;
        text.remove_prefix(found + old.size());
    }
}

// What stands before the first dot, which goes from the text together with the dot.
std::string takeUpToDot(std::string& text)
{
    const auto dot = text.find('.');
    if (dot == std::string::npos)
        platform::raise(platform::errInvalidCall);
    auto part = text.substr(0, dot);
    text.erase(0, dot + 1);
    return part;
}

std::string remarksLine(std::string_view piece)
{
    return std::string("t_remarks = ").append(piece).append(lineEnd);
}

} // namespace

bool isValidDay(std::int16_t day)
{
    return day >= 1 && day <= 31;
}

bool isValidMonth(std::int16_t month)
{
    return month >= 1 && month <= 12;
}

bool isValidNoticeYear(std::int16_t year)
{
    const int thisYear = platform::now().year;
    return year >= thisYear - 2 && year <= thisYear + 1;
}

bool isValidYear(std::int16_t year)
{
    return year >= 1950 && year <= platform::now().year + 5;
}

bool hasNoDigit(std::string_view text)
{
    return text.find_first_of("0123456789") == std::string_view::npos;
}

bool isLongDegree(std::int16_t degree)
{
    return degree <= 180;
}

bool isLatDegree(std::int16_t degree)
{
    return degree <= 90;
}

bool isMinSec(std::int16_t value)
{
    return value <= 59;
}

bool isHourMinute(std::int16_t hhmm)
{
    return hhmm >= 0 && hhmm <= 2400;
}

bool isClassOp(std::string_view text)
{
    return isOneOf(text, {"A", "B", "C"});
}

bool isPowerType(std::string_view text)
{
    return isOneOf(text, {"X", "Y", "Z"});
}

bool isAntDir(std::string_view text)
{
    return isOneOf(text, {"D", "ND"});
}

bool isPowerEIV(std::string_view text)
{
    return isOneOf(text, {"E", "I", "V"});
}

bool isGainType(std::string_view text)
{
    return isOneOf(text, {"I", "V", "D"});
}

bool isFreqUnit(std::string_view text)
{
    return isOneOf(text, {"k", "M", "G"});
}

bool isEastWest(std::string_view text)
{
    return isOneOf(text, {"E", "W"});
}

bool isNorthSouth(std::string_view text)
{
    return isOneOf(text, {"N", "S"});
}

bool readsAs(bool (*check)(std::int16_t), std::string_view text)
{
    try {
        return check(platform::roundToInteger(platform::readNumber(text)));
    } catch (const platform::RuntimeError& failure) {
        if (failure.number != platform::errOverflow)
            throw;
        return false;
    }
}

double freqToMHz(double value, std::string_view unit)
{
    if (platform::equalNoCase(unit, "K"))
        return value * 0.001;
    if (platform::equalNoCase(unit, "M"))
        return value;
    if (!platform::equalNoCase(unit, "G"))
        return 0;
    const double megahertz = value * 1000;
    if (std::isinf(megahertz))
        platform::raise(platform::errOverflow);
    return megahertz;
}

void splitDottedDate(std::string& text, std::string& year, std::string& month, std::string& day)
{
    text = trimText(text);
    day = takeUpToDot(text);
    month = takeUpToDot(text);
    year = text;
}

std::string formatDateDots(std::string_view text)
{
    auto separated = replaceAll(text, getIntlSetting("sdate"), "/");
    const auto day = platform::readDate(separated);
    if (!day)
        return separated;
    return twoDigits(day->day) + '.' + twoDigits(day->month) + '.' + twoDigits(day->year / 100) +
           twoDigits(day->year);
}

std::string getIntlSetting(std::string_view key)
{
    return platform::equalNoCase(key, "sdate") ? platform::dateSeparator() : std::string();
}

std::string joinTextLines(std::string& text)
{
    std::string result;
    while (!text.empty()) {
        const auto carriageReturn = text.find('\r');
        if (carriageReturn == std::string::npos)
            break;
        // Each line takes the place of the one before it, and a line end counts as two characters, whatever
        // the second one is.
        result = text.substr(0, carriageReturn);
        const auto rest = std::string_view(text).substr(carriageReturn + 1);
        text = std::string(platform::mid(rest, 2, rest.size()));
    }
    return result + trimText(text);
}

std::string copyRemarkText(std::string& text)
{
    auto result = text;
    text.erase(0, text.rfind(';') + 1); // the whole text stays where there is no ";"
    return result;
}

std::string remarksToElectLines(std::string& text)
{
    std::string result;
    for (auto end = text.find(';'); end != std::string::npos; end = text.find(';')) {
        // Each piece takes the place of the one before it.
        result = remarksLine(std::string_view(text).substr(0, end));
        text.erase(0, end + 1);
    }
    return text.empty() ? result : result + remarksLine(text);
}

std::string makeKeyLine(std::string_view key, std::string_view value)
{
    std::string line;
    addKeyLine(line, key, value);
    return line;
}

void addKeyLine(std::string& text, std::string_view key, std::string_view value)
{
    if (!value.empty())
        text.append(key).append("=").append(value).append(lineEnd);
}

std::string trimText(std::string_view text)
{
    return std::string(platform::trimBlanks(text));
}

std::string upperText(std::string_view text)
{
    return platform::toUpper(text);
}

} // namespace ScreenModule
