#include "dao/dao.h"
#include "support/faultyFiles.h"
#include "support/workingDatabase.h"

#include <gtest/gtest.h>

#include <fstream>

using dao::dbOpenDynaset;
using dao::dbOpenTable;

namespace {

std::string bytesOf(const WorkingDatabase& work)
{
    return work.folder().read("work.mdb");
}

void open(const std::string& path)
{
    static_cast<void>(dao::DBEngine::OpenDatabase(path, false, false));
}

} // namespace

TEST(OpenDatabase, AMissingFileIsNotFound)
{
    const TemporaryFolder folder;
    EXPECT_FAILURE(3024, open(folder.file("nothing.mdb")));
    EXPECT_FALSE(std::filesystem::exists(folder.file("nothing.mdb")));
}

TEST(OpenDatabase, AFileThatIsNoDatabaseHasAnUnrecognizedFormat)
{
    const TemporaryFolder folder;
    EXPECT_FAILURE(3343, open(folder.write("text.mdb", std::string(5000, 'x'))));
    EXPECT_FAILURE(3343, open(folder.write("short.mdb", "x")));
    EXPECT_FAILURE(3343, open(folder.write("empty.mdb", "")));
}

TEST(OpenDatabase, AFolderCannotBeOpened)
{
    const TemporaryFolder folder;
    EXPECT_FAILURE(3051, open(folder.path().string()));
}

TEST(OpenDatabase, ADatabaseOfAnotherProgramHasAnUnrecognizedFormat)
{
    const WorkingDatabase work;
    work.execute("PRAGMA application_id=1");
    EXPECT_FAILURE(3343, open(work.path()));
}

TEST(OpenDatabase, ADatabaseWithoutATableFailsWhereTheTableIsUsed)
{
    const WorkingDatabase work;
    work.execute("DROP TABLE kvr_rmks");
    const auto database = work.open();
    EXPECT_FAILURE(3078, static_cast<void>(database->OpenRecordset("kvr_rmks", dbOpenTable)));
    EXPECT_FAILURE(
        3078, static_cast<void>(database->OpenRecordset("SELECT rmk_text FROM kvr_rmks", dbOpenDynaset)));
}

TEST(OpenDatabase, ADamagedFileGivesTheEnginesNumberAndNeverACrash)
{
    const WorkingDatabase work;
    for (int number = 0; number < 200; ++number)
        work.execute("INSERT INTO kvr_call_sign VALUES (1, 'call " + std::to_string(number) + "')");
    const auto whole = bytesOf(work);
    int damagedReads = 0;
    for (std::size_t place = 100; place < whole.size(); place += 509) {
        auto bytes = whole;
        for (std::size_t index = place; index < std::min(place + 300, bytes.size()); ++index)
            bytes[index] = static_cast<char>(bytes[index] ^ 0x5a);
        std::ofstream(work.path(), std::ios::binary) << bytes;
        try {
            const auto database = work.open();
            const auto rows = database->OpenRecordset("SELECT call_sign FROM kvr_call_sign", dbOpenDynaset);
            for (; !rows->EOF_(); rows->MoveNext())
                static_cast<void>(rows->Fields("call_sign"));
        } catch (const platform::RuntimeError& failure) {
            ++damagedReads;
            EXPECT_NE(failure.number, 3000) << failure.what();
        }
    }
    EXPECT_GT(damagedReads, 0);
}

TEST(OpenDatabase, ATruncatedFileIsDamaged)
{
    const WorkingDatabase work;
    const auto whole = bytesOf(work);
    std::ofstream(work.path(), std::ios::binary) << whole.substr(0, whole.size() / 2);
    EXPECT_FAILURE(3049, {
        const auto database = work.open();
        static_cast<void>(database->OpenRecordset("SELECT call_sign FROM kvr_call_sign", dbOpenDynaset));
    });
}

TEST(OpenDatabase, TriggersAndViewsOfAFileDoNotRun)
{
    const WorkingDatabase work;
    work.execute("CREATE TRIGGER evil AFTER INSERT ON kvr_call_sign BEGIN DELETE FROM kvr_keys; END");
    work.execute("CREATE VIEW lie AS SELECT * FROM kvr_keys");
    const auto database = work.open();
    const auto rows = database->OpenRecordset("kvr_call_sign", dbOpenTable);
    rows->AddNew();
    rows->setCollect("call_sign", "A");
    rows->Update(dao::dbUpdateRegular, false);
    EXPECT_EQ(work.count("kvr_keys"), 1);
    EXPECT_ANY_THROW(static_cast<void>(database->OpenRecordset("SELECT geo_key FROM lie", dbOpenDynaset)));
}

TEST(OpenDatabase, AFileThatIsLockedByAnotherIsInUse)
{
    const WorkingDatabase work;
    const auto database = work.open();
    const auto other = work.open();
    const auto workspace = dao::DBEngine::Workspaces(0);
    // The workspace of the test's own transaction holds the write lock through `other`.
    workspace->BeginTrans();
    const auto rows = other->OpenRecordset("kvr_call_sign", dbOpenTable);
    rows->AddNew();
    rows->setCollect("call_sign", "A");
    rows->Update(dao::dbUpdateRegular, false);
    const auto blocked = database->OpenRecordset("kvr_call_sign", dbOpenTable);
    blocked->AddNew();
    blocked->setCollect("call_sign", "B");
    EXPECT_FAILURE(3045, blocked->Update(dao::dbUpdateRegular, false));
    workspace->CommitTrans();
    EXPECT_EQ(work.count("kvr_call_sign"), 1);
}

TEST(OpenDatabase, ANameThatLooksLikeAnAddressIsAName)
{
    const TemporaryFolder folder;
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    EXPECT_FAILURE(3024, open("file:memory?mode=memory"));
    std::filesystem::current_path(before);
}

TEST(OpenDatabase, AReadOnlyHandleRecoversWhatACrashLeft)
{
    const WorkingDatabase work;
    // A transaction half way in the file, with its journal, as a crash leaves them: both files are copied
    // while it runs, and the small cache has made it write into the database already.
    const auto crashed = work.folder().file("crashed.mdb");
    {
        const auto writer = work.open();
        const auto workspace = dao::DBEngine::Workspaces(0);
        workspace->BeginTrans();
        const auto rows = writer->OpenRecordset("kvr_rmks", dbOpenTable);
        for (int number = 0; number < 3000; ++number) {
            rows->AddNew();
            rows->setCollect("veldakey", number);
            rows->setCollect("rmk_text", std::string(2000, 'x'));
            rows->Update(dao::dbUpdateRegular, false);
        }
        std::filesystem::copy_file(work.path(), crashed);
        std::filesystem::copy_file(work.path() + "-journal", crashed + "-journal");
        workspace->Rollback();
    }
    ASSERT_GT(std::filesystem::file_size(crashed), 1'000'000U);
    const auto database = dao::DBEngine::OpenDatabase(crashed, false, true);
    EXPECT_TRUE(database->OpenRecordset("SELECT veldakey FROM kvr_rmks", dbOpenDynaset)->EOF_());
    EXPECT_FALSE(std::filesystem::exists(crashed + "-journal"));
}

TEST(OpenDatabase, AFileWithoutWriteRightIsReadAndWritingItFails)
{
    const WorkingDatabase work;
    const FaultyFiles files;
    FaultyFiles::refuseWriting(true);
    const auto database = work.open();
    EXPECT_FALSE(database->OpenRecordset("SELECT veldakey FROM kvr_keys", dbOpenDynaset)->EOF_());
    const auto rows = database->OpenRecordset("kvr_call_sign", dbOpenTable);
    rows->AddNew();
    rows->setCollect("call_sign", "A");
    EXPECT_FAILURE(3027, rows->Update(dao::dbUpdateRegular, false));
}
