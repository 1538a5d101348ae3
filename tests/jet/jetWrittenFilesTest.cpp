// Maps, definitions, catalogues and encoded files, written and read back.
#include "jet/writtenFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

using namespace jetWriter;

namespace {

class WrittenFiles : public testing::TestWithParam<Version>
{
protected:
    [[nodiscard]] static FileForm form()
    {
        FileForm fileForm;
        fileForm.version = GetParam();
        return fileForm;
    }
    [[nodiscard]] static Bytes text(std::string_view ascii) { return asciiText(GetParam(), ascii); }
};

INSTANTIATE_TEST_SUITE_P(Both, WrittenFiles, testing::Values(Version::Jet3, Version::Jet4), versionName);

Table oneLong(const std::string& name = "T")
{
    Table table;
    table.name = name;
    table.add("n", Type::Long);
    return table;
}

std::string dataFile(const std::string& name)
{
    std::ifstream stream(std::string(ZEPH_TEST_DIR) + "/data/jet/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

Table wideTable(const std::string& longName)
{
    Table table;
    table.name = "Wide";
    for (int i = 0; i < 250; ++i)
        table.add(longName + std::to_string(i), Type::Long);
    for (int i = 0; i < 32; ++i)
        table.addIndex("index with a long name as well " + std::to_string(i),
                       {longName + std::to_string(i), longName + "249"});
    return table;
}

Lines namesOf(const std::vector<jet::Index>& indexes)
{
    Lines names;
    for (const auto& index : indexes)
        names.push_back(index.name);
    return names;
}

} // namespace

TEST_P(WrittenFiles, MapsOfBothKindsTellTheSamePages)
{
    Lines expected;
    for (int i = 0; i < 3000; ++i)
        expected.push_back(std::to_string(i));
    for (const auto kind : {MapKind::Bitmap, MapKind::Pages}) {
        auto fileForm = form();
        fileForm.catalogueMap = kind;
        const ReadBack back(fileBytes(fileForm, [&](FileWriter& writer) {
            TableForm tableForm;
            tableForm.map = kind;
            auto& table = writer.addTable(oneLong(), tableForm);
            for (int i = 0; i < 3000; ++i)
                table.add({longValue(i)});
        }));
        EXPECT_EQ(back.rows("T"), expected);
    }
}

// Beyond what one page of bits tells: 16,352 pages in Jet 3, 32,736 in Jet 4.
TEST_P(WrittenFiles, AMapOfPagesReachesFurtherThanItsFirstPage)
{
    const int pages = GetParam() == Version::Jet3 ? 16352 : 32736;
    Table table = oneLong();
    table.addFixed("filler", Type::Binary, GetParam() == Version::Jet3 ? 1990 : 4000);
    const TemporaryFolder folder;
    {
        std::fstream stream(folder.file("large.mdb"),
                            std::ios::binary | std::ios::in | std::ios::out | std::ios::trunc);
        FileWriter writer(stream, form());
        auto& written = writer.addTable(table);
        for (int i = 0; i < pages + 100; ++i)
            written.add({longValue(i), std::nullopt});
        writer.finish();
        ASSERT_TRUE(stream.flush());
    }
    const jet::File file(folder.file("large.mdb"));
    const auto read = file.table("T");
    int next = 0;
    for (auto rows = file.rows(read); rows.next(); ++next)
        ASSERT_EQ(rows.integer(0), next);
    EXPECT_EQ(next, pages + 100);
}

TEST_P(WrittenFiles, BitsOfPagesThatAreNotThereOrAnothersAreIgnored)
{
    std::uint32_t map = 0;
    auto bytes = fileBytes(form(), [&](FileWriter& writer) {
        auto& table = writer.addTable(oneLong());
        auto& other = writer.addTable(oneLong("Other"));
        for (int i = 0; i < 3; ++i) {
            table.add({longValue(i)});
            other.add({longValue(100 + i)});
        }
        writer.finish();
        map = table.places().map;
    });
    // All bits of the map: pages of other tables, definitions, maps, page 0 and pages behind the end.
    const std::size_t page = (map >> 8U) * pageSize(GetParam());
    const auto entry = page + (GetParam() == Version::Jet3 ? 10 : 14) + std::size_t{2} * (map & 0xFFU);
    const auto start = page + (numberAt(bytes, entry, 2) & 0x1FFFU);
    const std::size_t length = GetParam() == Version::Jet3 ? 133 : 69;
    putNumber(bytes, start + 1, 0, 4);
    bytes.replace(start + 5, length - 5, length - 5, '\xFF');
    EXPECT_EQ(ReadBack(bytes).rows("T"), (Lines{"0", "1", "2"}));
}

TEST_P(WrittenFiles, ADefinitionMaySpanManyPages)
{
    const std::string longName(GetParam() == Version::Jet3 ? 60 : 55, 'n');
    const Table table = wideTable(longName);
    std::size_t definitionPages = 0;
    std::vector<Cell> cells;
    cells.reserve(250);
    for (int i = 0; i < 250; ++i)
        cells.emplace_back(longValue(i));
    const ReadBack back(fileBytes(form(), [&](FileWriter& writer) {
        auto& written = writer.addTable(table);
        written.add(cells);
        writer.finish();
        definitionPages = written.definitionPages().size();
    }));
    EXPECT_GE(definitionPages, 8U);
    const auto read = back.file().table("Wide");
    ASSERT_EQ(read.columns.size(), 250U);
    EXPECT_EQ(read.columns[249].name, longName + "249");
    ASSERT_EQ(read.indexes.size(), 32U);
    EXPECT_EQ(read.indexes[31].columns, (Lines{longName + "31", longName + "249"}));
    EXPECT_EQ(back.rows("Wide").at(0).substr(0, 10), "0|1|2|3|4|");
}

TEST_P(WrittenFiles, IndexesComeByTheirLogicalEntries)
{
    Table table = oneLong();
    table.skipFixed(4);
    table.add("b", Type::Long);
    table.add("c", Type::Text, 10);
    table.addIndex("Ordered", {"c", "n", "b"});
    table.addIndex("PrimaryKey", {"b"}, primaryKey, uniqueIndex | requiredIndex);
    table.logicalIndexes[0].real = 1; // place, own number and real number all differ
    table.logicalIndexes[0].ownNumber = 7;
    table.logicalIndexes[0].kind = primaryKey;
    table.logicalIndexes[1].real = 0;
    table.logicalIndexes[1].kind = 0;
    table.logicalIndexes.push_back({".rC", 2, 0, relationship});
    table.logicalIndexes.push_back({"Twin", 3, 0, 0});
    const ReadBack back(fileOfRows(form(), table, {}));
    const auto indexes = back.file().table("T").indexes;
    ASSERT_EQ(namesOf(indexes), (Lines{"Ordered", "PrimaryKey", "Twin"}));
    EXPECT_EQ(indexes[0].columns, (Lines{"b"}));
    EXPECT_TRUE(indexes[0].isPrimary && indexes[0].isUnique);
    EXPECT_EQ(indexes[1].columns, (Lines{"c", "n", "b"}));
    EXPECT_FALSE(indexes[1].isPrimary || indexes[1].isUnique);
    EXPECT_EQ(indexes[2].columns, (Lines{"c", "n", "b"}));
}

TEST_P(WrittenFiles, TheCatalogueTellsUsersTablesLinksAndDates)
{
    const ReadBack back(fileBytes(form(), [](FileWriter& writer) {
        TableForm tableForm;
        tableForm.created = 36526.5;
        tableForm.updated = 36326.354224537036;
        writer.addTable(oneLong("kvr_geo"), tableForm);
        for (const std::uint32_t flags : {0x2U, 0xAU, 0x80000000U, 0x800A0000U}) {
            tableForm.flags = static_cast<std::int32_t>(flags);
            writer.addTable(oneLong("hidden"), tableForm);
        }
        writer.addLink("kvr_velda", R"(D:\QRS\REFBASE\VELDAKVR3.MDB)", "the_velda", 35000);
    }));
    Lines shown;
    for (const auto& entry : back.file().catalogue())
        shown.push_back(entry.name + "|" + std::to_string(entry.created.days) + "|" +
                        std::to_string(entry.updated.days) + "|" + entry.linkedFile + "|" +
                        entry.linkedTable);
    EXPECT_EQ(shown,
              (Lines{"kvr_geo|36526.500000|36326.354225||",
                     R"(kvr_velda|35000.500000|35000.000000|D:\QRS\REFBASE\VELDAKVR3.MDB|the_velda)"}));
    EXPECT_THROW(static_cast<void>(back.file().table("kvr_velda")), jet::Error);
}

TEST_P(WrittenFiles, NamesOfTablesAndColumnsMayHaveAnyLetters)
{
    const bool isNarrow = GetParam() == Version::Jet3;
    auto fileForm = form();
    fileForm.codePage = 1251;
    Table table = oneLong(isNarrow ? "\xCC\xE8\xF0" : "Мир");
    table.columns[0].name = isNarrow ? "\xF7" : "漢\U0001F4E1";
    const ReadBack back(fileOfRows(fileForm, table, {}));
    const auto read = back.file().table("Мир");
    EXPECT_EQ(read.columns.at(0).name, isNarrow ? "ч" : "漢\U0001F4E1");
}

TEST_P(WrittenFiles, NamesAreFoundInAnyCase)
{
    const ReadBack back(fileOfRows(form(), oneLong("kvr_Velda"), {{longValue(1)}}));
    EXPECT_EQ(back.rows("KVR_VELDA"), Lines{"1"});
    EXPECT_THROW(static_cast<void>(back.file().table("kvr_veld")), jet::Error);
}

TEST_P(WrittenFiles, AWrongNumberOfRowsInTheDefinitionMisleadsNobody)
{
    const ReadBack back(fileBytes(form(), [](FileWriter& writer) {
        TableForm tableForm;
        tableForm.rowCount = 0xFFFFFFFF;
        writer.addTable(oneLong(), tableForm).add({longValue(1)});
    }));
    EXPECT_EQ(back.rows("T"), Lines{"1"});
}

TEST_P(WrittenFiles, AnEncodedFileReadsAsItsPlainTwin)
{
    auto encoded = form();
    encoded.key = 0xC0FFEE11;
    const auto fill = [](FileWriter& writer) {
        auto& table = writer.addTable(oneLong());
        for (int i = 0; i < 1000; ++i)
            table.add({longValue(i)});
    };
    const auto plain = fileBytes(form(), fill);
    EXPECT_EQ(encodedFile(plain, encoded.key), fileBytes(encoded, fill));
    EXPECT_EQ(ReadBack(fileBytes(encoded, fill)).rows("T"), ReadBack(plain).rows("T"));
}

TEST_P(WrittenFiles, TheStampTellsTheCommitBytes)
{
    auto fileForm = form();
    const auto before = fileOfRows(fileForm, oneLong(), {});
    fileForm.commits = 0x173;
    const ReadBack first(before);
    const ReadBack second(fileOfRows(fileForm, oneLong(), {}));
    EXPECT_EQ(first.file().stamp().commitBytes[0], 1);
    EXPECT_EQ(second.file().stamp().commitBytes[0], 0x73);
    EXPECT_EQ(second.file().stamp().commitBytes[2], 0);
    EXPECT_EQ(second.file().stamp().commitBytes[511], 1);
    EXPECT_EQ(first.file().stamp().size, before.size());
}

TEST(WrittenFilesOfTheFolder, TheWorkingDatabasesReadTheSameWhenEncoded)
{
    for (const char* name : {"jet4/work200.mdb", "jet3/work97_1251.mdb"}) {
        SCOPED_TRACE(name);
        const auto plain = dataFile(name);
        ASSERT_FALSE(plain.empty());
        const auto rows = shownFile(ReadBack(plain).file());
        EXPECT_GT(rows.size(), 2900U);
        for (const std::uint32_t key : {0x6B39DAC7U, 1U, 0xFFFFFFFFU})
            EXPECT_EQ(shownFile(ReadBack(encodedFile(plain, key)).file()), rows);
    }
}
