#include "platform/numberText.h"

#include "platform/runtimeError.h"
#include "support/failures.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

using platform::isNumeric;
using platform::numberText;
using platform::readNumber;
using platform::roundToInteger;
using platform::roundToLong;
using platform::signedNumberText;

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

TEST(NumericTest, passesForTextThatIsWhollyANumber)
{
    for (const char* text : {"0", "12", "-12", "+12", "1.5", ".5", "5.", "-.5", "1E3", "1e3", "1E+3", "1E-03",
                             "5.E1", "007", "1E999"})
        EXPECT_TRUE(isNumeric(text)) << text;
}

TEST(NumericTest, failsForAnythingElse)
{
    for (const char* text :
         {"",    " ",     " 1",  "1 ",  "1 2",   "12a",  "a",    "-",   "+",   ".",   "-.",   "E3",      "1E",
          "1E+", "1E1.5", "--1", "1,5", "1.2.3", "&H10", "0x10", "1D2", "nan", "inf", "-inf", "infinity"})
        EXPECT_FALSE(isNumeric(text)) << text;
}

TEST(NumericReading, takesTheLongestLeadingNumber)
{
    const struct
    {
        const char* text;
        double number;
    } rows[] = {
        {"12", 12},     {"12a", 12},    {"  12a", 12},  {"-12.5x", -12.5},  {"+7", 7},   {"+-7", 0},
        {"a", 0},       {"", 0},        {"   ", 0},     {"1E", 1},          {"1E+", 1},  {"1E2", 100},
        {"1e2", 100},   {"1E-2", 0.01}, {".5", 0.5},    {"5.", 5},          {"1 2", 1},  {"- 1", 0},
        {"&H10", 0},    {"0x10", 0},    {"1D2", 1},     {"nan", 0},         {"inf", 0},  {"-inf", 0},
        {"1.2.3", 1.2}, {"1,5", 1},     {".", 0},       {"-", 0},           {"\t12", 0}, {"007", 7},
        {"1E2E3", 100}, {"5.E1", 50},   {"12 MHz", 12}, {"0.1985", 0.1985},
    };
    for (const auto& row : rows)
        EXPECT_EQ(readNumber(row.text), row.number) << '"' << row.text << '"';
}

TEST(NumericReading, ofANumberTooLargeForADoubleIsAnOverflow)
{
    for (const char* text : {"1E309", "-1E309", "1.8E308", "123E307", "0.01E312", "1E99999999999999999999"})
        EXPECT_EQ(failureOf([&] { static_cast<void>(readNumber(text)); }), platform::errOverflow) << text;
    EXPECT_EQ(failureOf([] { static_cast<void>(readNumber(std::string(400, '9'))); }), platform::errOverflow);
    EXPECT_EQ(readNumber("1.7976931348623157E308"), std::numeric_limits<double>::max());
}

TEST(NumericReading, ofANumberTooSmallForADoubleIsZero)
{
    for (const char* text : {"1E-400", "-1E-400", "1E-99999999999999999999", "1000E-400", "0E999", "0E-999"})
        EXPECT_EQ(readNumber(text), 0) << text;
    EXPECT_EQ(readNumber("0." + std::string(400, '0') + "1"), 0);
    EXPECT_GT(readNumber("4.9E-324"), 0);
}

TEST(NumberText, hasUpToFifteenSignificantDigits)
{
    const struct
    {
        double number;
        const char* text;
    } rows[] = {
        {0, "0"},
        {-0.0, "0"},
        {5, "5"},
        {-5, "-5"},
        {0.1985, "0.1985"},
        {-0.5, "-0.5"},
        {1500.0 * 0.001, "1.5"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {200.0 / 3, "66.6666666666667"},
        {123456789.125, "123456789.125"},
        {100, "100"},
        {1234567890.12345678, "1234567890.12346"},
        {9.9999999999999999, "10"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(numberText(row.number), row.text);
}

TEST(NumberText, turnsToAnExponentFromTenToTheFifteenthOn)
{
    EXPECT_EQ(numberText(999999999999999), "999999999999999");
    EXPECT_EQ(numberText(123456789012345), "123456789012345");
    EXPECT_EQ(numberText(100000000000000), "100000000000000");
    EXPECT_EQ(numberText(1E15), "1E+15");
    EXPECT_EQ(numberText(999999999999999.9), "1E+15");
    EXPECT_EQ(numberText(-1.25E20), "-1.25E+20");
    EXPECT_EQ(numberText(std::numeric_limits<double>::max()), "1.79769313486232E+308");
}

TEST(NumberText, belowOneIsPlainWhileFifteenDecimalsSuffice)
{
    EXPECT_EQ(numberText(0.001), "0.001");
    EXPECT_EQ(numberText(1E-15), "0.000000000000001");
    EXPECT_EQ(numberText(1.5E-14), "0.000000000000015");
    EXPECT_EQ(numberText(0.123456789012345), "0.123456789012345");
    EXPECT_EQ(numberText(0.0123456789012345), "1.23456789012345E-02");
    EXPECT_EQ(numberText(1.5E-15), "1.5E-15");
    EXPECT_EQ(numberText(1E-16), "1E-16");
    EXPECT_EQ(numberText(1.5E-16), "1.5E-16");
    EXPECT_EQ(numberText(1E-100), "1E-100");
}

TEST(ExactNumberText, isTheCommonTextWhereThatReadsBackTheSame)
{
    for (const double number :
         {0.0, 5.0, -5.0, 151.025, 0.1, 72.025, 123456789012345.0, 1e15, 1.5e-16, 28000.5})
        EXPECT_EQ(platform::exactNumberText(number), platform::numberText(number));
}

TEST(ExactNumberText, hasTheDigitsMoreThatReadBackTheVeryNumber)
{
    EXPECT_EQ(platform::exactNumberText(2.3333333333333335), "2.3333333333333335");
    EXPECT_EQ(platform::exactNumberText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(platform::exactNumberText(-0.1 - 0.2), "-0.30000000000000004");
    EXPECT_EQ(platform::exactNumberText(1234567890.1234567), "1234567890.1234567");
    EXPECT_EQ(platform::exactNumberText(1.0 / 3), "0.3333333333333333");
    for (const double number : {2.0 / 3, 1e22 / 7, 5e-324, 1.7976931348623157e308, 1e-5 / 3})
        EXPECT_EQ(platform::readNumber(platform::exactNumberText(number)), number);
}

TEST(NumberText, withASignHasABlankInThePlaceOfAPlus)
{
    EXPECT_EQ(signedNumberText(5), " 5");
    EXPECT_EQ(signedNumberText(0), " 0");
    EXPECT_EQ(signedNumberText(-0.0), " 0");
    EXPECT_EQ(signedNumberText(-5), "-5");
    EXPECT_EQ(signedNumberText(0.5), " 0.5");
}

TEST(NumberText, ofAWholeNumberIsItsDigits)
{
    EXPECT_EQ(platform::integerText(5), "5");
    EXPECT_EQ(platform::integerText(-5), "-5");
    EXPECT_EQ(platform::integerText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(NumberText, readsBackAsTheSameText)
{
    for (const double number : {0.1985, 1E15, 1.5E-16, 66.6666666666667, -7.25, 1E300, 1E-300})
        EXPECT_EQ(numberText(readNumber(numberText(number))), numberText(number));
}

TEST(Rounding, goesToTheEvenNumberFromHalves)
{
    const struct
    {
        double number;
        std::int32_t rounded;
    } rows[] = {{0.5, 0},   {1.5, 2},    {2.5, 2},    {-0.5, 0}, {-1.5, -2},
                {-2.5, -2}, {2.4999, 2}, {2.5001, 3}, {7, 7}};
    for (const auto& row : rows) {
        EXPECT_EQ(roundToLong(row.number), row.rounded) << row.number;
        EXPECT_EQ(roundToInteger(row.number), row.rounded) << row.number;
    }
}

TEST(Rounding, toThirtyTwoBitsOverflowsOnePastItsBounds)
{
    EXPECT_EQ(roundToLong(2147483647.0), 2147483647);
    EXPECT_EQ(roundToLong(2147483647.49), 2147483647);
    EXPECT_EQ(roundToLong(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    for (const double number :
         {2147483647.5, 2147483648.0, -2147483648.6, -2147483649.0, infinite, -infinite, notANumber})
        EXPECT_EQ(failureOf([&] { static_cast<void>(roundToLong(number)); }), platform::errOverflow)
            << number;
}

TEST(Rounding, toSixteenBitsOverflowsOnePastItsBounds)
{
    EXPECT_EQ(roundToInteger(32767), 32767);
    EXPECT_EQ(roundToInteger(32767.4), 32767);
    EXPECT_EQ(roundToInteger(-32768.5), -32768);
    for (const double number : {32767.5, 32768.0, -32768.6, -32769.0, infinite, notANumber})
        EXPECT_EQ(failureOf([&] { static_cast<void>(roundToInteger(number)); }), platform::errOverflow)
            << number;
}

} // namespace
