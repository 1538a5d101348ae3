#include "platform/hostFormat.h"

#include "platform/ansiText.h"

#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>

namespace {

using namespace platform;

constexpr LocalTime afternoon{2024, 3, 5, 14, 7, 9};

class HostFormat : public testing::Test
{
protected:
    void TearDown() override
    {
        setHostLocale("");
        setClock(std::nullopt);
    }
};

TEST_F(HostFormat, followsTheLocale)
{
    const struct
    {
        const char* locale;
        const char* date;
        const char* time;
        const char* separator;
    } rows[] = {
        {"de_DE.UTF-8", "05.03.2024", "14:07:09", "."},
        {"de_DE.ISO-8859-1@euro", "05.03.2024", "14:07:09", "."},
        {"de_DE", "05.03.2024", "14:07:09", "."},
        {"fr_FR.UTF-8", "05/03/2024", "14:07:09", "/"},
        {"en_GB.UTF-8", "05/03/2024", "14:07:09", "/"},
        {"en_US.UTF-8", "3/5/2024", "2:07:09 PM", "/"},
        {"sv_SE.UTF-8", "2024-03-05", "14:07:09", "-"},
        {"nl_NL.UTF-8", "05-03-2024", "14:07:09", "-"},
        {"cs_CZ.UTF-8", "05.03.2024", "14:07:09", "."},
    };
    for (const auto& row : rows) {
        setHostLocale(row.locale);
        EXPECT_EQ(shortDateText(afternoon), row.date) << row.locale;
        EXPECT_EQ(longTimeText(afternoon), row.time) << row.locale;
        EXPECT_EQ(dateSeparator(), row.separator) << row.locale;
    }
}

TEST_F(HostFormat, writesAYearOfFourDigitsInEveryLocaleAndReadsItBack)
{
    for (const char* locale :
         {"C",     "en_US", "en_GB", "en_ZA", "de_DE", "de_CH", "fr_FR", "fr_CA", "es_ES", "es_MX",
          "it_IT", "pt_BR", "nl_NL", "sv_SE", "nb_NO", "fi_FI", "da_DK", "pl_PL", "cs_CZ", "sk_SK",
          "hu_HU", "hr_HR", "bg_BG", "lv_LV", "lt_LT", "ru_RU", "uk_UA", "tr_TR", "ja_JP", "ko_KR",
          "zh_CN", "th_TH", "fa_IR", "ar_EG", "ar_SA", "he_IL", "sq_AL", "mk_MK", "kk_KZ"}) {
        setHostLocale(locale);
        const auto text = shortDateText({2024, 3, 15, 0, 0, 0});
        EXPECT_NE(text.find("2024"), std::string::npos) << locale << ": " << text;
        EXPECT_EQ(readDate(text), (CalendarDay{2024, 3, 15})) << locale << ": " << text;
        EXPECT_EQ(readDate(shortDateText({2024, 3, 5, 0, 0, 0})), (CalendarDay{2024, 3, 5})) << locale;
        EXPECT_FALSE(dateSeparator().empty()) << locale;
    }
}

TEST_F(HostFormat, writesEachDayThoughOnlyTheMonthDiffers)
{
    setHostLocale("de_DE");
    EXPECT_EQ(shortDateText({2024, 3, 5, 0, 0, 0}), "05.03.2024");
    EXPECT_EQ(shortDateText({2024, 4, 5, 0, 0, 0}), "05.04.2024");
    EXPECT_EQ(shortDateText({2025, 4, 5, 0, 0, 0}), "05.04.2025");
}

TEST_F(HostFormat, hasPlainBlanksThatTheCodePageHolds)
{
    setHostLocale("en_US");
    const auto text = longTimeText(afternoon);
    EXPECT_EQ(utf8ToAnsi(text), text);
    EXPECT_EQ(text, "2:07:09 PM");
}

TEST_F(HostFormat, writesMidnightAndTheEndsOfAYear)
{
    setHostLocale("de_DE");
    EXPECT_EQ(shortDateText({1999, 12, 31, 23, 59, 59}), "31.12.1999");
    EXPECT_EQ(longTimeText({1999, 12, 31, 23, 59, 59}), "23:59:59");
    EXPECT_EQ(shortDateText({2000, 1, 1, 0, 0, 0}), "01.01.2000");
    EXPECT_EQ(longTimeText({2000, 1, 1, 0, 0, 0}), "00:00:00");
    EXPECT_EQ(shortDateText({2024, 2, 29, 0, 0, 0}), "29.02.2024");
}

TEST_F(HostFormat, writesAMomentAsDateAndTimeAndMidnightAsDateAlone)
{
    setHostLocale("de_DE");
    EXPECT_EQ(generalDateText(afternoon), "05.03.2024 14:07:09");
    EXPECT_EQ(generalDateText({2024, 3, 5, 0, 0, 0}), "05.03.2024");
    EXPECT_EQ(generalDateText({2024, 3, 5, 0, 0, 1}), "05.03.2024 00:00:01");
    setHostLocale("en_US");
    EXPECT_EQ(generalDateText(afternoon), "3/5/2024 2:07:09 PM");
}

#ifndef _WIN32

// The variables of the environment that name the host's locale, restored at the end.
class HostLocale : public HostFormat
{
protected:
    void SetUp() override
    {
        for (std::size_t i = 0; i < names.size(); ++i) {
            const char* const value = std::getenv(names[i]);
            m_before[i] = value != nullptr ? std::optional<std::string>(value) : std::nullopt;
        }
    }
    void TearDown() override
    {
        for (std::size_t i = 0; i < names.size(); ++i)
            set(names[i], m_before[i]);
        HostFormat::TearDown();
    }

    static void set(const char* name, const std::optional<std::string>& value)
    {
        if (value)
            setenv(name, value->c_str(), 1);
        else
            unsetenv(name);
    }
    static std::string dateWith(const char* all, const char* time, const char* lang)
    {
        set("LC_ALL", all);
        set("LC_TIME", time);
        set("LANG", lang);
        setHostLocale("");
        return shortDateText(afternoon);
    }

    static constexpr std::array<const char*, 3> names = {"LC_ALL", "LC_TIME", "LANG"};

private:
    std::array<std::optional<std::string>, 3> m_before;
};

TEST_F(HostLocale, isTheFirstOfItsVariablesThatIsNotEmpty)
{
    EXPECT_EQ(dateWith("de_DE.UTF-8", "sv_SE", "fr_FR"), "05.03.2024");
    EXPECT_EQ(dateWith("", "sv_SE.UTF-8", "fr_FR"), "2024-03-05");
    EXPECT_EQ(dateWith("", "", "fr_FR.UTF-8"), "05/03/2024");
}

TEST_F(HostLocale, isPlainWithoutAnyOrInTheNamesOfThePlainOne)
{
    const auto plain = dateWith("", "", "");
    EXPECT_EQ(plain, "3/5/2024");
    for (const char* name : {"C", "POSIX", "C.UTF-8", "C.utf8", "en_US_POSIX"})
        EXPECT_EQ(dateWith(name, "de_DE", "de_DE"), plain) << name;
}

#endif

TEST_F(HostFormat, readsDatesInTheHostsOrder)
{
    const struct
    {
        const char* locale;
        const char* text;
        std::optional<CalendarDay> day;
    } rows[] = {
        {"de_DE", "05.03.2024", CalendarDay{2024, 3, 5}},
        {"de_DE", "5/3/2024", CalendarDay{2024, 3, 5}},
        {"de_DE", "5-3-2024", CalendarDay{2024, 3, 5}},
        {"de_DE", "5.3/2024", CalendarDay{2024, 3, 5}},
        {"de_DE", "3/15/2024", CalendarDay{2024, 3, 15}}, // only the other order gives a day
        {"en_US", "3/5/2024", CalendarDay{2024, 3, 5}},
        {"en_US", "15/3/2024", CalendarDay{2024, 3, 15}},
        {"en_US", "2/29/2023", std::nullopt},
        {"sv_SE", "24-03-05", CalendarDay{2024, 3, 5}},
        {"sv_SE", "24-15-03", CalendarDay{2024, 3, 15}},
        {"sv_SE", "03-05-2024", CalendarDay{2024, 3, 5}},
        {"sv_SE", "15-03-2024", CalendarDay{2024, 3, 15}},
    };
    for (const auto& row : rows) {
        setHostLocale(row.locale);
        EXPECT_EQ(readDate(row.text), row.day) << row.locale << ' ' << row.text;
    }
}

TEST_F(HostFormat, readsAYearFirstInAnyLocale)
{
    for (const char* locale : {"de_DE", "en_US", "sv_SE"}) {
        setHostLocale(locale);
        EXPECT_EQ(readDate("2024-03-05"), (CalendarDay{2024, 3, 5}));
        EXPECT_EQ(readDate("2024/3/5"), (CalendarDay{2024, 3, 5}));
        EXPECT_EQ(readDate("024.3.5"), (CalendarDay{24, 3, 5}));
        EXPECT_EQ(readDate("2024-15-03"), std::nullopt);
    }
}

TEST_F(HostFormat, takesAYearOfTwoDigitsFrom1930To2029)
{
    setHostLocale("de_DE");
    EXPECT_EQ(readDate("1.2.29"), (CalendarDay{2029, 2, 1}));
    EXPECT_EQ(readDate("1.2.30"), (CalendarDay{1930, 2, 1}));
    EXPECT_EQ(readDate("1.2.00"), (CalendarDay{2000, 2, 1}));
    EXPECT_EQ(readDate("1.2.99"), (CalendarDay{1999, 2, 1}));
    EXPECT_EQ(readDate("1.2.5"), (CalendarDay{2005, 2, 1}));
    EXPECT_EQ(readDate("1.2.100"), (CalendarDay{100, 2, 1}));
}

TEST_F(HostFormat, knowsTheLengthOfEachMonth)
{
    setHostLocale("de_DE");
    for (const char* text : {"31.1.2024", "29.2.2024", "29.2.2000", "28.2.1900", "30.4.2024", "31.12.9999",
                             "1.1.0001", "2000-02-29"})
        EXPECT_TRUE(readDate(text)) << text;
    for (const char* text : {"32.1.2024", "30.2.2024", "29.2.2023", "29.2.1900", "31.4.2024", "0.1.2024",
                             "1.0.2024", "13.13.2024", "1.1.0000", "1.1.10000", "1900-02-29"})
        EXPECT_FALSE(readDate(text)) << text;
}

TEST_F(HostFormat, readsNoDateInAnythingElse)
{
    setHostLocale("de_DE");
    EXPECT_TRUE(readDate("  1.2.2024  "));
    for (const char* text : {"",
                             "   ",
                             "1",
                             "1.2",
                             "1.2.",
                             ".1.2024",
                             "1..2024",
                             "1.2.2024.5",
                             "1.2.2024x",
                             "x1.2.2024",
                             "1,2,2024",
                             "1 2 2024",
                             "-1.2.2024",
                             "1.2.+2024",
                             "1.2.20 24",
                             "001.02.2024",
                             "1.002.2024",
                             "99999999999.1.1",
                             "1.1.99999999999",
                             "heute",
                             "20240305"})
        EXPECT_FALSE(readDate(text)) << text;
}

TEST_F(HostFormat, letsTheClockStandStill)
{
    setClock(afternoon);
    EXPECT_EQ(now(), afternoon);
    EXPECT_EQ(now(), afternoon);
}

TEST_F(HostFormat, tellsTheHostsLocalTime)
{
    const auto secondsOf = [](const LocalTime& moment) {
        std::tm local{};
        local.tm_year = moment.year - 1900;
        local.tm_mon = moment.month - 1;
        local.tm_mday = moment.day;
        local.tm_hour = moment.hour;
        local.tm_min = moment.minute;
        local.tm_sec = moment.second;
        local.tm_isdst = -1;
        return std::mktime(&local);
    };
    setClock(afternoon);
    setClock(std::nullopt);
    const auto before = std::time(nullptr);
    const auto moment = secondsOf(now());
    const auto after = std::time(nullptr);
    EXPECT_LE(before, moment);
    EXPECT_LE(moment, after);
}

TEST(LocalTime, ofAMomentIsThatOfTheHostsClock)
{
    setClock(std::nullopt);
    const auto before = now();
    const auto shown = localTime(std::chrono::system_clock::now());
    EXPECT_TRUE(shown == before || shown == now());
    EXPECT_NE(localTime(std::chrono::system_clock::now() - std::chrono::hours(24)).day, shown.day);
}

} // namespace
