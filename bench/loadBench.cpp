#include "bareLoad.h"
#include "fixtures.h"
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

// The further notices of a shape into a database that holds `held` of them; all into an empty one when it is
// 0.
void measure(State& state, Load load, Shape shape, int held, int count)
{
    const auto file = fixtures::noticeFile(shape, held + 1, count);
    const auto before = held == 0 ? std::string() : fixtures::loadedDatabase(shape, held);
    for ([[maybe_unused]] auto turn : state) {
        state.PauseTiming();
        const auto database =
            held == 0 ? fixtures::emptyDatabase("filled") : fixtures::copyDatabase(before, "filled");
        state.ResumeTiming();
        benchmark::DoNotOptimize(load(file, database));
    }
    state.counters["notices/s"] = benchmark::Counter(count, benchmark::Counter::kIsIterationInvariantRate);
}

void addFlatness(const std::string& shapeName, Shape shape)
{
    constexpr int further = 1000;
    for (const auto& [side, load] : {std::pair<const char*, Load>{"ours", fixtures::loadByProduct},
                                     std::pair<const char*, Load>{"floor", loadByFloor}}) {
        const auto name = "further/" + shapeName + "/" + side;
        for (const int held : {further, fixtures::fullFile})
            registry::add(
                {name + "/" + std::to_string(held), benchmark::kMillisecond,
                 [load = load, shape, held](State& state) { measure(state, load, shape, held, further); }, 1,
                 5});
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
                                                "; PRAGMA cache_size=-65536; PRAGMA analysis_limit=200";
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
         [](State& state) { measure(state, fixtures::loadByProduct, Shape::Diverse, 0, fullFile); }, 1});
    add({"load/floor", benchmark::kMillisecond,
         [](State& state) { measure(state, loadByFloor, Shape::Diverse, 0, fullFile); }, 1});
    compare({"load of 32767 notices", "load/ours", "load/floor", 1.5});
    addFlatness("diverse", Shape::Diverse);
    addFlatness("oneFrequency", Shape::OneFrequency);
    addFlatness("onePosition", Shape::OnePosition);
    addJournals();
}
