#include "support/faultyFiles.h"
#include "support/noticeDatabase.h"

#include <sqlite3.h>

namespace {

using Texts = std::vector<std::string>;

Ntc fullNotice()
{
    return aNotice("T12", "MODIFY").withAntennas(3, 2, 2).withPoints(3).build();
}

} // namespace

class InsertWithout : public NoticeDatabase, public testing::WithParamInterface<const char*>
{};

INSTANTIATE_TEST_SUITE_P(Table, InsertWithout,
                         testing::Values("kvr_geo", "kvr_geo_pt", "kvr_target", "kvr_rmks", "kvr_ant",
                                         "kvr_rot", "kvr_rx", "kvr_call_sign", "kvr_nat_serv", "kvr_op_agcy",
                                         "kvr_coord"),
                         [](const auto& row) { return row.param; });

TEST_P(InsertWithout, TheOtherTablesAreCommittedAndOnlyTheMessageTells)
{
    const std::string missing = GetParam();
    insert(fullNotice());
    work.execute("DROP TABLE " + missing);
    insert(fullNotice());
    ASSERT_FALSE(host.messages.empty());
    for (const auto& message : host.messages)
        EXPECT_EQ(message.substr(0, 13), "Error 3078 : ") << message;
    EXPECT_EQ(session::dbStatus, "");
    EXPECT_EQ(work.count("kvr_velda"), 2);
    EXPECT_EQ(work.scalar("SELECT veldakey FROM kvr_keys"), "3");
    // The last list and the first: whatever fails, the tables before and behind it are written.
    EXPECT_EQ(work.count(missing == "kvr_coord" ? "kvr_op_agcy" : "kvr_coord"),
              missing == "kvr_coord" ? 12 : 22);
}

TEST_F(NoticeDatabase, WithoutTheTableOfNoticesInsertRollsBack)
{
    work.execute("DROP TABLE kvr_velda");
    insert(fullNotice());
    EXPECT_EQ(host.messages.size(), 1U);
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    EXPECT_EQ(work.scalar("SELECT * FROM kvr_keys"), "1|1|1");
    EXPECT_EQ(work.count("kvr_geo"), 0);
}

struct Fault
{
    const char* name;
    int resultCode;
    bool bulkLoad;
};

class EveryWriteFailing : public NoticeDatabase, public testing::WithParamInterface<Fault>
{};

INSTANTIATE_TEST_SUITE_P(With, EveryWriteFailing,
                         testing::Values(Fault{"fullDisk", SQLITE_FULL, false},
                                         Fault{"inputOutputError", SQLITE_IOERR_WRITE, false},
                                         Fault{"fullDiskDuringALoad", SQLITE_FULL, true},
                                         Fault{"inputOutputErrorDuringALoad", SQLITE_IOERR_WRITE, true}),
                         [](const auto& row) { return row.param.name; });

TEST_P(EveryWriteFailing, ANoticeIsStoredWholeOrNotAtAllAndTheNextOneIsRight)
{
    database->Close();
    const FaultyFiles files;
    int provoked = 0;
    for (int write = 1;; ++write) {
        const WorkingDatabase fresh;
        const auto target = fresh.open();
        if (GetParam().bulkLoad)
            target->beginBulkLoad({});
        host.messages.clear();
        session::dbStatus.clear();
        FaultyFiles::failWrite(write, GetParam().resultCode);
        writeNtcToDB::insertNtc(fullNotice(), workspace, target);
        const bool failed = FaultyFiles::hasFailed();
        FaultyFiles::heal();
        provoked += failed ? 1 : 0;
        // A journal's last bytes may fail to be cleared behind a commit that stands: then nothing is lost.
        const bool stored = session::dbStatus.empty();
        EXPECT_EQ(fresh.count("kvr_velda"), stored ? 1 : 0) << "write " << write;
        EXPECT_EQ(fresh.count("kvr_rx"), stored ? 6 : 0) << "write " << write;
        EXPECT_EQ(fresh.count("kvr_geo_pt"), stored ? 9 : 0) << "write " << write;
        EXPECT_EQ(host.messages.empty(), stored) << "write " << write;
        writeNtcToDB::insertNtc(fullNotice(), workspace, target);
        EXPECT_EQ(fresh.count("kvr_velda"), stored ? 2 : 1) << "write " << write;
        EXPECT_EQ(fresh.count("kvr_rx"), stored ? 12 : 6) << "write " << write;
        target->Close();
        EXPECT_EQ(fresh.scalar("PRAGMA integrity_check"), "ok");
        if (!failed)
            break;
    }
    EXPECT_GT(provoked, 5);
}

TEST_F(NoticeDatabase, ADiskThatStaysFullShowsItsMessageForEachNoticeAndStoresNone)
{
    insert(fullNotice());
    database->Close();
    const FaultyFiles files;
    const auto target = work.open();
    FaultyFiles::failWrite(1, SQLITE_FULL, true);
    writeNtcToDB::insertNtc(fullNotice(), workspace, target);
    writeNtcToDB::insertNtc(fullNotice(), workspace, target);
    FaultyFiles::heal();
    EXPECT_EQ(work.count("kvr_velda"), 1);
    EXPECT_EQ(host.messages.back(), "Error 3026 : Not enough space on disk.");
}

TEST_F(NoticeDatabase, ALockedDatabaseShowsItsMessageAndNothingIsStored)
{
    const auto other = work.open();
    const auto rows = other->OpenRecordset("SELECT veldakey FROM kvr_keys", dao::dbOpenDynaset);
    insert(aNotice().build()); // can't be committed while somebody reads
    EXPECT_EQ(host.messages, Texts{"Error 3045 : Could not use '" + work.path() + "'; file already in use."});
    EXPECT_EQ(session::dbStatus, "ERROR_DB");
    rows->Close();
    EXPECT_EQ(work.count("kvr_velda"), 0);
}
