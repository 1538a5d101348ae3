#include "dao/jetConversion.h"

#include "dao/dao.h"
#include "dao/jetCache.h"
#include "dao/jetSamples.h"
#include "dao/writtenJetFile.h"
#include "support/failures.h"

#include <gtest/gtest.h>

#include <limits>

using dao::Null;
using dao::Value;
using jetWriter::Cell;
using jetWriter::Type;

namespace {

class JetConversion : public testing::Test
{
protected:
    // The engine's values of a column that holds what the cells hold.
    std::vector<Value> valuesOf(const jetWriter::Table& table, const std::vector<Cell>& cells) const
    {
        const auto file = writtenJet::write(folder, "values.mdb", [&](jetWriter::FileWriter& writer) {
            auto& rows = writer.addTable(table);
            for (const auto& cell : cells)
                rows.add({cell});
        });
        return columnOf(file, "SELECT * FROM t");
    }

    std::vector<Value> valuesOf(Type type, std::uint16_t length, const std::vector<Cell>& cells) const
    {
        jetWriter::Table table;
        table.name = "t";
        table.add("v", type, length);
        return valuesOf(table, cells);
    }

    static std::vector<Value> columnOf(const std::string& file, const std::string& query)
    {
        const auto database = dao::DBEngine::OpenDatabase(dao::cacheOf(file), false, true);
        const auto rows = database->OpenRecordset(query, dao::dbOpenDynaset)->snapshot();
        std::vector<Value> values;
        for (std::size_t row = 0; row < rows->rowCount(); ++row)
            values.push_back(rows->value(row, 0));
        return values;
    }

    TemporaryFolder folder;
};

using Values = std::vector<Value>;

} // namespace

TEST_F(JetConversion, GivesNumbersAsTheyAre)
{
    EXPECT_EQ(valuesOf(Type::Byte, 0, {jetWriter::byteValue(0), jetWriter::byteValue(255), std::nullopt}),
              (Values{std::int16_t{0}, std::int16_t{255}, Null}));
    EXPECT_EQ(valuesOf(Type::Integer, 0, {jetWriter::integerValue(-32768)}), Values{std::int16_t{-32768}});
    EXPECT_EQ(valuesOf(Type::Long, 0, {jetWriter::longValue(-2147483647 - 1)}),
              Values{std::int32_t{-2147483647 - 1}});
    EXPECT_EQ(valuesOf(Type::Double, 0,
                       {jetWriter::doubleValue(2.3333333333333335), jetWriter::doubleValue(1E300)}),
              (Values{2.3333333333333335, 1E300}));
    EXPECT_EQ(valuesOf(Type::Single, 0, {jetWriter::singleValue(0.1F), jetWriter::singleValue(107.25F)}),
              (Values{0.1, 107.25}));
}

TEST_F(JetConversion, GivesTruthsAsTheRecordsHoldThem)
{
    EXPECT_EQ(valuesOf(Type::Boolean, 0, {Cell(""), std::nullopt}), (Values{"TRUE", "FALSE"}));
}

TEST_F(JetConversion, LosesNoDigitOfExactNumbers)
{
    EXPECT_EQ(valuesOf(Type::Currency, 0,
                       {jetWriter::currencyValue(std::numeric_limits<std::int64_t>::min()),
                        jetWriter::currencyValue(81513), jetWriter::currencyValue(-1)}),
              (Values{"-922337203685477.5808", "8.1513", "-0.0001"}));
}

TEST_F(JetConversion, PutsTheYearFirstAndTheTimeBehindTheDate)
{
    EXPECT_EQ(valuesOf(Type::DateTime, 0,
                       {jetWriter::doubleValue(36326), jetWriter::doubleValue(36326.25), std::nullopt}),
              (Values{"1999-06-15", "1999-06-15 06:00:00", Null}));
}

TEST_F(JetConversion, KeepsTheNumberOfAMomentThatIsNone)
{
    EXPECT_EQ(valuesOf(Type::DateTime, 0, {jetWriter::doubleValue(1E9), jetWriter::doubleValue(1)}),
              (Values{"1e+09", "1899-12-31"}));
    const auto none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(valuesOf(Type::Double, 0, {jetWriter::doubleValue(none)}), Values{"NaN"});
    EXPECT_EQ(valuesOf(Type::DateTime, 0, {jetWriter::doubleValue(none)}), Values{"nan"});
}

TEST_F(JetConversion, TellsNullFromTheEmptyText)
{
    EXPECT_EQ(valuesOf(Type::Text, 50, {Cell(""), std::nullopt, Cell(" a\xDF ")}),
              (Values{"", Null, " aß "}));
}

TEST_F(JetConversion, GivesBytesAsDigits)
{
    EXPECT_EQ(valuesOf(Type::Binary, 50, {Cell(std::string("\x00\xff\x10", 3)), Cell("")}),
              (Values{"00ff10", ""}));
}

TEST_F(JetConversion, ComparesTextWithoutRegardToCaseInEachTextColumn)
{
    const auto file = writtenJet::write(folder, "a.mdb", [](jetWriter::FileWriter& writer) {
        jetWriter::Table table;
        table.name = "t";
        table.add("word", Type::Text, 50);
        table.add("truth", Type::Boolean);
        writer.addTable(table).add({Cell("\xC4Z"), Cell("")});
    });
    EXPECT_EQ(columnOf(file, "SELECT word FROM t WHERE word = 'äz' AND truth = 'true'"), Values{"ÄZ"});
}

TEST_F(JetConversion, KeepsRowsWithTheSameKeyAndWithNoneInTheirOrder)
{
    const auto file = writtenJet::write(folder, "a.mdb", [](jetWriter::FileWriter& writer) {
        jetWriter::Table table;
        table.name = "kvr_velda";
        table.add("veldakey", Type::Long);
        table.addIndex("PrimaryKey", {"veldakey"}, jetWriter::primaryKey, jetWriter::uniqueIndex);
        auto& rows = writer.addTable(table);
        for (const int key : {9, 3, 9})
            rows.add({jetWriter::longValue(key)});
        rows.add({std::nullopt});
        rows.add({jetWriter::longValue(1)});
    });
    EXPECT_EQ(columnOf(file, "SELECT veldakey FROM kvr_velda"),
              (Values{std::int32_t{9}, std::int32_t{3}, std::int32_t{9}, Null, std::int32_t{1}}));
    EXPECT_EQ(columnOf(file, "SELECT rowid FROM kvr_velda WHERE veldakey = 1").size(), 1U);
}

TEST_F(JetConversion, TakesNamesOfAnyKind)
{
    const auto file = writtenJet::write(folder, "a.mdb", [](jetWriter::FileWriter& writer) {
        for (const char* name : {"order \"by\"", "a", "b"}) {
            jetWriter::Table table;
            table.name = name;
            table.add("select", Type::Long);
            table.add("b", Type::Long);
            table.addIndex("b", {"b"}); // the name of a table, of a column, and twice
            table.addIndex("where \"x\"", {"select", "b"});
            writer.addTable(table).add({jetWriter::longValue(1), jetWriter::longValue(2)});
        }
    });
    EXPECT_EQ(columnOf(file, "SELECT [select] FROM [order \"by\"]"), Values{std::int32_t{1}});
}

TEST_F(JetConversion, RefusesNamesThatNoSuchFileHas)
{
    const auto twice = writtenJet::write(folder, "a.mdb", [](jetWriter::FileWriter& writer) {
        jetWriter::Table table;
        table.name = "t";
        table.add("a", Type::Long);
        table.add("A", Type::Long);
        writer.addTable(table);
    });
    EXPECT_FAILURE(3049, static_cast<void>(dao::cacheOf(twice)));
    const auto reserved = writtenJet::write(folder, "b.mdb", [](jetWriter::FileWriter& writer) {
        jetWriter::Table table;
        table.name = "sqlite_schema";
        table.add("a", Type::Long);
        writer.addTable(table);
    });
    EXPECT_FAILURE(3049, static_cast<void>(dao::cacheOf(reserved)));
}

TEST_F(JetConversion, OfAFileWithoutTablesIsEmpty)
{
    const auto file = writtenJet::write(folder, "a.mdb", [](jetWriter::FileWriter&) {});
    const auto database = dao::DBEngine::OpenDatabase(dao::cacheOf(file), false, true);
    EXPECT_FAILURE(3078, static_cast<void>(database->OpenRecordset("t", dao::dbOpenTable)));
}
