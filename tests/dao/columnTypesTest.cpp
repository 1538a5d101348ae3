#include "dao/columnTypes.h"

#include "support/failures.h"

#include <gtest/gtest.h>

using dao::ColumnType;
using dao::columnTypeOf;
using dao::DataType;
using dao::declarationOf;
using dao::Null;
using dao::Value;

namespace {

struct Conversion
{
    const char* name;
    ColumnType type;
    Value given, expected;
};

struct Refusal
{
    const char* name;
    ColumnType type;
    Value given;
};

struct Declaration
{
    ColumnType type;
    const char* text;
};

class ColumnTypeStores : public testing::TestWithParam<Conversion>
{};

class ColumnTypeRefuses : public testing::TestWithParam<Refusal>
{};

class ColumnTypeDeclares : public testing::TestWithParam<Declaration>
{};

const ColumnType decimal62(DataType::dbDecimal, 6, 2);

} // namespace

TEST_P(ColumnTypeStores, TheValueInItsForm)
{
    const auto& row = GetParam();
    EXPECT_EQ(row.given.convertedTo(row.type), row.expected);
}

TEST_P(ColumnTypeRefuses, WithADataTypeConversionError)
{
    const auto& row = GetParam();
    EXPECT_FAILURE(3421, static_cast<void>(row.given.convertedTo(row.type)));
}

TEST_P(ColumnTypeDeclares, ItselfAndIsReadBack)
{
    const auto declaration = declarationOf(GetParam().type);
    EXPECT_EQ(declaration, GetParam().text);
    EXPECT_EQ(columnTypeOf(declaration.substr(0, declaration.find(" COLLATE")).c_str()), GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ColumnTypeStores,
    testing::Values( // clang-format off
        Conversion{"booleanTrueInAnyCase", DataType::dbBoolean, "true", "TRUE"},
        Conversion{"booleanYes", DataType::dbBoolean, "Yes", "TRUE"},
        Conversion{"booleanNo", DataType::dbBoolean, "NO", "FALSE"},
        Conversion{"booleanMinusOne", DataType::dbBoolean, "-1", "TRUE"},
        Conversion{"booleanZero", DataType::dbBoolean, std::int32_t{0}, "FALSE"},
        Conversion{"booleanLongZero", DataType::dbBoolean, "0.00E5", "FALSE"},
        Conversion{"booleanSmallNumber", DataType::dbBoolean, 0.001, "TRUE"},
        Conversion{"booleanNullIsFalse", DataType::dbBoolean, Null, "FALSE"},
        Conversion{"byte", DataType::dbByte, "255", std::int16_t{255}},
        Conversion{"byteRounded", DataType::dbByte, "-0.5", std::int16_t{0}},
        Conversion{"singleIsTheShortestNumber", DataType::dbSingle, "0.1", 0.1},
        Conversion{"singleIsRounded", DataType::dbSingle, 0.123456789, 0.12345679},
        Conversion{"currencyHalfToEvenDown", DataType::dbCurrency, "1.00005", "1"},
        Conversion{"currencyHalfToEvenUp", DataType::dbCurrency, "1.00015", "1.0002"},
        Conversion{"currencyAboveHalf", DataType::dbCurrency, "1.000050000000000000001", "1.0001"},
        Conversion{"currencyLargest", DataType::dbCurrency, "922337203685477.5807", "922337203685477.5807"},
        Conversion{"currencySmallest", DataType::dbCurrency, "-922337203685477.5808", "-922337203685477.5808"},
        Conversion{"currencyOfADouble", DataType::dbCurrency, 8.1513, "8.1513"},
        Conversion{"currencyOfAnExponent", DataType::dbCurrency, "1.5E3", "1500"},
        Conversion{"currencyWithoutMinusZero", DataType::dbCurrency, "-0.00001", "0"},
        Conversion{"decimal", decimal62, "27.05", "27.05"},
        Conversion{"decimalWithoutZerosAtTheEnd", decimal62, "27.50", "27.5"},
        Conversion{"decimalCarries", decimal62, "999.995", "1000"},
        Conversion{"decimalBelowOne", decimal62, "-.075", "-0.08"},
        Conversion{"decimalFarTooSmall", decimal62, "1E-300", "0"},
        Conversion{"decimalLargest", decimal62, "9999.99", "9999.99"},
        Conversion{"decimalLeadingZeros", decimal62, "0000012", "12"},
        Conversion{"date", DataType::dbDate, "1998-03-02", "1998-03-02"},
        Conversion{"dateAndTime", DataType::dbDate, "1999-6-15 8:30:05", "1999-06-15 08:30:05"},
        Conversion{"dateAndMinutes", DataType::dbDate, " 1999/6/15 8:30 ", "1999-06-15 08:30:00"},
        Conversion{"dateAtMidnight", DataType::dbDate, "1999-06-15 0:00:00", "1999-06-15"},
        Conversion{"dateNull", DataType::dbDate, Null, Null},
        Conversion{"memo", DataType::dbMemo, " a ", " a "},
        Conversion{"memoOfANumber", DataType::dbMemo, std::int32_t{7}, "7"},
        Conversion{"guid", DataType::dbGUID, "0123abcd-0000-0000-0000-0123456789AB",
                   "{0123abcd-0000-0000-0000-0123456789AB}"},
        Conversion{"binary", DataType::dbBinary, "00ffA0", "00ffA0"}), // clang-format on
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Table, ColumnTypeRefuses,
    testing::Values( // clang-format off
        Refusal{"booleanWord", DataType::dbBoolean, "perhaps"},
        Refusal{"booleanEmpty", DataType::dbBoolean, ""},
        Refusal{"byteTooLarge", DataType::dbByte, "256"},
        Refusal{"byteNegative", DataType::dbByte, "-1"},
        Refusal{"singleTooLarge", DataType::dbSingle, "1E39"},
        Refusal{"currencyTooLarge", DataType::dbCurrency, "922337203685477.5808"},
        Refusal{"currencyFarTooLarge", DataType::dbCurrency, "1E999999999"},
        Refusal{"currencyWord", DataType::dbCurrency, "much"},
        Refusal{"decimalTooLarge", decimal62, "9999.995"},
        Refusal{"dateWord", DataType::dbDate, "soon"},
        Refusal{"dateEmpty", DataType::dbDate, ""},
        Refusal{"dateNoDay", DataType::dbDate, "1999-02-30"},
        Refusal{"dateHour", DataType::dbDate, "1999-02-20 24:00"},
        Refusal{"guid", DataType::dbGUID, "{0123abcd}"},
        Refusal{"binaryOddDigits", DataType::dbBinary, "0ff"},
        Refusal{"binaryNoDigit", DataType::dbBinary, "0g"}), // clang-format on
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Table, ColumnTypeDeclares,
    testing::Values( // clang-format off
        Declaration{DataType::dbInteger, "SMALLINT"},
        Declaration{DataType::dbLong, "INTEGER"},
        Declaration{DataType::dbDouble, "DOUBLE"},
        Declaration{DataType::dbText, "TEXT COLLATE NOCASE"},
        Declaration{DataType::dbBoolean, "BOOLEAN TEXT COLLATE NOCASE"},
        Declaration{DataType::dbByte, "BYTE"},
        Declaration{DataType::dbCurrency, "CURRENCY TEXT COLLATE NOCASE"},
        Declaration{DataType::dbSingle, "SINGLE REAL"},
        Declaration{DataType::dbDate, "DATETIME TEXT COLLATE NOCASE"},
        Declaration{DataType::dbBinary, "BLOB"},
        Declaration{DataType::dbMemo, "MEMO TEXT COLLATE NOCASE"},
        Declaration{DataType::dbGUID, "GUID TEXT COLLATE NOCASE"},
        Declaration{decimal62, "DECIMAL TEXT(6,2) COLLATE NOCASE"})); // clang-format on

TEST(ColumnTypes, WhatIsDeclaredOtherwiseIsText)
{
    for (const char* declaration : {"", "VARCHAR(30)", "DECIMAL", "DECIMAL TEXT", "DECIMAL TEXT(",
                                    "DECIMAL TEXT(6)", "DECIMAL TEXT(999,2)", "DECIMAL TEXT(6,2)x"})
        EXPECT_EQ(columnTypeOf(declaration), DataType::dbText) << declaration;
    EXPECT_EQ(columnTypeOf(nullptr), DataType::dbText);
}
