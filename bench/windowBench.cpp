#include "childProgram.h"
#include "fixtures.h"
#include "paintedList.h"
#include "registry.h"

#include <sstream>

namespace {

using benchmark::State;

childProgram::Run runWindow(const std::vector<std::string>& arguments)
{
    return childProgram::run("zeph_bench_window", arguments);
}

void startProgram(State& state)
{
    double real = 0;
    for ([[maybe_unused]] auto turn : state) {
        const auto run = runWindow({"start"});
        state.SetIterationTime(run.cpuSeconds);
        real += run.realSeconds * 1000;
    }
    state.counters["real_ms"] = real / static_cast<double>(state.iterations());
}

void paintByProduct(State& state, int notices)
{
    const auto database = fixtures::loadedDatabase(fixtures::Shape::Diverse, notices);
    PaintedList list(database);
    list.refresh(notices);
    for ([[maybe_unused]] auto turn : state)
        list.refresh(notices);
    const auto kilobytes = runWindow({"list", database, std::to_string(notices)}).line;
    state.counters["peak_MB"] = std::stod(kilobytes) / 1024;
}

// The time of a step; the first screen is told beside it.
void walkByProduct(State& state)
{
    constexpr int steps = 200;
    const auto database = fixtures::loadedDatabase(fixtures::Shape::Diverse, 1000);
    double first = 0;
    for ([[maybe_unused]] auto turn : state) {
        std::istringstream figures(runWindow({"walk", database, std::to_string(steps)}).line);
        double milliseconds = 0;
        double step = 0;
        figures >> milliseconds >> step;
        first += milliseconds;
        state.SetIterationTime(step * 1e-3);
    }
    state.counters["first_ms"] = first / static_cast<double>(state.iterations());
}

} // namespace

void registry::addWindow()
{
    add({"walk", benchmark::kMillisecond, walkByProduct, 3, 3, true});
    add({"start", benchmark::kMillisecond, startProgram, 5, 5, true});
    std::vector<int> sizes = {fixtures::fullFile};
    if (fixtures::withLarge())
        sizes.push_back(fixtures::large);
    for (const int size : sizes) {
        const auto notices = std::to_string(size);
        add({"paint/ours/" + notices, benchmark::kMillisecond,
             [size](State& state) { paintByProduct(state, size); }});
        compare({"painted list of " + notices, "paint/ours/" + notices, "list/floor/" + notices, 1.5});
    }
}
