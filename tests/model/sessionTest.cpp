#include "model/session.h"

#include "platform/fileNumbers.h"
#include "platform/hostFormat.h"
#include "platform/paths.h"
#include "platform/userName.h"
#include "support/failures.h"
#include "support/temporaryFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using platform::RuntimeError;

class Session : public testing::Test
{
protected:
    void SetUp() override
    {
        platform::setProgramDirectory(folder.path().string());
        platform::setClock(platform::LocalTime{2024, 3, 5, 14, 7, 9});
        platform::setHostLocale("de_DE.UTF-8");
        platform::setHostUserName("administrator");
    }
    void TearDown() override
    {
        platform::closeAllFiles();
        platform::setProgramDirectory("");
        platform::setClock(std::nullopt);
        platform::setHostLocale("");
        platform::setHostUserName(std::nullopt);
    }

    void makeLogFolder() const { fs::create_directories(folder.path() / logFolder); }
    static int failureOfLogging()
    {
        try {
            session::writeLogLine(" Rvis. Successful EXIT   by ");
        } catch (const RuntimeError& failure) {
            return failure.number;
        }
        return 0;
    }

    static constexpr const char* logFolder = "drives/m/kdlmn/qrs/ostrand/KVR_test";
    static constexpr const char* logFile = "drives/m/kdlmn/qrs/ostrand/KVR_test/KVR_testLog.txt";
    TemporaryFolder folder;
};

TEST_F(Session, isEmptyAtStart)
{
    EXPECT_EQ(session::notice, Ntc());
    EXPECT_TRUE(session::keyArray.empty());
    for (const auto number :
         {session::keyCount, session::currentIndex, session::currentVeldaKey, session::currentGeoKey,
          session::currentTargetKey, session::firstKey, session::lastKey})
        EXPECT_EQ(number, 0);
    for (const auto& text : {session::electFileName, session::workingDbPath, session::referenceDbPath,
                             session::dbStatus, session::currentScreenType, session::language})
        EXPECT_EQ(text, "");
    EXPECT_FALSE(session::ntcChanged);
    EXPECT_FALSE(session::db);
    EXPECT_FALSE(session::refDb);
    EXPECT_FALSE(session::ws);
}

TEST_F(Session, givesTheKeysThatAreThereAndFailsBesideThem)
{
    session::keyArray = {5, 6};
    session::keyAt(1) = session::deletedKey;
    EXPECT_EQ(session::keyAt(0), 5);
    EXPECT_EQ(session::keyArray[1], session::deletedKey);
    for (const auto position : {-1, 2, INT32_MIN, INT32_MAX})
        EXPECT_FAILURE(platform::errSubscript, static_cast<void>(session::keyAt(position)));
    session::keyArray.clear();
    EXPECT_FAILURE(platform::errSubscript, static_cast<void>(session::keyAt(0)));
}

TEST_F(Session, cutsTheUserNameToEightCharacters)
{
    const struct
    {
        std::string host;
        std::string user;
    } rows[] = {
        {"administrator", "administ"},
        {"eightchr", "eightchr"},
        {"ninechars", "ninechar"},
        {"bob", "bob"},
        {"éèêëàâäîï", "éèêëàâäî"},
        {std::string("b\0ob", 4), "bob"},
        {std::string("\0\0\0\0\0\0\0\0x", 9), "Unknown"},
        {"", "Unknown"},
    };
    for (const auto& row : rows) {
        platform::setHostUserName(row.host);
        EXPECT_EQ(session::getUserName(), row.user) << row.host;
    }
}

TEST_F(Session, writesOneLineOfTheLogForEachEvent)
{
    makeLogFolder();
    session::writeLogLine(" Rvis(1.6.1) Successful OPEN   by ");
    EXPECT_EQ(folder.read(logFile), "05.03.2024 -  14:07:09 Rvis(1.6.1) Successful OPEN   by administ\r\n");

    platform::setHostLocale("en_US");
    platform::setHostUserName("");
    session::writeLogLine(" Rvis. Successful UNLOAD by ");
    EXPECT_EQ(folder.read(logFile), "05.03.2024 -  14:07:09 Rvis(1.6.1) Successful OPEN   by administ\r\n"
                                    "3/5/2024 -  2:07:09 PM Rvis. Successful UNLOAD by Unknown\r\n");
}

TEST_F(Session, leavesTheLogReadableAtOnce)
{
    makeLogFolder();
    EXPECT_EQ(failureOfLogging(), 0);
    platform::openForInput(2, folder.file(logFile));
    EXPECT_EQ(platform::inputItem(2), "05.03.2024 -  14:07:09 Rvis. Successful EXIT   by administ");
}

TEST_F(Session, createsNoFolderAndNoFileForALogOutOfReach)
{
    EXPECT_EQ(failureOfLogging(), 76);
    EXPECT_TRUE(fs::is_empty(folder.path()));

    fs::create_directories(folder.path() / "drives" / "m");
    EXPECT_EQ(failureOfLogging(), 76);
    EXPECT_TRUE(fs::is_empty(folder.path() / "drives" / "m"));
}

TEST_F(Session, makesNoFileWithABackslashInItsName)
{
    const auto before = fs::current_path();
    fs::current_path(folder.path());
    EXPECT_EQ(failureOfLogging(), 76);
    makeLogFolder();
    EXPECT_EQ(failureOfLogging(), 0);
    fs::current_path(before);
    for (const auto& entry : fs::recursive_directory_iterator(folder.path()))
        EXPECT_EQ(entry.path().filename().string().find('\\'), std::string::npos) << entry.path();
}

TEST_F(Session, leavesItsFileNumberFreeWhenTheLogFails)
{
    EXPECT_EQ(failureOfLogging(), 76);
    EXPECT_NO_THROW(platform::openForOutput(2, folder.file("other.txt")));
}

TEST_F(Session, leavesItsFileNumberFreeWhenTheDiskIsFull)
{
    if (!fs::exists("/dev/full"))
        GTEST_SKIP() << "the host has no such device";
    makeLogFolder();
    fs::create_symlink("/dev/full", folder.path() / logFile);
    EXPECT_EQ(failureOfLogging(), 61);
    EXPECT_NO_THROW(platform::openForOutput(2, folder.file("other.txt")));
}

TEST_F(Session, leavesAFileAloneThatHasItsNumber)
{
    makeLogFolder();
    platform::openForOutput(2, folder.file("other.txt"));
    EXPECT_EQ(failureOfLogging(), 55);
    platform::printLine(2, "still open");
    platform::closeFile(2);
    EXPECT_EQ(folder.read("other.txt"), "still open\r\n");
}

} // namespace
