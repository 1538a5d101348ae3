#include "floorCheck.h"

#include "bareList.h"
#include "bareLoad.h"
#include "bareReader.h"
#include "bareWrite.h"
#include "compareDatabases.h"
#include "db/MainModule.h"
#include "db/noticeList.h"
#include "elect/writeNtcToElect.h"
#include "fixtures.h"
#include "model/session.h"
#include "platform/hostFormat.h"

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

} // namespace

void checkFloors()
{
    platform::setClock(platform::LocalTime{2026, 3, 2, 12, 0, 0});
    checkShape(Shape::Diverse, 1000);
    checkShape(Shape::OneFrequency, 300);
    checkShape(Shape::OnePosition, 300);
    platform::setClock({});
}
