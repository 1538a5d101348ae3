#include "db/MainModule.h"
#include "db/readDBToNtc.h"
#include "fixtures.h"
#include "model/InitializeNtc.h"
#include "model/session.h"
#include "registry.h"

namespace {

using benchmark::State;

// A notice with antennas: the first ones of the file include some.
const Ntc& typicalNotice()
{
    static const auto notice = [] {
        auto read = std::make_unique<Ntc>();
        const auto database = fixtures::loadedDatabase(fixtures::Shape::Diverse, 1000);
        MainModule::openDatabase(true, database, session::db);
        for (const auto key : fixtures::keysOf(database)) {
            InitializeNtc::initNtc(*read);
            readDBToNtc::readNtc(key, *read, session::db);
            if (read->antenna.at(1).present && read->coord.present)
                break;
        }
        MainModule::closeDatabase(session::db);
        return read;
    }();
    return *notice;
}

void copyAndEmpty(State& state)
{
    const auto record = std::make_unique<Ntc>();
    for ([[maybe_unused]] auto turn : state) {
        *record = typicalNotice();
        benchmark::DoNotOptimize(record.get());
        InitializeNtc::initNtc(*record);
        benchmark::ClobberMemory();
    }
}

void copyOver(State& state)
{
    const auto record = std::make_unique<Ntc>();
    for ([[maybe_unused]] auto turn : state) {
        *record = typicalNotice();
        benchmark::DoNotOptimize(record.get());
        benchmark::ClobberMemory();
    }
}

} // namespace

void registry::addRecord()
{
    add({"record/copy", benchmark::kNanosecond, copyOver});
    add({"record/copyAndEmpty", benchmark::kNanosecond, copyAndEmpty});
}
