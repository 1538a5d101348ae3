#include "dao/dao.h"
#include "dao/databaseFile.h"
#include "support/faultyFiles.h"
#include "support/workingDatabase.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

using dao::dbOpenDynaset;
using dao::dbOpenTable;

namespace {

using platform::LocalTime;

constexpr LocalTime morning{2026, 3, 1, 8, 5, 9};
constexpr LocalTime evening{2026, 12, 31, 23, 59, 58};

void appendIndex(const dao::Ref<dao::TableDef>& table, const char* name,
                 const std::vector<std::string>& fields)
{
    const auto index = dao::TableDef::CreateIndex(name);
    for (const auto& field : fields)
        index->Fields().Append(dao::Index::CreateField(field));
    table->Indexes().Append(index);
}

// Each as "name(field, field)".
std::vector<std::string> namesOf(const dao::Ref<dao::TableDef>& table)
{
    std::vector<std::string> names;
    for (const auto& index : table->Indexes()) {
        auto text = index.Name() + '(';
        for (const auto& field : index.Fields())
            text += (text.back() == '(' ? "" : ", ") + field.Name();
        names.push_back(text + ')');
    }
    return names;
}

using Names = std::vector<std::string>;

// What it comes to when the disk is full from a write of the index on.
int failureWithWritesFrom(const dao::Ref<dao::TableDef>& table, int write)
{
    FaultyFiles::failWrite(write, SQLITE_FULL, true);
    int number = 0;
    try {
        appendIndex(table, "a", {"call_sign"});
    } catch (const platform::RuntimeError& failure) {
        number = failure.number;
        EXPECT_EQ(number, 3026) << write;
    }
    FaultyFiles::heal();
    return number;
}

class TableDefs : public testing::Test
{
protected:
    void SetUp() override { platform::setClock(morning); }
    void TearDown() override { platform::setClock(std::nullopt); }

    static void addRow(const dao::Ref<dao::Database>& database, const char* text)
    {
        const auto rows = database->OpenRecordset("kvr_call_sign", dbOpenTable);
        rows->AddNew();
        rows->setCollect("call_sign", text);
        rows->Update(dao::dbUpdateRegular, false);
    }

    WorkingDatabase work;
    dao::Ref<dao::Database> database = work.open();
};

} // namespace

TEST_F(TableDefs, AreFoundByTheirNamesWithoutRegardToCase)
{
    EXPECT_EQ(database->TableDefs("KVR_Velda")->Name(), "kvr_velda");
}

TEST_F(TableDefs, OfUnknownNamesAndOfTheEnginesOwnTablesAreNotInTheCollection)
{
    for (const char* name : {"nothing", "", "zeph_objects", "ZEPH_OBJECTS", "sqlite_stat1", "sqlite_schema"})
        EXPECT_FAILURE(3265, static_cast<void>(database->TableDefs(name)));
}

TEST_F(TableDefs, OfAClosedDatabaseAreNoLongerSet)
{
    const auto table = database->TableDefs("kvr_geo_pt");
    database->Close();
    EXPECT_FAILURE(3420, static_cast<void>(table->Name()));
    EXPECT_FAILURE(3420, static_cast<void>(table->Indexes()));
    EXPECT_FAILURE(3420, static_cast<void>(table->LastUpdated()));
}

TEST_F(TableDefs, AreNotFoundInAClosedDatabase)
{
    database->Close();
    EXPECT_FAILURE(3420, static_cast<void>(database->TableDefs("kvr_geo_pt")));
}

TEST_F(TableDefs, OfAClosedDatabaseHaveNoIndexesToChange)
{
    const auto table = database->TableDefs("kvr_geo_pt");
    auto& indexes = table->Indexes();
    database->Close();
    EXPECT_FAILURE(3420, indexes.Refresh());
    EXPECT_FAILURE(3420, indexes.Delete("geo_pt_geo"));
    EXPECT_FAILURE(3420, indexes.Append(dao::TableDef::CreateIndex("a")));
}

TEST_F(TableDefs, TheEnginesOwnTableIsNoTableOfTheUser)
{
    EXPECT_FAILURE(3078, static_cast<void>(database->OpenRecordset("zeph_objects", dbOpenTable)));
}

TEST_F(TableDefs, ListTheIndexesThatWereMadeInTheOrderOfTheirNamesWithTheirFieldsInOrder)
{
    EXPECT_EQ(namesOf(database->TableDefs("kvr_geo_pt")),
              (Names{"geo_pt_geo(geo_key)", "geo_pt_position(lat_sec, long_sec, lat_min, long_min)"}));
}

TEST_F(TableDefs, LeaveOutTheIndexesThatKeepAKeyUnique)
{
    work.execute("CREATE TABLE t (a INTEGER UNIQUE, b TEXT PRIMARY KEY); CREATE INDEX B2 ON t (b, a)");
    EXPECT_EQ(namesOf(database->TableDefs("t")), Names{"B2(b, a)"});
}

TEST_F(TableDefs, AnAppendedIndexIsInTheFileAfterClosingAndServesAsAPlainOne)
{
    appendIndex(database->TableDefs("kvr_geo_pt"), "GeoIndex", {"geo_key", "LONG_DEG", "long_ew"});
    database->Close();
    EXPECT_EQ(namesOf(work.open(true)->TableDefs("kvr_geo_pt")).at(2),
              "GeoIndex(geo_key, long_deg, long_ew)");
    EXPECT_EQ(work.scalar("SELECT sql FROM sqlite_schema WHERE name = 'GeoIndex'"),
              R"(CREATE INDEX "GeoIndex" ON "kvr_geo_pt" ("geo_key", "LONG_DEG", "long_ew"))");
}

TEST_F(TableDefs, IndexesOfTwoTablesMayHaveOneName)
{
    const auto site = database->TableDefs("kvr_geo");
    const auto point = database->TableDefs("kvr_geo_pt");
    appendIndex(point, "Key", {"geo_key"});
    appendIndex(site, "KEY", {"ctry"});
    EXPECT_EQ(namesOf(site).at(1), "KEY(ctry)");
    EXPECT_EQ(namesOf(point).at(2), "Key(geo_key)");
    site->Indexes().Delete("key");
    EXPECT_EQ(site->Indexes().Count(), 1U);
    EXPECT_EQ(namesOf(database->TableDefs("kvr_geo_pt")).at(2), "Key(geo_key)");
}

TEST_F(TableDefs, AnIndexMayHaveTheNameOfATableOrALookOfAnothersName)
{
    const auto table = database->TableDefs("kvr_geo");
    for (const char* name : {"kvr_velda", "kvr_geo.x", "sqlite_x", "a\"b c"}) {
        appendIndex(table, name, {"ctry"});
        EXPECT_EQ(table->Indexes().Count(), 2U) << name;
        EXPECT_FAILURE(3284, appendIndex(table, name, {"radius"}));
        table->Indexes().Delete(name);
        EXPECT_EQ(table->Indexes().Count(), 1U) << name;
    }
}

TEST_F(TableDefs, RefuseIndexesThatCannotBeMade)
{
    const auto table = database->TableDefs("kvr_geo_pt");
    EXPECT_FAILURE(3264, appendIndex(table, "a", {}));
    EXPECT_FAILURE(3409, appendIndex(table, "a", {"geo_key", "no_such"}));
    EXPECT_FAILURE(3409, appendIndex(table, "a", {"rowid"}));
    EXPECT_EQ(table->Indexes().Count(), 2U);
}

TEST_F(TableDefs, RefuseAnIndexOfATakenNameAndOneThatIsNone)
{
    const auto table = database->TableDefs("kvr_geo_pt");
    EXPECT_FAILURE(3284, appendIndex(table, "GEO_PT_geo", {"geo_key"}));
    EXPECT_FAILURE(91, table->Indexes().Append({}));
    EXPECT_EQ(table->Indexes().Count(), 2U);
}

TEST_F(TableDefs, DeleteNoIndexOfAnotherName)
{
    const auto table = database->TableDefs("kvr_geo_pt");
    EXPECT_FAILURE(3265, table->Indexes().Delete("nothing"));
    EXPECT_FAILURE(3265, table->Indexes().Delete("velda_geo"));
    EXPECT_EQ(table->Indexes().Count(), 2U);
}

TEST_F(TableDefs, AFailureLeavesNothingOpen)
{
    const auto table = database->TableDefs("kvr_geo_pt");
    EXPECT_FAILURE(3409, appendIndex(table, "a", {"no_such"}));
    appendIndex(table, "a", {"geo_key"});
    EXPECT_EQ(work.open()->TableDefs("kvr_geo_pt")->Indexes().Count(), 3U);
}

TEST_F(TableDefs, TheFailuresTellWhatIsWrong)
{
    try {
        appendIndex(database->TableDefs("kvr_geo_pt"), "a", {"no_such"});
        ADD_FAILURE();
    } catch (const platform::RuntimeError& failure) {
        EXPECT_EQ(failure.description(),
                  "Invalid field name 'no_such' in definition of index or relationship.");
    }
}

TEST_F(TableDefs, OfADatabaseForReadingCannotBeChanged)
{
    const auto table = work.open(true)->TableDefs("kvr_geo_pt");
    EXPECT_FAILURE(3027, appendIndex(table, "a", {"geo_key"}));
    EXPECT_FAILURE(3027, table->Indexes().Delete("geo_pt_geo"));
    EXPECT_EQ(table->Indexes().Count(), 2U);
}

TEST_F(TableDefs, OfAFileWithoutWriteRightCannotBeChanged)
{
    database->Close();
    const FaultyFiles files;
    FaultyFiles::refuseWriting(true);
    const auto table = work.open()->TableDefs("kvr_geo_pt");
    EXPECT_FAILURE(3027, appendIndex(table, "a", {"geo_key"}));
    EXPECT_FAILURE(3027, table->Indexes().Delete("geo_pt_geo"));
}

TEST_F(TableDefs, AnIndexIsSeenByAnotherConnectionOnceItLooksAgain)
{
    const auto other = work.open();
    const auto seen = other->TableDefs("kvr_geo_pt");
    EXPECT_EQ(seen->Indexes().Count(), 2U);
    appendIndex(database->TableDefs("kvr_geo_pt"), "GeoIndex", {"geo_key"});
    EXPECT_EQ(seen->Indexes().Count(), 2U);
    seen->Indexes().Refresh();
    EXPECT_EQ(seen->Indexes().Count(), 3U);
    EXPECT_FAILURE(3284, appendIndex(seen, "GeoIndex", {"geo_key"}));
}

TEST_F(TableDefs, ChangeWhileAnotherDatabaseHasStatementsPrepared)
{
    addRow(database, "A");
    const auto other = work.open();
    const auto* const text = "SELECT call_sign FROM kvr_call_sign WHERE veldakey IS NULL";
    EXPECT_EQ(other->OpenRecordset(text, dbOpenDynaset)->RecordCount(), 1);
    const auto table = database->TableDefs("kvr_call_sign");
    for (int round = 0; round < 3; ++round) {
        appendIndex(table, "a", {"veldakey", "call_sign"});
        EXPECT_EQ(other->OpenRecordset(text, dbOpenDynaset)->Fields("call_sign").text(), "A");
        addRow(other, "B");
        table->Indexes().Delete("a");
        EXPECT_EQ(other->OpenRecordset(text, dbOpenDynaset)->Fields("call_sign").text(), "A");
    }
}

TEST_F(TableDefs, AnIndexCanBeMadeWhileRowsAreWalked)
{
    for (const char* text : {"A", "B", "C"})
        addRow(database, text);
    const auto rows = database->OpenRecordset("SELECT call_sign FROM kvr_call_sign", dbOpenDynaset);
    appendIndex(database->TableDefs("kvr_call_sign"), "a", {"call_sign"});
    rows->MoveNext();
    EXPECT_EQ(rows->Fields("call_sign").text(), "B");
    rows->MoveNext();
    EXPECT_EQ(rows->Fields("call_sign").text(), "C");
}

TEST_F(TableDefs, AnIndexIsLockedWhileRowsAreWalkedAndCanBeDeletedAfterwards)
{
    for (const char* text : {"A", "B"})
        addRow(database, text);
    const auto table = database->TableDefs("kvr_call_sign");
    platform::setClock(evening);
    const auto rows = database->OpenRecordset("SELECT call_sign FROM kvr_call_sign", dbOpenDynaset);
    EXPECT_FAILURE(3218, table->Indexes().Delete("call_sign_velda"));
    EXPECT_NE(table->LastUpdated(), evening);
    rows->MoveNext();
    EXPECT_EQ(rows->Fields("call_sign").text(), "B");
    rows->Close();
    table->Indexes().Delete("call_sign_velda");
    EXPECT_EQ(table->Indexes().Count(), 0U);
}

TEST_F(TableDefs, AreNoPartOfAWorkspacesTransaction)
{
    const auto workspace = dao::DBEngine::Workspaces(0);
    workspace->BeginTrans();
    const auto table = database->TableDefs("kvr_call_sign");
    appendIndex(table, "a", {"call_sign"});
    addRow(database, "A");
    EXPECT_FAILURE(3218, appendIndex(table, "b", {"call_sign"}));
    EXPECT_FAILURE(3218, table->Indexes().Delete("a"));
    workspace->Rollback();
    EXPECT_EQ(work.count("kvr_call_sign"), 0);
    table->Indexes().Refresh();
    EXPECT_EQ(namesOf(table), (Names{"a(call_sign)", "call_sign_velda(veldakey)"}));
}

TEST_F(TableDefs, AFileInUseByAnotherWriterCannotBeChanged)
{
    const auto other = work.open();
    const auto workspace = dao::DBEngine::Workspaces(0);
    workspace->BeginTrans();
    addRow(other, "A");
    EXPECT_FAILURE(3045, appendIndex(database->TableDefs("kvr_call_sign"), "a", {"call_sign"}));
    workspace->Rollback();
}

TEST_F(TableDefs, AFullDiskLeavesNoIndexHalfMadeAndTheOldDate)
{
    work.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT 3000) "
                 "INSERT INTO kvr_call_sign SELECT 1, 'call sign ' || i FROM n");
    database->Close();
    const FaultyFiles files;
    database = work.open();
    const auto table = database->TableDefs("kvr_call_sign");
    appendIndex(table, "first", {"veldakey"});
    platform::setClock(evening);
    int failures = 0;
    for (int write = 1; failureWithWritesFrom(table, write) != 0; write += 5) {
        ++failures;
        EXPECT_EQ(work.open(true)->TableDefs("kvr_call_sign")->Indexes().Count(), 2U) << write;
        EXPECT_EQ(table->LastUpdated(), morning) << write;
    }
    EXPECT_GT(failures, 2);
    EXPECT_EQ(table->LastUpdated(), evening);
    EXPECT_EQ(work.scalar("PRAGMA integrity_check"), "ok");
}

TEST_F(TableDefs, AChangeOfTheIndexesIsTheLastUpdateAndSurvivesClosing)
{
    const auto table = database->TableDefs("kvr_geo_pt");
    appendIndex(table, "a", {"geo_key"});
    EXPECT_EQ(table->LastUpdated(), morning);
    platform::setClock(evening);
    EXPECT_EQ(table->LastUpdated(), morning);
    table->Indexes().Delete("a");
    EXPECT_EQ(table->LastUpdated(), evening);
    database->Close();
    platform::setClock(std::nullopt);
    EXPECT_EQ(work.open(true)->TableDefs("KVR_GEO_PT")->LastUpdated(), evening);
}

TEST_F(TableDefs, AChangeOfDataOrOfAnotherTableIsNoUpdate)
{
    const auto table = database->TableDefs("kvr_call_sign");
    appendIndex(table, "a", {"call_sign"});
    platform::setClock(evening);
    addRow(database, "A");
    appendIndex(database->TableDefs("kvr_geo"), "a", {"ctry"});
    EXPECT_EQ(table->LastUpdated(), morning);
}

TEST_F(TableDefs, AFailedChangeIsNoUpdate)
{
    const auto table = database->TableDefs("kvr_call_sign");
    appendIndex(table, "a", {"call_sign"});
    platform::setClock(evening);
    EXPECT_FAILURE(3284, appendIndex(table, "a", {"call_sign"}));
    EXPECT_FAILURE(3265, table->Indexes().Delete("b"));
    EXPECT_EQ(table->LastUpdated(), morning);
}

TEST_F(TableDefs, OfANewFileHaveTheMomentOfItsMaking)
{
    const auto path = work.folder().file("new.mdb");
    dao::createDatabaseFile(path, "CREATE TABLE t (a INTEGER); CREATE INDEX i ON t (a)");
    platform::setClock(evening);
    EXPECT_EQ(dao::DBEngine::OpenDatabase(path, false, true)->TableDefs("t")->LastUpdated(), morning);
}

TEST_F(TableDefs, WithoutARecordHaveTheDateOfTheFile)
{
    database->Close();
    for (const char* damage : {"DELETE FROM zeph_objects",
                               "INSERT INTO zeph_objects (name, kind, changed) VALUES "
                               "('kvr_geo', 'table', 'soon')",
                               "DROP TABLE zeph_objects"}) {
        work.execute(damage);
        const std::filesystem::file_time_type moment(std::chrono::ceil<std::chrono::hours>(
            std::filesystem::last_write_time(work.path()) - std::chrono::hours(5000)));
        std::filesystem::last_write_time(work.path(), moment);
        const auto expected =
            platform::localTime(std::chrono::time_point_cast<std::chrono::system_clock::duration>(
                std::chrono::file_clock::to_sys(moment)));
        EXPECT_EQ(work.open(true)->TableDefs("kvr_geo")->LastUpdated(), expected) << damage;
    }
}

TEST_F(TableDefs, OfAFileThatLacksTheRecordsGetThemWithTheFirstChange)
{
    database->Close();
    work.execute("DROP TABLE zeph_objects");
    const auto table = work.open()->TableDefs("kvr_geo");
    appendIndex(table, "a", {"ctry"});
    EXPECT_EQ(table->LastUpdated(), morning);
    EXPECT_EQ(work.count("zeph_objects"), 1);
}

TEST_F(TableDefs, ARecordOfAnotherShapeIsADamagedFile)
{
    database->Close();
    work.execute("DROP TABLE zeph_objects; CREATE TABLE zeph_objects (x)");
    EXPECT_FAILURE(3049, static_cast<void>(work.open()));
}
