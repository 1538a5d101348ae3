#include "dao/dao.h"
#include "support/faultyFiles.h"
#include "support/workingDatabase.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

using dao::dbOpenDynaset;
using dao::dbOpenTable;

namespace {

class Transaction : public testing::Test
{
protected:
    void add(const std::string& value, std::size_t length = 0) const
    {
        const auto rows = database->OpenRecordset("kvr_rmks", dbOpenTable);
        rows->AddNew();
        rows->setCollect("veldakey", 1);
        rows->setCollect("rmk_text", value + std::string(length, 'x'));
        rows->Update(dao::dbUpdateRegular, false);
        rows->Close();
    }
    [[nodiscard]] bool isLocked() const
    {
        try {
            work.execute("BEGIN IMMEDIATE; ROLLBACK");
            return false;
        } catch (const std::runtime_error&) {
            return true;
        }
    }

    const FaultyFiles files;
    WorkingDatabase work;
    dao::Ref<dao::Workspace> workspace = dao::DBEngine::Workspaces(0);
    dao::Ref<dao::Database> database = work.open();
};

} // namespace

TEST_F(Transaction, BeginsWithTheFirstWriteAndIsOneOverAllRecordsets)
{
    workspace->BeginTrans();
    static_cast<void>(database->OpenRecordset("SELECT veldakey FROM kvr_velda", dbOpenDynaset)->EOF_());
    EXPECT_FALSE(isLocked());
    add("A");
    EXPECT_TRUE(isLocked());
    add("B");
    EXPECT_EQ(work.count("kvr_rmks"), 0);
    workspace->CommitTrans();
    EXPECT_FALSE(isLocked());
    EXPECT_EQ(work.count("kvr_rmks"), 2);
}

TEST_F(Transaction, NeverBeginsOnAReadOnlyDatabase)
{
    const auto reader = work.open(true);
    workspace->BeginTrans();
    add("A");
    static_cast<void>(reader->OpenRecordset("SELECT veldakey FROM kvr_rmks", dbOpenDynaset)->EOF_());
    workspace->CommitTrans();
    EXPECT_EQ(work.count("kvr_rmks"), 1);
}

TEST_F(Transaction, RollbackUndoesAllOfIt)
{
    workspace->BeginTrans();
    add("A");
    add("B");
    workspace->Rollback();
    EXPECT_EQ(work.count("kvr_rmks"), 0);
    add("C");
    EXPECT_EQ(work.count("kvr_rmks"), 1);
}

TEST_F(Transaction, CommitAndRollbackNeedABeginTrans)
{
    EXPECT_FAILURE(3034, workspace->CommitTrans());
    EXPECT_FAILURE(3034, workspace->Rollback());
}

TEST_F(Transaction, ClosingTheWorkspaceRollsBackAndItCanBeAskedForAgain)
{
    workspace->BeginTrans();
    add("A");
    workspace->Close();
    EXPECT_EQ(work.count("kvr_rmks"), 0);
    EXPECT_FAILURE(3420, workspace->BeginTrans());
    const auto again = dao::DBEngine::Workspaces(0);
    again->BeginTrans();
    add("B");
    again->CommitTrans();
    EXPECT_EQ(work.count("kvr_rmks"), 1);
}

TEST_F(Transaction, ClosingTheDatabaseInTheMiddleRollsItsPartBack)
{
    workspace->BeginTrans();
    add("A");
    database->Close();
    workspace->CommitTrans();
    EXPECT_EQ(work.count("kvr_rmks"), 0);
}

TEST_F(Transaction, AnOrdinaryRowErrorLeavesItAlive)
{
    work.execute("INSERT INTO kvr_velda (veldakey) VALUES (7)");
    workspace->BeginTrans();
    add("A");
    const auto rows = database->OpenRecordset("kvr_velda", dbOpenTable);
    rows->AddNew();
    rows->setCollect("veldakey", 7);
    EXPECT_FAILURE(3022, rows->Update(dao::dbUpdateRegular, false));
    add("B");
    workspace->CommitTrans();
    EXPECT_EQ(work.count("kvr_rmks"), 2);
}

TEST_F(Transaction, AKeyReadUnderEditIsTheOneThatTheTransactionSees)
{
    const auto rows = database->OpenRecordset("kvr_keys", dbOpenTable);
    work.execute("UPDATE kvr_keys SET veldakey = 50"); // another process draws keys
    workspace->BeginTrans();
    rows->Edit();
    EXPECT_TRUE(isLocked());
    EXPECT_EQ(rows->Fields("veldakey"), std::int32_t{50});
    workspace->Rollback();
}

class DoomedBy : public Transaction, public testing::WithParamInterface<int>
{};

INSTANTIATE_TEST_SUITE_P(EngineErrors, DoomedBy, testing::Values(SQLITE_FULL, SQLITE_IOERR_WRITE));

TEST_P(DoomedBy, AnErrorThatEndsTheTransactionStoresNothingOfIt)
{
    workspace->BeginTrans();
    FaultyFiles::failWrite(1, GetParam());
    bool failed = false;
    try {
        // Enough to make the engine write before the commit.
        for (int number = 0; number < 2000; ++number)
            add("before", 3000);
    } catch (const platform::RuntimeError&) {
        failed = true;
    }
    ASSERT_TRUE(failed);
    const int number = GetParam() == SQLITE_FULL ? 3026 : 3043;
    // The disk is well again, but what was written before is gone: going on would store half a notice.
    EXPECT_FAILURE(number, add("after"));
    EXPECT_FAILURE(number, workspace->CommitTrans());
    workspace->Rollback();
    EXPECT_EQ(work.count("kvr_rmks"), 0);
    workspace->BeginTrans();
    add("next");
    workspace->CommitTrans();
    EXPECT_EQ(work.count("kvr_rmks"), 1);
}

TEST_P(DoomedBy, AFailingCommitStoresNothingAndTheNextTransactionIsRight)
{
    workspace->BeginTrans();
    add("A");
    FaultyFiles::failWrite(1, GetParam(), true);
    EXPECT_ANY_THROW(workspace->CommitTrans());
    workspace->Rollback();
    FaultyFiles::heal();
    EXPECT_EQ(work.count("kvr_rmks"), 0);
    add("B");
    EXPECT_EQ(work.scalar("SELECT rmk_text FROM kvr_rmks"), "B");
    EXPECT_EQ(work.scalar("PRAGMA integrity_check"), "ok");
}

TEST_F(Transaction, ABulkLoadLeavesOneSingleFile)
{
    database->beginBulkLoad({});
    workspace->BeginTrans();
    add("A");
    workspace->CommitTrans();
    database->Close();
    EXPECT_FALSE(std::filesystem::exists(work.path() + "-journal"));
    EXPECT_EQ(work.count("kvr_rmks"), 1);
}

TEST_F(Transaction, OutsideABulkLoadEachCommitLeavesOneSingleFile)
{
    workspace->BeginTrans();
    add("A");
    workspace->CommitTrans();
    EXPECT_FALSE(std::filesystem::exists(work.path() + "-journal"));
}
