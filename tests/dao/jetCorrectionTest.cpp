// Old files that are written: what goes into the file of the corrections, and what never does.
#include "dao/connection.h"
#include "dao/databaseFile.h"
#include "dao/jetFixture.h"
#include "support/faultyFiles.h"
#include "support/workingDatabase.h"

#include <fstream>

#ifndef _WIN32
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

class JetCorrection : public JetFixture
{
protected:
    ~JetCorrection() override { EXPECT_TRUE(!checksOriginal || folder.read("work200.mdb") == original); }

    [[nodiscard]] std::string corrected() const { return path + ".corrected"; }
    [[nodiscard]] bool isCorrected() const { return fs::exists(corrected()); }

    static std::string user(const dao::Ref<dao::Database>& database, int key)
    {
        return text(database, "SELECT src_update FROM kvr_velda WHERE veldakey = " + std::to_string(key));
    }

    static void setUser(const dao::Ref<dao::Database>& database, int key, const char* name)
    {
        edit(database, "SELECT * FROM kvr_velda WHERE veldakey = " + std::to_string(key), "src_update", name);
    }

    // Files of the folder but for the cache.
    [[nodiscard]] std::vector<std::string> files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.path())) {
            if (entry.is_regular_file())
                names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    std::string path = jetSamples::copyTo(folder, "jet4/work200.mdb");
    std::string original = folder.read("work200.mdb");
    bool checksOriginal = true;
    dao::Ref<dao::Workspace> workspace = dao::DBEngine::Workspaces(0);
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(JetCorrection, StandsBesideTheOriginalAndIsReadUnderItsPath)
{
    {
        const auto database = open(path);
        static_cast<void>(user(database, 1001));
        EXPECT_FALSE(isCorrected());
        setUser(database, 1001, "somebody");
        EXPECT_EQ(user(database, 1001), "src_update\nsomebody\n");
    }
    EXPECT_EQ(files(), (Names{"work200.mdb", "work200.mdb.corrected"}));
    EXPECT_EQ(user(open(path, true), 1001), "src_update\nsomebody\n");
    EXPECT_EQ(user(open(corrected()), 1001), "src_update\nsomebody\n");
    EXPECT_EQ(fs::status(corrected()).permissions(), fs::status(path).permissions() | fs::perms::owner_write);
}

TEST_F(JetCorrection, HoldsEveryRowInItsPlace)
{
    const std::vector<std::string> tables = {"kvr_velda", "kvr_geo", "kvr_rmks", "kvr_target", "kvr_keys"};
    std::vector<std::string> before;
    for (const auto& table : tables)
        before.push_back(text(open(path), "SELECT * FROM " + table));
    edit(open(path), "SELECT * FROM kvr_keys", "veldakey", 9999);
    edit(open(path), "SELECT * FROM kvr_keys", "veldakey", 1253);
    for (std::size_t table = 0; table < tables.size(); ++table)
        EXPECT_EQ(text(open(path), "SELECT * FROM " + tables[table]), before[table]);
    EXPECT_EQ(open(path)->TableDefs("kvr_velda")->LastUpdated(),
              (platform::LocalTime{1999, 6, 15, 8, 30, 5}));
    open(path)->requireSound();
}

TEST_F(JetCorrection, IsNotMadeByReadingNorOnADatabaseThatIsOpenForReading)
{
    const auto database = open(path, true);
    static_cast<void>(user(database, 1001));
    EXPECT_FAILURE(3027, setUser(database, 1001, "somebody"));
    EXPECT_EQ(files(), Names{"work200.mdb"});
}

TEST_F(JetCorrection, OpenRecordsetsGoOnWhereTheyStand)
{
    const auto database = open(path);
    const auto walk = database->OpenRecordset("SELECT veldakey FROM kvr_velda", dao::dbOpenDynaset);
    const auto waiting = database->OpenRecordset("kvr_keys", dao::dbOpenTable);
    const auto query = database->CreateQueryDef({}, "PARAMETERS [Key] Long;SELECT src_update FROM kvr_velda "
                                                    "WHERE veldakey = [Key]");
    query->Parameters("Key").setValue(1002);
    const auto found = query->OpenRecordset(dao::dbOpenDynaset);
    walk->MoveNext();
    walk->MoveNext();
    const auto key = walk->Fields("veldakey");
    const auto ended =
        database->OpenRecordset("SELECT veldakey FROM kvr_velda WHERE veldakey = 1", dao::dbOpenDynaset);
    setUser(database, 1001, "somebody");
    EXPECT_TRUE(isCorrected());
    EXPECT_EQ(walk->Fields("veldakey"), key);
    int rest = 0;
    for (; !walk->EOF_(); walk->MoveNext())
        ++rest;
    EXPECT_EQ(rest, 198);
    EXPECT_EQ(waiting->Fields("veldakey").toLong(), 1253);
    EXPECT_TRUE(ended->EOF_());
    found->Edit();
    found->setCollect("src_update", "another");
    found->Update(dao::dbUpdateRegular, false);
    EXPECT_EQ(user(database, 1002), "src_update\nanother\n");
    const auto again = query->OpenRecordset(dao::dbOpenDynaset);
    EXPECT_EQ(again->Fields("src_update").text(), "another");
}

TEST_F(JetCorrection, BeginsWithADeletionOfTheCurrentRow)
{
    const auto database = open(path);
    const auto rows =
        database->OpenRecordset("SELECT * FROM kvr_velda WHERE veldakey = 1002", dao::dbOpenDynaset);
    rows->Delete();
    EXPECT_EQ(user(database, 1002), "src_update\n");
    EXPECT_EQ(user(database, 1001), "src_update\nJürgen\n");
}

TEST_F(JetCorrection, BeginsWithARowThatIsAdded)
{
    const auto database = open(path);
    const auto rows = database->OpenRecordset("kvr_call_sign", dao::dbOpenTable);
    rows->AddNew();
    rows->setCollect("veldakey", 1001);
    rows->setCollect("call_sign", "NEW");
    EXPECT_FALSE(isCorrected());
    rows->Update(dao::dbUpdateRegular, false);
    EXPECT_EQ(text(database, "SELECT veldakey FROM kvr_call_sign WHERE call_sign = 'new'"),
              "veldakey\n1001\n");
}

TEST_F(JetCorrection, IsFreeOfWhatWasRolledBack)
{
    const auto database = open(path);
    workspace->BeginTrans();
    setUser(database, 1001, "somebody");
    setUser(database, 1002, "somebody");
    workspace->Rollback();
    EXPECT_EQ(user(database, 1001), "src_update\nJürgen\n");
    workspace->BeginTrans();
    setUser(database, 1002, "another");
    workspace->CommitTrans();
    EXPECT_EQ(user(open(path), 1001), "src_update\nJürgen\n");
    EXPECT_EQ(user(open(path), 1002), "src_update\nanother\n");
}

TEST_F(JetCorrection, IsSeenByWhoHadTheOldFileOpenBefore)
{
    const auto reader = open(path, true);
    const auto other = open(path);
    EXPECT_EQ(user(reader, 1001), "src_update\nJürgen\n");
    EXPECT_EQ(user(other, 1001), "src_update\nJürgen\n");
    setUser(open(path), 1001, "somebody");
    EXPECT_EQ(user(reader, 1001), "src_update\nsomebody\n");
    setUser(other, 1002, "another");
    EXPECT_EQ(user(reader, 1001) + user(reader, 1002), "src_update\nsomebody\nsrc_update\nanother\n");
}

TEST_F(JetCorrection, OfAFileThatWasChangedSinceIsNotOpenedAndNothingIsDropped)
{
    setUser(open(path), 1001, "somebody");
    const auto corrections = folder.read("work200.mdb.corrected");
    checksOriginal = false;
    const auto time = fs::last_write_time(path);
    const struct
    {
        const char* name;
        std::function<void()> change;
    } changes[] = {
        {"longer, at the same time",
         [&] {
             fs::resize_file(path, original.size() + 4096);
             fs::last_write_time(path, time);
         }},
        {"committed to, at the same time",
         [&] {
             auto bytes = original;
             bytes.at(0xE10) = 7;
             folder.write("work200.mdb", bytes);
             fs::last_write_time(path, time);
         }},
        {"another byte",
         [&] {
             auto bytes = original;
             bytes.back() = static_cast<char>(bytes.back() ^ 1);
             folder.write("work200.mdb", bytes);
             fs::last_write_time(path, fs::file_time_type::clock::now() + 1h);
         }},
        {"of the engine now",
         [&] { fs::copy_file(corrected(), path, fs::copy_options::overwrite_existing); }},
    };
    for (const auto& [name, change] : changes) {
        SCOPED_TRACE(name);
        change();
        const auto changed = folder.read("work200.mdb");
        try {
            static_cast<void>(open(path));
            ADD_FAILURE() << "no failure";
        } catch (const platform::RuntimeError& failure) {
            EXPECT_EQ(failure.number, 3197);
            EXPECT_NE(failure.description().find("'" + path + "'"), std::string::npos);
            EXPECT_NE(failure.description().find("'" + corrected() + "'"), std::string::npos);
        }
        EXPECT_EQ(folder.read("work200.mdb"), changed);
        EXPECT_EQ(folder.read("work200.mdb.corrected"), corrections);
    }
    folder.write("work200.mdb", original);
    EXPECT_EQ(user(open(path), 1001), "src_update\nsomebody\n");
}

TEST_F(JetCorrection, FitsAlsoInACopiedFolderWhoseTimesAreNew)
{
    setUser(open(path), 1001, "somebody");
    fs::create_directory(folder.path() / "copy");
    fs::copy_file(path, folder.file("copy/work200.mdb"));
    fs::copy_file(corrected(), folder.file("copy/work200.mdb.corrected"));
    fs::last_write_time(folder.file("copy/work200.mdb"), fs::file_time_type::clock::now() - 1h);
    EXPECT_EQ(user(open(folder.file("copy/work200.mdb")), 1001), "src_update\nsomebody\n");
}

TEST_F(JetCorrection, ThatIsNoneIsToldOfAndNeverOverwritten)
{
    const auto own = folder.file("own.mdb");
    dao::DBEngine::CompactDatabase(path, own);
    const auto ownBytes = folder.read("own.mdb");
    for (const auto& bytes : {std::string("notes of somebody"), std::string(), ownBytes}) {
        folder.write("work200.mdb.corrected", bytes);
        EXPECT_FAILURE(3343, static_cast<void>(open(path)));
        EXPECT_EQ(folder.read("work200.mdb.corrected"), bytes);
    }
    fs::remove(corrected());
    fs::create_directory(corrected());
    EXPECT_FAILURE(3343, static_cast<void>(open(path)));
    fs::remove(corrected());
    // What only has such a name beside a file of the engine is of no interest.
    folder.write("own.mdb.corrected", "notes of somebody");
    EXPECT_EQ(user(open(own), 1001), "src_update\nJürgen\n");
}

TEST_F(JetCorrection, ComesTooLateForAFileThatChangedAfterItWasRead)
{
    const auto database = open(path);
    static_cast<void>(user(database, 1001));
    fs::last_write_time(path, fs::file_time_type::clock::now() + 1h);
    EXPECT_FAILURE(3045, setUser(database, 1001, "somebody"));
    EXPECT_EQ(files(), Names{"work200.mdb"});
    setUser(open(path), 1001, "somebody");
    EXPECT_TRUE(isCorrected());
}

TEST_F(JetCorrection, OfTwoAtOnceReplacesNone)
{
    const auto database = open(path);
    static_cast<void>(user(database, 1001));
    dao::setCorrectionWatcher([&] {
        dao::setCorrectionWatcher({});
        setUser(open(path), 1001, "the first");
    });
    EXPECT_FAILURE(3045, setUser(database, 1001, "the second"));
    EXPECT_EQ(files(), (Names{"work200.mdb", "work200.mdb.corrected"}));
    EXPECT_EQ(user(open(path), 1001), "src_update\nthe first\n");
    setUser(database, 1002, "the second"); // it goes on in the other's file
    EXPECT_EQ(user(open(path), 1001) + user(open(path), 1002),
              "src_update\nthe first\nsrc_update\nthe second\n");
}

TEST_F(JetCorrection, LeavesNothingOnAFullDiskAndComesWhenThereIsRoom)
{
    const auto database = open(path);
    const auto walk = database->OpenRecordset("SELECT veldakey FROM kvr_velda", dao::dbOpenDynaset);
    static_cast<void>(user(database, 1001));
    database->Close();
    const FaultyFiles faulty;
    const auto again = open(path);
    static_cast<void>(user(again, 1001));
    for (const int write : {1, 3, 30}) {
        FaultyFiles::failWrite(write, SQLITE_FULL, true);
        EXPECT_FAILURE(3026, setUser(again, 1001, "somebody"));
        EXPECT_TRUE(FaultyFiles::hasFailed());
        EXPECT_EQ(files(), Names{"work200.mdb"});
        EXPECT_EQ(user(again, 1001), "src_update\nJürgen\n");
    }
    FaultyFiles::heal();
    setUser(again, 1001, "somebody");
    EXPECT_EQ(user(open(path), 1001), "src_update\nsomebody\n");
}

TEST_F(JetCorrection, CannotBeMadeWhereNoFileCanBeMade)
{
    // The longest name that a folder takes leaves no room for a longer one.
    const auto longest = folder.file(std::string(251, 'a') + ".mdb");
    fs::copy_file(path, longest);
    const auto database = open(longest);
    EXPECT_EQ(user(database, 1001), "src_update\nJürgen\n");
    EXPECT_FAILURE(3027, setUser(database, 1001, "somebody"));
    EXPECT_EQ(user(database, 1001), "src_update\nJürgen\n");
    EXPECT_EQ(files().size(), 2U);
}

TEST_F(JetCorrection, GoesWhenAnotherDatabaseIsCopiedToThePath)
{
    setUser(open(path), 1001, "somebody");
    checksOriginal = false;
    const WorkingDatabase master;
    dao::copyDatabaseFile(master.path(), path);
    EXPECT_EQ(files(), Names{"work200.mdb"});
    EXPECT_EQ(user(open(path), 1001), "src_update\n");
}

TEST_F(JetCorrection, StaysWhenACopyToThePathFails)
{
    setUser(open(path), 1001, "somebody");
    EXPECT_FAILURE(53, dao::copyDatabaseFile(folder.file("none.mdb"), path));
    EXPECT_EQ(user(open(path), 1001), "src_update\nsomebody\n");
}

TEST_F(JetCorrection, LeftoversOfKilledProcessesGoAfterADay)
{
    const auto old = folder.write("work200.mdb.corrected.1.tmp", "x");
    const auto young = folder.write("work200.mdb.corrected.2.tmp", "x");
    fs::last_write_time(old, fs::file_time_type::clock::now() - 25h);
    setUser(open(path), 1001, "somebody");
    EXPECT_FALSE(fs::exists(old));
    EXPECT_TRUE(fs::exists(young));
}

TEST_F(JetCorrection, TypedColumnsTakeWhatTheRecordsHold)
{
    const auto types = jetSamples::copyTo(folder, "jet4/worktypes.mdb");
    const auto database = open(types);
    const auto notice = database->OpenRecordset("SELECT * FROM kvr_velda", dao::dbOpenDynaset);
    notice->Edit();
    notice->setCollect("is_resub", "TRUE");
    notice->setCollect("d_inuse", "2001-02-03");
    notice->setCollect("freq_carr", "7.5");
    EXPECT_FAILURE(3421, notice->setCollect("d_rcv", "soon"));
    EXPECT_FAILURE(3421, notice->setCollect("op_hh_fr", "40000"));
    notice->Update(dao::dbUpdateRegular, false);
    EXPECT_EQ(text(database, "SELECT is_resub, d_inuse, freq_carr FROM kvr_velda WHERE veldakey = 1001"),
              "is_resub\td_inuse\tfreq_carr\ntrue\t2001-02-03T00:00:00\t7.5\n");
    const auto antennas = database->OpenRecordset("kvr_ant", dao::dbOpenTable);
    antennas->AddNew();
    antennas->setCollect("veldakey", 1);
    antennas->setCollect("pwr_dbw", "12.34565");
    antennas->setCollect("azm_max_e", "12.345");
    antennas->setCollect("elev", "89.5");
    antennas->setCollect("gain_max", "0.1");
    antennas->Update(dao::dbUpdateRegular, false);
    EXPECT_EQ(text(database, "SELECT pwr_dbw, azm_max_e, elev, gain_max FROM kvr_ant WHERE veldakey = 1"),
              "pwr_dbw\tazm_max_e\telev\tgain_max\n12.3456\t12.34\t90\t0.1\n");
}

TEST_F(JetCorrection, ColumnsOfTruthsAndBytesTakeTheirKinds)
{
    const auto file = writtenJet::write(folder, "kinds.mdb", [](jetWriter::FileWriter& writer) {
        jetWriter::Table table;
        table.name = "t";
        table.add("truth", jetWriter::Type::Boolean);
        table.add("bytes", jetWriter::Type::Binary, 50);
        writer.addTable(table);
    });
    const auto database = open(file);
    const auto rows = database->OpenRecordset("t", dao::dbOpenTable);
    rows->AddNew();
    rows->setCollect("bytes", "00FF");
    rows->Update(dao::dbUpdateRegular, false);
    EXPECT_EQ(text(database, "SELECT truth, bytes FROM t"), "truth\tbytes\nfalse\t00ff\n");
    edit(database, "SELECT * FROM t", "truth", "yes");
    EXPECT_EQ(text(database, "SELECT truth, bytes FROM t"), "truth\tbytes\ntrue\t00ff\n");
}

TEST_F(JetCorrection, OfAMasterIsNotNeededItsCopyIsAFileOfTheEngine)
{
    const auto master = jetSamples::copyTo(folder, "jet4/MasterKVR_QRS.mdb");
    const auto bytes = folder.read("MasterKVR_QRS.mdb");
    const auto copy = folder.file("new.mdb");
    dao::copyDatabaseFile(master, copy);
    EXPECT_EQ(files(), (Names{"MasterKVR_QRS.mdb", "new.mdb", "work200.mdb"}));
    const auto database = open(copy);
    EXPECT_EQ(text(database, "SELECT * FROM kvr_keys"), "geo_key\tveldakey\tTarget\n1\t1\t1\n");
    edit(database, "SELECT * FROM kvr_keys", "veldakey", 2);
    database->requireSound();
    EXPECT_EQ(folder.read("MasterKVR_QRS.mdb"), bytes);
    EXPECT_FALSE(fs::exists(copy + ".corrected"));
}

TEST_F(JetCorrection, CompactingGivesAFileOfTheEngineWithTheCorrections)
{
    setUser(open(path), 1001, "somebody");
    const auto own = folder.file("own.mdb");
    dao::DBEngine::CompactDatabase(path, own);
    EXPECT_EQ(text(open(own), "SELECT * FROM kvr_velda"), text(open(path), "SELECT * FROM kvr_velda"));
    setUser(open(own), 1002, "another");
    EXPECT_EQ(files(), (Names{"own.mdb", "work200.mdb", "work200.mdb.corrected"}));
    const auto again = folder.file("again.mdb");
    dao::DBEngine::CompactDatabase(own, again);
    EXPECT_EQ(text(open(again), "SELECT * FROM kvr_velda"), text(open(own), "SELECT * FROM kvr_velda"));
}

TEST_F(JetCorrection, CompactingOverwritesNothingAndLeavesNothingHalfMade)
{
    const auto there = folder.write("there.mdb", "x");
    EXPECT_FAILURE(3204, dao::DBEngine::CompactDatabase(path, there));
    EXPECT_EQ(folder.read("there.mdb"), "x");
    EXPECT_FAILURE(3024, dao::DBEngine::CompactDatabase(folder.file("none.mdb"), folder.file("b.mdb")));
    EXPECT_FAILURE(3343, dao::DBEngine::CompactDatabase(there, folder.file("b.mdb")));
    EXPECT_FAILURE(3027, dao::DBEngine::CompactDatabase(path, folder.file("nowhere/b.mdb")));
    static_cast<void>(dao::cacheOf(path));
    const FaultyFiles faulty;
    FaultyFiles::failWrite(10, SQLITE_FULL, true);
    EXPECT_FAILURE(3026, dao::DBEngine::CompactDatabase(path, folder.file("b.mdb")));
    EXPECT_EQ(files(), (Names{"there.mdb", "work200.mdb"}));
}

#ifndef _WIN32

TEST_F(JetCorrection, OfAProcessThatIsKilledIsWholeOrNotThere)
{
    const pid_t child = fork();
    if (child == 0) {
        dao::setCorrectionWatcher([] { kill(getpid(), SIGKILL); });
        try {
            setUser(open(path), 1001, "somebody");
        } catch (const platform::RuntimeError&) {
            _exit(1);
        }
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_FALSE(isCorrected());
    EXPECT_EQ(user(open(path), 1001), "src_update\nJürgen\n");
    setUser(open(path), 1001, "another");
    EXPECT_EQ(user(open(path), 1001), "src_update\nanother\n");
}

#endif
