#include "floorCheck.h"

#include "bareChange.h"
#include "bareList.h"
#include "bareLoad.h"
#include "bareLookUp.h"
#include "bareReader.h"
#include "bareWrite.h"
#include "compareDatabases.h"
#include "db/deleteNtcFromDB.h"
#include "db/MainModule.h"
#include "db/noticeList.h"
#include "db/readDBToNtc.h"
#include "db/updateNtcInDB.h"
#include "elect/writeNtcToElect.h"
#include "fixtures.h"
#include "load/checkTarget.h"
#include "model/session.h"
#include "platform/hostFormat.h"
#include "tools/referenceSet.h"

namespace {

using fixtures::Shape;

void require(bool same, const char* what)
{
    if (!same)
        throw std::runtime_error(std::string("floor and product differ: ") + what);
}

void checkLoad(const std::string& file, const std::string& ours, const std::string& floor)
{
    const int foundByProduct = fixtures::loadByProduct(file, ours);
    const int foundByFloor = bare::load(file, floor, fixtures::dateOfReceipt);
    require(foundByProduct == foundByFloor, "notices found");
    compareDatabases(ours, floor);
}

void checkListAndWriting(const std::string& database)
{
    const auto sql = noticeList::buildNoticeQuery("", noticeList::Sort::Index);
    MainModule::openDatabase(false, database, session::db);
    noticeList::loadNoticeKeys(session::db->OpenRecordset(sql, dao::dbOpenDynaset));
    writeNtcToElect::writeElectFile(fixtures::path("ours"), session::db);
    MainModule::closeDatabase(session::db);

    const auto connection = bare::open(database, true);
    bare::Statement query(connection.get(), sql);
    const auto list = bare::readList(query);
    require(!list.keys.empty() && list.keys == session::keyArray, "keys of the list");
    bare::writeFile(fixtures::path("floor"), database, list.keys);
    require(bare::readFile(fixtures::path("ours")) == bare::readFile(fixtures::path("floor")),
            "written file");
}

void checkShape(Shape shape, int count)
{
    const auto file = fixtures::noticeFile(shape, 1, count);
    const auto ours = fixtures::emptyDatabase("oursChecked"), floor = fixtures::emptyDatabase("floorChecked");
    checkLoad(file, ours, floor);
    // Once more into the same databases, so that every notice has one before it.
    checkLoad(file, ours, floor);
    checkListAndWriting(ours);
}

// The notice with the content of another one: all that a notice has changes, also whether it has a target.
void checkUpdate(int key, int other, const std::string& ours, const std::string& floor)
{
    auto ntc = std::make_unique<Ntc>();
    MainModule::openWorkspace(session::ws);
    MainModule::openDatabase(false, ours, session::db);
    require(readDBToNtc::readNtc(other, *ntc, session::db), "notice to be read");
    session::currentVeldaKey = key;
    updateNtcInDB::updateNtc(key, *ntc, session::ws, session::db);
    MainModule::closeDatabase(session::db);
    MainModule::closeWorkspace(session::ws);
    const auto notice = std::make_unique<bare::Notice>(bare::noticeOf(*ntc));
    bare::updateNotice(floor, key, *notice, ntc->target.present);
}

void checkDelete(int key, const std::string& ours, const std::string& floor)
{
    session::currentTargetKey = 0;
    MainModule::openWorkspace(session::ws);
    MainModule::openDatabase(false, ours, session::db);
    deleteNtcFromDB::deleteNtc(key, session::ws, session::db);
    MainModule::closeDatabase(session::db);
    MainModule::closeWorkspace(session::ws);
    bare::deleteNotice(floor, key);
}

void checkChanges()
{
    const auto loaded = fixtures::loadedDatabase(Shape::Diverse, 1000);
    const auto ours = fixtures::copyDatabase(loaded, "oursChecked");
    const auto floor = fixtures::copyDatabase(loaded, "floorChecked");
    for (int key = 1; key <= 100; ++key)
        checkUpdate(key, key + 500, ours, floor);
    compareDatabases(ours, floor);
    for (int key = 51; key <= 150; ++key)
        checkDelete(key, ours, floor);
    compareDatabases(ours, floor);
}

void checkLookUp(int key, bare::LookUps& floor)
{
    const auto ntc = std::make_unique<Ntc>();
    require(readDBToNtc::readNtc(key, *ntc, session::db), "notice to be read");
    std::string ctry;
    const auto site_name = checkTarget::lookUpTargetSite(*ntc, session::refDb, ctry);
    const auto found = floor.find(bare::soughtBy(*ntc));
    const auto expected = found.count == 0  ? checkTarget::noTarget
                          : found.count > 1 ? checkTarget::severalTargets
                                            : found.site_name.c_str();
    require(site_name == expected && (found.count != 1 || ctry == found.ctry), "site that is looked up");
}

// Against a set in which notices find no assignment, one or several.
void checkLookUps()
{
    const auto notices = fixtures::actingNotices(500);
    const auto working = fixtures::emptyDatabase("lookedUp");
    fixtures::loadByProduct(notices, working);
    const auto folder = fixtures::path("smallSet");
    referenceSet::write(folder, {5000, 1, actingNotices::readFile(notices)}, true);
    MainModule::openDatabase(true, working, session::db);
    MainModule::openDatabase(true, folder + "/VELDABASEBETA.mdb", session::refDb);
    bare::LookUps floor(folder, false);
    for (int key = 1; key <= 500; ++key)
        checkLookUp(key, floor);
    MainModule::closeDatabase(session::db);
    MainModule::closeDatabase(session::refDb);
}

} // namespace

void checkFloors()
{
    platform::setClock(platform::LocalTime{2026, 3, 2, 12, 0, 0});
    checkShape(Shape::Diverse, 1000);
    checkShape(Shape::OneFrequency, 300);
    checkShape(Shape::OnePosition, 300);
    checkChanges();
    checkLookUps();
    platform::setClock({});
}
