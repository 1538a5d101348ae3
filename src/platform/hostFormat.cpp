#include "platform/hostFormat.h"

#include "platform/ansiText.h"
#include "platform/runtimeError.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

namespace platform {

namespace {

using Formatter = std::unique_ptr<icu::SimpleDateFormat>;

// The formats of one locale. `order` holds the fields of a short date, 'd', 'M' and 'y', as they follow one
// another; `ending` is what its pattern has behind the last one.
struct Formats
{
    Formatter shortDate, longTime;
    std::string separator, order, ending;
    mutable CalendarDay lastDay;
    mutable std::string lastDateText;
};

std::optional<LocalTime> standingClock;
std::optional<std::string> givenLocale;
std::optional<Formats> cachedFormats;

std::string environmentValue(const char* name)
{
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

// The host's own locale for dates; empty to leave it to the formatting library.
std::string hostLocaleName()
{
#ifdef _WIN32
    return {};
#else
    for (const char* const name : {"LC_ALL", "LC_TIME", "LANG"}) {
        auto value = environmentValue(name);
        if (!value.empty())
            return value;
    }
    return "C";
#endif
}

icu::Locale localeOf(std::string name)
{
    const bool isDefault = name.empty();
    name.erase(std::min(name.find_first_of(".@"), name.size())); // code set and variant
    if (name == "C" || name == "POSIX")
        name = "en_US_POSIX";
    auto locale = isDefault ? icu::Locale::getDefault() : icu::Locale(name.c_str());
    // Other calendars and digits would neither fit the code page nor be read back.
    UErrorCode status = U_ZERO_ERROR;
    locale.setKeywordValue("calendar", "gregorian", status);
    locale.setKeywordValue("numbers", "latn", status);
    return locale;
}

Formatter checkedFormatter(icu::DateFormat* format)
{
    std::unique_ptr<icu::DateFormat> owned(format);
    auto* const simple = dynamic_cast<icu::SimpleDateFormat*>(owned.get());
    if (simple == nullptr)
        raise(errInvalidCall);
    Formatter formatter(simple);
    static_cast<void>(owned.release());
    // The moments to be formatted are local already.
    formatter->setTimeZone(*icu::TimeZone::getGMT());
    return formatter;
}

icu::UnicodeString patternOf(const icu::SimpleDateFormat& formatter)
{
    icu::UnicodeString pattern;
    formatter.toPattern(pattern);
    return pattern;
}

bool isDirectionMark(char16_t unit)
{
    return unit == 0x200E || unit == 0x200F || unit == 0x061C;
}

bool isFieldLetter(char16_t unit)
{
    return unit == 'd' || unit == 'M' || unit == 'L' || unit == 'y' || unit == 'u';
}

// A short date pattern without direction marks, which no file can hold, with a year of four digits, and what
// it tells about the order of a date.
struct ShortPattern
{
    icu::UnicodeString text, separator, ending;
    std::string order;
};

char orderLetter(char16_t field)
{
    if (field == 'd')
        return 'd';
    return field == 'M' || field == 'L' ? 'M' : 'y';
}

void addField(ShortPattern& pattern, char16_t field, int length)
{
    const char letter = orderLetter(field);
    pattern.order += letter;
    if (pattern.order.size() == 2)
        pattern.separator = pattern.ending;
    pattern.ending.remove();
    for (int i = 0; i < (letter == 'y' ? 4 : length); ++i)
        pattern.text += field;
}

ShortPattern shortPattern(const icu::UnicodeString& original)
{
    ShortPattern pattern;
    bool quoted = false;
    for (int32_t i = 0; i < original.length(); ++i) {
        const char16_t unit = original[i];
        if (isDirectionMark(unit))
            continue;
        if (!quoted && isFieldLetter(unit)) {
            const int32_t first = i;
            while (i + 1 < original.length() && original[i + 1] == unit)
                ++i;
            addField(pattern, unit, i + 1 - first);
            continue;
        }
        pattern.text += unit;
        if (unit == '\'')
            quoted = !quoted;
        else
            pattern.ending += unit;
    }
    return pattern;
}

// As the code page can hold it: its blank is plain and may break.
std::string plainText(icu::UnicodeString text)
{
    for (const char16_t blank : {char16_t{0x202F}, char16_t{0x00A0}})
        text.findAndReplace(icu::UnicodeString(blank), icu::UnicodeString(u' '));
    std::string result;
    text.toUTF8String(result);
    return result;
}

// Commonly ".", "/" or "-", whatever else stands around it.
std::string separatorSign(icu::UnicodeString betweenFields)
{
    betweenFields.trim();
    return betweenFields.length() == 0 ? "/" : plainText(icu::UnicodeString(betweenFields[0]));
}

Formats formatsOf(const icu::Locale& locale)
{
    Formats formats;
    formats.shortDate =
        checkedFormatter(icu::DateFormat::createDateInstance(icu::DateFormat::kShort, locale));
    formats.longTime =
        checkedFormatter(icu::DateFormat::createTimeInstance(icu::DateFormat::kMedium, locale));
    const auto pattern = shortPattern(patternOf(*formats.shortDate));
    formats.shortDate->applyPattern(pattern.text);
    formats.separator = separatorSign(pattern.separator);
    formats.order = pattern.order;
    formats.ending = plainText(icu::UnicodeString(pattern.ending).trim());
    return formats;
}

const Formats& hostFormats()
{
    if (!cachedFormats)
        cachedFormats = formatsOf(localeOf(givenLocale ? *givenLocale : hostLocaleName()));
    return *cachedFormats;
}

std::string formatted(const icu::SimpleDateFormat& formatter, const LocalTime& moment)
{
    using namespace std::chrono;
    const sys_days day = year(moment.year) / month(static_cast<unsigned>(moment.month)) /
                         std::chrono::day(static_cast<unsigned>(moment.day));
    const auto time = day + hours(moment.hour) + minutes(moment.minute) + seconds(moment.second);
    icu::UnicodeString text;
    formatter.format(static_cast<UDate>(milliseconds(time.time_since_epoch()).count()), text);
    return plainText(text);
}

// One of the three numbers of a date.
struct DatePart
{
    int value = 0;
    std::size_t digits = 0;
};

bool isDateSeparator(char sign)
{
    return sign == '/' || sign == '.' || sign == '-';
}

// Takes a number of at most four digits, and the blanks before it, from the front of the text.
std::optional<DatePart> takeNumber(std::string_view& text)
{
    text = trimBlanks(text);
    DatePart part;
    for (; part.digits < text.size() && part.digits <= 4 && text[part.digits] >= '0' &&
           text[part.digits] <= '9';
         ++part.digits)
        part.value = part.value * 10 + (text[part.digits] - '0');
    if (part.digits == 0 || part.digits > 4)
        return std::nullopt;
    text = trimBlanks(text.substr(part.digits));
    return part;
}

std::optional<std::array<DatePart, 3>> threeNumbers(std::string_view text)
{
    std::array<DatePart, 3> parts;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) {
            if (text.empty() || !isDateSeparator(text.front()))
                return std::nullopt;
            text.remove_prefix(1);
        }
        const auto part = takeNumber(text);
        if (!part)
            return std::nullopt;
        parts[i] = *part;
    }
    if (!text.empty())
        return std::nullopt;
    return parts;
}

int fullYear(const DatePart& part)
{
    constexpr int firstOfThisCentury = 30; // years from here on belong to the last one
    if (part.digits > 2)
        return part.value;
    return part.value + (part.value < firstOfThisCentury ? 2000 : 1900);
}

std::optional<CalendarDay> calendarDay(const DatePart& year, const DatePart& month, const DatePart& day)
{
    if (month.digits > 2 || day.digits > 2)
        return std::nullopt;
    const CalendarDay result{fullYear(year), month.value, day.value};
    const std::chrono::year_month_day date{std::chrono::year(result.year),
                                           std::chrono::month(static_cast<unsigned>(result.month)),
                                           std::chrono::day(static_cast<unsigned>(result.day))};
    if (result.year < 1 || !date.ok())
        return std::nullopt;
    return result;
}

// Without what the host's own short date has behind its last field, also when its separators were replaced.
std::string_view withoutEnding(std::string_view text, const Formats& formats)
{
    text = trimBlanks(text);
    auto replaced = formats.ending;
    if (const auto place = replaced.find(formats.separator); place != std::string::npos)
        replaced.replace(place, formats.separator.size(), "/");
    for (const std::string_view ending : {std::string_view(formats.ending), std::string_view(replaced)}) {
        if (!ending.empty() && text.ends_with(ending))
            return trimBlanks(text.substr(0, text.size() - ending.size()));
    }
    return text;
}

// Without a time of day, "h:mm" or "h:mm:ss", behind a blank.
std::string_view withoutTime(std::string_view text)
{
    const auto blank = text.rfind(' ');
    if (blank == std::string_view::npos)
        return text;
    const auto time = text.substr(blank + 1);
    const auto colons = std::count(time.begin(), time.end(), ':');
    const bool isTime = (colons == 1 || colons == 2) && time.front() != ':' && time.back() != ':' &&
                        time.find_first_not_of("0123456789:") == std::string_view::npos;
    return isTime ? trimBlanks(text.substr(0, blank)) : text;
}

} // namespace

LocalTime now()
{
    return standingClock ? *standingClock : localTime(std::chrono::system_clock::now());
}

LocalTime localTime(std::chrono::system_clock::time_point moment)
{
    const std::time_t seconds = std::chrono::system_clock::to_time_t(moment);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &seconds);
#else
    localtime_r(&seconds, &local);
#endif
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

void setClock(std::optional<LocalTime> moment)
{
    standingClock = moment;
}

void setHostLocale(std::string_view name)
{
    givenLocale = name.empty() ? std::nullopt : std::optional<std::string>(name);
    cachedFormats.reset();
}

std::string shortDateText(const LocalTime& moment)
{
    // A load asks for the date of the day with each notice.
    const auto& formats = hostFormats();
    const CalendarDay day{moment.year, moment.month, moment.day};
    if (formats.lastDay != day) {
        formats.lastDateText = formatted(*formats.shortDate, moment);
        formats.lastDay = day;
    }
    return formats.lastDateText;
}

std::string longTimeText(const LocalTime& moment)
{
    return formatted(*hostFormats().longTime, moment);
}

std::string generalDateText(const LocalTime& moment)
{
    const bool isMidnight = moment.hour == 0 && moment.minute == 0 && moment.second == 0;
    return isMidnight ? shortDateText(moment) : shortDateText(moment) + ' ' + longTimeText(moment);
}

std::string dateSeparator()
{
    return hostFormats().separator;
}

std::optional<CalendarDay> readDate(std::string_view text)
{
    const auto& formats = hostFormats();
    const auto parts = threeNumbers(withoutEnding(withoutTime(trimBlanks(text)), formats));
    if (!parts)
        return std::nullopt;
    const auto& [first, second, third] = *parts;
    if (first.digits > 2)
        return calendarDay(first, second, third);
    const bool dayFirst = formats.order.find('d') < formats.order.find('M');
    if (formats.order.front() == 'y' && third.digits <= 2) {
        const auto day = dayFirst ? calendarDay(first, third, second) : calendarDay(first, second, third);
        if (day)
            return day;
        return dayFirst ? calendarDay(first, second, third) : calendarDay(first, third, second);
    }
    const auto day = dayFirst ? calendarDay(third, second, first) : calendarDay(third, first, second);
    if (day)
        return day;
    return dayFirst ? calendarDay(third, first, second) : calendarDay(third, second, first);
}

} // namespace platform
