#include "dao/dao.h"
#include "dao/databaseFile.h"
#include "support/workingDatabase.h"

#include <gtest/gtest.h>

using dao::dbOpenDynaset;
using dao::dbOpenTable;
using dao::dbUpdateRegular;
using dao::Null;

namespace {

class Recordset : public testing::Test
{
protected:
    dao::Ref<dao::Recordset> query(const std::string& sql)
    {
        return database->OpenRecordset(sql, dbOpenDynaset);
    }

    // One call sign for each value, all of notice 1.
    void addCallSigns(const std::vector<std::string>& values)
    {
        const auto rows = database->OpenRecordset("kvr_call_sign", dbOpenTable);
        for (const auto& value : values) {
            rows->AddNew();
            rows->setCollect("veldakey", 1);
            rows->setCollect("call_sign", value);
            rows->Update(dbUpdateRegular, false);
        }
        rows->Close();
    }

    std::vector<std::string> callSigns()
    {
        return work.rows("SELECT call_sign FROM kvr_call_sign ORDER BY rowid");
    }

    WorkingDatabase work;
    dao::Ref<dao::Database> database = work.open();
};

using Texts = std::vector<std::string>;

const std::string callSignsOfOne = "SELECT call_sign FROM kvr_call_sign WHERE veldakey = 1";

} // namespace

TEST_F(Recordset, AnUnsetObjectIsFailure91)
{
    const dao::Ref<dao::Database> unset;
    EXPECT_FAILURE(91, static_cast<void>(unset->CreateQueryDef("", "SELECT veldakey FROM kvr_velda")));
}

TEST_F(Recordset, RecordCountIsTheNumberOfRowsVisited)
{
    EXPECT_EQ(query(callSignsOfOne)->RecordCount(), 0);
    addCallSigns({"A", "B", "C"});
    const auto rows = query(callSignsOfOne);
    EXPECT_EQ(rows->RecordCount(), 1);
    rows->MoveNext();
    EXPECT_EQ(rows->RecordCount(), 2);
    rows->MoveFirst();
    EXPECT_EQ(rows->RecordCount(), 2);
    rows->MoveLast();
    EXPECT_EQ(rows->RecordCount(), 3);
    EXPECT_EQ(rows->Fields("call_sign"), "C");
    rows->MoveFirst();
    EXPECT_EQ(rows->RecordCount(), 3);
    EXPECT_EQ(rows->Fields("call_sign"), "A");
}

TEST_F(Recordset, AWalkToTheEndGivesTheTrueCount)
{
    addCallSigns({"A", "B", "C"});
    const auto rows = query(callSignsOfOne);
    Texts seen;
    for (; !rows->EOF_(); rows->MoveNext())
        seen.push_back(rows->Fields("call_sign").text());
    EXPECT_EQ(seen, (Texts{"A", "B", "C"}));
    EXPECT_EQ(rows->RecordCount(), 3);
}

TEST_F(Recordset, MovingOnAnEmptyResultIsNoCurrentRecord)
{
    const auto rows = query(callSignsOfOne);
    EXPECT_TRUE(rows->EOF_());
    EXPECT_FAILURE(3021, rows->MoveNext());
    EXPECT_FAILURE(3021, rows->MoveFirst());
    EXPECT_FAILURE(3021, rows->MoveLast());
    EXPECT_FAILURE(3021, static_cast<void>(rows->Fields("call_sign")));
    EXPECT_FAILURE(3021, rows->Edit());
    EXPECT_FAILURE(3021, rows->Delete());
}

TEST_F(Recordset, NamesOfColumnsAreNotCaseSensitiveAndAnUnknownOneFails)
{
    addCallSigns({"A"});
    const auto rows = query(callSignsOfOne);
    EXPECT_EQ(rows->Fields("CALL_Sign"), "A");
    EXPECT_FAILURE(3265, static_cast<void>(rows->Fields("call")));
    EXPECT_FAILURE(3265, static_cast<void>(rows->Fields(1)));
}

TEST_F(Recordset, TheIdentityOfTheRowIsNoColumn)
{
    EXPECT_EQ(query(callSignsOfOne)->fieldNames(), Texts{"call_sign"});
}

TEST_F(Recordset, RowsComeInTheOrderOfInsertionWhicheverIndexServes)
{
    work.execute("INSERT INTO kvr_rot VALUES (1, 2, 'c', ''), (1, 1, 'a', ''), (1, 2, 'b', '')");
    work.execute(
        "INSERT INTO kvr_ant (veldakey, ant_key, elev) VALUES (1, 3, 'x'), (1, 1, 'y'), (1, 2, 'z')");
    Texts seen;
    for (const auto& rows = query("SELECT azm_fr FROM kvr_rot WHERE veldakey = 1"); !rows->EOF_();
         rows->MoveNext())
        seen.push_back(rows->Fields("azm_fr").text());
    for (const auto& rows = query("SELECT elev FROM kvr_ant WHERE veldakey = 1"); !rows->EOF_();
         rows->MoveNext())
        seen.push_back(rows->Fields("elev").text());
    EXPECT_EQ(seen, (Texts{"c", "a", "b", "x", "y", "z"}));
}

TEST_F(Recordset, TextComparesWithoutRegardToCaseBeyondAsciiButAccentsCount)
{
    addCallSigns({"\u00c9cole", "Ecole"});
    const auto found = [&](const std::string& value) {
        const auto lookUp = database->CreateQueryDef(
            "", "PARAMETERS [Sign] String;SELECT call_sign FROM kvr_call_sign WHERE call_sign = [Sign]");
        lookUp->Parameters("Sign").setValue(value);
        const auto rows = lookUp->OpenRecordset(dbOpenDynaset);
        return rows->EOF_() ? std::string() : rows->Fields("call_sign").text();
    };
    EXPECT_EQ(found("\u00e9COLE"), "\u00c9cole");
    EXPECT_EQ(found("ECOLE"), "Ecole");
    EXPECT_EQ(found("\u00e8cole"), "");
}

TEST_F(Recordset, TextSortsAndCountsAsEqualWithoutRegardToCaseAndNullSortsFirst)
{
    work.execute("INSERT INTO kvr_call_sign VALUES (1, 'b'), (1, 'A'), (1, 'B'), (1, NULL), (1, 'C')");
    Texts seen;
    for (const auto& rows = query("SELECT DISTINCT call_sign FROM kvr_call_sign ORDER BY call_sign");
         !rows->EOF_(); rows->MoveNext()) {
        const auto value = rows->Fields("call_sign");
        seen.push_back(value.isNull() ? "(null)" : value.text());
    }
    EXPECT_EQ(seen, (Texts{"(null)", "A", "b", "C"}));
}

TEST_F(Recordset, NullIsNeverEqual)
{
    work.execute("INSERT INTO kvr_call_sign VALUES (1, NULL)");
    const auto lookUp = database->CreateQueryDef(
        "", "PARAMETERS [Sign] String;SELECT call_sign FROM kvr_call_sign WHERE call_sign = [Sign]");
    lookUp->Parameters("Sign").setValue(Null);
    EXPECT_TRUE(lookUp->OpenRecordset(dbOpenDynaset)->EOF_());
}

TEST_F(Recordset, AParameterIsConvertedToItsTypeAndMustBeDeclaredAndSet)
{
    addCallSigns({"A"});
    const auto lookUp = database->CreateQueryDef(
        "", "PARAMETERS [Key] Long;SELECT call_sign FROM kvr_call_sign WHERE veldakey = [Key]");
    EXPECT_FAILURE(3061, static_cast<void>(lookUp->OpenRecordset(dbOpenDynaset)));
    EXPECT_FAILURE(3265, static_cast<void>(lookUp->Parameters("Kay")));
    EXPECT_FAILURE(3421, lookUp->Parameters("Key").setValue("one"));
    lookUp->Parameters("KEY").setValue("1");
    EXPECT_FALSE(lookUp->OpenRecordset(dbOpenDynaset)->EOF_());
}

TEST_F(Recordset, QueriesThatTheEngineDoesNotUnderstandFailWithItsNumbers)
{
    EXPECT_FAILURE(3078, static_cast<void>(query("SELECT x FROM kvr_nothing")));
    EXPECT_FAILURE(3061, static_cast<void>(query("SELECT unknown_column FROM kvr_velda")));
    EXPECT_FAILURE(3075, static_cast<void>(query("SELECT veldakey FROM kvr_velda WHERE (")));
    EXPECT_FAILURE(3078, static_cast<void>(database->OpenRecordset("kvr_nothing", dbOpenTable)));
}

TEST_F(Recordset, AnUnconvertibleStringFailsAtItsAssignmentAndAnUnknownColumnToo)
{
    const auto rows = database->OpenRecordset("kvr_velda", dbOpenTable);
    rows->AddNew();
    EXPECT_FAILURE(3421, rows->setCollect("freq_assgn", "12a"));
    EXPECT_FAILURE(3265, rows->setCollect("geoKeyNb", Null));
}

TEST_F(Recordset, UpdateAndAssignmentNeedEditOrAddNew)
{
    addCallSigns({"A"});
    const auto rows = query(callSignsOfOne);
    EXPECT_FAILURE(3020, rows->setCollect("call_sign", "B"));
    EXPECT_FAILURE(3020, rows->Update(dbUpdateRegular, false));
    rows->Edit();
    rows->Update(dbUpdateRegular, false);
    EXPECT_FAILURE(3020, rows->Update(dbUpdateRegular, false));
    EXPECT_EQ(callSigns(), Texts{"A"});
}

TEST_F(Recordset, WhatIsAssignedIsReadBackBeforeUpdate)
{
    addCallSigns({"A"});
    const auto rows = query(callSignsOfOne);
    rows->Edit();
    EXPECT_EQ(rows->Fields("call_sign"), "A");
    rows->setCollect("call_sign", "B");
    EXPECT_EQ(rows->Fields("call_sign"), "B");
    rows->AddNew();
    EXPECT_EQ(rows->Fields("call_sign"), Null);
}

TEST_F(Recordset, ADynasetIsEditedThroughThoughItsKeyIsNotSelected)
{
    addCallSigns({"A", "B", "C"});
    const auto rows = query(callSignsOfOne);
    rows->MoveNext();
    rows->Edit();
    rows->setCollect("call_sign", "changed");
    rows->Update(dbUpdateRegular, false);
    EXPECT_EQ(callSigns(), (Texts{"A", "changed", "C"}));
    rows->Edit();
    rows->setCollect("call_sign", Null);
    rows->Update(dbUpdateRegular, false);
    EXPECT_EQ(callSigns(), (Texts{"A", "(null)", "C"}));
}

TEST_F(Recordset, ADynasetTakesAddNewToo)
{
    const auto rows = query(callSignsOfOne);
    rows->AddNew();
    rows->setCollect("veldakey", 1);
    rows->setCollect("call_sign", "new");
    rows->Update(dbUpdateRegular, false);
    EXPECT_EQ(callSigns(), Texts{"new"});
}

TEST_F(Recordset, EachHasAnEditBufferOfItsOwn)
{
    const auto outer = database->OpenRecordset("kvr_call_sign", dbOpenTable);
    outer->AddNew();
    outer->setCollect("call_sign", "outer");
    const auto inner = database->OpenRecordset("kvr_call_sign", dbOpenTable);
    inner->AddNew();
    inner->setCollect("call_sign", "inner");
    inner->Update(dbUpdateRegular, false);
    inner->Close();
    outer->Update(dbUpdateRegular, false);
    EXPECT_EQ(callSigns(), (Texts{"inner", "outer"}));
}

TEST_F(Recordset, AWalkSurvivesTheDeletionOfItsOwnRow)
{
    Texts many;
    for (int number = 0; number < 500; ++number)
        many.push_back("call " + std::to_string(number));
    addCallSigns(many);
    const auto rows = query(callSignsOfOne);
    std::size_t visited = 0;
    for (; !rows->EOF_(); rows->MoveNext()) {
        EXPECT_EQ(rows->Fields("call_sign"), many[visited].c_str());
        ++visited;
        rows->Delete();
        EXPECT_FAILURE(3167, static_cast<void>(rows->Fields("call_sign")));
    }
    EXPECT_EQ(visited, many.size());
    EXPECT_EQ(work.count("kvr_call_sign"), 0);
}

TEST_F(Recordset, AfterMoveLastTheRowsStandInMemoryAndCanStillBeEdited)
{
    addCallSigns({"A", "B", "C"});
    const auto rows = query(callSignsOfOne);
    rows->MoveLast();
    work.execute("DELETE FROM kvr_call_sign WHERE call_sign = 'A'"); // by somebody else: nothing is locked
    rows->MoveFirst();
    EXPECT_EQ(rows->Fields("call_sign"), "A");
    EXPECT_FAILURE(3167, {
        rows->Edit();
        rows->setCollect("call_sign", "x");
        rows->Update(dbUpdateRegular, false);
    });
    rows->MoveNext();
    rows->Edit();
    rows->setCollect("call_sign", "changed");
    rows->Update(dbUpdateRegular, false);
    EXPECT_EQ(callSigns(), (Texts{"changed", "C"}));
}

TEST_F(Recordset, ValuesInMemoryAreThoseOfTheFile)
{
    work.execute("INSERT INTO kvr_velda (veldakey, freq_assgn, op_hh_fr, stn_cls, adm) VALUES "
                 "(2147483647, 151.3375, -5, '', 'long " +
                 std::string(5000, 'x') + "')");
    work.execute("INSERT INTO kvr_geo_pt (geo_key, geo_pt) VALUES (1, 6)");
    const auto rows = query("SELECT veldakey, freq_assgn, op_hh_fr, stn_cls, adm, op_cls FROM kvr_velda");
    const auto check = [&] {
        EXPECT_EQ(rows->Fields("veldakey"), std::int32_t{2147483647});
        EXPECT_EQ(rows->Fields("freq_assgn"), 151.3375);
        EXPECT_EQ(rows->Fields("op_hh_fr"), std::int32_t{-5});
        EXPECT_EQ(rows->Fields("stn_cls"), "");
        EXPECT_EQ(rows->Fields("adm").text(), "long " + std::string(5000, 'x'));
        EXPECT_EQ(rows->Fields("op_cls"), Null);
    };
    check();
    rows->MoveLast();
    check();
    const auto points = query("SELECT geo_pt FROM kvr_geo_pt");
    EXPECT_EQ(points->Fields("geo_pt"), std::int16_t{6});
}

TEST_F(Recordset, AJoinCannotBeWritten)
{
    work.execute("INSERT INTO kvr_velda (veldakey, geo_key) VALUES (1, 1)");
    work.execute("INSERT INTO kvr_geo (geo_key) VALUES (1)");
    const auto rows =
        query("SELECT kvr_velda.veldakey FROM kvr_velda INNER JOIN kvr_geo ON kvr_velda.geo_key = "
              "kvr_geo.geo_key");
    ASSERT_FALSE(rows->EOF_());
    EXPECT_FAILURE(3027, rows->Edit());
    EXPECT_FAILURE(3027, rows->Delete());
    EXPECT_FAILURE(3027, rows->AddNew());
}

TEST_F(Recordset, NothingIsWrittenThroughAReadOnlyHandle)
{
    addCallSigns({"A"});
    const auto reader = work.open(true);
    const auto rows = reader->OpenRecordset(callSignsOfOne, dbOpenDynaset);
    EXPECT_FAILURE(3027, rows->Edit());
    EXPECT_FAILURE(3027, rows->Delete());
    EXPECT_FAILURE(3027, rows->AddNew());
    EXPECT_EQ(rows->Fields("call_sign"), "A");
}

TEST_F(Recordset, AKeyThatStandsAlreadyIsADuplicate)
{
    work.execute("INSERT INTO kvr_velda (veldakey) VALUES (1)");
    const auto rows = database->OpenRecordset("kvr_velda", dbOpenTable);
    rows->AddNew();
    rows->setCollect("veldakey", 1);
    EXPECT_FAILURE(3022, rows->Update(dbUpdateRegular, false));
}

TEST_F(Recordset, ATextTooLongForTheEngineIsRefusedAndTheNextRowIsRight)
{
    const auto rows = database->OpenRecordset("kvr_rmks", dbOpenTable);
    rows->AddNew();
    rows->setCollect("veldakey", 1);
    rows->setCollect("rmk_text", std::string(65 * 1024 * 1024, 'x'));
    EXPECT_FAILURE(3035, rows->Update(dbUpdateRegular, false));
    rows->AddNew();
    rows->setCollect("rmk_text", std::string(20 * 1024 * 1024, 'y'));
    rows->Update(dbUpdateRegular, false);
    EXPECT_EQ(work.rows("SELECT veldakey, length(rmk_text) FROM kvr_rmks"), Texts{"(null)|20971520"});
}

TEST_F(Recordset, TextWithTheCode0InItComesBackWhole)
{
    const std::string text("a\0b", 3);
    addCallSigns({text});
    const auto rows = query(callSignsOfOne);
    EXPECT_EQ(rows->Fields("call_sign").text(), text);
    rows->MoveLast();
    EXPECT_EQ(rows->Fields("call_sign").text(), text);
}

TEST_F(Recordset, DeletingARowThatHasVanishedFails)
{
    addCallSigns({"A", "B"});
    const auto rows = query(callSignsOfOne);
    rows->MoveLast();
    work.execute("DELETE FROM kvr_call_sign WHERE call_sign = 'B'");
    EXPECT_FAILURE(3167, rows->Delete());
    EXPECT_EQ(callSigns(), Texts{"A"});
}

TEST_F(Recordset, RowsOfLargeIdentityAreToldApartAlsoInMemory)
{
    work.execute("INSERT INTO kvr_call_sign (rowid, veldakey, call_sign) VALUES (9007199254740992, 1, 'A'), "
                 "(9007199254740993, 1, 'B'), (9223372036854775807, 1, 'C')");
    const auto rows = query(callSignsOfOne);
    rows->MoveLast();
    rows->Edit();
    rows->setCollect("call_sign", "last");
    rows->Update(dbUpdateRegular, false);
    rows->MoveFirst();
    rows->MoveNext();
    rows->Delete();
    EXPECT_EQ(callSigns(), (Texts{"A", "last"}));
}

TEST_F(Recordset, AColumnThatAnotherProcessAddsDoesNotTurnAnEditToAnotherRow)
{
    addCallSigns({"A", "B"});
    database->OpenRecordset("kvr_call_sign", dbOpenTable)->Close();
    work.execute("ALTER TABLE kvr_call_sign ADD COLUMN extra INTEGER DEFAULT 2");
    const auto rows = database->OpenRecordset("kvr_call_sign", dbOpenTable);
    rows->Edit();
    rows->setCollect("call_sign", "edited");
    rows->Update(dbUpdateRegular, false);
    EXPECT_EQ(callSigns(), (Texts{"edited", "B"}));
}

TEST_F(Recordset, TextIsTheSameWhateverTheEncodingOfTheFile)
{
    const TemporaryFolder folder;
    const auto path = folder.file("wide.mdb");
    dao::createDatabaseFile(path, "PRAGMA encoding='UTF-16'; CREATE TABLE t (x TEXT COLLATE NOCASE)");
    const auto wide = dao::DBEngine::OpenDatabase(path, false, false);
    const auto table = wide->OpenRecordset("t", dbOpenTable);
    table->AddNew();
    table->setCollect("x", "AB\u00e9");
    table->Update(dbUpdateRegular, false);
    const auto rows = wide->OpenRecordset("SELECT x FROM t WHERE x = 'ab\u00c9'", dbOpenDynaset);
    ASSERT_FALSE(rows->EOF_());
    EXPECT_EQ(rows->Fields("x"), "AB\u00e9");
    rows->MoveLast();
    EXPECT_EQ(rows->Fields("x"), "AB\u00e9");
}

TEST_F(Recordset, AClosedObjectIsNoLongerSet)
{
    addCallSigns({"A"});
    const auto closed = query(callSignsOfOne);
    closed->Close();
    EXPECT_FAILURE(3420, closed->MoveNext());
    EXPECT_FAILURE(3420, closed->Close());
    const auto left = query(callSignsOfOne);
    const auto lookUp = database->CreateQueryDef("", callSignsOfOne);
    database->Close();
    EXPECT_FAILURE(3420, static_cast<void>(left->Fields("call_sign")));
    EXPECT_FAILURE(3420, static_cast<void>(lookUp->OpenRecordset(dbOpenDynaset)));
    EXPECT_FAILURE(3420, static_cast<void>(database->OpenRecordset("kvr_velda", dbOpenTable)));
    EXPECT_FAILURE(3420, database->Close());
}

TEST_F(Recordset, OneLeftOpenIsReleasedWithItsDatabaseAndHoldsNoLock)
{
    addCallSigns({"A", "B"});
    const auto left = query(callSignsOfOne);
    database->Close();
    work.execute("BEGIN EXCLUSIVE; COMMIT");
    EXPECT_EQ(work.folder().read("work.mdb").substr(0, 15), "SQLite format 3");
}

TEST_F(Recordset, TwoOfOneTextWalkIndependently)
{
    addCallSigns({"A", "B"});
    const auto first = query(callSignsOfOne);
    const auto second = query(callSignsOfOne);
    first->MoveNext();
    EXPECT_EQ(first->Fields("call_sign"), "B");
    EXPECT_EQ(second->Fields("call_sign"), "A");
}
