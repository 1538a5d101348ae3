#include "model/ScreenModule.h"

#include "platform/hostFormat.h"
#include "platform/runtimeError.h"
#include "support/failures.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

using namespace ScreenModule;

class ValueChecks : public testing::Test
{
protected:
    void SetUp() override { platform::setClock(platform::LocalTime{2024, 6, 1, 12, 0, 0}); }
    void TearDown() override { platform::setClock(std::nullopt); }
};

TEST_F(ValueChecks, ofWholeNumbersEndAtTheirBounds)
{
    constexpr std::int16_t least = std::numeric_limits<std::int16_t>::min();
    constexpr std::int16_t most = std::numeric_limits<std::int16_t>::max();
    const struct
    {
        const char* name;
        bool (*check)(std::int16_t);
        std::int16_t value;
        bool valid;
    } rows[] = {
        {"day", isValidDay, 0, false},
        {"day", isValidDay, 1, true},
        {"day", isValidDay, 31, true},
        {"day", isValidDay, 32, false},
        {"month", isValidMonth, 0, false},
        {"month", isValidMonth, 1, true},
        {"month", isValidMonth, 12, true},
        {"month", isValidMonth, 13, false},
        {"year of a notice, this year - 3", isValidNoticeYear, 2021, false},
        {"year of a notice, this year - 2", isValidNoticeYear, 2022, true},
        {"year of a notice, this year + 1", isValidNoticeYear, 2025, true},
        {"year of a notice, this year + 2", isValidNoticeYear, 2026, false},
        {"year", isValidYear, 1949, false},
        {"year", isValidYear, 1950, true},
        {"year, this year + 5", isValidYear, 2029, true},
        {"year, this year + 6", isValidYear, 2030, false},
        {"longitude", isLongDegree, 180, true},
        {"longitude", isLongDegree, 181, false},
        {"longitude has no lower bound", isLongDegree, least, true},
        {"latitude", isLatDegree, 90, true},
        {"latitude", isLatDegree, 91, false},
        {"latitude has no lower bound", isLatDegree, least, true},
        {"minutes", isMinSec, 59, true},
        {"minutes", isMinSec, 60, false},
        {"minutes have no lower bound", isMinSec, -5, true},
        {"hours", isHourMinute, -1, false},
        {"hours", isHourMinute, 0, true},
        {"hours", isHourMinute, 2400, true},
        {"hours", isHourMinute, 2401, false},
        {"day", isValidDay, most, false},
        {"hours", isHourMinute, most, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.check(row.value), row.valid) << row.name << ' ' << row.value;
}

TEST_F(ValueChecks, takeTheYearOfTheClockAtTheMomentOfTheCall)
{
    EXPECT_FALSE(isValidYear(2030));
    EXPECT_FALSE(isValidNoticeYear(2026));
    platform::setClock(platform::LocalTime{2025, 1, 1, 0, 0, 0});
    EXPECT_TRUE(isValidYear(2030));
    EXPECT_TRUE(isValidNoticeYear(2026));
    EXPECT_FALSE(isValidNoticeYear(2022));
}

TEST_F(ValueChecks, compareTextWholeAndWithoutRegardToCase)
{
    using Check = bool (*)(std::string_view);
    const struct
    {
        const char* name;
        Check check;
        std::vector<std::string> valid, invalid;
    } rows[] = {
        {"isClassOp", isClassOp, {"A", "B", "C", "a", "c"}, {"", "D", "AB", " A", "A ", "@"}},
        {"isPowerType", isPowerType, {"X", "Y", "Z", "x"}, {"", "W", "XY"}},
        {"isAntDir", isAntDir, {"D", "ND", "nd", "Nd", "d"}, {"", "N", "DN", "NDD"}},
        {"isPowerEIV", isPowerEIV, {"E", "I", "V", "v"}, {"", "D", "EIV"}},
        {"isGainType", isGainType, {"I", "V", "D", "i"}, {"", "E", "IV"}},
        {"isFreqUnit", isFreqUnit, {"k", "M", "G", "K", "m", "g"}, {"", "T", "kHz", "MM"}},
        {"isEastWest", isEastWest, {"E", "W", "e", "w"}, {"", "N", "S", "EW"}},
        {"isNorthSouth", isNorthSouth, {"N", "S", "n", "s"}, {"", "E", "W", "NS"}},
    };
    for (const auto& row : rows) {
        for (const auto& text : row.valid)
            EXPECT_TRUE(row.check(text)) << row.name << " \"" << text << '"';
        for (const auto& text : row.invalid)
            EXPECT_FALSE(row.check(text)) << row.name << " \"" << text << '"';
    }
}

TEST_F(ValueChecks, findADigitAnywhere)
{
    for (const char* text : {"", "Paris", "é²", " -.,"})
        EXPECT_TRUE(hasNoDigit(text)) << text;
    for (const char* text : {"0", "9", "a1", "1a", "a5b"})
        EXPECT_FALSE(hasNoDigit(text)) << text;
}

TEST(Frequencies, areTurnedToMegahertzByTheirUnit)
{
    const struct
    {
        double value;
        const char* unit;
        double megahertz;
    } rows[] = {
        {1500, "k", 1.5}, {1500, "K", 1.5}, {7, "M", 7}, {7, "m", 7},   {2, "g", 2000},
        {2, "G", 2000},   {7, "X", 0},      {7, "", 0},  {7, "kHz", 0}, {-3, "G", -3000},
    };
    for (const auto& row : rows)
        EXPECT_DOUBLE_EQ(freqToMHz(row.value, row.unit), row.megahertz) << row.value << row.unit;
}

TEST(Frequencies, tooLargeInMegahertzAreAnOverflow)
{
    EXPECT_EQ(failureOf([] { static_cast<void>(freqToMHz(1E306, "G")); }), platform::errOverflow);
    EXPECT_EQ(failureOf([] { static_cast<void>(freqToMHz(-1E306, "G")); }), platform::errOverflow);
    EXPECT_DOUBLE_EQ(freqToMHz(1E305, "G"), 1E308);
    EXPECT_DOUBLE_EQ(freqToMHz(1E308, "M"), 1E308);
}

TEST(DottedDates, areSplitAndConsumedDownToTheYear)
{
    const struct
    {
        const char* text;
        const char* year;
        const char* month;
        const char* day;
    } rows[] = {
        {"05.03.2024", "2024", "03", "05"}, {"  5.3.24  ", "24", "3", "5"},     {"..", "", "", ""},
        {"1.2.3.4", "3.4", "2", "1"},       {" 1 . 2 . 3 ", " 3", " 2 ", "1 "},
    };
    for (const auto& row : rows) {
        std::string text = row.text;
        std::string year, month, day;
        splitDottedDate(text, year, month, day);
        EXPECT_EQ(year, row.year) << row.text;
        EXPECT_EQ(month, row.month) << row.text;
        EXPECT_EQ(day, row.day) << row.text;
        EXPECT_EQ(text, row.year) << row.text;
    }
}

TEST(DottedDates, withoutTwoDotsAreAFailure)
{
    for (const char* given : {"", "   ", "2024", "03.2024", "2024-03-05"}) {
        std::string text = given;
        std::string year, month, day;
        EXPECT_EQ(failureOf([&] { splitDottedDate(text, year, month, day); }), platform::errInvalidCall)
            << given;
    }
}

class DatesInUse : public testing::Test
{
protected:
    void TearDown() override { platform::setHostLocale(""); }
};

TEST_F(DatesInUse, areFormattedFromWhatTheHostReads)
{
    const struct
    {
        const char* locale;
        const char* text;
        const char* formatted;
    } rows[] = {
        {"de_DE", "", ""},
        {"de_DE", "5.3.2024", "05.03.2024"},
        {"de_DE", "05.03.24", "05.03.2024"},
        {"de_DE", "5/3/2024", "05.03.2024"},
        {"en_US", "3/5/2024", "05.03.2024"},
        {"en_US", "3.15.2024", "15.03.2024"},
        {"fr_FR", "05/03/2024", "05.03.2024"},
        {"sv_SE", "2024-03-05", "05.03.2024"},
        {"en_US", "2024-03-05", "05.03.2024"},
        {"de_DE", "1.2.0024", "01.02.0024"},
        {"de_DE", "31.12.9999", "31.12.9999"},
        {"hu_HU", "2024. 03. 15.", "15.03.2024"},
        {"ko_KR", "2024. 3. 15.", "15.03.2024"},
        {"de_DE", "2024-03-05 00:00:00", "05.03.2024"},
        {"de_DE", " 5.3.2024  9:07 ", "05.03.2024"},
    };
    for (const auto& row : rows) {
        platform::setHostLocale(row.locale);
        EXPECT_EQ(formatDateDots(row.text), row.formatted) << row.locale << ' ' << row.text;
    }
}

TEST_F(DatesInUse, areReadFromTheHostsOwnShortDateWhateverTheHost)
{
    for (const char* locale :
         {"C",     "en_US", "en_GB", "de_DE", "fr_CA", "hu_HU", "hr_HR", "bg_BG", "bs_BA", "sr_RS",
          "ko_KR", "ja_JP", "lv_LV", "sk_SK", "fi_FI", "nl_NL", "sv_SE", "ru_RU", "mk_MK", "kk_KZ"}) {
        platform::setHostLocale(locale);
        const auto text = platform::shortDateText({2024, 3, 15, 0, 0, 0});
        EXPECT_EQ(formatDateDots(text), "15.03.2024") << locale << ": " << text;
    }
}

TEST_F(DatesInUse, stayWhenTheyAreNoneButForTheHostsSeparator)
{
    const struct
    {
        const char* locale;
        const char* text;
        const char* formatted;
    } rows[] = {
        {"de_DE", "soon", "soon"},
        {"de_DE", "31.02.2024", "31/02/2024"},
        {"de_DE", "31-02-2024", "31-02-2024"},
        {"de_DE", " ", " "},
        {"de_DE", "5.3", "5/3"},
        {"de_DE", "20240305", "20240305"},
        {"de_DE", "a.b/c", "a/b/c"},
        {"de_DE", "...", "///"},
        {"de_DE", "5.3.2024 noon", "5/3/2024 noon"},
        {"de_DE", "5.3.2024 9:", "5/3/2024 9:"},
        {"de_DE", "1 March 2024", "1 March 2024"},
        {"en_US", "31.02.2024", "31.02.2024"},
        {"sv_SE", "2024-02-31", "2024/02/31"},
    };
    for (const auto& row : rows) {
        platform::setHostLocale(row.locale);
        EXPECT_EQ(formatDateDots(row.text), row.formatted) << row.locale << ' ' << row.text;
    }
}

TEST_F(DatesInUse, areSeparatedAsTheHostsSettingSays)
{
    platform::setHostLocale("de_DE");
    EXPECT_EQ(getIntlSetting("sdate"), ".");
    EXPECT_EQ(getIntlSetting("sDate"), ".");
    platform::setHostLocale("en_US");
    EXPECT_EQ(getIntlSetting("sdate"), "/");
    EXPECT_EQ(getIntlSetting("stime"), "");
    EXPECT_EQ(getIntlSetting(""), "");
}

TEST(Remarks, ofABoxAreJoinedAndLoseAllButTheirLastTwoLines)
{
    const struct
    {
        const char* name;
        const char* text;
        const char* joined;
    } rows[] = {
        {"nothing", "", ""},
        {"one line, trimmed", "  a  ", "a"},
        {"two lines, with nothing between", "a\r\nb", "ab"},
        {"three lines lose the first", "a\r\nb\r\nc", "bc"},
        {"four lines lose the first two", "a\r\nb\r\nc\r\nd", "cd"},
        {"a line end at the end gives the last line", "a\r\nb\r\n", "b"},
        {"a line end alone", "\r\n", ""},
        {"only the last line is trimmed", " a \r\n b ", " a b"},
        {"the second character of a line end is never looked at", "a\rxb", "ab"},
        {"be it of several bytes", "a\réb", "ab"},
        {"a carriage return at the end", "a\r", "a"},
        {"an empty line at the end", "a\r\nb\r\n\r\n", ""},
        {"a line feed alone is no line end", "a\nb", "a\nb"},
    };
    for (const auto& row : rows) {
        std::string text = row.text;
        EXPECT_EQ(joinTextLines(text), row.joined) << row.name;
    }
}

TEST(Remarks, ofABoxAreConsumedDownToTheLastLine)
{
    std::string text = "a\r\nb\r\nc";
    EXPECT_EQ(joinTextLines(text), "bc");
    EXPECT_EQ(text, "c");
    text = "a\r\nb\r\n";
    EXPECT_EQ(joinTextLines(text), "b");
    EXPECT_EQ(text, "");
}

TEST(Remarks, forTheBoxAreUnchangedAndConsumedDownToTheLastPiece)
{
    for (const auto& [given, left] :
         {std::pair{"a;b;c", "c"}, {"a;", ""}, {"abc", "abc"}, {"", ""}, {";;x", "x"}}) {
        std::string text = given;
        EXPECT_EQ(copyRemarkText(text), given);
        EXPECT_EQ(text, left) << given;
    }
}

TEST(Remarks, ofAFileAreTheLinesOfTheLastTwoPieces)
{
    const struct
    {
        const char* text;
        const char* lines;
        const char* left;
    } rows[] = {
        {"a;b;c", "t_remarks = b\r\nt_remarks = c\r\n", "c"},
        {"a;b", "t_remarks = a\r\nt_remarks = b\r\n", "b"},
        {"a", "t_remarks = a\r\n", "a"},
        {"", "", ""},
        {"a;b;", "t_remarks = b\r\n", ""},
        {"a;", "t_remarks = a\r\n", ""},
        {";", "t_remarks = \r\n", ""},
        {";a", "t_remarks = \r\nt_remarks = a\r\n", "a"},
        {"a; b ", "t_remarks = a\r\nt_remarks =  b \r\n", " b "},
    };
    for (const auto& row : rows) {
        std::string text = row.text;
        EXPECT_EQ(remarksToElectLines(text), row.lines) << row.text;
        EXPECT_EQ(text, row.left) << row.text;
    }
}

TEST(KeyLines, areMadeForAValueOnly)
{
    EXPECT_EQ(makeKeyLine("t_adm", "F"), "t_adm=F\r\n");
    EXPECT_EQ(makeKeyLine("t_adm", ""), "");
    EXPECT_EQ(makeKeyLine("t_adm", " "), "t_adm= \r\n");
}

TEST(Texts, areTrimmedOfBlanksAndTurnedToUpperCase)
{
    EXPECT_EQ(trimText("  a b "), "a b");
    EXPECT_EQ(trimText("\ta "), "\ta");
    EXPECT_EQ(upperText("Genève 1"), "GENÈVE 1");
}

} // namespace
