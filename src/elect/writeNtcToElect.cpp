#include "elect/writeNtcToElect.h"

#include "db/readDBToNtc.h"
#include "elect/writeOneNtcElect.h"
#include "model/InitializeNtc.h"
#include "model/session.h"
#include "platform/fileNumbers.h"
#include "platform/hostFormat.h"
#include "platform/runtimeError.h"

#include <cstddef>
#include <cstdint>
#include <limits>

namespace writeNtcToElect {
namespace {

constexpr int fileNumber = 1;

// Leaves no file open behind a failure, with what was printed in it.
class FileCloser
{
public:
    FileCloser() = default;
    ~FileCloser()
    {
        try {
            platform::closeFile(fileNumber);
        } catch (const platform::RuntimeError&) {
            // The failure that brought us here is the one to report.
        }
    }
    FileCloser(const FileCloser&) = delete;
    FileCloser& operator=(const FileCloser&) = delete;
};

void printComments()
{
    const auto moment = platform::now();
    platform::printLine(fileNumber, "File corrected on " + platform::shortDateText(moment) + "-" +
                                        platform::longTimeText(moment));
    platform::printLine(fileNumber, "Processed by " + session::getUserName());
}

void addOne(std::int16_t& count)
{
    if (count == std::numeric_limits<std::int16_t>::max())
        platform::raise(platform::errOverflow);
    ++count;
}

// Writes the session's notice, before the first one the head with its administration.
void printNotice(std::int16_t& count, bool& headWritten)
{
    const Ntc& ntc = session::notice;
    if (!headWritten)
        platform::printLine(fileNumber, writeOneNtcElect::headBlock(ntc));
    headWritten = true;
    platform::printLine(fileNumber, writeOneNtcElect::noticeBlock(ntc));
    addOne(count);
}

} // namespace

void writeElectFile(const std::string& fileName, const dao::Ref<dao::Database>& database)
{
    platform::openForOutput(fileNumber, fileName);
    const FileCloser closer;
    printComments();
    const dao::ReadScope scope(database);
    std::int16_t count = 0;
    bool headWritten = false;
    InitializeNtc::initNtc(session::notice);
    for (std::int32_t index = 0; index < session::keyCount; ++index) {
        session::currentVeldaKey = session::keyAt(index);
        if (session::currentVeldaKey == session::deletedKey)
            continue;
        // A key that the database lacks is written too: adm stays from the notice before.
        readDBToNtc::readNtc(session::currentVeldaKey, session::notice, database);
        if (!session::notice.adm.empty())
            printNotice(count, headWritten);
        InitializeNtc::initNtc(session::notice);
    }
    platform::printLine(fileNumber, writeOneNtcElect::tailBlock(count));
    platform::closeFile(fileNumber);
}

} // namespace writeNtcToElect
