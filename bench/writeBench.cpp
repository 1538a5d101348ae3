#include "bareWrite.h"
#include "db/MainModule.h"
#include "elect/writeNtcToElect.h"
#include "fixtures.h"
#include "model/session.h"
#include "registry.h"

namespace {

using benchmark::State;

std::string fullDatabase()
{
    return fixtures::loadedDatabase(fixtures::Shape::Diverse, fixtures::fullFile);
}

void writeByProduct(State& state)
{
    const auto database = fullDatabase();
    session::keyArray = fixtures::keysOf(database);
    session::keyCount = static_cast<std::int32_t>(session::keyArray.size());
    for ([[maybe_unused]] auto turn : state) {
        MainModule::openDatabase(false, database, session::db);
        writeNtcToElect::writeElectFile(fixtures::path("written"), session::db);
        MainModule::closeDatabase(session::db);
    }
}

void writeByFloor(State& state)
{
    const auto database = fullDatabase();
    const auto keys = fixtures::keysOf(database);
    for ([[maybe_unused]] auto turn : state)
        bare::writeFile(fixtures::path("written"), database, keys);
}

} // namespace

void registry::addWriting()
{
    add({"write/ours", benchmark::kMillisecond, writeByProduct, 1});
    add({"write/floor", benchmark::kMillisecond, writeByFloor, 1});
    compare({"writing 32767 notices", "write/ours", "write/floor", 2});
}
