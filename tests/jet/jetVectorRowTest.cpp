#include "jet/rowLayout.h"

#include <gtest/gtest.h>
#include <string>

// Rows worked out by hand.
namespace {

using namespace std::literals;
using jet::Column;
using jet::Type;
using jet::Version;

Column fixedColumn(Type type, std::uint16_t id, std::uint16_t offset, std::uint16_t length)
{
    Column column;
    column.type = type;
    column.isFixed = true;
    column.id = id;
    column.fixedOffset = offset;
    column.length = length;
    return column;
}

Column textColumn(std::uint16_t id, std::uint16_t variableIndex)
{
    Column column;
    column.id = id;
    column.variableIndex = variableIndex;
    column.fixedOffset = 0xFFFF; // junk, as in real files
    return column;
}

jet::Table tableOf(std::vector<Column> columns)
{
    jet::Table table;
    table.columns = std::move(columns);
    return table;
}

const jet::Table oneLongAndThreeTexts =
    tableOf({fixedColumn(Type::Long, 0, 0, 4), textColumn(1, 0), textColumn(2, 1), textColumn(3, 2)});

jet::RowLayout parsed(const jet::Table& table, Version version, std::string_view row)
{
    jet::RowLayout layout(table, version);
    layout.parse(jet::ByteView(row, 9));
    return layout;
}

struct JumpRow
{
    const char* name;
    std::array<std::size_t, 3> lengths;
    std::string_view tail;
    std::size_t size;
};

TEST(JetRow, ofMoreThan255BytesJumpsInItsOffsets)
{
    const std::vector<JumpRow> rows = {
        {"one jump", {200, 100, 5}, "\x36\x31\xCD\x05\x02\x03\x0F"sv, 317},
        {"two jumps", {250, 250, 50}, "\x2B\xF9\xFF\x05\x03\x02\x03\x0F"sv, 563},
    };
    for (const auto& each : rows) {
        const std::array values = {std::string(each.lengths[0], 'a'), std::string(each.lengths[1], 'b'),
                                   std::string(each.lengths[2], 'c')};
        const auto row = "\x04\x07\0\0\0"s + values[0] + values[1] + values[2] + std::string(each.tail);
        ASSERT_EQ(row.size(), each.size) << each.name;
        const auto layout = parsed(oneLongAndThreeTexts, Version::Jet3, row);
        EXPECT_EQ(layout.value(0).u32(0), 7U) << each.name;
        for (std::size_t i = 0; i < values.size(); ++i)
            EXPECT_EQ(layout.value(i + 1).bytes(), values[i]) << each.name;
    }
}

TEST(JetRow, hasALastJumpThatMeansNothingWhereItsTablesAloneMakeItLong)
{
    const auto table = tableOf({fixedColumn(Type::Long, 0, 0, 4), textColumn(1, 0)});
    const std::string value(250, 'a');
    for (const char dummy : {'\xFF', '\0', '\x01'}) {
        const auto row = "\x02\x07\0\0\0"s + value + "\xFF\x05" + dummy + "\x01\x03";
        ASSERT_EQ(row.size(), 260U); // 259 without the jump, and no value beyond 255
        EXPECT_EQ(parsed(table, Version::Jet3, row).value(1).bytes(), value);
    }
}

TEST(JetRow, ofTheNewerVersionLeavesOutWhatBelongsToADeletedColumn)
{
    const auto row = "\x03\0\xFF\xFErow1col1\xFF\xFErow1col2\x16\0\x16\0\x0C\0\x02\0\x03\0\x03"s;
    ASSERT_EQ(row.size(), 33U);
    const auto layout = parsed(tableOf({textColumn(0, 0), textColumn(2, 2)}), Version::Jet4, row);
    EXPECT_EQ(layout.value(0).bytes(), "\xFF\xFErow1col1");
    EXPECT_TRUE(layout.isNull(1));
}

TEST(JetRow, thatIsOlderThanAColumnHasNullThere)
{
    const auto table = tableOf({fixedColumn(Type::Byte, 0, 0, 1), textColumn(1, 0), textColumn(2, 1),
                                fixedColumn(Type::Long, 3, 1, 4), fixedColumn(Type::Boolean, 4, 900, 1)});
    const auto row = "\x02\x07q\x03\x02\x01\x03"s; // two columns, one of them variable
    const auto layout = parsed(table, Version::Jet3, row);
    EXPECT_EQ(layout.value(0).u8(0), 7U);
    EXPECT_EQ(layout.value(1).bytes(), "q");
    EXPECT_TRUE(layout.isNull(2));
    EXPECT_TRUE(layout.isNull(3));
    EXPECT_FALSE(layout.isNull(4));
    EXPECT_FALSE(layout.isSet(4));
}

TEST(JetRow, holdsABooleanInTheMaskAlone)
{
    const auto table =
        tableOf({fixedColumn(Type::Boolean, 0, 0xFFFF, 1), fixedColumn(Type::Boolean, 1, 0, 1)});
    const auto layout = parsed(table, Version::Jet3, "\x02\x02"sv);
    EXPECT_FALSE(layout.isNull(0));
    EXPECT_FALSE(layout.isSet(0));
    EXPECT_FALSE(layout.isNull(1));
    EXPECT_TRUE(layout.isSet(1));
}

TEST(JetRow, isNullByItsMaskWhateverItsBytesHold)
{
    const auto table = tableOf({fixedColumn(Type::Long, 0, 0, 4), textColumn(1, 0)});
    const auto layout = parsed(table, Version::Jet4, "\x02\0\x2A\0\0\0ab\x08\0\x06\0\x01\0\0"sv);
    EXPECT_TRUE(layout.isNull(0));
    EXPECT_TRUE(layout.isNull(1));
}

TEST(JetRow, tellsTheEmptyTextFromNull)
{
    const auto layout = parsed(tableOf({textColumn(0, 0)}), Version::Jet4, "\x01\0\x02\0\x02\0\x01\0\x01"sv);
    EXPECT_FALSE(layout.isNull(0));
    EXPECT_EQ(layout.value(0).size(), 0U);
}

TEST(JetRow, hasNoTableOfVariableValuesWhereTheTableHasNone)
{
    const auto table = tableOf({fixedColumn(Type::Integer, 0, 0, 2)});
    EXPECT_EQ(parsed(table, Version::Jet3, "\x01\x2A\0\x01"sv).value(0).u16(0), 42U);
    EXPECT_EQ(parsed(table, Version::Jet4, "\x01\0\x2A\0\x01"sv).value(0).u16(0), 42U);
}

TEST(JetRow, doesWithoutTheTableWhileAllOfItsValuesAreNull)
{
    const auto table = tableOf({fixedColumn(Type::Byte, 0, 0, 1), textColumn(1, 0)});
    const auto layout = parsed(table, Version::Jet4, "\x02\0\x2A\x01"sv);
    EXPECT_EQ(layout.value(0).u8(0), 42U);
    EXPECT_TRUE(layout.isNull(1));
}

TEST(JetRow, holdsAnUnknownTypeAsBytes)
{
    const auto table = tableOf({fixedColumn(static_cast<Type>(17), 0, 0, 3)});
    EXPECT_EQ(parsed(table, Version::Jet4, "\x01\0abc\x01"sv).value(0).bytes(), "abc");
}

struct BrokenRow
{
    const char* name;
    Version version;
    std::string_view bytes;
};

bool isDamaged(const jet::Table& table, const BrokenRow& row)
{
    try {
        parsed(table, row.version, row.bytes);
        return false;
    } catch (const jet::Error& error) {
        return error.fault() == jet::Fault::Damaged;
    }
}

TEST(JetRow, thatContradictsItselfIsDamaged)
{
    const auto table = tableOf({fixedColumn(Type::Long, 0, 0, 4), textColumn(1, 0)});
    const std::vector<BrokenRow> rows = {
        // clang-format off
        {"without bytes",                     Version::Jet3, ""sv},
        {"one byte of a number of two",       Version::Jet4, "\x02"sv},
        {"a mask longer than the row",        Version::Jet3, "\xFF\0\0\x01"sv},
        {"no place for a fixed value",        Version::Jet3, "\x01\0\0\0\x01"sv},
        {"no place for the offsets",          Version::Jet3, "\x02\0\0\0\0\x09\x02"sv},
        {"no place for the offsets, newer",   Version::Jet4, "\x02\0\0\0\0\x04\0\x02"sv},
        {"more values than any row has",      Version::Jet4, "\x02\0\0\0\0\0\0\xFF\xFF\x02"sv},
        {"a value before the first byte",     Version::Jet3, "\x02\0\0\0\0q\x06\0\x01\x02"sv},
        {"an end before the beginning",       Version::Jet3, "\x02\0\0\0\0q\x05\x06\x01\x02"sv},
        {"an end within the offsets",         Version::Jet3, "\x02\0\0\0\0q\x07\x05\x01\x02"sv},
        {"an end within the offsets, newer",  Version::Jet4, "\x02\0\0\0\0\0q\x08\0\x06\0\x01\0\x02"sv},
        // clang-format on
    };
    for (const auto& row : rows)
        EXPECT_TRUE(isDamaged(table, row)) << row.name;
}

TEST(JetRow, withAVariableNumberTooShortIsDamaged)
{
    auto number = textColumn(0, 0);
    number.type = Type::Long;
    const auto table = tableOf({number});
    EXPECT_EQ(parsed(table, Version::Jet3, "\x01\x2A\0\0\0\x05\x01\x01\x01"sv).value(0).u32(0), 42U);
    EXPECT_THROW(parsed(table, Version::Jet3, "\x01\x2A\0\0\x04\x01\x01\x01"sv), jet::Error);
}

} // namespace
