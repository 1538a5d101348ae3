#include "platform/paths.h"

#include "platform/runtimeError.h"
#include "support/failures.h"
#include "support/temporaryFolder.h"

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

namespace {

using namespace platform;
namespace fs = std::filesystem;

class Paths : public testing::Test
{
protected:
    void SetUp() override { setProgramDirectory(folder.path().string()); }
    void TearDown() override { setProgramDirectory(""); }

    TemporaryFolder folder;
};

TEST_F(Paths, ofTheProgramIsTheFolderOfTheRunningFile)
{
    setProgramDirectory("");
    const auto own = programDirectory();
    EXPECT_TRUE(fs::is_directory(own));
    EXPECT_NE(own.back(), '/');
#ifndef _WIN32
    EXPECT_EQ(own, fs::read_symlink("/proc/self/exe").parent_path().string());
#endif
}

TEST_F(Paths, ofTheProgramCanBeGiven)
{
    EXPECT_EQ(programDirectory(), folder.path().string());
    setProgramDirectory(folder.path().string() + "/");
    EXPECT_EQ(programDirectory(), folder.path().string());
    setProgramDirectory("/");
    EXPECT_EQ(programDirectory(), "/");
}

TEST_F(Paths, ofTheCacheCanBeGiven)
{
    setUserCacheDirectory(folder.path());
    EXPECT_EQ(userCacheDirectory(), folder.path());
    setUserCacheDirectory({});
    EXPECT_EQ(userCacheDirectory().filename().string().substr(0, 9), "zeph_rvis");
}

#ifndef _WIN32

// Variables of the environment that come back with the end of the scope.
class Environment
{
public:
    Environment()
    {
        for (const char* name : {"XDG_CACHE_HOME", "HOME"})
            m_values.emplace_back(name, std::getenv(name) != nullptr ? std::getenv(name) : "");
    }
    ~Environment()
    {
        for (const auto& [name, value] : m_values)
            set(name.c_str(), value.c_str());
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

    static void set(const char* name, const char* value) { setenv(name, value, 1); }

private:
    std::vector<std::pair<std::string, std::string>> m_values;
};

TEST_F(Paths, ofTheCacheIsTheUsersOrATemporaryOne)
{
    const Environment environment;
    Environment::set("XDG_CACHE_HOME", "/one");
    Environment::set("HOME", "/two");
    EXPECT_EQ(userCacheDirectory(), "/one/zeph_rvis");
    Environment::set("XDG_CACHE_HOME", "relative");
    EXPECT_EQ(userCacheDirectory(), "/two/.cache/zeph_rvis");
    Environment::set("XDG_CACHE_HOME", "");
    EXPECT_EQ(userCacheDirectory(), "/two/.cache/zeph_rvis");
    Environment::set("HOME", "");
    const auto last = userCacheDirectory();
    EXPECT_EQ(last.parent_path(), fs::temp_directory_path());
    EXPECT_TRUE(last.filename().string().starts_with("zeph_rvis-")) << last;
}

TEST_F(Paths, withADriveLeadIntoTheDrivesFolder)
{
    const auto drive = folder.path() / "drives" / "m";
    fs::create_directories(drive);
    const struct
    {
        const char* path;
        fs::path expected;
    } rows[] = {
        {R"(m:\a\b.txt)", drive / "a" / "b.txt"},
        {R"(M:\a\b.txt)", drive / "a" / "b.txt"},
        {"m:/a/b.txt", drive / "a" / "b.txt"},
        {R"(m:\a/b\c.txt)", drive / "a" / "b" / "c.txt"},
        {R"(m:\a\\b.txt)", drive / "a" / "b.txt"},
        {R"(m:\A b.TXT)", drive / "A b.TXT"},
        {R"(m:\a\)", drive / "a"},
        {R"(m:\)", drive},
        {R"(m:\..a)", drive / "..a"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(hostPath(row.path), row.expected) << row.path;
        EXPECT_EQ(hostPath(row.path).string().find('\\'), std::string::npos) << row.path;
    }
}

TEST_F(Paths, withADriveFollowALinkedFolder)
{
    fs::create_directories(folder.path() / "drives");
    fs::create_directory(folder.path() / "share");
    fs::create_directory_symlink(folder.path() / "share", folder.path() / "drives" / "m");
    EXPECT_EQ(hostPath(R"(m:\a)"), folder.path() / "drives" / "m" / "a");
}

TEST_F(Paths, onADriveThatIsNotThereAreNotFound)
{
    EXPECT_EQ(failureOf([] { static_cast<void>(hostPath(R"(m:\a)")); }), 76);
    fs::create_directories(folder.path() / "drives" / "n");
    EXPECT_EQ(failureOf([] { static_cast<void>(hostPath(R"(m:\a)")); }), 76);
    folder.write("drives/m", "a file is no drive");
    EXPECT_EQ(failureOf([] { static_cast<void>(hostPath(R"(m:\a)")); }), 76);
}

TEST_F(Paths, neverLeaveTheirDrive)
{
    fs::create_directories(folder.path() / "drives" / "m");
    for (const char* path :
         {R"(m:\..)", R"(m:\..\n)", R"(m:\a\..\..\b)", R"(m:\.)", "m:/a/../b", R"(m:\a\.\b)"})
        EXPECT_EQ(failureOf([&] { static_cast<void>(hostPath(path)); }), 76) << path;
}

TEST_F(Paths, withoutADriveAreThoseOfTheHost)
{
    for (const char* path : {"/tmp/a.txt", "a.txt", "../a.txt", "", "mm:/a", "m:", "1:/a"})
        EXPECT_EQ(hostPath(path).string(), path);
}

#endif

TEST_F(Paths, areFlushedToTheDisk)
{
    const auto path = folder.write("a.txt", "a");
    EXPECT_EQ(failureOf([&] { flushToDisk(path); }), 0);
    EXPECT_EQ(folder.read("a.txt"), "a");
    EXPECT_NE(failureOf([&] { flushToDisk(folder.path() / "missing.txt"); }), 0);
}

TEST_F(Paths, areFlushedInTheCurrentFolderToo)
{
    const auto before = fs::current_path();
    fs::current_path(folder.path());
    folder.write("a.txt", "a");
    EXPECT_EQ(failureOf([] { flushToDisk("a.txt"); }), 0);
    fs::current_path(before);
}

TEST_F(Paths, thatExistAreTakenAsTheyStandWhateverElseTheFolderHolds)
{
    folder.write("Data.mdb", "1");
    folder.write("DATA.MDB", "2");
    EXPECT_EQ(anyCasePath(folder.path() / "Data.mdb"), folder.path() / "Data.mdb");
}

TEST_F(Paths, thatDoNotExistLeadToTheFileWhoseNameDiffersInCaseAlone)
{
    folder.write("Data.mdb", "1");
    EXPECT_EQ(anyCasePath(folder.path() / "dATA.MDB"), folder.path() / "Data.mdb");
}

#ifndef _WIN32
TEST_F(Paths, thatDifferInCaseFromManyFilesLeadToTheFirstInTheOrderOfNames)
{
    for (const char* name : {"data.mdb", "DATa.mdb", "Data.mdb"})
        folder.write(name, "1");
    EXPECT_EQ(anyCasePath(folder.path() / "dATA.MDB"), folder.path() / "DATa.mdb");
}
#endif

TEST_F(Paths, withoutSuchAFileStayAsTheyAre)
{
    fs::create_directory(folder.path() / "DATA.mdb");
    folder.write("data.mdbx", "1");
    for (const auto& path : {folder.path() / "data.mdb", folder.path() / "missing" / "data.mdb", fs::path()})
        EXPECT_EQ(anyCasePath(path), path);
}

TEST_F(Paths, areFoundInTheCurrentFolderWhateverTheirCase)
{
    folder.write("Data.mdb", "1");
    const auto before = fs::current_path();
    fs::current_path(folder.path());
    EXPECT_EQ(anyCasePath("data.mdb"), fs::path("Data.mdb"));
    fs::current_path(before);
}

#ifndef _WIN32
TEST_F(Paths, takeABackslashForASeparatorWhereverItStands)
{
    EXPECT_EQ(hostPath("/x/a\\b.mdb"), fs::path("/x/a/b.mdb"));
    EXPECT_EQ(hostPath("\\x\\y.txt"), fs::path("/x/y.txt"));
}
#endif

} // namespace
