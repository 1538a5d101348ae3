#include "db/deleteNtcFromDB.h"

#include "support/noticeDatabase.h"

namespace {

using Texts = std::vector<std::string>;

const std::string noRow = "Error 3021 : No current record.";
const std::string nullUsed = "Error 94 : Invalid use of Null";

class DeleteNtcFromDB : public NoticeDatabase
{
protected:
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
    // Tables with rows.
    Texts filledTables()
    {
        Texts filled;
        for (const auto& table : noticeTables()) {
            if (work.count(table) != 0)
                filled.push_back(table);
        }
        return filled;
    }
};

} // namespace

TEST_F(DeleteNtcFromDB, EveryRowOfANoticeGoesAndTheCountersDoNotChange)
{
    for (const std::string type : {"T11", "T12", "T13", "T14"}) {
        const auto key = insert(aNotice(type, "MODIFY").withAntennas(15, 6, 15).withPoints(6).build());
        work.execute("INSERT INTO kvr_pub_hist VALUES (" + std::to_string(key) + ", '2500')");
        const auto counters = work.contents({"kvr_keys"});
        remove(key);
        EXPECT_EQ(filledTables(), Texts{}) << type;
        EXPECT_EQ(work.contents({"kvr_keys"}), counters);
    }
    expectNoFailure();
}

TEST_F(DeleteNtcFromDB, OtherNoticesStayAsTheyAre)
{
    const auto full = aNotice("T12", "MODIFY").withAntennas(2, 2, 2).withPoints(2).build();
    insert(full);
    const auto others = work.contents(noticeTables());
    const auto key = insert(aNotice("T13", "SUPPRESS").withAntennas(3, 1, 2).withPoints(3).build());
    remove(key);
    EXPECT_EQ(work.contents(noticeTables()), others);
    expectNoFailure();
}

TEST_F(DeleteNtcFromDB, ASiteKeyWithoutARowShowsItsMessageAndItsPointsStayAndTheNoticeGoes)
{
    auto ntc = aNotice("T12", "MODIFY").withAntennas(1, 1, 1).withPoints(2).build();
    ntc.geo.present = false;
    const auto key = insert(ntc);
    remove(key);
    expectFailure({noRow});
    EXPECT_EQ(filledTables(), Texts{"kvr_geo_pt"});
    EXPECT_EQ(work.rows("SELECT geo_key FROM kvr_geo_pt"), (Texts{"1", "1"}));
}

TEST_F(DeleteNtcFromDB, ASiteKeyOfZeroIsNotLookedFor)
{
    const auto key = insert(aNotice().build());
    work.execute("UPDATE kvr_velda SET geo_key = 0");
    remove(key);
    expectNoFailure();
    EXPECT_EQ(filledTables(), (Texts{"kvr_geo", "kvr_geo_pt"}));
    EXPECT_EQ(session::currentGeoKey, 0);
}

TEST_F(DeleteNtcFromDB, AnAddDeletesNoTargetWhileTheSessionHasNoTargetKey)
{
    const auto key = insert(aNotice("T12", "ADD").build());
    insert(aNotice("T12", "MODIFY").build());
    session::currentTargetKey = 0;
    remove(key);
    EXPECT_EQ(work.rows("SELECT target FROM kvr_target"), Texts{"1"});
    expectNoFailure();
}

TEST_F(DeleteNtcFromDB, AnAddDeletesTheTargetThatAnEarlierNoticeLeftInTheSession)
{
    insert(aNotice("T12", "MODIFY").build());
    const auto key = insert(aNotice("T12", "ADD").build());
    ASSERT_EQ(session::currentTargetKey, 1);
    remove(key);
    EXPECT_EQ(work.count("kvr_target"), 0);
    EXPECT_EQ(work.rows("SELECT veldakey, target FROM kvr_velda"), Texts{"1|1"}) << "its notice stays";
    EXPECT_EQ(session::currentTargetKey, 1);
    expectNoFailure();
}

TEST_F(DeleteNtcFromDB, AnAddBehindATargetThatIsGoneShowsAMessageAndGoesAllTheSame)
{
    const auto first = insert(aNotice("T12", "MODIFY").build());
    const auto second = insert(aNotice("T12", "ADD").build());
    remove(first);
    expectNoFailure();
    remove(second);
    expectFailure({noRow});
    EXPECT_EQ(filledTables(), Texts{});
}

TEST_F(DeleteNtcFromDB, StationsAreLookedForByTheStationTypeWithNoRegardToTheNoticeType)
{
    struct Row
    {
        const char* type;
        const char* stationType;
        Texts left;
    };
    const std::vector<Row> rows = {
        {"T12", "TX", {}},
        {"T13", "RX", {}},
        {"T12", "RX", {"kvr_geo", "kvr_geo_pt", "kvr_rx"}},
        {"T13", "TX", {"kvr_geo", "kvr_geo_pt", "kvr_tx"}},
        {"T13", "", {"kvr_geo", "kvr_geo_pt", "kvr_tx"}},
        {"T12", "", {}},
    };
    for (const auto& row : rows) {
        auto ntc = aNotice(row.type).withAntennas(2, 1, 2).build();
        const auto key = insert(ntc);
        work.execute(std::string("UPDATE kvr_velda SET stn_type = '") + row.stationType + "'");
        remove(key);
        EXPECT_EQ(filledTables(), row.left) << row.type << " " << row.stationType;
        for (const auto& table : noticeTables())
            work.execute("DELETE FROM " + table);
    }
    expectNoFailure();
}

TEST_F(DeleteNtcFromDB, OfTwoPublicationsAndTwoRemarksOneEachStays)
{
    const auto key = insert(aNotice().build());
    work.execute("INSERT INTO kvr_pub_hist VALUES (1, '2500'), (1, '2501')");
    work.execute("INSERT INTO kvr_rmks VALUES (1, 'further')");
    remove(key);
    EXPECT_EQ(work.rows("SELECT * FROM kvr_pub_hist"), Texts{"1|2501"});
    EXPECT_EQ(work.rows("SELECT * FROM kvr_rmks"), Texts{"1|further"});
    EXPECT_EQ(filledTables(), (Texts{"kvr_rmks", "kvr_pub_hist"}));
    expectNoFailure();
}

TEST_F(DeleteNtcFromDB, ANoticeWithNothingButItsRowsGoes)
{
    const auto key = insert(Ntc{});
    work.execute("UPDATE kvr_velda SET geo_key = 0, target = NULL, stn_type = ''");
    work.execute("DELETE FROM kvr_target");
    session::currentTargetKey = 0;
    remove(key);
    EXPECT_EQ(filledTables(), Texts{});
    expectNoFailure();
}

TEST_F(DeleteNtcFromDB, AStationWithoutASiteRowLosesItsRowAllTheSame)
{
    auto ntc = aNotice().withAntennas(1, 0, 3).build();
    ntc.antenna[0].rx[1].geo.present = false;
    const auto key = insert(ntc);
    remove(key);
    expectFailure({noRow});
    EXPECT_EQ(filledTables(), Texts{"kvr_geo_pt"});
    EXPECT_EQ(work.rows("SELECT geo_key FROM kvr_geo_pt"), Texts{"3"});
}

TEST_F(DeleteNtcFromDB, AStationWithANullSiteKeyKeepsItselfAndThoseBehindItInItsAntenna)
{
    const auto key = insert(aNotice().withAntennas(2, 1, 3).build());
    work.execute("UPDATE kvr_rx SET geo_key = NULL WHERE rowid = 2");
    remove(key);
    expectFailure({nullUsed});
    EXPECT_EQ(work.rows("SELECT ant_key, geo_key FROM kvr_rx"), (Texts{"1|(null)", "1|4"}));
    EXPECT_EQ(work.rows("SELECT geo_key FROM kvr_geo"), (Texts{"3", "4"}));
    EXPECT_EQ(filledTables(), (Texts{"kvr_geo", "kvr_geo_pt", "kvr_rx"}));
}

TEST_F(DeleteNtcFromDB, AnAntennaWithANullNumberKeepsItselfAndThoseBehindIt)
{
    const auto key = insert(aNotice().withAntennas(3, 1, 1).build());
    work.execute("UPDATE kvr_ant SET ant_key = NULL WHERE ant_key = 2");
    remove(key);
    expectFailure({nullUsed});
    EXPECT_EQ(work.rows("SELECT ant_key FROM kvr_ant"), (Texts{"(null)", "3"}));
    EXPECT_EQ(work.rows("SELECT ant_key FROM kvr_rx"), (Texts{"2", "3"}));
    EXPECT_EQ(work.count("kvr_velda"), 0);
    EXPECT_EQ(work.count("kvr_coord"), 0) << "what comes behind the antennas goes";
}

// Failures of the own steps

TEST_F(DeleteNtcFromDB, AKeyWithoutARowRollsBack)
{
    insert(aNotice("T12", "MODIFY").build());
    const auto before = work.contents();
    remove(99);
    expectFailure({noRow});
    EXPECT_EQ(host.pointers, std::vector<int>{0});
    EXPECT_EQ(work.contents(), before);
    EXPECT_EQ(session::currentGeoKey, 1);
    EXPECT_EQ(session::currentTargetKey, 1);
}

class DeleteWithNull : public DeleteNtcFromDB, public testing::WithParamInterface<const char*>
{};

INSTANTIATE_TEST_SUITE_P(In, DeleteWithNull, testing::Values("geo_key", "stn_type"),
                         [](const auto& row) { return row.param; });

TEST_P(DeleteWithNull, TheNoticeStaysWhole)
{
    const auto key = insert(aNotice("T12", "MODIFY").withAntennas(1, 1, 1).build());
    work.execute(std::string("UPDATE kvr_velda SET ") + GetParam() + " = NULL");
    const auto before = work.contents();
    remove(key);
    expectFailure({nullUsed});
    EXPECT_EQ(work.contents(), before);
    insert(aNotice().build());
    EXPECT_EQ(work.count("kvr_velda"), 2) << "a new transaction can begin";
}
