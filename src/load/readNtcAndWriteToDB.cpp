#include "load/readNtcAndWriteToDB.h"

#include "db/MainModule.h"
#include "db/writeNtcToDB.h"
#include "elect/readFromFileToNtc.h"
#include "load/findTarget.h"
#include "model/InitializeNtc.h"
#include "model/session.h"
#include "platform/ansiText.h"
#include "platform/fileNumbers.h"
#include "platform/host.h"
#include "platform/hostFormat.h"
#include "platform/numberText.h"

#include <exception>
#include <limits>

namespace readNtcAndWriteToDB {

namespace {

using readFromFileToNtc::currentLine;

constexpr int electFile = 1;

bool findPotentialTarget(const Ntc& ntc)
{
    const auto assignment = targetValues::assignmentOf(ntc);
    if (!ntc.geo.zone_id.empty())
        return findTarget::findTargetByZone(assignment, ntc.geo.zone_id, session::db);
    const auto position = targetValues::positionOf(ntc.geo.pt[0]);
    if (ntc.op_cls.empty())
        return findTarget::findTargetByPoint(assignment, position, session::db);
    return findTarget::findTargetByPointAndOpCls(assignment, ntc.op_cls, position, session::db);
}

void tellPotentialTarget(std::int16_t noticeNumber)
{
    platform::host().addErrorLine(
        "Notice No: " + platform::integerText(noticeNumber) +
        " is a potential target to the notice no : " + platform::integerText(session::currentVeldaKey));
}

void loadNotice(Ntc& ntc, std::int16_t noticeNumber)
{
    readFromFileToNtc::advance();
    InitializeNtc::initNtc(ntc);
    ntc.src_update = session::getUserName();
    ntc.d_updated = platform::shortDateText(platform::now());
    readFromFileToNtc::readNtcFromFile(ntc);
    if (findPotentialTarget(ntc))
        tellPotentialTarget(noticeNumber);
    writeNtcToDB::insertNtc(ntc, session::ws, session::db);
    if (session::dbStatus == session::errorDb)
        platform::showMessage("There has been a database error - no updates in the database");
}

void loadNotices(Ntc& ntc)
{
    if (session::db)
        session::db->beginBulkLoad({"kvr_velda", "kvr_geo", "kvr_geo_pt"}); // what a search looks through
    platform::host().clearErrorLines();
    std::int16_t noticeNumber = 0;
    while (!platform::endOfFile(electFile)) {
        readFromFileToNtc::advance();
        if (currentLine == "<HEAD>") {
            readFromFileToNtc::advance();
            readFromFileToNtc::readHeadFromFile(ntc);
        }
        if (currentLine != "<NOTICE>")
            continue;
        if (noticeNumber == std::numeric_limits<std::int16_t>::max())
            platform::raise(platform::errOverflow);
        ++noticeNumber;
        loadNotice(ntc, noticeNumber);
    }
}

// The failure that is under way ends the program without another step; the journal that a load keeps would
// stay beside a sound database.
void closeQuietly(const dao::Ref<dao::Database>& database)
{
    try {
        if (database)
            database->Close();
    } catch (const std::exception&) {
        return; // the first failure is the one to be told
    }
}

// A file beside a working database: other letters in the place of the path's last three.
std::string siblingOf(const std::string& workingDatabase, const char* letters)
{
    const auto characters = platform::characterCount(workingDatabase);
    if (characters < 3)
        platform::raise(platform::errInvalidCall);
    return std::string(platform::mid(workingDatabase, 1, characters - 3)) + letters;
}

} // namespace

std::string workingDatabaseOf(const std::string& electronicFile)
{
    const auto dot = electronicFile.find('.');
    if (dot == std::string::npos)
        platform::raise(platform::errInvalidCall);
    return electronicFile.substr(0, dot) + ".mdb";
}

std::string updateFileOf(const std::string& workingDatabase)
{
    return siblingOf(workingDatabase, "upd");
}

std::string reportFileOf(const std::string& workingDatabase)
{
    return siblingOf(workingDatabase, "rpt");
}

void openElectFile(Ntc& ntc)
{
    InitializeNtc::clearNtcAdm(ntc);
    platform::openForInput(electFile, session::electFileName);
}

void loadElectFile(Ntc& ntc, const std::string& workingDatabase)
{
    MainModule::openWorkspace(session::ws);
    MainModule::openDatabase(false, workingDatabase, session::db);
    try {
        loadNotices(ntc);
    } catch (...) {
        closeQuietly(session::db);
        throw;
    }
    platform::closeFile(electFile);
    MainModule::closeDatabase(session::db);
    MainModule::closeWorkspace(session::ws);
}

} // namespace readNtcAndWriteToDB
