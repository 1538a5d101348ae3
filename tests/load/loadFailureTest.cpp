#include "loadFixture.h"

#include "platform/paths.h"
#include "support/faultyFiles.h"

#include <sqlite3.h>

namespace {

using FailingLoad = LoadFixture;

std::string times(int count, const std::string& text)
{
    std::string all;
    for (int number = 0; number < count; ++number)
        all += text;
    return all;
}

} // namespace

struct Fatal
{
    const char* name;
    std::string lines; // of the second notice
    int number;
};

class FatalNotice : public LoadFixture, public testing::WithParamInterface<Fatal>
{};

INSTANTIATE_TEST_SUITE_P(
    With, FatalNotice,
    testing::Values(Fatal{"seventhCallSign", times(7, "t_call_sign=A\r\n"), 9},
                    Fatal{"sixteenthAntenna", times(16, "<ANTENNA>\r\n</ANTENNA>\r\n"), 9},
                    Fatal{"twelfthCoordination", "<COORD>\r\n" + times(12, "t_adm=A\r\n") + "</COORD>\r\n",
                          9},
                    Fatal{"endOfFileInASection", "<ANTENNA>\r\n<NOTICE>\r\n", 62},
                    Fatal{"equalsSignBehindPosition32767", std::string(32767, 'a') + "=\r\n", 6},
                    Fatal{"frequencyTooLarge", "t_freq_assgn=1E999\r\n", 6},
                    Fatal{"degreesTooLarge", "t_long=+9E93045\r\n", 6}),
    [](const auto& row) { return row.param.name; });

TEST_P(FatalNotice, EndsTheLoadUncaughtWithEveryEarlierNoticeCommitted)
{
    EXPECT_FAILURE(GetParam().number, load(head() + assignment() + notice(GetParam().lines) + assignment()));
    EXPECT_TRUE(host.messages.empty());
    EXPECT_FALSE(std::filesystem::exists(work.path() + "-journal")); // the process ends without another step
    session::db.reset();
    EXPECT_EQ(work.count("kvr_velda"), 1);
    EXPECT_EQ(work.scalar("PRAGMA integrity_check"), "ok");
}

TEST_F(FailingLoad, TheNoticeAfter32767OverflowsItsNumber)
{
    // Notices that fail to be stored are counted all the same, and quickly.
    work.execute("DROP TABLE kvr_velda");
    EXPECT_FAILURE(6, load(head() + times(32768, notice(""))));
    EXPECT_EQ(std::count(host.messages.begin(), host.messages.end(),
                         "There has been a database error - no updates in the database"),
              32767);
}

TEST_F(FailingLoad, WithoutAWorkingDatabaseEachNoticeFailsAndTheEndIsUncaught)
{
    std::filesystem::remove(work.path());
    EXPECT_FAILURE(91, load(head() + assignment()));
    const std::string unset = "Error 91 : Object variable or With block variable not set";
    // The open, then of the one notice: the search, the drawing of its key, and its row.
    EXPECT_EQ(host.messages, (Texts{"Error 3024 : Could not find file '" + work.path() + "'.", unset, unset,
                                    unset, "There has been a database error - no updates in the database"}));
    EXPECT_FALSE(std::filesystem::exists(work.path()));
}

TEST_F(FailingLoad, AMissingNoticeFileIsAFailureOfTheCaller)
{
    session::electFileName = work.folder().file("nothing.txt");
    EXPECT_FAILURE(53, readNtcAndWriteToDB::openElectFile(session::notice));
}

TEST_F(FailingLoad, AFailedSearchIsShownAndTheNoticeIsStored)
{
    load(head() + assignment());
    work.execute("ALTER TABLE kvr_geo_pt RENAME COLUMN lat_ns TO lat_xy");
    load(head() + notice("t_action=ADD\r\n"));
    EXPECT_EQ(work.count("kvr_velda"), 2);
    ASSERT_FALSE(host.messages.empty());
    EXPECT_EQ(host.messages[0].substr(0, 11), "Error 3061 ");
    EXPECT_EQ(session::dbStatus, "");
}

TEST_F(FailingLoad, ADiskThatFillsUpLosesNothingThatWasCommitted)
{
    const FaultyFiles files;
    for (const int write : {20, 50, 100, 200}) {
        const WorkingDatabase fresh;
        host.messages.clear();
        session::dbStatus.clear();
        session::electFileName = work.folder().write("notices.txt", head() + times(10, assignment()));
        FaultyFiles::failWrite(write, SQLITE_FULL, true);
        readNtcAndWriteToDB::openElectFile(session::notice);
        readNtcAndWriteToDB::loadElectFile(session::notice, fresh.path());
        FaultyFiles::heal();
        const auto failed = std::count(host.messages.begin(), host.messages.end(),
                                       "There has been a database error - no updates in the database");
        EXPECT_EQ(fresh.count("kvr_velda"), 10 - failed) << "write " << write;
        EXPECT_EQ(fresh.count("kvr_geo_pt"), 10 - failed) << "write " << write;
        EXPECT_EQ(fresh.scalar("PRAGMA integrity_check"), "ok");
    }
}

TEST_F(FailingLoad, ATransientErrorCostsOneNoticeAtMostAlsoWhileTheEngineRenewsItsStatistics)
{
    // The first renewal comes when 2,000 rows were written, at five a notice; it stands in no notice's
    // transaction.
    constexpr int before = 399;
    constexpr int notices = 402;
    const FaultyFiles files;
    const auto storedOf = [&](int count, int failingWrite) {
        MainModule::copyMasterDatabase(work.path());
        session::dbStatus.clear();
        session::electFileName = work.folder().write("notices.txt", head() + times(count, assignment()));
        FaultyFiles::failWrite(failingWrite, SQLITE_IOERR_WRITE);
        readNtcAndWriteToDB::openElectFile(session::notice);
        readNtcAndWriteToDB::loadElectFile(session::notice, work.path());
        return work.count("kvr_velda");
    };
    constexpr int never = 1'000'000'000;
    ASSERT_EQ(storedOf(before, never), before);
    const int writesBefore = FaultyFiles::writes();
    ASSERT_EQ(storedOf(notices, never), notices);
    const int writesAll = FaultyFiles::writes();
    ASSERT_GT(writesAll - writesBefore, 100) << "the renewal is among them";
    for (int write = writesBefore; write < writesAll; write += 4)
        EXPECT_GE(storedOf(notices, write), notices - 1) << "write " << write;
}

TEST_F(FailingLoad, ALockedDatabaseShowsItsMessageAndTheBoxForEachNotice)
{
    const auto other = work.open();
    const auto lock = dao::DBEngine::Workspaces(0);
    const auto rows = other->OpenRecordset("SELECT veldakey FROM kvr_keys", dao::dbOpenDynaset);
    load(head() + assignment());
    rows->Close();
    EXPECT_EQ(work.count("kvr_velda"), 0);
    EXPECT_EQ(host.messages, (Texts{"Error 3045 : Could not use '" + work.path() + "'; file already in use.",
                                    "There has been a database error - no updates in the database"}));
}

TEST_F(FailingLoad, OverAFileThatMayOnlyBeReadComesToItsEnd)
{
    const FaultyFiles files;
    FaultyFiles::refuseWriting(true);
    load(head() + assignment() + assignment());
    FaultyFiles::refuseWriting(false);
    EXPECT_EQ(work.count("kvr_velda"), 0);
    EXPECT_EQ(std::count(host.messages.begin(), host.messages.end(),
                         "There has been a database error - no updates in the database"),
              2);
}

// An old file stands where the master could not be copied to.
class LoadOverOldFile : public LoadFixture
{
protected:
    LoadOverOldFile()
    {
        std::filesystem::copy_file(std::filesystem::path(ZEPH_TEST_DIR) / "data/jet/jet4/work200.mdb", old);
        original = work.folder().read(name);
    }

    // Two notices; each must tell that it is not stored, and nothing else may happen to the old file.
    void expectEachNoticeToFail(const std::string& reason)
    {
        session::electFileName = work.folder().write("notices.txt", head() + assignment() + assignment());
        readNtcAndWriteToDB::openElectFile(session::notice);
        readNtcAndWriteToDB::loadElectFile(session::notice, old);
        const std::string notStored = "There has been a database error - no updates in the database";
        EXPECT_EQ(std::count(host.messages.begin(), host.messages.end(), notStored), 2);
        const auto reasons = std::count_if(host.messages.begin(), host.messages.end(),
                                           [&](const auto& text) { return text.starts_with(reason); });
        EXPECT_GE(reasons, 2);
        EXPECT_EQ(static_cast<std::size_t>(reasons) + 2, host.messages.size());
        EXPECT_EQ(session::dbStatus, "ERROR_DB");
        EXPECT_EQ(work.folder().read(name), original);
    }

    // The longest that a folder takes: there is no room for the name of its corrections.
    const std::string name = std::string(251, 'a') + ".mdb";
    const std::string old = work.folder().file(name);
    std::string original;
};

TEST_F(LoadOverOldFile, TellsOfEachNoticeWhereNoCorrectionsCanBeMadeAndComesToItsEnd)
{
    expectEachNoticeToFail("Error 3027 ");
}

TEST_F(LoadOverOldFile, TellsOfEachNoticeWhereTheDiskIsFullAndComesToItsEnd)
{
    const FaultyFiles files;
    FaultyFiles::failWrite(1, SQLITE_FULL, true);
    expectEachNoticeToFail("Error 3026 ");
}

TEST_F(FailingLoad, AFailedCopyOfTheMasterGoesOnIntoWhateverFileStandsThere)
{
    load(head() + assignment());
    const TemporaryFolder withoutMaster;
    platform::setProgramDirectory(withoutMaster.path().string());
    MainModule::copyMasterDatabase(work.path());
    platform::setProgramDirectory("");
    load(head() + assignment());
    EXPECT_EQ(host.messages, Texts{"Error 53 : File not found"});
    EXPECT_EQ(work.count("kvr_velda"), 2);
}
