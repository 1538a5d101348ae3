#include "platform/ansiText.h"

#include "platform/runtimeError.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace {

using platform::ansiToUtf8;
using platform::characterCount;
using platform::compareNoCase;
using platform::equalNoCase;
using platform::mid;
using platform::toLower;
using platform::toUpper;
using platform::utf8ToAnsi;

constexpr std::size_t toEnd = std::string_view::npos;

std::string allBytes()
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    return bytes;
}

TEST(AnsiText, survivesTheWayInAndOutByteForByte)
{
    EXPECT_EQ(utf8ToAnsi(ansiToUtf8(allBytes())), allBytes());
}

TEST(AnsiText, knowsWhichCharactersItHas)
{
    for (const char32_t character : {U'\0', U'A', U'\u0081', U'\u00e9', U'\u20ac', U'\u2026'})
        EXPECT_TRUE(platform::isAnsi(character)) << static_cast<unsigned>(character);
    for (const char32_t character : {U'\u0080', U'\u0141', U'\u2028', U'\uFFFD', U'\U0001F600'})
        EXPECT_FALSE(platform::isAnsi(character)) << static_cast<unsigned>(character);
}

TEST(AnsiText, hasACharacterOfItsOwnForEachByte)
{
    std::set<std::string> characters;
    for (const char byte : allBytes()) {
        const auto character = ansiToUtf8(std::string(1, byte));
        EXPECT_EQ(characterCount(character), 1U);
        characters.insert(character);
    }
    EXPECT_EQ(characters.size(), 256U);
}

TEST(AnsiText, isReadByTheCodePage)
{
    const struct
    {
        const char* ansi;
        const char* text;
    } rows[] = {
        {"abc", "abc"},
        {"\xE9", "é"},
        {"\x80", "€"},
        {"\x9F", "Ÿ"},
        {"\xFF", "ÿ"},
        {"\xA0", "\xC2\xA0"},
        {"\x81", "\xC2\x81"},
        {"\x8D", "\xC2\x8D"},
        {"\x8F", "\xC2\x8F"},
        {"\x90", "\xC2\x90"},
        {"\x9D", "\xC2\x9D"},
        {"\x99", "™"},
        {"12345678\xE9"
         "12345678\xE8"
         "1",
         "12345678é12345678è1"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ansiToUtf8(row.ansi), row.text);
        EXPECT_EQ(utf8ToAnsi(row.text), row.ansi);
    }
}

TEST(AnsiText, isAppendedToWhatTheBufferHolds)
{
    std::string text = "é";
    platform::appendAnsiAsUtf8(text, "a\xE8");
    platform::appendAnsiAsUtf8(text, "");
    EXPECT_EQ(text, "éaè");
}

TEST(AnsiText, hasAQuestionMarkForACharacterThatTheCodePageLacks)
{
    EXPECT_EQ(utf8ToAnsi("aŁb"), "a?b");
    EXPECT_EQ(utf8ToAnsi("日本"), "??");
    EXPECT_EQ(utf8ToAnsi("😀"), "?");
    EXPECT_EQ(utf8ToAnsi("\xC2\x80"), "?"); // a control whose byte belongs to another character
    EXPECT_EQ(utf8ToAnsi("\xE2\x80\xAF"), "?");
}

TEST(AnsiText, hasAQuestionMarkForEachMalformedByte)
{
    const struct
    {
        std::string_view text;
        const char* ansi;
    } rows[] = {
        {"\x80", "?"},
        {"a\xC3", "a?"},    // cut off
        {"\xE2\x82", "??"}, // cut off
        {"\xC3(", "?("},
        {"\xC0\xAF", "??"},           // longer than needed
        {"\xE0\x80\x80", "???"},      // longer than needed
        {"\xE0\x9F\xBF", "???"},      // by one bit
        {"\xED\xA0\x80", "???"},      // half of a pair
        {"\xF4\x90\x80\x80", "????"}, // beyond the last character
        {"\xFF\xFE", "??"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(utf8ToAnsi(row.text), row.ansi);
}

TEST(Positions, areThoseOfCharacters)
{
    EXPECT_EQ(characterCount(""), 0U);
    EXPECT_EQ(characterCount("abcdefghij"), 10U);
    EXPECT_EQ(characterCount("aé€😀b"), 5U);
    EXPECT_EQ(characterCount("\xFF\xC3"), 2U);

    const std::string text = "aé€😀b";
    EXPECT_EQ(mid(text, 1, 2), "aé");
    EXPECT_EQ(mid(text, 3, 1), "€");
    EXPECT_EQ(mid(text, 4, toEnd), "😀b");
    EXPECT_EQ(mid(text, 5, 1), "b");
    EXPECT_EQ(mid(text, 5, 9), "b");
    EXPECT_EQ(mid(text, 6, 1), "");
    EXPECT_EQ(mid(text, 7, toEnd), "");
    EXPECT_EQ(mid(text, 2, 0), "");
    EXPECT_EQ(mid("", 1, 1), "");
    // Fewer characters than asked for, though as many bytes.
    EXPECT_EQ(mid("éé", 1, 3), "éé");
}

TEST(Positions, countFromOne)
{
    try {
        static_cast<void>(mid("abc", 0, 1));
        FAIL() << "position 0 was taken";
    } catch (const platform::RuntimeError& failure) {
        EXPECT_EQ(failure.number, platform::errInvalidCall);
    }
}

TEST(Trimming, takesBlanksAlone)
{
    EXPECT_EQ(platform::trimBlanks("  a b  "), "a b");
    EXPECT_EQ(platform::trimBlanks("   "), "");
    EXPECT_EQ(platform::trimBlanks(""), "");
    EXPECT_EQ(platform::trimBlanks(" \ta\t "), "\ta\t");
    EXPECT_EQ(platform::trimBlanks(" \xC2\xA0 "), "\xC2\xA0");
}

TEST(UpperAndLowerCase, mapLettersWithinTheCodePage)
{
    const struct
    {
        const char* lower;
        const char* upper;
    } pairs[] = {
        {"abc xyz", "ABC XYZ"}, {"é", "É"}, {"ÿ", "Ÿ"}, {"š", "Š"}, {"œ", "Œ"}, {"ž", "Ž"}, {"þ", "Þ"}};
    for (const auto& pair : pairs) {
        EXPECT_EQ(toUpper(pair.lower), pair.upper);
        EXPECT_EQ(toLower(pair.upper), pair.lower);
        EXPECT_EQ(toUpper(pair.upper), pair.upper);
        EXPECT_EQ(toLower(pair.lower), pair.lower);
    }
}

TEST(UpperAndLowerCase, leaveALetterWithoutACounterpartInTheCodePage)
{
    // Either there is no counterpart, or it or the letter itself stands outside the code page.
    for (const char* text : {"ß", "µ", "ƒ", "×", "÷", "1_-", "ª", "ł", "я", "ı", "ŉ", "ﬁ"})
        EXPECT_EQ(toUpper(text), text);
    for (const char* text : {"Ł", "Я", "İ", "\xE2\x84\xAA", "\xE2\x84\xAB", "ẞ"})
        EXPECT_EQ(toLower(text), text);
}

TEST(UpperAndLowerCase, keepMalformedBytes)
{
    EXPECT_EQ(toUpper("a\xFF\xC3"), "A\xFF\xC3");
    EXPECT_EQ(toLower(std::string_view("A\0\xE2\x82", 4)), std::string_view("a\0\xE2\x82", 4));
}

TEST(Comparison, isWithoutRegardToCase)
{
    for (const auto& [left, right] :
         {std::pair{"abc", "ABC"}, {"é", "É"}, {"ÿ", "Ÿ"}, {"ł", "Ł"}, {"я", "Я"}, {"aéb", "AÉB"}, {"", ""}})
        EXPECT_TRUE(equalNoCase(left, right)) << left << ' ' << right;
}

TEST(Comparison, tellsAccentsAndLengthsApart)
{
    for (const auto& [left, right] : {std::pair{"a", "b"},
                                      {"a", "B"},
                                      {"A", "b"},
                                      {"", "a"},
                                      {"a", "ab"},
                                      {"A", "aa"},
                                      {"e", "é"},
                                      {"é", "éa"},
                                      {"z", "é"},
                                      {"ss", "ß"},
                                      {"1", "A"}}) {
        EXPECT_LT(compareNoCase(left, right), 0) << left << ' ' << right;
        EXPECT_GT(compareNoCase(right, left), 0) << left << ' ' << right;
    }
}

TEST(Comparison, isByCodesAndNotByBytes)
{
    // The sign between upper and lower case of ASCII stands before the letters, either way they are written.
    EXPECT_LT(compareNoCase("_", "A"), 0);
    EXPECT_LT(compareNoCase("_", "a"), 0);
    EXPECT_GT(compareNoCase("😀", "\xEF\xBF\xBD"), 0);
}

TEST(Comparison, putsMalformedBytesBehindAllCharacters)
{
    EXPECT_GT(compareNoCase("\x80", "😀"), 0);
    EXPECT_GT(compareNoCase("\xFF", "\xF4\x8F\xBF\xBF"), 0);
    EXPECT_LT(compareNoCase("\x80", "\xFF"), 0);
    EXPECT_EQ(compareNoCase("a\xFF", "A\xFF"), 0);
}

TEST(Comparison, isATotalOrderOverAnyBytes)
{
    const std::vector<std::string> pieces = {"", "a", "A", "b", "é", "É", "\xC3", "\xA9", "\xFF", "€", "_"};
    std::vector<std::string> texts;
    for (const auto& first : pieces)
        for (const auto& second : pieces)
            texts.push_back(first + second);
    for (const auto& left : texts) {
        for (const auto& right : texts) {
            const int order = compareNoCase(left, right);
            ASSERT_EQ(order<0, compareNoCase(right, left)> 0);
            for (const auto& third : texts) {
                if (order <= 0 && compareNoCase(right, third) <= 0) {
                    ASSERT_LE(compareNoCase(left, third), 0) << left << ' ' << right << ' ' << third;
                }
            }
        }
    }
}

} // namespace
