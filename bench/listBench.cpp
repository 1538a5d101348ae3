#include "bareList.h"
#include "db/MainModule.h"
#include "db/noticeList.h"
#include "fixtures.h"
#include "model/session.h"
#include "registry.h"

namespace {

using benchmark::State;

std::string listQuery()
{
    return noticeList::buildNoticeQuery("", noticeList::Sort::Index);
}

void listByProduct(State& state, int notices)
{
    MainModule::openDatabase(true, fixtures::loadedDatabase(fixtures::Shape::Diverse, notices), session::db);
    for ([[maybe_unused]] auto turn : state) {
        const auto rows = session::db->OpenRecordset(listQuery(), dao::dbOpenDynaset);
        noticeList::loadNoticeKeys(rows);
    }
    if (session::keyCount != notices)
        state.SkipWithError("rows are missing");
    MainModule::closeDatabase(session::db);
}

void listByFloor(State& state, int notices)
{
    const auto connection = bare::open(fixtures::loadedDatabase(fixtures::Shape::Diverse, notices), true);
    bare::Statement query(connection.get(), listQuery());
    for ([[maybe_unused]] auto turn : state)
        benchmark::DoNotOptimize(bare::readList(query));
}

} // namespace

void registry::addList()
{
    std::vector<int> sizes = {fixtures::fullFile};
    if (fixtures::withLarge())
        sizes.push_back(fixtures::large);
    for (const int size : sizes) {
        const auto notices = std::to_string(size);
        add({"list/ours/" + notices, benchmark::kMillisecond,
             [size](State& state) { listByProduct(state, size); }});
        add({"list/floor/" + notices, benchmark::kMillisecond,
             [size](State& state) { listByFloor(state, size); }});
        compare({"list of " + notices, "list/ours/" + notices, "list/floor/" + notices, 1.3});
    }
}
