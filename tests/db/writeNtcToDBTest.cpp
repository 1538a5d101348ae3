#include "db/writeNtcToDB.h"

#include "support/noticeDatabase.h"

namespace {

using Texts = std::vector<std::string>;
using WriteNtcToDB = NoticeDatabase;

} // namespace

TEST_F(WriteNtcToDB, AnAddHasNoTargetRowAndTheTargetCounterDoesNotMove)
{
    insert(aNotice("T12", "ADD").build());
    EXPECT_EQ(work.count("kvr_target"), 0);
    EXPECT_EQ(work.scalar("SELECT target FROM kvr_velda"), "(null)");
    EXPECT_EQ(work.scalar("SELECT Target FROM kvr_keys"), "1");
}

TEST_F(WriteNtcToDB, AModifyWithoutTargetFieldsHasATargetRowWithOnlyItsKey)
{
    auto ntc = aNotice("T12", "MODIFY").build();
    InitializeNtc::initTarget(ntc.target);
    insert(ntc);
    EXPECT_EQ(work.scalar("SELECT target, trg_freq_assgn, trg_adm_ref_id FROM kvr_target"),
              "1|(null)|(null)");
    EXPECT_EQ(work.scalar("SELECT target FROM kvr_velda"), "1");
    EXPECT_EQ(work.scalar("SELECT Target FROM kvr_keys"), "2");
}

TEST_F(WriteNtcToDB, AnIntentInAnotherCaseIsNotAdd)
{
    insert(aNotice("T12", "add").build());
    EXPECT_EQ(work.count("kvr_target"), 1);
    EXPECT_EQ(work.scalar("SELECT intent FROM kvr_velda"), "ADD");
}

TEST_F(WriteNtcToDB, ThreeStationsOnTwoAntennasMoveTheSiteCounterByFour)
{
    auto ntc = aNotice().withAntennas(2, 0, 1).build();
    ntc.antenna[1].rx[1] = ntc.antenna[1].rx[0];
    insert(ntc);
    EXPECT_EQ(work.scalar("SELECT geo_key FROM kvr_keys"), "5");
    EXPECT_EQ(work.rows("SELECT ant_key, geo_key FROM kvr_rx ORDER BY rowid"), (Texts{"1|2", "2|3", "2|4"}));
    EXPECT_EQ(work.rows("SELECT geo_key FROM kvr_geo ORDER BY 1"), (Texts{"1", "2", "3", "4"}));
    EXPECT_EQ(session::currentGeoKey, 4) << "the last station's, not the notice's own";
}

TEST_F(WriteNtcToDB, AHoleInTheSlotsOfAntennasKeepsTheNumbersBehindIt)
{
    auto ntc = aNotice().withAntennas(3, 1, 1).build();
    ntc.antenna[1].present = false;
    insert(ntc);
    EXPECT_EQ(work.rows("SELECT ant_key FROM kvr_ant ORDER BY rowid"), (Texts{"1", "3"}));
    EXPECT_EQ(work.rows("SELECT ant_key FROM kvr_rot ORDER BY rowid"), (Texts{"1", "3"}));
}

TEST_F(WriteNtcToDB, AnEmptyIsRotIsWrittenAsAnEmptyStringAndNotAsNull)
{
    auto ntc = aNotice().withAntennas(1, 1, 0).build();
    ntc.antenna[0].is_rot.clear();
    ntc.antenna[0].elev.clear();
    insert(ntc);
    EXPECT_EQ(work.scalar("SELECT is_rot, elev FROM kvr_ant"), "|(null)");
    EXPECT_EQ(work.count("kvr_rot"), 1) << "sectors do not depend on is_rot";
}

TEST_F(WriteNtcToDB, AT13WritesItsStationsWithoutNoiseTemperature)
{
    auto ntc = aNotice("T13").withAntennas(1, 0, 2).build();
    ntc.antenna[0].rx[0].noise_temp = "290";
    insert(ntc);
    EXPECT_EQ(work.count("kvr_rx"), 0);
    EXPECT_EQ(work.rows("SELECT ant_key, geo_key FROM kvr_tx ORDER BY rowid"), (Texts{"1|2", "1|3"}));
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(WriteNtcToDB, TheKindOfTheStationsFollowsTheNoticeTypeAndNotTheStationType)
{
    auto ntc = aNotice("T13").withAntennas(1, 0, 1).build();
    ntc.stn_type = "TX";
    insert(ntc);
    EXPECT_EQ(work.count("kvr_tx"), 1);
    EXPECT_EQ(work.count("kvr_rx"), 0);
}

class OwnStepOf : public NoticeDatabase, public testing::WithParamInterface<std::string Ntc::*>
{};

INSTANTIATE_TEST_SUITE_P(InsertNtc, OwnStepOf,
                         testing::Values(&Ntc::freq_assgn, &Ntc::op_hh_fr, &Ntc::op_hh_to));

TEST_P(OwnStepOf, AnUnconvertibleNumberRollsTheNoticeBackAndNoRowStays)
{
    auto ntc = aNotice("T12", "MODIFY").withAntennas(2, 2, 2).build();
    ntc.*GetParam() = "12a";
    insert(ntc);
    for (const auto& table : noticeTables())
        EXPECT_EQ(work.count(table), 0) << table;
    EXPECT_EQ(work.scalar("SELECT * FROM kvr_keys"), "1|1|1") << "the numbers are given back";
    EXPECT_EQ(host.messages, Texts{"Error 3421 : Data type conversion error."});
    EXPECT_EQ(host.pointers, std::vector<int>{0});
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    insert(aNotice().build());
    EXPECT_EQ(work.count("kvr_velda"), 1);
    EXPECT_EQ(session::dbStatus, "ERROR_DB") << "nothing clears it";
}

TEST_F(WriteNtcToDB, AnUnconvertibleDegreeLosesThatPointAndThoseBehindItAlone)
{
    auto ntc = aNotice().withPoints(3).withAntennas(1, 1, 1).build();
    ntc.geo.pt[1].long_deg = "xyz";
    insert(ntc);
    EXPECT_EQ(host.messages, Texts{"Error 3421 : Data type conversion error."});
    EXPECT_EQ(session::dbStatus, "") << "inserters below the top routine do not mark the session";
    EXPECT_EQ(work.rows("SELECT geo_key, geo_pt FROM kvr_geo_pt ORDER BY rowid"), (Texts{"1|1", "2|1"}));
    EXPECT_EQ(work.count("kvr_velda"), 1);
    EXPECT_EQ(work.count("kvr_rx"), 1);
}

TEST_F(WriteNtcToDB, AnEmptyCounterTableShowsItsMessagesAndStoresUnderTheKeysAsTheyStood)
{
    work.execute("DELETE FROM kvr_keys");
    session::currentVeldaKey = 41;
    session::currentGeoKey = 42;
    insert(aNotice().build());
    EXPECT_EQ(host.messages, (Texts{"Error 3021 : No current record.", "Error 3021 : No current record."}));
    EXPECT_EQ(session::currentVeldaKey, 41);
    EXPECT_EQ(work.scalar("SELECT veldakey, geo_key FROM kvr_velda"), "41|42");
    EXPECT_EQ(session::dbStatus, "");
    insert(aNotice().build());
    EXPECT_EQ(host.messages.size(), 5U) << "twice no key, and then the key that stands already";
    EXPECT_EQ(work.count("kvr_velda"), 1);
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
}

TEST_F(WriteNtcToDB, ACounterAtItsEndOverflows)
{
    work.execute("UPDATE kvr_keys SET veldakey = 2147483647");
    writeNtcToDB::drawVeldaKey(database);
    EXPECT_EQ(host.messages, Texts{"Error 6 : Overflow"});
    EXPECT_EQ(work.scalar("SELECT veldakey FROM kvr_keys"), "2147483647");
}

TEST_F(WriteNtcToDB, DrawingAKeyAndRollingBackLeavesTheCounterUnchanged)
{
    workspace->BeginTrans();
    writeNtcToDB::drawVeldaKey(database);
    writeNtcToDB::drawTargetKey(database);
    workspace->Rollback();
    EXPECT_EQ(session::currentVeldaKey, 1);
    EXPECT_EQ(work.scalar("SELECT * FROM kvr_keys"), "1|1|1");
}

TEST_F(WriteNtcToDB, TheCurrentTargetKeyOfAnEarlierNoticeStaysWithAnAdd)
{
    insert(aNotice("T12", "MODIFY").build());
    insert(aNotice("T12", "ADD").build());
    EXPECT_EQ(session::currentTargetKey, 1);
}

TEST_F(WriteNtcToDB, ACoordinationWithAnEmptyListLeavesNoRowAndOneThatIsNotPresentNeither)
{
    auto ntc = aNotice().build();
    ntc.coord.adm.fill("");
    insert(ntc);
    EXPECT_EQ(work.count("kvr_coord"), 0);
    ntc.coord.adm[3] = "XYZ";
    ntc.coord.present = false;
    insert(ntc);
    EXPECT_EQ(work.count("kvr_coord"), 0);
    ntc.coord.present = true;
    ntc.coord.coord_prov.clear();
    insert(ntc);
    EXPECT_EQ(work.scalar("SELECT coord_prov, adm FROM kvr_coord"), "|XYZ")
        << "an empty provision is written";
}

TEST_F(WriteNtcToDB, ValuesThatAreFixedInUpperCaseAreStoredSo)
{
    auto ntc = aNotice().build();
    ntc.stn_cls = "fx";
    ntc.op_cls = "a";
    ntc.notice_typ = "t12";
    ntc.stn_type = "tx";
    ntc.is_resub = "true";
    ntc.geo.geo_type = "point";
    ntc.emi_cls = "f3e";
    insert(ntc);
    EXPECT_EQ(work.scalar("SELECT stn_cls, op_cls, notice_typ, stn_type, is_resub, emi_cls FROM kvr_velda"),
              "FX|A|T12|TX|TRUE|f3e");
    EXPECT_EQ(work.scalar("SELECT geo_type FROM kvr_geo"), "POINT");
}

TEST_F(WriteNtcToDB, ASiteThatIsNotPresentStoresItsPresentPointsAllTheSame)
{
    auto ntc = aNotice().withPoints(2).build();
    ntc.geo.present = false;
    insert(ntc);
    EXPECT_EQ(work.count("kvr_geo"), 0);
    EXPECT_EQ(work.count("kvr_geo_pt"), 2);
}

TEST_F(WriteNtcToDB, SlotsThatAreNotPresentLeaveNoRows)
{
    auto ntc = aNotice().withAntennas(1, 2, 2).withPoints(2).build();
    ntc.antenna[0].rot[0].present = false;
    ntc.antenna[0].rx[0].present = false;
    ntc.geo.pt[0].present = false;
    ntc.call_sign[2].clear();
    insert(ntc);
    EXPECT_EQ(work.scalar("SELECT azm_fr FROM kvr_rot"), "1");
    EXPECT_EQ(work.count("kvr_rx"), 1);
    EXPECT_EQ(work.scalar("SELECT geo_pt FROM kvr_geo_pt WHERE geo_key = 1"), "2");
    EXPECT_EQ(work.count("kvr_call_sign"), 5);
}
