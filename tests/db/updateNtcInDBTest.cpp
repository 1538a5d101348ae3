#include "db/updateNtcInDB.h"

#include "db/columns.h"
#include "platform/hostFormat.h"
#include "platform/userName.h"
#include "support/noticeDatabase.h"

#include <functional>
#include <tuple>

namespace {

using columns::Reading;
using Texts = std::vector<std::string>;

const std::string noRow = "Error 3021 : No current record.";
const std::string noNumber = "Error 3421 : Data type conversion error.";

class UpdateNtcInDB : public NoticeDatabase
{
protected:
    UpdateNtcInDB()
    {
        platform::setHostUserName("operator");
        platform::setHostLocale("de_DE.UTF-8");
        platform::setClock(platform::LocalTime{2026, 4, 5, 10, 11, 12});
    }
    void TearDown() override
    {
        platform::setClock({});
        platform::setHostLocale({});
        platform::setHostUserName({});
    }

    // What an update makes of the record.
    static Ntc stamped(Ntc ntc)
    {
        ntc.src_update = "operator";
        ntc.d_updated = "05.04.2026";
        return ntc;
    }

    void expectStored(std::int32_t key, const Ntc& ntc) { EXPECT_SAME_NOTICE(read(key), stamped(ntc)); }
    void expectNoFailure()
    {
        EXPECT_EQ(host.messages, Texts{});
        EXPECT_EQ(session::dbStatus, "");
    }
    void expectFailure(const Texts& messages)
    {
        EXPECT_EQ(host.messages, messages);
        EXPECT_EQ(session::dbStatus, "ERROR_DB");
    }
};

// A value that a column gives back as it was, and that the builder of notices does not give.
std::string otherValue(Reading reading, const std::string& column)
{
    switch (reading) {
    case Reading::HHMM:
        return "1815";
    case Reading::LongDeg:
        return "101";
    case Reading::LatDeg:
        return "51";
    case Reading::MinSec:
        return "37";
    case Reading::Upper:
        return "OTHER";
    default:
        return column == "freq_assgn" ? "7.25" : "other " + column;
    }
}

// The type of the station decides about the tables of the stations, and the intent about the target.
bool decidesAboutTables(const std::string& column)
{
    return column == "stn_type" || column == "intent";
}

using Change = std::function<void(Ntc&)>;

// Changes of one member each, of the record that `place` finds in a notice.
template <class Table, class Place>
void addChanges(std::vector<std::pair<std::string, Change>>& changes, const Table& table, Place place)
{
    for (const auto& row : table) {
        if (!decidesAboutTables(row.column))
            changes.emplace_back(row.column, [row, place](Ntc& ntc) {
                place(ntc).*row.member = otherValue(row.reading, row.column);
            });
    }
}

std::vector<std::pair<std::string, Change>> changesOfEveryMember()
{
    std::vector<std::pair<std::string, Change>> changes;
    addChanges(changes, columns::velda, [](Ntc& ntc) -> Ntc& { return ntc; });
    addChanges(changes, columns::target, [](Ntc& ntc) -> NtcTarget& { return ntc.target; });
    addChanges(changes, columns::geo, [](Ntc& ntc) -> NtcGeo& { return ntc.geo; });
    addChanges(changes, columns::geoPt, [](Ntc& ntc) -> NtcGeoPt& { return ntc.geo.pt[2]; });
    addChanges(changes, columns::ant, [](Ntc& ntc) -> NtcAntenna& { return ntc.antenna[1]; });
    addChanges(changes, columns::rot, [](Ntc& ntc) -> NtcRot& { return ntc.antenna[1].rot[1]; });
    addChanges(changes, columns::rx, [](Ntc& ntc) -> NtcRx& { return ntc.antenna[0].rx[1]; });
    addChanges(changes, columns::geo, [](Ntc& ntc) -> NtcGeo& { return ntc.antenna[0].rx[1].geo; });
    addChanges(changes, columns::geoPt, [](Ntc& ntc) -> NtcGeoPt& { return ntc.antenna[0].rx[1].geo.pt[0]; });
    changes.emplace_back("call_sign", [](Ntc& ntc) { ntc.call_sign[5] = "other"; });
    changes.emplace_back("nat_srv", [](Ntc& ntc) { ntc.nat_srv[0] = "other"; });
    changes.emplace_back("op_agcy", [](Ntc& ntc) { ntc.op_agcy[3] = "other"; });
    changes.emplace_back("coord_prov", [](Ntc& ntc) { ntc.coord.coord_prov = "other"; });
    changes.emplace_back("coord.adm", [](Ntc& ntc) { ntc.coord.adm[10] = "other"; });
    changes.emplace_back("rmk_text", [](Ntc& ntc) { ntc.rmk_text = std::string(70'000, 'r'); });
    return changes;
}

template <class Record, std::size_t Count>
void empty(const std::array<columns::Row<Record>, Count>& table, Record& record)
{
    for (const auto& row : table)
        (record.*row.member).clear();
}

// The columns of the one row of a table that are not Null.
template <class Table>
Texts filledColumns(const WorkingDatabase& work, const std::string& name, const Table& table)
{
    Texts filled;
    for (const auto& row : table) {
        if (work.scalar(std::string("SELECT ").append(row.column).append(" FROM ").append(name)) != "(null)")
            filled.emplace_back(row.column);
    }
    return filled;
}

struct BadNumber
{
    const char* name;
    const char* value;
    const char* message;
};

} // namespace

TEST_F(UpdateNtcInDB, WithoutAChangeEachStationGetsANewSiteKeyAndTheCounterMoves)
{
    const auto ntc = aNotice("T12", "MODIFY").withAntennas(2, 1, 2).withPoints(3).build();
    const auto key = insert(ntc);
    ASSERT_EQ(work.scalar("SELECT * FROM kvr_keys"), "6|2|2");
    update(key, read(key));
    expectNoFailure();
    expectStored(key, ntc);
    EXPECT_EQ(work.scalar("SELECT * FROM kvr_keys"), "10|2|2");
    EXPECT_EQ(work.rows("SELECT geo_key FROM kvr_rx ORDER BY rowid"), (Texts{"6", "7", "8", "9"}));
    EXPECT_EQ(work.rows("SELECT geo_key FROM kvr_geo ORDER BY 1"), (Texts{"1", "6", "7", "8", "9"}));
    EXPECT_EQ(work.scalar("SELECT veldakey, geo_key, target FROM kvr_velda"), "1|1|1") << "these keys stay";
    EXPECT_EQ(work.count("kvr_geo_pt"), 7);
}

TEST_F(UpdateNtcInDB, AChangeOfAnyOneMemberIsReadBackAndNothingElseChanges)
{
    auto ntc = aNotice("T12", "MODIFY").withAntennas(2, 2, 2).withPoints(3).build();
    const auto key = insert(ntc);
    const auto counts = [this] {
        Texts all;
        for (const auto& table : noticeTables())
            all.push_back(table + " " + std::to_string(work.count(table)));
        return all;
    };
    const auto before = counts();
    for (const auto& [member, change] : changesOfEveryMember()) {
        SCOPED_TRACE(member);
        change(ntc);
        update(key, ntc);
        expectStored(key, ntc);
        EXPECT_EQ(counts(), before);
    }
    expectNoFailure();
}

TEST_F(UpdateNtcInDB, AllMembersAtOnceAreReadBackAlsoOfATransmittersNotice)
{
    for (const std::string type : {"T11", "T12", "T13", "T14"}) {
        auto ntc = aNotice(type, "MODIFY").withAntennas(15, 6, 15).withPoints(6).build();
        const auto key = insert(ntc);
        for (const auto& [member, change] : changesOfEveryMember()) {
            if (member != "noise_temp" && member != "notice_typ") // T13 has none
                change(ntc);
        }
        update(key, ntc);
        expectStored(key, ntc);
    }
    expectNoFailure();
}

TEST_F(UpdateNtcInDB, AnEmptiedMemberMakesItsColumnNull)
{
    auto ntc = aNotice("T12", "MODIFY").build();
    const auto key = insert(ntc);
    const auto decisive = std::pair(ntc.stn_type, ntc.intent);
    empty(columns::velda, ntc);
    empty(columns::target, ntc.target);
    empty(columns::geo, ntc.geo);
    std::tie(ntc.stn_type, ntc.intent) = decisive;
    update(key, ntc);
    EXPECT_EQ(filledColumns(work, "kvr_velda", columns::velda),
              (Texts{"stn_type", "intent", "src_update", "d_updated"}));
    EXPECT_EQ(filledColumns(work, "kvr_target", columns::target), Texts{});
    EXPECT_EQ(filledColumns(work, "kvr_geo", columns::geo), Texts{});
    EXPECT_EQ(work.scalar("SELECT target FROM kvr_target"), "1");
    expectNoFailure();
}

TEST_F(UpdateNtcInDB, AnEmptiedSiteNameMakesItsColumnNull)
{
    auto ntc = aNotice().build();
    const auto key = insert(ntc);
    ntc.geo.site_name.clear();
    update(key, ntc);
    EXPECT_EQ(work.scalar("SELECT geo_key, site_name FROM kvr_geo"), "1|(null)");
    expectStored(key, ntc);
}

TEST_F(UpdateNtcInDB, WhatTheRecordDoesNotHoldLeavesNoRows)
{
    const auto key = insert(aNotice().withAntennas(3, 2, 2).withPoints(3).build());
    auto ntc = aNotice().build();
    ntc.rmk_text.clear();
    ntc.call_sign.fill("");
    ntc.nat_srv.fill("");
    ntc.op_agcy.fill("");
    ntc.coord = {};
    ntc.geo.pt[0].present = false;
    update(key, ntc);
    for (const std::string table : {"kvr_rmks", "kvr_call_sign", "kvr_nat_serv", "kvr_op_agcy", "kvr_coord",
                                    "kvr_ant", "kvr_rot", "kvr_rx", "kvr_geo_pt"})
        EXPECT_EQ(work.count(table), 0) << table;
    EXPECT_EQ(work.count("kvr_geo"), 1) << "the notice's own";
    expectNoFailure();
}

TEST_F(UpdateNtcInDB, TheRecordGetsTheUsersNameAndTodaysDateEvenWhenNothingIsStored)
{
    auto ntc = aNotice().build();
    updateNtcInDB::updateNtc(99, ntc, workspace, database);
    EXPECT_EQ(ntc.src_update, "operator");
    EXPECT_EQ(ntc.d_updated, "05.04.2026");
    const auto key = insert(aNotice().build());
    update(key, ntc);
    EXPECT_EQ(work.scalar("SELECT src_update, d_updated FROM kvr_velda"), "operator|05.04.2026");
}

TEST_F(UpdateNtcInDB, TheDateOfReceiptIsStoredAsTheRecordHoldsIt)
{
    auto ntc = aNotice().build();
    ntc.d_rcv = "01.02.2025";
    const auto key = insert(ntc);
    update(key, read(key));
    EXPECT_EQ(work.scalar("SELECT d_rcv FROM kvr_velda"), "01.02.2025");
}

TEST_F(UpdateNtcInDB, ValuesAreNotTurnedToUpperCaseUnlikeThoseOfANewNotice)
{
    auto ntc = aNotice().build();
    const auto key = insert(ntc);
    ntc.stn_cls = "fx";
    ntc.op_cls = "a";
    ntc.notice_typ = "t12";
    ntc.is_resub = "true";
    ntc.geo.geo_type = "point";
    update(key, ntc);
    EXPECT_EQ(work.scalar("SELECT stn_cls, op_cls, notice_typ, is_resub FROM kvr_velda"), "fx|a|t12|true");
    EXPECT_EQ(work.scalar("SELECT geo_type FROM kvr_geo"), "point");
    EXPECT_EQ(read(key).geo.geo_type, "POINT") << "the reader does so";
}

TEST_F(UpdateNtcInDB, OtherNoticesAndThePublicationsStayAsTheyAre)
{
    const auto full = aNotice("T12", "MODIFY").withAntennas(2, 2, 2).withPoints(2).build();
    insert(full);
    const auto key = insert(full);
    insert(full);
    work.execute("INSERT INTO kvr_pub_hist VALUES (2, '2500'), (2, '2501')");
    const Texts others = {"SELECT * FROM kvr_velda WHERE veldakey <> 2",
                          "SELECT * FROM kvr_geo WHERE geo_key NOT BETWEEN 6 AND 10 AND geo_key < 16",
                          "SELECT * FROM kvr_geo_pt WHERE geo_key NOT BETWEEN 6 AND 10 AND geo_key < 16",
                          "SELECT * FROM kvr_target WHERE target <> 2",
                          "SELECT * FROM kvr_ant WHERE veldakey <> 2",
                          "SELECT * FROM kvr_rx WHERE veldakey <> 2",
                          "SELECT * FROM kvr_coord WHERE veldakey <> 2",
                          "SELECT * FROM kvr_pub_hist"};
    std::vector<Texts> before;
    for (const auto& sql : others)
        before.push_back(work.rows(sql));
    update(key, aNotice("T12", "SUPPRESS").build());
    for (std::size_t index = 0; index < others.size(); ++index)
        EXPECT_EQ(work.rows(others[index]), before[index]) << others[index];
    EXPECT_EQ(before.back().size(), 2U);
    expectNoFailure();
}

TEST_F(UpdateNtcInDB, RowsWrittenAgainHangOnTheSessionsCurrentKey)
{
    const auto key = insert(aNotice().build());
    session::currentVeldaKey = 50;
    auto ntc = aNotice().build();
    updateNtcInDB::updateNtc(key, ntc, workspace, database);
    EXPECT_EQ(work.rows("SELECT DISTINCT veldakey FROM kvr_call_sign"), Texts{"50"});
    EXPECT_EQ(work.rows("SELECT veldakey FROM kvr_velda"), Texts{"1"});
}

// Target

TEST_F(UpdateNtcInDB, AnAddThatBecomesAModifyDrawsATargetKeyAndGetsItsRow)
{
    insert(aNotice("T12", "MODIFY").build());
    const auto key = insert(aNotice("T12", "ADD").build());
    const auto ntc = aNotice("T12", "MODIFY").build();
    update(key, ntc);
    EXPECT_EQ(work.scalar("SELECT target FROM kvr_velda WHERE veldakey = 2"), "2");
    EXPECT_EQ(work.scalar("SELECT trg_adm_ref_id FROM kvr_target WHERE target = 2"),
              ntc.target.trg_adm_ref_id);
    EXPECT_EQ(work.scalar("SELECT Target FROM kvr_keys"), "3");
    EXPECT_EQ(session::currentTargetKey, 2);
    expectStored(key, ntc);
    expectNoFailure();
}

TEST_F(UpdateNtcInDB, ARowOfATargetIsAddedEvenWhenTheRecordHasNone)
{
    const auto key = insert(aNotice("T12", "ADD").build());
    auto ntc = aNotice("T12", "ADD").build();
    ntc.intent = "WITHDRAW";
    update(key, ntc);
    EXPECT_EQ(work.scalar("SELECT target, trg_freq_assgn FROM kvr_target"), "1|(null)");
}

TEST_F(UpdateNtcInDB, AModifyThatBecomesAnAddLosesItsTargetKeyAndWithNoTargetInTheRecordTheRow)
{
    const auto key = insert(aNotice("T12", "MODIFY").build());
    auto ntc = aNotice("T12", "ADD").build();
    ASSERT_FALSE(ntc.target.present);
    update(key, ntc);
    EXPECT_EQ(work.scalar("SELECT target FROM kvr_velda"), "(null)");
    EXPECT_EQ(work.count("kvr_target"), 0);
    EXPECT_EQ(session::currentTargetKey, 1) << "as it was read";
    expectNoFailure();
}

TEST_F(UpdateNtcInDB, AModifyThatBecomesAnAddWithATargetInTheRecordLeavesTheRowBehind)
{
    const auto key = insert(aNotice("T12", "MODIFY").build());
    auto ntc = aNotice("T12", "MODIFY").build();
    ntc.intent = "ADD";
    ntc.target.trg_adm_ref_id = "left behind";
    update(key, ntc);
    EXPECT_EQ(work.scalar("SELECT target FROM kvr_velda"), "(null)");
    EXPECT_EQ(work.scalar("SELECT target, trg_adm_ref_id FROM kvr_target"), "1|left behind");
}

TEST_F(UpdateNtcInDB, ATargetMissingFromTheRecordOfAModifyLosesItsRowAndKeepsItsKey)
{
    const auto key = insert(aNotice("T12", "MODIFY").build());
    auto ntc = aNotice("T12", "MODIFY").build();
    ntc.target.present = false;
    update(key, ntc);
    EXPECT_EQ(work.count("kvr_target"), 0);
    EXPECT_EQ(work.scalar("SELECT target FROM kvr_velda"), "1");
    update(key, ntc);
    EXPECT_EQ(work.scalar("SELECT target FROM kvr_target"), "1") << "without a row one is added";
    EXPECT_EQ(work.scalar("SELECT Target FROM kvr_keys"), "2") << "under the same key";
    expectNoFailure();
}

TEST_F(UpdateNtcInDB, WithANullTargetTheCurrentTargetKeyIsZeroUnlessOneIsDrawn)
{
    insert(aNotice("T12", "MODIFY").build());
    const auto key = insert(aNotice("T12", "ADD").build());
    ASSERT_EQ(session::currentTargetKey, 1) << "of the notice before";
    update(key, aNotice("T12", "ADD").build());
    EXPECT_EQ(session::currentTargetKey, 0);
    EXPECT_EQ(work.count("kvr_target"), 1) << "the other notice keeps its own";
    expectNoFailure();
}

TEST_F(UpdateNtcInDB, AnIntentInAnotherCaseIsNotAdd)
{
    const auto key = insert(aNotice("T12", "ADD").build());
    auto ntc = aNotice("T12", "ADD").build();
    ntc.intent = "add";
    update(key, ntc);
    EXPECT_EQ(work.scalar("SELECT intent, target FROM kvr_velda"), "add|1");
    EXPECT_EQ(work.count("kvr_target"), 1);
}

TEST_F(UpdateNtcInDB, WithoutCountersTheTargetKeyIsZeroAndNoTargetIsStored)
{
    const auto key = insert(aNotice("T12", "ADD").build());
    work.execute("DELETE FROM kvr_keys");
    update(key, aNotice("T12", "MODIFY").build());
    EXPECT_EQ(host.messages, Texts{noRow});
    EXPECT_EQ(session::dbStatus, "") << "drawing a key does not mark the session";
    EXPECT_EQ(work.scalar("SELECT target FROM kvr_velda"), "0");
    EXPECT_EQ(work.count("kvr_target"), 0);
}

// Site

TEST_F(UpdateNtcInDB, ANoticeWithANullSiteKeyRollsBackWhole)
{
    const auto key = insert(aNotice("T12", "MODIFY").withAntennas(1, 1, 1).build());
    work.execute("UPDATE kvr_velda SET geo_key = NULL");
    const auto before = work.contents();
    session::currentGeoKey = 42;
    update(key, aNotice("T12", "ADD").build());
    EXPECT_EQ(work.contents(), before);
    expectFailure({"Error 3265 : Item not found in this collection."});
    EXPECT_EQ(session::currentGeoKey, 42);
}

TEST_F(UpdateNtcInDB, ASiteKeyOfZeroLeavesTheSiteOut)
{
    const auto key = insert(aNotice().build());
    work.execute("UPDATE kvr_velda SET geo_key = 0");
    auto ntc = aNotice().build();
    ntc.geo.ctry = "XYZ";
    update(key, ntc);
    EXPECT_EQ(work.rows("SELECT geo_key FROM kvr_geo WHERE ctry <> 'XYZ'"), Texts{"1"});
    EXPECT_EQ(work.count("kvr_geo_pt"), 1);
    expectNoFailure();
}

TEST_F(UpdateNtcInDB, ASiteKeyWithoutARowFailsAndLeavesThePointsAloneAndTheRestIsStored)
{
    auto ntc = aNotice().withPoints(2).build();
    ntc.geo.present = false;
    const auto key = insert(ntc);
    const auto points = work.contents({"kvr_geo_pt"});
    ntc.geo.present = true;
    ntc.geo.pt[0].long_deg = "099";
    ntc.rmk_text = "stored all the same";
    update(key, ntc);
    expectFailure({noRow});
    EXPECT_EQ(work.contents({"kvr_geo_pt"}), points);
    EXPECT_EQ(work.count("kvr_geo"), 0);
    EXPECT_EQ(work.scalar("SELECT rmk_text FROM kvr_rmks"), "stored all the same");
    EXPECT_EQ(work.scalar("SELECT src_update FROM kvr_velda"), "operator");
}

TEST_F(UpdateNtcInDB, ASiteThatIsNotPresentIsEditedAllTheSame)
{
    auto ntc = aNotice().build();
    const auto key = insert(ntc);
    ntc.geo.present = false;
    ntc.geo.ctry = "XYZ";
    update(key, ntc);
    EXPECT_EQ(work.scalar("SELECT ctry FROM kvr_geo"), "XYZ");
    expectNoFailure();
}

TEST_F(UpdateNtcInDB, AnUnconvertibleDegreeLosesThatPointAndThoseBehindItAndDoesNotMarkTheSession)
{
    auto ntc = aNotice().withPoints(3).withAntennas(1, 1, 1).build();
    const auto key = insert(ntc);
    ntc.geo.pt[1].long_deg = "xyz";
    update(key, ntc);
    EXPECT_EQ(host.messages, Texts{noNumber});
    EXPECT_EQ(session::dbStatus, "");
    EXPECT_EQ(work.rows("SELECT geo_key, geo_pt FROM kvr_geo_pt ORDER BY rowid"), (Texts{"1|1", "3|1"}));
    EXPECT_EQ(work.count("kvr_rx"), 1);
}

// Antennas

TEST_F(UpdateNtcInDB, AStationWhoseSiteWasNotStoredFailsToLoseItAndTheUpdateGoesOn)
{
    auto ntc = aNotice().withAntennas(2, 1, 2).build();
    ntc.antenna[0].rx[0].geo.present = false;
    const auto key = insert(ntc);
    update(key, ntc);
    expectFailure({noRow});
    EXPECT_EQ(work.rows("SELECT ant_key, geo_key FROM kvr_rx ORDER BY rowid"),
              (Texts{"1|6", "1|7", "2|8", "2|9"}));
    EXPECT_EQ(work.rows("SELECT geo_key FROM kvr_geo_pt ORDER BY geo_key"),
              (Texts{"1", "2", "6", "7", "8", "9"}))
        << "the point of the site that had no row is left behind";
    update(key, ntc);
    EXPECT_EQ(host.messages.size(), 2U) << "again: its new site was not stored either";
}

TEST_F(UpdateNtcInDB, AHoleInTheSlotsOfAntennasKeepsTheNumbersBehindIt)
{
    const auto key = insert(aNotice().withAntennas(3, 1, 1).build());
    auto ntc = aNotice().withAntennas(3, 1, 1).build();
    ntc.antenna[1].present = false;
    update(key, ntc);
    EXPECT_EQ(work.rows("SELECT ant_key FROM kvr_ant ORDER BY rowid"), (Texts{"1", "3"}));
    EXPECT_EQ(work.rows("SELECT ant_key FROM kvr_rot ORDER BY rowid"), (Texts{"1", "3"}));
    EXPECT_EQ(work.rows("SELECT ant_key FROM kvr_rx ORDER BY rowid"), (Texts{"1", "3"}));
    EXPECT_EQ(work.count("kvr_geo"), 3);
}

TEST_F(UpdateNtcInDB, TheTablesOfTheStationsFollowTheStationTypeAndNotTheNoticeType)
{
    const auto key = insert(aNotice("T12").withAntennas(1, 0, 1).build());
    auto ntc = aNotice("T12").withAntennas(1, 0, 1).build();
    ntc.stn_type = "RX";
    update(key, ntc);
    EXPECT_EQ(work.rows("SELECT geo_key FROM kvr_rx"), Texts{"2"}) << "nobody looked for it there";
    EXPECT_EQ(work.rows("SELECT geo_key FROM kvr_tx"), Texts{"3"});
    EXPECT_EQ(work.rows("SELECT geo_key FROM kvr_geo ORDER BY 1"), (Texts{"1", "2", "3"}));
    ntc.stn_type = "rx"; // not exactly "RX"
    update(key, ntc);
    EXPECT_EQ(work.rows("SELECT geo_key FROM kvr_rx"), Texts{"4"});
    EXPECT_EQ(work.rows("SELECT geo_key FROM kvr_tx"), Texts{"3"});
    expectNoFailure();
}

TEST_F(UpdateNtcInDB, AStationWithANullSiteKeyStopsTheRemovalOfTheStationsOfItsAntennaAlone)
{
    const auto ntc = aNotice().withAntennas(2, 1, 3).build();
    const auto key = insert(ntc);
    work.execute("UPDATE kvr_rx SET geo_key = NULL WHERE rowid = 2");
    update(key, ntc);
    expectFailure({"Error 94 : Invalid use of Null"});
    EXPECT_EQ(work.rows("SELECT ant_key, geo_key FROM kvr_rx ORDER BY rowid"),
              (Texts{"1|(null)", "1|4", "1|8", "1|9", "1|10", "2|11", "2|12", "2|13"}));
    EXPECT_EQ(work.count("kvr_ant"), 2);
    EXPECT_EQ(work.count("kvr_rot"), 2);
}

class UpdateOfAntennaNumbered : public UpdateNtcInDB, public testing::WithParamInterface<BadNumber>
{};

INSTANTIATE_TEST_SUITE_P(By, UpdateOfAntennaNumbered,
                         testing::Values(BadNumber{"null", "NULL", "Error 94 : Invalid use of Null"},
                                         BadNumber{"aLargeNumber", "70000", "Error 6 : Overflow"},
                                         BadNumber{"aLetter", "'x'", "Error 13 : Type mismatch"}),
                         [](const auto& row) { return row.param.name; });

TEST_P(UpdateOfAntennaNumbered, NoAntennaBehindItIsRemovedAndNoneIsInserted)
{
    auto ntc = aNotice().withAntennas(3, 1, 1).build();
    const auto key = insert(ntc);
    work.execute(std::string("UPDATE kvr_ant SET ant_key = ") + GetParam().value + " WHERE ant_key = 2");
    ntc.coord.coord_prov = "CHANGED";
    update(key, ntc);
    expectFailure({GetParam().message});
    EXPECT_EQ(work.rows("SELECT rowid FROM kvr_ant"), (Texts{"2", "3"}));
    EXPECT_EQ(work.rows("SELECT ant_key FROM kvr_rx"), (Texts{"2", "3"}));
    EXPECT_EQ(work.scalar("SELECT geo_key FROM kvr_keys"), "5");
    EXPECT_EQ(work.scalar("SELECT coord_prov FROM kvr_coord"), "CHANGED") << "the lists are stored";
}

// Failures of the own steps

TEST_F(UpdateNtcInDB, AKeyWithoutARowRollsBack)
{
    insert(aNotice("T12", "MODIFY").build());
    const auto before = work.contents();
    update(99, aNotice("T12", "MODIFY").build());
    expectFailure({noRow});
    EXPECT_EQ(host.pointers, std::vector<int>{0});
    EXPECT_EQ(work.contents(), before);
    EXPECT_EQ(session::currentTargetKey, 1);
}

class OwnStepOfUpdate : public UpdateNtcInDB, public testing::WithParamInterface<std::string Ntc::*>
{};

INSTANTIATE_TEST_SUITE_P(Member, OwnStepOfUpdate,
                         testing::Values(&Ntc::freq_assgn, &Ntc::op_hh_fr, &Ntc::op_hh_to));

TEST_P(OwnStepOfUpdate, AnUnconvertibleNumberRollsBackAndTheNextUpdateIsStored)
{
    const auto ntc = aNotice("T12", "MODIFY").withAntennas(1, 1, 1).build();
    const auto key = insert(ntc);
    const auto before = work.contents();
    auto changed = ntc;
    changed.*GetParam() = "12a";
    update(key, changed);
    expectFailure({noNumber});
    EXPECT_EQ(work.contents(), before);
    update(key, ntc);
    EXPECT_EQ(host.messages.size(), 1U);
    expectStored(key, ntc);
    EXPECT_EQ(session::dbStatus, "ERROR_DB") << "nothing clears it";
}

TEST_F(UpdateNtcInDB, ATargetKeyDrawnBeforeARollbackIsGivenBack)
{
    const auto key = insert(aNotice("T12", "ADD").build());
    work.execute("CREATE UNIQUE INDEX refuse ON kvr_velda (adm); "
                 "INSERT INTO kvr_velda (veldakey, adm) VALUES (99, 'TAKEN')");
    const auto before = work.contents();
    auto ntc = aNotice("T12", "MODIFY").build();
    ntc.adm = "taken";
    update(key, ntc);
    EXPECT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    EXPECT_EQ(session::currentTargetKey, 1) << "the session keeps what was drawn";
    EXPECT_EQ(work.contents(), before);
}
