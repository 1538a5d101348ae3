#include "dao/dao.h"
#include "dao/databaseFile.h"
#include "support/failures.h"
#include "support/temporaryFolder.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>

using dao::dbOpenDynaset;
using dao::dbOpenTable;

namespace {

namespace fs = std::filesystem;

constexpr const char* sites = "CREATE TABLE site (id INTEGER PRIMARY KEY, name TEXT COLLATE NOCASE);"
                              "INSERT INTO site VALUES (1, 'Oslo'), (2, 'Bergen'), (3, NULL)";
constexpr const char* notices =
    "CREATE TABLE notice (key INTEGER PRIMARY KEY, site INTEGER, cls TEXT COLLATE NOCASE, freq DOUBLE);"
    "INSERT INTO notice VALUES (30, 2, 'fx', 1.5), (20, 1, 'FX', 1.5), (10, 1, 'MO', 2);"
    "CREATE TABLE secret (a INTEGER)";
constexpr const char* points = "CREATE TABLE point (site INTEGER, deg INTEGER);"
                               "INSERT INTO point VALUES (2, 60), (1, 59), (1, 58)";

// A reference set: a base with sites of its own and links to the notices and points of two other files.
class Links : public testing::Test
{
protected:
    Links()
    {
        dao::createDatabaseFile(at("base.mdb"), sites);
        dao::createDatabaseFile(at("one.mdb"), points);
        dao::createDatabaseFile(at("three.mdb"), notices);
        link("notice", "three.mdb");
        link("point", "one.mdb");
    }

    [[nodiscard]] std::string at(const std::string& name) const { return folder.file(name); }
    void link(const std::string& name, const std::string& file) const
    {
        dao::linkTable(at("base.mdb"), name, file, name);
    }
    [[nodiscard]] dao::Ref<dao::Database> open(bool readOnly = true) const
    {
        return dao::DBEngine::OpenDatabase(at("base.mdb"), false, readOnly);
    }
    void openFailing() const { static_cast<void>(open()); }

    static void execute(const std::string& path, const std::string& sql)
    {
        sqlite3* connection = nullptr;
        EXPECT_EQ(sqlite3_open(path.c_str(), &connection), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(connection);
        sqlite3_close(connection);
    }

    // The first column of all rows, parted by blanks.
    static std::string read(const dao::Ref<dao::Database>& database, const std::string& sql)
    {
        std::string text;
        for (const auto rows = database->OpenRecordset(sql, dbOpenDynaset); !rows->EOF_(); rows->MoveNext())
            text += (text.empty() ? "" : " ") + (rows->Fields(0).isNull() ? "Null" : rows->Fields(0).text());
        return text;
    }

    TemporaryFolder folder;
};

} // namespace

TEST_F(Links, PresentTheTablesOfOtherFilesToAQueryBesideTheOwnOnes)
{
    const auto database = open();
    const auto query = database->CreateQueryDef(
        "",
        "PARAMETERS [Cls] String, [Freq] Double, [Deg] Long;SELECT DISTINCT notice.key FROM point INNER JOIN "
        "(site INNER JOIN notice ON site.id = notice.site) ON point.site = site.id WHERE (((notice.cls) = "
        "[Cls]) AND ((notice.freq) = [Freq]) AND ((point.deg) = [Deg]))");
    query->Parameters("Cls").setValue("Fx");
    query->Parameters("Freq").setValue(1.5);
    query->Parameters("Deg").setValue("58");
    const auto rows = query->OpenRecordset(dbOpenDynaset);
    ASSERT_EQ(rows->RecordCount(), 1);
    EXPECT_EQ(rows->Fields("KEY").toLong(), 20);
    EXPECT_EQ(rows->Fields(0), dao::Value(std::int32_t{20}));
    rows->MoveNext();
    EXPECT_TRUE(rows->EOF_());
}

TEST_F(Links, GiveTheValuesOfADistinctJoinInTheirOrder)
{
    EXPECT_EQ(read(open(), "SELECT DISTINCT notice.key, site.name FROM site INNER JOIN notice ON site.id = "
                           "notice.site"),
              "10 20 30");
    EXPECT_EQ(read(open(),
                   "SELECT site.name FROM site LEFT JOIN notice ON site.id = notice.site WHERE notice.key "
                   "IS NULL"),
              "Null");
}

TEST_F(Links, AreFoundByTheirNamesWithoutRegardToCaseInBracketsAndUnderOtherNames)
{
    const auto database = open();
    for (const char* sql :
         {"SELECT key FROM NOTICE WHERE cls = 'mo'", "SELECT key FROM [Notice] WHERE Notice.cls = 'MO'",
          "SELECT n.key FROM notice AS n WHERE n.cls = 'MO'", "SELECT n.key FROM notice n WHERE n.cls = 'MO'",
          "SELECT site.id * 10 FROM site, notice WHERE site.id = notice.site AND notice.cls = 'mo'",
          "SELECT id * 10 FROM site WHERE id IN (SELECT site FROM notice WHERE cls = 'MO')"})
        EXPECT_EQ(read(database, sql), "10") << sql;
}

TEST_F(Links, OneTableComesInTheOrderOfInsertion)
{
    EXPECT_EQ(read(open(), "SELECT deg FROM point"), "60 59 58");
    EXPECT_EQ(read(open(), "SELECT deg FROM point ORDER BY deg"), "58 59 60");
}

TEST_F(Links, CannotBeWrittenThrough)
{
    const auto rows = open(false)->OpenRecordset("SELECT deg FROM point", dbOpenDynaset);
    EXPECT_FAILURE(3027, rows->AddNew());
    EXPECT_FAILURE(3027, rows->Edit());
    EXPECT_FAILURE(3027, rows->Delete());
}

TEST_F(Links, CannotBeOpenedAsTables)
{
    const auto database = open(false);
    EXPECT_FAILURE(3219, static_cast<void>(database->OpenRecordset("POINT", dbOpenTable)));
    EXPECT_FALSE(database->OpenRecordset("site", dbOpenTable)->EOF_());
}

TEST_F(Links, TheOwnTablesCanBeWrittenAsEver)
{
    const auto database = open(false);
    const auto workspace = dao::DBEngine::Workspaces(0);
    workspace->BeginTrans();
    const auto rows = database->OpenRecordset("SELECT id, name FROM site WHERE id = 3", dbOpenDynaset);
    rows->Edit();
    rows->setCollect("name", "Voss");
    rows->Update(dao::dbUpdateRegular, false);
    const auto table = database->OpenRecordset("site", dbOpenTable);
    table->AddNew();
    table->setCollect("name", "Moss");
    table->Update(dao::dbUpdateRegular, false);
    workspace->CommitTrans();
    EXPECT_EQ(read(open(), "SELECT name FROM site"), "Oslo Bergen Voss Moss");
}

TEST_F(Links, AWriteLocksNoneOfTheLinkedFiles)
{
    const auto database = open(false);
    const auto workspace = dao::DBEngine::Workspaces(0);
    workspace->BeginTrans();
    const auto table = database->OpenRecordset("site", dbOpenTable);
    table->AddNew();
    table->Update(dao::dbUpdateRegular, false);
    execute(at("three.mdb"), "DELETE FROM notice WHERE key = 10");
    workspace->CommitTrans();
    EXPECT_EQ(read(database, "SELECT key FROM notice"), "20 30");
}

TEST_F(Links, ATableThatTheFileLacksIsNotLookedForInTheLinkedOnes)
{
    const auto database = open(false);
    EXPECT_FAILURE(3078, static_cast<void>(database->OpenRecordset("SELECT a FROM secret", dbOpenDynaset)));
    EXPECT_FAILURE(3078,
                   static_cast<void>(database->OpenRecordset("SELECT secret.a FROM site INNER JOIN secret ON "
                                                             "secret.a = site.id",
                                                             dbOpenDynaset)));
    EXPECT_FAILURE(3078, static_cast<void>(database->OpenRecordset("secret", dbOpenTable)));
}

TEST_F(Links, ATableOfTheFileWinsOverALinkOfItsName)
{
    execute(at("base.mdb"), "CREATE TABLE NOTICE (key INTEGER); INSERT INTO notice VALUES (99)");
    fs::remove(at("three.mdb")); // it is not even looked for
    const auto database = open(false);
    EXPECT_EQ(read(database, "SELECT key FROM notice"), "99");
    EXPECT_FALSE(database->OpenRecordset("notice", dbOpenTable)->EOF_());
}

TEST_F(Links, HaveATableDefWithoutIndexesAndWithTheLinksOwnDate)
{
    platform::setClock(platform::LocalTime{2026, 3, 1, 8, 5, 9});
    link("point", "one.mdb");
    platform::setClock(std::nullopt);
    execute(at("one.mdb"), "CREATE INDEX i ON point (deg)");
    const auto database = open();
    const auto table = database->TableDefs("POINT");
    EXPECT_EQ(table->Name(), "point");
    EXPECT_EQ(table->Indexes().Count(), 0U);
    EXPECT_EQ(table->LastUpdated(), (platform::LocalTime{2026, 3, 1, 8, 5, 9}));
}

TEST_F(Links, TheDefinitionOfALinkedTableCannotBeChangedFromHere)
{
    const auto database = open(false);
    const auto table = database->TableDefs("point");
    const auto index = dao::TableDef::CreateIndex("a");
    index->Fields().Append(dao::Index::CreateField("deg"));
    EXPECT_FAILURE(3251, table->Indexes().Append(index));
    EXPECT_FAILURE(3251, table->Indexes().Delete("i"));
    EXPECT_FAILURE(3027, open(true)->TableDefs("point")->Indexes().Append(index));
}

TEST_F(Links, AreMadeAnewUnderTheSameName)
{
    dao::createDatabaseFile(at("other.mdb"), "CREATE TABLE p (deg INTEGER); INSERT INTO p VALUES (7)");
    dao::linkTable(at("base.mdb"), "Point", "other.mdb", "P");
    EXPECT_EQ(read(open(), "SELECT deg FROM point"), "7");
}

TEST_F(Links, LeadToFilesWhateverTheCaseOfTheirNames)
{
    fs::rename(at("one.mdb"), at("ONE.Mdb"));
    EXPECT_EQ(read(open(), "SELECT deg FROM point"), "60 59 58");
}

TEST_F(Links, LeadToTheFileBesideFirstThenToTheirOwnPath)
{
    const auto there = folder.path() / "there";
    fs::create_directory(there);
    fs::rename(at("one.mdb"), there / "one.mdb");
    const std::vector<std::string> paths = {(there / "one.mdb").string(), "there/one.mdb", R"(there\ONE.mdb)",
                                            R"(.\there\one.mdb)"};
    for (const auto& path : paths) {
        link("point", path);
        EXPECT_EQ(read(open(), "SELECT deg FROM point"), "60 59 58") << path;
    }
    dao::createDatabaseFile(at("one.mdb"), "CREATE TABLE point (deg INTEGER); INSERT INTO point VALUES (7)");
    for (const auto& path : paths) {
        link("point", path);
        EXPECT_EQ(read(open(), "SELECT deg FROM point"), "7") << path;
    }
    link("point", R"(c:\set\one.mdb)"); // where the set was made
    EXPECT_EQ(read(open(), "SELECT deg FROM point"), "7");
}

TEST_F(Links, OfADatabaseInTheCurrentFolderAreFoundThere)
{
    const auto before = fs::current_path();
    fs::current_path(folder.path());
    const auto database = dao::DBEngine::OpenDatabase("base.mdb", false, true);
    fs::current_path(before);
    EXPECT_EQ(read(database, "SELECT deg FROM point"), "60 59 58");
}

TEST_F(Links, ToAMissingFileTellItsPath)
{
    fs::remove(at("one.mdb"));
    for (const auto& [stored, shown] :
         std::vector<std::pair<std::string, std::string>>{{"one.mdb", at("one.mdb")},
                                                          {"x/one.mdb", at("x/one.mdb")},
                                                          {R"(q:\x\one.mdb)", R"(q:\x\one.mdb)"},
                                                          {"", at("")}}) {
        link("point", stored);
        try {
            openFailing();
            ADD_FAILURE() << stored;
        } catch (const platform::RuntimeError& failure) {
            EXPECT_EQ(failure.number, 3024) << stored;
            EXPECT_EQ(failure.description(), "Could not find file '" + shown + "'.");
        }
    }
}

TEST_F(Links, ToAMissingTableTellItsName)
{
    execute(at("one.mdb"), "DROP TABLE point");
    try {
        openFailing();
        ADD_FAILURE();
    } catch (const platform::RuntimeError& failure) {
        EXPECT_EQ(failure.number, 3078);
        EXPECT_NE(failure.description().find("'point'"), std::string::npos) << failure.what();
    }
}

TEST_F(Links, ToALinkToAViewOrToTheEnginesOwnTablesLeadNowhere)
{
    dao::linkTable(at("one.mdb"), "further", "three.mdb", "notice");
    execute(at("one.mdb"), "CREATE VIEW shown AS SELECT * FROM point");
    for (const char* table : {"further", "shown", "zeph_objects", "sqlite_schema", ""}) {
        dao::linkTable(at("base.mdb"), "point", "one.mdb", table);
        EXPECT_FAILURE(3078, openFailing());
    }
}

TEST_F(Links, ToAFileOfAnotherKindHaveAnUnrecognizedFormat)
{
    for (const auto& bytes : {std::string(5000, 'x'), std::string("x"), std::string()}) {
        folder.write("one.mdb", bytes);
        EXPECT_FAILURE(3343, openFailing());
    }
    fs::remove(at("one.mdb"));
    execute(at("one.mdb"), "CREATE TABLE point (deg INTEGER)");
    EXPECT_FAILURE(3343, openFailing());
    fs::remove(at("one.mdb"));
    execute(at("one.mdb"), "PRAGMA encoding='UTF-16'; CREATE TABLE point (deg INTEGER)");
    EXPECT_FAILURE(3343, openFailing());
}

TEST_F(Links, ADamagedFileGivesTheEnginesNumberAndNeverACrash)
{
    for (int number = 0; number < 200; ++number)
        execute(at("one.mdb"), "INSERT INTO point VALUES (1, " + std::to_string(number) + ")");
    const auto whole = folder.read("one.mdb");
    int failures = 0;
    for (std::size_t place = 0; place < whole.size(); place += 509) {
        auto bytes = whole;
        for (std::size_t index = place; index < std::min(place + 300, bytes.size()); ++index)
            bytes[index] = static_cast<char>(bytes[index] ^ 0x5a);
        folder.write("one.mdb", bytes);
        try {
            static_cast<void>(read(open(), "SELECT deg FROM point"));
        } catch (const platform::RuntimeError& failure) {
            ++failures;
            EXPECT_NE(failure.number, 3000) << failure.what();
        }
    }
    EXPECT_GT(failures, 0);
    folder.write("one.mdb", whole.substr(0, whole.size() / 2));
    EXPECT_FAILURE(3049, static_cast<void>(read(open(), "SELECT deg FROM point")));
}

TEST_F(Links, AFileReplacedWhileItIsLinkedStaysTheOneThatWasOpened)
{
    const auto database = open();
    const auto rows = database->OpenRecordset("SELECT deg FROM point", dbOpenDynaset);
    dao::createDatabaseFile(at("new.mdb"), "CREATE TABLE point (deg INTEGER); INSERT INTO point VALUES (7)");
    fs::rename(at("new.mdb"), at("one.mdb"));
    rows->MoveNext();
    EXPECT_EQ(rows->Fields("deg").toLong(), 59);
    EXPECT_EQ(read(database, "SELECT deg FROM point"), "60 59 58");
    EXPECT_EQ(read(open(), "SELECT deg FROM point"), "7");
    execute(at("one.mdb"), "DROP TABLE point");
    EXPECT_EQ(read(database, "SELECT deg FROM point"), "60 59 58");
}

TEST_F(Links, ATableDroppedWhileItIsLinkedIsNoLongerFound)
{
    const auto database = open();
    EXPECT_EQ(read(database, "SELECT deg FROM point"), "60 59 58");
    execute(at("one.mdb"), "DROP TABLE point");
    EXPECT_FAILURE(3078, static_cast<void>(read(database, "SELECT deg FROM point")));
}

TEST_F(Links, AMissingTableIsToldByTheNameThatWasAskedFor)
{
    const auto textOf = [](const auto& action) -> std::string {
        try {
            action();
        } catch (const platform::RuntimeError& failure) {
            return failure.description();
        }
        return {};
    };
    const auto database = open();
    EXPECT_NE(textOf([&] { read(database, "SELECT a FROM secret"); }).find("query 'secret'"),
              std::string::npos);
    execute(at("one.mdb"), "DROP TABLE point");
    EXPECT_NE(textOf([&] { read(database, "SELECT deg FROM point"); }).find("query 'point'"),
              std::string::npos);
}

TEST_F(Links, ToTheOwnFileOrInACircleDoNotLoop)
{
    dao::linkTable(at("base.mdb"), "self", "BASE.mdb", "site");
    dao::linkTable(at("one.mdb"), "site", "base.mdb", "site");
    const auto database = open(false);
    EXPECT_EQ(read(database, "SELECT name FROM self WHERE id = 1"), "Oslo");
    EXPECT_FAILURE(3219, static_cast<void>(database->OpenRecordset("self", dbOpenTable)));
    EXPECT_EQ(
        read(dao::DBEngine::OpenDatabase(at("one.mdb"), false, true), "SELECT name FROM site WHERE id = 2"),
        "Bergen");
}

TEST_F(Links, OpenEachFileOnceAndTenAtMost)
{
    for (int number = 0; number < 8; ++number) {
        const auto name = "more" + std::to_string(number);
        dao::createDatabaseFile(at(name + ".mdb"), "CREATE TABLE t (a INTEGER); CREATE TABLE u (a INTEGER)");
        dao::linkTable(at("base.mdb"), name, name + ".mdb", "t");
        dao::linkTable(at("base.mdb"), name + "u", name + ".mdb", "u");
    }
    EXPECT_EQ(read(open(), "SELECT a FROM more7u"), "");
    dao::createDatabaseFile(at("last.mdb"), "CREATE TABLE t (a INTEGER)");
    dao::linkTable(at("base.mdb"), "last", "last.mdb", "t");
    EXPECT_FAILURE(3035, openFailing());
}

TEST_F(Links, OfTwoDatabasesDoNotMix)
{
    dao::createDatabaseFile(at("second.mdb"), "CREATE TABLE site (id INTEGER)");
    dao::linkTable(at("second.mdb"), "point", "three.mdb", "notice");
    const auto first = open();
    const auto second = dao::DBEngine::OpenDatabase(at("second.mdb"), false, true);
    EXPECT_EQ(read(first, "SELECT deg FROM point"), "60 59 58");
    EXPECT_EQ(read(second, "SELECT key FROM point WHERE cls = 'MO'"), "10");
}

TEST_F(Links, TriggersAndViewsOfALinkedFileDoNotRun)
{
    execute(at("one.mdb"), "DROP TABLE point; CREATE VIEW point AS SELECT 1 AS deg");
    EXPECT_FAILURE(3078, openFailing());
}

TEST_F(Links, SurviveAnIndexMadeInTheLinkedFileMeanwhile)
{
    const auto database = open();
    EXPECT_EQ(read(database, "SELECT deg FROM point WHERE site = 1"), "59 58");
    const auto other = dao::DBEngine::OpenDatabase(at("one.mdb"), false, false);
    const auto index = dao::TableDef::CreateIndex("GeoIndex");
    index->Fields().Append(dao::Index::CreateField("site"));
    index->Fields().Append(dao::Index::CreateField("deg"));
    other->TableDefs("point")->Indexes().Append(index);
    EXPECT_EQ(read(database, "SELECT deg FROM point WHERE site = 1"), "59 58");
    other->TableDefs("point")->Indexes().Delete("GeoIndex");
    EXPECT_EQ(read(database, "SELECT deg FROM point WHERE site = 1"), "59 58");
}

TEST_F(Links, AnIndexOfTheLinkingFileCanBeMadeWhileOthersReadTheLinkedOnes)
{
    const auto database = open(false);
    const auto reader = dao::DBEngine::OpenDatabase(at("one.mdb"), false, true);
    const auto rows = reader->OpenRecordset("SELECT deg FROM point", dbOpenDynaset);
    const auto index = dao::TableDef::CreateIndex("a");
    index->Fields().Append(dao::Index::CreateField("name"));
    database->TableDefs("site")->Indexes().Append(index);
    EXPECT_EQ(open()->TableDefs("site")->Indexes().Count(), 1U);
}

TEST_F(Links, ACheckOfTheFileLooksAtItselfAlone)
{
    for (int number = 0; number < 400; ++number)
        execute(at("one.mdb"), "INSERT INTO point VALUES (1, " + std::to_string(number) + ")");
    auto bytes = folder.read("one.mdb");
    bytes.replace(bytes.size() - 4096, 64, 64, '\x5a');
    folder.write("one.mdb", bytes);
    EXPECT_FAILURE(3049, dao::DBEngine::OpenDatabase(at("one.mdb"), false, true)->requireSound());
    open()->requireSound();
}

TEST_F(Links, ToAFileLockedByAnotherAreInUse)
{
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(at("one.mdb").c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_FAILURE(3045, openFailing());
    sqlite3_close(other);
    EXPECT_EQ(read(open(), "SELECT deg FROM point"), "60 59 58");
}

TEST_F(Links, AFileFromElsewhereWithTooManyOfThemIsRefused)
{
    execute(at("base.mdb"),
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 300) INSERT INTO "
            "zeph_objects (name, kind, file, source) SELECT 'l' || i, 'link', 'one.mdb', 'point' FROM n");
    EXPECT_FAILURE(3035, openFailing());
}
