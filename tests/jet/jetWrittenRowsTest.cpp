// Rows of every shape that the two versions know, written and read back.
#include "jet/writtenFile.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace jetWriter;

namespace {

class WrittenRows : public testing::TestWithParam<Version>
{
protected:
    [[nodiscard]] static FileForm form()
    {
        FileForm fileForm;
        fileForm.version = GetParam();
        return fileForm;
    }
    [[nodiscard]] static Bytes text(std::string_view ascii) { return asciiText(GetParam(), ascii); }
    [[nodiscard]] static std::vector<Cell> numbered(int number)
    {
        return {longValue(number), text("row " + std::to_string(number))};
    }
};

INSTANTIATE_TEST_SUITE_P(Both, WrittenRows, testing::Values(Version::Jet3, Version::Jet4), versionName);

Table numberAndText()
{
    Table table;
    table.name = "T";
    table.add("n", Type::Long);
    table.add("t", Type::Text, 200);
    return table;
}

std::string line(int number)
{
    return std::to_string(number) + "|row " + std::to_string(number);
}

} // namespace

TEST_P(WrittenRows, AMovedRowStandsAtItsFirstPlace)
{
    const ReadBack back(fileBytes(form(), [](FileWriter& writer) {
        auto& table = writer.addTable(numberAndText());
        table.add(numbered(1));
        table.addMoved(numbered(2));
        table.add(numbered(3));
        table.addMoved(numbered(4), 2); // the target was moved too
        table.add(numbered(5));
    }));
    EXPECT_EQ(back.rows("T"), (Lines{line(1), line(2), line(3), line(4), line(5)}));
}

TEST_P(WrittenRows, DeletedRowsAndGhostsAreNotShown)
{
    const ReadBack back(fileBytes(form(), [](FileWriter& writer) {
        auto& table = writer.addTable(numberAndText());
        table.addDeleted(numbered(1));
        table.add(numbered(2));
        table.addGhost(numbered(3));
        table.addBytes("", skippedRow | movedRow);
        table.addMoved(numbered(4));
        table.addBytesElsewhere(rowBytes(GetParam(), table.table(), numbered(5)), skippedRow);
    }));
    EXPECT_EQ(back.rows("T"), (Lines{line(2), line(4)}));
}

TEST_P(WrittenRows, ManyPagesComeInTheOrderOfTheirNumbers)
{
    Lines expected;
    const ReadBack back(fileBytes(form(), [&](FileWriter& writer) {
        auto& table = writer.addTable(numberAndText());
        auto& other = writer.addTable([] {
            auto twin = numberAndText();
            twin.name = "Other";
            return twin;
        }());
        for (int i = 0; i < 2000; ++i) { // their pages alternate
            i % 7 == 0 ? table.addMoved(numbered(i)) : table.add(numbered(i));
            other.add(numbered(-i));
            expected.push_back(line(i));
        }
    }));
    EXPECT_EQ(back.rows("T"), expected);
    EXPECT_EQ(back.rows("Other").size(), 2000U);
    EXPECT_EQ(back.file().table("T").rowCount, 2000U);
}

TEST_P(WrittenRows, APageHolds255Rows)
{
    Table table;
    table.name = "T";
    table.add("b", Type::Byte);
    std::vector<std::vector<Cell>> rows;
    Lines expected;
    for (int i = 0; i < 600; ++i) {
        rows.push_back({byteValue(static_cast<std::uint8_t>(i % 256))});
        expected.push_back(std::to_string(i % 256));
    }
    EXPECT_EQ(ReadBack(fileOfRows(form(), table, rows)).rows("T"), expected);
}

TEST_P(WrittenRows, ATableWithoutVariableColumnsHasNoTableOfOffsets)
{
    Table table;
    table.name = "T";
    table.add("n", Type::Long);
    table.add("yes", Type::Boolean);
    table.add("i", Type::Integer);
    const ReadBack back(fileOfRows(form(), table,
                                   {{longValue(-7), Bytes(), integerValue(-2)},
                                    {std::nullopt, std::nullopt, std::nullopt},
                                    {longValue(8), std::nullopt, integerValue(32767)}}));
    EXPECT_EQ(back.rows("T"), (Lines{"-7|true|-2", "\\N|false|\\N", "8|false|32767"}));
}

TEST_P(WrittenRows, ATableOfVariableColumnsAloneHasNoFixedArea)
{
    Table table;
    table.name = "T";
    table.addVariable("n", Type::Long, 4);
    table.add("t", Type::Text, 20);
    table.addVariable("d", Type::DateTime, 8);
    const ReadBack back(fileOfRows(form(), table,
                                   {{longValue(5), text(""), doubleValue(36326.354224537036)},
                                    {std::nullopt, std::nullopt, std::nullopt},
                                    {longValue(6), text("x"), std::nullopt}}));
    EXPECT_EQ(back.rows("T"), (Lines{"5||1999-06-15T08:30:05", "\\N|\\N|\\N", "6|x|\\N"}));
}

TEST_P(WrittenRows, AnEmptyTableHasNoRows)
{
    const ReadBack back(fileOfRows(form(), numberAndText(), {}));
    EXPECT_TRUE(back.rows("T").empty());
    EXPECT_EQ(back.file().table("T").columns.size(), 2U);
}

TEST_P(WrittenRows, ColumnsAddedAfterARowWasWrittenAreNullInIt)
{
    Table table = numberAndText();
    table.add("more", Type::Long);
    table.add("yes", Type::Boolean);
    table.add("u", Type::Text, 20);
    const ReadBack back(fileBytes(form(), [&](FileWriter& writer) {
        auto& written = writer.addTable(table);
        const std::vector<Cell> cells{longValue(1), text("t"), longValue(2), Bytes(), text("u")};
        for (std::uint16_t columnsThen = 1; columnsThen <= 5; ++columnsThen)
            written.add(cells, {columnsThen});
    }));
    EXPECT_EQ(back.rows("T"), (Lines{"1|\\N|\\N|false|\\N", "1|t|\\N|false|\\N", "1|t|2|false|\\N",
                                     "1|t|2|true|\\N", "1|t|2|true|u"}));
}

TEST_P(WrittenRows, ARowOlderThanTheFirstVariableColumnMayHaveNoOffsets)
{
    const ReadBack back(fileBytes(form(), [](FileWriter& writer) {
        auto& written = writer.addTable(numberAndText());
        written.add({longValue(1), std::nullopt}, {1, false});
        written.add({longValue(2), text("t")});
    }));
    EXPECT_EQ(back.rows("T"), (Lines{"1|\\N", "2|t"}));
}

TEST_P(WrittenRows, DeletedColumnsLeaveGapsInIdsAndOffsets)
{
    Table table;
    table.name = "T";
    table.add("first", Type::Text, 20);
    table.skipVariable();
    table.skipFixed(8);
    table.add("n", Type::Long);
    table.skipVariable();
    table.add("last", Type::Text, 20);
    const ReadBack back(fileOfRows(
        form(), table, {{text("a"), longValue(3), text("b")}, {std::nullopt, longValue(4), text("")}}));
    EXPECT_EQ(back.rows("T"), (Lines{"a|3|b", "\\N|4|"}));
}

TEST_P(WrittenRows, ColumnsAreShownInTheOrderOfTheirEntries)
{
    Table table = numberAndText();
    std::swap(table.columns[0], table.columns[1]);
    const ReadBack back(fileOfRows(form(), table, {{text("t"), longValue(9)}}));
    EXPECT_EQ(back.rows("T"), (Lines{"t|9"}));
}

TEST_P(WrittenRows, ATableMayHave255Columns)
{
    Table table;
    table.name = "Wide";
    std::vector<Cell> cells;
    std::vector<Cell> ends;
    std::string expected;
    for (int i = 0; i < 255; ++i) {
        const bool isFixed = i % 3 == 0;
        table.add("column with a long name " + std::to_string(i), isFixed ? Type::Byte : Type::Text, 20);
        cells.emplace_back(isFixed ? byteValue(static_cast<std::uint8_t>(i)) : text(std::to_string(i)));
        expected += (i == 0 ? "" : "|") + std::to_string(i);
    }
    const ReadBack back(fileOfRows(form(), table, {cells, std::vector<Cell>(255)}));
    const auto rows = back.rows("Wide");
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0], expected);
    EXPECT_EQ(rows[1].substr(0, 9), "\\N|\\N|\\N|");
}

TEST_P(WrittenRows, AllOf255ColumnsMayBeVariable)
{
    Table table;
    table.name = "Wide";
    std::vector<Cell> cells;
    std::string expected;
    for (int i = 0; i < 255; ++i) {
        table.add("c" + std::to_string(i), Type::Text, 20);
        cells.emplace_back(i % 2 == 0 ? text("abc") : text(""));
        expected += i == 0 ? "abc" : i % 2 == 0 ? "|abc" : "|";
    }
    EXPECT_EQ(ReadBack(fileOfRows(form(), table, {cells})).rows("Wide"), Lines{expected});
}

// Lengths about every multiple of 256 in Jet 3, where the jumps begin and where the last one is needed or
// not.
TEST(WrittenLongRows, EveryLengthUpToAPageComesBack)
{
    Table table;
    table.name = "T";
    table.add("n", Type::Long);
    for (int i = 0; i < 8; ++i)
        table.add("t" + std::to_string(i), Type::Text, 255);
    std::vector<std::vector<Cell>> rows;
    Lines expected;
    for (int length = 200; length < 1990; ++length) {
        std::vector<Cell> cells{longValue(length)};
        std::string shown = std::to_string(length);
        for (int i = 0; i < 8; ++i) {
            const int part = std::clamp(length - 250 * i, 0, 250);
            const std::string text(static_cast<std::size_t>(part), static_cast<char>('a' + length % 26));
            cells.emplace_back(text);
            shown += "|" + text;
        }
        rows.push_back(cells);
        expected.push_back(shown);
    }
    EXPECT_EQ(ReadBack(fileOfRows({}, table, rows)).rows("T"), expected);
}

TEST(WrittenLongRows, TheLastJumpsOfARowOf255TextsMayBeNeedless)
{
    Table table;
    table.name = "T";
    for (int i = 0; i < 255; ++i)
        table.add("t" + std::to_string(i), Type::Text, 255);
    std::vector<std::vector<Cell>> rows;
    Lines expected;
    for (std::size_t length = 0; length < 255; ++length) {
        std::vector<Cell> cells(255);
        cells[254] = Bytes(length, 'z'); // the end is offset 255, as a needless jump seems to say
        cells[3] = Bytes(length, 'y');
        std::string shown;
        for (const auto& cell : cells)
            shown += (&cell == cells.data() ? "" : "|") + cell.value_or("\\N");
        rows.push_back(cells);
        expected.push_back(shown);
    }
    EXPECT_EQ(ReadBack(fileOfRows({}, table, rows)).rows("T"), expected);
}
