#include "dao/databaseFile.h"
#include "dao/dao.h"
#include "platform/paths.h"
#include "support/workingDatabase.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

std::string master()
{
    return platform::programDirectory() + "/MasterKVR_QRS.mdb";
}

void expectFresh(const WorkingDatabase& work)
{
    EXPECT_EQ(work.scalar("PRAGMA integrity_check"), "ok");
    EXPECT_EQ(work.count("kvr_rmks"), 0);
    EXPECT_EQ(work.scalar("SELECT * FROM kvr_keys"), "1|1|1");
    EXPECT_FALSE(work.open()->OpenRecordset("kvr_keys", dao::dbOpenTable)->EOF_());
}

void fill(const WorkingDatabase& work)
{
    for (int number = 0; number < 50; ++number)
        work.execute("INSERT INTO kvr_rmks VALUES (1, '" + std::string(3000, 'x') + "')");
}

} // namespace

TEST(CopyDatabaseFile, GivesADatabaseWithAllTablesAndOneRowOfCounters)
{
    const WorkingDatabase work;
    expectFresh(work);
    for (const auto& table : noticeTables())
        EXPECT_EQ(work.count(table), 0) << table;
}

TEST(CopyDatabaseFile, ReplacesWhateverDatabaseStandsThere)
{
    const WorkingDatabase work;
    fill(work);
    dao::copyDatabaseFile(master(), work.path());
    expectFresh(work);
}

TEST(CopyDatabaseFile, ReplacesWhateverOtherFileStandsThere)
{
    const WorkingDatabase work;
    for (const auto& bytes : {std::string("no database"), std::string(), std::string(9000, 'x')}) {
        static_cast<void>(work.folder().write("work.mdb", bytes));
        dao::copyDatabaseFile(master(), work.path());
        expectFresh(work);
    }
}

TEST(CopyDatabaseFile, ReplacesADatabaseOfAnotherPageSizeThatWritesAheadAndLeavesOneSingleFile)
{
    const WorkingDatabase work;
    for (const auto* size : {"1024", "4096", "16384"}) {
        fs::remove(work.path());
        static_cast<void>(work.folder().write("work.mdb", ""));
        work.execute(std::string("PRAGMA page_size=") + size +
                     "; PRAGMA journal_mode=WAL; CREATE TABLE other (x); INSERT INTO other VALUES (1)");
        dao::copyDatabaseFile(master(), work.path());
        expectFresh(work);
        EXPECT_EQ(work.scalar("PRAGMA journal_mode"), "delete") << size;
        EXPECT_FALSE(fs::exists(work.path() + "-wal"));
    }
}

TEST(CopyDatabaseFile, LeavesNothingHalfDoneBesideAFileThatCannotBeReplaced)
{
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "work.mdb-journal"); // can't be removed: it holds something
    static_cast<void>(folder.write("work.mdb-journal/inside", "x"));
    static_cast<void>(folder.write("work.mdb", "no database"));
    EXPECT_FAILURE(70, dao::copyDatabaseFile(master(), folder.file("work.mdb")));
    EXPECT_EQ(folder.read("work.mdb"), "no database");
    EXPECT_FALSE(fs::exists(folder.file("work.mdb.new")));
}

TEST(CopyDatabaseFile, AStaleJournalIsNeverRolledIntoTheCopy)
{
    // A journal of a transaction that was under way in the old file, in all that may have become of that
    // file.
    const WorkingDatabase work;
    fill(work);
    std::string journal, halfWritten;
    {
        const auto writer = work.open();
        const auto workspace = dao::DBEngine::Workspaces(0);
        workspace->BeginTrans();
        const auto rows = writer->OpenRecordset("SELECT rmk_text FROM kvr_rmks", dao::dbOpenDynaset);
        for (; !rows->EOF_(); rows->MoveNext()) {
            rows->Edit();
            rows->setCollect("rmk_text", std::string(200'000, 'y'));
            rows->Update(dao::dbUpdateRegular, false);
        }
        journal = work.folder().read("work.mdb-journal");
        halfWritten = work.folder().read("work.mdb");
        workspace->Rollback();
    }
    ASSERT_GT(journal.size(), 4096U);
    const std::vector<std::string> remains = {halfWritten, "", "no database", halfWritten.substr(0, 6000)};
    for (const auto& remain : remains) {
        static_cast<void>(work.folder().write("work.mdb", remain));
        static_cast<void>(work.folder().write("work.mdb-journal", journal));
        dao::copyDatabaseFile(master(), work.path());
        EXPECT_FALSE(fs::exists(work.path() + "-journal"));
        expectFresh(work);
    }
    fs::remove(work.path());
    static_cast<void>(work.folder().write("work.mdb-journal", journal));
    dao::copyDatabaseFile(master(), work.path());
    expectFresh(work);
}

TEST(CopyDatabaseFile, OverAFileThatIsBeingWrittenItFailsAndHarmsNothing)
{
    const WorkingDatabase work;
    const auto writer = work.open();
    const auto workspace = dao::DBEngine::Workspaces(0);
    workspace->BeginTrans();
    const auto rows = writer->OpenRecordset("kvr_rmks", dao::dbOpenTable);
    rows->AddNew();
    rows->setCollect("rmk_text", "A");
    rows->Update(dao::dbUpdateRegular, false);
    EXPECT_FAILURE(3045, dao::copyDatabaseFile(master(), work.path()));
    workspace->CommitTrans();
    EXPECT_EQ(work.count("kvr_rmks"), 1);
    EXPECT_EQ(work.scalar("PRAGMA integrity_check"), "ok");
}

TEST(CopyDatabaseFile, WithoutASourceTheTargetStays)
{
    const WorkingDatabase work;
    fill(work);
    EXPECT_FAILURE(53, dao::copyDatabaseFile(work.folder().file("nothing.mdb"), work.path()));
    EXPECT_EQ(work.count("kvr_rmks"), 50);
}

TEST(CopyDatabaseFile, OntoItselfIsDenied)
{
    const WorkingDatabase work;
    fill(work);
    EXPECT_FAILURE(70, dao::copyDatabaseFile(work.path(), work.path()));
    EXPECT_EQ(work.count("kvr_rmks"), 50);
}

TEST(CopyDatabaseFile, IntoAFolderThatIsMissingIsAPathError)
{
    const TemporaryFolder folder;
    EXPECT_FAILURE(75, dao::copyDatabaseFile(master(), folder.file("missing/work.mdb")));
    EXPECT_FAILURE(75, dao::copyDatabaseFile(master(), folder.path().string()));
    EXPECT_TRUE(fs::is_empty(folder.path()));
}
