#include "jet/codePages.h"
#include "jet/rc4.h"
#include "jet/textDecoder.h"
#include "jet/usageMap.h"
#include "jet/values.h"

#include <array>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <span>
#include <vector>

// Bytes worked out by hand, and what they mean.
namespace {

using namespace std::literals;
using jet::calendarTime;
using jet::CalendarTime;
using jet::DateTime;

std::string codePageText(std::string_view bytes, unsigned codePage)
{
    std::string buffer;
    return std::string(jet::decodeCodePage(bytes, codePage, buffer));
}

std::string unicodeText(std::string_view bytes)
{
    std::string buffer;
    return std::string(jet::decodeUnicode(bytes, buffer));
}

// The text of the damage that an action finds.
std::string damageOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const jet::Error& error) {
        return error.fault() == jet::Fault::Damaged ? error.what() : "another fault";
    }
    return "no fault";
}

TEST(JetKeyStream, ofTheHeaderBeginsAsKnown)
{
    std::array<char, 16> bytes{};
    jet::applyKeyStream(0x6B39DAC7, bytes);
    EXPECT_EQ(std::string_view(bytes.data(), bytes.size()),
              "\xB5\x6F\x03\x62\x61\x08\xC2\x55\xEB\xA9\x67\x72\x43\x3F\x00\x9C"sv);
}

TEST(JetKeyStream, appliedTwiceGivesTheBytesBack)
{
    auto bytes = "some bytes of a page"s;
    jet::applyKeyStream(7, bytes);
    EXPECT_NE(bytes, "some bytes of a page");
    jet::applyKeyStream(7, bytes);
    EXPECT_EQ(bytes, "some bytes of a page");
}

TEST(JetText, switchesBetweenOneAndTwoBytesACharacter)
{
    EXPECT_EQ(unicodeText("\xFF\xFE\x41\x00\x1C\x04\x38\x04\x00\x42"sv), "AМиB");
}

struct UnicodeRow
{
    const char* name;
    std::string_view bytes;
    std::string_view text;
};

TEST(JetText, ofTheNewerVersionIsReadByItsOwnBytes)
{
    const std::vector<UnicodeRow> rows = {
        // clang-format off
        {"nothing",                          ""sv,                                       ""sv},
        {"a mark alone",                     "\xFF\xFE"sv,                               ""sv},
        {"one character a byte",             "\xFF\xFE\x61 b"sv,                         "a b"sv},
        {"one of the upper half",            "\xFF\xFE\x61\xE4"sv,                       "aä"sv},
        {"longer than a word of the host",   "\xFF\xFE" "12345678901234567"sv,           "12345678901234567"sv},
        {"the upper half in a long one",     "\xFF\xFE" "123456789\xFC" "12345678"sv,    "123456789ü12345678"sv},
        {"without a mark",                   "a\0b\0"sv,                                 "ab"sv},
        {"zero without a mark",              "a\0\0\0b\0"sv,                             "a\0b"sv},
        {"a last odd byte",                  "a\0b"sv,                                   "a"sv},
        {"a last odd byte, two a character", "\xFF\xFE\0\x1C\x04\x38"sv,                 "М"sv},
        {"a switch at the end",              "\xFF\xFE\x61\0"sv,                         "a"sv},
        {"a pair",                           "\x3D\xD8\xE1\xDC"sv,                       "📡"sv},
        {"a pair in a compressed value",     "\xFF\xFE\x61\0\x3D\xD8\xE1\xDC\0\x62"sv,   "a📡b"sv},
        {"a first half alone",               "\x3D\xD8\x61\0"sv,                         "\uFFFDa"sv},
        {"a first half at the end",          "\x61\0\x3D\xD8"sv,                         "a\uFFFD"sv},
        {"a second half alone",              "\xE1\xDC\x61\0"sv,                         "\uFFFDa"sv},
        {"two first halves, one second",     "\x3D\xD8\x3D\xD8\xE1\xDC"sv,               "\uFFFD📡"sv},
        // clang-format on
    };
    for (const auto& row : rows)
        EXPECT_EQ(unicodeText(row.bytes), row.text) << row.name;
}

TEST(JetText, ofAsciiIsNotCopied)
{
    std::string buffer;
    constexpr auto plain = "stored bytes\0"sv;
    EXPECT_EQ(jet::decodeCodePage(plain, 1252, buffer).data(), plain.data());
    constexpr auto compressed = "\xFF\xFEstored bytes"sv;
    EXPECT_EQ(jet::decodeUnicode(compressed, buffer).data(), compressed.data() + 2);
    EXPECT_TRUE(buffer.empty());
}

TEST(JetText, ofNamesIsPlain)
{
    EXPECT_EQ(jet::utf16ToUtf8("\x1C\x04\x38\x04"sv), "Ми");
}

struct CodePageRow
{
    unsigned codePage;
    std::string_view bytes;
    std::string_view text;
};

TEST(JetText, ofTheOlderVersionIsReadByItsCodePage)
{
    const std::vector<CodePageRow> rows = {
        {1250, "\xA3\xF3\x64\x9F"sv, "Łódź"},
        {1251, "\xCC\xE8\xF0"sv, "Мир"},
        {1252, "J\xFCrgen \x80"sv, "Jürgen €"},
        {1253, "\xC1\xE2\xE3"sv, "Αβγ"},
        {1254, "\xDD\xFD\xFE"sv, "İış"},
        {1255, "\xF9\xEC\xE5\xED"sv, "שלום"},
        {1256, "\xD3\xE1\xC7\xE3"sv, "سلام"},
        {1257, "\xD0\xF0\xFE"sv, "Ššž"},
        {1258, "\xD0\xF0\xFE"sv, "Đđ₫"},
        {932, "\x8A\xBF\x8E\x9A"sv, "漢字"},
        {936, "\xBA\xBA\xD7\xD6"sv, "汉字"},
        {949, "\xC7\xD1\xB1\xDB"sv, "한글"},
        {950, "\xBA\x7E\xA6\x72"sv, "漢字"},
        {0, "\xFC"sv, "ü"},    // no code page
        {437, "\xFC"sv, "ü"},  // one without a table
        {1259, "\xFC"sv, "ü"}, // behind the last
        {1252, "a\0b"sv, "a\0b"sv},
    };
    for (const auto& row : rows)
        EXPECT_EQ(codePageText(row.bytes, row.codePage), row.text) << row.codePage;
}

TEST(JetText, marksBytesWithoutACharacter)
{
    for (const char byte : "\x81\x8D\x8F\x90\x9D"sv)
        EXPECT_EQ(codePageText({&byte, 1}, 1252), "\uFFFD");
    EXPECT_EQ(codePageText("\x81 a"sv, 949), "\uFFFD a");
}

struct DateRow
{
    double days = 0;
    CalendarTime time;
};

TEST(JetDate, countsItsFractionForwards)
{
    const std::vector<DateRow> rows = {
        // clang-format off
        {0,            {1899, 12, 30, 0, 0, 0}},
        {1,            {1899, 12, 31, 0, 0, 0}},
        {0.75,         {1899, 12, 30, 18, 0, 0}},
        {-0.25,        {1899, 12, 30, 6, 0, 0}},
        {-1.25,        {1899, 12, 29, 6, 0, 0}},
        {27293,        {1974, 9, 21, 0, 0, 0}},
        {36526.5,      {2000, 1, 1, 12, 0, 0}},
        {36585,        {2000, 2, 29, 0, 0, 0}},
        {0.9999999,    {1899, 12, 31, 0, 0, 0}}, // rounded to the second
        {-1.9999999,   {1899, 12, 30, 0, 0, 0}},
        {-657434,      {100, 1, 1, 0, 0, 0}},
        {-657434.75,   {100, 1, 1, 18, 0, 0}},
        {2958465.5,    {9999, 12, 31, 12, 0, 0}},
        // clang-format on
    };
    for (const auto& row : rows)
        EXPECT_EQ(calendarTime(DateTime{row.days}), row.time) << row.days;
}

TEST(JetDate, beyondTheCalendarIsDamage)
{
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    for (const double days : {-657435.0, 2958466.0, 2958465.9999999, 1e300, infinity, -infinity,
                              std::numeric_limits<double>::quiet_NaN()})
        EXPECT_NE(damageOf([&] { static_cast<void>(calendarTime(DateTime{days})); }).find("years"),
                  std::string::npos)
            << days;
}

TEST(JetCurrency, isExact)
{
    EXPECT_EQ(jet::currencyText(0), "0");
    EXPECT_EQ(jet::currencyText(35000), "3.5");
    EXPECT_EQ(jet::currencyText(1), "0.0001");
    EXPECT_EQ(jet::currencyText(-1), "-0.0001");
    EXPECT_EQ(jet::currencyText(-1230000), "-123");
    EXPECT_EQ(jet::currencyText(std::numeric_limits<std::int64_t>::max()), "922337203685477.5807");
    EXPECT_EQ(jet::currencyText(std::numeric_limits<std::int64_t>::min()), "-922337203685477.5808");
}

std::string decimalOf(std::string_view bytes, unsigned scale)
{
    return jet::decimalText(jet::ByteView(bytes, 1), scale);
}

TEST(JetDecimal, hasItsMostSignificantWordFirst)
{
    EXPECT_EQ(decimalOf("\0\0\0\0\0\0\0\0\0\0\0\0\0\x91\x0A\0\0"sv, 2), "27.05");
    EXPECT_EQ(decimalOf("\x80\0\0\0\0\0\0\0\0\0\0\0\0\x91\x0A\0\0"sv, 2), "-27.05");
    EXPECT_EQ(decimalOf("\0\0\0\0\0\0\0\0\0\x01\0\0\0\0\0\0\0"sv, 0), "4294967296");
    EXPECT_EQ(decimalOf("\0\x01\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"sv, 0), "79228162514264337593543950336");
    EXPECT_EQ(decimalOf("\0\0\0\0\0\0\0\0\0\0\0\0\0\x01\0\0\0"sv, 5), "0.00001");
    EXPECT_EQ(decimalOf("\x80\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"sv, 3), "0");
    EXPECT_EQ(decimalOf("\0\0\0\0\0\0\0\0\0\0\0\0\0\x64\0\0\0"sv, 1), "10");
    EXPECT_THROW(decimalOf("\0\0\0\0\0\0\0\0\0\0\0\0\0\x64\0\0"sv, 1), jet::Error);
}

TEST(JetGuid, isPrintedInItsUsualForm)
{
    const jet::ByteView bytes("\x78\x56\x34\x12\xCD\xAB\x01\xEF\x01\x23\x45\x67\x89\xAB\xCD\xEF"sv, 1);
    EXPECT_EQ(jet::guidText(bytes), "{12345678-ABCD-EF01-0123-456789ABCDEF}");
}

TEST(JetByteView, readsTheLowestByteFirst)
{
    const jet::ByteView bytes("\x01\x02\x03\x04\x05\x06\x07\x88"sv, 77);
    EXPECT_EQ(bytes.u8(7), 0x88U);
    EXPECT_EQ(bytes.u16(6), 0x8807U);
    EXPECT_EQ(bytes.u32(4), 0x88070605U);
    EXPECT_EQ(bytes.u64(0), 0x8807060504030201U);
    EXPECT_EQ(bytes.from(8).size(), 0U);
}

TEST(JetByteView, findsDamageWhereAValueGoesBeyondTheEnd)
{
    const jet::ByteView bytes("\x01\x02\x03\x04\x05\x06\x07\x88"sv, 77);
    const std::vector<std::function<void()>> tooFar = {
        [&] { static_cast<void>(bytes.u8(8)); },
        [&] { static_cast<void>(bytes.u16(7)); },
        [&] { static_cast<void>(bytes.u32(5)); },
        [&] { static_cast<void>(bytes.u64(1)); },
        [&] { static_cast<void>(bytes.from(9)); },
        [&] { static_cast<void>(bytes.part(4, 5)); },
        [&] { static_cast<void>(bytes.part(1, std::numeric_limits<std::size_t>::max())); },
    };
    for (const auto& reading : tooFar)
        EXPECT_NE(damageOf(reading).find("page 77"), std::string::npos);
}

TEST(JetPageSet, givesEachPageOnceInRisingOrder)
{
    jet::PageSet pages(200);
    for (const std::uint64_t page : {130, 5, 64, 63, 5, 199})
        pages.add(page);
    for (const std::uint64_t page : {std::uint64_t{0}, std::uint64_t{200}, std::uint64_t{1} << 40U})
        pages.add(page); // no page of the file
    std::vector<std::uint32_t> found;
    for (auto page = pages.firstFrom(0); page; page = pages.firstFrom(*page + 1))
        found.push_back(*page);
    EXPECT_EQ(found, (std::vector<std::uint32_t>{5, 63, 64, 130, 199}));
    EXPECT_TRUE(pages.holds(64));
    EXPECT_FALSE(pages.holds(65));
    EXPECT_FALSE(pages.holds(200));
    EXPECT_FALSE(pages.firstFrom(200));
}

} // namespace
