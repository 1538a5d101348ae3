#include "jet/jetFile.h"
#include "support/jetText.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <sstream>

// The sample files: each row of theirs, and what each was chosen for.
namespace {

using Names = std::vector<std::string>;
using Counts = std::map<std::string, std::size_t>;

std::filesystem::path sample(const std::string& name)
{
    return std::filesystem::path(ZEPH_TEST_DIR) / "data/jet" / name;
}

jet::File sampleFile(const std::string& name)
{
    return jet::File(sample(name));
}

std::string contentOf(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

Counts countsOf(const jet::File& file)
{
    Counts counts;
    for (const auto& entry : file.catalogue()) {
        if (entry.isLink())
            continue;
        const auto table = file.table(entry.name);
        auto rows = file.rows(table);
        auto& count = counts[entry.name];
        while (rows.next())
            ++count;
        EXPECT_EQ(count, table.rowCount) << entry.name;
    }
    return counts;
}

// Text of a column, row by row; "\N" for Null.
Names columnOf(const jet::File& file, const std::string& tableName, const std::string& columnName)
{
    const auto table = file.table(tableName);
    std::size_t column = 0;
    while (table.columns.at(column).name != columnName)
        ++column;
    Names values;
    auto rows = file.rows(table);
    while (rows.next())
        values.push_back(jetValueText(rows, table, column));
    return values;
}

const jet::Index& indexOf(const jet::Table& table, const std::string& name)
{
    for (const auto& index : table.indexes) {
        if (index.name == name)
            return index;
    }
    throw std::out_of_range("no index " + name);
}

Names indexNames(const jet::Table& table)
{
    Names names;
    for (const auto& index : table.indexes)
        names.push_back(index.name);
    return names;
}

const jet::CatalogueEntry& entryOf(const jet::File& file, const std::string& name)
{
    for (const auto& entry : file.catalogue()) {
        if (entry.name == name)
            return entry;
    }
    throw std::out_of_range("no entry " + name);
}

Names linksOf(const jet::File& file)
{
    Names links;
    for (const auto& entry : file.catalogue()) {
        if (entry.isLink())
            links.push_back(entry.name);
    }
    return links;
}

struct FileRow
{
    const char* name;
    jet::Version version;
    const char* expected; // folder of the rows as text, where there is one
    Counts counts;
};

std::ostream& operator<<(std::ostream& stream, const FileRow& row)
{
    return stream << row.name;
}

const Counts work200Counts = {
    {"kvr_velda", 200},  {"kvr_geo", 533}, {"kvr_geo_pt", 584}, {"kvr_ant", 271},      {"kvr_rot", 278},
    {"kvr_rx", 308},     {"kvr_tx", 92},   {"kvr_coord", 145},  {"kvr_call_sign", 96}, {"kvr_nat_serv", 65},
    {"kvr_op_agcy", 55}, {"kvr_rmks", 71}, {"kvr_target", 148}, {"kvr_pub_hist", 85},  {"kvr_keys", 1}};
const Counts worktypesCounts = {
    {"kvr_velda", 24},   {"kvr_geo", 72}, {"kvr_geo_pt", 86}, {"kvr_ant", 36},       {"kvr_rot", 48},
    {"kvr_rx", 37},      {"kvr_tx", 16},  {"kvr_coord", 17},  {"kvr_call_sign", 12}, {"kvr_nat_serv", 7},
    {"kvr_op_agcy", 10}, {"kvr_rmks", 9}, {"kvr_target", 19}, {"kvr_pub_hist", 4},   {"kvr_keys", 1}};

Counts masterCounts()
{
    auto counts = work200Counts;
    for (auto& [name, count] : counts)
        count = name == "kvr_keys" ? 1 : 0;
    return counts;
}

const std::vector<FileRow>& allFiles()
{
    using jet::Version;
    const Counts geo = {{"kvr_geo", 2000}};
    const Counts points = {{"kvr_geo_pt", 2336}};
    const Counts velda = {{"kvr_velda", 2000}};
    // clang-format off
    static const std::vector<FileRow> files = {
        {"jet4/MasterKVR_QRS.mdb",            Version::Jet4, "jet4/expected/MasterKVR_QRS", masterCounts()},
        {"jet4/work200.mdb",                  Version::Jet4, "jet4/expected/work200",       work200Counts},
        {"jet4/worktypes.mdb",                Version::Jet4, "jet4/expected/worktypes",     worktypesCounts},
        {"jet4/ref/VELDABASEBETA.mdb",        Version::Jet4, "jet4/expected/VELDABASEBETA", geo},
        {"jet4/ref/VELDAKVR1.mdb",            Version::Jet4, "jet4/expected/VELDAKVR1",     points},
        {"jet4/ref/VELDAKVR3.mdb",            Version::Jet4, "jet4/expected/VELDAKVR3",     velda},
        {"jet4/refnoindex/VELDABASEBETA.mdb", Version::Jet4, "jet4/expected/VELDABASEBETA", geo},
        {"jet4/refnoindex/VELDAKVR1.mdb",     Version::Jet4, "jet4/expected/VELDAKVR1",     points},
        {"jet4/refnoindex/VELDAKVR3.mdb",     Version::Jet4, "jet4/expected/VELDAKVR3",     velda},
        {"jet3/work97_1252.mdb",              Version::Jet3, "jet3/expected/work97_1252",   work200Counts},
        {"jet3/work97_1251.mdb",              Version::Jet3, "jet3/expected/work97_1251",   work200Counts},
        {"jet3/ref/VELDABASEBETA.mdb",        Version::Jet3, "jet3/expected/VELDABASEBETA", geo},
        {"jet3/ref/VELDAKVR1.mdb",            Version::Jet3, "jet3/expected/VELDAKVR1",     points},
        {"jet3/ref/VELDAKVR3.mdb",            Version::Jet3, "jet3/expected/VELDAKVR3",     velda},
        {"v1997/testV1997.mdb",               Version::Jet3, nullptr, {{"Table1", 2}, {"Table2", 0}, {"Table3", 0}, {"Table4", 0}}},
        {"v1997/indexTestV1997.mdb",          Version::Jet3, nullptr, {{"Table1", 4}, {"Table2", 3}, {"Table3", 4}}},
        {"v1997/compIndexTestV1997.mdb",      Version::Jet3, nullptr, {{"Table1", 512}}},
        {"v2000/overflowTestV2000.mdb",       Version::Jet4, nullptr, {{"Table1", 7}}},
        {"v2000/testUnicodeCompV2003.mdb",    Version::Jet4, nullptr, {{"Table", 8}}},
    };
    // clang-format on
    return files;
}

class JetSample : public testing::TestWithParam<FileRow>
{};

TEST_P(JetSample, bearsTheMarkAndItsVersion)
{
    EXPECT_TRUE(jet::File::hasMark(sample(GetParam().name)));
    EXPECT_EQ(sampleFile(GetParam().name).version(), GetParam().version);
}

TEST_P(JetSample, listsItsTablesWithAsManyRowsAsTheirDefinitionsSay)
{
    EXPECT_EQ(countsOf(sampleFile(GetParam().name)), GetParam().counts);
}

class JetSampleWithRows : public JetSample
{};

TEST_P(JetSampleWithRows, givesEachOfThemByteForByte)
{
    const auto file = sampleFile(GetParam().name);
    for (const auto& [name, count] : GetParam().counts) {
        const auto expected = contentOf(sample(GetParam().expected) / (name + ".tsv"));
        ASSERT_FALSE(expected.empty()) << name;
        EXPECT_EQ(jetTableText(file, name), expected) << name;
    }
}

std::vector<FileRow> filesWithRows()
{
    std::vector<FileRow> files;
    std::copy_if(allFiles().begin(), allFiles().end(), std::back_inserter(files),
                 [](const FileRow& row) { return row.expected != nullptr; });
    return files;
}

std::string testName(const testing::TestParamInfo<FileRow>& each)
{
    std::string name = each.param.name;
    std::replace_if(
        name.begin(), name.end(), [](char letter) { return letter == '/' || letter == '.'; }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Files, JetSample, testing::ValuesIn(allFiles()), testName);
INSTANTIATE_TEST_SUITE_P(Files, JetSampleWithRows, testing::ValuesIn(filesWithRows()), testName);

TEST(JetReader, readsEveryTypeOfTheOlderVersion)
{
    const auto text = jetTableText(sampleFile("v1997/testV1997.mdb"), "Table1");
    EXPECT_EQ(text, "A\tB\tC\tD\tE\tF\tG\tH\tI\n"
                    "a\tb\t0\t0\t0\t0\t1981-12-12T00:00:00\t0\tfalse\n"
                    "abcdefg\thijklmnop\t2\t222\t333333333\t444.555\t1974-09-21T00:00:00\t3.5\ttrue\n");
}

TEST(JetReader, joinsADefinitionOfTwoPages)
{
    const auto table = sampleFile("v1997/testV1997.mdb").table("Table2");
    ASSERT_EQ(table.columns.size(), 89U);
    EXPECT_EQ(table.columns.back().name, "column89");
    EXPECT_EQ(indexOf(table, "column75").columns, Names{"column75"});
    EXPECT_EQ(indexOf(table, "PrimaryKey").columns, Names{"column1"});
}

TEST(JetReader, leavesOutTheIndexesOfRelationships)
{
    const auto table = sampleFile("v1997/indexTestV1997.mdb").table("Table1");
    EXPECT_EQ(indexNames(table), (Names{"id", "PrimaryKey"}));
    EXPECT_TRUE(indexOf(table, "PrimaryKey").isPrimary);
    EXPECT_TRUE(indexOf(table, "PrimaryKey").isUnique);
    EXPECT_FALSE(indexOf(table, "id").isPrimary);
    EXPECT_FALSE(indexOf(table, "id").isUnique);
}

TEST(JetReader, readsRowsInTheOrderOfTheirPlaces)
{
    const auto values = columnOf(sampleFile("v1997/compIndexTestV1997.mdb"), "Table1", "CD_AGENTE");
    ASSERT_EQ(values.size(), 512U);
    EXPECT_EQ(Names(values.begin(), values.begin() + 3), (Names{"19", "27", "35"}));
}

TEST(JetReader, showsMovedRowsAtTheirFirstPlaceAndShortRowsWithNulls)
{
    const auto file = sampleFile("v2000/overflowTestV2000.mdb");
    EXPECT_EQ(jetTableText(file, "Table1"), "data1\tdata3\tdata4\tdata5\tdata6\tdata7\tdata8\tdata9\tdata10\n"
                                            "row1col1\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\n"
                                            "row2col1\trow2col3\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\n"
                                            "\\N\trow3col3\t\\N\t\\N\t\\N\t\\N\t\\N\trow3col9\t\\N\n"
                                            "row4col1\trow4col2\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\n"
                                            "\\N\trow5col2\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\n"
                                            "\\N\trow6col2\trow6col3\t\\N\t\\N\t\\N\t\\N\t\\N\t\\N\n"
                                            "row7col1\t\\N\t\\N\t\\N\t\\N\trow7col7\t\\N\t\\N\t\\N\n");
    std::vector<int> ids;
    for (const auto& column : file.table("Table1").columns)
        ids.push_back(column.id);
    EXPECT_EQ(ids, (std::vector<int>{0, 2, 3, 4, 5, 6, 7, 8, 9})); // the second one made was deleted
}

TEST(JetReader, readsCompressedAndPlainTextOfAllScripts)
{
    const auto values = columnOf(sampleFile("v2000/testUnicodeCompV2003.mdb"), "Table", "Unicode");
    ASSERT_EQ(values.size(), 8U);
    EXPECT_EQ(values[0], "only ascii chars");
    EXPECT_EQ(values[1], "ääkkösiä");
    EXPECT_EQ(values[2], "Мир");
    EXPECT_EQ(values[4], "漢字仮名交じり文");
    EXPECT_NE(values[7].find("~\x7F"), std::string::npos);
    EXPECT_TRUE(values[7].ends_with("üýþÿ"));
}

TEST(JetReader, findsARealIndexThroughTheNumberOfItsLogicalOne)
{
    const auto table = sampleFile("v2000/testUnicodeCompV2003.mdb").table("Table");
    EXPECT_EQ(indexNames(table), (Names{"PrimaryKey", "Unicode"}));
    EXPECT_EQ(indexOf(table, "PrimaryKey").columns, Names{"ID"});
    EXPECT_EQ(indexOf(table, "Unicode").columns, Names{"Unicode"});
}

TEST(JetReader, showsNoRowThatWasMovedAndThenDeleted)
{
    for (const auto* const name : {"jet4/work200.mdb", "jet3/work97_1251.mdb"}) {
        const auto keys = columnOf(sampleFile(name), "kvr_velda", "veldakey");
        EXPECT_EQ(std::count(keys.begin(), keys.end(), "1085"), 0);
        EXPECT_EQ(std::count(keys.begin(), keys.end(), "1096"), 0);
        EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));
        EXPECT_EQ((Names{keys.front(), keys.back()}), (Names{"1001", "1252"}));
    }
}

TEST(JetReader, tellsNullFromTheEmptyStringInLongValues)
{
    const auto remarks = columnOf(sampleFile("jet4/work200.mdb"), "kvr_rmks", "rmk_text");
    EXPECT_EQ(std::count(remarks.begin(), remarks.end(), "\\N"), 2);
    EXPECT_EQ(std::count(remarks.begin(), remarks.end(), ""), 3);
}

TEST(JetReader, namesTheTypesOfColumns)
{
    const auto table = sampleFile("jet4/worktypes.mdb").table("kvr_ant");
    std::map<std::string, jet::Type> types;
    for (const auto& column : table.columns)
        types[column.name] = column.type;
    EXPECT_EQ(types["gain_max"], jet::Type::Single);
    EXPECT_EQ(types["pwr_dbw"], jet::Type::Currency);
    EXPECT_EQ(types["azm_max_e"], jet::Type::Decimal);
    EXPECT_EQ(types["elev"], jet::Type::Byte);
}

TEST(JetReader, tellsPrecisionAndScaleOfADecimal)
{
    for (const auto& column : sampleFile("jet4/worktypes.mdb").table("kvr_ant").columns) {
        EXPECT_EQ(column.precision, column.name == "azm_max_e" ? 6 : 0) << column.name;
        EXPECT_EQ(column.scale, column.name == "azm_max_e" ? 2 : 0) << column.name;
    }
}

const Names veldaKey = {"freq_assgn", "op_hh_fr",   "op_hh_to", "op_cls",
                        "emi_cls",    "bdwdth_cde", "stn_cls",  "is_notice"};
const Names geoKey = {"geo_key", "long_deg", "long_min", "long_sec", "long_ew",
                      "lat_deg", "lat_min",  "lat_sec",  "lat_ns"};

TEST(JetReader, givesTheKeysOfTheReferenceSetInTheirOrder)
{
    for (const std::string folder : {"jet3/ref/", "jet4/ref/"}) {
        const auto velda = sampleFile(folder + "VELDAKVR3.mdb").table("kvr_velda");
        const auto points = sampleFile(folder + "VELDAKVR1.mdb").table("kvr_geo_pt");
        EXPECT_EQ(indexOf(velda, "VeldaIndex").columns, veldaKey);
        EXPECT_EQ(indexOf(points, "GeoIndex").columns, geoKey);
        EXPECT_TRUE(indexOf(velda, "PrimaryKey").isUnique);
        EXPECT_FALSE(indexOf(velda, "VeldaIndex").isUnique);
    }
}

TEST(JetReader, findsNoIndexThatIsNotThere)
{
    const auto velda = sampleFile("jet4/refnoindex/VELDAKVR3.mdb").table("kvr_velda");
    EXPECT_EQ(indexNames(velda), Names{"PrimaryKey"});
    EXPECT_TRUE(sampleFile("jet4/refnoindex/VELDAKVR1.mdb").table("kvr_geo_pt").indexes.empty());
}

TEST(JetReader, listsLinksWithTheirPathsAsStored)
{
    for (const std::string folder : {"jet3/ref/", "jet4/ref/", "jet4/refnoindex/"}) {
        const auto file = sampleFile(folder + "VELDABASEBETA.mdb");
        const auto& velda = entryOf(file, "kvr_velda");
        EXPECT_EQ(velda.linkedFile, "D:\\QRS\\REFBASE\\VELDAKVR3.MDB");
        EXPECT_EQ(velda.linkedTable, "kvr_velda");
        EXPECT_EQ(entryOf(file, "kvr_geo_pt").linkedFile, "D:\\QRS\\REFBASE\\VELDAKVR1.MDB");
        EXPECT_EQ(linksOf(file), (Names{"kvr_geo_pt", "kvr_velda"}));
    }
}

TEST(JetReader, tellsWhenATableWasLastUpdated)
{
    const jet::CalendarTime lastYear = {1998, 3, 2, 9, 15, 0};
    const jet::CalendarTime thisYear = {1999, 6, 15, 8, 30, 5};
    for (const std::string folder : {"jet3/ref/", "jet4/ref/"}) {
        const auto top = sampleFile(folder + "VELDABASEBETA.mdb");
        const auto own = sampleFile(folder + "VELDAKVR3.mdb");
        EXPECT_EQ(calendarTime(entryOf(top, "kvr_geo").updated), lastYear);
        EXPECT_EQ(calendarTime(entryOf(own, "kvr_velda").updated), thisYear);
    }
}

bool hasTable(const jet::File& file, const std::string& name)
{
    try {
        return file.table(name).definitionPage != 0;
    } catch (const jet::Error& error) {
        if (error.fault() != jet::Fault::NoSuchTable)
            throw;
        return false;
    }
}

TEST(JetReader, findsTablesWhateverTheirCase)
{
    const auto file = sampleFile("jet3/ref/VELDABASEBETA.mdb");
    EXPECT_EQ(file.table("KVR_Geo").name, "kvr_geo");
    for (const auto* const name :
         {"kvr_ge", "MSysObjects", "kvr_velda", ""}) { // a link is no table of the file
        EXPECT_FALSE(hasTable(file, name)) << name;
    }
}

} // namespace
