#include "bareLoad.h"
#include "fixtures.h"
#include "progress.h"
#include "registry.h"

#include <array>

namespace {

using benchmark::State;
using fixtures::Shape;

using Load = int (*)(const std::string& file, const std::string& database);

int loadByFloor(const std::string& file, const std::string& database)
{
    return bare::load(file, database, fixtures::dateOfReceipt);
}

// All notices of a file into an empty database.
void measureWhole(State& state, Load load, int count)
{
    const auto file = fixtures::noticeFile(Shape::Diverse, 1, count);
    for ([[maybe_unused]] auto turn : state) {
        state.PauseTiming();
        const auto database = fixtures::emptyDatabase("filled");
        state.ResumeTiming();
        benchmark::DoNotOptimize(load(file, database));
    }
    state.counters["notices/s"] = benchmark::Counter(count, benchmark::Counter::kIsIterationInvariantRate);
}

// A thousand further notices of a shape into a database that holds `held` of them. Into a large one others go
// first, which bring the engine's memory of the file to the state that it has in the midst of a load.
void measureFurther(State& state, Load load, Shape shape, int held)
{
    const int others = held > 1000 ? 4000 : 0;
    const auto file = fixtures::noticeFile(shape, held + 1, others + 1000);
    const auto before = fixtures::loadedDatabase(shape, held);
    for ([[maybe_unused]] auto turn : state) {
        const auto database = fixtures::copyDatabase(before, "filled");
        progress::watch(others);
        load(file, database);
        state.SetIterationTime(progress::secondsPerThousand());
    }
}

void addFlatness(const std::string& shapeName, Shape shape)
{
    for (const auto& [side, load] : {std::pair<const char*, Load>{"ours", fixtures::loadByProduct},
                                     std::pair<const char*, Load>{"floor", loadByFloor}}) {
        const auto name = "further/" + shapeName + "/" + side;
        for (const int held : {1000, fixtures::fullFile})
            registry::add(
                {name + "/" + std::to_string(held), benchmark::kMillisecond,
                 [load = load, shape, held](State& state) { measureFurther(state, load, shape, held); }, 1, 5,
                 true});
        registry::compare({name + ": 32767 held to 1000 held", name + "/32767", name + "/1000",
                           load == loadByFloor ? 0 : 1.3});
    }
}

// What a load costs under other settings of the journal.
void addJournals()
{
    struct Setting
    {
        const char* name;
        const char* pragmas;
    };
    static constexpr std::array settings = {
        Setting{"DELETE+FULL", "PRAGMA journal_mode=DELETE; PRAGMA synchronous=FULL"},
        Setting{"PERSIST+OFF", "PRAGMA journal_mode=PERSIST; PRAGMA synchronous=OFF"},
        Setting{"TRUNCATE+OFF", "PRAGMA journal_mode=TRUNCATE; PRAGMA synchronous=OFF"},
        Setting{"WAL+OFF", "PRAGMA journal_mode=WAL; PRAGMA synchronous=OFF"},
    };
    for (const auto& setting : settings)
        registry::add({std::string("journal/") + setting.name, benchmark::kMillisecond,
                       [&setting](State& state) {
                           const auto pragmas = std::string(setting.pragmas) +
                                                "; PRAGMA cache_size=-262144; PRAGMA analysis_limit=1000";
                           const auto file = fixtures::noticeFile(Shape::Diverse, 1, 1000);
                           for ([[maybe_unused]] auto turn : state) {
                               state.PauseTiming();
                               const auto database = fixtures::emptyDatabase("filled");
                               state.ResumeTiming();
                               bare::load(file, database, fixtures::dateOfReceipt, {pragmas.c_str(), true});
                           }
                       },
                       1, 5});
}

} // namespace

void registry::addLoad()
{
    constexpr auto fullFile = fixtures::fullFile;
    add({"load/ours", benchmark::kMillisecond,
         [](State& state) { measureWhole(state, fixtures::loadByProduct, fullFile); }, 1});
    add({"load/floor", benchmark::kMillisecond,
         [](State& state) { measureWhole(state, loadByFloor, fullFile); }, 1});
    compare({"load of 32767 notices", "load/ours", "load/floor", 1.5});
    addFlatness("diverse", Shape::Diverse);
    addFlatness("oneFrequency", Shape::OneFrequency);
    addFlatness("onePosition", Shape::OnePosition);
    addJournals();
}
