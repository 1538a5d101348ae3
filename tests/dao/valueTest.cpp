#include "dao/value.h"
#include "support/workingDatabase.h"

#include <gtest/gtest.h>

using dao::DataType;
using dao::Null;
using dao::Value;

namespace {

struct Conversion
{
    const char* name;
    Value given;
    DataType type;
    Value expected;
};

class ValueConverts : public testing::TestWithParam<Conversion>
{};

class ValueRefuses : public testing::TestWithParam<Conversion>
{};

} // namespace

TEST_P(ValueConverts, ToTheTypeOfItsColumn)
{
    EXPECT_EQ(GetParam().given.convertedTo(GetParam().type), GetParam().expected);
}

TEST_P(ValueRefuses, WithADataTypeConversionError)
{
    EXPECT_FAILURE(3421, static_cast<void>(GetParam().given.convertedTo(GetParam().type)));
}

INSTANTIATE_TEST_SUITE_P(
    Table, ValueConverts,
    testing::Values(Conversion{"textStaysText", " 007 ", DataType::dbText, " 007 "},
                    Conversion{"emptyTextStaysText", "", DataType::dbText, ""},
                    Conversion{"numberToText", 0.1985, DataType::dbText, "0.1985"},
                    Conversion{"leadingZerosAreLost", "0030", DataType::dbLong, std::int32_t{30}},
                    Conversion{"blanksAround", " 12 ", DataType::dbLong, std::int32_t{12}},
                    Conversion{"halfDownToEven", "2.5", DataType::dbLong, std::int32_t{2}},
                    Conversion{"halfUpToEven", "3.5", DataType::dbLong, std::int32_t{4}},
                    Conversion{"exponent", "1E3", DataType::dbLong, std::int32_t{1000}},
                    Conversion{"largestLong", "2147483647", DataType::dbLong, std::int32_t{2147483647}},
                    Conversion{"smallestLong", "-2147483648", DataType::dbLong,
                               std::int32_t{-2147483647 - 1}},
                    Conversion{"largestInteger", "32767", DataType::dbInteger, std::int16_t{32767}},
                    Conversion{"double", "151.3375", DataType::dbDouble, 151.3375},
                    Conversion{"longToInteger", std::int32_t{7}, DataType::dbInteger, std::int16_t{7}},
                    Conversion{"nullStaysNull", Null, DataType::dbLong, Null}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(Table, ValueRefuses,
                         testing::Values(Conversion{"empty", "", DataType::dbLong, Null},
                                         Conversion{"trailingLetter", "12a", DataType::dbLong, Null},
                                         Conversion{"comma", "12,5", DataType::dbDouble, Null},
                                         Conversion{"oneAboveLong", "2147483648", DataType::dbLong, Null},
                                         Conversion{"oneAboveInteger", "32768", DataType::dbInteger, Null},
                                         Conversion{"tooLargeForDouble", "1E999", DataType::dbDouble, Null},
                                         Conversion{"hexadecimal", "&H10", DataType::dbLong, Null}),
                         [](const auto& row) { return row.param.name; });

TEST(Value, NullAsTextOrNumberIsInvalid)
{
    EXPECT_FAILURE(94, static_cast<void>(Value(Null).text()));
    EXPECT_FAILURE(94, static_cast<void>(Value(Null).toLong()));
}

TEST(Value, TextThatIsNoNumberIsATypeMismatchAsANumber)
{
    EXPECT_FAILURE(13, static_cast<void>(Value("twelve").toLong()));
}
