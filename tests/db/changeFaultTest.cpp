#include "platform/hostFormat.h"
#include "support/faultyFiles.h"
#include "support/noticeDatabase.h"

#include <sqlite3.h>

#include <algorithm>

namespace {

using Texts = std::vector<std::string>;

enum class Kind : std::uint8_t
{
    Update,
    Delete
};

Ntc fullNotice()
{
    return aNotice("T12", "MODIFY").withAntennas(3, 2, 2).withPoints(3).build();
}

Ntc changedNotice()
{
    auto ntc = aNotice("T12", "SUPPRESS").withAntennas(2, 3, 3).withPoints(2).build();
    ntc.geo.ctry = "CHANGED";
    ntc.target.trg_adm_ref_id = "CHANGED";
    ntc.rmk_text = "changed";
    ntc.call_sign[0] = "CHANGED";
    ntc.nat_srv[0] = "CHANGED";
    ntc.op_agcy[0] = "CHANGED";
    ntc.coord.adm[0] = "CHANGED";
    return ntc;
}

void run(Kind kind, const dao::Ref<dao::Workspace>& workspace, const dao::Ref<dao::Database>& database)
{
    session::currentVeldaKey = 1;
    auto ntc = changedNotice();
    if (kind == Kind::Update)
        updateNtcInDB::updateNtc(1, ntc, workspace, database);
    else
        deleteNtcFromDB::deleteNtc(1, workspace, database);
}

// A database that holds the full notice, and one publication of it.
void fill(const WorkingDatabase& work, const dao::Ref<dao::Workspace>& workspace)
{
    const auto database = work.open();
    writeNtcToDB::insertNtc(fullNotice(), workspace, database);
    database->Close();
    work.execute("INSERT INTO kvr_pub_hist VALUES (1, '2500')");
}

// From now on no row of the table that the condition holds for can be changed or deleted: the engine can't
// work out its place in an index.
void refuse(const WorkingDatabase& work, const std::string& table, const std::string& condition)
{
    work.execute("CREATE INDEX refuse ON " + table + " (abs(-9223372036854775807 - 0 * (" + condition +
                 "))); PRAGMA writable_schema = ON; "
                 "UPDATE sqlite_schema SET sql = replace(sql, '0 * ', '') WHERE name = 'refuse'");
}

Texts tablesWithout(const Texts& left)
{
    auto tables = noticeTables();
    std::erase_if(tables,
                  [&left](const auto& table) { return std::ranges::find(left, table) != left.end(); });
    return tables;
}

class Change : public NoticeDatabase
{
protected:
    Change()
    {
        platform::setClock(platform::LocalTime{2026, 4, 5, 10, 11, 12});
        fill(work, workspace);
    }
    void TearDown() override { platform::setClock({}); }

    // What the tables hold when nothing fails.
    Texts expected(Kind kind, const Texts& tables)
    {
        const WorkingDatabase other;
        fill(other, workspace);
        const auto opened = other.open();
        run(kind, workspace, opened);
        opened->Close();
        return other.contents(tables);
    }

    void expectAllMessages(int number)
    {
        ASSERT_FALSE(host.messages.empty());
        const auto start = "Error " + std::to_string(number) + " : ";
        for (const auto& message : host.messages)
            EXPECT_EQ(message.substr(0, start.size()), start) << message;
    }
};

// Notes how the session is marked while a message is shown.
class MarkWatcher : public FakeHost
{
public:
    platform::Answer msgBox(const std::string& text, platform::Buttons buttons, platform::Icon icon,
                            const std::string& title) override
    {
        marks.push_back(session::dbStatus);
        return FakeHost::msgBox(text, buttons, icon, title);
    }

    Texts marks;
};

struct Missing
{
    const char* table;
    Kind kind;
    int messages;
    Texts touched; // the other tables in which not all is done then
};

struct Refused
{
    const char* name;
    Kind kind;
    const char* table;
    const char* row; // the condition of the one that is refused
    Texts left;      // the rows of the table afterwards
};

struct Fault
{
    Kind kind;
    const char* name;
    int resultCode;
};

std::string nameOf(Kind kind)
{
    return kind == Kind::Update ? "update" : "delete";
}

} // namespace

// Tables that fail

class ChangeWithout : public Change, public testing::WithParamInterface<Missing>
{};

INSTANTIATE_TEST_SUITE_P(
    Table, ChangeWithout,
    testing::Values(
        // Own site; six old stations; five, three an antenna, that come anew and get no points.
        Missing{"kvr_geo", Kind::Update, 13, {"kvr_geo_pt"}},
        // Own site; six old stations, whose sites go; six new ones.
        Missing{"kvr_geo_pt", Kind::Update, 13, {}}, Missing{"kvr_target", Kind::Update, 1, {}},
        Missing{"kvr_rmks", Kind::Update, 1, {}},
        Missing{"kvr_ant", Kind::Update, 1, {"kvr_rot", "kvr_rx", "kvr_geo", "kvr_geo_pt"}},
        // Three antennas are emptied; each of the two new ones ends there and has no stations.
        Missing{"kvr_rot", Kind::Update, 5, {"kvr_rx", "kvr_geo", "kvr_geo_pt"}},
        // The sites of the old stations stay, new ones do not come.
        Missing{"kvr_rx", Kind::Update, 5, {"kvr_geo", "kvr_geo_pt"}},
        Missing{"kvr_call_sign", Kind::Update, 1, {}}, Missing{"kvr_nat_serv", Kind::Update, 1, {}},
        Missing{"kvr_op_agcy", Kind::Update, 1, {}}, Missing{"kvr_coord", Kind::Update, 1, {}},
        Missing{"kvr_geo", Kind::Delete, 7, {"kvr_geo_pt"}}, Missing{"kvr_geo_pt", Kind::Delete, 7, {}},
        Missing{"kvr_target", Kind::Delete, 1, {}}, Missing{"kvr_rmks", Kind::Delete, 1, {}},
        Missing{"kvr_ant", Kind::Delete, 1, {"kvr_rot", "kvr_rx", "kvr_geo", "kvr_geo_pt"}},
        Missing{"kvr_rot", Kind::Delete, 3, {}},
        Missing{"kvr_rx", Kind::Delete, 3, {"kvr_geo", "kvr_geo_pt"}},
        Missing{"kvr_call_sign", Kind::Delete, 1, {}}, Missing{"kvr_nat_serv", Kind::Delete, 1, {}},
        Missing{"kvr_op_agcy", Kind::Delete, 1, {}}, Missing{"kvr_coord", Kind::Delete, 1, {}},
        Missing{"kvr_pub_hist", Kind::Delete, 1, {}}),
    [](const auto& row) { return nameOf(row.param.kind) + "_" + row.param.table; });

TEST_P(ChangeWithout, TheOtherTablesAreCommittedAndMessageAndMarkTell)
{
    const auto& missing = GetParam();
    auto left = missing.touched;
    left.emplace_back(missing.table);
    const auto others = tablesWithout(left);
    const auto expectedRows = expected(missing.kind, others);
    work.execute(std::string("DROP TABLE ") + missing.table);
    run(missing.kind, workspace, database);
    expectAllMessages(3078);
    EXPECT_EQ(host.messages.size(), static_cast<std::size_t>(missing.messages));
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    EXPECT_EQ(work.contents(others), expectedRows);
    if (missing.kind == Kind::Delete || std::string(missing.table) == "kvr_ant") {
        for (const auto& table : missing.touched)
            EXPECT_GT(work.count(table), 0) << table;
    }
}

class ChangeOf : public Change, public testing::WithParamInterface<Kind>
{};

INSTANTIATE_TEST_SUITE_P(One, ChangeOf, testing::Values(Kind::Update, Kind::Delete),
                         [](const auto& row) { return nameOf(row.param); });

TEST_P(ChangeOf, WithoutTheTableOfNoticesEverythingRollsBack)
{
    work.execute("DROP TABLE kvr_velda");
    auto all = tablesWithout({"kvr_velda"});
    all.emplace_back("kvr_keys");
    const auto before = work.contents(all);
    run(GetParam(), workspace, database);
    expectAllMessages(3078);
    EXPECT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    EXPECT_EQ(work.contents(all), before);
}

TEST_F(Change, AnUpdateWithoutCountersFailsInItsInsertersAloneAndDoesNotMarkTheSession)
{
    work.execute("DROP TABLE kvr_keys");
    run(Kind::Update, workspace, database);
    // Each station gets no key, and is stored under that of the notice's own site, which stands already.
    EXPECT_EQ(host.messages.size(), 12U);
    EXPECT_EQ(host.messages.at(0).substr(0, 13), "Error 3078 : ");
    EXPECT_EQ(host.messages.at(1).substr(0, 13), "Error 3022 : ");
    EXPECT_EQ(session::dbStatus, "");
    EXPECT_EQ(work.rows("SELECT DISTINCT geo_key FROM kvr_rx"), Texts{"1"});
    EXPECT_EQ(work.count("kvr_rx"), 6);
}

TEST_P(ChangeOf, TheSessionIsMarkedBehindTheMessageOfTheWholeAndBeforeThatOfATable)
{
    MarkWatcher watcher;
    work.execute("DROP TABLE kvr_coord");
    run(GetParam(), workspace, database);
    EXPECT_EQ(watcher.marks, Texts{"ERROR_DB"});
    session::dbStatus.clear();
    work.execute("DROP TABLE kvr_velda");
    run(GetParam(), workspace, database);
    EXPECT_EQ(watcher.marks, (Texts{"ERROR_DB", ""}));
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
}

// A statement that fails in the midst of a table

class ChangeRefused : public Change, public testing::WithParamInterface<Refused>
{};

INSTANTIATE_TEST_SUITE_P(
    By, ChangeRefused,
    testing::Values(
        Refused{"theFourthCallSignOfAnUpdate",
                Kind::Update,
                "kvr_call_sign",
                "call_sign = 'CALL3'",
                {"4|1|CALL3", "5|1|CALL4", "6|1|CALL5"}},
        Refused{"theFourthCallSignOfADelete",
                Kind::Delete,
                "kvr_call_sign",
                "call_sign = 'CALL3'",
                {"4|1|CALL3", "5|1|CALL4", "6|1|CALL5"}},
        Refused{"theRemarksOfAnUpdate", Kind::Update, "kvr_rmks", "veldakey = 1", {"1|1|first;second"}},
        Refused{"theRemarksOfADelete", Kind::Delete, "kvr_rmks", "veldakey = 1", {"1|1|first;second"}},
        Refused{"theFifthStationOfADelete",
                Kind::Delete,
                "kvr_rx",
                "geo_key = 6",
                {"5|1|3|6|290", "6|1|3|7|291"}},
        Refused{"thePublicationOfADelete", Kind::Delete, "kvr_pub_hist", "veldakey = 1", {"1|1|2500"}}),
    [](const auto& row) { return row.param.name; });

TEST_P(ChangeRefused, WhatWasDoneBeforeItStandsAndTheRestOfTheNoticeToo)
{
    const auto& refused = GetParam();
    const auto others = tablesWithout({refused.table, "kvr_geo", "kvr_geo_pt"});
    const auto expectedRows = expected(refused.kind, others);
    refuse(work, refused.table, refused.row);
    run(refused.kind, workspace, database);
    EXPECT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    EXPECT_EQ(work.rows(std::string("SELECT rowid, * FROM ") + refused.table), refused.left);
    EXPECT_EQ(work.contents(others), expectedRows);
}

TEST_F(Change, AnUpdateWhoseSiteIsRefusedLeavesItsPointsAndStoresTheRest)
{
    refuse(work, "kvr_geo", "ctry = 'ctry OWN'");
    const auto points = work.rows("SELECT rowid, * FROM kvr_geo_pt WHERE geo_key = 1");
    run(Kind::Update, workspace, database);
    EXPECT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    EXPECT_EQ(work.rows("SELECT rowid, * FROM kvr_geo_pt WHERE geo_key = 1"), points);
    EXPECT_EQ(work.scalar("SELECT intent FROM kvr_velda"), "SUPPRESS");
    EXPECT_EQ(work.scalar("SELECT trg_adm_ref_id FROM kvr_target"), "CHANGED");
}

TEST_F(Change, AnUpdateWhoseTargetIsRefusedStoresTheRest)
{
    refuse(work, "kvr_target", "trg_zone_id = 'trg_zone_id t'");
    const auto target = work.contents({"kvr_target"});
    const auto others = tablesWithout({"kvr_target"});
    const auto expectedRows = expected(Kind::Update, others);
    run(Kind::Update, workspace, database);
    EXPECT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    EXPECT_EQ(work.contents({"kvr_target"}), target);
    EXPECT_EQ(work.contents(others), expectedRows);
}

TEST_P(ChangeOf, ANoticeWhoseOwnRowIsRefusedRollsBack)
{
    refuse(work, "kvr_velda", "adm = 'adm 0'");
    const auto before = work.contents();
    run(GetParam(), workspace, database);
    EXPECT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    EXPECT_EQ(work.contents(), before);
}

TEST_F(Change, AnUpdateWhoseInserterFailsHalfWayKeepsWhatItInsertedAndDoesNotMarkTheSession)
{
    work.execute("INSERT INTO kvr_call_sign VALUES (99, 'TAKEN'); "
                 "CREATE UNIQUE INDEX refuse ON kvr_call_sign (call_sign)");
    const auto others = tablesWithout({"kvr_call_sign"});
    const auto expectedRows = expected(Kind::Update, others);
    auto ntc = changedNotice();
    ntc.call_sign[3] = "taken";
    update(1, ntc);
    expectAllMessages(3022);
    EXPECT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(session::dbStatus, "");
    EXPECT_EQ(work.rows("SELECT call_sign FROM kvr_call_sign WHERE veldakey = 1"),
              (Texts{"CHANGED", "CALL1", "CALL2"}));
    EXPECT_EQ(work.contents(others), expectedRows);
}

// The n-th write that fails

struct Outcomes
{
    Texts before, after; // all that the database holds
};

class EveryWriteOfAChange : public Change, public testing::WithParamInterface<Fault>
{
protected:
    // False when the change had been done before that write.
    bool failingWriteIsSurvived(int write, const Outcomes& outcomes)
    {
        SCOPED_TRACE(write);
        const WorkingDatabase fresh;
        fill(fresh, workspace);
        const auto target = fresh.open();
        host.messages.clear();
        session::dbStatus.clear();
        FaultyFiles::failWrite(write, GetParam().resultCode);
        run(GetParam().kind, workspace, target);
        const bool failed = FaultyFiles::hasFailed();
        FaultyFiles::heal();
        // A journal's last bytes may fail to be cleared behind a commit that stands: then nothing is lost.
        const bool stored = session::dbStatus.empty();
        EXPECT_EQ(fresh.contents(), stored ? outcomes.after : outcomes.before);
        EXPECT_EQ(host.messages.empty(), stored);
        if (!stored)
            run(GetParam().kind, workspace, target);
        EXPECT_EQ(fresh.contents(), outcomes.after);
        target->Close();
        EXPECT_EQ(fresh.scalar("PRAGMA integrity_check"), "ok");
        return failed;
    }
};

INSTANTIATE_TEST_SUITE_P(With, EveryWriteOfAChange,
                         testing::Values(Fault{Kind::Update, "FullDisk", SQLITE_FULL},
                                         Fault{Kind::Update, "InputOutputError", SQLITE_IOERR_WRITE},
                                         Fault{Kind::Delete, "FullDisk", SQLITE_FULL},
                                         Fault{Kind::Delete, "InputOutputError", SQLITE_IOERR_WRITE}),
                         [](const auto& row) { return nameOf(row.param.kind) + row.param.name; });

TEST_P(EveryWriteOfAChange, AChangeIsStoredWholeOrNotAtAllAndCanBeDoneAgain)
{
    const Outcomes outcomes = {work.contents(), expected(GetParam().kind, {})};
    ASSERT_NE(outcomes.before, outcomes.after);
    database->Close();
    const FaultyFiles files;
    int write = 1;
    while (failingWriteIsSurvived(write, outcomes))
        ++write;
    EXPECT_GT(write, 5);
}

TEST_P(ChangeOf, ADiskThatStaysFullLeavesTheNoticeAsItWas)
{
    const auto before = work.contents();
    database->Close();
    const FaultyFiles files;
    const auto target = work.open();
    FaultyFiles::failWrite(1, SQLITE_FULL, true);
    run(GetParam(), workspace, target);
    FaultyFiles::heal();
    EXPECT_EQ(host.messages.back(), "Error 3026 : Not enough space on disk.");
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    EXPECT_EQ(work.contents(), before);
}

TEST_P(ChangeOf, ADatabaseThatSomebodyReadsShowsItsMessageAndStaysAsItWas)
{
    const auto before = work.contents();
    const auto other = work.open();
    const auto rows = other->OpenRecordset("SELECT call_sign FROM kvr_call_sign", dao::dbOpenDynaset);
    run(GetParam(), workspace, database);
    EXPECT_EQ(host.messages, Texts{"Error 3045 : Could not use '" + work.path() + "'; file already in use."});
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    rows->Close();
    EXPECT_EQ(work.contents(), before);
    run(GetParam(), workspace, database);
    EXPECT_EQ(host.messages.size(), 1U) << "and afterwards it can be done";
}

TEST_P(ChangeOf, ADatabaseOpenedForReadingRollsBack)
{
    const auto before = work.contents();
    const auto readOnly = work.open(true);
    run(GetParam(), workspace, readOnly);
    EXPECT_EQ(host.messages, Texts{"Error 3027 : Cannot update.  Database or object is read-only."});
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    EXPECT_EQ(work.contents(), before);
}
