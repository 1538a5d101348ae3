#include "model/session.h"

#include "platform/ansiText.h"
#include "platform/fileNumbers.h"
#include "platform/hostFormat.h"
#include "platform/runtimeError.h"
#include "platform/userName.h"

namespace session {

namespace {

constexpr int logFileNumber = 2; // a notice file may be open as number 1
constexpr const char* logPath = R"(m:\kdlmn\qrs\ostrand\KVR_test\KVR_testLog.txt)";
constexpr std::size_t longestUserName = 8;

} // namespace

Ntc notice;
std::vector<std::int32_t> keyArray;
std::int32_t keyCount = 0;
std::int32_t currentIndex = 0;
std::int32_t currentVeldaKey = 0;
std::int32_t currentGeoKey = 0;
std::int32_t currentTargetKey = 0;
std::int32_t firstKey = 0, lastKey = 0;
std::string electFileName;
std::string workingDbPath;
std::string referenceDbPath;
dao::Ref<dao::Database> db, refDb;
dao::Ref<dao::Workspace> ws;
std::string dbStatus;
bool ntcChanged = false;
std::string currentScreenType;
std::string language;

std::int32_t& keyAt(std::int32_t position)
{
    if (position < 0 || static_cast<std::size_t>(position) >= keyArray.size())
        platform::raise(platform::errSubscript);
    return keyArray[static_cast<std::size_t>(position)];
}

std::string getUserName()
{
    const auto hostName = platform::hostUserName();
    std::string name(platform::mid(hostName, 1, longestUserName));
    std::erase(name, '\0');
    return name.empty() ? "Unknown" : name;
}

void writeLogLine(const std::string& eventText)
{
    const auto moment = platform::now();
    const auto line =
        platform::shortDateText(moment) + " -  " + platform::longTimeText(moment) + eventText + getUserName();
    platform::openForAppend(logFileNumber, logPath);
    platform::printLine(logFileNumber, line); // closes the file when it fails
    platform::closeFile(logFileNumber);
}

} // namespace session
