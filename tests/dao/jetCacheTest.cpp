#include "dao/jetCache.h"

#include "dao/connection.h"
#include "dao/dao.h"
#include "dao/jetSamples.h"
#include "dao/writtenJetFile.h"
#include "platform/paths.h"
#include "support/failures.h"
#include "support/faultyFiles.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

#include <atomic>
#include <fstream>
#include <thread>

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

class JetCache : public testing::Test
{
protected:
    JetCache() { platform::setUserCacheDirectory(cacheFolder()); }
    ~JetCache() override
    {
        platform::setUserCacheDirectory({});
        dao::setCacheLimit(dao::usualCacheLimit);
        dao::setConversionWatcher({});
        dao::setReadingSign({});
    }
    JetCache(const JetCache&) = delete;
    JetCache& operator=(const JetCache&) = delete;

    [[nodiscard]] fs::path cacheFolder() const { return folder.path() / "cache"; }

    [[nodiscard]] std::string words(const std::string& name, int rows, std::uint16_t commits = 0x0101) const
    {
        return writtenJet::writeWords(folder, name, rows, commits);
    }

    [[nodiscard]] std::size_t filesInCache() const
    {
        const fs::directory_iterator files(cacheFolder());
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

    static int rowsIn(const std::string& cache)
    {
        const auto database = dao::DBEngine::OpenDatabase(cache, false, true);
        const auto rows = database->OpenRecordset("SELECT number FROM words", dao::dbOpenDynaset);
        return static_cast<int>(rows->snapshot()->rowCount());
    }

    static void overwrite(const fs::path& file, const std::string& bytes)
    {
        std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
    }

    TemporaryFolder folder;
};

} // namespace

TEST_F(JetCache, IsMadeOnceForAFileThatStays)
{
    const auto file = words("a.mdb", 3);
    int conversions = 0;
    dao::setConversionWatcher([&] { ++conversions; });
    const auto first = dao::cacheOf(file);
    EXPECT_EQ(rowsIn(first), 3);
    EXPECT_EQ(dao::cacheOf(file), first);
    EXPECT_EQ(dao::cacheOf(folder.path() / "." / "a.mdb"), first);
    EXPECT_EQ(conversions, 1);
    EXPECT_EQ(filesInCache(), 1U);
}

TEST_F(JetCache, LiesWhereNobodyElseLooks)
{
    const auto cache = dao::cacheOf(words("a.mdb", 3));
    EXPECT_EQ(fs::path(cache).parent_path(), cacheFolder());
    EXPECT_EQ(fs::status(cache).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fs::status(cacheFolder()).permissions(), fs::perms::owner_all);
}

TEST_F(JetCache, IsMadeAnewForAFileThatWasReplaced)
{
    const auto file = words("a.mdb", 3);
    const auto first = dao::cacheOf(file);
    static_cast<void>(words("a.mdb", 4));
    const auto second = dao::cacheOf(file);
    EXPECT_NE(second, first);
    EXPECT_EQ(rowsIn(second), 4);
    EXPECT_FALSE(fs::exists(first));
}

TEST_F(JetCache, IsMadeAnewWhenOnlyTheTimeOrOnlyTheCommitBytesDiffer)
{
    const auto file = words("a.mdb", 3);
    const auto time = fs::last_write_time(file);
    const auto first = dao::cacheOf(file);
    fs::last_write_time(file, time + 1us);
    const auto second = dao::cacheOf(file);
    EXPECT_NE(second, first);
    static_cast<void>(words("a.mdb", 3, 0x0202));
    fs::last_write_time(file, time + 1us);
    EXPECT_NE(dao::cacheOf(file), second);
    EXPECT_EQ(filesInCache(), 1U);
}

TEST_F(JetCache, ReadsAgainWhatChangedWhileItWasRead)
{
    const auto file = words("a.mdb", 3);
    int conversions = 0;
    dao::setConversionWatcher([&] {
        if (++conversions < 3)
            static_cast<void>(words("a.mdb", 3 + conversions));
    });
    EXPECT_EQ(rowsIn(dao::cacheOf(file)), 5);
    EXPECT_EQ(conversions, 3);
    EXPECT_EQ(filesInCache(), 1U);
}

TEST_F(JetCache, GivesAFileUpThatChangesEachTime)
{
    const auto file = words("a.mdb", 3);
    int conversions = 0;
    dao::setConversionWatcher([&] { static_cast<void>(words("a.mdb", 3 + ++conversions)); });
    EXPECT_FAILURE(3045, static_cast<void>(dao::cacheOf(file)));
    EXPECT_EQ(conversions, 3);
    EXPECT_EQ(filesInCache(), 0U);
}

TEST_F(JetCache, TellsOfAFileThatVanishesMeanwhile)
{
    const auto file = words("a.mdb", 3);
    dao::setConversionWatcher([&] {
        overwrite(file, std::string(5000, 'x'));
        dao::setConversionWatcher({});
    });
    EXPECT_FAILURE(3343, static_cast<void>(dao::cacheOf(file)));
    EXPECT_FAILURE(3024, static_cast<void>(dao::cacheOf(folder.file("none.mdb"))));
    EXPECT_EQ(filesInCache(), 0U);
}

TEST_F(JetCache, OfDamageIsNone)
{
    const auto file = words("a.mdb", 2000);
    const auto whole = folder.read("a.mdb");
    overwrite(file, whole.substr(0, whole.size() - 4 * 2048));
    try {
        static_cast<void>(dao::cacheOf(file));
        ADD_FAILURE() << "no failure";
    } catch (const platform::RuntimeError& failure) {
        EXPECT_EQ(failure.number, 3049);
        EXPECT_NE(failure.description().find(file), std::string::npos) << failure.description();
        EXPECT_NE(failure.description().find("page"), std::string::npos) << failure.description();
    }
    EXPECT_EQ(filesInCache(), 0U);
}

TEST_F(JetCache, ThatIsDamagedIsThrownAwayAndMadeAnew)
{
    const auto file = words("a.mdb", 2000);
    const fs::path cache = dao::cacheOf(file);
    const auto whole = fs::file_size(cache);
    const auto other = dao::cacheOf(words("b.mdb", 7));
    const auto otherBytes = folder.read("cache/" + fs::path(other).filename().string());
    const struct
    {
        const char* name;
        std::function<void()> damage;
    } rows[] = {
        {"truncated", [&] { fs::resize_file(cache, whole / 2); }},
        {"empty", [&] { fs::resize_file(cache, 0); }},
        {"no database", [&] { overwrite(cache, std::string(5000, 'x')); }},
        {"of another file", [&] { overwrite(cache, otherBytes); }},
        {"of another program",
         [&] {
             const auto connection = dao::openAnyFile(cache, SQLITE_OPEN_READWRITE);
             dao::execute(connection.get(), "PRAGMA application_id=1");
         }},
        {"without its stamp",
         [&] {
             const auto connection = dao::openAnyFile(cache, SQLITE_OPEN_READWRITE);
             dao::execute(connection.get(), "DELETE FROM zeph_source");
         }},
    };
    for (const auto& [name, damage] : rows) {
        SCOPED_TRACE(name);
        damage();
        int conversions = 0;
        dao::setConversionWatcher([&] { ++conversions; });
        EXPECT_EQ(rowsIn(dao::cacheOf(file)), 2000);
        EXPECT_EQ(conversions, 1);
    }
}

TEST_F(JetCache, GivesWayToTheLimitTheOneThatWasUsedLeastLatelyFirst)
{
    const auto a = words("a.mdb", 500);
    const auto b = words("b.mdb", 500);
    const auto cacheA = dao::cacheOf(a);
    const auto cacheB = dao::cacheOf(b);
    const auto now = fs::file_time_type::clock::now();
    fs::last_write_time(cacheA, now - 2h);
    fs::last_write_time(cacheB, now - 1h);
    static_cast<void>(dao::cacheOf(a)); // its use counts
    dao::setCacheLimit(fs::file_size(cacheA) * 5 / 2);
    const auto cacheC = dao::cacheOf(words("c.mdb", 500));
    EXPECT_TRUE(fs::exists(cacheA));
    EXPECT_FALSE(fs::exists(cacheB));
    EXPECT_TRUE(fs::exists(cacheC));
    dao::setCacheLimit(1);
    EXPECT_TRUE(fs::exists(dao::cacheOf(words("d.mdb", 500))));
    EXPECT_EQ(filesInCache(), 1U);
}

TEST_F(JetCache, OfASetIsMadeForAllItsFilesAtTheSameTime)
{
    std::atomic<int> arrived = 0;
    std::atomic<int> met = 0;
    dao::setConversionWatcher([&] {
        ++arrived;
        met += waitUntil([&] { return arrived == 2; }) ? 1 : 0;
    });
    const auto caches = dao::cachesOf({words("a.mdb", 3), words("b.mdb", 700)});
    EXPECT_EQ(met, 2);
    ASSERT_EQ(caches.size(), 2U);
    EXPECT_EQ(rowsIn(caches[0]), 3);
    EXPECT_EQ(rowsIn(caches[1]), 700);
}

TEST_F(JetCache, OfASetStaysWholeBeyondTheLimitAndDrivesOthersOut)
{
    const auto other = dao::cacheOf(words("other.mdb", 500));
    dao::setCacheLimit(1);
    const auto a = words("a.mdb", 500);
    const auto caches = dao::cachesOf({a, words("b.mdb", 500), words("c.mdb", 500)});
    for (const auto& cache : caches)
        EXPECT_TRUE(fs::exists(cache));
    EXPECT_FALSE(fs::exists(other));
    EXPECT_EQ(filesInCache(), 3U);
    static_cast<void>(words("a.mdb", 501));
    EXPECT_EQ(rowsIn(dao::cachesOf({folder.file("c.mdb"), a}).back()), 501);
    EXPECT_EQ(filesInCache(), 2U);
}

TEST_F(JetCache, OfASetIsMadeForTheOthersWhenOneIsDamaged)
{
    const auto file = words("a.mdb", 2000);
    const auto whole = folder.read("a.mdb");
    overwrite(file, whole.substr(0, whole.size() - 4 * 2048));
    const auto good = words("b.mdb", 3);
    EXPECT_FAILURE(3049, static_cast<void>(dao::cachesOf({file, good})));
    EXPECT_EQ(filesInCache(), 1U);
    int conversions = 0;
    dao::setConversionWatcher([&] { ++conversions; });
    EXPECT_EQ(rowsIn(dao::cacheOf(good)), 3);
    EXPECT_EQ(conversions, 0);
}

TEST_F(JetCache, TellsWhoeverWaitsWhileItIsMade)
{
    const std::vector files = {words("a.mdb", 3), words("b.mdb", 3)};
    const auto caller = std::this_thread::get_id();
    std::atomic<int> shown = 0;
    int hidden = 0;
    dao::setReadingSign({[&](const std::vector<std::string>& paths) {
                             EXPECT_EQ(std::this_thread::get_id(), caller);
                             EXPECT_EQ(paths, files);
                             EXPECT_EQ(hidden, 0);
                             ++shown;
                         },
                         [&] { ++hidden; }});
    dao::setConversionWatcher([&] { waitUntil([&] { return shown >= 2; }); });
    static_cast<void>(dao::cachesOf(files));
    EXPECT_GE(shown, 2);
    EXPECT_EQ(hidden, 1);
}

TEST_F(JetCache, TellsWhoeverWaitsOfTheEndAlsoWhenItFails)
{
    const auto file = words("a.mdb", 3);
    std::atomic<int> shown = 0;
    int hidden = 0;
    dao::setReadingSign({[&](const std::vector<std::string>&) { ++shown; }, [&] { ++hidden; }});
    dao::setConversionWatcher([&] {
        waitUntil([&] { return shown > 0; });
        overwrite(file, std::string(5000, 'x'));
    });
    EXPECT_FAILURE(3343, static_cast<void>(dao::cacheOf(file)));
    EXPECT_GE(shown, 1);
    EXPECT_EQ(hidden, 1);
}

TEST_F(JetCache, LeavesNothingHalfBuiltOnAFullDisk)
{
    const auto file = words("a.mdb", 2000);
    const FaultyFiles files;
    for (const int write : {1, 2, 5, 10}) {
        FaultyFiles::failWrite(write, SQLITE_FULL, true);
        EXPECT_FAILURE(3026, static_cast<void>(dao::cacheOf(file)));
        ASSERT_TRUE(FaultyFiles::hasFailed());
        EXPECT_EQ(filesInCache(), 0U);
    }
    FaultyFiles::heal();
    EXPECT_EQ(rowsIn(dao::cacheOf(file)), 2000);
}

TEST_F(JetCache, IsNotToBeHadWhereItsFolderCannotBeMade)
{
    const auto file = words("a.mdb", 3);
    folder.write("cache", "a file in the way");
    EXPECT_FAILURE(3051, static_cast<void>(dao::cacheOf(file)));
}

TEST_F(JetCache, IsRidOfWhatWasLeftUnfinishedLongAgo)
{
    static_cast<void>(dao::cacheOf(words("a.mdb", 3)));
    const auto old = folder.write("cache/0-0.db.1.tmp", "x");
    const auto young = folder.write("cache/0-0.db.2.tmp", "x");
    fs::last_write_time(old, fs::file_time_type::clock::now() - 25h);
    static_cast<void>(dao::cacheOf(words("b.mdb", 3)));
    EXPECT_FALSE(fs::exists(old));
    EXPECT_TRUE(fs::exists(young));
}

#ifndef _WIN32

TEST_F(JetCache, IsWholeForEachOfManyProcessesAtOnce)
{
    const auto file = words("a.mdb", 3000);
    std::vector<pid_t> children;
    for (int number = 0; number < 6; ++number) {
        const pid_t child = fork();
        if (child == 0) {
            bool right = true;
            try {
                for (int round = 0; round < 5; ++round)
                    right = right && rowsIn(dao::cacheOf(file)) == 3000;
            } catch (const platform::RuntimeError&) {
                right = false;
            }
            _exit(right ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const auto child : children) {
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(filesInCache(), 1U);
}

#endif
